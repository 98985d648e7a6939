#include "core/schedule/timegrid.h"

#include "core/ports/dialogs.h"
#include "core/schedule/booking.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString GridLabel(const DispatchingVariables& v, int slot)
{
    if (slot < 1 || slot > 12) return {};
    return v.TimeLabels[slot] + (slot <= 6 ? QStringLiteral("am") : QStringLiteral("pm"));
}

QString BookingEventText(const DispatchingVariables& v, std::optional<SlipKind> kind,
                         const QString& slipNumber, int row)
{
    if (kind == SlipKind::ServiceAttention) return slipNumber + u' ' + v.current.name;
    if (kind == SlipKind::Meeting)
        return QStringLiteral("Mtg - ") + v.TimeLabels[qBound(1, row, 12)] + QStringLiteral(" - ") +
               v.current.name;
    return {};
}

GridClick ClickTimeGrid(CoreContext& c, std::optional<SlipKind> kind, GridColumn& grid, int row,
                        int hours, const QString& slipNumber, QString& EventText)
{
    if ((hours - 1) + row > 12) {
        c.dialogs.message(QStringLiteral("Hours Requested exceed Hours Remaining this Date"),
                          QStringLiteral("Selection Error"));
        return GridClick::PastDayEnd;
    }
    if (!kind) return GridClick::NotBooking;
    EventText = BookingEventText(c.v, kind, slipNumber, row);
    for (const QString& slot : grid) {
        if (slot == EventText) {
            c.dialogs.beep();
            return GridClick::AlreadyPlaced;
        }
    }
    if (row < 1 || hours < 0 || !CheckforSlots(grid, quint8(row), quint8(hours), c.dialogs))
        return GridClick::SlotTaken;
    for (int r = row; r < row + hours; ++r)
        grid[r - 1] = EventText;
    WriteSlots(c.v, grid);
    return GridClick::Placed;
}

void ResetTimeSelection(GridColumn& grid, QString& EventText)
{
    for (QString& slot : grid)
        if (slot == EventText) slot = NoEventScheduled();
    EventText = NoSlotSelected();
}
} // namespace tresvane
