#pragma once

#include "setup/pricelists.h"
#include "store/corecontext.h"
#include "store/result.h"

#include <QList>
#include <QString>

// The data routines that the start, the setup screen and the exit call but that live in
// other parts of the core: the year folders and the purge of past days, the exit backup,
// and the readers and writers of the price list, print colour and logo files.
//
// Every call to them goes through here, so they are wired in one place when those
// routines land (PrepareYears, PurgeDayFiles, SetBackupPaths/BackupDataFiles and the
// files of the setup screen). Until then each is a stand-in that leaves its default:
// lists empty, print colours as a new installation has them, nothing written.
namespace PendingHooks {

// Year folders of this year (and next year's from day 121). The stand-in sets gYear and
// gDayOfYear, which the rest of the start relies on.
Status PrepareYears(CoreContext& c);
// Day files of past days and meetings of past dates.
Status PurgeDayFiles(CoreContext& c);
// The exit backup: the data files of the inventory copied into Backup.
Status BackupOnExit(CoreContext& c);

// The catalogues and selections of the Service Order invoice and the Repair list.
struct ItemCatalogues {
    bool stockFileExists = false;   // TVInventoriedItems.txt: the Service Order style is open
    QList<PriceEntry> stockItems;   // TVInventoriedItems.txt
    QList<PriceEntry> customItems;  // CustomItems.txt
    QList<PriceEntry> services;     // Services.txt
    bool selectionExists = false;   // CurrentServices.txt / CurrentItems.txt
    QList<PriceEntry> currentServices;
    QList<PriceEntry> currentItems;
};
Status LoadItemCatalogues(CoreContext& c, ItemCatalogues& out);
Status LoadInvoiceItems(CoreContext& c, QList<PriceEntry>& out);
Status SaveInvoiceItems(CoreContext& c, const QList<PriceEntry>& items);
Status WriteCurrentSelection(CoreContext& c, const QList<PriceEntry>& services,
                             const QList<PriceEntry>& items);
Status DeleteCurrentSelection(CoreContext& c);

// PrintColors.txt: two colours (RGB as the old platform stores them), the font, colour
// printing and the number of copies.
struct PrintColorSettings {
    qint32 border = 0;
    qint32 text = 0;
    QString font = QStringLiteral("Arial");
    bool printColor = true;
    quint8 copies = 3;
};
Status LoadPrintColors(CoreContext& c, PrintColorSettings& out);
Status SavePrintColors(CoreContext& c, const PrintColorSettings& settings);

// CompanyLogo.txt (the picture's path; empty when none) and LogoSettings.txt (its printed
// width and height in twips).
Status LoadCompanyLogo(CoreContext& c, QString& path);
Status SaveCompanyLogo(CoreContext& c, const QString& path);
Status ClearCompanyLogo(CoreContext& c);
Status LoadLogoSettings(CoreContext& c, int& width, int& height);
Status SaveLogoSettings(CoreContext& c, int width, int height);

} // namespace PendingHooks
