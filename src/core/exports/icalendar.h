#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>

namespace tresvane
{
// The text of an iCalendar file (RFC 5545) as phones and desktop calendars read it: UTF-8,
// every line ended by CR LF, a line longer than 75 octets folded onto continuation lines
// that start with a blank, and the characters that separate values escaped in text.

// A TEXT value: backslash, semicolon and comma escaped, a line break as "\n"; other control
// characters, which no calendar shows, are dropped.
QString EscapeCalendarText(QStringView text);

// One content line folded so that no line holds more than 75 octets before its CR LF. A
// fold never falls inside the bytes of one character. The result ends with CR LF.
QByteArray FoldCalendarLine(const QByteArray& utf8);

// A date-time without a zone ("floating"): the crew's phone shows it at the same hour
// wherever it is set, as the office books it.
QString CalendarLocalTime(const QDateTime& local);
// A moment in UTC ("20260430T130000Z").
QString CalendarUtcTime(const QDateTime& moment);
// A whole day ("20260430").
QString CalendarDate(const QDate& date);

// Builds the file line by line.
class CalendarText
{
public:
    // A property whose value is written as it stands (already in its RFC form).
    void raw(const QString& nameAndParameters, const QString& value);
    // A TEXT property: the value is escaped.
    void text(const QString& name, const QString& value);
    void begin(const QString& component) { raw(QStringLiteral("BEGIN"), component); }
    void end(const QString& component) { raw(QStringLiteral("END"), component); }
    const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};
} // namespace tresvane
