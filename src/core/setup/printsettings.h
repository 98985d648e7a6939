#pragma once

#include "core/io/result.h"

#include <QString>

namespace tresvane
{
class Store;

// What every printed document shares: the two colours, the font, colour or black print,
// the number of copies, and the company logo with its printed size. Each is a small text
// file in the comma-and-quote form; a missing file gives the defaults below.

// PrintColors.txt: five fields, one to a line.
struct PrintColors {
    qint32 borderColor = 0; // "Border / Frame Color", also gBorderColor
    qint32 textColor = 0;   // "Text Color"
    QString fontName = QStringLiteral("Arial");
    bool printColor = true; // gPrintColor
    quint8 copies = 3;      // gCopies

    bool operator==(const PrintColors&) const = default;
};

// CompanyLogo.txt: one string, the path of the picture.
// LogoSettings.txt: the two size values of the adjusted logo on one line, in twips,
// written as numbers. The first is the width, the second the height.
struct LogoSize {
    int width = 1440;
    int height = 1440;

    bool operator==(const LogoSize&) const = default;
};

QString PrintColorsFileName();  // "/PrintColors.txt"
QString CompanyLogoFileName();  // "/CompanyLogo.txt"
QString LogoSettingsFileName(); // "/LogoSettings.txt"

Result<PrintColors> ReadPrintColors(Store& store);
// Rewrites the file (its copy in Backup goes first).
Status WritePrintColors(Store& store, const PrintColors& colors);

// The stored path; empty when no logo is stored.
Result<QString> ReadCompanyLogo(Store& store);
Status WriteCompanyLogo(Store& store, const QString& path);
// The picture a stored path names. A relative path ("Logo.bmp", "Pictures\Logo.bmp") is
// taken inside the program folder, wherever the program was started from; an absolute one
// (a drive, a share, a root) is left as it is.
QString ResolveLogoPath(const Store& store, const QString& stored);
// Forgets the logo: the file and its copy in Backup go.
Status ClearCompanyLogo(Store& store);

Result<LogoSize> ReadLogoSize(Store& store);
Status WriteLogoSize(Store& store, const LogoSize& size);
} // namespace tresvane
