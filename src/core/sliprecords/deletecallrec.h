#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QString>

namespace tresvane
{
// Ending a slip's place in the schedule: delete, reschedule (a delete and a new booking)
// and complete (a delete that keeps a copy) all come down to DeleteCallRec.

// What the record screen has on show; the record itself is gSlip.
struct CallRecordOnShow {
    qint16 SearchFile = 1; // 1 Slips.txt, 2 Meetings.txt
    QString EventKind;     // trimmed RecType of the record on show
    QString txtName;       // the name shown
    QString txtTime;       // the short label of its starting slot
};

// Takes the record of gSlip out of its file and frees its hours. Which records go is
// decided by gSlip's trimmed RecType: "Service" drops every record whose whole
// ConfirmationNo field is gSlip's, copying gSlip to CompletedSlips.txt for each when
// completed is -1; "Meeting" and "Reoccuring" drop every record whose whole Reference
// field is gSlip's; any other type (a recurring event of no customer) drops every record.
// The file is rewritten through TemporaryFile.txt; its copy in Backup stays.
//
// The hours are then freed on the day and team of gSlip, unless that day lies before today
// (a day gone by keeps its file): a Service frees every slot containing its confirmation
// number (any case); a Meeting every slot containing "Recurring" (any case), or both its
// name and its time; any other kind frees nothing. The day is written back with
// WriteDayFile, which also drops the contract overlay. gSlip keeps the deleted record.
Status DeleteCallRec(CoreContext& c, const CallRecordOnShow& shown, qint16 completed);

// Appends gSlip to CompletedSlips.txt, at the record number its length over 297 plus one
// gives, rounded.
Status WriteCompletedSlip(CoreContext& c);

QString CompletedSlipsFileName(); // "/CompletedSlips.txt"

// The sibling program that records completed jobs itself: where it stands beside this
// program, the record screen offers no completion of its own.
QString JobCloserFile(); // "/TresvaneJobCloser.exe"
} // namespace tresvane
