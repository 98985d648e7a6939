// A team's day file, through the booking grid, the blocking form, the month sheet, the day
// view's grid and a save of the day as read.
#include "fuzzfolder.h"

#include "core/calendar/blockeddays.h"
#include "core/calendar/calendarday.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/dayview.h"
#include "core/schedule/teammonth.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

// The day as the file holds it after the program saved what it read.
QByteArray savedDay(Folder& f, const QDate& day)
{
    CoreContext& c = f.context();
    const QString team = QStringLiteral("1");
    if (Status s = LoadDay(c, day, team); !s) return {};
    WriteSlots(c.v, GridFromDaySlots(c.v));
    require(WriteDayFile(c, day, team).ok(), "a day as read cannot be saved");
    return f.store().ReadAll(c.v.DayFilePath).valueOr({});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    f.addTeams(2);
    CoreContext& c = f.context();
    // Today, or a day of the month sheet that lies ahead.
    const QDate day = f.clock().today().addDays(in.choice(3));
    const QString team = QStringLiteral("1");
    require(BuildDayFilePath(c, day, team).ok(), "no day file path");
    const QString name = c.v.DayFilePath;
    f.put(name, in.rest());

    const Status loaded = LoadDay(c, day, team);
    requireNamed(loaded, name);
    if (loaded) {
        const GridColumn grid = GridFromDaySlots(c.v);
        for (quint8 row = 1; row <= 12; ++row)
            CheckforSlots(grid, row, quint8(1 + row % 3), c.dialogs);
        Result<QList<SlipRecord>> records = ReadDayRecords(c.store, day, team);
        require(records.ok() || !records.message().isEmpty(), "a day refused without a word");
        if (records) DayViewOf(*records, grid);
        Result<ContractOverlay> overlay = OverlayContractEvents(c, grid, day, c.v.gAssignTo[1]);
        require(overlay.ok(), "no contract overlay without a contract file");
    }
    requireNamed(ReadDayToSlots(c), name);
    requireNamed(ReadDayTexts(c.store, name), name);
    // A sibling program's blocked days are day files of their own folders.
    const QString blocked =
        QStringLiteral("/%1/DaySchedules1/%2.txt").arg(day.year()).arg(day.dayOfYear());
    f.put(blocked, in.rest());
    Result<QList<BlockedDayRow>> rows = FindBlockedDays(c, day.addDays(-3), day.addDays(3));
    requireNamed(rows, blocked);
    if (rows) require(rows->size() <= 1, "one blocked day listed more than once");
    Result<TeamMonth> month = DrawTeamMonth(c, day, team);
    requireNamed(month, name);

    // A day saved as it was read reads back the same: a second save writes the same bytes.
    if (loaded) {
        const QByteArray first = savedDay(f, day);
        require(savedDay(f, day) == first, "a day changes when saved again without an edit");
    }
    f.requireNothingOutside();
    return 0;
}
