#include "core/history/reportdates.h"
#include "scripteddialogs.h"

#include <QtTest>

using namespace tresvane;

static const QString kCalendar = QStringLiteral("Your Calendar Selection is Invalid");

class TestReportDates : public QObject
{
    Q_OBJECT
private slots:
    void presets_data();
    void presets();
    void pickerChanges_data();
    void pickerChanges();
};

// Each preset from the opening (today less 30 days to today), or from a first date the
// user picked before, with the dates it leaves and the calendar messages on the way.
void TestReportDates::presets_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("picked"); // null: the opening dates
    QTest::addColumn<int>("preset");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<int>("messages");

    const QDate none;
    QTest::newRow("last month in January: December of the year before")
        << QDate(2025, 1, 15) << none << 0 << QDate(2024, 12, 1) << QDate(2024, 12, 31) << 0;
    QTest::newRow("last month on 1 January")
        << QDate(2025, 1, 1) << none << 0 << QDate(2024, 12, 1) << QDate(2024, 12, 31) << 0;
    QTest::newRow("last month in March of a leap year")
        << QDate(2024, 3, 15) << none << 0 << QDate(2024, 2, 1) << QDate(2024, 2, 29) << 0;
    // Presets move only the report's end: on the 31st the opening start is the 1st of this
    // month, so last month ends before it and the last date falls to the first.
    QTest::newRow("last month on the 31st meets the opening start")
        << QDate(2025, 3, 31) << none << 0 << QDate(2025, 2, 1) << QDate(2025, 2, 1) << 1;
    QTest::newRow("last month after a later start picked by hand")
        << QDate(2026, 4, 30) << QDate(2026, 4, 20) << 0 << QDate(2026, 3, 1) << QDate(2026, 3, 1)
        << 1;
    // Month first on a 31st: the day falls back to 30 April before it becomes the 1st.
    QTest::newRow("this month from a start on the 31st")
        << QDate(2026, 4, 10) << QDate(2026, 3, 31) << 1 << QDate(2026, 4, 1) << QDate(2026, 4, 10)
        << 0;
    QTest::newRow("this year on 29 February")
        << QDate(2024, 2, 29) << none << 2 << QDate(2024, 1, 1) << QDate(2024, 2, 29) << 0;
    QTest::newRow("eternity from a start on 29 February")
        << QDate(2026, 4, 30) << QDate(2024, 2, 29) << 3 << QDate(1990, 1, 1) << QDate(2026, 4, 30)
        << 0;
    QTest::newRow("an index past the buttons does nothing")
        << QDate(2026, 4, 30) << none << 4 << QDate(2026, 3, 31) << QDate(2026, 4, 30) << 0;
}

void TestReportDates::presets()
{
    QFETCH(QDate, today);
    QFETCH(QDate, picked);
    QFETCH(int, preset);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QFETCH(int, messages);

    ScriptedDialogs dialogs;
    IncomeReportDates d(today);
    if (picked.isValid()) d.PickerChanged(0, picked, today, dialogs);
    for (int i = 0; i < messages; ++i)
        dialogs.expect(kCalendar);
    d.cmdIncome_Click(preset, today, dialogs);
    QCOMPARE(d.DTPicker1[0], first);
    QCOMPARE(d.DTPicker1[1], last);
    QCOMPARE(d.ReportStartDate, picked.isValid() ? picked : today.addDays(-30));
    if (messages == 0) QCOMPARE(d.ReportEndDate, last);
    QCOMPARE(dialogs.beeps, 0);
    VERIFY_DIALOGS(dialogs);
}

// Dates picked by hand (index, date), from the opening on 30 April 2026: 31 March to 30 April.
void TestReportDates::pickerChanges_data()
{
    QTest::addColumn<QList<int>>("indexes");
    QTest::addColumn<QList<QDate>>("dates");
    QTest::addColumn<QList<QDate>>("expected"); // pickers 0 and 1, report start and end
    QTest::addColumn<int>("messages");
    QTest::addColumn<int>("beeps");

    const QDate opening(2026, 3, 31), today(2026, 4, 30), tomorrow(2026, 5, 1);
    QTest::newRow("last date tomorrow falls back to today")
        << QList<int>{1} << QList<QDate>{tomorrow} << QList<QDate>{opening, today, opening, today}
        << 1 << 1;
    QTest::newRow("first date tomorrow falls back to today")
        << QList<int>{0} << QList<QDate>{tomorrow} << QList<QDate>{today, today, opening, today}
        << 1 << 1;
    QTest::newRow("first date after the last pulls the last along")
        << QList<int>{1, 0} << QList<QDate>{QDate(2026, 4, 10), QDate(2026, 4, 20)}
        << QList<QDate>{QDate(2026, 4, 20), QDate(2026, 4, 20), QDate(2026, 4, 20),
                        QDate(2026, 4, 10)}
        << 1 << 0;
    QTest::newRow("last date before the first falls to it")
        << QList<int>{1} << QList<QDate>{QDate(2026, 3, 1)}
        << QList<QDate>{opening, opening, opening, QDate(2026, 3, 1)} << 1 << 0;
}

void TestReportDates::pickerChanges()
{
    QFETCH(QList<int>, indexes);
    QFETCH(QList<QDate>, dates);
    QFETCH(QList<QDate>, expected);
    QFETCH(int, messages);
    QFETCH(int, beeps);

    const QDate today(2026, 4, 30);
    ScriptedDialogs dialogs;
    for (int i = 0; i < messages; ++i)
        dialogs.expect(kCalendar, QStringLiteral("")); // no title of its own
    IncomeReportDates d(today);
    for (qsizetype i = 0; i < indexes.size(); ++i)
        d.PickerChanged(indexes[i], dates[i], today, dialogs);
    QCOMPARE((QList<QDate>{d.DTPicker1[0], d.DTPicker1[1], d.ReportStartDate, d.ReportEndDate}),
             expected);
    QCOMPARE(dialogs.beeps, beeps); // whatever the alarms setting says
    VERIFY_DIALOGS(dialogs);
}

QTEST_GUILESS_MAIN(TestReportDates)
#include "test_reportdates.moc"
