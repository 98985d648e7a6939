#pragma once

#include <QList>
#include <QString>

namespace tresvane
{
class Dialogs;

// The in-memory rules of the price lists on the setup screen: the Repair invoice's list of
// pre-printed items, the Service Order selection and the logo's printed size.

// One entry of a price list: the name and the price as it is shown.
struct PriceEntry {
    QString name;
    QString price;
    bool operator==(const PriceEntry&) const = default;
};

// The Repair invoice form has 13 slots; the note on the screen says 12, the list takes 13.
constexpr int kMaxInvoiceItems = 13;
// At most 8 services and 8 items go on a Service Order.
constexpr int kMaxServiceSelections = 8;

// Names are cut to the width of their record field.
constexpr int kInvoiceItemNameWidth = 30;
constexpr int kInvoiceItemPriceWidth = 12;

// The Add button: refuses an empty name and a full list with their messages. True when
// the entry was appended.
bool AddInvoiceItem(QList<PriceEntry>& list, const QString& name, const QString& price,
                    Dialogs& dialogs);
// Moves the entry at index one place up (-1) or down (+1); returns its new index, the
// same index when it cannot move.
int MoveInvoiceItem(QList<PriceEntry>& list, int index, int direction);

// Whether a click that leaves `selected` entries selected warns the user: the warning
// comes at the click that reaches the maximum, and a further click is not stopped.
bool SelectionReachesMaximum(int selected);

// The logo's printed width or height in twips after one step of its spin button.
// Up adds 50 while below 1800; down subtracts 50 and at 360 or below jumps to 1800.
int LogoSizeStep(int twips, bool up);
constexpr int kDefaultLogoTwips = 1440;
} // namespace tresvane
