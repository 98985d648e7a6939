#include "fakemodem.h"
#include "recordingdesktop.h"
#include "scripteddialogs.h"
#include "testclock.h"

#include "app/app.h"
#include "core/telephony/modemprobe.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/shell/screenframe.h"
#include "screens/telephony/frmdialer.h"
#include "screens/telephony/qtseriallink.h"

#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

using namespace tresvane;

namespace
{

// Which device stands behind each port number in a row of the probe table.
enum class Device { None, Missing, Modem, SilentModem };

struct Run {
    QTemporaryDir folder;
    QTemporaryDir locks;
    TestClock clock;
    ScriptedDialogs dialogs;
    RecordingDesktop desktop;
    std::unique_ptr<App> app;

    App& start(ModemProbe::DeviceForPort devices)
    {
        app = std::make_unique<App>(folder.path(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        app->setModemDevices(std::move(devices));
        return *app;
    }
};

bool waitForSearch(App& app, int ms = 8000)
{
    QElapsedTimer t;
    t.start();
    while (app.modemSearchRunning() && t.elapsed() < ms)
        QTest::qWait(10);
    return !app.modemSearchRunning();
}

} // namespace

class TestModemLink : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void openFailuresAreReadable_data();
    void openFailuresAreReadable();
    void linkSpeaksToTheModem();
    void searchTakesTheFirstPortThatAnswers_data();
    void searchTakesTheFirstPortThatAnswers();
    void silentDeviceCostsAtMostItsWait();
    void startFindsTheModemBehindTheSplash_data();
    void startFindsTheModemBehindTheSplash();
    void storedPortWinsOverTheDetectedOne();
    void leavingSetupSearchesOnlyWithoutAnOpenPort_data();
    void leavingSetupSearchesOnlyWithoutAnOpenPort();
    void deviceForPort_data();
    void deviceForPort();
};

void TestModemLink::openFailuresAreReadable_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no such device") << "missing"
                                    << "There is no serial device";
    QTest::newRow("not allowed") << "forbidden"
                                 << "add yourself to the dialout group";
    QTest::newRow("held by another") << "busy"
                                     << "is busy";
}

void TestModemLink::openFailuresAreReadable()
{
    QFETCH(QString, kind);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    FakeModem modem;
    QVERIFY(modem.isValid());
    QtSerialLink first;
    QtSerialLink link;
    if (kind == u"missing") {
        link.setDevice(dir.filePath(QStringLiteral("ttyS9")));
    } else if (kind == u"forbidden") {
        if (::geteuid() == 0) QSKIP("root may open any device");
        QFile f(dir.filePath(QStringLiteral("ttyS0")));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.close();
        QVERIFY(f.setPermissions({}));
        link.setDevice(f.fileName());
    } else {
        first.setDevice(modem.devicePath());
        QVERIFY(first.open().ok());
        link.setDevice(modem.devicePath());
    }
    const Status s = link.open();
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains(expected), qPrintable(s.message()));
    QVERIFY2(s.message().contains(link.device()), qPrintable(s.message()));
    QVERIFY(!link.isOpen());
}

void TestModemLink::linkSpeaksToTheModem()
{
    FakeModem modem;
    QtSerialLink link;
    QSignalSpy arrived(&link, &SerialLink::bytesArrived);
    link.setDevice(modem.devicePath());
    QVERIFY(link.open().ok());
    link.send("AT\r");
    QTRY_VERIFY(link.bytesWaiting() >= 8);
    QVERIFY(arrived.count() >= 1);
    QCOMPARE(link.readAll(), QByteArray("AT\r\r\nOK\r\n"));
    QCOMPARE(link.bytesWaiting(), 0);
    link.send("ATX9\r");
    QTRY_COMPARE(modem.commands(), QStringList({"AT", "ATX9"}));
    // What is read is taken out; the reply may come in pieces.
    QByteArray reply;
    QTRY_VERIFY((reply += link.readAll()).endsWith("ERROR\r\n"));
    QCOMPARE(reply, QByteArray("ATX9\r\r\nERROR\r\n"));
    link.close();
    QVERIFY(!link.isOpen());
}

void TestModemLink::searchTakesTheFirstPortThatAnswers_data()
{
    QTest::addColumn<QList<int>>("ports"); // a Device for ports 1, 2, 3, ...
    QTest::addColumn<int>("found");
    const int none = int(Device::None), missing = int(Device::Missing), modem = int(Device::Modem),
              silent = int(Device::SilentModem);
    QTest::newRow("modem on port 1") << QList<int>{modem} << 1;
    QTest::newRow("modem on port 3 after gaps") << QList<int>{missing, none, modem} << 3;
    QTest::newRow("silent device then modem") << QList<int>{silent, modem} << 2;
    QTest::newRow("only a silent device") << QList<int>{silent} << 0;
    QTest::newRow("no device at all") << QList<int>{} << 0;
}

void TestModemLink::searchTakesTheFirstPortThatAnswers()
{
    QFETCH(QList<int>, ports);
    QFETCH(int, found);
    QTemporaryDir dir;
    FakeModem answering, silent;
    silent.setMode(FakeModem::Mode::Silent);
    const auto deviceFor = [&](int port) -> QString {
        if (port > ports.size()) return {};
        switch (Device(ports[port - 1])) {
        case Device::Missing:
            return dir.filePath(QStringLiteral("ttyS%1").arg(port - 1));
        case Device::Modem:
            return answering.devicePath();
        case Device::SilentModem:
            return silent.devicePath();
        default:
            return {};
        }
    };
    QtSerialLink link;
    ModemProbe probe(link, deviceFor);
    QSignalSpy finished(&probe, &ModemProbe::finished);
    probe.start();
    QVERIFY(finished.isEmpty()); // never within start()
    QVERIFY(finished.wait(5000));
    QCOMPARE(finished.at(0).at(0).value<qint16>(), qint16(found));
    QVERIFY(!link.isOpen());
    QCOMPARE(answering.commands(), found ? QStringList{"AT"} : QStringList{});
}

void TestModemLink::silentDeviceCostsAtMostItsWait()
{
    // The same silent device under every port number is tried once.
    FakeModem silent;
    silent.setMode(FakeModem::Mode::Silent);
    QtSerialLink link;
    ModemProbe probe(link, [&](int) { return silent.devicePath(); });
    QSignalSpy finished(&probe, &ModemProbe::finished);
    QElapsedTimer t;
    t.start();
    probe.start();
    QVERIFY(finished.wait(5000));
    QVERIFY2(t.elapsed() >= ModemProbe::kAnswerMs - 20, qPrintable(QString::number(t.elapsed())));
    QVERIFY2(t.elapsed() < 2 * ModemProbe::kAnswerMs + 200,
             qPrintable(QString::number(t.elapsed())));
    QCOMPARE(silent.commands(), QStringList{"AT"});
}

void TestModemLink::startFindsTheModemBehindTheSplash_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<bool>("found");
    QTest::newRow("answering modem") << int(Device::Modem) << true;
    QTest::newRow("silent modem") << int(Device::SilentModem) << false;
    QTest::newRow("no device") << int(Device::Missing) << false;
}

void TestModemLink::startFindsTheModemBehindTheSplash()
{
    QFETCH(int, device);
    QFETCH(bool, found);
    FakeModem modem;
    if (Device(device) == Device::SilentModem) modem.setMode(FakeModem::Mode::Silent);
    Run run;
    const QString path = Device(device) == Device::Missing
                             ? run.folder.filePath(QStringLiteral("no-tty"))
                             : modem.devicePath();
    App& app = run.start([&](int port) { return port >= 1 ? path : QString(); });
    QVERIFY(app.Main());
    // The search has not held up the start: it runs behind the splash.
    QVERIFY(app.modemSearchRunning());
    QVERIFY(!app.phoneFeaturesShown());
    QVERIFY(waitForSearch(app));
    VERIFY_DIALOGS(run.dialogs);

    QCOMPARE(app.phoneFeaturesShown(), found);
    QCOMPARE(app.detectedModemPort(), qint16(found ? 1 : 0));
    QCOMPARE(app.dialer->Text1->text(), found ? QStringLiteral("Your Modem Comm Port Is 1.")
                                              : QStringLiteral("Modem Not Detected Or In Use."));
    QCOMPARE(app.dialer->Label2_3->text(),
             found ? QStringLiteral("COM Port # 1") : QStringLiteral("COM Port # 0"));
    QCOMPARE(app.setup->operations->txtModemPort->text(), found ? u"1" : u"0");
    QCOMPARE(app.setup->operations->fraPhone->isEnabled(), found);
    // The alarms and prompts on the same sub-tab stay open either way.
    QVERIFY(app.setup->operations->tabSub->isTabEnabled(app.setup->operations->phoneTabIndex()));
    // The port stays open with caller ID reporting on.
    QCOMPARE(app.serialLink().isOpen(), found);
    if (found) {
        QTRY_VERIFY(modem.callerIdOn());
        QCOMPARE(modem.commands(), QStringList({"AT", "AT#CID=1"}));
        QCOMPARE(app.v.gModemPort, qint16(1));
    }
    app.ExitProgram();
    QVERIFY(!app.serialLink().isOpen());
}

void TestModemLink::storedPortWinsOverTheDetectedOne()
{
    FakeModem modem;
    Run run;
    // Phone.txt: telephone chained, port 4.
    QFile phone(run.folder.filePath(QStringLiteral("Phone.txt")));
    QVERIFY(phone.open(QIODevice::WriteOnly));
    phone.write("#TRUE#\r\n4\r\n");
    phone.close();
    App& app = run.start([&](int port) { return port == 2 ? modem.devicePath() : QString(); });
    QVERIFY(app.Main());
    QVERIFY(waitForSearch(app));
    QCOMPARE(app.detectedModemPort(), qint16(2));
    QCOMPARE(app.v.gModemPort, qint16(4));
    QCOMPARE(app.serialLink().device(), modem.devicePath());
    QVERIFY(app.phoneFeaturesShown());
}

void TestModemLink::leavingSetupSearchesOnlyWithoutAnOpenPort_data()
{
    QTest::addColumn<bool>("silentAtStart");
    QTest::newRow("modem open since the start") << false;
    QTest::newRow("modem switched on after the start") << true;
}

void TestModemLink::leavingSetupSearchesOnlyWithoutAnOpenPort()
{
    QFETCH(bool, silentAtStart);
    FakeModem modem;
    if (silentAtStart) modem.setMode(FakeModem::Mode::Silent);
    Run run;
    const auto put = [&](const char* name, const QByteArray& bytes) {
        QFile f(run.folder.filePath(QString::fromLatin1(name)));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    };
    put("MyBusinessData.txt", "\"Acme Heating\",\"12 Main Street\",\"\",\"Springfield\","
                              "\"IL\",\"62701\",\"217-555-0142\",\"\",\"\"\r\n");
    put("Assignto.txt", "\"North Truck\"\r\n");
    put("ProblemCode.txt", "\"No Heat\"\r\n");
    App& app = run.start([&](int port) { return port == 1 ? modem.devicePath() : QString(); });
    QVERIFY(app.Main());
    QVERIFY(waitForSearch(app));
    QCOMPARE(app.phoneFeaturesShown(), !silentAtStart);
    if (!silentAtStart) QTRY_VERIFY(modem.callerIdOn());
    const QStringList before = modem.commands();

    modem.setMode(FakeModem::Mode::Answering);
    app.ShowSetup();
    QTest::mouseClick(app.setup->cmdQuit, Qt::LeftButton);
    VERIFY_DIALOGS(run.dialogs);
    QVERIFY(!app.setup->isVisible());
    QVERIFY(waitForSearch(app));
    if (silentAtStart) {
        // The modem answers now: found on the way out of setup, caller ID switched on.
        QTRY_VERIFY(modem.callerIdOn());
        QVERIFY(app.phoneFeaturesShown());
        QCOMPARE(modem.commands(), before + QStringList({"AT", "AT#CID=1"}));
    } else {
        // The open port is the modem in use: nothing is sent to it.
        QTest::qWait(50);
        QCOMPARE(modem.commands(), before);
        QVERIFY(app.phoneFeaturesShown());
        QVERIFY(app.serialLink().isOpen());
    }
}

void TestModemLink::deviceForPort_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("configured");
    QTest::addColumn<QString>("device");
    QTest::newRow("COM1") << 1 << QString() << "/dev/ttyS0";
    QTest::newRow("COM16") << 16 << QString() << "/dev/ttyS15";
    QTest::newRow("no port") << 0 << QString() << QString();
    QTest::newRow("named device") << 3 << " /dev/ttyACM0 "
                                  << "/dev/ttyACM0";
    QTest::newRow("named device, no port") << 0 << "/dev/ttyACM0" << QString();
}

void TestModemLink::deviceForPort()
{
    QFETCH(int, port);
    QFETCH(QString, configured);
    QFETCH(QString, device);
    QCOMPARE(ModemDeviceForPort(port, configured), device);
}

QTEST_MAIN(TestModemLink)
#include "test_modemlink.moc"
