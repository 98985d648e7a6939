#include "screens/setup/setupinvoiceitemstab.h"

#include "core/ports/dialogs.h"
#include "core/setup/setupdata.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/taborder.h"
#include "screens/shell/updown.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
SetupInvoiceItemsTab::SetupInvoiceItemsTab(CoreContext& ctx, QWidget* parent)
    : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabInvoiceItems"));
    auto* note = new QLabel(
        QStringLiteral("You can Create up to 12 common items with prices to print on your "
                       "Service Invoices\nTIP: The invoice form has 13 slots, you might wish to "
                       "pre-print less than 13 leaving some open for manual entry"),
        this);
    note->setWordWrap(true);
    txtInvoiceItem = new QLineEdit(this);
    txtInvoiceItem->setObjectName(QStringLiteral("txtInvoiceItem"));
    txtInvoiceItem->setMaxLength(kInvoiceItemNameWidth);
    WireKeyFilter(txtInvoiceItem, KeyFilterKind::Quote, c.dialogs);
    txtInvoicePrice = new QLineEdit(this);
    txtInvoicePrice->setObjectName(QStringLiteral("txtInvoicePrice"));
    txtInvoicePrice->setMaxLength(kInvoiceItemPriceWidth);
    txtInvoicePrice->setMaximumWidth(120);
    WireKeyFilter(txtInvoicePrice, KeyFilterKind::Price, c.dialogs);

    lstInvoiceItems = new QListWidget(this);
    lstInvoiceItems->setObjectName(QStringLiteral("lstInvoiceItems"));
    lstInvoiceItemsCost = new QListWidget(this);
    lstInvoiceItemsCost->setObjectName(QStringLiteral("lstInvoiceItemsCost"));
    lstInvoiceItemsCost->setMaximumWidth(140);
    lstRItems = new QListWidget(this);
    lstRItems->setObjectName(QStringLiteral("lstRItems"));
    lstRItems->setToolTip(QStringLiteral("Click to Add to Item List"));
    UpDown1 = new UpDown(QStringLiteral("UpDown1"), this);

    static const char* const captions[6] = {"&Add New Item",         "&Save Modified Item",
                                            "&Delete Selected Item", "&Clear Items List",
                                            "&Reload Items List",    "&Toggle Help"};
    auto* buttons = new QVBoxLayout;
    for (int i = 0; i < 6; ++i) {
        cmdRInvoice[i] = new QPushButton(QString::fromLatin1(captions[i]), this);
        cmdRInvoice[i]->setObjectName(QStringLiteral("cmdRInvoice_%1").arg(i));
        connect(cmdRInvoice[i], &QPushButton::clicked, this, [this, i] { cmdRInvoice_Click(i); });
        buttons->addWidget(cmdRInvoice[i]);
    }
    buttons->addStretch(1);
    // Enter in either box adds the item, as the Add button does.
    for (QLineEdit* box : {txtInvoiceItem, txtInvoicePrice})
        EnterClicks(box, cmdRInvoice[0]);

    fraHelp1 = new QFrame(this);
    fraHelp1->setObjectName(QStringLiteral("fraHelp1"));
    fraHelp1->setFrameShape(QFrame::StyledPanel);
    auto* help = new QLabel(QStringLiteral("Click an item: the Description and Price will load to "
                                           "the top windows. Change them and Save, or use the "
                                           "arrows to move the item up or down the list."),
                            fraHelp1);
    help->setWordWrap(true);
    (new QVBoxLayout(fraHelp1))->addWidget(help);
    fraHelp1->setVisible(false);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("Description"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Price"), this), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Stock Items"), this), 0, 3);
    grid->addWidget(txtInvoiceItem, 1, 0);
    grid->addWidget(txtInvoicePrice, 1, 1);
    grid->addWidget(lstInvoiceItems, 2, 0);
    grid->addWidget(lstInvoiceItemsCost, 2, 1);
    grid->addWidget(UpDown1, 2, 2, Qt::AlignVCenter);
    grid->addWidget(lstRItems, 1, 3, 2, 1);
    grid->addLayout(buttons, 1, 4, 2, 1);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(3, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note);
    layout->addLayout(grid, 1);
    layout->addWidget(fraHelp1);

    QList<QWidget*> chain{txtInvoiceItem, txtInvoicePrice, lstInvoiceItems, lstInvoiceItemsCost,
                          UpDown1->up,    UpDown1->down,   lstRItems};
    for (QPushButton* b : cmdRInvoice)
        chain << b;
    SetTabChain(chain);

    connect(lstInvoiceItems, &QListWidget::currentRowChanged, this,
            &SetupInvoiceItemsTab::selectEntry);
    connect(lstInvoiceItemsCost, &QListWidget::currentRowChanged, this,
            &SetupInvoiceItemsTab::selectEntry);
    connect(lstRItems, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { lstRItems_Click(lstRItems->row(item)); });
    connect(UpDown1, &UpDown::upClicked, this, [this] { moveSelected(-1); });
    connect(UpDown1, &UpDown::downClicked, this, [this] { moveSelected(1); });
}

void SetupInvoiceItemsTab::setItems(const QList<PriceEntry>& items)
{
    m_items = items;
    showItems(-1);
}

void SetupInvoiceItemsTab::setStockItems(const QList<PriceEntry>& stock)
{
    m_stock = stock;
    lstRItems->clear();
    for (const PriceEntry& e : stock)
        lstRItems->addItem(e.name);
}

Status SetupInvoiceItemsTab::LoadInvoiceItems()
{
    QList<PriceEntry> items;
    Status s = SetupData::LoadInvoiceItems(c, items);
    setItems(items);
    return s;
}

void SetupInvoiceItemsTab::showItems(int selected)
{
    const QSignalBlocker a(lstInvoiceItems);
    const QSignalBlocker b(lstInvoiceItemsCost);
    lstInvoiceItems->clear();
    lstInvoiceItemsCost->clear();
    for (const PriceEntry& e : m_items) {
        lstInvoiceItems->addItem(e.name);
        lstInvoiceItemsCost->addItem(e.price);
    }
    lstInvoiceItems->setCurrentRow(selected);
    lstInvoiceItemsCost->setCurrentRow(selected);
}

void SetupInvoiceItemsTab::selectEntry(int index)
{
    if (index < 0 || index >= m_items.size()) return;
    const QSignalBlocker a(lstInvoiceItems);
    const QSignalBlocker b(lstInvoiceItemsCost);
    lstInvoiceItems->setCurrentRow(index);
    lstInvoiceItemsCost->setCurrentRow(index);
    txtInvoiceItem->setText(m_items[index].name);
    txtInvoicePrice->setText(m_items[index].price);
}

void SetupInvoiceItemsTab::lstRItems_Click(int index)
{
    if (index < 0 || index >= m_stock.size()) return;
    txtInvoiceItem->setText(m_stock[index].name.left(kInvoiceItemNameWidth));
    txtInvoicePrice->setText(m_stock[index].price);
}

void SetupInvoiceItemsTab::moveSelected(int direction)
{
    const int index = lstInvoiceItems->currentRow();
    showItems(MoveInvoiceItem(m_items, index, direction));
}

void SetupInvoiceItemsTab::cmdRInvoice_Click(int index)
{
    const int selected = lstInvoiceItems->currentRow();
    switch (index) {
    case 0:
        if (AddInvoiceItem(m_items, txtInvoiceItem->text(), txtInvoicePrice->text(), c.dialogs)) {
            showItems(-1);
            txtInvoiceItem->clear();
            txtInvoicePrice->clear();
            txtInvoiceItem->setFocus();
        }
        break;
    case 1:
        if (selected >= 0 && selected < m_items.size()) {
            m_items[selected] = {txtInvoiceItem->text().left(kInvoiceItemNameWidth),
                                 txtInvoicePrice->text().left(kInvoiceItemPriceWidth)};
            showItems(selected);
        }
        txtInvoiceItem->clear();
        txtInvoicePrice->clear();
        break;
    case 2:
        if (!c.dialogs.ask(QStringLiteral("Are you Sure?"), QStringLiteral("Item Deletion")))
            return;
        if (selected >= 0 && selected < m_items.size()) m_items.removeAt(selected);
        showItems(-1);
        txtInvoiceItem->clear();
        txtInvoicePrice->clear();
        break;
    case 3:
        if (!c.dialogs.ask(QStringLiteral("This will clear all Items and Prices"),
                           QStringLiteral("Clear all Existing Invoice Items")))
            return;
        m_items.clear();
        showItems(-1);
        break;
    case 4:
        if (Status s = LoadInvoiceItems(); !s) c.dialogs.message(s.message());
        break;
    case 5:
        fraHelp1->setVisible(!fraHelp1->isVisible());
        break;
    default:
        break;
    }
}
} // namespace tresvane
