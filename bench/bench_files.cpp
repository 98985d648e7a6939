// The scans every later screen stands on: counting and walking Slips.txt, walking
// CustomerData.txt, and loading one team day.
#include "benchharness.h"
#include "foldercheck.h"

#include "core/io/customerrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QCoreApplication>
#include <QDirIterator>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QString folder = LimitFolder();
    Store store(folder);

    // Count and scan Slips.txt for one account's slips, as the record summary does.
    const QByteArray account = "555-555-5555";
    int hits = 0;
    const double slips = MedianMs([&] {
        hits = 0;
        const qint32 count = *store.RecordCount32("/Slips.txt", kSlipRecordLength);
        const QByteArray bytes = *store.ReadAll("/Slips.txt");
        ForEachRecord(SlipLayout(), bytes, [&](qsizetype n, const RecordView& r) {
            if (n <= count && r.trimmedBytes(SlipField::AcctNo) == account) ++hits;
        });
    });
    Report("slips scan", slips, FloorMs(folder, {"/Slips.txt"}));

    // Walk CustomerData.txt comparing each account number.
    const double customers = MedianMs([&] {
        hits = 0;
        const QByteArray bytes = *store.ReadAll("/CustomerData.txt");
        ForEachRecord(CustomerLayout(), bytes, [&](qsizetype, const RecordView& r) {
            if (r.trimmedBytes(CustomerField::AccountNo) == account) ++hits;
        });
    });
    Report("customer scan", customers, FloorMs(folder, {"/CustomerData.txt"}));

    // Load one busy team day: twelve slots from a day file.
    QString dayFile;
    for (const QString& year : store.List("/"))
        if (year.size() == 4 && year[0].isDigit()) {
            const QStringList files = store.List(u'/' + year + QStringLiteral("/Team#1"));
            if (!files.isEmpty()) {
                dayFile = u'/' + year + QStringLiteral("/Team#1/") + files.first();
                break;
            }
        }
    FixedClock clock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    const QString year = dayFile.section(u'/', 1, 1);
    const int julian = dayFile.section(u'/', 3, 3).section(u'.', 0, 0).toInt();
    const QDate date = QDate(year.toInt(), 1, 1).addDays(julian - 1);
    const double day = MedianMs([&] { Must(LoadDay(c, date, QStringLiteral("1"))); }, 101);
    Report("day load", day, FloorMs(folder, {dayFile}, 101));

    // The whole folder through the checker's summary, against reading every file once.
    QStringList everything;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        everything << it.next().mid(folder.size());
    const double check = MedianMs([&] { CheckFolder(folder); }, 5);
    Report("folder check", check, FloorMs(folder, everything, 5));
    return hits < 0;
}
