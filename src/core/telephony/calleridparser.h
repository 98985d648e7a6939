#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tresvane
{
// One caller ID report as the modem gave it, ready for TelCall.txt.
struct CallerIdReport {
    QString name;   // up to 15 characters; "Private" or "Out of Area" when withheld
    QString number; // nnn-nnn-nnnn, or blank when the number was withheld
    bool operator==(const CallerIdReport&) const = default;
};

// Reads the text a modem sends with caller ID reporting on. A report is a run of tag
// lines (DATE, TIME, NMBR, DDN_NMBR, NAME, MESG), with or without blanks around "=", in
// any order; modems differ in which tags they send. Bytes arrive in pieces of any size, so
// lines are only looked at once their line end has arrived, and a report is only handed
// out once it is whole: when a line that is no tag follows it (a blank line, "RING", a
// line longer than any tag line, whose bytes are not kept), when a tag comes a second time
// (the next report has begun), when it holds both a number and a name, or when the line
// has gone quiet (endOfInput()).
class CallerIdParser
{
public:
    // Takes the next bytes and returns the reports they completed, in order of arrival.
    QList<CallerIdReport> feed(const QByteArray& bytes);
    // The line has been quiet: a report waiting for more lines is taken as it stands. A
    // line without its line end is thrown away; a modem ends every line.
    QList<CallerIdReport> endOfInput();

    // The number as it is shown and stored: ten digits as nnn-nnn-nnnn (a leading 1 of
    // eleven digits dropped), seven as nnn-nnnn, any other count of digits as they came.
    static QString formatNumber(const QString& digits);

private:
    void takeLine(QByteArray line, QList<CallerIdReport>& out);
    void close(QList<CallerIdReport>& out);

    QByteArray m_pending;    // bytes after the last complete line
    bool m_skipping = false; // within a line too long to be a report's
    bool m_open = false;     // a report has begun
    bool m_hasNumber = false;
    bool m_hasName = false;
    bool m_seenDate = false;
    bool m_seenTime = false;
    QByteArray m_number;
    QByteArray m_name;
};
} // namespace tresvane
