#include "core/sliprecords/recordsearch.h"

#include "core/customers/customerfiles.h"
#include "core/io/cp1252.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/slipfiles.h"
#include "core/schedule/timegrid.h"
#include "core/sliprecords/recordsummary.h"
#include "core/state/dispatchingvariables.h"

#include <optional>

namespace tresvane
{
namespace
{
// The text as stored bytes, or nothing when a stored field could never hold it.
std::optional<QByteArray> storable(const QString& text)
{
    QByteArray bytes = cp1252::encode(text);
    if (cp1252::decode(bytes) != text) return std::nullopt;
    return bytes;
}

Status noSearchFile(qint16 searchFile)
{
    return Status::failure(
        QStringLiteral("There is no record file number %1 to search.").arg(searchFile));
}
} // namespace

Result<bool> ReadCallSlip(CoreContext& c, qint16 searchFile, SearchBy by, const QString& txtConfNo,
                          const QString& txtTelNo)
{
    const QString name = SearchFileName(searchFile);
    if (name.isEmpty()) return noSearchFile(searchFile);
    Result<qint32> counted = CountSlipRecords(c.store, name);
    if (!counted) return counted.status();
    Result<QByteArray> bytes = c.store.ReadAll(name);
    if (!bytes) return bytes.status();
    const std::optional<QByteArray> confirmation = storable(txtConfNo);
    const std::optional<QByteArray> account = storable(txtTelNo.trimmed());
    const qsizetype count = *counted;
    qsizetype found = 0;
    ForEachRecord(SlipLayout(), *bytes, [&](qsizetype n, const RecordView& r) {
        if (found || n > count) return;
        if (by == SearchBy::ConfirmationNo && confirmation &&
            r.trimmedBytes(SlipField::ConfirmationNo) == *confirmation)
            found = n;
        else if (by == SearchBy::AccountNo && account &&
                 r.trimmedBytes(SlipField::AcctNo) == *account)
            found = n;
    });
    if (!found) {
        c.dialogs.message(QStringLiteral("No Call Record with this Search Criteria Exists"),
                          QStringLiteral("Search Not found"));
        return false;
    }
    c.v.gSlip = SlipRecord(
        QByteArrayView(*bytes).sliced((found - 1) * kSlipRecordLength, kSlipRecordLength));
    return true;
}

Result<SequentialRead> ReadSequentually(CoreContext& c, qint16 searchFile, qint16& RecPointer)
{
    const QString name = SearchFileName(searchFile);
    if (name.isEmpty()) return noSearchFile(searchFile);
    Result<qint32> counted = CountSlipRecords(c.store, name);
    if (!counted) return counted.status();
    const qint32 count = *counted;
    if (RecPointer < 1 || RecPointer > count) return SequentialRead::PastEnd;
    Result<QByteArray> record = c.store.ReadRecordAt(name, kSlipRecordLength, RecPointer);
    if (!record) return record.status();
    c.v.gSlip = SlipRecord(*record);
    if (RecPointer + 1 > count) {
        RecPointer = 0;
        return SequentialRead::LoadedLast;
    }
    return SequentialRead::Loaded;
}

RecordDetail LoadRecData(CoreContext& c, bool CompletionInstalled)
{
    DispatchingVariables& v = c.v;
    SlipRecord& slip = v.gSlip;
    // Each field is taken trimmed and stored back so, padded to its width again.
    auto take = [&slip](int field) {
        const QString text = slip.text(field);
        slip.setText(field, text);
        return text;
    };
    RecordDetail d;
    d.EventKind = take(SlipField::RecType);
    d.txtName = take(SlipField::Name);
    d.txtStreet = take(SlipField::Street);
    d.txtCity = take(SlipField::City);
    d.txtApt = take(SlipField::Apt);
    d.txtSt = take(SlipField::St);
    d.txtZip = take(SlipField::Zip);
    d.txtTel = take(SlipField::Tel);
    d.txtAcctNo = take(SlipField::AcctNo);

    v.current.account = d.txtAcctNo;
    v.current.name = d.txtName;
    v.current.address1 = d.txtStreet;
    v.current.address2 = d.txtApt;
    v.current.city = d.txtCity;
    v.current.state = d.txtSt;
    v.current.zip = d.txtZip;
    v.current.phone = d.txtTel;

    const QString hours = take(SlipField::Hours);
    d.txtDuration = hours + u' ' + take(SlipField::TimeUnit);
    const QString start = take(SlipField::StartSlot);
    if (start != QLatin1String("No")) {
        bool ok = false;
        const int slot = start.toInt(&ok);
        if (ok && slot >= 0 && slot <= 12) {
            d.txtTime = GridLabel(v, slot);
            d.timeLabel = v.TimeLabels[slot];
        }
    }
    d.txtDate = take(SlipField::EventDate);
    const QDate date = ParseSlipDate(cp1252::encode(d.txtDate));
    if (date.isValid()) d.txtDay = WeekdayName(date);
    d.txtStatus = take(SlipField::Status);
    d.txtAmount = take(SlipField::Amount);
    if (const std::optional<qint64> units = ParseCurrency(d.txtAmount)) {
        d.txtAmount = FormatCurrency(*units);
        slip.setText(SlipField::Amount, d.txtAmount);
    }
    d.txtForm = take(SlipField::PaymentForm);
    d.txtReference = d.EventKind == QLatin1String("Service") ? take(SlipField::ConfirmationNo)
                                                             : take(SlipField::Reference);

    const QDate today = c.clock.today();
    const bool open =
        date.isValid() &&
        (date > today || (date == today && d.txtStatus == QLatin1String("Scheduled")));
    d.cmdCancel = d.cmdReschedule = open;
    d.cmdCompleted = open && !CompletionInstalled;
    return d;
}
} // namespace tresvane
