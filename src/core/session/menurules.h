#pragma once

#include "core/state/corecontext.h"

#include <QString>
#include <array>

namespace tresvane
{
// Which entries of the main menu are open, worked out from the data each time the menu
// comes to the front. The entries are numbered as the menu shows them; the menu sets
// Mode to the entry's index + 1.

constexpr int kMenuEntries = 15;

namespace MenuEntry
{
enum : int {
    PlaceReminderCalls = 0,
    CreateServiceSlip = 1,
    DailyWorkSchedules = 2,
    VacationAndHoliday = 3,
    ServiceInvoices = 4,
    RecurringEvents = 5,
    CustomerMeeting = 6,
    UnattendedMonitoring = 7,
    StoredSlips = 8,
    Reschedule = 9,
    ServiceHistory = 10,
    HiddenWorkOrder = 11,
    ServiceContract = 12,
    WorkOrder = 13,
    DisplaySchedules = 14,
};
}

// The caption of each entry.
QString MenuCaption(int entry);

// The sibling program whose presence changes the print entries.
QString TermPlannerFile(); // "/TresvaneTermPlanner.exe"
// The question asked when it is found and printing has not been allowed in this run.
QString TermPlannerQuestion();

struct MenuState {
    std::array<bool, kMenuEntries> enabled{};
    // The two notes that point to the sibling program for printing.
    bool plannerNotesVisible = false;
};

// The activation rules after the sibling question has been settled (printEnabled true:
// printing allowed, or no sibling).
MenuState MenuActivation(CoreContext& c, bool printAllowed);
} // namespace tresvane
