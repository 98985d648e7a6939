// dispatcher-print as an office runs it: a folder, a day, the teams and the form, one PDF
// out; read back with pdfinfo and pdftotext, the folder byte for byte as it was.

#include "programfolder.h"
#include "sampleinstallation.h"

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

QTEST_GUILESS_MAIN(TestDispatcherPrint)
#include "test_dispatcherprint.moc"
