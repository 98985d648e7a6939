#include "core/customers/customerlist.h"

#include "core/customers/customerfiles.h"
#include "core/io/cp1252.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"

#include <string_view>
#include <unordered_set>

namespace tresvane
{
QString AccountListText(const RecordView& r)
{
    using namespace CustomerField;
    if (r.trimmedBytes(AccountType) == "Business") return r.text(Name);
    QString entry = r.text(LastName) + QStringLiteral(", ") + r.text(FirstName);
    const QByteArrayView initial = r.trimmedBytes(MiddleInitial);
    if (!initial.isEmpty()) entry += u' ' + cp1252::decode(initial);
    return entry;
}

AccountListData AccountListFromBytes(const QByteArray& bytes)
{
    AccountListData data;
    data.accounts.reserve(bytes.size() / kCustomerRecordLength);
    // The set only answers "already there"; the list keeps the order of first appearance.
    std::unordered_set<std::string_view> seen;
    ForEachRecord(CustomerLayout(), bytes, [&](qsizetype n, const RecordView& r) {
        const QByteArrayView city = r.trimmedBytes(CustomerField::Address3);
        if (seen.insert(std::string_view(city.data(), size_t(city.size()))).second) {
            data.cities.append(cp1252::decode(city));
        }
        data.accounts.append({AccountListText(r), qint32(n)});
    });
    return data;
}

Result<AccountListData> ReadAccountList(Store& store)
{
    const QString name = CustomerFileName();
    if (!store.FileExists(name)) return AccountListData();
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    if (bytes->size() / kCustomerRecordLength > 32767)
        return Status::failure(
            QStringLiteral("%1 holds more than 32,767 accounts, the most this program can list.")
                .arg(store.describe(name)));
    return AccountListFromBytes(*bytes);
}

Result<bool> AccountNoExists(Store& store, const QString& account, qint32 gCurrentRec,
                             qint32 gLastrec)
{
    if (gCurrentRec == 0 || account.isEmpty()) return false;
    Result<QByteArray> bytes = store.ReadAll(CustomerFileName());
    if (!bytes) return bytes.status();
    const QByteArray wanted = cp1252::encode(account);
    bool found = false;
    ForEachRecord(CustomerLayout(), *bytes, [&](qsizetype n, const RecordView& r) {
        if (!found && n <= gLastrec && n != gCurrentRec &&
            r.trimmedBytes(CustomerField::AccountNo) == wanted)
            found = true;
    });
    return found;
}
} // namespace tresvane
