// dispatcher-print FOLDER --date MM/DD/YYYY (--team N | --all-teams)
//                  --schedule extended|workday --pdf FILE
// dispatcher-print FOLDER --date MM/DD/YYYY --team N --invoices
//                  [--style service|repair|office] [--blank N] [--memo] [--reason] --pdf FILE
// Draws the crews' daily work schedules of a day into one PDF file, a page per team, or a
// team's invoices of the day, a page per Service Attention, with the program's own
// drawing code and settings. Offices use it to mail the next day's schedules to the crews
// and to print the invoices where the program is not. It only reads the folder: nothing
// in it is ever written.
#include "core/documents/invoices.h"
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

const char kUsage[] =
    "usage: dispatcher-print FOLDER --date MM/DD/YYYY (--team N | --all-teams)\n"
    "                        --schedule extended|workday --pdf FILE\n"
    "       dispatcher-print FOLDER --date MM/DD/YYYY --team N --invoices\n"
    "                        [--style service|repair|office] [--blank N] [--memo] [--reason]\n"
    "                        --pdf FILE\n";

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
    // The options are read here, not by Qt: Qt would take "--style" for its own.
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    QString folder, date, team, schedule, pdf, style, blank;
    bool allTeams = false;
    bool invoices = false;
    bool memo = false;
    bool reason = false;
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
        else if (a == u"--invoices")
            invoices = true;
        else if (a == u"--style")
            ok = value(style);
        else if (a == u"--blank")
            ok = value(blank);
        else if (a == u"--memo")
            memo = true;
        else if (a == u"--reason")
            reason = true;
        else if (a.startsWith(u'-') || !folder.isEmpty())
            return usage(qPrintable(QStringLiteral("unknown argument %1").arg(a)));
        else
            folder = a;
        if (!ok) return usage(qPrintable(QStringLiteral("%1 needs a value").arg(a)));
    }
    if (folder.isEmpty() || date.isEmpty() || pdf.isEmpty()) return usage();
    if (invoices == !schedule.isEmpty()) return usage("give either --schedule or --invoices");
    if (!invoices && (!style.isEmpty() || !blank.isEmpty() || memo || reason))
        return usage("--style, --blank, --memo and --reason go with --invoices");
    if (invoices && (allTeams || team.isEmpty()))
        return usage("invoices are printed for one team: give --team N");
    if (allTeams == !team.isEmpty()) return usage("give either --team N or --all-teams");

    ScheduleRequest request;
    const std::optional<QDate> day = ParseShortDate(date);
    if (!day) return usage(qPrintable(QStringLiteral("%1 is not a date MM/DD/YYYY").arg(date)));
    request.date = *day;
    if (schedule == u"workday")
        request.form = ScheduleForm::WorkDay;
    else if (!invoices && schedule != u"extended")
        return usage("--schedule is extended or workday");
    std::optional<InvoiceStyle> invoiceStyle;
    if (style == u"service")
        invoiceStyle = InvoiceStyle::ServiceOrder;
    else if (style == u"repair")
        invoiceStyle = InvoiceStyle::Repair;
    else if (style == u"office")
        invoiceStyle = InvoiceStyle::Office;
    else if (!style.isEmpty())
        return usage("--style is service, repair or office");
    const std::optional<int> blankCount = blank.isEmpty() ? 0 : ParseBlankCount(blank);
    if (!blankCount || (!blank.isEmpty() && *blankCount == 0))
        return usage(qPrintable(
            QStringLiteral("--blank is a number of pages from 1 to %1").arg(kMaxBlankInvoices)));

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

    if (invoices) {
        InvoiceRequest r;
        r.date = request.date;
        r.team = request.team;
        r.style = invoiceStyle.value_or(SetupInvoiceStyle(v, ServiceOrderOffered(store)));
        r.addMemo = memo;
        r.printReason = reason;
        r.blankCount = *blankCount;
        // A day without a Service Attention writes no empty file; it is said so instead.
        Result<int> count = CountInvoices(store, v, r);
        if (!count) return failed(count.message());
        if (*count == 0) {
            std::printf("%s\nNo file written.\n",
                        qPrintable(NoInvoicesMessage(v.gAssignTo.value(r.team), r.date)));
            return 0;
        }
        Result<int> pages = PrintDocumentsToPdf(pdf, [&](PrintSurface& surface) {
            PrintJob job{surface, DocumentSettingsOf(v)};
            return PrintInvoices(job, store, v, r).status();
        });
        if (!pages) return failed(pages.message());
        std::printf("%d page%s written to %s\n", *pages, *pages == 1 ? "" : "s", qPrintable(pdf));
        return 0;
    }

    Result<int> pages = PrintDocumentsToPdf(pdf, [&](PrintSurface& surface) {
        PrintJob job{surface, DocumentSettingsOf(v)};
        return PrintWorkSchedules(job, store, v, request).status();
    });
    if (!pages) return failed(pages.message());
    std::printf("%d page%s written to %s\n", *pages, *pages == 1 ? "" : "s", qPrintable(pdf));
    return 0;
}
