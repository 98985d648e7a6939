#pragma once

#include "core/io/result.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/schedule/dayfiles.h"
#include "core/state/corecontext.h"

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <array>

namespace tresvane
{
// The expanded day view of the Scheduling Screen: for each of the twelve hours, who is
// booked there, from the records of Slips.txt and Meetings.txt rather than from the day
// file, so that the crew sees the address and telephone of each job.

// One hour of the view. The same details are what the daily work schedule prints.
struct DayViewSlot {
    QString text;     // the box: name, street, "city, st", telephone, reference, a line each
    QString nameTip;  // hover text of the box: the name
    QString phoneTip; // hover text of the hour's label: the telephone (empty: nothing to dial)
    QString reference, name, street, city, st, tel;
};

struct DayView {
    std::array<DayViewSlot, 12> hours;
    // Free rows of the grid plus the hours found in the records; reading stops once it
    // passes 12, when every hour is accounted for.
    int counter = 0;
};

// The text of a free hour in the view: nine blanks, "No Event Scheduled", two line ends.
QString DayViewFreeText();

// A team's day as one value: the twelve slot texts and the whole records of the slips and
// meetings on that day. Read once when the team or the date changes; the grid, the day
// view and the printed schedules read from it instead of the files or the grid's cells.
struct TeamDay {
    QString team; // the team's number
    QDate date;
    QString file;              // the day file's name; its folders are made
    GridColumn slotTexts;      // the day file's twelve lines, as LoadDay left them
    QList<SlipRecord> records; // of Slips.txt, then Meetings.txt, each in file order
};

// The day's records without reading the whole slip and meeting files at every change of
// team or date: each file is read once and indexed by day and team, and read again only
// when its stamp shows it changed. What the Scheduling Screen keeps while it is open.
class DayRecordIndex
{
public:
    // The same records as ReadDayRecords, in the same order.
    Result<QList<SlipRecord>> records(Store& store, const QDate& date, const QString& team);

private:
    struct File {
        bool built = false;
        FileStamp stamp;
        QByteArray bytes;
        QHash<QString, QList<qint32>> days; // record offsets by day and team
    };
    Status refresh(Store& store, const QString& name, File& file);
    std::array<File, 2> m_files;
};

// Loads the day file (made when missing, as LoadDay does) and the day's records, through
// the index when there is one.
Result<TeamDay> ReadTeamDay(CoreContext& c, const QDate& date, const QString& team,
                            DayRecordIndex* index = nullptr);

// The records of the team's day at `date`. A record belongs to it when its date has the
// same day of the year and the same last two characters (the year's last digits) and its
// trimmed team number is the team. One read of each file; only the day's records are
// decoded.
Result<QList<SlipRecord>> ReadDayRecords(Store& store, const QDate& date, const QString& team);

// The view of a day from its records. A record takes its StartSlot and the hours after
// it: Hours, or 8 when its unit is "Days". Hours that would run past slot 12, or a start
// outside 1 to 12, which only a foreign file can hold, are left off the view.
DayView DayViewOf(const QList<SlipRecord>& records, const GridColumn& grid);
} // namespace tresvane
