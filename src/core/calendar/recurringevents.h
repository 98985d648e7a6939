#pragma once

#include "core/calendar/calendarday.h"
#include "core/io/result.h"
#include "core/io/sliprecord.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace tresvane
{
struct DispatchingVariables;

// One event booked on many dates at once: a maintenance round every two weeks, a staff
// meeting each Monday. Each date gets the event on its team's day file and a record of its
// own in Slips.txt (with an invoice) or Meetings.txt (without).

enum class RecurringKind {
    Invoice,     // for a customer, invoiced: a Service Attention with a number of its own
    NonBillable, // for a customer, no invoice: a meeting record
    NoCustomer,  // not for a customer: a meeting record named after the title
};

struct RecurringEvent {
    RecurringKind kind = RecurringKind::Invoice;
    QString title;     // the event's title
    int team = 1;      // the team's number, from 1
    int startSlot = 3; // the first hour, 1 to 12
    int hours = 1;
};

// "Recurring Event - "
QString RecurringEventPrefix();

// The hours test: an event must end by the day's last hour. When it does not, the user is
// told "Not enough Hours in a Day!!!" (with a beep when alarms are on) and the answer is
// false.
bool CheckEventHours(CoreContext& c, int startSlot, int hours);

enum class DateCheck {
    Added,         // the date may join the list
    BeforeToday,   // refused: beep (alarms) and the calendar message (prompts)
    NonWorkDay,    // refused: "You cannot Schedule an Event on a Non-Work Day"
    AlreadyListed, // refused: a beep
    HourTaken,     // refused: "An Event is Scheduled on ..." naming the date, hour and team
};

// A date clicked on the event calendar, the checks in this order: a date before today; a
// later year gets its folders; a day the work week does not work; a date already listed;
// an hour of the event already taken on the team's day. Every refusal is told to the user.
Result<DateCheck> CheckEventDate(CoreContext& c, const QDate& date, const RecurringEvent& event,
                                 const QList<QDate>& listed);

// The event's text on the day file: with an invoice the date's confirmation number, a blank
// and the customer's name; without, "Recurring Event - " and the customer's name, or the
// title when it is not for a customer.
QString RecurringEventText(const DispatchingVariables& v, const RecurringEvent& event,
                           const QString& confirmation);

// The record of one date: the customer in hand (or the title as the name), the team, start
// and hours, the title as the reference, "Scheduled", no amount.
SlipRecord RecurringEventRecord(const DispatchingVariables& v, const RecurringEvent& event,
                                const QDate& date, const QString& confirmation);

// An hour a date could not give the event: it was taken already.
struct EventConflict {
    QDate date;
    int slot = 0;
};

struct ScheduledSeries {
    QList<EventConflict> conflicts; // date by date, hour by hour
    QStringList confirmations;      // with an invoice, the number of each date in order
};

// Books the event on every date. On each date's day file the free hours of the event take
// its text and the hours already taken are listed as conflicts; the day is written back as
// bare lines. Every date gets its record, hours taken or not. With an invoice each date
// takes a confirmation number of its own that no slip on file carries, under either
// numbering scheme, and the counter is stored with the series. The day files, the records
// and the counter land together. Refused before anything is written when the numbers would
// pass 32,767.
Result<ScheduledSeries> ScheduleRecurringEvents(CoreContext& c, const RecurringEvent& event,
                                                const QList<QDate>& dates);
} // namespace tresvane
