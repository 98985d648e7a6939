#pragma once

#include <QByteArray>
#include <QString>

namespace tresvane
{
// Windows-1252, one byte a character: the encoding of every data file. Text is converted
// here and nowhere else. A character the code page cannot hold is stored as '?'.
namespace cp1252
{
QString decode(QByteArrayView bytes);
QByteArray encode(QStringView text);
// The single byte for one character, or '?' when it has none.
char encodeChar(QChar c);
} // namespace cp1252
} // namespace tresvane
