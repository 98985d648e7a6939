// Captures the start-up screens to PNG files for review: the splash with its welcome
// panel, every tab of the setup screen and the main menu, each at its own size and at the
// size of the whole screen. Runs on a sample program folder in a temporary directory.
//
//   dispatch_screenshots <output folder>
#include "setup/frmsetup.h"
#include "setup/setupoperationstab.h"
#include "shell/app.h"
#include "shell/desktop.h"
#include "shell/dialogs.h"
#include "shell/frmsplash.h"
#include "shell/frmstartup.h"
#include "shell/screenframe.h"
#include "store/clock.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// Answers every question with No and every message with OK, without showing anything.
class QuietDialogs final : public Dialogs
{
public:
    Answer message(const QString&, const QString&, Buttons buttons, Icon) override
    {
        return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::No
                                                                            : Answer::Ok;
    }
    std::optional<QString> input(const QString&, const QString&, const QString&) override
    {
        return std::nullopt;
    }
    void beep() override {}
};

class NoDesktop final : public Desktop
{
public:
    void openUrl(const QString&) override {}
    void setClipboardText(const QString&) override {}
};

void write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}

void grab(QWidget* w, const QString& folder, const QString& name)
{
    w->show();
    QApplication::processEvents();
    w->grab().save(folder + u'/' + name + QStringLiteral(".png"));
    const QRect screen = w->screen()->availableGeometry();
    const QSize original = w->size();
    w->resize(screen.size());
    QApplication::processEvents();
    w->grab().save(folder + u'/' + name + QStringLiteral("-full.png"));
    w->resize(original);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (argc < 2) {
        QTextStream(stderr) << "usage: dispatch_screenshots <output folder>\n";
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(out);
    ScreenFrame::setGeometryKept(false);

    QTemporaryDir folder;
    const QString root = folder.path();
    write(root + "/Assignto.txt", "\"North Truck\"\r\n\"South Truck\"\r\n\"Install Crew\"\r\n");
    write(root + "/ProblemCode.txt", "\"No Heat\"\r\n\"Leak\"\r\n\"Maintenance\"\r\n");
    write(root + "/MyBusinessData.txt",
          "\"Acme Heating & Cooling\",\"1200 Main Street\",\"Suite 4\",\"Springfield\",\"IL\","
          "\"62701\",\"217-555-0142\",\"Fax - 217-555-0143\",\"\"\r\n");
    write(root + "/TresvaneDispatcherSettings.txt",
          "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");

    SystemClock clock;
    QuietDialogs dialogs;
    NoDesktop desktop;
    App app(root, clock, dialogs, desktop);
    app.setLockFolder(root);
    if (!app.Main())
        return 1;

    app.splash->fraWelcome->setVisible(true);
    grab(app.splash, out, QStringLiteral("splash"));

    frmSetup* setup = app.setup;
    setup->show();
    for (int i = 0; i < setup->tabSetup->count(); ++i) {
        setup->tabSetup->setTabEnabled(i, true);
        setup->tabSetup->setCurrentIndex(i);
        if (i == frmSetup::TabOperations) {
            for (int s = 0; s < setup->operations->tabSub->count(); ++s) {
                setup->operations->tabSub->setCurrentIndex(s);
                grab(setup, out, QStringLiteral("setup-tab%1-sub%2").arg(i).arg(s));
            }
            continue;
        }
        grab(setup, out, QStringLiteral("setup-tab%1").arg(i));
    }
    setup->hide();
    grab(app.startup, out, QStringLiteral("menu"));
    app.ExitProgram();
    return 0;
}
