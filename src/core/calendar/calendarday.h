#pragma once

#include "core/io/result.h"

#include <QDate>
#include <QString>
#include <array>

namespace tresvane
{
class Store;

// One team's day as the calendar tools read and write it: the twelve slot texts of its day
// file, found by the date's own year, so a date in the next year reads the next year's
// tree.

using DayTexts = std::array<QString, 12>; // slots 1 to 12 at 0 to 11

// "/<year>/Team#<team>/<day of year>.txt", without making any folder.
QString TeamDayFile(const QDate& date, int team);

// The slot texts of a day file, one field a slot as every day file is read; slots the
// file does not reach, and every slot of a missing file, are free.
Result<DayTexts> ReadDayTexts(Store& store, const QString& file);

// Twelve free slots.
DayTexts FreeDay();
} // namespace tresvane
