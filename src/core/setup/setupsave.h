#pragma once

#include "core/io/result.h"
#include "core/setup/printsettings.h"
#include "core/setup/setupdata.h"
#include "core/state/corecontext.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace tresvane
{
// What the setup screen holds when the dispatcher leaves it: each tab's controls as plain
// values.
struct SetupExit {
    std::array<QString, 9> business; // the business boxes; [6] is the telephone
    QStringList assignments;         // the teams
    QStringList problems;            // the problem descriptions
    // The operations tab.
    bool ck7 = false, ck8 = true;
    std::array<bool, 3> optServiceInvoice = {false, true, false};
    bool ckSize = true, ckPhone = false, ckCallerID = false;
    bool ckAlarms = true, ckPrompts = true, ckSlipStyle = true;
    std::optional<qint16> modemPort; // a port number typed, 0 to 16; none keeps the old one
    QString txtNextSlip;
    // The print, logo and invoice item tabs.
    PrintColors colors;
    int logoWidth = 0, logoHeight = 0;
    QList<PriceEntry> invoiceItems;
};

// Where the save stopped. Each stop but Saved has told the user why; the screen shows the
// box to correct.
enum class SetupStop {
    Saved,
    Telephone,     // the telephone does not end in four digits
    NoAssignments, // no team
    NoProblems,    // no problem description
    SlipNumber,    // the next continuous slip number is not a number
};

// Checks and writes everything the setup screen shows, in the order the program has always
// followed: the telephone, the business file, the two lists (and a year folder per team),
// phone, caller ID, alarms and prompts, the settings file, the print colours, the logo size
// and the invoice items; the settings are read back after. A file that cannot be written
// stops the sequence and is returned.
Result<SetupStop> SaveSetup(CoreContext& c, const SetupExit& e);
} // namespace tresvane
