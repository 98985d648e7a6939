#include "screens/shell/frmstartup.h"

#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/taborder.h"
#include "screens/shell/weburls.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
// The four groups of the menu and their entries, in the order they are shown.
struct Group {
    const char* heading;
    QList<int> entries;
};
const QList<Group>& groups()
{
    static const QList<Group> g = {
        {"Service Slip Routines",
         {MenuEntry::CreateServiceSlip, MenuEntry::CustomerMeeting, MenuEntry::StoredSlips,
          MenuEntry::Reschedule, MenuEntry::RecurringEvents, MenuEntry::VacationAndHoliday}},
        {"Phone Routines", {MenuEntry::PlaceReminderCalls, MenuEntry::UnattendedMonitoring}},
        {"Print Routines",
         {MenuEntry::DailyWorkSchedules, MenuEntry::ServiceInvoices, MenuEntry::WorkOrder,
          MenuEntry::ServiceContract}},
        {"Other Routines",
         {MenuEntry::ServiceHistory, MenuEntry::DisplaySchedules, MenuEntry::HiddenWorkOrder}},
    };
    return g;
}
const char* kEntryStyle =
    "QPushButton { text-align: left; border: none; padding: 4px 6px; color: #0b4f8a; }"
    "QPushButton:hover:enabled { text-decoration: underline; background: #e8f0f8; }"
    "QPushButton:disabled { color: #9a9a9a; }";
} // namespace

frmStartup::frmStartup(CoreContext& ctx, bool& printEnabled, std::function<bool(int)> screenExists,
                       QWidget* parent)
    : QMainWindow(parent), c(ctx), PrintEnabled(printEnabled),
      m_screenExists(std::move(screenExists))
{
    setObjectName(QStringLiteral("frmStartup"));
    setWindowTitle(QStringLiteral("Tresvane Dispatcher Sub Routine Menu"));
    setAttribute(Qt::WA_DeleteOnClose, false);

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(24, 16, 24, 16);
    layout->setSpacing(12);

    lblInstruction =
        new QLabel(QStringLiteral("Click on the Sub-routine you wish to Perform"), central);
    lblInstruction->setObjectName(QStringLiteral("lblInstruction"));
    QFont heading = lblInstruction->font();
    heading.setPointSizeF(heading.pointSizeF() * 1.3);
    heading.setBold(true);
    lblInstruction->setFont(heading);
    layout->addWidget(lblInstruction);

    for (int i = 0; i < kMenuEntries; ++i) {
        lblSub[i] = new QPushButton(MenuCaption(i), central);
        lblSub[i]->setObjectName(QStringLiteral("lblSub_%1").arg(i));
        lblSub[i]->setFlat(true);
        lblSub[i]->setCursor(Qt::PointingHandCursor);
        lblSub[i]->setStyleSheet(QString::fromLatin1(kEntryStyle));
        connect(lblSub[i], &QPushButton::clicked, this, [this, i] { lblSub_Click(i); });
    }
    // Present since the first version but never shown to the user.
    lblSub[MenuEntry::HiddenWorkOrder]->setVisible(false);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(16);
    for (int g = 0; g < groups().size(); ++g) {
        auto* box = new QGroupBox(QString::fromLatin1(groups()[g].heading), central);
        box->setObjectName(QStringLiteral("fraGroup_%1").arg(g));
        auto* v = new QVBoxLayout(box);
        for (int entry : groups()[g].entries)
            v->addWidget(lblSub[entry]);
        v->addStretch(1);
        grid->addWidget(box, g / 2, g % 2);
    }
    layout->addLayout(grid, 1);
    // The entries as the groups show them, group by group, rather than by their numbers.
    QList<QWidget*> chain;
    for (const auto& group : groups())
        for (int entry : group.entries)
            chain << lblSub[entry];
    SetTabChain(chain);

    Label1_12 = new QLabel(QStringLiteral("Use your Term Planner Program"), central);
    Label1_12->setObjectName(QStringLiteral("Label1_12"));
    Label1_13 = new QLabel(QStringLiteral("to Print Work Schedules and Invoices"), central);
    Label1_13->setObjectName(QStringLiteral("Label1_13"));
    layout->addWidget(Label1_12);
    layout->addWidget(Label1_13);
    Label1_12->setVisible(false);
    Label1_13->setVisible(false);
    setCentralWidget(central);

    // The menu bar.
    mnuFiles = menuBar()->addMenu(QStringLiteral("Files"));
    mnuFiles->setObjectName(QStringLiteral("mnuFiles"));
    mnuCreate = mnuFiles->addAction(QStringLiteral("Create/Modify"));
    mnuCreate->setObjectName(QStringLiteral("mnuCreate"));
    mnuExportCalendars = mnuFiles->addAction(QStringLiteral("Export Crew &Calendars"));
    mnuExportCalendars->setObjectName(QStringLiteral("mnuExportCalendars"));
    mnuTresvaneworks = mnuFiles->addAction(QStringLiteral("Visit Tresvaneworks"));
    mnuTresvaneworks->setObjectName(QStringLiteral("mnuTresvaneworks"));
    mnuFiles->addSeparator();
    mnuExit = mnuFiles->addAction(QStringLiteral("&Exit"));
    mnuExit->setObjectName(QStringLiteral("mnuExit"));

    mnuForms = menuBar()->addMenu(QStringLiteral("Order Forms"));
    mnuForms->setObjectName(QStringLiteral("mnuForms"));
    mnuDeluxeForms = mnuForms->addAction(QStringLiteral("Deluxe Business Forms"));
    mnuDeluxeForms->setObjectName(QStringLiteral("mnuDeluxeForms"));
    mnuDeluxe = mnuForms->addAction(QStringLiteral("Checks and Envelopes"));
    mnuDepositSlips = mnuForms->addAction(QStringLiteral("Deposit Slips"));
    mnuPPaper = mnuForms->addAction(QStringLiteral("Plain Paper"));
    mnuPPPaper = mnuForms->addAction(QStringLiteral("Perforated Papaer"));
    mnuGraytex = mnuForms->addAction(QStringLiteral("Proposal Sets"));
    mnuAddress = mnuForms->addAction(QStringLiteral("Address Labels"));
    mnuLabels = mnuForms->addAction(QStringLiteral("Shipping Labels"));

    mnuHelp = menuBar()->addAction(QStringLiteral("Help"));
    mnuHelp->setObjectName(QStringLiteral("mnuHelp"));

    connect(mnuCreate, &QAction::triggered, this, [this] {
        hide();
        emit createModify();
    });
    connect(mnuExportCalendars, &QAction::triggered, this, [this] { emit exportCalendars(); });
    connect(mnuTresvaneworks, &QAction::triggered, this,
            [this] { emit openWebPage(WebUrls::HomePage()); });
    connect(mnuExit, &QAction::triggered, this, [this] { emit exitProgram(); });
    connect(mnuHelp, &QAction::triggered, this, [this] { emit openWebPage(WebUrls::Manual()); });

    mnuDeluxe->setObjectName(QStringLiteral("mnuDeluxe"));
    supplier(mnuDeluxe, WebUrls::Checks(), QStringLiteral("Connect to Deluxe"),
             QStringLiteral("Check SSLM102-1 and Envelope 92500"));
    mnuDepositSlips->setObjectName(QStringLiteral("mnuDepositSlips"));
    supplier(mnuDepositSlips, WebUrls::DepositSlips(), {}, {});
    mnuPPaper->setObjectName(QStringLiteral("mnuPPaper"));
    supplier(mnuPPaper, WebUrls::PlainPaper(), QStringLiteral("Order Paper"),
             QStringLiteral("Use Plain Paper for Reports (etc)"));
    mnuPPPaper->setObjectName(QStringLiteral("mnuPPPaper"));
    supplier(mnuPPPaper, WebUrls::PerforatedPaper(), QStringLiteral("Order Paper"),
             QStringLiteral("Perforated Response Paper is used to create\n"
                            "Field Invoices with a Tear-off Completion Summary"));
    mnuGraytex->setObjectName(QStringLiteral("mnuGraytex"));
    supplier(mnuGraytex, WebUrls::ProposalSets(), QStringLiteral("Order Graytex Forms"),
             QStringLiteral("Click YES to Connect to a Supplier"));
    mnuAddress->setObjectName(QStringLiteral("mnuAddress"));
    supplier(mnuAddress, WebUrls::AddressLabels(), QStringLiteral("Order Paper"),
             QStringLiteral("30 to a Page Mailing Labels"));
    mnuLabels->setObjectName(QStringLiteral("mnuLabels"));
    supplier(mnuLabels, WebUrls::ShippingLabels(), QStringLiteral("Order Labels"),
             QStringLiteral("Click YES to Connect to a Supplier"));

    // At creation the invoices and the reschedule entry are closed.
    lblSub[MenuEntry::ServiceInvoices]->setEnabled(false);
    lblSub[MenuEntry::Reschedule]->setEnabled(false);
    resize(900, 620);
}

void frmStartup::supplier(QAction* action, const QString& url, const QString& title,
                          const QString& question)
{
    connect(action, &QAction::triggered, this, [this, url, title, question] {
        if (!question.isEmpty() && !c.dialogs.ask(question, title)) return;
        emit openWebPage(url);
    });
}

void frmStartup::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    Form_Activate();
}

void frmStartup::Form_Activate()
{
    bool printAllowed = true;
    if (!PrintEnabled && c.store.FileExists(TermPlannerFile())) {
        if (c.dialogs.ask(TermPlannerQuestion(), QStringLiteral("Print Warning")))
            PrintEnabled = true;
        else
            printAllowed = false;
    }
    m_state = MenuActivation(c, printAllowed);
    Label1_12->setVisible(m_state.plannerNotesVisible);
    Label1_13->setVisible(m_state.plannerNotesVisible);
    for (int i = 0; i < kMenuEntries; ++i) {
        const bool built = m_screenExists && m_screenExists(i);
        lblSub[i]->setEnabled(m_state.enabled[i] && built);
        lblSub[i]->setToolTip(built ? QString()
                                    : QStringLiteral("This routine is not available yet"));
    }
}

void frmStartup::lblSub_Click(int index)
{
    if (index < 0 || index >= kMenuEntries || !lblSub[index]->isEnabled()) return;
    emit entryChosen(index);
}
} // namespace tresvane
