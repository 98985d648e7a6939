#include "screens/shell/flexgrid.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/qtdialogs.h"
#include "screens/shell/screenframe.h"
#include "scripteddialogs.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest>

using namespace tresvane;

class TestShellWidgets : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void fiftyThousandRowsFillAtOnce();
    void sortByTextAndByNumber();
    void cellStylesTravelWithTheirRow();
    void wheelMovesAtLeastTenRows();
    void wheelOnAShortGridStaysAtTheTop();
    void priceBoxDropsKeysSilently();
    void nameBoxRefusesWithAMessage();
    void resetScreenByTags();
    void messageHandsTheScreenBack();
};

void TestShellWidgets::fiftyThousandRowsFillAtOnce()
{
    FlexGrid grid;
    grid.resize(600, 400);
    grid.show();
    QList<QStringList> rows;
    rows.reserve(50000);
    for (int i = 0; i < 50000; ++i)
        rows << QStringList{QString::number(i), QStringLiteral("Customer %1").arg(i), "IL"};
    QElapsedTimer t;
    t.start();
    grid.setRows(std::move(rows));
    QCoreApplication::processEvents();
    grid.setTopRow(49990);
    grid.sortByNumber(0, Qt::DescendingOrder);
    QCoreApplication::processEvents();
    QVERIFY2(t.elapsed() < 1000, qPrintable(QString::number(t.elapsed())));
    QCOMPARE(grid.rows(), 50000);
    QCOMPARE(grid.textMatrix(0, 0), QString("49999"));
}

void TestShellWidgets::sortByTextAndByNumber()
{
    FlexGrid grid;
    grid.setHeadings({"No", "Name"});
    grid.setRows({{"10", "beta"}, {"9", "Alpha"}, {"100", "alpha"}, {"$1,000.50", "Gamma"}});
    grid.sortByText(0);
    QCOMPARE(grid.textMatrix(0, 0), QString("$1,000.50"));
    QCOMPARE(grid.textMatrix(1, 0), QString("10"));
    grid.sortByNumber(0);
    QStringList order;
    for (int r = 0; r < grid.rows(); ++r)
        order << grid.textMatrix(r, 0);
    QCOMPARE(order, (QStringList{"9", "10", "100", "$1,000.50"}));
    // Text sorting ignores case and keeps equal rows in their order.
    grid.sortByText(1);
    QCOMPARE(grid.textMatrix(0, 1), QString("Alpha"));
    QCOMPARE(grid.textMatrix(1, 1), QString("alpha"));
    QCOMPARE(grid.grid()->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
             QString("Name"));
}

void TestShellWidgets::cellStylesTravelWithTheirRow()
{
    FlexGrid grid;
    grid.setRows({{"2", "b"}, {"1", "a"}});
    grid.grid()->setBackColor(0, 1, Qt::red);
    grid.grid()->setAlignment(0, 0, Qt::AlignRight);
    grid.sortByNumber(0);
    const QModelIndex moved = grid.model()->index(1, 1);
    QCOMPARE(moved.data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::red));
    QCOMPARE(grid.model()->index(1, 0).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight));
    QVERIFY(!grid.model()->index(0, 1).data(Qt::BackgroundRole).isValid());
}

static void turnWheel(FlexGrid& grid, int delta)
{
    const QPointF pos(10, 10);
    QWheelEvent e(pos, grid.viewport()->mapToGlobal(pos), QPoint(), QPoint(0, delta), Qt::NoButton,
                  Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(grid.viewport(), &e);
}

void TestShellWidgets::wheelMovesAtLeastTenRows()
{
    FlexGrid grid;
    QList<QStringList> rows;
    for (int i = 0; i < 200; ++i)
        rows << QStringList{QString::number(i)};
    grid.setRows(rows);
    // A view of about three rows still moves ten per notch.
    grid.resize(300, grid.horizontalHeader()->height() +
                         3 * grid.verticalHeader()->defaultSectionSize() + 4);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    QVERIFY(grid.visibleRows() < 10);
    turnWheel(grid, -120);
    QCOMPARE(grid.topRow(), 10);
    turnWheel(grid, -240);
    QCOMPARE(grid.topRow(), 30);
    turnWheel(grid, 120);
    QCOMPARE(grid.topRow(), 20);
    turnWheel(grid, 600);
    QCOMPARE(grid.topRow(), 0);

    // A tall view moves a screenful.
    grid.resize(300, grid.horizontalHeader()->height() +
                         25 * grid.verticalHeader()->defaultSectionSize() + 4);
    QCoreApplication::processEvents();
    const int screenful = grid.visibleRows();
    QVERIFY(screenful >= 20);
    turnWheel(grid, -120);
    QCOMPARE(grid.topRow(), screenful);
}

void TestShellWidgets::wheelOnAShortGridStaysAtTheTop()
{
    FlexGrid grid;
    grid.setRows({{"a"}, {"b"}, {"c"}});
    grid.resize(300, 400);
    grid.show();
    turnWheel(grid, -120);
    QCOMPARE(grid.topRow(), 0);
}

void TestShellWidgets::priceBoxDropsKeysSilently()
{
    ScriptedDialogs d;
    QLineEdit box;
    WireKeyFilter(&box, KeyFilterKind::Price, d);
    QTest::keyClicks(&box, "0a12.5.0x");
    QCOMPARE(box.text(), QString("12.50"));
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.text(), QString("12.5"));
    VERIFY_DIALOGS(d);
}

void TestShellWidgets::nameBoxRefusesWithAMessage()
{
    ScriptedDialogs d;
    QLineEdit box;
    WireKeyFilter(&box, KeyFilterKind::NameAndQuote, d);
    d.expect("This character, (,) is invalid for this field", "Invalid Key entry");
    d.expect("This character, (\") is invalid for this field", "Invalid Key entry");
    d.expect("This character, (\") is invalid for this field", "Invalid Key entry");
    QTest::keyClicks(&box, "Smith, \"Jr\"");
    QCOMPARE(box.text(), QString("Smith Jr"));
    VERIFY_DIALOGS(d);
    QCOMPARE(d.beeps, 3);
    // A box that holds a number takes a comma.
    box.setText("123");
    QTest::keyClicks(&box, ",");
    QCOMPARE(box.text(), QString("123,"));
}

void TestShellWidgets::resetScreenByTags()
{
    QWidget form;
    auto* hide = new QPushButton(&form);
    hide->setProperty("Tag", "Hide");
    auto* instruction = new QPushButton(&form);
    instruction->setProperty("Tag", "Instruction");
    auto* button = new QPushButton(&form);
    button->setProperty("Tag", "Button");
    auto* plain = new QPushButton(&form);
    form.show();
    ResetScreen(&form);
    QVERIFY(hide->isHidden());
    QVERIFY(instruction->isHidden());
    QVERIFY(!button->isHidden() && !button->isEnabled());
    QVERIFY(!plain->isHidden() && plain->isEnabled());
}

// A message shown while a screen that has just come up is not active yet belongs to that
// screen, and the screen is active again when the message is answered, so what the user
// types next goes to the box the screen gives the focus.
void TestShellWidgets::messageHandsTheScreenBack()
{
    QWidget screen;
    auto* box = new QLineEdit(&screen);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    QApplication::setActiveWindow(nullptr);
    QWidget* owner = nullptr;
    QTimer::singleShot(0, [&owner] {
        auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!shown) return;
        owner = shown->parentWidget();
        shown->button(QMessageBox::Ok)->click();
    });
    QtDialogs qt;
    Dialogs& dialogs = qt;
    QCOMPARE(dialogs.message("Your Customer File is Empty", "Create Customers"),
             Dialogs::Answer::Ok);
    QCOMPARE(owner, &screen);
    box->setFocus();
    QTRY_COMPARE(QApplication::activeWindow(), &screen);
    QTest::keyClicks(QApplication::focusWidget(), "A-100");
    QCOMPARE(box->text(), QString("A-100"));
}

QTEST_MAIN(TestShellWidgets)
#include "test_shellwidgets.moc"
