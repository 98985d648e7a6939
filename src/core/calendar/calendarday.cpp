#include "core/calendar/calendarday.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/schedule/dayfiles.h"

namespace tresvane
{
QString TeamDayFile(const QDate& date, int team)
{
    return QStringLiteral("/%1/Team#%2/%3.txt")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(team)
        .arg(date.dayOfYear());
}

DayTexts FreeDay()
{
    DayTexts day;
    day.fill(NoEventScheduled());
    return day;
}

Result<DayTexts> ReadDayTexts(Store& store, const QString& file)
{
    DayTexts day = FreeDay();
    if (!store.IsFile(file)) return day;
    Result<QByteArray> bytes = store.ReadAll(file);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, store.describe(file));
    for (QString& slot : day) {
        if (reader.atEnd()) break;
        Result<QString> text = reader.readString();
        if (!text) return text.status();
        slot = *text;
    }
    return day;
}
} // namespace tresvane
