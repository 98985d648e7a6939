#pragma once

#include "core/documents/invoiceblocks.h"
#include "core/documents/invoicememo.h"
#include "core/documents/workschedule.h"
#include "core/io/result.h"
#include "core/setup/pricelists.h"

#include <QDate>
#include <QList>
#include <optional>

namespace tresvane
{
class Store;
struct DispatchingVariables;

// The day's invoices of a team, one page for each Service Attention, in the office's
// style: the service order (portrait, services and items with prices, a remittance strip
// at the foot), the repair invoice (landscape, the item sheet and a tear-off summary right
// of the perforation at 8 inches) or the office invoice (portrait, filled in by hand). A
// run of blank invoices prints repair pages with nobody's name on them.

// The style as the invoice choices hold it.
enum class InvoiceStyle : qint16 { Office = 0, Repair = 1, ServiceOrder = 2 };
// 2 is the service order and 0 the office invoice; any other value the repair invoice.
InvoiceStyle InvoiceStyleOf(qint16 value);
// The style the setup names. The service order is only offered where the stock file of
// the sibling program (TVInventoriedItems.txt) is: without it the repair invoice.
InvoiceStyle SetupInvoiceStyle(const DispatchingVariables& v, bool serviceOrderOffered);
bool ServiceOrderOffered(const Store& store);

struct InvoiceRequest {
    QDate date;
    int team = 0; // 1 to the number of teams
    InvoiceStyle style = InvoiceStyle::Repair;
    bool addMemo = false;
    bool printReason = false;
    // Above 0: that many blank invoices instead of the day's.
    int blankCount = 0;
};

// Blank invoices are asked for by number; more than this at once is a slip of the finger.
constexpr int kMaxBlankInvoices = 99;
// The number typed into the blank invoices' box: 0 to kMaxBlankInvoices, blanks around it
// allowed; no value for anything else.
std::optional<int> ParseBlankCount(const QString& typed);
// What the box answers to a number it cannot take.
QString BlankCountMessage();

// The Service Attentions of a day, in the order of their first hours. A row is a slip's
// when its first word starts with "SA" (program numbers, "SA326-4") or is a number
// (continuous numbers, "12044"); the hours of one slip give it once. Its record is the
// one of the day that carries its number, wherever that record says it starts; a number
// without a record is passed over.
QList<InvoiceSlip> InvoiceSlips(const ScheduleDay& day);

// The price lists the styles print: the services and items chosen for the service order
// (CurrentServices.txt and CurrentItems.txt, each with its own prices), and the repair
// invoice's list (InvoiceItems.txt). A missing file leaves its list empty.
struct InvoiceLists {
    QList<PriceEntry> services;
    QList<PriceEntry> items;
    QList<PriceEntry> repairItems;
};
Result<InvoiceLists> ReadInvoiceLists(Store& store);

// What every page of a run shares.
struct InvoiceContext {
    const DispatchingVariables& v;
    QDate date;
    InvoiceLists lists;
    InvoiceMemo memo;
    bool addMemo = false;
    bool printReason = false;
};

// One page each, ended by EndDoc. A null slip is a blank invoice.
void PrintServiceOrderInvoice(PrintJob& job, const InvoiceContext& c, const InvoiceSlip& slip);
void PrintRepairInvoice(PrintJob& job, const InvoiceContext& c, const InvoiceSlip* slip);
void PrintOfficeInvoice(PrintJob& job, const InvoiceContext& c, const InvoiceSlip& slip);

// The pages a request prints: the blank count, or the day's Service Attentions.
Result<int> CountInvoices(Store& store, const DispatchingVariables& v,
                          const InvoiceRequest& request);

// Every page of the request. Returns the number of pages; none for a day without a
// Service Attention, which prints nothing at all.
Result<int> PrintInvoices(PrintJob& job, Store& store, const DispatchingVariables& v,
                          const InvoiceRequest& request);

// What the dispatcher is told instead of an empty job.
QString NoInvoicesMessage(const QString& teamName, const QDate& date);
} // namespace tresvane
