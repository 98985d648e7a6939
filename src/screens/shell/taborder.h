#pragma once

#include <QList>
#include <initializer_list>

class QWidget;

namespace tresvane
{
// Sets the Tab key's way through the widgets as listed: each one follows the one before.
// A screen lists its controls in the order a person reads them; hidden or disabled ones
// are passed over by the key, so a screen lists every control of every state once.
void SetTabChain(const QList<QWidget*>& widgets);
void SetTabChain(std::initializer_list<QWidget*> widgets);
} // namespace tresvane
