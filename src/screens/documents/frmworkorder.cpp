#include "screens/documents/frmworkorder.h"

#include "core/documents/addresslines.h"
#include "core/documents/pricecatalogue.h"
#include "core/documents/workorderdocument.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"
#include "screens/documents/printrun.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
const char* const kCaptions[11] = {"Menu",
                                   "Print Documents",
                                   "Hide",
                                   "Clear All Services and Items ",
                                   "Select All",
                                   "Add Item",
                                   "Save as a Template",
                                   "Clear Narrative",
                                   "Load a Template",
                                   "Select All",
                                   "Add Service"};
// The print run's messages as the work order gives them: a failure of the printer or of
// the data is told as "A Print Error has occurred", with what went wrong under it.
class WorkOrderPrintErrors final : public Dialogs
{
public:
    explicit WorkOrderPrintErrors(Dialogs& dialogs) : m_dialogs(dialogs) {}
    Answer message(const QString& text, const QString& title, Buttons buttons, Icon icon) override
    {
        if (title == kPrintError)
            return m_dialogs.message(QStringLiteral("A Print Error has occurred\n") + text, title,
                                     buttons, icon);
        return m_dialogs.message(text, title, buttons, icon);
    }
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& text) override
    {
        return m_dialogs.input(prompt, title, text);
    }
    void beep() override { m_dialogs.beep(); }

private:
    inline static const QString kPrintError = QStringLiteral("Print Error");
    Dialogs& m_dialogs;
};

} // namespace

frmWorkOrder::frmWorkOrder(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent)
    : QWidget(parent), c(ctx), m_printDialogs(printDialogs)
{
    setObjectName(QStringLiteral("frmWorkOrder"));
    setWindowTitle(QStringLiteral("Create Work Order or Estimate"));
    buildControls();
    buildLayout();
}

void frmWorkOrder::buildControls()
{
    for (int i = 0; i < 11; ++i) {
        cmdWO[i] = named(new QPushButton(QString::fromLatin1(kCaptions[i]), this),
                         QStringLiteral("cmdWO_%1").arg(i));
        connect(cmdWO[i], &QPushButton::clicked, this, [this, i] { cmdWO_Click(i); });
    }
    cmdPreview =
        named(new QPushButton(QStringLiteral("Pre&view"), this), QStringLiteral("cmdPreview"));
    connect(cmdPreview, &QPushButton::clicked, this, &frmWorkOrder::Preview);
    cmdWO[4]->setToolTip(QStringLiteral("Adds every item that is not on the list yet"));
    cmdWO[9]->setToolTip(QStringLiteral("Adds every service that is not on the list yet"));
    cmdWO[6]->setToolTip(QStringLiteral("Keeps this narrative to load for another job"));

    cboHeading = named(new QComboBox(this), QStringLiteral("cboHeading"));
    cboHeading->addItems(WorkOrderHeadings());

    fraAccount =
        named(new QGroupBox(QStringLiteral("Account"), this), QStringLiteral("fraAccount"));
    lblAccount = named(new QLabel(fraAccount), QStringLiteral("lblAccount"));
    lblAccount->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblAccount->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    txtWONarrative = named(new QPlainTextEdit(this), QStringLiteral("txtWONarrative"));
    txtWONarrative->setTabChangesFocus(true);
    txtWONarrative->setPlaceholderText(
        QStringLiteral("The instructions for the job; left empty, the document gives ruled "
                       "lines to write them on"));

    lstServices = named(new QListWidget(this), QStringLiteral("lstServices"));
    lstItems = named(new QListWidget(this), QStringLiteral("lstItems"));
    for (int kind : {Services, Items}) {
        cboPrices[kind] = named(new QComboBox(this), QStringLiteral("cboPrices_%1").arg(kind));
        cboPrices[kind]->setEditable(true);
        cboPrices[kind]->setInsertPolicy(QComboBox::NoInsert);
        cboPrices[kind]->setMinimumContentsLength(10);
        WireKeyFilter(cboPrices[kind], KeyFilterKind::Price, c.dialogs);
    }
    connect(lstServices, &QListWidget::currentRowChanged, this,
            [this](int row) { offerSelected(Services, row); });
    connect(lstItems, &QListWidget::currentRowChanged, this,
            [this](int row) { offerSelected(Items, row); });
    // Enter in a price adds the entry, as its button does.
    EnterClicks(cboPrices[Services]->lineEdit(), cmdWO[10]);
    EnterClicks(cboPrices[Items]->lineEdit(), cmdWO[5]);

    auto chosenList = [this](const QString& name) {
        auto* list = named(new QTreeWidget(this), name);
        list->setColumnCount(2);
        list->setHeaderLabels({QStringLiteral("Description"), QStringLiteral("Price")});
        list->setRootIsDecorated(false);
        list->header()->setStretchLastSection(false);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
        return list;
    };
    lstServicesList = chosenList(QStringLiteral("lstServicesList"));
    lstItemsList = chosenList(QStringLiteral("lstItemsList"));

    ckCompletion = named(new QCheckBox(QStringLiteral("Print a Completion Summary Report"), this),
                         QStringLiteral("ckCompletion"));
}

QGroupBox* frmWorkOrder::buildListPanel(Kind kind, const QString& title)
{
    auto* panel = new QGroupBox(title, this);
    auto* grid = new QGridLayout(panel);
    grid->addWidget(new QLabel(QStringLiteral("Offered"), panel), 0, 0, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("On the Document"), panel), 0, 3);
    grid->addWidget(kind == Services ? lstServices : lstItems, 1, 0, 1, 3);
    grid->addWidget(kind == Services ? lstServicesList : lstItemsList, 1, 3, 2, 1);
    grid->addWidget(new QLabel(QStringLiteral("Price"), panel), 2, 0);
    grid->addWidget(cboPrices[kind], 2, 1, 1, 2);
    grid->addWidget(cmdWO[kind == Services ? 10 : 5], 3, 0, 1, 2);
    grid->addWidget(cmdWO[kind == Services ? 9 : 4], 3, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 3);
    grid->setRowStretch(1, 1);
    return panel;
}

void frmWorkOrder::buildLayout()
{
    auto* menuBar = named(new QMenuBar(this), QStringLiteral("menuBar"));
    mnuAccount = menuBar->addAction(QStringLiteral("&Account"));
    mnuAccount->setObjectName(QStringLiteral("mnuAccount"));
    connect(mnuAccount, &QAction::triggered, fraAccount, &QWidget::show);

    auto* accountLayout = new QVBoxLayout(fraAccount);
    accountLayout->addWidget(lblAccount, 1);
    auto* hideRow = new QHBoxLayout;
    hideRow->addStretch(1);
    hideRow->addWidget(cmdWO[2]);
    accountLayout->addLayout(hideRow);

    auto* headingRow = new QHBoxLayout;
    auto* headingLabel = new QLabel(QStringLiteral("&Heading"), this);
    headingLabel->setBuddy(cboHeading);
    headingRow->addWidget(headingLabel);
    headingRow->addWidget(cboHeading);
    headingRow->addStretch(1);

    auto* narrative = new QGroupBox(QStringLiteral("Narrative"), this);
    auto* narrativeLayout = new QVBoxLayout(narrative);
    narrativeLayout->addWidget(txtWONarrative, 1);
    auto* narrativeButtons = new QHBoxLayout;
    narrativeButtons->addWidget(cmdWO[6]);
    narrativeButtons->addWidget(cmdWO[8]);
    narrativeButtons->addStretch(1);
    narrativeButtons->addWidget(cmdWO[7]);
    narrativeLayout->addLayout(narrativeButtons);

    auto* left = new QVBoxLayout;
    left->addLayout(headingRow);
    left->addWidget(narrative, 1);
    auto* top = new QHBoxLayout;
    top->addLayout(left, 2);
    top->addWidget(fraAccount, 1);

    auto* lists = new QHBoxLayout;
    lists->addWidget(buildListPanel(Services, QStringLiteral("Services")), 1);
    lists->addWidget(buildListPanel(Items, QStringLiteral("Items")), 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(cmdWO[3]);
    bottom->addSpacing(16);
    bottom->addWidget(ckCompletion);
    bottom->addStretch(1);
    bottom->addWidget(cmdWO[1]);
    bottom->addWidget(cmdPreview);
    bottom->addWidget(cmdWO[0]);

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar);
    layout->addLayout(top, 2);
    layout->addLayout(lists, 3);
    layout->addLayout(bottom);

    SetTabChain({cboHeading,       txtWONarrative, cmdWO[6],        cmdWO[8],
                 cmdWO[7],         cmdWO[2],       lstServices,     cboPrices[Services],
                 cmdWO[10],        cmdWO[9],       lstServicesList, lstItems,
                 cboPrices[Items], cmdWO[5],       cmdWO[4],        lstItemsList,
                 cmdWO[3],         ckCompletion,   cmdWO[1],        cmdPreview,
                 cmdWO[0]});
    resize(980, 700);
}

void frmWorkOrder::Form_Activate()
{
    // A narrative file left by an earlier job must not print with this one.
    if (Status s = RemovePrintNarrative(c.store); !s) c.dialogs.message(s.message());
    QString account =
        QStringLiteral("Acct: ") + c.v.current.account + u'\n' + CustomerAddressLines(c.v);
    if (!c.v.current.phone.trimmed().isEmpty())
        account += QStringLiteral("\nTel: ") + c.v.current.phone.trimmed();
    lblAccount->setText(account);
    fraAccount->show();
    cboHeading->setCurrentIndex(0);
    fillOffers();
    clearChosen();
    cboHeading->setFocus();
}

void frmWorkOrder::fillOffers()
{
    Result<QList<PriceEntry>> services = LoadOfferedServices(c.store);
    if (!services) c.dialogs.message(services.message());
    m_offers[Services] = services.valueOr({});
    Result<QList<PriceEntry>> items = LoadOfferedItems(c.store);
    if (!items) c.dialogs.message(items.message());
    m_offers[Items] = items.valueOr({});
    for (Kind kind : {Services, Items}) {
        QListWidget* list = kind == Services ? lstServices : lstItems;
        list->clear();
        for (const PriceEntry& e : m_offers[kind])
            list->addItem(e.name);
        cboPrices[kind]->clear();
    }
}

void frmWorkOrder::offerSelected(Kind kind, int row)
{
    cboPrices[kind]->clear();
    if (row < 0 || row >= m_offers[kind].size()) return;
    cboPrices[kind]->addItem(m_offers[kind][row].price);
    cboPrices[kind]->setCurrentIndex(0);
}

void frmWorkOrder::addChosen(Kind kind)
{
    QListWidget* offered = kind == Services ? lstServices : lstItems;
    const int row = offered->currentRow();
    if (row < 0 || row >= m_offers[kind].size() || !offered->currentItem()->isSelected()) {
        c.dialogs.message(kind == Services ? QStringLiteral("Select a Service to Add")
                                           : QStringLiteral("Select an Item to Add"));
        offered->setFocus();
        return;
    }
    const std::optional<QString> price = DocumentPrice(cboPrices[kind]->currentText());
    if (!price) {
        c.dialogs.message(QStringLiteral("Enter a Price, such as 45.00"));
        cboPrices[kind]->setFocus();
        return;
    }
    if (!chosen(kind).add({m_offers[kind][row].name, *price})) {
        c.dialogs.beep();
        return;
    }
    showChosen(kind);
}

void frmWorkOrder::selectAll(Kind kind)
{
    if (chosen(kind).addMissing(m_offers[kind]) > 0) showChosen(kind);
}

void frmWorkOrder::showChosen(Kind kind)
{
    QTreeWidget* list = kind == Services ? lstServicesList : lstItemsList;
    list->clear();
    for (const PriceEntry& e : chosen(kind).entries()) {
        auto* row = new QTreeWidgetItem(list, {e.name, e.price});
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void frmWorkOrder::clearChosen()
{
    m_chosenServices.clear();
    m_chosenItems.clear();
    showChosen(Services);
    showChosen(Items);
    lstServices->clearSelection();
    lstItems->clearSelection();
}

void frmWorkOrder::saveTemplate()
{
    if (Status s = SaveNarrativeTemplate(c.store, txtWONarrative->toPlainText()); !s)
        c.dialogs.message(s.message());
}

void frmWorkOrder::loadTemplate()
{
    Result<std::optional<QString>> narrative = LoadNarrativeTemplate(c.store);
    if (!narrative) {
        c.dialogs.message(narrative.message());
        return;
    }
    if (!narrative->has_value()) {
        c.dialogs.message(QStringLiteral("No Narrative has been Saved as a Template yet"));
        return;
    }
    txtWONarrative->setPlainText(**narrative);
}

Status frmWorkOrder::drawDocuments(PrintSurface& surface)
{
    // The narrative goes to its file at every print, or the file goes: a narrative cleared
    // since an earlier print does not come back.
    if (Status s = PrepareNarrativeForPrint(c.store, txtWONarrative->toPlainText()); !s) return s;
    Result<std::optional<QStringList>> narrative = ReadPrintNarrative(c.store);
    if (!narrative) return narrative.status();
    WorkOrderContent content;
    content.heading = cboHeading->currentText();
    content.date = c.clock.today();
    content.account = c.v.current.account;
    content.customerLines = CustomerAddressLines(c.v).split(u'\n', Qt::SkipEmptyParts);
    content.narrative = *narrative;
    content.items = m_chosenItems.entries();
    content.services = m_chosenServices.entries();
    PrintJob job{surface, DocumentSettingsOf(c.v)};
    PrintWorkOrder(job, content);
    if (ckCompletion->isChecked()) {
        PrintJob summary{surface, DocumentSettingsOf(c.v)};
        PrintCompletionSummary(summary, content);
    }
    return {};
}

void frmWorkOrder::Print()
{
    WorkOrderPrintErrors dialogs(c.dialogs);
    const PrintOutcome outcome =
        PrintDocuments(m_printDialogs, dialogs, this, 1, ReadPrintOffset(c.store.baseName()),
                       [this](PrintSurface& surface) { return drawDocuments(surface); });
    if (outcome != PrintOutcome::Printed)
        c.dialogs.message(QStringLiteral("The Work Order will not be Printed"));
}

void frmWorkOrder::Preview()
{
    WorkOrderPrintErrors dialogs(c.dialogs);
    PreviewDocuments(m_printDialogs, dialogs, this, ReadPrintOffset(c.store.baseName()),
                     [this](PrintSurface& surface) { return drawDocuments(surface); });
}

void frmWorkOrder::cmdWO_Click(int index)
{
    switch (index) {
    case 0:
        emit showMenu();
        break;
    case 1:
        Print();
        break;
    case 2:
        fraAccount->hide();
        break;
    case 3:
        clearChosen();
        break;
    case 4:
        selectAll(Items);
        break;
    case 5:
        addChosen(Items);
        break;
    case 6:
        saveTemplate();
        break;
    case 7:
        txtWONarrative->clear();
        break;
    case 8:
        loadTemplate();
        break;
    case 9:
        selectAll(Services);
        break;
    case 10:
        addChosen(Services);
        break;
    default:
        break;
    }
}
} // namespace tresvane
