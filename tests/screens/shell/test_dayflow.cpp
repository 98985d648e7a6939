// A dispatcher's day through the real program: start, the menu, the customer, the
// Scheduling Screen, and a slip found again and moved, checked in the files.

#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/customers/customerfiles.h"
#include "core/io/sliprecord.h"
#include "screens/customers/frmcustomer.h"
#include "screens/documents/frmcontract.h"
#include "screens/documents/frmworkorder.h"
#include "screens/history/frmhistory.h"
#include "screens/schedule/frmmain.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupbusinesstab.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/shell/updown.h"
#include "screens/sliprecords/frmcallrecord.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using namespace tresvane;

using Answer = Dialogs::Answer;

namespace
{

const QByteArray kFree = "\"No Event Scheduled\"\r\n";

QByteArray line(const char* text)
{
    return QByteArray("\"") + text + "\"\r\n";
}

QByteArray padded(const char* s, int width)
{
    QByteArray b(s);
    return b + QByteArray(width - b.size(), ' ');
}

// One business customer as another installation would have written it.
QByteArray customer()
{
    return padded("A-7", 20) + padded("Hill Bakery", 45) + padded("4 Oak Lane", 35) +
           padded("", 25) + padded("Dayton", 25) + padded("Dayton", 20) + padded("OH", 2) +
           padded("45402", 10) + padded("", 25) + padded("937-555-0100", 13) + padded("", 13) +
           padded("", 30) + padded("", 10) + padded("", 15) + padded("", 1) + padded("", 25) +
           padded("Business", 10) + QByteArray::fromHex("01000000");
}

// A program folder as a running installation leaves it: business data, two teams, two
// problem codes, the settings, today's counter and one customer with its parallel records.
struct Installation : ProgramFolder {
    QTemporaryDir locks;
    RecordingDesktop desktop;

    Installation()
    {
        // Thursday 30 April 2026, day 120, in the morning.
        clock.set(QDateTime(QDate(2026, 4, 30), QTime(9, 0)));
        put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                                  "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
        put("Assignto.txt", "\"North Truck\"\r\n\"South Truck\"\r\n");
        put("ProblemCode.txt", "\"No Heat\"\r\n\"Leak\"\r\n");
        put("TresvaneDispatcherSettings.txt",
            "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
        put("Counter.txt", "\"120\",4\r\n");
        put("Phone.txt", "#FALSE#\r\n0\r\n");
        put("CallID.txt", "#TRUE#\r\n");
        put("CustomerData.txt", customer());
        // The contract and cycle records of the one customer, at their defaults.
        ResetContractDefaults(ctx);
        QVERIFY(WriteContract(ctx, 1).ok());
        QVERIFY(WriteCycle(ctx, 1).ok());
    }
    std::unique_ptr<App> start()
    {
        auto app = std::make_unique<App>(root(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        return app;
    }
};

void clickRow(FlexGrid* grid, int row, int col)
{
    const QModelIndex index = grid->model()->index(row, col);
    grid->scrollTo(index);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(index).center());
}

void setHours(frmMain* w, int hours)
{
    while (w->txtTime->text().toInt() < hours)
        QTest::mouseClick(w->updnTime->up, Qt::LeftButton);
    while (w->txtTime->text().toInt() > hours)
        QTest::mouseClick(w->updnTime->down, Qt::LeftButton);
}

// Books on the Scheduling Screen as a dispatcher does: team, day, hours, the first slot,
// Save; the confirmation names the number.
void book(frmMain* w, ScriptedDialogs& dialogs, int teamRow, const QDate& day, int hours,
          int slotRow, const QString& confirmation)
{
    w->lstTeam->setCurrentRow(teamRow);
    w->Calender->setSelectedDate(day);
    setHours(w, hours);
    clickRow(w->fgHours, slotRow, 1);
    dialogs.expect("Service  Attention " + confirmation + " has been Scheduled", "Confirmation");
    QTest::mouseClick(w->cmdSave, Qt::LeftButton);
}

} // namespace

class TestDayFlow : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void bookThenRescheduleFromTheMenu();
    void contractsAndWorkOrdersGoOnFromTheCustomer();
    void closeBoxAsksAboutUnsavedEdits_data();
    void closeBoxAsksAboutUnsavedEdits();
};

void TestDayFlow::bookThenRescheduleFromTheMenu()
{
    Installation run;
    QVERIFY(run.has("ContractInfo.txt") && run.has("CycleInfo.txt"));
    auto app = run.start();
    QVERIFY(app->Main());
    VERIFY_DIALOGS(run.dialogs);
    QTest::mouseClick(app->splash->cmdContinue, Qt::LeftButton);
    QVERIFY(app->startup && app->startup->isVisible());

    // "Create a Service Slip": the customer screen shows the one account.
    QVERIFY(app->startup->lblSub[MenuEntry::CreateServiceSlip]->isEnabled());
    QTest::mouseClick(app->startup->lblSub[MenuEntry::CreateServiceSlip], Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    frmCustomer* customer = app->customer;
    QVERIFY(customer && customer->isVisible());
    QCOMPARE(customer->txtCustomer[0]->text(), QString("A-7"));

    // Its service history comes up over it and goes back to it.
    QTest::mouseClick(customer->cmdHistory, Qt::LeftButton);
    QVERIFY(app->history && app->history->isVisible());
    QVERIFY(app->history->ckAccount->isChecked());
    QCOMPARE(app->history->cboAccounts->currentText(), QString("A-7"));
    QTest::mouseClick(app->history->cmdReturn, Qt::LeftButton);
    QVERIFY(!app->history->isVisible());
    QVERIFY(customer->isVisible());

    // Chosen: the Scheduling Screen takes the customer over.
    QTest::mouseClick(customer->cmdCustomer[1], Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    frmMain* w = app->mainForm;
    QVERIFY(w && w->isVisible());
    QVERIFY(!customer->isVisible());
    QCOMPARE(app->v.Mode, Mode::ServiceSlip);
    QCOMPARE(w->txtName->text(), QString("Hill Bakery"));

    // Team 2, Tuesday 5 May, three hours from the fourth slot.
    book(w, run.dialogs, 1, QDate(2026, 5, 5), 3, 3, "SA120-4");
    VERIFY_DIALOGS(run.dialogs);

    QCOMPARE(run.get("2026/Team#2/125.txt"),
             kFree.repeated(3) + line("SA120-4 Hill Bakery").repeated(3) + kFree.repeated(6));
    const QByteArray first = run.get("Slips.txt");
    QCOMPARE(first.size(), 297);
    QCOMPARE(SlipRecord(first).text(SlipField::ConfirmationNo), QString("SA120-4"));
    QCOMPARE(SlipRecord(first).text(SlipField::AcctNo), QString("A-7"));
    QCOMPARE(run.get("Counter.txt"), QByteArray("\"120\",5\r\n"));

    // Back on the menu, the slip can be found again.
    QVERIFY(app->startup && app->startup->isVisible());
    QVERIFY(!w->isVisible());
    QVERIFY(app->startup->lblSub[MenuEntry::Reschedule]->isEnabled());
    QTest::mouseClick(app->startup->lblSub[MenuEntry::Reschedule], Qt::LeftButton);
    frmCallRecord* records = app->callRecord;
    QVERIFY(records && records->isVisible());
    QCOMPARE(records->fgSummary->rows(), 1);
    clickRow(records->fgSummary, 0, 0);
    VERIFY_DIALOGS(run.dialogs);

    // Moved: the old slip and its hours go, the Scheduling Screen books it anew on team 1
    // the next day, under the next number.
    run.dialogs.expect("Reschedule this Attention", "RESCHEDULE", Answer::Yes);
    QTest::mouseClick(records->cmdReschedule, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(run.get("2026/Team#2/125.txt"), kFree.repeated(12));
    QVERIFY(w->isVisible());
    QVERIFY(!records->isVisible());
    QCOMPARE(app->v.Mode, Mode::ServiceSlip);

    book(w, run.dialogs, 0, QDate(2026, 5, 6), 2, 0, "SA120-5");
    VERIFY_DIALOGS(run.dialogs);

    QCOMPARE(run.get("2026/Team#1/126.txt"),
             line("SA120-5 Hill Bakery").repeated(2) + kFree.repeated(10));
    const QByteArray moved = run.get("Slips.txt");
    QCOMPARE(moved.size(), 297);
    const SlipRecord slip(moved);
    QCOMPARE(slip.text(SlipField::ConfirmationNo), QString("SA120-5"));
    QCOMPARE(slip.text(SlipField::AcctNo), QString("A-7"));
    QCOMPARE(slip.text(SlipField::EventDate), QString("05/06/2026"));
    QCOMPARE(run.get("Counter.txt"), QByteArray("\"120\",6\r\n"));
    QVERIFY(app->startup && app->startup->isVisible());
}

// Contracts and work orders begin at the customer: the customer is saved and the routine's
// screen comes up for it, and its return leads back to the menu.
void TestDayFlow::contractsAndWorkOrdersGoOnFromTheCustomer()
{
    for (int entry : {MenuEntry::ServiceContract, MenuEntry::WorkOrder}) {
        Installation run;
        auto app = run.start();
        QVERIFY(app->Main());
        app->OpenEntry(entry);
        QVERIFY(app->customer && app->customer->isVisible());
        QTest::mouseClick(app->customer->cmdCustomer[1], Qt::LeftButton);
        VERIFY_DIALOGS(run.dialogs);
        QVERIFY(!app->customer->isVisible());
        QVERIFY(!app->mainForm);
        QCOMPARE(run.get("CustomerData.txt").left(3), QByteArray("A-7"));
        QWidget* screen = entry == MenuEntry::ServiceContract
                              ? static_cast<QWidget*>(app->contract.data())
                              : static_cast<QWidget*>(app->workOrder.data());
        QVERIFY(screen && screen->isVisible());
        auto* name = screen->findChild<QLabel*>(entry == MenuEntry::ServiceContract
                                                    ? QStringLiteral("lblCustomerName")
                                                    : QStringLiteral("lblAccount"));
        QVERIFY(name && name->text().contains(QStringLiteral("Hill Bakery")));
        QTest::mouseClick(screen->findChild<QPushButton*>(entry == MenuEntry::ServiceContract
                                                              ? QStringLiteral("cmdMenu")
                                                              : QStringLiteral("cmdWO_0")),
                          Qt::LeftButton);
        QVERIFY(!screen->isVisible());
        QVERIFY(app->startup && app->startup->isVisible());
    }
}

// The close box ends the program. A screen holding changes asks first: Yes saves them as the
// screen's own save would, No drops them, Cancel keeps the program running with the
// changes still on the screen. A screen without changes ends at once.
void TestDayFlow::closeBoxAsksAboutUnsavedEdits_data()
{
    QTest::addColumn<QString>("screen");
    QTest::addColumn<bool>("edited");
    QTest::addColumn<int>("answerValue");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<bool>("ended");
    for (const char* screen : {"customer", "setup", "scheduling"}) {
        const QString name = QString::fromLatin1(screen);
        QTest::newRow(qPrintable(name + ": Yes saves"))
            << name << true << int(Answer::Yes) << true << true;
        QTest::newRow(qPrintable(name + ": No drops"))
            << name << true << int(Answer::No) << false << true;
        QTest::newRow(qPrintable(name + ": Cancel stays"))
            << name << true << int(Answer::Cancel) << false << false;
        QTest::newRow(qPrintable(name + ": unchanged"))
            << name << false << int(Answer::Ok) << false << true;
    }
    // The history stands over the customer screen: its close box ends the program too.
    QTest::newRow("history over an edited customer: Yes saves")
        << "history" << true << int(Answer::Yes) << true << true;
    QTest::newRow("history over an edited customer: Cancel stays")
        << "history" << true << int(Answer::Cancel) << false << false;
}

void TestDayFlow::closeBoxAsksAboutUnsavedEdits()
{
    QFETCH(QString, screen);
    QFETCH(bool, edited);
    QFETCH(int, answerValue);
    const Answer answer = Answer(answerValue);
    QFETCH(bool, saved);
    QFETCH(bool, ended);
    Installation run;
    auto app = run.start();
    QVERIFY(app->Main());

    QWidget* form = nullptr;
    QLineEdit* box = nullptr;
    QString file;
    QByteArray change;
    if (screen == "customer" || screen == "history") {
        app->OpenEntry(MenuEntry::CreateServiceSlip);
        form = app->customer;
        box = app->customer->txtCustomer[CustomerBox::Name];
        file = "CustomerData.txt";
        change = "Hill Bakery and Sons";
    } else if (screen == "setup") {
        app->ShowSetup();
        form = app->setup;
        box = app->setup->business->txtBusiness[0];
        file = "MyBusinessData.txt";
        change = "Acme Heating and Air";
    } else {
        app->OpenEntry(MenuEntry::CreateServiceSlip);
        QTest::mouseClick(app->customer->cmdCustomer[1], Qt::LeftButton);
        form = app->mainForm;
        file = "Slips.txt";
        change = "SA120-4";
    }
    QVERIFY(form && form->isVisible());
    VERIFY_DIALOGS(run.dialogs);
    if (edited) {
        if (box)
            box->setText(QString::fromLatin1(change));
        else
            clickRow(app->mainForm->fgHours, 3, 1);
        if (screen == "history") {
            QTest::mouseClick(app->customer->cmdHistory, Qt::LeftButton);
            form = app->history;
            QVERIFY(form && form->isVisible());
        }
        run.dialogs.expect("Save your changes before the program closes?", "Save Changes", answer);
        if (answer == Answer::Yes && !box)
            run.dialogs.expect("Service  Attention SA120-4 has been Scheduled", "Confirmation");
    }
    form->close();
    VERIFY_DIALOGS(run.dialogs);
    QCOMPARE(app->exited(), ended);
    QCOMPARE(run.has(file) && run.get(file).contains(change), saved);
    if (!ended) {
        QVERIFY(form->isVisible());
        if (box) QCOMPARE(box->text(), QString::fromLatin1(change));
        app->ExitProgram();
    }
}

QTEST_MAIN(TestDayFlow)
#include "test_dayflow.moc"
