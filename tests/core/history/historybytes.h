#pragma once

#include <QByteArray>
#include <initializer_list>
#include <utility>

namespace tresvane
{
// History and slip records laid down by hand: each field blank-padded to its width in
// order, so the tests do not lean on the record code they test.
inline QByteArray Fields(std::initializer_list<std::pair<QByteArray, int>> fields)
{
    QByteArray out;
    for (const auto& [text, width] : fields)
        out += text.left(width).leftJustified(width, ' ');
    return out;
}

// ServiceHistory.txt: name 30, account 25, date 15, work 35, note 40 = 145.
inline QByteArray ServiceRec(const QByteArray& name, const QByteArray& account,
                             const QByteArray& date, const QByteArray& work = "Tune up",
                             const QByteArray& note = "")
{
    return Fields({{name, 30}, {account, 25}, {date, 15}, {work, 35}, {note, 40}});
}

// CAHistory.txt: name 45, account 25, date 15, text 60, amount 10 = 155.
inline QByteArray LedgerRec(const QByteArray& name, const QByteArray& account,
                            const QByteArray& date, const QByteArray& amount,
                            const QByteArray& text = "Invoice")
{
    return Fields({{name, 45}, {account, 25}, {date, 15}, {text, 60}, {amount, 10}});
}

// Slips.txt, 297 bytes: the fields the courtesy list reads, the rest blank.
inline QByteArray SlipRec(const QByteArray& name, const QByteArray& date, const QByteArray& team,
                          const QByteArray& slot, const QByteArray& tel = "555-0100",
                          const QByteArray& reference = "No heat")
{
    return Fields({{"Service", 10},   {"SA120-1", 10}, {team, 2},         {"Hours", 6},
                   {"2", 2},          {date, 10},      {slot, 2},         {reference, 30},
                   {"Scheduled", 20}, {"", 20},        {"", 20},          {"", 10},
                   {"A1", 20},        {name, 30},      {"1 Main St", 35}, {"", 25},
                   {"Easton", 20},    {"PA", 2},       {"18042", 10},     {tel, 13}});
}
} // namespace tresvane
