// The crews' calendars and the free-time finder at the formats' limits: 30 teams, 50,000
// slips, the day files of every team for the sixty days ahead.
#include "benchharness.h"

#include "core/exports/crewcalendars.h"
#include "core/io/store.h"
#include "core/schedule/freetime.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    LimitContext limits;
    const QString& folder = limits.folder;
    DispatchingVariables& v = limits.v;
    CoreContext& c = limits.c;
    Must(LoadSettings(c));

    // Every team's sixty days written into a folder of their own, each run a fresh one so
    // that every file is written, as at the first export.
    QTemporaryDir out;
    int run = 0, events = 0;
    const double calendars = MedianMs([&] {
        const QString dir = out.path() + QStringLiteral("/run") + QString::number(++run);
        QDir().mkpath(dir);
        Store target(dir);
        CalendarExportRequest request;
        request.days = 60;
        request.target = &target;
        Result<CalendarExportReport> report = ExportCrewCalendars(c, request);
        Must(report.status());
        events = report->events;
    });
    std::fprintf(stderr, "%d teams, %d events\n", v.TeamCount(), events);
    Report("calendars export", calendars, FloorMs(folder, {"/Slips.txt", "/Meetings.txt"}));

    // The same with nothing changed since: read, compared, nothing written.
    Store again(out.path() + QStringLiteral("/run1"));
    const double unchanged = MedianMs([&] {
        CalendarExportRequest request;
        request.days = 60;
        request.target = &again;
        Must(ExportCrewCalendars(c, request).status());
    });
    Report("calendars export, nothing changed", unchanged,
           FloorMs(folder, {"/Slips.txt", "/Meetings.txt"}));

    // Twelve hours in a row across every team: no day has them, so all sixty days of all
    // thirty teams are read, with the contracts laid over each.
    FreeTimeRequest request;
    request.hours = 12;
    request.from = limits.clock.today();
    int found = 0;
    const double free = MedianMs([&] {
        Result<QList<FreeOpening>> openings = FindFreeTime(c, request);
        Must(openings.status());
        found = int(openings->size());
    });
    std::fprintf(stderr, "%d openings of 12 hours\n", found);
    Report("free time", free, FloorMs(folder, {"/ContractInfo.txt"}));

    request.hours = 3;
    const double three = MedianMs([&] { Must(FindFreeTime(c, request).status()); });
    Report("free time, 3 hours", three, FloorMs(folder, {"/ContractInfo.txt"}));
    return 0;
}
