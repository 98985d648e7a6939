#include "screens/setup/setupserviceordertab.h"

#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
SetupServiceOrderTab::SetupServiceOrderTab(CoreContext& ctx, QWidget* parent)
    : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabServiceOrder"));
    auto list = [this](const char* name, bool multi) {
        auto* l = new QListWidget(this);
        l->setObjectName(QString::fromLatin1(name));
        if (multi) l->setSelectionMode(QAbstractItemView::MultiSelection);
        return l;
    };
    lstServices = list("lstServices", true);
    lstItems = list("lstItems", true);
    fraSelectedItems = new QGroupBox(QStringLiteral("Selected Services and Items"), this);
    fraSelectedItems->setObjectName(QStringLiteral("fraSelectedItems"));
    lstCurrentServices = new QListWidget(fraSelectedItems);
    lstCurrentServices->setObjectName(QStringLiteral("lstCurrentServices"));
    lstCurrentItems = new QListWidget(fraSelectedItems);
    lstCurrentItems->setObjectName(QStringLiteral("lstCurrentItems"));
    auto* selectedLayout = new QHBoxLayout(fraSelectedItems);
    selectedLayout->addWidget(lstCurrentServices);
    selectedLayout->addWidget(lstCurrentItems);
    fraSelectedItems->setVisible(false);

    static const char* const captions[2] = {"Create", "Rebuild"};
    auto* buttons = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        cmdServiceOrder[i] = new QPushButton(QString::fromLatin1(captions[i]), this);
        cmdServiceOrder[i]->setObjectName(QStringLiteral("cmdServiceOrder_%1").arg(i));
        connect(cmdServiceOrder[i], &QPushButton::clicked, this,
                [this, i] { cmdServiceOrder_Click(i); });
        buttons->addWidget(cmdServiceOrder[i]);
    }
    buttons->addStretch(1);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("Services"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Items"), this), 0, 1);
    grid->addWidget(lstServices, 1, 0);
    grid->addWidget(lstItems, 1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(QStringLiteral("Select a maximum of 8 Services and 8 items"), this));
    layout->addWidget(fraSelectedItems);
    layout->addLayout(grid, 1);
    layout->addLayout(buttons);

    for (QListWidget* l : {lstServices, lstItems})
        connect(l, &QListWidget::itemClicked, this, [this, l] { listClicked(l); });
}

void SetupServiceOrderTab::showCatalogues(const SetupData::ItemCatalogues& catalogues)
{
    m_services = catalogues.services;
    m_items = catalogues.stockItems + catalogues.customItems;
    lstServices->clear();
    for (const PriceEntry& e : m_services)
        lstServices->addItem(e.name);
    lstItems->clear();
    for (const PriceEntry& e : m_items)
        lstItems->addItem(e.name);
    c.v.settings.lstServices.clear();
    for (const PriceEntry& e : m_services)
        c.v.settings.lstServices << e.name;
    lstCurrentServices->clear();
    lstCurrentItems->clear();
    for (const PriceEntry& e : catalogues.currentServices)
        lstCurrentServices->addItem(e.name);
    for (const PriceEntry& e : catalogues.currentItems)
        lstCurrentItems->addItem(e.name);
    fraSelectedItems->setVisible(catalogues.selectionExists);
}

void SetupServiceOrderTab::listClicked(QListWidget* list)
{
    if (SelectionReachesMaximum(int(list->selectedItems().size())))
        c.dialogs.message(QStringLiteral("You have made the maximum allowable Selections"));
}

QList<PriceEntry> SetupServiceOrderTab::selected(QListWidget* list,
                                                 const QList<PriceEntry>& source) const
{
    QList<PriceEntry> out;
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->isSelected() && i < source.size()) out << source[i];
    return out;
}

void SetupServiceOrderTab::cmdServiceOrder_Click(int index)
{
    if (index == 0) {
        const QList<PriceEntry> services = selected(lstServices, m_services);
        const QList<PriceEntry> items = selected(lstItems, m_items);
        if (services.isEmpty() && items.isEmpty()) {
            c.dialogs.message(QStringLiteral("Select Services and Items"));
            return;
        }
        if (Status s = SetupData::WriteCurrentSelection(c, services, items); !s) {
            c.dialogs.message(s.message());
            return;
        }
        lstCurrentServices->clear();
        lstCurrentItems->clear();
        for (const PriceEntry& e : services)
            lstCurrentServices->addItem(e.name);
        for (const PriceEntry& e : items)
            lstCurrentItems->addItem(e.name);
        fraSelectedItems->setVisible(true);
        return;
    }
    if (!c.dialogs.ask(QStringLiteral("Are you sure?"), QStringLiteral("Confirm Deletion"))) return;
    if (Status s = SetupData::DeleteCurrentSelection(c); !s) c.dialogs.message(s.message());
    lstCurrentServices->clear();
    lstCurrentItems->clear();
    fraSelectedItems->setVisible(false);
}
} // namespace tresvane
