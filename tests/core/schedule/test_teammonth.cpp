#include "core/schedule/teammonth.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

class TestTeamMonth : public QObject
{
    Q_OBJECT
private slots:
    void sheetLayout_data();
    void sheetLayout();
    void bookedHours_data();
    void bookedHours();
    void daysBeforeTodayStayBlue();
    void clickGoesToTheDay();
};

void TestTeamMonth::sheetLayout_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("firstBox");
    QTest::addColumn<int>("lastBox");
    QTest::addColumn<QString>("caption");
    QTest::newRow("Saturday start, 31 days") << QDate(2026, 8, 20) << 6 << 36 << "20 Aug";
    QTest::newRow("Sunday start February") << QDate(2026, 2, 1) << 0 << 27 << "1 Feb";
    QTest::newRow("leap February") << QDate(2024, 2, 29) << 4 << 32 << "29 Feb";
    QTest::newRow("March") << QDate(2026, 3, 9) << 0 << 30 << "9 March";
}

void TestTeamMonth::sheetLayout()
{
    QFETCH(QDate, date);
    QFETCH(int, firstBox);
    QFETCH(int, lastBox);
    QFETCH(QString, caption);
    ProgramFolder f;
    Result<TeamMonth> m = DrawTeamMonth(f.ctx, date, "1");
    QVERIFY(m.ok());
    QCOMPARE(m->txtCurrentDate, caption);
    for (int box = 0; box < 42; ++box) {
        const bool inMonth = box >= firstBox && box <= lastBox;
        QCOMPARE(m->Text1[box], inMonth ? QString::number(box - firstBox + 1) : QString());
        QVERIFY(!m->red[box]);
    }
}

void TestTeamMonth::bookedHours_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("red");
    const QByteArray free = "\"No Event Scheduled\"\r\n";
    QTest::newRow("all free keeps the number") << free.repeated(12) << "5" << false;
    QTest::newRow("three quoted hours")
        << free.repeated(3) + QByteArray("\"SA120-1 Ada\"\r\n").repeated(3) + free.repeated(6)
        << "3" << true;
    QTest::newRow("blocked day") << QByteArray("Holiday\r\n").repeated(12) << "12" << true;
    QTest::newRow("bare comma counts twice")
        << QByteArray("Smith, John\r\n") + QByteArray("No Event Scheduled\r\n").repeated(11) << "2"
        << true;
    QTest::newRow("containment, case counting")
        << QByteArray("no event scheduled\r\n") + free.repeated(11) << "1" << true;
}

void TestTeamMonth::bookedHours()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, shown);
    QFETCH(bool, red);
    ProgramFolder f;                    // today 30 April 2026
    f.put("2026/Team#3/125.txt", file); // 5 May
    f.put("2026/Team#2/126.txt", "\"Other team\"\r\n");
    Result<TeamMonth> m = DrawTeamMonth(f.ctx, QDate(2026, 5, 20), "3");
    QVERIFY(m.ok());
    // May 2026 starts on a Friday: box 5 is the 1st, box 9 the 5th.
    QCOMPARE(m->Text1[9], shown);
    QCOMPARE(m->red[9], red);
    QCOMPARE(m->Text1[10], QString("6"));
    QVERIFY(!m->red[10]);
}

void TestTeamMonth::daysBeforeTodayStayBlue()
{
    ProgramFolder f;                                // today 30 April 2026
    f.put("2026/Team#1/119.txt", "\"Booked\"\r\n"); // 29 April
    f.put("2026/Team#1/120.txt", "\"Booked\"\r\n"); // today
    Result<TeamMonth> m = DrawTeamMonth(f.ctx, QDate(2026, 4, 1), "1");
    // April 2026 starts on a Wednesday: box 3 is the 1st.
    QCOMPARE(m->Text1[3 + 28], QString("29"));
    QVERIFY(!m->red[3 + 28]);
    QCOMPARE(m->Text1[3 + 29], QString("1"));
    QVERIFY(m->red[3 + 29]);
}

void TestTeamMonth::clickGoesToTheDay()
{
    ProgramFolder f;
    const QDate date(2026, 8, 20);
    Result<TeamMonth> m = DrawTeamMonth(f.ctx, date, "1");
    QCOMPARE(MonthBoxDate(*m, date, 6), QDate(2026, 8, 1));
    QCOMPARE(MonthBoxDate(*m, date, 36), QDate(2026, 8, 31));
    QVERIFY(!MonthBoxDate(*m, date, 5).isValid());
    QVERIFY(!MonthBoxDate(*m, date, 37).isValid());
    QVERIFY(!MonthBoxDate(*m, date, 42).isValid());
}

QTEST_GUILESS_MAIN(TestTeamMonth)
#include "test_teammonth.moc"
