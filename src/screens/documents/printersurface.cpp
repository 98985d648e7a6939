#include "screens/documents/printersurface.h"

#include <QFontMetricsF>
#include <QImageReader>
#include <QPageLayout>
#include <QPrinter>
#include <algorithm>

namespace tresvane
{
PrinterSurface::PrinterSurface(QPrinter& printer, Jobs jobs, QPointF offset)
    : m_printer(printer), m_jobs(jobs), m_offset(offset)
{
    m_dpi = m_printer.resolution();
    m_printerName = m_printer.printerName();
    setOrientation(m_printer.pageLayout().orientation() == QPageLayout::Landscape
                       ? Orientation::Landscape
                       : Orientation::Portrait);
}

PrinterSurface::~PrinterSurface()
{
    finish();
}

QColor PrinterSurface::colorOf(qint32 rgb)
{
    return QColor(rgb & 0xFF, (rgb >> 8) & 0xFF, (rgb >> 16) & 0xFF);
}

QString PrinterSurface::target() const
{
    if (writesFile()) return QStringLiteral("the file %1").arg(m_printer.outputFileName());
    // A printer that has gone from the system leaves the printer without a name; the one
    // chosen is the one to tell.
    const QString name =
        m_printer.printerName().isEmpty() ? m_printerName : m_printer.printerName();
    return name.isEmpty() ? QStringLiteral("the printer")
                          : QStringLiteral("the printer %1").arg(name);
}

bool PrinterSurface::writesFile() const
{
    return m_printer.outputFormat() == QPrinter::PdfFormat && !m_printer.outputFileName().isEmpty();
}

void PrinterSurface::fail(const QString& what)
{
    if (m_status) m_status = Status::failure(what);
}

bool PrinterSurface::page()
{
    if (!m_status) return false;
    if (m_pageOpen) return true;
    const QPageLayout::Orientation wanted =
        orientation() == Orientation::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
    if (!m_jobOpen) {
        m_printer.setPageOrientation(wanted);
        m_printer.setColorMode(colorMode() ? QPrinter::Color : QPrinter::GrayScale);
        if (!m_painter.begin(&m_printer)) {
            fail(writesFile()
                     ? QStringLiteral("Nothing was printed: %1 could not be written.").arg(target())
                     : QStringLiteral("Nothing was printed: %1 could not be used.").arg(target()));
            return false;
        }
        m_jobOpen = true;
    } else {
        m_printer.setPageOrientation(wanted);
        if (!m_printer.newPage()) {
            fail(QStringLiteral("The printing stopped: %1 did not take a new page.").arg(target()));
            return false;
        }
    }
    m_dpi = m_printer.resolution();
    m_metrics.reset();
    m_pageOpen = true;
    ++m_pages;
    return true;
}

void PrinterSurface::finish()
{
    m_pageOpen = false;
    if (!m_jobOpen) return;
    m_jobOpen = false;
    if (!m_painter.end() || m_printer.printerState() == QPrinter::Error)
        fail(QStringLiteral("The printing failed: %1 reported an error.").arg(target()));
}

double PrinterSurface::pageWidth() const
{
    QPageLayout layout = m_printer.pageLayout();
    layout.setOrientation(orientation() == Orientation::Landscape ? QPageLayout::Landscape
                                                                  : QPageLayout::Portrait);
    return layout.paintRect(QPageLayout::Inch).width() * 1440;
}

double PrinterSurface::pageHeight() const
{
    QPageLayout layout = m_printer.pageLayout();
    layout.setOrientation(orientation() == Orientation::Landscape ? QPageLayout::Landscape
                                                                  : QPageLayout::Portrait);
    return layout.paintRect(QPageLayout::Inch).height() * 1440;
}

void PrinterSurface::fontChanged()
{
    m_metrics.reset();
}

const QFontMetricsF& PrinterSurface::metrics() const
{
    if (!m_metrics) {
        m_font = QFont(fontName());
        m_font.setPointSizeF(fontSize() > 0 ? fontSize() : 10);
        m_font.setBold(fontBold());
        m_font.setUnderline(fontUnderline());
        m_metrics = std::make_unique<QFontMetricsF>(m_font, &m_printer);
    }
    return *m_metrics;
}

double PrinterSurface::pixels(double twips) const
{
    return twips * m_dpi / 1440;
}

QPointF PrinterSurface::at(double x, double y) const
{
    return QPointF(pixels(x) + m_offset.x() * m_dpi, pixels(y) + m_offset.y() * m_dpi);
}

double PrinterSurface::textWidth(const QString& text) const
{
    return metrics().horizontalAdvance(text) * 1440 / m_dpi;
}

double PrinterSurface::textHeight(const QString&) const
{
    return metrics().height() * 1440 / m_dpi;
}

void PrinterSurface::drawText(double x, double y, const QString& text)
{
    if (!page()) return;
    const QFontMetricsF& fm = metrics();
    m_painter.setFont(m_font);
    m_painter.setPen(colorOf(foreColor()));
    m_painter.drawText(at(x, y) + QPointF(0, fm.ascent()), text);
}

void PrinterSurface::line(double x1, double y1, double x2, double y2, qint32 color)
{
    if (!page()) return;
    // A unit of draw width is a pixel of a 600 dpi printer.
    QPen pen(colorOf(color), std::max(1, drawWidth()) * m_dpi / 600.0);
    pen.setCapStyle(Qt::SquareCap);
    m_painter.setPen(pen);
    m_painter.drawLine(at(x1, y1), at(x2, y2));
}

bool PrinterSurface::picture(const QString& file, const QRectF& box)
{
    auto it = m_pictures.find(file);
    if (it == m_pictures.end()) {
        QImageReader reader(file);
        it = m_pictures.insert(file, reader.read());
    }
    if (it->isNull()) return false;
    if (!page()) return false;
    m_painter.drawImage(QRectF(at(box.left(), box.top()), at(box.right(), box.bottom())), *it);
    return true;
}

void PrinterSurface::newPage()
{
    if (!m_pageOpen && !page()) return;
    m_pageOpen = false;
}

void PrinterSurface::endDoc()
{
    if (m_jobs == Jobs::OnePerDocument)
        finish();
    else
        m_pageOpen = false;
}
} // namespace tresvane
