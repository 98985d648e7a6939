#include "core/setup/printsettings.h"

#include "core/io/store.h"
#include "core/io/textfile.h"

#include <cmath>

namespace tresvane
{
namespace
{

// The reader of a text file, or nothing when the file is missing.
Result<std::optional<TextReader>> openText(Store& store, const QString& name)
{
    if (!store.FileExists(name)) return std::optional<TextReader>();
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    return std::optional<TextReader>(TextReader(*bytes, store.describe(name)));
}

// A size stored as a number and read back as text, as the picture's size takes it.
Result<int> readSize(TextReader& r)
{
    Result<QString> text = r.readString();
    if (!text) return text.status();
    const double value = NumericValue(*text);
    if (!IsNumeric(*text) || std::fabs(value) > 1e9)
        return Status::failure(QStringLiteral("The file %1 is damaged: \"%2\" is not a size.")
                                   .arg(r.fileName(), text->left(40)));
    return int(std::lround(value));
}

} // namespace

QString PrintColorsFileName()
{
    return QStringLiteral("/PrintColors.txt");
}
QString CompanyLogoFileName()
{
    return QStringLiteral("/CompanyLogo.txt");
}
QString LogoSettingsFileName()
{
    return QStringLiteral("/LogoSettings.txt");
}

Result<PrintColors> ReadPrintColors(Store& store)
{
    Result<std::optional<TextReader>> opened = openText(store, PrintColorsFileName());
    if (!opened) return opened.status();
    PrintColors colors;
    if (!opened->has_value()) return colors;
    TextReader& r = **opened;
    Result<qint32> border = r.readInt32();
    if (!border) return border.status();
    Result<qint32> text = r.readInt32();
    if (!text) return text.status();
    Result<QString> font = r.readString();
    if (!font) return font.status();
    Result<bool> color = r.readBool();
    if (!color) return color.status();
    Result<quint8> copies = r.readByte();
    if (!copies) return copies.status();
    colors.borderColor = *border;
    colors.textColor = *text;
    colors.fontName = *font;
    colors.printColor = *color;
    colors.copies = *copies;
    return colors;
}

Status WritePrintColors(Store& store, const PrintColors& colors)
{
    TextWriter w;
    w.line(qint64(colors.borderColor))
        .line(qint64(colors.textColor))
        .line(colors.fontName)
        .line(colors.printColor)
        .line(colors.copies);
    return store.RewriteTextFile(PrintColorsFileName(), w.bytes());
}

Result<QString> ReadCompanyLogo(Store& store)
{
    Result<std::optional<TextReader>> opened = openText(store, CompanyLogoFileName());
    if (!opened) return opened.status();
    if (!opened->has_value()) return QString();
    return (*opened)->readString();
}

QString ResolveLogoPath(const Store& store, const QString& stored)
{
    if (stored.isEmpty()) return stored;
    const bool drive = stored.size() >= 2 && stored[1] == u':' && stored[0].isLetter();
    if (drive || stored.startsWith(u'/') || stored.startsWith(u'\\')) return stored;
    QString relative = stored;
    relative.replace(u'\\', u'/');
    // "." steps are dropped; the store takes any other component as a name in the folder.
    QStringList parts = relative.split(u'/', Qt::SkipEmptyParts);
    parts.removeAll(QStringLiteral("."));
    return store.path(u'/' + parts.join(u'/'));
}

Status WriteCompanyLogo(Store& store, const QString& path)
{
    TextWriter w;
    w.line(path);
    return store.RewriteTextFile(CompanyLogoFileName(), w.bytes());
}

Status ClearCompanyLogo(Store& store)
{
    return store.KillWithBackup(CompanyLogoFileName());
}

Result<LogoSize> ReadLogoSize(Store& store)
{
    Result<std::optional<TextReader>> opened = openText(store, LogoSettingsFileName());
    if (!opened) return opened.status();
    LogoSize size;
    if (!opened->has_value()) return size;
    TextReader& r = **opened;
    Result<int> width = readSize(r);
    if (!width) return width.status();
    Result<int> height = readSize(r);
    if (!height) return height.status();
    size.width = *width;
    size.height = *height;
    return size;
}

Status WriteLogoSize(Store& store, const LogoSize& size)
{
    TextWriter w;
    w.line(size.width, size.height);
    return store.RewriteTextFile(LogoSettingsFileName(), w.bytes());
}
} // namespace tresvane
