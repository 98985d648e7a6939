#pragma once

#include "core/calendar/calendarday.h"
#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <array>

namespace tresvane
{
class Store;

// The board of four teams' days side by side: the teams in pages of four, what each page
// shows on a date, and where a click on an hour leads.

constexpr int kBoardTeams = 4;
constexpr int kBoardPagesAtMost = 10;

// "Teams 1-4", "Teams 5-8", ...: one page for each four teams, at most ten pages.
QStringList BoardPages(int teamCount);

struct BoardColumn {
    int team = 0; // the team's number; 0 where the page has no team at this place
    QString name; // the team's name
    DayTexts day; // free for a team without a file that day
};

using BoardPage = std::array<BoardColumn, kBoardTeams>;

// Page (from 0) on the date: the day file of each of its teams in the date's own year.
// Nothing is written; a file the day does not have shows twelve free hours.
Result<BoardPage> ReadBoardPage(CoreContext& c, const QDate& date, int page);

// The record file a click on an hour's text leads to.
enum class SlotFile {
    FreeHour, // a free hour: a beep
    None,     // text of no record file (a recurring event, a block): nothing happens
    Slips,    // Slips.txt: a confirmation number ("SA..." or a number before the first blank)
    Meetings, // Meetings.txt: a meeting ("Mtg")
    Projects, // ProjectRecords.txt of a sibling program ("Pj")
};

// "/ProjectRecords.txt": project events of a sibling program, only read here.
QString ProjectRecordsFileName();

// Which file the text leads to, of the files that exist, tested in the order above.
SlotFile ClickedSlotFile(Store& store, const QString& text);
} // namespace tresvane
