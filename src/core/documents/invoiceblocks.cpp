#include "core/documents/invoiceblocks.h"

#include "core/io/usforms.h"
#include "core/schedule/timegrid.h"

namespace tresvane
{
namespace
{
constexpr double kTwips = 1440;
constexpr double kBlankFieldStep = 576;
constexpr double kOrderLinesX = 5;
// A time's blank stands this far right of its label.
constexpr double kTimeBlankOffset = 1.5;

// The remittance strip.
constexpr double kRemitTop = 7.5;
constexpr double kRemitNoteX = 4;
constexpr double kRemitToX = 0.5;
constexpr double kAccountX = 3;
constexpr double kPaymentHeadX = 6;
// The account lines keep clear of the payment block at 5 inches.
constexpr double kAccountWidth = 1.95;
constexpr double kRemitTotalY = 9;

constexpr double kPaymentX = 5;
constexpr double kPaymentY = 8;
constexpr double kPaidByX = 6.25;
constexpr double kPaymentGap = 144;
constexpr double kPaymentWideGap = 288;
} // namespace

QStringList InvoiceCustomerLines(const SlipRecord& r, bool usaAddress, bool printReason)
{
    QStringList lines;
    for (int field : {SlipField::Name, SlipField::Street, SlipField::Apt})
        if (!r.text(field).isEmpty()) lines << r.text(field);
    const QString city = r.text(SlipField::City);
    const QString state = r.text(SlipField::St);
    const QString zip = r.text(SlipField::Zip);
    if (usaAddress) {
        QString town = city;
        if (!state.isEmpty()) town += (town.isEmpty() ? QString() : QStringLiteral(", ")) + state;
        if (!zip.isEmpty()) town += (town.isEmpty() ? QString() : QStringLiteral(" ")) + zip;
        if (!town.isEmpty()) lines << town;
    } else {
        for (const QString& line : {city, state, zip})
            if (!line.isEmpty()) lines << line;
    }
    const QString reason = r.text(SlipField::Reference);
    if (printReason && !reason.isEmpty()) lines << QStringLiteral("Problem Reported: ") + reason;
    return lines;
}

void PrintCustomerBlock(PrintJob& job, const QStringList& lines, double x, double y, double width)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    double top = y * kTwips;
    for (const QString& line : lines) {
        PrintWrapped(p, x * kTwips, width * kTwips, top, line);
        top = p.currentY();
    }
    p.setCurrentY(top);
}

void PrintBlankCustomerBlock(PrintJob& job, double x, double y, double width, int count)
{
    PrintColor(job, kBorderRole);
    PrintSurface& p = job.printer;
    p.setDrawWidth(1);
    for (int k = 1; k <= count; ++k) {
        const double lineY = y * kTwips + k * kBlankFieldStep;
        p.line(x * kTwips, lineY, (x + width) * kTwips, lineY, job.gBorderColor);
    }
    PrintColor(job, kDataRole);
}

void PrintOrderLine(PrintJob& job, const DispatchingVariables& v, const InvoiceSlip* slip,
                    const QDate& date, double x, double y)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 14, kFontOn, kFontOff);
    SetPrintPos(p, x, y);
    p.print(QStringLiteral("Service Order # ") + (slip ? slip->number : QString()));
    SetPrintFont(p, 10, kFontOff, kFontOff);
    SetPrintPos(p, kOrderLinesX, 0);
    p.print(QStringLiteral("Scheduled Date ") + (slip ? FormatShortDate(date) : QString()));
    SetPrintPos(p, kOrderLinesX, 0);
    p.print(QStringLiteral("Scheduled Time ") +
            (slip && slip->firstRow >= 0 ? GridLabel(v, slip->firstRow + 1) : QString()));
}

void PrintTimes(PrintJob& job, double x, double y)
{
    PrintSurface& p = job.printer;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 10, kFontOff, kFontOff);
    SetPrintPos(p, x, y);
    for (const char* label : {"Start Time:", "Completion Time:", "Service Time:"}) {
        const double lineY = p.currentY();
        SetPrintPos(p, x, 0);
        p.print(QString::fromLatin1(label), false);
        p.setCurrentX((x + kTimeBlankOffset) * kTwips);
        p.setCurrentY(lineY);
        p.print(QStringLiteral("______:______"));
    }
}

void PrintTimesAndTotals(PrintJob& job, double x, double y, double totalsX)
{
    PrintTimes(job, x, y);
    PrintSurface& p = job.printer;
    SetPrintFont(p, 12, kFontOff, kFontOff);
    for (const char* line : {"INVOICE TOTAL  ____________", "PAID IN FULL                    _____",
                             "CHARGE TO ACCOUNT   _____"}) {
        SetPrintPos(p, totalsX, 0);
        p.print(QString::fromLatin1(line));
    }
    SetPrintFont(p, 10, kFontOff, kFontOff);
}

void PrintPaymentBlock(PrintJob& job)
{
    PrintSurface& p = job.printer;
    SetPrintFont(p, 10, kFontOff, kFontOff);
    struct Line {
        double x;
        const char* text;
        bool bold;
        double gap;
    };
    static const Line lines[] = {
        {kPaymentX, "Amount Enclosed___________________", false, kPaymentGap},
        {kPaidByX, "PAID BY", true, kPaymentWideGap},
        {kPaymentX, "___ Check   Check #_________________", false, kPaymentWideGap},
        {kPaymentX, "___ Cash", false, kPaymentGap},
        {kPaymentX, "___ Credit Card # ___________________", false, kPaymentGap},
        {kPaymentX, "Expires Date:  ______/______/_________", false, kPaymentGap},
        {kPaymentX, "Signature __________________________", false, kPaymentGap},
    };
    p.setCurrentY(kPaymentY * kTwips);
    for (const Line& line : lines) {
        // Only "PAID BY" is bold: the lines under it are for the hand that fills them in.
        p.setFontBold(line.bold);
        SetPrintPos(p, line.x, 0);
        p.print(QString::fromLatin1(line.text));
        p.setCurrentY(p.currentY() + line.gap);
    }
    p.setFontBold(false);
}

void PrintRemittance(PrintJob& job, const QStringList& customer)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kDataRole);
    SetPrintFont(p, 6, kFontOn, kFontOff);
    SetPrintPos(p, kRemitNoteX, kRemitTop);
    p.print(QStringLiteral("Please return this portion with Payment"));
    SetPrintFont(p, 10, kFontOn, kFontOff);
    const double headY = p.currentY();
    const std::pair<double, const char*> heads[] = {{kRemitToX, "Please Remit To:"},
                                                    {kAccountX, "Account Information"},
                                                    {kPaymentHeadX, "Payment Information"}};
    for (const auto& [x, text] : heads) {
        p.setCurrentY(headY);
        SetPrintPos(p, x, 0);
        p.print(QString::fromLatin1(text));
    }
    const double underHeads = p.currentY() / kTwips;
    PrintBusinessBlock(job, kRemitToX, underHeads, 10);
    SetPrintFont(p, 10, kFontOff, kFontOff);
    PrintCustomerBlock(job, customer, kAccountX, underHeads, kAccountWidth);
    PrintPaymentBlock(job);
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, 10, kFontOn, kFontOff);
    SetPrintPos(p, kRemitToX, kRemitTotalY);
    p.print(QStringLiteral("INVOICE TOTAL  ____________"));
    SetPrintFont(p, 10, kFontOff, kFontOff);
}

QString FitText(const PrintSurface& printer, const QString& text, double room)
{
    QString fitted = text;
    while (!fitted.isEmpty() && printer.textWidth(fitted) > room)
        fitted.chop(1);
    return fitted;
}
} // namespace tresvane
