#pragma once

#include "screens/documents/printdialogs.h"

#include <QPrinter>
#include <QString>

namespace tresvane
{
// The person at the print dialog and the preview, as a script: the dialog is answered
// with a PDF file (or a cancel), and the preview's pages are written to a PDF file, so
// that a test reads back what a person would have seen. Only for tests that link the
// screens.
class ScriptedPrintDialogs final : public PrintDialogs
{
public:
    QString pdfFile;     // where the print dialog "prints"; empty: the dialog is cancelled
    QString previewFile; // where the preview's pages go
    QString printerName; // a printer to choose instead of a file (one that fails, say)
    int dialogs = 0;     // print dialogs shown
    int previews = 0;    // previews shown
    int copiesOffered = 0;

    bool choosePrinter(QPrinter& printer, QWidget*) override
    {
        ++dialogs;
        copiesOffered = printer.copyCount();
        if (!printerName.isEmpty()) {
            printer.setOutputFormat(QPrinter::NativeFormat);
            printer.setPrinterName(printerName);
            return true;
        }
        if (pdfFile.isEmpty()) return false;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfFile);
        return true;
    }

    void preview(QPrinter& printer, const std::function<void(QPrinter*)>& paint, QWidget*) override
    {
        ++previews;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(previewFile);
        paint(&printer);
    }
};
} // namespace tresvane
