// Captures the screens to PNG files for review: the splash with its welcome
// panel, every tab of the setup screen, the main menu, the Scheduling Screen (a booked
// day, its month sheet, its day view, the stored slips and the print panel with the pages
// of the schedules), the customer screen with its stored calls, the record screen, the
// history, the courtesy calls and the call monitor, each at its own size and at the size of
// the whole screen. Runs on sample program folders in temporary directories.
//
//   dispatch_screenshots <output folder>
#include "sampleinstallation.h"

#include "app/app.h"
#include "core/calendar/slippopup.h"
#include "core/documents/printframe.h"
#include "core/documents/workorderdocument.h"
#include "core/documents/workschedule.h"
#include "core/io/itemrecords.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/desktop.h"
#include "core/ports/dialogs.h"
#include "core/telephony/storedcalls.h"
#include "screens/calendar/frmblock.h"
#include "screens/calendar/frmdisplay.h"
#include "screens/calendar/frmreccuringevents.h"
#include "screens/calendar/frmslip.h"
#include "screens/customers/frmcustomer.h"
#include "screens/customers/storedcallpanel.h"
#include "screens/documents/frmcontract.h"
#include "screens/documents/frmworkorder.h"
#include "screens/documents/printrun.h"
#include "screens/history/frmcallback.h"
#include "screens/history/frmhistory.h"
#include "screens/schedule/dayviewframe.h"
#include "screens/schedule/frmmain.h"
#include "screens/schedule/storedslipsframe.h"
#include "screens/schedule/teammonthframe.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/sliprecords/frmcallrecord.h"
#include "screens/telephony/frmcallid.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextStream>

using namespace tresvane;

namespace
{

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
    bool openUrl(const QString&) override { return true; }
    void setClipboardText(const QString&) override {}
};

void write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(bytes);
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

QByteArray slip(const char* number, const char* name, const char* street, const char* tel,
                const char* problem, const QDate& date, int team, int start, int hours)
{
    SlipRecord r;
    r.setText(SlipField::RecType, QStringLiteral("Service"));
    r.setText(SlipField::ConfirmationNo, QString::fromLatin1(number));
    r.setText(SlipField::TeamNo, QString::number(team));
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::EventDate, date.toString(QStringLiteral("MM/dd/yyyy")));
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Reference, QString::fromLatin1(problem));
    r.setText(SlipField::Name, QString::fromLatin1(name));
    r.setText(SlipField::Street, QString::fromLatin1(street));
    r.setText(SlipField::City, QStringLiteral("Springfield"));
    r.setText(SlipField::St, QStringLiteral("IL"));
    r.setText(SlipField::Zip, QStringLiteral("62704"));
    r.setText(SlipField::Tel, QString::fromLatin1(tel));
    return r.bytes();
}

// The Scheduling Screen in Mode 2 on a day with two jobs booked and a third being placed,
// its month sheet, its day view, and the stored-slip list.
void grabScheduling(App& app, const QString& root, const QString& out)
{
    DispatchingVariables& v = app.v;
    v.current.account = QStringLiteral("10422");
    v.current.name = QStringLiteral("Margaret Ellison");
    v.current.address1 = QStringLiteral("418 Walnut Avenue");
    v.current.address2 = QStringLiteral("Apt 2B");
    v.current.city = QStringLiteral("Springfield");
    v.current.state = QStringLiteral("IL");
    v.current.zip = QStringLiteral("62704");
    v.current.phone = QStringLiteral("(217)555-0187");
    v.Mode = Mode::ServiceSlip;
    app.ShowMainForCustomer();
    frmMain* w = app.mainForm;
    const QDate day = w->currentDate();
    const QString folder = root + QStringLiteral("/%1/Team#1/").arg(day.year());
    QDir().mkpath(folder);
    const QByteArray free = "\"No Event Scheduled\"\r\n";
    const QByteArray first = "\"SA101-3 Harold Brandt\"\r\n";
    const QByteArray second = "\"SA101-4 Lucy Ortega\"\r\n";
    write(folder + QString::number(day.dayOfYear()) + QStringLiteral(".txt"),
          first + first + free + free + free + free + second + second + second + free + free +
              free);
    write(root + QStringLiteral("/Slips.txt"),
          slip("SA101-3", "Harold Brandt", "77 Birch Lane", "(217)555-0110", "No Heat", day, 1, 1,
               2) +
              slip("SA101-4", "Lucy Ortega", "9 Cedar Court", "(217)555-0166", "Annual Maintenance",
                   day, 1, 7, 3));
    w->lstTeam_Change(0);
    w->txtTime->setText(QStringLiteral("2"));
    w->fgHours_Click(4);
    grab(w, out, QStringLiteral("main-booking"));
    w->mnuTeamCal_Click();
    grab(w, out, QStringLiteral("main-teamcal"));
    w->mnuTeamCal_Click();
    w->cmdView_Click();
    grab(w, out, QStringLiteral("main-dayview"));
    w->cmdView_Click();

    write(root + QStringLiteral("/UnscheduledSlips.txt"),
          slip("", "Walter Price", "1502 Oak Street", "(217)555-0121", "Leak", day, 1, 1, 1) +
              slip("", "Dana Whitfield", "33 Elm Road", "(217)555-0133", "No Heat", day, 1, 1, 1) +
              slip("", "Samuel Ortiz", "8 Mill Pond Way", "(217)555-0144", "Maintenance", day, 1, 1,
                   1));
    app.OpenEntry(8);
    grab(w, out, QStringLiteral("main-stored"));

    // The schedules' print panel, and the pages of both forms for that day as the preview
    // shows them (tools/screenshots.sh renders them to PNG).
    app.OpenEntry(MenuEntry::DailyWorkSchedules);
    w->Calender->setSelectedDate(day);
    if (auto* print = w->findChild<QPushButton*>(QStringLiteral("cmdPrint"))) print->click();
    grab(w, out, QStringLiteral("main-print"));
    for (ScheduleForm form : {ScheduleForm::Extended, ScheduleForm::WorkDay}) {
        const QString name =
            form == ScheduleForm::Extended ? QStringLiteral("extended") : QStringLiteral("workday");
        Result<int> pages = PrintDocumentsToPdf(
            out + QStringLiteral("/schedule-%1.pdf").arg(name), [&](PrintSurface& surface) {
                PrintJob job{surface, DocumentSettingsOf(app.v)};
                return PrintWorkSchedules(job, app.store, app.v, {day, 1, form}).status();
            });
        if (!pages) QTextStream(stderr) << pages.message() << '\n';
    }
}

// The contract and work order screens for one customer, with a service catalogue and a
// few items of the user's own to choose from.
void grabDocuments(App& app, const QString& out)
{
    QList<ServiceRecord> services;
    for (const auto& [name, price] :
         {std::pair{"Furnace inspection and cleaning", "89.50"}, std::pair{"Boiler service", "145"},
          std::pair{"Air conditioning tune-up", "99"}}) {
        ServiceRecord r;
        r.setText(ServiceField::ServiceName, QString::fromLatin1(name));
        r.setText(ServiceField::ServicePrice, QString::fromLatin1(price));
        services << r;
    }
    QList<CustomItemRecord> items;
    for (const auto& [name, units] :
         {std::pair{"Filter 16x25x1", 129500}, std::pair{"Thermostat, programmable", 899900},
          std::pair{"Condensate pump", 1450000}}) {
        CustomItemRecord r;
        r.setText(CustomItemField::CustomName, QString::fromLatin1(name));
        r.setCurrency(CustomItemField::CustomPrice, units);
        items << r;
    }
    if (!WriteServices(app.store, ServicesFileName(), services) ||
        !WriteCustomItems(app.store, items))
        return;
    DispatchingVariables& v = app.v;
    v.current.account = QStringLiteral("10422");
    v.current.name = QStringLiteral("Margaret Ellison");
    v.current.address1 = QStringLiteral("418 Walnut Avenue");
    v.current.address2 = QStringLiteral("Apt 2B");
    v.current.city = QStringLiteral("Springfield");
    v.current.state = QStringLiteral("IL");
    v.current.zip = QStringLiteral("62704");
    v.current.phone = QStringLiteral("(217)555-0187");
    v.Mode = Mode::Contract;
    app.ShowContractForCustomer();
    grab(app.contract, out, QStringLiteral("contract"));
    app.contract->findChild<QAction*>(QStringLiteral("mnuManual"))->trigger();
    grab(app.contract, out, QStringLiteral("contract-manual"));
    v.Mode = Mode::WorkOrder;
    app.ShowWorkOrderForCustomer();
    frmWorkOrder* w = app.workOrder;
    w->findChild<QPlainTextEdit*>(QStringLiteral("txtWONarrative"))
        ->setPlainText(QStringLiteral("Replace the condensate pump under the furnace and clear "
                                      "the drain line.\nTest the system through two full "
                                      "cycles and show the customer the new filter."));
    w->findChild<QListWidget*>(QStringLiteral("lstServices"))->setCurrentRow(0);
    w->cmdWO_Click(10);
    w->cmdWO_Click(4);
    grab(w, out, QStringLiteral("workorder"));

    // Its pages as the preview shows them: the narrative, the list, the completion summary.
    WorkOrderContent content;
    content.heading = QStringLiteral("Work Order");
    content.date = QDate::currentDate();
    content.account = v.current.account;
    content.customerLines = {v.current.name, v.current.address1, v.current.address2,
                             v.current.city + QStringLiteral(", ") + v.current.state + u' ' +
                                 v.current.zip};
    content.narrative =
        w->findChild<QPlainTextEdit*>(QStringLiteral("txtWONarrative"))->toPlainText().split(u'\n');
    content.services = {
        {QStringLiteral("Furnace inspection and cleaning"), QStringLiteral("$89.50")}};
    content.items = {{QStringLiteral("Filter 16x25x1"), QStringLiteral("$12.95")},
                     {QStringLiteral("Condensate pump"), QStringLiteral("$145.00")}};
    Result<int> pages =
        PrintDocumentsToPdf(out + QStringLiteral("/workorder.pdf"), [&](PrintSurface& surface) {
            PrintJob job{surface, DocumentSettingsOf(v)};
            PrintWorkOrder(job, content);
            PrintJob summary{surface, DocumentSettingsOf(v)};
            PrintCompletionSummary(summary, content);
            return Status();
        });
    if (!pages) QTextStream(stderr) << pages.message() << '\n';
}

// The recurring events screen with dates chosen and a range open, the blocked days with
// their grid, the board of teams and the popup of its first slip.
void grabCalendarTools(App& app, const QString& out)
{
    app.OpenEntry(MenuEntry::RecurringEvents);
    QWidget* recurring = app.recurring;
    recurring->findChild<QAbstractButton*>("optNoCustomer")->click();
    recurring->findChild<QComboBox*>("cboEventTitle")->setEditText("Staff Meeting");
    recurring->findChild<QAbstractButton*>("cmdContinue")->click();
    auto* calendar = recurring->findChild<QCalendarWidget*>("EventCalendar");
    for (QDate d = QDate::currentDate().addDays(1), last = d.addDays(20); d < last;
         d = d.addDays(7))
        QMetaObject::invokeMethod(calendar, "clicked", Q_ARG(QDate, d));
    grab(recurring, out, QStringLiteral("recurring"));
    recurring->findChild<QAbstractButton*>("CmdButton_4")->click();
    grab(recurring, out, QStringLiteral("recurring-range"));

    app.OpenEntry(MenuEntry::VacationAndHoliday);
    app.block->findChild<QWidget*>("fraBlockedDays")->setVisible(true);
    grab(app.block, out, QStringLiteral("blocked-days"));

    // The board on the day of the first slip, so the grids show work.
    app.OpenEntry(MenuEntry::DisplaySchedules);
    const SlipRecord first(app.store.ReadAll("/Slips.txt")->left(kSlipRecordLength));
    const ClickedSlot clicked{
        SlotFile::Slips, ParseShortDate(first.text(SlipField::EventDate)).value_or(QDate()),
        first.text(SlipField::TeamNo).toInt(), first.text(SlipField::StartSlot).toInt(),
        first.text(SlipField::ConfirmationNo) + u' ' + first.text(SlipField::Name)};
    if (clicked.date >= app.ctx.clock.today())
        app.display->findChild<QDateEdit*>("DTPicker1")->setDate(clicked.date);
    grab(app.display, out, QStringLiteral("work-schedules"));
    if (app.display->popup()->ShowSlip(clicked, app.v.gAssignTo.value(clicked.team)))
        grab(app.display->popup(), out, QStringLiteral("slip-popup"));
    app.display->popup()->close();
}

// The screens that want a customer file and booked slips, on a small sample installation:
// the customer screen with its search and aux panels, and the record screen.
bool grabWorkingScreens(const QString& out)
{
    QTemporaryDir folder;
    SampleOptions options;
    options.teams = 3;
    options.customers = 60;
    options.slips = 40;
    options.meetings = 6;
    options.storedSlips = 3;
    options.contracts = 5;
    options.seed = 7;
    if (!WriteSampleInstallation(folder.path(), options)) return false;
    SystemClock clock;
    QuietDialogs dialogs;
    NoDesktop desktop;
    App app(folder.path(), clock, dialogs, desktop);
    app.setLockFolder(folder.path());
    if (!app.Main()) return false;
    app.OpenEntry(MenuEntry::CreateServiceSlip);
    frmCustomer* customer = app.customer;
    grab(customer, out, QStringLiteral("customer"));
    customer->Command1[0]->click();
    grab(customer, out, QStringLiteral("customer-search"));
    customer->mnuPrint->trigger();
    grab(customer, out, QStringLiteral("customer-list"));
    customer->mnuPrint->trigger();
    customer->Command1[0]->click();
    customer->mnuAux->trigger();
    grab(customer, out, QStringLiteral("customer-aux"));
    customer->mnuAux->trigger();
    // Two calls kept while the office was away: the first from the account on show.
    auto call = [](const QString& name, const QString& number, const QString& time) {
        CallRecord record;
        record.setText(CallField::CallName, name);
        record.setText(CallField::CallNumber, number);
        record.setText(CallField::CallTime, time);
        return record.bytes();
    };
    const QByteArray calls =
        call("CALLER ONE", customer->txtCustomer[CustomerBox::Phone]->text(), "08:05 am") +
        call("A N OTHER", "999-555-0123", "07:40 pm");
    if (app.store.WriteFile(StoredCalls::kFile, calls)) {
        customer->calls->Form_Activate();
        customer->calls->cmdCallLater->click();
        grab(customer, out, QStringLiteral("customer-calls"));
        (void)StoredCalls::DeleteAll(app.store);
    }
    app.OpenEntry(MenuEntry::Reschedule);
    grab(app.callRecord, out, QStringLiteral("records"));
    app.OpenEntry(MenuEntry::ServiceHistory);
    grab(app.history, out, QStringLiteral("history"));
    app.OpenEntry(MenuEntry::PlaceReminderCalls);
    grab(app.callBack, out, QStringLiteral("callback"));
    app.OpenEntry(MenuEntry::UnattendedMonitoring);
    grab(app.callId, out, QStringLiteral("callid"));
    grabDocuments(app, out);
    grabCalendarTools(app, out);
    app.ExitProgram();
    return true;
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
    if (!app.Main()) return 1;

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
    grabScheduling(app, root, out);
    app.ExitProgram();
    return grabWorkingScreens(out) ? 0 : 1;
}
