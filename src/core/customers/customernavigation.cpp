#include "core/customers/customernavigation.h"

#include <algorithm>

namespace tresvane
{
std::optional<qint32> NavigateTo(int button, CustomerPosition at)
{
    const qint32 quarter = at.gLastrec / 4;
    switch (button) {
    case 0:
        return 1;
    case 1:
        return at.gCurrentRec > 1 ? at.gCurrentRec - 1 : 1;
    case 2:
        // Past the last, it wraps.
        return at.gCurrentRec >= at.gLastrec ? 1 : at.gCurrentRec + 1;
    case 3:
        return at.gLastrec;
    case 4:
    case 5:
    case 6:
        if (at.gLastrec < 4) return std::nullopt;
        return quarter * (button == 4 ? 1 : button == 6 ? 2 : 3);
    default:
        return std::nullopt;
    }
}

CustomerPosition PositionAfterSave(CustomerPosition at)
{
    at.gLastrec = std::max(at.gLastrec, at.gCurrentRec);
    return at;
}

CustomerPosition NewCustomerPosition(CustomerPosition at)
{
    return {at.gLastrec + 1, at.gLastrec + 1};
}

CustomerPosition CancelNewCustomer(CustomerPosition at)
{
    return {1, at.gLastrec - 1};
}

CustomerPosition PositionAfterDelete(CustomerPosition at)
{
    if (at.gLastrec > 1) --at.gLastrec;
    if (at.gCurrentRec > at.gLastrec) at.gCurrentRec = at.gLastrec;
    return at;
}
} // namespace tresvane
