// The waits of booking and finding a slip: a change of team or date on the Scheduling
// Screen (the day file, the day's slips and meetings, and every contract of a full customer
// file), and the record summary and search.
#include "benchharness.h"

#include "core/io/customerrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/dayview.h"
#include "core/sliprecords/recordsearch.h"
#include "core/sliprecords/recordsummary.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QCoreApplication>
#include <QHash>
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

    // The busiest contract day of one team: the most events to lay over.
    QHash<QPair<double, QByteArray>, int> events;
    const QByteArray contracts = *store.ReadAll("/ContractInfo.txt");
    ForEachRecord(ContractLayout(), contracts, [&](qsizetype, const RecordView& r) {
        ++events[{r.real(ContractField::ContractNextDate),
                  r.trimmedBytes(ContractField::ContractTeam).toByteArray()}];
    });
    QPair<double, QByteArray> busiest;
    int most = 0;
    for (auto it = events.cbegin(); it != events.cend(); ++it)
        if (it.value() > most && it.key().second != "None Selected") {
            most = it.value();
            busiest = it.key();
        }
    const QDate date = FromOleDate(busiest.first).date();
    const QString teamName = QString::fromLatin1(busiest.second);
    const QString team = QString::number(std::max<qsizetype>(1, v.gAssignTo.indexOf(teamName)));

    std::fprintf(stderr, "%d contract events on %s for %s\n", most,
                 qPrintable(date.toString(Qt::ISODate)), qPrintable(teamName));
    int shown = 0;
    // The screen keeps its index of the day's records: the files are read once, then at
    // each change of the files.
    DayRecordIndex index;
    const double dayChange = MedianMs([&] {
        Result<TeamDay> day = ReadTeamDay(c, date, team, &index);
        Must(day.status());
        Result<ContractOverlay> overlay = OverlayContractEvents(c, day->slotTexts, date, teamName);
        shown += overlay->messages.size();
    });
    Report("day change", dayChange,
           FloorMs(folder, {"/ContractInfo.txt", "/Slips.txt", "/Meetings.txt"}));

    // The record summary of every slip and meeting, built and sorted.
    qsizetype rows = 0;
    const double summary = MedianMs([&] { rows = BuildRecordSummary(c)->rows.size(); });
    Report("summary", summary, FloorMs(folder, {"/Meetings.txt", "/Slips.txt"}));

    // A search by account for the account of the last slip: the whole file is walked.
    const QByteArray slips = *store.ReadAll("/Slips.txt");
    const QString account =
        SlipRecord(QByteArrayView(slips).last(kSlipRecordLength)).text(SlipField::AcctNo);
    bool found = false;
    const double search =
        MedianMs([&] { found = *ReadCallSlip(c, 1, SearchBy::AccountNo, QString(), account); });
    Report("slip search", search, FloorMs(folder, {"/Slips.txt"}));
    std::fprintf(stderr, "%lld summary rows; account %s found: %d\n", qint64(rows),
                 qPrintable(account), int(found));
    return shown < 0;
}
