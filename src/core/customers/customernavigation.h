#pragma once

#include <QtGlobal>
#include <optional>

namespace tresvane
{
// Where the customer screen stands in CustomerData.txt: gCurrentRec, the record on the
// screen, and gLastrec, the number of records as the screen counts them. Both are the
// screen's own; these routines only work out the next values.
struct CustomerPosition {
    qint32 gCurrentRec = 1;
    qint32 gLastrec = 0;
    bool operator==(const CustomerPosition&) const = default;
};

// The record a navigation button cmdNav(button) moves to, after the account on the screen
// was saved:
//   0 first; 1 previous (stays at 1); 2 next (from gLastrec, or past it, back to 1);
//   3 last; 4, 6, 5 a quarter, a half, three quarters in, as multiples of the truncated
//   quarter of gLastrec.
// No value when the button does nothing at all: the three fractions with fewer than four
// records, and a button number that does not exist.
std::optional<qint32> NavigateTo(int button, CustomerPosition at);

// A saved account stands in the file, so the count takes it in when it lies past the last:
// the first account of a new file leaves the count at 1, not 0, and the next new account
// gets a record of its own.
CustomerPosition PositionAfterSave(CustomerPosition at);
// A new account takes the record after the last one.
CustomerPosition NewCustomerPosition(CustomerPosition at);
// Cancelling a new account gives its number back and shows the first record.
CustomerPosition CancelNewCustomer(CustomerPosition at);
// After a deletion: one record fewer, except that the count never drops below 1, and the
// screen stays on the same number unless that is now past the last.
CustomerPosition PositionAfterDelete(CustomerPosition at);
} // namespace tresvane
