#include "bookingcheck.h"

#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QHash>
#include <QMap>
#include <QRegularExpression>

namespace tresvane
{
namespace
{

struct Booking {
    QString file;
    int recordNo = 0;
    QString number;    // confirmation number; empty for meetings
    QString reference; // the meeting's slot text as the record holds it (cut to 30)
    int team = 0;
    QDate date;
    int start = 0;
    int hours = 0;
};

struct DayKey {
    QDate date;
    int team;
    bool operator<(const DayKey& o) const { return date != o.date ? date < o.date : team < o.team; }
};

QString describeBooking(const Booking& b)
{
    return QStringLiteral("%1 record %2 (%3team %4, %5, %6 hours from slot %7)")
        .arg(b.file)
        .arg(b.recordNo)
        .arg(b.number.isEmpty() ? QString() : b.number + QStringLiteral(", "))
        .arg(b.team)
        .arg(FormatShortDate(b.date))
        .arg(b.hours)
        .arg(b.start);
}

bool covers(const Booking& b, int slot)
{
    return slot >= b.start && slot < b.start + b.hours;
}

// The confirmation number a slot text begins with, both schemes: "SA110-3 Name", "1002 Name".
QString leadingNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^(SA\\d{1,3}-\\d{1,5}|\\d{1,5}) "),
                                           QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = number.match(text);
    return m.hasMatch() ? m.captured(1) : QString();
}

} // namespace

QStringList BookingWarnings(Store& store, const QDate& today)
{
    QStringList warnings;
    QList<Booking> bookings;
    QMap<QString, QList<int>> recordsByNumber; // in Slips.txt
    for (const QString& file : {QStringLiteral("Slips.txt"), QStringLiteral("Meetings.txt")}) {
        const QString name = u'/' + file;
        if (!store.IsFile(name)) continue;
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) continue; // the reader of the whole folder names it as damaged
        const bool slips = file == u"Slips.txt";
        for (qsizetype at = 0, n = 1; at + kSlipRecordLength <= bytes->size();
             at += kSlipRecordLength, ++n) {
            const RecordView r(SlipLayout(), bytes->constData() + at);
            Booking b;
            b.file = file;
            b.recordNo = int(n);
            b.number = slips ? r.text(SlipField::ConfirmationNo) : QString();
            b.reference = r.text(SlipField::Reference);
            b.team = r.text(SlipField::TeamNo).toInt();
            b.date = ParseShortDate(r.text(SlipField::EventDate)).value_or(QDate());
            b.start = r.text(SlipField::StartSlot).toInt();
            b.hours = r.text(SlipField::Hours).toInt();
            if (slips && !b.number.isEmpty())
                recordsByNumber[b.number.toUpper()].append(b.recordNo);
            bookings.append(b);
        }
    }
    for (auto it = recordsByNumber.cbegin(); it != recordsByNumber.cend(); ++it) {
        if (it->size() < 2) continue;
        QStringList numbers;
        for (int n : *it)
            numbers << QString::number(n);
        warnings << QStringLiteral("Slips.txt: confirmation number %1 stands on %2 slips "
                                   "(records %3); deleting one deletes them all")
                        .arg(it.key())
                        .arg(it->size())
                        .arg(numbers.join(QStringLiteral(", ")));
    }

    // The days of today on, as the booking screen reads them.
    FixedClock clock(QDateTime(today, QTime(12, 0)));
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    QMap<DayKey, std::array<QString, 13>> days;
    auto readDay = [&](const QDate& date, int team) -> const std::array<QString, 13>& {
        const DayKey key{date, team};
        if (auto it = days.constFind(key); it != days.constEnd()) return *it;
        ClearDaySlots(v);
        v.DayFilePath =
            QStringLiteral("/%1/Team#%2/%3.txt").arg(date.year()).arg(team).arg(date.dayOfYear());
        if (store.IsFile(v.DayFilePath)) (void)ReadDayToGrid(c);
        return *days.insert(key, v.DaySlots);
    };

    static const QRegularExpression yearName(QStringLiteral("^\\d{4}$"));
    static const QRegularExpression teamName(QStringLiteral("^team#(\\d+)$"),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression dayName(QStringLiteral("^(\\d{1,3})\\.txt$"),
                                            QRegularExpression::CaseInsensitiveOption);
    for (const QString& year : store.List(QStringLiteral("/"))) {
        if (!yearName.match(year).hasMatch() || !store.IsFolder(u'/' + year)) continue;
        for (const QString& teamFolder : store.List(u'/' + year)) {
            const QRegularExpressionMatch tm = teamName.match(teamFolder);
            if (!tm.hasMatch()) continue;
            const int team = tm.captured(1).toInt();
            for (const QString& dayFile : store.List(u'/' + year + u'/' + teamFolder)) {
                const QRegularExpressionMatch dm = dayName.match(dayFile);
                if (!dm.hasMatch()) continue;
                const QDate date = QDate(year.toInt(), 1, 1).addDays(dm.captured(1).toInt() - 1);
                if (date < today || date.year() != year.toInt()) continue;
                const std::array<QString, 13>& hoursOfDay = readDay(date, team);
                for (int slot = 1; slot <= 12; ++slot) {
                    const QString text = hoursOfDay[slot].trimmed();
                    // One report per event, at its first hour.
                    if (slot > 1 && hoursOfDay[slot - 1].trimmed() == text) continue;
                    const bool meeting = text.startsWith(QStringLiteral("Mtg - "));
                    const QString number = meeting ? QString() : leadingNumber(text);
                    if (!meeting && number.isEmpty())
                        continue; // free, blocked, recurring: no record to own it
                    const bool owned =
                        std::any_of(bookings.cbegin(), bookings.cend(), [&](const Booking& b) {
                            if (b.team != team || b.date != date || !covers(b, slot)) return false;
                            return meeting ? text.startsWith(b.reference)
                                           : b.number.compare(number, Qt::CaseInsensitive) == 0;
                        });
                    if (!owned)
                        warnings << QStringLiteral("%1/%2/%3: \"%4\" from slot %5 is booked, "
                                                   "but no record owns it")
                                        .arg(year, teamFolder, dayFile, text)
                                        .arg(slot);
                }
            }
        }
    }

    for (const Booking& b : bookings) {
        if (!b.date.isValid() || b.date < today || b.team < 1 || b.start < 1 || b.hours < 1)
            continue;
        const std::array<QString, 13>& hoursOfDay = readDay(b.date, b.team);
        for (int slot = b.start; slot < b.start + b.hours && slot <= 12; ++slot) {
            const QString text = hoursOfDay[slot];
            const bool there = b.number.isEmpty() ? text.trimmed().startsWith(b.reference)
                                                  : text.contains(b.number, Qt::CaseInsensitive);
            if (!there) {
                warnings << describeBooking(b) +
                                QStringLiteral(" is not on its day: slot %1 holds \"%2\"")
                                    .arg(slot)
                                    .arg(text.trimmed());
                break;
            }
        }
    }
    return warnings;
}
} // namespace tresvane
