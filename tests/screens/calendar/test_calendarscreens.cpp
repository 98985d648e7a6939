// The calendar tools through the real program: a series booked for a customer chosen on the
// customer screen, a range, days blocked for every team and what the Scheduling Screen then
// makes of them, and the board of teams with its slip popup.

#include "calendarbytes.h"
#include "fakemodem.h"
#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/customers/customerfiles.h"
#include "screens/calendar/frmblock.h"
#include "screens/calendar/frmdisplay.h"
#include "screens/calendar/frmreccuringevents.h"
#include "screens/calendar/frmslip.h"
#include "screens/customers/frmcustomer.h"
#include "screens/schedule/frmmain.h"
#include "screens/schedule/teammonthframe.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/shell/updown.h"
#include "screens/telephony/frmdialer.h"

#include <QAction>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using namespace tresvane;
using namespace calendarbytes;

using Answer = Dialogs::Answer;

namespace
{

const QDate kFriday(2026, 5, 8);  // day 128
const QDate kMonday(2026, 5, 11); // day 131

QByteArray padded(const char* s, int width)
{
    return QByteArray(s).leftJustified(width, ' ', true);
}

// One business customer as another installation would have written it.
QByteArray customer()
{
    return padded("A-7", 20) + padded("Hill Bakery", 45) + padded("4 Oak Lane", 35) +
           padded("", 25) + padded("Dayton", 25) + padded("Dayton", 20) + padded("OH", 2) +
           padded("45402", 10) + padded("", 25) + padded("937-555-0100", 13) + padded("", 13) +
           padded("", 30) + padded("", 10) + padded("", 15) + padded("", 1) + padded("", 25) +
           padded("Business", 10) + QByteArray::fromHex("01000000");
}

// A running installation of six teams on Thursday 30 April 2026 (day 120), in the morning,
// with one customer and the day's counter at SA120-4.
struct Installation : ProgramFolder {
    QTemporaryDir locks;
    RecordingDesktop desktop;
    std::unique_ptr<App> app;

    Installation()
    {
        clock.set(QDateTime(QDate(2026, 4, 30), QTime(9, 0)));
        put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                                  "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
        put("Assignto.txt", "\"North Truck\"\r\n\"South Truck\"\r\n\"Install Crew\"\r\n"
                            "\"Crew 4\"\r\n\"Crew 5\"\r\n\"Crew 6\"\r\n");
        put("ProblemCode.txt", "\"No Heat\"\r\n");
        put("TresvaneDispatcherSettings.txt",
            "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
        put("Counter.txt", "\"120\",4\r\n");
        put("Phone.txt", "#FALSE#\r\n0\r\n");
        put("CallID.txt", "#TRUE#\r\n");
        put("CustomerData.txt", customer());
        // The price list of services, in the sibling program's records: name, price, flag.
        put("Services.txt", padded("Boiler Service", 60) + padded("$85.00", 10) +
                                QByteArray(2, '\0') + padded("Pump Check", 60) +
                                padded("$40.00", 10) + QByteArray(2, '\0'));
        ResetContractDefaults(ctx);
        QVERIFY(WriteContract(ctx, 1).ok());
        QVERIFY(WriteCycle(ctx, 1).ok());
    }
    // The program started, at the menu; with a modem on port 1 when one is given.
    App& start(FakeModem* modem = nullptr)
    {
        app = std::make_unique<App>(root(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        if (modem)
            app->setModemDevices(
                [modem](int port) { return port == 1 ? modem->devicePath() : QString(); });
        if (!app->Main()) qFatal("the program did not start");
        app->ShowMenu();
        return *app;
    }
};

template <typename T> T* child(QWidget* w, const char* name)
{
    T* found = w->findChild<T*>(QString::fromLatin1(name));
    if (!found) qFatal("no control %s", name);
    return found;
}

// A click where the control is now (a frame just shown or hidden moves it only once the
// layout has run), near its left edge: an option button takes clicks on its circle and
// caption only, not on the room it stretches over.
void click(QWidget* w, const char* name)
{
    QCoreApplication::processEvents();
    auto* button = child<QAbstractButton>(w, name);
    QTest::mouseClick(button, Qt::LeftButton, {},
                      QPoint(std::min(8, button->width() / 2), button->height() / 2));
}

void clickDate(QWidget* w, const QDate& date)
{
    QMetaObject::invokeMethod(child<QCalendarWidget>(w, "EventCalendar"), "clicked",
                              Q_ARG(QDate, date));
}

void clickCell(FlexGrid* grid, int row, int col)
{
    const QModelIndex index = grid->model()->index(row, col);
    grid->scrollTo(index);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(index).center());
}

bool waitFor(const std::function<bool()>& done, int ms = 5000)
{
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < ms)
        QTest::qWait(10);
    return done();
}

QString dayFile(const QDate& d, int team)
{
    return QStringLiteral("%1/Team#%2/%3.txt").arg(d.year()).arg(team).arg(d.dayOfYear());
}

// The recurring events screen for a series of Boiler Service at 09:00am for two hours for
// South Truck, with the kind given by its option's name.
frmReccuringEvents* seriesScreen(App& app, const char* kind)
{
    app.OpenEntry(MenuEntry::RecurringEvents);
    frmReccuringEvents* w = app.recurring;
    click(w, kind);
    child<QComboBox>(w, "cboEventTitle")->setEditText("Boiler Service");
    child<QListWidget>(w, "lstAssignto")->setCurrentRow(1);
    click(w, "optTime_3");
    QTest::mouseClick(child<UpDown>(w, "updnTime")->up, Qt::LeftButton);
    return w;
}

} // namespace

class TestCalendarScreens : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void menuOpensTheThreeScreens_data();
    void menuOpensTheThreeScreens();
    void seriesForACustomerChosenOnTheCustomerScreen();
    void takenHoursGoToTheConflictGrid();
    void hoursTestOnTheScreen();
    void rangeBooksAndTellsWhatItLeftOut();
    void blockedForAllTeamsThenRefusedOnTheSchedulingScreen();
    void reasonWithACommaNeverGetsIn();
    void blockedDaysGridListsASiblingsDays();
    void boardPagesAndDates();
    void boardClicksAndThePopup();
    void popupDialsWhereAModemAndATelephoneAre();
};

void TestCalendarScreens::menuOpensTheThreeScreens_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("menuButton");
    QTest::newRow("recurring events")
        << int(MenuEntry::RecurringEvents) << "Schedule Recurring Events"
        << "Schedule a Recurring Event" << int(Mode::RecurringEvents) << "CmdButton_3";
    QTest::newRow("blocked days") << int(MenuEntry::VacationAndHoliday)
                                  << "Schedule Vacation and Holiday Time"
                                  << "Holiday and Vacation Days" << int(Mode::BlockDays)
                                  << "cmdExit";
    QTest::newRow("work schedules")
        << int(MenuEntry::DisplaySchedules) << "Display Schedules"
        << "Work Schedules" << int(Mode::DisplaySchedules) << "cmdSchedule";
}

void TestCalendarScreens::menuOpensTheThreeScreens()
{
    QFETCH(int, entry);
    QFETCH(QString, caption);
    QFETCH(QString, title);
    QFETCH(int, mode);
    QFETCH(QString, menuButton);
    Installation f;
    App& app = f.start();
    // Twice: the way back to the menu and in again works as the first time.
    for (int round = 0; round < 2; ++round) {
        auto* button = child<QPushButton>(app.startup, qPrintable(QString("lblSub_%1").arg(entry)));
        QCOMPARE(button->text(), caption);
        QVERIFY(button->isEnabled());
        QTest::mouseClick(button, Qt::LeftButton);
        QWidget* screen = entry == MenuEntry::RecurringEvents ? app.recurring.data()
                          : entry == MenuEntry::VacationAndHoliday
                              ? static_cast<QWidget*>(app.block)
                              : app.display.data();
        QVERIFY(screen && screen->isVisible());
        QCOMPARE(screen->windowTitle(), title);
        QCOMPARE(int(app.v.Mode), mode);
        QVERIFY(!app.startup || !app.startup->isVisible());
        click(screen, qPrintable(menuButton));
        QVERIFY(!screen->isVisible());
        QVERIFY(app.startup && app.startup->isVisible());
    }
    VERIFY_DIALOGS(f.dialogs);
}

void TestCalendarScreens::seriesForACustomerChosenOnTheCustomerScreen()
{
    Installation f;
    App& app = f.start();
    frmReccuringEvents* w = seriesScreen(app, "optInvoice");
    QCOMPARE(w->windowTitle(), QString("Schedule a Recurring Event"));
    // The titles offered are the services of the price list.
    auto* titles = child<QComboBox>(w, "cboEventTitle");
    QCOMPARE(titles->count(), 2);
    QCOMPARE(titles->itemText(0), QString("Boiler Service"));
    QCOMPARE(titles->itemText(1), QString("Pump Check"));
    // Without a customer the calendar does not open.
    f.dialogs.expect("You Must Select a Customer");
    click(w, "cmdContinue");
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(!child<QGroupBox>(w, "fraCalendar")->isVisible());

    // The customer screen in the same routine, and back with its choice.
    click(w, "cmdCustomer");
    QVERIFY(app.customer->isVisible());
    QCOMPARE(app.v.Mode, Mode::RecurringEvents);
    click(app.customer, "cmdCustomer_1");
    QVERIFY(w->isVisible());
    QVERIFY(!app.customer->isVisible());
    QCOMPARE(child<QLineEdit>(w, "txtCustomer")->text(), QString("Hill Bakery"));

    child<QComboBox>(w, "cboEventTitle")->setEditText("Boiler Service");
    child<QListWidget>(w, "lstAssignto")->setCurrentRow(1);
    click(w, "optTime_3");
    QTest::mouseClick(child<UpDown>(w, "updnTime")->up, Qt::LeftButton);
    click(w, "cmdContinue");
    QVERIFY(child<QGroupBox>(w, "fraCalendar")->isVisible());
    clickDate(w, kMonday);
    clickDate(w, kMonday.addDays(7));
    clickDate(w, kMonday); // twice: a beep
    QCOMPARE(f.dialogs.beeps, 1);
    auto* dates = child<QListWidget>(w, "lstEventDates");
    QCOMPARE(dates->count(), 2);
    QCOMPARE(dates->item(1)->text(), QString("05/18/2026"));

    f.dialogs.expect("Events have been Scheduled");
    click(w, "CmdButton_2");
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.get(dayFile(kMonday, 2)), bareDay("SA120-4 Hill Bakery", 4, 2));
    QCOMPARE(f.get(dayFile(kMonday.addDays(7), 2)), bareDay("SA120-5 Hill Bakery", 4, 2));
    QCOMPARE(f.get("Slips.txt").size(), 2 * 297);
    QCOMPARE(f.get("Slips.txt").mid(297),
             booking("Service", "SA120-5", "2", "2", "05/18/2026", "4", "Boiler Service", "A-7",
                     "Hill Bakery", "4 Oak Lane", "", "Dayton", "OH", "45402", "937-555-0100"));
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"120\",6\r\n"));
    // The form is reset for the next series.
    QCOMPARE(dates->count(), 0);
    QCOMPARE(child<QComboBox>(w, "cboEventTitle")->currentText(), QString());

    click(w, "CmdButton_3");
    QVERIFY(!w->isVisible());
    QVERIFY(app.startup && app.startup->isVisible());
}

void TestCalendarScreens::takenHoursGoToTheConflictGrid()
{
    Installation f;
    f.put(dayFile(kMonday, 2), bareDay("Mtg - 10:00 - Cy Ames", 5, 1));
    App& app = f.start();
    frmReccuringEvents* w = seriesScreen(app, "optNoCustomer");
    click(w, "cmdContinue");
    clickDate(w, kFriday);
    // Monday's 10:00 is taken: a click is refused, so the date comes by the range.
    f.dialogs.expect("An Event is Scheduled on 05/11/2026\nat 10:00\nfor South Truck");
    clickDate(w, kMonday);
    VERIFY_DIALOGS(f.dialogs);
    click(w, "CmdButton_4");
    child<QDateEdit>(w, "dtStart")->setDate(kFriday);
    child<QDateEdit>(w, "dtEnd")->setDate(kMonday);
    click(w, "optDays_2");
    child<QListWidget>(w, "lstDays")->setCurrentRow(1); // Monday
    f.dialogs.expect("Events have been Scheduled");
    click(w, "CmdButton_5");
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(child<QGroupBox>(w, "fraConflict")->isVisible());
    auto* grid = child<FlexGrid>(w, "fgConflict");
    QCOMPARE(grid->rows(), 1);
    QCOMPARE(grid->textMatrix(0, 0), QString("05/11/2026"));
    QCOMPARE(grid->textMatrix(0, 1), QString("10:00am"));
    QCOMPARE(f.get(dayFile(kMonday, 2)), kBareFree.repeated(3) +
                                             "Recurring Event - Boiler Service\r\n" +
                                             "Mtg - 10:00 - Cy Ames\r\n" + kBareFree.repeated(7));
    QCOMPARE(f.get("Meetings.txt").size(), 297);

    // A second press finds no date left to book again.
    const auto before = f.snapshot();
    click(w, "CmdButton_2");
    QCOMPARE(f.dialogs.beeps, 1);
    QCOMPARE(f.snapshot(), before);
    click(w, "CmdButton_6");
    QVERIFY(!child<QGroupBox>(w, "fraConflict")->isVisible());
    VERIFY_DIALOGS(f.dialogs);
}

void TestCalendarScreens::hoursTestOnTheScreen()
{
    Installation f;
    App& app = f.start();
    app.OpenEntry(MenuEntry::RecurringEvents);
    frmReccuringEvents* w = app.recurring;
    auto* hours = child<QLineEdit>(w, "txtTime");
    click(w, "optTime_10"); // 05:00pm
    QTest::mouseClick(child<UpDown>(w, "updnTime")->up, Qt::LeftButton);
    QCOMPARE(hours->text(), QString("2"));
    f.dialogs.expect("Not enough Hours in a Day!!!", "Too Many Hours Selected");
    QTest::mouseClick(child<UpDown>(w, "updnTime")->up, Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(hours->text(), QString("1"));
    // Moving the start later with two hours is tested the same way.
    QTest::mouseClick(child<UpDown>(w, "updnTime")->up, Qt::LeftButton);
    f.dialogs.expect("Not enough Hours in a Day!!!", "Too Many Hours Selected");
    click(w, "optTime_11");
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(hours->text(), QString("1"));
}

void TestCalendarScreens::rangeBooksAndTellsWhatItLeftOut()
{
    Installation f;
    App& app = f.start();
    frmReccuringEvents* w = seriesScreen(app, "optNoCustomer");
    click(w, "CmdButton_4");
    QVERIFY(child<QGroupBox>(w, "fraRange")->isVisible());
    QVERIFY(!child<QListWidget>(w, "lstDays")->isEnabled());
    child<QDateEdit>(w, "dtStart")->setDate(QDate(2026, 4, 20));
    child<QDateEdit>(w, "dtEnd")->setDate(QDate(2026, 5, 16));
    click(w, "optDays_2");
    QVERIFY(child<QListWidget>(w, "lstDays")->isEnabled());
    child<QListWidget>(w, "lstDays")->setCurrentRow(5); // Friday
    f.dialogs.expect("Events have been Scheduled");
    f.dialogs.expect("1 date of the range was not scheduled:\n1 date before today",
                     "Dates Left Out");
    click(w, "CmdButton_5");
    VERIFY_DIALOGS(f.dialogs);
    for (const QDate& friday : {QDate(2026, 5, 1), kFriday, QDate(2026, 5, 15)})
        QCOMPARE(f.get(dayFile(friday, 2)), bareDay("Recurring Event - Boiler Service", 4, 2));
    QCOMPARE(f.get("Meetings.txt").size(), 3 * 297);

    // Two years and a day are refused, and the range stays open to be put right.
    click(w, "CmdButton_4");
    child<QComboBox>(w, "cboEventTitle")->setEditText("Boiler Service");
    child<QDateEdit>(w, "dtStart")->setDate(kMonday);
    child<QDateEdit>(w, "dtEnd")->setDate(kMonday.addYears(2).addDays(1));
    f.dialogs.expectContaining("at most 2 years");
    click(w, "CmdButton_5");
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(child<QGroupBox>(w, "fraRange")->isVisible());
    QCOMPARE(f.get("Meetings.txt").size(), 3 * 297);
}

void TestCalendarScreens::blockedForAllTeamsThenRefusedOnTheSchedulingScreen()
{
    Installation f;
    f.put(dayFile(kMonday, 2), bareDay("SA120-2 Cy Ames", 4, 1));
    App& app = f.start();
    app.OpenEntry(MenuEntry::VacationAndHoliday);
    frmBlock* w = app.block;
    child<QCalendarWidget>(w, "Calender")->setSelectedDate(kFriday);
    child<QComboBox>(w, "lstReason")->setEditText("Holiday");
    child<QSlider>(w, "sldTimeReq")->setValue(2);
    QCOMPARE(child<QLineEdit>(w, "txtTimeReq")->text(), QString("2"));
    auto* teams = child<QListWidget>(w, "lstAssignto");
    QCOMPARE(teams->item(teams->count() - 1)->text(), QString("All Assignments"));
    teams->setCurrentRow(teams->count() - 1);
    f.dialogs.expect("You have Selected to\nPrevent Work Scheduling\nfor All Assignments\n"
                     "Starting on 05/08/2026\nof 2 Consecutive WORKDAYS",
                     "Action Selection", Answer::Yes);
    f.dialogs.expect("An Event Exists at 09:00 on 05/11/2026\nDelete or Rechedule this "
                     "Attention\nThis Request will be aborted.",
                     "Can't Block or UnBlock This Time");
    f.dialogs.expect("These Assignments were left unchanged:\nSouth Truck",
                     "Can't Block or UnBlock This Time");
    click(w, "CmdAccept");
    VERIFY_DIALOGS(f.dialogs);
    for (int team : {1, 3, 4, 5, 6}) {
        QCOMPARE(f.get(dayFile(kFriday, team)), QByteArray("Holiday\r\n").repeated(12));
        QCOMPARE(f.get(dayFile(kMonday, team)), QByteArray("Holiday\r\n").repeated(12));
    }
    QVERIFY(!f.has(dayFile(kFriday, 2)));
    click(w, "cmdExit");

    // The Scheduling Screen on North Truck's Friday: every hour taken, every click refused.
    app.v.current.name = "Hill Bakery";
    app.v.Mode = Mode::ServiceSlip;
    app.ShowMainForCustomer();
    frmMain* m = app.mainForm;
    m->lstTeam->setCurrentRow(0);
    m->Calender->setSelectedDate(kFriday);
    const auto before = f.snapshot();
    for (int row = 1; row <= 12; ++row) {
        f.dialogs.expect("Event already Scheduled Here", "Selection Error");
        clickCell(m->fgHours, row - 1, 1);
        QCOMPARE(m->fgHours->textMatrix(row - 1, 1), QString("Holiday"));
    }
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.snapshot(), before);
    QCOMPARE(m->fgHours->textMatrix(0, 1), QString("Holiday"));
    // The month sheet shows the twelve hours in red on the 8th.
    m->mnuTeamCal_Click();
    const TeamMonth& month = m->fraTeamCal->month();
    const int box = 8 + QDate(2026, 5, 1).dayOfWeek() % 7 - 1;
    QCOMPARE(month.Text1[box], QString("12"));
    QVERIFY(month.red[box]);
}

void TestCalendarScreens::reasonWithACommaNeverGetsIn()
{
    Installation f;
    App& app = f.start();
    app.OpenEntry(MenuEntry::VacationAndHoliday);
    frmBlock* w = app.block;
    auto* reason = child<QComboBox>(w, "lstReason");
    QCOMPARE(reason->currentText(), QString("Vacation"));
    reason->lineEdit()->clear();
    QTest::keyClicks(reason->lineEdit(), "Training");
    f.dialogs.expect("A Reason cannot contain a comma (,) or a double quote (\")",
                     "Invalid Key entry");
    QTest::keyClicks(reason->lineEdit(), ",");
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(reason->currentText(), QString("Training"));
    // Restoring writes the free words: the reason is not the user's to type.
    click(w, "optAction_1");
    QVERIFY(!reason->isEnabled());
    QCOMPARE(reason->currentText(), QString("No Event Scheduled"));
}

void TestCalendarScreens::blockedDaysGridListsASiblingsDays()
{
    Installation f;
    // A sibling program's blocked days, and one of this program's, which the grid leaves out.
    f.put("2026/DaySchedules1/128.txt", QByteArray("Vacation\r\n").repeated(12));
    f.put("2026/DaySchedules3/131.txt", QByteArray("Sick Day\r\n").repeated(12));
    f.put("2026/DaySchedules2/132.txt", QByteArray("Training\r\n").repeated(12));
    f.put(dayFile(kFriday, 2), QByteArray("Holiday\r\n").repeated(12));
    App& app = f.start();
    app.OpenEntry(MenuEntry::VacationAndHoliday);
    frmBlock* w = app.block;
    auto* frame = child<QGroupBox>(w, "fraBlockedDays");
    QVERIFY(!frame->isVisible());
    child<QAction>(w, "mnuBlocked")->trigger();
    QVERIFY(frame->isVisible());
    child<QDateEdit>(w, "DTStartSearch")->setDate(QDate(2026, 5, 1));
    child<QDateEdit>(w, "DTEndSearch")->setDate(QDate(2026, 5, 31));
    click(w, "cmdSearch");
    auto* grid = child<FlexGrid>(w, "FGBlocked");
    QCOMPARE(grid->rows(), 2);
    const QStringList first{grid->textMatrix(0, 0), grid->textMatrix(0, 1), grid->textMatrix(0, 2)};
    QCOMPARE(first, (QStringList{"North Truck", "05/08/2026", "Vacation"}));
    const QStringList second{grid->textMatrix(1, 0), grid->textMatrix(1, 1),
                             grid->textMatrix(1, 2)};
    QCOMPARE(second, (QStringList{"Install Crew", "05/11/2026", "Sick Day"}));
    click(w, "cmdClearGrid");
    QCOMPARE(grid->rows(), 0);
    click(w, "cmdHideGrid");
    QVERIFY(!frame->isVisible());
    VERIFY_DIALOGS(f.dialogs);
}

void TestCalendarScreens::boardPagesAndDates()
{
    Installation f;
    f.put("2026/Team#5/125.txt", bareDay("SA120-1 Ada Byron", 3, 2));
    f.put("2027/Team#1/5.txt", bareDay("Holiday", 1, 12));
    App& app = f.start();
    app.OpenEntry(MenuEntry::DisplaySchedules);
    frmDisplay* w = app.display;
    auto* pages = child<QListWidget>(w, "lstTeams");
    QCOMPARE(pages->count(), 2);
    QCOMPARE(pages->item(1)->text(), QString("Teams 5-8"));
    QCOMPARE(child<QLabel>(w, "lblTeam_1")->text(), QString("North Truck"));
    auto* date = child<QDateEdit>(w, "DTPicker1");
    QCOMPARE(date->date(), QDate(2026, 4, 30));

    date->setDate(QDate(2026, 5, 5));
    pages->setCurrentRow(1);
    QCOMPARE(child<QLabel>(w, "lblTeam_1")->text(), QString("Crew 5"));
    QCOMPARE(child<QLabel>(w, "lblTeam_3")->text(), QString());
    QCOMPARE(child<FlexGrid>(w, "fgHours_1")->textMatrix(2, 1), QString("SA120-1 Ada Byron"));
    for (const char* grid : {"fgHours_3", "fgHours_4"})
        for (int r = 0; r < 12; ++r)
            QCOMPARE(child<FlexGrid>(w, grid)->textMatrix(r, 1), QString("No Event Scheduled"));

    // A date of next year reads next year's tree.
    pages->setCurrentRow(0);
    date->setDate(QDate(2027, 1, 5));
    QCOMPARE(child<FlexGrid>(w, "fgHours_1")->textMatrix(11, 1), QString("Holiday"));

    // A day before today is refused and the board goes back to today.
    f.dialogs.expect("Date selection cannot be before today");
    date->setDate(QDate(2026, 4, 29));
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(date->date(), QDate(2026, 4, 30));
    QCOMPARE(f.dialogs.beeps, 1);
    QTest::mouseClick(child<UpDown>(w, "UpDown1")->up, Qt::LeftButton);
    QCOMPARE(date->date(), QDate(2026, 5, 1));
}

void TestCalendarScreens::boardClicksAndThePopup()
{
    Installation f;
    const QDate tuesday(2026, 5, 5);
    f.put(dayFile(tuesday, 2), kBareFree + "SA120-1 Ada Byron\r\nSA120-1 Ada Byron\r\n" +
                                   "Mtg - 09:00 - Bo Carr\r\n" + "Recurring Event - Cy Ames\r\n" +
                                   kBareFree.repeated(7));
    f.put(
        "Slips.txt",
        booking("Service", "SA120-1", "2", "2", "05/04/2026", "2", "Old Visit", "A-1", "Ada Old") +
            booking("Service", "SA120-1", "2", "2", "05/05/2026", "2", "No Heat", "A-1",
                    "Ada Byron", "1 Elm St", "", "Dayton", "OH", "45402", "937-555-0101"));
    f.put("Meetings.txt", booking("Meeting", "", "2", "1", "05/05/2026", "4",
                                  "Mtg - 09:00 - Bo Carr", "B-2", "Bo Carr"));
    App& app = f.start();
    app.OpenEntry(MenuEntry::DisplaySchedules);
    frmDisplay* w = app.display;
    w->show();
    child<QDateEdit>(w, "DTPicker1")->setDate(tuesday);
    auto* grid = child<FlexGrid>(w, "fgHours_2");
    frmSlip* popup = w->popup();

    clickCell(grid, 2, 1); // the slip's second hour
    QVERIFY(popup->isVisible());
    QCOMPARE(popup->windowTitle(), QString("Service Attention Slip"));
    QCOMPARE(child<QLabel>(popup, "lblName")->text(), QString("Ada Byron"));
    QCOMPARE(child<QLabel>(popup, "lblAssignTo")->text(), QString("South Truck"));
    QCOMPARE(child<QLabel>(popup, "lblDuration")->text(), QString("2 Hours"));
    QCOMPARE(child<QLabel>(popup, "lblTime")->text(), QString("07:00am"));
    QCOMPARE(child<QLabel>(popup, "lblReference")->text(), QString("No Heat"));
    // Without a modem there is nothing to dial with.
    QVERIFY(!child<QFrame>(popup, "fraDial")->isVisible());
    // Its close box closes it alone.
    popup->close();
    QVERIFY(!popup->isVisible());
    QVERIFY(w->isVisible());
    QVERIFY(!app.exited());

    clickCell(grid, 3, 1);
    QCOMPARE(child<QLabel>(popup, "lblName")->text(), QString("Bo Carr"));
    QCOMPARE(child<QLabel>(popup, "lblTime")->text(), QString("09:00am"));
    popup->close();

    // A recurring event leads nowhere; a free hour beeps.
    clickCell(grid, 4, 1);
    QVERIFY(!popup->isVisible());
    QCOMPARE(f.dialogs.beeps, 0);
    clickCell(grid, 0, 1);
    QVERIFY(!popup->isVisible());
    QCOMPARE(f.dialogs.beeps, 1);

    // A slip whose record is gone.
    f.put("Slips.txt", QByteArray());
    f.dialogs.expect("No Data Available");
    clickCell(grid, 1, 1);
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(!popup->isVisible());
}

void TestCalendarScreens::popupDialsWhereAModemAndATelephoneAre()
{
    FakeModem modem;
    if (!modem.isValid()) QSKIP("no pseudo-terminal for the modem");
    Installation f;
    f.put("Phone.txt", "#TRUE#\r\n1\r\n");
    const QDate tuesday(2026, 5, 5);
    f.put(dayFile(tuesday, 1), bareDay("SA120-1 Ada Byron", 3, 1));
    f.put("Slips.txt",
          booking("Service", "SA120-1", "1", "1", "05/05/2026", "3", "No Heat", "A-1", "Ada Byron",
                  "1 Elm St", "", "Dayton", "OH", "45402", "937-555-0101"));
    App& app = f.start(&modem);
    QVERIFY(waitFor([&] { return !app.modemSearchRunning(); }));
    QVERIFY(app.phoneFeaturesShown());
    app.OpenEntry(MenuEntry::DisplaySchedules);
    frmDisplay* w = app.display;
    child<QDateEdit>(w, "DTPicker1")->setDate(tuesday);
    clickCell(child<FlexGrid>(w, "fgHours_1"), 2, 1);
    frmSlip* popup = w->popup();
    QVERIFY(popup->isVisible());
    QVERIFY(child<QFrame>(popup, "fraDial")->isVisible());
    QTest::mouseClick(child<QToolButton>(popup, "imgDialer"), Qt::LeftButton);
    QVERIFY(app.dialer && app.dialer->isVisible());
    QCOMPARE(app.dialer->lblName->text(), QString("Ada Byron"));
    QCOMPARE(app.dialer->lblNumber->text(), QString("937-555-0101"));
    app.dialer->reject();
    popup->close();
    VERIFY_DIALOGS(f.dialogs);
}

QTEST_MAIN(TestCalendarScreens)
#include "test_calendarscreens.moc"
