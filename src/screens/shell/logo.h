#pragma once

#include <QPixmap>

namespace tresvane
{
// The program's mark, drawn rather than shipped as a picture: a rounded tile with the
// initials, used on the splash screen and as the setup screen's tab-advance button.
QPixmap ProgramMark(int size);
} // namespace tresvane
