#include "core/documents/invoices.h"

#include "core/documents/pricecatalogue.h"
#include "core/documents/printlogo.h"
#include "core/io/itemrecords.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/schedule/dayfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QSet>

namespace tresvane
{
namespace
{
constexpr double kTwips = 1440;
// Titles and the order lines stand at 5 inches; a title ends before the perforation or
// the printable edge.
constexpr double kTitleY = 0.25;
constexpr double kOrderY = 0.7;
constexpr double kTimesX = 5;
constexpr double kTimesY = 1.3;
constexpr double kBusinessX = 0.5;
constexpr double kBusinessY = 0.3;
constexpr double kCustomerX = 0.5;

// --- The service order, portrait. ---
constexpr double kSoCustomerY = 1.6;
constexpr double kSoCustomerWidth = 4.25;
// The times and totals share the right half with the order lines, a little left of them
// so that the totals' long blanks stay on the paper.
constexpr double kSoTimesX = 4.85;
// The memo's last line ends on the services box.
constexpr double kSoMemoFoot = 2.75;
// The services box: heads at 2.8, rows from 3.05, the total at 5.3.
constexpr double kBoxLeft = 0.5;
constexpr double kBoxRight = 7.5;
constexpr double kServicesTop = 2.75;
constexpr double kServicesHeadRule = 3.02;
constexpr double kServicesTotalRule = 5.25;
constexpr double kServiceX = 1;
constexpr double kStatusRule = 5.0;
constexpr double kChargeRule = 6.5;
constexpr double kServicePriceRight = 10440; // twips
// Eight services fit above their total: a line and a tenth of an inch apart.
constexpr double kServiceGap = 144;
// The items box: heads at 5.6, two columns of four from 5.8, the total at 6.755.
constexpr double kItemsTop = 5.5;
constexpr double kItemsHeadRule = 5.77;
constexpr double kItemsTotalRule = 6.75;
constexpr double kItemsBottom = 7.0;
constexpr double kItemsY = 5.8;
constexpr double kItemGap = 96;
constexpr int kItemsPerColumn = 4;
struct ItemColumn {
    double nameX;      // inches
    double nameRight;  // inches: the end of the Item Used column
    double priceRight; // inches: the end of the Cost column
    std::array<double, 3> rules;
};
// Qty | Item Used | Cost | Ext, twice, split at 4.05 inches. The price stands under its
// head "Cost", flush with the column's end.
constexpr ItemColumn kItemColumns[2] = {{1, 2.8, 3.5, {0.95, 2.85, 3.55}},
                                        {4.5, 6.4, 7.0, {4.45, 6.45, 7.05}}};
constexpr double kItemsSplit = 4.05;
constexpr int kOuterDrawWidth = 13;
constexpr int kInnerDrawWidth = 1;

// --- The repair invoice, landscape. ---
constexpr double kRepairCustomerY = 1.5;
constexpr double kRepairCustomerWidth = 2.4;
constexpr double kRepairTotalsX = 3;
constexpr double kSheetTop = 2.95;
constexpr double kSheetHeadRule = 3.25;
constexpr double kSheetLeft = 0.9;
constexpr double kSheetRight = 6.4;
constexpr double kSheetColumns[] = {1.7, 4.05, 5.1};
constexpr double kRepairMemoFoot = 2.9;
constexpr double kRepairRowY = 3.3;
constexpr double kRepairRowStep = 0.25;
constexpr double kRepairNameX = 1.8;
constexpr double kRepairPriceRight = 7200; // twips
// The form has thirteen rows for items.
constexpr int kRepairRows = 13;
constexpr double kRepairFootY = 6.6;
constexpr double kSummaryX = 8;
constexpr double kSummaryIndentX = 8.5;
constexpr double kSummaryRight = 10.45;

// --- The office invoice, portrait. ---
constexpr double kOfficeBlockX = 5.5;
constexpr double kOfficeBlockY = 1;
constexpr double kOfficeCustomerY = 1.9;
constexpr double kOfficeCustomerWidth = 4.3;
constexpr double kOfficeTimesY = 2.1;
// Inside the header's frame, whose foot is at 3.5 inches.
constexpr double kOfficeMemoFoot = 3.45;

QString orBlanks(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("     ") : text;
}

bool isSlipWord(const QString& word)
{
    if (word.startsWith(u"SA")) return true;
    if (word.isEmpty()) return false;
    for (QChar ch : word)
        if (!ch.isDigit()) return false;
    return true;
}

void rule(PrintJob& job, double x1, double y1, double x2, double y2)
{
    job.printer.line(x1 * kTwips, y1 * kTwips, x2 * kTwips, y2 * kTwips, job.gBorderColor);
}

// The memo with its last line ending at foot (inches).
void printMemoAbove(PrintJob& job, const InvoiceContext& c, double foot)
{
    SetPrintFont(job.printer, 10, kFontOff, kFontOff);
    const double height = InvoiceMemoHeight(job, c.memo, c.addMemo);
    if (height <= 0) return;
    PrintInvoiceMemo(job, c.memo, c.addMemo, (foot * kTwips - height) / kTwips);
}

// A name and its price on one line: the name from x, cut where its column ends (inches)
// or short of the price, the price right-aligned to priceRight (twips).
void printPriced(PrintSurface& p, const PriceEntry& entry, double x, double nameRight,
                 double priceRight, double y)
{
    const double priceLeft = priceRight - p.textWidth(entry.price);
    const double room = std::min(nameRight * kTwips, priceLeft - 90) - x * kTwips;
    p.setCurrentY(y);
    p.setCurrentX(x * kTwips);
    p.print(FitText(p, entry.name, room), false);
    p.setCurrentY(y);
    p.setCurrentX(priceLeft);
    p.print(entry.price);
}

// Where a customer block starts: at y inches, or lower when the business block above it
// runs long.
double belowBusiness(const PrintJob& job, double y)
{
    return std::max(y, job.printer.currentY() / kTwips + 0.1);
}

// The logo in the page's corner when there is one; the business block beside it.
void printLogoAndBusiness(PrintJob& job)
{
    double x = kBusinessX;
    const PrintLogo& logo = job.settings.logo;
    if (!logo.isEmpty()) {
        const QRectF box(0.1 * kTwips, 0.1 * kTwips, logo.width, logo.height);
        if (job.printer.picture(logo.file, box)) x = (box.right() + 0.2 * kTwips) / kTwips;
    }
    PrintBusinessBlock(job, x, kBusinessY, 14);
}

void setup(PrintJob& job, const char* orientation)
{
    SetupPrinter(job, QString::fromLatin1(orientation), job.settings.color, 10, kFontOff, kFontOff);
    PrintColor(job, kDataRole);
}

void endPage(PrintJob& job)
{
    job.printer.endDoc();
}

// --- Service order parts. ---

void printServiceOrderBoxes(PrintJob& job)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kBorderRole);
    p.setDrawWidth(kInnerDrawWidth);
    rule(job, kBoxLeft, kServicesHeadRule, kBoxRight, kServicesHeadRule);
    rule(job, kBoxLeft, kServicesTotalRule, kBoxRight, kServicesTotalRule);
    rule(job, kStatusRule, kServicesTop, kStatusRule, kServicesTotalRule);
    rule(job, kChargeRule, kServicesTop, kChargeRule, kItemsTop);
    rule(job, kBoxLeft, kItemsHeadRule, kBoxRight, kItemsHeadRule);
    rule(job, kBoxLeft, kItemsTotalRule, kBoxRight, kItemsTotalRule);
    rule(job, kItemsSplit, kItemsTop, kItemsSplit, kItemsTotalRule);
    for (const ItemColumn& column : kItemColumns)
        for (double x : column.rules)
            rule(job, x, kItemsTop, x, kItemsTotalRule);
    p.setDrawWidth(kOuterDrawWidth);
    rule(job, kBoxLeft, kServicesTop, kBoxRight, kServicesTop);
    rule(job, kBoxLeft, kItemsTop, kBoxRight, kItemsTop);
    rule(job, kBoxLeft, kItemsBottom, kBoxRight, kItemsBottom);
    rule(job, kBoxLeft, kServicesTop, kBoxLeft, kItemsBottom);
    rule(job, kBoxRight, kServicesTop, kBoxRight, kItemsBottom);
    p.setDrawWidth(kInnerDrawWidth);
    PrintColor(job, kDataRole);
}

void printServiceOrderHeads(PrintJob& job)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    struct Head {
        double x, y, size;
        const char* text;
    };
    static const Head heads[] = {{2, 2.8, 12, "Service"},
                                 {5.15, 2.8, 12, "Status"},
                                 {6.7, 2.8, 12, "Charge"},
                                 {0.6, 5.3, 12, "Total of Services Performed"},
                                 {0.6, 5.6, 8, "Qty"},
                                 {1.5, 5.6, 8, "Item Used"},
                                 {2.9, 5.6, 8, "Cost"},
                                 {3.6, 5.6, 8, "Ext"},
                                 {4.15, 5.6, 8, "Qty"},
                                 {5, 5.6, 8, "Item Used"},
                                 {6.5, 5.6, 8, "Cost"},
                                 {7.1, 5.6, 8, "Ext"},
                                 {0.6, 6.755, 12, "Total of Items Used"}};
    for (const Head& h : heads) {
        SetPrintFont(p, h.size, kFontOn, kFontOff);
        SetPrintPos(p, h.x, h.y);
        p.print(QString::fromLatin1(h.text));
    }
}

void printServices(PrintJob& job, const QList<PriceEntry>& services)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 10, kFontOff, kFontOff);
    double y = 3.05 * kTwips;
    for (const PriceEntry& service : services) {
        const double priceLeft = kServicePriceRight - p.textWidth(service.price);
        p.setCurrentY(y);
        p.setCurrentX(kServiceX * kTwips);
        p.print(FitText(p, service.name, (kStatusRule - kServiceX - 0.1) * kTwips), false);
        p.setCurrentY(y);
        p.setCurrentX(priceLeft);
        p.print(service.price);
        y += p.textHeight(service.price) + kServiceGap;
    }
}

void printItems(PrintJob& job, const QList<PriceEntry>& items)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 8, kFontOff, kFontOff);
    double y = kItemsY * kTwips;
    for (int i = 0; i < items.size(); ++i) {
        // Four in the left column; from the fifth on the right one, which takes any
        // further item too, down the column.
        const ItemColumn& column = kItemColumns[i < kItemsPerColumn ? 0 : 1];
        if (i == kItemsPerColumn) y = kItemsY * kTwips;
        printPriced(p, items[i], column.nameX, column.nameRight, column.priceRight * kTwips, y);
        y += p.textHeight(items[i].name) + kItemGap;
    }
}

// --- Repair parts. ---

void printRepairSheet(PrintJob& job)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kBorderRole);
    p.setDrawWidth(kInnerDrawWidth);
    const double bottom = kSheetHeadRule + kRepairRows * kRepairRowStep;
    for (double y = kSheetHeadRule; y <= bottom + 0.001; y += kRepairRowStep)
        rule(job, kSheetLeft, y, kSheetRight, y);
    for (double x : kSheetColumns)
        rule(job, x, kSheetTop, x, bottom);
    p.setDrawWidth(kOuterDrawWidth / 2);
    rule(job, kSheetLeft, kSheetTop, kSheetRight, kSheetTop);
    rule(job, kSheetLeft, kSheetTop, kSheetLeft, bottom);
    rule(job, kSheetRight, kSheetTop, kSheetRight, bottom);
    p.setDrawWidth(kInnerDrawWidth);
    PrintColor(job, kDataRole);
}

void printRepairHeadsAndRows(PrintJob& job, const QList<PriceEntry>& items)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 10, kFontOn, kFontOff);
    const std::pair<double, const char*> heads[] = {
        {1.1, "QTY"}, {1.75, "DESCRIPTION"}, {4.1, "UNIT COST"}, {5.2, "TOTAL"}};
    for (const auto& [x, text] : heads) {
        SetPrintPos(p, x, 3.05);
        p.print(QString::fromLatin1(text));
    }
    SetPrintPos(p, 1, kRepairFootY);
    p.print(QStringLiteral("____ PAID IN FULL"));
    const double next = p.currentY();
    SetPrintPos(p, 3.25, kRepairFootY);
    p.print(QStringLiteral("INVOICE TOTAL"));
    p.setCurrentY(next);
    SetPrintPos(p, 1, 0);
    p.print(QStringLiteral("____ CHARGE TO ACCOUNT"));

    // Three lines for remarks, each under its caption, as long as the sheet is wide.
    SetPrintFont(p, 8, kFontOff, kFontOff);
    const QString rules = FitText(p, QString(200, u'_'), (kSheetRight - 1) * kTwips);
    for (const char* caption : {"Remarks:", "Work Performed:", "Customer Signature:"}) {
        SetPrintPos(p, 1, 0);
        p.print(QString::fromLatin1(caption));
        SetPrintPos(p, 1, 0);
        p.print(rules);
    }

    SetPrintFont(p, 10, kFontOff, kFontOff);
    for (int k = 0; k < std::min<int>(kRepairRows, int(items.size())); ++k)
        printPriced(p, items[k], kRepairNameX, kSheetColumns[1] - 0.05, kRepairPriceRight,
                    (kRepairRowY + k * kRepairRowStep) * kTwips);
}

void printSummary(PrintJob& job, const InvoiceSlip* slip, bool usaAddress)
{
    PrintSurface& p = job.printer;
    const double room = (kSummaryRight - kSummaryX) * kTwips;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 12, kFontOn, kFontOff);
    SetPrintPos(p, kSummaryX, 1);
    p.print(QStringLiteral("Service Attention Summary"));
    if (slip) {
        const QStringList lines = InvoiceCustomerLines(slip->record, usaAddress, false);
        SetPrintFont(p, 10, kFontOn, kFontOff);
        SetPrintPos(p, kSummaryX, 0);
        p.print(FitText(p, lines.value(0), room));
        SetPrintFont(p, 10, kFontOff, kFontOff);
        for (int i = 1; i < std::min<int>(3, int(lines.size())); ++i) {
            SetPrintPos(p, kSummaryIndentX, 0);
            p.print(FitText(p, lines[i], room - 0.5 * kTwips));
        }
    } else {
        SetPrintFont(p, 10, kFontOff, kFontOff);
        PrintBlankCustomerBlock(job, kSummaryX, 1.05, kSummaryRight - kSummaryX, 3);
    }

    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 12, kFontOff, kFontOff);
    SetPrintPos(p, kSummaryIndentX, 3.5);
    p.print(QStringLiteral("Invoice Status"));
    SetPrintFont(p, 10, kFontOff, kFontOff);
    for (const char* line : {"   ___ Completed/Collected", "   ___ Completed/Invoice Rendered",
                             "   ___ Office Invoice", "   ___ Not Completed/Not Invoiced"}) {
        SetPrintPos(p, kSummaryX, 0);
        p.print(QString::fromLatin1(line));
    }

    SetPrintFont(p, 12, kFontOff, kFontOff);
    SetPrintPos(p, kSummaryIndentX, 5);
    p.print(QStringLiteral("Form of Payment"));
    SetPrintFont(p, 10, kFontOff, kFontOff);
    // The long rules stop at the printable edge.
    const QString longRule = FitText(p, QStringLiteral("   ") + QString(34, u'_'), room);
    const QString lines[] = {QStringLiteral("   ___ Check"),
                             QStringLiteral("   ___ Cash"),
                             QStringLiteral("   ___ Credit Card"),
                             QString(),
                             QStringLiteral("   ______________ Amount"),
                             QString(),
                             QStringLiteral("   ______________ Check / Card No."),
                             longRule,
                             QString(),
                             longRule,
                             QString(),
                             longRule,
                             QString()};
    for (const QString& line : lines) {
        SetPrintPos(p, kSummaryX, 0);
        p.print(line);
    }
}

} // namespace

InvoiceStyle InvoiceStyleOf(qint16 value)
{
    if (value == 2) return InvoiceStyle::ServiceOrder;
    if (value == 0) return InvoiceStyle::Office;
    return InvoiceStyle::Repair;
}

InvoiceStyle SetupInvoiceStyle(const DispatchingVariables& v, bool serviceOrderOffered)
{
    const auto& options = v.settings.optServiceInvoice;
    if (options[0]) return InvoiceStyle::Office;
    if (options[2] && serviceOrderOffered) return InvoiceStyle::ServiceOrder;
    return InvoiceStyle::Repair;
}

bool ServiceOrderOffered(const Store& store)
{
    return store.IsFile(InventoriedItemsFileName());
}

std::optional<int> ParseBlankCount(const QString& typed)
{
    const QString t = typed.trimmed();
    if (t.isEmpty() || t.size() > 3) return std::nullopt;
    for (QChar ch : t)
        if (!ch.isDigit()) return std::nullopt;
    const int count = t.toInt();
    if (count > kMaxBlankInvoices) return std::nullopt;
    return count;
}

QString BlankCountMessage()
{
    return QStringLiteral("The number of blank invoices is a whole number from 0 to %1")
        .arg(kMaxBlankInvoices);
}

QList<InvoiceSlip> InvoiceSlips(const ScheduleDay& day)
{
    QList<InvoiceSlip> slips;
    QSet<QString> printed;
    for (int row = 0; row < 12; ++row) {
        const QString slot = day.slotTexts[row].trimmed();
        if (slot == NoEventScheduled()) continue;
        const QString number = slot.section(u' ', 0, 0);
        if (!isSlipWord(number) || printed.contains(number)) continue;
        for (const SlipRecord& r : day.records) {
            if (r.text(SlipField::ConfirmationNo) != number) continue;
            printed.insert(number);
            slips.append({number, row, r});
            break;
        }
    }
    return slips;
}

Result<InvoiceLists> ReadInvoiceLists(Store& store)
{
    InvoiceLists lists;
    if (store.IsFile(CurrentServicesFileName())) {
        Result<QList<ServiceRecord>> services = ReadServices(store, CurrentServicesFileName());
        if (!services) return services.status();
        for (const ServiceRecord& r : *services) {
            // The price is kept as text; one that is not an amount prints as $0.00.
            const qint64 units = ParseCurrency(r.text(ServiceField::ServicePrice)).value_or(0);
            lists.services.append({r.text(ServiceField::ServiceName), FormatCurrency(units)});
        }
    }
    if (store.IsFile(CurrentItemsFileName())) {
        Result<QList<InventoriedItemRecord>> items =
            ReadInventoriedItems(store, CurrentItemsFileName());
        if (!items) return items.status();
        for (const InventoriedItemRecord& r : *items)
            lists.items.append({r.text(InventoriedItemField::StockName),
                                FormatCurrency(r.currency(InventoriedItemField::StockPrice))});
    }
    if (store.IsFile(InvoiceItemsFileName())) {
        Result<QList<InvoiceItemRecord>> items = ReadInvoiceItems(store);
        if (!items) return items.status();
        for (const InvoiceItemRecord& r : *items) {
            // Typed prices print in the dollar form; a note in place of one ("call") as
            // it was typed.
            const QString typed = r.text(InvoiceItemField::ItemPrice);
            lists.repairItems.append(
                {r.text(InvoiceItemField::ItemName), DocumentPrice(typed).value_or(typed)});
        }
    }
    return lists;
}

void PrintServiceOrderInvoice(PrintJob& job, const InvoiceContext& c, const InvoiceSlip& slip)
{
    setup(job, "Portrait");
    printLogoAndBusiness(job);
    const double customerY = belowBusiness(job, kSoCustomerY);
    PrintTitle(job, QStringLiteral("Service Order/Invoice"), kTitleY);
    PrintOrderLine(job, c.v, &slip, c.date, kTimesX, kOrderY);
    // The customer's side of the page is on the left: the totals go under the times.
    PrintTimesAndTotals(job, kSoTimesX, kTimesY, kSoTimesX);
    const bool usa = job.settings.usaAddress;
    PrintCustomerBlock(job, InvoiceCustomerLines(slip.record, usa, c.printReason), kCustomerX,
                       customerY, kSoCustomerWidth);
    printServiceOrderBoxes(job);
    printServiceOrderHeads(job);
    printServices(job, c.lists.services);
    printItems(job, c.lists.items);
    PrintRemittance(job, InvoiceCustomerLines(slip.record, usa, false));
    printMemoAbove(job, c, kSoMemoFoot);
    endPage(job);
}

void PrintRepairInvoice(PrintJob& job, const InvoiceContext& c, const InvoiceSlip* slip)
{
    setup(job, "Landscape");
    PrintBusinessBlock(job, kBusinessX, kBusinessY, 14);
    const double customerY = belowBusiness(job, kRepairCustomerY);
    printMemoAbove(job, c, kRepairMemoFoot);
    PrintTitle(job, QStringLiteral("REPAIR INVOICE  "), kTitleY);
    PrintOrderLine(job, c.v, slip, c.date, kTimesX, kOrderY);
    if (slip) {
        PrintCustomerBlock(
            job, InvoiceCustomerLines(slip->record, job.settings.usaAddress, c.printReason),
            kCustomerX, customerY, kRepairCustomerWidth);
    } else {
        PrintBlankCustomerBlock(job, kCustomerX, customerY - 0.1, kRepairCustomerWidth, 3);
    }
    PrintTimesAndTotals(job, kTimesX, kTimesY, kRepairTotalsX);
    printRepairSheet(job);
    printRepairHeadsAndRows(job, c.lists.repairItems);
    printSummary(job, slip, job.settings.usaAddress);
    endPage(job);
}

void PrintOfficeInvoice(PrintJob& job, const InvoiceContext& c, const InvoiceSlip& slip)
{
    setup(job, "Portrait");
    PrintDocHeader(job, kLogoInFrame, QStringLiteral("INVOICE"), 0.4);
    const double customerY = belowBusiness(job, kOfficeCustomerY);

    PrintSurface& p = job.printer;
    PrintColor(job, kDataRole);
    const qint32 held = p.foreColor();
    SetPrintFont(p, 10, kFontOn, kFontOff);
    p.setForeColor(BodyColor(job));
    const QString lines[] = {QStringLiteral("Invoice Date ") + orBlanks(FormatShortDate(c.date)),
                             QStringLiteral("Invoice No. _____________________"),
                             QStringLiteral("Service Attn No.  ") + orBlanks(slip.number),
                             QStringLiteral("Acct No : ") +
                                 orBlanks(slip.record.text(SlipField::AcctNo)),
                             QStringLiteral("Invoice Total:    _______________")};
    SetPrintPos(p, kOfficeBlockX, kOfficeBlockY);
    for (const QString& line : lines) {
        SetPrintPos(p, kOfficeBlockX, 0);
        p.print(line);
    }
    p.setForeColor(held);
    PrintInvoiceHeaderLine(job);

    SetPrintFont(p, 10, kFontOff, kFontOff);
    printMemoAbove(job, c, kOfficeMemoFoot);
    PrintCustomerBlock(job,
                       InvoiceCustomerLines(slip.record, job.settings.usaAddress, c.printReason),
                       kCustomerX, customerY, kOfficeCustomerWidth);
    PrintTimes(job, kTimesX, kOfficeTimesY);
    PrintItembox(job);
    endPage(job);
}

Result<int> CountInvoices(Store& store, const DispatchingVariables& v,
                          const InvoiceRequest& request)
{
    if (request.blankCount > 0) return request.blankCount;
    Result<QList<ScheduleDay>> days =
        ReadScheduleDays(store, v, {request.date, request.team, ScheduleForm::Extended});
    if (!days) return days.status();
    int count = 0;
    for (const ScheduleDay& day : *days)
        count += int(InvoiceSlips(day).size());
    return count;
}

Result<int> PrintInvoices(PrintJob& job, Store& store, const DispatchingVariables& v,
                          const InvoiceRequest& request)
{
    Result<InvoiceMemo> memo = ReadInvoiceMemo(store);
    if (!memo) return memo.status();
    Result<InvoiceLists> lists = ReadInvoiceLists(store);
    if (!lists) return lists.status();
    if (job.settings.logo.isEmpty()) {
        Result<PrintLogo> logo = ReadPrintLogo(store);
        if (!logo) return logo.status();
        job.settings.logo = *logo;
    }
    InvoiceContext c{
        v, request.date, std::move(*lists), std::move(*memo), request.addMemo, request.printReason};

    if (request.blankCount > 0) {
        for (int i = 0; i < request.blankCount; ++i)
            PrintRepairInvoice(job, c, nullptr);
        return request.blankCount;
    }

    Result<QList<ScheduleDay>> days =
        ReadScheduleDays(store, v, {request.date, request.team, ScheduleForm::Extended});
    if (!days) return days.status();
    int pages = 0;
    for (const ScheduleDay& day : *days) {
        for (const InvoiceSlip& slip : InvoiceSlips(day)) {
            switch (request.style) {
            case InvoiceStyle::ServiceOrder:
                PrintServiceOrderInvoice(job, c, slip);
                break;
            case InvoiceStyle::Repair:
                PrintRepairInvoice(job, c, &slip);
                break;
            case InvoiceStyle::Office:
                PrintOfficeInvoice(job, c, slip);
                break;
            }
            ++pages;
        }
    }
    return pages;
}

QString NoInvoicesMessage(const QString& teamName, const QDate& date)
{
    return QStringLiteral("There are no invoices for this day:\n%1 has no Service Attention "
                          "on %2.")
        .arg(teamName, FormatShortDate(date));
}
} // namespace tresvane
