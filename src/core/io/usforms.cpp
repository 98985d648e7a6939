#include "core/io/usforms.h"

#include <QRegularExpression>
#include <cstdlib>

namespace tresvane
{
QString FormatShortDate(const QDate& date)
{
    if (!date.isValid()) return {};
    return QStringLiteral("%1/%2/%3")
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'))
        .arg(date.year(), 4, 10, QLatin1Char('0'));
}

std::optional<QDate> ParseShortDate(const QString& text)
{
    static const QRegularExpression re(
        QStringLiteral(R"(^\s*(\d{1,2})/(\d{1,2})/(\d{2}|\d{4})\s*$)"));
    const QRegularExpressionMatch m = re.match(text);
    if (!m.hasMatch()) return std::nullopt;
    int year = m.captured(3).toInt();
    if (m.captured(3).size() == 2) year += year < 30 ? 2000 : 1900;
    const QDate date(year, m.captured(1).toInt(), m.captured(2).toInt());
    if (!date.isValid()) return std::nullopt;
    return date;
}

QString FormatCurrency(qint64 units)
{
    const bool negative = units < 0;
    const quint64 magnitude = negative ? quint64(-(units + 1)) + 1 : quint64(units);
    const quint64 cents = (magnitude + 50) / 100;
    QString whole = QString::number(cents / 100);
    for (qsizetype i = whole.size() - 3; i > 0; i -= 3)
        whole.insert(i, u',');
    const QString body =
        QStringLiteral("$%1.%2").arg(whole).arg(int(cents % 100), 2, 10, QLatin1Char('0'));
    return negative && cents != 0 ? u'(' + body + u')' : body;
}

std::optional<qint64> ParseCurrency(const QString& text)
{
    QString t = text.trimmed();
    bool negative = false;
    if (t.startsWith(u'(') && t.endsWith(u')')) {
        negative = true;
        t = t.mid(1, t.size() - 2).trimmed();
    }
    if (t.startsWith(u'-')) {
        negative = !negative;
        t = t.mid(1).trimmed();
    }
    t.remove(u'$').remove(u',');
    static const QRegularExpression re(QStringLiteral(R"(^(\d*)(?:\.(\d*))?$)"));
    const QRegularExpressionMatch m = re.match(t);
    if (t.isEmpty() || !m.hasMatch() || (m.captured(1).isEmpty() && m.captured(2).isEmpty()))
        return std::nullopt;
    if (m.captured(1).size() > 14) return std::nullopt;
    qint64 units = m.captured(1).toLongLong() * 10000;
    QString frac = m.captured(2);
    // Past four places the value rounds half away from zero.
    const bool roundUp = frac.size() > 4 && frac[4] >= u'5';
    frac = frac.left(4).leftJustified(4, u'0');
    units += frac.toLongLong() + (roundUp ? 1 : 0);
    return negative ? -units : units;
}

QString FormatDecimalCurrency(qint64 units)
{
    const bool negative = units < 0;
    const quint64 magnitude = negative ? quint64(-(units + 1)) + 1 : quint64(units);
    return QStringLiteral("%1%2.%3")
        .arg(negative ? QStringLiteral("-") : QString())
        .arg(magnitude / 10000)
        .arg(int(magnitude % 10000), 4, 10, QLatin1Char('0'));
}

QDate ParseShortDateBytes(QByteArrayView text, bool twoDigitYear)
{
    int parts[3] = {0, 0, 0};
    int digits[3] = {0, 0, 0};
    int part = 0;
    for (char ch : text) {
        if (ch == '/') {
            if (++part > 2) return {};
        } else if (ch >= '0' && ch <= '9') {
            // No part of a date has more than four digits: a longer one is refused before
            // it could overflow.
            if (digits[part] == 4) return {};
            parts[part] = parts[part] * 10 + (ch - '0');
            ++digits[part];
        } else {
            return {};
        }
    }
    if (part != 2 || digits[0] < 1 || digits[0] > 2 || digits[1] < 1 || digits[1] > 2) return {};
    if (digits[2] == 4) return QDate(parts[2], parts[0], parts[1]);
    if (twoDigitYear && digits[2] == 2)
        return QDate(parts[2] + (parts[2] < 30 ? 2000 : 1900), parts[0], parts[1]);
    return {};
}
} // namespace tresvane
