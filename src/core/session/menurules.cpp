#include "core/session/menurules.h"

#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString MenuCaption(int entry)
{
    static const char* const captions[kMenuEntries] = {
        "Place Reminder Calls",      "Create a Service Slip",
        "Daily Work Schedules",      "Schedule Vacation and Holiday Time",
        "Service Invoices",          "Schedule Recurring Events",
        "Schedule Customer Meeting", "Set Unattended Monitoring",
        "Schedule Stored Slip(s)",   "Reschedule a Slip(s)",
        "View Service History",      "Create a Work Order",
        "Create a Service Contract", "Create a Work Order",
        "Display Schedules",
    };
    if (entry < 0 || entry >= kMenuEntries) return {};
    return QString::fromLatin1(captions[entry]);
}

QString TermPlannerFile()
{
    return QStringLiteral("/TresvaneTermPlanner.exe");
}

QString TermPlannerQuestion()
{
    return QStringLiteral("Tresvaneworks's Term Planner Program has been Detected\n"
                          "Contract Events will be shown in Daily Time Slots\n"
                          "We recommend using Tresvane Term Planner to print Schedules\n"
                          "Click YES to Enable Schedule and Invoice printing anyway");
}

MenuState MenuActivation(CoreContext& c, bool printAllowed)
{
    MenuState m;
    m.enabled.fill(true);
    m.enabled[MenuEntry::HiddenWorkOrder] = false;
    m.plannerNotesVisible = !printAllowed;
    m.enabled[MenuEntry::DailyWorkSchedules] = printAllowed;
    m.enabled[MenuEntry::ServiceInvoices] = printAllowed;

    m.enabled[MenuEntry::CreateServiceSlip] = true;
    m.enabled[MenuEntry::StoredSlips] = false;
    m.enabled[MenuEntry::Reschedule] = false;

    // Any bytes at all in the stored-slips file count: the length over 297 is above 0.
    const QString unscheduled = QStringLiteral("/UnScheduledSlips.txt");
    if (c.store.FileExists(unscheduled) && c.store.FileSize(unscheduled) > 0)
        m.enabled[MenuEntry::StoredSlips] = true;

    for (const QString& name : {QStringLiteral("/Slips.txt"), QStringLiteral("/Meetings.txt")}) {
        qint32 count = 0;
        if (c.store.FileExists(name))
            count = c.store.RecordCount32(name, kSlipRecordLength).valueOr(0);
        if (count > 0) {
            m.enabled[MenuEntry::Reschedule] = true;
            break;
        }
    }

    if (c.v.gModemPort == 0) m.enabled[MenuEntry::UnattendedMonitoring] = false;
    m.enabled[MenuEntry::PlaceReminderCalls] = c.v.settings.ckPhone == 1;
    return m;
}
} // namespace tresvane
