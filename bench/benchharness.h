#pragma once

#include "sampleinstallation.h"

#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QString>
#include <functional>

namespace tresvane
{
// A sample installation at the formats' limits (30 teams, 32,767 customers, 50,000 slips),
// made once and kept under the system's temporary folder for later runs.
QString LimitFolder();

// The folder at the limits opened as the program opens it on a Monday morning at nine: the
// store, the clock, dialogs that answer nothing, the time labels and the teams.
struct LimitContext {
    LimitContext();
    QString folder;
    Store store;
    FixedClock clock;
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
};

// The median time of a few runs of f, in milliseconds.
double MedianMs(const std::function<void()>& f, int runs = 15);
// The physical floor: reading the bytes of these files once (program-relative names).
double FloorMs(const QString& folder, const QStringList& files, int runs = 15);
// A step that failed measured nothing: the run ends with its message.
void Must(const Status& s);
// Prints "<name>: <t> ms, floor <f> ms, ratio <t/f>".
void Report(const QString& name, double ms, double floorMs);
} // namespace tresvane
