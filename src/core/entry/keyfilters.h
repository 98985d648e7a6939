#pragma once

#include <QString>

namespace tresvane
{
class Dialogs;

// Key filters of the text boxes: each takes the key's character code and the box's present
// text and returns the code to pass on, or 0 to drop the key. The screen gives the box the
// focus again when a key was refused with a message.

constexpr int kBackspace = 8;

// Names and addresses: refuses , & . \ * / ? with a beep and a message. A box that holds a
// number as a whole takes every key.
int CheckNameKey(int keyCode, const QString& boxText, Dialogs& dialogs);
// Free text: refuses the double quote, which would end a field in the text files.
int CheckQuoteKey(int keyCode, const QString& boxText, Dialogs& dialogs);
// Prices: digits and one point, no leading zero; refused keys are dropped silently.
// Backspace is the caller's to handle.
int CheckPriceKey(int keyCode, const QString& boxText);

// "Your Calendar Selection is Invalid"
void CalendarMessage(Dialogs& dialogs);

// Title, first name, middle initial and last name joined as a person's name is written.
QString JoinName(const QString& title, const QString& first, const QString& middle,
                 const QString& last);

// Rows a wheel turn moves a grid: a screenful, but at least 10. Returns the new top row
// (rows from 1, fixed row 0 above) for a rotation up (positive) or down.
int WheelTopRow(int currentTop, int rowCount, int visibleRows, int rotation);
} // namespace tresvane
