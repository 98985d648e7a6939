#pragma once

#include "core/io/result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tresvane
{
// The comma-and-quote text form of every settings and list file.
//
// Writing: fields separated by commas, strings in double quotes, numbers plain, booleans
// as #TRUE# and #FALSE#; each statement is one line ended by CR LF. Text is stored in
// Windows-1252.
class TextWriter
{
public:
    TextWriter& field(const QString& text);
    TextWriter& field(const char* text) { return field(QString::fromUtf8(text)); }
    TextWriter& field(bool value);
    TextWriter& field(qint64 value);
    TextWriter& field(int value) { return field(qint64(value)); }
    TextWriter& field(qint16 value) { return field(qint64(value)); }
    TextWriter& field(quint8 value) { return field(qint64(value)); }
    TextWriter& endLine();

    // One statement: all fields on one line.
    template <typename... Fields> TextWriter& line(const Fields&... fields)
    {
        (field(fields), ...);
        return endLine();
    }

    const QByteArray& bytes() const { return m_bytes; }

private:
    void separate();
    QByteArray m_bytes;
    bool m_lineOpen = false;
};

// Reads fields in order, across line ends. A field is delimited by a comma or a line end;
// leading blanks are skipped; a field that opens with a double quote runs to the closing
// quote. Each typed read reports a file that ends early or a field of the wrong form with
// a message naming the file.
class TextReader
{
public:
    TextReader(QByteArray bytes, QString fileName);

    // True when nothing but blanks and line ends is left.
    bool atEnd() const;
    Result<QString> readString();
    Result<qint16> readInt16();
    Result<quint8> readByte();
    Result<qint32> readInt32();
    Result<bool> readBool();
    // The fields of the rest of the file, as strings.
    Result<QStringList> readAllStrings();

    QString fileName() const { return m_fileName; }

private:
    // The next raw field: its text and whether it was quoted. Fails at the end.
    Result<QString> next(bool* quoted);
    Result<qint64> readInteger(qint64 low, qint64 high, const char* what);
    Status damaged(const QString& detail) const;

    QByteArray m_bytes;
    QString m_fileName;
    qsizetype m_pos = 0;
    int m_fieldNo = 0;
};

// Whole lines, as the plain-line files are written and read (no quotes, no commas).
QStringList ReadPlainLines(const QByteArray& bytes);
QByteArray WritePlainLines(const QStringList& lines);

// Whether the text is a number as a whole, in the forgiving sense users expect of a box:
// blanks around it, a sign, thousands commas, a decimal point, an exponent, a leading $.
bool IsNumeric(const QString& text);
// The value of a numeric text (0 when it is not one).
double NumericValue(const QString& text);
} // namespace tresvane
