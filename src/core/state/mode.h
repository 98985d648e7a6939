#pragma once

#include "core/io/sliprecord.h"

#include <QtGlobal>
#include <optional>

namespace tresvane
{
// The routine the dispatcher chose in the main menu. The values are the menu entry's
// index + 1, the numbers the shared variable has always held.
enum class Mode : qint16 {
    None = 0,
    ReminderCalls = 1,
    ServiceSlip = 2,
    WorkSchedules = 3,
    BlockDays = 4,
    Invoices = 5,
    RecurringEvents = 6,
    Meeting = 7,
    CallerIdMonitor = 8,
    StoredSlips = 9,
    Reschedule = 10,
    History = 11,
    HiddenWorkOrder = 12,
    Contract = 13,
    WorkOrder = 14,
    DisplaySchedules = 15,
};

// The routine of a main menu entry (numbered from 0 as the menu shows them).
constexpr Mode ModeOfEntry(int entry)
{
    return Mode(entry + 1);
}

// What the Scheduling Screen books in a routine: a Service Attention, a meeting, or nothing.
constexpr std::optional<SlipKind> BookingKind(Mode mode)
{
    if (mode == Mode::ServiceSlip) return SlipKind::ServiceAttention;
    if (mode == Mode::Meeting) return SlipKind::Meeting;
    return std::nullopt;
}

// Where the customer screen's select button leads in a routine. The routines with a
// screen after the customer bring that screen up, which hides the customer screen; in
// the others the select only hides it.
enum class AfterCustomer { SchedulingScreen, RecurringEvents, Contract, WorkOrder, Nowhere };

constexpr AfterCustomer AfterCustomerSelect(Mode mode)
{
    switch (mode) {
    case Mode::ServiceSlip:
    case Mode::Meeting:
        return AfterCustomer::SchedulingScreen;
    case Mode::RecurringEvents:
        return AfterCustomer::RecurringEvents;
    case Mode::Contract:
        return AfterCustomer::Contract;
    case Mode::WorkOrder:
        return AfterCustomer::WorkOrder;
    default:
        return AfterCustomer::Nowhere;
    }
}
} // namespace tresvane
