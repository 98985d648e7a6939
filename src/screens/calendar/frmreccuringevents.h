#pragma once

#include "core/calendar/daterange.h"
#include "core/calendar/recurringevents.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QList>
#include <QWidget>
#include <array>

class QCalendarWidget;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace tresvane
{
class FlexGrid;
class UpDown;

// "Schedule a Recurring Event": one event on many dates at once, the dates clicked on a
// calendar or taken from a range that repeats, for a customer with an invoice, for a
// customer without one, or for no customer.
class frmReccuringEvents : public QWidget
{
    Q_OBJECT
public:
    explicit frmReccuringEvents(CoreContext& ctx, QWidget* parent = nullptr);

    // Coming to the front, from the menu or back from the customer screen: the teams and
    // titles filled, the customer in hand shown, the form reset.
    void Form_Activate();
    // From the menu a series starts without a customer: the one last in hand belonged to
    // another routine.
    void StartWithoutCustomer();

signals:
    void showMenu();
    // The customer button: the customer screen, whose choice comes back here.
    void customerWanted();

private:
    void buildLayout();
    QGroupBox* buildRange();
    QGroupBox* buildConflicts();
    void ResetForm();
    RecurringEvent event() const;
    int startSlot() const;
    int hours() const;
    RecurringKind kind() const;
    void optKind_Click();
    void cmdContinue_Click();
    void checkHours();
    void updnTime_Change(int step);
    void EventCalendar_Click(const QDate& date);
    void CmdButton_Click(int index);
    void Schedule();
    void Create();
    void showDates();

    CoreContext& c;
    QRadioButton* optInvoice;
    QRadioButton* optNonBillable;
    QRadioButton* optNoCustomer;
    QPushButton* cmdCustomer;
    QLineEdit* txtCustomer;
    QPushButton* cmdContinue;
    QGroupBox* fraCalendar;
    QCalendarWidget* EventCalendar;
    QListWidget* lstEventDates;
    QListWidget* lstAssignto;
    QComboBox* cboEventTitle;
    std::array<QRadioButton*, 12> optTime{};
    QLineEdit* txtTime;
    UpDown* updnTime;
    QGroupBox* fraRange;
    std::array<QRadioButton*, 3> optDays{};
    QListWidget* lstDays;
    QDateEdit* dtStart;
    QDateEdit* dtEnd;
    QGroupBox* fraConflict;
    FlexGrid* fgConflict;
    std::array<QPushButton*, 7> CmdButton{};

    QList<QDate> m_dates; // the dates of lstEventDates, in its order
    RangeDates m_range;   // what the last range left out, told after the booking
    bool m_fromRange = false;
};
} // namespace tresvane
