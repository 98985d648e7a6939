#include "core/entry/keyfilters.h"
#include "scripteddialogs.h"

#include <QtTest>

using namespace tresvane;

class TestKeyFilters : public QObject
{
    Q_OBJECT
private slots:
    void nameKey_data();
    void nameKey();
    void quoteKey();
    void priceKey_data();
    void priceKey();
    void joinName_data();
    void joinName();
    void wheelStep_data();
    void wheelStep();
    void calendarMessage();
};

void TestKeyFilters::nameKey_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("passes");
    for (char c : QByteArray(",&.\\*/?"))
        QTest::addRow("refuses %c", c) << "Smith" << int(c) << false;
    QTest::newRow("letter") << "Smith" << int('a') << true;
    QTest::newRow("quote is not its business") << "Smith" << int('"') << true;
    QTest::newRow("backspace") << "Smith" << kBackspace << true;
    QTest::newRow("a number in the box lets a comma in") << "123" << int(',') << true;
    QTest::newRow("empty box refuses") << "" << int('.') << false;
}

void TestKeyFilters::nameKey()
{
    QFETCH(QString, box);
    QFETCH(int, key);
    QFETCH(bool, passes);
    ScriptedDialogs d;
    if (!passes)
        d.expect(QStringLiteral("This character, (") + QChar(key) + ") is invalid for this field",
                 "Invalid Key entry");
    QCOMPARE(CheckNameKey(key, box, d), passes ? key : 0);
    VERIFY_DIALOGS(d);
    QCOMPARE(d.beeps, passes ? 0 : 1);
}

void TestKeyFilters::quoteKey()
{
    ScriptedDialogs d;
    d.expect("This character, (\") is invalid for this field", "Invalid Key entry");
    QCOMPARE(CheckQuoteKey('"', "note", d), 0);
    QCOMPARE(CheckQuoteKey(',', "note", d), int(','));
    QCOMPARE(CheckQuoteKey(kBackspace, "note", d), kBackspace);
    VERIFY_DIALOGS(d);
}

void TestKeyFilters::priceKey_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("passes");
    QTest::newRow("leading zero") << "" << int('0') << false;
    QTest::newRow("zero after one") << "1" << int('0') << true;
    QTest::newRow("second point") << "12.5" << int('.') << false;
    QTest::newRow("first point") << "12" << int('.') << true;
    QTest::newRow("letter") << "12" << int('a') << false;
    QTest::newRow("dollar") << "" << int('$') << false;
    QTest::newRow("backspace is the caller's") << "12" << kBackspace << false;
}

void TestKeyFilters::priceKey()
{
    QFETCH(QString, box);
    QFETCH(int, key);
    QFETCH(bool, passes);
    QCOMPARE(CheckPriceKey(key, box), passes ? key : 0);
}

void TestKeyFilters::joinName_data()
{
    QTest::addColumn<QStringList>("parts");
    QTest::addColumn<QString>("joined");
    QTest::newRow("all") << QStringList{"Mr.", "John", "Q", "Public"} << "Mr. John Q. Public";
    QTest::newRow("blank title") << QStringList{"  ", "Ann", "", "Lee"} << "Ann Lee";
    QTest::newRow("no last name keeps the blank") << QStringList{"Ms", "Ann", "", ""} << "Ms Ann ";
    QTest::newRow("nothing") << QStringList{"", "", "", ""} << "";
}

void TestKeyFilters::joinName()
{
    QFETCH(QStringList, parts);
    QFETCH(QString, joined);
    QCOMPARE(JoinName(parts[0], parts[1], parts[2], parts[3]), joined);
}

void TestKeyFilters::wheelStep_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("visible");
    QTest::addColumn<int>("rotation");
    QTest::addColumn<int>("expected");
    QTest::newRow("fewer rows than a screen") << 1 << 5 << 20 << -120 << 1;
    QTest::newRow("up at the top") << 1 << 100 << 20 << 120 << 1;
    QTest::newRow("small grid steps 10") << 1 << 100 << 4 << -120 << 11;
    QTest::newRow("a screenful down") << 1 << 100 << 25 << -120 << 26;
    QTest::newRow("stops with the last row at the bottom") << 60 << 100 << 25 << -120 << 75;
    QTest::newRow("up a screenful") << 60 << 100 << 25 << 120 << 35;
}

void TestKeyFilters::wheelStep()
{
    QFETCH(int, top);
    QFETCH(int, rows);
    QFETCH(int, visible);
    QFETCH(int, rotation);
    QFETCH(int, expected);
    QCOMPARE(WheelTopRow(top, rows, visible, rotation), expected);
}

void TestKeyFilters::calendarMessage()
{
    ScriptedDialogs d;
    d.expect("Your Calendar Selection is Invalid", "");
    CalendarMessage(d);
    VERIFY_DIALOGS(d);
}

QTEST_GUILESS_MAIN(TestKeyFilters)
#include "test_keyfilters.moc"
