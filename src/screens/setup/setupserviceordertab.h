#pragma once

#include "core/setup/setupdata.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QGroupBox;
class QListWidget;
class QPushButton;

namespace tresvane
{
// Tab 7 of the setup screen: the services and items a Service Order invoice pre-prints,
// at most 8 of each, chosen from the catalogues of the sibling programs and the custom
// items.
class SetupServiceOrderTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupServiceOrderTab(CoreContext& ctx, QWidget* parent = nullptr);

    QListWidget* lstServices;
    QListWidget* lstItems;
    QGroupBox* fraSelectedItems;
    QListWidget* lstCurrentServices;
    QListWidget* lstCurrentItems;
    std::array<QPushButton*, 2> cmdServiceOrder;

    void showCatalogues(const SetupData::ItemCatalogues& catalogues);
    void listClicked(QListWidget* list);
    void cmdServiceOrder_Click(int index);

private:
    QList<PriceEntry> selected(QListWidget* list, const QList<PriceEntry>& source) const;
    CoreContext& c;
    QList<PriceEntry> m_services;
    QList<PriceEntry> m_items;
};
} // namespace tresvane
