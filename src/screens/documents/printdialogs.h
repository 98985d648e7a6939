#pragma once

#include <QPointF>
#include <functional>

class QPrinter;
class QWidget;

namespace tresvane
{
// The two windows a person answers before paper is used: the print dialog that picks the
// printer (or a PDF file) and the copies, and the preview of the pages. Screens reach
// them through this, so that a test can answer in the person's place.
class PrintDialogs
{
public:
    virtual ~PrintDialogs() = default;
    // The print dialog over printer, which comes with the copies preset. False when the
    // person cancels.
    virtual bool choosePrinter(QPrinter& printer, QWidget* parent) = 0;
    // The preview window over printer. paint draws every page on the printer it is handed,
    // as often as the window needs it. Returns when the window is closed.
    virtual void preview(QPrinter& printer, const std::function<void(QPrinter*)>& paint,
                         QWidget* parent) = 0;
};

// The platform's print dialog and print preview.
class QtPrintDialogs final : public PrintDialogs
{
public:
    bool choosePrinter(QPrinter& printer, QWidget* parent) override;
    void preview(QPrinter& printer, const std::function<void(QPrinter*)>& paint,
                 QWidget* parent) override;
};
} // namespace tresvane
