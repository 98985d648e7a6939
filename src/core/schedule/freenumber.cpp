#include "core/schedule/freenumber.h"

#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/schedule/numbering.h"
#include "core/schedule/slipfiles.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
namespace
{

// The number as the record's field holds it: cut to its width, blanks removed.
QByteArray asStored(const QString& number)
{
    const int width = SlipLayout().field(SlipField::ConfirmationNo).width;
    return number.toLatin1().left(width).trimmed();
}

} // namespace

Result<QSet<QByteArray>> ConfirmationNumbersOnFile(Store& store)
{
    QSet<QByteArray> numbers;
    for (const QString& name : {SlipsFileName(), MeetingsFileName()}) {
        if (!store.IsFile(name)) continue;
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) return bytes.status();
        const QByteArray& data = *bytes;
        for (qsizetype at = 0; at + kSlipRecordLength <= data.size(); at += kSlipRecordLength) {
            const QByteArrayView number = RecordView(SlipLayout(), data.constData() + at)
                                              .trimmedBytes(SlipField::ConfirmationNo);
            if (!number.isEmpty()) numbers.insert(number.toByteArray());
        }
    }
    return numbers;
}

Status TakeFreeConfirmation(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    Result<QSet<QByteArray>> taken = ConfirmationNumbersOnFile(c.store);
    if (!taken) return taken.status();
    if (!taken->contains(asStored(v.gConfirmation))) return {};

    const QString first = v.gConfirmation;
    const bool program = v.settings.ckSlipStyle == 1;
    qint16 next = program ? v.gSequence : v.gNextSlip;
    auto numberOf = [&](qint16 n) {
        return program ? ProgramConfirmation(v.gJulianDay, n) : QString::number(n);
    };
    // The running scheme forms its number only at load; once that one is used, the
    // running number is the one to give.
    if (!program && numberOf(next) != first && !taken->contains(asStored(numberOf(next)))) {
        v.gConfirmation = numberOf(next);
        return {};
    }
    while (taken->contains(asStored(numberOf(next)))) {
        if (next >= 32767)
            return Status::failure(QStringLiteral(
                "Every confirmation number up to 32767 is already used by a slip on file.\n"
                "No number was changed."));
        ++next;
    }
    if (program) {
        v.gSequence = next;
        if (Status s = SaveCounter(c); !s) return s;
    } else {
        const QString before = v.settings.txtNextSlip;
        v.settings.txtNextSlip = QString::number(next);
        if (Status s = SaveSlipNo(c); !s) {
            v.settings.txtNextSlip = before;
            return s;
        }
    }
    v.gConfirmation = numberOf(next);
    if (!v.gNumberStepTold) {
        v.gNumberStepTold = true;
        c.dialogs.message(QStringLiteral("The confirmation number %1 is already used by a slip "
                                         "on file.\nThis slip gets the next free number, %2.")
                              .arg(first, v.gConfirmation),
                          QStringLiteral("Confirmation Number"));
    }
    return {};
}
} // namespace tresvane
