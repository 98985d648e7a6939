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
// A record's day and team as one key: the same day of the year, the same last two
// characters of its date (the year's last digits) and the same team. Empty when its date
// does not read as one.
QString dayKey(const QString& dateText, const QString& team)
{
    const std::optional<QDate> parsed = ParseShortDate(dateText);
    if (!parsed) return {};
    return QString::number(parsed->dayOfYear()) + u'|' + dateText.right(2) + u'|' + team;
}

QString dayKey(const QDate& date, const QString& team)
{
    return QString::number(date.dayOfYear()) + u'|' + FormatShortDate(date).right(2) + u'|' +
           team.trimmed();
}

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

Status DayRecordIndex::refresh(Store& store, const QString& name, File& file)
{
    const FileStamp stamp = store.Stamp(name);
    if (file.built && stamp == file.stamp) return {};
    file = File();
    if (!store.FileExists(name)) {
        file.built = true;
        file.stamp = store.Stamp(name);
        return {};
    }
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    file.bytes = std::move(*bytes);
    const qint64 count = Store::roundedRecords(file.bytes.size(), kSlipRecordLength);
    for (qint64 i = 0; i < count; ++i) {
        const qint64 offset = i * kSlipRecordLength;
        QString key;
        if (offset + kSlipRecordLength <= file.bytes.size()) {
            const RecordView r(SlipLayout(), file.bytes.constData() + offset);
            key = dayKey(r.text(SlipField::EventDate), r.text(SlipField::TeamNo));
        } else {
            const SlipRecord r(QByteArrayView(file.bytes).sliced(offset));
            key = dayKey(r.text(SlipField::EventDate), r.text(SlipField::TeamNo));
        }
        if (!key.isEmpty()) file.days[key].append(qint32(offset));
    }
    file.built = true;
    file.stamp = stamp;
    return {};
}

Result<QList<SlipRecord>> DayRecordIndex::records(Store& store, const QDate& date,
                                                  const QString& team)
{
    // Reads inside an open change see what is not on disk yet: no stamp can vouch for them.
    if (store.changeOpen()) return ReadDayRecords(store, date, team);
    QList<SlipRecord> day;
    const QString key = dayKey(date, team);
    const QString names[] = {SlipsFileName(), MeetingsFileName()};
    for (size_t f = 0; f < m_files.size(); ++f) {
        File& file = m_files[f];
        if (Status s = refresh(store, names[f], file); !s) return s;
        for (const qint32 offset : file.days.value(key)) {
            const qint64 length = qMin<qint64>(kSlipRecordLength, file.bytes.size() - offset);
            day.append(SlipRecord(QByteArrayView(file.bytes.constData() + offset, length)));
        }
    }
    return day;
}

Result<TeamDay> ReadTeamDay(CoreContext& c, const QDate& date, const QString& team,
                            DayRecordIndex* index)
{
    TeamDay day;
    day.team = team;
    day.date = date;
    if (Status s = LoadDay(c, date, team); !s) return s;
    day.file = c.v.DayFilePath;
    day.slotTexts = GridFromDaySlots(c.v);
    Result<QList<SlipRecord>> records =
        index ? index->records(c.store, date, team) : ReadDayRecords(c.store, date, team);
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
