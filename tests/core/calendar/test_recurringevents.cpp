#include "calendarbytes.h"
#include "programfolder.h"

#include "core/calendar/daterange.h"
#include "core/calendar/recurringevents.h"
#include "core/io/store.h"
#include "core/io/usforms.h"

#include <QtTest>

using namespace tresvane;
using namespace calendarbytes;

namespace
{

const QDate kMonday(2026, 5, 4); // day 124; the clock stands on Thursday 30 April

QDate us(const char* text)
{
    return QDate::fromString(QString::fromLatin1(text), QStringLiteral("M/d/yyyy"));
}

QStringList texts(const QList<QDate>& dates)
{
    QStringList out;
    for (const QDate& d : dates)
        out << FormatShortDate(d);
    return out;
}

// An office of three teams with Ada Byron in hand, numbering by program numbers (day 120,
// next 1) or by continuous numbers (next 1000).
void office(ProgramFolder& f, bool programNumbers = true)
{
    DispatchingVariables& v = f.v;
    v.gYear = "2026";
    v.gAssignTo = {"populated", "North Truck", "South Truck", "Install Crew"};
    v.current.account = "A-100";
    v.current.name = "Ada Byron";
    v.current.address1 = "12 Mill Road";
    v.current.address2 = "Unit 3";
    v.current.city = "Greenfield";
    v.current.state = "OH";
    v.current.zip = "45123";
    v.current.phone = "(555)123-4567";
    v.settings.ckSlipStyle = programNumbers ? 1 : 0;
    v.gJulianDay = "120";
    v.gSequence = 1;
    v.gNextSlip = 1000;
    v.settings.txtNextSlip = "1000";
    v.gConfirmation = programNumbers ? "SA120-1" : "1000";
}

RecurringEvent boiler(RecurringKind kind, int startSlot = 4, int hours = 2, int team = 2)
{
    RecurringEvent e;
    e.kind = kind;
    e.title = "Boiler Service";
    e.team = team;
    e.startSlot = startSlot;
    e.hours = hours;
    return e;
}

QList<QDate> mondays(int n)
{
    QList<QDate> dates;
    for (int i = 0; i < n; ++i)
        dates << kMonday.addDays(7 * i);
    return dates;
}

QString dayFile(const QDate& d, int team)
{
    return QStringLiteral("%1/Team#%2/%3.txt").arg(d.year()).arg(team).arg(d.dayOfYear());
}

} // namespace

class TestRecurringEvents : public QObject
{
    Q_OBJECT
private slots:
    void rangeDates_data();
    void rangeDates();
    void rangeRefused_data();
    void rangeRefused();
    void twoYearsAreTheLimit();
    void leftOutDatesAreTold();
    void hoursTest_data();
    void hoursTest();
    void dateClick_data();
    void dateClick();
    void invoicedSeriesTakesANumberForEachDate_data();
    void invoicedSeriesTakesANumberForEachDate();
    void seriesWithoutInvoice_data();
    void seriesWithoutInvoice();
    void sharedHourGoesToTheFirstSeries();
    void numbersOnFileAreNotGivenAgain();
    void seriesRefusedWhenNumbersRunOut();
    void nameWithACommaStaysInItsHours();
};

void TestRecurringEvents::rangeDates_data()
{
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<int>("frequency");
    QTest::addColumn<int>("weekday");
    QTest::addColumn<int>("workWeek");
    QTest::addColumn<QStringList>("dates");
    QTest::addColumn<int>("beforeToday");
    QTest::addColumn<int>("nonWorkDays");

    const int e7 = int(RangeFrequency::Every7Days);
    const int e14 = int(RangeFrequency::Every14Days);
    const int weekly = int(RangeFrequency::WeekdayEachWeek);
    QTest::newRow("every 7 days") << us("5/4/2026") << us("6/1/2026") << e7 << 0 << 5
                                  << QStringList{"05/04/2026", "05/11/2026", "05/18/2026",
                                                 "05/25/2026", "06/01/2026"}
                                  << 0 << 0;
    QTest::newRow("every 14 days")
        << us("5/4/2026") << us("6/1/2026") << e14 << 0 << 5
        << QStringList{"05/04/2026", "05/18/2026", "06/01/2026"} << 0 << 0;
    QTest::newRow("end between two steps") << us("5/4/2026") << us("5/31/2026") << e14 << 0 << 5
                                           << QStringList{"05/04/2026", "05/18/2026"} << 0 << 0;
    QTest::newRow("one day") << us("5/4/2026") << us("5/4/2026") << e14 << 0 << 5
                             << QStringList{"05/04/2026"} << 0 << 0;
    QTest::newRow("each Wednesday")
        << us("5/4/2026") << us("5/20/2026") << weekly << int(Qt::Wednesday) << 5
        << QStringList{"05/06/2026", "05/13/2026", "05/20/2026"} << 0 << 0;
    QTest::newRow("the start's own weekday")
        << us("5/4/2026") << us("5/11/2026") << weekly << int(Qt::Monday) << 5
        << QStringList{"05/04/2026", "05/11/2026"} << 0 << 0;
    QTest::newRow("across the year's end")
        << us("12/22/2026") << us("1/12/2027") << e7 << 0 << 5
        << QStringList{"12/22/2026", "12/29/2026", "01/05/2027", "01/12/2027"} << 0 << 0;
    QTest::newRow("Fridays across the year's end")
        << us("12/20/2026") << us("1/8/2027") << weekly << int(Qt::Friday) << 5
        << QStringList{"12/25/2026", "01/01/2027", "01/08/2027"} << 0 << 0;
    QTest::newRow("over a leap day")
        << us("2/15/2028") << us("3/7/2028") << e7 << 0 << 5
        << QStringList{"02/15/2028", "02/22/2028", "02/29/2028", "03/07/2028"} << 0 << 0;
    QTest::newRow("days passed are left out") << us("4/16/2026") << us("5/7/2026") << e7 << 0 << 5
                                              << QStringList{"04/30/2026", "05/07/2026"} << 2 << 0;
    QTest::newRow("Saturdays of a five-day week")
        << us("5/4/2026") << us("5/31/2026") << weekly << int(Qt::Saturday) << 5 << QStringList{}
        << 0 << 4;
    QTest::newRow("Saturdays of a Monday to Saturday week")
        << us("5/4/2026") << us("5/31/2026") << weekly << int(Qt::Saturday) << 61
        << QStringList{"05/09/2026", "05/16/2026", "05/23/2026", "05/30/2026"} << 0 << 0;
    QTest::newRow("Sundays of a Sunday to Friday week")
        << us("5/3/2026") << us("5/17/2026") << e7 << 0 << 62
        << QStringList{"05/03/2026", "05/10/2026", "05/17/2026"} << 0 << 0;
}

void TestRecurringEvents::rangeDates()
{
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QFETCH(int, frequency);
    QFETCH(int, weekday);
    QFETCH(int, workWeek);
    QFETCH(QStringList, dates);
    QFETCH(int, beforeToday);
    QFETCH(int, nonWorkDays);
    Result<RangeDates> range =
        DatesInRange(start, end, RangeFrequency(frequency), weekday, QDate(2026, 4, 30), workWeek);
    QVERIFY2(range.ok(), qPrintable(range.message()));
    QCOMPARE(texts(range->dates), dates);
    QCOMPARE(range->beforeToday, beforeToday);
    QCOMPARE(range->nonWorkDays, nonWorkDays);
}

void TestRecurringEvents::rangeRefused_data()
{
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<int>("frequency");
    QTest::addColumn<QString>("message");
    QTest::newRow("end before start")
        << us("5/11/2026") << us("5/4/2026") << int(RangeFrequency::Every7Days)
        << "The End Date must not be before the Start Date";
    QTest::newRow("two years and a day")
        << us("5/4/2026") << us("5/5/2028") << int(RangeFrequency::Every14Days)
        << "A Date Range can cover at most 2 years.\nChoose an End Date no later than 05/04/2028";
    QTest::newRow("no weekday chosen")
        << us("5/4/2026") << us("5/31/2026") << int(RangeFrequency::WeekdayEachWeek)
        << "Select the Day of the Week";
}

void TestRecurringEvents::rangeRefused()
{
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QFETCH(int, frequency);
    QFETCH(QString, message);
    Result<RangeDates> range =
        DatesInRange(start, end, RangeFrequency(frequency), 0, QDate(2026, 4, 30), 5);
    QVERIFY(!range.ok());
    QCOMPARE(range.message(), message);
}

void TestRecurringEvents::twoYearsAreTheLimit()
{
    Result<RangeDates> range =
        DatesInRange(kMonday, kMonday.addYears(2), RangeFrequency::Every7Days, 0, kMonday, 5);
    QVERIFY(range.ok());
    // 731 days: 104 weeks and three days, the start's week included.
    QCOMPARE(range->dates.size(), 105);
    QCOMPARE(range->dates.last(), QDate(2028, 5, 1));
}

void TestRecurringEvents::leftOutDatesAreTold()
{
    QCOMPARE(LeftOutMessage(RangeDates{}), QString());
    RangeDates range;
    range.beforeToday = 1;
    range.nonWorkDays = 3;
    QCOMPARE(LeftOutMessage(range), QString("4 dates of the range were not scheduled:\n"
                                            "1 date before today\n3 dates on a Non-Work Day"));
    range.beforeToday = 0;
    range.nonWorkDays = 1;
    QCOMPARE(LeftOutMessage(range),
             QString("1 date of the range was not scheduled:\n1 date on a Non-Work Day"));
}

void TestRecurringEvents::hoursTest_data()
{
    QTest::addColumn<int>("startSlot");
    QTest::addColumn<int>("hours");
    QTest::addColumn<bool>("fits");
    QTest::newRow("3 hours at 05:00pm") << 11 << 3 << false;
    QTest::newRow("3 hours at 04:00pm end at the day's end") << 10 << 3 << true;
    QTest::newRow("12 hours from 06:00am") << 1 << 12 << true;
    QTest::newRow("12 hours from 07:00am") << 2 << 12 << false;
    QTest::newRow("1 hour at 06:00pm") << 12 << 1 << true;
}

void TestRecurringEvents::hoursTest()
{
    QFETCH(int, startSlot);
    QFETCH(int, hours);
    QFETCH(bool, fits);
    ProgramFolder f;
    if (!fits) f.dialogs.expect("Not enough Hours in a Day!!!", "Too Many Hours Selected");
    QCOMPARE(CheckEventHours(f.ctx, startSlot, hours), fits);
    QCOMPARE(f.dialogs.beeps, fits ? 0 : 1);
    VERIFY_DIALOGS(f.dialogs);
}

void TestRecurringEvents::dateClick_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("check");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("beeps");
    QTest::newRow("a free day") << kMonday << int(DateCheck::Added) << QString() << 0;
    QTest::newRow("a day with another team's booking")
        << kMonday.addDays(1) << int(DateCheck::Added) << QString() << 0;
    QTest::newRow("yesterday") << QDate(2026, 4, 29) << int(DateCheck::BeforeToday)
                               << "Your Calendar Selection is Invalid" << 1;
    QTest::newRow("a Saturday") << QDate(2026, 5, 9) << int(DateCheck::NonWorkDay)
                                << "You cannot Schedule an Event on a Non-Work Day" << 1;
    QTest::newRow("clicked twice")
        << kMonday.addDays(7) << int(DateCheck::AlreadyListed) << QString() << 1;
    QTest::newRow("the second hour taken")
        << kMonday.addDays(2) << int(DateCheck::HourTaken)
        << "An Event is Scheduled on 05/06/2026\nat 10:00\nfor South Truck" << 0;
    QTest::newRow("only the hour after the event taken")
        << kMonday.addDays(3) << int(DateCheck::Added) << QString() << 0;
}

void TestRecurringEvents::dateClick()
{
    QFETCH(QDate, date);
    QFETCH(int, check);
    QFETCH(QString, message);
    QFETCH(int, beeps);
    ProgramFolder f;
    office(f);
    // South Truck (team 2) is busy at 10:00 on Wednesday and at 11:00 on Thursday; North
    // Truck on Tuesday.
    f.put("2026/Team#1/125.txt", bareDay("SA120-9 Cy Ames", 4, 1));
    f.put("2026/Team#2/126.txt", bareDay("Mtg - 10:00 - Cy Ames", 5, 1));
    f.put("2026/Team#2/127.txt", bareDay("Holiday", 6, 1));
    if (!message.isEmpty()) f.dialogs.expect(message);
    Result<DateCheck> got =
        CheckEventDate(f.ctx, date, boiler(RecurringKind::Invoice, 4, 2), {kMonday.addDays(7)});
    QVERIFY2(got.ok(), qPrintable(got.message()));
    QCOMPARE(int(*got), check);
    QCOMPARE(f.dialogs.beeps, beeps);
    VERIFY_DIALOGS(f.dialogs);
}

void TestRecurringEvents::invoicedSeriesTakesANumberForEachDate_data()
{
    QTest::addColumn<bool>("programNumbers");
    QTest::addColumn<QStringList>("numbers");
    QTest::addColumn<QString>("counterFile");
    QTest::addColumn<QByteArray>("counter");
    QTest::newRow("program numbers")
        << true << QStringList{"SA120-1", "SA120-2", "SA120-3", "SA120-4", "SA120-5"}
        << "Counter.txt" << QByteArray("\"120\",6\r\n");
    QTest::newRow("continuous numbers")
        << false << QStringList{"1000", "1001", "1002", "1003", "1004"} << "SlipNo.txt"
        << QByteArray("1005\r\n");
}

void TestRecurringEvents::invoicedSeriesTakesANumberForEachDate()
{
    QFETCH(bool, programNumbers);
    QFETCH(QStringList, numbers);
    QFETCH(QString, counterFile);
    QFETCH(QByteArray, counter);
    ProgramFolder f;
    office(f, programNumbers);
    Result<ScheduledSeries> series =
        ScheduleRecurringEvents(f.ctx, boiler(RecurringKind::Invoice), mondays(5));
    QVERIFY2(series.ok(), qPrintable(series.message()));
    QCOMPARE(series->confirmations, numbers);
    QVERIFY(series->conflicts.isEmpty());

    QByteArray records;
    for (int i = 0; i < 5; ++i) {
        const QDate date = kMonday.addDays(7 * i);
        const QByteArray number = numbers[i].toLatin1();
        QCOMPARE(f.get(dayFile(date, 2)), bareDay(number + " Ada Byron", 4, 2));
        records += booking("Service", number, "2", "2", FormatShortDate(date).toLatin1(), "4",
                           "Boiler Service", "A-100", "Ada Byron", "12 Mill Road", "Unit 3",
                           "Greenfield", "OH", "45123", "(555)123-4567");
    }
    QCOMPARE(f.get("Slips.txt"), records);
    QVERIFY(!f.has("Meetings.txt"));
    // The counter is stored with the series: the next slip gets the sixth number.
    QCOMPARE(f.get(counterFile), counter);
    QCOMPARE(f.v.gConfirmation, programNumbers ? QString("SA120-6") : QString("1005"));
}

void TestRecurringEvents::seriesWithoutInvoice_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("record");
    QTest::newRow("for a customer")
        << int(RecurringKind::NonBillable) << QByteArray("Recurring Event - Ada Byron")
        << booking("Meeting", "", "2", "2", "05/04/2026", "4", "Boiler Service", "A-100",
                   "Ada Byron", "12 Mill Road", "Unit 3", "Greenfield", "OH", "45123",
                   "(555)123-4567");
    QTest::newRow("for no customer")
        << int(RecurringKind::NoCustomer) << QByteArray("Recurring Event - Boiler Service")
        << booking("Boiler Ser", "", "2", "2", "05/04/2026", "4", "Boiler Service", "",
                   "Boiler Service");
}

void TestRecurringEvents::seriesWithoutInvoice()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, record);
    ProgramFolder f;
    office(f);
    Result<ScheduledSeries> series =
        ScheduleRecurringEvents(f.ctx, boiler(RecurringKind(kind)), {kMonday});
    QVERIFY2(series.ok(), qPrintable(series.message()));
    QCOMPARE(f.get(dayFile(kMonday, 2)), bareDay(text, 4, 2));
    QCOMPARE(f.get("Meetings.txt"), record);
    // No number is taken and no counter written.
    QVERIFY(!f.has("Slips.txt"));
    QVERIFY(!f.has("Counter.txt"));
    QCOMPARE(f.v.gConfirmation, QString("SA120-1"));
}

void TestRecurringEvents::sharedHourGoesToTheFirstSeries()
{
    ProgramFolder f;
    office(f);
    const QList<QDate> dates = mondays(2);
    QVERIFY(ScheduleRecurringEvents(f.ctx, boiler(RecurringKind::NoCustomer, 4, 2), dates).ok());
    RecurringEvent second = boiler(RecurringKind::NonBillable, 5, 2);
    Result<ScheduledSeries> series = ScheduleRecurringEvents(f.ctx, second, dates);
    QVERIFY(series.ok());
    // 10:00 is the first series' on both dates; the second gets 11:00 alone.
    QCOMPARE(series->conflicts.size(), 2);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(series->conflicts[i].date, dates[i]);
        QCOMPARE(series->conflicts[i].slot, 5);
        QCOMPARE(f.get(dayFile(dates[i], 2)), QByteArray(kBareFree.repeated(3) +
                                                         "Recurring Event - Boiler Service\r\n"
                                                         "Recurring Event - Boiler Service\r\n"
                                                         "Recurring Event - Ada Byron\r\n" +
                                                         kBareFree.repeated(6)));
    }
    // Both series have all their records, the second's as well.
    const QByteArray meetings = f.get("Meetings.txt");
    QCOMPARE(meetings.size(), 4 * 297);
    QCOMPARE(meetings.mid(3 * 297),
             booking("Meeting", "", "2", "2", "05/11/2026", "5", "Boiler Service", "A-100",
                     "Ada Byron", "12 Mill Road", "Unit 3", "Greenfield", "OH", "45123",
                     "(555)123-4567"));
}

void TestRecurringEvents::numbersOnFileAreNotGivenAgain()
{
    ProgramFolder f;
    office(f);
    // A restored counter: SA120-2 and SA120-3 are already the numbers of slips on file.
    f.put("Slips.txt",
          booking("Service", "SA120-2", "1", "1", "04/30/2026", "3", "No Heat", "B-2", "Bo Carr") +
              booking("Service", "SA120-3", "1", "1", "04/30/2026", "4", "No Heat", "B-2",
                      "Bo Carr"));
    Result<ScheduledSeries> series =
        ScheduleRecurringEvents(f.ctx, boiler(RecurringKind::Invoice), mondays(3));
    QVERIFY(series.ok());
    QCOMPARE(series->confirmations, (QStringList{"SA120-1", "SA120-4", "SA120-5"}));
    QCOMPARE(f.get("Slips.txt").size(), 5 * 297);
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"120\",6\r\n"));
}

void TestRecurringEvents::seriesRefusedWhenNumbersRunOut()
{
    ProgramFolder f;
    office(f);
    f.v.gSequence = 32765;
    const auto before = f.snapshot();
    Result<ScheduledSeries> series =
        ScheduleRecurringEvents(f.ctx, boiler(RecurringKind::Invoice), mondays(3));
    QVERIFY(!series.ok());
    QVERIFY(series.message().contains("32767"));
    QCOMPARE(f.snapshot(), before);
    QCOMPARE(f.v.gSequence, qint16(32765));
    // Two dates still have their numbers, and the next slip one after them.
    QVERIFY(ScheduleRecurringEvents(f.ctx, boiler(RecurringKind::Invoice), mondays(2)).ok());
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"120\",32767\r\n"));
}

void TestRecurringEvents::nameWithACommaStaysInItsHours()
{
    ProgramFolder f;
    office(f);
    f.v.current.name = "Byron, Ada";
    QVERIFY(
        ScheduleRecurringEvents(f.ctx, boiler(RecurringKind::NonBillable, 11, 2), {kMonday}).ok());
    // Written in quotes, so the name does not split into two slots when read again.
    QCOMPARE(f.get(dayFile(kMonday, 2)),
             kBareFree.repeated(10) +
                 QByteArray("\"Recurring Event - Byron, Ada\"\r\n").repeated(2));
    f.dialogs.expect("An Event is Scheduled on 05/04/2026\nat 06:00\nfor South Truck");
    Result<DateCheck> last =
        CheckEventDate(f.ctx, kMonday, boiler(RecurringKind::Invoice, 12, 1), {});
    QVERIFY(last.ok());
    QCOMPARE(*last, DateCheck::HourTaken);
    Result<DateCheck> before =
        CheckEventDate(f.ctx, kMonday, boiler(RecurringKind::Invoice, 10, 1), {});
    QCOMPARE(*before, DateCheck::Added);
    VERIFY_DIALOGS(f.dialogs);
}

QTEST_GUILESS_MAIN(TestRecurringEvents)
#include "test_recurringevents.moc"
