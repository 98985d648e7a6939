#pragma once

#include "store/clock.h"

// A clock that says what the test tells it.
class TestClock final : public Clock
{
public:
    explicit TestClock(QDateTime now = QDateTime(QDate(2026, 4, 30), QTime(9, 0)))
        : m_now(std::move(now))
    {
    }
    QDateTime now() const override { return m_now; }
    void set(const QDateTime& now) { m_now = now; }
    void setDate(const QDate& date) { m_now = QDateTime(date, m_now.time()); }

private:
    QDateTime m_now;
};
