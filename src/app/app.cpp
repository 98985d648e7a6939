#include "app/app.h"

#include "app/calendarautoexport.h"

#include "screens/calendar/frmblock.h"
#include "screens/calendar/frmdisplay.h"
#include "screens/calendar/frmreccuringevents.h"
#include "screens/calendar/frmslip.h"
#include "screens/customers/frmcustomer.h"
#include "screens/documents/frmcontract.h"
#include "screens/documents/frmworkorder.h"

#include "core/exports/crewcalendars.h"
#include "core/exports/exportsettings.h"
#include "core/housekeeping/backup.h"
#include "core/housekeeping/datafilecheck.h"
#include "core/housekeeping/purge.h"
#include "core/ports/clock.h"
#include "core/ports/desktop.h"
#include "core/ports/dialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/numbering.h"
#include "core/session/startup.h"
#include "core/setup/settingsfiles.h"
#include "core/setup/setupdata.h"
#include "screens/documents/printdialogs.h"
#include "screens/history/frmcallback.h"
#include "screens/history/frmhistory.h"
#include "screens/schedule/dayviewframe.h"
#include "screens/schedule/frmmain.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupassignmentstab.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/setup/setupproblemstab.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/shell/unsavededits.h"
#include "screens/shell/waitcursor.h"
#include "screens/sliprecords/frmcallrecord.h"
#include "screens/telephony/frmcallid.h"
#include "screens/telephony/frmdialer.h"
#include "screens/telephony/modemsettings.h"
#include "screens/telephony/qtseriallink.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace tresvane
{
App::App(const QString& programFolder, const Clock& clock, Dialogs& dialogs, Desktop& desktop,
         QObject* parent)
    : QObject(parent), store(programFolder), ctx{store, clock, dialogs, v}, m_clock(clock),
      m_dialogs(dialogs), m_desktop(desktop), m_link(std::make_unique<QtSerialLink>()),
      m_qtPrint(std::make_unique<QtPrintDialogs>()), m_print(m_qtPrint.get())
{
}

App::~App()
{
    delete m_probe;
    delete dialer.data();
    for (const QPointer<QWidget>& screen : m_working)
        delete screen.data();
    delete startup.data();
    delete splash.data();
    delete setup;
}

QString App::lockFilePath() const
{
    // The lock lives in the program folder, so that a second computer opening the same
    // shared folder finds it; whatever name the program runs under, the folder's data
    // files are the same ones. Tests may keep it elsewhere, named after the folder.
    if (m_lockFolder.isEmpty()) return store.root() + QStringLiteral("/TresvaneDispatcher.lock");
    const QByteArray key = QDir(store.root()).canonicalPath().toUtf8();
    const QString hash = QString::fromLatin1(
        QCryptographicHash::hash(key, QCryptographicHash::Sha1).toHex().left(16));
    return m_lockFolder + u'/' + store.baseName() + u'-' + hash + QStringLiteral(".lock");
}

bool App::CheckPrevInstance()
{
    m_lock = std::make_unique<FolderLock>(lockFilePath(), store.baseName());
    FolderLock::Outcome outcome = m_lock->take(m_clock.now());
    if (outcome == FolderLock::Outcome::HeldElsewhere) {
        // The other computer may be switched off with the program never ended: the user
        // may take the folder over, knowing what it means.
        if (m_dialogs.message(HeldElsewhereMessage(m_lock->holder()), {}, Dialogs::Buttons::YesNo,
                              Dialogs::Icon::Exclamation) == Dialogs::Answer::Yes)
            outcome = m_lock->takeOver(m_clock.now());
        else {
            m_lock.reset();
            return false;
        }
    }
    switch (outcome) {
    case FolderLock::Outcome::Taken:
        return true;
    case FolderLock::Outcome::HeldHere:
        m_dialogs.message(HeldHereMessage(m_lock->holder()));
        break;
    default:
        m_dialogs.message(m_lock->error(), {}, Dialogs::Buttons::Ok, Dialogs::Icon::Critical);
        break;
    }
    m_lock.reset();
    return false;
}

QString App::HeldHereMessage(const FolderLock::Holder& h)
{
    return ApplicationTitle() +
           QStringLiteral(" is already Running!\nLook for it on the Task Bar\n\n"
                          "It was started by %1 on %2.")
               .arg(h.user, h.since.toString(QStringLiteral("MM/dd/yyyy h:mm AP")));
}

QString App::HeldElsewhereMessage(const FolderLock::Holder& h)
{
    const QString who =
        h.readable
            ? QStringLiteral("It was started on the computer %1 by %2 on %3.")
                  .arg(h.host, h.user, h.since.toString(QStringLiteral("MM/dd/yyyy h:mm AP")))
            : QStringLiteral("Its lock file cannot be read.");
    return ApplicationTitle() +
           QStringLiteral(" is already Running!\n%1\n\n"
                          "If the program on that computer has ended without closing (the "
                          "computer may be switched off), this computer can take the folder "
                          "over. Never do so while it still runs there: both would write the "
                          "same files.\n\nTake the folder over?")
               .arg(who);
}

bool App::Fatal(const Status& s)
{
    if (s) return false;
    // A damaged or unusable file: told once, and the program ends without the exit
    // backup, so the good copy in Backup is not overwritten.
    m_dialogs.message(s.message(), {}, Dialogs::Buttons::Ok, Dialogs::Icon::Critical);
    m_exited = true;
    emit finished(1);
    return true;
}

bool App::Main()
{
    // 0. A folder the program cannot work in is told before anything is made in it.
    if (Status s = CheckProgramFolder(store); !s) {
        m_dialogs.message(s.message(), {}, Dialogs::Buttons::Ok, Dialogs::Icon::Critical);
        m_exited = true;
        emit finished(1);
        return false;
    }
    // 1. One instance per program folder; a second one ends before touching anything.
    if (!CheckPrevInstance()) {
        m_exited = true;
        emit finished(1);
        return false;
    }
    // A change to several files that a crash cut short is finished or dropped before any
    // file is read, with the temporary files of interrupted saves.
    if (Fatal(store.RecoverInterruptedChange())) return false;
    // A data file found empty while Backup holds its records is offered back before
    // anything reads it, and before an exit could copy the empty file over the good copy.
    if (Fatal(OfferRestoreOfEmptyFiles(ctx))) return false;
    // Every team in Assignto.txt gets folders: a damaged list is told before one is made.
    if (Fatal(CheckDataFile(store, QStringLiteral("/Assignto.txt")))) return false;
    // 2. The folder tree. The customers' aux folders are read up now, so a damaged
    // customer file is told at once, and made behind the forms.
    if (Fatal(BuildFolders(ctx))) return false;
    m_auxRepair = std::make_unique<AuxFolderRepair>(store);
    if (Fatal(m_auxRepair->prepare())) return false;
    // 3. Today, the hour labels and the business data.
    if (Fatal(InitStartupData(ctx))) return false;
    // 4. The setup screen, hidden, with its load sequence.
    setup = new frmSetup(ctx, *m_print);
    ScreenFrame::attach(setup, store.baseName(), [this] { closeBox(setup); });
    connect(setup, &frmSetup::showMenu, this, &App::ShowMenu);
    // Leaving setup searches again when there is no modem yet: the user may have named its
    // device. An open port is the modem in use and is left alone.
    connect(setup, &frmSetup::showMenu, this, [this] {
        if (!m_link->isOpen()) DetectModem();
    });
    if (Fatal(setup->Form_Load(0))) return false;
    // Until the modem has answered, nothing offers to dial.
    ShowPhoneFeatures(false);
    // 5. The splash, on screen at once.
    CreateSplash();
    splash->show();
    splash->repaint();
    // 6. The menu, hidden.
    CreateStartup();
    // 7. The rest of the data behind the forms.
    if (Fatal(LoadAllData())) return false;
    // 8. The aux folders, a few milliseconds per turn of the event loop.
    RepairAuxFoldersInSlices();
    // 9. The modem, searched for behind the splash.
    dialer = new frmDialer(ctx, *m_link);
    DetectModem();
    // 10. The crews' calendars, when the setup keeps them current.
    m_calendars = std::make_unique<CalendarAutoExport>(store.root(), m_clock);
    connect(m_calendars.get(), &CalendarAutoExport::exported, this,
            [](const CalendarExportReport& report, const QString& problem) {
                // Behind the screens: a failure is logged, and the next change tries again.
                if (!problem.isEmpty()) qWarning("crew calendars: %s", qPrintable(problem));
                for (const QString& p : report.problems)
                    qWarning("crew calendars: %s", qPrintable(p));
            });
    m_calendars->start(1500, [this] { return v.gAssignTo; });
    return true;
}

void App::ExportCalendars()
{
    if (m_calendars) m_calendars->waitForDone();
    Result<CalendarExportReport> report = [&] {
        WaitCursor wait;
        return ExportCrewCalendars(ctx, {});
    }();
    if (!report) {
        m_dialogs.message(report.message(), QStringLiteral("Crew Calendars"));
        return;
    }
    m_dialogs.message(CalendarExportMessage(*report, store.path(CrewCalendarsFolder())),
                      QStringLiteral("Crew Calendars"));
}

void App::RepairAuxFoldersInSlices()
{
    auto* timer = new QTimer(this);
    timer->setInterval(0);
    connect(timer, &QTimer::timeout, this, [this, timer] {
        Result<bool> done = m_auxRepair && !m_exited ? m_auxRepair->run(8) : Result<bool>(true);
        if (done && !*done) return;
        timer->stop();
        timer->deleteLater();
        m_auxRepair.reset();
        // A folder that cannot be made costs only that account's notes; the user is told.
        if (!done) m_dialogs.message(done.message());
    });
    timer->start();
}

bool App::auxFoldersPending() const
{
    return m_auxRepair != nullptr;
}

Status App::LoadAllData()
{
    if (Status s = LoadSettings(ctx); !s) return s;
    setup->showSettings();
    if (Status s = LoadAssignments(ctx); !s) return s;
    if (v.gAssignTo.value(0) != u"empty") setup->assignments->FillAssignmentLists();
    if (Status s = LoadProblems(ctx); !s) return s;
    setup->problems->LoadProblems();
    if (Status s = PrepareYears(ctx); !s) return s;
    if (Status s = PurgeDayFiles(ctx); !s) return s;
    if (v.settings.ckSlipStyle == 1)
        if (Status s = LoadCounter(ctx); !s) return s;
    return {};
}

void App::CreateSplash()
{
    splash = new frmSplash(ctx);
    ScreenFrame::attach(splash, store.baseName() + QStringLiteral("Splash"),
                        [this] { closeBox(splash); });
    connect(splash, &frmSplash::showMenu, this, &App::ShowMenu);
    connect(splash, &frmSplash::showSetup, this, &App::ShowSetup);
}

void App::CreateStartup()
{
    startup = new frmStartup(ctx, PrintEnabled, [this](int i) { return EntryBuilt(i); });
    ScreenFrame::attach(startup, store.baseName(), [this] { closeBox(startup); });
    connect(startup, &frmStartup::createModify, this, &App::ShowSetup);
    connect(startup, &frmStartup::exportCalendars, this, &App::ExportCalendars);
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
    case MenuEntry::UnattendedMonitoring:
    case MenuEntry::RecurringEvents:
    case MenuEntry::VacationAndHoliday:
    case MenuEntry::DisplaySchedules:
        return true;
    default:
        return false;
    }
}

void App::OpenEntry(int index)
{
    if (!EntryBuilt(index)) return;
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
        v.Mode = ModeOfEntry(index);
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
        v.Mode = ModeOfEntry(index);
        Bring(screen);
        break;
    }
    case MenuEntry::PlaceReminderCalls:
        if (!callBack) {
            callBack = new frmCallBack(ctx);
            Adopt(callBack);
            connect(callBack, &frmCallBack::showMenu, this, &App::ShowMenu);
            connect(callBack, &frmCallBack::callCustomer, this,
                    [this](const QString& tel, const QString& name) { ShowDialer(name, tel); });
        }
        v.Mode = ModeOfEntry(index);
        Bring(callBack.data());
        break;
    case MenuEntry::UnattendedMonitoring:
        if (!callId) {
            callId = new frmCallID(ctx, *m_link);
            Adopt(callId);
            connect(callId, &frmCallID::showMenu, this, &App::ShowMenu);
            connect(callId, &frmCallID::dialRequested, this, &App::ShowDialer);
            // The dialer had the port; the monitor takes it back when the dialer goes.
            connect(dialer, &frmDialer::hidden, callId, [this] {
                if (callId && callId->isVisible()) callId->Form_Activate();
            });
        }
        if (!m_link->isOpen()) m_link->setDevice(ModemDevice(v.gModemPort));
        v.Mode = ModeOfEntry(index);
        Bring(callId.data());
        break;
    case MenuEntry::RecurringEvents: {
        frmReccuringEvents* screen = RecurringEvents();
        screen->StartWithoutCustomer();
        v.Mode = ModeOfEntry(index);
        Bring(screen);
        break;
    }
    case MenuEntry::VacationAndHoliday:
        if (!block) {
            block = new frmBlock(ctx);
            Adopt(block);
            connect(block, &frmBlock::showMenu, this, &App::ShowMenu);
        }
        v.Mode = ModeOfEntry(index);
        Bring(block.data());
        break;
    case MenuEntry::DisplaySchedules:
        if (!display) {
            display = new frmDisplay(ctx);
            Adopt(display);
            connect(display, &frmDisplay::showMenu, this, &App::ShowMenu);
            connect(display, &frmDisplay::exitProgram, this, &App::ExitProgram);
            connect(display->popup(), &frmSlip::dialRequested, this, &App::ShowDialer);
        }
        // A slip is called from its popup where a telephone hangs behind a modem found.
        display->popup()->setDialAvailable(m_phoneFeatures && v.gPhoneChained);
        v.Mode = ModeOfEntry(index);
        Bring(display.data());
        break;
    case MenuEntry::ServiceHistory:
        MakeHistory();
        history->History = false;
        history->setWindowModality(Qt::NonModal);
        v.Mode = ModeOfEntry(index);
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
        connect(customer, &frmCustomer::dialRequested, this, &App::ShowDialer);
        ShowPhoneFeatures(m_phoneFeatures);
    }
    v.Mode = ModeOfEntry(index);
    Bring(customer.data());
}

void App::CustomerSelected()
{
    // The customer is the first step; the routine goes on where AfterCustomerSelect says.
    switch (AfterCustomerSelect(v.Mode)) {
    case AfterCustomer::SchedulingScreen:
        ShowMainForCustomer();
        break;
    case AfterCustomer::Contract:
        ShowContractForCustomer();
        break;
    case AfterCustomer::WorkOrder:
        ShowWorkOrderForCustomer();
        break;
    case AfterCustomer::RecurringEvents:
        Bring(RecurringEvents());
        break;
    case AfterCustomer::Nowhere:
        break;
    }
}

void App::ShowContractForCustomer()
{
    Bring(ContractForm());
}

void App::ShowWorkOrderForCustomer()
{
    Bring(WorkOrderForm());
}

frmContract* App::ContractForm()
{
    if (!contract) {
        contract = new frmContract(ctx, m_desktop);
        Adopt(contract);
        connect(contract, &frmContract::showMenu, this, &App::ShowMenu);
    }
    return contract;
}

frmWorkOrder* App::WorkOrderForm()
{
    if (!workOrder) {
        workOrder = new frmWorkOrder(ctx, *m_print);
        Adopt(workOrder);
        connect(workOrder, &frmWorkOrder::showMenu, this, &App::ShowMenu);
    }
    return workOrder;
}

frmReccuringEvents* App::RecurringEvents()
{
    if (!recurring) {
        recurring = new frmReccuringEvents(ctx);
        Adopt(recurring);
        connect(recurring, &frmReccuringEvents::showMenu, this, &App::ShowMenu);
        connect(recurring, &frmReccuringEvents::customerWanted, this,
                [this] { OpenCustomer(MenuEntry::RecurringEvents); });
    }
    return recurring;
}

frmMain* App::MainForm()
{
    if (!mainForm) {
        mainForm = new frmMain(ctx, m_desktop, *m_print);
        Adopt(mainForm);
        connect(mainForm, &frmMain::showMenu, this, &App::ShowMenu);
        // An hour label with a telephone behind it dials that customer, named by the hour's
        // hover text, when a telephone is chained behind the modem.
        connect(mainForm->fraDay, &DayViewFrame::dialRequested, this, [this](int slot) {
            if (!v.gPhoneChained || !mainForm) return;
            ShowDialer(mainForm->fraDay->txtHourSlot[slot]->toolTip(),
                       mainForm->fraDay->Label2[slot]->toolTip());
        });
        connect(mainForm, &frmMain::problemCodesChanged, this, [this] {
            if (setup) setup->problems->LoadProblems();
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
    v.Mode = Mode::Reschedule;
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

QString App::ModemDevice(int port) const
{
    if (m_modemDevices) return m_modemDevices(port);
    return ModemDeviceForPort(port, ConfiguredModemDevice(store.baseName()));
}

bool App::modemSearchRunning() const
{
    return m_probe && m_probe->running();
}

void App::DetectModem()
{
    if (modemSearchRunning() || m_exited) return;
    if (!m_probe) {
        m_probe = new ModemProbe(
            *m_link, [this](int port) { return ModemDevice(port); }, this);
        connect(m_probe, &ModemProbe::finished, this, &App::ModemFound);
    }
    m_probe->start();
}

void App::ModemFound(qint16 port)
{
    if (m_exited) return;
    const bool found = port != 0;
    m_detectedModemPort = port;
    // A port kept in Phone.txt is the one the program goes on with; the line stays on the
    // device that answered.
    if (found && !store.FileExists(QStringLiteral("/Phone.txt"))) v.gModemPort = port;
    const QString text = ModemPortText(port, found);
    if (dialer) {
        dialer->Text1->setText(text);
        dialer->Label2_3->setText(ComPortCaption(found ? port : v.gModemPort));
    }
    if (setup) setup->ShowModem(found ? port : v.gModemPort, found, text);
    if (found) {
        m_link->setDevice(ModemDevice(port));
        if (!SwitchCallerIdOn(*m_link)) {
            ShowPhoneFeatures(false);
            return;
        }
    }
    ShowPhoneFeatures(found);
}

void App::ShowPhoneFeatures(bool shown)
{
    m_phoneFeatures = shown;
    if (customer) customer->imgDialer->setVisible(shown);
    if (setup) setup->operations->setPhoneFeatures(shown);
    if (display) display->popup()->setDialAvailable(shown && v.gPhoneChained);
}

void App::ShowDialer(const QString& name, const QString& number)
{
    if (!dialer) return;
    // While the search runs the line is on a device being tried, not yet the modem's.
    if (modemSearchRunning()) {
        m_dialogs.message(QStringLiteral("The modem is still being looked for. Please try "
                                         "again in a moment."));
        return;
    }
    // A port closed since the search is opened again on the port of the setup screen.
    if (!m_link->isOpen()) m_link->setDevice(ModemDevice(v.gModemPort));
    dialer->SetRecipient(name, number);
    dialer->setWindowModality(Qt::ApplicationModal);
    dialer->show();
    dialer->raise();
    dialer->activateWindow();
    dialer->Form_Activate();
}

void App::Adopt(QWidget* screen)
{
    ScreenFrame::attach(screen, store.baseName(), [this, screen] { closeBox(screen); });
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
    if (splash) splash->deleteLater();
}

void App::HideWorkingScreens(QWidget* except)
{
    for (const QPointer<QWidget>& screen : m_working)
        if (screen && screen != except) screen->hide();
    if (setup && setup != except) setup->hide();
}

template <class Screen> void App::Bring(Screen* screen)
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
    if (splash) splash->deleteLater();
    if (startup) startup->hide();
    setup->show();
    setup->raise();
    setup->activateWindow();
}

void App::ShowMenu()
{
    if (splash) splash->deleteLater();
    HideWorkingScreens(nullptr);
    if (!startup) CreateStartup();
    startup->show();
    startup->raise();
    startup->activateWindow();
}

void App::closeBox(QWidget* screen)
{
    // The screen closed first, then any other on show: the history of an account, for
    // one, stands over the customer screen and its edits.
    QList<QWidget*> screens{screen};
    if (setup != screen) screens.append(setup);
    for (const QPointer<QWidget>& working : m_working)
        if (working && !screens.contains(working.data())) screens.append(working.data());
    for (QWidget* candidate : screens) {
        auto* edits = dynamic_cast<UnsavedEdits*>(candidate);
        if (!edits || !edits->hasUnsavedEdits()) continue;
        const Dialogs::Answer answer = m_dialogs.message(
            QStringLiteral("Save your changes before the program closes?"),
            QStringLiteral("Save Changes"), Dialogs::Buttons::YesNoCancel, Dialogs::Icon::Question);
        if (answer == Dialogs::Answer::Cancel) return;
        if (answer == Dialogs::Answer::Yes && !edits->saveUnsavedEdits()) return;
    }
    ExitProgram();
}

void App::ExitProgram()
{
    if (m_exited) return;
    m_exited = true;
    if (Status s = SetBackupPaths(ctx); !s) m_dialogs.message(s.message());
    // Every screen goes, the last made first. They are deleted once control has left the
    // handler that brought us here, which may belong to one of them.
    if (m_probe) m_probe->disconnect(this);
    m_link->close();
    QList<QWidget*> screens{startup.data(), splash.data(), setup, dialer.data()};
    for (const QPointer<QWidget>& screen : m_working)
        screens.append(screen.data());
    for (QWidget* screen : screens) {
        if (!screen) continue;
        screen->hide();
        screen->deleteLater();
    }
    setup = nullptr;
    m_working.clear();
    // A calendar being written is finished before the folder is let go.
    m_calendars.reset();
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
} // namespace tresvane
