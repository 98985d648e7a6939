#include "core/housekeeping/backup.h"
#include "core/housekeeping/purge.h"
#include "core/io/customerrecords.h"
#include "core/io/sliprecord.h"
#include "programfolder.h"

#include <QDir>
#include <QtTest>

using namespace tresvane;

// A meeting record whose only field that matters here is its date.
static QByteArray meeting(const QByteArray& date, const QByteArray& who)
{
    const QByteArray head = QByteArray("Meeting   ") + QByteArray(10, ' ') + "1 Hours 1 " +
                            date.leftJustified(10, ' ', true) + "3 ";
    return (head + who.leftJustified(30, ' ', true)).leftJustified(297, ' ');
}

class TestHousekeeping : public QObject
{
    Q_OBJECT
private slots:
    void inventoryInItsOrder();
    void backupCopiesWhatExists();
    void damagedFileKeepsItsBackupCopy_data();
    void damagedFileKeepsItsBackupCopy();
    void emptyFileIsOfferedBackFromBackup_data();
    void emptyFileIsOfferedBackFromBackup();
    void previousGenerationIsKeptForAWeek();
    void purgeDeletesPastDaysOnly();
    void purgeWithNoTeam_data();
    void purgeWithNoTeam();
    void damagedPurgedDateIsReported();
    void purgeMeetings_data();
    void purgeMeetings();
    void meetingWithABadDateStopsThePurge();
};

void TestHousekeeping::inventoryInItsOrder()
{
    const QStringList expected = {"Assignto",
                                  "AuxHeadings",
                                  "CAHistory",
                                  "/TresvaneDispatcherSettings",
                                  "TVSalesItems",
                                  "CompanyLogo",
                                  "CompletedSlips",
                                  "ContractInfo",
                                  "Counter",
                                  "CurrentServices",
                                  "CurrentItems",
                                  "CustomerData",
                                  "CustomItems",
                                  "InvoiceItems",
                                  "LogoSettings",
                                  "Meetings",
                                  "MyBusinessData",
                                  "PrintColors",
                                  "ProblemCode",
                                  "PurgedDate",
                                  "ServiceInvoiceMemo",
                                  "ServiceHistory",
                                  "Services",
                                  "SlipNo",
                                  "Slips",
                                  "SpeedNumbers",
                                  "TelCall",
                                  "UnscheduledSlips"};
    QCOMPARE(DataFileInventory("TresvaneDispatcher"), expected);
}

void TestHousekeeping::backupCopiesWhatExists()
{
    ProgramFolder f;
    const QByteArray newSlips(2 * kSlipRecordLength, 'n');
    f.put("Slips.txt", newSlips);
    f.put("Backup/Slips.txt", "old slips");
    const QByteArray settings =
        "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n";
    f.put("TresvaneDispatcherSettings.txt", settings);
    f.put("Backup/Meetings.txt", "old meetings"); // Meetings.txt deleted since the last exit
    f.put("CycleInfo.txt", "not in the inventory");
    f.put("Phone.txt", "not in the inventory");
    f.v.DayFilePath = "/2026/Team#1/120.txt";

    QVERIFY(SetBackupPaths(f.ctx).ok());
    QCOMPARE(f.v.DayFilePath, QString("/"));
    QCOMPARE(f.v.gBackupPath, QString("/Backup/"));
    QCOMPARE(f.get("Backup/Slips.txt"), newSlips);
    QCOMPARE(f.get("Backup/TresvaneDispatcherSettings.txt"), settings);
    QCOMPARE(f.get("Backup/Meetings.txt"), QByteArray("old meetings"));
    QVERIFY(!f.has("Meetings.txt"));
    QVERIFY(!f.has("Backup/Counter.txt")); // never existed: nothing appears
    QVERIFY(!f.has("Backup/CycleInfo.txt"));
    QVERIFY(!f.has("Backup/Phone.txt"));
    // The day's first exit keeps the copies as they were.
    QCOMPARE(f.get("Backup/2026-04-30/Slips.txt"), QByteArray("old slips"));
    QCOMPARE(f.get("Backup/2026-04-30/Meetings.txt"), QByteArray("old meetings"));
    QCOMPARE(f.snapshot().size(), 9);

    // The next start finds the lost file again.
    QVERIFY(f.store.FileExists("/Meetings.txt"));
    QCOMPARE(f.get("Meetings.txt"), QByteArray("old meetings"));
}

void TestHousekeeping::damagedFileKeepsItsBackupCopy_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("good");
    QTest::addColumn<QByteArray>("damaged");
    QTest::addColumn<QString>("why");

    const QByteArray slips(3 * kSlipRecordLength, 's');
    QByteArray noise(4000, 0);
    for (int i = 0; i < noise.size(); ++i)
        noise[i] = char((i * 7919 + 13) % 251);
    QByteArray longList;
    for (int i = 1; i <= 31; ++i)
        longList += "\"Team " + QByteArray::number(i) + "\"\r\n";

    QTest::newRow("odd-length slips")
        << "Slips.txt" << slips << slips.left(kSlipRecordLength + 5) << "not a whole number";
    QTest::newRow("random meetings") << "Meetings.txt" << slips << noise << "not a whole number";
    QTest::newRow("odd-length contracts")
        << "ContractInfo.txt" << QByteArray(2 * kContractRecordLength, 'c')
        << QByteArray(kContractRecordLength - 1, 'c') << "not a whole number";
    QTest::newRow("random stored slips")
        << "UnscheduledSlips.txt" << slips << noise.left(1000) << "not a whole number";
    QTest::newRow("too many teams")
        << "Assignto.txt" << QByteArray("\"Truck 1\"\r\n\"Truck 2\"\r\n") << longList
        << "at most 30";
    QTest::newRow("random teams") << "Assignto.txt" << QByteArray("\"Truck 1\"\r\n") << noise
                                  << "Assignto.txt is damaged";
    QTest::newRow("random problems")
        << "ProblemCode.txt" << QByteArray("\"No heat\"\r\n") << noise << "control character";
    QTest::newRow("unreadable counter") << "Counter.txt" << QByteArray("\"04/30/2026\",7\r\n")
                                        << QByteArray("\"04/30/2026\",x\r\n") << "Counter.txt";
    QTest::newRow("folder in place of a file")
        << "CustomerData.txt" << QByteArray(kCustomerRecordLength, 'a') << QByteArray()
        << "a folder stands where the file belongs";
}

void TestHousekeeping::damagedFileKeepsItsBackupCopy()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, good);
    QFETCH(QByteArray, damaged);
    QFETCH(QString, why);
    ProgramFolder f;
    f.put("Backup/" + file, good);
    if (damaged.isEmpty())
        QVERIFY(QDir().mkpath(f.abs(file)));
    else
        f.put(file, damaged);
    const QByteArray services(2 * kSlipRecordLength, 'v');
    f.put("CompletedSlips.txt", services); // a good file beside it is still copied

    f.dialogs.expectContaining(file);
    QVERIFY(SetBackupPaths(f.ctx).ok());
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY2(f.dialogs.shown.value(0).contains(why), qPrintable(f.dialogs.shown.value(0)));
    QCOMPARE(f.get("Backup/" + file), good);
    QCOMPARE(f.get("Backup/CompletedSlips.txt"), services);
}

void TestHousekeeping::emptyFileIsOfferedBackFromBackup_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("copy");
    QTest::addColumn<QString>("question"); // empty: nothing is asked
    QTest::addColumn<bool>("restore");

    const QByteArray customers(50 * kCustomerRecordLength, 'c');
    QTest::newRow("customers, restored")
        << "CustomerData.txt" << customers
        << "CustomerData.txt is empty, but its copy in Backup holds 50 records (16,400 bytes)."
        << true;
    QTest::newRow("customers, declined")
        << "CustomerData.txt" << customers << "CustomerData.txt is empty" << false;
    QTest::newRow("teams, restored")
        << "Assignto.txt" << QByteArray("\"Truck 1\"\r\n") << "holds 11 bytes" << true;
    QTest::newRow("copy empty too") << "Slips.txt" << QByteArray() << "" << false;
    QTest::newRow("copy damaged") << "Slips.txt" << QByteArray(kSlipRecordLength + 1, 's') << ""
                                  << false;
}

void TestHousekeeping::emptyFileIsOfferedBackFromBackup()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, copy);
    QFETCH(QString, question);
    QFETCH(bool, restore);
    ProgramFolder f;
    f.put(file, {});
    f.put("Backup/" + file, copy);
    if (!question.isEmpty())
        f.dialogs.expectContaining(question, restore ? Dialogs::Answer::Yes : Dialogs::Answer::No);

    QVERIFY(OfferRestoreOfEmptyFiles(f.ctx).ok());
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.get(file), restore ? copy : QByteArray());
    QCOMPARE(f.get("Backup/" + file), copy);

    // The exit after a restore leaves the copy as it was.
    if (restore) {
        QVERIFY(SetBackupPaths(f.ctx).ok());
        QCOMPARE(f.get("Backup/" + file), copy);
    }
}

void TestHousekeeping::previousGenerationIsKeptForAWeek()
{
    ProgramFolder f;
    const QByteArray first(kSlipRecordLength, '1'), second(kSlipRecordLength, '2'),
        third(kSlipRecordLength, '3');
    f.put("Backup/Slips.txt", first);
    f.put("Backup/2026-04-22/Slips.txt", "eight days old");
    f.put("Backup/2026-04-23/Slips.txt", "seven days old");
    f.put("Backup/2026-04-29-notes/Slips.txt", "not a generation");

    f.put("Slips.txt", second);
    QVERIFY(SetBackupPaths(f.ctx).ok());
    QCOMPARE(f.get("Backup/Slips.txt"), second);
    QCOMPARE(f.get("Backup/2026-04-30/Slips.txt"), first);
    QVERIFY(!f.hasFolder("Backup/2026-04-22"));
    QCOMPARE(f.get("Backup/2026-04-23/Slips.txt"), QByteArray("seven days old"));
    QVERIFY(f.has("Backup/2026-04-29-notes/Slips.txt"));

    // A second exit the same day keeps the day's first generation.
    f.put("Slips.txt", third);
    QVERIFY(SetBackupPaths(f.ctx).ok());
    QCOMPARE(f.get("Backup/Slips.txt"), third);
    QCOMPARE(f.get("Backup/2026-04-30/Slips.txt"), first);

    // The next day keeps the copies of the day before.
    f.clock.setDate(QDate(2026, 5, 1));
    QVERIFY(SetBackupPaths(f.ctx).ok());
    QCOMPARE(f.get("Backup/2026-05-01/Slips.txt"), third);
    QVERIFY(!f.hasFolder("Backup/2026-04-23"));
}

void TestHousekeeping::purgeDeletesPastDaysOnly()
{
    ProgramFolder f;
    f.clock.setDate(QDate(2026, 4, 20)); // day 110
    f.v.gAssignTo = QStringList{"populated", "North", "South"};
    f.v.gYear = "2026";
    f.put("PurgedDate.txt", "100\r\n");
    const QList<int> days = {99, 100, 105, 109, 110, 111};
    for (const char* team : {"Team#1", "Team#2", "Team#3"})
        for (int d : days)
            f.put(QString("2026/%1/%2.txt").arg(team).arg(d), "x");
    f.put("2025/Team#1/105.txt", "last year");

    QVERIFY(PurgeDayFiles(f.ctx).ok());
    QCOMPARE(int(f.v.gDayOfYear), 110);
    for (const char* team : {"Team#1", "Team#2"}) {
        QVERIFY(f.has(QString("2026/%1/99.txt").arg(team))); // before the last purge
        QVERIFY(!f.has(QString("2026/%1/100.txt").arg(team)));
        QVERIFY(!f.has(QString("2026/%1/105.txt").arg(team)));
        QVERIFY(!f.has(QString("2026/%1/109.txt").arg(team)));
        QVERIFY(f.has(QString("2026/%1/110.txt").arg(team))); // today
        QVERIFY(f.has(QString("2026/%1/111.txt").arg(team)));
    }
    QVERIFY(f.has("2026/Team#3/105.txt")); // not a team of the list
    QVERIFY(f.has("2025/Team#1/105.txt"));
    QCOMPARE(f.get("PurgedDate.txt"), QByteArray("109\r\n"));
}

void TestHousekeeping::purgeWithNoTeam_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QByteArray>("stored"); // empty: no PurgedDate.txt
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("first start") << QDate(2026, 4, 20) << QByteArray() << QByteArray("109\r\n");
    QTest::newRow("1 January") << QDate(2026, 1, 1) << QByteArray("364\r\n") << QByteArray("0\r\n");
    QTest::newRow("new year sets the day straight")
        << QDate(2026, 1, 5) << QByteArray("365\r\n") << QByteArray("4\r\n");
    QTest::newRow("31 December of a leap year")
        << QDate(2024, 12, 31) << QByteArray("-3\r\n") << QByteArray("365\r\n");
}

void TestHousekeeping::purgeWithNoTeam()
{
    QFETCH(QDate, today);
    QFETCH(QByteArray, stored);
    QFETCH(QByteArray, written);
    ProgramFolder f;
    f.clock.setDate(today);
    f.v.gYear = QString::number(today.year());
    if (!stored.isEmpty()) f.put("PurgedDate.txt", stored);
    f.put(f.v.gYear + "/Team#1/1.txt", "x");
    f.put("Meetings.txt", meeting("01/01/2020", "long gone"));
    QVERIFY(PurgeDayFiles(f.ctx).ok());
    QVERIFY(f.has(f.v.gYear + "/Team#1/1.txt"));
    QCOMPARE(f.get("PurgedDate.txt"), written);
    QCOMPARE(f.get("Meetings.txt"), QByteArray()); // meetings are purged all the same
}

void TestHousekeeping::damagedPurgedDateIsReported()
{
    ProgramFolder f;
    f.v.gAssignTo = QStringList{"populated", "North"};
    f.v.gYear = "2026";
    f.put("PurgedDate.txt", "yesterday\r\n");
    f.put("2026/Team#1/5.txt", "x");
    const auto before = f.snapshot();
    Status s = PurgeDayFiles(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("PurgedDate.txt"), qPrintable(s.message()));
    QCOMPARE(f.snapshot(), before);
}

void TestHousekeeping::purgeMeetings_data()
{
    QTest::addColumn<QList<QByteArray>>("dates");
    QTest::addColumn<QList<int>>("kept");
    QTest::newRow("today stays, yesterday goes")
        << QList<QByteArray>{"04/29/2026", "04/30/2026", "05/01/2026"} << QList<int>{1, 2};
    QTest::newRow("order kept") << QList<QByteArray>{"12/31/2026", "01/01/2025", "4/30/2026"}
                                << QList<int>{0, 2};
    QTest::newRow("all past") << QList<QByteArray>{"04/29/2026"} << QList<int>{};
}

void TestHousekeeping::purgeMeetings()
{
    QFETCH(QList<QByteArray>, dates);
    QFETCH(QList<int>, kept);
    ProgramFolder f; // today is 30 April 2026
    QList<QByteArray> records;
    QByteArray file;
    for (const QByteArray& date : dates) {
        records << meeting(date, "Mtg - 09:00 - " + date);
        file += records.back();
    }
    f.put("Meetings.txt", file);
    f.put("Backup/Meetings.txt", file);
    QVERIFY(PurgeMeetings(f.ctx).ok());
    QByteArray expected;
    for (int i : kept)
        expected += records[i];
    QCOMPARE(f.get("Meetings.txt"), expected);
    QVERIFY(!f.has("TemporaryFile.txt"));
    QVERIFY(!f.has("Backup/Meetings.txt"));
}

void TestHousekeeping::meetingWithABadDateStopsThePurge()
{
    ProgramFolder f;
    const QByteArray file = meeting("04/29/2026", "a") + meeting("someday", "b");
    f.put("Meetings.txt", file);
    Status s = PurgeMeetings(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("Meetings.txt") && s.message().contains("record 2"),
             qPrintable(s.message()));
    QCOMPARE(f.get("Meetings.txt"), file);

    // An empty file is left as it is.
    f.put("Meetings.txt", "");
    QVERIFY(PurgeMeetings(f.ctx).ok());
    QVERIFY(f.has("Meetings.txt"));
    QVERIFY(!f.has("TemporaryFile.txt"));
}

QTEST_GUILESS_MAIN(TestHousekeeping)
#include "test_housekeeping.moc"
