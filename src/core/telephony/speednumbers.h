#pragma once

#include "core/io/result.h"

#include <QString>
#include <array>

namespace tresvane
{
class Store;

// The dialer's ten speed numbers, SpeedNumbers.txt: pairs of plain lines, name then
// number, in button order, without quotes. Empty entries are not written, so a save
// closes up the gaps and the next load fills the buttons from the first one.
struct SpeedNumbers {
    static constexpr int kCount = 10;
    std::array<QString, kCount> names;
    std::array<QString, kCount> numbers;

    bool operator==(const SpeedNumbers&) const = default;
};

QString SpeedNumbersFileName(); // "/SpeedNumbers.txt"

// All entries empty when the file is missing. A file that stops between a name and its
// number, or holds more than ten pairs, is reported as damaged.
Result<SpeedNumbers> ReadSpeedNumbers(Store& store);
// Writes the entries that have a name, in order. A line end typed into a box would split
// an entry in two, so it is stored as a blank.
Status WriteSpeedNumbers(Store& store, const SpeedNumbers& speed);
} // namespace tresvane
