#pragma once

#include <QString>

namespace tresvane
{
// Gives a control its name, so tests and screenshots find it with findChild, and hands it
// back for the assignment: fgGrid = named(new FlexGrid(this), "fgGrid").
template <typename T> T* named(T* w, const QString& name)
{
    w->setObjectName(name);
    return w;
}
} // namespace tresvane
