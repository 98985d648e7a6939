#include "core/telephony/storedcalls.h"

#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/telephony/calleridparser.h"

#include <QTime>

namespace tresvane
{
namespace StoredCalls
{

QList<CallRecord> ReadAll(Store& store)
{
    QList<CallRecord> out;
    if (!store.FileExists(kFile)) return out;
    const QByteArray bytes = store.ReadAll(kFile).valueOr({});
    for (qsizetype at = 0; at + kCallRecordLength <= bytes.size(); at += kCallRecordLength)
        out << CallRecord(QByteArrayView(bytes).sliced(at, kCallRecordLength));
    return out;
}

Result<qint32> Append(Store& store, const CallerIdReport& call, const QString& time)
{
    const qint32 count =
        store.FileExists(kFile) ? qint32(store.FileSize(kFile) / kCallRecordLength) : 0;
    CallRecord record;
    record.setText(CallField::CallName, call.name);
    record.setText(CallField::CallNumber, call.number);
    record.setText(CallField::CallTime, time);
    const Status written = store.WriteRecordAt(kFile, kCallRecordLength, count + 1, record.bytes());
    if (!written) return Result<qint32>(written);
    return count + 1;
}

Status DeleteAll(Store& store)
{
    return store.KillWithBackup(kFile);
}

QString TimeText(const QTime& time)
{
    return time.toString(QStringLiteral("hh:mm ap"));
}

Result<qint32> Count(Store& store)
{
    return store.RecordCount32(kFile, kCallRecordLength);
}

Result<CallRecord> Read(Store& store, qint32 callNo)
{
    const Result<QByteArray> bytes = store.ReadRecordAt(kFile, kCallRecordLength, callNo);
    if (!bytes) return Result<CallRecord>(bytes.status());
    return CallRecord(*bytes);
}

Status DeleteOne(Store& store, qint32 callNo)
{
    const Result<qint32> count = Count(store);
    if (!count) return count.status();
    Result<QByteArray> bytes = store.ReadAll(kFile);
    if (!bytes) return bytes.status();
    // A torn last call is kept as the count has it, filled out to a whole record.
    QByteArray& calls = *bytes;
    calls.resize(qsizetype(*count) * kCallRecordLength, '\0');
    if (callNo >= 1 && callNo <= *count)
        calls.remove(qsizetype(callNo - 1) * kCallRecordLength, kCallRecordLength);
    if (calls.isEmpty()) return DeleteAll(store);
    return store.RewriteThroughTemporary(kFile, calls, Store::BackupCopy::Remove);
}

qint32 StepTo(Step step, qint32 onShow, qint32 count)
{
    switch (step) {
    case Step::Startup:
        // A call deleted from the end leaves the place past the new last: back to the first.
        return onShow < 1 || onShow > count ? 1 : onShow;
    case Step::Up:
        return onShow < count ? onShow + 1 : 1;
    case Step::Down:
        return onShow >= 2 ? onShow - 1 : count;
    }
    return 1;
}

} // namespace StoredCalls

void CallerDirectory::load(const QByteArray& customerData)
{
    m_byNumber.clear();
    m_count = qint32(customerData.size() / kCustomerRecordLength);
    m_byNumber.reserve(m_count * 2);
    for (qint32 i = 0; i < m_count; ++i) {
        const RecordView record(CustomerLayout(),
                                customerData.constData() + qsizetype(i) * kCustomerRecordLength);
        for (int field : {int(CustomerField::Phone), int(CustomerField::Cell)}) {
            const QString number = record.text(field);
            // A blank number is no one's: it cannot match a caller.
            if (number.isEmpty()) continue;
            QList<qint32>& accounts = m_byNumber[number];
            if (accounts.isEmpty() || accounts.last() != i + 1) accounts << i + 1;
        }
    }
}

QList<qint32> CallerDirectory::accounts(const QString& number) const
{
    return m_byNumber.value(number.trimmed());
}
} // namespace tresvane
