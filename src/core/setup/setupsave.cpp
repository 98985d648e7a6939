#include "core/setup/setupsave.h"

#include "core/ports/dialogs.h"
#include "core/setup/addressstyle.h"
#include "core/setup/assignments.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
namespace
{
// The flags as the settings file keeps them: 1 ticked, 0 not.
qint16 flag(bool on)
{
    return on ? 1 : 0;
}
} // namespace

Result<SetupStop> SaveSetup(CoreContext& c, const SetupExit& e)
{
    SetupSettings& s = c.v.settings;
    if (!TelephoneValid(e.business[6])) {
        c.dialogs.message(QStringLiteral("Your Telephone Number (structure) is invalid"));
        return SetupStop::Telephone;
    }
    s.txtBusiness = e.business;
    if (Status st = SaveBusiness(c); !st) return st;
    if (Status st = LoadBusiness(c); !st) return st;
    if (e.assignments.isEmpty()) {
        c.dialogs.message(QStringLiteral("You must create at least one assignment"),
                          QStringLiteral("Files Missing"));
        return SetupStop::NoAssignments;
    }
    if (e.problems.isEmpty()) {
        c.dialogs.message(QStringLiteral("You must create at least one problem code"),
                          QStringLiteral("Files Missing"));
        return SetupStop::NoProblems;
    }
    for (int n = 1; n <= e.assignments.size(); ++n)
        if (Status st = MakeFolder(c, n); !st) return st;
    if (Status st = SaveAssignments(c, e.assignments); !st) return st;
    if (Status st = SaveProblems(c, e.problems); !st) return st;
    if (Status st = LoadProblems(c); !st) return st;

    s.ck7 = e.ck7;
    s.ck8 = e.ck8;
    s.optServiceInvoice = e.optServiceInvoice;
    s.ckSize = flag(e.ckSize);
    s.ckPhone = flag(e.ckPhone);
    s.ckCallerID = flag(e.ckCallerID);
    if (e.modemPort && *e.modemPort >= 0 && *e.modemPort <= 16) c.v.gModemPort = *e.modemPort;
    s.ckAlarms = flag(e.ckAlarms);
    s.ckPrompts = flag(e.ckPrompts);
    s.ckSlipStyle = flag(e.ckSlipStyle);
    s.txtNextSlip = e.txtNextSlip;
    s.ckColor = flag(e.colors.printColor);
    c.v.gPhoneChained = e.ckPhone;
    if (Status st = SavePhoneSettings(c); !st) return st;
    c.v.gCallerID = e.ckCallerID;
    c.v.gAlarms = e.ckAlarms;
    c.v.gPrompts = e.ckPrompts;

    // The settings file, then the phone settings again with the new caller ID. A slip
    // number that is not a number has been told to the user already.
    s.SlipNumberBad = false;
    const Status saved = SaveSettings(c);
    if (!saved && !s.SlipNumberBad) return saved;
    if (Status st = SavePhoneSettings(c); !st) return st;
    if (s.SlipNumberBad) {
        s.SlipNumberBad = false;
        return SetupStop::SlipNumber;
    }

    s.ckColor = flag(e.colors.printColor);
    s.txtBorders = QString::number(e.colors.borderColor);
    s.txtData = QString::number(e.colors.textColor);
    s.lblFont = e.colors.fontName;
    if (Status st = SetupData::SavePrintColors(c, e.colors); !st) return st;
    if (Status st = LoadSettings(c); !st) return st;
    if (Status st = LoadPhoneSettings(c, c.v.gModemPort); !st) return st;
    if (Status st = SetupData::SaveLogoSettings(c, e.logoWidth, e.logoHeight); !st) return st;
    if (Status st = SetupData::SaveInvoiceItems(c, e.invoiceItems); !st) return st;
    return SetupStop::Saved;
}
} // namespace tresvane
