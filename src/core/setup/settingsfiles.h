#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QStringList>

namespace tresvane
{
// The small text files that configure an installation. Each reader leaves its default
// when the file is missing; a damaged file is reported and nothing is changed.

// The most teams Assignto.txt may list: each has a folder per year and a place in the lists.
inline constexpr int kTeamLimit = 30;
// The largest settings or reference file read, and the longest entry of a list. Beyond
// them a file is damaged, not large: the program never writes such files.
inline constexpr qint64 kTextFileLimit = 1024 * 1024;
inline constexpr qsizetype kListEntryLimit = 255;

// "/<base name>Settings.txt": "/TresvaneDispatcherSettings.txt" under the usual name.
QString SettingsFileName(const Store& store);

Status LoadSettings(CoreContext& c);
// Writes the nine settings, then stores the continuous number (SaveSlipNo) or reloads
// the day counter (LoadCounter), by the numbering scheme.
Status SaveSettings(CoreContext& c);

Status LoadAssignments(CoreContext& c);
// Writes the list as Assignto.txt and reloads gAssignTo from it.
Status SaveAssignments(CoreContext& c, const QStringList& assignments);

Status LoadProblems(CoreContext& c);
Status SaveProblems(CoreContext& c, const QStringList& problems);

Status LoadBusiness(CoreContext& c);
// Copies gBusiness into the business boxes.
void BuildBusiness(DispatchingVariables& v);
// Takes the boxes into gBusiness and writes them. The old copy in Backup is left standing.
Status SaveBusiness(CoreContext& c);

// detectedPort is the port the modem answered on at this start, 0 for none; a port
// stored in Phone.txt replaces it.
Status LoadPhoneSettings(CoreContext& c, qint16 detectedPort);
Status LoadCallID(CoreContext& c);
Status SavePhoneSettings(CoreContext& c);
Status SaveCallID(CoreContext& c);

// Moves a date off the days the work week does not work (Sunday is weekday 1).
QDate AdjustWorkDay(const QDate& date, int workWeekCode);
// The caption of a work week code.
QString WorkWeekCaption(int workWeekCode);
} // namespace tresvane
