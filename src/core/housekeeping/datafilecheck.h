#pragma once

#include "core/io/result.h"

#include <QString>

namespace tresvane
{
class Store;

// The rules a data file must meet before it is trusted: record files hold whole records,
// the text files read through the program's own loaders, the counters parse. The checker
// of a folder and the exit backup share them, so a file the checker calls damaged is never
// copied over a good copy in Backup.

// Checks the file at name (program-relative, "/Slips.txt") in the folder the store
// stands on, without writing to it. A file that is not there passes; a folder standing
// where the file belongs does not. A file the rules do not know passes when it can be read.
[[nodiscard]] Status CheckDataFile(const Store& store, const QString& name);

// The record length of a record file the rules know, 0 for any other file.
int DataFileRecordLength(const QString& name);
} // namespace tresvane
