#pragma once

#include "core/io/result.h"
#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/dayview.h"
#include "core/schedule/freetime.h"
#include "core/state/corecontext.h"
#include "screens/shell/unsavededits.h"

#include <QDate>
#include <QMainWindow>
#include <array>
#include <optional>
class QAction;
class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QLabel;
class QPushButton;
class QSpinBox;

namespace tresvane
{
class Desktop;
class InvoiceTypeFrame;
class MemoFrame;
class PrintDialogs;
class PrintPanel;
class FlexGrid;
class UpDown;
class DayViewFrame;
class TeamMonthFrame;
class StoredSlipsFrame;
class FreeTimeDialog;

// The Scheduling Screen: one team's day as twelve hourly rows, where a Service
// Attention (Mode 2) or a customer meeting (Mode 7) is booked for the customer in hand.
// It also lists the stored slips (Mode 9), takes a reschedule over from the record screen
// (Mode 10), and is the frame of the schedule and invoice printing (Modes 3 and 5).
// Everything on it is reset each time it comes to the front.
class frmMain : public QMainWindow, public UnsavedEdits
{
    Q_OBJECT
public:
    frmMain(CoreContext& ctx, Desktop& desktop, PrintDialogs& printDialogs,
            QWidget* parent = nullptr);

    // Date and team
    QGroupBox* fraCalendar;
    QCalendarWidget* Calender;
    QGroupBox* fraTeam;
    QListWidget* lstTeam;
    // Hours and problem
    QGroupBox* fraTime;
    QLineEdit* txtTime;
    UpDown* updnTime;
    QLabel* lblMode;
    QGroupBox* fraService;
    QComboBox* cboService;
    QCheckBox* ckSaveUnscheduled;
    // The customer in hand, read only
    QGroupBox* fraCustomer;
    QLineEdit* txtAccount;
    QLineEdit* txtName;
    QLineEdit* txtAddress1;
    QLineEdit* txtAddress2;
    QLineEdit* txtCityStateZip;
    QLineEdit* txtPhone;
    // The day
    FlexGrid* fgHours;
    DayViewFrame* fraDay;
    TeamMonthFrame* fraTeamCal;
    StoredSlipsFrame* fraUnscheduled;
    // Print frames, shown in the print modes
    QGroupBox* fraCopies;
    QSpinBox* txtCopies;
    InvoiceTypeFrame* fraInvoiceType;
    MemoFrame* fraMemo;
    PrintPanel* fraInvoice;
    // Buttons
    QWidget* fraButtons;
    QPushButton* cmdSave;
    QPushButton* cmdClear;
    QPushButton* cmdExit;
    QPushButton* cmdView_0;
    QPushButton* cmdPrint;
    QPushButton* cmdSaveTextMessage;
    // Menus
    QAction* mnuCustomer;
    QAction* mnuTeamCal;
    QAction* mnuInvoiceS; // the Invoices menu
    QAction* mnuInvoiceStyle;
    QAction* mnuFindFreeTime;
    QAction* mnuMemo;
    QAction* mnuBlankinvoices;

    // The screen's state
    QString EventText;
    QString SlipNumber;
    qint16 Rescheduling = 0;
    qint16 FromStoredSlip = 0;
    // A reschedule hand-over came from a search of the meetings (else of the slips).
    bool rescheduleMeeting = false;
    // The number of the slip a reschedule took out, whose calendar event the new slip
    // carries on; empty when this booking is no reschedule.
    QString RescheduledFrom;
    // Blank invoices asked for, printed by the next invoice job instead of the day's.
    int BlankCount = 0;

    // The date the calendar stands on, which is the date a booking is for.
    QDate currentDate() const { return m_currentDate; }
    // The grid row (1 to 12) of the last click on fgHours.
    int gridRow() const { return m_gridRow; }
    // Column 1 of rows 1 to 12 of fgHours.
    GridColumn gridColumn() const;

    // An event placed on the grid of a booking and not saved yet.
    bool hasUnsavedEdits() const override;
    // cmdSave's save; true when the slip or meeting was booked.
    bool saveUnsavedEdits() override;

    // The activation steps, run each time the screen comes to the front, by Mode.
    void Form_Activate();
    // The calendar's change logic for a picked date.
    void Calender_Change(const QDate& picked);
    // The team's change logic for list entry i.
    void lstTeam_Change(int i);
    void UpDnTeam_Step(int step);
    void fgHours_Click(int row);
    void updnTime_Change(int step);
    void ResetTimeSelection();
    void cmdClear_Click();
    // True when the event was saved and the screen went back to the menu.
    bool cmdSave_Click();
    void cmdExit_Click();
    void cmdView_Click();
    void cmdSaveTextMessage_Click();
    void cboService_LostFocus();
    void fraCustomer_Click();
    void mnuTeamCal_Click();
    void mnuInvoiceStyle_Click();
    void mnuMemo_Click();
    void mnuBlankinvoices_Click();
    // The invoice style from the setup, the service order offered where its stock is.
    void RebuildInvoiceChoices();
    void DrawTeamMonth();
    void Text1_Click(int box);
    void cmdUnscheduled_Click(int index);
    // The first openings of the hours in the time box, from the calendar's date on.
    void mnuFindFreeTime_Click();
    // Moves to the team and day of an opening and places the hours there, ready to save.
    void GoToOpening(const FreeOpening& opening, int hours);

signals:
    void showMenu();
    // ProblemCode.txt was written with a new description.
    void problemCodesChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildLayout();
    void setCalendar(const QDate& date);
    void showGrid(const GridColumn& grid);
    void loadDay();
    void overlayContracts();
    void fillService(const QString& text);
    void fillTeams();
    void showCustomer();
    void setCaption();
    void BuildDayView();
    bool fail(const Status& s);

    CoreContext& c;
    Desktop& m_desktop;
    PrintDialogs& m_printDialogs;
    QDate m_currentDate;
    // The team's day on the screen, read once per change of team or date.
    TeamDay m_day;
    DayRecordIndex m_dayIndex;
    // What the grid's slot column shows, with the event placed by the clicks.
    GridColumn m_grid;
    int m_gridRow = 1;
    int m_storedSlipRow = 0;
    bool m_settingCalendar = false;
    FreeTimeDialog* m_freeTime = nullptr;
};
} // namespace tresvane
