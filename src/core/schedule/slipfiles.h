#pragma once

#include "core/io/result.h"
#include "core/io/sliprecord.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QDate>
#include <QList>
#include <QString>
#include <functional>
#include <optional>

namespace tresvane
{
class Store;
struct DispatchingVariables;

// The files of 297-byte slip records: Slips.txt, Meetings.txt, UnscheduledSlips.txt,
// CompletedSlips.txt and ProjectRecords.txt. Records are numbered from 1; a file is never
// changed in place to drop a record, it is rewritten through TemporaryFile.txt.

// Counts the records of a slip file: the length over 297, rounded (a partial last record
// counts when it is at least half a record). A missing file is created empty, as opening
// it for record access always did, and counts 0.
Result<qint32> CountSlipRecords(Store& store, const QString& name);

// One booking as the Scheduling Screen asks for it: the day file and the slip record are
// both written from this value.
struct BookingRequest {
    std::optional<SlipKind> kind;           // what the routine books; none writes the day only
    QString team;                           // the team's number
    QDate date;                             // the calendar's date
    QString dayFile;                        // that team's day file, as the day was loaded
    int firstSlot = 1;                      // the grid row of the last click: the starting slot
    QString hours = QStringLiteral("1");    // hours needed, as typed
    QString unit = QStringLiteral("Hours"); // unit caption of the hours box
    QString problem;                        // the problem text
    QString number;                         // the confirmation number shown
    QString eventText;                      // the slot text of the event; NoSlotSelected() if none
    CurrentCustomer customer;               // the customer in hand
    bool unscheduled = false;               // store the slip without a time
    bool fromStoredSlip = false;            // the slip came from UnscheduledSlips.txt
    qint32 storedSlipRow = 0;               // its row in the stored-slip list (record number)
    // A reschedule: the number of the slip this one replaces, whose event on the crews'
    // calendars moves to the new slip rather than vanishing and coming back as another.
    QString rescheduledFrom;
};

// Fills a slip record for a booking. A Service Attention gets the slip number and the
// problem text; a meeting the slot text cut to 30 as its Reference. With no kind, RecType
// and ConfirmationNo keep what the record held before.
void FillSlipRecord(SlipRecord& slip, const BookingRequest& request);

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
