#pragma once

#include "core/io/result.h"

#include <QString>
#include <functional>

class QPrinter;
class QWidget;

namespace tresvane
{
class Dialogs;
class PrintDialogs;
class PrintSurface;

// A print run from a screen: the print dialog once, then every document of the run drawn
// on what was chosen. On a printer each document is a job of its own; into a PDF file the
// run is one file with a page per document.

// Draws the run's documents; a failure (a damaged data file) stops the run.
using DrawDocuments = std::function<Status(PrintSurface&)>;

// The office's nudge for pre-printed forms, in hundredths of an inch right and down. It
// belongs to this computer and its printer, so it lives in the program's settings on this
// computer, never in the shared data folder.
struct PrintOffset {
    int right = 0;
    int down = 0;
};
PrintOffset ReadPrintOffset(const QString& programName);
void WritePrintOffset(const QString& programName, const PrintOffset& offset);

// Letter paper, a quarter inch of printable-area margin on every side, portrait, at the
// printer's high resolution.
void PreparePrinter(QPrinter& printer);

enum class PrintOutcome { Printed, Cancelled, Failed };

// The print dialog with `copies` preset, then the run. A failure of the printer, of the
// file or of the data is told in one message; the data folder is never written.
PrintOutcome PrintDocuments(PrintDialogs& printDialogs, Dialogs& dialogs, QWidget* parent,
                            int copies, const PrintOffset& offset, const DrawDocuments& draw);

// The same pages in the preview window, before any paper is used.
void PreviewDocuments(PrintDialogs& printDialogs, Dialogs& dialogs, QWidget* parent,
                      const PrintOffset& offset, const DrawDocuments& draw);

// The run into a PDF file with no dialog, for the command line. Returns the number of
// pages written.
Result<int> PrintDocumentsToPdf(const QString& file, const DrawDocuments& draw);
} // namespace tresvane
