#pragma once

#include "core/io/sliprecord.h"

#include "core/schedule/dayfiles.h"
#include "core/state/corecontext.h"

#include <QString>
#include <optional>

namespace tresvane
{
struct DispatchingVariables;

// The time grid of the Scheduling Screen: twelve hourly rows of one team's day. A click
// places the event being booked on as many rows as it needs, in memory only; the day file
// is written by the save.

// The label of a slot in the grid's first column: the short hour label with "am" on
// slots 1 to 6 and "pm" on 7 to 12 ("06:00am" ... "11:00am", "01:00pm" ... "06:00pm").
QString GridLabel(const DispatchingVariables& v, int slot);

// The text the event takes on the grid when row `row` is clicked. For a Service Attention
// the slip number, a blank and the customer's name; for a meeting "Mtg - ", the row's short
// label, " - " and the name, so a meeting's text depends on the row. Empty with no kind.
QString BookingEventText(const DispatchingVariables& v, std::optional<SlipKind> kind,
                         const QString& slipNumber, int row);

enum class GridClick {
    PastDayEnd,    // the hours run past slot 12; told to the user
    NotBooking,    // a routine that books nothing; nothing said
    AlreadyPlaced, // the same text already stands on the grid; a beep
    SlotTaken,     // CheckforSlots refused; told to the user
    Placed,        // the event stands on its rows and DaySlots follows the grid
};

// A click on row `row` (1 to 12) with `hours` hours wanted, the rules in their order:
// the day's end, the event's text, the same text already on the grid, the free rows,
// then the text on rows row to row + hours - 1 and WriteSlots. EventText takes the new text
// from the second rule on, even when a later rule stops the placement: the save then
// counts a time as chosen.
GridClick ClickTimeGrid(CoreContext& c, std::optional<SlipKind> kind, GridColumn& grid, int row,
                        int hours, const QString& slipNumber, QString& EventText);

// Takes the event off the grid: every row that holds exactly EventText becomes free, and
// EventText goes back to "No Slot Selected". Of a meeting placed twice only the text of
// the last click is taken off.
void ResetTimeSelection(GridColumn& grid, QString& EventText);
} // namespace tresvane
