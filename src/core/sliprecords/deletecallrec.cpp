#include "core/sliprecords/deletecallrec.h"

#include "core/io/cp1252.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/slipfiles.h"
#include "core/sliprecords/recordsummary.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString CompletedSlipsFileName()
{
    return QStringLiteral("/CompletedSlips.txt");
}

QString JobCloserFile()
{
    return QStringLiteral("/TresvaneJobCloser.exe");
}

namespace
{
const QString kTemporary = QStringLiteral("/TemporaryFile.txt");

// A field's bytes as stored, blanks included.
QByteArrayView field(const RecordView& r, int index)
{
    const FieldDef& f = SlipLayout().field(index);
    return r.bytes().sliced(f.offset, f.width);
}
} // namespace

Status WriteCompletedSlip(CoreContext& c)
{
    const QString name = CompletedSlipsFileName();
    qint64 recordNo = 1;
    if (c.store.FileExists(name)) {
        // The length over 297 plus one, rounded as a whole: a short last record of at least
        // half a record is overwritten, a shorter one is followed.
        recordNo =
            Store::roundedRecords(c.store.FileSize(name) + kSlipRecordLength, kSlipRecordLength);
        if (recordNo > 32767)
            return Status::failure(QStringLiteral("%1 holds 32,767 records and can take no more.")
                                       .arg(c.store.describe(name)));
    }
    return c.store.WriteRecordAt(name, kSlipRecordLength, recordNo, c.v.gSlip.bytes());
}

namespace
{

Status deleteCallRec(CoreContext& c, const CallRecordOnShow& shown, qint16 completed,
                     bool& recordGone)
{
    DispatchingVariables& v = c.v;
    const QString name = SearchFileName(shown.SearchFile);
    if (name.isEmpty())
        return Status::failure(QStringLiteral("There is no record file number %1 to delete from.")
                                   .arg(shown.SearchFile));

    // A temporary file left by a failed delete goes first, wherever it is.
    if (Status s = c.store.KillIfPresent(QStringLiteral("/Backup") + kTemporary); !s) return s;
    if (Status s = c.store.KillIfPresent(kTemporary); !s) return s;

    Result<qint32> counted = CountSlipRecords(c.store, name);
    if (!counted) return counted.status();
    Result<QByteArray> bytes = c.store.ReadAll(name);
    if (!bytes) return bytes.status();
    const qsizetype count = *counted;
    bytes->resize(count * kSlipRecordLength, '\0');

    const QString type = v.gSlip.text(SlipField::RecType);
    const RecordView mine = v.gSlip.view();
    QByteArray kept;
    kept.reserve(bytes->size());
    Status failed;
    ForEachRecord(SlipLayout(), *bytes, [&](qsizetype, const RecordView& r) {
        if (!failed) return;
        bool keep = false;
        if (type == QLatin1String("Service")) {
            // Whole fields, blanks and all.
            keep = field(r, SlipField::ConfirmationNo) != field(mine, SlipField::ConfirmationNo);
            if (!keep && completed == -1) failed = WriteCompletedSlip(c);
        } else if (type == QLatin1String("Meeting") || type == QLatin1String("Reoccuring")) {
            keep = field(r, SlipField::Reference) != field(mine, SlipField::Reference);
        }
        if (keep) kept += r.bytes();
    });
    if (!failed) return failed;

    // Until the rename the live file is whole; its copy in Backup stays, as it always has.
    if (Status s = c.store.RewriteThroughTemporary(name, kept, Store::BackupCopy::Keep); !s)
        return s;
    recordGone = true;

    const QString dateText = v.gSlip.text(SlipField::EventDate);
    const QDate date = ParseSlipDate(cp1252::encode(dateText));
    if (!date.isValid())
        return Status::failure(
            QStringLiteral("The record was deleted, but its date \"%1\" in %2 could not be read, "
                           "so its hours were not freed.")
                .arg(dateText, c.store.describe(name)));
    // A day gone by keeps its file as it stands. Today decides, not the date the Scheduling
    // Screen last showed: a slip of today or later must give its hours back, or they stay
    // taken by a record that no longer exists.
    if (date < c.clock.today()) return {};

    v.CurrentTeam = v.gSlip.text(SlipField::TeamNo);
    if (Status s = LoadDay(c, date, v.CurrentTeam); !s) return s;
    const QString confirmation = v.gSlip.text(SlipField::ConfirmationNo);
    for (int i = 1; i <= 12; ++i) {
        QString& slot = v.DaySlots[i];
        bool free = false;
        if (shown.EventKind == QLatin1String("Service"))
            free = slot.contains(confirmation, Qt::CaseInsensitive);
        else if (shown.EventKind == QLatin1String("Meeting"))
            free = slot.contains(QLatin1String("Recurring"), Qt::CaseInsensitive) ||
                   (slot.contains(shown.txtName) && slot.contains(shown.txtTime));
        if (free) slot = NoEventScheduled();
    }
    return WriteDayFile(c, date, v.CurrentTeam);
}

} // namespace

Status DeleteCallRec(CoreContext& c, const CallRecordOnShow& shown, qint16 completed)
{
    // The record file, the completed copy and the freed day land together. A record gone
    // whose day cannot be read is still kept gone, as the message about it says.
    Store::Group change(c.store);
    bool recordGone = false;
    const Status s = deleteCallRec(c, shown, completed, recordGone);
    if (s || recordGone)
        if (Status committed = change.commit(); !committed) return committed;
    return s;
}
} // namespace tresvane
