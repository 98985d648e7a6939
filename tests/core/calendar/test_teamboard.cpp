#include "calendarbytes.h"
#include "programfolder.h"

#include "core/calendar/slippopup.h"
#include "core/calendar/teamboard.h"
#include "core/io/store.h"

#include <QtTest>

using namespace tresvane;
using namespace calendarbytes;

namespace
{

const QDate kTuesday(2026, 5, 5); // day 125

void office(ProgramFolder& f, int teams)
{
    f.v.gAssignTo = {"populated"};
    for (int t = 1; t <= teams; ++t)
        f.v.gAssignTo << QString("Crew %1").arg(t);
}

QByteArray slip(const QByteArray& number, const QByteArray& team, const QByteArray& date,
                const QByteArray& start, const QByteArray& hours, const QByteArray& name)
{
    return booking("Service", number, team, hours, date, start, "No Heat", "A-" + number, name,
                   "1 Elm St", "", "Dayton", "OH", "45402", "937-555-0101");
}

QByteArray meeting(const QByteArray& team, const QByteArray& date, const QByteArray& start,
                   const QByteArray& text, const QByteArray& name)
{
    return booking("Meeting", "", team, "1", date, start, text, "M-1", name);
}

} // namespace

class TestTeamBoard : public QObject
{
    Q_OBJECT
private slots:
    void pagesOfFourTeams_data();
    void pagesOfFourTeams();
    void secondPageOfSixTeams();
    void nextYearsDateReadsNextYearsFiles();
    void whereAClickLeads_data();
    void whereAClickLeads();
    void popupFindsTheRecordOfTheClickedHour_data();
    void popupFindsTheRecordOfTheClickedHour();
    void popupTexts();
};

void TestTeamBoard::pagesOfFourTeams_data()
{
    QTest::addColumn<int>("teams");
    QTest::addColumn<QStringList>("pages");
    QTest::newRow("none") << 0 << QStringList{};
    QTest::newRow("one") << 1 << QStringList{"Teams 1-4"};
    QTest::newRow("four") << 4 << QStringList{"Teams 1-4"};
    QTest::newRow("six") << 6 << QStringList{"Teams 1-4", "Teams 5-8"};
    QTest::newRow("thirty") << 30 << QStringList{"Teams 1-4",   "Teams 5-8",   "Teams 9-12",
                                                 "Teams 13-16", "Teams 17-20", "Teams 21-24",
                                                 "Teams 25-28", "Teams 29-32"};
    QTest::newRow("past forty") << 45 << QStringList{"Teams 1-4",   "Teams 5-8",   "Teams 9-12",
                                                     "Teams 13-16", "Teams 17-20", "Teams 21-24",
                                                     "Teams 25-28", "Teams 29-32", "Teams 33-36",
                                                     "Teams 37-40"};
}

void TestTeamBoard::pagesOfFourTeams()
{
    QFETCH(int, teams);
    QFETCH(QStringList, pages);
    QCOMPARE(BoardPages(teams), pages);
}

void TestTeamBoard::secondPageOfSixTeams()
{
    ProgramFolder f;
    office(f, 6);
    f.put("2026/Team#5/125.txt", QByteArray("\"SA120-1 Ada Byron\"\r\n") + "Holiday\r\n");
    f.put("2026/Team#1/125.txt", bareDay("Vacation", 1, 12));
    const auto before = f.snapshot();
    Result<BoardPage> page = ReadBoardPage(f.ctx, kTuesday, 1);
    QVERIFY2(page.ok(), qPrintable(page.message()));
    QCOMPARE((*page)[0].team, 5);
    QCOMPARE((*page)[0].name, QString("Crew 5"));
    QCOMPARE((*page)[0].day[0], QString("SA120-1 Ada Byron"));
    QCOMPARE((*page)[0].day[1], QString("Holiday"));
    // A short file leaves the later hours free; a team without a file is all free.
    QCOMPARE((*page)[0].day[2], QString("No Event Scheduled"));
    QCOMPARE((*page)[1].team, 6);
    QCOMPARE((*page)[1].day, FreeDay());
    for (int place : {2, 3}) {
        QCOMPARE((*page)[place].team, 0);
        QCOMPARE((*page)[place].name, QString());
        QCOMPARE((*page)[place].day, FreeDay());
    }
    // Reading a page makes no file and no folder.
    QCOMPARE(f.snapshot(), before);
    QVERIFY(!f.hasFolder("2026/Team#6"));
}

void TestTeamBoard::nextYearsDateReadsNextYearsFiles()
{
    ProgramFolder f;
    office(f, 2);
    f.put("2026/Team#2/5.txt", bareDay("Last January", 1, 12));
    f.put("2027/Team#2/5.txt", bareDay("SA3-1 Next January", 3, 1));
    Result<BoardPage> page = ReadBoardPage(f.ctx, QDate(2027, 1, 5), 0);
    QVERIFY(page.ok());
    QCOMPARE((*page)[1].day[2], QString("SA3-1 Next January"));
    QCOMPARE((*page)[1].day[0], QString("No Event Scheduled"));
}

void TestTeamBoard::whereAClickLeads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("leads");
    const QStringList all{"Slips.txt", "Meetings.txt", "ProjectRecords.txt"};
    QTest::newRow("free") << "No Event Scheduled" << all << int(SlotFile::FreeHour);
    QTest::newRow("a slip") << "SA120-1 Ada Byron" << all << int(SlotFile::Slips);
    QTest::newRow("a continuous number") << "1004 Ada Byron" << all << int(SlotFile::Slips);
    QTest::newRow("a meeting") << "Mtg - 09:00 - Ada Byron" << all << int(SlotFile::Meetings);
    QTest::newRow("a project event") << "Pj 7 Roof" << all << int(SlotFile::Projects);
    QTest::newRow("a recurring event")
        << "Recurring Event - Ada Byron" << all << int(SlotFile::None);
    QTest::newRow("a blocked day") << "Vacation" << all << int(SlotFile::None);
    QTest::newRow("a slip without Slips.txt")
        << "SA120-1 Ada Byron" << QStringList{"Meetings.txt"} << int(SlotFile::None);
    QTest::newRow("a meeting without Meetings.txt")
        << "Mtg - 09:00 - Ada Byron" << QStringList{"Slips.txt"} << int(SlotFile::None);
}

void TestTeamBoard::whereAClickLeads()
{
    QFETCH(QString, text);
    QFETCH(QStringList, files);
    QFETCH(int, leads);
    ProgramFolder f;
    for (const QString& file : files)
        f.put(file, QByteArray());
    QCOMPARE(int(ClickedSlotFile(f.store, text)), leads);
}

void TestTeamBoard::popupFindsTheRecordOfTheClickedHour_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name"); // empty: no record
    const int slips = int(SlotFile::Slips);
    const int meetings = int(SlotFile::Meetings);
    QTest::newRow("a slip, not the first of its number in the file")
        << slips << 2 << 4 << "SA120-1 Ada Byron"
        << "Ada Byron";
    QTest::newRow("a slip's second hour") << slips << 2 << 5 << "SA120-1 Ada Byron"
                                          << "Ada Byron";
    QTest::newRow("a number inside a longer number") << slips << 2 << 8 << "SA120-12 Cy Ames"
                                                     << "Cy Ames";
    QTest::newRow("a slip of another team") << slips << 3 << 4 << "SA120-1 Ada Byron" << QString();
    QTest::newRow("a meeting, not the first one of the file")
        << meetings << 2 << 2 << "Mtg - 07:00 - Dee Fox"
        << "Dee Fox";
    QTest::newRow("a meeting with no record")
        << meetings << 2 << 9 << "Mtg - 03:00 - Eve Gale" << QString();
}

void TestTeamBoard::popupFindsTheRecordOfTheClickedHour()
{
    QFETCH(int, file);
    QFETCH(int, team);
    QFETCH(int, slot);
    QFETCH(QString, text);
    QFETCH(QString, name);
    ProgramFolder f;
    office(f, 3);
    // SA120-1 of another day comes first, and SA120-12 holds SA120-1 in its number.
    f.put("Slips.txt", slip("SA120-1", "2", "05/04/2026", "4", "2", "Old Visit") +
                           slip("SA120-12", "2", "05/05/2026", "8", "1", "Cy Ames") +
                           slip("SA120-1", "2", "05/05/2026", "4", "2", "Ada Byron"));
    f.put("Meetings.txt", meeting("2", "05/05/2026", "6", "Mtg - 11:00 - Bo Carr", "Bo Carr") +
                              meeting("2", "05/05/2026", "2", "Mtg - 07:00 - Dee Fox", "Dee Fox"));
    Result<std::optional<SlipRecord>> found =
        FindSlotRecord(f.ctx, {SlotFile(file), kTuesday, team, slot, text});
    QVERIFY2(found.ok(), qPrintable(found.message()));
    QCOMPARE(found->has_value(), !name.isEmpty());
    if (found->has_value()) QCOMPARE((*found)->text(SlipField::Name), name);
}

void TestTeamBoard::popupTexts()
{
    ProgramFolder f;
    office(f, 2);
    SlipRecord record(QByteArrayView(slip("SA120-1", "2", "05/05/2026", "7", "3", "Ada Byron")));
    SlipPopupText t = PopupText(f.v, record, "Crew 2");
    QCOMPARE(t.name, QString("Ada Byron"));
    QCOMPARE(t.tel, QString("937-555-0101"));
    QCOMPARE(t.account, QString("A-SA120-1"));
    QCOMPARE(t.assignTo, QString("Crew 2"));
    QCOMPARE(t.duration, QString("3 Hours"));
    QCOMPARE(t.time, QString("01:00pm"));
    QCOMPARE(t.date, QString("05/05/2026"));
    QCOMPARE(t.reference, QString("No Heat"));
    // A start that is no hour leaves the time empty.
    SlipRecord odd(QByteArrayView(slip("SA120-2", "2", "05/05/2026", "x", "1", "Bo Carr")));
    QCOMPARE(PopupText(f.v, odd, "Crew 2").time, QString());
}

QTEST_GUILESS_MAIN(TestTeamBoard)
#include "test_teamboard.moc"
