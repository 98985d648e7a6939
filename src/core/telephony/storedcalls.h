#pragma once

#include "core/io/callrecord.h"
#include "core/io/result.h"

#include <QHash>
#include <QList>
#include <QString>

namespace tresvane
{
class Store;
struct CallerIdReport;

// TelCall.txt: the calls noticed while the office was away. The file exists only while it
// holds calls.
namespace StoredCalls
{
inline const QString kFile = QStringLiteral("/TelCall.txt");

// Every stored call in order of arrival; none when there is no file.
QList<CallRecord> ReadAll(Store& store);
// Writes the call after the last one; the new count of calls.
Result<qint32> Append(Store& store, const CallerIdReport& call, const QString& time);
// Deletes the file and its copy in Backup, so cleared calls do not come back.
Status DeleteAll(Store& store);
// "hh:mm am/pm" as a call's time is kept.
QString TimeText(const QTime& time);

// How many calls the file holds (its length over 35, as every record file is counted);
// 0 without a file.
Result<qint32> Count(Store& store);
// Call callNo (from 1) as kept; a call past the end reads as zero bytes.
Result<CallRecord> Read(Store& store, qint32 callNo);
// Removes call callNo; the later calls move up one place. The copy in Backup goes too,
// so the removed call cannot come back, and removing the only call deletes the file.
Status DeleteOne(Store& store, qint32 callNo);

// A step through the stored calls on the customer screen.
enum class Step {
    Startup, // the list opened: the call on show stays, or the first
    Up,      // the next call, after the last the first
    Down,    // the previous call, before the first the last
};
// The call shown after a step, from the call on show (0 when none has been) and the count.
qint32 StepTo(Step step, qint32 onShow, qint32 count);
} // namespace StoredCalls

// The customers' telephone and cell numbers, trimmed, read once, to tell at once whether a
// number belongs to a customer and to which accounts (record numbers from 1).
class CallerDirectory
{
public:
    // From the bytes of CustomerData.txt.
    void load(const QByteArray& customerData);
    bool isCustomer(const QString& number) const { return m_byNumber.contains(number.trimmed()); }
    // The accounts with this number as telephone or cell, in record order.
    QList<qint32> accounts(const QString& number) const;
    qint32 customerCount() const { return m_count; }

private:
    QHash<QString, QList<qint32>> m_byNumber;
    qint32 m_count = 0;
};
} // namespace tresvane
