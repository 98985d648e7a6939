#pragma once

namespace tresvane
{
class Store;
class Clock;
class Dialogs;
struct DispatchingVariables;

// What a core routine works with: the folder, the clock, the user, the shared state.
// The App makes one and hands it to the screens; a test makes its own.
struct CoreContext {
    Store& store;
    const Clock& clock;
    Dialogs& dialogs;
    DispatchingVariables& v;
};
} // namespace tresvane
