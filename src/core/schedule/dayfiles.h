#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QString>
#include <array>

namespace tresvane
{
class Dialogs;
class Store;
struct DispatchingVariables;

// Team day files: /<year>/Team#<n>/<day of year>.txt, twelve lines, one for each hourly
// slot (06:00am to 11:00am, then 01:00pm to 06:00pm). A line holds the text of the event
// on that hour or "No Event Scheduled". The Scheduling Screen writes lines in quotes; the
// recurring and blocking forms write them bare. Both are read as one text field a line, so
// a bare line holding a comma yields two fields and pushes the later slots one place on:
// installations have files like that, and they read the same here as they always did.
//
// DaySlots[1..12] is the day in memory (the blocking form uses [0..11]); DayFilePath is
// the program-relative path of the day last addressed, CurrentJulian its day of the year.

// The text of a free hour.
QString NoEventScheduled(); // "No Event Scheduled"

// Column 1 of the time grid, rows 1 to 12, as the screen shows it.
using GridColumn = std::array<QString, 12>;

// Sets CurrentJulian and DayFilePath for the team's day, making the team's folder (and the
// year's, should it be missing) so that the day can be written.
Status BuildDayFilePath(CoreContext& c, const QDate& date, const QString& team);

// Every slot free: DaySlots[1..12] := "No Event Scheduled". The screen shows the same.
void ClearDaySlots(DispatchingVariables& v);

// ClearDaySlots, BuildDayFilePath, then ReadDayToGrid when the file exists. A day without
// a file is all free.
Status LoadDay(CoreContext& c, const QDate& date, const QString& team);

// Reads DayFilePath into DaySlots[1..12], one field a slot, as long as the file lasts; a
// short file leaves the later slots as they were. Returns the number of slots read.
Result<int> ReadDayToGrid(CoreContext& c);

// Reads twelve fields of DayFilePath into DaySlots[0..11]. A file that ends early is
// reported and DaySlots is left unchanged.
Status ReadDayToSlots(CoreContext& c);

// Writes texts[1..12] as twelve quoted lines to dayFile, replacing it. A slot whose text
// holds "Contract Event" (any case) is written free, and freed in texts too: contract
// events live on the grid only.
Status WriteDaySlots(Store& store, const QString& dayFile, std::array<QString, 13>& texts);

// WriteDaySlots of DaySlots to the team's day file, found by BuildDayFilePath.
Status WriteDayFile(CoreContext& c, const QDate& date, const QString& team);

// Writes twelve lines as they stand, unquoted, replacing the file at dayFile; a text that
// holds a comma or a double quote is written in quotes instead, since a bare comma would
// split the line into two slots on reading and push every later slot one place on.
Status WriteBareDayFile(Store& store, const QString& dayFile, const std::array<QString, 12>& lines);

// Brings DaySlots[1..12] up to date from the grid: each slot takes its row's text,
// trimmed; a text equal to the name of a service (settings.lstServices, both trimmed,
// case counting) is a free hour.
void WriteSlots(DispatchingVariables& v, const GridColumn& grid);

// Whether rows startRow to startRow + hours - 1 of the grid are all free. A row is free when
// its text contains "No Event" (case counting). At the first row that is not, the user is
// told "Event already Scheduled Here" and the answer is false. A row outside 1 to 12 is
// never free.
bool CheckforSlots(const GridColumn& grid, quint8 startRow, quint8 hours, Dialogs& dialogs);

// Year folders. PrepareYearFolders makes /<year> with one Team#<n> for each assignment,
// and does nothing at all when the year's folder exists.
Status PrepareYearFolders(CoreContext& c, const QString& year);
// At start: gYear, the current year's folders, gDayOfYear; from day 121 on, last year's
// tree is removed and next year's made.
Status PrepareYears(CoreContext& c);
// Removes the tree of gYear - 1: the files and folders of Team#0 to Team#<N + 1>, then the
// year's folder. A folder left in it (a higher team number) is reported.
Status RemoveYearFolders(CoreContext& c);
} // namespace tresvane
