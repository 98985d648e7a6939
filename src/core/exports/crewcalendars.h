#pragma once

#include "core/calendar/calendarday.h"
#include "core/exports/exportsettings.h"
#include "core/io/result.h"
#include "core/io/sliprecord.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace tresvane
{
class Store;

// Each crew's days as an iCalendar file its members subscribe to on their phones: one
// file a team, Exports/Calendars/<team name>.ics, from today through a number of days
// ahead, with an event for every slip, meeting, recurring event and blocked day on the
// team's day files. The hours come from the day files, where the booking stands; the
// name, address, telephone and problem from the slip's record.

struct CrewEvent {
    enum class Kind { Slip, Meeting, RecurringEvent, BlockedDay, TakenHours };
    Kind kind = Kind::TakenHours;
    QDate date;
    int firstSlot = 1; // 1 to 12
    int lastSlot = 1;  // a blocked day is the whole day
    // The same for the same slip in every export, wherever the slip stands, so a phone
    // updates its event instead of adding another.
    QString uid;
    QString summary, location, description;
};

// A record on the days being exported, with the file it came from.
struct DayRecord {
    SlipRecord record;
    bool meeting = false; // of Meetings.txt, else of Slips.txt
};

// The slips and meetings of a run of days, each file read once, keyed by team and day.
struct CalendarSources {
    QDate first;
    int days = 0;
    QHash<quint64, QList<DayRecord>> byTeamDay; // TeamDayKey
    RescheduleLinks links;
    QString folderId;
    const QList<DayRecord>& recordsOf(int team, const QDate& date) const;
};
quint64 TeamDayKey(int team, int dayIndex);

Result<CalendarSources> ReadCalendarSources(const Store& store, const QDate& first, int days,
                                            const QString& folderId);

// The hour at which a slot begins: slots 1 to 6 are 6 to 11 in the morning, 7 to 12 are 1
// to 6 in the afternoon; there is no noon slot, so a job over 11 and 1 spans the lunch hour.
int SlotStartHour(int slot);

// The events of one team's day, in order of their first hour. Consecutive hours with the
// same text are one event, cut where the record that owns them ends. A day whose twelve
// hours hold one text no record owns is a blocked day. Hours whose text no record owns
// still show, under that text, so a crew never finds a taken hour empty on its phone.
QList<CrewEvent> DayEvents(const DayTexts& day, const QList<DayRecord>& records, const QDate& date,
                           int team, const RescheduleLinks& links, const QString& folderId);

// The whole file of a team. stamp is the moment of the export (DTSTAMP).
QByteArray CrewCalendarFile(const QString& calendarName, const QList<CrewEvent>& events,
                            const QDateTime& stamp);

// The files' names, team by team (index 0 is team 1): the team's name made safe as a file
// name on every system a synchronised folder may reach ("<>:\"/\\|?*" and control
// characters become "_", no trailing dot or blank, no name a Windows device holds), with
// " (team <n>)" after a name an earlier team already has. Each ends in ".ics".
QStringList CalendarFileNames(const QStringList& teamNames);

struct CalendarExportRequest {
    int days = 0;     // 0: as the settings say
    QList<int> teams; // empty: every team, and files of teams no longer there are removed
    // Where the files go: the program folder's Exports/Calendars when not set.
    Store* target = nullptr;
    QString targetFolder = QStringLiteral("/");
};

struct CalendarExportReport {
    int teams = 0;        // calendars made
    int written = 0;      // files that changed and were written
    int events = 0;       // events in all of them
    QStringList removed;  // files of teams no longer there
    QStringList problems; // days that could not be read, each told once
};

// Writes the calendars. A file whose events are what it already holds is left as it is,
// so a synchronised folder carries only the calendars that changed. A day file that cannot
// be read leaves that day out of its team's calendar and is named in the report; the other
// days and teams are written all the same.
Result<CalendarExportReport> ExportCrewCalendars(CoreContext& c,
                                                 const CalendarExportRequest& request);

// What the user reads after an export from the menu.
QString CalendarExportMessage(const CalendarExportReport& report, const QString& folder);
} // namespace tresvane
