#include "foldercheck.h"
#include "programfolder.h"
#include "sampleinstallation.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <unistd.h>

using namespace tresvane;

class TestFolderCheck : public QObject
{
    Q_OBJECT
private slots:
    void sampleIsGoodAndCounted();
    void jsonHoldsRecordsByFieldName();
    void damagedFilesAreNamedAndNothingIsWritten();
    void foldersAndUnreadableFilesAreNamed_data();
    void foldersAndUnreadableFilesAreNamed();
    void changeCutShortIsAWarning();
    void sampleIsTheSameForTheSameSeed();
    void sampleBookingsAgreeWithItsCounterAndContracts();
    void bookingDisagreementsAreWarnings();
};

static SampleOptions small()
{
    SampleOptions o;
    o.teams = 3;
    o.customers = 40;
    o.slips = 60;
    o.meetings = 6;
    o.storedSlips = 2;
    o.contracts = 5;
    o.start = QDate(2026, 3, 2);
    o.seed = 11;
    return o;
}

void TestFolderCheck::sampleIsGoodAndCounted()
{
    ProgramFolder f;
    Result<SampleSummary> s = WriteSampleInstallation(f.root(), small());
    QVERIFY2(s.ok(), qPrintable(s.message()));
    const FolderCheck check = CheckFolder(f.root());
    QVERIFY2(check.ok(), qPrintable(check.problems.join('\n')));
    QCOMPARE(check.customers, 40);
    QCOMPARE(check.slips, 60);
    QCOMPARE(check.meetings, 6);
    QCOMPARE(check.storedSlips, 2);
    QCOMPARE(check.teams, 3);
    QCOMPARE(check.dayFiles, s->dayFiles);
    QVERIFY(check.summary().contains("customers: 40\n"));
}

void TestFolderCheck::jsonHoldsRecordsByFieldName()
{
    ProgramFolder f;
    QVERIFY(WriteSampleInstallation(f.root(), small()).ok());
    QByteArray json;
    CheckFolder(f.root(), &json);
    QJsonParseError error;
    const QJsonObject doc = QJsonDocument::fromJson(json, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    const QJsonArray slips = doc["Slips.txt"].toArray();
    QCOMPARE(slips.size(), 60);
    const QJsonObject first = slips[0].toObject();
    QCOMPARE(first["RecType"].toString(), QStringLiteral("Service"));
    QVERIFY(first["ConfirmationNo"].toString().startsWith("SA"));
    // Every slip's label stands in its day file on each of its hours.
    const QJsonObject days = doc["days"].toObject();
    for (const QJsonValue& value : slips) {
        const QJsonObject slip = value.toObject();
        const QDate date = QDate::fromString(slip["EventDate"].toString(), "MM/dd/yyyy");
        const QString path = QStringLiteral("%1/Team#%2/%3.txt")
                                 .arg(date.year())
                                 .arg(slip["TeamNo"].toString())
                                 .arg(date.dayOfYear());
        const QJsonArray hoursOfDay = days[path].toArray();
        QCOMPARE(hoursOfDay.size(), 12);
        const QString label = slip["ConfirmationNo"].toString() + ' ' + slip["Name"].toString();
        const int start = slip["StartSlot"].toString().toInt();
        for (int h = 0; h < slip["Hours"].toString().toInt(); ++h)
            QCOMPARE(hoursOfDay[start - 1 + h].toString(), label);
    }
    QCOMPARE(doc["Assignto.txt"].toArray().size(), 3);
    QCOMPARE(doc["CustomerData.txt"].toArray()[0].toObject()["RecordMark"].toInt(), 1);
}

void TestFolderCheck::damagedFilesAreNamedAndNothingIsWritten()
{
    ProgramFolder f;
    QVERIFY(WriteSampleInstallation(f.root(), small()).ok());
    f.put("Slips.txt", f.get("Slips.txt") + "partial");
    f.put("TresvaneDispatcherSettings.txt", "8\r\n");
    f.put("2026/Team#1/200.txt", "\"No Event Scheduled\"\r\n\"broken\r\n");
    f.put("CAHistory.txt", QByteArray(10, 'x'));
    f.put("PrintColors.txt", "red\r\n");
    f.put("Backup/Phone.txt", "#TRUE#\r\n3\r\n"); // only in Backup: must stay there
    const auto before = f.snapshot();
    const FolderCheck check = CheckFolder(f.root());
    QCOMPARE(check.problems.size(), 5);
    const QString all = check.problems.join('\n');
    QVERIFY2(all.contains("Slips.txt: 17827 bytes"), qPrintable(all));
    QVERIFY(all.contains("TresvaneDispatcherSettings.txt"));
    QVERIFY(all.contains("2026/Team#1/200.txt: has 2 lines, not 12"));
    QVERIFY(all.contains("CAHistory.txt: 10 bytes"));
    QVERIFY(all.contains("PrintColors.txt"));
    QCOMPARE(f.snapshot(), before);
    QVERIFY(!CheckFolder(f.abs("missing")).ok());
}

void TestFolderCheck::foldersAndUnreadableFilesAreNamed_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("unreadable"); // else a folder stands in its place
    QTest::addColumn<QString>("problem");
    for (const char* file :
         {"CustomerData.txt", "Slips.txt", "Assignto.txt", "Counter.txt", "PurgedDate.txt",
          "SlipNo.txt", "TresvaneDispatcherSettings.txt", "CompanyLogo.txt", "2026/Team#1/125.txt"})
        QTest::addRow("folder for %s", file)
            << file << false << QString(file) + ": a folder stands where the file belongs";
    // Permissions bind only a user other than root.
    if (::geteuid() != 0)
        for (const char* file : {"CustomerData.txt", "Counter.txt", "2026/Team#1/125.txt"})
            QTest::addRow("unreadable %s", file) << file << true << QString(file);
}

void TestFolderCheck::foldersAndUnreadableFilesAreNamed()
{
    QFETCH(QString, file);
    QFETCH(bool, unreadable);
    QFETCH(QString, problem);
    ProgramFolder f;
    if (file != u"Assignto.txt") f.put("Assignto.txt", "\"North\"\r\n");
    if (unreadable) {
        f.put(file, "x");
        QVERIFY(QFile::setPermissions(f.abs(file), QFileDevice::WriteOwner));
    } else {
        QVERIFY(QDir().mkpath(f.abs(file + "/inside")));
    }
    const FolderCheck check = CheckFolder(f.root());
    if (unreadable)
        QFile::setPermissions(f.abs(file), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    const QString all = check.problems.join('\n');
    QVERIFY2(check.problems.size() == 1 && all.contains(problem), qPrintable(all));
}

void TestFolderCheck::changeCutShortIsAWarning()
{
    ProgramFolder f;
    f.put("Slips.txt", QByteArray(297, 's'));
    f.put("ChangeInProgress/1.new", QByteArray(2 * 297, 's'));
    f.put("ChangeInProgress/Intent.txt", "W\t1.new\tSlips.txt\nEND\n");
    const auto before = f.snapshot();
    const FolderCheck check = CheckFolder(f.root());
    QVERIFY(check.ok());
    QCOMPARE(check.warnings.size(), 1);
    QVERIFY(check.warnings[0].startsWith("ChangeInProgress: a change cut short"));
    QCOMPARE(f.snapshot(), before); // the checker finishes nothing
}

void TestFolderCheck::sampleIsTheSameForTheSameSeed()
{
    ProgramFolder a, b;
    QVERIFY(WriteSampleInstallation(a.root(), small()).ok());
    QVERIFY(WriteSampleInstallation(b.root(), small()).ok());
    QCOMPARE(a.snapshot(), b.snapshot());
}

void TestFolderCheck::sampleBookingsAgreeWithItsCounterAndContracts()
{
    ProgramFolder f;
    SampleOptions o = small();
    o.contracts = 30;
    o.slips = 200;
    QVERIFY(WriteSampleInstallation(f.root(), o).ok());
    const FolderCheck check = CheckFolder(f.root(), nullptr, o.start);
    QVERIFY2(check.warnings.isEmpty(), qPrintable(check.warnings.join('\n')));

    QByteArray json;
    CheckFolder(f.root(), &json, o.start);
    const QJsonObject doc = QJsonDocument::fromJson(json).object();
    // The next number of today stands past every number the sample's slips carry.
    const QJsonArray counter = doc["Counter.txt"].toArray();
    QCOMPARE(counter[0].toString(), QString::number(o.start.dayOfYear()));
    const QString today = QStringLiteral("SA%1-").arg(o.start.dayOfYear());
    int highest = 0;
    for (const QJsonValue& slip : doc["Slips.txt"].toArray()) {
        const QString number = slip.toObject()["ConfirmationNo"].toString();
        if (number.startsWith(today)) highest = qMax(highest, number.mid(today.size()).toInt());
    }
    QVERIFY(highest > 0);
    QCOMPARE(counter[1].toString().toInt(), highest + 1);

    // No contract event lands on a booked hour, where the grid would raise a conflict.
    const QJsonArray teams = doc["Assignto.txt"].toArray();
    const QStringList labels = {"06:00", "07:00", "08:00", "09:00", "10:00", "11:00"};
    int contracts = 0;
    for (const QJsonValue& value : doc["ContractInfo.txt"].toArray()) {
        const QJsonObject k = value.toObject();
        const int slot = labels.indexOf(k["ContractTime"].toString()) + 1;
        if (slot < 1) continue;
        ++contracts;
        int team = 0;
        for (int t = 0; t < teams.size(); ++t)
            if (teams[t].toString() == k["ContractTeam"].toString()) team = t + 1;
        const QDate date = QDate::fromString(k["ContractNextDate"].toString(), "MM/dd/yyyy");
        QVERIFY2(date.isValid(), qPrintable(k["ContractNextDate"].toString()));
        const QString path =
            QStringLiteral("%1/Team#%2/%3.txt").arg(date.year()).arg(team).arg(date.dayOfYear());
        const QJsonArray hours = doc["days"].toObject()[path].toArray();
        if (!hours.isEmpty())
            QCOMPARE(hours[slot - 1].toString(), QStringLiteral("No Event Scheduled"));
    }
    QCOMPARE(contracts, 30);
}

// A slip record laid down by hand at the field offsets of the 297-byte layout.
static QByteArray slipRecord(const char* number, int team, const char* date, int start, int hours,
                             const char* name)
{
    QByteArray r(297, ' ');
    auto put = [&r](int offset, int width, const QByteArray& text) {
        r.replace(offset, qMin(width, int(text.size())), text.left(width));
    };
    put(0, 10, "Service");
    put(10, 10, number);
    put(20, 2, QByteArray::number(team));
    put(22, 6, "Hours");
    put(28, 2, QByteArray::number(hours));
    put(30, 10, date);
    put(40, 2, QByteArray::number(start));
    put(42, 30, "No Heat");
    put(162, 30, name);
    return r;
}

static QByteArray dayFile(const QMap<int, QByteArray>& booked)
{
    QByteArray out;
    for (int slot = 1; slot <= 12; ++slot)
        out += '"' + booked.value(slot, "No Event Scheduled") + "\"\r\n";
    return out;
}

void TestFolderCheck::bookingDisagreementsAreWarnings()
{
    ProgramFolder f;
    // Two slips under one number; SA130-7's hours were left behind by a delete; SA130-4
    // was saved while its day file was not; a past day is no longer looked at.
    f.put("Slips.txt", slipRecord("SA130-1", 1, "05/10/2026", 4, 2, "Smith") +
                           slipRecord("SA130-1", 1, "05/10/2026", 4, 2, "Smith") +
                           slipRecord("SA130-4", 2, "05/10/2026", 1, 1, "Brown") +
                           slipRecord("SA100-2", 2, "04/10/2026", 1, 1, "Gone"));
    f.put("2026/Team#1/130.txt", dayFile({{4, "SA130-1 Smith"},
                                          {5, "SA130-1 Smith"},
                                          {8, "SA130-7 Jones"},
                                          {9, "SA130-7 Jones"},
                                          {11, "Vacation"}}));
    const auto before = f.snapshot();
    const FolderCheck check = CheckFolder(f.root(), nullptr, QDate(2026, 5, 1));
    QVERIFY(check.ok());
    QCOMPARE(check.warnings.size(), 3);
    const QString all = check.warnings.join('\n');
    QVERIFY2(all.contains("confirmation number SA130-1 stands on 2 slips (records 1, 2)"),
             qPrintable(all));
    QVERIFY2(all.contains("2026/Team#1/130.txt: \"SA130-7 Jones\" from slot 8 is booked, but no "
                          "record owns it"),
             qPrintable(all));
    QVERIFY2(all.contains("Slips.txt record 3 (SA130-4, team 2, 05/10/2026, 1 hours from slot 1) "
                          "is not on its day"),
             qPrintable(all));
    QCOMPARE(f.snapshot(), before);

    // The command tells warnings apart from damage by its exit status.
    QProcess tool;
    tool.start(QStringLiteral(DISPATCH_CHECK_TOOL), {f.root()});
    QVERIFY(tool.waitForFinished(30000));
    QCOMPARE(tool.exitCode(), 3);
    QVERIFY(
        tool.readAllStandardError().contains("warning: Slips.txt: confirmation number SA130-1"));
}

QTEST_GUILESS_MAIN(TestFolderCheck)
#include "test_foldercheck.moc"
