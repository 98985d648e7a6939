#pragma once

#include "core/io/result.h"
#include "core/schedule/dayfiles.h"
#include "core/state/corecontext.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>
#include <optional>

namespace tresvane
{
class Dialogs;

// Contract work kept by a companion program in ContractInfo.txt is shown on the booking
// grid, never stored: the events of the day and team are laid over the grid after each
// load so that the hours read as taken and CheckforSlots refuses them. WriteDayFile turns
// them back into free hours.
//
// Only the hours 08:00 to 05:00 (grid rows 3 to 11) can show a contract event; one at six
// or seven in the morning or six in the evening finds no row.

// A message the screen shows with an OK button, in the order given. `beep` sounds the beep
// first, whatever the alarm setting says.
struct OverlayMessage {
    QString text;
    QString title; // empty: the program's name
    bool beep = false;
};

struct ContractOverlay {
    GridColumn grid; // column 1 of rows 1 to 12 with the events laid over it
    QList<OverlayMessage> messages;
};

// Further hours of a contract event after its first, from the service's duration in
// quarter hours. The table skips four further hours, and stands so.
int ContractFurtherHours(qint16 quarterHours);

// Lays the contract events of `date` and the team named `teamName` (the text of the team
// list) over `grid`. contractInfo holds the bytes of ContractInfo.txt, services those of
// Services.txt when it exists. A record counts when its next date is the date exactly and
// its trimmed team is the team's name; its hour is the first five characters of its time.
ContractOverlay OverlayContractEvents(const QByteArray& contractInfo,
                                      const std::optional<QByteArray>& services,
                                      const GridColumn& grid, const QDate& date,
                                      const QString& teamName);

// Extends an event written on `row` over its further hours, as the service of that name
// in Services.txt says. An event that would run past the day or over a taken hour is
// shown as one hour, with a message.
void OverlayContractHours(const QByteArray& services, const QString& serviceName, int row,
                          const QString& text, ContractOverlay& overlay);

// The same over the files of the folder: nothing is laid over when ContractInfo.txt does
// not exist. A file that cannot be read is reported.
Result<ContractOverlay> OverlayContractEvents(CoreContext& c, const GridColumn& grid,
                                              const QDate& date, const QString& teamName);

// Shows the messages of an overlay, in order.
void ShowOverlayMessages(Dialogs& dialogs, const QList<OverlayMessage>& messages);

// The grid as DaySlots holds it after LoadDay: rows 1 to 12.
GridColumn GridFromDaySlots(const DispatchingVariables& v);
} // namespace tresvane
