#pragma once

#include <QByteArray>

namespace tresvane
{
// Customer records laid down by hand, field by field, in Windows-1252, independent of the
// record codec.
struct HandCustomer {
    const char* account = "";
    const char* name = "";
    const char* address1 = "";
    const char* address2 = "";
    const char* address3 = "";
    const char* cityShort = "";
    const char* state = "";
    const char* zip = "";
    const char* address4 = "";
    const char* phone = "";
    const char* cell = "";
    const char* other = "";
    const char* title = "";
    const char* first = "";
    const char* middle = "";
    const char* last = "";
    const char* type = "Individual";
    QByteArray mark = QByteArray::fromHex("0100");
    QByteArray spare = QByteArray::fromHex("0000");
};

inline QByteArray padded(const char* s, int width)
{
    QByteArray b(s);
    b.truncate(width);
    return b + QByteArray(width - b.size(), ' ');
}

inline QByteArray customerBytes(const HandCustomer& c)
{
    return padded(c.account, 20) + padded(c.name, 45) + padded(c.address1, 35) +
           padded(c.address2, 25) + padded(c.address3, 25) + padded(c.cityShort, 20) +
           padded(c.state, 2) + padded(c.zip, 10) + padded(c.address4, 25) + padded(c.phone, 13) +
           padded(c.cell, 13) + padded(c.other, 30) + padded(c.title, 10) + padded(c.first, 15) +
           padded(c.middle, 1) + padded(c.last, 25) + padded(c.type, 10) + c.mark + c.spare;
}

// A record of a companion program: every byte different, high bytes and NULs among them.
inline QByteArray companionBytes(int length, int seed)
{
    QByteArray b(length, '\0');
    for (int i = 0; i < length; ++i)
        b[i] = char((i * 37 + seed) & 0xff);
    return b;
}
} // namespace tresvane
