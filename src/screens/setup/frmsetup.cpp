#include "screens/setup/frmsetup.h"

#include "core/ports/dialogs.h"
#include "core/session/startup.h"
#include "core/setup/addressstyle.h"
#include "core/setup/assignments.h"
#include "core/setup/settingsfiles.h"
#include "core/setup/setupdata.h"
#include "core/setup/setupsave.h"
#include "core/state/dispatchingvariables.h"
#include "screens/setup/setupassignmentstab.h"
#include "screens/setup/setupbusinesstab.h"
#include "screens/setup/setupinvoiceitemstab.h"
#include "screens/setup/setuplogotab.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/setup/setupprinttab.h"
#include "screens/setup/setupproblemstab.h"
#include "screens/setup/setupserviceordertab.h"
#include "screens/shell/logo.h"
#include "screens/shell/taborder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
frmSetup::frmSetup(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent)
    : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmSetup"));
    setWindowTitle(ApplicationTitle() + QStringLiteral(" Setup"));

    tabSetup = new QTabWidget(this);
    tabSetup->setObjectName(QStringLiteral("tabSetup"));
    business = new SetupBusinessTab(c);
    assignments = new SetupAssignmentsTab(c);
    problems = new SetupProblemsTab(c);
    operations = new SetupOperationsTab(c);
    printing = new SetupPrintTab(c);
    invoiceItems = new SetupInvoiceItemsTab(c);
    logo = new SetupLogoTab(c, printDialogs);
    serviceOrder = new SetupServiceOrderTab(c);
    tabSetup->addTab(business, QStringLiteral("Business Info"));
    tabSetup->addTab(assignments, QStringLiteral("Assignments"));
    tabSetup->addTab(problems, QStringLiteral("Problem Descriptions"));
    tabSetup->addTab(operations, QStringLiteral("Operations"));
    tabSetup->addTab(printing, QStringLiteral("Printing"));
    tabSetup->addTab(invoiceItems, QStringLiteral("Invoice Items"));
    tabSetup->addTab(logo, QStringLiteral("Logo"));
    tabSetup->addTab(serviceOrder, QStringLiteral("Service Order Items"));
    // The buttons of the print tab share their array with the Assignments' Change.
    printing->cmdChange[0] = assignments->cmdChange;

    Image1_0 = new QToolButton(this);
    Image1_0->setObjectName(QStringLiteral("Image1_0"));
    Image1_0->setIcon(QIcon(ProgramMark(40)));
    Image1_0->setIconSize(QSize(40, 40));
    Image1_0->setText(QStringLiteral("Advance MainTab  --->"));
    Image1_0->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Image1_0->setAutoRaise(true);
    Image1_0->setToolTip(QStringLiteral("Yes, I'm the LOGO"));

    cmdQuit = new QPushButton(QStringLiteral("&Save Settings and Return to Menu"), this);
    cmdQuit->setObjectName(QStringLiteral("cmdQuit"));
    cmdQuit->setDefault(true);
    cmdHelp = new QPushButton(QStringLiteral("Toggle Help"), this);
    cmdHelp->setObjectName(QStringLiteral("cmdHelp"));

    fraHelp = new QFrame(this);
    fraHelp->setObjectName(QStringLiteral("fraHelp"));
    fraHelp->setFrameShape(QFrame::StyledPanel);
    auto* help = new QLabel(
        QStringLiteral("Fill in each tab in turn: your business, at least one Assignment and "
                       "one Problem Description, then the Operations settings. Click the logo "
                       "to move to the next tab. \"Save Settings and Return to Menu\" stores "
                       "everything and opens the main menu."),
        fraHelp);
    help->setWordWrap(true);
    (new QVBoxLayout(fraHelp))->addWidget(help);
    fraHelp->setVisible(false);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Image1_0);
    bottom->addStretch(1);
    bottom->addWidget(cmdHelp);
    bottom->addWidget(cmdQuit);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->addWidget(tabSetup, 1);
    layout->addWidget(fraHelp);
    layout->addLayout(bottom);
    resize(980, 660);
    SetTabChain({Image1_0, cmdHelp, cmdQuit});

    connect(tabSetup, &QTabWidget::currentChanged, this, &frmSetup::tabChanged);
    connect(Image1_0, &QToolButton::clicked, this, &frmSetup::Image1_Click);
    connect(cmdQuit, &QPushButton::clicked, this, &frmSetup::cmdQuit_Click);
    connect(cmdHelp, &QPushButton::clicked, this,
            [this] { fraHelp->setVisible(!fraHelp->isVisible()); });
    connect(operations, &SetupOperationsTab::invoiceStyleChanged, this,
            &frmSetup::EnableInvoiceTabs);
    connect(assignments, &SetupAssignmentsTab::assignmentsChanged, this,
            &frmSetup::assignmentsChanged);
}

bool frmSetup::fail(const Status& s)
{
    if (s) return false;
    c.dialogs.message(s.message());
    return true;
}

Status frmSetup::Form_Load(qint16 detectedModemPort)
{
    Status first;
    auto keep = [&first](Status s) {
        if (first && !s) first = s;
    };
    SetupData::ItemCatalogues catalogues;
    keep(SetupData::LoadItemCatalogues(c, catalogues));
    // The Service Order style is open only when a sibling program's catalogue exists.
    operations->setServiceOrderAvailable(catalogues.stockFileExists);
    invoiceItems->setStockItems(catalogues.stockItems);
    keep(invoiceItems->LoadInvoiceItems());
    keep(LoadPhoneSettings(c, detectedModemPort));
    keep(printing->LoadPrintColors());
    keep(logo->LoadLogo());
    business->BuildBusiness();
    serviceOrder->showCatalogues(catalogues);
    showSettings();
    return first;
}

void frmSetup::showSettings()
{
    operations->loadFromSettings();
    printing->ckColor->setChecked(c.v.settings.ckColor == 1);
}

void frmSetup::ShowModem(qint16 port, bool found, const QString& text)
{
    const bool clean = CaptureControls(this) == m_unchanged;
    operations->txtModemPort->setText(QString::number(port));
    operations->lblModem->setText(text);
    operations->setPhoneFeatures(found);
    if (clean) m_unchanged = CaptureControls(this);
}

void frmSetup::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Form_Activate();
    // Coming back from the task bar is no new start: what was changed before stays changed.
    if (!event->spontaneous()) m_unchanged = CaptureControls(this);
}

bool frmSetup::hasUnsavedEdits() const
{
    return isVisible() && CaptureControls(this) != m_unchanged;
}

void frmSetup::Form_Activate()
{
    tabSetup->setCurrentIndex(TabBusiness);
    business->txtBusiness[0]->setFocus();
    EnableInvoiceTabs();
}

void frmSetup::EnableInvoiceTabs()
{
    tabSetup->setTabEnabled(TabInvoiceItems, false);
    tabSetup->setTabEnabled(TabServiceOrder, false);
    if (operations->optServiceInvoice[1]->isChecked())
        tabSetup->setTabEnabled(TabInvoiceItems, true);
    if (operations->optServiceInvoice[2]->isChecked())
        tabSetup->setTabEnabled(TabServiceOrder, true);
}

void frmSetup::tabChanged(int index)
{
    switch (index) {
    case TabBusiness:
        business->txtBusiness[0]->setFocus();
        break;
    case TabAssignments:
        assignments->enterTab();
        break;
    case TabProblems:
        problems->cboProblems->setFocus();
        break;
    case TabInvoiceItems:
        invoiceItems->txtInvoiceItem->setFocus();
        break;
    default:
        break;
    }
}

void frmSetup::Image1_Click()
{
    // A closed tab is passed over by taking the step again.
    int next = tabSetup->currentIndex();
    for (int i = 0; i < tabSetup->count(); ++i) {
        next = (next + 1) % tabSetup->count();
        if (tabSetup->isTabEnabled(next)) break;
    }
    tabSetup->setCurrentIndex(next);
}

void frmSetup::cmdQuit_Click()
{
    if (!SaveAll()) return;
    m_unchanged = CaptureControls(this);
    // 11. The gate to the menu.
    if (AllRequiredFilesExist(c)) {
        hide();
        emit showMenu();
        return;
    }
    c.dialogs.message(QStringLiteral("You Have Not Created All Required Files"));
    tabSetup->setCurrentIndex(TabBusiness);
}

bool frmSetup::saveUnsavedEdits()
{
    if (!SaveAll()) return false;
    m_unchanged = CaptureControls(this);
    return true;
}

bool frmSetup::SaveAll()
{
    SetupExit e;
    for (int i = 0; i < 9; ++i)
        e.business[i] = business->txtBusiness[i]->text();
    e.assignments = assignments->entries();
    e.problems = problems->entries();
    operations->fillExit(e);
    e.colors = printing->settings();
    e.logoWidth = logo->logoWidth();
    e.logoHeight = logo->logoHeight();
    e.invoiceItems = invoiceItems->items();

    Result<SetupStop> stop = SaveSetup(c, e);
    if (fail(stop.status())) return false;
    // Past the two lists the screen shows what was saved, as far as the save came.
    if (*stop == SetupStop::Saved || *stop == SetupStop::SlipNumber) {
        assignments->FillAssignmentLists();
        problems->LoadProblems();
        operations->storeModemDevice();
        if (fail(operations->storeCalendarOptions())) return false;
    }
    switch (*stop) {
    case SetupStop::Saved:
        showSettings();
        return true;
    case SetupStop::Telephone: {
        QLineEdit* phone = business->txtBusiness[6];
        phone->clear();
        tabSetup->setCurrentIndex(TabBusiness);
        phone->setFocus();
        return false;
    }
    case SetupStop::NoAssignments:
        tabSetup->setCurrentIndex(TabAssignments);
        assignments->cboAssignments->setFocus();
        return false;
    case SetupStop::NoProblems:
        tabSetup->setCurrentIndex(TabProblems);
        problems->cboProblems->setFocus();
        return false;
    case SetupStop::SlipNumber:
        tabSetup->setCurrentIndex(TabOperations);
        operations->tabSub->setCurrentIndex(3);
        operations->txtNextSlip->clear();
        operations->txtNextSlip->setFocus();
        return false;
    }
    return false;
}
} // namespace tresvane
