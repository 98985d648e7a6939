#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

namespace tresvane
{
// The clean-up at every start, after PrepareYears.

// Deletes this year's day files of every team from the day after the last purge up to
// yesterday, writes yesterday's day of the year to PurgedDate.txt (0 on 1 January), then
// PurgeMeetings. A day file of today or later is never touched. All of it lands as one
// change or none of it does, so a purge that fails or is cut short is repeated whole at
// the next start.
Status PurgeDayFiles(CoreContext& c);

// Drops the meetings dated before today from Meetings.txt, through TemporaryFile.txt.
// A meeting whose date cannot be read is reported and the file is left as it was.
Status PurgeMeetings(CoreContext& c);

QString PurgedDateFileName(); // "/PurgedDate.txt"
} // namespace tresvane
