#include "core/documents/printframe.h"

#include "core/setup/addressstyle.h"
#include "core/state/dispatchingvariables.h"

#include <cmath>

namespace tresvane
{
namespace
{
constexpr double kTwips = 1440;

// The page's width as documents lay it out, and the frame of the header within it.
constexpr double kPageWidth = 12240;
constexpr double kFrameInset = 360;
constexpr double kFrameTop = 504;
constexpr double kFrameBottom = 5040;
constexpr int kFrameDrawWidth = 6;
// The printable area begins a quarter inch into the paper.
constexpr double kMargin = 360;

// The colour of the "from" line at the foot of a page.
constexpr qint32 kFromLineColor = 65280;
} // namespace

DocumentSettings DocumentSettingsOf(const DispatchingVariables& v)
{
    DocumentSettings s;
    if (!v.settings.lblFont.trimmed().isEmpty()) s.fontName = v.settings.lblFont;
    s.color = v.settings.ckColor != 0;
    s.borderColor = v.settings.txtBorders.toInt();
    s.textColor = v.settings.txtData.toInt();
    s.usaAddress = v.settings.cmdAddress == kUsaStyleAddress;
    s.business = v.gBusiness;
    return s;
}

void SetupPrinter(PrintJob& job, const QString& orientation, bool color, double size, qint16 bold,
                  qint16 underline)
{
    PrintSurface& p = job.printer;
    p.setColorMode(color);
    p.setOrientation(orientation == u"Portrait" ? PrintSurface::Orientation::Portrait
                                                : PrintSurface::Orientation::Landscape);
    p.setFontName(job.settings.fontName);
    p.setForeColor(0);
    SetPrintFont(p, size, bold, underline);
}

void SetPrintPos(PrintSurface& printer, double x, double y)
{
    if (x > 0) printer.setCurrentX(x * kTwips);
    if (y > 0) printer.setCurrentY(y * kTwips);
}

void SetPrintFont(PrintSurface& printer, double size, qint16 bold, qint16 underline)
{
    if (size > 0) printer.setFontSize(size);
    printer.setFontBold(bold == kFontOn);
    printer.setFontUnderline(underline == kFontOn);
}

void PrintColor(PrintJob& job, qint16 role)
{
    if (!job.settings.color) {
        job.printer.setForeColor(0);
        job.gBorderColor = 0;
        return;
    }
    if (role != kBorderRole && role != kDataRole) return;
    const qint32 color = role == kBorderRole ? job.settings.borderColor : job.settings.textColor;
    job.printer.setForeColor(color);
    job.gBorderColor = color;
}

qint32 BodyColor(const PrintJob& job)
{
    return job.settings.color ? job.settings.textColor : 0;
}

QStringList WrappedLines(const PrintSurface& printer, double limit, const QString& text)
{
    const double room = limit - 20;
    QStringList lines;
    QString rest = text;
    while (!rest.isEmpty()) {
        qsizetype cut = rest.size();
        if (printer.textWidth(rest) > room) {
            // The longest stretch that ends at a blank and fits; when even the first word
            // does not fit, that word alone.
            qsizetype fits = -1;
            qsizetype first = -1;
            for (qsizetype i = 1; i < rest.size(); ++i) {
                if (rest[i] != u' ') continue;
                if (first < 0) first = i;
                if (printer.textWidth(rest.left(i)) > room) break;
                fits = i;
            }
            cut = fits > 0 ? fits : (first > 0 ? first : rest.size());
        }
        qsizetype end = cut;
        while (end > 0 && rest[end - 1] == u' ')
            --end;
        lines << rest.left(end);
        qsizetype next = cut;
        while (next < rest.size() && rest[next] == u' ')
            ++next;
        rest = rest.mid(next);
    }
    return lines;
}

void PrintWrapped(PrintSurface& printer, double left, double limit, double top, const QString& text)
{
    printer.setCurrentY(top);
    for (const QString& line : WrappedLines(printer, limit, text)) {
        printer.setCurrentX(left);
        printer.print(line);
    }
}

void PrintTitle(PrintJob& job, const QString& title, double y)
{
    PrintSurface& p = job.printer;
    constexpr double kTitleX = 5;
    // Inside the frame and the printable width; a longer title would be cut off there.
    constexpr double kTitleRight = 7.9;
    SetPrintFont(p, 28, kFontOn, kFontOff);
    const double room = (kTitleRight - kTitleX) * kTwips;
    double size = 28;
    // Widths grow with the size; one step down by the ratio, then points until it fits.
    if (p.textWidth(title) > room) {
        size = std::floor(size * room / p.textWidth(title));
        SetPrintFont(p, size, kFontOn, kFontOff);
        while (size > 8 && p.textWidth(title) > room)
            SetPrintFont(p, --size, kFontOn, kFontOff);
    }
    p.setForeColor(BodyColor(job));
    SetPrintPos(p, kTitleX, y);
    p.print(title);
    SetPrintFont(p, 10, kFontOff, kFontOff);
}

QStringList BusinessCityLines(const DocumentSettings& s)
{
    const QString city = s.business[3].trimmed();
    const QString state = s.business[4].trimmed();
    const QString zip = s.business[5].trimmed();
    if (s.usaAddress) return {city + QStringLiteral(", ") + state + QStringLiteral(". ") + zip};
    QStringList lines;
    for (const QString& line : {city, state, zip})
        if (!line.isEmpty()) lines << line;
    return lines;
}

void PrintBusinessBlock(PrintJob& job, double x, double y, double size)
{
    PrintSurface& p = job.printer;
    const DocumentSettings& s = job.settings;
    p.setForeColor(BodyColor(job));
    SetPrintFont(p, size, kFontOn, kFontOff);
    SetPrintPos(p, x, y);
    p.print(s.business[0].trimmed());
    SetPrintFont(p, 10, kFontOff, kFontOff);
    QStringList lines{s.business[1].trimmed()};
    if (!s.business[2].trimmed().isEmpty()) lines << s.business[2].trimmed();
    lines << BusinessCityLines(s);
    lines << QStringLiteral("Telephone: ") + s.business[6].trimmed();
    for (int aux : {7, 8})
        if (!s.business[aux].trimmed().isEmpty()) lines << s.business[aux].trimmed();
    for (const QString& line : lines) {
        SetPrintPos(p, x, 0);
        p.print(line);
    }
}

void PrintDocHeader(PrintJob& job, qint16 logoStyle, const QString& title, double businessY)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kDataRole);
    // The frame runs a quarter inch in from each edge of the paper, which on the printable
    // area is its edge; half the pen goes inside so that none of it is cut off.
    PrintColor(job, kBorderRole);
    p.setDrawWidth(kFrameDrawWidth);
    const double pen = kFrameDrawWidth * 1440.0 / 600 / 2;
    const double left = kFrameInset - kMargin + pen;
    const double right = kPageWidth - kFrameInset - kMargin - pen;
    const double top = kFrameTop;
    const double bottom = kFrameBottom;
    p.line(left, top, right, top, job.gBorderColor);
    p.line(right, top, right, bottom, job.gBorderColor);
    p.line(right, bottom, left, bottom, job.gBorderColor);
    p.line(left, bottom, left, top, job.gBorderColor);
    PrintColor(job, kDataRole);

    double businessX = 0.5;
    const PrintLogo& logo = job.settings.logo;
    if (logoStyle == kLogoInFrame && !logo.isEmpty()) {
        const QRectF box(left + 0.15 * kTwips, top + 0.15 * kTwips, logo.width, logo.height);
        if (p.picture(logo.file, box)) businessX = (box.right() + 0.25 * kTwips) / kTwips;
    } else if (logoStyle == kLogoFromLine) {
        SetPrintFont(p, 14, kFontOn, kFontOff);
        p.setForeColor(job.settings.color ? kFromLineColor : 0);
        SetPrintPos(p, 1.3, 10.1);
        p.print(QStringLiteral("from ") + job.settings.business[0].trimmed());
    }
    PrintTitle(job, title, businessY);
    PrintBusinessBlock(job, businessX, businessY, 14);
}

void PrintInvoiceHeaderLine(PrintJob& job)
{
    PrintColor(job, kDataRole);
    PrintSurface& p = job.printer;
    static const std::pair<double, const char*> heads[] = {
        {0.6, "QTY"}, {1.5, "DATE"}, {3.1, "DESCRIPTION"}, {6.1, "PRICE"}, {7.5, "TOTAL"}};
    for (const auto& [x, text] : heads) {
        SetPrintPos(p, x, 4.05);
        p.print(QString::fromLatin1(text));
    }
}

void PrintItembox(PrintJob& job)
{
    PrintColor(job, kDataRole);
    PrintSurface& p = job.printer;
    const qint32 color = job.gBorderColor;
    p.setDrawWidth(kFrameDrawWidth / 2);
    // From just above the heads down the page; a rule under the heads, and a column rule
    // before each head after the first.
    // The right edge meets the header's frame, so that "TOTAL" at 7.5 inches has its room.
    const double left = 0.4 * kTwips, right = 7.98 * kTwips;
    const double top = 3.95 * kTwips, heads = 4.3 * kTwips, bottom = 9.6 * kTwips;
    p.line(left, top, right, top, color);
    p.line(left, heads, right, heads, color);
    p.line(left, bottom, right, bottom, color);
    p.line(left, top, left, bottom, color);
    p.line(right, top, right, bottom, color);
    for (double x : {1.4, 3.0, 6.0, 7.3})
        p.line(x * kTwips, top, x * kTwips, bottom, color);
}
} // namespace tresvane
