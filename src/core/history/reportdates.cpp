#include "core/history/reportdates.h"

#include "core/entry/keyfilters.h"
#include "core/ports/dialogs.h"

#include <algorithm>

namespace tresvane
{
IncomeReportDates::IncomeReportDates(const QDate& today)
    : DTPicker1{today.addDays(-30), today}, ReportStartDate(DTPicker1[0]),
      ReportEndDate(DTPicker1[1])
{
}

QDate IncomeReportDates::SetMonth(const QDate& date, int month)
{
    const QDate first(date.year(), month, 1);
    return QDate(date.year(), month, std::min(date.day(), first.daysInMonth()));
}

QDate IncomeReportDates::SetDay(const QDate& date, int day)
{
    return QDate(date.year(), date.month(), std::min(day, date.daysInMonth()));
}

QDate IncomeReportDates::SetYear(const QDate& date, int year)
{
    const QDate first(year, date.month(), 1);
    return QDate(year, date.month(), std::min(date.day(), first.daysInMonth()));
}

void IncomeReportDates::PickerChanged(int index, const QDate& date, const QDate& today,
                                      Dialogs& dialogs)
{
    if (index == 0 || index == 1) DTPicker1[index] = date;
    ChangeLogic(index, today, dialogs);
}

void IncomeReportDates::ChangeLogic(int index, const QDate& today, Dialogs& dialogs)
{
    if (index != 0 && index != 1) {
        CheckDateRange(dialogs);
        return;
    }
    if (DTPicker1[index] > today) {
        dialogs.beep();
        CalendarMessage(dialogs);
        DTPicker1[index] = today;
        return;
    }
    (index == 0 ? ReportStartDate : ReportEndDate) = DTPicker1[index];
    CheckDateRange(dialogs);
}

void IncomeReportDates::CheckDateRange(Dialogs& dialogs)
{
    if (ReportEndDate >= ReportStartDate) return;
    CalendarMessage(dialogs);
    DTPicker1[1] = DTPicker1[0];
}

void IncomeReportDates::cmdIncome_Click(int index, const QDate& today, Dialogs& dialogs)
{
    QDate& first = DTPicker1[0];
    QDate& last = DTPicker1[1];
    switch (index) {
    case 1: // this month
        last = today;
        ChangeLogic(1, today, dialogs);
        first = SetMonth(first, today.month());
        first = SetDay(first, 1);
        first = SetYear(first, today.year());
        ChangeLogic(1, today, dialogs);
        break;
    case 2: // this year
    case 3: // since 1990
        last = today;
        ChangeLogic(1, today, dialogs);
        first = SetMonth(first, 1);
        first = SetDay(first, 1);
        first = SetYear(first, index == 2 ? today.year() : 1990);
        ChangeLogic(1, today, dialogs);
        break;
    case 0: { // last month
        cmdIncome_Click(1, today, dialogs);
        first = SetDay(first, 1);
        first = SetYear(first, today.year());
        const int month = today.month() - 1;
        if (month != 0) {
            first = SetMonth(first, month);
        } else {
            first = SetYear(first, today.year() - 1);
            first = SetMonth(first, 12);
        }
        ChangeLogic(1, today, dialogs);
        while (last.month() == today.month())
            last = last.addDays(-1);
        ChangeLogic(1, today, dialogs);
        break;
    }
    default:
        break;
    }
}
} // namespace tresvane
