#include "historybytes.h"
#include "programfolder.h"

#include "history/courtesycalls.h"

#include <QtTest>

class TestCourtesyCalls : public QObject
{
    Q_OBJECT
private slots:
    void spanInDateOrder_data();
    void spanInDateOrder();
    void rowCells();
    void spanButtons_data();
    void spanButtons();
};

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
    QTest::newRow("29 February") << QDate(2028, 2, 29) << QDate(2028, 2, 29)
                                 << QStringList{"Feb Leap"};
    QTest::newRow("end before start") << QDate(2027, 1, 2) << QDate(2026, 1, 1) << QStringList{};
}

void TestCourtesyCalls::spanInDateOrder()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(QStringList, names);
    ProgramFolder f;
    f.put("Slips.txt", SlipRec("Jan Two B", "01/02/2027", "1", "3") +
                           SlipRec("Dec Last", "12/31/2026", "2", "1") +
                           SlipRec("Jan Two A", "1/2/2027", "1", "1") +
                           SlipRec("Bad Date", "soon", "1", "1") +
                           SlipRec("Apr First", "04/30/2026", "1", "12") +
                           SlipRec("Feb Leap", "02/29/2028", "1", "1"));
    const Result<QList<QStringList>> rows = LoadCourtesyCalls(f.ctx, from, to);
    QStringList got;
    for (const QStringList& row : *rows)
        got << row[CourtesyColumn::Name];
    QCOMPARE(got, names);
}

void TestCourtesyCalls::rowCells()
{
    ProgramFolder f;
    BuildTimeLabels(f.v);
    f.v.gAssignTo = {"populated", "Truck 1", "Truck 2"};
    QVERIFY(LoadCourtesyCalls(f.ctx, QDate(2026, 1, 1), QDate(2027, 1, 1))->isEmpty());
    QCOMPARE(f.get("Slips.txt"), QByteArray()); // created empty, as opening it always did
    f.put("Slips.txt",
          SlipRec(" Ann Smith ", "04/30/2026", "2", "12", "610-555-0199", "Leaking tap") +
              SlipRec("Out of range", "04/30/2026", "9", "13") +
              SlipRec("Blank", "04/30/2026", "", "x"));
    const QList<QStringList> rows =
        *LoadCourtesyCalls(f.ctx, QDate(2026, 4, 30), QDate(2026, 4, 30));
    QCOMPARE(rows.value(0), (QStringList{"Ann Smith", "04/30/2026", f.v.TimeLabels[12],
                                         "610-555-0199", "Truck 2", "Leaking tap", "2026120"}));
    for (int i : {1, 2}) {
        QCOMPARE(rows.value(i).value(CourtesyColumn::Time), QString());
        QCOMPARE(rows.value(i).value(CourtesyColumn::AssignedTo), QString());
    }
}

void TestCourtesyCalls::spanButtons_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("ending");
    QTest::newRow("month from 31 January, leap") << 6 << QDate(2028, 1, 31) << QDate(2028, 2, 29);
    QTest::newRow("month from 31 January") << 6 << QDate(2027, 1, 31) << QDate(2027, 2, 28);
    QTest::newRow("quarter from 30 November") << 7 << QDate(2026, 11, 30) << QDate(2027, 2, 28);
    QTest::newRow("year from 29 February") << 5 << QDate(2028, 2, 29) << QDate(2029, 2, 28);
    QTest::newRow("load grid keeps the end") << 3 << QDate(2026, 4, 30) << QDate(2030, 6, 6);
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
