#include "core/io/cp1252.h"

#include <array>

namespace tresvane
{
namespace
{
// 0x80..0x9F differ from Latin-1; the five unassigned bytes map to the C1 controls so
// that any byte read from a file survives a read and write unchanged.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
} // namespace

namespace cp1252
{

QString decode(QByteArrayView bytes)
{
    QString out;
    out.resize(bytes.size());
    QChar* dst = out.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        dst[i] = (b >= 0x80 && b < 0xA0) ? QChar(kHigh[b - 0x80]) : QChar(b);
    }
    return out;
}

char encodeChar(QChar c)
{
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) return static_cast<char>(u);
    for (std::size_t i = 0; i < kHigh.size(); ++i)
        if (kHigh[i] == u) return static_cast<char>(0x80 + i);
    return '?';
}

QByteArray encode(QStringView text)
{
    QByteArray out;
    out.resize(text.size());
    for (qsizetype i = 0; i < text.size(); ++i)
        out[i] = encodeChar(text[i]);
    return out;
}

} // namespace cp1252
} // namespace tresvane
