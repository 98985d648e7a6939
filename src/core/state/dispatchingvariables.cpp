#include "core/state/dispatchingvariables.h"

namespace tresvane
{
void BuildTimeLabels(DispatchingVariables& v)
{
    static const char* const labels[12] = {"06:00", "07:00", "08:00", "09:00", "10:00", "11:00",
                                           "01:00", "02:00", "03:00", "04:00", "05:00", "06:00"};
    for (int i = 0; i < 12; ++i)
        v.TimeLabels[i + 1] = QString::fromLatin1(labels[i]);
}
} // namespace tresvane
