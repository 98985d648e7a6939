#include "core/schedule/booking.h"

#include "core/entry/keyfilters.h"
#include "core/exports/exportsettings.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/numbering.h"
#include "core/schedule/slipfiles.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString NoSlotSelected()
{
    return QStringLiteral("No Slot Selected");
}

QDate NextWorkDay(const DispatchingVariables& v, QDate& date)
{
    date = AdjustWorkDay(date, v.gWorkDays);
    return date;
}

QDate NextBookingDate(const Clock& clock)
{
    const QDateTime now = clock.now();
    return now.time().hour() > 19 ? now.date().addDays(1) : now.date();
}

QDate OpeningBookingDate(CoreContext& c)
{
    QDate date = NextBookingDate(c.clock);
    return NextWorkDay(c.v, date);
}

namespace
{
int currentYear(const CoreContext& c)
{
    bool ok = false;
    const int year = c.v.gYear.trimmed().toInt(&ok);
    return ok ? year : c.clock.today().year();
}
} // namespace

Result<QDate> CalenderChange(CoreContext& c, QDate picked)
{
    const QDate today = c.clock.today();
    if (!picked.isValid() || picked < today) {
        if (c.v.gAlarms) c.dialogs.beep();
        if (c.v.gPrompts) CalendarMessage(c.dialogs);
        picked = today;
    }
    if (picked == today) picked = NextBookingDate(c.clock);
    if (picked.year() > currentYear(c))
        if (Status s = PrepareYearFolders(c, QString::number(picked.year())); !s) return s;
    NextWorkDay(c.v, picked);
    c.v.gDayOfYear = qint16(picked.dayOfYear());
    return picked;
}

Result<QString> LoadStoredSlip(CoreContext& c, qint32 row)
{
    const QString name = UnscheduledSlipsFileName();
    Result<QList<SlipRecord>> records = ReadSlipRecords(c.store, name);
    if (!records) return records.status();
    if (row < 1 || row > records->size())
        return Status::failure(QStringLiteral("There is no stored slip %1 in %2.")
                                   .arg(row)
                                   .arg(c.store.describe(name)));
    const SlipRecord& slip = records->at(row - 1);
    DispatchingVariables& v = c.v;
    v.current.account = slip.text(SlipField::AcctNo);
    v.current.name = slip.text(SlipField::Name);
    v.current.address1 = slip.text(SlipField::Street);
    v.current.address2 = slip.text(SlipField::Apt);
    v.current.city = slip.text(SlipField::City);
    v.current.state = slip.text(SlipField::St);
    v.current.zip = slip.text(SlipField::Zip);
    v.current.phone = slip.text(SlipField::Tel);
    return slip.text(SlipField::Reference);
}

Result<bool> DeleteSelectedStoredSlip(CoreContext& c, qint32 row)
{
    if (!c.dialogs.ask(QStringLiteral("This will Delete the Selected Slip Record"),
                       QStringLiteral("Record Deletion")))
        return false;
    if (Status s = DeleteUnscheduledSlip(c.store, row); !s) return s;
    return true;
}

Result<BookingSaved> SaveBooking(CoreContext& c, const BookingRequest& r)
{
    // Everything up to a confirmation lands together, before the confirmation is shown.
    Store::Group change(c.store);
    DispatchingVariables& v = c.v;
    if (r.unscheduled) {
        // The grid's hours are not written and the number is not taken: the next slip gets
        // the same number.
        FillSlipRecord(v.gSlip, r);
        if (Status s = c.store.AppendRecord(UnscheduledSlipsFileName(), kSlipRecordLength,
                                            v.gSlip.bytes());
            !s)
            return s;
        if (Status s = change.commit(); !s) return s;
        c.dialogs.message(QStringLiteral("An Open Slip has been Created\n"
                                         "If you clicked on an hour BEFORE selecting to create\n"
                                         "an unscheduled slip, the hours will be reset (cleared)"));
        return BookingSaved::StoredUnscheduled;
    }

    if (r.eventText == NoSlotSelected()) {
        c.dialogs.message(QStringLiteral("You have not selected a Time for this Event"),
                          QStringLiteral("Click on a Time"), Dialogs::Buttons::Ok,
                          Dialogs::Icon::Critical);
        if (v.gAlarms) c.dialogs.beep();
        return BookingSaved::NoTimeSelected;
    }

    if (r.dayFile.isEmpty())
        return Status::failure(QStringLiteral("No day is shown to book the event on."));
    if (Status s = WriteDaySlots(c.store, r.dayFile, v.DaySlots); !s) return s;
    FillSlipRecord(v.gSlip, r);

    if (r.kind == SlipKind::ServiceAttention) {
        // The day, the record and the counter land together: a number is taken exactly
        // when its record is written, so none is ever used twice. A number that cannot be
        // followed by another ends the change here, and neither the day nor the record
        // lands.
        if (Status s = c.store.AppendRecord(SlipsFileName(), kSlipRecordLength, v.gSlip.bytes());
            !s)
            return s;
        if (!r.rescheduledFrom.trimmed().isEmpty())
            if (Status s =
                    NoteRescheduledSlip(c.store, r.rescheduledFrom, r.number, c.clock.today());
                !s)
                return s;
        if (Status s = AdvanceSlipNumber(c); !s) return s;
        if (Status s = SaveCounter(c); !s) return s;
        if (Status s = change.commit(); !s) return s;
        c.dialogs.message(QStringLiteral("Service  Attention ") + r.number +
                              QStringLiteral(" has been Scheduled"),
                          QStringLiteral("Confirmation"));
        if (r.fromStoredSlip) {
            Result<bool> removed = DeleteSelectedStoredSlip(c, r.storedSlipRow);
            if (!removed) return removed.status();
            // The removal joined this change; it lands on its own, after the confirmation.
            if (Status s = change.commit(); !s) return s;
        }
        return BookingSaved::Scheduled;
    }
    if (r.kind == SlipKind::Meeting) {
        if (Status s = c.store.AppendRecord(MeetingsFileName(), kSlipRecordLength, v.gSlip.bytes());
            !s)
            return s;
        if (Status s = change.commit(); !s) return s;
        c.dialogs.message(QStringLiteral("Customer Meeting has been Scheduled"),
                          QStringLiteral("Confirmation"));
        return BookingSaved::MeetingScheduled;
    }
    if (Status s = change.commit(); !s) return s;
    return BookingSaved::DayWritten;
}
} // namespace tresvane
