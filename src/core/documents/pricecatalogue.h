#pragma once

#include "core/io/result.h"
#include "core/setup/pricelists.h"

#include <QList>
#include <QString>
#include <optional>

namespace tresvane
{
class Store;

// The services and items a work order or a contract may name, read from the catalogues
// of the setup: the services of Services.txt; the stock of TVInventoriedItems.txt followed
// by the user's own items of CustomItems.txt. A catalogue that does not exist leaves its
// part out. Prices are shown in the dollar form.
Result<QList<PriceEntry>> LoadOfferedServices(Store& store);
Result<QList<PriceEntry>> LoadOfferedItems(Store& store);

// A price as a document shows it, "$1,234.50", from a preset or a typed one; no value for
// a text that is not an amount (an empty box among them).
std::optional<QString> DocumentPrice(const QString& typed);
} // namespace tresvane
