// The built program started as a user starts it: the executable on its own in a bin
// folder, the data in a program folder elsewhere, under its own name and under another.
// Everything else in the suite runs the App inside the test; this is what catches a
// program that builds and passes its tests but cannot start.
#include "sampleinstallation.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

using namespace tresvane;

namespace
{

class Installed
{
public:
    explicit Installed(const QString& name = QStringLiteral("TresvaneDispatcher"))
    {
        QVERIFY(m_dir.isValid());
        QDir(m_dir.path()).mkpath(QStringLiteral("bin"));
        QDir(m_dir.path()).mkpath(QStringLiteral("home"));
        exe = m_dir.filePath(QStringLiteral("bin/") + name);
        QVERIFY(QFile::copy(QStringLiteral(DISPATCH_PROGRAM), exe));
        QFile::setPermissions(exe, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString home() const { return m_dir.filePath(QStringLiteral("home")); }
    QString inHome(const QString& relative) const { return home() + u'/' + relative; }

    // Starts the program; folder empty: no argument, the program picks its own.
    void start(const QString& folder = {})
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HOME"), home());
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), home() + QStringLiteral("/.config"));
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("TMPDIR"), m_dir.path());
        process.setProcessEnvironment(env);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(exe, folder.isEmpty() ? QStringList() : QStringList{folder});
        QVERIFY2(process.waitForStarted(), qPrintable(process.errorString()));
    }
    // Asks the program to end as a logout does, and waits for it.
    int stop()
    {
        ::kill(pid_t(process.processId()), SIGTERM);
        if (!process.waitForFinished(15000)) {
            process.kill();
            process.waitForFinished();
            return -1;
        }
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    }
    // The window places the screens kept, per program name: a screen that was on
    // screen leaves its place here when it goes.
    QStringList keptScreens(const QString& key) const
    {
        QSettings settings(home() + QStringLiteral("/.config/TresvaneDispatcher/") + key +
                               QStringLiteral(".conf"),
                           QSettings::IniFormat);
        return settings.allKeys();
    }

    QString exe;
    QProcess process;

private:
    QTemporaryDir m_dir;
};

bool isFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

} // namespace

class TestInstalledProgram : public QObject
{
    Q_OBJECT
private slots:
    void firstStartInTheUsualFolder();
    void sampleInstallationStartsAndBacksUp();
    void renamedCopyKeepsItsOwnSettingsAndFolders();
    void oldLayoutIsToldBeforeAnythingIsMade();
    void secondProgramOnTheFolderWaitsForTheFirst();
    void usage();
};

void TestInstalledProgram::firstStartInTheUsualFolder()
{
    Installed run;
    run.start();
    // No folder given: ~/TresvaneDispatcher, made on first use, with the whole tree.
    const QString folder = run.inHome(QStringLiteral("TresvaneDispatcher"));
    QTRY_VERIFY_WITH_TIMEOUT(isFolder(folder + QStringLiteral("/Backup/TresvaneDispatcher")),
                             15000);
    for (const QString& sub :
         {QStringLiteral("TresvaneDispatcher"), QStringLiteral("Backup"),
          QStringLiteral("TVActiveAccounts"), QStringLiteral("AuxFiles"),
          QStringLiteral("Templates/Contracts"), QString::number(QDate::currentDate().year())})
        QVERIFY2(isFolder(folder + u'/' + sub), qPrintable(sub));
    // Still running, on its splash: a start that fails ends at once.
    QTest::qWait(500);
    QCOMPARE(run.process.state(), QProcess::Running);
    QCOMPARE(run.stop(), 0);
    QVERIFY(!run.keptScreens(QStringLiteral("TresvaneDispatcherSplash")).isEmpty());

    // A second start on the same folder is quick and keeps what is there.
    QFile marker(folder + QStringLiteral("/Assignto.txt"));
    QVERIFY(marker.open(QIODevice::WriteOnly));
    marker.write("\"North\"\r\n");
    marker.close();
    run.start(folder);
    QTest::qWait(500);
    QCOMPARE(run.process.state(), QProcess::Running);
    QCOMPARE(run.stop(), 0);
    QVERIFY(QFile::exists(folder + QStringLiteral("/Backup/Assignto.txt")));
}

void TestInstalledProgram::sampleInstallationStartsAndBacksUp()
{
    Installed run;
    const QString folder = run.inHome(QStringLiteral("Sample"));
    SampleOptions o;
    o.customers = 50;
    o.slips = 40;
    QVERIFY(WriteSampleInstallation(folder, o).ok());
    run.start(folder);
    // The aux folders come behind the splash, while the program answers.
    QTRY_VERIFY_WITH_TIMEOUT(QDir(folder + QStringLiteral("/AuxFiles")).count() >= 2 + 50, 15000);
    QCOMPARE(run.process.state(), QProcess::Running);
    QCOMPARE(run.stop(), 0);
    // The way out made the backup, as the program's own exit does.
    for (const char* name : {"CustomerData.txt", "Slips.txt", "TresvaneDispatcherSettings.txt"})
        QVERIFY2(QFile::exists(folder + QStringLiteral("/Backup/") + QLatin1String(name)), name);
}

void TestInstalledProgram::renamedCopyKeepsItsOwnSettingsAndFolders()
{
    Installed run(QStringLiteral("AcmeDispatch"));
    const QString folder = run.inHome(QStringLiteral("Sample"));
    SampleOptions o;
    o.customers = 20;
    o.slips = 10;
    QVERIFY(WriteSampleInstallation(folder, o).ok());
    QFile settings(folder + QStringLiteral("/TresvaneDispatcherSettings.txt"));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    const QByteArray before = settings.readAll();
    settings.close();

    run.start(folder);
    QTRY_VERIFY_WITH_TIMEOUT(isFolder(folder + QStringLiteral("/Backup/AcmeDispatch")), 15000);
    QVERIFY(isFolder(folder + QStringLiteral("/AcmeDispatch")));
    QTest::qWait(300);
    QCOMPARE(run.process.state(), QProcess::Running);
    QCOMPARE(run.stop(), 0);
    // The copy found no settings of its own: a new installation, which writes none until
    // its setup is done, and leaves the usual program's settings as they were.
    QVERIFY(!QFile::exists(folder + QStringLiteral("/AcmeDispatchSettings.txt")));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    QCOMPARE(settings.readAll(), before);
    QVERIFY(!isFolder(folder + QStringLiteral("/Backup/TresvaneDispatcher")) ||
            QDir(folder + QStringLiteral("/Backup/TresvaneDispatcher")).isEmpty());
    QVERIFY(!run.keptScreens(QStringLiteral("AcmeDispatchSplash")).isEmpty());
}

void TestInstalledProgram::oldLayoutIsToldBeforeAnythingIsMade()
{
    Installed run;
    // The program copied into its data folder, as older installs left it.
    const QString folder = run.inHome(QStringLiteral("Old"));
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::copy(run.exe, folder + QStringLiteral("/TresvaneDispatcher")));
    run.start(folder);
    // The message waits for the user; nothing is made meanwhile.
    QTest::qWait(1500);
    QCOMPARE(run.process.state(), QProcess::Running);
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("TresvaneDispatcher")});
    run.process.kill();
    run.process.waitForFinished();
}

void TestInstalledProgram::secondProgramOnTheFolderWaitsForTheFirst()
{
    Installed run;
    const QString folder = run.inHome(QStringLiteral("Office"));
    QVERIFY(QDir().mkpath(folder));
    run.start(folder);
    const QString lock = folder + QStringLiteral("/TresvaneDispatcher.lock");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(lock), 15000);
    QFile held(lock);
    QVERIFY(held.open(QIODevice::ReadOnly));
    const QByteArray holder = held.readAll();
    held.close();
    QVERIFY(holder.contains("pid: " + QByteArray::number(run.process.processId())));

    // A second program on the folder stops at its message, the first's lock untouched.
    Installed other;
    other.start(folder);
    QTest::qWait(1500);
    QCOMPARE(other.process.state(), QProcess::Running);
    QVERIFY(held.open(QIODevice::ReadOnly));
    QCOMPARE(held.readAll(), holder);
    held.close();
    other.process.kill();
    other.process.waitForFinished();

    // Once the first has ended, the folder is free and the next start takes it.
    QCOMPARE(run.stop(), 0);
    QVERIFY(!QFile::exists(lock));
    other.start(folder);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(lock), 15000);
    QCOMPARE(other.stop(), 0);
}

void TestInstalledProgram::usage()
{
    Installed run;
    QProcess p;
    p.start(run.exe, {QStringLiteral("--help")});
    QVERIFY(p.waitForFinished(15000));
    QCOMPARE(p.exitCode(), 0);
    QVERIFY(p.readAllStandardOutput().startsWith("Usage: TresvaneDispatcher [FOLDER]"));
}

QTEST_GUILESS_MAIN(TestInstalledProgram)
#include "test_installedprogram.moc"
