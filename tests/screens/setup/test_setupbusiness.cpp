#include "core/setup/settingsfiles.h"
#include "programfolder.h"
#include "screens/setup/setupbusinesstab.h"
#include "screens/shell/screenframe.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace tresvane;

// The business address through a start and back to the file: the boxes take their
// limits from the style, so a style chosen at load or by the user never cuts what the
// file holds.
class TestSetupBusiness : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void addressSurvivesStartAndStyleSwitch_data();
    void addressSurvivesStartAndStyleSwitch();
};

void TestSetupBusiness::addressSurvivesStartAndStyleSwitch_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("state");
    QTest::newRow("international: company, no postal code")
        << QByteArray("\"Acme Ltd\",\"1 High St\",\"\",\"London\",\"United Kingdom\",\"\","
                      "\"020-555-0100\",\"\",\"\"\r\n")
        << "International Style Address"
        << "United Kingdom";
    QTest::newRow("USA: postal code")
        << QByteArray("\"Acme\",\"1 Road\",\"\",\"Town\",\"IL\",\"60000\",\"555-0100\",\"\","
                      "\"\"\r\n")
        << "USA Style Address"
        << "IL";
}

void TestSetupBusiness::addressSurvivesStartAndStyleSwitch()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, style);
    QFETCH(QString, state);
    ProgramFolder f;
    f.put("MyBusinessData.txt", file);
    QVERIFY(LoadBusiness(f.ctx).ok());
    SetupBusinessTab tab(f.ctx);
    tab.BuildBusiness();
    QCOMPARE(tab.cmdAddress->text(), style);
    QCOMPARE(tab.txtBusiness[4]->text(), state);

    // Switching the style there and back keeps what the state box holds.
    tab.cmdAddress->click();
    QCOMPARE(tab.txtBusiness[4]->text(), state);
    tab.cmdAddress->click();
    QCOMPARE(tab.cmdAddress->text(), style);
    QCOMPARE(tab.txtBusiness[4]->text(), state);

    // What the setup exit writes is what the file held.
    for (int i = 0; i < 9; ++i)
        f.v.settings.txtBusiness[i] = tab.txtBusiness[i]->text();
    QCOMPARE(f.v.settings.txtBusiness[4], state);
    QVERIFY(SaveBusiness(f.ctx).ok());
    QCOMPARE(f.get("MyBusinessData.txt"), file);
}

QTEST_MAIN(TestSetupBusiness)
#include "test_setupbusiness.moc"
