#include "core/customers/customersearch.h"

#include "core/customers/customerfiles.h"
#include "core/io/cp1252.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"

#include <array>
#include <bit>
#include <cstring>
#include <string_view>

namespace tresvane
{
namespace
{

// Upper case of one Windows-1252 byte: a-z, the accented small letters of the Latin-1
// half, and the four small letters of 0x80..0x9F that have a capital there.
constexpr std::array<unsigned char, 256> makeUpperTable()
{
    std::array<unsigned char, 256> t{};
    for (int i = 0; i < 256; ++i)
        t[i] = static_cast<unsigned char>(i);
    for (int c = 'a'; c <= 'z'; ++c)
        t[c] = static_cast<unsigned char>(c - 0x20);
    for (int c = 0xE0; c <= 0xFE; ++c)
        if (c != 0xF7) // the division sign
            t[c] = static_cast<unsigned char>(c - 0x20);
    t[0x9A] = 0x8A; // s caron
    t[0x9C] = 0x8C; // oe
    t[0x9E] = 0x8E; // z caron
    t[0xFF] = 0x9F; // y diaeresis
    return t;
}
constexpr std::array<unsigned char, 256> kUpper = makeUpperTable();

constexpr std::array<int, 8> kSearchField = {CustomerField::Name,     CustomerField::Address1,
                                             CustomerField::Address2, CustomerField::Address3,
                                             CustomerField::State,    CustomerField::Address4,
                                             CustomerField::Phone,    CustomerField::LastName};

std::string_view view(QByteArrayView b)
{
    return {b.data(), size_t(b.size())};
}

// A field without its surrounding blanks, as RecordView::trimmedBytes gives it, but eight
// trailing blanks at a time, since most fields are mostly blanks.
QByteArrayView trimmed(const RecordView& r, int field)
{
    const FieldDef& f = r.layout().field(field);
    const char* p = r.bytes().data() + f.offset;
    qsizetype end = f.width;
    while (end >= 8 && std::memcmp(p + end - 8, "        ", 8) == 0)
        end -= 8;
    while (end > 0 && p[end - 1] == ' ')
        --end;
    qsizetype begin = 0;
    while (begin < end && p[begin] == ' ')
        ++begin;
    return QByteArrayView(p + begin, end - begin);
}

bool isBusiness(const RecordView& r)
{
    return trimmed(r, CustomerField::AccountType) == "Business";
}

// True when the needle occurs in the field, upper-cased. A needle without blanks at its
// ends can only occur between the field's first and last non-blank, so the field is
// searched as stored, without trimming; no field is wider than 45 bytes, so the
// upper-cased copy lives on the stack.
bool fieldContains(const RecordView& r, int field, std::string_view needle)
{
    if (needle.empty()) return true;
    QByteArrayView bytes =
        needle.front() == ' ' || needle.back() == ' '
            ? trimmed(r, field)
            : r.bytes().sliced(r.layout().field(field).offset, r.layout().field(field).width);
    if (needle.size() > size_t(bytes.size())) return false;
    // The field is folded in a buffer of fixed length, which the compiler folds many
    // bytes at a time: plain ASCII by arithmetic; a field with any byte from 0x80 up is
    // folded again through the table.
    constexpr int kWidth = 48; // wider than any text field of the record
    alignas(16) std::array<unsigned char, kWidth> upper{};
    const qsizetype n = std::min<qsizetype>(bytes.size(), kWidth);
    std::memcpy(upper.data(), bytes.data(), size_t(n));
    unsigned char high = 0;
    for (int i = 0; i < kWidth; ++i) {
        const unsigned char c = upper[i];
        high |= c;
        upper[i] =
            static_cast<unsigned char>(c - (static_cast<unsigned char>(c - 'a') < 26) * 0x20);
    }
    if (high & 0x80)
        for (qsizetype i = 0; i < n; ++i)
            upper[i] = kUpper[static_cast<unsigned char>(bytes[i])];

    // The places of the needle's first byte are found eight bytes at a time (a word holds
    // a zero byte where it equals the first byte after the exclusive or; the test may also
    // flag a byte next to a true one, and every flagged place is checked in full).
    const auto first = static_cast<unsigned char>(needle[0]);
    const qsizetype m = qsizetype(needle.size());
    constexpr quint64 kOnes = 0x0101010101010101ull;
    constexpr quint64 kHighs = 0x8080808080808080ull;
    const quint64 pattern = kOnes * first;
    for (qsizetype base = 0; base + m <= n; base += 8) {
        quint64 word;
        std::memcpy(&word, upper.data() + base, 8);
        const quint64 x = word ^ pattern;
        quint64 flagged = (x - kOnes) & ~x & kHighs;
        while (flagged) {
            const int bit = std::countr_zero(flagged);
            flagged &= flagged - 1;
            const qsizetype i =
                base + (std::endian::native == std::endian::little ? bit / 8 : 7 - bit / 8);
            if (i + m > n || upper[i] != first) continue;
            qsizetype j = 1;
            while (j < m && upper[i + j] == static_cast<unsigned char>(needle[j]))
                ++j;
            if (j == m) return true;
        }
    }
    return false;
}

} // namespace

void CustomerHits::append(qint32 record)
{
    m_numbers.append(record);
    ++m_inFile;
}

void CustomerHits::appendPastTheEnd(qint32 record, QByteArrayView bytes)
{
    m_tail.append(bytes.first(std::min<qsizetype>(bytes.size(), kCustomerRecordLength)));
    m_tail.append(QByteArray(
        kCustomerRecordLength - std::min<qsizetype>(bytes.size(), kCustomerRecordLength), '\0'));
    m_numbers.append(record);
}

const char* CustomerHits::data(qsizetype row) const
{
    if (row < m_inFile)
        return m_file.constData() + qsizetype(m_numbers[row] - 1) * kCustomerRecordLength;
    return m_tail.constData() + (row - m_inFile) * kCustomerRecordLength;
}

QString CustomerHits::text(qsizetype row, int column) const
{
    if (row < 0 || row >= size()) return {};
    using namespace CustomerField;
    const RecordView r(CustomerLayout(), data(row));
    switch (column) {
    case Customer:
        if (isBusiness(r)) return r.text(Name);
        return r.text(Title) + u' ' + r.text(FirstName) + u' ' + r.text(LastName);
    case Phone:
        return r.text(CustomerField::Phone);
    case Street:
        return r.text(Address1);
    case City:
        return r.text(Address3);
    case Rec:
        return QString::number(m_numbers[row]);
    default:
        return {};
    }
}

CustomerHit CustomerHits::at(qsizetype row) const
{
    return {record(row), text(row, Customer), text(row, Phone), text(row, Street), text(row, City)};
}

QString NormalizeSearchText(const QString& text)
{
    QByteArray bytes = cp1252::encode(text.trimmed());
    for (char& b : bytes)
        b = char(kUpper[static_cast<unsigned char>(b)]);
    return cp1252::decode(bytes);
}

QString NoAccountNumberSearchMessage()
{
    return QStringLiteral("There is no search by Account Number.\nPlease choose another kind "
                          "of search, or find the account in the Name List.");
}

namespace
{

// The test of one search kind, fed record by record in record order.
class Scan
{
public:
    Scan(int kind, const QString& text, const QByteArray& file)
        : hits(file), m_list(kind >= CustomerSearch::CompleteList),
          m_telephone(kind == CustomerSearch::ByTelephone),
          m_field(m_list ? -1 : kSearchField[kind]), m_needleBytes(cp1252::encode(text)),
          m_needle(view(m_needleBytes))
    {
    }

    // Whether the record is a hit, and whether the scan goes on after it (a cell number
    // that matched ends it).
    struct Verdict {
        bool hit;
        bool more;
    };
    Verdict test(const char* data) const
    {
        const RecordView r(CustomerLayout(), data);
        if (m_list) return {true, true};
        if (m_telephone && view(trimmed(r, CustomerField::Cell)) == m_needle) return {true, false};
        return {fieldContains(r, m_field, m_needle), true};
    }

    CustomerHits hits;

private:
    bool m_list;
    bool m_telephone;
    int m_field;
    QByteArray m_needleBytes;
    std::string_view m_needle;
};

bool knownKind(int kind)
{
    return kind >= CustomerSearch::CompleteList || (kind >= 0 && kind < int(kSearchField.size()));
}

} // namespace

Result<CustomerHits> SearchCustomerBytes(const QByteArray& bytes, int kind, const QString& text,
                                         qint32 gLastrec)
{
    if (!knownKind(kind)) return Status::failure(NoAccountNumberSearchMessage());
    Scan scan(kind, text, bytes);
    const qint32 whole =
        qint32(std::min<qsizetype>(bytes.size() / kCustomerRecordLength, std::max(gLastrec, 0)));
    for (qint32 i = 1; i <= whole; ++i) {
        const auto [hit, more] =
            scan.test(bytes.constData() + qsizetype(i - 1) * kCustomerRecordLength);
        if (hit) scan.hits.append(i);
        if (!more) return std::move(scan.hits);
    }
    // Records past the end: the partial last record, if any, and then zero bytes.
    std::array<char, kCustomerRecordLength> padded;
    for (qint32 i = whole + 1; i <= gLastrec; ++i) {
        padded.fill('\0');
        const qsizetype offset = qsizetype(i - 1) * kCustomerRecordLength;
        if (offset < bytes.size())
            std::memcpy(padded.data(), bytes.constData() + offset,
                        size_t(std::min<qsizetype>(bytes.size() - offset, kCustomerRecordLength)));
        const auto [hit, more] = scan.test(padded.data());
        if (hit) scan.hits.appendPastTheEnd(i, QByteArrayView(padded.data(), padded.size()));
        if (!more) break;
    }
    return std::move(scan.hits);
}

Result<CustomerHits> SearchCustomers(Store& store, int kind, const QString& text, qint32 gLastrec)
{
    if (!knownKind(kind)) return Status::failure(NoAccountNumberSearchMessage());
    Result<QByteArray> bytes = store.ReadAll(CustomerFileName());
    if (!bytes) return bytes.status();
    return SearchCustomerBytes(*bytes, kind, text, gLastrec);
}

bool AskCreateAccountWhenNotFound(Dialogs& dialogs)
{
    return dialogs.ask(QStringLiteral("No Accounts Matching the Search Data were Found\nWould "
                                      "you like to Create a New Account?"),
                       QStringLiteral("Customer not Found"));
}
} // namespace tresvane
