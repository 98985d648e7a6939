#include "core/documents/pricecatalogue.h"

#include "core/io/itemrecords.h"
#include "core/io/store.h"
#include "core/io/usforms.h"

namespace tresvane
{
Result<QList<PriceEntry>> LoadOfferedServices(Store& store)
{
    Result<QList<ServiceRecord>> services = ReadServices(store, ServicesFileName());
    if (!services) return services.status();
    QList<PriceEntry> out;
    out.reserve(services->size());
    for (const ServiceRecord& r : *services) {
        // The catalogue keeps its prices as text; one that is not an amount shows as $0.00.
        const qint64 units = ParseCurrency(r.text(ServiceField::ServicePrice)).value_or(0);
        out.append({r.text(ServiceField::ServiceName), FormatCurrency(units)});
    }
    return out;
}

Result<QList<PriceEntry>> LoadOfferedItems(Store& store)
{
    Result<QList<InventoriedItemRecord>> stock =
        ReadInventoriedItems(store, InventoriedItemsFileName());
    if (!stock) return stock.status();
    Result<QList<CustomItemRecord>> custom = ReadCustomItems(store);
    if (!custom) return custom.status();
    QList<PriceEntry> out;
    out.reserve(stock->size() + custom->size());
    for (const InventoriedItemRecord& r : *stock)
        out.append({r.text(InventoriedItemField::StockName),
                    FormatCurrency(r.currency(InventoriedItemField::StockPrice))});
    for (const CustomItemRecord& r : *custom)
        out.append({r.text(CustomItemField::CustomName),
                    FormatCurrency(r.currency(CustomItemField::CustomPrice))});
    return out;
}

std::optional<QString> DocumentPrice(const QString& typed)
{
    const std::optional<qint64> units = ParseCurrency(typed.trimmed());
    if (!units) return std::nullopt;
    return FormatCurrency(*units);
}
} // namespace tresvane
