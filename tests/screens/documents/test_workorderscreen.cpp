// The work order screen as a dispatcher works it: the heading, the narrative and its
// template, and the parts and services put on the document with their prices.

#include "programfolder.h"

#include "screens/documents/frmworkorder.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

using namespace tresvane;

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
// An item of the user's own at $12.34.
QByteArray customItem(const char* name)
{
    return text(name, 50) + QByteArray::fromHex("08e2010000000000") +
           QByteArray::fromHex("6300000000000000") + QByteArray::fromHex("fbffffff");
}

enum Button {
    Menu,
    Print,
    Hide,
    ClearAll,
    AllItems,
    AddItem,
    SaveTemplate,
    ClearNarrative,
    LoadTemplate,
    AllServices,
    AddService
};

struct Office : ProgramFolder {
    std::unique_ptr<frmWorkOrder> form;

    Office()
    {
        v.current.account = QStringLiteral("A-7");
        v.current.name = QStringLiteral("Jane Doe");
        v.current.address1 = QStringLiteral("4 Elm Street");
        v.current.city = QStringLiteral("Springfield");
        v.current.state = QStringLiteral("IL");
        v.current.zip = QStringLiteral("62704");
        v.current.phone = QStringLiteral("217-555-0187");
        put("Services.txt", service("Furnace cleaning", "45") + service("Duct survey", "120"));
        put("CustomItems.txt", customItem("Thermostat") + customItem("Filter"));
        put("Templates/WONarrativeTEMP.txt", "An earlier job\r\n");
        form = std::make_unique<frmWorkOrder>(ctx);
        form->show();
        QApplication::setActiveWindow(form.get());
        form->Form_Activate();
    }
    template <class T> T* find(const QString& name)
    {
        T* w = form->findChild<T*>(name);
        if (!w) qFatal("no control %s", qPrintable(name));
        return w;
    }
    void click(Button b)
    {
        QTest::mouseClick(find<QPushButton>(QStringLiteral("cmdWO_%1").arg(int(b))),
                          Qt::LeftButton);
    }
    // The rows of a chosen list as "name price".
    QStringList chosen(const char* list)
    {
        QStringList rows;
        auto* tree = find<QTreeWidget>(QString::fromLatin1(list));
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            rows << tree->topLevelItem(i)->text(0) + u' ' + tree->topLevelItem(i)->text(1);
        return rows;
    }
};

} // namespace

class TestWorkOrderScreen : public QObject
{
    Q_OBJECT
private slots:
    void opensOnTheCustomerInHand();
    void entriesGoOnTheDocumentOnceWithTheirPrices();
    void pricesMayBeTypedButMustBeAmounts();
    void selectAllAddsOnlyWhatIsMissing();
    void narrativeTemplateIsSavedAndLoaded();
    void accountPanelHidesAndComesBack();
};

void TestWorkOrderScreen::opensOnTheCustomerInHand()
{
    Office o;
    // The narrative file of an earlier job is gone.
    QVERIFY(!o.has("Templates/WONarrativeTEMP.txt"));
    QCOMPARE(o.find<QLabel>("lblAccount")->text(),
             QStringLiteral("Acct: A-7\nJane Doe\n4 Elm Street\nSpringfield, IL 62704\n"
                            "Tel: 217-555-0187"));
    auto* heading = o.find<QComboBox>("cboHeading");
    QCOMPARE(heading->currentText(), QStringLiteral("Work Order"));
    QCOMPARE(heading->count(), 4);
    QCOMPARE(o.find<QListWidget>("lstServices")->count(), 2);
    QCOMPARE(o.find<QListWidget>("lstItems")->count(), 2);
    QVERIFY(o.chosen("lstServicesList").isEmpty());
}

void TestWorkOrderScreen::entriesGoOnTheDocumentOnceWithTheirPrices()
{
    Office o;
    o.find<QListWidget>("lstServices")->setCurrentRow(1);
    QCOMPARE(o.find<QComboBox>("cboPrices_0")->currentText(), QStringLiteral("$120.00"));
    o.click(AddService);
    QCOMPARE(o.chosen("lstServicesList"), QStringList{"Duct survey $120.00"});

    // The same service again: a beep and no second entry, whatever its price.
    o.find<QComboBox>("cboPrices_0")->setEditText("99");
    o.click(AddService);
    QCOMPARE(o.dialogs.beeps, 1);
    QCOMPARE(o.chosen("lstServicesList"), QStringList{"Duct survey $120.00"});

    o.find<QListWidget>("lstItems")->setCurrentRow(0);
    o.click(AddItem);
    QCOMPARE(o.chosen("lstItemsList"), QStringList{"Thermostat $12.34"});
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.form->chosenItems().entries().size(), 1);

    // Clear All empties both lists and the offered selections.
    o.click(ClearAll);
    QVERIFY(o.chosen("lstServicesList").isEmpty());
    QVERIFY(o.chosen("lstItemsList").isEmpty());
    QVERIFY(o.find<QListWidget>("lstServices")->selectedItems().isEmpty());
    QVERIFY(o.find<QListWidget>("lstItems")->selectedItems().isEmpty());

    // Nothing offered is chosen now: the user is told.
    o.dialogs.expect("Select a Service to Add");
    o.click(AddService);
    VERIFY_DIALOGS(o.dialogs);
}

void TestWorkOrderScreen::pricesMayBeTypedButMustBeAmounts()
{
    Office o;
    o.find<QListWidget>("lstItems")->setCurrentRow(1);
    QLineEdit* price = o.find<QComboBox>("cboPrices_1")->lineEdit();
    price->selectAll();
    QTest::keyClick(price, Qt::Key_Backspace);
    // Digits and one point; no leading zero.
    QTest::keyClicks(price, "0a7.5.0");
    QCOMPARE(price->text(), QStringLiteral("7.50"));
    QTest::keyClick(price, Qt::Key_Return);
    QTRY_COMPARE(o.chosen("lstItemsList"), QStringList{"Filter $7.50"});

    o.find<QListWidget>("lstItems")->setCurrentRow(0);
    o.find<QComboBox>("cboPrices_1")->setEditText("");
    o.dialogs.expect("Enter a Price, such as 45.00");
    o.click(AddItem);
    VERIFY_DIALOGS(o.dialogs);
    QCOMPARE(o.chosen("lstItemsList"), QStringList{"Filter $7.50"});
}

void TestWorkOrderScreen::selectAllAddsOnlyWhatIsMissing()
{
    Office o;
    o.find<QListWidget>("lstItems")->setCurrentRow(1);
    o.find<QComboBox>("cboPrices_1")->setEditText("9");
    o.click(AddItem);
    o.click(AllItems);
    QCOMPARE(o.chosen("lstItemsList"), (QStringList{"Filter $9.00", "Thermostat $12.34"}));
    o.click(AllItems);
    QCOMPARE(o.chosen("lstItemsList").size(), 2);
    o.click(AllServices);
    QCOMPARE(o.chosen("lstServicesList"),
             (QStringList{"Furnace cleaning $45.00", "Duct survey $120.00"}));
    QCOMPARE(o.dialogs.beeps, 0);
}

void TestWorkOrderScreen::narrativeTemplateIsSavedAndLoaded()
{
    Office o;
    auto* narrative = o.find<QPlainTextEdit>("txtWONarrative");
    o.dialogs.expect("No Narrative has been Saved as a Template yet");
    o.click(LoadTemplate);
    VERIFY_DIALOGS(o.dialogs);

    narrative->setPlainText(QString::fromUtf8("Drain the tank\n\nRefill to 1.5 bar – check"));
    o.click(SaveTemplate);
    QCOMPARE(o.get("Templates/WONarrative.txt"),
             QByteArray("Drain the tank\r\n\r\nRefill to 1.5 bar \x96 check\r\n"));
    o.click(ClearNarrative);
    QVERIFY(narrative->toPlainText().isEmpty());
    o.click(LoadTemplate);
    QCOMPARE(narrative->toPlainText(),
             QString::fromUtf8("Drain the tank\n\nRefill to 1.5 bar – check"));
}

void TestWorkOrderScreen::accountPanelHidesAndComesBack()
{
    Office o;
    auto* account = o.find<QGroupBox>("fraAccount");
    QVERIFY(account->isVisible());
    o.click(Hide);
    QVERIFY(!account->isVisible());
    o.find<QAction>("mnuAccount")->trigger();
    QVERIFY(account->isVisible());
}

QTEST_MAIN(TestWorkOrderScreen)
#include "test_workorderscreen.moc"
