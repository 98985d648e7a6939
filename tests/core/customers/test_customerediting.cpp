#include "core/customers/customerdelete.h"
#include "core/customers/customerediting.h"
#include "core/customers/customerfiles.h"
#include "core/customers/customernavigation.h"
#include "customerbytes.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{

const QString kCustomers = QStringLiteral("CustomerData.txt");
const QString kContracts = QStringLiteral("ContractInfo.txt");
const QString kCycles = QStringLiteral("CycleInfo.txt");
using Answer = Dialogs::Answer;

CustomerBoxes business(const QString& name, const QString& account, const QString& phone)
{
    CustomerBoxes b;
    b.lbLType = QStringLiteral("Business");
    b.txtCustomer[CustomerBox::Name] = name;
    b.txtCustomer[CustomerBox::AccountNo] = account;
    b.txtCustomer[CustomerBox::Phone] = phone;
    return b;
}

CustomerBoxes individual(const QString& first, const QString& last, const QString& account)
{
    CustomerBoxes b;
    b.lbLType = QStringLiteral("Individual");
    b.txtCustomer[CustomerBox::FirstName] = first;
    b.txtCustomer[CustomerBox::LastName] = last;
    b.txtCustomer[CustomerBox::AccountNo] = account;
    b.txtCustomer[CustomerBox::Phone] = QStringLiteral("217-555-0100");
    return b;
}

const QString kIncorrectTel =
    QStringLiteral("The Telephone Number MUST be in the form\n           nnn-nnn-nnnn");
const QString kDontCreate =
    QStringLiteral("Would youlike to exit without\ncreating a Customer Record?");

} // namespace

class TestCustomerEditing : public QObject
{
    Q_OBJECT
private slots:
    void navigation_data();
    void navigation();
    void newAccountAndCancel();

    void saveTests_data();
    void saveTests();
    void telephoneRule_data();
    void telephoneRule();
    void setAccountFromTelephone();

    void saveWritesTheBoxes_data();
    void saveWritesTheBoxes();
    void stoppedSaveWritesNothing();
    void showCustomerBoxes();
    void saveCustomerPublishes_data();
    void saveCustomerPublishes();

    void deleteRecord_data();
    void deleteRecord();
};

void TestCustomerEditing::navigation_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("expected"); // -1: the button does nothing

    QTest::newRow("7: quarter") << 4 << 5 << 7 << 1;
    QTest::newRow("7: half") << 6 << 5 << 7 << 2;
    QTest::newRow("7: three quarters") << 5 << 5 << 7 << 3;
    QTest::newRow("3: quarter does nothing") << 4 << 2 << 3 << -1;
    QTest::newRow("3: half does nothing") << 6 << 2 << 3 << -1;
    QTest::newRow("3: three quarters does nothing") << 5 << 2 << 3 << -1;
    QTest::newRow("4: quarter") << 4 << 3 << 4 << 1;
    QTest::newRow("9: three quarters") << 5 << 1 << 9 << 6;
    QTest::newRow("next from the last wraps") << 2 << 7 << 7 << 1;
    QTest::newRow("next") << 2 << 3 << 7 << 4;
    QTest::newRow("next before the first recount wraps") << 2 << 1 << 0 << 1;
    QTest::newRow("previous on the first stays") << 1 << 1 << 7 << 1;
    QTest::newRow("previous") << 1 << 4 << 7 << 3;
    QTest::newRow("first") << 0 << 5 << 7 << 1;
    QTest::newRow("last") << 3 << 2 << 7 << 7;
    QTest::newRow("no such button") << 7 << 2 << 7 << -1;
}

void TestCustomerEditing::navigation()
{
    QFETCH(int, button);
    QFETCH(int, current);
    QFETCH(int, last);
    QFETCH(int, expected);
    const std::optional<qint32> to = NavigateTo(button, {current, last});
    QCOMPARE(to.value_or(-1), expected);
}

void TestCustomerEditing::newAccountAndCancel()
{
    ProgramFolder f;
    f.v.gBusiness = {"Tresvane Heating", "1 Shop Rd", "", "Springfield", "IL", "62704",
                     "217-555-0000",     "",          ""};
    f.v.gCustomer = CustomerRecord(customerBytes({.account = "OLD", .last = "Old"}));
    CustomerBoxes b = individual("John", "Smith", "X-1");
    b.cboTitle = QStringLiteral("Mr.");

    const CustomerPosition begun = BeginNewCustomer(f.v, b, {3, 5});
    QCOMPARE(begun, (CustomerPosition{6, 6}));
    QCOMPARE(f.v.gCustomer.bytes(),
             customerBytes({.last = "'", .type = "", .mark = QByteArray::fromHex("0100")}));
    CustomerBoxes expected;
    expected.lbLType = QStringLiteral("Individual");
    expected.cboCity = QStringLiteral("Springfield");
    expected.cboStates = QStringLiteral("IL");
    expected.txtCustomer[CustomerBox::PostalCode] = QStringLiteral("62704");
    QCOMPARE(b, expected);

    // Cancel shows record 1, not the account that was on the screen before.
    QCOMPARE(CancelNewCustomer(begun), (CustomerPosition{1, 5}));
}

void TestCustomerEditing::saveTests_data()
{
    QTest::addColumn<CustomerBoxes>("boxes");
    QTest::addColumn<QStringList>("messages"); // text, title, text, title ...
    QTest::addColumn<int>("answer");           // of a question, as Dialogs::Answer
    QTest::addColumn<bool>("acctOK");
    QTest::addColumn<bool>("save");
    QTest::addColumn<bool>("leave");
    QTest::addColumn<int>("focus");
    QTest::addColumn<QString>("account");

    const QString blankName = QStringLiteral("The Account Name Cannot be Blank");
    const QString enterData =
        QStringLiteral("Enter Account Data or\n Click Cancel AddNew if Visible");
    const QString blankTel = QStringLiteral("The Telephone Number cannot be blank");
    const QString exitQ = QStringLiteral("Would you like to exit\nwithout creating a Customer?");
    const QString useTel = QStringLiteral("Telephone Number will be used as Acct No.");
    const int ok = int(Answer::Ok);

    QTest::newRow("business without name")
        << business("", "A-1", "217-555-0100") << QStringList{blankName, ""} << ok << false << false
        << false << 1 << "A-1";
    QTest::newRow("business name of blanks")
        << business("   ", "A-1", "217-555-0100") << QStringList{blankName, ""} << ok << false
        << false << false << 1 << "A-1";
    QTest::newRow("individual without last name")
        << individual("John", " ", "A-1") << QStringList{enterData, ""} << ok << false << false
        << false << 8 << "A-1";
    QTest::newRow("individual without first name")
        << individual("", "Smith", "A-1") << QStringList{enterData, ""} << ok << false << false
        << false << 8 << "A-1";
    QTest::newRow("individual needs no Name") << individual("John", "Smith", "A-1") << QStringList{}
                                              << ok << true << true << false << -1 << "A-1";
    QTest::newRow("no account: the telephone, trimmed")
        << business("Acme", "", " 217-555-0100 ") << QStringList{useTel, "Account not Entered"}
        << ok << true << true << false << -1 << "217-555-0100";
    QTest::newRow("no account, no telephone: leave")
        << business("Acme", "", "") << QStringList{blankTel, "No number", exitQ, "No Customer"}
        << int(Answer::Yes) << true << false << true << -1 << "";
    QTest::newRow("no account, no telephone: stay")
        << business("Acme", "", "") << QStringList{blankTel, "No number", exitQ, "No Customer"}
        << int(Answer::No) << true << false << false << 6 << "";
}

void TestCustomerEditing::saveTests()
{
    QFETCH(CustomerBoxes, boxes);
    QFETCH(QStringList, messages);
    QFETCH(int, answer);
    QFETCH(bool, acctOK);
    QFETCH(bool, save);
    QFETCH(bool, leave);
    QFETCH(int, focus);
    QFETCH(QString, account);
    ProgramFolder f;
    for (int i = 0; i < messages.size(); i += 2) {
        const bool question = i + 2 == messages.size() && answer != int(Answer::Ok);
        f.dialogs.expect(messages[i], messages[i + 1].isEmpty() ? QString() : messages[i + 1],
                         question ? Answer(answer) : Answer::Ok);
    }
    const CustomerCheck check = CheckCustomerBoxes(boxes, f.dialogs);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(check.AcctOK, acctOK);
    QCOMPARE(check.save, save);
    QCOMPARE(check.leaveToMenu, leave);
    QCOMPARE(check.focus, focus);
    QCOMPARE(boxes.txtCustomer[CustomerBox::AccountNo], account);
}

void TestCustomerEditing::telephoneRule_data()
{
    QTest::addColumn<QString>("phone");
    QTest::addColumn<int>("answer"); // -1: no message
    QTest::addColumn<bool>("passed");
    QTest::addColumn<bool>("leave");
    QTest::newRow("12 characters") << "217-555-0100" << -1 << true << false;
    QTest::newRow("any 12 characters") << "abcdefghijkl" << -1 << true << false;
    QTest::newRow("11 characters, stay") << "217-555-010" << int(Answer::No) << false << false;
    QTest::newRow("11 characters, leave") << "217-555-010" << int(Answer::Yes) << false << true;
    QTest::newRow("13 characters") << "217-555-01000" << int(Answer::No) << false << false;
    QTest::newRow("blanks count") << " 217-555-0100" << int(Answer::No) << false << false;
    QTest::newRow("empty") << "" << int(Answer::No) << false << false;
}

void TestCustomerEditing::telephoneRule()
{
    QFETCH(QString, phone);
    QFETCH(int, answer);
    QFETCH(bool, passed);
    QFETCH(bool, leave);
    ProgramFolder f;
    if (answer >= 0)
        f.dialogs.expect(kIncorrectTel, "Incorrect Tel No")
            .expect(kDontCreate, "Don't Create Customer", Answer(answer));
    CustomerBoxes b = business("Acme", "A-1", phone);
    const TelephoneCheck check = CheckTelephone(b, f.dialogs);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(check.passed, passed);
    QCOMPARE(check.leaveToMenu, leave);
}

void TestCustomerEditing::setAccountFromTelephone()
{
    ProgramFolder f;
    CustomerBoxes b = business("Acme", "A-1", "217-555-0100");
    SetAccountFromTelephone(b, f.dialogs);
    QCOMPARE(b.txtCustomer[CustomerBox::AccountNo], QStringLiteral("217-555-0100"));
    b.txtCustomer[CustomerBox::Phone].clear();
    SetAccountFromTelephone(b, f.dialogs);
    QCOMPARE(b.txtCustomer[CustomerBox::AccountNo], QStringLiteral("217-555-0100"));
    QCOMPARE(f.dialogs.beeps, 1);
}

void TestCustomerEditing::saveWritesTheBoxes_data()
{
    QTest::addColumn<bool>("usa");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray spare = QByteArray::fromHex("3412");
    QTest::newRow("USA style") << true
                               << customerBytes({.account = "217-555-0100",
                                                 .address1 = "12 Elm St",
                                                 .address2 = "Suite 4",
                                                 .address3 = "Springfield",
                                                 .cityShort = "Springfield",
                                                 .state = "IL",
                                                 .zip = "62704-1234",
                                                 .address4 = "62704-12345",
                                                 .phone = "217-555-0100",
                                                 .cell = "217-555-0199",
                                                 .other = "fax",
                                                 .title = "Mr.",
                                                 .first = "John",
                                                 .middle = "Q",
                                                 .last = "Public",
                                                 .spare = spare});
    QTest::newRow("international style") << false
                                         << customerBytes({.account = "217-555-0100",
                                                           .address1 = "12 Elm St",
                                                           .address2 = "Suite 4",
                                                           .address3 = "Line three",
                                                           .cityShort = "Springfield",
                                                           .zip = "62704-1234",
                                                           .address4 = "Line four",
                                                           .phone = "217-555-0100",
                                                           .cell = "217-555-0199",
                                                           .other = "fax",
                                                           .title = "Mr.",
                                                           .first = "John",
                                                           .middle = "Q",
                                                           .last = "Public",
                                                           .spare = spare});
}

void TestCustomerEditing::saveWritesTheBoxes()
{
    QFETCH(bool, usa);
    QFETCH(QByteArray, expected);
    ProgramFolder f;
    const QByteArray first = customerBytes({.account = "FIRST"});
    f.put(kCustomers,
          first + customerBytes({.account = "OLD", .spare = QByteArray::fromHex("3412")}));
    QVERIFY(ReadCustomer(f.ctx, 2).ok());

    CustomerBoxes b = individual(" John ", "Public ", " 217-555-0100");
    b.txtCustomer[CustomerBox::Address1] = QStringLiteral("12 Elm St ");
    b.txtCustomer[CustomerBox::Address2] = QStringLiteral("Suite 4");
    b.txtCustomer[CustomerBox::PostalCode] = QStringLiteral("62704-12345"); // Zip cuts it at 10
    b.txtCustomer[CustomerBox::Cell] = QStringLiteral("217-555-0199");
    b.txtCustomer[CustomerBox::Other] = QStringLiteral("fax");
    b.txtCustomer[CustomerBox::MiddleInitial] = QStringLiteral("Q");
    b.cboTitle = QStringLiteral("Mr.");
    b.cboCity = QStringLiteral("Springfield");
    b.cboStates = QStringLiteral("IL");
    b.txtAdd3 = QStringLiteral("Line three");
    b.txtAdd4 = QStringLiteral(" Line four");
    Result<CustomerCheck> r = UpdateCustomerRecord(f.ctx, b, usa, 2);
    QVERIFY2(r.ok(), qPrintable(r.message()));
    QVERIFY(r->save && r->AcctOK);
    QCOMPARE(f.get(kCustomers), first + expected);
}

void TestCustomerEditing::stoppedSaveWritesNothing()
{
    ProgramFolder f;
    f.put(kCustomers, customerBytes({.account = "A-1"}));
    const auto before = f.snapshot();
    f.dialogs.expect("The Account Name Cannot be Blank");
    CustomerBoxes b = business("", "A-1", "217-555-0100");
    Result<CustomerCheck> r = UpdateCustomerRecord(f.ctx, b, true, 1);
    QVERIFY(r.ok() && !r->AcctOK && !r->save);
    QCOMPARE(f.snapshot(), before);
    VERIFY_DIALOGS(f.dialogs);
}

void TestCustomerEditing::showCustomerBoxes()
{
    const CustomerRecord r(customerBytes({.account = "A-1",
                                          .address3 = "Springfield",
                                          .zip = "",
                                          .address4 = "62704",
                                          .title = "Ms",
                                          .first = "Ann",
                                          .middle = " ",
                                          .last = "Lee",
                                          .type = "business"}));
    const CustomerBoxes b = BoxesFromCustomer(r);
    QCOMPARE(b.cboCity, QStringLiteral("Springfield"));
    QCOMPARE(b.txtAdd3, QStringLiteral("Springfield"));
    // A blank Zip shows Address4 in the postal code box.
    QCOMPARE(b.txtCustomer[CustomerBox::PostalCode], QStringLiteral("62704"));
    QCOMPARE(b.txtCustomer[CustomerBox::MiddleInitial], QStringLiteral(" "));
    // Only the exact word makes a Business.
    QCOMPARE(b.lbLType, QStringLiteral("Individual"));
    QCOMPARE(CurrentCustomerName(r, b.lbLType), QStringLiteral("Ms Ann Lee"));
    const CustomerRecord q(
        customerBytes({.name = "Acme", .first = "Ann", .middle = "Q", .last = "Lee"}));
    QCOMPARE(CurrentCustomerName(q, "Individual"), QStringLiteral("Ann Q. Lee"));
    QCOMPARE(CurrentCustomerName(q, "Business"), QStringLiteral("Acme"));
}

void TestCustomerEditing::saveCustomerPublishes_data()
{
    QTest::addColumn<CustomerBoxes>("boxes");
    QTest::addColumn<QString>("storedType");
    QTest::addColumn<bool>("usa");
    QTest::addColumn<QStringList>("expected"); // account, name, a1, a2, state, city, zip, phone

    CustomerBoxes b = business(" Acme  Co ", " A-1 ", " 217-555-0100 ");
    b.txtCustomer[CustomerBox::Address1] = QStringLiteral(" 1 Main St ");
    b.txtCustomer[CustomerBox::Address2] = QStringLiteral("Apt 2 ");
    b.txtCustomer[CustomerBox::FirstName] = QStringLiteral("Ann");
    b.txtCustomer[CustomerBox::LastName] = QStringLiteral("Lee");
    b.txtCustomer[CustomerBox::MiddleInitial] = QStringLiteral("Q");
    b.txtCustomer[CustomerBox::PostalCode] = QStringLiteral(" 62704 ");
    b.cboTitle = QStringLiteral("Ms");
    b.cboCity = QStringLiteral(" Springfield ");
    b.cboStates = QStringLiteral(" IL ");
    b.txtAdd4 = QStringLiteral(" Line 4 ");
    QTest::newRow("business name as it stands")
        << b << "Business" << true
        << QStringList{"A-1", " Acme  Co ",  "1 Main St", "Apt 2",
                       "IL",  "Springfield", "62704",     "217-555-0100"};
    QTest::newRow("individual: initial without period")
        << b << "Individual" << true
        << QStringList{"A-1", "Ms Ann Q Lee", "1 Main St", "Apt 2",
                       "IL",  "Springfield",  "62704",     "217-555-0100"};
    b.cboTitle.clear();
    b.txtCustomer[CustomerBox::MiddleInitial].clear();
    QTest::newRow("international: no state, zip from line 4 as it stands")
        << b << "Individual" << false
        << QStringList{"A-1", "Ann Lee",     "1 Main St", "Apt 2",
                       "",    "Springfield", " Line 4 ",  "217-555-0100"};
}

void TestCustomerEditing::saveCustomerPublishes()
{
    QFETCH(CustomerBoxes, boxes);
    QFETCH(QString, storedType);
    QFETCH(bool, usa);
    QFETCH(QStringList, expected);
    ProgramFolder f;
    // The type comes from the record in the buffer, not from the label.
    boxes.lbLType = QStringLiteral("Individual");
    f.v.gCustomer.setText(CustomerField::AccountType, storedType);
    SaveCustomer(boxes, usa, f.v);
    const QStringList got = {f.v.current.account,  f.v.current.name,  f.v.current.address1,
                             f.v.current.address2, f.v.current.state, f.v.current.city,
                             f.v.current.zip,      f.v.current.phone};
    QCOMPARE(got, expected);
}

void TestCustomerEditing::deleteRecord_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("last");
    QTest::addColumn<QList<int>>("kept"); // record numbers of the old files, in order
    QTest::addColumn<int>("newCurrent");
    QTest::addColumn<int>("newLast");
    QTest::newRow("3 of 5") << 3 << 5 << QList<int>{1, 2, 4, 5} << 3 << 4;
    QTest::newRow("the last of 5") << 5 << 5 << QList<int>{1, 2, 3, 4} << 4 << 4;
    QTest::newRow("the first of 5") << 1 << 5 << QList<int>{2, 3, 4, 5} << 1 << 4;
    QTest::newRow("only up to gLastrec") << 2 << 4 << QList<int>{1, 3, 4} << 2 << 3;
    QTest::newRow("the only one") << 1 << 1 << QList<int>{} << 1 << 1;
}

void TestCustomerEditing::deleteRecord()
{
    QFETCH(int, current);
    QFETCH(int, last);
    QFETCH(QList<int>, kept);
    QFETCH(int, newCurrent);
    QFETCH(int, newLast);
    ProgramFolder f;
    struct File {
        QString name;
        int length;
        QList<QByteArray> records;
    };
    QList<File> files = {{kCustomers, kCustomerRecordLength, {}},
                         {kContracts, kContractRecordLength, {}},
                         {kCycles, kCycleRecordLength, {}}};
    const int count = last == 1 ? 1 : 5; // the files as they stand: one account or five
    for (int i = 0; i < files.size(); ++i) {
        QByteArray all;
        for (int n = 1; n <= count; ++n) {
            files[i].records << companionBytes(files[i].length, i * 10 + n);
            all += files[i].records.last();
        }
        f.put(files[i].name, all);
        f.put("Backup/" + files[i].name, all);
    }
    f.put("CUSTOMER.TMP", "left over");

    Result<CustomerPosition> at = DeleteCustomer(f.store, {current, last});
    QVERIFY2(at.ok(), qPrintable(at.message()));
    QCOMPARE(*at, (CustomerPosition{newCurrent, newLast}));
    for (const File& file : files) {
        QByteArray expected;
        for (int n : kept)
            expected += file.records[n - 1];
        QCOMPARE(f.get(file.name), expected);
    }
    // The customer file keeps its backup copy; the two parallel files lose theirs.
    QVERIFY(f.has("Backup/" + kCustomers));
    QVERIFY(!f.has("Backup/" + kContracts));
    QVERIFY(!f.has("Backup/" + kCycles));
    QVERIFY(!f.has("CUSTOMER.TMP"));
    QVERIFY(!f.has("TemporaryFile.txt"));
}

QTEST_GUILESS_MAIN(TestCustomerEditing)
#include "test_customerediting.moc"
