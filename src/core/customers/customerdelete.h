#pragma once

#include "core/customers/customernavigation.h"
#include "core/io/result.h"

namespace tresvane
{
class Dialogs;
class Store;

// Deleting an account: the one operation that renumbers records. The three parallel files
// are joined by record number alone, so each is rewritten without the record.

// "Delete this Customer": true for Yes.
bool ConfirmDeleteCustomer(Dialogs& dialogs);

// Rewrites CustomerData.txt, CycleInfo.txt and ContractInfo.txt, in that order, with
// records 1 to gLastrec except gCurrentRec (a record past the end of a file is copied as
// zero bytes), each file replaced atomically. The backup copy of CustomerData.txt stays;
// those of the other two go. Returns the screen's position afterwards (PositionAfterDelete).
// A failure part-way is reported naming the file; the files done by then stay done.
// The aux folder of the account stays, and slips and history keep its number.
Result<CustomerPosition> DeleteCustomer(Store& store, CustomerPosition at);
} // namespace tresvane
