#pragma once

#include <QObject>
class QComboBox;
class QLineEdit;

namespace tresvane
{
class Dialogs;

// Puts the key filters in front of a box: each typed character goes through the filter
// and is dropped when the filter refuses it. Keys that type nothing (arrows, delete) and
// control characters are not the filters' business and pass.
enum class KeyFilterKind {
    Name,         // names and addresses: , & . \ * / ? refused with a message
    Quote,        // free text: the double quote refused with a message
    NameAndQuote, // both, in that order
    Price,        // digits and one point, no leading zero, silently
};

void WireKeyFilter(QLineEdit* box, KeyFilterKind kind, Dialogs& dialogs);
void WireKeyFilter(QComboBox* box, KeyFilterKind kind, Dialogs& dialogs);
} // namespace tresvane
