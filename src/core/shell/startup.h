#pragma once

#include "store/corecontext.h"
#include "store/result.h"

#include <QStringList>

// The start of the program as far as it concerns the data folder: the folder tree, the
// repair of the customers' aux folders, and the gate of the four required files.

// The current year's folder, the program's own folder, TVActiveAccounts, Backup and its two
// shared folders, Templates and AuxFiles; then the aux and the extra folders.
Status BuildFolders(CoreContext& c);
// Makes good AuxFiles/<account> and its AuxFile0 to AuxFile5 for every customer of
// CustomerData.txt. Folders that stand are left alone; the listing of AuxFiles is read
// once, so a start with tens of thousands of customers stays quick.
Status BuildAuxFolders(CoreContext& c);
// Backup/<executable base name> and Templates/Contracts.
Status BuildExtraFolders(CoreContext& c);

// Today's date and the hour labels, then the business data.
Status InitStartupData(CoreContext& c);

// The files without which the main menu cannot be reached, in the order they are tested.
QStringList RequiredFiles();
// Each is tested with FileExists, so a file lost from the folder comes back from Backup.
bool AllRequiredFilesExist(CoreContext& c);

// Writes Temp.url, the internet shortcut a browser is started on, and returns its path.
Result<QString> WriteInternetShortcut(Store& store, const QString& url);
