#include "core/schedule/contractoverlay.h"

#include "core/customers/customerfiles.h"
#include "core/io/cp1252.h"
#include "core/io/customerrecords.h"
#include "core/io/itemrecords.h"
#include "core/io/record.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

#include <array>

namespace tresvane
{
namespace
{
// The hours a contract can name, index i standing for grid row i + 3.
const std::array<QByteArray, 9> kContractHours = {"08:00", "09:00", "10:00", "11:00", "01:00",
                                                  "02:00", "03:00", "04:00", "05:00"};

const QString kRepeatCalls = QStringLiteral("Time will be set to 1 Hour\n"
                                            "Reset the Start Time or Hours required\n"
                                            "using Tresvane Repeat Calls");

// The services catalogue is read no further than its first 255 records.
constexpr qsizetype kMostServices = 255;
} // namespace

int ContractFurtherHours(qint16 quarterHours)
{
    if (quarterHours <= 4) return 0;
    if (quarterHours <= 8) return 1;
    if (quarterHours <= 12) return 2;
    if (quarterHours <= 16) return 3;
    if (quarterHours <= 20) return 5;
    if (quarterHours <= 24) return 6;
    if (quarterHours <= 28) return 7;
    return 0;
}

void OverlayContractHours(const QByteArray& services, const QString& serviceName, int row,
                          const QString& text, ContractOverlay& overlay)
{
    const QByteArray wanted = cp1252::encode(serviceName);
    std::optional<qint16> duration;
    const QByteArray catalogue = services.left(kMostServices * kServiceRecordLength);
    ForEachRecord(ServiceLayout(), catalogue, [&](qsizetype, const RecordView& r) {
        if (!duration && r.trimmedBytes(ServiceField::ServiceName) == wanted)
            duration = r.int16(ServiceField::ServiceFlag);
    });
    if (!duration) return;
    int further = ContractFurtherHours(*duration);
    if (further + row > 12) {
        overlay.messages.append(
            {QStringLiteral("Not enough time remaining this day\n") + kRepeatCalls, QString(),
             true});
        further = 0;
    }
    for (int k = 1; k <= further; ++k) {
        if (overlay.grid[row + k - 1] != NoEventScheduled()) {
            overlay.messages.append(
                {QStringLiteral("Not enough Slots available for Contract Event\n") + kRepeatCalls,
                 QString()});
            further = 0;
            break;
        }
    }
    for (int k = 1; k <= further; ++k)
        overlay.grid[row + k - 1] = text;
}

ContractOverlay OverlayContractEvents(const QByteArray& contractInfo,
                                      const std::optional<QByteArray>& services,
                                      const GridColumn& grid, const QDate& date,
                                      const QString& teamName)
{
    ContractOverlay overlay{grid, {}};
    const double day = ToOleDate(date);
    const QByteArray team = cp1252::encode(teamName);
    const int timeOffset = ContractLayout().field(ContractField::ContractTime).offset;
    // Most records fail on the date, a plain comparison of eight bytes' value.
    ForEachRecord(ContractLayout(), contractInfo, [&](qsizetype, const RecordView& r) {
        if (r.real(ContractField::ContractNextDate) != day ||
            r.trimmedBytes(ContractField::ContractTeam) != team)
            return;
        const QByteArrayView hour = r.bytes().sliced(timeOffset, 5);
        for (int i = 0; i < int(kContractHours.size()); ++i) {
            if (hour != kContractHours[i]) continue;
            const int row = i + 3;
            if (overlay.grid[row - 1] != NoEventScheduled()) {
                overlay.messages.append(
                    {QStringLiteral("A Contract Event is Scheduled for ") +
                         QString::fromLatin1(kContractHours[i]) +
                         QStringLiteral("\nIt cannot be displayed in the time grid\n"
                                        "A Service Call or Meeting is scheduled at this time\n"
                                        "Use Recurring Services to reschedule the Contract "
                                        "Event"),
                     QStringLiteral("Scheduling Conflict")});
                return;
            }
            const QString text =
                r.text(ContractField::ContractCustomer) + QStringLiteral(" - Contract Event");
            overlay.grid[row - 1] = text;
            if (services)
                OverlayContractHours(*services, r.text(ContractField::ContractService), row, text,
                                     overlay);
            return;
        }
    });
    return overlay;
}

Result<ContractOverlay> OverlayContractEvents(CoreContext& c, const GridColumn& grid,
                                              const QDate& date, const QString& teamName)
{
    if (!c.store.FileExists(ContractFileName())) return ContractOverlay{grid, {}};
    Result<QByteArray> contracts = c.store.ReadAll(ContractFileName());
    if (!contracts) return contracts.status();
    std::optional<QByteArray> services;
    const QString servicesName = QStringLiteral("/Services.txt");
    if (c.store.FileExists(servicesName)) {
        Result<QByteArray> bytes = c.store.ReadAll(servicesName);
        if (!bytes) return bytes.status();
        services = *bytes;
    }
    return OverlayContractEvents(*contracts, services, grid, date, teamName);
}

void ShowOverlayMessages(Dialogs& dialogs, const QList<OverlayMessage>& messages)
{
    for (const OverlayMessage& m : messages) {
        if (m.beep) dialogs.beep();
        dialogs.message(m.text, m.title);
    }
}

GridColumn GridFromDaySlots(const DispatchingVariables& v)
{
    GridColumn grid;
    for (int i = 1; i <= 12; ++i)
        grid[i - 1] = v.DaySlots[i];
    return grid;
}
} // namespace tresvane
