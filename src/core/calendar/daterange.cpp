#include "core/calendar/daterange.h"

#include "core/io/usforms.h"

namespace tresvane
{
bool IsNonWorkDay(const QDate& date, int workWeekCode)
{
    const int day = date.dayOfWeek();
    switch (workWeekCode) {
    case 5:
        return day == Qt::Saturday || day == Qt::Sunday;
    case 61:
        return day == Qt::Sunday;
    case 62:
        return day == Qt::Saturday;
    default:
        return false;
    }
}

Result<RangeDates> DatesInRange(const QDate& start, const QDate& end, RangeFrequency frequency,
                                int weekday, const QDate& today, int workWeekCode)
{
    if (!start.isValid() || !end.isValid() || end < start)
        return Status::failure(QStringLiteral("The End Date must not be before the Start Date"));
    if (end > start.addYears(kLongestRangeYears))
        return Status::failure(QStringLiteral("A Date Range can cover at most %1 years.\n"
                                              "Choose an End Date no later than %2")
                                   .arg(kLongestRangeYears)
                                   .arg(FormatShortDate(start.addYears(kLongestRangeYears))));

    QDate first = start;
    int step = 7;
    switch (frequency) {
    case RangeFrequency::Every7Days:
        break;
    case RangeFrequency::Every14Days:
        step = 14;
        break;
    case RangeFrequency::WeekdayEachWeek:
        if (weekday < Qt::Monday || weekday > Qt::Sunday)
            return Status::failure(QStringLiteral("Select the Day of the Week"));
        first = start.addDays((weekday - start.dayOfWeek() + 7) % 7);
        break;
    }

    RangeDates range;
    for (QDate d = first; d <= end; d = d.addDays(step)) {
        if (d < today)
            ++range.beforeToday;
        else if (IsNonWorkDay(d, workWeekCode))
            ++range.nonWorkDays;
        else
            range.dates.append(d);
    }
    return range;
}

QString LeftOutMessage(const RangeDates& range)
{
    const int left = range.beforeToday + range.nonWorkDays;
    if (left == 0) return {};
    auto dates = [](int n) {
        return n == 1 ? QStringLiteral("1 date") : QStringLiteral("%1 dates").arg(n);
    };
    QString text = dates(left) + QStringLiteral(" of the range ") +
                   (left == 1 ? QStringLiteral("was") : QStringLiteral("were")) +
                   QStringLiteral(" not scheduled:");
    if (range.beforeToday > 0)
        text += u'\n' + dates(range.beforeToday) + QStringLiteral(" before today");
    if (range.nonWorkDays > 0)
        text += u'\n' + dates(range.nonWorkDays) + QStringLiteral(" on a Non-Work Day");
    return text;
}
} // namespace tresvane
