#include "core/schedule/slipfiles.h"

#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString SlipsFileName()
{
    return QStringLiteral("/Slips.txt");
}
QString MeetingsFileName()
{
    return QStringLiteral("/Meetings.txt");
}
QString UnscheduledSlipsFileName()
{
    return QStringLiteral("/UnscheduledSlips.txt");
}

Result<qint32> CountSlipRecords(Store& store, const QString& name)
{
    // A file lost from the folder comes back from Backup before it is counted: appending to
    // a new empty file instead would leave the old records only in Backup, and the next
    // exit's backup would overwrite them there.
    if (!store.FileExists(name)) {
        if (Status s = store.WriteFile(name, QByteArray()); !s) return s;
    }
    const qint64 count = Store::roundedRecords(store.FileSize(name), kSlipRecordLength);
    if (count >= 0x7fffffff)
        return Status::failure(
            QStringLiteral("%1 is too large to be a slip file.").arg(store.describe(name)));
    return qint32(count);
}

void FillSlipRecord(SlipRecord& slip, const BookingRequest& r)
{
    const CurrentCustomer& who = r.customer;
    slip.setText(SlipField::AcctNo, who.account);
    slip.setText(SlipField::Name, who.name);
    slip.setText(SlipField::Street, who.address1);
    slip.setText(SlipField::City, who.city);
    slip.setText(SlipField::St, who.state);
    slip.setText(SlipField::Tel, who.phone);
    slip.setText(SlipField::Zip, who.zip);
    slip.setText(SlipField::Apt, who.address2);
    slip.setText(SlipField::EventDate, FormatShortDate(r.date));
    slip.setText(SlipField::TimeUnit, r.unit);
    slip.setText(SlipField::Hours, r.hours);
    slip.setText(SlipField::TeamNo, r.team);
    slip.setText(SlipField::Amount, FormatCurrency(0));
    slip.setText(SlipField::PaymentForm, QString());
    slip.setText(SlipField::Reserved20, QString());
    slip.setText(SlipField::Reference, QString());
    slip.setText(SlipField::Status, QStringLiteral("Scheduled"));
    slip.setText(SlipField::StartSlot, QString::number(r.firstSlot));
    if (r.kind == SlipKind::ServiceAttention) {
        slip.setText(SlipField::ConfirmationNo, r.number);
        slip.setText(SlipField::Reference, r.problem);
        slip.setText(SlipField::RecType, QStringLiteral("Service"));
    } else if (r.kind == SlipKind::Meeting) {
        slip.setText(SlipField::ConfirmationNo, QString());
        slip.setText(SlipField::Reference, r.eventText.left(30));
        slip.setText(SlipField::RecType, QStringLiteral("Meeting"));
    }
}

Result<QList<SlipRecord>> ReadSlipRecords(Store& store, const QString& name)
{
    QList<SlipRecord> records;
    if (!store.FileExists(name)) return records;
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    const qint64 count = Store::roundedRecords(bytes->size(), kSlipRecordLength);
    records.reserve(count);
    for (qint64 i = 0; i < count; ++i) {
        const qint64 offset = i * kSlipRecordLength;
        const qint64 length = qMin<qint64>(kSlipRecordLength, bytes->size() - offset);
        records.append(SlipRecord(QByteArrayView(bytes->constData() + offset, length)));
    }
    return records;
}

namespace
{
struct Kept {
    QByteArray bytes;
    qint32 kept = 0;
    qint32 dropped = 0;
};

Result<Kept> keepRecords(Store& store, const QString& name, const SlipFilter& drop)
{
    Result<QList<SlipRecord>> records = ReadSlipRecords(store, name);
    if (!records) return records.status();
    Kept out;
    out.bytes.reserve(records->size() * kSlipRecordLength);
    qint32 recordNo = 0;
    for (const SlipRecord& record : *records) {
        if (drop(record, ++recordNo)) {
            ++out.dropped;
            continue;
        }
        out.bytes += record.bytes();
        ++out.kept;
    }
    return out;
}
} // namespace

Result<qint32> DropSlipRecords(Store& store, const QString& name, const SlipFilter& drop)
{
    if (!store.FileExists(name)) return qint32(0);
    Result<Kept> kept = keepRecords(store, name, drop);
    if (!kept) return kept.status();
    if (Status s = store.RewriteThroughTemporary(name, kept->bytes); !s) return s;
    return kept->dropped;
}

Status DeleteUnscheduledSlip(Store& store, qint32 recordNo)
{
    const QString name = UnscheduledSlipsFileName();
    if (!store.FileExists(name)) return {};
    Result<Kept> kept =
        keepRecords(store, name, [recordNo](const SlipRecord&, qint32 n) { return n == recordNo; });
    if (!kept) return kept.status();
    if (kept->kept > 0) return store.RewriteThroughTemporary(name, kept->bytes);
    if (Status s = store.KillIfPresent(QStringLiteral("/TemporaryFile.txt")); !s) return s;
    return store.KillWithBackup(name);
}
} // namespace tresvane
