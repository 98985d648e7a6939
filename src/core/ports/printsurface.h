#pragma once

#include <QRectF>
#include <QString>

namespace tresvane
{
// A page as the office's printers have always been driven: a pen that stands at a current
// position, with a font, a colour and a line width that stay as set until changed, and
// text that is printed where the pen stands. Every document is written against this, so
// that it draws the same on a printer, into a PDF file, in the preview, and into the
// tests' recorder.
//
// Units are twips (1/1440 inch). Positions count from the top-left corner of the page's
// printable area; the position of a text is the top of its cell, not its baseline.
// Colours are RGB values with red in the low byte, as PrintColors.txt holds them.
class PrintSurface
{
public:
    enum class Orientation { Portrait = 1, Landscape = 2 };

    virtual ~PrintSurface() = default;

    // For the page that starts next.
    virtual void setOrientation(Orientation orientation) = 0;
    virtual Orientation orientation() const = 0;
    // Colour output (true) or black and white.
    virtual void setColorMode(bool color) = 0;
    virtual bool colorMode() const = 0;
    // The printable area of a page in the present orientation.
    virtual double pageWidth() const = 0;
    virtual double pageHeight() const = 0;

    virtual void setCurrentX(double x) = 0;
    virtual double currentX() const = 0;
    virtual void setCurrentY(double y) = 0;
    virtual double currentY() const = 0;

    virtual void setFontName(const QString& name) = 0;
    virtual QString fontName() const = 0;
    virtual void setFontSize(double points) = 0;
    virtual double fontSize() const = 0;
    virtual void setFontBold(bool bold) = 0;
    virtual bool fontBold() const = 0;
    virtual void setFontUnderline(bool underline) = 0;
    virtual bool fontUnderline() const = 0;
    virtual void setForeColor(qint32 rgb) = 0;
    virtual qint32 foreColor() const = 0;
    // The width of lines, in pixels of a 600 dpi printer.
    virtual void setDrawWidth(int width) = 0;
    virtual int drawWidth() const = 0;

    // The room a text takes in the present font.
    virtual double textWidth(const QString& text) const = 0;
    virtual double textHeight(const QString& text) const = 0;

    // Prints the text at the pen in the fore colour. With a line end the pen goes to the
    // left edge of the next line; without one it stays on the line, after the text, so
    // that the next text follows on.
    virtual void print(const QString& text, bool lineEnd = true) = 0;
    // A straight line in the draw width and the given colour.
    virtual void line(double x1, double y1, double x2, double y2, qint32 color) = 0;
    // A picture file drawn scaled into the box. False, and nothing drawn, when the file
    // cannot be read as a picture here.
    virtual bool picture(const QString& file, const QRectF& box) = 0;

    // Ends the page; the next drawing starts a new one.
    virtual void newPage() = 0;
    // Ends the document: on a printer the job goes out, and what is drawn next is a
    // document of its own.
    virtual void endDoc() = 0;
};
} // namespace tresvane
