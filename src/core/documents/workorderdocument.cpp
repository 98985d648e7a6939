#include "core/documents/workorderdocument.h"

#include "core/io/usforms.h"

namespace tresvane
{
namespace
{
constexpr double kTwips = 1440;

// Below the header's frame, where the narrative and the ruled form begin.
constexpr double kBodyTop = 3.75 * kTwips;
constexpr double kLeft = 0.5 * kTwips;
constexpr double kNarrativeWidth = 7.0 * kTwips;
// The foot of the page's text: half an inch above the printable area's end.
constexpr double kFootMargin = 0.5 * kTwips;
// The customer's lines, at the left inside the header's frame, under the business.
constexpr double kCustomerX = 0.5;
constexpr double kCustomerY = 2.3;
// The list page's rows: the description from 2.3 inches, wrapped short of the price
// column; the price right-aligned under its column head.
constexpr double kListTop = 4.3;
constexpr double kDescriptionX = 2.3;
constexpr double kDescriptionWidth = 3.6 * kTwips;
constexpr double kPriceX = 6.1;
// The summary's writing lines: a third of an inch apart, room for a hand.
constexpr double kWritingLine = kTwips / 3;
constexpr int kWritingLines = 6;
constexpr int kRuleWidth = 1;

double pageFoot(const PrintSurface& p)
{
    return p.pageHeight() - kFootMargin;
}

void printCustomer(PrintJob& job, const WorkOrderContent& c)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kDataRole);
    SetPrintFont(p, 10, kFontOff, kFontOff);
    SetPrintPos(p, kCustomerX, kCustomerY);
    for (const QString& line : c.customerLines) {
        SetPrintPos(p, kCustomerX, 0);
        p.print(line);
    }
}

// The date, the account and the page number at the right of the header.
void PrintWOHeader(PrintJob& job, const WorkOrderContent& c, int page)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kBorderRole);
    SetPrintFont(p, 10, kFontOn, kFontOff);
    SetPrintPos(p, 5, 0.9);
    p.print(QStringLiteral("Date ") + FormatShortDate(c.date));
    SetPrintPos(p, 5, 0);
    p.print(QStringLiteral("Acct: ") + c.account);
    SetPrintPos(p, 5, 0);
    p.print(QStringLiteral("Page ") + QString::number(page));
}

void pageHead(PrintJob& job, const WorkOrderContent& c, int page)
{
    PrintDocHeader(job, kLogoInFrame, c.heading, 0.4);
    PrintWOHeader(job, c, page);
    printCustomer(job, c);
}

void bodyFont(PrintJob& job)
{
    PrintColor(job, kDataRole);
    SetPrintFont(job.printer, 10, kFontOff, kFontOff);
}

// A rule across the page for handwriting, in the border colour.
void rule(PrintJob& job, double x1, double x2, double y)
{
    job.printer.setDrawWidth(kRuleWidth);
    job.printer.line(x1, y, x2, y, job.gBorderColor);
}

void printNarrative(PrintJob& job, const WorkOrderContent& c, const QStringList& narrative,
                    int& page)
{
    PrintSurface& p = job.printer;
    bodyFont(job);
    const double height = p.textHeight(QStringLiteral("ABCD"));
    double y = kBodyTop;
    for (const QString& paragraph : narrative) {
        QStringList lines = WrappedLines(p, kNarrativeWidth, paragraph);
        if (lines.isEmpty()) lines << QString(); // an empty line keeps its room
        for (const QString& line : lines) {
            if (y + height > pageFoot(p)) {
                p.newPage();
                pageHead(job, c, ++page);
                bodyFont(job);
                y = kBodyTop;
            }
            if (!line.isEmpty()) PrintWrapped(p, kLeft, kNarrativeWidth, y, line);
            y += height;
        }
    }
}

// With no narrative: a headline and lines to write the instructions on, down the page.
void printInstructionForm(PrintJob& job)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kBorderRole);
    SetPrintFont(p, 10, kFontOn, kFontOff);
    SetPrintPos(p, kLeft / kTwips, kBodyTop / kTwips);
    p.print(QStringLiteral("Enter Instructions"));
    const double height = p.textHeight(QStringLiteral("ABCD"));
    for (double y = p.currentY() + height; y <= pageFoot(p); y += height)
        rule(job, kLeft, p.pageWidth() - kLeft, y);
}

// A list page's head: the document's header, the page's title and the column heads.
// Returns where the price column ends.
double listHead(PrintJob& job, const WorkOrderContent& c, int page)
{
    PrintSurface& p = job.printer;
    p.newPage();
    pageHead(job, c, page);
    PrintColor(job, kDataRole);
    SetPrintFont(p, 18, kFontOff, kFontOff);
    SetPrintPos(p, 3, 3.6);
    p.print(QStringLiteral("Parts and Services List"));
    SetPrintFont(p, 10, kFontOn, kFontOff);
    PrintInvoiceHeaderLine(job);
    const double priceRight = kPriceX * kTwips + p.textWidth(QStringLiteral("PRICE"));
    SetPrintFont(p, 10, kFontOff, kFontOff);
    SetPrintPos(p, 0, kListTop);
    return priceRight;
}

void printList(PrintJob& job, const WorkOrderContent& c, int& page)
{
    PrintSurface& p = job.printer;
    double priceRight = listHead(job, c, ++page);
    const double height = p.textHeight(QStringLiteral("ABCD"));
    double y = kListTop * kTwips;
    for (const QList<PriceEntry>* list : {&c.items, &c.services}) {
        for (const PriceEntry& entry : *list) {
            QStringList lines = WrappedLines(p, kDescriptionWidth, entry.name);
            if (lines.isEmpty()) lines << QString();
            if (y + height * lines.size() > pageFoot(p) && y > kListTop * kTwips) {
                priceRight = listHead(job, c, ++page);
                y = kListTop * kTwips;
            }
            for (qsizetype i = 0; i < lines.size(); ++i) {
                p.setCurrentY(y);
                SetPrintPos(p, kDescriptionX, 0);
                p.print(lines[i], i > 0);
                if (i == 0) {
                    p.setCurrentX(priceRight - p.textWidth(entry.price));
                    p.print(entry.price);
                }
                y += height;
            }
        }
    }
}

void writingLines(PrintJob& job, double& y)
{
    const PrintSurface& p = job.printer;
    for (int i = 0; i < kWritingLines; ++i) {
        y += kWritingLine;
        rule(job, kLeft, p.pageWidth() - kLeft, y);
    }
    y += kWritingLine;
}

} // namespace

void PrintWorkOrder(PrintJob& job, const WorkOrderContent& c)
{
    SetupPrinter(job, QStringLiteral("Portrait"), job.settings.color, 10, kFontOff, kFontOff);
    int page = 1;
    pageHead(job, c, page);
    if (c.narrative)
        printNarrative(job, c, *c.narrative, page);
    else
        printInstructionForm(job);
    if (!c.items.isEmpty() || !c.services.isEmpty()) printList(job, c, page);
    job.printer.endDoc();
}

void PrintCompletionSummary(PrintJob& job, const WorkOrderContent& c)
{
    PrintSurface& p = job.printer;
    SetupPrinter(job, QStringLiteral("Portrait"), job.settings.color, 10, kFontOff, kFontOff);
    PrintDocHeader(job, kLogoInFrame, QStringLiteral("Summary Report"), 0.4);

    PrintColor(job, kBorderRole);
    SetPrintFont(p, 10, kFontOn, kFontOff);
    SetPrintPos(p, 5, 1.5);
    p.print(QStringLiteral("Date ") + FormatShortDate(c.date));
    SetPrintPos(p, 5, 0);
    p.print(QStringLiteral("Acct: ") + c.account);
    static const std::pair<const char*, const char*> blanks[] = {
        {"Start Time:", "______:______"},     {"Completion Time:", "______:______"},
        {"Service Time:", "______:______"},   {"Starting Odometer:", "____________"},
        {"Ending Odometer:", "____________"},
    };
    for (const auto& [label, blank] : blanks) {
        SetPrintPos(p, 5, 0);
        p.print(QString::fromLatin1(label), false);
        SetPrintPos(p, 6.5, 0);
        p.print(QString::fromLatin1(blank));
    }
    printCustomer(job, c);

    PrintColor(job, kBorderRole);
    SetPrintFont(p, 10, kFontOn, kFontOff);
    double y = 4.3 * kTwips;
    for (const char* heading : {"List any Anomalies prior to Commencement",
                                "List any Services that could not be Performed and the Reason"}) {
        p.setCurrentY(y);
        SetPrintPos(p, kLeft / kTwips, 0);
        p.print(QString::fromLatin1(heading));
        y = p.currentY();
        writingLines(job, y);
    }
    y += kWritingLine;
    p.setCurrentY(y);
    SetPrintPos(p, kLeft / kTwips, 0);
    const QString performedBy = QStringLiteral("Service performed by: ");
    p.print(performedBy, false);
    rule(job, p.currentX(), 5 * kTwips, y + p.textHeight(performedBy));
    p.endDoc();
}
} // namespace tresvane
