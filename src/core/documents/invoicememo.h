#pragma once

#include "core/io/result.h"

#include <QStringList>

namespace tresvane
{
class Store;
struct PrintJob;

// ServiceInvoiceMemo.txt: plain lines that the office adds to every invoice (terms, a
// season's greeting). A missing file means no memo.

QString InvoiceMemoFileName(); // "/ServiceInvoiceMemo.txt"

struct InvoiceMemo {
    bool exists = false;
    QStringList lines;
};

Result<InvoiceMemo> ReadInvoiceMemo(Store& store);
// Replaces the file with the memo box's text, a line of the box a line of the file.
Status WriteInvoiceMemo(Store& store, const QString& text);

// The memo on an invoice, from y inches: each line of the file wrapped at blanks from
// x = 2 inches, in the body colour, one after the other. Nothing when addMemo is off or
// there is no file. The pen's colour is left as it was.
Status PrintInvoiceMemo(PrintJob& job, Store& store, bool addMemo, double y);
// The same for a memo read before, so that a run of invoices reads the file once.
void PrintInvoiceMemo(PrintJob& job, const InvoiceMemo& memo, bool addMemo, double y);
// The height, in twips, the memo takes in the present font: nothing when it is not
// printed. A page that keeps the memo's foot at a place starts it this far above.
double InvoiceMemoHeight(const PrintJob& job, const InvoiceMemo& memo, bool addMemo);
} // namespace tresvane
