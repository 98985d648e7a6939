#include "core/schedule/dayview.h"

#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/slipfiles.h"

namespace tresvane
{

QString DayViewFreeText()
{
    return QString(9, u' ') + NoEventScheduled() + QStringLiteral("\n\n");
}

namespace
{
bool belongsToDay(const SlipRecord& r, const QDate& day, const QString& dayText,
                  const QString& team)
{
    const QString date = r.text(SlipField::EventDate);
    const std::optional<QDate> parsed = ParseShortDate(date);
    return parsed && parsed->dayOfYear() == day.dayOfYear() && date.right(2) == dayText.right(2) &&
           r.text(SlipField::TeamNo) == team;
}

int recordHours(const SlipRecord& r)
{
    if (r.text(SlipField::TimeUnit) == u"Days") return 8;
    return r.text(SlipField::Hours).toInt();
}
} // namespace

Result<QList<SlipRecord>> ReadDayRecords(Store& store, const QDate& date, const QString& team)
{
    QList<SlipRecord> day;
    const QString dayText = FormatShortDate(date);
    const QString wanted = team.trimmed();
    const QByteArray wantedBytes = wanted.toLatin1();
    for (const QString& name : {SlipsFileName(), MeetingsFileName()}) {
        if (!store.FileExists(name)) continue;
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) return bytes.status();
        const qint64 count = Store::roundedRecords(bytes->size(), kSlipRecordLength);
        for (qint64 i = 0; i < count; ++i) {
            const qint64 offset = i * kSlipRecordLength;
            const qint64 length = qMin<qint64>(kSlipRecordLength, bytes->size() - offset);
            const QByteArrayView raw(bytes->constData() + offset, length);
            // The team first, on the raw bytes: most records of a busy file are other days.
            if (length == kSlipRecordLength &&
                RecordView(SlipLayout(), raw.data()).trimmedBytes(SlipField::TeamNo) != wantedBytes)
                continue;
            SlipRecord r(raw);
            if (belongsToDay(r, date, dayText, wanted)) day.append(r);
        }
    }
    return day;
}

Result<TeamDay> ReadTeamDay(CoreContext& c, const QDate& date, const QString& team)
{
    TeamDay day;
    day.team = team;
    day.date = date;
    if (Status s = LoadDay(c, date, team); !s) return s;
    day.slotTexts = GridFromDaySlots(c.v);
    Result<QList<SlipRecord>> records = ReadDayRecords(c.store, date, team);
    if (!records) return records.status();
    day.records = std::move(*records);
    return day;
}

DayView DayViewOf(const QList<SlipRecord>& records, const GridColumn& grid)
{
    DayView view;
    for (DayViewSlot& slot : view.hours)
        slot.text = DayViewFreeText();
    for (const QString& row : grid)
        if (row.contains(NoEventScheduled())) ++view.counter;
    for (const SlipRecord& r : records) {
        if (view.counter > 12) break;
        const int s = r.text(SlipField::StartSlot).toInt() - 1;
        if (s < 0 || s > 11) continue;
        DayViewSlot& slot = view.hours[s];
        slot.name = r.text(SlipField::Name);
        slot.street = r.text(SlipField::Street);
        slot.city = r.text(SlipField::City);
        slot.st = r.text(SlipField::St);
        slot.tel = r.text(SlipField::Tel);
        slot.reference = r.text(SlipField::Reference);
        slot.text = slot.name + u'\n' + slot.street + u'\n' + slot.city + QStringLiteral(", ") +
                    slot.st + u'\n' + slot.tel + u'\n' + slot.reference;
        slot.nameTip = slot.name;
        slot.phoneTip = slot.tel;
        ++view.counter;
        const int hours = recordHours(r);
        for (int k = 1; k < hours; ++k) {
            ++view.counter;
            if (s + k > 11) continue;
            view.hours[s + k] = slot;
        }
    }
    return view;
}

} // namespace tresvane
