#include "core/schedule/teammonth.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/schedule/dayfiles.h"

namespace tresvane
{
QString BookingMonthName(int month)
{
    static const char* const names[] = {"Jan",  "Feb", "March", "April", "May", "June",
                                        "July", "Aug", "Sep",   "Oct",   "Nov", "Dec"};
    return month >= 1 && month <= 12 ? QString::fromLatin1(names[month - 1]) : QString();
}

Result<TeamMonth> DrawTeamMonth(CoreContext& c, const QDate& calendarDate, const QString& team)
{
    TeamMonth sheet;
    if (!calendarDate.isValid()) return sheet;
    const QDate first(calendarDate.year(), calendarDate.month(), 1);
    sheet.txtCurrentDate =
        QString::number(calendarDate.day()) + u' ' + BookingMonthName(calendarDate.month());
    const int days = int(first.daysTo(first.addMonths(1)));
    const int w = first.dayOfWeek() % 7 + 1; // Sunday 1 ... Saturday 7
    for (int d = 1; d <= days; ++d)
        sheet.Text1[d + w - 2] = QString::number(d);

    const QDate today = c.clock.today();
    const QString folder = u'/' + QString::number(calendarDate.year()) + u'/' +
                           Store::safeComponent(QStringLiteral("Team#") + team.trimmed()) + u'/';
    for (int d = 1; d <= days; ++d) {
        const QDate day = first.addDays(d - 1);
        if (day < today) continue;
        const QString name = folder + QString::number(day.dayOfYear()) + QStringLiteral(".txt");
        if (!c.store.FileExists(name)) continue;
        Result<QByteArray> bytes = c.store.ReadAll(name);
        if (!bytes) return bytes.status();
        TextReader reader(*bytes, c.store.describe(name));
        Result<QStringList> fields = reader.readAllStrings();
        if (!fields) return fields.status();
        int booked = 0;
        for (const QString& field : *fields) {
            if (field.contains(NoEventScheduled())) continue;
            ++booked;
            sheet.Text1[d + w - 2] = QString::number(booked);
            sheet.red[d + w - 2] = true;
        }
    }
    return sheet;
}

QDate MonthBoxDate(const TeamMonth& month, const QDate& calendarDate, int box)
{
    if (box < 0 || box >= int(month.Text1.size()) || month.Text1[box].isEmpty()) return {};
    int firstBox = 0;
    while (month.Text1[firstBox].isEmpty())
        ++firstBox;
    return QDate(calendarDate.year(), calendarDate.month(), box + 1 - firstBox);
}
} // namespace tresvane
