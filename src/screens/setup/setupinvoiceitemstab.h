#pragma once

#include "core/io/result.h"
#include "core/setup/pricelists.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QFrame;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tresvane
{
class UpDown;

// Tab 5 of the setup screen: the list of items with prices that the Repair invoice
// pre-prints (13 slots). The list goes to disk only at the exit of the form.
class SetupInvoiceItemsTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupInvoiceItemsTab(CoreContext& ctx, QWidget* parent = nullptr);

    QLineEdit* txtInvoiceItem;
    QLineEdit* txtInvoicePrice;
    QListWidget* lstInvoiceItems;
    QListWidget* lstInvoiceItemsCost;
    QListWidget* lstRItems; // the stock items, "Click to Add to Item List"
    UpDown* UpDown1;
    std::array<QPushButton*, 6> cmdRInvoice;
    QFrame* fraHelp1;

    const QList<PriceEntry>& items() const { return m_items; }
    void setItems(const QList<PriceEntry>& items);
    void setStockItems(const QList<PriceEntry>& stock);
    // Step 4 of the load: the list from InvoiceItems.txt.
    Status LoadInvoiceItems();

    void cmdRInvoice_Click(int index);
    void selectEntry(int index);
    void lstRItems_Click(int index);
    void moveSelected(int direction);

private:
    void showItems(int selected);
    CoreContext& c;
    QList<PriceEntry> m_items;
    QList<PriceEntry> m_stock;
};
} // namespace tresvane
