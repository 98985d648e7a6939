#include "recordingdesktop.h"
#include "scripteddialogs.h"
#include "testclock.h"

#include "app/app.h"
#include "core/io/folderlock.h"
#include "screens/customers/frmcustomer.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupassignmentstab.h"
#include "screens/setup/setupbusinesstab.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/setup/setupproblemstab.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using namespace tresvane;

namespace
{

// A program folder and everything an App takes from outside.
struct Run {
    QTemporaryDir folder;
    QTemporaryDir locks;
    TestClock clock{QDateTime(QDate(2026, 3, 10), QTime(9, 0))};
    ScriptedDialogs dialogs;
    RecordingDesktop desktop;

    std::unique_ptr<App> start()
    {
        auto app = std::make_unique<App>(folder.path(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        return app;
    }
    QString abs(const QString& name) const { return folder.path() + u'/' + name; }
    QByteArray get(const QString& name) const
    {
        QFile f(abs(name));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    void put(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(abs(name)).path());
        QFile f(abs(name));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    bool isFolder(const QString& name) const { return QFileInfo(abs(name)).isDir(); }
    // Every entry below the folder, files and folders.
    QStringList tree() const
    {
        QStringList all;
        QDirIterator it(folder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            all << QDir(folder.path()).relativeFilePath(it.next());
        all.sort();
        return all;
    }
};

void type(QComboBox* box, const QString& text)
{
    box->setEditText(QString());
    QTest::keyClicks(box->lineEdit(), text);
}

} // namespace

class TestFirstRun : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void firstRunFromSplashToMenu();
    void secondInstanceTouchesNothing();
    void folderHeldByAnotherComputer();
    void auxFoldersComeBackAtStart();
    void continueGoesToTheMenuWhenFilesStand();
    void emptyCustomerFileIsOfferedBackFromBackup();
    void longTeamListIsRefusedBeforeAnyFolder();
    void damagedFileKeepsItsBackupThroughStartAndExit_data();
    void damagedFileKeepsItsBackupThroughStartAndExit();
    void closeBoxEndsTheProgram();
    void plannerQuestionOncePerRun();
    void deleteTeamOnTheScreen();
    void badSlipNumberReturnsToItsBox();
};

void TestFirstRun::firstRunFromSplashToMenu()
{
    Run run;
    auto app = run.start();
    QVERIFY(app->Main());
    VERIFY_DIALOGS(run.dialogs);

    // The folder tree stands.
    for (const char* f :
         {"2026", "TresvaneDispatcher", "TVActiveAccounts", "Backup", "Backup/TVActiveAccounts",
          "Backup/TVActiveAccountsBACK", "Backup/TresvaneDispatcher", "Templates",
          "Templates/Contracts", "AuxFiles"})
        QVERIFY2(run.isFolder(f), f);

    frmSplash* splash = app->splash;
    QVERIFY(splash && splash->isVisible());
    QVERIFY(!splash->fraWelcome->isVisible());
    QCOMPARE(splash->lblVersion->text().left(8), QString("Version "));
    QCOMPARE(splash->lblYear->text(), QString("2026"));

    // Continue on a first run: the welcome panel, never the menu.
    QTest::mouseClick(splash->cmdContinue, Qt::LeftButton);
    QVERIFY(splash->fraWelcome->isVisible());
    QCOMPARE(splash->lblWelcome->text(), QString("Welcome to Tresvane Dispatcher"));
    QVERIFY(!app->startup->isVisible());

    // The logo leads to setup.
    QTest::mouseClick(splash->Image1[1], Qt::LeftButton);
    frmSetup* setup = app->setup;
    QVERIFY(setup->isVisible());
    QCOMPARE(setup->tabSetup->currentIndex(), int(frmSetup::TabBusiness));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!app->splash);

    // The exit refuses, one message at a time.
    run.dialogs.expect("Your Telephone Number (structure) is invalid");
    QTest::mouseClick(setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(setup->isVisible());

    auto& boxes = setup->business->txtBusiness;
    QTest::keyClicks(boxes[0], "Acme Heating");
    QTest::keyClicks(boxes[1], "12 Main Street");
    QTest::keyClicks(boxes[3], "Springfield");
    QTest::keyClicks(boxes[4], "IL");
    QTest::keyClicks(boxes[5], "62701");
    QTest::keyClicks(boxes[6], "217-555-0142");

    run.dialogs.expect("You must create at least one assignment", "Files Missing");
    QTest::mouseClick(setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(setup->tabSetup->currentIndex(), int(frmSetup::TabAssignments));

    type(setup->assignments->cboAssignments, "Truck 1");
    QTest::mouseClick(setup->assignments->cmdSave, Qt::LeftButton);
    QCOMPARE(setup->assignments->cboAssignments->count(), 1);

    run.dialogs.expect("You must create at least one problem code", "Files Missing");
    QTest::mouseClick(setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(setup->tabSetup->currentIndex(), int(frmSetup::TabProblems));

    type(setup->problems->cboProblems, "No Heat");
    QTest::mouseClick(setup->problems->cmdSavePC, Qt::LeftButton);
    type(setup->problems->cboProblems, "Leak");
    QTest::mouseClick(setup->problems->cmdSavePC, Qt::LeftButton);

    QTest::mouseClick(setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);

    QCOMPARE(run.get("Assignto.txt"), QByteArray("\"Truck 1\"\r\n"));
    QCOMPARE(run.get("ProblemCode.txt"), QByteArray("\"No Heat\"\r\n\"Leak\"\r\n"));
    QCOMPARE(run.get("MyBusinessData.txt"),
             QByteArray("\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\",\"IL\","
                        "\"62701\",\"217-555-0142\",\"\",\"\"\r\n"));
    QCOMPARE(run.get("TresvaneDispatcherSettings.txt"),
             QByteArray("8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n"));
    // Program numbers: the counter of today, day 69.
    QCOMPARE(run.get("Counter.txt"), QByteArray("\"69\",1\r\n"));
    QCOMPARE(run.get("Phone.txt"), QByteArray("#FALSE#\r\n0\r\n"));
    QCOMPARE(run.get("CallID.txt"), QByteArray("#TRUE#\r\n"));
    QVERIFY(run.isFolder("2026/Team#1"));

    // The menu is up, setup is hidden.
    QVERIFY(!setup->isVisible());
    QVERIFY(app->startup && app->startup->isVisible());
    QCOMPARE(app->startup->windowTitle(), QString("Tresvane Dispatcher Sub Routine Menu"));
    // An entry whose screen is not built yet is closed and says why.
    for (int i = 0; i < kMenuEntries; ++i) {
        QPushButton* entry = app->startup->lblSub[i];
        if (app->EntryBuilt(i)) continue;
        QVERIFY(!entry->isEnabled());
        QVERIFY(!entry->toolTip().isEmpty());
    }
    // The customer screen opens the slip routine, on an empty customer file.
    QVERIFY(app->startup->lblSub[1]->isEnabled());
    run.dialogs
        .expect("Your Customer File is Empty\nCreate your First Customer Now", "Create Customers")
        .expectContaining("The Contract File can not be rebuilt")
        .expectContaining("The Cycle File can not be rebuilt");
    QTest::mouseClick(app->startup->lblSub[1], Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(app->customer && app->customer->isVisible());
    QCOMPARE(app->v.Mode, Mode::ServiceSlip);
    QVERIFY(!app->startup);
    app->ShowMenu();
    QVERIFY(!app->customer->isVisible());
    QVERIFY(app->startup->lblSub[MenuEntry::DailyWorkSchedules]->isEnabled());
    QVERIFY(app->startup->lblSub[MenuEntry::ServiceInvoices]->isEnabled());

    // Files | Exit ends the run.
    QSignalSpy finished(app.get(), &App::finished);
    app->startup->mnuExit->trigger();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), 0);
    QVERIFY(app->exited());
    VERIFY_DIALOGS(run.dialogs);
    // The exit leaves a copy of each data file of the inventory in Backup.
    for (const char* f : {"Assignto.txt", "MyBusinessData.txt", "ProblemCode.txt",
                          "TresvaneDispatcherSettings.txt", "Counter.txt"})
        QVERIFY(QFileInfo::exists(run.abs(QStringLiteral("Backup/") + f)) &&
                run.get(QStringLiteral("Backup/") + f) == run.get(f));
}

void TestFirstRun::secondInstanceTouchesNothing()
{
    Run run;
    auto first = run.start();
    // The first instance holds the folder's lock.
    FolderLock held(first->lockFilePath(), "TresvaneDispatcher");
    QCOMPARE(held.take(QDateTime(QDate(2026, 4, 30), QTime(8, 5))), FolderLock::Outcome::Taken);

    auto second = run.start();
    run.dialogs.expect("Tresvane Dispatcher is already Running!\nLook for it on the Task Bar\n\n"
                       "It was started by " +
                       FolderLock::userName() + " on 04/30/2026 8:05 AM.");
    QSignalSpy finished(second.get(), &App::finished);
    QVERIFY(!second->Main());
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(finished.size(), 1);
    QVERIFY(run.tree().isEmpty());
    QVERIFY(!second->splash);

    // Two Apps in one folder: the second is refused while the first runs.
    held.release();
    QVERIFY(first->Main());
    const QStringList before = run.tree();
    auto third = run.start();
    run.dialogs.expectContaining(
        "Tresvane Dispatcher is already Running!\nLook for it on the Task Bar");
    QVERIFY(!third->Main());
    QCOMPARE(run.tree(), before);
    VERIFY_DIALOGS(run.dialogs);
    // Once the first has ended, a start goes ahead.
    first->ExitProgram();
    auto fourth = run.start();
    QVERIFY(fourth->Main());
}

void TestFirstRun::folderHeldByAnotherComputer()
{
    Run run;
    auto app = run.start();
    const QString lock = app->lockFilePath();
    const QByteArray theirs = "program: TresvaneDispatcher\nhost: FRONTDESK\nuser: anna\n"
                              "pid: 4242\nsince: 2026-04-30T07:58:00\n";
    QVERIFY(QDir().mkpath(QFileInfo(lock).path()));
    auto writeLock = [&] {
        QFile f(lock);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(theirs);
    };
    writeLock();
    const QString question =
        "Tresvane Dispatcher is already Running!\nIt was started on the computer FRONTDESK by "
        "anna on 04/30/2026 7:58 AM.";
    // No: nothing is touched, the other computer keeps the folder.
    run.dialogs.expectContaining(question, Dialogs::Answer::No);
    QVERIFY(!app->Main());
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(run.tree().isEmpty());
    QFile f(lock);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), theirs);
    f.close();

    // Yes: this computer takes the folder over and starts.
    auto again = run.start();
    run.dialogs.expectContaining(question, Dialogs::Answer::Yes);
    QVERIFY(again->Main());
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QVERIFY(f.readAll().contains("host: " + FolderLock::hostName().toUtf8()));
}

void TestFirstRun::auxFoldersComeBackAtStart()
{
    Run run;
    // Two customers, their records written by hand: the account in the first 20 bytes.
    QByteArray data;
    for (const char* account : {"SMITH01", "JONES02"}) {
        QByteArray r = QByteArray(account).leftJustified(326, ' ');
        r += QByteArray(2, '\0');
        data += r;
    }
    run.put("CustomerData.txt", data);
    run.put("AuxFiles/SMITH01/AuxFile2/Data.txt", "note");
    {
        auto app = run.start();
        QVERIFY(app->Main());
        app->ExitProgram();
    }
    QVERIFY(QDir(run.abs("AuxFiles/JONES02/AuxFile1")).removeRecursively());
    auto app = run.start();
    QVERIFY(app->Main());
    // They are made behind the splash, not before it.
    QVERIFY(app->auxFoldersPending());
    QTRY_VERIFY(!app->auxFoldersPending());
    for (const char* account : {"SMITH01", "JONES02"})
        for (int i = 0; i < 6; ++i)
            QVERIFY(run.isFolder(QStringLiteral("AuxFiles/%1/AuxFile%2").arg(account).arg(i)));
    QCOMPARE(run.get("AuxFiles/SMITH01/AuxFile2/Data.txt"), QByteArray("note"));
}

static void layDownInstallation(Run& run)
{
    run.put("Assignto.txt", "\"North\"\r\n\"South\"\r\n\"East\"\r\n\"West\"\r\n");
    run.put("ProblemCode.txt", "\"No Heat\"\r\n");
    run.put("MyBusinessData.txt",
            "\"Acme\",\"1 Road\",\"\",\"Town\",\"IL\",\"60000\",\"555-0100\",\"\",\"\"\r\n");
    run.put("TresvaneDispatcherSettings.txt",
            "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
}

void TestFirstRun::continueGoesToTheMenuWhenFilesStand()
{
    Run run;
    layDownInstallation(run);
    // A lost file comes back from Backup on the way.
    QFile::rename(run.abs("ProblemCode.txt"), run.abs("Backup/ProblemCode.txt"));
    QDir().mkpath(run.abs("Backup"));
    run.put("Backup/ProblemCode.txt", "\"No Heat\"\r\n");
    QFile::remove(run.abs("ProblemCode.txt"));
    auto app = run.start();
    QVERIFY(app->Main());
    QCOMPARE(app->v.gAssignTo, (QStringList{"populated", "North", "South", "East", "West"}));
    QCOMPARE(app->setup->assignments->cboAssignments->count(), 4);
    QTest::mouseClick(app->splash->cmdContinue, Qt::LeftButton);
    QVERIFY(app->startup->isVisible());
    QVERIFY(!app->setup->isVisible());
    QCOMPARE(run.get("ProblemCode.txt"), QByteArray("\"No Heat\"\r\n"));

    // Files | Create/Modify goes to setup and the exit comes back to the menu.
    app->startup->mnuCreate->trigger();
    QVERIFY(!app->startup->isVisible());
    QVERIFY(app->setup->isVisible());
    QCOMPARE(app->setup->business->txtBusiness[0]->text(), QString("Acme"));
    QTest::mouseClick(app->setup->cmdQuit, Qt::LeftButton);
    QVERIFY(app->startup->isVisible());
    VERIFY_DIALOGS(run.dialogs);

    // Help writes the shortcut and opens the manual.
    app->startup->mnuHelp->trigger();
    QCOMPARE(run.desktop.opened.size(), 1);
    QVERIFY(run.get("Temp.url").startsWith("[InternetShortcut]\r\nURL = "));
    // A supplier page asks first; No opens nothing.
    run.dialogs.expect("30 to a Page Mailing Labels", "Order Paper", Dialogs::Answer::No);
    app->startup->mnuAddress->trigger();
    QCOMPARE(run.desktop.opened.size(), 1);
    VERIFY_DIALOGS(run.dialogs);

    // With no browser to start, the user is told rather than left waiting.
    run.desktop.browser = false;
    run.dialogs.expectContaining("No web browser could be started");
    app->startup->mnuHelp->trigger();
    QCOMPARE(run.desktop.opened.size(), 2);
    VERIFY_DIALOGS(run.dialogs);
}

void TestFirstRun::emptyCustomerFileIsOfferedBackFromBackup()
{
    Run run;
    layDownInstallation(run);
    QByteArray customers;
    for (int i = 0; i < 50; ++i)
        customers += QByteArray("ACCT" + QByteArray::number(i)).leftJustified(326, ' ') +
                     QByteArray(2, '\0');
    QCOMPARE(customers.size(), 16400);
    run.put("Backup/CustomerData.txt", customers);
    run.put("CustomerData.txt", {});
    run.dialogs.expectContaining("CustomerData.txt is empty, but its copy in Backup holds 50 "
                                 "records",
                                 Dialogs::Answer::Yes);
    {
        auto app = run.start();
        QVERIFY(app->Main());
        QTRY_VERIFY(!app->auxFoldersPending());
        app->ExitProgram();
    }
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(run.get("CustomerData.txt"), customers);
    QCOMPARE(run.get("Backup/CustomerData.txt"), customers);
    QVERIFY(run.isFolder("AuxFiles/ACCT49"));
}

void TestFirstRun::longTeamListIsRefusedBeforeAnyFolder()
{
    Run run;
    layDownInstallation(run);
    QByteArray teams;
    for (int i = 1; i <= 8000; ++i)
        teams += "\"Team " + QByteArray::number(i) + "\"\r\n";
    run.put("Assignto.txt", teams);
    const QStringList before = run.tree();
    run.dialogs.expectContaining("Assignto.txt is damaged: it holds 8,000 entries");
    QElapsedTimer timer;
    timer.start();
    auto app = run.start();
    QVERIFY(!app->Main());
    QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(run.tree(), before);
}

void TestFirstRun::damagedFileKeepsItsBackupThroughStartAndExit_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("good");
    QTest::addColumn<QByteArray>("damaged");

    QByteArray noise(3000, 0);
    for (int i = 0; i < noise.size(); ++i)
        noise[i] = char((i * 7919 + 13) % 251);
    const QByteArray slips(2 * 297, 's');
    QTest::newRow("odd-length slips") << "Slips.txt" << slips << slips.left(400);
    QTest::newRow("random meetings") << "Meetings.txt" << slips << noise;
    QTest::newRow("odd-length contracts")
        << "ContractInfo.txt" << QByteArray(386, 'k') << QByteArray(385, 'k');
    QTest::newRow("random stored slips") << "UnscheduledSlips.txt" << slips << noise;
    QTest::newRow("random teams") << "Assignto.txt" << QByteArray("\"North\"\r\n") << noise;
    QTest::newRow("random problems") << "ProblemCode.txt" << QByteArray("\"No Heat\"\r\n") << noise;
}

void TestFirstRun::damagedFileKeepsItsBackupThroughStartAndExit()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, good);
    QFETCH(QByteArray, damaged);
    Run run;
    layDownInstallation(run);
    run.put(file, damaged);
    run.put("Backup/" + file, good);
    // Told once, at start when the file stops it, else at the exit that keeps the copy.
    run.dialogs.expectContaining(file);
    {
        auto app = run.start();
        if (app->Main()) {
            QTRY_VERIFY(!app->auxFoldersPending());
            app->ExitProgram();
        }
    }
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(run.get("Backup/" + file), good);
}

void TestFirstRun::closeBoxEndsTheProgram()
{
    Run run;
    auto app = run.start();
    QVERIFY(app->Main());
    QSignalSpy finished(app.get(), &App::finished);
    app->splash->close();
    QCOMPARE(finished.size(), 1);
    QVERIFY(app->exited());
}

void TestFirstRun::plannerQuestionOncePerRun()
{
    Run run;
    layDownInstallation(run);
    run.put("TresvaneTermPlanner.exe", "MZ");
    auto app = run.start();
    QVERIFY(app->Main());
    const QString question = "Tresvaneworks's Term Planner Program has been Detected\n"
                             "Contract Events will be shown in Daily Time Slots\n"
                             "We recommend using Tresvane Term Planner to print Schedules\n"
                             "Click YES to Enable Schedule and Invoice printing anyway";
    run.dialogs.expect(question, "Print Warning", Dialogs::Answer::No);
    QTest::mouseClick(app->splash->cmdContinue, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(app->startup->Label1_12->isVisible());
    QVERIFY(!app->PrintEnabled);

    // Asked again at the next showing; after Yes, never again in this run.
    app->startup->hide();
    run.dialogs.expect(question, "Print Warning", Dialogs::Answer::Yes);
    app->startup->show();
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(app->PrintEnabled);
    QVERIFY(!app->startup->Label1_12->isVisible());
    app->startup->hide();
    app->startup->show();
    VERIFY_DIALOGS(run.dialogs);
}

void TestFirstRun::deleteTeamOnTheScreen()
{
    Run run;
    layDownInstallation(run);
    for (int t = 1; t <= 4; ++t)
        run.put(QStringLiteral("2026/Team#%1/100.txt").arg(t), QByteArray::number(t));
    auto app = run.start();
    QVERIFY(app->Main());
    app->ShowSetup();
    SetupAssignmentsTab* tab = app->setup->assignments;
    app->setup->tabSetup->setCurrentIndex(frmSetup::TabAssignments);
    tab->cboAssignments->setCurrentIndex(1);
    tab->cboAssignments_Click(1);
    QVERIFY(tab->cmdDelete->isEnabled());
    QTest::mouseClick(tab->cmdDelete, Qt::LeftButton);
    QCOMPARE(tab->entries(), (QStringList{"North", "East", "West"}));
    QCOMPARE(tab->DeletedTeam, qint16(2));
    QCOMPARE(run.get("2026/Team#2/100.txt"), QByteArray("3"));
    QCOMPARE(run.get("2026/Team#3/100.txt"), QByteArray("4"));
    QVERIFY(!run.isFolder("2026/Team#4"));
    VERIFY_DIALOGS(run.dialogs);
}

void TestFirstRun::badSlipNumberReturnsToItsBox()
{
    Run run;
    layDownInstallation(run);
    auto app = run.start();
    QVERIFY(app->Main());
    app->ShowSetup();
    SetupOperationsTab* ops = app->setup->operations;
    ops->ckSlipStyle->click(); // continuous numbers
    QVERIFY(!ops->fraSlipNo->isHidden());
    QCOMPARE(ops->txtNextSlip->text(), QString("1000"));
    ops->txtNextSlip->setText("12a");
    run.dialogs.expect("The Slip Number MUST be Numeric");
    QTest::mouseClick(app->setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(app->setup->isVisible());
    QCOMPARE(app->setup->tabSetup->currentIndex(), int(frmSetup::TabOperations));
    QCOMPARE(ops->tabSub->currentIndex(), 3);
    QVERIFY(ops->txtNextSlip->text().isEmpty());

    QTest::mouseClick(ops->cmdServiceSlip[1], Qt::LeftButton); // Reset: 1000
    QTest::mouseClick(app->setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(run.get("SlipNo.txt"), QByteArray("1000\r\n"));
    QVERIFY(app->startup->isVisible());
}

QTEST_MAIN(TestFirstRun)
#include "test_firstrun.moc"
