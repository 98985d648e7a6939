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
