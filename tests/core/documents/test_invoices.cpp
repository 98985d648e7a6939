// The three invoice styles over the recorder: which rows of a day are invoices and which
// record each prints, the order line, the customer, the services and the two item
// columns, the repair page and its tear-off, the office page, the remittance in its one
// place, and blank invoices. Recorder letters are half an em wide (100 twips at 10
// point), lines 1.2 em high (240 twips at 10 point).

#include "programfolder.h"
#include "recordingprintsurface.h"

#include "core/documents/invoices.h"
#include "core/io/itemrecords.h"
#include "core/io/sliprecord.h"
#include "core/io/usforms.h"
#include "core/schedule/timegrid.h"

#include <QtTest>

using namespace tresvane;

using Op = RecordingPrintSurface::Op;

namespace
{
const QDate kDay(2026, 5, 5); // day 125
constexpr double kIn = 1440;

SlipRecord slip(const QString& number, const QString& name, int start = 3, int hours = 1,
                const QString& account = "A-100", const QString& reason = "No Heat")
{
    SlipRecord r;
    r.setText(SlipField::RecType, QStringLiteral("Service"));
    r.setText(SlipField::ConfirmationNo, number);
    r.setText(SlipField::TeamNo, QStringLiteral("1"));
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::EventDate, QStringLiteral("05/05/2026"));
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Reference, reason);
    r.setText(SlipField::AcctNo, account);
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, QStringLiteral("12 Mill Road"));
    r.setText(SlipField::Apt, QStringLiteral("Unit 3"));
    r.setText(SlipField::City, QStringLiteral("Greenfield"));
    r.setText(SlipField::St, QStringLiteral("OH"));
    r.setText(SlipField::Zip, QStringLiteral("45123"));
    return r;
}

ScheduleDay freeDay()
{
    ScheduleDay day;
    day.date = kDay;
    day.team = 1;
    day.teamName = QStringLiteral("North Truck");
    day.slotTexts.fill(QStringLiteral("No Event Scheduled"));
    return day;
}

// A folder with team 1's day file and its slips, the price lists when asked for.
struct Folder {
    ProgramFolder f;
    Folder()
    {
        f.v.gAssignTo = {"populated", "North Truck"};
        BuildTimeLabels(f.v);
    }
    void day(const std::array<QString, 12>& slotTexts, const QList<SlipRecord>& slips)
    {
        QByteArray file;
        for (const QString& slot : slotTexts)
            file += "\"" + slot.toLatin1() + "\"\r\n";
        f.put("2026/Team#1/125.txt", file);
        QByteArray bytes;
        for (const SlipRecord& r : slips)
            bytes += r.bytes();
        f.put("Slips.txt", bytes);
    }
    void services(int count, const QString& price = "45")
    {
        QList<ServiceRecord> list;
        for (int i = 1; i <= count; ++i) {
            ServiceRecord r;
            r.setText(ServiceField::ServiceName, QStringLiteral("Service %1").arg(i));
            r.setText(ServiceField::ServicePrice, price);
            list << r;
        }
        QVERIFY(WriteServices(f.store, CurrentServicesFileName(), list).ok());
    }
    void items(int count, qint64 units = 125000)
    {
        QList<InventoriedItemRecord> list;
        for (int i = 1; i <= count; ++i) {
            InventoriedItemRecord r;
            r.setText(InventoriedItemField::StockName, QStringLiteral("Item %1").arg(i));
            r.setCurrency(InventoriedItemField::StockPrice, units * i);
            list << r;
        }
        QVERIFY(WriteCurrentItems(f.store, list).ok());
    }
    void repairItems(const QList<std::pair<QString, QString>>& entries)
    {
        QList<InvoiceItemRecord> list;
        for (const auto& [name, price] : entries) {
            InvoiceItemRecord r;
            r.setText(InvoiceItemField::ItemName, name);
            r.setText(InvoiceItemField::ItemPrice, price);
            list << r;
        }
        QVERIFY(WriteInvoiceItems(f.store, list).ok());
    }
    // One slip at 08:00am for two hours.
    void oneSlip(const QString& number = "SA125-1", const QString& account = "A-100")
    {
        std::array<QString, 12> slotTexts;
        slotTexts.fill("No Event Scheduled");
        slotTexts[2] = slotTexts[3] = number + " Ada Byron";
        day(slotTexts, {slip(number, "Ada Byron", 3, 2, account)});
    }
    Result<int> print(RecordingPrintSurface& r, InvoiceStyle style, int blanks = 0,
                      bool memo = false, bool reason = false)
    {
        PrintJob job{r, DocumentSettings{}};
        InvoiceRequest request{kDay, 1, style, memo, reason, blanks};
        return PrintInvoices(job, f.store, f.v, request);
    }
};

// The texts at or below y (twips), as text and position, for comparing two pages' feet.
QStringList placedFrom(const RecordingPrintSurface& r, double y)
{
    QStringList out;
    for (const Op& op : r.texts())
        if (op.y >= y)
            out << QStringLiteral("%1 @%2,%3/%4").arg(op.text).arg(op.x).arg(op.y).arg(op.fontSize);
    return out;
}

double rightEdge(const Op& op)
{
    return op.x + op.text.size() * op.fontSize * 10;
}
} // namespace

class TestInvoices : public QObject
{
    Q_OBJECT
private slots:
    void slipsOfTheDay_data();
    void slipsOfTheDay();
    void recordFoundByItsNumberNotItsRow();
    void orderLineAndCustomerBlock_data();
    void orderLineAndCustomerBlock();
    void servicesWithPricesAtTheRight_data();
    void servicesWithPricesAtTheRight();
    void itemColumns_data();
    void itemColumns();
    void missingListsKeepTheirHeads();
    void remittanceStaysInItsPlace_data();
    void remittanceStaysInItsPlace();
    void repairPageAndItsTearOff();
    void officePageFillsEmptyFieldsWithBlanks_data();
    void officePageFillsEmptyFieldsWithBlanks();
    void memoEndsAboveTheFirstBox_data();
    void memoEndsAboveTheFirstBox();
    void blankInvoicesWhateverTheStyle_data();
    void blankInvoicesWhateverTheStyle();
    void dayWithoutSlipsPrintsNothing();
    void everyPageStaysOnThePaperInBlackWhenColourIsOff_data();
    void everyPageStaysOnThePaperInBlackWhenColourIsOff();
    void blankCountTyped_data();
    void blankCountTyped();
};

void TestInvoices::slipsOfTheDay_data()
{
    QTest::addColumn<QStringList>("slotTexts"); // rows 0.. as given, the rest free
    QTest::addColumn<QStringList>("records");   // numbers that have a record
    QTest::addColumn<QStringList>("numbers");
    QTest::addColumn<QList<int>>("firstRows");
    QTest::newRow("program numbers, hours repeat")
        << QStringList{"No Event Scheduled", "SA125-1 Ada", "SA125-1 Ada", "SA125-2 Hill"}
        << QStringList{"SA125-1", "SA125-2"} << QStringList{"SA125-1", "SA125-2"}
        << QList<int>{1, 3};
    QTest::newRow("continuous numbers")
        << QStringList{"12044 Ada", "12044 Ada", "12045 Hill"} << QStringList{"12044", "12045"}
        << QStringList{"12044", "12045"} << QList<int>{0, 2};
    QTest::newRow("one slip split by another is still one invoice")
        << QStringList{"SA125-1 Ada", "SA125-2 Hill", "SA125-1 Ada"}
        << QStringList{"SA125-1", "SA125-2"} << QStringList{"SA125-1", "SA125-2"}
        << QList<int>{0, 1};
    QTest::newRow("meetings, recurring events, blocked days and words are no invoices")
        << QStringList{"Mtg - 09:00 - Ada", "Recurring Event - Pool", "Holiday",
                       "Sam Adams",         "sa125-1 lower case",     "12a Baker"}
        << QStringList{"Mtg", "sa125-1", "12a"} << QStringList{} << QList<int>{};
    QTest::newRow("a number without its record is passed over")
        << QStringList{"SA125-9 Gone", "SA125-1 Ada"} << QStringList{"SA125-1"}
        << QStringList{"SA125-1"} << QList<int>{1};
}

void TestInvoices::slipsOfTheDay()
{
    QFETCH(QStringList, slotTexts);
    QFETCH(QStringList, records);
    QFETCH(QStringList, numbers);
    QFETCH(QList<int>, firstRows);
    ScheduleDay day = freeDay();
    for (int i = 0; i < slotTexts.size(); ++i)
        day.slotTexts[i] = slotTexts[i];
    for (const QString& number : records)
        day.records << slip(number, "Customer " + number);
    const QList<InvoiceSlip> slips = InvoiceSlips(day);
    QStringList got;
    QList<int> rows;
    for (const InvoiceSlip& s : slips) {
        got << s.number;
        rows << s.firstRow;
        QCOMPARE(s.record.text(SlipField::Name), "Customer " + s.number);
    }
    QCOMPARE(got, numbers);
    QCOMPARE(rows, firstRows);
}

void TestInvoices::recordFoundByItsNumberNotItsRow()
{
    // SA125-1's record says it starts at 01:00pm, but its rows are 08:00am and 09:00am,
    // where SA125-2's record claims to stand: each page still prints its own customer.
    Folder d;
    std::array<QString, 12> slotTexts;
    slotTexts.fill("No Event Scheduled");
    slotTexts[2] = slotTexts[3] = "SA125-1 Ada Byron";
    slotTexts[4] = "SA125-2 Hill Bakery";
    d.day(slotTexts, {slip("SA125-2", "Hill Bakery", 3, 3, "B-7"),
                      slip("SA125-1", "Ada Byron", 7, 2, "A-100")});
    RecordingPrintSurface r;
    Result<int> pages = d.print(r, InvoiceStyle::ServiceOrder);
    QVERIFY2(pages.ok(), qPrintable(pages.message()));
    QCOMPARE(*pages, 2);
    QCOMPARE(r.documents(), 2);
    auto has = [&](int document, const QString& text) {
        for (const Op& op : r.document(document))
            if (op.text == text) return true;
        return false;
    };
    QVERIFY(has(0, "Service Order # SA125-1"));
    QVERIFY(has(0, "Ada Byron"));
    QVERIFY(!has(0, "Hill Bakery"));
    QVERIFY(has(0, "Scheduled Time 08:00am"));
    QVERIFY(has(1, "Service Order # SA125-2"));
    QVERIFY(has(1, "Hill Bakery"));
    QVERIFY(has(1, "Scheduled Time 10:00am"));
}

void TestInvoices::orderLineAndCustomerBlock_data()
{
    QTest::addColumn<bool>("usa");
    QTest::addColumn<bool>("reason");
    QTest::addColumn<QStringList>("block");
    QTest::newRow("USA style") << true << false
                               << QStringList{"Ada Byron", "12 Mill Road", "Unit 3",
                                              "Greenfield, OH 45123"};
    QTest::newRow("international style: the town's parts on their lines")
        << false << false
        << QStringList{"Ada Byron", "12 Mill Road", "Unit 3", "Greenfield", "OH", "45123"};
    QTest::newRow("with the problem reported")
        << true << true
        << QStringList{"Ada Byron", "12 Mill Road", "Unit 3", "Greenfield, OH 45123",
                       "Problem Reported: No Heat"};
}

void TestInvoices::orderLineAndCustomerBlock()
{
    QFETCH(bool, usa);
    QFETCH(bool, reason);
    QFETCH(QStringList, block);
    Folder d;
    d.oneSlip();
    RecordingPrintSurface r;
    PrintJob job{r, DocumentSettings{}};
    job.settings.usaAddress = usa;
    QVERIFY(PrintInvoices(job, d.f.store, d.f.v,
                          {kDay, 1, InvoiceStyle::ServiceOrder, false, reason, 0})
                .ok());
    // The order line at (5, 0.7) in 14 point, the date and time under it in 10.
    const struct {
        const char* text;
        double y, size;
    } order[] = {{"Service Order # SA125-1", 0.7 * kIn, 14},
                 {"Scheduled Date 05/05/2026", 0.7 * kIn + 336, 10},
                 {"Scheduled Time 08:00am", 0.7 * kIn + 336 + 240, 10}};
    for (const auto& want : order) {
        const Op* op = r.find(QString::fromLatin1(want.text));
        QVERIFY2(op, want.text);
        QCOMPARE(op->x, 5 * kIn);
        QCOMPARE(op->y, want.y);
        QCOMPARE(op->fontSize, want.size);
    }
    // The customer at (0.5, 1.6), a line each; the remittance repeats the address lines
    // under "Account Information", without the problem.
    for (int i = 0; i < block.size(); ++i) {
        const QList<Op> at = r.findAll(block[i]);
        QVERIFY2(!at.isEmpty(), qPrintable(block[i]));
        QCOMPARE(at[0].x, 0.5 * kIn);
        QCOMPARE(at[0].y, 1.6 * kIn + 240 * i);
        const bool problem = block[i].startsWith(u"Problem");
        QCOMPARE(at.size(), problem ? 1 : 2);
        if (!problem) QCOMPARE(at[1].x, 3 * kIn);
    }
    QCOMPARE(r.find("Problem Reported: No Heat") != nullptr, reason);
}

void TestInvoices::servicesWithPricesAtTheRight_data()
{
    QTest::addColumn<QString>("price");
    QTest::addColumn<QString>("printed");
    QTest::newRow("whole dollars") << "45"
                                   << "$45.00";
    QTest::newRow("thousands") << "1234.5"
                               << "$1,234.50";
    QTest::newRow("a price of 0") << "0"
                                  << "$0.00";
    QTest::newRow("no amount at all") << "call"
                                      << "$0.00";
}

void TestInvoices::servicesWithPricesAtTheRight()
{
    QFETCH(QString, price);
    QFETCH(QString, printed);
    Folder d;
    d.oneSlip();
    d.services(8, price);
    RecordingPrintSurface r;
    QVERIFY(d.print(r, InvoiceStyle::ServiceOrder).ok());
    const QList<Op> prices = r.findAll(printed);
    QCOMPARE(prices.size(), 8);
    for (int k = 0; k < 8; ++k) {
        const Op* name = r.find(QStringLiteral("Service %1").arg(k + 1));
        QVERIFY(name);
        QCOMPARE(name->x, 1 * kIn);
        QCOMPARE(name->y, 3.05 * kIn + k * (240 + 144));
        QCOMPARE(name->fontSize, 10.0);
        QCOMPARE(prices[k].y, name->y);
        // Right-aligned on 7.25 inches.
        QCOMPARE(rightEdge(prices[k]), 10440.0);
    }
    // The eighth service ends above the services' total.
    const Op* total = r.find("Total of Services Performed");
    QVERIFY(prices[7].y + 240 <= total->y);
}

void TestInvoices::itemColumns_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("rightColumn"); // item numbers in the right column
    QTest::newRow("three") << 3 << QList<int>{};
    QTest::newRow("eight: four and four") << 8 << QList<int>{5, 6, 7, 8};
    QTest::newRow("nine: the ninth goes on down the right column")
        << 9 << QList<int>{5, 6, 7, 8, 9};
}

void TestInvoices::itemColumns()
{
    QFETCH(int, count);
    QFETCH(QList<int>, rightColumn);
    Folder d;
    d.oneSlip();
    d.items(count);
    RecordingPrintSurface r;
    QVERIFY(d.print(r, InvoiceStyle::ServiceOrder).ok());
    const double step = 8 * 24 + 96; // an 8 point line and its gap
    int left = 0, right = 0;
    for (int i = 1; i <= count; ++i) {
        const Op* name = r.find(QStringLiteral("Item %1").arg(i));
        QVERIFY2(name, qPrintable(QString::number(i)));
        QCOMPARE(name->fontSize, 8.0);
        const bool onRight = rightColumn.contains(i);
        const int k = onRight ? right++ : left++;
        QCOMPARE(name->x, (onRight ? 4.5 : 1) * kIn);
        QCOMPARE(name->y, 5.8 * kIn + k * step);
        // The price on the same line, flush with the end of its Cost column.
        const Op* price = r.find(FormatCurrency(125000 * i));
        QVERIFY(price);
        QCOMPARE(price->y, name->y);
        QCOMPARE(rightEdge(*price), (onRight ? 7.0 : 3.5) * kIn);
        // The column's last item stays above the total and its rule.
        QVERIFY(name->y + 8 * 24 <= 6.75 * kIn);
    }
    QCOMPARE(right, int(rightColumn.size()));
}

void TestInvoices::missingListsKeepTheirHeads()
{
    Folder d;
    d.oneSlip();
    RecordingPrintSurface r;
    QVERIFY(d.print(r, InvoiceStyle::ServiceOrder).ok());
    const struct {
        const char* text;
        double x, y, size;
    } heads[] = {{"Service", 2, 2.8, 12},
                 {"Status", 5.15, 2.8, 12},
                 {"Charge", 6.7, 2.8, 12},
                 {"Total of Services Performed", 0.6, 5.3, 12},
                 {"Item Used", 1.5, 5.6, 8},
                 {"Ext", 3.6, 5.6, 8},
                 {"Total of Items Used", 0.6, 6.755, 12}};
    for (const auto& h : heads) {
        const Op* op = r.find(QString::fromLatin1(h.text));
        QVERIFY2(op, h.text);
        QCOMPARE(op->x, h.x * kIn);
        QCOMPARE(qRound(op->y), qRound(h.y * kIn));
        QCOMPARE(op->fontSize, h.size);
        QVERIFY(op->bold);
    }
    QCOMPARE(r.findAll("Qty").size(), 2);
    QCOMPARE(r.findAll("Item Used")[1].x, 5 * kIn);
    for (const Op& op : r.texts())
        QVERIFY2(!op.text.startsWith(u"$"), qPrintable(op.text));
    // The boxes: heavy edges at 2.75, 5.5 and 7 inches.
    QList<double> heavy;
    for (const Op& line : r.lines())
        if (line.drawWidth == 13 && line.y == line.y2) heavy << Inches(line.y);
    QCOMPARE(heavy, (QList<double>{2.75, 5.5, 7.0}));
}

void TestInvoices::remittanceStaysInItsPlace_data()
{
    QTest::addColumn<int>("services");
    QTest::addColumn<int>("items");
    QTest::addColumn<bool>("reason");
    QTest::newRow("full lists") << 8 << 8 << true;
    QTest::newRow("empty lists") << 0 << 0 << false;
    QTest::newRow("nine items") << 3 << 9 << false;
}

void TestInvoices::remittanceStaysInItsPlace()
{
    QFETCH(int, services);
    QFETCH(int, items);
    QFETCH(bool, reason);
    Folder d;
    d.oneSlip();
    if (services) d.services(services);
    if (items) d.items(items);
    RecordingPrintSurface r;
    QVERIFY(d.print(r, InvoiceStyle::ServiceOrder, 0, false, reason).ok());

    const Op* note = r.find("Please return this portion with Payment");
    QVERIFY(note);
    QCOMPARE(note->x, 4 * kIn);
    QCOMPARE(note->y, 7.5 * kIn);
    QCOMPARE(note->fontSize, 6.0);
    const double heads = 7.5 * kIn + 6 * 24;
    for (const auto& [text, x] : {std::pair{"Please Remit To:", 0.5},
                                  {"Account Information", 3.0},
                                  {"Payment Information", 6.0}}) {
        const Op* op = r.find(QString::fromLatin1(text));
        QVERIFY2(op, text);
        QCOMPARE(op->x, x * kIn);
        QCOMPARE(op->y, heads);
        QVERIFY(op->bold);
    }
    // The payment block from (5, 8): 144 twips between lines, 288 after "PAID BY" and
    // after the check's line; only "PAID BY" is bold.
    const struct {
        const char* text;
        double x, y;
    } payment[] = {{"Amount Enclosed___________________", 5, 8 * kIn},
                   {"PAID BY", 6.25, 8 * kIn + 384},
                   {"___ Check   Check #_________________", 5, 8 * kIn + 384 + 528},
                   {"___ Cash", 5, 8 * kIn + 384 + 528 * 2},
                   {"___ Credit Card # ___________________", 5, 8 * kIn + 384 * 2 + 528 * 2},
                   {"Expires Date:  ______/______/_________", 5, 8 * kIn + 384 * 3 + 528 * 2},
                   {"Signature __________________________", 5, 8 * kIn + 384 * 4 + 528 * 2}};
    for (const auto& want : payment) {
        const Op* op = r.find(QString::fromLatin1(want.text));
        QVERIFY2(op, want.text);
        QCOMPARE(op->x, want.x * kIn);
        QCOMPARE(op->y, want.y);
        QCOMPARE(op->bold, QByteArray(want.text) == "PAID BY");
        QVERIFY(rightEdge(*op) <= 8 * kIn);
    }
    const QList<Op> totals = r.findAll("INVOICE TOTAL  ____________");
    QCOMPARE(totals.last().x, 0.5 * kIn);
    QCOMPARE(totals.last().y, 9 * kIn);
    // The business block under its head stays clear of the invoice total.
    QVERIFY(r.findAll("Telephone: ").last().y + 240 <= 9 * kIn);

    // The same strip, to the twip, whatever the lists above it hold.
    Folder plain;
    plain.oneSlip();
    RecordingPrintSurface empty;
    QVERIFY(plain.print(empty, InvoiceStyle::ServiceOrder).ok());
    QCOMPARE(placedFrom(r, 7.5 * kIn), placedFrom(empty, 7.5 * kIn));
}

void TestInvoices::repairPageAndItsTearOff()
{
    Folder d;
    d.oneSlip();
    d.repairItems({{"Filter", "12.5"}, {"Thermostat", "0"}, {"Labour per hour", "call"}});
    d.f.put("ServiceInvoiceMemo.txt", "Thank you for your business\r\n");
    RecordingPrintSurface r;
    QVERIFY(d.print(r, InvoiceStyle::Repair, 0, true, true).ok());
    QCOMPARE(r.documents(), 1);
    for (const Op& op : r.ops)
        QCOMPARE(op.orientation, PrintSurface::Orientation::Landscape);
    // The title keeps its two trailing blanks and ends before the perforation.
    const Op* title = r.find("REPAIR INVOICE  ");
    QVERIFY(title);
    QCOMPARE(title->x, 5 * kIn);
    QVERIFY(title->fontSize <= 28);
    QVERIFY(rightEdge(*title) <= 7.9 * kIn);
    // The memo is the second thing on the page: after the business block, before the title.
    const QStringList texts = r.textStrings();
    QVERIFY(texts.indexOf("Thank you for your business") < texts.indexOf("REPAIR INVOICE  "));
    QVERIFY(texts.indexOf("Telephone: ") < texts.indexOf("Thank you for your business"));

    // The item rows from the repair list: names at 1.8, prices right-aligned on 5 inches,
    // a quarter inch apart from 3.3.
    const struct {
        const char* name;
        const char* price;
    } rows[] = {{"Filter", "$12.50"}, {"Thermostat", "$0.00"}, {"Labour per hour", "call"}};
    for (int k = 0; k < 3; ++k) {
        const Op* name = r.find(QString::fromLatin1(rows[k].name));
        const Op* price = r.find(QString::fromLatin1(rows[k].price));
        QVERIFY(name && price);
        QCOMPARE(name->x, 1.8 * kIn);
        QCOMPARE(name->y, (3.3 + 0.25 * k) * kIn);
        QCOMPARE(price->y, name->y);
        QCOMPARE(rightEdge(*price), 7200.0);
    }
    for (const auto& [text, x] :
         {std::pair{"QTY", 1.1}, {"DESCRIPTION", 1.75}, {"UNIT COST", 4.1}, {"TOTAL", 5.2}}) {
        const Op* op = r.find(QString::fromLatin1(text));
        QVERIFY2(op, text);
        QCOMPARE(op->x, x * kIn);
        QCOMPARE(op->y, 3.05 * kIn);
    }
    QCOMPARE(r.find("____ PAID IN FULL")->y, 6.6 * kIn);
    QCOMPARE(r.find("INVOICE TOTAL")->x, 3.25 * kIn);

    // The tear-off right of the perforation: its title at (8, 1), the customer under it,
    // the status and payment ticks; the job sheet all left of 8 inches.
    const Op* summary = r.find("Service Attention Summary");
    QVERIFY(summary);
    QCOMPARE(summary->x, 8 * kIn);
    QCOMPARE(summary->y, 1 * kIn);
    const Op* name = nullptr;
    const QList<Op> names = r.findAll("Ada Byron"); // kept: name points into it
    for (const Op& op : names)
        if (op.x == 8 * kIn) name = &op;
    QVERIFY(name);
    QVERIFY(name->bold);
    QCOMPARE(name->y, 1 * kIn + 12 * 24);
    const QList<Op> street = r.findAll("12 Mill Road");
    QCOMPARE(street.last().x, 8.5 * kIn);
    QCOMPARE(r.find("Invoice Status")->x, 8.5 * kIn);
    QCOMPARE(r.find("Invoice Status")->y, 3.5 * kIn);
    QCOMPARE(r.find("Form of Payment")->y, 5 * kIn);
    QCOMPARE(r.find("   ___ Completed/Collected")->x, 8 * kIn);
    for (const Op& op : r.texts()) {
        if (op.x >= 8 * kIn)
            QVERIFY2(rightEdge(op) <= 10.5 * kIn, qPrintable(op.text));
        else
            QVERIFY2(rightEdge(op) <= 8 * kIn, qPrintable(op.text));
        QVERIFY2(op.y + op.fontSize * 24 <= 8 * kIn, qPrintable(op.text));
    }
    for (const Op& line : r.lines())
        QVERIFY(std::max(line.x, line.x2) < 8 * kIn);
    // The repair page prints no services or service order items.
    QVERIFY(!r.find("Total of Items Used"));
}

void TestInvoices::officePageFillsEmptyFieldsWithBlanks_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("accountLine");
    QTest::newRow("an account") << "A-100"
                                << "Acct No : A-100";
    QTest::newRow("no account: five blanks") << ""
                                             << "Acct No :      ";
}

void TestInvoices::officePageFillsEmptyFieldsWithBlanks()
{
    QFETCH(QString, account);
    QFETCH(QString, accountLine);
    Folder d;
    d.oneSlip("SA125-1", account);
    // Lists on file are not the office invoice's business.
    d.services(3);
    d.items(3);
    d.repairItems({{"Filter", "12.5"}});
    RecordingPrintSurface r;
    QVERIFY(d.print(r, InvoiceStyle::Office).ok());
    QCOMPARE(r.ops.first().orientation, PrintSurface::Orientation::Portrait);
    const Op* title = r.find("INVOICE");
    QVERIFY(title);
    QCOMPARE(title->fontSize, 28.0);
    const QStringList block{"Invoice Date 05/05/2026", "Invoice No. _____________________",
                            "Service Attn No.  SA125-1", accountLine,
                            "Invoice Total:    _______________"};
    for (int i = 0; i < block.size(); ++i) {
        const Op* op = r.find(block[i]);
        QVERIFY2(op, qPrintable(block[i]));
        QCOMPARE(op->x, 5.5 * kIn);
        QCOMPARE(op->y, 1 * kIn + 240 * i);
        QVERIFY(op->bold);
    }
    QCOMPARE(r.find("DESCRIPTION")->y, 4.05 * kIn);
    QVERIFY(r.find("Start Time:"));
    QVERIFY(!r.find("INVOICE TOTAL  ____________"));
    for (const char* never : {"Service 1", "Item 1", "Filter", "Total of Items Used"})
        QVERIFY2(!r.find(never), qPrintable(never));
    for (const Op& op : r.texts())
        QVERIFY2(rightEdge(op) <= 8 * kIn, qPrintable(op.text));
}

void TestInvoices::memoEndsAboveTheFirstBox_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("foot");
    QTest::newRow("service order: on the services box") << 2 << 2.75;
    QTest::newRow("repair: on the item sheet") << 1 << 2.9;
    QTest::newRow("office: inside the header's frame") << 0 << 3.45;
}

void TestInvoices::memoEndsAboveTheFirstBox()
{
    QFETCH(int, style);
    QFETCH(double, foot);
    Folder d;
    d.oneSlip();
    // The second line is wrapped at blanks into two.
    const QString longLine = QStringLiteral("Payment is due within thirty days of the date of "
                                            "this invoice; a charge of one and a half per "
                                            "cent a month is added after that");
    d.f.put("ServiceInvoiceMemo.txt", "Thank you\r\n" + longLine.toLatin1() + "\r\n");
    RecordingPrintSurface with;
    QVERIFY(d.print(with, InvoiceStyleOf(qint16(style)), 0, true).ok());
    QList<Op> memo;
    for (const Op& op : with.texts())
        if (op.x == 2 * kIn && (op.text == u"Thank you" || longLine.contains(op.text))) memo << op;
    QCOMPARE(memo.size(), 3);
    QCOMPARE(memo.last().y + 240, foot * kIn);
    // The rest of the page does not move for it.
    RecordingPrintSurface without;
    QVERIFY(d.print(without, InvoiceStyleOf(qint16(style)), 0, false).ok());
    QCOMPARE(with.texts().size(), without.texts().size() + 3);
    QVERIFY(!without.find("Thank you"));
}

void TestInvoices::blankInvoicesWhateverTheStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("repair") << 1;
    QTest::newRow("service order") << 2;
    QTest::newRow("office") << 0;
}

void TestInvoices::blankInvoicesWhateverTheStyle()
{
    QFETCH(int, style);
    Folder d;
    d.oneSlip();
    RecordingPrintSurface r;
    Result<int> pages = d.print(r, InvoiceStyleOf(qint16(style)), 3);
    QVERIFY(pages.ok());
    QCOMPARE(*pages, 3);
    QCOMPARE(r.documents(), 3);
    for (const Op& op : r.ops)
        QCOMPARE(op.orientation, PrintSurface::Orientation::Landscape);
    QCOMPARE(r.findAll("REPAIR INVOICE  ").size(), 3);
    // The labels without a value; nobody's name or address.
    QCOMPARE(r.findAll("Service Order # ").size(), 3);
    QCOMPARE(r.findAll("Scheduled Date ").size(), 3);
    QCOMPARE(r.findAll("Scheduled Time ").size(), 3);
    for (const char* never : {"Ada Byron", "12 Mill Road", "SA125-1"})
        for (const QString& text : r.textStrings())
            QVERIFY2(!text.contains(never), qPrintable(text));
    // In their place, rules 576 twips apart for the customer and on the tear-off.
    QList<double> rules;
    for (const Op& line : r.lines())
        if (line.document == 0 && line.x == 0.5 * kIn) rules << line.y;
    QCOMPARE(rules.size(), 3);
    QCOMPARE(rules[1] - rules[0], 576.0);
    QCOMPARE(rules[2] - rules[1], 576.0);
    int tearOff = 0;
    for (const Op& line : r.lines())
        if (line.document == 0 && line.x == 8 * kIn) ++tearOff;
    QCOMPARE(tearOff, 3);
}

void TestInvoices::dayWithoutSlipsPrintsNothing()
{
    Folder d;
    std::array<QString, 12> slotTexts;
    slotTexts.fill("No Event Scheduled");
    slotTexts[4] = "Mtg - 10:00 - Hill Bakery";
    d.day(slotTexts, {});
    for (InvoiceStyle style :
         {InvoiceStyle::ServiceOrder, InvoiceStyle::Repair, InvoiceStyle::Office}) {
        RecordingPrintSurface r;
        Result<int> pages = d.print(r, style);
        QVERIFY(pages.ok());
        QCOMPARE(*pages, 0);
        QVERIFY(r.ops.isEmpty());
        QCOMPARE(*CountInvoices(d.f.store, d.f.v, {kDay, 1, style}), 0);
    }
    QVERIFY(NoInvoicesMessage("North Truck", kDay).contains("no invoices for this day"));
    QVERIFY(NoInvoicesMessage("North Truck", kDay).contains("North Truck"));
    QVERIFY(NoInvoicesMessage("North Truck", kDay).contains("05/05/2026"));
}

void TestInvoices::everyPageStaysOnThePaperInBlackWhenColourIsOff_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("repair") << 1;
    QTest::newRow("service order") << 2;
    QTest::newRow("office") << 0;
}

void TestInvoices::everyPageStaysOnThePaperInBlackWhenColourIsOff()
{
    QFETCH(int, style);
    Folder d;
    d.oneSlip();
    d.services(8);
    d.items(8);
    RecordingPrintSurface colour;
    {
        PrintJob job{colour, DocumentSettings{}};
        job.settings.borderColor = 0x0000FF;
        job.settings.textColor = 0xFF0000;
        QVERIFY(PrintInvoices(job, d.f.store, d.f.v,
                              {kDay, 1, InvoiceStyleOf(qint16(style)), false, true})
                    .ok());
    }
    bool red = false, blue = false;
    for (const Op& op : colour.ops) {
        red = red || (op.kind == Op::Line && op.color == 0x0000FF);
        blue = blue || (op.kind == Op::Text && op.color == 0xFF0000);
    }
    QVERIFY(red && blue);
    RecordingPrintSurface black;
    PrintJob job{black, DocumentSettings{}};
    job.settings.color = false;
    job.settings.borderColor = 0x0000FF;
    job.settings.textColor = 0xFF0000;
    QVERIFY(
        PrintInvoices(job, d.f.store, d.f.v, {kDay, 1, InvoiceStyleOf(qint16(style)), false, true})
            .ok());
    const double width =
        black.ops.first().orientation == PrintSurface::Orientation::Portrait ? 8 * kIn : 10.5 * kIn;
    for (const Op& op : black.ops) {
        QVERIFY2(op.color == 0, qPrintable(op.text));
        if (op.kind == Op::Text) QVERIFY2(rightEdge(op) <= width, qPrintable(op.text));
    }
}

void TestInvoices::blankCountTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("count"); // -1: refused
    QTest::newRow("a number") << "3" << 3;
    QTest::newRow("blanks around it") << " 12 " << 12;
    QTest::newRow("none: back to the day's invoices") << "0" << 0;
    QTest::newRow("the most at once") << "99" << 99;
    QTest::newRow("too many") << "100" << -1;
    QTest::newRow("negative") << "-2" << -1;
    QTest::newRow("a word") << "three" << -1;
    QTest::newRow("empty") << "" << -1;
}

void TestInvoices::blankCountTyped()
{
    QFETCH(QString, typed);
    QFETCH(int, count);
    const std::optional<int> parsed = ParseBlankCount(typed);
    QCOMPARE(parsed.has_value(), count >= 0);
    if (parsed) QCOMPARE(*parsed, count);
}

QTEST_GUILESS_MAIN(TestInvoices)
#include "test_invoices.moc"
