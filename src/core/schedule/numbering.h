#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

namespace tresvane
{
// Confirmation numbers. Program numbers are "SA" + day of the year + "-" + a sequence
// within that day (Counter.txt); continuous numbers are a running count (SlipNo.txt).
// gConfirmation always holds the number the next slip gets.

// Reads Counter.txt, starts the sequence over when the stored day is not today's, forms
// gConfirmation and writes the counter back.
Status LoadCounter(CoreContext& c);
Status SaveCounter(CoreContext& c);
// Reads SlipNo.txt (1000 when missing) into gNextSlip, the box and gConfirmation.
Status LoadSlipNo(CoreContext& c);
// Takes the number from the box and stores it. A box that is not a number, or is past
// 32,767, is told to the user, marks SlipNumberBad and leaves number and file alone.
Status SaveSlipNo(CoreContext& c);
// Steps the number as a slip is saved under gConfirmation, in the same change as the slip.
// A step past 32,767 is refused with a message for the user and nothing changes; the
// booking's change then ends without landing, so that the next slip can never carry the
// same number again. The counter's last value is therefore never handed out.
Status AdvanceSlipNumber(CoreContext& c);

// The buttons of the next-slip frame: 0 Clear, 1 Reset to 1000, 2 Reload from memory.
// None of them saves.
void ServiceSlipButton(DispatchingVariables& v, int index);

// "SA" + day + "-" + sequence.
QString ProgramConfirmation(const QString& julianDay, qint16 sequence);
} // namespace tresvane
