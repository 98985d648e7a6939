#include "core/io/textfile.h"

#include "core/io/cp1252.h"

#include <QRegularExpression>
#include <cmath>

namespace tresvane
{
TextWriter& TextWriter::field(const QString& text)
{
    separate();
    // A double quote would end the field early on reading; it is stored as an apostrophe
    // so that the file stays readable.
    QString safe = text;
    safe.replace(u'"', u'\'');
    m_bytes += '"';
    m_bytes += cp1252::encode(safe);
    m_bytes += '"';
    return *this;
}

TextWriter& TextWriter::field(bool value)
{
    separate();
    m_bytes += value ? "#TRUE#" : "#FALSE#";
    return *this;
}

TextWriter& TextWriter::field(qint64 value)
{
    separate();
    m_bytes += QByteArray::number(value);
    return *this;
}

TextWriter& TextWriter::endLine()
{
    m_bytes += "\r\n";
    m_lineOpen = false;
    return *this;
}

void TextWriter::separate()
{
    if (m_lineOpen) m_bytes += ',';
    m_lineOpen = true;
}

TextReader::TextReader(QByteArray bytes, QString fileName)
    : m_bytes(std::move(bytes)), m_fileName(std::move(fileName))
{
}

namespace
{
bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}
bool isLineEnd(char c)
{
    return c == '\r' || c == '\n';
}
} // namespace

bool TextReader::atEnd() const
{
    for (qsizetype i = m_pos; i < m_bytes.size(); ++i) {
        const char c = m_bytes[i];
        if (!isBlank(c) && !isLineEnd(c) && c != '\x1a') return false;
    }
    return true;
}

Status TextReader::damaged(const QString& detail) const
{
    return Status::failure(QStringLiteral("The file %1 is damaged: %2.").arg(m_fileName, detail));
}

Result<QString> TextReader::next(bool* quoted)
{
    const qsizetype n = m_bytes.size();
    qsizetype p = m_pos;
    while (p < n && isBlank(m_bytes[p]))
        ++p;
    if (atEnd()) return damaged(QStringLiteral("it ends before field %1").arg(m_fieldNo + 1));
    ++m_fieldNo;
    QByteArray raw;
    *quoted = false;
    if (m_bytes[p] == '"') {
        *quoted = true;
        const qsizetype close = m_bytes.indexOf('"', p + 1);
        const qsizetype end = close < 0 ? n : close;
        raw = m_bytes.mid(p + 1, end - p - 1);
        p = close < 0 ? n : close + 1;
        // Anything between the closing quote and the delimiter is passed over.
        while (p < n && m_bytes[p] != ',' && !isLineEnd(m_bytes[p]))
            ++p;
    } else {
        const qsizetype start = p;
        while (p < n && m_bytes[p] != ',' && !isLineEnd(m_bytes[p]))
            ++p;
        raw = m_bytes.mid(start, p - start);
        while (!raw.isEmpty() && isBlank(raw.back()))
            raw.chop(1);
    }
    // Consume the delimiter: a comma, or one line end (CR LF, CR or LF).
    if (p < n) {
        if (m_bytes[p] == ',') {
            ++p;
        } else if (m_bytes[p] == '\r') {
            ++p;
            if (p < n && m_bytes[p] == '\n') ++p;
        } else if (m_bytes[p] == '\n') {
            ++p;
        }
    }
    m_pos = p;
    return cp1252::decode(raw);
}

Result<QString> TextReader::readString()
{
    bool quoted = false;
    Result<QString> raw = next(&quoted);
    if (!raw || quoted) return raw;
    // Unquoted booleans read into a string the way the old reader gave them.
    if (raw->compare(u"#TRUE#", Qt::CaseInsensitive) == 0) return QStringLiteral("True");
    if (raw->compare(u"#FALSE#", Qt::CaseInsensitive) == 0) return QStringLiteral("False");
    return raw;
}

Result<qint64> TextReader::readInteger(qint64 low, qint64 high, const char* what)
{
    bool quoted = false;
    Result<QString> raw = next(&quoted);
    if (!raw) return raw.status();
    const QString text = raw->trimmed();
    double value = 0;
    if (text.compare(u"#TRUE#", Qt::CaseInsensitive) == 0)
        value = -1;
    else if (text.compare(u"#FALSE#", Qt::CaseInsensitive) == 0 || text.isEmpty())
        value = 0;
    else if (IsNumeric(text))
        value = NumericValue(text);
    else
        return damaged(QStringLiteral("field %1 holds \"%2\" where a number belongs")
                           .arg(m_fieldNo)
                           .arg(text.left(40)));
    // Whole numbers round half to even, as the old reader converted them.
    const double rounded = std::nearbyint(value);
    if (rounded < double(low) || rounded > double(high))
        return damaged(QStringLiteral("field %1 holds %2, past the limit of a %3")
                           .arg(m_fieldNo)
                           .arg(text.left(40), QString::fromLatin1(what)));
    return qint64(rounded);
}

Result<qint16> TextReader::readInt16()
{
    Result<qint64> v = readInteger(-32768, 32767, "number up to 32,767");
    if (!v) return v.status();
    return qint16(*v);
}

Result<quint8> TextReader::readByte()
{
    Result<qint64> v = readInteger(0, 255, "number from 0 to 255");
    if (!v) return v.status();
    return quint8(*v);
}

Result<qint32> TextReader::readInt32()
{
    Result<qint64> v = readInteger(-2147483647LL - 1, 2147483647LL, "whole number");
    if (!v) return v.status();
    return qint32(*v);
}

Result<bool> TextReader::readBool()
{
    bool quoted = false;
    Result<QString> raw = next(&quoted);
    if (!raw) return raw.status();
    const QString text = raw->trimmed();
    if (text.compare(u"#TRUE#", Qt::CaseInsensitive) == 0 ||
        text.compare(u"True", Qt::CaseInsensitive) == 0)
        return true;
    if (text.compare(u"#FALSE#", Qt::CaseInsensitive) == 0 ||
        text.compare(u"False", Qt::CaseInsensitive) == 0 || text.isEmpty())
        return false;
    if (IsNumeric(text)) return NumericValue(text) != 0;
    return damaged(QStringLiteral("field %1 holds \"%2\" where #TRUE# or #FALSE# belongs")
                       .arg(m_fieldNo)
                       .arg(text.left(40)));
}

Result<QStringList> TextReader::readAllStrings()
{
    QStringList out;
    while (!atEnd()) {
        Result<QString> s = readString();
        if (!s) return s.status();
        out << *s;
    }
    return out;
}

QStringList ReadPlainLines(const QByteArray& bytes)
{
    QStringList lines;
    qsizetype start = 0;
    const qsizetype n = bytes.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (bytes[i] == '\r' || bytes[i] == '\n') {
            lines << cp1252::decode(QByteArrayView(bytes.constData() + start, i - start));
            if (bytes[i] == '\r' && i + 1 < n && bytes[i + 1] == '\n') ++i;
            start = i + 1;
        }
    }
    if (start < n) lines << cp1252::decode(QByteArrayView(bytes.constData() + start, n - start));
    return lines;
}

QByteArray WritePlainLines(const QStringList& lines)
{
    QByteArray out;
    for (const QString& line : lines) {
        out += cp1252::encode(line);
        out += "\r\n";
    }
    return out;
}

namespace
{
const QRegularExpression& numericPattern()
{
    static const QRegularExpression re(QStringLiteral(
        R"(^\s*[+-]?\s*\$?\s*(\d{1,3}(,\d{3})+|\d+)?(\.\d*)?([eEdD][+-]?\d+)?\s*$)"));
    return re;
}
} // namespace

bool IsNumeric(const QString& text)
{
    const QRegularExpressionMatch m = numericPattern().match(text);
    if (!m.hasMatch()) return false;
    // At least one digit before or after the point.
    for (QChar c : text)
        if (c.isDigit()) return true;
    return false;
}

double NumericValue(const QString& text)
{
    if (!IsNumeric(text)) return 0;
    QString t = text;
    t.remove(u',').remove(u'$').remove(u' ').remove(u'\t');
    t.replace(u'd', u'e').replace(u'D', u'e');
    return t.toDouble();
}
} // namespace tresvane
