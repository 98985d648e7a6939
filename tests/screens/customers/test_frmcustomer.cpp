#include "../../core/customers/customerbytes.h"
#include "programfolder.h"

#include "core/customers/customerfiles.h"
#include "core/customers/customersearch.h"
#include "screens/customers/customerauxpanel.h"
#include "screens/customers/customersearchpanel.h"
#include "screens/customers/frmcustomer.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/screenframe.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>
#include <list>

using namespace tresvane;

namespace
{

using Answer = Dialogs::Answer;
const QString kCustomers = QStringLiteral("CustomerData.txt");
const QString kContracts = QStringLiteral("ContractInfo.txt");
const QString kCycles = QStringLiteral("CycleInfo.txt");

// A record as the screen would save it unchanged: CityShort the city, Zip the postal code.
HandCustomer person(const char* account, const char* first, const char* last,
                    const char* street = "1 Elm St", const char* phone = "217-555-0100")
{
    HandCustomer h;
    h.account = account;
    h.first = first;
    h.last = last;
    h.address1 = street;
    h.address3 = "Urbana";
    h.cityShort = "Urbana";
    h.state = "IL";
    h.zip = "61801";
    h.address4 = "61801";
    h.phone = phone;
    return h;
}

// The three parallel files: the customers as given, contract and cycle records of a
// companion program, each record different.
void layDown(ProgramFolder& pf, const QList<HandCustomer>& customers)
{
    QByteArray data, contracts, cycles;
    for (int i = 0; i < customers.size(); ++i) {
        data += customerBytes(customers[i]);
        contracts += companionBytes(kContractRecordLength, i + 1);
        cycles += companionBytes(kCycleRecordLength, 100 + i);
    }
    pf.put(kCustomers, data);
    pf.put(kContracts, contracts);
    pf.put(kCycles, cycles);
}

QList<HandCustomer> numbered(int n)
{
    // The hand records point at their texts: these stay put for the whole run.
    static std::list<QByteArray> texts;
    QList<HandCustomer> list;
    for (int i = 1; i <= n; ++i) {
        const QByteArray& account = texts.emplace_back("A" + QByteArray::number(i));
        const QByteArray& last = texts.emplace_back("Last" + QByteArray::number(i));
        list << person(account.constData(), "Pat", last.constData());
    }
    return list;
}

QByteArray recordOf(const QByteArray& file, int length, int n)
{
    return file.mid(qsizetype(n - 1) * length, length);
}

// A screen on a program folder, brought up as the menu would bring it.
struct Screen {
    ProgramFolder pf;
    std::unique_ptr<frmCustomer> w;

    void bringUp(qint16 mode = 2)
    {
        pf.v.gBusiness[3] = QStringLiteral("Champaign");
        pf.v.gBusiness[4] = QStringLiteral("IL");
        pf.v.gBusiness[5] = QStringLiteral("61820");
        pf.v.gBusiness[6] = QStringLiteral("217-555-9999");
        if (!w) w = std::make_unique<frmCustomer>(pf.ctx);
        pf.v.Mode = Mode(mode);
        w->show();
        w->Form_Activate();
    }
    void click(QAbstractButton* b) { QTest::mouseClick(b, Qt::LeftButton); }
    QString account() const { return w->txtCustomer[CustomerBox::AccountNo]->text(); }
};

} // namespace

class TestFrmCustomer : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }

    void businessWithoutAccountTakesItsTelephone();
    void shortTelephoneBlocksExitNotNavigation_data();
    void shortTelephoneBlocksExitNotNavigation();
    void navigationButtons_data();
    void navigationButtons();
    void cancelOfNewAccountShowsRecordOne();
    void searchListsHitsInRecordOrder();
    void telephoneSearchStopsAtCellMatch();
    void oneHitGoesStraightToTheAccount();
    void noHitAsksForANewAccount_data();
    void noHitAsksForANewAccount();
    void accountNumberSearchIsRefused();
    void deleteRecordThreeOfFive();
    void deleteTheOnlyAccount();
    void savesCarryContractAndCycle();
    void searchPanelSaveLeavesDefaults();
    void missingParallelFilesAreRebuilt();
    void firstRunMakesTheFirstAccount();
    void duplicateAccountIsEmptied();
    void nameListCompletesAsTyped();
    void auxTextsCarriedToNextAccount();
    void hostileAccountStaysInsideAuxFiles();
};

void TestFrmCustomer::businessWithoutAccountTakesItsTelephone()
{
    Screen s;
    layDown(s.pf, numbered(2));
    s.bringUp();
    s.w->mnuAdd->trigger();
    QCOMPARE(s.w->at.gCurrentRec, 3);
    s.click(s.w->cmdAcctType);
    QCOMPARE(s.w->lbLType->text(), QStringLiteral("Business"));
    QVERIFY(s.w->txtCustomer[CustomerBox::Name]->isVisible());
    QVERIFY(!s.w->txtCustomer[CustomerBox::LastName]->isVisible());
    s.w->txtCustomer[CustomerBox::Name]->setText(QStringLiteral("Acme Heating"));
    s.w->txtCustomer[CustomerBox::Phone]->setText(QStringLiteral("217-555-0142"));

    s.pf.dialogs.expect(QStringLiteral("Telephone Number will be used as Acct No."),
                        QStringLiteral("Account not Entered"));
    QSignalSpy selected(s.w.get(), &frmCustomer::customerSelected);
    s.click(s.w->cmdCustomer[1]);
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(selected.size(), 1);
    QCOMPARE(s.account(), QStringLiteral("217-555-0142"));
    const QByteArray stored = recordOf(s.pf.get(kCustomers), kCustomerRecordLength, 3);
    QCOMPARE(stored.left(20), padded("217-555-0142", 20));
    QCOMPARE(stored.mid(20, 45), padded("Acme Heating", 45));
    QCOMPARE(stored.mid(314, 10), padded("Business", 10));
    QCOMPARE(s.pf.v.current.account, QStringLiteral("217-555-0142"));
    QCOMPARE(s.pf.v.current.name, QStringLiteral("Acme Heating"));
    QCOMPARE(s.pf.v.current.city, QStringLiteral("Champaign"));
    // A new account reaches the parallel files with their defaults.
    QCOMPARE(recordOf(s.pf.get(kContracts), kContractRecordLength, 3).left(35),
             padded("None Selected", 35));
    QCOMPARE(s.pf.get(kCycles).size(), 3 * kCycleRecordLength);

    // Its aux texts go to a folder named by that number.
    s.w->mnuAux->trigger();
    s.click(s.w->aux->cmdSaveAux[2]);
    QVERIFY(s.pf.has(QStringLiteral("AuxFiles/217-555-0142/AuxFile5/Data.txt")));
}

void TestFrmCustomer::shortTelephoneBlocksExitNotNavigation_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("toMenu");
    QTest::newRow("stay") << int(Answer::No) << false;
    QTest::newRow("leave without saving") << int(Answer::Yes) << true;
}

void TestFrmCustomer::shortTelephoneBlocksExitNotNavigation()
{
    QFETCH(int, answer);
    QFETCH(bool, toMenu);
    Screen s;
    layDown(s.pf, numbered(3));
    s.bringUp();
    const auto before = s.pf.snapshot();
    s.w->txtCustomer[CustomerBox::Phone]->setText(QStringLiteral("217-555-010"));

    s.pf.dialogs
        .expect(QStringLiteral("The Telephone Number MUST be in the form\n           nnn-nnn-nnnn"),
                QStringLiteral("Incorrect Tel No"))
        .expect(QStringLiteral("Would youlike to exit without\ncreating a Customer Record?"),
                QStringLiteral("Don't Create Customer"), Answer(answer));
    QSignalSpy menu(s.w.get(), &frmCustomer::showMenu);
    s.click(s.w->cmdExit);
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(menu.size(), toMenu ? 1 : 0);
    QCOMPARE(s.pf.snapshot(), before);
    if (toMenu) return;

    // Moving on saves the telephone as it stands.
    s.click(s.w->cmdNav[2]);
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(s.account(), QStringLiteral("A2"));
    HandCustomer expected = numbered(3)[0];
    expected.phone = "217-555-010";
    QCOMPARE(recordOf(s.pf.get(kCustomers), kCustomerRecordLength, 1), customerBytes(expected));
}

void TestFrmCustomer::navigationButtons_data()
{
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("shown");
    QTest::newRow("7: a quarter in") << 7 << 5 << 4 << 1;
    QTest::newRow("7: half way") << 7 << 5 << 6 << 2;
    QTest::newRow("7: three quarters") << 7 << 5 << 5 << 3;
    QTest::newRow("3: a quarter does nothing") << 3 << 2 << 4 << 2;
    QTest::newRow("3: half does nothing") << 3 << 2 << 6 << 2;
    QTest::newRow("3: three quarters does nothing") << 3 << 2 << 5 << 2;
    QTest::newRow("next from the last wraps") << 4 << 4 << 2 << 1;
    QTest::newRow("previous on the first stays") << 4 << 1 << 1 << 1;
    QTest::newRow("last") << 4 << 2 << 3 << 4;
    QTest::newRow("first") << 4 << 3 << 0 << 1;
}

void TestFrmCustomer::navigationButtons()
{
    QFETCH(int, records);
    QFETCH(int, start);
    QFETCH(int, button);
    QFETCH(int, shown);
    Screen s;
    layDown(s.pf, numbered(records));
    s.bringUp();
    for (int i = 1; i < start; ++i)
        s.click(s.w->cmdNav[2]);
    QCOMPARE(s.account(), QStringLiteral("A%1").arg(start));
    const auto before = s.pf.snapshot();
    s.click(s.w->cmdNav[button]);
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(s.w->at.gCurrentRec, shown);
    QCOMPARE(s.account(), QStringLiteral("A%1").arg(shown));
    QCOMPARE(s.w->txtCustomer[CustomerBox::LastName]->text(), QStringLiteral("Last%1").arg(shown));
    // An unchanged account is saved as it was read, parallel records included.
    QCOMPARE(s.pf.snapshot(), before);
}

void TestFrmCustomer::cancelOfNewAccountShowsRecordOne()
{
    Screen s;
    layDown(s.pf, numbered(4));
    s.bringUp();
    s.click(s.w->cmdNav[3]);
    QCOMPARE(s.account(), QStringLiteral("A4"));
    s.click(s.w->cmdNew);
    QVERIFY(s.w->cmdCustomer[0]->isVisible());
    QCOMPARE(s.w->at, (CustomerPosition{5, 5}));
    QCOMPARE(s.account(), QString());
    QCOMPARE(s.w->cboCity->currentText(), QStringLiteral("Champaign"));
    QCOMPARE(s.w->txtCustomer[CustomerBox::PostalCode]->text(), QStringLiteral("61820"));
    QCOMPARE(s.w->lbLType->text(), QStringLiteral("Individual"));

    s.click(s.w->cmdCustomer[0]);
    QVERIFY(!s.w->cmdCustomer[0]->isVisible());
    QCOMPARE(s.w->at, (CustomerPosition{1, 4}));
    QCOMPARE(s.account(), QStringLiteral("A1"));
    QCOMPARE(s.pf.get(kCustomers).size(), 4 * kCustomerRecordLength);
    QVERIFY(s.w->mnuDelete->isEnabled());
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::searchListsHitsInRecordOrder()
{
    Screen s;
    layDown(s.pf,
            {person("A1", "Ann", "Main", "123 Main St"), person("A2", "Bo", "Oak", "9 Oak Rd"),
             person("A3", "Cy", "Roe", "44 Romaine Ave"), person("A4", "Di", "Elm", "7 Elm")});
    s.bringUp();
    s.click(s.w->Command1[0]);
    CustomerSearchPanel* p = s.w->search;
    QVERIFY(p->fraSearch->isVisible());
    p->optSearch[1]->click();
    QTest::keyClicks(p->txtSearchfor, QStringLiteral(" main "));
    s.click(p->cmdStartSearch);
    VERIFY_DIALOGS(s.pf.dialogs);
    QVERIFY(!p->fraSearch->isVisible());
    QVERIFY(p->fraCustomersFound->isVisible());
    QCOMPARE(p->fraCustomersFound->title(), QStringLiteral("Customers Search Results"));
    QVERIFY(!p->cmdPrintCustomers->isVisible());
    FlexGrid* g = p->fgCustomersFound;
    QCOMPARE(g->rows(), 2);
    QCOMPARE(g->grid()->rowTexts(0),
             (QStringList{QStringLiteral(" Ann Main"), QStringLiteral("217-555-0100"),
                          QStringLiteral("123 Main St"), QStringLiteral("Urbana"),
                          QStringLiteral("1")}));
    QCOMPARE(g->textMatrix(1, 4), QStringLiteral("3"));

    // A row picked shows its account and closes the list.
    const QRect cell = g->visualRect(g->model()->index(1, 0));
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(s.w->at.gCurrentRec, 3);
    QCOMPARE(s.account(), QStringLiteral("A3"));
    QVERIFY(!p->fraCustomersFound->isVisible());
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::telephoneSearchStopsAtCellMatch()
{
    Screen s;
    HandCustomer two = person("A2", "Bo", "Two", "2 St", "217-444-0000");
    two.cell = "217-555-0100";
    layDown(s.pf, {person("A1", "Al", "One"), two, person("A3", "Cy", "Three")});
    s.bringUp();
    s.click(s.w->Command1[0]);
    CustomerSearchPanel* p = s.w->search;
    p->optSearch[CustomerSearch::ByTelephone]->click();
    QTest::keyClicks(p->txtSearchfor, QStringLiteral("217-555-0100"));
    s.click(p->cmdStartSearch);
    // Record 3 holds the same telephone but is never reached.
    QCOMPARE(p->fgCustomersFound->rows(), 2);
    QCOMPARE(p->fgCustomersFound->textMatrix(0, 4), QStringLiteral("1"));
    QCOMPARE(p->fgCustomersFound->textMatrix(1, 4), QStringLiteral("2"));
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::oneHitGoesStraightToTheAccount()
{
    Screen s;
    layDown(s.pf, numbered(5));
    s.bringUp();
    s.click(s.w->Command1[0]);
    CustomerSearchPanel* p = s.w->search;
    p->optSearch[CustomerSearch::ByLastName]->click();
    QTest::keyClicks(p->txtSearchfor, QStringLiteral("last4"));
    s.click(p->cmdStartSearch);
    QCOMPARE(s.account(), QStringLiteral("A4"));
    QVERIFY(!p->fraSearch->isVisible());
    QVERIFY(!p->fraCustomersFound->isVisible());
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::noHitAsksForANewAccount_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("no: back to the record") << int(Answer::No);
    QTest::newRow("yes: a new account") << int(Answer::Yes);
}

void TestFrmCustomer::noHitAsksForANewAccount()
{
    QFETCH(int, answer);
    Screen s;
    layDown(s.pf, numbered(2));
    s.bringUp();
    s.click(s.w->Command1[0]);
    CustomerSearchPanel* p = s.w->search;
    p->optSearch[CustomerSearch::ByCity]->click();
    QTest::keyClicks(p->txtSearchfor, QStringLiteral("Peoria"));
    s.pf.dialogs.expect(QStringLiteral("No Accounts Matching the Search Data were Found\nWould you "
                                       "like to Create a New Account?"),
                        QStringLiteral("Customer not Found"), Answer(answer));
    s.click(p->cmdStartSearch);
    VERIFY_DIALOGS(s.pf.dialogs);
    QVERIFY(!p->fraSearch->isVisible());
    QCOMPARE(p->txtSearchfor->text(), QString());
    if (answer == int(Answer::Yes)) {
        QCOMPARE(s.w->at, (CustomerPosition{3, 3}));
        QVERIFY(s.w->cmdCustomer[0]->isVisible());
        QVERIFY(!s.w->mnuAdd->isEnabled());
    } else {
        QCOMPARE(s.w->at, (CustomerPosition{1, 2}));
        QCOMPARE(s.account(), QStringLiteral("A1"));
    }
}

void TestFrmCustomer::accountNumberSearchIsRefused()
{
    Screen s;
    layDown(s.pf, numbered(2));
    s.bringUp();
    s.click(s.w->Command1[0]);
    CustomerSearchPanel* p = s.w->search;
    p->optSearch[CustomerSearch::ByAccountNumber]->click();
    QTest::keyClicks(p->txtSearchfor, QStringLiteral("A2"));
    s.pf.dialogs.expect(NoAccountNumberSearchMessage());
    s.click(p->cmdStartSearch);
    VERIFY_DIALOGS(s.pf.dialogs);
    QVERIFY(p->fraSearch->isVisible());
    QCOMPARE(s.account(), QStringLiteral("A1"));
}

void TestFrmCustomer::deleteRecordThreeOfFive()
{
    Screen s;
    layDown(s.pf, numbered(5));
    const QByteArray customers = s.pf.get(kCustomers);
    const QByteArray contracts = s.pf.get(kContracts);
    const QByteArray cycles = s.pf.get(kCycles);
    s.bringUp();
    s.click(s.w->cmdNav[2]);
    s.click(s.w->cmdNav[2]);
    QCOMPARE(s.account(), QStringLiteral("A3"));

    s.pf.dialogs.expect(QStringLiteral("Delete this Customer"),
                        QStringLiteral("Delete this Customer"), Answer::Yes);
    s.w->mnuDelete->trigger();
    VERIFY_DIALOGS(s.pf.dialogs);
    auto without3 = [](const QByteArray& file, int length) {
        return file.left(2 * length) + file.mid(3 * length);
    };
    QCOMPARE(s.pf.get(kCustomers), without3(customers, kCustomerRecordLength));
    QCOMPARE(s.pf.get(kContracts), without3(contracts, kContractRecordLength));
    QCOMPARE(s.pf.get(kCycles), without3(cycles, kCycleRecordLength));
    QCOMPARE(s.w->at, (CustomerPosition{3, 4}));
    QCOMPARE(s.account(), QStringLiteral("A4"));
    QCOMPARE(s.w->accountIndex().size(), 4);
}

void TestFrmCustomer::deleteTheOnlyAccount()
{
    Screen s;
    layDown(s.pf, numbered(1));
    s.bringUp();
    QCOMPARE(s.account(), QStringLiteral("A1"));
    s.pf.dialogs.expect(QStringLiteral("Delete this Customer"),
                        QStringLiteral("Delete this Customer"), Answer::Yes);
    s.w->mnuDelete->trigger();
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(s.pf.get(kCustomers), QByteArray());
    QCOMPARE(s.pf.get(kContracts), QByteArray());
    QCOMPARE(s.pf.get(kCycles), QByteArray());
    // The count is not lowered from 1, so the screen reads past the end: blank boxes.
    QCOMPARE(s.w->at, (CustomerPosition{1, 1}));
    for (QLineEdit* box : s.w->txtCustomer)
        if (box) QCOMPARE(box->text(), QString());
}

void TestFrmCustomer::savesCarryContractAndCycle()
{
    Screen s;
    layDown(s.pf, numbered(3));
    const QByteArray contracts = s.pf.get(kContracts);
    const QByteArray cycles = s.pf.get(kCycles);
    s.bringUp();
    s.w->txtCustomer[CustomerBox::Address2]->setText(QStringLiteral("Suite 4"));
    s.click(s.w->cmdNav[2]);
    s.click(s.w->cmdCustomer[1]); // record 2 selected: saved again
    // Coming back from another screen reads the records again before the next save.
    s.bringUp(7);
    QCOMPARE(s.account(), QStringLiteral("A2"));
    s.click(s.w->cmdNav[2]);
    s.click(s.w->cmdNav[0]);
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(s.pf.get(kContracts), contracts);
    QCOMPARE(s.pf.get(kCycles), cycles);
    QCOMPARE(recordOf(s.pf.get(kCustomers), kCustomerRecordLength, 1).mid(100, 25),
             padded("Suite 4", 25));
}

void TestFrmCustomer::searchPanelSaveLeavesDefaults()
{
    // The search button saves and stays: its save gives the buffers their defaults, which
    // the next save stores at that number.
    Screen s;
    layDown(s.pf, numbered(3));
    const QByteArray contracts = s.pf.get(kContracts);
    s.bringUp();
    s.click(s.w->Command1[0]);
    s.click(s.w->search->cmdHideSearch);
    s.click(s.w->cmdNav[2]);
    const QByteArray contract1 = recordOf(s.pf.get(kContracts), kContractRecordLength, 1);
    QCOMPARE(contract1.left(50), padded("None Selected", 35) + padded("None", 15));
    QCOMPARE(contract1.mid(58, 9), padded("Thursday", 9)); // 30 April 2026
    QCOMPARE(contract1.mid(125, 2), QByteArray::fromHex("ffff"));
    QCOMPARE(recordOf(s.pf.get(kCycles), kCycleRecordLength, 1).left(35),
             padded("None Selected", 35));
    QCOMPARE(s.pf.get(kContracts).mid(kContractRecordLength), contracts.mid(kContractRecordLength));
}

void TestFrmCustomer::missingParallelFilesAreRebuilt()
{
    Screen s;
    layDown(s.pf, numbered(5));
    QFile::remove(s.pf.abs(kContracts));
    QFile::remove(s.pf.abs(kCycles));
    s.pf.dialogs.expect(
        QStringLiteral("Your Billing Information File will be Built with Default Values"),
        QStringLiteral("Building Billing Info"));
    s.bringUp();
    VERIFY_DIALOGS(s.pf.dialogs);
    const QByteArray contracts = s.pf.get(kContracts);
    QCOMPARE(contracts.size(), 1930);
    QCOMPARE(contracts.left(4 * kContractRecordLength),
             QByteArray(4 * kContractRecordLength, '\0'));
    QCOMPARE(recordOf(contracts, kContractRecordLength, 5).left(35), padded("None Selected", 35));
    const QByteArray cycles = s.pf.get(kCycles);
    QCOMPARE(cycles.size(), 5 * kCycleRecordLength);
    for (int n = 1; n <= 5; ++n)
        QCOMPARE(recordOf(cycles, kCycleRecordLength, n), recordOf(cycles, kCycleRecordLength, 1));
    QCOMPARE(cycles.left(35), padded("None Selected", 35));
    QCOMPARE(cycles.mid(67, 2), QByteArray::fromHex("ffff"));
}

void TestFrmCustomer::firstRunMakesTheFirstAccount()
{
    Screen s;
    s.pf.dialogs
        .expect(QStringLiteral("Your Customer File is Empty\nCreate your First Customer Now"),
                QStringLiteral("Create Customers"))
        .expect(QStringLiteral("Your Customer Information File is missing\nThe Contract File can "
                               "not be rebuilt"),
                QStringLiteral("No Customer File Found"))
        .expect(QStringLiteral("Your Customer Information File is missing\nThe Cycle File can not "
                               "be rebuilt"),
                QStringLiteral("No Customer File Found"));
    s.bringUp();
    VERIFY_DIALOGS(s.pf.dialogs);
    QVERIFY(!s.w->cmdNav[2]->isEnabled());
    QVERIFY(!s.w->Command1[0]->isEnabled());
    QVERIFY(!s.w->mnuDelete->isEnabled());
    QCOMPARE(s.w->txtCustomer[CustomerBox::Phone]->text(), QStringLiteral("217-555-"));

    QTest::keyClicks(s.w->txtCustomer[CustomerBox::Phone], QStringLiteral("0123"));
    s.w->txtCustomer[CustomerBox::AccountNo]->setText(QStringLiteral("C-1"));
    s.w->txtCustomer[CustomerBox::FirstName]->setText(QStringLiteral("Lee"));
    s.w->txtCustomer[CustomerBox::LastName]->setText(QStringLiteral("Hart"));
    // A second account in the same visit gets a record of its own.
    s.click(s.w->cmdNew);
    QCOMPARE(s.w->at, (CustomerPosition{2, 2}));
    s.w->txtCustomer[CustomerBox::Phone]->setText(QStringLiteral("217-555-0124"));
    s.w->txtCustomer[CustomerBox::AccountNo]->setText(QStringLiteral("C-2"));
    s.w->txtCustomer[CustomerBox::FirstName]->setText(QStringLiteral("Kim"));
    s.w->txtCustomer[CustomerBox::LastName]->setText(QStringLiteral("Moss"));
    QSignalSpy menu(s.w.get(), &frmCustomer::showMenu);
    s.click(s.w->cmdExit);
    QCOMPARE(menu.size(), 1);
    QVERIFY(s.w->cmdNav[2]->isEnabled());
    QVERIFY(s.w->mnuDelete->isEnabled());
    HandCustomer expected;
    expected.account = "C-1";
    expected.address3 = expected.cityShort = "Champaign";
    expected.state = "IL";
    expected.zip = expected.address4 = "61820";
    expected.phone = "217-555-0123";
    expected.first = "Lee";
    expected.last = "Hart";
    HandCustomer second = expected;
    second.account = "C-2";
    second.phone = "217-555-0124";
    second.first = "Kim";
    second.last = "Moss";
    // A record never read keeps zero for its two numbers; a new account is marked 1.
    expected.mark = expected.spare = QByteArray(2, '\0');
    QCOMPARE(s.pf.get(kCustomers), customerBytes(expected) + customerBytes(second));
    QCOMPARE(s.pf.get(kContracts).size(), 2 * kContractRecordLength);
    QCOMPARE(s.pf.get(kCycles).size(), 2 * kCycleRecordLength);
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::duplicateAccountIsEmptied()
{
    Screen s;
    layDown(s.pf, numbered(3));
    s.bringUp();
    QApplication::setActiveWindow(s.w.get());
    QVERIFY(QTest::qWaitForWindowActive(s.w.get()));
    s.click(s.w->cmdNav[2]);
    QLineEdit* account = s.w->txtCustomer[CustomerBox::AccountNo];

    // Its own number is no duplicate.
    account->setFocus();
    s.w->txtCustomer[CustomerBox::Address1]->setFocus();
    VERIFY_DIALOGS(s.pf.dialogs);

    account->setFocus();
    account->setText(QStringLiteral("A3"));
    s.pf.dialogs.expect(
        QStringLiteral("The Account Number has been duplicated\nEnter a different Number"),
        QStringLiteral("Duplicate Account Number"));
    s.w->txtCustomer[CustomerBox::Address1]->setFocus();
    VERIFY_DIALOGS(s.pf.dialogs);
    QCOMPARE(account->text(), QString());
    QVERIFY(account->hasFocus());
}

void TestFrmCustomer::nameListCompletesAsTyped()
{
    Screen s;
    layDown(s.pf, {person("A1", "Zed", "Adams"), person("A2", "John", "Smith"),
                   person("A3", "Al", "Smithers"), person("A4", "Amy", "smart")});
    s.bringUp();
    s.click(s.w->Command1[1]);
    QComboBox* list = s.w->cboAccounts;
    QVERIFY(list->isVisible());
    QVERIFY(!s.w->txtCustomer[CustomerBox::LastName]->isVisible());
    QCOMPARE(list->count(), 4);
    QCOMPARE(list->itemText(0), QStringLiteral("Adams, Zed"));
    QCOMPARE(list->itemText(1), QStringLiteral("smart, Amy"));

    QLineEdit* edit = list->lineEdit();
    QTest::keyClicks(edit, QStringLiteral("smi"));
    QCOMPARE(edit->text(), QStringLiteral("smith, John"));
    QCOMPARE(edit->selectedText(), QStringLiteral("th, John"));
    // Erasing is not undone by the completion.
    QTest::keyClick(edit, Qt::Key_Backspace);
    QCOMPARE(edit->text(), QStringLiteral("smi"));
    QTest::keyClicks(edit, QStringLiteral("the"));
    QCOMPARE(edit->text(), QStringLiteral("smithers, Al"));
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(!list->isVisible());
    QCOMPARE(s.w->at.gCurrentRec, 3);
    QCOMPARE(s.account(), QStringLiteral("A3"));
    QVERIFY(s.w->txtCustomer[CustomerBox::LastName]->isVisible());
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::auxTextsCarriedToNextAccount()
{
    Screen s;
    layDown(s.pf, numbered(2));
    s.pf.put(QStringLiteral("AuxHeadings.txt"), "Gate\r\nDog\r\nKey\r\nPay\r\nNote\r\nMisc\r\n");
    s.pf.put(QStringLiteral("AuxFiles/A1/AuxFile1/Data.txt"), "Rex, friendly\r\n");
    s.bringUp();
    s.w->mnuAux->trigger();
    CustomerAuxPanel* a = s.w->aux;
    QCOMPARE(a->txtHeading[1]->text(), QStringLiteral("Dog"));
    QCOMPARE(a->txtAux[1]->toPlainText(), QStringLiteral("Rex\nfriendly\n"));
    QCOMPARE(a->lblAccount->text(), QStringLiteral("Data for Pat   Last1"));

    // The big editor and its buttons.
    QTest::mouseDClick(a->txtAux[1]->viewport(), Qt::LeftButton);
    QVERIFY(a->fraBig->isVisible());
    QCOMPARE(a->lblEditing->text(), QStringLiteral("Editing Data Box # 2 - Dog - for A1"));
    a->txtBig->setPlainText(QStringLiteral("Rex"));
    s.click(a->cmdSaveAux[4]);
    QCOMPARE(a->txtAux[1]->toPlainText(), QStringLiteral("Rex"));

    a->ckSaveAux->setChecked(true);
    s.click(a->cmdSaveAux[7]);
    QCOMPARE(s.account(), QStringLiteral("A2"));
    QCOMPARE(a->txtAux[1]->toPlainText(), QStringLiteral("Rex"));
    s.click(a->cmdSaveAux[7]); // the last account: saved, no move
    QCOMPARE(s.account(), QStringLiteral("A2"));
    QCOMPARE(s.pf.get(QStringLiteral("AuxFiles/A2/AuxFile1/Data.txt")), QByteArray("Rex\r\n"));
    QCOMPARE(s.pf.get(QStringLiteral("AuxFiles/A2/AuxFile0/Data.txt")), QByteArray("\r\n"));
    s.click(a->cmdSaveAux[8]);
    QCOMPARE(s.account(), QStringLiteral("A1"));
    VERIFY_DIALOGS(s.pf.dialogs);
}

void TestFrmCustomer::hostileAccountStaysInsideAuxFiles()
{
    Screen s;
    ProgramFolder& pf = s.pf;
    layDown(pf, {person("../../x", "Eve", "Out"), person("..", "Dot", "Dot"),
                 person("a\\b/c:d", "Sep", "Arator")});
    pf.put(QStringLiteral("AuxFiles/x/AuxFile0/Data.txt"), "safe\r\n");
    s.bringUp();
    s.w->mnuAux->trigger();
    for (int i = 0; i < 3; ++i) {
        s.w->aux->txtAux[0]->setPlainText(QStringLiteral("text %1").arg(i));
        s.click(s.w->aux->cmdSaveAux[7]);
    }
    VERIFY_DIALOGS(pf.dialogs);
    const QStringList files = pf.snapshot().keys();
    for (const QString& f : files)
        QVERIFY2(f.startsWith(QStringLiteral("AuxFiles/")) || !f.contains(u'/'), qPrintable(f));
    QCOMPARE(pf.get(QStringLiteral("AuxFiles/x/AuxFile0/Data.txt")), QByteArray("safe\r\n"));
    QVERIFY(!QFileInfo::exists(pf.abs(QStringLiteral("../x"))));
    QCOMPARE(files.filter(QStringLiteral("/AuxFile0/Data.txt")).size(), 4);
}

QTEST_MAIN(TestFrmCustomer)
#include "test_frmcustomer.moc"
