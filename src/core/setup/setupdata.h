#pragma once

#include "core/io/result.h"
#include "core/setup/pricelists.h"
#include "core/setup/printsettings.h"
#include "core/state/corecontext.h"

#include <QList>
#include <QString>

namespace tresvane
{
// The setup screen's lists as it shows them (a name and a price text each), read from and
// written to the record files of the invoice items, the service catalogue and the stock.
namespace SetupData
{

// The catalogues and selections of the Service Order invoice and the Repair list.
struct ItemCatalogues {
    bool stockFileExists = false;  // TVInventoriedItems.txt: the Service Order style is open
    QList<PriceEntry> stockItems;  // TVInventoriedItems.txt
    QList<PriceEntry> customItems; // CustomItems.txt
    QList<PriceEntry> services;    // Services.txt
    bool selectionExists = false;  // CurrentServices.txt / CurrentItems.txt
    QList<PriceEntry> currentServices;
    QList<PriceEntry> currentItems;
};
// Also fills settings.lstServices, the services a day slot may hold and still be free.
Status LoadItemCatalogues(CoreContext& c, ItemCatalogues& out);
Status LoadInvoiceItems(CoreContext& c, QList<PriceEntry>& out);
Status SaveInvoiceItems(CoreContext& c, const QList<PriceEntry>& items);
Status WriteCurrentSelection(CoreContext& c, const QList<PriceEntry>& services,
                             const QList<PriceEntry>& items);
Status DeleteCurrentSelection(CoreContext& c);

// Print colours also set gBorderColor, gPrintColor and gCopies.
Status LoadPrintColors(CoreContext& c, PrintColors& out);
Status SavePrintColors(CoreContext& c, const PrintColors& colors);

Status LoadCompanyLogo(CoreContext& c, QString& path);
Status SaveCompanyLogo(CoreContext& c, const QString& path);
Status ClearCompanyLogo(CoreContext& c);
Status LoadLogoSettings(CoreContext& c, int& width, int& height);
Status SaveLogoSettings(CoreContext& c, int width, int height);

} // namespace SetupData
} // namespace tresvane
