#pragma once

#include "core/io/result.h"
#include "core/schedule/dayfiles.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QString>
#include <array>

namespace tresvane
{

// The expanded day view of the Scheduling Screen: for each of the twelve hours, who is
// booked there, from the records of Slips.txt and Meetings.txt rather than from the day
// file, so that the crew sees the address and telephone of each job.

// One hour of the view. The same details are what the daily work schedule prints.
struct DayViewSlot {
    QString text;     // the box: name, street, "city, st", telephone, reference, a line each
    QString nameTip;  // hover text of the box: the name
    QString phoneTip; // hover text of the hour's label: the telephone (empty: nothing to dial)
    QString reference, name, street, city, st, tel;
};

struct DayView {
    std::array<DayViewSlot, 12> hours;
    // Free rows of the grid plus the hours found in the records; reading stops once it
    // passes 12, when every hour is accounted for.
    int counter = 0;
};

// The text of a free hour in the view: nine blanks, "No Event Scheduled", two line ends.
QString DayViewFreeText();

// The view of the team's day at calendarDate. A record belongs to it when its date has
// the same day of the year and the same last two characters (the year's last digits) and
// its trimmed team number is the team. A record takes its StartSlot and the hours after
// it: Hours, or 8 when its unit is "Days". Hours that would run past slot 12, or a start
// outside 1 to 12, which only a foreign file can hold, are left off the view.
Result<DayView> BuildDayView(CoreContext& c, const QDate& calendarDate, const QString& team,
                             const GridColumn& grid);

} // namespace tresvane
