#include "shell/app.h"
#include "shell/qtdesktop.h"
#include "shell/qtdialogs.h"
#include "store/clock.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(ExecutableBaseName());
    QApplication::setOrganizationName(QStringLiteral("TresvaneDispatcher"));
    // Closing the last screen does not end the run: every way out goes through
    // ExitProgram, which makes the backup first.
    QApplication::setQuitOnLastWindowClosed(false);

    SystemClock clock;
    QtDialogs dialogs;
    QtDesktop desktop;
    App app(QCoreApplication::applicationDirPath(), clock, dialogs, desktop);
    QObject::connect(&app, &App::finished, &application, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    if (!app.Main())
        return 1;
    return application.exec();
}
