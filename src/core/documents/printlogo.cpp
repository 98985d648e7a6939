#include "core/documents/printlogo.h"

#include "core/documents/printframe.h"
#include "core/io/store.h"
#include "core/setup/printsettings.h"

#include <QFileInfo>
#include <QRectF>

namespace tresvane
{
QString LocateLogoFile(const Store& store, const QString& stored)
{
    const QString trimmed = stored.trimmed();
    if (trimmed.isEmpty()) return {};
    const QString asStored = ResolveLogoPath(store, trimmed);
    if (QFileInfo(asStored).isFile()) return asStored;
    QString name = trimmed;
    name.replace(u'\\', u'/');
    name = name.section(u'/', -1);
    if (name.isEmpty()) return {};
    const QString beside = store.path(u'/' + Store::safeComponent(name));
    return QFileInfo(beside).isFile() ? beside : QString();
}

Result<PrintLogo> ReadPrintLogo(Store& store)
{
    Result<QString> stored = ReadCompanyLogo(store);
    if (!stored) return stored.status();
    PrintLogo logo;
    logo.file = LocateLogoFile(store, *stored);
    if (logo.file.isEmpty()) return logo;
    Result<LogoSize> size = ReadLogoSize(store);
    if (!size) return size.status();
    logo.width = size->width;
    logo.height = size->height;
    return logo;
}

void PrintLogoSample(PrintJob& job, const PrintLogo& logo)
{
    PrintSurface& p = job.printer;
    SetupPrinter(job, QStringLiteral("Portrait"), job.settings.color, 14, kFontOn, kFontOff);
    PrintColor(job, kDataRole);
    SetPrintPos(p, 1, 1);
    p.print(QStringLiteral("Logo Test"));
    if (!logo.isEmpty() && logo.width > 0 && logo.height > 0)
        p.picture(logo.file, QRectF(1 * 1440, 1.5 * 1440, logo.width, logo.height));
    p.endDoc();
}
} // namespace tresvane
