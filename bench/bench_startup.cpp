// From the start of the program to the splash on screen, on an installation at the
// formats' limits, where making good every customer's aux folders is the cost to watch.
#include "benchharness.h"

#include "shell/app.h"
#include "shell/desktop.h"
#include "shell/silentdialogs.h"
#include "store/clock.h"

#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>

namespace {
class NoDesktop final : public Desktop
{
public:
    bool openUrl(const QString&) override { return true; }
    void setClipboardText(const QString&) override {}
};
} // namespace

int main(int argc, char* argv[])
{
    QApplication qapp(argc, argv);
    const QString folder = LimitFolder();
    FixedClock clock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    SilentDialogs dialogs;
    NoDesktop desktop;
    auto start = [&] {
        App app(folder, clock, dialogs, desktop);
        if (!app.Main()) {
            std::fprintf(stderr, "the program did not start\n");
            std::exit(1);
        }
        QApplication::processEvents();
    };
    // The first start on a folder makes seven folders for every customer; later starts
    // only look.
    QElapsedTimer first;
    first.start();
    start();
    std::printf("(first start, making the aux folders: %.0f ms)\n", first.nsecsElapsed() / 1e6);
    const double ms = MedianMs(start, 5);
    Report("start to splash", ms, FloorMs(folder, {"/CustomerData.txt"}, 5));
    return 0;
}
