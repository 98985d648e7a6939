#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <initializer_list>

namespace tresvane
{
// Fixed-length records, packed without gaps, numbered from 1, no header. Each record type
// is declared once as a table of fields (name, kind, width); offsets follow from the order.
//
//   Text      blank-padded Windows-1252, cut at its width when stored
//   Int16     2 bytes, little-endian, signed (a true flag is -1)
//   Int32     4 bytes, little-endian, signed
//   Double    8 bytes, IEEE, little-endian
//   Date      8-byte double: days since 30 December 1899, the fraction the time of day
//   Currency  8-byte signed integer: the amount in units of 1/10,000
enum class FieldKind { Text, Int16, Int32, Double, Date, Currency };

struct FieldSpec {
    const char* name;
    FieldKind kind;
    int width = 0; // bytes; only text fields need it, the others have their own size
};

struct FieldDef {
    QString name;
    FieldKind kind;
    int offset;
    int width;
};

class RecordLayout
{
public:
    RecordLayout(const char* name, std::initializer_list<FieldSpec> fields);

    const QString& name() const { return m_name; }
    int length() const { return m_length; }
    const QList<FieldDef>& fields() const { return m_fields; }
    const FieldDef& field(int index) const { return m_fields[index]; }
    // -1 when there is no field of that name.
    int indexOf(QStringView fieldName) const;

private:
    QString m_name;
    QList<FieldDef> m_fields;
    int m_length = 0;
};

// Read access to one record lying in a larger buffer, without a copy: what a scan over a
// whole file uses, so that 50,000 records cost one read and no allocation each.
class RecordView
{
public:
    RecordView(const RecordLayout& layout, const char* data) : m_layout(&layout), m_data(data) {}

    const RecordLayout& layout() const { return *m_layout; }
    QByteArrayView bytes() const { return {m_data, m_layout->length()}; }
    // The field's bytes with surrounding blanks removed, still in Windows-1252.
    QByteArrayView trimmedBytes(int field) const;
    QString text(int field) const;
    QString rawText(int field) const;
    qint16 int16(int field) const;
    qint32 int32(int field) const;
    double real(int field) const;
    qint64 currency(int field) const;
    QString display(int field) const;

private:
    const char* at(int field) const { return m_data + m_layout->field(field).offset; }
    const RecordLayout* m_layout;
    const char* m_data;
};

// Walks the whole records of a file's bytes, calling f(recordNo, view) from record 1. A
// partial last record is not visited (use SplitRecords where it must count).
template <typename F> void ForEachRecord(const RecordLayout& layout, const QByteArray& bytes, F f)
{
    const qsizetype n = bytes.size() / layout.length();
    for (qsizetype i = 0; i < n; ++i)
        f(i + 1, RecordView(layout, bytes.constData() + i * layout.length()));
}

// One record's bytes with typed access by field index. Bytes the program does not
// touch stay as they were read, so fields owned by other programs survive a round trip.
class FixedRecord
{
public:
    // A new record: text fields blank, numbers zero.
    explicit FixedRecord(const RecordLayout& layout);
    // A record as read: short input is filled with zero bytes, longer input is cut.
    FixedRecord(const RecordLayout& layout, QByteArrayView bytes);

    const RecordLayout& layout() const { return *m_layout; }
    const QByteArray& bytes() const { return m_bytes; }

    RecordView view() const { return RecordView(*m_layout, m_bytes.constData()); }

    // Text with surrounding blanks removed, as every reader uses it.
    QString text(int field) const { return view().text(field); }
    // Text as stored, blanks included.
    QString rawText(int field) const { return view().rawText(field); }
    // Stores text cut at the field's width and padded with blanks.
    void setText(int field, const QString& value);

    qint16 int16(int field) const { return view().int16(field); }
    void setInt16(int field, qint16 value);
    qint32 int32(int field) const { return view().int32(field); }
    void setInt32(int field, qint32 value);
    double real(int field) const { return view().real(field); } // Double and Date fields
    void setReal(int field, double value);
    qint64 currency(int field) const { return view().currency(field); } // units of 1/10,000
    void setCurrency(int field, qint64 units);

    // A field's value as text for listings: trimmed text, numbers plain, dates as
    // mm/dd/yyyy (with the time when it has one), currency as 12.3400.
    QString display(int field) const { return view().display(field); }

    bool operator==(const FixedRecord& other) const { return m_bytes == other.m_bytes; }

private:
    char* at(int field) { return m_bytes.data() + m_layout->field(field).offset; }

    const RecordLayout* m_layout;
    QByteArray m_bytes;
};

// The records of a whole file read in one piece. A partial last record counts when the
// rounded division says so and is filled with zero bytes.
QList<FixedRecord> SplitRecords(const RecordLayout& layout, const QByteArray& bytes);
QByteArray JoinRecords(const QList<FixedRecord>& records);

// Dates as the old platform stored them: days since 30 December 1899.
double ToOleDate(const QDate& date);
double ToOleDate(const QDateTime& dateTime);
QDateTime FromOleDate(double days);
} // namespace tresvane
