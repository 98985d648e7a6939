#pragma once

#include "core/documents/printframe.h"
#include "core/io/sliprecord.h"

#include <QDate>
#include <QStringList>

namespace tresvane
{
struct DispatchingVariables;

// The parts the three invoice styles share: the order line, the customer's lines, the
// times and totals, and the remittance strip with its payment block. Positions are in
// inches on the printable area, as the documents state them.

// One Service Attention of the day as an invoice prints it: its number, the first hour it
// stands on (a row of the day, 0 to 11) and its record. A blank invoice has none of them.
struct InvoiceSlip {
    QString number;
    int firstRow = -1;
    SlipRecord record;
};

// The customer's lines of a slip: the name, the street, the second address line when
// there is one, and the town: "City, ST 12345" in the USA style, else its parts on lines
// of their own. With printReason and a problem on the slip, "Problem Reported: " and the
// problem close the block.
QStringList InvoiceCustomerLines(const SlipRecord& r, bool usaAddress, bool printReason);

// The lines from (x, y) inches, each wrapped at blanks to the width (inches), so that a
// long line stays out of the block beside it. Leaves the pen under the last line.
void PrintCustomerBlock(PrintJob& job, const QStringList& lines, double x, double y, double width);

// Blank fields in place of a customer: rules drawn 576 twips apart, the first 576 twips
// under y, count of them, from x over the width.
void PrintBlankCustomerBlock(PrintJob& job, double x, double y, double width, int count);

// "Service Order # " and the number at (x, y) in 14 point, then in 10 point at x = 5
// inches "Scheduled Date " and the date, "Scheduled Time " and the hour's label of the
// slip's first row. A blank invoice prints the three labels alone.
void PrintOrderLine(PrintJob& job, const DispatchingVariables& v, const InvoiceSlip* slip,
                    const QDate& date, double x, double y);

// "Start Time:", "Completion Time:" and "Service Time:" from (x, y), each with its blank
// 1.5 inches right of it; then in 12 point at totalsX the invoice total, "PAID IN FULL"
// and "CHARGE TO ACCOUNT" to be ticked.
void PrintTimesAndTotals(PrintJob& job, double x, double y, double totalsX);
// The three times alone.
void PrintTimes(PrintJob& job, double x, double y);

// The payment block of the remittance from (5, 8) inches: the amount enclosed, how it
// was paid, the card's expiry and the signature.
void PrintPaymentBlock(PrintJob& job);

// The strip the customer sends back with the payment, under the perforation at 7.5
// inches: whom to pay, the customer's account lines, the payment block and the invoice
// total. It stands in the same place whatever the page above it holds.
void PrintRemittance(PrintJob& job, const QStringList& customer);

// The text cut from its end until it fits the room (twips) in the present font.
QString FitText(const PrintSurface& printer, const QString& text, double room);
} // namespace tresvane
