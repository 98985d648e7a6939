#pragma once

#include "core/io/result.h"
#include "core/ports/printsurfacebase.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <memory>
#include <optional>

class QFontMetricsF;
class QPrinter;

namespace tresvane
{
// A PrintSurface that paints on a QPrinter: a real printer through CUPS, a PDF file, or
// the pages of the print preview. Pages start when something is drawn on them, so a
// document that draws nothing costs no paper.
//
// The origin is the top-left corner of the printer's printable area, shifted by the
// office's alignment offset for pre-printed forms.
class PrinterSurface final : public PrintSurfaceBase
{
public:
    enum class Jobs {
        // Each document is a print job of its own (a printer).
        OnePerDocument,
        // One job for the whole run, a page (or more) per document (a PDF, the preview).
        OneForAll,
    };

    // offset: inches right and down that everything is moved by.
    PrinterSurface(QPrinter& printer, Jobs jobs, QPointF offset = {});
    ~PrinterSurface() override;
    PrinterSurface(const PrinterSurface&) = delete;
    PrinterSurface& operator=(const PrinterSurface&) = delete;

    // Sends what is still open. The status then tells whether everything went out.
    void finish();
    // Ok, or the first failure, naming the printer or the file.
    const Status& status() const { return m_status; }
    int pages() const { return m_pages; }

    double pageWidth() const override;
    double pageHeight() const override;
    double textWidth(const QString& text) const override;
    double textHeight(const QString& text) const override;
    void line(double x1, double y1, double x2, double y2, qint32 color) override;
    bool picture(const QString& file, const QRectF& box) override;
    void newPage() override;
    void endDoc() override;

    // Colours as the files keep them, red in the low byte.
    static QColor colorOf(qint32 rgb);

protected:
    void drawText(double x, double y, const QString& text) override;
    void fontChanged() override;

private:
    // Opens the page to draw on; false when the printer or file failed.
    bool page();
    void fail(const QString& what);
    QString target() const;
    bool writesFile() const;
    const QFontMetricsF& metrics() const;
    QPointF at(double x, double y) const;
    double pixels(double twips) const;

    QPrinter& m_printer;
    QString m_printerName;
    Jobs m_jobs;
    QPointF m_offset;
    QPainter m_painter;
    bool m_pageOpen = false;
    bool m_jobOpen = false;
    int m_pages = 0;
    Status m_status;
    double m_dpi = 1200;
    mutable QFont m_font;
    mutable std::unique_ptr<QFontMetricsF> m_metrics;
    QHash<QString, QImage> m_pictures;
};
} // namespace tresvane
