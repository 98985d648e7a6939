#include "customersearch.h"

#include "customerfiles.h"
#include "customerrecords.h"
#include "shell/dialogs.h"
#include "store/cp1252.h"
#include "store/store.h"

#include <array>
#include <cstring>
#include <string_view>

namespace {

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

constexpr std::array<int, 8> kSearchField = {
    CustomerField::Name,    CustomerField::Address1, CustomerField::Address2,
    CustomerField::Address3, CustomerField::State,   CustomerField::Address4,
    CustomerField::Phone,   CustomerField::LastName};

std::string_view view(QByteArrayView b) { return {b.data(), size_t(b.size())}; }

bool isBusiness(const RecordView& r) { return r.trimmedBytes(CustomerField::AccountType) == "Business"; }

CustomerHit hitFor(qint32 record, const RecordView& r)
{
    using namespace CustomerField;
    CustomerHit hit;
    hit.record = record;
    if (isBusiness(r))
        hit.customer = r.text(Name);
    else // an empty title leaves the leading blank
        hit.customer = r.text(Title) + u' ' + r.text(FirstName) + u' ' + r.text(LastName);
    hit.phone = r.text(Phone);
    hit.street = r.text(Address1);
    hit.city = r.text(Address3);
    return hit;
}

// True when the needle occurs in the field, upper-cased. No field is wider than 45 bytes,
// so the upper-cased copy lives on the stack.
bool fieldContains(const RecordView& r, int field, std::string_view needle)
{
    const QByteArrayView bytes = r.trimmedBytes(field);
    if (needle.size() > size_t(bytes.size()))
        return false;
    std::array<char, 64> upper;
    const qsizetype n = std::min<qsizetype>(bytes.size(), upper.size());
    for (qsizetype i = 0; i < n; ++i)
        upper[i] = char(kUpper[static_cast<unsigned char>(bytes[i])]);
    return std::string_view(upper.data(), size_t(n)).find(needle) != std::string_view::npos;
}

} // namespace

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

Result<QList<CustomerHit>> SearchCustomerBytes(const QByteArray& bytes, int kind,
                                               const QString& text, qint32 gLastrec)
{
    const bool list = kind >= CustomerSearch::CompleteList;
    if (!list && (kind < 0 || kind >= int(kSearchField.size())))
        return Status::failure(NoAccountNumberSearchMessage());

    const QByteArray needleBytes = cp1252::encode(text);
    const std::string_view needle = view(needleBytes);
    const int field = list ? -1 : kSearchField[kind];
    const qsizetype length = kCustomerRecordLength;
    const qsizetype whole = bytes.size() / length;
    // A record past the end, or the partial last one, reads as zero bytes beyond the file.
    std::array<char, kCustomerRecordLength> padded;

    QList<CustomerHit> hits;
    for (qint32 i = 1; i <= gLastrec; ++i) {
        const char* data;
        if (i <= whole) {
            data = bytes.constData() + (i - 1) * length;
        } else {
            padded.fill('\0');
            const qsizetype offset = (i - 1) * length;
            if (offset < bytes.size())
                std::memcpy(padded.data(), bytes.constData() + offset, bytes.size() - offset);
            data = padded.data();
        }
        const RecordView r(CustomerLayout(), data);
        if (list) {
            hits.append(hitFor(i, r));
            continue;
        }
        if (kind == CustomerSearch::ByTelephone &&
            view(r.trimmedBytes(CustomerField::Cell)) == needle) {
            hits.append(hitFor(i, r));
            break;
        }
        if (fieldContains(r, field, needle))
            hits.append(hitFor(i, r));
    }
    return hits;
}

Result<QList<CustomerHit>> SearchCustomers(Store& store, int kind, const QString& text,
                                           qint32 gLastrec)
{
    if (kind == CustomerSearch::ByAccountNumber)
        return Status::failure(NoAccountNumberSearchMessage());
    Result<QByteArray> bytes = store.ReadAll(CustomerFileName());
    if (!bytes)
        return bytes.status();
    return SearchCustomerBytes(*bytes, kind, text, gLastrec);
}

bool AskCreateAccountWhenNotFound(Dialogs& dialogs)
{
    return dialogs.ask(QStringLiteral("No Accounts Matching the Search Data were Found\nWould "
                                      "you like to Create a New Account?"),
                       QStringLiteral("Customer not Found"));
}
