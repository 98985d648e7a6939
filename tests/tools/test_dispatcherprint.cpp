// dispatcher-print as an office runs it: a folder, a day, the teams and the form, one PDF
// out; read back with pdfinfo and pdftotext, the folder byte for byte as it was.

#include "programfolder.h"
#include "sampleinstallation.h"

#include "core/io/sliprecord.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

namespace
{
struct Ran {
    int exitCode = -1;
    QString out, err;
};

Ran runTool(const QStringList& args)
{
    QProcess p;
    p.start(QStringLiteral(DISPATCH_PRINT_TOOL), args);
    Ran r;
    if (!p.waitForFinished(60000)) return r;
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

QString pdf(const QString& tool, const QStringList& args)
{
    QProcess p;
    p.start(tool, args);
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

int pages(const QString& file)
{
    const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)"))
                                          .match(pdf(QStringLiteral("pdfinfo"), {file}));
    return m.hasMatch() ? m.captured(1).toInt() : 0;
}

QString pageText(const QString& file, int page)
{
    return pdf(QStringLiteral("pdftotext"),
               {"-layout", "-f", QString::number(page), "-l", QString::number(page), file, "-"});
}

SampleOptions thirtyTeams()
{
    SampleOptions o;
    o.teams = 30;
    o.customers = 300;
    o.slips = 400;
    o.meetings = 20;
    o.storedSlips = 0;
    o.contracts = 0;
    o.start = QDate(2026, 3, 2);
    o.seed = 5;
    return o;
}
} // namespace

class TestDispatcherPrint : public QObject
{
    Q_OBJECT
private slots:
    void everyTeamsWorkDayToOnePdf();
    void oneTeamExtended();
    void badRequestsAreRefused_data();
    void badRequestsAreRefused();
    void invoicesOfATeamsDay_data();
    void invoicesOfATeamsDay();
    void dayWithoutInvoicesWritesNoFile();
};

void TestDispatcherPrint::everyTeamsWorkDayToOnePdf()
{
    ProgramFolder f;
    Result<SampleSummary> sample = WriteSampleInstallation(f.root(), thirtyTeams());
    QVERIFY2(sample.ok(), qPrintable(sample.message()));
    const QMap<QString, QByteArray> before = f.snapshot();
    QTemporaryDir out;
    const QString file = out.filePath("crews.pdf");
    const QString date = sample->first.toString(QStringLiteral("MM/dd/yyyy"));
    const Ran r =
        runTool({f.root(), "--date", date, "--all-teams", "--schedule", "workday", "--pdf", file});
    QVERIFY2(r.exitCode == 0, qPrintable(r.err));
    QCOMPARE(r.out, QStringLiteral("30 pages written to %1\n").arg(file));
    QCOMPARE(pages(file), 30);
    // From the last team down to the first, each with its day's date and report.
    const QString first = pageText(file, 1);
    QVERIFY2(first.contains("Assigned to : Crew 30"), qPrintable(first));
    QVERIFY(first.contains("Date: " + date));
    QVERIFY(first.contains("COMPLETION REPORT"));
    QVERIFY(pageText(file, 30).contains("Assigned to : Truck 1"));
    // The sample books every team on its first day; nearly all of it within the work day.
    int booked = 0;
    for (int page = 1; page <= 30; ++page)
        booked += pageText(file, page).contains("Start ______:______") ? 1 : 0;
    QVERIFY2(booked > 20, qPrintable(QString::number(booked)));
    // The folder is read, never written: not even a lock or a repaired file.
    QCOMPARE(f.snapshot(), before);
}

void TestDispatcherPrint::oneTeamExtended()
{
    ProgramFolder f;
    SampleOptions o = thirtyTeams();
    o.teams = 3;
    Result<SampleSummary> sample = WriteSampleInstallation(f.root(), o);
    QVERIFY(sample.ok());
    QTemporaryDir out;
    const QString file = out.filePath("van.pdf");
    const Ran r = runTool({f.root(), "--date", sample->first.toString("MM/dd/yyyy"), "--team", "3",
                           "--schedule", "extended", "--pdf", file});
    QVERIFY2(r.exitCode == 0, qPrintable(r.err));
    QCOMPARE(pages(file), 1);
    const QString text = pageText(file, 1);
    QVERIFY(text.contains("Assigned to : Van 3"));
    QVERIFY(text.contains("06:00am"));
    QVERIFY(text.contains("06:00pm"));
    QVERIFY(!text.contains("COMPLETION REPORT"));
    QVERIFY(pdf("pdfinfo", {file}).contains("612 x 792"));
}

void TestDispatcherPrint::badRequestsAreRefused_data()
{
    QTest::addColumn<QStringList>("args"); // FOLDER and PDF stand for the test's own
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("said");
    const QStringList good{"FOLDER",     "--date",  "05/05/2026", "--team", "1",
                           "--schedule", "workday", "--pdf",      "PDF"};
    QStringList noTeam = good;
    noTeam.remove(3, 2);
    QStringList both = good;
    both << "--all-teams";
    QStringList badDate = good;
    badDate[2] = "2026-05-05";
    QStringList badForm = good;
    badForm[6] = "weekly";
    QStringList team9 = good;
    team9[4] = "9";
    QStringList missingValue = good.mid(0, 8);
    QStringList noFolder = good;
    noFolder[0] = "/no/such/folder";
    QTest::newRow("no team") << noTeam << 2 << "--team N or --all-teams";
    QTest::newRow("a team and all teams") << both << 2 << "--team N or --all-teams";
    QTest::newRow("a date not MM/DD/YYYY") << badDate << 2 << "2026-05-05";
    QTest::newRow("an unknown form") << badForm << 2 << "extended or workday";
    QTest::newRow("an option without its value") << missingValue << 2 << "--pdf needs a value";
    QTest::newRow("a team the folder does not have") << team9 << 1 << "no team 9";
    QTest::newRow("no such folder") << noFolder << 1 << "/no/such/folder";
    const QStringList invoices{"FOLDER", "--date",     "05/05/2026", "--team",
                               "1",      "--invoices", "--pdf",      "PDF"};
    QTest::newRow("invoices and a schedule") << (QStringList(invoices) << "--schedule"
                                                                       << "workday")
                                             << 2 << "--schedule or --invoices";
    QStringList allTeams = invoices;
    allTeams.replace(3, "--all-teams");
    allTeams.removeAt(4);
    QTest::newRow("invoices of all teams") << allTeams << 2 << "one team";
    QTest::newRow("an unknown style") << (QStringList(invoices) << "--style"
                                                                << "fancy")
                                      << 2 << "service, repair or office";
    QTest::newRow("no blank invoices") << (QStringList(invoices) << "--blank"
                                                                 << "0")
                                       << 2 << "--blank is a number";
    QTest::newRow("blank invoices in words") << (QStringList(invoices) << "--blank"
                                                                       << "three")
                                             << 2 << "--blank is a number";
    QTest::newRow("a style for a schedule") << (QStringList(good) << "--style"
                                                                  << "repair")
                                            << 2 << "go with --invoices";
}

void TestDispatcherPrint::badRequestsAreRefused()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, said);
    ProgramFolder f;
    f.put("Assignto.txt", "\"North Truck\"\r\n\"South Truck\"\r\n");
    const QMap<QString, QByteArray> before = f.snapshot();
    QTemporaryDir out;
    for (QString& a : args) {
        if (a == u"FOLDER") a = f.root();
        if (a == u"PDF") a = out.filePath("x.pdf");
    }
    const Ran r = runTool(args);
    QCOMPARE(r.exitCode, exitCode);
    QVERIFY2(r.err.contains(said), qPrintable(r.err));
    QVERIFY(!QFileInfo::exists(out.filePath("x.pdf")));
    QCOMPARE(f.snapshot(), before);
}

namespace
{
// Team 1's day of 5 May 2026 with two slips over three hours, the setup's style as given
// (the settings' fields 6 and 7), and the stock file that offers the service order.
void invoiceFolder(ProgramFolder& f, const char* office, const char* serviceOrder)
{
    f.put("Assignto.txt", "\"North Truck\"\r\n\"South Truck\"\r\n");
    f.put("TresvaneDispatcherSettings.txt", QByteArray("8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n") +
                                                office + "\r\n" + serviceOrder + "\r\n1\r\n1\r\n");
    f.put("TVInventoriedItems.txt", QByteArray(104, ' '));
    const QByteArray free = "\"No Event Scheduled\"\r\n";
    f.put("2026/Team#1/125.txt", free.repeated(2) +
                                     QByteArray("\"12044 Ada Byron\"\r\n").repeated(2) +
                                     "\"12045 Hill Bakery\"\r\n" + free.repeated(7));
    QByteArray slips;
    for (const auto& [number, name, start] :
         {std::tuple{"12044", "Ada Byron", 3}, std::tuple{"12045", "Hill Bakery", 5}}) {
        SlipRecord r;
        r.setText(SlipField::RecType, QStringLiteral("Service"));
        r.setText(SlipField::ConfirmationNo, QString::fromLatin1(number));
        r.setText(SlipField::TeamNo, QStringLiteral("1"));
        r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
        r.setText(SlipField::Hours, QStringLiteral("1"));
        r.setText(SlipField::EventDate, QStringLiteral("05/05/2026"));
        r.setText(SlipField::StartSlot, QString::number(start));
        r.setText(SlipField::Name, QString::fromLatin1(name));
        slips += r.bytes();
    }
    f.put("Slips.txt", slips);
}
} // namespace

void TestDispatcherPrint::invoicesOfATeamsDay_data()
{
    QTest::addColumn<QString>("office");
    QTest::addColumn<QString>("serviceOrder");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("pages");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("printed");
    QTest::newRow("the setup's service order") << "#FALSE#"
                                               << "#TRUE#" << QStringList{} << 2 << "612 x 792"
                                               << "Service Order/Invoice";
    QTest::newRow("the setup's office invoice") << "#TRUE#"
                                                << "#FALSE#" << QStringList{} << 2 << "612 x 792"
                                                << "Service Attn No.";
    QTest::newRow("the setup's repair invoice") << "#FALSE#"
                                                << "#FALSE#" << QStringList{} << 2 << "792 x 612"
                                                << "REPAIR INVOICE";
    QTest::newRow("a style asked for")
        << "#TRUE#"
        << "#FALSE#" << QStringList{"--style", "repair"} << 2 << "792 x 612"
        << "REPAIR INVOICE";
    QTest::newRow("blank invoices") << "#FALSE#"
                                    << "#TRUE#" << QStringList{"--blank", "3"} << 3 << "792 x 612"
                                    << "REPAIR INVOICE";
}

void TestDispatcherPrint::invoicesOfATeamsDay()
{
    QFETCH(QString, office);
    QFETCH(QString, serviceOrder);
    QFETCH(QStringList, options);
    QFETCH(int, pages);
    QFETCH(QString, size);
    QFETCH(QString, printed);
    ProgramFolder f;
    invoiceFolder(f, qPrintable(office), qPrintable(serviceOrder));
    const QMap<QString, QByteArray> before = f.snapshot();
    QTemporaryDir out;
    const QString file = out.filePath("invoices.pdf");
    const Ran r = runTool(
        QStringList{f.root(), "--date", "05/05/2026", "--team", "1", "--invoices", "--pdf", file} +
        options);
    QVERIFY2(r.exitCode == 0, qPrintable(r.err));
    QCOMPARE(r.out, QStringLiteral("%1 pages written to %2\n").arg(pages).arg(file));
    QCOMPARE(::pages(file), pages);
    QVERIFY(pdf("pdfinfo", {file}).contains(size));
    const QString first = pageText(file, 1);
    QVERIFY2(first.contains(printed), qPrintable(first));
    QCOMPARE(first.contains("Ada Byron"), !options.contains("--blank"));
    if (!options.contains("--blank")) QVERIFY(pageText(file, 2).contains("Hill Bakery"));
    QCOMPARE(f.snapshot(), before);
}

void TestDispatcherPrint::dayWithoutInvoicesWritesNoFile()
{
    ProgramFolder f;
    invoiceFolder(f, "#FALSE#", "#FALSE#");
    QTemporaryDir out;
    const QString file = out.filePath("invoices.pdf");
    const Ran r =
        runTool({f.root(), "--date", "05/06/2026", "--team", "1", "--invoices", "--pdf", file});
    QCOMPARE(r.exitCode, 0);
    QVERIFY2(r.out.contains("There are no invoices for this day"), qPrintable(r.out));
    QVERIFY(r.out.contains("North Truck"));
    QVERIFY(r.out.contains("No file written."));
    QVERIFY(!QFileInfo::exists(file));
}

QTEST_GUILESS_MAIN(TestDispatcherPrint)
#include "test_dispatcherprint.moc"
