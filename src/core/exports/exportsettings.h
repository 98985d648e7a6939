#pragma once

#include "core/io/result.h"

#include <QDate>
#include <QHash>
#include <QString>

namespace tresvane
{
class Store;

// What the crews' calendars need to remember, kept in the Exports folder of their own so
// that no settings file an installation shares with sibling programs gains a byte.
//
// Exports/CalendarExport.txt, one line in the text form:
//   after every change (boolean), days ahead (number), the folder's calendar id (string)
// A missing file reads as the defaults: off, 60 days, no id yet.

QString ExportsFolder();              // "/Exports"
QString CrewCalendarsFolder();        // "/Exports/Calendars"
QString CalendarExportSettingsFile(); // "/Exports/CalendarExport.txt"
QString RescheduledSlipsFile();       // "/Exports/RescheduledSlips.txt"

constexpr int kDefaultCalendarDays = 60;
constexpr int kLongestCalendarDays = 700; // as far as any booking calendar reaches

struct CalendarExportSettings {
    bool afterEveryChange = false;
    int days = kDefaultCalendarDays;
    // Names this folder in every event's unique id, so two offices' slips of the same
    // number never share an id on a phone that shows both. Made once, at the first export.
    QString folderId;
};

// A file that cannot be read is reported; a field out of range reads as its default.
Result<CalendarExportSettings> ReadCalendarExportSettings(const Store& store);
Status WriteCalendarExportSettings(Store& store, const CalendarExportSettings& settings);

// The settings with a folder id: one is made and stored when the folder has none yet.
Result<CalendarExportSettings> CalendarExportSettingsWithId(Store& store);

// A rescheduled Service Attention is a new slip with a new number; its event on the crews'
// phones should move rather than vanish and come back as another. The new number is linked
// to the number whose event it continues, in Exports/RescheduledSlips.txt: a line a link,
// the new number, the number of the first slip of the chain, and the day the link was made.
// Links older than a year are dropped whenever the file is written, as numbers of the
// SA<day>-<n> form come round again each year.
Status NoteRescheduledSlip(Store& store, const QString& oldNumber, const QString& newNumber,
                           const QDate& today);

// The number whose event a slip continues (the slip's own when it was never rescheduled).
class RescheduleLinks
{
public:
    QString eventNumber(const QString& number) const;
    QHash<QString, QString> links; // trimmed new number -> trimmed first number
};
Result<RescheduleLinks> ReadRescheduleLinks(const Store& store);
} // namespace tresvane
