// The work order screen as a dispatcher works it: the heading, the narrative and its
// template, and the parts and services put on the document with their prices.

#include "programfolder.h"
#include "scriptedprintdialogs.h"

#include "screens/documents/frmworkorder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

using namespace tresvane;

namespace
{

QByteArray text(const char* s, int width)
{
    QByteArray b(s);
    return b + QByteArray(width - b.size(), ' ');
}
QByteArray service(const char* name, const char* price)
{
    return text(name, 60) + text(price, 10) + QByteArray::fromHex("0000");
}
// An item of the user's own at $12.34.
QByteArray customItem(const char* name)
{
    return text(name, 50) + QByteArray::fromHex("08e2010000000000") +
           QByteArray::fromHex("6300000000000000") + QByteArray::fromHex("fbffffff");
}

enum Button {
    Menu,
    Print,
    Hide,
    ClearAll,
    AllItems,
    AddItem,
    SaveTemplate,
    ClearNarrative,
    LoadTemplate,
    AllServices,
    AddService
};

QString run(const QString& program, const QStringList& args)
{
    QProcess p;
    p.start(program, args);
    if (!p.waitForFinished(30000) || p.exitCode() != 0) return {};
    return QString::fromUtf8(p.readAllStandardOutput());
}

int pdfPages(const QString& file)
{
    const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)"))
                                          .match(run(QStringLiteral("pdfinfo"), {file}));
    return m.hasMatch() ? m.captured(1).toInt() : 0;
}

// The text of one page (from 1), or of all.
QString pdfText(const QString& file, int page = 0)
{
    QStringList args{QStringLiteral("-layout")};
    if (page > 0) args << "-f" << QString::number(page) << "-l" << QString::number(page);
    return run(QStringLiteral("pdftotext"), args << file << QStringLiteral("-"));
}

// How far right (points from the paper's left edge) the word reaches where it is printed
// last; -1 when it is not there.
double pdfWordRight(const QString& file, const QString& word)
{
    const QString boxes =
        run(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), file, QStringLiteral("-")});
    const QRegularExpression re(QStringLiteral("xMax=\"([0-9.]+)\"[^>]*>") +
                                QRegularExpression::escape(word) + QStringLiteral("</word>"));
    double right = -1;
    for (const QRegularExpressionMatch& m : re.globalMatch(boxes))
        right = m.captured(1).toDouble();
    return right;
}

struct Office : ProgramFolder {
    QTemporaryDir out;
    ScriptedPrintDialogs print;
    std::unique_ptr<frmWorkOrder> form;

    Office()
    {
        v.current.account = QStringLiteral("A-7");
        v.current.name = QStringLiteral("Jane Doe");
        v.current.address1 = QStringLiteral("4 Elm Street");
        v.current.city = QStringLiteral("Springfield");
        v.current.state = QStringLiteral("IL");
        v.current.zip = QStringLiteral("62704");
        v.current.phone = QStringLiteral("217-555-0187");
        put("Services.txt", service("Furnace cleaning", "45") + service("Duct survey", "120"));
        put("CustomItems.txt", customItem("Thermostat") + customItem("Filter"));
        put("Templates/WONarrativeTEMP.txt", "An earlier job\r\n");
        v.gBusiness = {"Hill Heating",
                       "12 Mill Road",
                       "",
                       "Springfield",
                       "IL",
                       "62701",
                       "217-555-0142",
                       "",
                       ""};
        form = std::make_unique<frmWorkOrder>(ctx, print);
        form->show();
        QApplication::setActiveWindow(form.get());
        form->Form_Activate();
    }
    template <class T> T* find(const QString& name)
    {
        T* w = form->findChild<T*>(name);
        if (!w) qFatal("no control %s", qPrintable(name));
        return w;
    }
    void click(Button b)
    {
        QTest::mouseClick(find<QPushButton>(QStringLiteral("cmdWO_%1").arg(int(b))),
                          Qt::LeftButton);
    }
    // Prints through the dialog into a PDF file of the test's own; its path.
    QString printed(const QString& name)
    {
        print.pdfFile = out.filePath(name + QStringLiteral(".pdf"));
        click(Print);
        return print.pdfFile;
    }
    // The rows of a chosen list as "name price".
    QStringList chosen(const char* list)
    {
        QStringList rows;
        auto* tree = find<QTreeWidget>(QString::fromLatin1(list));
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            rows << tree->topLevelItem(i)->text(0) + u' ' + tree->topLevelItem(i)->text(1);
        return rows;
    }
};

} // namespace

class TestWorkOrderScreen : public QObject
{
    Q_OBJECT
private slots:
    void opensOnTheCustomerInHand();
    void entriesGoOnTheDocumentOnceWithTheirPrices();
    void pricesMayBeTypedButMustBeAmounts();
    void selectAllAddsOnlyWhatIsMissing();
    void narrativeTemplateIsSavedAndLoaded();
    void accountPanelHidesAndComesBack();
    void initTestCase();
    void printedDocumentsReadBack_data();
    void printedDocumentsReadBack();
    void clearedNarrativeIsNotPrintedAgain();
    void previewShowsTheSamePages();
    void cancelledOrFailedPrintIsTold();
};

void TestWorkOrderScreen::initTestCase()
{
    QVERIFY2(!QStandardPaths::findExecutable("pdftotext").isEmpty(),
             "pdftotext is needed (poppler-utils; scripts/deps installs it)");
}

void TestWorkOrderScreen::printedDocumentsReadBack_data()
{
    QTest::addColumn<int>("narrativeLines");
    QTest::addColumn<bool>("chosen");
    QTest::addColumn<bool>("summary");
    QTest::addColumn<int>("pages"); // at least this many for a narrative, else exactly
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("absent");
    QTest::newRow("a long narrative")
        << 200 << false << false << 2 << QStringList{"Page 1", "Page 2", "Line 200"}
        << QStringList{"Enter Instructions", "Parts and Services List"};
    QTest::newRow("no narrative") << 0 << false << false << 1
                                  << QStringList{"Enter Instructions", "Page 1", "Acct: A-7"}
                                  << QStringList{"Parts and Services List", "Page 2"};
    QTest::newRow("parts and services")
        << 3 << true << false << 2 << QStringList{"Parts and Services List",
                                                  "Duct survey",
                                                  "$120.00",
                                                  "Thermostat",
                                                  "$12.34",
                                                  "Page 2"}
        << QStringList{"Enter Instructions", "Summary Report"};
    QTest::newRow("with the summary")
        << 0 << false << true << 2
        << QStringList{"Enter Instructions", "Summary Report",
                       "Start Time:", "List any Anomalies prior to Commencement",
                       "Service performed by:"}
        << QStringList{"Parts and Services List"};
}

void TestWorkOrderScreen::printedDocumentsReadBack()
{
    QFETCH(int, narrativeLines);
    QFETCH(bool, chosen);
    QFETCH(bool, summary);
    QFETCH(int, pages);
    QFETCH(QStringList, present);
    QFETCH(QStringList, absent);
    Office o;
    o.find<QComboBox>("cboHeading")->setCurrentIndex(3);
    QStringList narrative;
    for (int i = 1; i <= narrativeLines; ++i)
        narrative << QStringLiteral("Line %1 of the instructions for the crew").arg(i);
    o.find<QPlainTextEdit>("txtWONarrative")->setPlainText(narrative.join(u'\n'));
    if (chosen) {
        o.find<QListWidget>("lstServices")->setCurrentRow(1);
        o.click(AddService);
        o.find<QListWidget>("lstItems")->setCurrentRow(0);
        o.click(AddItem);
    }
    o.find<QCheckBox>("ckCompletion")->setChecked(summary);
    const QString pdf = o.printed(QStringLiteral("work order"));
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.print.dialogs, 1);
    const int printedPages = pdfPages(pdf);
    if (narrativeLines > 100)
        QVERIFY2(printedPages >= pages, qPrintable(QString::number(printedPages)));
    else
        QCOMPARE(printedPages, pages);
    const QString text = pdfText(pdf);
    QVERIFY2(text.contains("Estimate") && text.contains("Hill Heating"), qPrintable(text));
    for (const QString& s : present)
        QVERIFY2(text.contains(s), qPrintable(s + " is missing"));
    for (const QString& s : absent)
        QVERIFY2(!text.contains(s), qPrintable(s + " is there"));
    // The summary's title ends inside the frame, a quarter inch from the paper's edge.
    if (summary) {
        const double right = pdfWordRight(pdf, QStringLiteral("Report"));
        QVERIFY2(right > 0 && right <= 8.25 * 72, qPrintable(QString::number(right / 72)));
    }
    // The narrative handed to the print stays beside it until the screen comes up again.
    QCOMPARE(o.has("Templates/WONarrativeTEMP.txt"), narrativeLines > 0);
    // Each page of a long narrative carries its own number, the last one too.
    if (narrativeLines > 100) {
        for (int page = 1; page <= printedPages; ++page)
            QVERIFY(pdfText(pdf, page).contains(QStringLiteral("Page %1").arg(page)));
        QVERIFY(!text.contains(QStringLiteral("Page %1").arg(printedPages + 1)));
    }
}

// A print with a narrative, the narrative cleared, and a print again: the second has the
// form to write on, not the first one's narrative.
void TestWorkOrderScreen::clearedNarrativeIsNotPrintedAgain()
{
    Office o;
    o.find<QPlainTextEdit>("txtWONarrative")->setPlainText("Replace the pump");
    QVERIFY(pdfText(o.printed("first")).contains("Replace the pump"));
    o.click(ClearNarrative);
    const QString second = pdfText(o.printed("second"));
    QVERIFY(!second.contains("Replace the pump"));
    QVERIFY(second.contains("Enter Instructions"));
    QVERIFY(!o.has("Templates/WONarrativeTEMP.txt"));
    VERIFY_DIALOGS(o.dialogs);
}

void TestWorkOrderScreen::previewShowsTheSamePages()
{
    Office o;
    o.print.previewFile = o.out.filePath("preview.pdf");
    o.find<QCheckBox>("ckCompletion")->setChecked(true);
    QTest::mouseClick(o.find<QPushButton>("cmdPreview"), Qt::LeftButton);
    QCOMPARE(o.print.previews, 1);
    QCOMPARE(o.print.dialogs, 0);
    QCOMPARE(pdfPages(o.print.previewFile), 2);
    const QString text = pdfText(o.print.previewFile);
    QVERIFY(text.contains("Work Order") && text.contains("Summary Report"));
    VERIFY_DIALOGS(o.dialogs);
}

void TestWorkOrderScreen::cancelledOrFailedPrintIsTold()
{
    Office o;
    o.find<QPlainTextEdit>("txtWONarrative")->setPlainText("Replace the pump");
    o.dialogs.expect("The Work Order will not be Printed");
    o.click(Print);
    VERIFY_DIALOGS(o.dialogs);
    // Nothing was handed to a print that did not happen.
    QVERIFY(!o.has("Templates/WONarrativeTEMP.txt"));

    o.print.printerName = QStringLiteral("Crew-Room-Laser-Gone");
    o.dialogs.expectContaining("A Print Error has occurred\nNothing was printed: ");
    o.dialogs.expect("The Work Order will not be Printed");
    o.click(Print);
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.dialogs.titles.at(1), QStringLiteral("Print Error"));
}

void TestWorkOrderScreen::opensOnTheCustomerInHand()
{
    Office o;
    // The narrative file of an earlier job is gone.
    QVERIFY(!o.has("Templates/WONarrativeTEMP.txt"));
    QCOMPARE(o.find<QLabel>("lblAccount")->text(),
             QStringLiteral("Acct: A-7\nJane Doe\n4 Elm Street\nSpringfield, IL 62704\n"
                            "Tel: 217-555-0187"));
    auto* heading = o.find<QComboBox>("cboHeading");
    QCOMPARE(heading->currentText(), QStringLiteral("Work Order"));
    QCOMPARE(heading->count(), 4);
    QCOMPARE(o.find<QListWidget>("lstServices")->count(), 2);
    QCOMPARE(o.find<QListWidget>("lstItems")->count(), 2);
    QVERIFY(o.chosen("lstServicesList").isEmpty());
}

void TestWorkOrderScreen::entriesGoOnTheDocumentOnceWithTheirPrices()
{
    Office o;
    o.find<QListWidget>("lstServices")->setCurrentRow(1);
    QCOMPARE(o.find<QComboBox>("cboPrices_0")->currentText(), QStringLiteral("$120.00"));
    o.click(AddService);
    QCOMPARE(o.chosen("lstServicesList"), QStringList{"Duct survey $120.00"});

    // The same service again: a beep and no second entry, whatever its price.
    o.find<QComboBox>("cboPrices_0")->setEditText("99");
    o.click(AddService);
    QCOMPARE(o.dialogs.beeps, 1);
    QCOMPARE(o.chosen("lstServicesList"), QStringList{"Duct survey $120.00"});

    o.find<QListWidget>("lstItems")->setCurrentRow(0);
    o.click(AddItem);
    QCOMPARE(o.chosen("lstItemsList"), QStringList{"Thermostat $12.34"});
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.form->chosenItems().entries().size(), 1);

    // Clear All empties both lists and the offered selections.
    o.click(ClearAll);
    QVERIFY(o.chosen("lstServicesList").isEmpty());
    QVERIFY(o.chosen("lstItemsList").isEmpty());
    QVERIFY(o.find<QListWidget>("lstServices")->selectedItems().isEmpty());
    QVERIFY(o.find<QListWidget>("lstItems")->selectedItems().isEmpty());

    // Nothing offered is chosen now: the user is told.
    o.dialogs.expect("Select a Service to Add");
    o.click(AddService);
    VERIFY_DIALOGS(o.dialogs);
}

void TestWorkOrderScreen::pricesMayBeTypedButMustBeAmounts()
{
    Office o;
    o.find<QListWidget>("lstItems")->setCurrentRow(1);
    QLineEdit* price = o.find<QComboBox>("cboPrices_1")->lineEdit();
    price->selectAll();
    QTest::keyClick(price, Qt::Key_Backspace);
    // Digits and one point; no leading zero.
    QTest::keyClicks(price, "0a7.5.0");
    QCOMPARE(price->text(), QStringLiteral("7.50"));
    QTest::keyClick(price, Qt::Key_Return);
    QTRY_COMPARE(o.chosen("lstItemsList"), QStringList{"Filter $7.50"});

    o.find<QListWidget>("lstItems")->setCurrentRow(0);
    o.find<QComboBox>("cboPrices_1")->setEditText("");
    o.dialogs.expect("Enter a Price, such as 45.00");
    o.click(AddItem);
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.chosen("lstItemsList"), QStringList{"Filter $7.50"});
}

void TestWorkOrderScreen::selectAllAddsOnlyWhatIsMissing()
{
    Office o;
    o.find<QListWidget>("lstItems")->setCurrentRow(1);
    o.find<QComboBox>("cboPrices_1")->setEditText("9");
    o.click(AddItem);
    o.click(AllItems);
    QCOMPARE(o.chosen("lstItemsList"), (QStringList{"Filter $9.00", "Thermostat $12.34"}));
    o.click(AllItems);
    QCOMPARE(o.chosen("lstItemsList").size(), 2);
    o.click(AllServices);
    QCOMPARE(o.chosen("lstServicesList"),
             (QStringList{"Furnace cleaning $45.00", "Duct survey $120.00"}));
    QCOMPARE(o.dialogs.beeps, 0);
}

void TestWorkOrderScreen::narrativeTemplateIsSavedAndLoaded()
{
    Office o;
    auto* narrative = o.find<QPlainTextEdit>("txtWONarrative");
    o.dialogs.expect("No Narrative has been Saved as a Template yet");
    o.click(LoadTemplate);
    VERIFY_DIALOGS(o.dialogs);

    narrative->setPlainText(QString::fromUtf8("Drain the tank\n\nRefill to 1.5 bar – check"));
    o.click(SaveTemplate);
    QCOMPARE(o.get("Templates/WONarrative.txt"),
             QByteArray("Drain the tank\r\n\r\nRefill to 1.5 bar \x96 check\r\n"));
    o.click(ClearNarrative);
    QVERIFY(narrative->toPlainText().isEmpty());
    o.click(LoadTemplate);
    QCOMPARE(narrative->toPlainText(),
             QString::fromUtf8("Drain the tank\n\nRefill to 1.5 bar – check"));
}

void TestWorkOrderScreen::accountPanelHidesAndComesBack()
{
    Office o;
    auto* account = o.find<QGroupBox>("fraAccount");
    QVERIFY(account->isVisible());
    o.click(Hide);
    QVERIFY(!account->isVisible());
    o.find<QAction>("mnuAccount")->trigger();
    QVERIFY(account->isVisible());
}

QTEST_MAIN(TestWorkOrderScreen)
#include "test_workorderscreen.moc"
