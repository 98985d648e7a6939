#pragma once

#include <QString>

namespace tresvane
{
class SlipRecord;
struct DispatchingVariables;

// The slip in hand as a text message for a crew: confirmation number, customer, address,
// telephone, date, hour and problem, a line each, every field trimmed.
QString SlipTextMessage(const SlipRecord& slip, const DispatchingVariables& v);

// What the user is told once the text is on the clipboard.
QString SlipOnClipboardMessage();
} // namespace tresvane
