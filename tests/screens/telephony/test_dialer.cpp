#include "fakemodem.h"
#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/customers/customerfiles.h"
#include "core/session/menurules.h"
#include "screens/customers/frmcustomer.h"
#include "screens/history/frmcallback.h"
#include "screens/schedule/dayviewframe.h"
#include "screens/schedule/frmmain.h"
#include "screens/shell/screenframe.h"
#include "screens/telephony/frmdialer.h"
#include "screens/telephony/qtseriallink.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using namespace tresvane;

using Answer = Dialogs::Answer;

namespace
{

const QString kPickup = QStringLiteral("Pickup Receiver - Then Click Hangup");

// A dialer on a fake modem, its port opened as the dialer itself opens it.
struct Dialer : ProgramFolder {
    FakeModem modem;
    QtSerialLink link;
    frmDialer dialer{ctx, link};

    explicit Dialer(const QByteArray& speedNumbers = {})
    {
        if (!speedNumbers.isNull()) put("SpeedNumbers.txt", speedNumbers);
        link.setDevice(modem.devicePath());
        dialer.SetRecipient(QStringLiteral("Hill Bakery"), QStringLiteral("555-123-4567"));
        dialer.show();
        dialer.Form_Activate();
    }
    QStringList captions() const
    {
        QStringList out;
        for (QPushButton* b : dialer.cmdDialer)
            out << b->text();
        return out;
    }
};

QByteArray fourEntries()
{
    return "Office\r\n555-000-0001\r\nSupply House\r\n555-000-0002\r\n"
           "Night Line\r\n555-000-0003\r\nTruck 4\r\n555-000-0004\r\n";
}

QByteArray padded(const char* s, int width)
{
    QByteArray b(s);
    return b + QByteArray(width - b.size(), ' ');
}

// An office with one customer, its modem on port 1, started as the program starts.
struct Office {
    FakeModem modem;
    ProgramFolder f;
    QTemporaryDir locks;
    RecordingDesktop desktop;
    std::unique_ptr<App> app;

    Office()
    {
        f.put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                                    "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
        f.put("Assignto.txt", "\"North Truck\"\r\n");
        f.put("ProblemCode.txt", "\"No Heat\"\r\n");
        f.put("CustomerData.txt",
              padded("A-7", 20) + padded("Hill Bakery", 45) + padded("4 Oak Lane", 35) +
                  padded("", 25) + padded("Dayton", 25) + padded("Dayton", 20) + padded("OH", 2) +
                  padded("45402", 10) + padded("", 25) + padded("937-555-0100", 13) +
                  padded("", 13) + padded("", 30) + padded("", 10) + padded("", 15) +
                  padded("", 1) + padded("", 25) + padded("Business", 10) +
                  QByteArray::fromHex("01000000"));
        f.put("TresvaneDispatcherSettings.txt",
              "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
        ResetContractDefaults(f.ctx);
        QVERIFY(WriteContract(f.ctx, 1).ok());
        QVERIFY(WriteCycle(f.ctx, 1).ok());
    }
    App& start()
    {
        app = std::make_unique<App>(f.root(), f.clock, f.dialogs, desktop);
        app->setLockFolder(locks.path());
        app->setModemDevices(
            [this](int port) { return port == 1 ? modem.devicePath() : QString(); });
        if (!app->Main()) qFatal("the program did not start");
        QElapsedTimer t;
        t.start();
        while (app->modemSearchRunning() && t.elapsed() < 5000)
            QTest::qWait(10);
        return *app;
    }
};

} // namespace

class TestDialer : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void dialSendsTheNumberAndHangsUp_data();
    void dialSendsTheNumberAndHangsUp();
    void okSplitOverTwoReadsIsSeen();
    void silentModemWaitsUntilCancel();
    void closeBoxHangsUpAndClosesOnlyTheDialer();
    void longDistanceBox_data();
    void longDistanceBox();
    void speedNumberChosenAndRestored();
    void speedNumberAddedIntoEmptyButton();
    void deleteClosesTheGap();
    void deleteAnsweredNoKeepsTheFile();
    void damagedSpeedNumbersAreToldNotLoaded_data();
    void damagedSpeedNumbersAreToldNotLoaded();
    void helpPanelToggles();
    void portThatCannotBeOpenedIsTold();
    void customerDialChoosesPhoneOrCell_data();
    void customerDialChoosesPhoneOrCell();
    void otherScreensHandTheCallOver_data();
    void otherScreensHandTheCallOver();
};

void TestDialer::dialSendsTheNumberAndHangsUp_data()
{
    QTest::addColumn<bool>("longDistance");
    QTest::addColumn<QString>("dial");
    QTest::newRow("local") << false << "ATDT555-123-4567;";
    QTest::newRow("long distance") << true << "ATDT1-555-123-4567;";
}

void TestDialer::dialSendsTheNumberAndHangsUp()
{
    QFETCH(bool, longDistance);
    QFETCH(QString, dial);
    Dialer d;
    QVERIFY(d.link.isOpen());
    QCOMPARE(d.dialer.lblStatus->text(), QStringLiteral("Ready to Dial......"));
    QVERIFY(!d.dialer.cmdCancel->isEnabled());
    if (longDistance) d.dialer.ckDial1->click();
    QTest::mouseClick(d.dialer.cmdNewDial, Qt::LeftButton);
    QVERIFY(!d.dialer.cmdNewDial->isEnabled());
    QVERIFY(d.dialer.lblStatus->text().startsWith(QStringLiteral("Dialing..... ")));
    QTRY_COMPARE(d.dialer.lblStatus->text(), kPickup);
    QVERIFY(d.dialer.cmdCancel->isEnabled());
    QTest::mouseClick(d.dialer.cmdHangup, Qt::LeftButton);
    QTRY_COMPARE(d.modem.calls(), QStringList({dial, "ATH"}));
    QVERIFY(!d.dialer.isVisible());
    VERIFY_DIALOGS(d.dialogs);
}

void TestDialer::okSplitOverTwoReadsIsSeen()
{
    Dialer d;
    d.modem.setSplitReplies(true, 150);
    QTest::mouseClick(d.dialer.cmdNewDial, Qt::LeftButton);
    // The first piece ends in "O": still dialing.
    QTRY_VERIFY(d.dialer.Reply.endsWith(u'O'));
    QVERIFY(d.dialer.dialing());
    QTRY_COMPARE(d.dialer.lblStatus->text(), kPickup);
    QVERIFY(!d.dialer.dialing());
}

void TestDialer::silentModemWaitsUntilCancel()
{
    Dialer d;
    d.modem.setMode(FakeModem::Mode::Silent);
    d.dialer.setWaitNoticeMs(200);
    // The screen keeps working while the dial waits: a timer of the event loop runs on.
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(10);
    QTest::mouseClick(d.dialer.cmdNewDial, Qt::LeftButton);
    QTRY_COMPARE(d.modem.calls(), QStringList{"ATDT555-123-4567;"});
    QTRY_VERIFY(d.dialer.lblStatus->text().startsWith(u"Waiting for the modem to answer"));
    QTest::qWait(300);
    QVERIFY(d.dialer.dialing());
    QVERIFY2(ticks >= 20, qPrintable(QString::number(ticks)));
    QVERIFY(d.dialer.cmdCancel->isEnabled());
    QTest::mouseClick(d.dialer.cmdCancel, Qt::LeftButton);
    QVERIFY(d.dialer.CancelDial);
    QVERIFY(!d.dialer.dialing());
    QTRY_COMPARE(d.modem.calls(), QStringList({"ATDT555-123-4567;", "ATH"}));
    QVERIFY(!d.dialer.isVisible());
}

void TestDialer::closeBoxHangsUpAndClosesOnlyTheDialer()
{
    Dialer d;
    QTest::mouseClick(d.dialer.cmdNewDial, Qt::LeftButton);
    QTRY_COMPARE(d.dialer.lblStatus->text(), kPickup);
    QVERIFY(d.dialer.close());
    QTRY_COMPARE(d.modem.calls(), QStringList({"ATDT555-123-4567;", "ATH"}));
    // Escape is the same way out.
    d.dialer.show();
    d.dialer.Form_Activate();
    QTest::keyClick(&d.dialer, Qt::Key_Escape);
    QVERIFY(!d.dialer.isVisible());
    QTRY_COMPARE(d.modem.calls().size(), 3);
    // The line stays open for caller ID.
    QVERIFY(d.link.isOpen());
}

void TestDialer::longDistanceBox_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QStringList>("afterClicks"); // the number after each click
    QTest::newRow("tick and untick")
        << "555-123-4567" << QStringList{"1-555-123-4567", "555-123-4567"};
    QTest::newRow("handed over with the prefix")
        << "1-555-123-4567" << QStringList{"555-123-4567", "1-555-123-4567"};
}

void TestDialer::longDistanceBox()
{
    QFETCH(QString, number);
    QFETCH(QStringList, afterClicks);
    Dialer d;
    d.dialer.SetRecipient(QStringLiteral("X"), number);
    for (const QString& expected : afterClicks) {
        d.dialer.ckDial1->click();
        QCOMPARE(d.dialer.lblNumber->text(), expected);
    }
}

void TestDialer::speedNumberChosenAndRestored()
{
    Dialer d(fourEntries());
    QCOMPARE(d.captions(), QStringList({"Office", "Supply House", "Night Line", "Truck 4", "", "",
                                        "", "", "", ""}));
    QTest::mouseClick(d.dialer.cmdDialer[2], Qt::LeftButton);
    QCOMPARE(d.dialer.lblName->text(), QStringLiteral("Night Line"));
    QCOMPARE(d.dialer.lblNumber->text(), QStringLiteral("555-000-0003"));
    QVERIFY(d.dialer.cmdSpeedDialer[2]->isVisible());
    QTest::mouseClick(d.dialer.cmdNewDial, Qt::LeftButton);
    QTRY_COMPARE(d.modem.calls(), QStringList{"ATDT555-000-0003;"});
    QTest::mouseClick(d.dialer.cmdSpeedDialer[3], Qt::LeftButton);
    QCOMPARE(d.dialer.lblName->text(), QStringLiteral("Hill Bakery"));
    QCOMPARE(d.dialer.lblNumber->text(), QStringLiteral("555-123-4567"));
}

void TestDialer::speedNumberAddedIntoEmptyButton()
{
    Dialer d(fourEntries());
    // An empty button opens the boxes; Save fills it and writes the file.
    QTest::mouseClick(d.dialer.cmdDialer[4], Qt::LeftButton);
    QVERIFY(d.dialer.fraSpeedDial->isVisible());
    QTest::keyClicks(d.dialer.txtDialer[0], QStringLiteral("Parts Desk"));
    QTest::keyClicks(d.dialer.txtDialer[1], QStringLiteral("555-000-0005"));
    QTest::mouseClick(d.dialer.cmdSpeedDialer[0], Qt::LeftButton);
    QVERIFY(!d.dialer.fraSpeedDial->isVisible());
    QCOMPARE(d.dialer.cmdDialer[4]->text(), QStringLiteral("Parts Desk"));
    QCOMPARE(d.get("SpeedNumbers.txt"), fourEntries() + "Parts Desk\r\n555-000-0005\r\n");
    QVERIFY(d.dialer.txtDialer[0]->text().isEmpty());

    // "Load Current Player" stores the person on the screen in the chosen button; a gap
    // before it is closed up in the file.
    QTest::mouseClick(d.dialer.cmdDialer[7], Qt::LeftButton);
    QTest::mouseClick(d.dialer.cmdSpeedDialer[4], Qt::LeftButton);
    QCOMPARE(d.get("SpeedNumbers.txt"), fourEntries() + "Parts Desk\r\n555-000-0005\r\n"
                                                        "Hill Bakery\r\n555-123-4567\r\n");
    VERIFY_DIALOGS(d.dialogs);
}

void TestDialer::deleteClosesTheGap()
{
    Dialer d(fourEntries());
    QTest::mouseClick(d.dialer.cmdDialer[1], Qt::LeftButton);
    d.dialogs.expect("This will delete SpeedDial entry  Supply House\nAre you Sure",
                     "Delete Speed Dial", Answer::Yes);
    QTest::mouseClick(d.dialer.cmdSpeedDialer[2], Qt::LeftButton);
    VERIFY_DIALOGS(d.dialogs);
    QCOMPARE(d.get("SpeedNumbers.txt"), QByteArray("Office\r\n555-000-0001\r\n"
                                                   "Night Line\r\n555-000-0003\r\n"
                                                   "Truck 4\r\n555-000-0004\r\n"));
    QCOMPARE(d.captions(),
             QStringList({"Office", "Night Line", "Truck 4", "", "", "", "", "", "", ""}));
    QVERIFY(!d.dialer.cmdSpeedDialer[2]->isVisible());
    // What the second button dials now is the entry that moved up.
    QTest::mouseClick(d.dialer.cmdDialer[1], Qt::LeftButton);
    QCOMPARE(d.dialer.lblNumber->text(), QStringLiteral("555-000-0003"));
}

void TestDialer::deleteAnsweredNoKeepsTheFile()
{
    Dialer d(fourEntries());
    QTest::mouseClick(d.dialer.cmdDialer[0], Qt::LeftButton);
    d.dialogs.expect("This will delete SpeedDial entry  Office\nAre you Sure", "Delete Speed Dial",
                     Answer::No);
    QTest::mouseClick(d.dialer.cmdSpeedDialer[2], Qt::LeftButton);
    VERIFY_DIALOGS(d.dialogs);
    QCOMPARE(d.get("SpeedNumbers.txt"), fourEntries());
    QVERIFY(!d.dialer.cmdSpeedDialer[2]->isVisible());
}

void TestDialer::damagedSpeedNumbersAreToldNotLoaded_data()
{
    QTest::addColumn<QByteArray>("file");
    QByteArray eleven;
    for (int i = 1; i <= 11; ++i)
        eleven += "Entry " + QByteArray::number(i) + "\r\n555-000-00" + QByteArray::number(10 + i) +
                  "\r\n";
    QTest::newRow("eleven pairs") << eleven;
    QTest::newRow("name without number") << QByteArray("Office\r\n555-000-0001\r\nNight\r\n");
}

void TestDialer::damagedSpeedNumbersAreToldNotLoaded()
{
    QFETCH(QByteArray, file);
    ProgramFolder f;
    f.put("SpeedNumbers.txt", file);
    FakeModem modem;
    QtSerialLink link;
    link.setDevice(modem.devicePath());
    frmDialer dialer(f.ctx, link);
    f.dialogs.expectContaining(QStringLiteral("SpeedNumbers.txt"));
    dialer.Form_Activate();
    VERIFY_DIALOGS(f.dialogs);
    // Nothing on the buttons, and none of them can write over the file.
    for (QPushButton* b : dialer.cmdDialer) {
        QVERIFY(b->text().isEmpty());
        QVERIFY(!b->isEnabled());
    }
    QCOMPARE(f.get("SpeedNumbers.txt"), file);
    // Dialing still works.
    QVERIFY(dialer.cmdNewDial->isEnabled());
}

void TestDialer::helpPanelToggles()
{
    Dialer d;
    QVERIFY(!d.dialer.fraHelp->isVisible());
    QTest::mouseClick(d.dialer.cmdHelp, Qt::LeftButton);
    QVERIFY(d.dialer.fraHelp->isVisible());
    QCOMPARE(d.dialer.cmdHelp->text(), QStringLiteral("Hide Help"));
    QTest::mouseClick(d.dialer.cmdHelp, Qt::LeftButton);
    QVERIFY(!d.dialer.fraHelp->isVisible());
    QCOMPARE(d.dialer.cmdHelp->text(), QStringLiteral("Show Help"));
}

void TestDialer::portThatCannotBeOpenedIsTold()
{
    ProgramFolder f;
    QtSerialLink link;
    link.setDevice(f.abs(QStringLiteral("ttyS2")));
    frmDialer dialer(f.ctx, link);
    dialer.Form_Activate();
    QVERIFY2(dialer.lblStatus->text().startsWith(u"There is no serial device"),
             qPrintable(dialer.lblStatus->text()));
    QVERIFY(!dialer.cmdNewDial->isEnabled());
    VERIFY_DIALOGS(f.dialogs);
}

void TestDialer::customerDialChoosesPhoneOrCell_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<int>("answer"); // to "Select Phone or Cell"; -1 not asked
    QTest::addColumn<QString>("dialed");
    QTest::newRow("phone only") << "" << -1 << "ATDT937-555-0100;";
    QTest::newRow("both, phone chosen")
        << "937-555-0199" << int(Answer::Yes) << "ATDT937-555-0100;";
    QTest::newRow("both, cell chosen")
        << " 937-555-0199 " << int(Answer::No) << "ATDT937-555-0199;";
}

void TestDialer::customerDialChoosesPhoneOrCell()
{
    QFETCH(QString, cell);
    QFETCH(int, answer);
    QFETCH(QString, dialed);
    Office office;
    ProgramFolder& f = office.f;
    FakeModem& modem = office.modem;
    App& app = office.start();
    QVERIFY(app.phoneFeaturesShown());
    app.OpenEntry(1);
    QVERIFY(app.customer && app.customer->isVisible());
    frmCustomer* customer = app.customer;
    QVERIFY(customer->imgDialer->isVisible());
    customer->txtCustomer[CustomerBox::Cell]->setText(cell);
    if (answer >= 0)
        f.dialogs.expect("Click YES to dial Phone,\nClick NO to dial Cell", "Select Phone or Cell",
                         Answer(answer));
    QTest::mouseClick(customer->imgDialer, Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(app.dialer->isVisible());
    QCOMPARE(app.dialer->lblName->text(), customer->CurrentCustomer);
    QTest::mouseClick(app.dialer->cmdNewDial, Qt::LeftButton);
    QTRY_COMPARE(app.dialer->lblStatus->text(), kPickup);
    QTest::mouseClick(app.dialer->cmdHangup, Qt::LeftButton);
    QTRY_COMPARE(modem.calls(), QStringList({dialed, "ATH"}));
    // The customer was saved before the dial, with the cell typed in.
    QVERIFY(f.get("CustomerData.txt").contains(cell.trimmed().toLatin1()));
    app.ExitProgram();
}

void TestDialer::otherScreensHandTheCallOver_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<bool>("chained"); // a telephone behind the modem
    QTest::addColumn<bool>("dialerShown");
    QTest::newRow("reminder list, right click") << "reminders" << false << true;
    QTest::newRow("hour label, telephone chained") << "hour" << true << true;
    QTest::newRow("hour label, no telephone chained") << "hour" << false << false;
}

void TestDialer::otherScreensHandTheCallOver()
{
    QFETCH(QString, from);
    QFETCH(bool, chained);
    QFETCH(bool, dialerShown);
    Office office;
    office.f.put("Phone.txt", chained ? "#TRUE#\r\n1\r\n" : "#FALSE#\r\n1\r\n");
    App& app = office.start();
    QVERIFY(app.phoneFeaturesShown());
    if (from == u"reminders") {
        office.f.dialogs.expect("No Service Slips were found");
        app.OpenEntry(MenuEntry::PlaceReminderCalls);
        VERIFY_DIALOGS(office.f.dialogs);
        QVERIFY(app.callBack);
        emit app.callBack->callCustomer(QStringLiteral("937-555-0100"),
                                        QStringLiteral("Hill Bakery"));
    } else {
        app.OpenEntry(MenuEntry::DailyWorkSchedules);
        QVERIFY(app.mainForm);
        DayViewFrame* day = app.mainForm->fraDay;
        day->txtHourSlot[3]->setToolTip(QStringLiteral("Hill Bakery"));
        day->Label2[3]->setToolTip(QStringLiteral("937-555-0100"));
        emit day->dialRequested(3);
    }
    QCOMPARE(app.dialer->isVisible(), dialerShown);
    if (!dialerShown) return;
    QCOMPARE(app.dialer->lblName->text(), QStringLiteral("Hill Bakery"));
    QCOMPARE(app.dialer->lblNumber->text(), QStringLiteral("937-555-0100"));
    QVERIFY(app.dialer->isModal() || app.dialer->windowModality() == Qt::ApplicationModal);
}

QTEST_MAIN(TestDialer)
#include "test_dialer.moc"
