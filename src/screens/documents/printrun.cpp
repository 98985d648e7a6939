#include "screens/documents/printrun.h"

#include "core/ports/dialogs.h"
#include "screens/documents/printdialogs.h"
#include "screens/documents/printersurface.h"
#include "screens/shell/waitcursor.h"

#include <QApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QSettings>

namespace tresvane
{
namespace
{
const QString kOffsetRight = QStringLiteral("Print/offsetRight");
const QString kOffsetDown = QStringLiteral("Print/offsetDown");

QPointF inches(const PrintOffset& offset)
{
    return {offset.right / 100.0, offset.down / 100.0};
}

// The run on a surface; the data's failure first, else the printer's.
Status run(PrinterSurface& surface, const DrawDocuments& draw)
{
    Status drawn = draw(surface);
    surface.finish();
    if (!drawn) return drawn;
    return surface.status();
}

} // namespace

PrintOffset ReadPrintOffset(const QString& programName)
{
    QSettings settings(QStringLiteral("TresvaneDispatcher"), programName);
    return {settings.value(kOffsetRight, 0).toInt(), settings.value(kOffsetDown, 0).toInt()};
}

void WritePrintOffset(const QString& programName, const PrintOffset& offset)
{
    QSettings settings(QStringLiteral("TresvaneDispatcher"), programName);
    settings.setValue(kOffsetRight, offset.right);
    settings.setValue(kOffsetDown, offset.down);
}

void PreparePrinter(QPrinter& printer)
{
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setFullPage(false);
    printer.setPageMargins(QMarginsF(0.25, 0.25, 0.25, 0.25), QPageLayout::Inch);
}

PrintOutcome PrintDocuments(PrintDialogs& printDialogs, Dialogs& dialogs, QWidget* parent,
                            int copies, const PrintOffset& offset, const DrawDocuments& draw)
{
    QPrinter printer(QPrinter::HighResolution);
    PreparePrinter(printer);
    printer.setCopyCount(std::max(1, copies));
    if (!printDialogs.choosePrinter(printer, parent)) return PrintOutcome::Cancelled;
    const bool pdf = printer.outputFormat() == QPrinter::PdfFormat;
    // A file is read on a screen or printed later: the nudge for this office's printer and
    // its forms goes on paper only.
    PrinterSurface surface(
        printer, pdf ? PrinterSurface::Jobs::OneForAll : PrinterSurface::Jobs::OnePerDocument,
        pdf ? QPointF() : inches(offset));
    Status s;
    {
        WaitCursor wait;
        s = run(surface, draw);
    }
    if (s) return PrintOutcome::Printed;
    dialogs.message(s.message(), QStringLiteral("Print Error"), Dialogs::Buttons::Ok,
                    Dialogs::Icon::Exclamation);
    return PrintOutcome::Failed;
}

void PreviewDocuments(PrintDialogs& printDialogs, Dialogs& dialogs, QWidget* parent,
                      const PrintOffset& offset, const DrawDocuments& draw)
{
    QPrinter printer(QPrinter::HighResolution);
    PreparePrinter(printer);
    Status failed;
    printDialogs.preview(
        printer,
        [&](QPrinter* target) {
            PrinterSurface surface(*target, PrinterSurface::Jobs::OneForAll, inches(offset));
            if (Status s = run(surface, draw); !s && failed) failed = s;
        },
        parent);
    if (!failed)
        dialogs.message(failed.message(), QStringLiteral("Print Error"), Dialogs::Buttons::Ok,
                        Dialogs::Icon::Exclamation);
}

Result<int> PrintDocumentsToPdf(const QString& file, const DrawDocuments& draw)
{
    QPrinter printer(QPrinter::HighResolution);
    PreparePrinter(printer);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    PrinterSurface surface(printer, PrinterSurface::Jobs::OneForAll);
    if (Status s = run(surface, draw); !s) return s;
    return surface.pages();
}
} // namespace tresvane
