#include "core/setup/setupsave.h"
#include "core/state/dispatchingvariables.h"
#include "programfolder.h"

#include <QDir>
#include <QtTest>

using namespace tresvane;

Q_DECLARE_METATYPE(tresvane::SetupStop)

namespace
{
// A setup that passes every check: two teams, two problems, program slip numbers.
SetupExit goodExit()
{
    SetupExit e;
    e.business = {"Tresvane Heating",
                  "12 Mill Road",
                  "",
                  "Greenfield",
                  "OH",
                  "45123",
                  "(555)123-4567",
                  "",
                  ""};
    e.assignments = {"North", "South"};
    e.problems = {"No Heat", "Leaking tap"};
    e.colors.borderColor = 255;
    e.colors.textColor = 0;
    e.colors.fontName = "Arial";
    e.logoWidth = 1440;
    e.logoHeight = 720;
    e.invoiceItems = {{"Filter", "$12.00"}};
    return e;
}
} // namespace

class TestSetupSave : public QObject
{
    Q_OBJECT
private slots:
    void stops_data();
    void stops();
    void savedSetupIsReadBack();
};

// Each check stops the save where the old screen stopped it: what was written before the
// check stays written, nothing after it is.
void TestSetupSave::stops_data()
{
    QTest::addColumn<QString>("telephone");
    QTest::addColumn<QStringList>("teams");
    QTest::addColumn<QStringList>("problems");
    QTest::addColumn<bool>("continuous");
    QTest::addColumn<QString>("nextSlip");
    QTest::addColumn<SetupStop>("stop");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("written");
    QTest::addColumn<QStringList>("notWritten");

    const QStringList none;
    const QStringList all = {"MyBusinessData.txt", "Assignto.txt", "ProblemCode.txt",
                             "TresvaneDispatcherSettings.txt"};
    QTest::newRow("telephone without four digits at its end")
        << "(555)123-45" << QStringList{"North"} << QStringList{"No Heat"} << false << ""
        << SetupStop::Telephone << "Your Telephone Number (structure) is invalid" << none << all;
    QTest::newRow("no team") << "(555)123-4567" << QStringList{} << QStringList{"No Heat"} << false
                             << "" << SetupStop::NoAssignments
                             << "You must create at least one assignment"
                             << QStringList{"MyBusinessData.txt"}
                             << QStringList{"Assignto.txt", "ProblemCode.txt",
                                            "TresvaneDispatcherSettings.txt"};
    QTest::newRow("no problem description")
        << "(555)123-4567" << QStringList{"North"} << QStringList{} << false << ""
        << SetupStop::NoProblems << "You must create at least one problem code"
        << QStringList{"MyBusinessData.txt"}
        << QStringList{"Assignto.txt", "ProblemCode.txt", "TresvaneDispatcherSettings.txt"};
    QTest::newRow("continuous number that is not a number")
        << "(555)123-4567" << QStringList{"North"} << QStringList{"No Heat"} << true << "12a"
        << SetupStop::SlipNumber << "The Slip Number MUST be Numeric"
        << QStringList{"MyBusinessData.txt", "Assignto.txt", "ProblemCode.txt"}
        << QStringList{"SlipNo.txt"};
    QTest::newRow("continuous number past 32767")
        << "(555)123-4567" << QStringList{"North"} << QStringList{"No Heat"} << true << "40000"
        << SetupStop::SlipNumber << "The Slip Number can not be larger than 32767"
        << QStringList{"MyBusinessData.txt", "Assignto.txt"} << QStringList{"SlipNo.txt"};
    QTest::newRow("everything in order")
        << "(555)123-4567" << QStringList{"North", "South"} << QStringList{"No Heat"} << true
        << "17" << SetupStop::Saved << "" << (all + QStringList{"SlipNo.txt"}) << none;
}

void TestSetupSave::stops()
{
    QFETCH(QString, telephone);
    QFETCH(QStringList, teams);
    QFETCH(QStringList, problems);
    QFETCH(bool, continuous);
    QFETCH(QString, nextSlip);
    QFETCH(SetupStop, stop);
    QFETCH(QString, message);
    QFETCH(QStringList, written);
    QFETCH(QStringList, notWritten);

    ProgramFolder f;
    f.v.gYear = "2026";
    QVERIFY(QDir().mkpath(f.abs("2026"))); // made at start-up
    SetupExit e = goodExit();
    e.business[6] = telephone;
    e.assignments = teams;
    e.problems = problems;
    e.ckSlipStyle = !continuous;
    e.txtNextSlip = nextSlip;
    if (!message.isEmpty()) f.dialogs.expect(message);

    Result<SetupStop> got = SaveSetup(f.ctx, e);
    QVERIFY2(got, qPrintable(got.message()));
    QCOMPARE(*got, stop);
    VERIFY_DIALOGS(f.dialogs);
    for (const QString& name : written)
        QVERIFY2(f.has(name), qPrintable(name + " was not written"));
    for (const QString& name : notWritten)
        QVERIFY2(!f.has(name), qPrintable(name + " was written"));
    // A year folder for each team exactly when the lists were accepted.
    const bool listsSaved = stop == SetupStop::Saved || stop == SetupStop::SlipNumber;
    QCOMPARE(f.hasFolder("2026/Team#1"), listsSaved);
    // A refused slip number is asked again, not kept as refused.
    QVERIFY(!f.v.settings.SlipNumberBad);
}

void TestSetupSave::savedSetupIsReadBack()
{
    ProgramFolder f;
    f.v.gYear = "2026";
    QVERIFY(QDir().mkpath(f.abs("2026"))); // made at start-up
    SetupExit e = goodExit();
    e.ckPhone = true;
    e.ckAlarms = false;
    e.modemPort = 3;
    Result<SetupStop> got = SaveSetup(f.ctx, e);
    QVERIFY2(got, qPrintable(got.message()));
    QCOMPARE(*got, SetupStop::Saved);
    VERIFY_DIALOGS(f.dialogs);

    QVERIFY(f.hasFolder("2026/Team#2"));
    QCOMPARE(f.get("Assignto.txt"), QByteArray("\"North\"\r\n\"South\"\r\n"));
    QCOMPARE(f.v.gAssignTo.mid(1), QStringList({"North", "South"}));
    QCOMPARE(f.v.settings.cboProblems, QStringList({"No Heat", "Leaking tap"}));
    QVERIFY(f.v.gPhoneChained);
    QVERIFY(!f.v.gAlarms);
    QCOMPARE(f.v.gModemPort, qint16(3));
    QCOMPARE(f.v.settings.txtBusiness[0], QString("Tresvane Heating"));
    QCOMPARE(f.v.settings.lblFont, QString("Arial"));
    // Written, then read back: a second save of the same values writes the same bytes.
    const QByteArray settings = f.get("TresvaneDispatcherSettings.txt");
    QVERIFY(SaveSetup(f.ctx, e).ok());
    QCOMPARE(f.get("TresvaneDispatcherSettings.txt"), settings);
}

QTEST_GUILESS_MAIN(TestSetupSave)
#include "test_setupsave.moc"
