#pragma once

#include <QList>
#include <QStringList>

class QWidget;

namespace tresvane
{
// Checks of a window as a person meets it: the way the Tab key takes through it, and text
// that does not fit the room it is given. Each returns what it found wrong, one line per
// fault naming the widgets, so an empty list is a pass.

// The widgets the Tab key visits, in order, from the first after `window`; each widget
// once, a spin box or combo box as itself rather than its inner line edit.
QList<QWidget*> TabChain(QWidget* window);

// Steps of the chain that go back against reading order: to the left on the same line, or
// up to a widget that is not in a column further right. The step from the last widget back
// to the first is the one backward step a chain in reading order has.
QStringList TabOrderFaults(QWidget* window);

// Labels, buttons, group captions and column headings whose text is wider than the room
// their widget gives it.
QStringList ClippedTexts(QWidget* window);
} // namespace tresvane
