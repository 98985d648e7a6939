#pragma once

#include "core/io/folderlock.h"
#include "core/io/store.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "core/telephony/modemprobe.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <memory>

namespace tresvane
{
class AuxFolderRepair;
class CalendarAutoExport;
class Clock;
class Desktop;
class PrintDialogs;
class Dialogs;
class frmBlock;
class frmCallRecord;
class frmContract;
class frmCustomer;
class frmDialer;
class frmDisplay;
class frmReccuringEvents;
class SerialLink;
class frmMain;
class frmWorkOrder;
class frmCallBack;
class frmCallID;
class frmHistory;
class frmSetup;
class frmSplash;
class frmStartup;

// The program: it owns the store, the shared state and every screen, runs the start-up
// sequence and is the one way out. The program folder, the clock, the user's dialogs and
// the desktop come from outside, so that a test can start the program in a temporary
// folder on a fixed day with a scripted user.
class App : public QObject
{
    Q_OBJECT
public:
    App(const QString& programFolder, const Clock& clock, Dialogs& dialogs, Desktop& desktop,
        QObject* parent = nullptr);
    ~App() override;

    // The start-up sequence, leaving the splash on screen. False when the program must
    // end at once: another instance holds the folder (told to the user; nothing touched)
    // or a data file could not be used (told to the user; no backup is made).
    bool Main();
    // The orderly way out: the backup, every screen closed, finished() emitted.
    void ExitProgram();
    // Shows a web page in the system's browser by way of Temp.url.
    void OpenWebPage(const QString& url);

    void ShowSetup();
    void ShowMenu();
    // "Export Crew Calendars" of the menu: every team's calendar into Exports/Calendars now,
    // and the user told where they are.
    void ExportCalendars();
    // The calendars kept current after every change, when the setup asks for it.
    CalendarAutoExport& calendarAutoExport() { return *m_calendars; }

    // A click on an open menu entry: the entry's screen comes up (made on first use, kept
    // for the run), the menu is destroyed, Mode becomes index + 1, and the screen's
    // activation runs, reading Mode.
    void OpenEntry(int index);
    // Whether the screen behind a menu entry has been built into the program.
    bool EntryBuilt(int index) const;
    // The customer screen's choice made: the Scheduling Screen comes up in the Mode that
    // led to the customer (2 or 7), for the customer now in hand.
    void ShowMainForCustomer();
    // The customer screen's choice made in Mode 13 and 14: the contract and the work order
    // screens for the customer now in hand, made on first use and kept for the run.
    void ShowContractForCustomer();
    void ShowWorkOrderForCustomer();
    // The record screen has freed the old slip and hands its customer over for a new
    // booking (Mode 10); meetings: it was found among the meetings, not the slips.
    void ShowMainForReschedule(bool meetings = false);
    // The history of one account, over the customer screen; its return goes back there.
    void ShowHistoryForCustomer(const QString& account);

    // The serial device behind each modem port number. By default port n is /dev/ttyS<n-1>
    // or the device the user named for the modem; a test points the ports at its fake modem.
    void setModemDevices(ModemProbe::DeviceForPort deviceFor)
    {
        m_modemDevices = std::move(deviceFor);
    }
    // The one line to the modem, shared by everything that speaks to it.
    SerialLink& serialLink() { return *m_link; }
    // The modem search runs behind the splash; true until it has ended.
    bool modemSearchRunning() const;
    // The port the modem answered on, 0 for none.
    qint16 detectedModemPort() const { return m_detectedModemPort; }
    // Whether the features that need a modem are on show.
    bool phoneFeaturesShown() const { return m_phoneFeatures; }
    // The dialer, modal, for this name and number.
    void ShowDialer(const QString& name, const QString& number);
    // The print dialog and preview that screens show before paper is used. The platform's
    // own unless a test answers them; set before Main().
    void setPrintDialogs(PrintDialogs& dialogs) { m_print = &dialogs; }
    // The single-instance lock is TresvaneDispatcher.lock in the program folder; a test
    // that compares the folder's files byte by byte keeps it in a folder of its own.
    void setLockFolder(const QString& folder) { m_lockFolder = folder; }
    QString lockFilePath() const;
    // What a second start is told: the folder is held by a live program of this computer,
    // or by another computer (with the question whether to take it over).
    static QString HeldHereMessage(const FolderLock::Holder& holder);
    static QString HeldElsewhereMessage(const FolderLock::Holder& holder);

    bool exited() const { return m_exited; }
    // True while the customers' aux folders are still being made behind the forms.
    bool auxFoldersPending() const;

    Store store;
    DispatchingVariables v;
    CoreContext ctx;
    frmSetup* setup = nullptr;
    QPointer<frmCustomer> customer;
    QPointer<frmMain> mainForm;
    QPointer<frmSplash> splash;
    QPointer<frmStartup> startup;
    QPointer<frmCallRecord> callRecord;
    QPointer<frmCallBack> callBack;
    QPointer<frmCallID> callId;
    QPointer<frmHistory> history;
    QPointer<frmDialer> dialer;
    QPointer<frmReccuringEvents> recurring;
    QPointer<frmBlock> block;
    QPointer<frmDisplay> display;
    QPointer<frmContract> contract;
    QPointer<frmWorkOrder> workOrder;
    // Printing allowed by the user although the sibling planner program is present; kept
    // for the whole run while the menu comes and goes.
    bool PrintEnabled = false;

signals:
    // The program has ended (0) or must end at once (1); the event loop quits on it.
    void finished(int code);

private:
    // Brings a working screen up: every other working screen hides, the menu goes, the
    // screen shows and its Form_Activate runs with Mode as it stands.
    template <class Screen> void Bring(Screen* screen);
    void LeaveMenu();
    void HideWorkingScreens(QWidget* except);
    // Remembers a working screen for hiding and for the way out; it gets the screen frame.
    void Adopt(QWidget* screen);
    // The customer screen, first step of the slip, meeting, contract and work order routines.
    void OpenCustomer(int index);
    void CustomerSelected();
    frmContract* ContractForm();
    frmWorkOrder* WorkOrderForm();
    frmMain* MainForm();
    // The recurring events screen, made on first use; its customer button leads through the
    // customer screen and back.
    frmReccuringEvents* RecurringEvents();

    bool CheckPrevInstance();
    void RepairAuxFoldersInSlices();
    Status LoadAllData();
    void CreateSplash();
    void CreateStartup();
    bool Fatal(const Status& s);
    // A screen's close box: the program ends, once the unsaved edits of every screen on
    // show, if any, are saved or given up. Cancel keeps the program running.
    void closeBox(QWidget* screen);
    frmHistory* MakeHistory();
    // The modem search, and what it found shown on the dialer and the setup screen.
    void DetectModem();
    void ModemFound(qint16 port);
    // The dial pictures and the phone settings, shown or hidden by whether there is a modem.
    void ShowPhoneFeatures(bool shown);
    QString ModemDevice(int port) const;

    const Clock& m_clock;
    Dialogs& m_dialogs;
    Desktop& m_desktop;
    std::unique_ptr<FolderLock> m_lock;
    std::unique_ptr<AuxFolderRepair> m_auxRepair;
    std::unique_ptr<CalendarAutoExport> m_calendars;
    QList<QPointer<QWidget>> m_working;
    QString m_lockFolder;
    std::unique_ptr<SerialLink> m_link;
    std::unique_ptr<PrintDialogs> m_qtPrint;
    PrintDialogs* m_print = nullptr;
    ModemProbe::DeviceForPort m_modemDevices;
    ModemProbe* m_probe = nullptr;
    qint16 m_detectedModemPort = 0;
    bool m_phoneFeatures = false;
    bool m_exited = false;
};
} // namespace tresvane
