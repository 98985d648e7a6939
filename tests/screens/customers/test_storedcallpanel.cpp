#include "../../core/customers/customerbytes.h"
#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/customers/customerfiles.h"
#include "core/session/menurules.h"
#include "screens/customers/customersearchpanel.h"
#include "screens/customers/frmcustomer.h"
#include "screens/customers/storedcallpanel.h"
#include "screens/schedule/frmmain.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/screenframe.h"
#include "screens/shell/updown.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using namespace tresvane;
using Answer = Dialogs::Answer;

namespace
{

const QString kNotFound =
    QStringLiteral("No Accounts Matching the Search Data were Found\nWould you like to Create a "
                   "New Account?");

HandCustomer account(const char* no, const char* name, const char* phone, const char* cell = "")
{
    HandCustomer h;
    h.account = no;
    h.name = name;
    h.type = "Business";
    h.phone = phone;
    h.cell = cell;
    return h;
}

QByteArray call(const char* name, const char* number, const char* time)
{
    return padded(name, 15) + padded(number, 12) + padded(time, 8);
}

// One caller by an account's cell, one by a number two accounts share, one unknown.
const QByteArray kCalls[3] = {call("CELL CALLER", "217-555-7777", "08:00 am"),
                              call("HILL", "312-555-0200", "08:10 am"),
                              call("STRANGER", "999-555-0000", "08:20 pm")};

void layDown(ProgramFolder& f, int calls = 3)
{
    f.put("CustomerData.txt",
          customerBytes(account("A-1", "Lee Plumbing", "217-555-0100", "217-555-7777")) +
              customerBytes(account("B-2", "Hill Bakery", "312-555-0200")) +
              customerBytes(account("B-3", "Hill Cafe", "312-555-0200")));
    f.put("ContractInfo.txt", companionBytes(3 * kContractRecordLength, 1));
    f.put("CycleInfo.txt", companionBytes(3 * kCycleRecordLength, 2));
    QByteArray stored;
    for (int i = 0; i < calls; ++i)
        stored += kCalls[i];
    f.put("TelCall.txt", stored);
    f.put("Backup/TelCall.txt", stored);
}

struct Screen : ProgramFolder {
    std::unique_ptr<frmCustomer> w;
    StoredCallPanel* p = nullptr;
    explicit Screen(int calls = 3)
    {
        layDown(*this, calls);
        w = std::make_unique<frmCustomer>(ctx);
        p = w->calls;
        v.Mode = Mode::ServiceSlip;
        w->show();
        w->Form_Activate();
    }
    QString accountNo() const { return w->txtCustomer[CustomerBox::AccountNo]->text(); }
    void click(QAbstractButton* b) { QTest::mouseClick(b, Qt::LeftButton); }
};

} // namespace

class TestStoredCallPanel : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }

    // Each call shown is looked up: a cell number goes to its account, a shared number
    // lists both, an unknown one asks each time; the up-down wraps both ways.
    void browseLooksUpEachCallerAndWraps()
    {
        Screen s;
        QVERIFY(s.p->cmdCallLater->isEnabled());
        QCOMPARE(s.p->cmdCallLater->text(), QStringLiteral("Call Now"));
        QVERIFY(!s.p->fraCall->isVisible());

        s.click(s.p->cmdCallLater);
        QCOMPARE(s.p->cmdCallLater->text(), QStringLiteral("Call Later"));
        QVERIFY(s.p->fraCall->isVisible() && s.p->fraCallBack->isVisible());
        QCOMPARE(s.p->lblTotalCalls->text(), QStringLiteral("3"));
        QCOMPARE(s.p->lblStoredName->text(), QStringLiteral("CELL CALLER"));
        QCOMPARE(s.accountNo(), QStringLiteral("A-1"));

        s.click(s.p->updnCalls->up);
        QCOMPARE(s.p->lblCall->text(), QStringLiteral("2"));
        QVERIFY(s.w->search->fraCustomersFound->isVisible());
        QCOMPARE(s.w->search->fgCustomersFound->rows(), 2);
        QCOMPARE(s.w->search->fgCustomersFound->textMatrix(1, 0), QStringLiteral("Hill Cafe"));

        s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::No);
        s.click(s.p->updnCalls->up);
        QCOMPARE(s.p->lblStoredTel->text(), QStringLiteral("999-555-0000"));
        s.click(s.p->updnCalls->up);
        QCOMPARE(s.p->lblCall->text(), QStringLiteral("1"));
        QCOMPARE(s.accountNo(), QStringLiteral("A-1"));
        s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::No);
        s.click(s.p->updnCalls->down);
        QCOMPARE(s.p->lblCall->text(), QStringLiteral("3"));
        VERIFY_DIALOGS(s.dialogs);

        // Put away and opened again, the panel goes on from the same call.
        s.click(s.p->cmdCallLater);
        QVERIFY(!s.p->fraCall->isVisible());
        s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::No);
        s.click(s.p->cmdCallLater);
        QCOMPARE(s.p->lblStoredName->text(), QStringLiteral("STRANGER"));
        VERIFY_DIALOGS(s.dialogs);
    }

    void deleteThisCallOnly_data()
    {
        QTest::addColumn<int>("calls");
        QTest::addColumn<int>("on");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QByteArray>("left");
        QTest::addColumn<QString>("shownNext");
        QTest::newRow("No keeps every call")
            << 3 << 2 << Answer::No << kCalls[0] + kCalls[1] + kCalls[2] << "HILL";
        QTest::newRow("the second: the third moves up")
            << 3 << 2 << Answer::Yes << kCalls[0] + kCalls[2] << "STRANGER";
        QTest::newRow("the last: back to the first")
            << 3 << 3 << Answer::Yes << kCalls[0] + kCalls[1] << "CELL CALLER";
        QTest::newRow("the only one: no file left") << 1 << 1 << Answer::Yes << QByteArray() << "";
    }

    void deleteThisCallOnly()
    {
        QFETCH(int, calls);
        QFETCH(int, on);
        QFETCH(Answer, answer);
        QFETCH(QByteArray, left);
        QFETCH(QString, shownNext);
        Screen s(calls);
        if (on == 3) s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::No);
        s.click(s.p->cmdCallLater);
        for (int i = 1; i < on; ++i)
            s.click(s.p->updnCalls->up);
        s.dialogs.expect(QStringLiteral("Click YES to Delete this Call only"),
                         QStringLiteral("Delete a Single Call Record"), answer);
        if (shownNext == QStringLiteral("STRANGER"))
            s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::No);
        s.click(s.p->cmdClear[1]);
        VERIFY_DIALOGS(s.dialogs);
        QCOMPARE(s.has("TelCall.txt"), !left.isEmpty());
        if (!left.isEmpty()) QCOMPARE(s.get("TelCall.txt"), left);
        // The copy in Backup never brings a deleted call back.
        QCOMPARE(s.has("Backup/TelCall.txt"), answer == Answer::No);
        QCOMPARE(s.p->lblStoredName->text(), shownNext.isEmpty() ? "CELL CALLER" : shownNext);
        QCOMPARE(s.p->fraCall->isVisible(), !left.isEmpty());
        QCOMPARE(s.p->cmdCallLater->isEnabled(), !left.isEmpty());
    }

    void deleteAllStoredCalls_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::newRow("OK deletes the file and its Backup copy") << Answer::Ok;
        QTest::newRow("Cancel keeps both") << Answer::Cancel;
    }

    void deleteAllStoredCalls()
    {
        QFETCH(Answer, answer);
        Screen s;
        s.click(s.p->cmdCallLater);
        s.dialogs.expect(QStringLiteral("This will Delete All Stored Calls"),
                         QStringLiteral("Delete Stored Calls"), answer);
        s.click(s.p->cmdClear[0]);
        VERIFY_DIALOGS(s.dialogs);
        const bool kept = answer == Answer::Cancel;
        QCOMPARE(s.has("TelCall.txt"), kept);
        QCOMPARE(s.has("Backup/TelCall.txt"), kept);
        QCOMPARE(s.p->fraCall->isVisible(), kept);
        QCOMPARE(s.p->cmdCallLater->isEnabled(), kept);
        // Coming back to the screen offers nothing once the calls are gone.
        s.w->Form_Activate();
        QCOMPARE(s.p->cmdCallLater->isEnabled(), kept);
    }

    // A caller with no account, or a call that came without a number, is asked about; Yes
    // begins an account that already holds the number that called.
    void unknownCallerStartsAnAccount()
    {
        Screen s;
        s.put("TelCall.txt", kCalls[2] + call("Private", "", "09:00 am"));
        s.w->Form_Activate();
        s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::Yes);
        s.click(s.p->cmdCallLater);
        VERIFY_DIALOGS(s.dialogs);
        QCOMPARE(s.w->txtCustomer[CustomerBox::Phone]->text(), QStringLiteral("999-555-0000"));
        QCOMPARE(s.w->at.gCurrentRec, 4);

        s.click(s.w->cmdCustomer[0]); // cancel the new account
        s.dialogs.expect(kNotFound, QStringLiteral("Customer not Found"), Answer::No);
        s.click(s.p->updnCalls->up);
        VERIFY_DIALOGS(s.dialogs);
        QVERIFY(!s.w->search->fraCustomersFound->isVisible());
    }

    // An account that cannot be saved keeps the screen, and the call, where they are.
    void refusedSaveKeepsTheCall()
    {
        Screen s;
        s.click(s.p->cmdCallLater);
        s.w->txtCustomer[CustomerBox::Name]->clear();
        s.dialogs.expect(QStringLiteral("The Account Name Cannot be Blank"));
        s.click(s.p->updnCalls->up);
        VERIFY_DIALOGS(s.dialogs);
        QCOMPARE(s.p->CallPointer, 1);
        QCOMPARE(s.p->lblStoredName->text(), QStringLiteral("CELL CALLER"));
    }

    void performThisAction_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<bool>("viaSelect");
        QTest::addColumn<int>("mode");
        QTest::newRow("a Service Attention") << "optSA" << false << 2;
        QTest::newRow("a meeting, by the select button") << "optMeeting" << true << 7;
        QTest::newRow("cancel stays with the customer") << "optExitCallback" << false << 13;
    }

    // From the menu of a running program: the call's account goes on to the Scheduling
    // Screen in the routine chosen, whatever routine opened the customer screen.
    void performThisAction()
    {
        QFETCH(QString, option);
        QFETCH(bool, viaSelect);
        QFETCH(int, mode);
        ProgramFolder f;
        QTemporaryDir locks;
        RecordingDesktop desktop;
        f.put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                                    "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
        f.put("Assignto.txt", "\"North Truck\"\r\n");
        f.put("ProblemCode.txt", "\"No Heat\"\r\n");
        f.put("TresvaneDispatcherSettings.txt",
              "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
        layDown(f, 1);
        App app(f.root(), f.clock, f.dialogs, desktop);
        app.setLockFolder(locks.path());
        QVERIFY(app.Main());
        QTest::mouseClick(app.splash->cmdContinue, Qt::LeftButton);
        app.OpenEntry(MenuEntry::ServiceContract);
        frmCustomer* w = app.customer;
        QTest::mouseClick(w->calls->cmdCallLater, Qt::LeftButton);
        QCOMPARE(w->txtCustomer[CustomerBox::AccountNo]->text(), QStringLiteral("A-1"));
        w->calls->findChild<QRadioButton*>(option)->click();
        QTest::mouseClick(viaSelect ? w->cmdCustomer[1] : w->calls->cmdContinueCallback,
                          Qt::LeftButton);
        VERIFY_DIALOGS(f.dialogs);
        QCOMPARE(int(app.v.Mode), mode);
        const bool booking = mode != 13;
        QCOMPARE(bool(app.mainForm) && app.mainForm->isVisible(), booking);
        QCOMPARE(w->isVisible(), !booking);
        if (mode == 2) QCOMPARE(app.mainForm->txtName->text(), QStringLiteral("Lee Plumbing"));
        QVERIFY(!w->calls->fraCall->isVisible());
        QCOMPARE(w->calls->cmdCallLater->text(), QStringLiteral("Call Now"));
        QCOMPARE(f.get("TelCall.txt"), kCalls[0]); // acting on a call keeps it
    }
};

QTEST_MAIN(TestStoredCallPanel)
#include "test_storedcallpanel.moc"
