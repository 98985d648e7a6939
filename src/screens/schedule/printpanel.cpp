#include "screens/schedule/printpanel.h"

#include "core/documents/printframe.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"
#include "screens/documents/printdialogs.h"
#include "screens/shell/named.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
const QString kPlainPaper = QStringLiteral("Insert Plain Paper");
const QString kPerforatedPaper = QStringLiteral("Insert Perforated Response Paper");
} // namespace

PrintPanel::PrintPanel(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent)
    : QGroupBox(parent), c(ctx), m_printDialogs(printDialogs)
{
    setObjectName(QStringLiteral("fraInvoice"));
    fraWorkSchedule =
        named(new QGroupBox(QStringLiteral("Schedule"), this), QStringLiteral("fraWorkSchedule"));
    optWorkSchedule[0] =
        named(new QRadioButton(QStringLiteral("Extended Schedule (12 Hours)"), fraWorkSchedule),
              QStringLiteral("optWorkSchedule_0"));
    optWorkSchedule[1] =
        named(new QRadioButton(QStringLiteral("Work Day Schedule (8 Hours)"), fraWorkSchedule),
              QStringLiteral("optWorkSchedule_1"));
    optWorkSchedule[0]->setChecked(true);
    auto* forms = new QVBoxLayout(fraWorkSchedule);
    forms->addWidget(optWorkSchedule[0]);
    forms->addWidget(optWorkSchedule[1]);

    auto button = [this](const QString& caption, const char* name) {
        auto* b = named(new QPushButton(caption, this), QString::fromLatin1(name));
        b->setMinimumWidth(96);
        return b;
    };
    cmdInvoiceContinue = button(QStringLiteral("&Print"), "cmdInvoiceContinue");
    cmdPreview = button(QStringLiteral("Pre&view"), "cmdPreview");
    cmdCancelPrint = button(QStringLiteral("Ca&ncel"), "cmdCancelPrint");

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdInvoiceContinue);
    buttons->addWidget(cmdPreview);
    buttons->addWidget(cmdCancelPrint);
    buttons->addStretch(1);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(fraWorkSchedule, 1);
    layout->addLayout(buttons);

    for (QRadioButton* option : optWorkSchedule)
        connect(option, &QRadioButton::toggled, this, [this] { setTitle(prompt()); });
    connect(cmdInvoiceContinue, &QPushButton::clicked, this, &PrintPanel::cmdInvoiceContinue_Click);
    connect(cmdPreview, &QPushButton::clicked, this, &PrintPanel::cmdPreview_Click);
    connect(cmdCancelPrint, &QPushButton::clicked, this, &PrintPanel::cmdCancelPrint_Click);
    setVisible(false);
}

ScheduleForm PrintPanel::form() const
{
    return optWorkSchedule[1]->isChecked() ? ScheduleForm::WorkDay : ScheduleForm::Extended;
}

QString PrintPanel::prompt() const
{
    // No paper is checked; the prompt only asks for the paper the document is laid out on.
    if (c.v.Mode == Mode::Invoices) return kPerforatedPaper;
    return form() == ScheduleForm::WorkDay ? kPerforatedPaper : kPlainPaper;
}

void PrintPanel::Open()
{
    fraWorkSchedule->setVisible(c.v.Mode == Mode::WorkSchedules);
    setTitle(prompt());
    setVisible(true);
    cmdInvoiceContinue->setFocus();
}

void PrintPanel::Reset()
{
    setVisible(false);
    emit closed();
}

InvoiceRequest PrintPanel::invoiceRequest(const Selection& s) const
{
    InvoiceRequest r;
    r.date = s.date;
    r.team = s.team;
    r.style = s.style;
    r.addMemo = s.addMemo;
    r.printReason = s.printReason;
    r.blankCount = s.blankCount;
    return r;
}

DrawDocuments PrintPanel::documents() const
{
    if (!m_selection) return {};
    const Selection s = m_selection();
    if (c.v.Mode == Mode::Invoices) {
        const InvoiceRequest request = invoiceRequest(s);
        return [this, request](PrintSurface& surface) -> Status {
            PrintJob job{surface, DocumentSettingsOf(c.v)};
            return PrintInvoices(job, c.store, c.v, request).status();
        };
    }
    if (c.v.Mode != Mode::WorkSchedules) return {};
    const ScheduleRequest request{s.date, s.team, form()};
    return [this, request](PrintSurface& surface) -> Status {
        PrintJob job{surface, DocumentSettingsOf(c.v)};
        return PrintWorkSchedules(job, c.store, c.v, request).status();
    };
}

bool PrintPanel::hasPages(const Selection& s) const
{
    if (c.v.Mode != Mode::Invoices) return true;
    Result<int> count = CountInvoices(c.store, c.v, invoiceRequest(s));
    if (!count) {
        c.dialogs.message(count.message(), QStringLiteral("Print Error"), Dialogs::Buttons::Ok,
                          Dialogs::Icon::Exclamation);
        return false;
    }
    if (*count > 0) return true;
    c.dialogs.message(NoInvoicesMessage(c.v.gAssignTo.value(s.team), s.date),
                      QStringLiteral("Print Invoices"), Dialogs::Buttons::Ok,
                      Dialogs::Icon::Information);
    return false;
}

void PrintPanel::cmdInvoiceContinue_Click()
{
    const DrawDocuments draw = documents();
    if (draw && hasPages(m_selection())) {
        const int copies = m_selection().copies;
        const PrintOutcome outcome = PrintDocuments(m_printDialogs, c.dialogs, window(), copies,
                                                    ReadPrintOffset(c.store.baseName()), draw);
        if (c.v.Mode == Mode::Invoices && outcome != PrintOutcome::Cancelled)
            emit invoicesPrinted();
    }
    Reset();
}

void PrintPanel::cmdPreview_Click()
{
    const DrawDocuments draw = documents();
    if (draw && hasPages(m_selection()))
        PreviewDocuments(m_printDialogs, c.dialogs, window(), ReadPrintOffset(c.store.baseName()),
                         draw);
}

void PrintPanel::cmdCancelPrint_Click()
{
    Reset();
}
} // namespace tresvane
