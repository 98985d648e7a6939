#include "benchharness.h"

#include "core/setup/settingsfiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace tresvane
{
QString LimitFolder()
{
    const QString folder = QDir::tempPath() + QStringLiteral("/tresvane-bench-limits-v2");
    const QString marker = folder + QStringLiteral("/.complete");
    if (QFile::exists(marker)) return folder;
    QDir(folder).removeRecursively();
    SampleOptions o;
    o.teams = 30;
    o.customers = 32767;
    o.slips = 50000;
    o.meetings = 2000;
    o.storedSlips = 40;
    o.contracts = 32767;
    o.start = QDate(2026, 5, 4);
    o.seed = 7;
    std::fprintf(stderr, "making the sample installation at the limits in %s ...\n",
                 qPrintable(folder));
    Result<SampleSummary> r = WriteSampleInstallation(folder, o);
    if (!r) {
        std::fprintf(stderr, "%s\n", qPrintable(r.message()));
        std::exit(1);
    }
    QFile(marker).open(QIODevice::WriteOnly);
    return folder;
}

void Must(const Status& s)
{
    if (s) return;
    std::fprintf(stderr, "%s\n", qPrintable(s.message()));
    std::exit(1);
}

LimitContext::LimitContext()
    : folder(LimitFolder()), store(folder), clock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)))
{
    BuildTimeLabels(v);
    Must(LoadAssignments(c));
}

double MedianMs(const std::function<void()>& f, int runs)
{
    f(); // warm the page cache and the allocator
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        f();
        times.push_back(t.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double FloorMs(const QString& folder, const QStringList& files, int runs)
{
    return MedianMs(
        [&] {
            qint64 total = 0;
            for (const QString& name : files) {
                QFile f(folder + name);
                if (f.open(QIODevice::ReadOnly)) total += f.readAll().size();
            }
            if (total < 0) std::abort();
        },
        runs);
}

void Report(const QString& name, double ms, double floorMs)
{
    std::printf("%s: %.2f ms, floor %.2f ms, ratio %.2f\n", qPrintable(name), ms, floorMs,
                floorMs > 0 ? ms / floorMs : 0.0);
    std::fflush(stdout);
}
} // namespace tresvane
