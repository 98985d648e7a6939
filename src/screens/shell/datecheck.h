#pragma once
class QDateEdit;

namespace tresvane
{
class Dialogs;

// A date typed whole into a date box (month/day/year) is taken as typed. A date that does
// not exist, such as 2/30, is refused with the calendar message and the box keeps the date
// it held; without this the box would quietly turn it into another date. The check runs
// when the typing ends: Enter, Tab, or the focus leaving the box.
void WireDateCheck(QDateEdit* box, Dialogs& dialogs);
} // namespace tresvane
