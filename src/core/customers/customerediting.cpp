#include "core/customers/customerediting.h"

#include "core/customers/customerfiles.h"
#include "core/customers/customerlist.h"
#include "core/entry/keyfilters.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

#include <algorithm>

namespace tresvane
{
namespace
{

const QString kBusiness = QStringLiteral("Business");
const QString kIndividual = QStringLiteral("Individual");

// The fields of gBusiness the customer screen presets from.
enum BusinessField {
    BusinessCity = 3,
    BusinessState = 4,
    BusinessPostalCode = 5,
    BusinessPhone = 6
};

bool isBusiness(const QString& type)
{
    return type.trimmed() == kBusiness;
}

} // namespace

CustomerBoxWidths CustomerBoxLimits()
{
    using namespace CustomerField;
    const RecordLayout& layout = CustomerLayout();
    auto width = [&layout](int field) { return layout.field(field).width; };
    CustomerBoxWidths w;
    w.txtCustomer[CustomerBox::AccountNo] = width(AccountNo);
    w.txtCustomer[CustomerBox::Name] = width(Name);
    w.txtCustomer[CustomerBox::Address1] = width(Address1);
    w.txtCustomer[CustomerBox::Address2] = width(Address2);
    // Zip always, and Address4 as well in the USA style.
    w.txtCustomer[CustomerBox::PostalCode] = std::min(width(Zip), width(Address4));
    w.txtCustomer[CustomerBox::Phone] = width(Phone);
    w.txtCustomer[CustomerBox::Other] = width(Other);
    w.txtCustomer[CustomerBox::FirstName] = width(FirstName);
    w.txtCustomer[CustomerBox::MiddleInitial] = width(MiddleInitial);
    w.txtCustomer[CustomerBox::LastName] = width(LastName);
    w.txtCustomer[CustomerBox::Cell] = width(Cell);
    // The city goes to CityShort in both styles, and to Address3 in the USA style.
    w.cboCity = std::min(width(CityShort), width(Address3));
    w.cboStates = width(State);
    w.txtAdd3 = width(Address3);
    w.txtAdd4 = width(Address4);
    w.cboTitle = width(Title);
    return w;
}

CustomerBoxes BoxesFromCustomer(const CustomerRecord& r)
{
    using namespace CustomerField;
    CustomerBoxes b;
    b.txtCustomer[CustomerBox::AccountNo] = r.text(AccountNo);
    b.txtCustomer[CustomerBox::Name] = r.text(Name);
    b.txtCustomer[CustomerBox::Address1] = r.text(Address1);
    b.txtCustomer[CustomerBox::Address2] = r.text(Address2);
    b.cboCity = r.text(Address3);
    b.txtAdd3 = b.cboCity;
    b.cboStates = r.text(State);
    b.txtCustomer[CustomerBox::PostalCode] = r.text(Zip);
    if (b.txtCustomer[CustomerBox::PostalCode].isEmpty())
        b.txtCustomer[CustomerBox::PostalCode] = r.text(Address4);
    b.txtAdd4 = r.text(Address4);
    b.txtCustomer[CustomerBox::Phone] = r.text(Phone);
    b.txtCustomer[CustomerBox::Other] = r.text(Other);
    b.cboTitle = r.text(Title);
    b.txtCustomer[CustomerBox::FirstName] = r.text(FirstName);
    b.txtCustomer[CustomerBox::MiddleInitial] = r.rawText(MiddleInitial);
    b.txtCustomer[CustomerBox::LastName] = r.text(LastName);
    b.txtCustomer[CustomerBox::Cell] = r.text(Cell);
    b.lbLType = r.text(AccountType) == kBusiness ? kBusiness : kIndividual;
    return b;
}

QString CurrentCustomerName(const CustomerRecord& r, const QString& accountType)
{
    using namespace CustomerField;
    if (accountType == kBusiness) return r.text(Name);
    return JoinName(r.text(Title), r.text(FirstName), r.rawText(MiddleInitial), r.text(LastName));
}

CustomerCheck CheckCustomerBoxes(CustomerBoxes& b, Dialogs& dialogs)
{
    CustomerCheck check;
    auto& box = b.txtCustomer;

    if (b.lbLType == kBusiness) {
        if (box[CustomerBox::Name].trimmed().isEmpty()) {
            dialogs.message(QStringLiteral("The Account Name Cannot be Blank"));
            check.AcctOK = false;
            check.focus = CustomerBox::Name;
            return check;
        }
    } else if (box[CustomerBox::FirstName].trimmed().isEmpty() ||
               box[CustomerBox::LastName].trimmed().isEmpty()) {
        dialogs.message(QStringLiteral("Enter Account Data or\n Click Cancel AddNew if Visible"));
        check.AcctOK = false;
        check.focus = CustomerBox::FirstName;
        return check;
    }

    if (box[CustomerBox::AccountNo].trimmed().isEmpty()) {
        if (box[CustomerBox::Phone].trimmed().isEmpty()) {
            // Nothing is saved, yet the flag stays set: the caller goes on as after a save.
            dialogs.message(QStringLiteral("The Telephone Number cannot be blank"),
                            QStringLiteral("No number"));
            if (dialogs.ask(QStringLiteral("Would you like to exit\nwithout creating a Customer?"),
                            QStringLiteral("No Customer")))
                check.leaveToMenu = true;
            else
                check.focus = CustomerBox::Phone;
            return check;
        }
        box[CustomerBox::AccountNo] = box[CustomerBox::Phone].trimmed();
        dialogs.message(QStringLiteral("Telephone Number will be used as Acct No."),
                        QStringLiteral("Account not Entered"));
    }
    check.save = true;
    return check;
}

void CopyBoxesToCustomer(const CustomerBoxes& b, bool usaStyle, CustomerRecord& r)
{
    using namespace CustomerField;
    const auto& box = b.txtCustomer;
    auto set = [&](int field, const QString& text) { r.setText(field, text.trimmed()); };
    set(AccountNo, box[CustomerBox::AccountNo]);
    set(Name, box[CustomerBox::Name]);
    set(Address1, box[CustomerBox::Address1]);
    set(Address2, box[CustomerBox::Address2]);
    set(CityShort, b.cboCity);
    set(Zip, box[CustomerBox::PostalCode]);
    set(Phone, box[CustomerBox::Phone]);
    set(Other, box[CustomerBox::Other]);
    set(FirstName, box[CustomerBox::FirstName]);
    set(MiddleInitial, box[CustomerBox::MiddleInitial]);
    set(LastName, box[CustomerBox::LastName]);
    set(Cell, box[CustomerBox::Cell]);
    set(Title, b.cboTitle);
    set(AccountType, b.lbLType);
    if (usaStyle) {
        set(Address3, b.cboCity);
        set(State, b.cboStates);
        set(Address4, box[CustomerBox::PostalCode]);
    } else {
        set(Address3, b.txtAdd3);
        set(State, QString());
        set(Address4, b.txtAdd4);
    }
}

Result<CustomerCheck> UpdateCustomerRecord(CoreContext& c, CustomerBoxes& boxes, bool usaStyle,
                                           qint32 gCurrentRec)
{
    CustomerCheck check = CheckCustomerBoxes(boxes, c.dialogs);
    if (!check.save) return check;
    CopyBoxesToCustomer(boxes, usaStyle, c.v.gCustomer);
    // The contract and cycle records go back as they were read (or as defaults for a new
    // account); the buffers then hold defaults until the record is read again.
    // The three records at the same number land together.
    Store::Group change(c.store);
    Status s = WriteCustomer(c, gCurrentRec);
    if (s) s = WriteContract(c, gCurrentRec);
    if (s) s = WriteCycle(c, gCurrentRec);
    if (s) s = change.commit();
    if (!s) return s;
    ResetContractDefaults(c);
    return check;
}

void SaveCustomer(const CustomerBoxes& b, bool usaStyle, DispatchingVariables& v)
{
    const auto& box = b.txtCustomer;
    v.current.account = box[CustomerBox::AccountNo].trimmed();
    if (isBusiness(v.gCustomer.text(CustomerField::AccountType))) {
        v.current.name = box[CustomerBox::Name];
    } else {
        // Unlike the composed name of the screen, the initial takes no period here.
        QString name;
        for (const QString& part :
             {b.cboTitle, box[CustomerBox::FirstName], box[CustomerBox::MiddleInitial]})
            if (!part.trimmed().isEmpty()) name += part.trimmed() + u' ';
        if (!box[CustomerBox::LastName].trimmed().isEmpty())
            name += box[CustomerBox::LastName].trimmed();
        v.current.name = name;
    }
    v.current.address1 = box[CustomerBox::Address1].trimmed();
    v.current.address2 = box[CustomerBox::Address2].trimmed();
    // The city box stays filled, hidden, in the international style, so it is taken there too.
    v.current.city = b.cboCity.trimmed();
    if (usaStyle) {
        v.current.state = b.cboStates.trimmed();
        v.current.zip = box[CustomerBox::PostalCode].trimmed();
    } else {
        v.current.state.clear();
        v.current.zip = b.txtAdd4;
    }
    v.current.phone = box[CustomerBox::Phone].trimmed();
}

TelephoneCheck CheckTelephone(const CustomerBoxes& b, Dialogs& dialogs)
{
    TelephoneCheck check;
    // Only the length is tested, whatever the characters.
    if (b.txtCustomer[CustomerBox::Phone].size() == 12) {
        check.passed = true;
        return check;
    }
    dialogs.message(QStringLiteral("The Telephone Number MUST be in the form\n           "
                                   "nnn-nnn-nnnn"),
                    QStringLiteral("Incorrect Tel No"));
    check.leaveToMenu = dialogs.ask(QStringLiteral("Would youlike to exit without\ncreating a "
                                                   "Customer Record?"),
                                    QStringLiteral("Don't Create Customer"));
    return check;
}

void SetAccountFromTelephone(CustomerBoxes& b, Dialogs& dialogs)
{
    if (b.txtCustomer[CustomerBox::Phone].isEmpty())
        dialogs.beep();
    else
        b.txtCustomer[CustomerBox::AccountNo] = b.txtCustomer[CustomerBox::Phone];
}

Result<bool> CheckDuplicateAccount(CoreContext& c, CustomerBoxes& b, CustomerPosition at)
{
    Result<bool> exists = AccountNoExists(c.store, b.txtCustomer[CustomerBox::AccountNo],
                                          at.gCurrentRec, at.gLastrec);
    if (!exists || !*exists) return exists;
    c.dialogs.message(QStringLiteral("The Account Number has been duplicated\nEnter a different "
                                     "Number"),
                      QStringLiteral("Duplicate Account Number"));
    b.txtCustomer[CustomerBox::AccountNo].clear();
    return true;
}

CustomerPosition BeginNewCustomer(DispatchingVariables& v, CustomerBoxes& b, CustomerPosition at)
{
    v.gCustomer = CustomerRecord();
    v.gCustomer.setText(CustomerField::LastName, QStringLiteral("'"));
    v.gCustomer.setInt16(CustomerField::RecordMark, 1);
    b = CustomerBoxes();
    b.lbLType = kIndividual;
    b.cboCity = v.gBusiness[BusinessCity];
    b.txtCustomer[CustomerBox::PostalCode] = v.gBusiness[BusinessPostalCode];
    b.cboStates = v.gBusiness[BusinessState];
    return NewCustomerPosition(at);
}

void PresetEmptyCustomerFile(const DispatchingVariables& v, CustomerBoxes& b, Dialogs& dialogs)
{
    b.cboCity = v.gBusiness[BusinessCity];
    b.cboStates = v.gBusiness[BusinessState];
    b.txtCustomer[CustomerBox::PostalCode] = v.gBusiness[BusinessPostalCode];
    b.txtCustomer[CustomerBox::Phone] = v.gBusiness[BusinessPhone].left(7) + u'-';
    dialogs.message(QStringLiteral("Your Customer File is Empty\nCreate your First Customer Now"),
                    QStringLiteral("Create Customers"));
}
} // namespace tresvane
