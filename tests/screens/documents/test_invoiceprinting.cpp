// The day's invoices through the real QPrinter into PDF files, read back with pdfinfo and
// pdftotext: a page per Service Attention in each style, both numbering schemes, a slip
// whose record starts elsewhere; and the invoice side of the Scheduling Screen: the
// style offered and chosen, blank invoices, the memo, and a day with nothing to invoice.

#include "programfolder.h"
#include "recordingdesktop.h"
#include "scriptedprintdialogs.h"

#include "core/documents/invoices.h"
#include "core/io/itemrecords.h"
#include "core/io/sliprecord.h"
#include "screens/documents/printrun.h"
#include "screens/schedule/frmmain.h"
#include "screens/shell/screenframe.h"

#include <QAction>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

namespace
{
const QDate kDay(2026, 5, 5); // day 125

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

QString pdfSize(const QString& file)
{
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+ x [\\d.]+)"))
            .match(run(QStringLiteral("pdfinfo"), {file}));
    return m.hasMatch() ? m.captured(1) : QString();
}

QString pdfText(const QString& file, int page = 0)
{
    QStringList args{QStringLiteral("-layout")};
    if (page > 0) args << "-f" << QString::number(page) << "-l" << QString::number(page);
    return run(QStringLiteral("pdftotext"), args << file << QStringLiteral("-"));
}

SlipRecord slip(const QString& number, const QString& name, int start, int hours,
                const QString& date = "05/05/2026")
{
    SlipRecord r;
    r.setText(SlipField::RecType, QStringLiteral("Service"));
    r.setText(SlipField::ConfirmationNo, number);
    r.setText(SlipField::TeamNo, QStringLiteral("1"));
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::EventDate, date);
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Reference, QStringLiteral("No Heat"));
    r.setText(SlipField::AcctNo, QStringLiteral("A-") + name.left(3));
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, QStringLiteral("12 Mill Road"));
    r.setText(SlipField::City, QStringLiteral("Greenfield"));
    r.setText(SlipField::St, QStringLiteral("OH"));
    r.setText(SlipField::Zip, QStringLiteral("45123"));
    return r;
}

// Team 1's day: the slotTexts as given (free where empty) and the slips' records.
void layDay(ProgramFolder& f, const QDate& date, const QStringList& slotTexts,
            const QList<SlipRecord>& slips)
{
    f.v.gAssignTo = {"populated", "North Truck", "South Truck"};
    BuildTimeLabels(f.v);
    QByteArray file;
    for (int i = 0; i < 12; ++i) {
        const QString slot = slotTexts.value(i);
        file +=
            "\"" + (slot.isEmpty() ? QByteArray("No Event Scheduled") : slot.toLatin1()) + "\"\r\n";
    }
    f.put(QStringLiteral("%1/Team#1/%2.txt").arg(date.year()).arg(date.dayOfYear()), file);
    QByteArray bytes;
    for (const SlipRecord& r : slips)
        bytes += r.bytes();
    f.put("Slips.txt", bytes);
}

// Three slips over five rows: Ada Byron for two hours, Hill Bakery, then Cole Porter for two.
void threeSlips(ProgramFolder& f)
{
    layDay(f, kDay,
           {"", "", "SA125-1 Ada Byron", "SA125-1 Ada Byron", "SA125-2 Hill Bakery", "",
            "SA125-3 Cole Porter", "SA125-3 Cole Porter"},
           {slip("SA125-1", "Ada Byron", 3, 2), slip("SA125-2", "Hill Bakery", 5, 1),
            slip("SA125-3", "Cole Porter", 7, 2)});
}

Result<int> printToPdf(ProgramFolder& f, const QString& file, const InvoiceRequest& request)
{
    return PrintDocumentsToPdf(file, [&](PrintSurface& surface) {
        PrintJob job{surface, DocumentSettingsOf(f.v)};
        return PrintInvoices(job, f.store, f.v, request).status();
    });
}

// The Scheduling Screen in the invoice mode, on the day.
struct Screen {
    ProgramFolder f;
    RecordingDesktop desktop;
    ScriptedPrintDialogs print;
    QTemporaryDir out;
    std::unique_ptr<frmMain> w;

    explicit Screen(bool stock = true, int setupStyle = 1)
    {
        f.clock.set(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
        threeSlips(f);
        if (stock) f.put("TVInventoriedItems.txt", QByteArray(104, ' '));
        f.v.settings.setInvoiceOption(setupStyle == 2 ? 2 : setupStyle == 0 ? 0 : 1, true);
        f.v.Mode = Mode::Invoices;
        print.pdfFile = out.filePath("print.pdf");
        print.previewFile = out.filePath("preview.pdf");
        w = std::make_unique<frmMain>(f.ctx, desktop, print);
        w->show();
        w->Form_Activate();
        w->Calender->setSelectedDate(kDay);
    }
    template <typename T> T* child(const QString& name) const { return w->findChild<T*>(name); }
    void click(const char* name) const
    {
        auto* b = child<QPushButton>(QString::fromLatin1(name));
        QVERIFY2(b && b->isVisible() && b->isEnabled(), name);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    void printNow()
    {
        QFile::remove(print.pdfFile);
        click("cmdPrint");
        click("cmdInvoiceContinue");
    }
    QRadioButton* option(int i) const
    {
        return child<QRadioButton>(QStringLiteral("optInvoiceType_%1").arg(i));
    }
};
} // namespace

class TestInvoicePrinting : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void threeSlipsOverFiveRowsGiveThreePages_data();
    void threeSlipsOverFiveRowsGiveThreePages();
    void bothNumberingSchemesPrint_data();
    void bothNumberingSchemesPrint();
    void slipStartingElsewherePrintsItsOwnCustomer();
    void styleOfferedAndSetAgainByTeamAndDate_data();
    void styleOfferedAndSetAgainByTeamAndDate();
    void blankInvoicesThenTheDay();
    void blankCountThatCannotBeTakenIsTold();
    void dayWithoutInvoicesIsToldNotPrinted();
    void memoFromThePanelOnTheInvoice();
};

void TestInvoicePrinting::initTestCase()
{
    ScreenFrame::setGeometryKept(false);
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY2(!QStandardPaths::findExecutable("pdftotext").isEmpty(),
             "pdftotext is needed (poppler-utils; scripts/deps installs it)");
}

void TestInvoicePrinting::threeSlipsOverFiveRowsGiveThreePages_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("number"); // how the first slip's number reads
    QTest::newRow("service order") << 2 << "612 x 792"
                                   << "Service Order # SA125-1";
    QTest::newRow("repair") << 1 << "792 x 612"
                            << "Service Order # SA125-1";
    // pdftotext reads the two blanks after the label as one.
    QTest::newRow("office") << 0 << "612 x 792"
                            << "Service Attn No. SA125-1";
}

void TestInvoicePrinting::threeSlipsOverFiveRowsGiveThreePages()
{
    QFETCH(int, style);
    QFETCH(QString, size);
    QFETCH(QString, number);
    ProgramFolder f;
    threeSlips(f);
    const QMap<QString, QByteArray> before = f.snapshot();
    QTemporaryDir out;
    const QString file = out.filePath("invoices.pdf");
    Result<int> pages =
        printToPdf(f, file, {kDay, 1, InvoiceStyleOf(qint16(style)), false, false, 0});
    QVERIFY2(pages.ok(), qPrintable(pages.message()));
    QCOMPARE(*pages, 3);
    QCOMPARE(pdfPages(file), 3);
    QCOMPARE(pdfSize(file), size);
    const QString first = pdfText(file, 1);
    QVERIFY2(first.contains(number), qPrintable(first));
    QVERIFY(first.contains("Ada Byron"));
    QVERIFY(!first.contains("Hill Bakery"));
    QVERIFY(pdfText(file, 2).contains("Hill Bakery"));
    QVERIFY(pdfText(file, 3).contains("Cole Porter"));
    if (style == 1) {
        QVERIFY(first.contains("REPAIR INVOICE"));
        QVERIFY(first.contains("Service Attention Summary"));
    }
    if (style == 2) {
        QVERIFY(first.contains("Please return this portion with Payment"));
        QVERIFY(first.contains("Scheduled Time 08:00am"));
    }
    QCOMPARE(f.snapshot(), before);
}

void TestInvoicePrinting::bothNumberingSchemesPrint_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("program numbers") << "SA326-4"
                                     << "SA326-5";
    QTest::newRow("continuous numbers") << "12044"
                                        << "12045";
}

void TestInvoicePrinting::bothNumberingSchemesPrint()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    ProgramFolder f;
    const QDate day(2026, 11, 22); // day 326
    layDay(f, day, {first + " Ada Byron", first + " Ada Byron", "", second + " Hill Bakery"},
           {slip(first, "Ada Byron", 1, 2, "11/22/2026"),
            slip(second, "Hill Bakery", 4, 1, "11/22/2026")});
    QTemporaryDir out;
    const QString file = out.filePath("invoices.pdf");
    Result<int> pages = printToPdf(f, file, {day, 1, InvoiceStyle::Repair, false, false, 0});
    QVERIFY2(pages.ok(), qPrintable(pages.message()));
    QCOMPARE(*pages, 2);
    QVERIFY(pdfText(file, 1).contains("Service Order # " + first));
    QVERIFY(pdfText(file, 2).contains("Service Order # " + second));
    QVERIFY(pdfText(file, 2).contains("Scheduled Date 11/22/2026"));
}

void TestInvoicePrinting::slipStartingElsewherePrintsItsOwnCustomer()
{
    // The record of SA125-1 says 01:00pm; the day file has it at 08:00am, where the record
    // of SA125-2 claims to start.
    ProgramFolder f;
    layDay(f, kDay, {"", "", "SA125-1 Ada Byron", "SA125-2 Hill Bakery"},
           {slip("SA125-2", "Hill Bakery", 3, 2), slip("SA125-1", "Ada Byron", 7, 1)});
    QTemporaryDir out;
    const QString file = out.filePath("invoices.pdf");
    QCOMPARE(*printToPdf(f, file, {kDay, 1, InvoiceStyle::ServiceOrder, false, false, 0}), 2);
    const QString first = pdfText(file, 1);
    QVERIFY2(first.contains("Service Order # SA125-1"), qPrintable(first));
    QVERIFY(first.contains("Ada Byron"));
    QVERIFY(!first.contains("Hill Bakery"));
    QVERIFY(pdfText(file, 2).contains("Hill Bakery"));
}

void TestInvoicePrinting::styleOfferedAndSetAgainByTeamAndDate_data()
{
    QTest::addColumn<bool>("stock");
    QTest::addColumn<int>("setupStyle");
    QTest::addColumn<int>("checked"); // the option checked: 0 service, 1 field, 2 office
    QTest::newRow("service order with stock") << true << 2 << 0;
    QTest::newRow("service order without stock: the field invoice") << false << 2 << 1;
    QTest::newRow("repair") << true << 1 << 1;
    QTest::newRow("office") << false << 0 << 2;
}

void TestInvoicePrinting::styleOfferedAndSetAgainByTeamAndDate()
{
    QFETCH(bool, stock);
    QFETCH(int, setupStyle);
    QFETCH(int, checked);
    Screen s(stock, setupStyle);
    QVERIFY(s.child<QGroupBox>("fraInvoiceType")->isVisible());
    QCOMPARE(s.option(0)->isVisible(), stock);
    QVERIFY(s.option(checked)->isChecked());
    // The dispatcher picks another style for this day...
    const int other = checked == 2 ? 1 : 2;
    s.option(other)->click();
    QVERIFY(s.option(other)->isChecked());
    // ...and the next team or day starts from the setup's style again.
    s.w->lstTeam->setCurrentRow(1);
    QVERIFY(s.option(checked)->isChecked());
    s.option(other)->click();
    s.w->Calender->setSelectedDate(kDay.addDays(1));
    QVERIFY(s.option(checked)->isChecked());
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestInvoicePrinting::blankInvoicesThenTheDay()
{
    Screen s;
    s.f.dialogs.expectInput(QStringLiteral("3"));
    s.w->mnuBlankinvoices->trigger();
    QCOMPARE(s.w->BlankCount, 3);
    s.printNow();
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(pdfPages(s.print.pdfFile), 3);
    QCOMPARE(pdfSize(s.print.pdfFile), QString("792 x 612"));
    const QString blank = pdfText(s.print.pdfFile);
    QVERIFY(blank.contains("REPAIR INVOICE"));
    QVERIFY(blank.contains("Service Order #"));
    for (const char* name : {"Ada Byron", "Hill Bakery", "Cole Porter", "SA125"})
        QVERIFY2(!blank.contains(name), name);
    // The count is spent: the next job prints the day, in the style chosen.
    QCOMPARE(s.w->BlankCount, 0);
    s.option(2)->click();
    s.printNow();
    QCOMPARE(pdfPages(s.print.pdfFile), 3);
    QCOMPARE(pdfSize(s.print.pdfFile), QString("612 x 792"));
    QVERIFY(pdfText(s.print.pdfFile, 1).contains("Ada Byron"));

    // Blanks asked for in the service order style are spent by that job too; a cancelled
    // print dialog keeps them for the next try.
    s.f.dialogs.expectInput(QStringLiteral("2"));
    s.w->mnuBlankinvoices->trigger();
    s.option(0)->click();
    const QString file = s.print.pdfFile;
    s.print.pdfFile.clear();
    s.click("cmdPrint");
    s.click("cmdInvoiceContinue");
    QCOMPARE(s.w->BlankCount, 2);
    s.print.pdfFile = file;
    s.printNow();
    QCOMPARE(pdfPages(file), 2);
    QCOMPARE(s.w->BlankCount, 0);
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestInvoicePrinting::blankCountThatCannotBeTakenIsTold()
{
    Screen s;
    s.f.dialogs.expectInput(QStringLiteral("4"));
    s.w->mnuBlankinvoices->trigger();
    s.f.dialogs.expectInput(QStringLiteral("lots"));
    s.f.dialogs.expect(BlankCountMessage(), QStringLiteral("Print Blank Invoices"));
    s.w->mnuBlankinvoices->trigger();
    QCOMPARE(s.w->BlankCount, 4);
    // A cancelled box leaves the count as it was.
    s.f.dialogs.expectInput(std::nullopt);
    s.w->mnuBlankinvoices->trigger();
    QCOMPARE(s.w->BlankCount, 4);
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestInvoicePrinting::dayWithoutInvoicesIsToldNotPrinted()
{
    Screen s;
    const QDate free = kDay.addDays(1);
    s.w->Calender->setSelectedDate(free);
    const QMap<QString, QByteArray> before = s.f.snapshot();
    s.f.dialogs.expect(NoInvoicesMessage("North Truck", free), QStringLiteral("Print Invoices"));
    s.click("cmdPrint");
    s.click("cmdInvoiceContinue");
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.print.dialogs, 0);
    QVERIFY(!QFileInfo::exists(s.print.pdfFile));
    QVERIFY(!s.child<QGroupBox>("fraInvoice")->isVisible());
    // The preview says the same and shows no empty window.
    s.f.dialogs.expect(NoInvoicesMessage("North Truck", free), QStringLiteral("Print Invoices"));
    s.click("cmdPrint");
    s.click("cmdPreview");
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.print.previews, 0);
    QCOMPARE(s.f.snapshot(), before);
}

void TestInvoicePrinting::memoFromThePanelOnTheInvoice()
{
    Screen s;
    auto* memo = s.child<QGroupBox>("fraMemo");
    QVERIFY(!memo->isVisible());
    s.w->mnuMemo->trigger();
    QVERIFY(memo->isVisible());
    s.child<QPlainTextEdit>("txtMemo")->setPlainText("Thank you for your business");
    s.click("cmdInvoiceMemo");
    QVERIFY(s.f.get("ServiceInvoiceMemo.txt").startsWith("Thank you for your business"));
    s.w->mnuMemo->trigger();
    QVERIFY(!memo->isVisible());

    s.printNow();
    QVERIFY(!pdfText(s.print.pdfFile, 1).contains("Thank you for your business"));
    s.child<QCheckBox>("ckAddMemo")->setChecked(true);
    s.child<QCheckBox>("ckPrintReason")->setChecked(true);
    s.printNow();
    const QString page = pdfText(s.print.pdfFile, 1);
    QVERIFY2(page.contains("Thank you for your business"), qPrintable(page));
    QVERIFY(page.contains("Problem Reported: No Heat"));
    VERIFY_DIALOGS(s.f.dialogs);
}

QTEST_MAIN(TestInvoicePrinting)
#include "test_invoiceprinting.moc"
