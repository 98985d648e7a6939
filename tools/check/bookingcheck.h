#pragma once

#include <QDate>
#include <QStringList>

namespace tresvane
{
class Store;

// Cross-checks the slip records against the team day files, which the program keeps in
// step only by writing both. What it finds is not damage a reader trips over but damage a
// dispatcher does: two slips under one confirmation number (the record screen then
// deletes both at once), hours booked on a day that no record owns (they can never be
// freed through the record screen), and records of today or later whose hours are free
// on their day (the team may be booked twice). Days before today are not looked at:
// their files are purged at every start.
QStringList BookingWarnings(Store& store, const QDate& today);
} // namespace tresvane
