#pragma once

#include "core/io/customerrecords.h"
#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QList>
#include <QStringList>

namespace tresvane
{
class Store;

// The three parallel customer files and the state list. Record n of each file belongs to
// the same account; the record number is the only join.
//
// Every read goes into the one shared buffer of its type (gCustomer, gContract, gCycle),
// and every write stores that buffer, so a caller reads a record again before it saves.
// A record number past the end reads as zero bytes. Reading never creates a file.

QString CustomerFileName(); // "/CustomerData.txt"
QString ContractFileName(); // "/ContractInfo.txt"
QString CycleFileName();    // "/CycleInfo.txt"
QString StatesFileName();   // "/StatesList.txt"

Status ReadCustomer(CoreContext& c, qint32 recordNo);
Status WriteCustomer(CoreContext& c, qint32 recordNo);
Status ReadContract(CoreContext& c, qint32 recordNo);
Status WriteContract(CoreContext& c, qint32 recordNo);
Status ReadCycle(CoreContext& c, qint32 recordNo);
Status WriteCycle(CoreContext& c, qint32 recordNo);

// Every customer record in one read, for lists and searches. The buffers are left alone.
Result<QList<CustomerRecord>> ReadAllCustomers(Store& store);

// Fills gContract and gCycle with the defaults of a new account, taking the weekday and
// the two dates from the clock. ContractText2 is not part of the defaults and keeps what
// the buffer held.
void ResetContractDefaults(CoreContext& c);

// Rebuilds a missing ContractInfo.txt: the old file and its backup go, and gContract is
// written at each record number from the count of customers down to `last`. The records
// below `last` are left as a hole, zero bytes, which no contract search matches; the
// customer screen passes the count itself, so only the last record is filled. A `last`
// below 1 is taken as 1. Without CustomerData.txt a message is shown and nothing changes.
Status BuildContractInfo(CoreContext& c, qint32 last);

// Rebuilds a missing CycleInfo.txt with gCycle at every record from `lastRec` (the
// customer screen's gLastrec) down to 1, after telling the user. Unlike BuildContractInfo
// the customer file is not counted and every record is written.
Status BuildCycleInfo(CoreContext& c, qint32 lastRec);

// The fifty state codes, in order; an empty list when the file is missing. A file of
// fewer than fifty values is reported as damaged.
Result<QStringList> ReadStatesList(Store& store);

// The full English name of the date's weekday ("Sunday" ... "Saturday").
QString WeekdayName(const QDate& date);

// The check each time the customer screen comes up, after the customer file was counted:
// a missing ContractInfo.txt is rebuilt with BuildContractInfo(gLastrec), then a missing
// CycleInfo.txt with BuildCycleInfo(gLastrec). Both tests go through FileExists, so a
// copy in Backup comes back instead of a rebuild. A missing file's record reads as zero
// bytes; its buffer is given the defaults before the rebuild, while the buffer of the
// other file keeps the record that was read.
Status CheckParallelFiles(CoreContext& c, qint32 gLastrec);
} // namespace tresvane
