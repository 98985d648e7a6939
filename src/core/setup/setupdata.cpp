#include "core/setup/setupdata.h"

#include "core/io/itemrecords.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
namespace SetupData
{

namespace
{

// Stock and custom prices are currency; the screen shows them in the dollar form.
template <typename R>
QList<PriceEntry> entries(const QList<R>& records, int nameField, int priceField, bool currency)
{
    QList<PriceEntry> out;
    out.reserve(records.size());
    for (const R& r : records)
        out.append({r.text(nameField),
                    currency ? FormatCurrency(r.currency(priceField)) : r.text(priceField)});
    return out;
}

qint64 unitsOf(const QString& price)
{
    return ParseCurrency(price).value_or(0);
}

} // namespace

Status LoadItemCatalogues(CoreContext& c, ItemCatalogues& out)
{
    out = {};
    Store& store = c.store;
    out.stockFileExists = store.FileExists(InventoriedItemsFileName());
    Result<QList<InventoriedItemRecord>> stock =
        ReadInventoriedItems(store, InventoriedItemsFileName());
    if (!stock) return stock.status();
    out.stockItems =
        entries(*stock, InventoriedItemField::StockName, InventoriedItemField::StockPrice, true);
    Result<QList<CustomItemRecord>> custom = ReadCustomItems(store);
    if (!custom) return custom.status();
    out.customItems =
        entries(*custom, CustomItemField::CustomName, CustomItemField::CustomPrice, true);
    Result<QList<ServiceRecord>> services = ReadServices(store, ServicesFileName());
    if (!services) return services.status();
    out.services = entries(*services, ServiceField::ServiceName, ServiceField::ServicePrice, false);
    c.v.settings.lstServices.clear();
    for (const PriceEntry& e : out.services)
        c.v.settings.lstServices << e.name;

    out.selectionExists =
        store.FileExists(CurrentServicesFileName()) || store.FileExists(CurrentItemsFileName());
    Result<QList<ServiceRecord>> current = ReadServices(store, CurrentServicesFileName());
    if (!current) return current.status();
    out.currentServices =
        entries(*current, ServiceField::ServiceName, ServiceField::ServicePrice, false);
    Result<QList<InventoriedItemRecord>> items =
        ReadInventoriedItems(store, CurrentItemsFileName());
    if (!items) return items.status();
    out.currentItems =
        entries(*items, InventoriedItemField::StockName, InventoriedItemField::StockPrice, true);
    return {};
}

Status LoadInvoiceItems(CoreContext& c, QList<PriceEntry>& out)
{
    Result<QList<InvoiceItemRecord>> items = ReadInvoiceItems(c.store);
    if (!items) return items.status();
    out = entries(*items, InvoiceItemField::ItemName, InvoiceItemField::ItemPrice, false);
    return {};
}

Status SaveInvoiceItems(CoreContext& c, const QList<PriceEntry>& items)
{
    QList<InvoiceItemRecord> records;
    for (const PriceEntry& e : items) {
        InvoiceItemRecord r;
        r.setText(InvoiceItemField::ItemName, e.name);
        r.setText(InvoiceItemField::ItemPrice, e.price);
        records << r;
    }
    return WriteInvoiceItems(c.store, records);
}

Status WriteCurrentSelection(CoreContext& c, const QList<PriceEntry>& services,
                             const QList<PriceEntry>& items)
{
    QList<ServiceRecord> serviceRecords;
    for (const PriceEntry& e : services) {
        ServiceRecord r;
        r.setText(ServiceField::ServiceName, e.name);
        r.setText(ServiceField::ServicePrice, e.price);
        serviceRecords << r;
    }
    if (Status s = WriteServices(c.store, CurrentServicesFileName(), serviceRecords); !s) return s;
    QList<InventoriedItemRecord> itemRecords;
    for (const PriceEntry& e : items) {
        InventoriedItemRecord r;
        r.setText(InventoriedItemField::StockName, e.name);
        r.setCurrency(InventoriedItemField::StockPrice, unitsOf(e.price));
        itemRecords << r;
    }
    return WriteCurrentItems(c.store, itemRecords);
}

Status DeleteCurrentSelection(CoreContext& c)
{
    if (Status s = c.store.KillWithBackup(CurrentServicesFileName()); !s) return s;
    return c.store.KillWithBackup(CurrentItemsFileName());
}

Status LoadPrintColors(CoreContext& c, PrintColors& out)
{
    Result<PrintColors> colors = ReadPrintColors(c.store);
    if (!colors) return colors.status();
    out = *colors;
    c.v.gBorderColor = out.borderColor;
    c.v.gPrintColor = out.printColor;
    c.v.gCopies = out.copies;
    return {};
}

Status SavePrintColors(CoreContext& c, const PrintColors& colors)
{
    c.v.gBorderColor = colors.borderColor;
    c.v.gPrintColor = colors.printColor;
    c.v.gCopies = colors.copies;
    return WritePrintColors(c.store, colors);
}

Status LoadCompanyLogo(CoreContext& c, QString& path)
{
    Result<QString> logo = ReadCompanyLogo(c.store);
    if (!logo) return logo.status();
    path = ResolveLogoPath(c.store, *logo);
    return {};
}

Status SaveCompanyLogo(CoreContext& c, const QString& path)
{
    return WriteCompanyLogo(c.store, path);
}
Status ClearCompanyLogo(CoreContext& c)
{
    return tresvane::ClearCompanyLogo(c.store);
}

Status LoadLogoSettings(CoreContext& c, int& width, int& height)
{
    Result<LogoSize> size = ReadLogoSize(c.store);
    if (!size) return size.status();
    width = size->width;
    height = size->height;
    return {};
}

Status SaveLogoSettings(CoreContext& c, int width, int height)
{
    return WriteLogoSize(c.store, LogoSize{width, height});
}

} // namespace SetupData
} // namespace tresvane
