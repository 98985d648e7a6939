#include "core/io/record.h"

#include "core/io/cp1252.h"
#include "core/io/store.h"
#include "core/io/usforms.h"

#include <QtEndian>
#include <cmath>
#include <cstring>

namespace tresvane
{
namespace
{
int sizeOf(const FieldSpec& entry)
{
    switch (entry.kind) {
    case FieldKind::Text:
        return entry.width;
    case FieldKind::Int16:
        return 2;
    case FieldKind::Int32:
        return 4;
    case FieldKind::Double:
    case FieldKind::Date:
    case FieldKind::Currency:
        return 8;
    }
    return 0;
}
const QDate kOleEpoch(1899, 12, 30);
} // namespace

RecordLayout::RecordLayout(const char* name, std::initializer_list<FieldSpec> fields)
    : m_name(QString::fromLatin1(name))
{
    for (const FieldSpec& entry : fields) {
        const int width = sizeOf(entry);
        m_fields.append({QString::fromLatin1(entry.name), entry.kind, m_length, width});
        m_length += width;
    }
}

int RecordLayout::indexOf(QStringView fieldName) const
{
    for (int i = 0; i < m_fields.size(); ++i)
        if (m_fields[i].name == fieldName) return i;
    return -1;
}

FixedRecord::FixedRecord(const RecordLayout& layout)
    : m_layout(&layout), m_bytes(layout.length(), '\0')
{
    for (const FieldDef& f : layout.fields())
        if (f.kind == FieldKind::Text) std::memset(m_bytes.data() + f.offset, ' ', f.width);
}

FixedRecord::FixedRecord(const RecordLayout& layout, QByteArrayView bytes)
    : m_layout(&layout), m_bytes(layout.length(), '\0')
{
    std::memcpy(m_bytes.data(), bytes.data(), std::min<qsizetype>(bytes.size(), layout.length()));
}

QByteArrayView RecordView::trimmedBytes(int field) const
{
    // Only blanks are trimmed: the old readers left other characters alone.
    const char* p = at(field);
    int begin = 0;
    int end = m_layout->field(field).width;
    while (begin < end && p[begin] == ' ')
        ++begin;
    while (end > begin && p[end - 1] == ' ')
        --end;
    return QByteArrayView(p + begin, end - begin);
}

QString RecordView::rawText(int field) const
{
    return cp1252::decode(QByteArrayView(at(field), m_layout->field(field).width));
}

QString RecordView::text(int field) const
{
    return cp1252::decode(trimmedBytes(field));
}

void FixedRecord::setText(int field, const QString& value)
{
    const int width = m_layout->field(field).width;
    const QByteArray encoded = cp1252::encode(QStringView(value).left(width));
    char* p = at(field);
    std::memset(p, ' ', width);
    std::memcpy(p, encoded.constData(), encoded.size());
}

qint16 RecordView::int16(int field) const
{
    return qFromLittleEndian<qint16>(at(field));
}
void FixedRecord::setInt16(int field, qint16 value)
{
    qToLittleEndian(value, at(field));
}
qint32 RecordView::int32(int field) const
{
    return qFromLittleEndian<qint32>(at(field));
}
void FixedRecord::setInt32(int field, qint32 value)
{
    qToLittleEndian(value, at(field));
}

double RecordView::real(int field) const
{
    const quint64 bits = qFromLittleEndian<quint64>(at(field));
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void FixedRecord::setReal(int field, double value)
{
    quint64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    qToLittleEndian(bits, at(field));
}

qint64 RecordView::currency(int field) const
{
    return qFromLittleEndian<qint64>(at(field));
}
void FixedRecord::setCurrency(int field, qint64 units)
{
    qToLittleEndian(units, at(field));
}

QString RecordView::display(int field) const
{
    switch (m_layout->field(field).kind) {
    case FieldKind::Text: {
        QString t = text(field);
        t.remove(QChar(0));
        return t.trimmed();
    }
    case FieldKind::Int16:
        return QString::number(int16(field));
    case FieldKind::Int32:
        return QString::number(int32(field));
    case FieldKind::Double:
        return QString::number(real(field));
    case FieldKind::Date: {
        const double d = real(field);
        const QDateTime dt = FromOleDate(d);
        if (!dt.isValid()) return QString::number(d);
        if (d == std::floor(d)) return FormatShortDate(dt.date());
        return FormatShortDate(dt.date()) + dt.time().toString(u" HH:mm:ss");
    }
    case FieldKind::Currency:
        return FormatDecimalCurrency(currency(field));
    }
    return {};
}

QList<FixedRecord> SplitRecords(const RecordLayout& layout, const QByteArray& bytes)
{
    const qint64 count = Store::roundedRecords(bytes.size(), layout.length());
    QList<FixedRecord> records;
    records.reserve(count);
    for (qint64 i = 0; i < count; ++i) {
        const qsizetype offset = i * layout.length();
        const qsizetype available = std::max<qsizetype>(0, bytes.size() - offset);
        records.append(
            FixedRecord(layout, QByteArrayView(bytes.constData() + std::min(offset, bytes.size()),
                                               std::min<qsizetype>(available, layout.length()))));
    }
    return records;
}

QByteArray JoinRecords(const QList<FixedRecord>& records)
{
    QByteArray out;
    if (records.isEmpty()) return out;
    out.reserve(records.size() * records.first().bytes().size());
    for (const FixedRecord& r : records)
        out += r.bytes();
    return out;
}

double ToOleDate(const QDate& date)
{
    return double(kOleEpoch.daysTo(date));
}

double ToOleDate(const QDateTime& dateTime)
{
    const QTime t = dateTime.time();
    return ToOleDate(dateTime.date()) + t.msecsSinceStartOfDay() / 86400000.0;
}

QDateTime FromOleDate(double days)
{
    if (!std::isfinite(days) || days < -657434 || days > 2958465) return {};
    // Before the epoch the whole part counts back and the fraction still counts forward.
    const double whole = std::trunc(days);
    const double fraction = std::fabs(days - whole);
    const QDate date = kOleEpoch.addDays(qint64(whole));
    const int ms = int(std::lround(fraction * 86400000.0));
    return QDateTime(date, QTime::fromMSecsSinceStartOfDay(std::min(ms, 86399999)));
}
} // namespace tresvane
