#include "app.h"

#include "customers/frmcustomer.h"

#include "frmsplash.h"
#include "history/frmcallback.h"
#include "history/frmhistory.h"
#include "frmstartup.h"
#include "schedule/dayfiles.h"
#include "setup/setupdata.h"
#include "store/backup.h"
#include "store/purge.h"
#include "screenframe.h"
#include "schedule/frmmain.h"
#include "setup/frmsetup.h"
#include "setup/setupassignmentstab.h"
#include "setup/setupproblemstab.h"
#include "sliprecords/frmcallrecord.h"
#include "shell/desktop.h"
#include "shell/dialogs.h"
#include "shell/startup.h"
#include "store/clock.h"
#include "store/numbering.h"
#include "store/settingsfiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>

App::App(const QString& programFolder, const Clock& clock, Dialogs& dialogs, Desktop& desktop,
         QObject* parent)
    : QObject(parent), store(programFolder), ctx{store, clock, dialogs, v}, m_clock(clock),
      m_dialogs(dialogs), m_desktop(desktop), m_lockFolder(QDir::tempPath())
{
}

App::~App()
{
    for (const QPointer<QWidget>& screen : m_working)
        delete screen.data();
    delete startup.data();
    delete splash.data();
    delete setup;
}

QString App::lockFilePath() const
{
    // One lock per program folder, named after the folder's path.
    const QByteArray key = QDir(store.root()).canonicalPath().toUtf8();
    const QString hash =
        QString::fromLatin1(QCryptographicHash::hash(key, QCryptographicHash::Sha1).toHex().left(16));
    return m_lockFolder + u'/' + ExecutableBaseName() + u'-' + hash + QStringLiteral(".lock");
}

bool App::CheckPrevInstance()
{
    m_lock = std::make_unique<QLockFile>(lockFilePath());
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock(0))
        return true;
    m_lock.reset();
    m_dialogs.message(ApplicationTitle() + QStringLiteral(" is already Running!\n"
                                                          "Look for it on the Task Bar"));
    return false;
}

bool App::Fatal(const Status& s)
{
    if (s)
        return false;
    // A damaged or unusable file: told once, and the program ends without the exit
    // backup, so the good copy in Backup is not overwritten.
    m_dialogs.message(s.message(), {}, Dialogs::Buttons::Ok, Dialogs::Icon::Critical);
    m_exited = true;
    emit finished(1);
    return true;
}

bool App::Main()
{
    // 1. One instance per program folder; a second one ends before touching anything.
    if (!CheckPrevInstance()) {
        m_exited = true;
        emit finished(1);
        return false;
    }
    // 2. The folder tree.
    if (Fatal(BuildFolders(ctx)))
        return false;
    // 3. Today, the hour labels and the business data.
    if (Fatal(InitStartupData(ctx)))
        return false;
    // 4. The setup screen, hidden, with its load sequence.
    setup = new frmSetup(ctx);
    ScreenFrame::attach(setup, ExecutableBaseName(), [this] { closeBox(); });
    connect(setup, &frmSetup::showMenu, this, &App::ShowMenu);
    if (Fatal(setup->Form_Load(m_detectedModemPort)))
        return false;
    // 5. The splash, on screen at once.
    CreateSplash();
    splash->show();
    splash->repaint();
    // 6. The menu, hidden.
    CreateStartup();
    // 7. The rest of the data behind the forms.
    if (Fatal(LoadAllData()))
        return false;
    return true;
}

Status App::LoadAllData()
{
    if (Status s = LoadSettings(ctx); !s)
        return s;
    setup->showSettings();
    if (Status s = LoadAssignments(ctx); !s)
        return s;
    if (v.gAssignTo.value(0) != u"empty")
        setup->assignments->FillAssignmentLists();
    if (Status s = LoadProblems(ctx); !s)
        return s;
    setup->problems->LoadProblems();
    if (Status s = PrepareYears(ctx); !s)
        return s;
    if (Status s = PurgeDayFiles(ctx); !s)
        return s;
    if (v.settings.ckSlipStyle == 1)
        if (Status s = LoadCounter(ctx); !s)
            return s;
    return {};
}

void App::CreateSplash()
{
    splash = new frmSplash(ctx);
    ScreenFrame::attach(splash, ExecutableBaseName() + QStringLiteral("Splash"),
                        [this] { closeBox(); });
    connect(splash, &frmSplash::showMenu, this, &App::ShowMenu);
    connect(splash, &frmSplash::showSetup, this, &App::ShowSetup);
}

void App::CreateStartup()
{
    startup = new frmStartup(ctx, PrintEnabled, [this](int i) { return EntryBuilt(i); });
    ScreenFrame::attach(startup, ExecutableBaseName(), [this] { closeBox(); });
    connect(startup, &frmStartup::createModify, this, &App::ShowSetup);
    connect(startup, &frmStartup::exitProgram, this, &App::ExitProgram);
    connect(startup, &frmStartup::openWebPage, this, &App::OpenWebPage);
    connect(startup, &frmStartup::entryChosen, this, &App::OpenEntry);
}

bool App::EntryBuilt(int index) const
{
    switch (index) {
    case MenuEntry::Reschedule:
    case MenuEntry::CreateServiceSlip:
    case MenuEntry::CustomerMeeting:
    case MenuEntry::ServiceContract:
    case MenuEntry::WorkOrder:
    case MenuEntry::DailyWorkSchedules:
    case MenuEntry::ServiceInvoices:
    case MenuEntry::StoredSlips:
    case MenuEntry::PlaceReminderCalls:
    case MenuEntry::ServiceHistory:
        return true;
    default:
        return false;
    }
}

void App::OpenEntry(int index)
{
    if (!EntryBuilt(index))
        return;
    switch (index) {
    case MenuEntry::Reschedule:
        if (!callRecord) {
            callRecord = new frmCallRecord(ctx);
            Adopt(callRecord);
            connect(callRecord, &frmCallRecord::showMenu, this, &App::ShowMenu);
            // The Scheduling Screen takes the slip over in Mode 10.
            connect(callRecord, &frmCallRecord::rescheduleChosen, this,
                    [this] { ShowMainForReschedule(v.gRescheduleSearchFor == 1); });
        }
        v.Mode = qint16(index + 1);
        Bring(callRecord.data());
        break;
    case MenuEntry::CreateServiceSlip:
    case MenuEntry::CustomerMeeting:
    case MenuEntry::ServiceContract:
    case MenuEntry::WorkOrder:
        OpenCustomer(index);
        break;
    case MenuEntry::DailyWorkSchedules:
    case MenuEntry::ServiceInvoices:
    case MenuEntry::StoredSlips: {
        // The stored slips have no screen of their own: the Scheduling Screen lists them.
        frmMain* screen = MainForm();
        v.Mode = qint16(index + 1);
        Bring(screen);
        break;
    }
    case MenuEntry::PlaceReminderCalls:
        if (!callBack) {
            callBack = new frmCallBack(ctx);
            Adopt(callBack);
            connect(callBack, &frmCallBack::showMenu, this, &App::ShowMenu);
        }
        v.Mode = qint16(index + 1);
        Bring(callBack.data());
        break;
    case MenuEntry::ServiceHistory:
        MakeHistory();
        history->History = false;
        history->setWindowModality(Qt::NonModal);
        v.Mode = qint16(index + 1);
        Bring(history.data());
        break;
    default:
        break;
    }
}

void App::OpenCustomer(int index)
{
    if (!customer) {
        customer = new frmCustomer(ctx);
        Adopt(customer);
        connect(customer, &frmCustomer::showMenu, this, &App::ShowMenu);
        connect(customer, &frmCustomer::customerSelected, this, &App::CustomerSelected);
        connect(customer, &frmCustomer::showHistory, this, &App::ShowHistoryForCustomer);
    }
    v.Mode = qint16(index + 1);
    Bring(customer.data());
}

void App::CustomerSelected()
{
    // The customer is the first step; the routine goes on by Mode. Recurring events,
    // contracts and work orders have no screen in this program yet: the user is told,
    // and stays with the customer saved.
    switch (v.Mode) {
    case 2:
    case 7:
        ShowMainForCustomer();
        break;
    default:
        m_dialogs.message(QStringLiteral("This routine is not available yet"));
        break;
    }
}

frmMain* App::MainForm()
{
    if (!mainForm) {
        mainForm = new frmMain(ctx, m_desktop);
        Adopt(mainForm);
        connect(mainForm, &frmMain::showMenu, this, &App::ShowMenu);
        connect(mainForm, &frmMain::problemCodesChanged, this, [this] {
            if (setup)
                setup->problems->LoadProblems();
        });
    }
    return mainForm;
}

void App::ShowMainForCustomer()
{
    Bring(MainForm());
}

void App::ShowMainForReschedule(bool meetings)
{
    frmMain* screen = MainForm();
    screen->rescheduleMeeting = meetings;
    v.Mode = 10;
    Bring(screen);
}

frmHistory* App::MakeHistory()
{
    if (!history) {
        history = new frmHistory(ctx);
        Adopt(history);
        connect(history, &frmHistory::showMenu, this, &App::ShowMenu);
        connect(history, &frmHistory::returnToCustomer, history, &QWidget::hide);
    }
    return history;
}

void App::ShowHistoryForCustomer(const QString& account)
{
    // Over the customer screen, which stays where it is: the return only hides this one.
    MakeHistory();
    history->SetAccount(account);
    history->setWindowModality(Qt::ApplicationModal);
    history->show();
    history->raise();
    history->activateWindow();
    history->Form_Activate();
}

void App::Adopt(QWidget* screen)
{
    ScreenFrame::attach(screen, ExecutableBaseName(), [this] { closeBox(); });
    m_working.append(screen);
}

void App::LeaveMenu()
{
    // The menu is made anew on the way back, so its rules run against fresh data.
    if (startup) {
        startup->hide();
        startup->deleteLater();
        startup = nullptr;
    }
    if (splash)
        splash->deleteLater();
}

void App::HideWorkingScreens(QWidget* except)
{
    for (const QPointer<QWidget>& screen : m_working)
        if (screen && screen != except)
            screen->hide();
    if (setup && setup != except)
        setup->hide();
}

template <class Screen>
void App::Bring(Screen* screen)
{
    HideWorkingScreens(screen);
    LeaveMenu();
    screen->show();
    screen->raise();
    screen->activateWindow();
    screen->Form_Activate();
}

void App::ShowSetup()
{
    if (splash)
        splash->deleteLater();
    if (startup)
        startup->hide();
    setup->show();
    setup->raise();
    setup->activateWindow();
}

void App::ShowMenu()
{
    if (splash)
        splash->deleteLater();
    HideWorkingScreens(nullptr);
    if (!startup)
        CreateStartup();
    startup->show();
    startup->raise();
    startup->activateWindow();
}

void App::closeBox() { ExitProgram(); }

void App::ExitProgram()
{
    if (m_exited)
        return;
    m_exited = true;
    if (Status s = SetBackupPaths(ctx); !s)
        m_dialogs.message(s.message());
    // Every screen goes, the last made first. They are deleted once control has left the
    // handler that brought us here, which may belong to one of them.
    QList<QWidget*> screens{startup.data(), splash.data(), setup};
    for (const QPointer<QWidget>& screen : m_working)
        screens.append(screen.data());
    for (QWidget* screen : screens) {
        if (!screen)
            continue;
        screen->hide();
        screen->deleteLater();
    }
    setup = nullptr;
    m_working.clear();
    m_lock.reset();
    emit finished(0);
}

void App::OpenWebPage(const QString& url)
{
    Result<QString> shortcut = WriteInternetShortcut(store, url);
    if (!shortcut) {
        m_dialogs.message(shortcut.message());
        return;
    }
    // Without a browser the click would otherwise do nothing the user can see.
    if (!m_desktop.openUrl(url))
        m_dialogs.message(QStringLiteral("No web browser could be started to show") + u'\n' + url);
}
