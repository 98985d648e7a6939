#include "core/schedule/dayview.h"

#include "core/io/store.h"
#include "core/io/usforms.h"
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

Result<DayView> BuildDayView(CoreContext& c, const QDate& calendarDate, const QString& team,
                             const GridColumn& grid)
{
    DayView view;
    for (DayViewSlot& slot : view.hours)
        slot.text = DayViewFreeText();
    for (const QString& row : grid)
        if (row.contains(NoEventScheduled())) ++view.counter;

    const QString dayText = FormatShortDate(calendarDate);
    const QString wantedTeam = team.trimmed();
    for (const QString& name : {SlipsFileName(), MeetingsFileName()}) {
        Result<QList<SlipRecord>> records = ReadSlipRecords(c.store, name);
        if (!records) return records.status();
        for (const SlipRecord& r : *records) {
            if (view.counter > 12) break;
            if (!belongsToDay(r, calendarDate, dayText, wantedTeam)) continue;
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
    }
    return view;
}

} // namespace tresvane
