// The catalogues and selections of goods and services the invoices pre-print, as the setup
// screen loads them, a save of what was loaded, and the services' hours that lay contract
// events over the booking grid.
#include "fuzzfolder.h"

#include "core/io/itemrecords.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfiles.h"
#include "core/setup/setupdata.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

const QString kFiles[] = {InvoiceItemsFileName(),    ServicesFileName(),
                          CurrentServicesFileName(), InventoriedItemsFileName(),
                          CurrentItemsFileName(),    CustomItemsFileName()};

// Amounts of a sane size: a price past them is damage the screen cannot show back.
bool plainAmounts(const QList<PriceEntry>& entries)
{
    for (const PriceEntry& e : entries)
        if (e.price.size() > 20) return false;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    CoreContext& c = f.context();
    const QString name = kFiles[in.choice(std::size(kFiles))];
    f.put(name, in.rest());

    SetupData::ItemCatalogues catalogues;
    const Status loaded = SetupData::LoadItemCatalogues(c, catalogues);
    requireNamed(loaded, name);
    QList<PriceEntry> invoice;
    const Status invoiceLoaded = SetupData::LoadInvoiceItems(c, invoice);
    requireNamed(invoiceLoaded, name);

    // Saved as loaded, the lists load again as they were.
    if (invoiceLoaded) {
        require(SetupData::SaveInvoiceItems(c, invoice).ok(), "invoice items cannot be saved");
        QList<PriceEntry> again;
        require(SetupData::LoadInvoiceItems(c, again).ok(), "saved invoice items unreadable");
        require(again == invoice, "invoice items change through a save");
    }
    if (loaded && plainAmounts(catalogues.currentItems)) {
        require(
            SetupData::WriteCurrentSelection(c, catalogues.currentServices, catalogues.currentItems)
                .ok(),
            "the selection cannot be saved");
        SetupData::ItemCatalogues again;
        require(SetupData::LoadItemCatalogues(c, again).ok(), "a saved selection unreadable");
        require(again.currentServices == catalogues.currentServices,
                "services change through a save");
        require(again.currentItems == catalogues.currentItems, "items change through a save");
    }

    // Each service's hours as a contract event lays them over the grid.
    if (name == ServicesFileName()) {
        const QByteArray services = f.store().ReadAll(name).valueOr({});
        GridColumn grid;
        grid.fill(NoEventScheduled());
        for (const PriceEntry& e : catalogues.services.mid(0, 8)) {
            ContractOverlay overlay{grid, {}};
            OverlayContractHours(services, e.name, 3, e.name, overlay);
        }
    }
    f.requireNothingOutside();
    return 0;
}
