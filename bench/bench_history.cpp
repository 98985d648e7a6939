// The history screen at the files' own limits (32,767 records in each history file) and
// the courtesy list over 50,000 slips: the waits of loading the grids, purging one
// account and listing a year of slips.
#include "benchharness.h"

#include "core/history/courtesycalls.h"
#include "core/history/historyview.h"
#include "core/io/historyrecords.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "screens/history/frmhistory.h"
#include "screens/shell/flexgrid.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace tresvane;

namespace
{
QByteArray field(const QByteArray& text, int width)
{
    return text.leftJustified(width, ' ', true);
}

// 32,767 records of 1,000 accounts over seven years; one in ten texts has two lines.
void writeHistory(const QString& folder)
{
    QByteArray service, ledger;
    for (int i = 0; i < 32767; ++i) {
        const QByteArray account = "AC" + QByteArray::number(10000 + i % 1000);
        const QByteArray name = "Customer " + QByteArray::number(i % 1000);
        const QDate d = QDate(2020, 1, 1).addDays(i % 2550);
        const QByteArray date = d.toString(QStringLiteral("MM/dd/yyyy")).toLatin1();
        const QByteArray text =
            i % 10 == 0 ? "Repaired the valve\r\nand the pump" : "Seasonal tune up";
        service += field(name, 30) + field(account, 25) + field(date, 15) + field(text, 35) +
                   field("Paid", 40);
        ledger += field(name, 45) + field(account, 25) + field(date, 15) + field(text, 60) +
                  field("$" + QByteArray::number(i % 500) + ".25", 10);
    }
    for (const auto& [name, bytes] :
         {std::pair{"/ServiceHistory.txt", service}, std::pair{"/CAHistory.txt", ledger}}) {
        QFile f(folder + QString::fromLatin1(name));
        f.open(QIODevice::WriteOnly);
        f.write(bytes);
    }
}
} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString folder = dir.path();
    QDir(folder).mkdir(QStringLiteral("Backup"));
    writeHistory(folder);
    Store store(folder);
    const QStringList files{ServiceHistoryFileName(), LedgerFileName()};
    const double floor = FloorMs(folder, files);

    const HistoryFilter everything{false, {}, QDate(1990, 1, 1), QDate(2030, 1, 1)};
    qsizetype rows = 0;
    Report("history load", MedianMs([&] { rows = LoadHistory(store, everything)->ledger.size(); }),
           floor);
    const HistoryFilter oneAccount{true, QStringLiteral("AC10500"), QDate(1990, 1, 1),
                                   QDate(2030, 1, 1)};
    qsizetype accountRows = 0;
    Report("history load account",
           MedianMs([&] { accountRows = LoadHistory(store, oneAccount)->ledger.size(); }), floor);

    // The screen's whole load: both grids with their tall rows, the account list, the total.
    FixedClock clock(QDateTime(QDate(2026, 12, 31), QTime(9, 0)));
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    frmHistory screen(c);
    screen.dates.DTPicker1[0] = QDate(1990, 1, 1);
    Report("history screen load", MedianMs([&] { screen.LoadGrids(); }, 7), floor);

    // Purging an account rewrites both files; the copy is re-laid before each run.
    const QByteArray service = *store.ReadAll(ServiceHistoryFileName());
    const QByteArray ledger = *store.ReadAll(LedgerFileName());
    const double purge = MedianMs(
        [&] {
            Must(store.WriteFile(ServiceHistoryFileName(), service));
            Must(store.WriteFile(LedgerFileName(), ledger));
            Must(PurgeAccountHistory(store, QStringLiteral("AC10500")));
        },
        7);
    const double relay = MedianMs(
        [&] {
            Must(store.WriteFile(ServiceHistoryFileName(), service));
            Must(store.WriteFile(LedgerFileName(), ledger));
        },
        7);
    Report("history purge account", purge - relay, floor);

    // A year of courtesy calls over the full slip file.
    const QString limits = LimitFolder();
    Store slipStore(limits);
    DispatchingVariables sv;
    CoreContext sc{slipStore, clock, dialogs, sv};
    BuildTimeLabels(sv);
    Must(LoadAssignments(sc));
    const QDate today(2026, 5, 4);
    qsizetype calls = 0;
    Report("courtesy list",
           MedianMs([&] { calls = LoadCourtesyCalls(sc, today, today.addYears(1))->size(); }),
           FloorMs(limits, {QStringLiteral("/Slips.txt")}));

    std::fprintf(stderr, "%lld ledger rows, %lld for one account, %lld courtesy rows\n",
                 static_cast<long long>(rows), static_cast<long long>(accountRows),
                 static_cast<long long>(calls));
    return rows != 32767 || calls == 0;
}
