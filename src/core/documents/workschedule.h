#pragma once

#include "core/documents/printframe.h"
#include "core/io/result.h"
#include "core/io/sliprecord.h"

#include <QDate>
#include <QList>
#include <array>

namespace tresvane
{
class Store;
struct DispatchingVariables;
struct TeamDay;

// The crews' daily work schedules. Two forms: the extended one, a portrait page on plain
// paper with all twelve hours; and the work day one, a landscape page on perforated paper
// with the eight hours of the working day and, right of the perforation at 8 inches, the
// completion report the crew fills in and brings back.

enum class ScheduleForm { Extended = 0, WorkDay = 1 };

// One team's day as the schedule prints it: the slot texts, and for each row the record
// standing on it (an index into records, -1 for none).
struct ScheduleDay {
    QDate date;
    int team = 0;
    QString teamName;
    std::array<QString, 12> slotTexts;
    std::array<int, 12> recordOf;
    QList<SlipRecord> records;

    ScheduleDay() { recordOf.fill(-1); }
    const SlipRecord* record(int row) const
    {
        return recordOf[row] < 0 ? nullptr : &records[recordOf[row]];
    }
};

struct ScheduleRequest {
    QDate date;
    int team = 0; // 1 to the number of teams; 0 for all, printed from the last down to 1
    ScheduleForm form = ScheduleForm::Extended;
};

// The rows (0 to 11) a form prints: all twelve, or the eight from startHour - 6, so that
// a day that starts at 8 prints 08:00am to 04:00pm.
QList<int> ScheduleRows(ScheduleForm form, int startHour);
// The rows the completion report takes, whatever the start hour: 08:00am to 04:00pm.
QList<int> CompletionRows();

// One team's day as one document, ended by EndDoc.
void PrintWorkSchedule(PrintJob& job, const DispatchingVariables& v, const ScheduleDay& day,
                       ScheduleForm form);

// The teams a request prints, in the order they print.
QList<int> ScheduleTeams(const DispatchingVariables& v, const ScheduleRequest& request);

// A team's day value as the schedule prints it, each row with the record standing there.
ScheduleDay ScheduleDayOf(const TeamDay& day, const QString& teamName);

// The days of the request's teams, read without writing anything: the day files and the
// records of Slips.txt and Meetings.txt on that date.
Result<QList<ScheduleDay>> ReadScheduleDays(Store& store, const DispatchingVariables& v,
                                            const ScheduleRequest& request);

// Every schedule of the request, one document per team. Returns the number of documents.
Result<int> PrintWorkSchedules(PrintJob& job, Store& store, const DispatchingVariables& v,
                               const ScheduleRequest& request);
} // namespace tresvane
