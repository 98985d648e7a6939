#include "historybytes.h"
#include "programfolder.h"

#include "history/courtesycalls.h"

#include <QtTest>

class TestCourtesyCalls : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void spanInDateOrder_data();
    void spanInDateOrder();
    void rowCarriesHourAndTeam();
    void missingSlipsFileComesOutEmpty();
    void dateKeys_data();
    void dateKeys();
    void spanButtons_data();
    void spanButtons();

private:
    std::unique_ptr<ProgramFolder> f;
};

void TestCourtesyCalls::init()
{
    f = std::make_unique<ProgramFolder>();
    BuildTimeLabels(f->v);
    f->v.gAssignTo = {"populated", "Truck 1", "Truck 2"};
    // File order is not date order; two slips share 2 January.
    f->put("Slips.txt", SlipRec("Jan Two B", "01/02/2027", "1", "3") +
                            SlipRec("Dec Last", "12/31/2026", "2", "1") +
                            SlipRec("Jan Two A", "1/2/2027", "1", "1") +
                            SlipRec("Bad Date", "soon", "1", "1") +
                            SlipRec("Apr First", "04/30/2026", "1", "12") +
                            SlipRec("Feb Leap", "02/29/2028", "1", "1"));
}

void TestCourtesyCalls::spanInDateOrder_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("across the year's end; a day keeps file order")
        << QDate(2026, 4, 30) << QDate(2027, 12, 31)
        << QStringList{"Apr First", "Dec Last", "Jan Two B", "Jan Two A"};
    QTest::newRow("both ends included") << QDate(2026, 12, 31) << QDate(2027, 1, 2)
                                        << QStringList{"Dec Last", "Jan Two B", "Jan Two A"};
    QTest::newRow("one day") << QDate(2028, 2, 29) << QDate(2028, 2, 29) << QStringList{"Feb Leap"};
    QTest::newRow("nothing in span") << QDate(2026, 5, 1) << QDate(2026, 12, 30) << QStringList{};
    QTest::newRow("end before start") << QDate(2027, 1, 2) << QDate(2026, 1, 1) << QStringList{};
}

void TestCourtesyCalls::spanInDateOrder()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(QStringList, names);
    Result<QList<QStringList>> rows = LoadCourtesyCalls(f->ctx, from, to);
    QVERIFY2(rows.ok(), qPrintable(rows.message()));
    QStringList got;
    for (const QStringList& row : *rows)
        got << row[CourtesyColumn::Name];
    QCOMPARE(got, names);
}

void TestCourtesyCalls::rowCarriesHourAndTeam()
{
    f->put("Slips.txt",
           SlipRec(" Ann Smith ", "04/30/2026", "2", "12", "610-555-0199", "Leaking tap") +
               SlipRec("No Team", "04/30/2026", "9", "13") +
               SlipRec("Blank", "04/30/2026", "", "x"));
    Result<QList<QStringList>> rows =
        LoadCourtesyCalls(f->ctx, QDate(2026, 4, 30), QDate(2026, 4, 30));
    QVERIFY(rows.ok());
    QCOMPARE(rows->size(), 3);
    QCOMPARE(rows->at(0), (QStringList{"Ann Smith", "04/30/2026", f->v.TimeLabels[12],
                                       "610-555-0199", "Truck 2", "Leaking tap", "2026120"}));
    // No label and no team for numbers out of range: empty cells, not a failure.
    QCOMPARE(rows->at(1)[CourtesyColumn::Time], QString());
    QCOMPARE(rows->at(1)[CourtesyColumn::AssignedTo], QString());
    QCOMPARE(rows->at(2)[CourtesyColumn::Time], QString());
    QCOMPARE(rows->at(2)[CourtesyColumn::AssignedTo], QString());
}

void TestCourtesyCalls::missingSlipsFileComesOutEmpty()
{
    ProgramFolder g;
    Result<QList<QStringList>> rows =
        LoadCourtesyCalls(g.ctx, QDate(2026, 1, 1), QDate(2027, 1, 1));
    QVERIFY(rows.ok());
    QVERIFY(rows->isEmpty());
    QVERIFY(g.has("Slips.txt"));
    QCOMPARE(g.get("Slips.txt"), QByteArray());
}

void TestCourtesyCalls::dateKeys_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("key");
    QTest::newRow("1 January") << QDate(2026, 1, 1) << "2026001";
    QTest::newRow("31 December of a leap year") << QDate(2028, 12, 31) << "2028366";
    QTest::newRow("30 April") << QDate(2026, 4, 30) << "2026120";
}

void TestCourtesyCalls::dateKeys()
{
    QFETCH(QDate, date);
    QFETCH(QString, key);
    QCOMPARE(CourtesyDateKey(date), key);
}

void TestCourtesyCalls::spanButtons_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("ending");
    const QDate current(2030, 6, 6);
    QTest::newRow("next month from 31 January, leap")
        << 6 << QDate(2028, 1, 31) << QDate(2028, 2, 29);
    QTest::newRow("next month from 31 January") << 6 << QDate(2027, 1, 31) << QDate(2027, 2, 28);
    QTest::newRow("next quarter from 30 November")
        << 7 << QDate(2026, 11, 30) << QDate(2027, 2, 28);
    QTest::newRow("next year from 29 February") << 5 << QDate(2028, 2, 29) << QDate(2029, 2, 28);
    QTest::newRow("next month in December") << 6 << QDate(2026, 12, 15) << QDate(2027, 1, 15);
    QTest::newRow("load grid keeps the end") << 3 << QDate(2026, 4, 30) << current;
}

void TestCourtesyCalls::spanButtons()
{
    QFETCH(int, button);
    QFETCH(QDate, today);
    QFETCH(QDate, ending);
    QCOMPARE(CourtesyEnding(button, today, QDate(2030, 6, 6)), ending);
}

QTEST_GUILESS_MAIN(TestCourtesyCalls)
#include "test_courtesycalls.moc"
