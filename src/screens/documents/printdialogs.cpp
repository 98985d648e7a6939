#include "screens/documents/printdialogs.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace tresvane
{
bool QtPrintDialogs::choosePrinter(QPrinter& printer, QWidget* parent)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    return dialog.exec() == QDialog::Accepted;
}

void QtPrintDialogs::preview(QPrinter& printer, const std::function<void(QPrinter*)>& paint,
                             QWidget* parent)
{
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Print Preview"));
    dialog.resize(900, 760);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&paint](QPrinter* p) { paint(p); });
    dialog.exec();
}
} // namespace tresvane
