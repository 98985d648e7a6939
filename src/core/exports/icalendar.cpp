#include "core/exports/icalendar.h"

namespace tresvane
{
QString EscapeCalendarText(QStringView text)
{
    QString out;
    out.reserve(text.size() + 8);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        switch (c.unicode()) {
        case u'\\':
            out += QStringLiteral("\\\\");
            break;
        case u';':
            out += QStringLiteral("\\;");
            break;
        case u',':
            out += QStringLiteral("\\,");
            break;
        case u'\r':
            // CR LF is one line break, a lone CR another.
            if (i + 1 < text.size() && text[i + 1] == u'\n') ++i;
            out += QStringLiteral("\\n");
            break;
        case u'\n':
            out += QStringLiteral("\\n");
            break;
        default:
            if (c.unicode() == u'\t' || (c.unicode() >= 0x20 && c.unicode() != 0x7F)) out += c;
            break;
        }
    }
    return out;
}

QByteArray FoldCalendarLine(const QByteArray& utf8)
{
    constexpr qsizetype kMaxOctets = 75;
    if (utf8.size() <= kMaxOctets) return utf8 + "\r\n";
    QByteArray out;
    out.reserve(utf8.size() + utf8.size() / 70 * 3 + 2);
    qsizetype lineOctets = 0;
    for (qsizetype i = 0; i < utf8.size();) {
        // The whole character: a lead byte and its continuation bytes (10xxxxxx).
        qsizetype n = 1;
        while (i + n < utf8.size() && (quint8(utf8[i + n]) & 0xC0) == 0x80)
            ++n;
        if (lineOctets + n > kMaxOctets) {
            out += "\r\n ";
            lineOctets = 1; // the blank that opens the continuation counts
        }
        out.append(utf8.constData() + i, n);
        lineOctets += n;
        i += n;
    }
    out += "\r\n";
    return out;
}

QString CalendarLocalTime(const QDateTime& local)
{
    return local.toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
}

QString CalendarUtcTime(const QDateTime& moment)
{
    return moment.toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
}

QString CalendarDate(const QDate& date)
{
    return date.toString(QStringLiteral("yyyyMMdd"));
}

void CalendarText::raw(const QString& nameAndParameters, const QString& value)
{
    m_bytes += FoldCalendarLine((nameAndParameters + u':' + value).toUtf8());
}

void CalendarText::text(const QString& name, const QString& value)
{
    raw(name, EscapeCalendarText(value));
}
} // namespace tresvane
