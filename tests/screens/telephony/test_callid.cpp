#include "fakemodem.h"
#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/customers/customerfiles.h"
#include "core/session/menurules.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/screenframe.h"
#include "screens/telephony/frmcallid.h"
#include "screens/telephony/frmdialer.h"
#include "screens/telephony/qtseriallink.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

using namespace tresvane;

using Answer = Dialogs::Answer;

namespace
{

QByteArray padded(const QByteArray& s, int width)
{
    return s + QByteArray(width - s.size(), ' ');
}

// A customer record with only the fields the monitor looks at filled in.
QByteArray customer(const QByteArray& account, const QByteArray& phone, const QByteArray& cell)
{
    return padded(account, 20) + padded("Customer " + account, 45) + padded("", 35 + 25 + 25 + 20) +
           padded("", 2 + 10 + 25) + padded(phone, 13) + padded(cell, 13) +
           padded("", 30 + 10 + 15 + 1 + 25) + padded("Business", 10) +
           QByteArray::fromHex("01000000");
}

// One TelCall.txt record, as the file holds it.
QByteArray call(const QByteArray& name, const QByteArray& number, const QByteArray& time)
{
    return padded(name, 15) + padded(number, 12) + padded(time, 8);
}

QByteArray framed(const char* lines)
{
    QByteArray out = "\r\n";
    for (const QByteArray& line : QByteArray(lines).split('/'))
        out += line.trimmed() + "\r\n";
    return out;
}

bool waitFor(const std::function<bool()>& done, int ms = 5000)
{
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < ms)
        QTest::qWait(10);
    return done();
}

// The monitor on a fake modem, two customers in the folder, watching fast.
struct Monitor : ProgramFolder {
    FakeModem modem;
    QtSerialLink link;
    std::unique_ptr<frmCallID> screen;

    Monitor()
    {
        put("CustomerData.txt",
            customer("A-1", "847-555-0001", "") + customer("A-2", "217-555-0142", "919-627-8340"));
        link.setDevice(modem.devicePath());
    }
    void bringUp()
    {
        screen = std::make_unique<frmCallID>(ctx, link);
        screen->setIntervals(60, 40);
        screen->show();
        screen->Form_Activate();
    }
    bool watching()
    {
        return waitFor([this] { return screen->callerIdOn() && screen->monitoring(); });
    }
};

} // namespace

class TestCallId : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }

    void storesKeptCalls_data()
    {
        QTest::addColumn<QByteArray>("said");
        QTest::addColumn<bool>("split");
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<int>("customers");
        QTest::addColumn<int>("others");

        const QByteArray two = framed("RING / DATE = 0321 / TIME = 1405 / NMBR = 8475550001 / "
                                      "NAME = A N OTHER / RING / DATE=1203 / TIME=1452 / "
                                      "NMBR=0755555555 / RING / NAME = O / DDN_NMBR= 9196278340");
        const QByteArray twoStored = call("A N OTHER", "847-555-0001", "09:00 am") +
                                     call("Out of Area", "919-627-8340", "09:00 am");
        QTest::newRow("customer by telephone, withheld dropped, customer by cell")
            << two << false << twoStored << 2 << 0;
        QTest::newRow("the same, split across ticks") << two << true << twoStored << 2 << 0;
        QTest::newRow("unknown nine digits, no name, private")
            << framed("RING / DATE = 0321 / TIME = 1405 / NMBR = 504551234 / NAME = A N OTHER / "
                      "RING / RING / DATE = 1015 / TIME = 2038 / NMBR = 3125550199 / RING / "
                      "NMBR = P / NAME = P")
            << false
            << call("A N OTHER", "504551234", "09:00 am") + call("", "312-555-0199", "09:00 am") +
                   call("Private", "", "09:00 am")
            << 0 << 3;
        QTest::newRow("hex and withheld only: nothing stored")
            << framed("80200108303332313134303502 / NMBR = 0000000000 / NAME = O") << false
            << QByteArray() << 0 << 0;
    }

    // What the modem reports ends up in TelCall.txt, 35 bytes a kept call, and counted.
    void storesKeptCalls()
    {
        QFETCH(QByteArray, said);
        QFETCH(bool, split);
        QFETCH(QByteArray, stored);
        QFETCH(int, customers);
        QFETCH(int, others);
        Monitor m;
        m.put("TelCall.txt", call("EARLIER", "555-000-0000", "08:00 am"));
        m.bringUp();
        QVERIFY(m.watching());
        QVERIFY(m.modem.callerIdOn());
        if (split) {
            m.modem.say(said.left(said.size() / 2 + 3));
            QTest::qWait(150);
            m.modem.say(said.mid(said.size() / 2 + 3));
        } else {
            m.modem.say(said);
        }
        const QByteArray expected = call("EARLIER", "555-000-0000", "08:00 am") + stored;
        waitFor([&] { return m.get("TelCall.txt") == expected; }, 3000);
        QTest::qWait(200); // and nothing more comes of it
        QCOMPARE(m.get("TelCall.txt"), expected);
        QCOMPARE(int(m.screen->CustomerCalls), customers);
        QCOMPARE(int(m.screen->OtherCalls), others);
        QCOMPARE(m.screen->lblCount[1]->text(), QString::number(customers));
        QCOMPARE(m.screen->lblCount[2]->text(), QString::number(others));
        const int total = int(expected.size() / 35);
        QCOMPARE(m.screen->TotalCalls, total);
        QCOMPARE(m.screen->lblCount[3]->text(), QString::number(total));
        QCOMPARE(m.screen->fgCallSummary->rows(), total);
        QCOMPARE(m.screen->updnCalls->maximum(), total);
    }

    // A modem that answers ERROR to caller ID: the watch stops, no word is said, and a
    // report that still comes is not stored.
    void modemWithoutCallerIdLeavesMonitoringSilent()
    {
        Monitor m;
        m.modem.setCallerIdSupported(false);
        m.bringUp();
        QVERIFY(waitFor([&] { return !m.screen->monitoring(); }));
        QTest::qWait(100);
        QVERIFY(!m.screen->callerIdOn());
        QVERIFY(!m.screen->monitoring());
        m.modem.say(framed("NMBR = 8475550001 / NAME = A N OTHER"));
        QTest::qWait(200);
        QVERIFY(!m.has("TelCall.txt"));
        QCOMPARE(m.screen->lblName->text(), QStringLiteral("Name"));
    }

    void clearAllCalls_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<bool>("kept");
        QTest::newRow("yes clears the file and its Backup copy") << Answer::Yes << false;
        QTest::newRow("no keeps both") << Answer::No << true;
    }

    void clearAllCalls()
    {
        QFETCH(Answer, answer);
        QFETCH(bool, kept);
        Monitor m;
        const QByteArray calls =
            call("ONE", "847-555-0001", "08:00 am") + call("TWO", "312-555-0199", "08:05 am");
        m.put("TelCall.txt", calls);
        m.put("Backup/TelCall.txt", calls);
        m.bringUp();
        QCOMPARE(m.screen->lblName->text(), QStringLiteral("ONE"));
        QVERIFY(m.screen->cmdClear->isEnabled());
        m.dialogs.expect(QStringLiteral("Clear All Entries?"), QStringLiteral("Clear Call List"),
                         answer);
        m.screen->cmdClear->click();
        QCOMPARE(m.has("TelCall.txt"), kept);
        QCOMPARE(m.has("Backup/TelCall.txt"), kept);
        QCOMPARE(m.screen->fgCallSummary->rows(), kept ? 2 : 0);
        QCOMPARE(m.screen->lblName->text(), kept ? QStringLiteral("ONE") : QStringLiteral("Name"));
        QCOMPARE(m.screen->cmdClear->isEnabled(), kept);
        // Bringing the screen up again does not bring the calls back from Backup.
        m.screen->Form_Activate();
        QCOMPARE(m.screen->TotalCalls, kept ? 2 : 0);
    }

    // The up-down steps through the stored calls in the labels.
    void upDownShowsEachCall()
    {
        Monitor m;
        m.put("TelCall.txt",
              call("ONE", "847-555-0001", "08:00 am") + call("TWO", "312-555-0199", "08:05 pm"));
        m.bringUp();
        m.screen->updnCalls->setValue(2);
        QCOMPARE(m.screen->lblName->text(), QStringLiteral("TWO"));
        QCOMPARE(m.screen->lblNumber->text(), QStringLiteral("312-555-0199"));
        QCOMPARE(m.screen->lblTime->text(), QStringLiteral("08:05 pm"));
    }

    // The sign dials the call on show, the port let go first for the dialer; before any
    // call, with the labels on their captions, it does nothing.
    void signDialsTheCallOnShow()
    {
        Monitor m;
        m.modem.setCallerIdSupported(false); // the sign stands still
        m.bringUp();
        QVERIFY(waitFor([&] { return !m.screen->monitoring(); }));
        QSignalSpy dial(m.screen.get(), &frmCallID::dialRequested);
        QTest::mouseClick(m.screen->Image1, Qt::LeftButton);
        QCOMPARE(dial.size(), 0);
        QVERIFY(m.link.isOpen());

        m.put("TelCall.txt",
              call("ONE", "847-555-0001", "08:00 am") + call("TWO", "312-555-0199", "08:05 pm"));
        m.screen->ResetDisplay();
        m.screen->updnCalls->setValue(2);
        QTest::mouseClick(m.screen->Image1, Qt::LeftButton);
        QCOMPARE(dial.size(), 1);
        QCOMPARE(dial[0], (QVariantList{QStringLiteral("TWO"), QStringLiteral("312-555-0199")}));
        QVERIFY(!m.link.isOpen());
    }

    // From the menu of a running program: the dialer gets the port and the call, and when
    // it goes the monitor takes the port back and turns caller ID on again.
    void dialerTakesThePortAndGivesItBack()
    {
        FakeModem modem;
        ProgramFolder f;
        QTemporaryDir locks;
        RecordingDesktop desktop;
        f.put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                                    "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
        f.put("Assignto.txt", "\"North Truck\"\r\n");
        f.put("ProblemCode.txt", "\"No Heat\"\r\n");
        f.put("CustomerData.txt", customer("A-1", "847-555-0001", ""));
        f.put("TresvaneDispatcherSettings.txt",
              "8\r\n5\r\n#TRUE#\r\n#TRUE#\r\n1\r\n#FALSE#\r\n#FALSE#\r\n1\r\n1\r\n");
        f.put("TelCall.txt", call("A N OTHER", "847-555-0001", "08:00 am"));
        ResetContractDefaults(f.ctx);
        QVERIFY(WriteContract(f.ctx, 1));
        QVERIFY(WriteCycle(f.ctx, 1));
        App app(f.root(), f.clock, f.dialogs, desktop);
        app.setLockFolder(locks.path());
        app.setModemDevices([&](int port) { return port == 1 ? modem.devicePath() : QString(); });
        QVERIFY(app.Main());
        QVERIFY(waitFor([&] { return !app.modemSearchRunning(); }));
        QVERIFY(app.EntryBuilt(MenuEntry::UnattendedMonitoring));

        app.OpenEntry(MenuEntry::UnattendedMonitoring);
        QVERIFY(app.callId);
        QVERIFY(waitFor([&] { return app.callId->callerIdOn(); }));
        const int cidOnBefore = int(modem.commands().count(QStringLiteral("AT#CID=1")));

        app.callId->cmdDial->click();
        QVERIFY(waitFor([&] { return modem.commands().contains(QStringLiteral("AT#CID=0;")); }));
        QVERIFY(!app.callId->monitoring());
        QVERIFY(app.dialer->isVisible());
        QCOMPARE(app.dialer->lblName->text(), QStringLiteral("A N OTHER"));
        QCOMPARE(app.dialer->lblNumber->text(), QStringLiteral("847-555-0001"));
        QVERIFY(app.serialLink().isOpen()); // the dialer's own

        app.dialer->reject();
        QVERIFY(waitFor(
            [&] { return modem.commands().count(QStringLiteral("AT#CID=1")) > cidOnBefore; }));
        QVERIFY(app.serialLink().isOpen());
        QVERIFY(waitFor([&] { return app.callId->callerIdOn() && app.callId->monitoring(); }));

        // Leaving for the menu lets the port go.
        app.callId->cmdExit->click();
        QVERIFY(!app.serialLink().isOpen());
        QVERIFY(waitFor([&] { return !modem.callerIdOn(); }));
    }
};

QTEST_MAIN(TestCallId)
#include "test_callid.moc"
