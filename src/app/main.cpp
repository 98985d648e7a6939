#include "app/app.h"
#include "core/ports/clock.h"
#include "screens/shell/qtdesktop.h"
#include "screens/shell/qtdialogs.h"
#include "screens/shell/stopsignals.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

using namespace tresvane;

namespace
{

// The name the program was started under, without its folders and extension: a copy run
// under another name keeps settings and folders of its own.
QString baseNameOf(const char* argv0)
{
    const QString name = QFileInfo(QFile::decodeName(argv0)).completeBaseName();
    return name.isEmpty() ? QStringLiteral("TresvaneDispatcher") : name;
}

void printUsage(const QString& name)
{
    std::printf("Usage: %s [FOLDER]\n"
                "Runs the dispatcher on the program folder FOLDER, where all its data lives\n"
                "(default: ~/%s, made on first use).\n",
                qPrintable(name), qPrintable(name));
}

} // namespace

int main(int argc, char* argv[])
{
    const QString baseName = baseNameOf(argv[0]);
    // Asked before any window system is needed.
    for (int i = 1; i < argc; ++i) {
        const QByteArray arg(argv[i]);
        if (arg == "-h" || arg == "--help") {
            printUsage(baseName);
            return 0;
        }
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(baseName);
    QApplication::setOrganizationName(QStringLiteral("TresvaneDispatcher"));
    // Closing the last screen does not end the run: every way out goes through
    // ExitProgram, which makes the backup first.
    QApplication::setQuitOnLastWindowClosed(false);

    const QStringList args = QApplication::arguments().mid(1);
    if (args.size() > 1 || (!args.isEmpty() && args[0].startsWith(u'-'))) {
        printUsage(baseName);
        return 2;
    }

    QtDialogs dialogs;
    QString folder = args.isEmpty() ? QDir::home().filePath(baseName) : args[0];
    folder = QDir(folder).absolutePath();
    if (!QFileInfo::exists(folder)) {
        // The usual folder is simply made; a folder named on the command line that is not
        // there may be a mistyped path to an existing installation, so the user is asked.
        if (!args.isEmpty() &&
            !dialogs.ask(QStringLiteral("The folder %1 does not exist.\n"
                                        "Make it and start a new installation there?")
                             .arg(QDir::toNativeSeparators(folder))))
            return 1;
        if (!QDir().mkpath(folder)) {
            dialogs.message(QStringLiteral("The folder %1 could not be made.")
                                .arg(QDir::toNativeSeparators(folder)),
                            {}, Dialogs::Buttons::Ok, Dialogs::Icon::Critical);
            return 1;
        }
    }

    SystemClock clock;
    QtDesktop desktop;
    App app(folder, clock, dialogs, desktop);
    app.store.setBaseName(baseName);
    QObject::connect(&app, &App::finished, &application, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    // A logout or a kill asks the program to end: it leaves as by its own exit, backup
    // included, instead of vanishing mid-way.
    StopSignals stop;
    QObject::connect(&stop, &StopSignals::stopRequested, &app, &App::ExitProgram);
    if (!app.Main()) return 1;
    return application.exec();
}
