#pragma once

#include "core/schedule/dayfiles.h"
#include "core/schedule/slipfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "core/state/mode.h"

namespace tresvane
{
// A booking request as the Scheduling Screen makes one for the team in hand on date: the
// routine's kind, the team and the customer from the shared state, and the day file as
// loading that day leaves it, its folders made. The test adds the hours and the rest.
inline BookingRequest ScreenRequest(CoreContext& c, const QDate& date)
{
    BookingRequest r;
    r.kind = BookingKind(c.v.Mode);
    r.team = c.v.CurrentTeam;
    r.customer = c.v.current;
    r.date = date;
    if (BuildDayFilePath(c, date, r.team).ok()) r.dayFile = c.v.DayFilePath;
    return r;
}
} // namespace tresvane
