// The waits of the calendar tools at the formats' limits: a page of the board of teams
// (four teams' days of 30), the slip popup's record among 50,000 slips, and a weekly series
// over a year booked for one team.
#include "benchharness.h"

#include "core/calendar/calendarday.h"
#include "core/calendar/recurringevents.h"
#include "core/calendar/slippopup.h"
#include "core/calendar/teamboard.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    LimitContext limits;
    const QString& folder = limits.folder;
    Store& store = limits.store;
    DispatchingVariables& v = limits.v;
    CoreContext& c = limits.c;

    // The busiest day of the slips: the most teams with work on it.
    const QByteArray slips = *store.ReadAll("/Slips.txt");
    const SlipRecord last(QByteArrayView(slips).last(kSlipRecordLength));
    const QDate date = ParseShortDateBytes(last.view().trimmedBytes(SlipField::EventDate));
    const int team = last.text(SlipField::TeamNo).toInt();
    const int page = (team - 1) / kBoardTeams;
    QStringList files;
    for (int t = page * kBoardTeams + 1; t <= page * kBoardTeams + kBoardTeams; ++t)
        files << TeamDayFile(date, t);
    const double board = MedianMs([&] { Must(ReadBoardPage(c, date, page).status()); });
    Report("board page", board, FloorMs(folder, files));

    // The popup of the last slip of the file: the whole file is walked.
    const int start = last.text(SlipField::StartSlot).toInt();
    const ClickedSlot clicked{SlotFile::Slips, date, team, start,
                              last.text(SlipField::ConfirmationNo) + u' ' +
                                  last.text(SlipField::Name)};
    bool found = false;
    const double popup = MedianMs([&] { found = FindSlotRecord(c, clicked)->has_value(); });
    Report("slip popup", popup, FloorMs(folder, {"/Slips.txt"}));

    // A weekly invoiced series over a year for one team, in a copy of the slip files so the
    // limits' folder stays as it is. Every run books the same Mondays again: the day files
    // are rewritten and 53 records appended.
    QTemporaryDir copy;
    for (const QString& name : {QStringLiteral("/Slips.txt"), QStringLiteral("/Meetings.txt"),
                                QStringLiteral("/Assignto.txt")})
        QFile::copy(folder + name, copy.path() + name);
    Store seriesStore(copy.path());
    DispatchingVariables sv = v;
    CoreContext sc{seriesStore, limits.clock, limits.dialogs, sv};
    sv.gYear = QStringLiteral("2026");
    sv.settings.ckSlipStyle = 1;
    sv.gJulianDay = QStringLiteral("124");
    sv.gSequence = 1;
    sv.current.name = QStringLiteral("Hill Bakery");
    sv.current.account = QStringLiteral("A-7");
    RecurringEvent event;
    event.kind = RecurringKind::Invoice;
    event.title = QStringLiteral("Boiler Service");
    event.team = 3;
    event.startSlot = 4;
    event.hours = 2;
    QList<QDate> mondays;
    for (QDate d = date; d <= date.addYears(1); d = d.addDays(7))
        mondays << d;
    const double series =
        MedianMs([&] { Must(ScheduleRecurringEvents(sc, event, mondays).status()); }, 7);
    QStringList written;
    for (const QDate& d : mondays)
        written << TeamDayFile(d, event.team);
    Report("recurring year", series, FloorMs(copy.path(), written + QStringList{"/Slips.txt"}));

    std::fprintf(stderr, "%s, team %d; popup found: %d; %lld Mondays\n",
                 qPrintable(date.toString(Qt::ISODate)), team, int(found), qint64(mondays.size()));
    return found ? 0 : 1;
}
