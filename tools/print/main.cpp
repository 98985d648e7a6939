// dispatcher-print FOLDER --date MM/DD/YYYY (--team N | --all-teams)
//                  --schedule extended|workday --pdf FILE
// Draws the crews' daily work schedules of a day into one PDF file, a page per team, with
// the program's own drawing code and settings. Offices use it to mail the next day's
// schedules to the crews. It only reads the folder: nothing in it is ever written.
#include "core/documents/printframe.h"
#include "core/documents/workschedule.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/setup/addressstyle.h"
#include "core/setup/printsettings.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "screens/documents/printrun.h"

#include <QApplication>
#include <QFileInfo>
#include <cstdio>

using namespace tresvane;

namespace
{

const char kUsage[] = "usage: dispatcher-print FOLDER --date MM/DD/YYYY (--team N | --all-teams)\n"
                      "                        --schedule extended|workday --pdf FILE\n";

int usage(const char* problem = nullptr)
{
    if (problem) std::fprintf(stderr, "dispatcher-print: %s\n", problem);
    std::fputs(kUsage, stderr);
    return 2;
}

int failed(const QString& message)
{
    std::fprintf(stderr, "dispatcher-print: %s\n", qPrintable(message));
    return 1;
}

// The settings the schedules are drawn with, as the program reads them at its start.
Status loadSettings(CoreContext& c)
{
    if (Status s = LoadSettings(c); !s) return s;
    if (Status s = LoadAssignments(c); !s) return s;
    if (Status s = LoadBusiness(c); !s) return s;
    c.v.settings.cmdAddress = AddressStyleAtLoad(c.v.gBusiness[0], c.v.gBusiness[5]);
    Result<PrintColors> colors = ReadPrintColors(c.store);
    if (!colors) return colors.status();
    c.v.settings.ckColor = colors->printColor ? 1 : 0;
    c.v.settings.txtBorders = QString::number(colors->borderColor);
    c.v.settings.txtData = QString::number(colors->textColor);
    c.v.settings.lblFont = colors->fontName;
    return {};
}

} // namespace

int main(int argc, char* argv[])
{
    // Drawn without a screen: the fonts and the PDF need no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QString folder, date, team, schedule, pdf;
    bool allTeams = false;
    const QStringList args = app.arguments().mid(1);
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        auto value = [&](QString& into) {
            if (i + 1 >= args.size()) return false;
            into = args[++i];
            return true;
        };
        bool ok = true;
        if (a == u"--date")
            ok = value(date);
        else if (a == u"--team")
            ok = value(team);
        else if (a == u"--all-teams")
            allTeams = true;
        else if (a == u"--schedule")
            ok = value(schedule);
        else if (a == u"--pdf")
            ok = value(pdf);
        else if (a.startsWith(u'-') || !folder.isEmpty())
            return usage(qPrintable(QStringLiteral("unknown argument %1").arg(a)));
        else
            folder = a;
        if (!ok) return usage(qPrintable(QStringLiteral("%1 needs a value").arg(a)));
    }
    if (folder.isEmpty() || date.isEmpty() || pdf.isEmpty() || schedule.isEmpty()) return usage();
    if (allTeams == !team.isEmpty()) return usage("give either --team N or --all-teams");

    ScheduleRequest request;
    const std::optional<QDate> day = ParseShortDate(date);
    if (!day) return usage(qPrintable(QStringLiteral("%1 is not a date MM/DD/YYYY").arg(date)));
    request.date = *day;
    if (schedule == u"extended")
        request.form = ScheduleForm::Extended;
    else if (schedule == u"workday")
        request.form = ScheduleForm::WorkDay;
    else
        return usage("--schedule is extended or workday");

    if (!QFileInfo(folder).isDir()) return failed(QStringLiteral("%1 is not a folder").arg(folder));
    Store store(folder, Store::Access::ReadOnly);
    SystemClock clock;
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    if (Status s = loadSettings(c); !s) return failed(s.message());
    BuildTimeLabels(v);
    if (v.TeamCount() < 1) return failed(QStringLiteral("the folder has no teams (Assignto.txt)"));
    if (!allTeams) {
        bool number = false;
        request.team = team.toInt(&number);
        if (!number || request.team < 1 || request.team > v.TeamCount())
            return failed(QStringLiteral("there is no team %1; the teams are 1 to %2")
                              .arg(team)
                              .arg(v.TeamCount()));
    }

    Result<int> pages = PrintDocumentsToPdf(pdf, [&](PrintSurface& surface) {
        PrintJob job{surface, DocumentSettingsOf(v)};
        return PrintWorkSchedules(job, store, v, request).status();
    });
    if (!pages) return failed(pages.message());
    std::printf("%d page%s written to %s\n", *pages, *pages == 1 ? "" : "s", qPrintable(pdf));
    return 0;
}
