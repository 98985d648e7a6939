#include "core/schedule/dayfiles.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

static const QString kFree = QStringLiteral("No Event Scheduled");
static const QByteArray kQuotedFree = "\"No Event Scheduled\"\r\n";
static const QByteArray kBareFree = "No Event Scheduled\r\n";

static QByteArray repeat(const QByteArray& line, int n)
{
    QByteArray out;
    for (int i = 0; i < n; ++i)
        out += line;
    return out;
}

static GridColumn freeGrid()
{
    GridColumn g;
    g.fill(kFree);
    return g;
}

class TestDayFiles : public QObject
{
    Q_OBJECT
private slots:
    void dayFilePath_data();
    void dayFilePath();
    void aTeamTextNeverLeavesTheYearFolder();
    void dayWithoutAFileIsFree();
    void readBothLineForms_data();
    void readBothLineForms();
    void readDayToSlotsNeedsTwelveFields();
    void writeDayFileQuotesAndWipesContractEvents();
    void bareWriterQuotesATextWithAComma();
    void writeSlots_data();
    void writeSlots();
    void checkforSlots_data();
    void checkforSlots();
    void yearTurnover_data();
    void yearTurnover();
    void anExistingYearGetsNoNewTeams();
    void aTeamFolderPastTheRangeIsReported();
};

void TestDayFiles::dayFilePath_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("path");
    QTest::newRow("last day of a leap year") << QDate(2024, 12, 31) << "/2024/Team#3/366.txt";
    QTest::newRow("first day of the next") << QDate(2025, 1, 1) << "/2025/Team#3/1.txt";
    QTest::newRow("first of February") << QDate(2026, 2, 1) << "/2026/Team#3/32.txt";
    QTest::newRow("1 March, leap year") << QDate(2024, 3, 1) << "/2024/Team#3/61.txt";
    QTest::newRow("1 March, common year") << QDate(2025, 3, 1) << "/2025/Team#3/60.txt";
}

void TestDayFiles::dayFilePath()
{
    QFETCH(QDate, date);
    QFETCH(QString, path);
    ProgramFolder f;
    QVERIFY(BuildDayFilePath(f.ctx, date, " 3 ").ok());
    QCOMPARE(f.v.DayFilePath, path);
    QCOMPARE(f.v.CurrentJulian, path.section('/', 3).section('.', 0, 0));
    QVERIFY(f.hasFolder(path.section('/', 1, 2)));
}

void TestDayFiles::aTeamTextNeverLeavesTheYearFolder()
{
    ProgramFolder f;
    QVERIFY(BuildDayFilePath(f.ctx, QDate(2026, 4, 30), "../../x").ok());
    QVERIFY(f.v.DayFilePath.startsWith("/2026/"));
    QCOMPARE(f.v.DayFilePath.count('/'), 3);
    QVERIFY(WriteDayFile(f.ctx, QDate(2026, 4, 30), "../../x").ok());
    QVERIFY(f.has(f.v.DayFilePath.mid(1)));
    QVERIFY(!QFileInfo::exists(f.root() + "/../x"));
}

void TestDayFiles::dayWithoutAFileIsFree()
{
    ProgramFolder f;
    f.v.DaySlots.fill("left over");
    QVERIFY(LoadDay(f.ctx, QDate(2026, 4, 30), "3").ok());
    for (int i = 1; i <= 12; ++i)
        QCOMPARE(f.v.DaySlots[i], kFree);
    QCOMPARE(f.v.DaySlots[0], QString("left over"));
    QVERIFY(!f.has("2026/Team#3/120.txt"));
}

void TestDayFiles::readBothLineForms_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("expected"); // 1 to 12 after LoadDay
    QStringList allFree;
    for (int i = 0; i < 12; ++i)
        allFree << kFree;

    QStringList job = allFree;
    job[10] = job[11] = "SA120-7 Ada Byron";
    QTest::newRow("quoted") << repeat(kQuotedFree, 10) + repeat("\"SA120-7 Ada Byron\"\r\n", 2)
                            << job;
    QTest::newRow("bare") << repeat(kBareFree, 10) + repeat("SA120-7 Ada Byron\r\n", 2) << job;
    QTest::newRow("mixed, blanks around a bare line")
        << repeat(kBareFree, 5) + repeat(kQuotedFree, 5) + "  SA120-7 Ada Byron  \r\n" +
               "\"SA120-7 Ada Byron\"\r\n"
        << job;

    // A comma in a bare line splits it: every later slot is one place late and the last
    // line is never read.
    QStringList shifted = allFree;
    shifted[1] = "Recurring Event - Byron";
    shifted[2] = "Ada";
    shifted[3] = "Holiday";
    QTest::newRow("bare line with a comma")
        << kBareFree + "Recurring Event - Byron, Ada\r\n" + "Holiday\r\n" + repeat(kBareFree, 8) +
               "Last line\r\n"
        << shifted;
    QStringList comma = allFree;
    comma[1] = "Recurring Event - Byron, Ada";
    QTest::newRow("quoted line with a comma")
        << kQuotedFree + "\"Recurring Event - Byron, Ada\"\r\n" + repeat(kQuotedFree, 10) << comma;

    QStringList shortDay = allFree;
    shortDay[0] = "Holiday";
    shortDay[1] = "Holiday";
    QTest::newRow("short file leaves the rest free")
        << QByteArray("Holiday\r\nHoliday\r\n") << shortDay;
    QStringList longDay = allFree;
    longDay[11] = "Twelve";
    QTest::newRow("past twelve lines ignored")
        << repeat(kQuotedFree, 11) + "\"Twelve\"\r\n\"Thirteen\"\r\n"
        << longDay;
}

void TestDayFiles::readBothLineForms()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, expected);
    ProgramFolder f;
    f.put("2026/Team#3/120.txt", file);
    QVERIFY(LoadDay(f.ctx, QDate(2026, 4, 30), "3").ok());
    for (int i = 1; i <= 12; ++i)
        QCOMPARE(f.v.DaySlots[i], expected[i - 1]);
}

void TestDayFiles::readDayToSlotsNeedsTwelveFields()
{
    ProgramFolder f;
    f.v.DayFilePath = "/2026/Team#1/120.txt";
    f.put("2026/Team#1/120.txt", repeat("Vacation\r\n", 11));
    f.v.DaySlots.fill("before");
    Status s = ReadDayToSlots(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("2026/Team#1/120.txt"), qPrintable(s.message()));
    QCOMPARE(f.v.DaySlots[0], QString("before"));

    f.put("2026/Team#1/120.txt", repeat("Vacation\r\n", 11) + "\"Sick Day\"\r\n");
    QVERIFY(ReadDayToSlots(f.ctx).ok());
    QCOMPARE(f.v.DaySlots[0], QString("Vacation"));
    QCOMPARE(f.v.DaySlots[11], QString("Sick Day"));
    QCOMPARE(f.v.DaySlots[12], QString("before"));
}

void TestDayFiles::writeDayFileQuotesAndWipesContractEvents()
{
    ProgramFolder f;
    f.put("2026/Team#2/120.txt", "an older day that is replaced whole");
    ClearDaySlots(f.v);
    f.v.DaySlots[2] = "Ada Byron - Contract Event";
    f.v.DaySlots[4] = "Contract event Supplies"; // any text with the words goes
    f.v.DaySlots[11] = "SA120-7 Ada Byron";
    f.v.DaySlots[12] = "SA120-7 Ada Byron";
    QVERIFY(WriteDayFile(f.ctx, QDate(2026, 4, 30), "2").ok());
    QCOMPARE(f.get("2026/Team#2/120.txt"),
             repeat(kQuotedFree, 10) + "\"SA120-7 Ada Byron\"\r\n\"SA120-7 Ada Byron\"\r\n");
    QCOMPARE(f.v.DaySlots[2], kFree);
    QCOMPARE(f.v.DaySlots[4], kFree);
    QCOMPARE(f.v.DayFilePath, QString("/2026/Team#2/120.txt"));
}

void TestDayFiles::bareWriterQuotesATextWithAComma()
{
    ProgramFolder f;
    std::array<QString, 12> lines;
    lines.fill(kFree);
    lines[0] = "Recurring Event - Byron, Ada";
    lines[1] = "Recurring Event - Byron, Ada";
    QVERIFY(f.store.EnsureFolder("/2026").ok());
    QVERIFY(f.store.EnsureFolder("/2026/Team#1").ok());
    QVERIFY(WriteBareDayFile(f.store, "/2026/Team#1/121.txt", lines).ok());
    QCOMPARE(f.get("2026/Team#1/121.txt"),
             repeat("\"Recurring Event - Byron, Ada\"\r\n", 2) + repeat(kBareFree, 10));
    QVERIFY(LoadDay(f.ctx, QDate(2026, 5, 1), "1").ok());
    QCOMPARE(f.v.DaySlots[1], QString("Recurring Event - Byron, Ada"));
    QCOMPARE(f.v.DaySlots[2], QString("Recurring Event - Byron, Ada"));
    QCOMPARE(f.v.DaySlots[3], kFree);
}

void TestDayFiles::writeSlots_data()
{
    QTest::addColumn<QStringList>("services");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("slot");
    const QStringList services = {"Lawn Care", "  Gutter Cleaning "};
    QTest::newRow("exactly a service") << services << "Lawn Care" << kFree;
    QTest::newRow("both trimmed") << services << " Gutter Cleaning  " << kFree;
    QTest::newRow("longer text with a service") << services << "Lawn Care - Byron"
                                                << "Lawn Care - Byron";
    QTest::newRow("case counts") << services << "lawn care"
                                 << "lawn care";
    QTest::newRow("no services") << QStringList() << "Lawn Care"
                                 << "Lawn Care";
    QTest::newRow("a booking is trimmed") << services << "  SA1-1 Ada  "
                                          << "SA1-1 Ada";
}

void TestDayFiles::writeSlots()
{
    QFETCH(QStringList, services);
    QFETCH(QString, cell);
    QFETCH(QString, slot);
    ProgramFolder f;
    f.v.settings.lstServices = services;
    GridColumn grid = freeGrid();
    grid[4] = cell;
    WriteSlots(f.v, grid);
    QCOMPARE(f.v.DaySlots[5], slot);
    QCOMPARE(f.v.DaySlots[4], kFree);
    QVERIFY(f.snapshot().isEmpty()); // nothing reaches the disk
}

void TestDayFiles::checkforSlots_data()
{
    QTest::addColumn<int>("takenRow"); // 0: none
    QTest::addColumn<QString>("takenText");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("hours");
    QTest::addColumn<bool>("free");
    QTest::newRow("all free") << 0 << "" << 10 << 3 << true;
    QTest::newRow("last row of the range taken") << 6 << "SA1-1 Ada" << 4 << 3 << false;
    QTest::newRow("taken row just past the range") << 7 << "SA1-1 Ada" << 4 << 3 << true;
    QTest::newRow("text holding No Event counts as free")
        << 5 << "No Event here, Ada" << 4 << 3 << true;
    QTest::newRow("case counts") << 5 << "no event scheduled" << 4 << 3 << false;
    QTest::newRow("contract overlay blocks") << 4 << "Ada - Contract Event" << 4 << 1 << false;
    QTest::newRow("past the last slot") << 0 << "" << 12 << 2 << false;
}

void TestDayFiles::checkforSlots()
{
    QFETCH(int, takenRow);
    QFETCH(QString, takenText);
    QFETCH(int, start);
    QFETCH(int, hours);
    QFETCH(bool, free);
    ProgramFolder f;
    GridColumn grid = freeGrid();
    if (takenRow) grid[takenRow - 1] = takenText;
    const GridColumn before = grid;
    if (!free) f.dialogs.expect("Event already Scheduled Here", "Selection Error");
    QCOMPARE(CheckforSlots(grid, quint8(start), quint8(hours), f.dialogs), free);
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(grid == before);
}

void TestDayFiles::yearTurnover_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<bool>("turned");
    QTest::newRow("day 120 keeps last year") << QDate(2026, 4, 30) << false;
    QTest::newRow("day 121 removes it") << QDate(2026, 5, 1) << true;
    QTest::newRow("day 121 of a leap year") << QDate(2028, 4, 30) << true;
}

void TestDayFiles::yearTurnover()
{
    QFETCH(QDate, today);
    QFETCH(bool, turned);
    ProgramFolder f;
    f.clock.setDate(today);
    f.v.gAssignTo = QStringList{"populated", "North", "South"};
    const QString year = QString::number(today.year());
    const QString last = QString::number(today.year() - 1);
    const QString next = QString::number(today.year() + 1);
    // Last year's tree, with the folder of a team deleted from the end of the list and the
    // stray folder 0.
    for (const char* team : {"Team#0", "Team#1", "Team#2", "Team#3"})
        f.put(last + "/" + team + "/200.txt", kQuotedFree);
    f.put(last + "/Team#1/notes", "x");

    QVERIFY(PrepareYears(f.ctx).ok());
    QCOMPARE(f.v.gYear, year);
    QCOMPARE(int(f.v.gDayOfYear), today.dayOfYear());
    QVERIFY(f.hasFolder(year + "/Team#1") && f.hasFolder(year + "/Team#2"));
    QVERIFY(!f.hasFolder(year + "/Team#3"));
    QCOMPARE(f.hasFolder(last), !turned);
    QCOMPARE(f.has(last + "/Team#2/200.txt"), !turned);
    QCOMPARE(f.hasFolder(next), turned);
    QCOMPARE(f.hasFolder(next + "/Team#1"), turned);
    QCOMPARE(f.hasFolder(next + "/Team#2"), turned);
    QVERIFY(!f.hasFolder(next + "/Team#3"));
}

void TestDayFiles::anExistingYearGetsNoNewTeams()
{
    ProgramFolder f;
    f.v.gAssignTo = QStringList{"populated", "North", "South"};
    QVERIFY(f.store.EnsureFolder("/2027").ok());
    QVERIFY(f.store.EnsureFolder("/2027/Team#1").ok());
    QVERIFY(PrepareYearFolders(f.ctx, "2027").ok());
    QVERIFY(!f.hasFolder("2027/Team#2"));
    QVERIFY(PrepareYearFolders(f.ctx, "2028").ok());
    QVERIFY(f.hasFolder("2028/Team#2"));
}

void TestDayFiles::aTeamFolderPastTheRangeIsReported()
{
    ProgramFolder f;
    f.v.gAssignTo = QStringList{"populated", "North"};
    f.v.gYear = "2026";
    f.put("2025/Team#1/5.txt", kQuotedFree);
    f.put("2025/Team#3/5.txt", kQuotedFree); // two teams past the end of the list
    Status s = RemoveYearFolders(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("2025"), qPrintable(s.message()));
    QVERIFY(!f.hasFolder("2025/Team#1"));
    QVERIFY(f.has("2025/Team#3/5.txt"));
}

QTEST_GUILESS_MAIN(TestDayFiles)
#include "test_dayfiles.moc"
