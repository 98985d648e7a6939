#pragma once

#include "core/calendar/calendarday.h"
#include "core/io/result.h"

#include <QDate>
#include <QHash>
#include <QString>

namespace tresvane
{
class Store;

// The day files of many days and teams read in one go, as the crews' calendars and the
// free-time finder need them. A day spelt as the program writes it is found with one look;
// for the others each team's folder of a year is listed once, since names are matched
// without regard to case and a search of the folder for every missing day would cost a
// listing each time. A day without a file is free.
class DayFileIndex
{
public:
    explicit DayFileIndex(Store& store) : m_store(store) {}

    // The twelve slot texts of the team's day, as ReadDayTexts reads them.
    Result<DayTexts> read(const QDate& date, int team);

private:
    // Day of the year -> the file's program-relative name as spelt on disk.
    using Folder = QHash<int, QString>;
    const Folder& folder(int year, int team);

    Store& m_store;
    QHash<int, QHash<QString, QString>> m_years; // year -> lower-case entry -> as on disk
    QHash<quint64, Folder> m_folders;            // (year, team)
};
} // namespace tresvane
