#pragma once

#include <QDate>
#include <array>

namespace tresvane
{
class Dialogs;

// The two date pickers of the history report and the rules that keep them in order.
//
// The pickers are set part by part (month, day, year) in a fixed order, and each part is
// set on the date as it stands: a day the new month does not have falls back to that
// month's last day, as the picker control does. Setting a picker here never runs the
// change logic; the callers run it where the routines always have.
class IncomeReportDates
{
public:
    // Opening: the first date today less 30 days, the last date today; the two report
    // dates take these values.
    explicit IncomeReportDates(const QDate& today);

    // DTPicker1(0) and DTPicker1(1).
    std::array<QDate, 2> DTPicker1;
    // The last accepted values of the two pickers.
    QDate ReportStartDate;
    QDate ReportEndDate;

    // The user set picker `index` to `date`: the picker takes it, then the change logic.
    void PickerChanged(int index, const QDate& date, const QDate& today, Dialogs& dialogs);
    // The change logic of a picker. A date later than today beeps (whatever the alarms
    // setting), shows the calendar message and puts the picker back to today. Otherwise
    // index 0 or 1 keeps the date as the report's start or end, and the range is checked.
    // Any other index only checks the range.
    void ChangeLogic(int index, const QDate& today, Dialogs& dialogs);
    // When the end is before the start: the calendar message, and the last picker takes
    // the first picker's date. The report dates are left as they are.
    void CheckDateRange(Dialogs& dialogs);
    // The presets: 0 last month, 1 this month, 2 this year, 3 since 1990. Their change
    // logic always runs with index 1, so only the report's end follows them. Another
    // index does nothing.
    void cmdIncome_Click(int index, const QDate& today, Dialogs& dialogs);

    // One part of a picker's date set on the date as it stands.
    static QDate SetMonth(const QDate& date, int month);
    static QDate SetDay(const QDate& date, int day);
    static QDate SetYear(const QDate& date, int year);
};
} // namespace tresvane
