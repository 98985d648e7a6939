#include "core/housekeeping/purge.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/schedule/slipfiles.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString PurgedDateFileName()
{
    return QStringLiteral("/PurgedDate.txt");
}

namespace
{

Status purgeDayFiles(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    const QDate today = c.clock.today();
    v.gDayOfYear = qint16(today.dayOfYear());
    qint32 startDay = 1;
    if (c.store.FileExists(PurgedDateFileName())) {
        Result<QByteArray> bytes = c.store.ReadAll(PurgedDateFileName());
        if (!bytes) return bytes.status();
        TextReader reader(*bytes, c.store.describe(PurgedDateFileName()));
        Result<qint32> stored = reader.readInt32();
        if (!stored) return stored.status();
        startDay = qMax<qint32>(*stored, 1);
    }
    // The year's folder by number only: last year's days go with its whole tree.
    const QString year =
        v.gYear.trimmed().isEmpty() ? QString::number(today.year()) : v.gYear.trimmed();
    for (int team = 1; team <= v.TeamCount(); ++team) {
        const QString folder = u'/' + year + QStringLiteral("/Team#") + QString::number(team);
        if (!c.store.IsFolder(folder)) continue;
        for (qint32 day = startDay; day <= v.gDayOfYear - 1; ++day)
            if (Status s = c.store.KillIfPresent(folder + u'/' + QString::number(day) +
                                                 QStringLiteral(".txt"));
                !s)
                return s;
    }
    TextWriter out;
    out.line(qint64(v.gDayOfYear - 1));
    if (Status s = c.store.WriteFile(PurgedDateFileName(), out.bytes()); !s) return s;
    return PurgeMeetings(c);
}

} // namespace

Status PurgeDayFiles(CoreContext& c)
{
    // The days, the date of the purge and the meetings land as one change: a crash part
    // way leaves no day gone while the purge date says it was never reached, nor the
    // reverse.
    return c.store.inGroup([&c] { return purgeDayFiles(c); });
}

Status PurgeMeetings(CoreContext& c)
{
    const QString name = MeetingsFileName();
    if (!c.store.FileExists(name)) return {};
    Result<qint32> count = CountSlipRecords(c.store, name);
    if (!count) return count.status();
    if (*count < 1) return {};
    Result<QList<SlipRecord>> records = ReadSlipRecords(c.store, name);
    if (!records) return records.status();
    const QDate today = c.clock.today();
    QByteArray kept;
    qint32 recordNo = 0;
    for (const SlipRecord& record : *records) {
        ++recordNo;
        const QString text = record.text(SlipField::EventDate);
        const std::optional<QDate> date = ParseShortDate(text);
        if (!date)
            return Status::failure(
                QStringLiteral("The file %1 is damaged: record %2 holds \"%3\" where a date "
                               "belongs.")
                    .arg(c.store.describe(name))
                    .arg(recordNo)
                    .arg(text));
        if (*date >= today) kept += record.bytes();
    }
    return c.store.RewriteThroughTemporary(name, kept);
}
} // namespace tresvane
