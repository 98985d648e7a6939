#include "screens/shell/screenframe.h"

#include <QtTest>

using namespace tresvane;

// Where a window lands: a place kept from a larger or unplugged screen is brought back,
// a first showing is centred, and a window never reaches past the available area (the
// panel of the desktop excluded), title bar included.
class TestScreenPlace : public QObject
{
    Q_OBJECT
private slots:
    void placeOnScreen_data();
    void placeOnScreen();
};

void TestScreenPlace::placeOnScreen_data()
{
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<bool>("centre");
    QTest::addColumn<QRect>("expected");

    const QRect laptop(0, 0, 1440, 860); // 1440x900 less a 40 px panel
    QTest::newRow("inside stays") << QRect(100, 100, 800, 600) << laptop << false
                                  << QRect(100, 100, 800, 600);
    QTest::newRow("below the bottom moves up")
        << QRect(100, 500, 800, 600) << laptop << false << QRect(100, 256, 800, 600);
    QTest::newRow("kept from a wider screen")
        << QRect(2500, 40, 800, 600) << laptop << false << QRect(636, 40, 800, 600);
    QTest::newRow("under the title bar room")
        << QRect(10, 0, 800, 600) << laptop << false << QRect(10, 32, 800, 600);
    QTest::newRow("taller than the screen shrinks")
        << QRect(0, 0, 1000, 1000) << laptop << false << QRect(4, 32, 1000, 824);
    QTest::newRow("first showing is centred")
        << QRect(0, 0, 800, 600) << laptop << true << QRect(320, 144, 800, 600);
    QTest::newRow("second screen to the right")
        << QRect(3000, 100, 800, 600) << QRect(1920, 0, 1920, 1080) << false
        << QRect(3000, 100, 800, 600);
}

void TestScreenPlace::placeOnScreen()
{
    QFETCH(QRect, window);
    QFETCH(QRect, available);
    QFETCH(bool, centre);
    QFETCH(QRect, expected);
    QCOMPARE(PlaceOnScreen(window, available, centre), expected);
}

QTEST_GUILESS_MAIN(TestScreenPlace)
#include "test_screenplace.moc"
