#include "pendinghooks.h"

#include "store/clock.h"
#include "store/dispatchingvariables.h"

namespace PendingHooks {

Status PrepareYears(CoreContext& c)
{
    const QDate today = c.clock.today();
    c.v.gYear = QString::number(today.year());
    c.v.gDayOfYear = qint16(today.dayOfYear());
    return {};
}

Status PurgeDayFiles(CoreContext& c)
{
    c.v.gDayOfYear = qint16(c.clock.today().dayOfYear());
    return {};
}

Status BackupOnExit(CoreContext&) { return {}; }

Status LoadItemCatalogues(CoreContext&, ItemCatalogues& out)
{
    out = {};
    return {};
}

Status LoadInvoiceItems(CoreContext&, QList<PriceEntry>& out)
{
    out.clear();
    return {};
}

Status SaveInvoiceItems(CoreContext&, const QList<PriceEntry>&) { return {}; }

Status WriteCurrentSelection(CoreContext&, const QList<PriceEntry>&, const QList<PriceEntry>&)
{
    return {};
}

Status DeleteCurrentSelection(CoreContext&) { return {}; }

Status LoadPrintColors(CoreContext&, PrintColorSettings& out)
{
    out = {};
    return {};
}

Status SavePrintColors(CoreContext&, const PrintColorSettings&) { return {}; }

Status LoadCompanyLogo(CoreContext&, QString& path)
{
    path.clear();
    return {};
}

Status SaveCompanyLogo(CoreContext&, const QString&) { return {}; }
Status ClearCompanyLogo(CoreContext&) { return {}; }

Status LoadLogoSettings(CoreContext&, int& width, int& height)
{
    width = kDefaultLogoTwips;
    height = kDefaultLogoTwips;
    return {};
}

Status SaveLogoSettings(CoreContext&, int, int) { return {}; }

} // namespace PendingHooks
