#include "programfolder.h"
#include "store/backup.h"
#include "store/purge.h"

#include <QtTest>

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
    const QStringList expected = {
        "Assignto",      "AuxHeadings",       "CAHistory",      "/TresvaneDispatcherSettings",
        "TVSalesItems",  "CompanyLogo",       "CompletedSlips", "ContractInfo",
        "Counter",       "CurrentServices",   "CurrentItems",   "CustomerData",
        "CustomItems",   "InvoiceItems",      "LogoSettings",   "Meetings",
        "MyBusinessData", "PrintColors",      "ProblemCode",    "PurgedDate",
        "ServiceInvoiceMemo", "ServiceHistory", "Services",     "SlipNo",
        "Slips",         "SpeedNumbers",      "TelCall",        "UnscheduledSlips"};
    QCOMPARE(DataFileInventory("TresvaneDispatcher"), expected);
}

void TestHousekeeping::backupCopiesWhatExists()
{
    ProgramFolder f;
    f.put("Slips.txt", "new slips");
    f.put("Backup/Slips.txt", "old slips");
    f.put("TresvaneDispatcherSettings.txt", "8\r\n");
    f.put("Backup/Meetings.txt", "old meetings"); // Meetings.txt deleted since the last exit
    f.put("CycleInfo.txt", "not in the inventory");
    f.put("Phone.txt", "not in the inventory");
    f.v.DayFilePath = "/2026/Team#1/120.txt";

    QVERIFY(SetBackupPaths(f.ctx).ok());
    QCOMPARE(f.v.DayFilePath, QString("/"));
    QCOMPARE(f.v.gBackupPath, QString("/Backup/"));
    QCOMPARE(f.get("Backup/Slips.txt"), QByteArray("new slips"));
    QCOMPARE(f.get("Backup/TresvaneDispatcherSettings.txt"), QByteArray("8\r\n"));
    QCOMPARE(f.get("Backup/Meetings.txt"), QByteArray("old meetings"));
    QVERIFY(!f.has("Meetings.txt"));
    QVERIFY(!f.has("Backup/Counter.txt")); // never existed: nothing appears
    QVERIFY(!f.has("Backup/CycleInfo.txt"));
    QVERIFY(!f.has("Backup/Phone.txt"));
    QCOMPARE(f.snapshot().size(), 7);

    // The next start finds the lost file again.
    QVERIFY(f.store.FileExists("/Meetings.txt"));
    QCOMPARE(f.get("Meetings.txt"), QByteArray("old meetings"));
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
    QTest::newRow("1 January") << QDate(2026, 1, 1) << QByteArray("364\r\n")
                               << QByteArray("0\r\n");
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
    if (!stored.isEmpty())
        f.put("PurgedDate.txt", stored);
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
    QTest::newRow("order kept")
        << QList<QByteArray>{"12/31/2026", "01/01/2025", "4/30/2026"} << QList<int>{0, 2};
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
