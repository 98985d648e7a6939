#pragma once

class QAbstractButton;
class QLineEdit;

namespace tresvane
{
// Enter in the box does what its button does: the button is clicked once the key has been
// handled, and only while it is there to be clicked. An editable combo box passes the key
// to its line edit more than once; one press is still one click.
void EnterClicks(QLineEdit* box, QAbstractButton* button);
} // namespace tresvane
