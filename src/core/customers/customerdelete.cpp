#include "core/customers/customerdelete.h"

#include "core/customers/customerfiles.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"

#include <algorithm>

namespace tresvane
{
namespace
{

// Records 1 to last without `skip`, renumbered from 1.
QByteArray recordsWithout(const QByteArray& bytes, int length, qint32 skip, qint32 last)
{
    QByteArray out;
    out.reserve(qsizetype(std::max<qint32>(last - 1, 0)) * length);
    for (qint32 i = 1; i <= last; ++i) {
        if (i == skip) continue;
        const qsizetype offset = qsizetype(i - 1) * length;
        const qsizetype available = std::clamp<qsizetype>(bytes.size() - offset, 0, length);
        if (available > 0) out.append(bytes.constData() + offset, available);
        if (available < length) out.append(QByteArray(length - available, '\0'));
    }
    return out;
}

} // namespace

bool ConfirmDeleteCustomer(Dialogs& dialogs)
{
    return dialogs.ask(QStringLiteral("Delete this Customer"),
                       QStringLiteral("Delete this Customer"));
}

Result<CustomerPosition> DeleteCustomer(Store& store, CustomerPosition at)
{
    struct Target {
        QString name;
        int length;
    };
    const Target targets[] = {{CustomerFileName(), kCustomerRecordLength},
                              {CycleFileName(), kCycleRecordLength},
                              {ContractFileName(), kContractRecordLength}};
    // The three parallel files change together, or a customer would show another's contract.
    Store::Group change(store);
    // Scratch files of earlier rewrites that never finished are cleared first, as always.
    for (const char* scratch : {"/CUSTOMER.TMP", "/Temp.txt"})
        if (Status s = store.KillIfPresent(QString::fromLatin1(scratch)); !s) return s;
    for (const Target& t : targets) {
        Result<QByteArray> bytes = store.ReadAll(t.name);
        if (!bytes) return bytes.status();
        const QByteArray kept = recordsWithout(*bytes, t.length, at.gCurrentRec, at.gLastrec);
        // The customer file keeps its copy in Backup; the two parallel files lose theirs.
        const auto backup =
            t.length == kCustomerRecordLength ? Store::BackupCopy::Keep : Store::BackupCopy::Remove;
        if (Status s = store.RewriteThroughTemporary(t.name, kept, backup); !s) return s;
    }
    if (Status s = change.commit(); !s) return s;
    return PositionAfterDelete(at);
}
} // namespace tresvane
