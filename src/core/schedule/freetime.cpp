#include "core/schedule/freetime.h"

#include "core/calendar/calendarday.h"
#include "core/calendar/daterange.h"
#include "core/customers/customerfiles.h"
#include "core/io/customerrecords.h"
#include "core/io/itemrecords.h"
#include "core/io/record.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/schedule/booking.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfileindex.h"
#include "core/schedule/timegrid.h"
#include "core/state/dispatchingvariables.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace tresvane
{
namespace
{
// The contracts of the days looked at, grouped by day: each day's overlay then walks its
// own few records instead of the whole file.
struct ContractDays {
    QHash<int, QByteArray> byDay; // day index from the first day -> records of that day
    std::optional<QByteArray> services;
};

Result<ContractDays> readContractDays(Store& store, const QDate& first, int days)
{
    ContractDays out;
    if (!store.FileExists(ContractFileName())) return out;
    Result<QByteArray> contracts = store.ReadAll(ContractFileName());
    if (!contracts) return contracts.status();
    const double base = ToOleDate(first);
    ForEachRecord(ContractLayout(), *contracts, [&](qsizetype, const RecordView& r) {
        const double offset = r.real(ContractField::ContractNextDate) - base;
        // Only a whole day's value can equal a day on the grid.
        if (!(offset >= 0 && offset < days) || offset != std::floor(offset)) return;
        out.byDay[int(offset)].append(r.bytes().toByteArray());
    });
    if (store.FileExists(ServicesFileName())) {
        Result<QByteArray> services = store.ReadAll(ServicesFileName());
        if (!services) return services.status();
        out.services = *services;
    }
    return out;
}

// The first slot of the first run of `hours` free slots, 0 when there is none.
int firstRun(const GridColumn& grid, int hours)
{
    int run = 0;
    for (int slot = 1; slot <= 12; ++slot) {
        run = grid[slot - 1].contains(QStringLiteral("No Event")) ? run + 1 : 0;
        if (run == hours) return slot - hours + 1;
    }
    return 0;
}
} // namespace

Result<QList<FreeOpening>> FindFreeTime(CoreContext& c, const FreeTimeRequest& request)
{
    if (request.hours < 1 || request.hours > 12)
        return Status::failure(QStringLiteral("A day has twelve hours: ask for 1 to 12."));
    const int teams = c.v.TeamCount();
    if (request.team < 0 || request.team > teams)
        return Status::failure(QStringLiteral("There is no team %1; the teams are 1 to %2.")
                                   .arg(request.team)
                                   .arg(teams));
    QDate first = NextBookingDate(c.clock);
    if (request.from.isValid() && request.from > first) first = request.from;
    const int days = std::max(request.days, 1);
    Result<ContractDays> contracts = readContractDays(c.store, first, days);
    if (!contracts) return contracts.status();

    DayFileIndex dayFiles(c.store);
    QList<FreeOpening> openings;
    for (int i = 0; i < days && openings.size() < request.limit; ++i) {
        const QDate date = first.addDays(i);
        if (IsNonWorkDay(date, c.v.gWorkDays)) continue;
        QList<FreeOpening> ofDay;
        for (int team = 1; team <= teams; ++team) {
            if (request.team != 0 && team != request.team) continue;
            Result<DayTexts> day = dayFiles.read(date, team);
            if (!day) return day.status();
            GridColumn grid = *day;
            if (auto it = contracts->byDay.constFind(i); it != contracts->byDay.constEnd())
                grid = OverlayContractEvents(*it, contracts->services, grid, date,
                                             c.v.gAssignTo.value(team))
                           .grid;
            if (const int slot = firstRun(grid, request.hours)) ofDay.append({date, team, slot});
        }
        std::stable_sort(
            ofDay.begin(), ofDay.end(),
            [](const FreeOpening& a, const FreeOpening& b) { return a.firstSlot < b.firstSlot; });
        openings += ofDay;
    }
    if (openings.size() > request.limit) openings.resize(request.limit);
    return openings;
}

QString FreeOpeningText(const CoreContext& c, const FreeOpening& opening)
{
    return FormatShortDate(opening.date) + QStringLiteral("  ") +
           c.v.gAssignTo.value(opening.team) + QStringLiteral("  ") +
           GridLabel(c.v, opening.firstSlot);
}
} // namespace tresvane
