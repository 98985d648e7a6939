#include "core/history/courtesycalls.h"

#include "core/history/textpool.h"
#include "core/io/cp1252.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/schedule/slipfiles.h"
#include "core/schedule/timegrid.h"
#include "core/sliprecords/recordsummary.h"
#include "core/state/dispatchingvariables.h"

#include <QHash>
#include <algorithm>

namespace tresvane
{
namespace
{
// A small number field: the value, or -1 when it is not a plain number.
int smallNumber(QByteArrayView text)
{
    if (text.isEmpty() || text.size() > 4) return -1;
    int n = 0;
    for (char ch : text) {
        if (ch < '0' || ch > '9') return -1;
        n = n * 10 + (ch - '0');
    }
    return n;
}
} // namespace

QString CourtesyDateKey(const QDate& date)
{
    return QStringLiteral("%1%2")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(date.dayOfYear(), 3, 10, QLatin1Char('0'));
}

QDate CourtesyEnding(int button, const QDate& today, const QDate& current)
{
    switch (button) {
    case 5:
        return today.addYears(1);
    case 6:
        return today.addMonths(1);
    case 7:
        return today.addMonths(3);
    default:
        return current;
    }
}

Result<QList<QStringList>> LoadCourtesyCalls(CoreContext& c, const QDate& from, const QDate& to)
{
    Result<qint32> count = CountSlipRecords(c.store, SlipsFileName());
    if (!count) return count.status();
    Result<QByteArray> bytes = c.store.ReadAll(SlipsFileName());
    if (!bytes) return bytes.status();
    bytes->resize(qsizetype(*count) * kSlipRecordLength, '\0');

    struct Row {
        int key;
        int slot; // the day's slots run in time order; a slot without a time goes last
        QStringList cells;
    };
    QList<Row> rows;
    TextPool pool;
    QHash<int, QString> keys;
    ForEachRecord(SlipLayout(), *bytes, [&](qsizetype, const RecordView& r) {
        const QByteArrayView dateText = r.trimmedBytes(SlipField::EventDate);
        const QDate date = ParseSlipDate(dateText);
        if (!date.isValid() || date < from || date > to) return;
        const int slot = smallNumber(r.trimmedBytes(SlipField::StartSlot));
        const int team = smallNumber(r.trimmedBytes(SlipField::TeamNo));
        const int key = date.year() * 1000 + date.dayOfYear();
        QString& keyText = keys[key];
        if (keyText.isNull()) keyText = CourtesyDateKey(date);
        const bool timed = slot >= 1 && slot <= 12;
        rows.append({key,
                     timed ? slot : 13,
                     {r.text(SlipField::Name), pool.get(dateText),
                      timed ? GridLabel(c.v, slot) : QString(), r.text(SlipField::Tel),
                      team >= 1 && team < c.v.gAssignTo.size() ? c.v.gAssignTo[team] : QString(),
                      pool.get(r.trimmedBytes(SlipField::Reference)), keyText}});
    });
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        return a.key != b.key ? a.key < b.key : a.slot < b.slot;
    });
    QList<QStringList> out;
    out.reserve(rows.size());
    for (Row& row : rows)
        out.append(std::move(row.cells));
    return out;
}
} // namespace tresvane
