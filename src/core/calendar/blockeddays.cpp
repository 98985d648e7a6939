#include "core/calendar/blockeddays.h"

#include "core/calendar/calendarday.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QSet>

namespace tresvane
{
QStringList BlockReasons()
{
    return {QStringLiteral("Vacation"), QStringLiteral("Holiday"), QStringLiteral("Personal Day"),
            QStringLiteral("Sick Day")};
}

Status CheckBlockReason(const QString& reason)
{
    if (reason.trimmed().isEmpty())
        return Status::failure(QStringLiteral("Enter the Reason for these Days"));
    if (reason.contains(u',') || reason.contains(u'"'))
        return Status::failure(
            QStringLiteral("A Reason cannot contain a comma (,) or a double quote (\")"));
    return {};
}

Result<QDate> BlockStartDate(CoreContext& c, const QDate& picked)
{
    QDate date = picked;
    if (!date.isValid() || date < c.clock.today()) date = NextBookingDate(c.clock);
    NextWorkDay(c.v, date);
    bool ok = false;
    const int year = c.v.gYear.trimmed().toInt(&ok);
    if (date.year() > (ok ? year : c.clock.today().year()))
        if (Status s = PrepareYearFolders(c, QString::number(date.year())); !s) return s;
    return date;
}

Result<QList<QDate>> BlockedDates(CoreContext& c, const BlockRequest& request)
{
    QList<QDate> dates;
    Result<QDate> day = BlockStartDate(c, request.start);
    for (int n = 0; n < request.days; ++n) {
        if (!day) return day.status();
        dates.append(*day);
        day = BlockStartDate(c, day->addDays(1));
    }
    return dates;
}

QString BlockQuestion(const BlockRequest& request, const QString& teamText)
{
    return QStringLiteral("You have Selected to\n") +
           (request.restore ? QStringLiteral("Restore Previous Blocked Days")
                            : QStringLiteral("Prevent Work Scheduling")) +
           QStringLiteral("\nfor ") + teamText + QStringLiteral("\nStarting on ") +
           FormatShortDate(request.start) + QStringLiteral("\nof ") +
           QString::number(request.days) + QStringLiteral(" Consecutive WORKDAYS");
}

namespace
{

// The first hour of the day that holds something else than a free hour or the reason; 0
// when none does.
int hourInTheWay(const DayTexts& day, const QString& reason)
{
    for (int i = 0; i < 12; ++i) {
        const QString& slot = day[i];
        if (!slot.contains(NoEventScheduled(), Qt::CaseInsensitive) &&
            !slot.contains(reason, Qt::CaseInsensitive))
            return i + 1;
    }
    return 0;
}

} // namespace

Result<bool> BlockTeamDays(CoreContext& c, const BlockRequest& request, int team)
{
    const QString reason = request.restore ? NoEventScheduled() : request.reason.trimmed();
    if (!request.restore)
        if (Status s = CheckBlockReason(reason); !s) return s;
    Result<QList<QDate>> dates = BlockedDates(c, request);
    if (!dates) return dates.status();

    if (!request.restore) {
        for (const QDate& date : *dates) {
            Result<DayTexts> day = ReadDayTexts(c.store, TeamDayFile(date, team));
            if (!day) return day.status();
            if (const int slot = hourInTheWay(*day, reason)) {
                c.dialogs.message(QStringLiteral("An Event Exists at ") + c.v.TimeLabels[slot] +
                                      QStringLiteral(" on ") + FormatShortDate(date) +
                                      QStringLiteral("\nDelete or Rechedule this Attention\n"
                                                     "This Request will be aborted."),
                                  QStringLiteral("Can't Block or UnBlock This Time"),
                                  Dialogs::Buttons::Ok, Dialogs::Icon::Critical);
                return false;
            }
        }
    }

    DayTexts lines;
    lines.fill(reason);
    Status written = c.store.inGroup([&]() -> Status {
        for (const QDate& date : *dates) {
            if (Status s = BuildDayFilePath(c, date, QString::number(team)); !s) return s;
            if (Status s = WriteBareDayFile(c.store, c.v.DayFilePath, lines); !s) return s;
        }
        return {};
    });
    if (!written) return written;
    return true;
}

Result<QList<int>> BlockAllTeams(CoreContext& c, const BlockRequest& request)
{
    QList<int> refused;
    for (int team = 1; team <= c.v.TeamCount(); ++team) {
        Result<bool> done = BlockTeamDays(c, request, team);
        if (!done) return done.status();
        if (!*done) refused.append(team);
    }
    return refused;
}

Result<QList<BlockedDayRow>> FindBlockedDays(CoreContext& c, const QDate& from, const QDate& to)
{
    QList<BlockedDayRow> rows;
    if (!from.isValid() || !to.isValid() || to < from) return rows;
    const QStringList reasons = BlockReasons();
    for (int team = 1; team <= c.v.TeamCount(); ++team) {
        // One look at each year's folder rather than one for every day of the range.
        QString folder;
        QSet<QString> present;
        int listedYear = 0;
        for (QDate date = from; date <= to; date = date.addDays(1)) {
            if (date.year() != listedYear) {
                listedYear = date.year();
                folder = QStringLiteral("/%1/DaySchedules%2")
                             .arg(listedYear, 4, 10, QLatin1Char('0'))
                             .arg(team);
                present.clear();
                for (const QString& name : c.store.List(folder))
                    present.insert(name.toLower());
            }
            const QString name = QString::number(date.dayOfYear()) + QStringLiteral(".txt");
            if (!present.contains(name)) continue;
            const QString file = folder + u'/' + name;
            Result<QByteArray> bytes = c.store.ReadAll(file);
            if (!bytes) return bytes.status();
            TextReader reader(*bytes, c.store.describe(file));
            if (reader.atEnd()) continue;
            Result<QString> first = reader.readString();
            if (!first) return first.status();
            if (reasons.contains(*first)) rows.append({c.v.gAssignTo.value(team), date, *first});
        }
    }
    return rows;
}
} // namespace tresvane
