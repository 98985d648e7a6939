#include "core/io/customerrecords.h"
#include "core/io/itemrecords.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfiles.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{
const QDate kDay(2026, 5, 5);

QByteArray contract(const QString& time, const QString& customer = "Hill Farm",
                    const QString& service = "Pump check", const QString& team = "North",
                    double date = ToOleDate(kDay))
{
    ContractRecord k;
    k.setText(ContractField::ContractService, service);
    k.setText(ContractField::ContractTeam, team);
    k.setReal(ContractField::ContractNextDate, date);
    k.setText(ContractField::ContractTime, time);
    k.setText(ContractField::ContractCustomer, customer);
    return k.bytes();
}

QByteArray service(const QString& name, qint16 quarterHours)
{
    ServiceRecord s;
    s.setText(ServiceField::ServiceName, name);
    s.setText(ServiceField::ServicePrice, "$45.00");
    s.setInt16(ServiceField::ServiceFlag, quarterHours);
    return s.bytes();
}

GridColumn freeDay()
{
    GridColumn g;
    g.fill(NoEventScheduled());
    return g;
}

// The rows (from 1) that hold a contract event, as "3,4,5".
QString contractRows(const GridColumn& g)
{
    QStringList rows;
    for (int i = 0; i < 12; ++i)
        if (g[i].endsWith(" - Contract Event")) rows << QString::number(i + 1);
    return rows.join(',');
}
} // namespace

class TestContractOverlay : public QObject
{
    Q_OBJECT
private slots:
    void furtherHours_data();
    void furtherHours();
    void overlay_data();
    void overlay();
    void overlayRefusesABookingAndNeverReachesTheFile();
    void folderWithoutContractsIsLeftAlone();
};

void TestContractOverlay::furtherHours_data()
{
    QTest::addColumn<int>("quarters");
    QTest::addColumn<int>("further");
    const QList<QPair<int, int>> table = {{-3, 0}, {0, 0},  {4, 0},  {5, 1},  {8, 1},    {9, 2},
                                          {12, 2}, {13, 3}, {16, 3}, {17, 5}, {20, 5},   {21, 6},
                                          {24, 6}, {25, 7}, {28, 7}, {29, 0}, {32767, 0}};
    for (const auto& [q, h] : table)
        QTest::addRow("%d quarters", q) << q << h;
}

void TestContractOverlay::furtherHours()
{
    QFETCH(int, quarters);
    QFETCH(int, further);
    QCOMPARE(ContractFurtherHours(qint16(quarters)), further);
}

void TestContractOverlay::overlay_data()
{
    QTest::addColumn<QByteArray>("contracts");
    QTest::addColumn<int>("takenRow"); // a booking already on the day, 0 for none
    QTest::addColumn<bool>("haveServices");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QStringList>("messages"); // first lines
    QTest::addColumn<int>("beeps");

    const QByteArray svc = "Pump check";
    QTest::newRow("08:00 for three hours")
        << contract("08:00") << 0 << true << "3,4,5" << QStringList() << 0;
    QTest::newRow("no Services.txt: one hour")
        << contract("08:00") << 0 << false << "3" << QStringList() << 0;
    QTest::newRow("time None") << contract("None") << 0 << true << "" << QStringList() << 0;
    QTest::newRow("six in the morning has no row")
        << contract("06:00") << 0 << true << "" << QStringList() << 0;
    QTest::newRow("first five characters only")
        << contract("10:00 AM sharp") << 0 << true << "5,6,7" << QStringList() << 0;
    QTest::newRow("other team") << contract("08:00", "Hill Farm", svc, "South") << 0 << true << ""
                                << QStringList() << 0;
    QTest::newRow("team compared trimmed") << contract("08:00", "Hill Farm", svc, "  North") << 0
                                           << true << "3,4,5" << QStringList() << 0;
    QTest::newRow("other date") << contract("08:00", "Hill Farm", svc, "North",
                                            ToOleDate(kDay.addDays(1)))
                                << 0 << true << "" << QStringList() << 0;
    QTest::newRow("date with a time is not the date")
        << contract("08:00", "Hill Farm", svc, "North", ToOleDate(kDay) + 0.25) << 0 << true << ""
        << QStringList() << 0;
    QTest::newRow("two at one hour conflict")
        << contract("09:00") + contract("09:00", "Vale Mill") << 0 << true << "4,5,6"
        << QStringList{"A Contract Event is Scheduled for 09:00"} << 0;
    QTest::newRow("a booking on the hour")
        << contract("09:00") << 4 << true << ""
        << QStringList{"A Contract Event is Scheduled for 09:00"} << 0;
    QTest::newRow("a booking in the further hours")
        << contract("08:00") << 5 << true << "3"
        << QStringList{"Not enough Slots available for Contract Event"} << 0;
    QTest::newRow("runs past the day: beep, one hour")
        << contract("04:00", "Hill Farm", "Long job") << 0 << true << "10"
        << QStringList{"Not enough time remaining this day"} << 1;
    QTest::newRow("unknown service: one hour")
        << contract("08:00", "Hill Farm", "Window wash") << 0 << true << "3" << QStringList() << 0;
}

void TestContractOverlay::overlay()
{
    QFETCH(QByteArray, contracts);
    QFETCH(int, takenRow);
    QFETCH(bool, haveServices);
    QFETCH(QString, rows);
    QFETCH(QStringList, messages);
    QFETCH(int, beeps);

    ProgramFolder f;
    f.put("ContractInfo.txt", contracts);
    if (haveServices)
        f.put("Services.txt",
              service("Oil change", 4) + service("Pump check", 12) + service("Long job", 16));
    GridColumn grid = freeDay();
    if (takenRow) grid[takenRow - 1] = "SA120-1 Ada Byron";
    Result<ContractOverlay> overlay = OverlayContractEvents(f.ctx, grid, kDay, "North");
    QVERIFY(overlay.ok());
    QCOMPARE(contractRows(overlay->grid), rows);
    if (takenRow) QCOMPARE(overlay->grid[takenRow - 1], QString("SA120-1 Ada Byron"));
    if (!rows.isEmpty())
        QCOMPARE(overlay->grid[rows.section(',', 0, 0).toInt() - 1],
                 QString("Hill Farm - Contract Event"));
    QStringList first;
    for (const OverlayMessage& m : overlay->messages)
        first << m.text.section('\n', 0, 0);
    QCOMPARE(first, messages);

    for (const QString& m : messages)
        f.dialogs.expectContaining(m);
    ShowOverlayMessages(f.dialogs, overlay->messages);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.dialogs.beeps, beeps);
}

void TestContractOverlay::overlayRefusesABookingAndNeverReachesTheFile()
{
    ProgramFolder f;
    f.v.gAssignTo = {"populated", "North"};
    f.put("ContractInfo.txt", contract("10:00"));
    f.put("Services.txt", service("Pump check", 8));
    QVERIFY(LoadDay(f.ctx, kDay, "1").ok());
    Result<ContractOverlay> overlay =
        OverlayContractEvents(f.ctx, GridFromDaySlots(f.v), kDay, "North");
    QCOMPARE(contractRows(overlay->grid), QString("5,6"));

    // Two hours from 09:00 reach the contract's first hour.
    f.dialogs.expect("Event already Scheduled Here", "Selection Error");
    QVERIFY(!CheckforSlots(overlay->grid, 4, 2, f.dialogs));
    VERIFY_DIALOGS(f.dialogs);

    // A booking beside it is saved, and the contract hours go to the file free.
    GridColumn grid = overlay->grid;
    grid[3 - 1] = "SA120-1 Ada Byron";
    WriteSlots(f.v, grid);
    QVERIFY(WriteDayFile(f.ctx, kDay, "1").ok());
    const QList<QByteArray> lines = f.get("2026/Team#1/125.txt").split('\n');
    QCOMPARE(lines[2], QByteArray("\"SA120-1 Ada Byron\"\r"));
    QCOMPARE(lines[4], QByteArray("\"No Event Scheduled\"\r"));
    QCOMPARE(lines[5], QByteArray("\"No Event Scheduled\"\r"));
}

void TestContractOverlay::folderWithoutContractsIsLeftAlone()
{
    ProgramFolder f;
    GridColumn grid = freeDay();
    grid[0] = "Something";
    Result<ContractOverlay> overlay = OverlayContractEvents(f.ctx, grid, kDay, "North");
    QVERIFY(overlay.ok());
    QCOMPARE(overlay->grid, grid);
    QVERIFY(overlay->messages.isEmpty());
}

QTEST_GUILESS_MAIN(TestContractOverlay)
#include "test_contractoverlay.moc"
