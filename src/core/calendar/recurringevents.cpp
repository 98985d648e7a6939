#include "core/calendar/recurringevents.h"

#include "core/calendar/daterange.h"
#include "core/entry/keyfilters.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/freenumber.h"
#include "core/schedule/numbering.h"
#include "core/schedule/slipfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QSet>

namespace tresvane
{
QString RecurringEventPrefix()
{
    return QStringLiteral("Recurring Event - ");
}

bool CheckEventHours(CoreContext& c, int startSlot, int hours)
{
    // The start's index (slot - 1) and the hours may reach 12 and no further.
    if (startSlot - 1 + hours < 13) return true;
    if (c.v.gAlarms) c.dialogs.beep();
    c.dialogs.message(QStringLiteral("Not enough Hours in a Day!!!"),
                      QStringLiteral("Too Many Hours Selected"));
    return false;
}

namespace
{

int currentYear(const CoreContext& c)
{
    bool ok = false;
    const int year = c.v.gYear.trimmed().toInt(&ok);
    return ok ? year : c.clock.today().year();
}

// The hours of the event, within the day.
QList<int> eventSlots(const RecurringEvent& event)
{
    QList<int> hours;
    for (int s = event.startSlot; s < event.startSlot + event.hours && s <= 12; ++s)
        if (s >= 1) hours.append(s);
    return hours;
}

QString teamName(const DispatchingVariables& v, int team)
{
    return v.gAssignTo.value(team);
}

// A number as its record field holds it: cut to the field's width, blanks removed.
QByteArray asStored(const QString& number)
{
    const int width = SlipLayout().field(SlipField::ConfirmationNo).width;
    return number.toLatin1().left(width).trimmed();
}

// One confirmation number for each of count dates, in order, none of them carried by a slip
// on file, under the scheme in use; next takes the counter's value after the last one. The
// counter's last value is never handed out, so that the next slip can always step past it.
Result<QStringList> seriesNumbers(CoreContext& c, int count, qint32& next)
{
    const DispatchingVariables& v = c.v;
    Result<QSet<QByteArray>> taken = ConfirmationNumbersOnFile(c.store);
    if (!taken) return taken.status();
    const bool program = v.settings.ckSlipStyle == 1;
    auto numberOf = [&](qint32 n) {
        return program ? ProgramConfirmation(v.gJulianDay, qint16(n)) : QString::number(n);
    };
    next = program ? v.gSequence : v.gNextSlip;
    QStringList numbers;
    for (int i = 0; i < count; ++i) {
        while (next < 32767 && taken->contains(asStored(numberOf(next))))
            ++next;
        if (next >= 32767)
            return Status::failure(
                QStringLiteral("These events need %1 confirmation numbers, and the numbers "
                               "would pass 32767.\nThe events were not scheduled.")
                    .arg(count));
        numbers.append(numberOf(next));
        ++next;
    }
    return numbers;
}

// The counter after a series: the number the next slip gets, stored in the scheme's file.
Status storeCounter(CoreContext& c, qint32 next)
{
    DispatchingVariables& v = c.v;
    if (v.settings.ckSlipStyle == 1) {
        v.gSequence = qint16(next);
        v.gConfirmation = ProgramConfirmation(v.gJulianDay, v.gSequence);
        return SaveCounter(c);
    }
    const QString before = v.settings.txtNextSlip;
    v.settings.txtNextSlip = QString::number(next);
    if (Status s = SaveSlipNo(c); !s) {
        v.settings.txtNextSlip = before;
        return s;
    }
    v.gConfirmation = v.settings.txtNextSlip;
    return {};
}

Status scheduleSeries(CoreContext& c, const RecurringEvent& event, const QList<QDate>& dates,
                      ScheduledSeries& series)
{
    DispatchingVariables& v = c.v;
    const bool invoice = event.kind == RecurringKind::Invoice;
    qint32 next = 0;
    if (invoice) {
        Result<QStringList> numbers = seriesNumbers(c, int(dates.size()), next);
        if (!numbers) return numbers.status();
        series.confirmations = *numbers;
    }

    const QString file = invoice ? SlipsFileName() : MeetingsFileName();
    Result<qint32> counted = CountSlipRecords(c.store, file);
    if (!counted) return counted.status();
    const qint32 firstRecord = *counted + 1;
    const QString team = QString::number(event.team);

    for (qsizetype i = 0; i < dates.size(); ++i) {
        const QDate& date = dates[i];
        const QString number = invoice ? series.confirmations[i] : QString();
        if (Status s = BuildDayFilePath(c, date, team); !s) return s;
        Result<DayTexts> day = ReadDayTexts(c.store, v.DayFilePath);
        if (!day) return day.status();
        const QString text = RecurringEventText(v, event, number);
        for (int slot : eventSlots(event)) {
            // Only a slot exactly free takes the event; anything else is kept.
            if ((*day)[slot - 1] == NoEventScheduled())
                (*day)[slot - 1] = text;
            else
                series.conflicts.append({date, slot});
        }
        if (Status s = WriteBareDayFile(c.store, v.DayFilePath, *day); !s) return s;
        for (int s = 1; s <= 12; ++s)
            v.DaySlots[s] = (*day)[s - 1];

        v.gSlip = RecurringEventRecord(v, event, date, number);
        if (Status s =
                c.store.WriteRecordAt(file, kSlipRecordLength, firstRecord + i, v.gSlip.bytes());
            !s)
            return s;
    }
    if (invoice) return storeCounter(c, next);
    return {};
}

} // namespace

Result<DateCheck> CheckEventDate(CoreContext& c, const QDate& date, const RecurringEvent& event,
                                 const QList<QDate>& listed)
{
    DispatchingVariables& v = c.v;
    if (!date.isValid() || date < c.clock.today()) {
        if (v.gAlarms) c.dialogs.beep();
        if (v.gPrompts) CalendarMessage(c.dialogs);
        return DateCheck::BeforeToday;
    }
    if (date.year() > currentYear(c))
        if (Status s = PrepareYearFolders(c, QString::number(date.year())); !s) return s;
    if (IsNonWorkDay(date, v.gWorkDays)) {
        if (v.gAlarms) c.dialogs.beep();
        c.dialogs.message(QStringLiteral("You cannot Schedule an Event on a Non-Work Day"));
        return DateCheck::NonWorkDay;
    }
    if (listed.contains(date)) {
        if (v.gAlarms) c.dialogs.beep();
        return DateCheck::AlreadyListed;
    }
    Result<DayTexts> day = ReadDayTexts(c.store, TeamDayFile(date, event.team));
    if (!day) return day.status();
    for (int slot : eventSlots(event)) {
        if ((*day)[slot - 1] == NoEventScheduled()) continue;
        c.dialogs.message(QStringLiteral("An Event is Scheduled on ") + FormatShortDate(date) +
                          QStringLiteral("\nat ") + v.TimeLabels[slot] + QStringLiteral("\nfor ") +
                          teamName(v, event.team));
        return DateCheck::HourTaken;
    }
    return DateCheck::Added;
}

QString RecurringEventText(const DispatchingVariables& v, const RecurringEvent& event,
                           const QString& confirmation)
{
    switch (event.kind) {
    case RecurringKind::Invoice:
        return confirmation + u' ' + v.current.name;
    case RecurringKind::NonBillable:
        return RecurringEventPrefix() + v.current.name;
    case RecurringKind::NoCustomer:
        break;
    }
    return RecurringEventPrefix() + event.title;
}

SlipRecord RecurringEventRecord(const DispatchingVariables& v, const RecurringEvent& event,
                                const QDate& date, const QString& confirmation)
{
    SlipRecord r;
    if (event.kind == RecurringKind::NoCustomer) {
        r.setText(SlipField::Name, event.title.trimmed());
    } else {
        r.setText(SlipField::AcctNo, v.current.account);
        r.setText(SlipField::Name, v.current.name);
        r.setText(SlipField::Street, v.current.address1);
        r.setText(SlipField::Apt, v.current.address2);
        r.setText(SlipField::City, v.current.city);
        r.setText(SlipField::St, v.current.state);
        r.setText(SlipField::Zip, v.current.zip);
        r.setText(SlipField::Tel, v.current.phone);
    }
    switch (event.kind) {
    case RecurringKind::Invoice:
        r.setText(SlipField::RecType, QStringLiteral("Service"));
        r.setText(SlipField::ConfirmationNo, confirmation);
        break;
    case RecurringKind::NonBillable:
        r.setText(SlipField::RecType, QStringLiteral("Meeting"));
        break;
    case RecurringKind::NoCustomer:
        r.setText(SlipField::RecType, event.title);
        break;
    }
    r.setText(SlipField::TeamNo, QString::number(event.team));
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(event.hours));
    r.setText(SlipField::EventDate, FormatShortDate(date));
    r.setText(SlipField::StartSlot, QString::number(event.startSlot));
    r.setText(SlipField::Reference, event.title);
    r.setText(SlipField::Status, QStringLiteral("Scheduled"));
    r.setText(SlipField::Amount, FormatCurrency(0));
    return r;
}

Result<ScheduledSeries> ScheduleRecurringEvents(CoreContext& c, const RecurringEvent& event,
                                                const QList<QDate>& dates)
{
    ScheduledSeries series;
    if (dates.isEmpty()) return series;
    Store::Group change(c.store);
    if (Status s = scheduleSeries(c, event, dates, series); !s) return s;
    if (Status s = change.commit(); !s) return s;
    return series;
}
} // namespace tresvane
