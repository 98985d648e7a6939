#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QByteArray>
#include <QSet>

namespace tresvane
{
class Store;

// A confirmation number is the slip's name for the rest of its life: the record screen
// finds, moves and deletes slips by it. A counter that went back (a restored Counter.txt,
// a sibling program, a sample) must therefore never hand out a number a slip on file
// already carries.

// The confirmation numbers of the records in Slips.txt and Meetings.txt, as stored (cut to
// the field's width, blanks removed). One pass over each file.
Result<QSet<QByteArray>> ConfirmationNumbersOnFile(Store& store);

// Makes gConfirmation a number no slip on file carries, stepping the day's sequence or the
// running number past every taken one and storing the counter. The first time in a run a
// number is skipped the user is told which, and why; later skips pass quietly. A number
// formed at the last load of the running scheme that has since been used is brought up to
// the running number without a word. Fails without a change when the step would pass
// 32,767.
Status TakeFreeConfirmation(CoreContext& c);
} // namespace tresvane
