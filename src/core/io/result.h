#pragma once

#include <QString>
#include <optional>
#include <utility>

namespace tresvane
{
// The outcome of a core operation that can fail: ok, or a message a user can read that
// names the file and what is wrong with it. Core never throws into a screen; it hands
// one of these back and the screen decides what to show. Neither this nor Result can be
// dropped unread: a failure nobody looks at is how a program reads the bytes of a failed
// read.
class [[nodiscard]] Status
{
public:
    Status() = default;
    static Status failure(QString message) { return Status(std::move(message)); }

    bool ok() const { return !m_message.has_value(); }
    explicit operator bool() const { return ok(); }
    QString message() const { return m_message.value_or(QString()); }

private:
    explicit Status(QString message) : m_message(std::move(message)) {}
    std::optional<QString> m_message;
};

// A value, or the failure that kept it from being made.
template <typename T> class [[nodiscard]] Result
{
public:
    Result(T value) : m_value(std::move(value)) {}
    Result(Status failure) : m_status(std::move(failure)) {}

    bool ok() const { return m_status.ok(); }
    explicit operator bool() const { return ok(); }
    const Status& status() const { return m_status; }
    QString message() const { return m_status.message(); }

    const T& value() const { return *m_value; }
    T& value() { return *m_value; }
    const T& operator*() const { return *m_value; }
    T& operator*() { return *m_value; }
    const T* operator->() const { return &*m_value; }
    T* operator->() { return &*m_value; }
    T valueOr(T fallback) const { return m_value ? *m_value : std::move(fallback); }

private:
    std::optional<T> m_value;
    Status m_status;
};
} // namespace tresvane
