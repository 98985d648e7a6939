#pragma once

#include "core/io/result.h"

#include <QString>

namespace tresvane
{
class Store;
struct PrintJob;

// The company logo as documents print it: a picture file and the size it prints at.
struct PrintLogo {
    QString file;        // absolute path; empty when there is no logo to print
    double width = 1440; // twips
    double height = 1440;
    bool isEmpty() const { return file.isEmpty(); }
};

// Where the stored logo's file is on this machine: the path as stored (a relative one in
// the program folder) when the file is there; else a file of the same name in the program
// folder, since an installation moved from another computer keeps that computer's paths
// ("C:\Office\logo.bmp"); else nowhere (empty).
QString LocateLogoFile(const Store& store, const QString& stored);

// The logo of CompanyLogo.txt at the size of LogoSettings.txt. Empty, without a word, when
// none is stored or its file cannot be found.
Result<PrintLogo> ReadPrintLogo(Store& store);

// The setup's sample page, to judge the logo's size: "Logo Test" and the logo under it at
// its size, one portrait page. A logo that cannot be read prints the text alone.
void PrintLogoSample(PrintJob& job, const PrintLogo& logo);
} // namespace tresvane
