#pragma once

#include "core/ports/clock.h"

namespace tresvane
{
// The tests' clock: 30 April 2026, 9 am, unless told otherwise.
class TestClock final : public FixedClock
{
public:
    explicit TestClock(QDateTime now = QDateTime(QDate(2026, 4, 30), QTime(9, 0)))
        : FixedClock(std::move(now))
    {
    }
};
} // namespace tresvane
