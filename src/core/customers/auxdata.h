#pragma once

#include "core/io/result.h"

#include <QString>
#include <array>
#include <optional>

namespace tresvane
{
class Store;

// Six free texts per account under six headings shared by all accounts.
//
// AuxHeadings.txt holds the six headings, one plain line each.
// AuxFiles/<account>/AuxFile<n>/Data.txt, n from 0 to 5, holds the text of box n as it
// stands, followed by a line end. The text is read back value by value, as the
// comma-and-quote reader splits it, each value followed by a line end: a comma in a
// text therefore comes back as a line break.
//
// Line ends in these texts are CR LF, as the files hold them.

using AuxTexts = std::array<QString, 6>;

QString AuxHeadingsFileName(); // "/AuxHeadings.txt"

constexpr int kAuxFolderCount = 6;

// The folder name an account number stands for below AuxFiles: the trimmed number, with
// separators and characters no folder name may hold written as %XX, so that no account
// number, "..", "a/b" or "C:x" among them, can lead outside its own folder, and no two
// account numbers share one. The start-up repair and the aux panel both name folders
// by it.
QString AuxAccountFolder(const QString& account);
// Makes AuxFiles/<account> and its AuxFile0 to AuxFile5 where they are missing.
Status EnsureAuxFolders(Store& store, const QString& account);
// "/AuxFiles/<account folder>/AuxFile<n>/Data.txt"
QString AuxDataFileName(const QString& account, int n);

// The six headings; no value when the file is missing (the boxes keep what they hold).
// A file of fewer than six lines is reported as damaged.
Result<std::optional<AuxTexts>> ReadAuxHeadings(Store& store);
Status WriteAuxHeadings(Store& store, const AuxTexts& headings);

// The six texts of an account; a box without a file is empty.
Result<AuxTexts> ReadAuxData(Store& store, const QString& account);
// Writes all six files of the account, an empty box too, making the account's folders
// when they are missing. A lone LF in a text is stored as CR LF.
Status WriteAuxData(Store& store, const QString& account, const AuxTexts& texts);
} // namespace tresvane
