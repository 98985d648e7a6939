// The work order and its completion summary over the recorder, to the twip. Recorder
// letters are half an em wide (100 twips at 10 point), lines 1.2 em high (240 twips); the
// page's printable area is 8 by 10.5 inches, and text stops half an inch above its end.

#include "recordingprintsurface.h"

#include "core/documents/workorderdocument.h"

#include <QtTest>

using namespace tresvane;

using Op = RecordingPrintSurface::Op;

namespace
{
constexpr double kFoot = 10.0 * 1440;
constexpr double kBodyTop = 3.75 * 1440;
constexpr double kLine = 240;

WorkOrderContent content(std::optional<QStringList> narrative = std::nullopt)
{
    WorkOrderContent c;
    c.heading = QStringLiteral("Estimate");
    c.date = QDate(2026, 4, 30);
    c.account = QStringLiteral("A-7");
    c.customerLines = {QStringLiteral("Jane Doe"), QStringLiteral("4 Elm Street"),
                       QStringLiteral("Springfield, IL 62704")};
    c.narrative = std::move(narrative);
    return c;
}

QStringList numberedLines(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines << QStringLiteral("Line %1").arg(i);
    return lines;
}

RecordingPrintSurface printed(const WorkOrderContent& c)
{
    RecordingPrintSurface surface;
    PrintJob job{surface, DocumentSettings{}};
    PrintWorkOrder(job, c);
    return surface;
}

} // namespace

class TestWorkOrderDocument : public QObject
{
    Q_OBJECT
private slots:
    void everyPageHasTheHeaderAndItsNumber();
    void narrativeFlowsOverPagesWithinTheFoot();
    void pageEndsBetweenTheLinesOfOneParagraph();
    void withoutANarrativeTheInstructionsAreRuled();
    void listPageOnlyWhenSomethingIsChosen_data();
    void listPageOnlyWhenSomethingIsChosen();
    void listRowsAndRightAlignedPrices();
    void longListGoesOnUnderANewHead();
    void summaryIsADocumentOfItsOwn();
};

void TestWorkOrderDocument::everyPageHasTheHeaderAndItsNumber()
{
    const RecordingPrintSurface p = printed(content(numberedLines(80)));
    QCOMPARE(p.documents(), 1);
    // 37 lines a page: from 3.75 inches to the foot at 10 inches.
    for (int page = 0; page < 3; ++page) {
        const QList<Op> numbers = p.findAll(QStringLiteral("Page %1").arg(page + 1));
        QCOMPARE(numbers.size(), 1);
        QCOMPARE(numbers[0].page, page);
        QCOMPARE(numbers[0].x, 5.0 * 1440);
        QCOMPARE(numbers[0].y, 0.9 * 1440 + 2 * kLine);
        QVERIFY(numbers[0].bold);
    }
    const QList<Op> titles = p.findAll(QStringLiteral("Estimate"));
    QCOMPARE(titles.size(), 3);
    QCOMPARE(titles[2].page, 2);
    QCOMPARE(p.findAll(QStringLiteral("Date 04/30/2026")).size(), 3);
    QCOMPARE(p.findAll(QStringLiteral("Acct: A-7")).size(), 3);
    QCOMPARE(p.findAll(QStringLiteral("Jane Doe")).size(), 3);
    QVERIFY(!p.find(QStringLiteral("Page 4")));
}

void TestWorkOrderDocument::narrativeFlowsOverPagesWithinTheFoot()
{
    const RecordingPrintSurface p = printed(content(numberedLines(80)));
    for (int i = 1; i <= 80; ++i) {
        const Op* op = p.find(QStringLiteral("Line %1").arg(i));
        QVERIFY2(op, qPrintable(QString::number(i)));
        const int page = (i - 1) / 37;
        QCOMPARE(op->page, page);
        QCOMPARE(op->x, 0.5 * 1440);
        QCOMPARE(op->y, kBodyTop + ((i - 1) % 37) * kLine);
        QVERIFY(op->y + kLine <= kFoot);
        QVERIFY(!op->bold);
    }
    // An empty line of the narrative keeps its room.
    const RecordingPrintSurface gap = printed(content(QStringList{"One", "", "Three"}));
    QCOMPARE(gap.find(QStringLiteral("Three"))->y, kBodyTop + 2 * kLine);
}

void TestWorkOrderDocument::pageEndsBetweenTheLinesOfOneParagraph()
{
    // 36 lines, then a paragraph three lines long (100 letters fit a line of 7 inches).
    QStringList narrative = numberedLines(36);
    narrative << QStringLiteral("abcdefghi ").repeated(25).trimmed();
    const RecordingPrintSurface p = printed(content(narrative));
    QList<Op> pieces;
    for (const Op& op : p.texts())
        if (op.text.startsWith(QStringLiteral("abcdefghi"))) pieces << op;
    QCOMPARE(pieces.size(), 3);
    QCOMPARE(pieces[0].page, 0);
    QCOMPARE(pieces[0].y, kBodyTop + 36 * kLine);
    QCOMPARE(pieces[1].page, 1);
    QCOMPARE(pieces[1].y, kBodyTop);
    QCOMPARE(pieces[2].y, kBodyTop + kLine);
    for (const Op& piece : pieces)
        QVERIFY(piece.text.size() * 100.0 <= 7 * 1440 - 20);
}

void TestWorkOrderDocument::withoutANarrativeTheInstructionsAreRuled()
{
    const RecordingPrintSurface p = printed(content());
    const Op* headline = p.find(QStringLiteral("Enter Instructions"));
    QVERIFY(headline);
    QCOMPARE(headline->x, 0.5 * 1440);
    QCOMPARE(headline->y, kBodyTop);
    QList<Op> rules;
    for (const Op& op : p.lines())
        if (op.y > kBodyTop) rules << op;
    // One under each line of text, from below the headline to the foot.
    QCOMPARE(rules.size(), 36);
    QCOMPARE(rules.first().y, kBodyTop + 2 * kLine);
    QCOMPARE(rules.last().y, kBodyTop + 37 * kLine);
    QVERIFY(rules.last().y <= kFoot);
    for (const Op& rule : rules) {
        QCOMPARE(rule.x, 0.5 * 1440);
        QCOMPARE(rule.x2, 7.5 * 1440);
        QCOMPARE(rule.y2, rule.y);
    }
    QCOMPARE(p.findAll(QStringLiteral("Page 1")).size(), 1);
}

void TestWorkOrderDocument::listPageOnlyWhenSomethingIsChosen_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("services");
    QTest::newRow("nothing chosen") << 0 << 0;
    QTest::newRow("an item") << 1 << 0;
    QTest::newRow("a service") << 0 << 1;
}

void TestWorkOrderDocument::listPageOnlyWhenSomethingIsChosen()
{
    QFETCH(int, items);
    QFETCH(int, services);
    WorkOrderContent c = content(QStringList{"Drain the tank"});
    if (items) c.items << PriceEntry{"Filter", "$12.95"};
    if (services) c.services << PriceEntry{"Tune-up", "$89.50"};
    const RecordingPrintSurface p = printed(c);
    const bool listed = items + services > 0;
    QCOMPARE(bool(p.find(QStringLiteral("Parts and Services List"))), listed);
    QCOMPARE(bool(p.find(QStringLiteral("Page 2"))), listed);
    int newPages = 0;
    for (const Op& op : p.ops)
        if (op.kind == Op::NewPage) ++newPages;
    QCOMPARE(newPages, listed ? 1 : 0);
}

void TestWorkOrderDocument::listRowsAndRightAlignedPrices()
{
    WorkOrderContent c = content(QStringList{"Drain the tank"});
    c.items = {{"Filter", "$12.95"}, {"Thermostat", "$1,089.99"}};
    c.services = {{"Tune-up", "$89.50"}};
    const RecordingPrintSurface p = printed(c);
    const Op* title = p.find(QStringLiteral("Parts and Services List"));
    QCOMPARE(title->page, 1);
    QCOMPARE(title->x, 3.0 * 1440);
    QCOMPARE(title->y, 3.6 * 1440);
    QCOMPARE(title->fontSize, 18.0);
    const Op* head = p.find(QStringLiteral("PRICE"));
    QCOMPARE(head->y, 4.05 * 1440);
    // The price column ends where its head does: 6.1 inches and five bold letters.
    const double priceRight = 6.1 * 1440 + 5 * 100;
    const QStringList order{"Filter", "Thermostat", "Tune-up"};
    const QStringList prices{"$12.95", "$1,089.99", "$89.50"};
    for (int i = 0; i < 3; ++i) {
        const Op* name = p.find(order[i]);
        QCOMPARE(name->x, 2.3 * 1440);
        QCOMPARE(name->y, 4.3 * 1440 + i * kLine);
        const Op* price = p.find(prices[i]);
        QCOMPARE(price->y, name->y);
        QCOMPARE(price->x + prices[i].size() * 100, priceRight);
    }
}

void TestWorkOrderDocument::longListGoesOnUnderANewHead()
{
    WorkOrderContent c = content();
    for (int i = 1; i <= 40; ++i)
        c.items << PriceEntry{QStringLiteral("Part %1").arg(i), QStringLiteral("$1.00")};
    // A description too long for its column takes two lines; the price stands on the first.
    c.services << PriceEntry{QStringLiteral("Seasonal inspection of the heating plant and all "
                                            "its controls"),
                             QStringLiteral("$99.00")};
    const RecordingPrintSurface p = printed(c);
    // From 4.3 inches to the foot: 34 rows a list page.
    QCOMPARE(p.find(QStringLiteral("Part 34"))->page, 1);
    const Op* next = p.find(QStringLiteral("Part 35"));
    QCOMPARE(next->page, 2);
    QCOMPARE(next->y, 4.3 * 1440);
    QCOMPARE(p.findAll(QStringLiteral("Parts and Services List")).size(), 2);
    QCOMPARE(p.find(QStringLiteral("Page 3"))->page, 2);
    const Op* first = p.find(QStringLiteral("Seasonal inspection of the heating plant and all"));
    QVERIFY(first);
    QCOMPARE(p.find(QStringLiteral("$99.00"))->y, first->y);
    QCOMPARE(p.find(QStringLiteral("its controls"))->y, first->y + kLine);
    QCOMPARE(p.find(QStringLiteral("its controls"))->x, 2.3 * 1440);
    for (const Op& op : p.texts())
        QVERIFY2(op.y + kLine <= kFoot || op.page == 0, qPrintable(op.text));
}

void TestWorkOrderDocument::summaryIsADocumentOfItsOwn()
{
    RecordingPrintSurface p;
    PrintJob job{p, DocumentSettings{}};
    const WorkOrderContent c = content(QStringList{"Drain the tank"});
    PrintWorkOrder(job, c);
    PrintCompletionSummary(job, c);
    QCOMPARE(p.documents(), 2);
    const Op* title = p.find(QStringLiteral("Summary Report"));
    QCOMPARE(title->document, 1);
    QCOMPARE(title->x, 5.0 * 1440);
    QCOMPARE(title->fontSize, 28.0);
    QVERIFY(title->bold);
    const Op* date = p.find(QStringLiteral("Date 04/30/2026"));
    QVERIFY(date->document == 0); // the work order's own comes first
    const QList<Op> dates = p.findAll(QStringLiteral("Date 04/30/2026"));
    QCOMPARE(dates.last().document, 1);
    QCOMPARE(dates.last().x, 5.0 * 1440);
    QCOMPARE(dates.last().y, 1.5 * 1440);
    const QStringList labels{"Start Time:", "Completion Time:", "Service Time:",
                             "Starting Odometer:", "Ending Odometer:"};
    for (int i = 0; i < labels.size(); ++i) {
        const Op* label = p.find(labels[i]);
        QCOMPARE(label->x, 5.0 * 1440);
        QCOMPARE(label->y, 1.5 * 1440 + (i + 2) * kLine);
        const QList<Op> blanks =
            p.findAll(i < 3 ? QStringLiteral("______:______") : QStringLiteral("____________"));
        QVERIFY(std::any_of(blanks.begin(), blanks.end(),
                            [&](const Op& b) { return b.x == 6.5 * 1440 && b.y == label->y; }));
    }
    const Op* anomalies = p.find(QStringLiteral("List any Anomalies prior to Commencement"));
    QCOMPARE(anomalies->x, 0.5 * 1440);
    QCOMPARE(anomalies->y, 4.3 * 1440);
    const Op* notDone =
        p.find(QStringLiteral("List any Services that could not be Performed and the Reason"));
    const Op* by = p.find(QStringLiteral("Service performed by: "));
    QVERIFY(notDone->y > anomalies->y && by->y > notDone->y);
    QVERIFY(by->y + kLine <= kFoot);
    QCOMPARE(p.findAll(QStringLiteral("Jane Doe")).last().document, 1);
    // Lines to write on under each heading, and the signature's rule.
    int rules = 0;
    for (const Op& op : p.lines())
        if (op.document == 1 && op.y > anomalies->y) ++rules;
    QCOMPARE(rules, 13);
}

QTEST_GUILESS_MAIN(TestWorkOrderDocument)
#include "test_workorderdocument.moc"
