#include "historybytes.h"
#include "programfolder.h"

#include "core/history/courtesycalls.h"

#include <QtTest>

using namespace tresvane;

class TestCourtesyCalls : public QObject
{
    Q_OBJECT
private slots:
    void spanInDateOrder_data();
    void spanInDateOrder();
    void rowCells();
};

void TestCourtesyCalls::spanInDateOrder_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("across the year's end; a day in time order")
        << QDate(2026, 4, 30) << QDate(2027, 12, 31)
        << QStringList{"Apr First", "Dec Last", "Jan Two A", "Jan Two C", "Jan Two B", "Jan Two D"};
    QTest::newRow("both ends included")
        << QDate(2026, 12, 31) << QDate(2027, 1, 2)
        << QStringList{"Dec Last", "Jan Two A", "Jan Two C", "Jan Two B", "Jan Two D"};
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
                           SlipRec("Jan Two D", "01/02/2027", "2", "7") +
                           SlipRec("Jan Two C", "01/02/2027", "2", "2") +
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
    QCOMPARE(rows.value(0), (QStringList{"Ann Smith", "04/30/2026", "06:00pm", "610-555-0199",
                                         "Truck 2", "Leaking tap", "2026120"}));
    for (int i : {1, 2}) {
        QCOMPARE(rows.value(i).value(CourtesyColumn::Time), QString());
        QCOMPARE(rows.value(i).value(CourtesyColumn::AssignedTo), QString());
    }
}

QTEST_GUILESS_MAIN(TestCourtesyCalls)
#include "test_courtesycalls.moc"
