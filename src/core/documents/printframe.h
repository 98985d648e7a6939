#pragma once

#include "core/documents/printlogo.h"
#include "core/ports/printsurface.h"

#include <QString>
#include <QStringList>
#include <array>

namespace tresvane
{
struct DispatchingVariables;

// The frame every printed document shares: the pen set up from the print settings, the
// colours by role, text wrapped to a width, the title, the business's own address block
// and the page header. Documents state positions in inches; the printer works in twips,
// 1440 to the inch.

// Font flags as documents pass them: a flag is on only at -1, so a 1 is off.
inline constexpr qint16 kFontOn = -1;
inline constexpr qint16 kFontOff = 0;

// Colour roles of PrintColor.
inline constexpr qint16 kBorderRole = -1; // borders and headlines
inline constexpr qint16 kDataRole = 0;    // the body text

// What documents take from the setup: the print font, colour or black print and the two
// colours, the business's name and address with its address style, and the logo.
struct DocumentSettings {
    QString fontName = QStringLiteral("Arial");
    bool color = true;
    qint32 borderColor = 0;
    qint32 textColor = 0;
    // The USA address layout (city, state and postal code on one line), else the
    // international one (address lines 3 and 4 on lines of their own).
    bool usaAddress = true;
    // Company name, address 1 and 2, city, state, postal code, telephone, two aux lines.
    std::array<QString, 9> business;
    PrintLogo logo;
};

// The settings as the setup screen holds them in the shared state.
DocumentSettings DocumentSettingsOf(const DispatchingVariables& v);

// One run of documents: the page drawn on, what it is drawn with, and the colour the last
// PrintColor chose, in which the frames are drawn.
struct PrintJob {
    PrintSurface& printer;
    DocumentSettings settings;
    qint32 gBorderColor = 0;
};

// The start of every document: colour or black output, letter paper in the orientation
// ("Portrait", anything else is landscape), the print font in black, then the given size
// and flags.
void SetupPrinter(PrintJob& job, const QString& orientation, bool color, double size, qint16 bold,
                  qint16 underline);

// Moves the pen to (x, y) inches; a coordinate of 0 (or below) keeps its present value,
// so that a column at the present line is placed with y = 0.
void SetPrintPos(PrintSurface& printer, double x, double y);

// A size above 0 sets the size; bold and underline are always set, on only at -1.
void SetPrintFont(PrintSurface& printer, double size, qint16 bold, qint16 underline);

// The pen's colour by role (kBorderRole, kDataRole), and the colour frames are drawn in.
// With colour printing off both are black whatever the settings hold. Any other role
// leaves the colours as they are.
void PrintColor(PrintJob& job, qint16 role);

// The body colour: the text colour, or black when colour printing is off.
qint32 BodyColor(const PrintJob& job);

// Prints text from y = top (twips) in lines that start at x = left and are at most
// limit - 20 twips wide, broken at blanks; the blanks that start a following line are
// dropped. A word wider than the limit prints whole on a line of its own. Leaves the pen
// on the line after the text.
void PrintWrapped(PrintSurface& printer, double left, double limit, double top,
                  const QString& text);
// The lines PrintWrapped prints text in, in the present font: to know a block's height
// before it is printed.
QStringList WrappedLines(const PrintSurface& printer, double limit, const QString& text);

// The document's title in 28 point bold, body colour, at x = 5 inches and y inches, made
// smaller when it would run past 7.9 inches, so that a long title stays on the page; the
// font goes back to plain 10 point after it.
void PrintTitle(PrintJob& job, const QString& title, double y);

// The business's block at (x, y) inches in the body colour: its name bold at the given
// size, then in 10 point, each on the next line at x: address 1, address 2 when not empty,
// the city line by the address style, "Telephone: " and the number, the aux lines that are
// not empty.
void PrintBusinessBlock(PrintJob& job, double x, double y, double size);

// The city, state and postal code as the business block prints them: one line in the USA
// style, the city and state lines by themselves in the international one.
QStringList BusinessCityLines(const DocumentSettings& settings);

// Logo styles of PrintDocHeader.
inline constexpr qint16 kLogoInFrame = -1; // the stored logo in the frame's corner
inline constexpr qint16 kLogoFromLine = 0; // "from" and the business name at the foot

// The head of a portrait document: the frame in the border colour across the page's top,
// the logo by style, the title, and the business block at y inches beside the logo.
void PrintDocHeader(PrintJob& job, qint16 logoStyle, const QString& title, double businessY);

// The column heads of an invoice's item lines at y = 4.05 inches: "QTY", "DATE",
// "DESCRIPTION", "PRICE", "TOTAL", in the body colour at the present size.
void PrintInvoiceHeaderLine(PrintJob& job);

// The ruled box under those heads, one column per head.
void PrintItembox(PrintJob& job);
} // namespace tresvane
