#pragma once

#include "core/io/result.h"
#include "core/schedule/slipfiles.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QString>

namespace tresvane
{
class Clock;
struct DispatchingVariables;

// Booking a slip on the Scheduling Screen: the dates the calendar may stand on, and the
// save that writes the day and the record and takes the confirmation number.

// The event text while no hour has been clicked.
QString NoSlotSelected(); // "No Slot Selected"

// Moves a date off the days the work week code (gWorkDays) does not work: in the five-day
// week a Saturday becomes Monday, a Sunday Monday. The moved date is returned and also
// left in the argument, as callers of old rely on.
QDate NextWorkDay(const DispatchingVariables& v, QDate& date);

// The first day a booking can be made for: today, or tomorrow from 8 in the evening on,
// when no crew goes out any more.
QDate NextBookingDate(const Clock& clock);

// The date the booking calendar opens on: NextBookingDate moved past the days not worked.
QDate OpeningBookingDate(CoreContext& c);

// The calendar's change logic for a date the user picked, without the grid: a day before
// today is refused (beep if alarms, the calendar message if prompts) and becomes today; today
// becomes NextBookingDate; a later year gets its folders; the date moves past the days not
// worked. gDayOfYear takes the day of the year of the result. Returns the date the
// calendar is to show.
Result<QDate> CalenderChange(CoreContext& c, QDate picked);

// What cmdSave reads from the Scheduling Screen. The team is CurrentTeam.

// How a save ended. The screen goes back to the menu in every case but NoTimeSelected.
enum class BookingSaved {
    StoredUnscheduled, // written to UnscheduledSlips.txt; the number is kept for the next slip
    NoTimeSelected,    // told the user; nothing written, the screen stays
    Scheduled,         // a Service Attention in Slips.txt; the number advanced
    MeetingScheduled,  // a meeting in Meetings.txt; the number unchanged
    DayWritten,        // no kind to book: the day and gSlip only
};

// cmdSave. The day file, the record and the advanced counter land together as one change,
// so a number is never taken without its record nor used twice; each message is shown
// after what it confirms is on disk. The stored slip a booking came from is removed after
// the confirmation, when the user agrees. DaySlots must be as the last WriteSlots left them
// and go to the request's day file. A Service Attention whose number could not be stepped
// past is refused and nothing of it lands.
// A failure of a file stops the sequence where it is and is returned for the screen to show.
Result<BookingSaved> SaveBooking(CoreContext& c, const BookingRequest& request);

// Puts the stored slip of the list's row (its record number in UnscheduledSlips.txt) in
// hand for booking: the current-customer fields take the slip's own account, name and
// address, whatever customer was in hand before, and its problem text is returned for the
// problem box. A row that matches no record is refused and changes nothing.
Result<QString> LoadStoredSlip(CoreContext& c, qint32 row);

// Deletes the slip of the stored-slip list's row after asking "This will Delete the
// Selected Slip Record". True when it was deleted. The last record gone removes the file.
Result<bool> DeleteSelectedStoredSlip(CoreContext& c, qint32 row);
} // namespace tresvane
