#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace tresvane
{
// Whole work days of a team kept free of work (a vacation, a holiday) and given back. A
// blocked day is a day file whose twelve lines all hold the reason, so the Scheduling
// Screen shows every hour taken and refuses each click on it.

// "Vacation", "Holiday", "Personal Day", "Sick Day"
QStringList BlockReasons();

// A reason typed by the user: it must say something, and may hold neither a comma nor a
// double quote, which would split or end the bare line it is written as.
Status CheckBlockReason(const QString& reason);

struct BlockRequest {
    QDate start;    // the first day asked for
    int days = 1;   // consecutive work days
    QString reason; // written on every hour; ignored when restoring
    bool restore = false;
};

// The calendar's rule for a first day: a day before today becomes the next booking day, a
// later year gets its folders, and a day not worked moves to the next one worked.
Result<QDate> BlockStartDate(CoreContext& c, const QDate& picked);

// The work days of the request: its first day, then each next day the work week works, so
// a Friday and two days in the five-day week are Friday and Monday.
Result<QList<QDate>> BlockedDates(CoreContext& c, const BlockRequest& request);

// The question asked before the run, title "Action Selection".
QString BlockQuestion(const BlockRequest& request, const QString& teamText);

// Reserves (or restores) the days for one team. Reserving first checks every day: an hour
// that holds neither "No Event Scheduled" nor the reason (either case) is in the way; the
// user is told which, with a stop sign, and nothing of this team is written; the answer is
// then false. Restoring writes twelve free lines over each day without a check, wiping
// whatever was booked there from the day file (its record stays). The days of a team land
// together.
Result<bool> BlockTeamDays(CoreContext& c, const BlockRequest& request, int team);

// Every team in turn, each from the request's first day and each decided by itself. The
// numbers of the teams refused.
Result<QList<int>> BlockAllTeams(CoreContext& c, const BlockRequest& request);

// A day a sibling program blocked, found in its DaySchedules<n> folders.
struct BlockedDayRow {
    QString team;
    QDate date;
    QString reason;
};

// The blocked days of every team from one date through another, team by team, from the
// folders /<year>/DaySchedules<n>/<day of year>.txt that a sibling program writes (this
// program never makes them): a day whose first line is one of the four reasons.
Result<QList<BlockedDayRow>> FindBlockedDays(CoreContext& c, const QDate& from, const QDate& to);
} // namespace tresvane
