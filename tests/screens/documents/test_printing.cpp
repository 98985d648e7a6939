// Printing through the real QPrinter into PDF files, read back with pdfinfo and pdftotext:
// the schedules' pages, the print panel of the Scheduling Screen from the menu on, the
// preview, the Print Sample page, and what a user is told when the paper cannot be had.

#include "programfolder.h"
#include "recordingdesktop.h"
#include "scriptedprintdialogs.h"

#include "app/app.h"
#include "core/documents/printframe.h"
#include "core/documents/printlogo.h"
#include "core/documents/workschedule.h"
#include "core/io/sliprecord.h"
#include "screens/documents/printrun.h"
#include "screens/schedule/frmmain.h"
#include "screens/setup/setuplogotab.h"
#include "screens/setup/setupprinttab.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"

#include <QCalendarWidget>
#include <QGroupBox>
#include <QImage>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

namespace
{
const QDate kDay(2026, 5, 5);

QString run(const QString& program, const QStringList& args)
{
    QProcess p;
    p.start(program, args);
    if (!p.waitForFinished(30000) || p.exitCode() != 0) return {};
    return QString::fromUtf8(p.readAllStandardOutput());
}

struct PdfInfo {
    int pages = 0;
    QString size; // "612 x 792"
};

PdfInfo pdfInfo(const QString& file)
{
    PdfInfo info;
    const QString out = run(QStringLiteral("pdfinfo"), {file});
    const QRegularExpressionMatch pages =
        QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(out);
    if (pages.hasMatch()) info.pages = pages.captured(1).toInt();
    const QRegularExpressionMatch size =
        QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+ x [\\d.]+)")).match(out);
    if (size.hasMatch()) info.size = size.captured(1);
    return info;
}

QString pdfText(const QString& file, int page = 0)
{
    QStringList args{QStringLiteral("-layout")};
    if (page > 0) args << "-f" << QString::number(page) << "-l" << QString::number(page);
    return run(QStringLiteral("pdftotext"), args << file << QStringLiteral("-"));
}

// The left edges, in points, of every word that equals word.
QList<double> wordLeft(const QString& file, const QString& word)
{
    QList<double> out;
    const QString html = run(QStringLiteral("pdftotext"), {"-bbox", file, "-"});
    const QRegularExpression re(QStringLiteral("<word xMin=\"([\\d.]+)\"[^>]*>([^<]*)</word>"));
    for (auto it = re.globalMatch(html); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        if (m.captured(2) == word) out << m.captured(1).toDouble();
    }
    return out;
}

int pdfImages(const QString& file)
{
    const QStringList lines =
        run(QStringLiteral("pdfimages"), {"-list", file}).split(u'\n', Qt::SkipEmptyParts);
    return std::max(0, int(lines.size()) - 2); // two lines of heading
}

SlipRecord slip(const QString& number, const QString& account, const QString& name, int team,
                int start, int hours)
{
    SlipRecord r;
    r.setText(SlipField::RecType, QStringLiteral("Service"));
    r.setText(SlipField::ConfirmationNo, number);
    r.setText(SlipField::TeamNo, QString::number(team));
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::EventDate, QStringLiteral("05/05/2026"));
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Reference, QStringLiteral("No Heat"));
    r.setText(SlipField::AcctNo, account);
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, QStringLiteral("12 Mill Road"));
    r.setText(SlipField::City, QStringLiteral("Greenfield"));
    r.setText(SlipField::St, QStringLiteral("OH"));
    r.setText(SlipField::Zip, QStringLiteral("45123"));
    return r;
}

// Two teams with a day booked on 5 May 2026: team 1 a slip at 08:00am for two hours, team
// 2 one at 02:00pm.
void layDay(ProgramFolder& f)
{
    f.v.gAssignTo = {"populated", "North Truck", "South Truck"};
    const QByteArray free = "\"No Event Scheduled\"\r\n";
    f.put("2026/Team#1/125.txt", free.repeated(2) +
                                     QByteArray("\"SA125-1 Ada Byron\"\r\n").repeated(2) +
                                     free.repeated(8));
    f.put("2026/Team#2/125.txt",
          free.repeated(7) + QByteArray("\"SA125-2 Hill Bakery\"\r\n") + free.repeated(4));
    f.put("Slips.txt", slip("SA125-1", "A-100", "Ada Byron", 1, 3, 2).bytes() +
                           slip("SA125-2", "B-7", "Hill Bakery", 2, 8, 1).bytes());
}

DrawDocuments schedules(ProgramFolder& f, ScheduleRequest request)
{
    return [&f, request](PrintSurface& surface) {
        PrintJob job{surface, DocumentSettingsOf(f.v)};
        return PrintWorkSchedules(job, f.store, f.v, request).status();
    };
}

// The Scheduling Screen on its own, in a mode.
struct Screen {
    ProgramFolder f;
    RecordingDesktop desktop;
    ScriptedPrintDialogs print;
    QTemporaryDir out;
    std::unique_ptr<frmMain> w;

    explicit Screen(qint16 mode)
    {
        f.clock.set(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
        layDay(f);
        f.v.gCopies = 3;
        f.v.Mode = Mode(mode);
        print.pdfFile = out.filePath("print.pdf");
        print.previewFile = out.filePath("preview.pdf");
        w = std::make_unique<frmMain>(f.ctx, desktop, print);
        w->show();
        w->Form_Activate();
    }
    template <typename T> T* child(const char* name) const
    {
        return w->findChild<T*>(QString::fromLatin1(name));
    }
    void click(const char* name) const
    {
        QPushButton* b = child<QPushButton>(name);
        QVERIFY2(b && b->isVisible() && b->isEnabled(), name);
        QTest::mouseClick(b, Qt::LeftButton);
    }
};
} // namespace

class TestPrinting : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void schedulePagesReadBack_data();
    void schedulePagesReadBack();
    void pdfThatCannotBeWrittenIsNamed();
    void printerThatFailsIsTold();
    void printPanelByMode_data();
    void printPanelByMode();
    void printAllTeamsWithOneDialog();
    void cancelledDialogPrintsNothing();
    void previewShowsThePagesAndKeepsThePanel();
    void offsetMovesThePrintedPage();
    void menuEntryPrintsTheDay();
    void printSampleWithTheLogoAtItsSize_data();
    void printSampleWithTheLogoAtItsSize();
};

void TestPrinting::initTestCase()
{
    ScreenFrame::setGeometryKept(false);
    // The alignment offset is kept with this computer's settings: the tests' own.
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY2(!QStandardPaths::findExecutable("pdftotext").isEmpty(),
             "pdftotext is needed (poppler-utils; scripts/deps installs it)");
}

void TestPrinting::schedulePagesReadBack_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("extended") << int(ScheduleForm::Extended) << "612 x 792"
                              << QStringList{"06:00am", "11:00am", "01:00pm", "06:00pm"};
    QTest::newRow("work day") << int(ScheduleForm::WorkDay) << "792 x 612"
                              << QStringList{"08:00am", "11:00am", "01:00pm", "04:00pm"};
}

void TestPrinting::schedulePagesReadBack()
{
    QFETCH(int, form);
    QFETCH(QString, size);
    QFETCH(QStringList, labels);
    ProgramFolder f;
    layDay(f);
    const QMap<QString, QByteArray> before = f.snapshot();
    QTemporaryDir out;
    const QString file = out.filePath("schedules.pdf");
    Result<int> pages = PrintDocumentsToPdf(file, schedules(f, {kDay, 0, ScheduleForm(form)}));
    QVERIFY2(pages.ok(), qPrintable(pages.message()));
    QCOMPARE(*pages, 2);

    const PdfInfo info = pdfInfo(file);
    QCOMPARE(info.pages, 2);
    QCOMPARE(info.size, size);
    // All teams: the last team first.
    const QString first = pdfText(file, 1);
    const QString second = pdfText(file, 2);
    QVERIFY2(first.contains("Assigned to : South Truck"), qPrintable(first));
    QVERIFY(second.contains("Assigned to : North Truck"));
    QVERIFY(first.contains("Hill Bakery"));
    QVERIFY(second.contains("Ada Byron"));
    QVERIFY(second.contains("A-100"));
    QVERIFY(second.contains("Daily Work Schedule"));
    QVERIFY(second.contains("Date: 05/05/2026"));
    for (const QString& label : labels)
        QVERIFY2(second.contains(label), qPrintable(label));
    QCOMPARE(second.count("Start ______:______"), 2);

    const QList<double> report = wordLeft(file, "COMPLETION");
    if (form == int(ScheduleForm::WorkDay)) {
        QCOMPARE(report.size(), 2);
        // 8 inches into the printable area, which starts a quarter inch into the paper.
        for (double x : report)
            QVERIFY2(x >= (8 + 0.25) * 72 - 1, qPrintable(QString::number(x)));
        QVERIFY(second.contains("___Collected"));
        // Everything on the page stays on the paper.
        for (const char* word : {"Collected", "Office", "_______________"})
            for (double x : wordLeft(file, word))
                QVERIFY(x < 11 * 72);
    } else {
        QVERIFY(report.isEmpty());
    }
    QCOMPARE(f.snapshot(), before);
}

void TestPrinting::pdfThatCannotBeWrittenIsNamed()
{
    ProgramFolder f;
    layDay(f);
    const QMap<QString, QByteArray> before = f.snapshot();
    QTemporaryDir out;
    const QString file = out.filePath("no/such/folder/schedules.pdf");
    Result<int> pages = PrintDocumentsToPdf(file, schedules(f, {kDay, 1, ScheduleForm::Extended}));
    QVERIFY(!pages.ok());
    QVERIFY2(pages.message().contains(file), qPrintable(pages.message()));
    QVERIFY(!QFileInfo::exists(file));
    QCOMPARE(f.snapshot(), before);

    // From the screen: the same in one message, and the panel goes away.
    Screen s(3);
    s.print.pdfFile = file;
    s.f.dialogs.expectContaining(file);
    s.click("cmdPrint");
    s.click("cmdInvoiceContinue");
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.f.dialogs.titles, QStringList{"Print Error"});
    QVERIFY(!s.child<QGroupBox>("fraInvoice")->isVisible());
}

void TestPrinting::printerThatFailsIsTold()
{
    Screen s(3);
    s.print.printerName = QStringLiteral("Crew-Room-Laser-Gone");
    const QMap<QString, QByteArray> before = s.f.snapshot();
    // This machine has no printing system: the printer is gone before the job starts, and
    // with it the name Qt keeps for it.
    s.f.dialogs.expectContaining(QStringLiteral("Nothing was printed: the printer"));
    s.click("cmdPrint");
    s.click("cmdInvoiceContinue");
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.f.snapshot(), before);
}

void TestPrinting::printPanelByMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("printable");
    QTest::addColumn<bool>("forms");
    QTest::addColumn<QString>("prompt");
    QTest::newRow("work schedules") << 3 << true << true << "Insert Plain Paper";
    QTest::newRow("invoices") << 5 << true << false << "Insert Perforated Response Paper";
    QTest::newRow("a booking") << 2 << false << false << "";
}

void TestPrinting::printPanelByMode()
{
    QFETCH(int, mode);
    QFETCH(bool, printable);
    QFETCH(bool, forms);
    QFETCH(QString, prompt);
    Screen s{qint16(mode)};
    auto* cmdPrint = s.child<QPushButton>("cmdPrint");
    QCOMPARE(cmdPrint->isEnabled(), printable);
    auto* panel = s.child<QGroupBox>("fraInvoice");
    QVERIFY(!panel->isVisible());
    if (!printable) return;
    QTest::mouseClick(cmdPrint, Qt::LeftButton);
    QVERIFY(panel->isVisible());
    QCOMPARE(panel->title(), prompt);
    QCOMPARE(s.child<QGroupBox>("fraWorkSchedule")->isVisible(), forms);
    if (forms) {
        // The work day form goes on the perforated paper.
        s.child<QRadioButton>("optWorkSchedule_1")->click();
        QCOMPARE(panel->title(), QString("Insert Perforated Response Paper"));
        s.child<QRadioButton>("optWorkSchedule_0")->click();
        QCOMPARE(panel->title(), QString("Insert Plain Paper"));
    }
    s.click("cmdCancelPrint");
    QVERIFY(!panel->isVisible());
    QCOMPARE(s.print.dialogs, 0);
    QVERIFY(!QFileInfo::exists(s.print.pdfFile));
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestPrinting::printAllTeamsWithOneDialog()
{
    Screen s(3);
    // "All Teams" stands after the last team.
    QCOMPARE(s.w->lstTeam->item(2)->text(), QString("All Teams"));
    s.w->lstTeam->setCurrentRow(2);
    s.w->Calender->setSelectedDate(kDay);
    s.click("cmdPrint");
    s.child<QRadioButton>("optWorkSchedule_1")->click();
    s.click("cmdInvoiceContinue");
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.print.dialogs, 1);
    // The dialog comes with the setup's copies.
    QCOMPARE(s.print.copiesOffered, 3);
    const PdfInfo info = pdfInfo(s.print.pdfFile);
    QCOMPARE(info.pages, 2);
    QCOMPARE(info.size, QString("792 x 612"));
    QVERIFY(pdfText(s.print.pdfFile, 1).contains("South Truck"));
    QVERIFY(pdfText(s.print.pdfFile, 2).contains("Ada Byron"));
    QVERIFY(!s.child<QGroupBox>("fraInvoice")->isVisible());

    // One team, the copies as the dispatcher changed them.
    s.w->lstTeam->setCurrentRow(1);
    s.child<QSpinBox>("txtCopies")->setValue(1);
    QFile::remove(s.print.pdfFile);
    s.click("cmdPrint");
    s.click("cmdInvoiceContinue");
    QCOMPARE(s.print.copiesOffered, 1);
    QCOMPARE(pdfInfo(s.print.pdfFile).pages, 1);
    QVERIFY(pdfText(s.print.pdfFile).contains("Hill Bakery"));
}

void TestPrinting::cancelledDialogPrintsNothing()
{
    Screen s(3);
    s.print.pdfFile.clear();
    const QMap<QString, QByteArray> before = s.f.snapshot();
    s.click("cmdPrint");
    s.click("cmdInvoiceContinue");
    QCOMPARE(s.print.dialogs, 1);
    QVERIFY(!s.child<QGroupBox>("fraInvoice")->isVisible());
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.f.snapshot(), before);
}

void TestPrinting::previewShowsThePagesAndKeepsThePanel()
{
    Screen s(3);
    s.w->Calender->setSelectedDate(kDay);
    s.click("cmdPrint");
    s.click("cmdPreview");
    QCOMPARE(s.print.previews, 1);
    QCOMPARE(s.print.dialogs, 0);
    QCOMPARE(pdfInfo(s.print.previewFile).pages, 1);
    QVERIFY(pdfText(s.print.previewFile).contains("Ada Byron"));
    // Nothing went to paper; the panel waits for Print or Cancel.
    QVERIFY(!QFileInfo::exists(s.print.pdfFile));
    QVERIFY(s.child<QGroupBox>("fraInvoice")->isVisible());
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestPrinting::offsetMovesThePrintedPage()
{
    Screen s(3);
    s.w->Calender->setSelectedDate(kDay);
    WritePrintOffset(s.f.store.baseName(), {});
    s.click("cmdPrint");
    s.click("cmdPreview");
    const QList<double> plain = wordLeft(s.print.previewFile, "Daily");
    QCOMPARE(plain.size(), 1);

    // The setup's print tab keeps the nudge on this computer; the preview shows it.
    SetupPrintTab tab(s.f.ctx);
    tab.findChild<QSpinBox*>("txtOffsetRight")->setValue(50);
    QCOMPARE(ReadPrintOffset(s.f.store.baseName()).right, 50);
    s.click("cmdPreview");
    const QList<double> moved = wordLeft(s.print.previewFile, "Daily");
    QCOMPARE(moved.size(), 1);
    QVERIFY2(qAbs(moved[0] - plain[0] - 36) < 0.5,
             qPrintable(QStringLiteral("%1 -> %2").arg(plain[0]).arg(moved[0])));
    // A PDF file is for reading: it has no nudge.
    s.click("cmdInvoiceContinue");
    QVERIFY(qAbs(wordLeft(s.print.pdfFile, "Daily").value(0) - plain[0]) < 0.5);
    WritePrintOffset(s.f.store.baseName(), {});
}

void TestPrinting::menuEntryPrintsTheDay()
{
    ProgramFolder f;
    f.clock.set(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    layDay(f);
    f.put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                                "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
    f.put("Assignto.txt", "\"North Truck\"\r\n\"South Truck\"\r\n");
    f.put("ProblemCode.txt", "\"No Heat\"\r\n");
    f.put("TresvaneDispatcherSettings.txt",
          "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
    f.put("Counter.txt", "\"124\",1\r\n");
    f.put("Phone.txt", "#FALSE#\r\n0\r\n");
    f.put("CallID.txt", "#TRUE#\r\n");
    QTemporaryDir locks, out;
    RecordingDesktop desktop;
    ScriptedPrintDialogs print;
    print.pdfFile = out.filePath("menu.pdf");
    print.previewFile = out.filePath("preview.pdf");
    App app(f.root(), f.clock, f.dialogs, desktop);
    app.setLockFolder(locks.path());
    app.setPrintDialogs(print);
    QVERIFY(app.Main());
    QTest::mouseClick(app.splash->cmdContinue, Qt::LeftButton);
    QVERIFY(app.startup->lblSub[MenuEntry::DailyWorkSchedules]->isEnabled());
    QTest::mouseClick(app.startup->lblSub[MenuEntry::DailyWorkSchedules], Qt::LeftButton);
    frmMain* w = app.mainForm;
    QVERIFY(w && w->isVisible());
    QCOMPARE(app.v.Mode, Mode::WorkSchedules);
    QCOMPARE(w->windowTitle(), QString("Print Setup Screen"));
    w->Calender->setSelectedDate(kDay);
    w->lstTeam->setCurrentRow(0);
    auto* cmdPrint = w->findChild<QPushButton*>("cmdPrint");
    QVERIFY(cmdPrint->isEnabled());
    QTest::mouseClick(cmdPrint, Qt::LeftButton);
    QTest::mouseClick(w->findChild<QPushButton*>("cmdPreview"), Qt::LeftButton);
    QVERIFY(pdfText(print.previewFile).contains("Ada Byron"));
    QTest::mouseClick(w->findChild<QPushButton*>("cmdInvoiceContinue"), Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);
    const QString text = pdfText(print.pdfFile);
    QVERIFY2(text.contains("Assigned to : North Truck"), qPrintable(text));
    QVERIFY(text.contains("Ada Byron"));
    QCOMPARE(pdfInfo(print.pdfFile).size, QString("612 x 792"));
}

void TestPrinting::printSampleWithTheLogoAtItsSize_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("images");
    QTest::newRow("a picture") << "logo.png" << 1;
    // Pictures of the old Windows metafile kind cannot be read here: the text alone.
    QTest::newRow("a metafile") << "logo.emf" << 0;
}

void TestPrinting::printSampleWithTheLogoAtItsSize()
{
    QFETCH(QString, file);
    QFETCH(int, images);
    ProgramFolder f;
    if (file.endsWith(u".png")) {
        QImage logo(64, 32, QImage::Format_RGB32);
        logo.fill(Qt::darkBlue);
        QVERIFY(logo.save(f.abs(file)));
    } else {
        f.put(file, QByteArray::fromHex("0100000084000000") + QByteArray(200, '\x01'));
    }
    QTemporaryDir out;
    ScriptedPrintDialogs print;
    print.pdfFile = out.filePath("sample.pdf");
    SetupLogoTab tab(f.ctx, print);
    tab.chooseFile(f.abs(file));
    // 1740 twips wide, 1040 high.
    for (int i = 0; i < 6; ++i)
        tab.stepWidth(true);
    for (int i = 0; i < 8; ++i)
        tab.stepHeight(false);
    QCOMPARE(tab.logoWidth(), 1740);
    auto* sample = tab.findChild<QPushButton*>("cmdLogo_5");
    QVERIFY(sample->isEnabled());
    QTest::mouseClick(sample, Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(print.dialogs, 1);
    QCOMPARE(pdfInfo(print.pdfFile).pages, 1);
    QCOMPARE(pdfInfo(print.pdfFile).size, QString("612 x 792"));
    QVERIFY(pdfText(print.pdfFile).contains("Logo Test"));
    QCOMPARE(pdfImages(print.pdfFile), images);
    if (images == 0) return;
    // On the page at 72 dots an inch the picture covers 1740 / 20 by 1040 / 20 dots.
    QCOMPARE(QProcess::execute("pdftoppm", {"-r", "72", "-png", "-singlefile", print.pdfFile,
                                            out.filePath("sample")}),
             0);
    const QImage page(out.filePath("sample.png"));
    QVERIFY(!page.isNull());
    QRect box;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) {
            const QColor c = page.pixelColor(x, y);
            if (c.blue() > 100 && c.red() < 40 && c.green() < 40) box |= QRect(x, y, 1, 1);
        }
    QVERIFY(qAbs(box.width() - 87) <= 1);
    QVERIFY(qAbs(box.height() - 52) <= 1);
    // An inch in from the printable area's corner, half an inch under the text.
    QVERIFY(qAbs(box.left() - 90) <= 1);
    QVERIFY(qAbs(box.top() - 126) <= 1);
}

QTEST_MAIN(TestPrinting)
#include "test_printing.moc"
