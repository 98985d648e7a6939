#include "core/calendar/calendarday.h"
#include "core/io/customerrecords.h"
#include "core/schedule/freetime.h"
#include "core/setup/settingsfiles.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{
const QDate kFriday(2026, 5, 1), kMonday(2026, 5, 4), kTuesday(2026, 5, 5);

// Twelve bare lines, "x" taken (by a booking of that name) and "." free.
QByteArray dayFile(const QString& pattern, const QString& taken = "SA121-1 Ada Byron")
{
    QByteArray out;
    for (const QChar c : pattern)
        out += (c == '.' ? QString("No Event Scheduled") : taken).toUtf8() + "\r\n";
    return out;
}

void putDay(ProgramFolder& f, const QDate& date, int team, const QByteArray& bytes)
{
    f.put(TeamDayFile(date, team).mid(1), bytes);
}

// Three teams over the first work days from Friday 1 May 2026 (five-day week):
//   Friday   every team has free hours only one at a time; team 3 has 8 to 10 free but a
//            contract at 9
//   Sat, Sun no files: free all day, but not worked
//   Monday   team 1 on vacation, teams 2 and 3 one hour at a time
//   Tuesday  team 1 one hour at a time, team 2 free from 1 pm, team 3 from 2 pm
// so the first three hours in a row are team 2's at 1 pm on the third work day.
void threeTeams(ProgramFolder& f, bool contract)
{
    f.put("Assignto.txt", "\"Team One\"\r\n\"Team Two\"\r\n\"Team Three\"\r\n");
    QVERIFY(LoadAssignments(f.ctx).ok());
    BuildTimeLabels(f.v);
    const QString oneAtATime = ".x.x.x.x.x.x";
    for (int team = 1; team <= 3; ++team)
        putDay(f, kFriday, team, dayFile(team == 3 ? "xx...xxxxxxx" : oneAtATime));
    putDay(f, kMonday, 1, dayFile("xxxxxxxxxxxx", "Vacation"));
    putDay(f, kMonday, 2, dayFile(oneAtATime));
    putDay(f, kMonday, 3, dayFile(oneAtATime));
    putDay(f, kTuesday, 1, dayFile(oneAtATime));
    putDay(f, kTuesday, 2, dayFile("xxxxxx......"));
    putDay(f, kTuesday, 3, dayFile("xxxxxxx....."));
    if (!contract) return;
    ContractRecord r;
    r.setText(ContractField::ContractService, "Boiler check");
    r.setText(ContractField::ContractTeam, "Team Three");
    r.setReal(ContractField::ContractNextDate, ToOleDate(kFriday));
    r.setText(ContractField::ContractTime, "09:00 AM");
    r.setText(ContractField::ContractCustomer, "Harbor Inn");
    ContractRecord other = r; // another team's contract that day changes nothing here
    other.setText(ContractField::ContractTeam, "Team Two");
    f.put("ContractInfo.txt", other.bytes() + r.bytes());
}
} // namespace

class TestFreeTime : public QObject
{
    Q_OBJECT
private slots:
    void firstOpenings_data();
    void firstOpenings();
    void refusals_data();
    void refusals();
};

void TestFreeTime::firstOpenings_data()
{
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("workWeek");
    QTest::addColumn<bool>("contract");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QStringList>("first"); // "date team slot" of the first openings
    QTest::newRow("three hours: team 2 at 1 pm on the third work day")
        << 3 << 0 << 5 << true << kFriday
        << QStringList{"05/05/2026 2 7", "05/05/2026 3 8", "05/06/2026 1 1", "05/06/2026 2 1"};
    QTest::newRow("without the contract hour team 3 is free on Friday")
        << 3 << 0 << 5 << false << kFriday << QStringList{"05/01/2026 3 3", "05/05/2026 2 7"};
    QTest::newRow("one team") << 3 << 3 << 5 << true << kFriday
                              << QStringList{"05/05/2026 3 8", "05/06/2026 3 1"};
    QTest::newRow("the whole week worked: Saturday first")
        << 3 << 0 << 7 << true << kFriday << QStringList{"05/02/2026 1 1", "05/02/2026 2 1"};
    QTest::newRow("one hour: the earliest free hour, by hour then team")
        << 1 << 0 << 5 << true << kFriday
        << QStringList{"05/01/2026 1 1", "05/01/2026 2 1", "05/01/2026 3 3", "05/04/2026 2 1"};
    QTest::newRow("the blocked Monday gives team 1 nothing")
        << 1 << 1 << 5 << true << kMonday << QStringList{"05/05/2026 1 1", "05/06/2026 1 1"};
    QTest::newRow("twelve hours") << 12 << 0 << 5 << true << kFriday
                                  << QStringList{"05/06/2026 1 1", "05/06/2026 2 1"};
    QTest::newRow("a date gone by starts today")
        << 2 << 0 << 5 << true << QDate(2026, 4, 1) << QStringList{"04/30/2026 1 1"};
}

void TestFreeTime::firstOpenings()
{
    QFETCH(int, hours);
    QFETCH(int, team);
    QFETCH(int, workWeek);
    QFETCH(bool, contract);
    QFETCH(QDate, from);
    QFETCH(QStringList, first);
    ProgramFolder f;
    threeTeams(f, contract);
    f.v.gWorkDays = quint8(workWeek);
    const auto before = f.snapshot();
    FreeTimeRequest request;
    request.hours = hours;
    request.team = team;
    request.from = from;
    Result<QList<FreeOpening>> openings = FindFreeTime(f.ctx, request);
    QVERIFY2(openings.ok(), qPrintable(openings.message()));
    QCOMPARE(openings->size(), 10);
    QStringList got;
    for (const FreeOpening& o : *openings)
        got << QString("%1 %2 %3").arg(o.date.toString("MM/dd/yyyy")).arg(o.team).arg(o.firstSlot);
    QCOMPARE(got.mid(0, first.size()), first);
    for (qsizetype i = 1; i < openings->size(); ++i)
        QVERIFY(openings->at(i - 1).date <= openings->at(i).date);
    QCOMPARE(f.snapshot(), before); // it only reads
    if (hours == 3 && team == 0 && contract && workWeek == 5)
        QCOMPARE(FreeOpeningText(f.ctx, openings->first()),
                 QString("05/05/2026  Team Two  01:00pm"));
}

void TestFreeTime::refusals_data()
{
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("team");
    QTest::addColumn<QString>("message");
    QTest::newRow("no hours") << 0 << 0 << "A day has twelve hours: ask for 1 to 12.";
    QTest::newRow("thirteen hours") << 13 << 0 << "A day has twelve hours: ask for 1 to 12.";
    QTest::newRow("no such team") << 2 << 4 << "There is no team 4; the teams are 1 to 3.";
}

void TestFreeTime::refusals()
{
    QFETCH(int, hours);
    QFETCH(int, team);
    QFETCH(QString, message);
    ProgramFolder f;
    threeTeams(f, false);
    FreeTimeRequest request;
    request.hours = hours;
    request.team = team;
    Result<QList<FreeOpening>> openings = FindFreeTime(f.ctx, request);
    QVERIFY(!openings.ok());
    QCOMPARE(openings.message(), message);
}

QTEST_GUILESS_MAIN(TestFreeTime)
#include "test_freetime.moc"
