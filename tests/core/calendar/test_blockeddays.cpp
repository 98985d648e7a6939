#include "calendarbytes.h"
#include "programfolder.h"

#include "core/calendar/blockeddays.h"
#include "core/io/store.h"
#include "core/io/usforms.h"

#include <QtTest>

using namespace tresvane;
using namespace calendarbytes;

namespace
{

const QDate kFriday(2026, 5, 8);  // day 128
const QDate kMonday(2026, 5, 11); // day 131

QByteArray allDay(const QByteArray& text)
{
    return (text + "\r\n").repeated(12);
}

void office(ProgramFolder& f)
{
    f.v.gYear = "2026";
    f.v.gWorkDays = 5;
    f.v.gAssignTo = {"populated", "North Truck", "South Truck", "Install Crew"};
}

BlockRequest request(const QDate& start, int days, const QString& reason, bool restore = false)
{
    BlockRequest r;
    r.start = start;
    r.days = days;
    r.reason = reason;
    r.restore = restore;
    return r;
}

QStringList texts(const QList<QDate>& dates)
{
    QStringList out;
    for (const QDate& d : dates)
        out << FormatShortDate(d);
    return out;
}

} // namespace

class TestBlockedDays : public QObject
{
    Q_OBJECT
private slots:
    void workDaysOfARequest_data();
    void workDaysOfARequest();
    void reserveOverWhatTheDayHolds_data();
    void reserveOverWhatTheDayHolds();
    void oneBookedDayStopsTheTeamsWholeRun();
    void restoreLeavesTwelveFreeLines();
    void allAssignmentsGoOnPastATeamThatFails();
    void typedReasons_data();
    void typedReasons();
    void questionNamesTheRun();
    void siblingsBlockedDaysAreListed();
    void noBlockedDaysOnThisProgramsTree();
};

void TestBlockedDays::workDaysOfARequest_data()
{
    QTest::addColumn<QDate>("start");
    QTest::addColumn<int>("days");
    QTest::addColumn<int>("workWeek");
    QTest::addColumn<QTime>("now");
    QTest::addColumn<QStringList>("dates");
    const QTime morning(9, 0);
    QTest::newRow("Friday and two days")
        << kFriday << 2 << 5 << morning << QStringList{"05/08/2026", "05/11/2026"};
    QTest::newRow("Friday and two days, six-day week")
        << kFriday << 2 << 61 << morning << QStringList{"05/08/2026", "05/09/2026"};
    QTest::newRow("a Saturday moves to Monday")
        << QDate(2026, 5, 9) << 1 << 5 << morning << QStringList{"05/11/2026"};
    QTest::newRow("a past day becomes today")
        << QDate(2026, 4, 20) << 1 << 5 << morning << QStringList{"04/30/2026"};
    QTest::newRow("a past day in the evening becomes tomorrow")
        << QDate(2026, 4, 20) << 2 << 5 << QTime(20, 0) << QStringList{"05/01/2026", "05/04/2026"};
    QTest::newRow("over the year's end") << QDate(2026, 12, 31) << 3 << 5 << morning
                                         << QStringList{"12/31/2026", "01/01/2027", "01/04/2027"};
}

void TestBlockedDays::workDaysOfARequest()
{
    QFETCH(QDate, start);
    QFETCH(int, days);
    QFETCH(int, workWeek);
    QFETCH(QTime, now);
    QFETCH(QStringList, dates);
    ProgramFolder f;
    office(f);
    f.v.gWorkDays = quint8(workWeek);
    f.clock.set(QDateTime(QDate(2026, 4, 30), now));
    Result<QList<QDate>> got = BlockedDates(f.ctx, request(start, days, "Vacation"));
    QVERIFY2(got.ok(), qPrintable(got.message()));
    QCOMPARE(texts(*got), dates);
}

void TestBlockedDays::reserveOverWhatTheDayHolds_data()
{
    QTest::addColumn<QByteArray>("day"); // empty: no file
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("message"); // empty: reserved
    const QString refused = "An Event Exists at %1 on 05/08/2026\nDelete or Rechedule this "
                            "Attention\nThis Request will be aborted.";
    QTest::newRow("no file") << QByteArray() << "Vacation" << QString();
    QTest::newRow("a free file, quoted")
        << QByteArray("\"No Event Scheduled\"\r\n").repeated(12) << "Vacation" << QString();
    QTest::newRow("vacation over vacation") << allDay("Vacation") << "Vacation" << QString();
    QTest::newRow("vacation over vacation, other case")
        << allDay("VACATION") << "Vacation" << QString();
    QTest::newRow("vacation over a holiday")
        << allDay("Holiday") << "Vacation" << refused.arg("06:00");
    QTest::newRow("a job at 1 in the afternoon")
        << bareDay("SA120-3 Ada Byron", 7, 2) << "Vacation" << refused.arg("01:00");
    QTest::newRow("a reason holding the slot's words")
        << bareDay("Recurring Event - Sick Day", 2, 1) << "Sick Day" << QString();
}

void TestBlockedDays::reserveOverWhatTheDayHolds()
{
    QFETCH(QByteArray, day);
    QFETCH(QString, reason);
    QFETCH(QString, message);
    ProgramFolder f;
    office(f);
    if (!day.isNull()) f.put("2026/Team#2/128.txt", day);
    if (!message.isEmpty()) f.dialogs.expect(message, "Can't Block or UnBlock This Time");
    Result<bool> done = BlockTeamDays(f.ctx, request(kFriday, 1, reason), 2);
    QVERIFY2(done.ok(), qPrintable(done.message()));
    QCOMPARE(*done, message.isEmpty());
    QCOMPARE(f.get("2026/Team#2/128.txt"), message.isEmpty() ? allDay(reason.toLatin1()) : day);
    VERIFY_DIALOGS(f.dialogs);
}

void TestBlockedDays::oneBookedDayStopsTheTeamsWholeRun()
{
    ProgramFolder f;
    office(f);
    // Friday is free, Monday has a job: neither day is blocked.
    f.put("2026/Team#1/131.txt", bareDay("SA120-3 Ada Byron", 5, 1));
    f.dialogs.expect("An Event Exists at 10:00 on 05/11/2026\nDelete or Rechedule this "
                     "Attention\nThis Request will be aborted.",
                     "Can't Block or UnBlock This Time");
    Result<bool> done = BlockTeamDays(f.ctx, request(kFriday, 2, "Holiday"), 1);
    QVERIFY(done.ok());
    QVERIFY(!*done);
    QVERIFY(!f.has("2026/Team#1/128.txt"));
    QCOMPARE(f.get("2026/Team#1/131.txt"), bareDay("SA120-3 Ada Byron", 5, 1));
    VERIFY_DIALOGS(f.dialogs);

    // Without the job, Friday and Monday are blocked, and Saturday and Sunday not.
    f.put("2026/Team#1/131.txt", kBareFree.repeated(12));
    done = BlockTeamDays(f.ctx, request(kFriday, 2, "Holiday"), 1);
    QVERIFY(done.ok() && *done);
    QCOMPARE(f.get("2026/Team#1/128.txt"), allDay("Holiday"));
    QCOMPARE(f.get("2026/Team#1/131.txt"), allDay("Holiday"));
    QVERIFY(!f.has("2026/Team#1/129.txt"));
    QVERIFY(!f.has("2026/Team#1/130.txt"));
}

void TestBlockedDays::restoreLeavesTwelveFreeLines()
{
    ProgramFolder f;
    office(f);
    f.put("2026/Team#3/128.txt", allDay("Holiday"));
    // Restoring checks nothing: a job booked on the day goes from the day file.
    f.put("2026/Team#3/131.txt", bareDay("SA120-3 Ada Byron", 5, 1));
    Result<bool> done = BlockTeamDays(f.ctx, request(kFriday, 2, "No Event Scheduled", true), 3);
    QVERIFY(done.ok() && *done);
    QCOMPARE(f.get("2026/Team#3/128.txt"), kBareFree.repeated(12));
    QCOMPARE(f.get("2026/Team#3/131.txt"), kBareFree.repeated(12));
    VERIFY_DIALOGS(f.dialogs);
}

void TestBlockedDays::allAssignmentsGoOnPastATeamThatFails()
{
    ProgramFolder f;
    office(f);
    f.put("2026/Team#2/131.txt", bareDay("Mtg - 09:00 - Ada Byron", 4, 1));
    f.dialogs.expect("An Event Exists at 09:00 on 05/11/2026\nDelete or Rechedule this "
                     "Attention\nThis Request will be aborted.",
                     "Can't Block or UnBlock This Time");
    Result<QList<int>> refused = BlockAllTeams(f.ctx, request(kFriday, 2, "Holiday"));
    QVERIFY(refused.ok());
    QCOMPARE(*refused, QList<int>{2});
    // Every team from the same Friday: 1 and 3 blocked on both days, 2 untouched.
    for (int team : {1, 3}) {
        QCOMPARE(f.get(QString("2026/Team#%1/128.txt").arg(team)), allDay("Holiday"));
        QCOMPARE(f.get(QString("2026/Team#%1/131.txt").arg(team)), allDay("Holiday"));
    }
    QVERIFY(!f.has("2026/Team#2/128.txt"));
    QCOMPARE(f.get("2026/Team#2/131.txt"), bareDay("Mtg - 09:00 - Ada Byron", 4, 1));
    VERIFY_DIALOGS(f.dialogs);
}

void TestBlockedDays::typedReasons_data()
{
    QTest::addColumn<QString>("reason");
    QTest::addColumn<bool>("taken");
    QTest::newRow("a reason of the list") << "Personal Day" << true;
    QTest::newRow("a reason of one's own") << "Training at the Depot" << true;
    QTest::newRow("a comma") << "Training, Depot" << false;
    QTest::newRow("a double quote") << "The \"big\" day" << false;
    QTest::newRow("nothing") << "   " << false;
}

void TestBlockedDays::typedReasons()
{
    QFETCH(QString, reason);
    QFETCH(bool, taken);
    QCOMPARE(CheckBlockReason(reason).ok(), taken);
    // A run with a refused reason writes nothing.
    ProgramFolder f;
    office(f);
    Result<bool> done = BlockTeamDays(f.ctx, request(kFriday, 1, reason), 1);
    QCOMPARE(done.ok(), taken);
    QCOMPARE(f.has("2026/Team#1/128.txt"), taken);
}

void TestBlockedDays::questionNamesTheRun()
{
    QCOMPARE(BlockQuestion(request(kFriday, 2, "Vacation"), "All Assignments"),
             QString("You have Selected to\nPrevent Work Scheduling\nfor All Assignments\n"
                     "Starting on 05/08/2026\nof 2 Consecutive WORKDAYS"));
    QCOMPARE(BlockQuestion(request(kFriday, 1, "", true), "South Truck"),
             QString("You have Selected to\nRestore Previous Blocked Days\nfor South Truck\n"
                     "Starting on 05/08/2026\nof 1 Consecutive WORKDAYS"));
}

void TestBlockedDays::siblingsBlockedDaysAreListed()
{
    ProgramFolder f;
    office(f);
    f.put("2026/DaySchedules1/365.txt", allDay("Holiday"));
    f.put("2027/DaySchedules1/1.txt", QByteArray("\"Holiday\"\r\n").repeated(12));
    f.put("2026/DaySchedules3/360.txt", allDay("Sick Day"));
    // A first line that is no reason of the list, and a day outside the range.
    f.put("2026/DaySchedules2/361.txt", allDay("Training"));
    f.put("2027/DaySchedules3/9.txt", allDay("Vacation"));
    // The day files of this program are not what the grid lists.
    f.put("2026/Team#2/362.txt", allDay("Vacation"));
    Result<QList<BlockedDayRow>> rows =
        FindBlockedDays(f.ctx, QDate(2026, 12, 20), QDate(2027, 1, 8));
    QVERIFY2(rows.ok(), qPrintable(rows.message()));
    QStringList got;
    for (const BlockedDayRow& r : *rows)
        got << r.team + " " + FormatShortDate(r.date) + " " + r.reason;
    QCOMPARE(got, (QStringList{"North Truck 12/31/2026 Holiday", "North Truck 01/01/2027 Holiday",
                               "Install Crew 12/26/2026 Sick Day"}));
}

void TestBlockedDays::noBlockedDaysOnThisProgramsTree()
{
    ProgramFolder f;
    office(f);
    QVERIFY(BlockTeamDays(f.ctx, request(kFriday, 3, "Vacation"), 1).ok());
    Result<QList<BlockedDayRow>> rows = FindBlockedDays(f.ctx, kFriday, kFriday.addDays(30));
    QVERIFY(rows.ok());
    QVERIFY(rows->isEmpty());
}

QTEST_GUILESS_MAIN(TestBlockedDays)
#include "test_blockeddays.moc"
