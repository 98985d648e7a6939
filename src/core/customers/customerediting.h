#pragma once

#include "core/customers/customernavigation.h"
#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QString>
#include <array>

namespace tresvane
{
class CustomerRecord;
class Dialogs;
struct DispatchingVariables;

// The editing rules of the customer screen over the texts of its boxes. The screen copies
// its controls into CustomerBoxes, calls these, and copies the boxes back (a rule may
// change a box: the telephone taken as account number, a duplicate number emptied).

// The indexes of the txtCustomer boxes; there is no box 4.
namespace CustomerBox
{
enum : int {
    AccountNo = 0,
    Name = 1, // the business name
    Address1 = 2,
    Address2 = 3,
    PostalCode = 5, // Zip always; Address4 in the USA style
    Phone = 6,
    Other = 7, // "Fax, Email, ETC"
    FirstName = 8,
    MiddleInitial = 9,
    LastName = 10,
    Cell = 11,
};
}

struct CustomerBoxes {
    std::array<QString, 12> txtCustomer;
    QString cboCity;   // Address3 and CityShort in the USA style, CityShort alone otherwise
    QString cboStates; // State in the USA style
    QString txtAdd3;   // Address3 in the international style
    QString txtAdd4;   // Address4 in the international style
    QString cboTitle;
    QString lbLType; // the account type as the label reads it
    bool operator==(const CustomerBoxes&) const = default;
};

// How many characters each box takes: the width of the field it is stored in, or of the
// narrower one where a box is stored in two, so that a save never cuts what the user typed.
// A box with no field (txtCustomer 4) has 0.
struct CustomerBoxWidths {
    std::array<int, 12> txtCustomer{};
    int cboCity = 0;
    int cboStates = 0;
    int txtAdd3 = 0;
    int txtAdd4 = 0;
    int cboTitle = 0;
};
CustomerBoxWidths CustomerBoxLimits();

// The boxes of a record as ShowCustomer fills them: trimmed fields, the city in both city
// boxes, the postal code box from Zip or, when that is blank, Address4, the middle initial
// as stored, and the label "Business" or "Individual".
CustomerBoxes BoxesFromCustomer(const CustomerRecord& record);

// The composed name of the account on the screen (CurrentCustomer): for a Business its
// trimmed Name, otherwise title, first name, initial with a period, and last name.
QString CurrentCustomerName(const CustomerRecord& record, const QString& accountType);

// What UpdateCustomerRecord's tests decided.
struct CustomerCheck {
    bool AcctOK = true;       // the form's flag: false when a name test stopped the save
    bool save = false;        // the boxes passed every test: the account is to be written
    bool leaveToMenu = false; // the user chose to leave without an account: go to frmStartup
    int focus = -1;           // the txtCustomer box to get the focus, -1 for none
};

// The tests of a save, with their messages, in order: the name (Business: the Name box;
// otherwise first and last name), then the account number (none and no telephone: asked
// whether to leave; none: the telephone becomes the account number, with a message).
CustomerCheck CheckCustomerBoxes(CustomerBoxes& boxes, Dialogs& dialogs);

// The boxes into the record, each trimmed. The two numbers at the end of the record keep
// what the buffer held.
void CopyBoxesToCustomer(const CustomerBoxes& boxes, bool usaStyle, CustomerRecord& record);

// The save of the account on the screen at gCurrentRec: the tests, then gCustomer from the
// boxes, written with the contract and cycle records of that number from gContract and
// gCycle, after which those two buffers hold defaults again. The screen then adds the
// city (gCustomer's trimmed Address3) to its list and enables its menus. A write that
// fails is reported, AcctOK false.
Result<CustomerCheck> UpdateCustomerRecord(CoreContext& c, CustomerBoxes& boxes, bool usaStyle,
                                           qint32 gCurrentRec);

// Publishes the account on the screen into current.account ... current.phone. The type is taken
// from gCustomer, not from the label. Writes no file.
void SaveCustomer(const CustomerBoxes& boxes, bool usaStyle, DispatchingVariables& v);

// What CheckTelephone decided: the Phone box must hold exactly 12 characters. When it
// does not, the user is told the form and asked whether to leave without an account.
struct TelephoneCheck {
    bool passed = false;
    bool leaveToMenu = false; // Yes: hide the screen, show frmStartup; No: focus on Phone
};
TelephoneCheck CheckTelephone(const CustomerBoxes& boxes, Dialogs& dialogs);

// cmdSame: the Phone box copied into the Account No box; with an empty Phone box a beep.
void SetAccountFromTelephone(CustomerBoxes& boxes, Dialogs& dialogs);

// The duplicate test when the Account No box loses the focus: on a duplicate the message,
// the box emptied, and true (the screen gives the box the focus).
Result<bool> CheckDuplicateAccount(CoreContext& c, CustomerBoxes& boxes, CustomerPosition at);

// A new account after a good save: the next record number, gCustomer blanked (last name
// one apostrophe, RecordMark 1), the boxes cleared to an Individual with the business's
// city, state and postal code. The screen then fills its lists and shows the cancel button.
CustomerPosition BeginNewCustomer(DispatchingVariables& v, CustomerBoxes& boxes,
                                  CustomerPosition at);

// A first run without CustomerData.txt: the boxes preset from the business's city, state,
// postal code and the first seven characters of its telephone with "-", and the message
// that the file is empty.
void PresetEmptyCustomerFile(const DispatchingVariables& v, CustomerBoxes& boxes, Dialogs& dialogs);
} // namespace tresvane
