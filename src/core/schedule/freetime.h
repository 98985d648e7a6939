#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QList>
#include <QString>

namespace tresvane
{
// The first free hours for a job: with a customer on the line, the dispatcher asks for
// the hours the job needs and gets the earliest openings of every team (or of one), day by
// day, instead of clicking through teams and dates.

struct FreeTimeRequest {
    int hours = 1;  // consecutive hours, 1 to 12
    QDate from;     // the first day to look at; not before the first day one can book
    int team = 0;   // the team's number; 0 for every team
    int limit = 10; // openings wanted
    int days = 60;  // how far ahead to look from `from`
};

// One opening: the team's first run of free hours on that day.
struct FreeOpening {
    QDate date;
    int team = 0;
    int firstSlot = 0; // 1 to 12
};

// The openings, by date, and within a date by first hour and then by team. A day the work
// week does not work is passed over. An hour is free as the booking grid sees it: its text
// says "No Event" (a blocked day's reason does not, nor does any booking), and a contract
// event laid over the grid takes its hours. Hours may run over the lunch gap, from 11 to 1,
// as a booking can. Refused with a message for hours outside 1 to 12.
Result<QList<FreeOpening>> FindFreeTime(CoreContext& c, const FreeTimeRequest& request);

// "05/06/2026  Team 2 name  01:00pm": an opening as the lists show it.
QString FreeOpeningText(const CoreContext& c, const FreeOpening& opening);
} // namespace tresvane
