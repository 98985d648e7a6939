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
