#pragma once

#include <QStringList>

class QWidget;

namespace tresvane
{
// A screen that can hold edits not yet written. Its close box ends the program, so before
// that the App asks whether to save them (Yes, No, Cancel) and, on Yes, has the screen
// save them as its own save button would.
class UnsavedEdits
{
public:
    virtual ~UnsavedEdits() = default;

    // True while the screen shows changes that are not in the files.
    virtual bool hasUnsavedEdits() const = 0;
    // Saves them through the screen's own save. False when the save did not go through:
    // the screen has told the user why, and the program stays so that it can be put right.
    virtual bool saveUnsavedEdits() = 0;
};

// What the user can change on a form, in the order of its controls: the texts of its
// boxes, lists and labels, and the state of its check boxes and option buttons. Two
// captures differ exactly when something on the form was changed in between.
QStringList CaptureControls(const QWidget* form);
} // namespace tresvane
