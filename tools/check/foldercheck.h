#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

namespace tresvane
{
// Reads every data file of an installation with the program's own readers, and never
// writes to the folder. Office staff run it before moving an installation; support runs
// it on a folder sent in.
struct FolderCheck {
    // "<file>: <what is wrong>", one a damaged file.
    QStringList problems;
    // Files that read well but disagree with each other: duplicate confirmation numbers,
    // booked hours no record owns, records whose hours are free on their day.
    QStringList warnings;
    int customers = 0, slips = 0, meetings = 0, storedSlips = 0, completedSlips = 0;
    int calls = 0, teams = 0, dayFiles = 0;

    bool ok() const { return problems.isEmpty(); }
    QString summary() const;
};

// Checks the folder; with json set, also renders every file as one JSON object whose keys
// are the file names (records as objects keyed by field names; day files under "days").
// The bookings are cross-checked from today (the system's date when not given) on.
FolderCheck CheckFolder(const QString& folder, QByteArray* json = nullptr, QDate today = {});
} // namespace tresvane
