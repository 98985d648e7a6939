#include "programfolder.h"
#include "recordingdesktop.h"
#include "scriptedprintdialogs.h"

#include "app/app.h"
#include "core/io/customerrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/schedule/dayfiles.h"
#include "screens/schedule/dayviewframe.h"
#include "screens/schedule/frmmain.h"
#include "screens/schedule/invoicetypeframe.h"
#include "screens/schedule/storedslipsframe.h"
#include "screens/schedule/teammonthframe.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/shell/updown.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

using namespace tresvane;

using Answer = Dialogs::Answer;

namespace
{
const QByteArray kFree = "\"No Event Scheduled\"\r\n";
const QDate kTuesday(2026, 5, 5); // day 125

QByteArray line(const QString& text)
{
    return '"' + text.toLatin1() + "\"\r\n";
}
QByteArray freeLines(int n)
{
    return kFree.repeated(n);
}

// The Scheduling Screen on a program folder with three teams and a customer in hand, as
// the customer screen leaves them.
struct Screen {
    ProgramFolder f;
    RecordingDesktop desktop;
    ScriptedPrintDialogs printDialogs;
    std::unique_ptr<frmMain> w;

    explicit Screen(qint16 mode, QDateTime now = QDateTime(QDate(2026, 4, 30), QTime(9, 0)))
    {
        f.clock.set(now);
        DispatchingVariables& v = f.v;
        v.gAssignTo = {"populated", "North Truck", "South Truck", "Install Crew"};
        BuildTimeLabels(v);
        v.settings.cboProblems = {"Leaking tap", "No Heat"};
        v.settings.ckSlipStyle = 1;
        v.gJulianDay = "120";
        v.gSequence = 1;
        v.gConfirmation = "SA120-1";
        v.current.account = "A-100";
        v.current.name = "Ada Byron";
        v.current.address1 = "12 Mill Road";
        v.current.address2 = "Unit 3";
        v.current.city = "Greenfield";
        v.current.state = "OH";
        v.current.zip = "45123";
        v.current.phone = "(555)123-4567";
        v.Mode = Mode(mode);
        w = std::make_unique<frmMain>(f.ctx, desktop, printDialogs);
        w->show();
        w->Form_Activate();
    }
    void pickTeam(int team) { w->lstTeam->setCurrentRow(team - 1); }
    void pickDate(const QDate& d) { w->Calender->setSelectedDate(d); }
    void setHours(int hours)
    {
        while (w->txtTime->text().toInt() < hours)
            QTest::mouseClick(w->updnTime->up, Qt::LeftButton);
        while (w->txtTime->text().toInt() > hours)
            QTest::mouseClick(w->updnTime->down, Qt::LeftButton);
    }
    void clickRow(int row)
    {
        const QModelIndex index = w->fgHours->model()->index(row - 1, 1);
        w->fgHours->scrollTo(index);
        QTest::mouseClick(w->fgHours->viewport(), Qt::LeftButton, {},
                          w->fgHours->visualRect(index).center());
    }
    QString row(int r) const { return w->fgHours->textMatrix(r - 1, 1); }
    SlipRecord record(const QString& file, int n = 1) const
    {
        return SlipRecord(f.get(file).mid((n - 1) * kSlipRecordLength, kSlipRecordLength));
    }
};

QByteArray slipBytes(const QString& name, const QString& street, const QString& tel)
{
    SlipRecord r;
    r.setText(SlipField::RecType, "Service");
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, street);
    r.setText(SlipField::City, "Dayton");
    r.setText(SlipField::St, "OH");
    r.setText(SlipField::Zip, "45402");
    r.setText(SlipField::Tel, tel);
    r.setText(SlipField::Reference, "No Heat");
    return r.bytes();
}
} // namespace

class TestFrmMain : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void serviceSlipEndToEnd();
    void hoursAgainstTheDaysEnd_data();
    void hoursAgainstTheDaysEnd();
    void hoursSpinnerAfterPlacing_data();
    void hoursSpinnerAfterPlacing();
    void lastClickIsTheStartSlot();
    void contractEventRefusesTheHourAndIsNotStored();
    void meetingPlacedTwiceKeepsTheNumber();
    void openingDate_data();
    void openingDate();
    void clearAsksThenWritesTheFreedDay();
    void newProblemCodeJoinsTheList();
    void monthSheetGoesToTheClickedDay();
    void dayViewShowsTheBookedHours();
    void rescheduleTakesTheOldSlipsTeamAndHours();
    void activationByMode_data();
    void activationByMode();
    void lastStoredSlipScheduledClosesTheMenuEntry();
    void deleteAllStoredSlipsAsksTwice();
    void storedSlipIsBookedWithItsOwnCustomer();
    void menuAndCustomerBringTheScreen();
    void opensAtItsOwnSize();
};

void TestFrmMain::serviceSlipEndToEnd()
{
    Screen s(2);
    QSignalSpy menu(s.w.get(), &frmMain::showMenu);
    QCOMPARE(s.w->windowTitle(), QString("Scheduling Screen"));
    QVERIFY(s.w->ckSaveUnscheduled->isVisible());
    QVERIFY(!s.w->cmdSaveTextMessage->isEnabled());
    QCOMPARE(s.w->txtName->text(), QString("Ada Byron"));
    QCOMPARE(s.w->cboService->currentText(), QString("Leaking tap"));
    QCOMPARE(s.w->fgHours->textMatrix(0, 0), QString("06:00am"));
    QCOMPARE(s.w->fgHours->textMatrix(6, 0), QString("01:00pm"));

    s.pickTeam(2);
    s.pickDate(kTuesday);
    s.setHours(3);
    s.clickRow(4);
    for (int r = 4; r <= 6; ++r)
        QCOMPARE(s.row(r), QString("SA120-1 Ada Byron"));

    s.f.dialogs.expect("Service  Attention SA120-1 has been Scheduled", "Confirmation");
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(menu.count(), 1);

    QCOMPARE(s.f.get("2026/Team#2/125.txt"),
             freeLines(3) + line("SA120-1 Ada Byron").repeated(3) + freeLines(6));
    const QByteArray bytes = s.f.get("Slips.txt");
    QCOMPARE(bytes.size(), 297);
    QCOMPARE(bytes.left(42), QByteArray("Service   SA120-1   2 Hours 3 05/05/2026"
                                        "4 "));
    const SlipRecord slip(bytes);
    QCOMPARE(slip.text(SlipField::Reference), QString("Leaking tap"));
    QCOMPARE(slip.text(SlipField::Status), QString("Scheduled"));
    QCOMPARE(slip.text(SlipField::Amount), QString("$0.00"));
    QCOMPARE(slip.text(SlipField::AcctNo), QString("A-100"));
    QCOMPARE(slip.text(SlipField::Street), QString("12 Mill Road"));
    QCOMPARE(slip.text(SlipField::Apt), QString("Unit 3"));
    QCOMPARE(slip.text(SlipField::Tel), QString("(555)123-4567"));
    QCOMPARE(s.f.v.gConfirmation, QString("SA120-2"));
    QCOMPARE(s.f.get("Counter.txt"), QByteArray("\"120\",2\r\n"));

    // The slip just saved goes to the clipboard as a text message.
    QVERIFY(s.w->cmdSaveTextMessage->isEnabled());
    s.f.dialogs.expectContaining("now on the System Clipboard");
    QTest::mouseClick(s.w->cmdSaveTextMessage, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.desktop.clipboard, QString("Service Attention - SA120-1\r\nAda Byron\r\n"
                                          "12 Mill Road\r\nGreenfield, OH 45123\r\n"
                                          "(555)123-4567\r\nScheduled for 05/05/2026\r\n"
                                          "at 09:00\r\nLeaking tap\r\n"));
}

void TestFrmMain::hoursAgainstTheDaysEnd_data()
{
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("placed");
    QTest::newRow("12 hours on row 1") << 12 << 1 << true;
    QTest::newRow("12 hours on row 2") << 12 << 2 << false;
    QTest::newRow("3 hours on row 10") << 3 << 10 << true;
    QTest::newRow("3 hours on row 11") << 3 << 11 << false;
    QTest::newRow("1 hour on row 12") << 1 << 12 << true;
}

void TestFrmMain::hoursAgainstTheDaysEnd()
{
    QFETCH(int, hours);
    QFETCH(int, row);
    QFETCH(bool, placed);
    Screen s(2);
    s.setHours(hours);
    if (!placed)
        s.f.dialogs.expect("Hours Requested exceed Hours Remaining this Date", "Selection Error");
    s.clickRow(row);
    VERIFY_DIALOGS(s.f.dialogs);
    int taken = 0;
    for (int r = 1; r <= 12; ++r)
        taken += s.row(r) == "SA120-1 Ada Byron";
    QCOMPARE(taken, placed ? hours : 0);
    QCOMPARE(s.w->EventText, placed ? QString("SA120-1 Ada Byron") : QString("No Slot Selected"));
}

// A change of the hours takes the placed event off the grid; a press against the spinner's
// end changes nothing and keeps it.
void TestFrmMain::hoursSpinnerAfterPlacing_data()
{
    QTest::addColumn<int>("hours");
    QTest::addColumn<bool>("up");
    QTest::addColumn<int>("hoursAfter");
    QTest::addColumn<bool>("kept");
    QTest::newRow("down at 1") << 1 << false << 1 << true;
    QTest::newRow("up at 12") << 12 << true << 12 << true;
    QTest::newRow("down at 2") << 2 << false << 1 << false;
    QTest::newRow("up at 11") << 11 << true << 12 << false;
}

void TestFrmMain::hoursSpinnerAfterPlacing()
{
    QFETCH(int, hours);
    QFETCH(bool, up);
    QFETCH(int, hoursAfter);
    QFETCH(bool, kept);
    Screen s(2);
    s.setHours(hours);
    s.clickRow(1);
    QCOMPARE(s.row(hours), QString("SA120-1 Ada Byron"));
    QTest::mouseClick(up ? s.w->updnTime->up : s.w->updnTime->down, Qt::LeftButton);
    QCOMPARE(s.w->txtTime->text(), QString::number(hoursAfter));
    QCOMPARE(s.row(1), kept ? QString("SA120-1 Ada Byron") : QString("No Event Scheduled"));
    QCOMPARE(s.w->EventText, kept ? QString("SA120-1 Ada Byron") : QString("No Slot Selected"));
}

void TestFrmMain::lastClickIsTheStartSlot()
{
    Screen s(2);
    s.pickDate(kTuesday);
    s.clickRow(4);
    s.clickRow(9); // the same slip again: a beep, and the grid stays
    QCOMPARE(s.f.dialogs.beeps, 1);
    QCOMPARE(s.row(4), QString("SA120-1 Ada Byron"));
    QCOMPARE(s.row(9), QString("No Event Scheduled"));
    s.f.dialogs.expect("Service  Attention SA120-1 has been Scheduled", "Confirmation");
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.record("Slips.txt").text(SlipField::StartSlot), QString("9"));
    QCOMPARE(s.f.get("2026/Team#1/125.txt"),
             freeLines(3) + line("SA120-1 Ada Byron") + freeLines(8));
}

void TestFrmMain::contractEventRefusesTheHourAndIsNotStored()
{
    Screen s(2);
    ContractRecord k;
    k.setText(ContractField::ContractTeam, "South Truck");
    k.setReal(ContractField::ContractNextDate, ToOleDate(kTuesday));
    k.setText(ContractField::ContractTime, "09:00 am");
    k.setText(ContractField::ContractCustomer, "Hill Farm");
    s.f.put("ContractInfo.txt", k.bytes());

    s.pickDate(kTuesday);
    s.pickTeam(2);
    QCOMPARE(s.row(4), QString("Hill Farm - Contract Event"));
    // Two hours from row 3 run into the contract's hour.
    s.setHours(2);
    s.f.dialogs.expect("Event already Scheduled Here", "Selection Error");
    s.clickRow(3);
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.row(3), QString("No Event Scheduled"));

    // The keyboard places it as a click would.
    s.w->fgHours->setCurrentIndex(s.w->fgHours->model()->index(4, 1));
    QTest::keyClick(s.w->fgHours, Qt::Key_Return);
    QCOMPARE(s.row(6), QString("SA120-1 Ada Byron"));
    s.f.dialogs.expect("Service  Attention SA120-1 has been Scheduled", "Confirmation");
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    // The contract's hour is written free; the contract shows again at the next load.
    QCOMPARE(s.f.get("2026/Team#2/125.txt"),
             freeLines(4) + line("SA120-1 Ada Byron").repeated(2) + freeLines(6));
}

void TestFrmMain::meetingPlacedTwiceKeepsTheNumber()
{
    Screen s(7);
    QVERIFY(!s.w->fraCustomer->isVisible());
    QVERIFY(!s.w->ckSaveUnscheduled->isVisible());
    s.pickDate(kTuesday);
    s.clickRow(2);
    s.clickRow(5);
    QCOMPARE(s.f.dialogs.beeps, 0);
    QCOMPARE(s.row(2), QString("Mtg - 07:00 - Ada Byron"));
    QCOMPARE(s.row(5), QString("Mtg - 10:00 - Ada Byron"));

    s.f.dialogs.expect("Customer Meeting has been Scheduled", "Confirmation");
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.f.get("2026/Team#1/125.txt"), freeLines(1) + line("Mtg - 07:00 - Ada Byron") +
                                                 freeLines(2) + line("Mtg - 10:00 - Ada Byron") +
                                                 freeLines(7));
    const SlipRecord meeting = s.record("Meetings.txt");
    QCOMPARE(meeting.text(SlipField::RecType), QString("Meeting"));
    QCOMPARE(meeting.text(SlipField::StartSlot), QString("5"));
    QCOMPARE(meeting.text(SlipField::Reference), QString("Mtg - 10:00 - Ada Byron"));
    QVERIFY(!s.f.has("Slips.txt"));
    QCOMPARE(s.f.v.gConfirmation, QString("SA120-1"));
    QVERIFY(!s.f.has("Counter.txt"));
}

void TestFrmMain::openingDate_data()
{
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<int>("workDays");
    QTest::addColumn<QDate>("opens");
    const QDate friday(2026, 5, 1);
    QTest::newRow("Friday at 8 pm, five days")
        << QDateTime(friday, QTime(20, 0)) << 5 << QDate(2026, 5, 4);
    QTest::newRow("New Year's Eve of a leap year at 9 pm")
        << QDateTime(QDate(2028, 12, 31), QTime(21, 0)) << 5 << QDate(2029, 1, 1);
}

void TestFrmMain::openingDate()
{
    QFETCH(QDateTime, now);
    QFETCH(int, workDays);
    QFETCH(QDate, opens);
    Screen s(0, now);
    s.f.v.gWorkDays = quint8(workDays);
    s.f.v.Mode = Mode::ServiceSlip;
    s.w->Form_Activate();
    QCOMPARE(s.w->Calender->selectedDate(), opens);
    QCOMPARE(s.w->currentDate(), opens);
    QCOMPARE(s.f.v.gDayOfYear, qint16(opens.dayOfYear()));
    QCOMPARE(s.f.v.DayFilePath,
             QString("/%1/Team#1/%2.txt").arg(opens.year()).arg(opens.dayOfYear()));
}

void TestFrmMain::clearAsksThenWritesTheFreedDay()
{
    Screen s(2);
    s.f.put("2026/Team#1/125.txt", line("Other job") + freeLines(11));
    s.pickDate(kTuesday);
    s.setHours(2);
    s.clickRow(3);
    s.f.dialogs.expect("This will reset the time selected for this event", "Clearing Time Slots",
                       Answer::No);
    QTest::mouseClick(s.w->cmdClear, Qt::LeftButton);
    QCOMPARE(s.row(3), QString("SA120-1 Ada Byron"));
    s.f.dialogs.expect("This will reset the time selected for this event", "Clearing Time Slots",
                       Answer::Yes);
    QTest::mouseClick(s.w->cmdClear, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.row(3), QString("No Event Scheduled"));
    QCOMPARE(s.w->EventText, QString("No Slot Selected"));
    QCOMPARE(s.f.get("2026/Team#1/125.txt"), line("Other job") + freeLines(11));

    // A change of the hours takes the event off the grid without a question.
    s.clickRow(5);
    QCOMPARE(s.row(5), QString("SA120-1 Ada Byron"));
    s.setHours(3);
    QCOMPARE(s.row(5), QString("No Event Scheduled"));
    QCOMPARE(s.row(6), QString("No Event Scheduled"));
    // Saving now stops: no time is selected.
    s.f.dialogs.expect("You have not selected a Time for this Event", "Click on a Time");
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    QVERIFY(!s.f.has("Slips.txt"));
}

void TestFrmMain::newProblemCodeJoinsTheList()
{
    Screen s(2);
    QSignalSpy changed(s.w.get(), &frmMain::problemCodesChanged);
    s.w->cboService->setEditText("Frozen pipe");
    s.f.dialogs.expect("Would you like to add this\nDescription to your Dropdown list?",
                       "New Problem Code", Answer::No);
    s.w->cboService_LostFocus();
    QVERIFY(!s.f.has("ProblemCode.txt"));
    s.f.dialogs.expect("Would you like to add this\nDescription to your Dropdown list?",
                       "New Problem Code", Answer::Yes);
    s.w->cboService_LostFocus();
    VERIFY_DIALOGS(s.f.dialogs);
    QCOMPARE(s.f.get("ProblemCode.txt"),
             QByteArray("\"Leaking tap\"\r\n\"No Heat\"\r\n\"Frozen pipe\"\r\n"));
    QCOMPARE(s.w->cboService->count(), 3);
    QCOMPARE(s.w->cboService->currentText(), QString("Frozen pipe"));
    QCOMPARE(changed.count(), 1);
    // A text of the list asks nothing.
    s.w->cboService_LostFocus();
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestFrmMain::monthSheetGoesToTheClickedDay()
{
    Screen s(2);
    s.f.put("2026/Team#2/135.txt", line("Job") + line("Job") + freeLines(10)); // 15 May
    s.pickDate(kTuesday);
    s.pickTeam(2);
    s.w->mnuTeamCal_Click();
    TeamMonthFrame* sheet = s.w->fraTeamCal;
    QVERIFY(sheet->isVisible());
    // May 2026 starts on a Friday: box 5 is the first.
    QCOMPARE(sheet->Text1[5]->text(), QString("1"));
    QCOMPARE(sheet->Text1[19]->text(), QString("2"));
    QCOMPARE(sheet->Text1[19]->palette().color(QPalette::Text), TeamMonthFrame::bookedColor());
    QCOMPARE(sheet->Text1[20]->palette().color(QPalette::Text), TeamMonthFrame::freeColor());
    QCOMPARE(sheet->txtCurrentTeam->text(), QString("South Truck"));

    // Stepping the team redraws the open sheet.
    // The arrows move as they point: down the list to the next team, and back up.
    QTest::mouseClick(sheet->UpDnTeam->down, Qt::LeftButton);
    QCOMPARE(s.w->lstTeam->currentRow(), 2);
    QCOMPARE(sheet->Text1[19]->text(), QString("15"));
    QTest::mouseClick(sheet->UpDnTeam->up, Qt::LeftButton);
    QCOMPARE(s.w->lstTeam->currentRow(), 1);

    QTest::mouseClick(sheet->Text1[0], Qt::LeftButton); // before the 1st: nothing
    QVERIFY(sheet->isVisible());
    QTest::mouseClick(sheet->Text1[19], Qt::LeftButton);
    QVERIFY(!sheet->isVisible());
    QCOMPARE(s.w->Calender->selectedDate(), QDate(2026, 5, 15));
    QCOMPARE(s.row(1), QString("Job"));
}

void TestFrmMain::dayViewShowsTheBookedHours()
{
    Screen s(2);
    SlipRecord r(slipBytes("Hill Farm", "4 Lane", "555-0101"));
    r.setText(SlipField::TeamNo, "1");
    r.setText(SlipField::EventDate, "05/05/2026");
    r.setText(SlipField::StartSlot, "2");
    r.setText(SlipField::TimeUnit, "Hours");
    r.setText(SlipField::Hours, "2");
    s.f.put("Slips.txt", r.bytes());
    s.f.put("2026/Team#1/125.txt", freeLines(1) + line("X Hill Farm").repeated(2) + freeLines(9));
    s.pickDate(kTuesday);
    QTest::mouseClick(s.w->cmdView_0, Qt::LeftButton);
    QVERIFY(s.w->fraDay->isVisible());
    QCOMPARE(s.w->fraDay->title(), QString("Work Schedule for North Truck 05/05/2026"));
    const QString booked = "Hill Farm\n4 Lane\nDayton, OH\n555-0101\nNo Heat";
    QCOMPARE(s.w->fraDay->txtHourSlot[1]->toPlainText(), booked);
    QCOMPARE(s.w->fraDay->txtHourSlot[2]->toPlainText(), booked);
    QCOMPARE(s.w->fraDay->Label2[2]->toolTip(), QString("555-0101"));
    QCOMPARE(s.w->fraDay->txtHourSlot[3]->toPlainText(),
             QString("         No Event Scheduled\n\n"));
    QTest::mouseClick(s.w->cmdView_0, Qt::LeftButton);
    QVERIFY(!s.w->fraDay->isVisible());
}

void TestFrmMain::rescheduleTakesTheOldSlipsTeamAndHours()
{
    Screen s(0);
    s.f.v.gSlip = SlipRecord(slipBytes("Ada Byron", "12 Mill Road", "555"));
    s.f.v.gSlip.setText(SlipField::TeamNo, "3");
    s.f.v.gSlip.setText(SlipField::Hours, "4");
    s.f.v.gSlip.setText(SlipField::Reference, "Boiler service");
    s.f.v.Mode = Mode::Reschedule;
    s.w->Form_Activate();
    QCOMPARE(s.f.v.Mode, Mode::ServiceSlip);
    QCOMPARE(s.w->lstTeam->currentRow(), 2);
    QCOMPARE(s.f.v.CurrentTeam, QString("3"));
    QCOMPARE(s.w->cboService->currentText(), QString("Boiler service"));
    QCOMPARE(s.w->txtTime->text(), QString("4"));
    QCOMPARE(s.w->Rescheduling, qint16(0));
    // A meeting found by the record screen is booked again as a meeting.
    s.w->rescheduleMeeting = true;
    s.f.v.Mode = Mode::Reschedule;
    s.w->Form_Activate();
    QCOMPARE(s.f.v.Mode, Mode::Meeting);
    QCOMPARE(s.w->lstTeam->currentRow(), 0);
}

void TestFrmMain::activationByMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("booking"); // save, clear, hours and problem open
    QTest::addColumn<bool>("customer");
    QTest::addColumn<int>("teams");
    QTest::newRow("service slip") << 2 << "Scheduling Screen" << true << true << 3;
    QTest::newRow("meeting") << 7 << "Scheduling Screen" << true << false << 3;
    QTest::newRow("schedules") << 3 << "Print Setup Screen" << false << true << 4;
    QTest::newRow("invoices") << 5 << "Print Invoices Screen" << false << false << 3;
}

void TestFrmMain::activationByMode()
{
    QFETCH(int, mode);
    QFETCH(QString, caption);
    QFETCH(bool, booking);
    QFETCH(bool, customer);
    QFETCH(int, teams);
    Screen s{qint16(mode)};
    QCOMPARE(s.w->windowTitle(), caption);
    QCOMPARE(s.w->cmdSave->isEnabled(), booking);
    QCOMPARE(s.w->cmdClear->isEnabled(), booking);
    QCOMPARE(s.w->fraTime->isVisible(), booking);
    QCOMPARE(s.w->fraService->isVisible(), mode == 2);
    QCOMPARE(s.w->ckSaveUnscheduled->isVisible(), mode == 2);
    QCOMPARE(s.w->fraCopies->isVisible(), mode == 3);
    QCOMPARE(s.w->fraInvoiceType->isVisible(), mode == 5);
    QCOMPARE(s.w->cmdView_0->isEnabled(), mode != 3);
    QCOMPARE(s.w->mnuTeamCal->isVisible(), mode != 3);
    // Printing is the routine of the print modes only.
    QCOMPARE(s.w->cmdPrint->isEnabled(), mode == 3 || mode == 5);
    QVERIFY(!s.w->cmdSaveTextMessage->isEnabled());
    QCOMPARE(s.w->lstTeam->count(), teams);
    QCOMPARE(s.w->lstTeam->currentRow(), 0);
    QCOMPARE(s.w->fraCustomer->isVisible(), customer);
    if (customer) {
        s.f.dialogs.expect("Customer Data cannot be Altered\nIf incorrect, cancel this Routine\n"
                           "and edit the Customer Record",
                           "Customer Info");
        QTest::mouseClick(s.w->txtName, Qt::LeftButton);
        VERIFY_DIALOGS(s.f.dialogs);
        QCOMPARE(s.w->txtName->text(), QString("Ada Byron"));
    }
    // A click on the grid books only in Modes 2 and 7.
    s.clickRow(3);
    QCOMPARE(s.row(3) != "No Event Scheduled", booking);
}

namespace
{
struct Run {
    QTemporaryDir folder;
    QTemporaryDir locks;
    TestClock clock;
    ScriptedDialogs dialogs;
    RecordingDesktop desktop;
    std::unique_ptr<App> app;

    QString abs(const QString& name) const { return folder.path() + u'/' + name; }
    void put(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(abs(name)).path());
        QFile f(abs(name));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    // An installation with two stored slips, started up to the menu.
    void startAtTheMenu(const QByteArray& stored)
    {
        put("Assignto.txt", "\"North\"\r\n\"South\"\r\n");
        put("ProblemCode.txt", "\"No Heat\"\r\n");
        put("MyBusinessData.txt",
            "\"Acme\",\"1 Road\",\"\",\"Town\",\"IL\",\"60000\",\"555-0100\",\"\",\"\"\r\n");
        put("TresvaneDispatcherSettings.txt",
            "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
        put("UnscheduledSlips.txt", stored);
        app = std::make_unique<App>(folder.path(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        QVERIFY(app->Main());
        QTest::mouseClick(app->splash->cmdContinue, Qt::LeftButton);
        QVERIFY(app->startup && app->startup->isVisible());
    }
};
} // namespace

void TestFrmMain::lastStoredSlipScheduledClosesTheMenuEntry()
{
    Run run;
    run.startAtTheMenu(slipBytes("Cy Twombly", "9 Elm St", "555-0199"));
    QVERIFY(run.app->startup->lblSub[8]->isEnabled());
    QTest::mouseClick(run.app->startup->lblSub[8], Qt::LeftButton);
    frmMain* w = run.app->mainForm;
    QVERIFY(w && w->isVisible());
    QCOMPARE(run.app->v.Mode, Mode::StoredSlips);
    QVERIFY(w->fraUnscheduled->isVisible());
    QVERIFY(!w->fgHours->isVisible());
    QCOMPARE(w->fraUnscheduled->fgUnscheduled->rows(), 1);
    QCOMPARE(w->fraUnscheduled->fgUnscheduled->textMatrix(0, 1), QString("9 Elm St"));

    QTest::mouseClick(w->fraUnscheduled->cmdUnscheduled[1], Qt::LeftButton);
    QCOMPARE(run.app->v.Mode, Mode::ServiceSlip);
    QVERIFY(!w->fraUnscheduled->isVisible());
    QVERIFY(w->fgHours->isVisible());
    QCOMPARE(run.app->v.current.address1, QString("9 Elm St"));
    QCOMPARE(w->txtName->text(), QString("Cy Twombly"));

    const QModelIndex index = w->fgHours->model()->index(6, 1);
    w->fgHours->scrollTo(index);
    QTest::mouseClick(w->fgHours->viewport(), Qt::LeftButton, {},
                      w->fgHours->visualRect(index).center());
    const QString number = run.app->v.gConfirmation;
    run.dialogs.expect("Service  Attention " + number + " has been Scheduled", "Confirmation");
    run.dialogs.expect("This will Delete the Selected Slip Record", "Record Deletion", Answer::Yes);
    QTest::mouseClick(w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(!QFile::exists(run.abs("UnscheduledSlips.txt")));
    QVERIFY(!QFile::exists(run.abs("Backup/UnscheduledSlips.txt")));
    QVERIFY(!w->isVisible());
    QVERIFY(run.app->startup && run.app->startup->isVisible());
    QVERIFY(!run.app->startup->lblSub[8]->isEnabled());
    run.app->ExitProgram();
}

void TestFrmMain::deleteAllStoredSlipsAsksTwice()
{
    Run run;
    run.startAtTheMenu(slipBytes("Cy Twombly", "9 Elm St", "1") +
                       slipBytes("Di Arbus", "2 Oak", "2"));
    QTest::mouseClick(run.app->startup->lblSub[8], Qt::LeftButton);
    frmMain* w = run.app->mainForm;
    QCOMPARE(w->fraUnscheduled->fgUnscheduled->rows(), 2);

    // One slip first: the selected one goes, the other stays.
    w->fraUnscheduled->fgUnscheduled->selectRow(1);
    run.dialogs.expect("This will Delete the Selected Slip Record", "Record Deletion", Answer::Yes);
    QTest::mouseClick(w->fraUnscheduled->cmdUnscheduled[2], Qt::LeftButton);
    QCOMPARE(QFileInfo(run.abs("UnscheduledSlips.txt")).size(), 297);
    QVERIFY(run.app->startup->isVisible());

    QTest::mouseClick(run.app->startup->lblSub[8], Qt::LeftButton);
    QCOMPARE(w->fraUnscheduled->fgUnscheduled->textMatrix(0, 0), QString("Cy Twombly"));
    run.dialogs.expect("This will Delete All Unscheduled Slip Records", "File Deletion",
                       Answer::Yes);
    run.dialogs.expect("Are you Sure?", "Confirmation", Answer::No);
    QTest::mouseClick(w->fraUnscheduled->cmdUnscheduled[3], Qt::LeftButton);
    QVERIFY(QFile::exists(run.abs("UnscheduledSlips.txt")));
    QVERIFY(run.app->startup->isVisible());

    QTest::mouseClick(run.app->startup->lblSub[8], Qt::LeftButton);
    run.dialogs.expect("This will Delete All Unscheduled Slip Records", "File Deletion",
                       Answer::Yes);
    run.dialogs.expect("Are you Sure?", "Confirmation", Answer::Yes);
    QTest::mouseClick(w->fraUnscheduled->cmdUnscheduled[3], Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(!QFile::exists(run.abs("UnscheduledSlips.txt")));
    QVERIFY(!run.app->startup->lblSub[8]->isEnabled());
    run.app->ExitProgram();
}

// A stored slip loaded after another customer was in hand is booked with its own account,
// address lines and problem text, and only its own record leaves the store.
void TestFrmMain::storedSlipIsBookedWithItsOwnCustomer()
{
    Screen s{2}; // Ada Byron, A-100, was the last customer
    const QByteArray cy = slipBytes("Cy Twombly", "9 Elm St", "555-0199");
    SlipRecord di(slipBytes("Di Arbus", "2 Oak Lane", "555-0102"));
    di.setText(SlipField::AcctNo, "D-200");
    di.setText(SlipField::Apt, "Rear door");
    di.setText(SlipField::Reference, "Boiler knocks");
    s.f.put("UnscheduledSlips.txt", cy + di.bytes());
    s.f.v.Mode = Mode::StoredSlips;
    s.w->Form_Activate();
    s.w->fraUnscheduled->fgUnscheduled->selectRow(1);
    QTest::mouseClick(s.w->fraUnscheduled->cmdUnscheduled[1], Qt::LeftButton);
    QCOMPARE(s.w->txtAccount->text(), QString("D-200"));
    QCOMPARE(s.w->txtName->text(), QString("Di Arbus"));
    QCOMPARE(s.w->txtAddress1->text(), QString("2 Oak Lane"));
    QCOMPARE(s.w->txtAddress2->text(), QString("Rear door"));
    QCOMPARE(s.w->cboService->currentText(), QString("Boiler knocks"));

    s.clickRow(5);
    s.f.dialogs.expect("Service  Attention SA120-1 has been Scheduled", "Confirmation");
    s.f.dialogs.expect("This will Delete the Selected Slip Record", "Record Deletion", Answer::Yes);
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    VERIFY_DIALOGS(s.f.dialogs);
    const SlipRecord saved = s.record("Slips.txt");
    QCOMPARE(saved.text(SlipField::AcctNo), QString("D-200"));
    QCOMPARE(saved.text(SlipField::Name), QString("Di Arbus"));
    QCOMPARE(saved.text(SlipField::Street), QString("2 Oak Lane"));
    QCOMPARE(saved.text(SlipField::Apt), QString("Rear door"));
    QCOMPARE(saved.text(SlipField::Tel), QString("555-0102"));
    QCOMPARE(saved.text(SlipField::Reference), QString("Boiler knocks"));
    QCOMPARE(s.f.get("UnscheduledSlips.txt"), cy);
}

// The frames that only some routines show start hidden: shown at the first showing, the
// day view alone would stretch the window past a laptop's screen, Save and all.
void TestFrmMain::opensAtItsOwnSize()
{
    for (const qint16 mode : {2, 7, 3}) {
        Screen s(mode);
        QVERIFY2(s.w->height() <= 720, qPrintable(QString::number(s.w->height())));
    }
}

void TestFrmMain::menuAndCustomerBringTheScreen()
{
    Run run;
    run.startAtTheMenu(QByteArray());
    QVERIFY(!run.app->startup->lblSub[8]->isEnabled()); // an empty stored-slip file
    QTest::mouseClick(run.app->startup->lblSub[2], Qt::LeftButton);
    frmMain* w = run.app->mainForm;
    QVERIFY(w && w->isVisible());
    QCOMPARE(run.app->v.Mode, Mode::WorkSchedules);
    QCOMPARE(w->windowTitle(), QString("Print Setup Screen"));
    QTest::mouseClick(w->cmdExit, Qt::LeftButton);
    QVERIFY(!w->isVisible());
    QVERIFY(run.app->startup && run.app->startup->isVisible());

    QTest::mouseClick(run.app->startup->lblSub[4], Qt::LeftButton);
    QCOMPARE(run.app->v.Mode, Mode::Invoices);
    QCOMPARE(w->windowTitle(), QString("Print Invoices Screen"));
    QTest::mouseClick(w->cmdExit, Qt::LeftButton);

    // The customer screen hands over with the Mode its menu entry set.
    run.app->v.Mode = Mode::Meeting;
    run.app->v.current.name = "Ada Byron";
    run.app->ShowMainForCustomer();
    QVERIFY(w->isVisible());
    QVERIFY(!run.app->startup);
    QCOMPARE(w->windowTitle(), QString("Scheduling Screen"));
    QCOMPARE(w->lstTeam->count(), 2);
    run.app->ExitProgram();
}

QTEST_MAIN(TestFrmMain)
#include "test_frmmain.moc"
