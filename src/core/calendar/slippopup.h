#pragma once

#include "core/calendar/teamboard.h"
#include "core/io/result.h"
#include "core/io/sliprecord.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

namespace tresvane
{
// The slip behind an hour clicked on the board of teams, and what its popup shows.

// Where the click was: the hour's text, the team's day and the hour.
struct ClickedSlot {
    SlotFile file = SlotFile::None;
    QDate date;
    int team = 0;
    int slot = 0; // 1 to 12
    QString text;
};

// Of a team's day's records, the one that belongs to the clicked hour: a record whose own
// text is the hour's (a slip by its confirmation number as the text's first word, a meeting
// by its reference, a project event by its number and reference), the one whose hours hold
// the clicked hour first. Nothing when no record of the day belongs to it.
std::optional<SlipRecord> RecordOfSlot(const QList<SlipRecord>& records,
                                       const ClickedSlot& clicked);

// The same, reading the records of the clicked team's day: those of Slips.txt and
// Meetings.txt, or of ProjectRecords.txt for a project event.
Result<std::optional<SlipRecord>> FindSlotRecord(CoreContext& c, const ClickedSlot& clicked);

// The popup's texts, each field trimmed.
struct SlipPopupText {
    QString name, street, city, apt, state, zip, tel, account;
    QString assignTo; // the team's name
    QString duration; // hours and unit: "2 Hours"
    QString time;     // the first hour's label, empty when the record's start is no hour
    QString date, reference;
};

SlipPopupText PopupText(const DispatchingVariables& v, const SlipRecord& record,
                        const QString& teamName);
} // namespace tresvane
