#pragma once

#include <QByteArray>
#include <QList>

// Files of the calendar tools laid down and expected byte by byte, written out by hand
// rather than by the code under test.
namespace calendarbytes
{

// A slip record: the twenty fields in their order, each blank-padded to its width.
inline QByteArray slip(const QList<QByteArray>& fields)
{
    static const int widths[] = {10, 10, 2,  6,  2,  10, 2,  30, 20, 20,
                                 20, 10, 20, 30, 35, 25, 20, 2,  10, 13};
    QByteArray out;
    for (int i = 0; i < 20; ++i)
        out += fields.value(i).leftJustified(widths[i], ' ', true);
    return out; // 297 bytes
}

// The record of a booking: type, number, team, hours, date, start, reference, then the
// customer.
inline QByteArray booking(const QByteArray& type, const QByteArray& number, const QByteArray& team,
                          const QByteArray& hours, const QByteArray& date, const QByteArray& start,
                          const QByteArray& reference, const QByteArray& account,
                          const QByteArray& name, const QByteArray& street = {},
                          const QByteArray& apt = {}, const QByteArray& city = {},
                          const QByteArray& st = {}, const QByteArray& zip = {},
                          const QByteArray& tel = {})
{
    return slip({type,      number,      team, "Hours", hours,   date,    start,
                 reference, "Scheduled", "",   "",      "$0.00", account, name,
                 street,    apt,         city, st,      zip,     tel});
}

inline const QByteArray kBareFree = "No Event Scheduled\r\n";

// Twelve bare lines: the text on slots first to first + hours - 1, free elsewhere.
inline QByteArray bareDay(const QByteArray& text, int first, int hours)
{
    QByteArray out;
    for (int slot = 1; slot <= 12; ++slot)
        out += slot >= first && slot < first + hours ? text + "\r\n" : kBareFree;
    return out;
}

} // namespace calendarbytes
