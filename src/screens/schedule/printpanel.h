#pragma once

#include "core/documents/invoices.h"
#include "core/documents/workschedule.h"
#include "core/state/corecontext.h"
#include "screens/documents/printrun.h"

#include <QDate>
#include <QGroupBox>
#include <array>
#include <functional>

class QPushButton;
class QRadioButton;

namespace tresvane
{
class PrintDialogs;

// The Scheduling Screen's print panel: the paper to put in the printer, the schedule's
// form, and Print, Preview and Cancel. In the schedule mode it prints the crews' work
// schedules; in the invoice mode the team's invoices of the day in the chosen style, or
// the blank invoices asked for.
class PrintPanel : public QGroupBox
{
    Q_OBJECT
public:
    // What a print covers, read from the screen when the print starts.
    struct Selection {
        QDate date;
        int team = 0; // 1 to the number of teams; 0 for all teams
        int copies = 1;
        // The invoice mode's choices.
        InvoiceStyle style = InvoiceStyle::Repair;
        bool addMemo = false;
        bool printReason = false;
        int blankCount = 0;
    };

    PrintPanel(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent = nullptr);

    void setSelection(std::function<Selection()> selection) { m_selection = std::move(selection); }

    // Shows the panel with the paper prompt of the mode and the form chosen.
    void Open();
    // Hides the panel; the form chosen stays for the next print.
    void Reset();
    // The paper prompt, the panel's caption.
    QString prompt() const;
    ScheduleForm form() const;

    void cmdInvoiceContinue_Click();
    void cmdPreview_Click();
    void cmdCancelPrint_Click();

signals:
    // The panel was put away, after a print or a cancel.
    void closed();
    // An invoice job went to the printer: the blank invoices asked for are done.
    void invoicesPrinted();

private:
    DrawDocuments documents() const;
    // In the invoice mode, whether the job has a page at all; when it has none the
    // dispatcher is told so and nothing is printed.
    bool hasPages(const Selection& s) const;
    InvoiceRequest invoiceRequest(const Selection& s) const;

    CoreContext& c;
    PrintDialogs& m_printDialogs;
    std::function<Selection()> m_selection;
    QGroupBox* fraWorkSchedule;
    std::array<QRadioButton*, 2> optWorkSchedule{};
    QPushButton* cmdInvoiceContinue;
    QPushButton* cmdPreview;
    QPushButton* cmdCancelPrint;
};
} // namespace tresvane
