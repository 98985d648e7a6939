#include "core/calendar/teamboard.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/schedule/slipfiles.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString ProjectRecordsFileName()
{
    return QStringLiteral("/ProjectRecords.txt");
}

QStringList BoardPages(int teamCount)
{
    QStringList pages;
    for (int first = 1; first <= teamCount && pages.size() < kBoardPagesAtMost;
         first += kBoardTeams)
        pages << QStringLiteral("Teams %1-%2").arg(first).arg(first + kBoardTeams - 1);
    return pages;
}

Result<BoardPage> ReadBoardPage(CoreContext& c, const QDate& date, int page)
{
    BoardPage board;
    for (int place = 0; place < kBoardTeams; ++place) {
        BoardColumn& column = board[place];
        column.day = FreeDay();
        const int team = page * kBoardTeams + place + 1;
        if (page < 0 || team > c.v.TeamCount()) continue;
        column.team = team;
        column.name = c.v.gAssignTo.value(team);
        Result<DayTexts> day = ReadDayTexts(c.store, TeamDayFile(date, team));
        if (!day) return day.status();
        column.day = *day;
    }
    return board;
}

SlotFile ClickedSlotFile(Store& store, const QString& text)
{
    if (text.contains(u"No Event ")) return SlotFile::FreeHour;
    const qsizetype blank = text.indexOf(u' ');
    const bool numbered = blank > 0 && IsNumeric(text.left(blank));
    if (store.IsFile(SlipsFileName()) && (text.contains(u"SA") || numbered)) return SlotFile::Slips;
    if (store.IsFile(MeetingsFileName()) && text.contains(u"Mtg")) return SlotFile::Meetings;
    if (store.IsFile(ProjectRecordsFileName()) && text.contains(u"Pj")) return SlotFile::Projects;
    return SlotFile::None;
}
} // namespace tresvane
