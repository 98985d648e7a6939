#pragma once

#include "core/io/record.h"
#include "core/io/result.h"

#include <QList>

namespace tresvane
{
class Store;

// The two history files of an account, written by the programs that complete and bill
// work and read here for the history grids. Dates and amounts are stored as text.

// ServiceHistory.txt, 145 bytes.
namespace ServiceHistoryField
{
enum : int {
    ServiceName,    //   0, text 30
    ServiceAccount, //  30, text 25
    ServiceDate,    //  55, text 15  the date as text
    ServiceWork,    //  70, text 35  may hold CR LF
    ServiceNote,    // 105, text 40
};
}

// CAHistory.txt, 155 bytes: the account's ledger.
namespace LedgerField
{
enum : int {
    LedgerName,    //   0, text 45
    LedgerAccount, //  45, text 25
    LedgerDate,    //  70, text 15  the date as text
    LedgerText,    //  85, text 60  may hold CR LF
    LedgerAmount,  // 145, text 10  a currency amount as text
};
}

constexpr int kServiceHistoryRecordLength = 145;
constexpr int kLedgerRecordLength = 155;

const RecordLayout& ServiceHistoryLayout();
const RecordLayout& LedgerLayout();

class ServiceHistoryRecord : public FixedRecord
{
public:
    ServiceHistoryRecord() : FixedRecord(ServiceHistoryLayout()) {}
    explicit ServiceHistoryRecord(QByteArrayView bytes) : FixedRecord(ServiceHistoryLayout(), bytes)
    {
    }
};

class LedgerRecord : public FixedRecord
{
public:
    LedgerRecord() : FixedRecord(LedgerLayout()) {}
    explicit LedgerRecord(QByteArrayView bytes) : FixedRecord(LedgerLayout(), bytes) {}
};

QString ServiceHistoryFileName(); // "/ServiceHistory.txt"
QString LedgerFileName();         // "/CAHistory.txt"

// Every record; none when the file is missing.
Result<QList<ServiceHistoryRecord>> ReadServiceHistory(Store& store);
Result<QList<LedgerRecord>> ReadLedger(Store& store);
// Replace the whole file with the records (its copy in Backup goes first).
Status WriteServiceHistory(Store& store, const QList<ServiceHistoryRecord>& records);
Status WriteLedger(Store& store, const QList<LedgerRecord>& records);
} // namespace tresvane
