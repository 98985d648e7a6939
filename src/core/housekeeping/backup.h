#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QStringList>

namespace tresvane
{
// The copies in Backup, made at every orderly exit, from which FileExists brings a lost
// file back. Only the files of the inventory are copied; day files, CycleInfo.txt,
// Phone.txt, CallID.txt, ProjectRecords.txt and the AuxFiles and Templates folders are not.

// The 28 names of the inventory, in order, without ".txt". Entry 4 is the settings file and
// carries its own leading separator, which doubles the separator in its path (harmless);
// it is named after the program's base name.
QStringList DataFileInventory(const QString& baseName);

// DayFilePath := "/", gBackupPath := "/Backup/", then BackupDataFiles.
Status SetBackupPaths(CoreContext& c);

// For each file of the inventory that exists at DayFilePath + name, replaces its copy at
// gBackupPath + name. A file missing from the folder leaves its old copy standing, and so
// does a file that fails the data file rules: the user is told which and why. Before the
// first copy of a day, the copies as they stood are kept in a folder named after the day
// below gBackupPath; such folders older than kBackupGenerationDays are removed.
Status BackupDataFiles(CoreContext& c);

inline constexpr int kBackupGenerationDays = 7;
// "/Backup/yyyy-MM-dd": where the copies as they stood before the day's first exit go.
QString BackupGenerationFolder(const QDate& day);

// At start: each file of the inventory that is empty while its copy in Backup holds good
// data is shown to the user, who may have it restored from that copy.
Status OfferRestoreOfEmptyFiles(CoreContext& c);
} // namespace tresvane
