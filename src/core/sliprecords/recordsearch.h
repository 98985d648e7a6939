#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QString>

namespace tresvane
{
// Finding one slip of Slips.txt (SearchFile 1) or Meetings.txt (SearchFile 2) on the
// record screen, and what the screen shows of it. The record found is put in gSlip.

// The search options, optSearchby(0) to (2).
enum class SearchBy { AllRecords = 0, AccountNo = 1, ConfirmationNo = 2 };

// The first record that matches: by confirmation number, the trimmed field equal to the
// text exactly as typed (so a trailing blank finds nothing); by account, the trimmed field
// equal to the trimmed text. When nothing matches the user is told "No Call Record with
// this Search Criteria Exists" and the answer is false.
Result<bool> ReadCallSlip(CoreContext& c, qint16 searchFile, SearchBy by, const QString& txtConfNo,
                          const QString& txtTelNo);

// A step through the file: record RecPointer goes to gSlip. After the last record
// RecPointer becomes 0 and the step is LoadedLast (the screen hides cmdContinue); a
// pointer past the count (or below 1) loads nothing.
enum class SequentialRead { Loaded, LoadedLast, PastEnd };
Result<SequentialRead> ReadSequentually(CoreContext& c, qint16 searchFile, qint16& RecPointer);

// The detail panel of the record in gSlip.
struct RecordDetail {
    QString EventKind; // trimmed RecType
    QString txtName, txtStreet, txtCity, txtApt, txtSt, txtZip, txtTel, txtAcctNo;
    QString txtDuration; // hours, a blank, the unit
    QString txtTime;     // the starting slot as the grid labels it, with am or pm
    QString timeLabel;   // its short label, as the day's slot texts hold it
    QString txtDate, txtDay, txtStatus, txtAmount, txtForm;
    QString txtReference; // the confirmation number of a Service, else the reference
    bool cmdCancel = false, cmdReschedule = false, cmdCompleted = false;
};

// Fills the panel from gSlip and hands the customer to the shared current-customer fields,
// the first half of a reschedule. Each field read is stored back trimmed, and the amount in
// the currency form, so that a later save of the buffer carries those forms. The actions
// are open for a date after today, or today while the status reads "Scheduled";
// cmdCompleted not when the sibling completion program is installed.
RecordDetail LoadRecData(CoreContext& c, bool CompletionInstalled);
} // namespace tresvane
