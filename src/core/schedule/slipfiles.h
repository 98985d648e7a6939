#pragma once

#include "core/io/result.h"
#include "core/io/sliprecord.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QList>
#include <QString>
#include <functional>

namespace tresvane
{

class Store;
struct DispatchingVariables;

// The files of 297-byte slip records: Slips.txt, Meetings.txt, UnscheduledSlips.txt,
// CompletedSlips.txt and ProjectRecords.txt. Records are numbered from 1; a file is never
// changed in place to drop a record, it is rewritten through TemporaryFile.txt.

// Counts the records of a slip file: gRecordCount := the length over 297, rounded (a
// partial last record counts when it is at least half a record), gNextRecord := count + 1.
// A missing file is created empty, as opening it for record access always did, and counts 0.
Status CountSlipRecords(CoreContext& c, const QString& name);
// The same count under the name the booking code has always used for it.
Status CountRecords(CoreContext& c, const QString& name);

// Writes gSlip at record gNextRecord of the file (after counting), creating the file when
// it is missing. The record is flushed to disk before this returns.
Status AppendSlip(CoreContext& c, const QString& name);

// What FillSlipRecord needs of the Scheduling Screen's controls.
struct SlipScreenValues {
    QDate currentDate;  // the shared current date (the screen's calendar)
    QString lblMode;    // unit caption of the hours box, "Hours"
    QString txtTime;    // hours needed, as typed
    int currentRow = 0; // the grid row of the last click: the starting slot
    QString SlipNumber; // the confirmation number on the screen
    QString cboService; // the problem text
    QString EventText;  // the slot text of the event
};

// Fills gSlip for a booking from the current customer, team and screen. In Mode 2 the
// record is a Service Attention with the slip number and the problem text; in Mode 7 a
// meeting whose Reference is the slot text cut to 30. In any other mode RecType and
// ConfirmationNo keep what the buffer held before.
void FillSlipRecord(DispatchingVariables& v, const SlipScreenValues& screen);

// Every record of a slip file, in order (empty when the file does not exist). A partial
// last record that the rounding counts is filled with zero bytes.
Result<QList<SlipRecord>> ReadSlipRecords(Store& store, const QString& name);

// Rewrites the file with only the records for which drop(record, recordNo) is false,
// through TemporaryFile.txt renamed over the live file; its copy in Backup goes too.
// A file whose last record goes is left empty, not removed. Returns the records dropped.
// A missing file is left missing.
using SlipFilter = std::function<bool(const SlipRecord& record, qint32 recordNo)>;
Result<qint32> DropSlipRecords(Store& store, const QString& name, const SlipFilter& drop);

// Drops record recordNo of UnscheduledSlips.txt (the row of the stored-slip list; row 0
// matches nothing). When no record stays, the file is removed, with its copy in Backup
// so that it cannot come back from there.
Status DeleteUnscheduledSlip(Store& store, qint32 recordNo);

QString SlipsFileName();            // "/Slips.txt"
QString MeetingsFileName();         // "/Meetings.txt"
QString UnscheduledSlipsFileName(); // "/UnscheduledSlips.txt"

} // namespace tresvane
