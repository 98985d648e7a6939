#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QString>
#include <array>

namespace tresvane
{
// The month sheet of one team, "Hours Availability/Usage by Team": six weeks of seven
// boxes from Sunday. Each day shows its number in blue; a day from today on whose file
// holds booked hours shows their count in red instead (a blocked day shows 12).

struct TeamMonth {
    std::array<QString, 42> Text1; // the boxes; empty outside the month
    std::array<bool, 42> red{};    // true: the box shows booked hours
    QString txtCurrentDate;        // the calendar's day number and the month's name
};

// The month names of the date texts on the Scheduling Screen: "Jan", "Feb", "March", ...
QString BookingMonthName(int month);

// The sheet of the calendar's month for the team (its number as text). Every field of a
// day file that does not contain "No Event Scheduled" counts as a booked hour, however the
// lines are formed. Days before today keep their numbers.
Result<TeamMonth> DrawTeamMonth(CoreContext& c, const QDate& calendarDate, const QString& team);

// The date a click on a box goes to: its day of the calendar's month. Invalid for an empty
// box or an index outside 0 to 41.
QDate MonthBoxDate(const TeamMonth& month, const QDate& calendarDate, int box);
} // namespace tresvane
