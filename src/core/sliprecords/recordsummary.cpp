#include "core/sliprecords/recordsummary.h"

#include "core/io/cp1252.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/schedule/slipfiles.h"
#include "core/state/dispatchingvariables.h"

#include <algorithm>

namespace tresvane
{
QString SearchFileName(qint16 searchFile)
{
    switch (searchFile) {
    case 1:
        return SlipsFileName();
    case 2:
        return MeetingsFileName();
    default:
        return {};
    }
}

QDate ParseSlipDate(QByteArrayView text)
{
    return ParseShortDateBytes(text);
}

int SummarySortKey(const QString& eventDate, int currentYear)
{
    const QDate date = ParseSlipDate(cp1252::encode(eventDate.trimmed()));
    if (!date.isValid()) return 0;
    return date.dayOfYear() + (date.year() > currentYear ? 999 : 0);
}

bool SlipExpired(const QString& eventDate, const QDate& today)
{
    const QDate date = ParseSlipDate(cp1252::encode(eventDate.trimmed()));
    return date.isValid() && date < today;
}

namespace
{
int currentYear(const CoreContext& c)
{
    bool ok = false;
    const int year = c.v.gYear.trimmed().toInt(&ok);
    return ok ? year : c.clock.today().year();
}

// The file's bytes for `count` records: a partial last record that the rounded count takes
// is filled with zero bytes, as reading it always gave.
Result<QByteArray> countedRecords(CoreContext& c, const QString& name)
{
    Result<qint32> count = CountSlipRecords(c.store, name);
    if (!count) return count.status();
    Result<QByteArray> bytes = c.store.ReadAll(name);
    if (!bytes) return bytes;
    const qsizetype wanted = qsizetype(*count) * kSlipRecordLength;
    if (bytes->size() != wanted) bytes->resize(wanted, '\0');
    return bytes;
}
} // namespace

Result<RecordSummary> BuildRecordSummary(CoreContext& c)
{
    RecordSummary summary;
    const int year = currentYear(c);
    for (int i : {1, 0}) {
        const QString name = i == 1 ? MeetingsFileName() : SlipsFileName();
        Result<QByteArray> bytes = countedRecords(c, name);
        if (!bytes) return bytes.status();
        const qint32 count = qint32(bytes->size() / kSlipRecordLength);
        (i == 1 ? summary.meetingCount : summary.slipCount) = count;
        const QString kind = i == 0 ? QStringLiteral("Sevice Attn") : QString();
        summary.rows.reserve(summary.rows.size() + count);
        ForEachRecord(SlipLayout(), *bytes, [&](qsizetype, const RecordView& r) {
            SummaryRow row;
            const QByteArrayView date = r.trimmedBytes(SlipField::EventDate);
            row.EventDate = cp1252::decode(date);
            row.kind = kind;
            row.Name = r.text(SlipField::Name);
            row.AcctNo = r.text(SlipField::AcctNo);
            const QDate d = ParseSlipDate(date);
            row.key = d.isValid() ? d.dayOfYear() + (d.year() > year ? 999 : 0) : 0;
            row.ConfirmationNo = r.text(SlipField::ConfirmationNo);
            summary.rows.append(std::move(row));
        });
    }
    std::stable_sort(summary.rows.begin(), summary.rows.end(),
                     [](const SummaryRow& a, const SummaryRow& b) { return a.key < b.key; });
    return summary;
}

Result<qint16> FindSlipByAccountAndDate(CoreContext& c, const QString& account,
                                        const QString& eventDate)
{
    const QByteArray wantedAccount = cp1252::encode(account.trimmed());
    const QByteArray wantedDate = cp1252::encode(eventDate.trimmed());
    for (qint16 searchFile = 1; searchFile <= 2; ++searchFile) {
        Result<QByteArray> bytes = countedRecords(c, SearchFileName(searchFile));
        if (!bytes) return bytes.status();
        qsizetype found = 0;
        ForEachRecord(SlipLayout(), *bytes, [&](qsizetype n, const RecordView& r) {
            if (!found && r.trimmedBytes(SlipField::AcctNo) == wantedAccount &&
                r.trimmedBytes(SlipField::EventDate) == wantedDate)
                found = n;
        });
        if (found) {
            c.v.gSlip = SlipRecord(
                QByteArrayView(*bytes).sliced((found - 1) * kSlipRecordLength, kSlipRecordLength));
            return searchFile;
        }
    }
    return qint16(3);
}
} // namespace tresvane
