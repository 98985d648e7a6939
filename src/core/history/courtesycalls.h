#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QByteArrayView>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace tresvane
{
// The courtesy call list: the Service Attentions of Slips.txt booked between two dates,
// both included, so the office can call the customers beforehand.

// The columns of a row.
namespace CourtesyColumn
{
enum : int {
    Name,       // trimmed Name
    EventDate,  // trimmed EventDate
    Time,       // the grid's label of StartSlot, with am or pm
    Tel,        // trimmed Tel
    AssignedTo, // the team's name
    Reference,  // trimmed Reference
    DateKey,    // year and day of the year, yyyyddd: sorting on it gives date order
    Count
};
}

// The rows in date and time order (the file's order among equal times). A start slot or team number
// without a label or a team gives an empty cell; a record whose date cannot be read is
// not listed. A missing Slips.txt is created empty, as opening it always did.
Result<QList<QStringList>> LoadCourtesyCalls(CoreContext& c, const QDate& from, const QDate& to);

// The sort key of a date: "2026120" for 30 April 2026.
QString CourtesyDateKey(const QDate& date);

// The end date the span buttons set from today: 5 a year, 6 a month, 7 a quarter; any
// other button keeps `current`.
QDate CourtesyEnding(int button, const QDate& today, const QDate& current);
} // namespace tresvane
