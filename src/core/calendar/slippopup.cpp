#include "core/calendar/slippopup.h"

#include "core/io/record.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/schedule/dayview.h"
#include "core/schedule/timegrid.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
namespace
{

// Whether the record is the one whose text the hour holds.
bool textBelongs(SlotFile file, const RecordView& r, const QString& text)
{
    const QString number = r.text(SlipField::ConfirmationNo);
    const QString reference = r.text(SlipField::Reference);
    switch (file) {
    case SlotFile::Slips:
        // A slip's text is its number, a blank and the name: SA110-1 is not SA110-12.
        return !number.isEmpty() && (text == number || text.startsWith(number + u' '));
    case SlotFile::Meetings:
        // A meeting keeps its hour's text, cut to the field, as its reference.
        return !reference.isEmpty() &&
               text.left(SlipLayout().field(SlipField::Reference).width).trimmed() == reference;
    case SlotFile::Projects:
        return !number.isEmpty() && !reference.isEmpty() && text.contains(number) &&
               text.contains(reference);
    default:
        return false;
    }
}

bool holdsHour(const RecordView& r, int slot)
{
    bool ok = false;
    const int start = r.text(SlipField::StartSlot).toInt(&ok);
    if (!ok) return false;
    int hours = r.text(SlipField::Hours).toInt();
    if (r.text(SlipField::TimeUnit) == u"Days") hours = 8;
    return slot >= start && slot < start + std::max(hours, 1);
}

} // namespace

std::optional<SlipRecord> RecordOfSlot(const QList<SlipRecord>& records, const ClickedSlot& clicked)
{
    std::optional<SlipRecord> found;
    for (const SlipRecord& r : records) {
        if (!textBelongs(clicked.file, r.view(), clicked.text)) continue;
        if (holdsHour(r.view(), clicked.slot)) return r;
        if (!found) found = r;
    }
    return found;
}

Result<std::optional<SlipRecord>> FindSlotRecord(CoreContext& c, const ClickedSlot& clicked)
{
    const QString team = QString::number(clicked.team);
    QList<SlipRecord> records;
    switch (clicked.file) {
    case SlotFile::Slips:
    case SlotFile::Meetings: {
        // The day's own records, as every view of a team's day reads them.
        Result<QList<SlipRecord>> day = ReadDayRecords(c.store, clicked.date, team);
        if (!day) return day.status();
        records = std::move(*day);
        break;
    }
    case SlotFile::Projects: {
        const QString name = ProjectRecordsFileName();
        if (!c.store.IsFile(name)) break;
        Result<QByteArray> bytes = c.store.ReadAll(name);
        if (!bytes) return bytes.status();
        const QByteArray number = team.toLatin1();
        ForEachRecord(SlipLayout(), *bytes, [&](qsizetype, const RecordView& r) {
            if (r.trimmedBytes(SlipField::TeamNo) == number &&
                ParseShortDateBytes(r.trimmedBytes(SlipField::EventDate)) == clicked.date)
                records.append(SlipRecord(r.bytes()));
        });
        break;
    }
    default:
        break;
    }
    return RecordOfSlot(records, clicked);
}

SlipPopupText PopupText(const DispatchingVariables& v, const SlipRecord& r, const QString& teamName)
{
    SlipPopupText t;
    t.name = r.text(SlipField::Name);
    t.street = r.text(SlipField::Street);
    t.city = r.text(SlipField::City);
    t.apt = r.text(SlipField::Apt);
    t.state = r.text(SlipField::St);
    t.zip = r.text(SlipField::Zip);
    t.tel = r.text(SlipField::Tel);
    t.account = r.text(SlipField::AcctNo);
    t.assignTo = teamName;
    t.duration = r.text(SlipField::Hours) + u' ' + r.text(SlipField::TimeUnit);
    bool ok = false;
    const int start = r.text(SlipField::StartSlot).toInt(&ok);
    if (ok && start >= 1 && start <= 12) t.time = GridLabel(v, start);
    t.date = r.text(SlipField::EventDate);
    t.reference = r.text(SlipField::Reference);
    return t;
}
} // namespace tresvane
