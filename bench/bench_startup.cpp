// From the start of the program to the splash on screen, on an installation at the
// formats' limits: the first start on a folder whose customers have no aux folders yet,
// and a later start. The aux folders are made behind the forms in slices; the longest
// slice is what the user could notice.
#include "benchharness.h"

#include "app/app.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/desktop.h"
#include "core/ports/silentdialogs.h"
#include "core/session/startup.h"
#include "core/state/corecontext.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <pty.h>
#include <unistd.h>

using namespace tresvane;

namespace
{
class NoDesktop final : public Desktop
{
public:
    bool openUrl(const QString&) override { return true; }
    void setClipboardText(const QString&) override {}
};

// The data files of the folder, without its aux folders: a large installation as it
// arrives from another computer or an older program.
void copyDataFiles(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList(QDir::Files))
        QFile::copy(from + u'/' + name, to + u'/' + name);
}
} // namespace

int main(int argc, char* argv[])
{
    QApplication qapp(argc, argv);
    const QString folder = LimitFolder();
    FixedClock clock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    SilentDialogs dialogs;
    NoDesktop desktop;
    auto start = [&](const QString& where) {
        App app(where, clock, dialogs, desktop);
        if (!app.Main()) {
            std::fprintf(stderr, "the program did not start\n");
            std::exit(1);
        }
        QApplication::processEvents();
    };

    // First starts, each on a fresh copy.
    QTemporaryDir scratch;
    int copies = 0;
    std::vector<double> firsts;
    for (int i = 0; i < 5; ++i) {
        const QString fresh = scratch.filePath(QString::number(copies++));
        copyDataFiles(folder, fresh);
        QElapsedTimer t;
        t.start();
        start(fresh);
        firsts.push_back(t.nsecsElapsed() / 1e6);
    }
    std::sort(firsts.begin(), firsts.end());
    Report("first start (32,767 customers, no aux folders yet)", firsts[firsts.size() / 2],
           FloorMs(folder, {"/CustomerData.txt"}, 5));

    // The repair behind the forms, in the slices the program gives it.
    {
        const QString fresh = scratch.filePath(QString::number(copies++));
        copyDataFiles(folder, fresh);
        Store store(fresh);
        AuxFolderRepair repair(store);
        QElapsedTimer total;
        total.start();
        // The reading of the customers and of AuxFiles is part of the start, measured above.
        if (!repair.prepare().ok()) std::exit(1);
        double longest = 0;
        int slices = 0, overFrame = 0;
        for (;;) {
            QElapsedTimer slice;
            slice.start();
            Result<bool> done = repair.run(8);
            const double ms = slice.nsecsElapsed() / 1e6;
            longest = std::max(longest, ms);
            ++slices;
            if (ms > 16) ++overFrame;
            if (!done) std::exit(1);
            if (*done) break;
        }
        std::printf("(making every aux folder behind the forms: %.0f ms in all, %d slices, "
                    "%d over 16 ms)\n",
                    total.nsecsElapsed() / 1e6, slices, overFrame);
        Report("aux folder repair, longest slice", longest,
               FloorMs(folder, {"/CustomerData.txt"}, 5));
    }

    const double ms = MedianMs([&] { start(folder); }, 5);
    Report("start to splash", ms, FloorMs(folder, {"/CustomerData.txt"}, 5));

    // The modem is looked for behind the splash: a serial device that never answers, or
    // none at all, must not hold the start up.
    auto startWithModem = [&](const QString& device) {
        App app(folder, clock, dialogs, desktop);
        app.setModemDevices([device](int port) { return port >= 1 ? device : QString(); });
        if (!app.Main()) {
            std::fprintf(stderr, "the program did not start\n");
            std::exit(1);
        }
        QApplication::processEvents();
    };
    int master = -1, slave = -1;
    char silent[256] = {};
    if (::openpty(&master, &slave, silent, nullptr, nullptr) != 0) {
        std::fprintf(stderr, "no pseudo-terminal for the silent modem\n");
        return 1;
    }
    const QString silentDevice = QString::fromLocal8Bit(silent);
    Report("start with silent modem", MedianMs([&] { startWithModem(silentDevice); }, 5),
           FloorMs(folder, {"/CustomerData.txt"}, 5));
    Report("start with no serial device",
           MedianMs([&] { startWithModem(scratch.filePath(QStringLiteral("no-tty"))); }, 5),
           FloorMs(folder, {"/CustomerData.txt"}, 5));
    ::close(slave);
    ::close(master);
    return 0;
}
