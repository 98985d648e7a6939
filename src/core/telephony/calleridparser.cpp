#include "core/telephony/calleridparser.h"

namespace tresvane
{
namespace
{

constexpr int kNameWidth = 15;
constexpr int kNumberWidth = 12;
constexpr int kFewestDigits = 7;
// Far longer than any tag line a modem sends: a longer line is none of a report's, and
// the bytes of a line that never ends are not kept past it.
constexpr qsizetype kLongestLine = 128;

enum class Tag { None, Date, Time, Number, Name, Message };

// Splits "TAG = value" (blanks around "=" optional) into its tag and trimmed value.
Tag parseTag(const QByteArray& line, QByteArray& value)
{
    const qsizetype eq = line.indexOf('=');
    if (eq < 0) return Tag::None;
    const QByteArray tag = line.left(eq).trimmed().toUpper();
    value = line.mid(eq + 1).trimmed();
    if (tag == "DATE") return Tag::Date;
    if (tag == "TIME") return Tag::Time;
    if (tag == "NMBR" || tag == "DDN_NMBR") return Tag::Number;
    if (tag == "NAME") return Tag::Name;
    if (tag == "MESG") return Tag::Message;
    return Tag::None;
}

} // namespace

QString CallerIdParser::formatNumber(const QString& digits)
{
    QString d = digits;
    if (d.size() == 11 && d.startsWith(QLatin1Char('1'))) d.remove(0, 1);
    if (d.size() == 10)
        return d.left(3) + QLatin1Char('-') + d.mid(3, 3) + QLatin1Char('-') + d.mid(6);
    if (d.size() == 7) return d.left(3) + QLatin1Char('-') + d.mid(3);
    return d.left(kNumberWidth);
}

QList<CallerIdReport> CallerIdParser::feed(const QByteArray& bytes)
{
    QList<CallerIdReport> out;
    qsizetype from = 0;
    if (m_skipping) {
        // The rest of an over-long line is passed over up to its line end.
        while (from < bytes.size() && bytes[from] != '\r' && bytes[from] != '\n')
            ++from;
        if (from == bytes.size()) return out;
        m_skipping = false;
    }
    m_pending += QByteArrayView(bytes).sliced(from);
    qsizetype start = 0;
    for (;;) {
        qsizetype end = start;
        while (end < m_pending.size() && m_pending[end] != '\r' && m_pending[end] != '\n')
            ++end;
        if (end >= m_pending.size()) break;
        // CR LF is one line end; a CR that is the last byte so far waits for what follows.
        qsizetype next = end + 1;
        if (m_pending[end] == '\r') {
            if (next >= m_pending.size()) break;
            if (m_pending[next] == '\n') ++next;
        }
        takeLine(m_pending.mid(start, end - start), out);
        start = next;
    }
    m_pending.remove(0, start);
    // A line whose CR has come waits only for a possible LF; the CR is no part of it.
    const bool ended = m_pending.endsWith('\r');
    if (m_pending.size() - (ended ? 1 : 0) > kLongestLine) {
        // Taken now as the line that is no tag it will be, so that a modem that never ends
        // a line cannot fill the memory. When its line end has come, the CR stays and the
        // next line is read as ever.
        close(out);
        m_pending = ended ? QByteArray("\r") : QByteArray();
        m_skipping = !ended;
    }
    return out;
}

QList<CallerIdReport> CallerIdParser::endOfInput()
{
    QList<CallerIdReport> out;
    // A lone CR at the very end is a whole line end after all.
    if (m_pending.endsWith('\r')) takeLine(m_pending.chopped(1), out);
    m_pending.clear();
    m_skipping = false;
    close(out);
    return out;
}

void CallerIdParser::takeLine(QByteArray line, QList<CallerIdReport>& out)
{
    QByteArray value;
    const Tag tag = line.size() > kLongestLine ? Tag::None : parseTag(line, value);
    if (tag == Tag::None) {
        close(out);
        return;
    }
    const bool repeated = (tag == Tag::Date && m_seenDate) || (tag == Tag::Time && m_seenTime) ||
                          (tag == Tag::Number && m_hasNumber) || (tag == Tag::Name && m_hasName);
    if (repeated) close(out);
    m_open = true;
    switch (tag) {
    case Tag::Date:
        m_seenDate = true;
        break;
    case Tag::Time:
        m_seenTime = true;
        break;
    case Tag::Number:
        m_hasNumber = true;
        m_number = value;
        break;
    case Tag::Name:
        m_hasName = true;
        m_name = value;
        break;
    case Tag::Message:
    case Tag::None:
        break;
    }
    if (m_hasNumber && m_hasName) close(out);
}

void CallerIdParser::close(QList<CallerIdReport>& out)
{
    if (!m_open) return;
    const QByteArray number = m_number;
    const QByteArray name = m_name;
    const bool hasNumber = m_hasNumber;
    m_open = m_hasNumber = m_hasName = m_seenDate = m_seenTime = false;
    m_number.clear();
    m_name.clear();

    // Without a number there is nothing to call back; a date and time alone is no call.
    if (!hasNumber) return;
    CallerIdReport report;
    const QString nameText = QString::fromLatin1(name);
    if (number == "P" || number == "O") {
        report.name = number == "P" ? QStringLiteral("Private") : QStringLiteral("Out of Area");
    } else {
        if (number.contains("RING") || number.startsWith('0')) return;
        QString digits;
        for (char c : number)
            if (c >= '0' && c <= '9') digits += QLatin1Char(c);
        if (digits.size() < kFewestDigits) return;
        report.number = formatNumber(digits);
        report.name = nameText;
    }
    if (name == "P")
        report.name = QStringLiteral("Private");
    else if (name == "O")
        report.name = QStringLiteral("Out of Area");
    if (report.name.contains(QLatin1String("RING"))) return;
    report.name = report.name.left(kNameWidth);
    out << report;
}
} // namespace tresvane
