#include "screens/documents/frmcontract.h"

#include "core/documents/addresslines.h"
#include "core/documents/contract.h"
#include "core/documents/pricecatalogue.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/desktop.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tresvane
{
frmContract::frmContract(CoreContext& ctx, Desktop& desktop, QWidget* parent)
    : QWidget(parent), c(ctx), m_desktop(desktop)
{
    setObjectName(QStringLiteral("frmContract"));
    setWindowTitle(QStringLiteral("Contract Creation Form"));
    buildControls();
    buildLayout();
    ShowServices(true);
    cmdAddServicetoBody->setEnabled(false);
}

void frmContract::buildControls()
{
    fraStart = named(new QGroupBox(QStringLiteral("Account Information"), this),
                     QStringLiteral("fraStart"));
    lblCustomerName = named(new QLabel(fraStart), QStringLiteral("lblCustomerName"));
    QFont bold = lblCustomerName->font();
    bold.setBold(true);
    lblCustomerName->setFont(bold);
    lblCustomerTel = named(new QLabel(fraStart), QStringLiteral("lblCustomerTel"));
    txtCustomerInfo = named(new QPlainTextEdit(fraStart), QStringLiteral("txtCustomerInfo"));
    txtCustomerInfo->setTabChangesFocus(true);

    txtContractor = named(new QPlainTextEdit(this), QStringLiteral("txtContractor"));
    txtContractor->setTabChangesFocus(true);

    fraCreate = named(new QGroupBox(QStringLiteral("Contract"), this), QStringLiteral("fraCreate"));
    fraServices = named(new QGroupBox(QStringLiteral("Create from Services"), fraCreate),
                        QStringLiteral("fraServices"));
    cboServices = named(new QComboBox(fraServices), QStringLiteral("cboServices"));
    cboServices->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboServices->setMinimumContentsLength(24);
    cboPrices = named(new QComboBox(fraServices), QStringLiteral("cboPrices"));
    cboPrices->setMinimumContentsLength(10);
    // The service and its price are one choice, whichever list it is made in.
    connect(cboServices, &QComboBox::currentIndexChanged, this, [this](int i) {
        const QSignalBlocker block(cboPrices);
        cboPrices->setCurrentIndex(i);
    });
    connect(cboPrices, &QComboBox::currentIndexChanged, this, [this](int i) {
        const QSignalBlocker block(cboServices);
        cboServices->setCurrentIndex(i);
    });

    fraManual = named(new QGroupBox(QStringLiteral("Create Manually"), fraCreate),
                      QStringLiteral("fraManual"));
    txtService = named(new QLineEdit(fraManual), QStringLiteral("txtService"));
    txtPrice = named(new QLineEdit(fraManual), QStringLiteral("txtPrice"));
    txtPrice->setMaximumWidth(140);
    WireKeyFilter(txtPrice, KeyFilterKind::Price, c.dialogs);
    // Leaving the box shows the price as the contract will.
    connect(txtPrice, &QLineEdit::editingFinished, this, [this] {
        if (const std::optional<QString> price = DocumentPrice(txtPrice->text()))
            txtPrice->setText(*price);
    });

    lstFrequency = named(new QListWidget(fraCreate), QStringLiteral("lstFrequency"));
    lstFrequency->addItems(BillingFrequencies());
    lstFrequency->setCurrentRow(0);
    lstFrequency->setMaximumHeight(lstFrequency->sizeHintForRow(0) * 4 +
                                   2 * lstFrequency->frameWidth() + 4);
    Calendar1 = named(new QCalendarWidget(fraCreate), QStringLiteral("Calendar1"));
    Calendar1->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    Calendar1->setGridVisible(true);
    cboDuration = named(new QComboBox(fraCreate), QStringLiteral("cboDuration"));
    cboDuration->setEditable(true);
    cboDuration->setInsertPolicy(QComboBox::NoInsert);
    cboDuration->addItems(ContractDurations());
    cboDuration->setCurrentIndex(3);
    cboDuration->setToolTip(QStringLiteral("Choose a duration or type one"));
    ckRenew = named(
        new QCheckBox(QStringLiteral("Automatically Renew at the end of the Duration"), fraCreate),
        QStringLiteral("ckRenew"));

    cmdGeneric = named(new QPushButton(QStringLiteral("Build a New Contract"), this),
                       QStringLiteral("cmdGeneric"));
    cmdAddServicetoBody = named(new QPushButton(QStringLiteral("Create Contract"), this),
                                QStringLiteral("cmdAddServicetoBody"));
    Command2 = named(new QPushButton(QStringLiteral("&Redo"), this), QStringLiteral("Command2"));
    cmdMenu = named(new QPushButton(QStringLiteral("Return to the &Menu"), this),
                    QStringLiteral("cmdMenu"));
    connect(cmdGeneric, &QPushButton::clicked, this, &frmContract::cmdGeneric_Click);
    connect(cmdAddServicetoBody, &QPushButton::clicked, this,
            &frmContract::cmdAddServicetoBody_Click);
    connect(Command2, &QPushButton::clicked, this, &frmContract::cmdGeneric_Click);
    connect(cmdMenu, &QPushButton::clicked, this, &frmContract::showMenu);
    for (QLineEdit* box : {txtService, txtPrice})
        EnterClicks(box, cmdAddServicetoBody);
}

void frmContract::buildLayout()
{
    auto* menuBar = named(new QMenuBar(this), QStringLiteral("menuBar"));
    mnuServices = menuBar->addAction(QStringLiteral("Create from &Services"));
    mnuServices->setObjectName(QStringLiteral("mnuServices"));
    mnuManual = menuBar->addAction(QStringLiteral("Create &Manually"));
    mnuManual->setObjectName(QStringLiteral("mnuManual"));
    connect(mnuServices, &QAction::triggered, this, [this] { ShowServices(true); });
    connect(mnuManual, &QAction::triggered, this, [this] { ShowServices(false); });

    auto* startLayout = new QVBoxLayout(fraStart);
    startLayout->addWidget(lblCustomerName);
    startLayout->addWidget(lblCustomerTel);
    startLayout->addWidget(txtCustomerInfo, 1);
    auto* contractor = new QGroupBox(QStringLiteral("Contractor"), this);
    (new QVBoxLayout(contractor))->addWidget(txtContractor);

    auto* servicesLayout = new QFormLayout(fraServices);
    servicesLayout->addRow(QStringLiteral("Service"), cboServices);
    servicesLayout->addRow(QStringLiteral("Price"), cboPrices);
    auto* manualLayout = new QFormLayout(fraManual);
    manualLayout->addRow(QStringLiteral("Service"), txtService);
    manualLayout->addRow(QStringLiteral("Price"), txtPrice);

    auto* choices = new QVBoxLayout;
    choices->addWidget(new QLabel(QStringLiteral("Billing"), fraCreate));
    choices->addWidget(lstFrequency);
    choices->addSpacing(8);
    choices->addWidget(new QLabel(QStringLiteral("Duration"), fraCreate));
    choices->addWidget(cboDuration);
    choices->addSpacing(8);
    choices->addWidget(ckRenew);
    choices->addStretch(1);
    auto* commencing = new QVBoxLayout;
    commencing->addWidget(new QLabel(QStringLiteral("Commencing"), fraCreate));
    commencing->addWidget(Calendar1, 1);
    auto* terms = new QHBoxLayout;
    terms->addLayout(choices, 1);
    terms->addSpacing(12);
    terms->addLayout(commencing, 1);

    auto* createLayout = new QVBoxLayout(fraCreate);
    createLayout->addWidget(fraServices);
    createLayout->addWidget(fraManual);
    createLayout->addLayout(terms, 1);

    auto* parties = new QHBoxLayout;
    parties->addWidget(fraStart, 1);
    parties->addWidget(contractor, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdGeneric);
    buttons->addWidget(cmdAddServicetoBody);
    buttons->addWidget(Command2);
    buttons->addStretch(1);
    buttons->addWidget(cmdMenu);

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar);
    layout->addLayout(parties);
    layout->addWidget(fraCreate, 1);
    layout->addLayout(buttons);

    SetTabChain({txtCustomerInfo, txtContractor, cboServices, cboPrices, txtService, txtPrice,
                 lstFrequency, cboDuration, ckRenew, Calendar1, cmdGeneric, cmdAddServicetoBody,
                 Command2, cmdMenu});
    resize(760, 640);
}

void frmContract::ShowServices(bool fromCatalogue)
{
    m_fromCatalogue = fromCatalogue;
    fraServices->setVisible(fromCatalogue);
    fraManual->setVisible(!fromCatalogue);
}

void frmContract::Form_Activate()
{
    Calendar1->setSelectedDate(c.clock.today());
    txtCustomerInfo->setPlainText(CustomerAddressLines(c.v));
    lblCustomerName->setText(c.v.current.name);
    lblCustomerTel->setText(c.v.current.phone);
    txtContractor->setPlainText(BusinessAddressLines(c.v));

    Result<QList<PriceEntry>> services = LoadOfferedServices(c.store);
    if (!services) c.dialogs.message(services.message());
    m_services = services.valueOr({});
    {
        const QSignalBlocker blockServices(cboServices);
        const QSignalBlocker blockPrices(cboPrices);
        cboServices->clear();
        cboPrices->clear();
        for (const PriceEntry& e : m_services) {
            cboServices->addItem(e.name);
            cboPrices->addItem(e.price);
        }
    }
    // Without a catalogue the service can only be typed.
    ShowServices(!m_services.isEmpty());
    if (!lstFrequency->currentItem()) lstFrequency->setCurrentRow(0);
    m_body = RtfDocument();
    cmdAddServicetoBody->setEnabled(false);
    cmdGeneric->setFocus();
}

void frmContract::cmdGeneric_Click()
{
    const QString account = c.v.current.account;
    if (c.store.FileExists(ContractFileName(account))) {
        if (!c.dialogs.ask(ContractExistsQuestion(), ContractExistsTitle())) return;
        if (Status s = c.store.KillIfPresent(ContractFileName(account)); !s) {
            c.dialogs.message(s.message());
            return;
        }
    }
    Result<std::optional<RtfDocument>> generic = LoadGenericContract(c.store);
    if (!generic) {
        c.dialogs.message(generic.message());
        return;
    }
    if (!generic->has_value()) {
        c.dialogs.beep();
        c.dialogs.message(MissingTemplateMessage());
        emit showMenu();
        return;
    }
    m_body = std::move(**generic);
    cmdAddServicetoBody->setEnabled(true);
    Calendar1->setSelectedDate(c.clock.today());
}

bool frmContract::collectTerms(ContractTerms& t)
{
    const bool fromCatalogue = m_fromCatalogue;
    t.service = fromCatalogue ? cboServices->currentText() : txtService->text().trimmed();
    const QString typed = fromCatalogue ? cboPrices->currentText() : txtPrice->text();
    if (t.service.isEmpty()) {
        c.dialogs.message(QStringLiteral("Select or Enter a Service for the Contract"));
        (fromCatalogue ? static_cast<QWidget*>(cboServices) : txtService)->setFocus();
        return false;
    }
    const std::optional<QString> price = DocumentPrice(typed);
    if (!price) {
        c.dialogs.message(QStringLiteral("Enter a Price for the Service"));
        (fromCatalogue ? static_cast<QWidget*>(cboPrices) : txtPrice)->setFocus();
        return false;
    }
    t.price = *price;
    t.businessName = c.v.gBusiness[0];
    t.customerName = lblCustomerName->text();
    t.created = c.clock.today();
    t.duration = cboDuration->currentText();
    // A typed duration is not one of the list, even when it spells one differently.
    t.durationIndex = cboDuration->findText(t.duration, Qt::MatchExactly);
    t.commencing = Calendar1->selectedDate();
    t.frequency = lstFrequency->currentItem() ? lstFrequency->currentItem()->text() : QString();
    t.renew = ckRenew->isChecked();
    t.contractorAddress = txtContractor->toPlainText();
    t.customerAddress = txtCustomerInfo->toPlainText();
    return true;
}

void frmContract::cmdAddServicetoBody_Click()
{
    if (!cmdAddServicetoBody->isEnabled()) return;
    ContractTerms terms;
    if (!collectTerms(terms)) return;
    const QString account = c.v.current.account;
    FillContract(m_body, terms);
    if (Status s = SaveContract(c.store, account, m_body); !s) {
        c.dialogs.message(s.message());
        return;
    }
    c.dialogs.message(ContractCreatedMessage(account), ContractCreatedTitle());
    offerToOpen(account);
}

void frmContract::offerToOpen(const QString& account)
{
    if (!c.dialogs.ask(QStringLiteral("Open the Contract in the word processor now?"),
                       ContractCreatedTitle()))
        return;
    const QString path = c.store.path(ContractFileName(account));
    if (!m_desktop.openFile(path))
        c.dialogs.message(QStringLiteral("No word processor could be started for the Contract.\n"
                                         "It is saved as %1")
                              .arg(path));
}
} // namespace tresvane
