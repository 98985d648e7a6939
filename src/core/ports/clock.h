#pragma once

#include <QDate>
#include <QDateTime>

namespace tresvane
{
// Today and now. The program asks this rather than the system clock, so that a test can
// stand on day 120 or at 8 pm on 31 December of a leap year.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    QDate today() const { return now().date(); }
};

class SystemClock final : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

// A clock that stands where it is put: for tests, tools and generated samples.
class FixedClock : public Clock
{
public:
    explicit FixedClock(QDateTime now) : m_now(std::move(now)) {}
    QDateTime now() const override { return m_now; }
    void set(const QDateTime& now) { m_now = now; }
    void setDate(const QDate& date) { m_now = QDateTime(date, m_now.time()); }

private:
    QDateTime m_now;
};
} // namespace tresvane
