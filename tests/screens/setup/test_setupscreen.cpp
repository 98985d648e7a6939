#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"
#include "programfolder.h"
#include "sampleinstallation.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupassignmentstab.h"
#include "screens/setup/setupbusinesstab.h"
#include "screens/setup/setupproblemstab.h"
#include "screens/shell/screenframe.h"
#include "scriptedprintdialogs.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QtTest>

using namespace tresvane;

// The setup screen over a whole installation: what it loads it shows, and leaving it
// writes back what it showed, or stops at the box to correct and writes nothing.
class TestSetupScreen : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void unchangedSetupWritesTheSameBytes();
    void badTelephoneStopsBeforeAnyFile();
};

namespace
{
const QStringList kDataFiles = {"MyBusinessData.txt", "Assignto.txt", "ProblemCode.txt",
                                "TresvaneDispatcherSettings.txt", "PrintColors.txt"};

// An installation loaded as the start-up loads it.
void loadInstallation(ProgramFolder& f)
{
    SampleOptions options;
    options.teams = 3;
    options.customers = 20;
    options.slips = 10;
    QVERIFY(WriteSampleInstallation(f.root(), options).ok());
    f.v.gYear = QString::number(f.clock.today().year());
    QVERIFY(QDir().mkpath(f.abs(f.v.gYear)));
    QVERIFY(LoadSettings(f.ctx).ok());
    QVERIFY(LoadAssignments(f.ctx).ok());
    QVERIFY(LoadProblems(f.ctx).ok());
    QVERIFY(LoadBusiness(f.ctx).ok());
}

// The screen loaded and its lists filled as the start-up does, then shown.
bool openAsAtStart(frmSetup& screen)
{
    if (!screen.Form_Load(0).ok()) return false;
    screen.assignments->FillAssignmentLists();
    screen.problems->LoadProblems();
    screen.show();
    return true;
}

QMap<QString, QByteArray> dataFiles(const ProgramFolder& f)
{
    QMap<QString, QByteArray> out;
    for (const QString& name : kDataFiles)
        if (f.has(name)) out.insert(name, f.get(name));
    return out;
}
} // namespace

void TestSetupScreen::unchangedSetupWritesTheSameBytes()
{
    ProgramFolder f;
    loadInstallation(f);
    if (QTest::currentTestFailed()) return;
    ScriptedPrintDialogs print;
    frmSetup screen(f.ctx, print);
    QVERIFY(openAsAtStart(screen));
    QCOMPARE(screen.business->txtBusiness[0]->text(), f.v.settings.txtBusiness[0]);
    QVERIFY(!screen.business->txtBusiness[0]->text().isEmpty());

    const QMap<QString, QByteArray> before = dataFiles(f);
    QSignalSpy back(&screen, &frmSetup::showMenu);
    screen.cmdQuit->click();
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(back.count(), 1);
    QVERIFY(!screen.isVisible());
    // What the installation had is written back byte for byte; the print colours it did
    // not have are written with what the screen showed.
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        QCOMPARE(f.get(it.key()), it.value());
    QCOMPARE(f.get("PrintColors.txt"), QByteArray("0\r\n0\r\n\"Arial\"\r\n#TRUE#\r\n3\r\n"));
    QCOMPARE(f.v.TeamCount(), 3);
}

void TestSetupScreen::badTelephoneStopsBeforeAnyFile()
{
    ProgramFolder f;
    loadInstallation(f);
    if (QTest::currentTestFailed()) return;
    ScriptedPrintDialogs print;
    frmSetup screen(f.ctx, print);
    QVERIFY(openAsAtStart(screen));
    screen.tabSetup->setCurrentIndex(frmSetup::TabAssignments);
    QLineEdit* phone = screen.business->txtBusiness[6];
    phone->setText("555-12");
    screen.business->txtBusiness[0]->setText("Renamed Firm");

    const QMap<QString, QByteArray> before = dataFiles(f);
    f.dialogs.expect("Your Telephone Number (structure) is invalid");
    QSignalSpy back(&screen, &frmSetup::showMenu);
    screen.cmdQuit->click();
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(back.count(), 0);
    QVERIFY(screen.isVisible());
    QCOMPARE(screen.tabSetup->currentIndex(), int(frmSetup::TabBusiness));
    QVERIFY(phone->text().isEmpty());
    QVERIFY(phone->hasFocus() || !QApplication::focusWidget());
    QCOMPARE(dataFiles(f), before);
    QVERIFY(f.v.settings.txtBusiness[0] != "Renamed Firm");
}

QTEST_MAIN(TestSetupScreen)
#include "test_setupscreen.moc"
