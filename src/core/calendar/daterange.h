#pragma once

#include "core/io/result.h"

#include <QDate>
#include <QList>
#include <QString>

namespace tresvane
{
// The dates of a recurring series taken from a range of dates and how it repeats, with
// what was left out of the range and why.

enum class RangeFrequency {
    Every7Days,      // the start date and every seventh day after it
    Every14Days,     // the start date and every fourteenth day after it
    WeekdayEachWeek, // each chosen weekday from the start through the end
};

struct RangeDates {
    QList<QDate> dates;  // in order; each a work day, none before today
    int beforeToday = 0; // dates of the range that had already passed
    int nonWorkDays = 0; // dates of the range on a day the work week does not work
};

// The longest a range may run, in years: a slip of the year in the end date would
// otherwise book decades of events.
constexpr int kLongestRangeYears = 2;

// True when the work week code leaves the date unworked: 5 Saturday and Sunday, 61 Sunday,
// 62 Saturday, 7 none.
bool IsNonWorkDay(const QDate& date, int workWeekCode);

// The dates from start through end, both included, by the frequency; weekday (1 Monday to
// 7 Sunday) counts for WeekdayEachWeek only. A range runs across a year's end or a leap day
// like any other. Refused with a message for the user: an end before the start, or a range
// longer than two years.
Result<RangeDates> DatesInRange(const QDate& start, const QDate& end, RangeFrequency frequency,
                                int weekday, const QDate& today, int workWeekCode);

// What the user is told about the dates a range left out, after the series is booked;
// empty when none was.
QString LeftOutMessage(const RangeDates& range);
} // namespace tresvane
