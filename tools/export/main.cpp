// dispatcher-export FOLDER --calendars [--days N] [--out DIR]
// dispatcher-export FOLDER --free HOURS [--from MM/DD/YYYY] [--team N]
// The crews' calendars of an installation, written as the program's menu writes them
// (into Exports/Calendars, or DIR), for a nightly job that a synchronised folder carries
// to the crews' phones; or the first ten openings of HOURS free hours in a row. Neither
// changes a data file: the calendars and the export settings live in Exports alone.
#include "core/exports/crewcalendars.h"
#include "core/exports/exportsettings.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/schedule/freetime.h"
#include "core/schedule/timegrid.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdio>
#include <optional>

using namespace tresvane;

namespace
{

const char kUsage[] =
    "usage: dispatcher-export FOLDER --calendars [--days N] [--out DIR]\n"
    "       dispatcher-export FOLDER --free HOURS [--from MM/DD/YYYY] [--team N]\n";

int usage(const QString& problem = {})
{
    if (!problem.isEmpty()) std::fprintf(stderr, "dispatcher-export: %s\n", qPrintable(problem));
    std::fputs(kUsage, stderr);
    return 2;
}

int failed(const QString& message)
{
    std::fprintf(stderr, "dispatcher-export: %s\n", qPrintable(message));
    return 1;
}

std::optional<int> number(const QString& text, int low, int high)
{
    bool ok = false;
    const int n = text.toInt(&ok);
    if (!ok || n < low || n > high) return std::nullopt;
    return n;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QString folder, days, out, free, from, team;
    bool calendars = false;
    const QStringList args = app.arguments().mid(1);
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        auto value = [&](QString& into) {
            if (i + 1 >= args.size()) return false;
            into = args[++i];
            return true;
        };
        bool ok = true;
        if (a == u"--calendars")
            calendars = true;
        else if (a == u"--days")
            ok = value(days);
        else if (a == u"--out")
            ok = value(out);
        else if (a == u"--free")
            ok = value(free);
        else if (a == u"--from")
            ok = value(from);
        else if (a == u"--team")
            ok = value(team);
        else if (a.startsWith(u'-') || !folder.isEmpty())
            return usage(QStringLiteral("unknown argument %1").arg(a));
        else
            folder = a;
        if (!ok) return usage(QStringLiteral("%1 needs a value").arg(a));
    }
    if (folder.isEmpty() || calendars == !free.isEmpty())
        return usage(QStringLiteral("give a folder and either --calendars or --free HOURS"));
    if (calendars && (!from.isEmpty() || !team.isEmpty()))
        return usage(QStringLiteral("--from and --team go with --free"));
    if (!calendars && (!days.isEmpty() || !out.isEmpty()))
        return usage(QStringLiteral("--days and --out go with --calendars"));
    if (!QFileInfo(folder).isDir()) return failed(QStringLiteral("%1 is not a folder").arg(folder));

    // Only the calendars write, and only below Exports (or DIR).
    Store store(folder, calendars ? Store::Access::ReadWrite : Store::Access::ReadOnly);
    SystemClock clock;
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    if (Status s = LoadSettings(c); !s) return failed(s.message());
    if (Status s = LoadAssignments(c); !s) return failed(s.message());
    BuildTimeLabels(v);
    if (v.TeamCount() < 1) return failed(QStringLiteral("the folder has no teams (Assignto.txt)"));

    if (calendars) {
        CalendarExportRequest request;
        if (!days.isEmpty()) {
            const std::optional<int> n = number(days, 1, kLongestCalendarDays);
            if (!n)
                return usage(QStringLiteral("--days is a number of days from 1 to %1")
                                 .arg(kLongestCalendarDays));
            request.days = *n;
        }
        std::optional<Store> target;
        QString written = store.path(CrewCalendarsFolder());
        if (!out.isEmpty()) {
            if (!QDir().mkpath(out))
                return failed(QStringLiteral("cannot make the folder %1").arg(out));
            target.emplace(out);
            request.target = &*target;
            written = QDir(out).absolutePath();
        }
        Result<CalendarExportReport> report = ExportCrewCalendars(c, request);
        if (!report) return failed(report.message());
        for (const QString& problem : report->problems)
            std::fprintf(stderr, "dispatcher-export: %s\n", qPrintable(problem));
        std::printf("%d calendar%s in %s: %d written, %d unchanged, %d events\n", report->teams,
                    report->teams == 1 ? "" : "s", qPrintable(written), report->written,
                    report->teams - report->written, report->events);
        return report->problems.isEmpty() ? 0 : 1;
    }

    FreeTimeRequest request;
    const std::optional<int> hours = number(free, 1, 12);
    if (!hours) return usage(QStringLiteral("--free is a number of hours from 1 to 12"));
    request.hours = *hours;
    if (!from.isEmpty()) {
        const std::optional<QDate> date = ParseShortDate(from);
        if (!date) return usage(QStringLiteral("%1 is not a date MM/DD/YYYY").arg(from));
        request.from = *date;
    }
    if (!team.isEmpty()) {
        const std::optional<int> n = number(team, 1, v.TeamCount());
        if (!n)
            return failed(QStringLiteral("there is no team %1; the teams are 1 to %2")
                              .arg(team)
                              .arg(v.TeamCount()));
        request.team = *n;
    }
    Result<QList<FreeOpening>> openings = FindFreeTime(c, request);
    if (!openings) return failed(openings.message());
    for (const FreeOpening& o : *openings)
        std::printf("%s\t%d\t%s\t%s\n", qPrintable(FormatShortDate(o.date)), o.team,
                    qPrintable(GridLabel(v, o.firstSlot)), qPrintable(v.gAssignTo.value(o.team)));
    if (openings->isEmpty())
        std::printf("no %d free hour%s in a row in the next %d days\n", request.hours,
                    request.hours == 1 ? "" : "s", request.days);
    return 0;
}
