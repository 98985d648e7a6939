// The two history files of the accounts, as the history screen filters them, and the
// purge of one account's history.
#include "fuzzfolder.h"

#include "core/history/historyview.h"
#include "core/io/historyrecords.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

const QString kFiles[] = {ServiceHistoryFileName(), LedgerFileName()};

// A good record of the other file, so that both are read.
QByteArray otherFile(const QString& name)
{
    if (name == ServiceHistoryFileName()) {
        LedgerRecord r;
        r.setText(LedgerField::LedgerAccount, QStringLiteral("1001"));
        r.setText(LedgerField::LedgerDate, QStringLiteral("04/30/2026"));
        r.setText(LedgerField::LedgerAmount, QStringLiteral("$12.50"));
        return r.bytes();
    }
    ServiceHistoryRecord r;
    r.setText(ServiceHistoryField::ServiceAccount, QStringLiteral("1001"));
    r.setText(ServiceHistoryField::ServiceDate, QStringLiteral("04/30/2026"));
    return r.bytes();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    const QString name = kFiles[in.choice(2)];
    const QString other = kFiles[1 - in.choice(2)];
    f.put(name, in.rest());
    f.put(other, otherFile(name));
    Store& store = f.store();

    HistoryFilter all{false, {}, QDate(1900, 1, 1), QDate(2100, 12, 31)};
    Result<HistoryView> view = LoadHistory(store, all);
    requireNamed(view, name);
    if (!view) return 0;
    DescribeDamage(view->damage);
    for (const HistoryDamage& d : view->damage)
        require(d.records >= 1 && d.firstRecord >= 1, "damage without a record");

    if (!view->accounts.isEmpty()) {
        const QString account = view->accounts.first();
        HistoryFilter one{true, account, QDate(1900, 1, 1), QDate(2100, 12, 31)};
        Result<HistoryView> mine = LoadHistory(store, one);
        require(mine.ok(), "a filtered view fails where the whole one did not");
        require(mine->service.size() <= view->service.size() &&
                    mine->ledger.size() <= view->ledger.size(),
                "one account shows more than all of them");

        // Once purged, the account is gone from both files.
        require(PurgeAccountHistory(store, account).ok(), "an account's history cannot be purged");
        Result<HistoryView> after = LoadHistory(store, all);
        require(after.ok(), "history unreadable after a purge");
        require(!after->accounts.contains(account), "a purged account is still listed");
    }
    require(PurgeAllHistory(store).ok(), "the history cannot be purged");
    f.requireNothingOutside();
    return 0;
}
