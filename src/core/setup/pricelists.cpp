#include "core/setup/pricelists.h"

#include "core/ports/dialogs.h"

namespace tresvane
{
bool AddInvoiceItem(QList<PriceEntry>& list, const QString& name, const QString& price,
                    Dialogs& dialogs)
{
    if (name.isEmpty()) {
        dialogs.message(QStringLiteral("Enter an item and price"));
        return false;
    }
    if (list.size() >= kMaxInvoiceItems) {
        dialogs.message(
            QStringLiteral("You cannot add any more items\nThe Invoice Item List is full"));
        return false;
    }
    list.append({name.left(kInvoiceItemNameWidth), price.left(kInvoiceItemPriceWidth)});
    return true;
}

int MoveInvoiceItem(QList<PriceEntry>& list, int index, int direction)
{
    const int target = index + (direction < 0 ? -1 : 1);
    if (index < 0 || index >= list.size() || target < 0 || target >= list.size()) return index;
    list.swapItemsAt(index, target);
    return target;
}

bool SelectionReachesMaximum(int selected)
{
    return selected == kMaxServiceSelections;
}

int LogoSizeStep(int twips, bool up)
{
    if (up) return twips < 1800 ? twips + 50 : twips;
    const int next = twips - 50;
    return next <= 360 ? 1800 : next;
}
} // namespace tresvane
