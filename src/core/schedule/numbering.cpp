#include "core/schedule/numbering.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

#include <optional>

namespace tresvane
{
namespace
{
const QString kCounter = QStringLiteral("/Counter.txt");
const QString kSlipNo = QStringLiteral("/SlipNo.txt");

// The counter that the next step would move past 32767, or nothing when it can step.
std::optional<QString> counterAtItsEnd(const DispatchingVariables& v)
{
    if (v.settings.ckSlipStyle == 1) {
        if (v.gSequence >= 32767) return QStringLiteral("slip sequence of day ") + v.gJulianDay;
        return std::nullopt;
    }
    if (v.gNextSlip >= 32767) return QStringLiteral("slip number");
    return std::nullopt;
}
} // namespace

QString ProgramConfirmation(const QString& julianDay, qint16 sequence)
{
    return QStringLiteral("SA") + julianDay.trimmed() + u'-' + QString::number(sequence);
}

Status LoadCounter(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    const QString today = QString::number(c.clock.today().dayOfYear());
    QString julian = today;
    qint16 sequence = 1;
    v.gCounterExists = c.store.FileExists(kCounter);
    if (v.gCounterExists) {
        Result<QByteArray> bytes = c.store.ReadAll(kCounter);
        if (!bytes) return bytes.status();
        TextReader r(*bytes, c.store.describe(kCounter));
        Result<QString> day = r.readString();
        if (!day) return day.status();
        Result<qint16> seq = r.readInt16();
        if (!seq) return seq.status();
        julian = *day;
        sequence = *seq;
        // One comparison is the whole rollover: any other day, earlier or later, starts
        // the count again.
        if (julian != today) {
            julian = today;
            sequence = 1;
        }
    }
    v.gJulianDay = julian;
    v.gSequence = sequence;
    v.gConfirmation = ProgramConfirmation(v.gJulianDay, v.gSequence);
    return SaveCounter(c);
}

Status SaveCounter(CoreContext& c)
{
    TextWriter w;
    w.line(c.v.gJulianDay, c.v.gSequence);
    return c.store.RewriteTextFile(kCounter, w.bytes());
}

Status LoadSlipNo(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    qint16 next = 1000;
    if (c.store.FileExists(kSlipNo)) {
        Result<QByteArray> bytes = c.store.ReadAll(kSlipNo);
        if (!bytes) return bytes.status();
        TextReader r(*bytes, c.store.describe(kSlipNo));
        Result<qint16> n = r.readInt16();
        if (!n) return n.status();
        next = *n;
    }
    v.gNextSlip = next;
    v.settings.txtNextSlip = QString::number(next);
    v.gConfirmation = QString::number(next);
    return {};
}

Status SaveSlipNo(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    const QString text = v.settings.txtNextSlip;
    if (!IsNumeric(text)) {
        c.dialogs.message(QStringLiteral("The Slip Number MUST be Numeric"));
        v.settings.SlipNumberBad = true;
        return Status::failure(QStringLiteral("The Slip Number MUST be Numeric"));
    }
    const double value = std::nearbyint(NumericValue(text));
    if (value > 32767 || value < -32768) {
        const QString message = QStringLiteral("The Slip Number can not be larger than 32767");
        c.dialogs.message(message);
        v.settings.SlipNumberBad = true;
        return Status::failure(message);
    }
    v.gNextSlip = qint16(value);
    TextWriter w;
    w.line(v.gNextSlip);
    return c.store.RewriteTextFile(kSlipNo, w.bytes());
}

Status AdvanceSlipNumber(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    const bool keep = v.gKeepSlipNumber;
    v.gKeepSlipNumber = false;
    if (keep) return {};
    if (const std::optional<QString> full = counterAtItsEnd(v))
        return Status::failure(
            QStringLiteral("The %1 can not go past 32767.\nThe slip was not saved.").arg(*full));
    if (v.settings.ckSlipStyle == 1) {
        // The day is not looked at: past midnight the old day's count goes on until the
        // counter is loaded again.
        ++v.gSequence;
        v.gConfirmation = ProgramConfirmation(v.gJulianDay, v.gSequence);
        return {};
    }
    const qint16 next = v.gNextSlip + 1;
    const QString before = v.settings.txtNextSlip;
    v.settings.txtNextSlip = QString::number(next);
    if (Status s = SaveSlipNo(c); !s) {
        v.settings.txtNextSlip = before;
        return s;
    }
    // gConfirmation is formed again only when the number is loaded.
    return {};
}

void ServiceSlipButton(DispatchingVariables& v, int index)
{
    switch (index) {
    case 0:
        v.settings.txtNextSlip.clear();
        break;
    case 1:
        v.settings.txtNextSlip = QStringLiteral("1000");
        break;
    case 2:
        // Despite its caption, the number in memory, not the file.
        v.settings.txtNextSlip = QString::number(v.gNextSlip);
        break;
    default:
        break;
    }
}
} // namespace tresvane
