#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QByteArrayView>
#include <QDate>
#include <QList>
#include <QString>

namespace tresvane
{
// The record summary: one row for each slip and meeting that exists, for a dispatcher to
// find one again. Meetings.txt is read first, then Slips.txt, and the rows are sorted by a
// key that is the day of the year, plus 999 for a date in a later year than the current
// one: this year's and next year's records stand in date order, while a past year's mix
// into this year's by day. The sort is numeric and keeps file order among equal keys.

struct SummaryRow {
    QString EventDate;      // col 0, as stored
    QString kind;           // col 1, "Sevice Attn" for a row of Slips.txt, else empty
    QString Name;           // col 2
    QString AcctNo;         // col 3
    int key = 0;            // col 4
    QString ConfirmationNo; // col 5
};

struct RecordSummary {
    QList<SummaryRow> rows;
    qint32 slipCount = 0;    // records of Slips.txt (optSearchfor 0 enabled when above 0)
    qint32 meetingCount = 0; // records of Meetings.txt (optSearchfor 1)
};

// The sort key of a stored date text; a date that cannot be read sorts first, as 0.
int SummarySortKey(const QString& eventDate, int currentYear);

// Builds the rows of both files, sorted. Opening a missing file for its count creates
// it empty, as the record files have always been opened.
Result<RecordSummary> BuildRecordSummary(CoreContext& c);

// A row whose date is before today cannot be rescheduled or deleted.
bool SlipExpired(const QString& eventDate, const QDate& today);

// The row click's look-up: the first record, in Slips.txt and then in Meetings.txt, whose
// trimmed account and date equal the row's (trimmed) texts. gSlip takes it. Returns the
// SearchFile of the file it was found in, 1 or 2, or 3 when neither holds it.
Result<qint16> FindSlipByAccountAndDate(CoreContext& c, const QString& account,
                                        const QString& eventDate);

// mm/dd/yyyy (one or two digits for month and day) from a stored date field; an invalid
// date for anything else.
QDate ParseSlipDate(QByteArrayView text);

// The file a SearchFile value names: 1 Slips.txt, 2 Meetings.txt; empty for any other.
QString SearchFileName(qint16 searchFile);
} // namespace tresvane
