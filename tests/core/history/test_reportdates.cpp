#include "history/reportdates.h"
#include "scripteddialogs.h"

#include <QtTest>

namespace
{
const QString kCalendar = QStringLiteral("Your Calendar Selection is Invalid");
}

class TestReportDates : public QObject
{
    Q_OBJECT
private slots:
    void openingIsThirtyDaysToToday();
    void presets_data();
    void presets();
    void presetOutsideTheArrayDoesNothing();
    void pickerChanges_data();
    void pickerChanges();
    void datePartsFallBackToTheMonthsLastDay_data();
    void datePartsFallBackToTheMonthsLastDay();
};

void TestReportDates::openingIsThirtyDaysToToday()
{
    IncomeReportDates d(QDate(2024, 3, 1));
    QCOMPARE(d.DTPicker1[0], QDate(2024, 1, 31));
    QCOMPARE(d.DTPicker1[1], QDate(2024, 3, 1));
    QCOMPARE(d.ReportStartDate, QDate(2024, 1, 31));
    QCOMPARE(d.ReportEndDate, QDate(2024, 3, 1));
}

// Each preset from the opening dates (or from a first date the user chose before), with
// the dates it leaves and whether it complained on the way.
void TestReportDates::presets_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("chosenStart"); // a first date picked by hand; null: the opening
    QTest::addColumn<int>("preset");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<int>("messages");

    const QDate none;
    QTest::newRow("last month in January is December of the year before")
        << QDate(2025, 1, 15) << none << 0 << QDate(2024, 12, 1) << QDate(2024, 12, 31) << 0;
    QTest::newRow("last month on 1 January")
        << QDate(2025, 1, 1) << none << 0 << QDate(2024, 12, 1) << QDate(2024, 12, 31) << 0;
    QTest::newRow("last month in March of a leap year ends on the 29th")
        << QDate(2024, 3, 15) << none << 0 << QDate(2024, 2, 1) << QDate(2024, 2, 29) << 0;
    QTest::newRow("last month in March of a common year ends on the 28th")
        << QDate(2025, 3, 10) << none << 0 << QDate(2025, 2, 1) << QDate(2025, 2, 28) << 0;
    QTest::newRow("last month in December")
        << QDate(2026, 12, 10) << none << 0 << QDate(2026, 11, 1) << QDate(2026, 11, 30) << 0;
    // Presets move only the report's end: on the 31st the opening start is the 1st of
    // this month, so last month ends before it and the last date falls to the first.
    QTest::newRow("last month on the 31st meets the opening start")
        << QDate(2025, 3, 31) << none << 0 << QDate(2025, 2, 1) << QDate(2025, 2, 1) << 1;
    QTest::newRow("last month after a later start chosen by hand")
        << QDate(2026, 4, 30) << QDate(2026, 4, 20) << 0 << QDate(2026, 3, 1) << QDate(2026, 3, 1)
        << 1;
    QTest::newRow("this month on its last day")
        << QDate(2026, 4, 30) << none << 1 << QDate(2026, 4, 1) << QDate(2026, 4, 30) << 0;
    QTest::newRow("this month from a start on the 31st of another month")
        << QDate(2026, 4, 10) << QDate(2026, 3, 31) << 1 << QDate(2026, 4, 1) << QDate(2026, 4, 10)
        << 0;
    QTest::newRow("this year on 29 February")
        << QDate(2024, 2, 29) << none << 2 << QDate(2024, 1, 1) << QDate(2024, 2, 29) << 0;
    QTest::newRow("this year from a start on 29 February of a leap year")
        << QDate(2025, 6, 1) << QDate(2024, 2, 29) << 2 << QDate(2025, 1, 1) << QDate(2025, 6, 1)
        << 0;
    QTest::newRow("eternity starts in 1990")
        << QDate(2026, 4, 30) << none << 3 << QDate(1990, 1, 1) << QDate(2026, 4, 30) << 0;
    QTest::newRow("eternity from a start on 29 February")
        << QDate(2026, 4, 30) << QDate(2024, 2, 29) << 3 << QDate(1990, 1, 1) << QDate(2026, 4, 30)
        << 0;
}

void TestReportDates::presets()
{
    QFETCH(QDate, today);
    QFETCH(QDate, chosenStart);
    QFETCH(int, preset);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QFETCH(int, messages);

    ScriptedDialogs dialogs;
    IncomeReportDates d(today);
    if (chosenStart.isValid()) {
        d.PickerChanged(0, chosenStart, today, dialogs);
        QCOMPARE(d.ReportStartDate, chosenStart);
    }
    for (int i = 0; i < messages; ++i)
        dialogs.expect(kCalendar);
    d.cmdIncome_Click(preset, today, dialogs);
    QCOMPARE(d.DTPicker1[0], first);
    QCOMPARE(d.DTPicker1[1], last);
    QCOMPARE(dialogs.beeps, 0);
    VERIFY_DIALOGS(dialogs);
    // The report's start never follows a preset; its end does, up to the range check.
    QCOMPARE(d.ReportStartDate, chosenStart.isValid() ? chosenStart : today.addDays(-30));
    if (messages == 0) QCOMPARE(d.ReportEndDate, last);
}

void TestReportDates::presetOutsideTheArrayDoesNothing()
{
    ScriptedDialogs dialogs;
    const QDate today(2026, 4, 30);
    IncomeReportDates d(today);
    const IncomeReportDates before = d;
    for (int index : {-1, 4, 100}) {
        d.cmdIncome_Click(index, today, dialogs);
        QCOMPARE(d.DTPicker1, before.DTPicker1);
        QCOMPARE(d.ReportStartDate, before.ReportStartDate);
        QCOMPARE(d.ReportEndDate, before.ReportEndDate);
    }
    VERIFY_DIALOGS(dialogs);
}

// Changes by hand, from the opening on 30 April 2026 (31 March to 30 April).
void TestReportDates::pickerChanges_data()
{
    QTest::addColumn<QList<int>>("indexes");
    QTest::addColumn<QList<QDate>>("picked");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<QDate>("reportStart");
    QTest::addColumn<QDate>("reportEnd");
    QTest::addColumn<int>("messages");
    QTest::addColumn<int>("beeps");

    const QDate opening0(2026, 3, 31), today(2026, 4, 30);
    QTest::newRow("last date tomorrow falls back to today")
        << QList<int>{1} << QList<QDate>{QDate(2026, 5, 1)} << opening0 << today << opening0
        << today << 1 << 1;
    QTest::newRow("first date tomorrow falls back to today")
        << QList<int>{0} << QList<QDate>{QDate(2026, 5, 1)} << today << today << opening0 << today
        << 1 << 1;
    QTest::newRow("today itself is taken")
        << QList<int>{0} << QList<QDate>{today} << today << today << today << today << 0 << 0;
    QTest::newRow("first date after the last moves the last to it")
        << QList<int>{1, 0} << QList<QDate>{QDate(2026, 4, 10), QDate(2026, 4, 20)}
        << QDate(2026, 4, 20) << QDate(2026, 4, 20) << QDate(2026, 4, 20) << QDate(2026, 4, 10) << 1
        << 0;
    QTest::newRow("last date before the first falls to the first")
        << QList<int>{1} << QList<QDate>{QDate(2026, 3, 1)} << opening0 << opening0 << opening0
        << QDate(2026, 3, 1) << 1 << 0;
    QTest::newRow("equal dates are a range") << QList<int>{1} << QList<QDate>{opening0} << opening0
                                             << opening0 << opening0 << opening0 << 0 << 0;
    QTest::newRow("another index only checks the range")
        << QList<int>{2} << QList<QDate>{QDate(2030, 1, 1)} << opening0 << today << opening0
        << today << 0 << 0;
}

void TestReportDates::pickerChanges()
{
    QFETCH(QList<int>, indexes);
    QFETCH(QList<QDate>, picked);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QFETCH(QDate, reportStart);
    QFETCH(QDate, reportEnd);
    QFETCH(int, messages);
    QFETCH(int, beeps);

    const QDate today(2026, 4, 30);
    ScriptedDialogs dialogs;
    for (int i = 0; i < messages; ++i)
        dialogs.expect(kCalendar);
    IncomeReportDates d(today);
    for (qsizetype i = 0; i < indexes.size(); ++i)
        d.PickerChanged(indexes[i], picked[i], today, dialogs);
    QCOMPARE(d.DTPicker1[0], first);
    QCOMPARE(d.DTPicker1[1], last);
    QCOMPARE(d.ReportStartDate, reportStart);
    QCOMPARE(d.ReportEndDate, reportEnd);
    QCOMPARE(dialogs.beeps, beeps);
    VERIFY_DIALOGS(dialogs);
    if (messages > 0) QCOMPARE(dialogs.titles.value(0), QString()); // no title of its own
}

void TestReportDates::datePartsFallBackToTheMonthsLastDay_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<char>("part");
    QTest::addColumn<int>("value");
    QTest::addColumn<QDate>("expected");

    QTest::newRow("31 January to February, leap")
        << QDate(2024, 1, 31) << 'm' << 2 << QDate(2024, 2, 29);
    QTest::newRow("31 January to February") << QDate(2025, 1, 31) << 'm' << 2 << QDate(2025, 2, 28);
    QTest::newRow("31 March to April") << QDate(2025, 3, 31) << 'm' << 4 << QDate(2025, 4, 30);
    QTest::newRow("29 February to a common year")
        << QDate(2024, 2, 29) << 'y' << 2025 << QDate(2025, 2, 28);
    QTest::newRow("29 February to a leap year")
        << QDate(2024, 2, 29) << 'y' << 2028 << QDate(2028, 2, 29);
    QTest::newRow("day 31 in April") << QDate(2025, 4, 5) << 'd' << 31 << QDate(2025, 4, 30);
    QTest::newRow("day 1") << QDate(2025, 4, 5) << 'd' << 1 << QDate(2025, 4, 1);
}

void TestReportDates::datePartsFallBackToTheMonthsLastDay()
{
    QFETCH(QDate, date);
    QFETCH(char, part);
    QFETCH(int, value);
    QFETCH(QDate, expected);
    const QDate got = part == 'm'   ? IncomeReportDates::SetMonth(date, value)
                      : part == 'y' ? IncomeReportDates::SetYear(date, value)
                                    : IncomeReportDates::SetDay(date, value);
    QCOMPARE(got, expected);
}

QTEST_GUILESS_MAIN(TestReportDates)
#include "test_reportdates.moc"
