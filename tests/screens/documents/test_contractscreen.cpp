// The contract screen as a dispatcher works it: the template filled from the form and
// saved as the account's contract, with the questions and messages on the way.

#include "programfolder.h"
#include "recordingdesktop.h"

#include "core/documents/contract.h"
#include "core/io/rtfdocument.h"
#include "screens/documents/frmcontract.h"

#include <QAction>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using namespace tresvane;

using Answer = Dialogs::Answer;

namespace
{

QByteArray text(const char* s, int width)
{
    QByteArray b(s);
    return b + QByteArray(width - b.size(), ' ');
}
QByteArray service(const char* name, const char* price)
{
    return text(name, 60) + text(price, 10) + QByteArray::fromHex("0000");
}

const QString kContract = QStringLiteral("Templates/Contracts/Contract - A-7.rtf");
const QString kCreated =
    QStringLiteral("The Contract has been Created\n"
                   "You can modify and Print it Using MicroSoft Word or WordPad\n"
                   "It is named Contract - A-7.rtf and is Located in \n"
                   "Directory {Hard Drive}/Tresvaneworks/Templates/Contracts\n"
                   "Do not create another Contract for this Customer\n"
                   "until you have printed this Contract");
const QString kOpen = QStringLiteral("Open the Contract in the word processor now?");

// The customer in hand and the business, a service catalogue, and the program's template.
struct Office : ProgramFolder {
    RecordingDesktop desktop;
    std::unique_ptr<frmContract> form;

    Office()
    {
        v.current.account = QStringLiteral("A-7");
        v.current.name = QStringLiteral("Jane Doe");
        v.current.address1 = QStringLiteral("4 Elm Street");
        v.current.city = QStringLiteral("Springfield");
        v.current.state = QStringLiteral("IL");
        v.current.zip = QStringLiteral("62704");
        v.current.phone = QStringLiteral("217-555-0187");
        v.gBusiness = {"Hill Heating",
                       "12 Mill Road",
                       "",
                       "Springfield",
                       "IL",
                       "62701",
                       "217-555-0142",
                       "",
                       ""};
        put("Services.txt",
            service("Furnace cleaning", "45") + service("Boiler service", "1200.5"));
        put("Templates/Contracts/GenericContract.rtf", BuiltInGenericContract());
        form = std::make_unique<frmContract>(ctx, desktop);
        form->show();
        QApplication::setActiveWindow(form.get());
        form->Form_Activate();
    }
    template <class T> T* find(const char* name)
    {
        T* w = form->findChild<T*>(QString::fromLatin1(name));
        if (!w) qFatal("no control %s", name);
        return w;
    }
    void click(const char* name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    QString contractText() const { return RtfDocument(get(kContract)).text(); }
};

} // namespace

class TestContractScreen : public QObject
{
    Q_OBJECT
private slots:
    void opensOnTheCustomerInHand();
    void contractFromTheCatalogue();
    void contractTypedByHand();
    void existingContractIsReplacedOnlyOnYes_data();
    void existingContractIsReplacedOnlyOnYes();
    void missingTemplateLeavesForTheMenu();
    void incompleteFormIsRefusedWithNothingWritten_data();
    void incompleteFormIsRefusedWithNothingWritten();
    void nothingToOpenTheContractWith();
};

void TestContractScreen::opensOnTheCustomerInHand()
{
    Office o;
    QCOMPARE(o.find<QLabel>("lblCustomerName")->text(), QStringLiteral("Jane Doe"));
    QCOMPARE(o.find<QLabel>("lblCustomerTel")->text(), QStringLiteral("217-555-0187"));
    QCOMPARE(o.find<QPlainTextEdit>("txtCustomerInfo")->toPlainText(),
             QStringLiteral("Jane Doe\n4 Elm Street\nSpringfield, IL 62704"));
    QCOMPARE(o.find<QPlainTextEdit>("txtContractor")->toPlainText(),
             QStringLiteral("Hill Heating\n12 Mill Road\nSpringfield, IL 62701"));
    QCOMPARE(o.find<QCalendarWidget>("Calendar1")->selectedDate(), QDate(2026, 4, 30));
    QVERIFY(!o.find<QPushButton>("cmdAddServicetoBody")->isEnabled());
    QVERIFY(o.find<QGroupBox>("fraServices")->isVisible());
    QVERIFY(!o.find<QGroupBox>("fraManual")->isVisible());

    // The service and its price are one choice, made in either list.
    auto* services = o.find<QComboBox>("cboServices");
    auto* prices = o.find<QComboBox>("cboPrices");
    QCOMPARE(prices->currentText(), QStringLiteral("$45.00"));
    services->setCurrentIndex(1);
    QCOMPARE(prices->currentText(), QStringLiteral("$1,200.50"));
    prices->setCurrentIndex(0);
    QCOMPARE(services->currentText(), QStringLiteral("Furnace cleaning"));
}

void TestContractScreen::contractFromTheCatalogue()
{
    Office o;
    o.click("cmdGeneric");
    VERIFY_DIALOGS(o.dialogs);
    QVERIFY(o.find<QPushButton>("cmdAddServicetoBody")->isEnabled());
    o.find<QComboBox>("cboServices")->setCurrentIndex(1);
    o.find<QListWidget>("lstFrequency")->setCurrentRow(2);
    o.find<QComboBox>("cboDuration")->setCurrentIndex(2);
    o.find<QCalendarWidget>("Calendar1")->setSelectedDate(QDate(2026, 8, 31));
    o.find<QCheckBox>("ckRenew")->setChecked(true);

    o.dialogs.expect(kCreated, "Contract Created");
    o.dialogs.expect(kOpen, "Contract Created", Answer::Yes);
    o.click("cmdAddServicetoBody");
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.desktop.openedFiles, QStringList{o.abs(kContract)});

    const QString contract = o.contractText();
    for (const QString& expected :
         {QStringLiteral("Boiler service - $1,200.50"), QStringLiteral("runs for 6 Months"),
          QStringLiteral("beginning on 08/31/2026 and ending on 02/28/2027"),
          QStringLiteral("$1,200.50, invoiced Semi-Annually"),
          QStringLiteral("will automatically Renew"), QStringLiteral("Prepared on 04/30/2026"),
          QStringLiteral("Jane Doe\n4 Elm Street\nSpringfield, IL 62704"),
          QStringLiteral("Hill Heating\n12 Mill Road")})
        QVERIFY2(contract.contains(expected), qPrintable(expected));
    // The template stays as it was for the next contract.
    QCOMPARE(o.get("Templates/Contracts/GenericContract.rtf"), BuiltInGenericContract());
}

void TestContractScreen::contractTypedByHand()
{
    Office o;
    o.find<QAction>("mnuManual")->trigger();
    QVERIFY(o.find<QGroupBox>("fraManual")->isVisible());
    QVERIFY(!o.find<QGroupBox>("fraServices")->isVisible());
    o.click("cmdGeneric");

    QTest::keyClicks(o.find<QLineEdit>("txtService"), "Yearly tune-up");
    // The price box takes digits and one point; leaving it shows the amount.
    auto* price = o.find<QLineEdit>("txtPrice");
    QTest::keyClicks(price, "01x,234.5.6");
    QCOMPARE(price->text(), QStringLiteral("1234.56"));
    price->setFocus();
    o.find<QLineEdit>("txtService")->setFocus();
    QCOMPARE(price->text(), QStringLiteral("$1,234.56"));

    // A typed duration holding its own keyword is filled once; the end is a rule.
    o.find<QComboBox>("cboDuration")->setEditText("terms of 2 years");
    o.dialogs.expect(kCreated, "Contract Created");
    o.dialogs.expect(kOpen, "Contract Created", Answer::No);
    o.click("cmdAddServicetoBody");
    VERIFY_DIALOGS(o.dialogs);
    QVERIFY(o.desktop.openedFiles.isEmpty());
    const QString contract = o.contractText();
    QVERIFY(contract.contains("Yearly tune-up - $1,234.56"));
    QVERIFY(contract.contains("runs for terms of 2 years, beginning on 04/30/2026 and ending on "
                              "_____________________"));
    QVERIFY(contract.contains("will not automatically Renew"));
    QVERIFY(contract.contains("invoiced Monthly"));
}

void TestContractScreen::existingContractIsReplacedOnlyOnYes_data()
{
    QTest::addColumn<bool>("yes");
    QTest::addColumn<bool>("redo");
    QTest::newRow("No keeps it") << false << false;
    QTest::newRow("Yes deletes it") << true << false;
    QTest::newRow("Redo asks the same") << false << true;
}

void TestContractScreen::existingContractIsReplacedOnlyOnYes()
{
    QFETCH(bool, yes);
    QFETCH(bool, redo);
    Office o;
    const QByteArray older("{\\rtf1 signed last year}");
    o.put(kContract, older);
    o.dialogs.expect("A Contract Exists for this Account\n"
                     "Click Yes to Delete it and create a new Contract",
                     "Replace Existing Contract", yes ? Answer::Yes : Answer::No);
    o.click(redo ? "Command2" : "cmdGeneric");
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.has(kContract), !yes);
    if (!yes) QCOMPARE(o.get(kContract), older);
    QCOMPARE(o.find<QPushButton>("cmdAddServicetoBody")->isEnabled(), yes);
}

void TestContractScreen::missingTemplateLeavesForTheMenu()
{
    Office o;
    QVERIFY(o.store.KillIfPresent(GenericContractFileName()));
    QSignalSpy toMenu(o.form.get(), &frmContract::showMenu);
    o.dialogs.expect("The Generic Contract File could not be Found\n"
                     "Contact Tresvaneworks for a Replacement");
    o.click("cmdGeneric");
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.dialogs.beeps, 1);
    QCOMPARE(toMenu.count(), 1);
    QVERIFY(!o.find<QPushButton>("cmdAddServicetoBody")->isEnabled());
}

void TestContractScreen::incompleteFormIsRefusedWithNothingWritten_data()
{
    QTest::addColumn<QString>("service");
    QTest::addColumn<QString>("price");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::newRow("no service") << ""
                                << "45"
                                << "Select or Enter a Service for the Contract"
                                << "txtService";
    QTest::newRow("no price") << "Tune-up"
                              << ""
                              << "Enter a Price for the Service"
                              << "txtPrice";
    QTest::newRow("a point for a price") << "Tune-up"
                                         << "."
                                         << "Enter a Price for the Service"
                                         << "txtPrice";
}

void TestContractScreen::incompleteFormIsRefusedWithNothingWritten()
{
    QFETCH(QString, service);
    QFETCH(QString, price);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    Office o;
    o.find<QAction>("mnuManual")->trigger();
    o.click("cmdGeneric");
    o.find<QLineEdit>("txtService")->setText(service);
    o.find<QLineEdit>("txtPrice")->setText(price);
    const auto before = o.snapshot();
    o.dialogs.expect(message);
    o.click("cmdAddServicetoBody");
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.snapshot(), before);
    QCOMPARE(QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(),
             focus);

    // Put right, the same contract goes through.
    o.find<QLineEdit>("txtService")->setText("Tune-up");
    o.find<QLineEdit>("txtPrice")->setText("45");
    o.dialogs.expect(kCreated, "Contract Created");
    o.dialogs.expect(kOpen, "Contract Created", Answer::No);
    o.click("cmdAddServicetoBody");
    VERIFY_DIALOGS(o.dialogs);
    QVERIFY(o.contractText().contains("Tune-up - $45.00"));
}

void TestContractScreen::nothingToOpenTheContractWith()
{
    Office o;
    o.desktop.fileOpener = false;
    o.click("cmdGeneric");
    o.dialogs.expect(kCreated, "Contract Created");
    o.dialogs.expect(kOpen, "Contract Created", Answer::Yes);
    o.dialogs.expect("No word processor could be started for the Contract.\nIt is saved as " +
                     o.abs(kContract));
    o.click("cmdAddServicetoBody");
    VERIFY_DIALOGS(o.dialogs);
    QVERIFY(o.has(kContract));
}

QTEST_MAIN(TestContractScreen)
#include "test_contractscreen.moc"
