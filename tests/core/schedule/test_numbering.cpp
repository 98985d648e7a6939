#include "core/schedule/numbering.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

class TestNumbering : public QObject
{
    Q_OBJECT
private slots:
    void counterRollsOverOnAnyOtherDay_data();
    void counterRollsOverOnAnyOtherDay();
    void advanceStepsTheSequenceWithoutLookingAtTheDay();
    void sequencePast32767IsRefused();
    void continuousNumbers();
    void continuousPast32767IsRefused();
    void badSlipBoxLeavesTheNumberAlone_data();
    void badSlipBoxLeavesTheNumberAlone();
    void serviceSlipButtons();
    void keepSlipNumberSkipsOneStep();
};

void TestNumbering::counterRollsOverOnAnyOtherDay_data()
{
    QTest::addColumn<QByteArray>("stored"); // empty: no file
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QString>("confirmation");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("first start") << QByteArray() << QDate(2026, 4, 20) << "SA110-1"
                                 << QByteArray("\"110\",1\r\n");
    QTest::newRow("same day after three slips") << QByteArray("\"110\",4\r\n") << QDate(2026, 4, 20)
                                                << "SA110-4" << QByteArray("\"110\",4\r\n");
    QTest::newRow("next day") << QByteArray("\"110\",4\r\n") << QDate(2026, 4, 21) << "SA111-1"
                              << QByteArray("\"111\",1\r\n");
    QTest::newRow("clock set back") << QByteArray("\"111\",9\r\n") << QDate(2026, 4, 20)
                                    << "SA110-1" << QByteArray("\"110\",1\r\n");
    QTest::newRow("new year") << QByteArray("\"365\",7\r\n") << QDate(2027, 1, 1) << "SA1-1"
                              << QByteArray("\"1\",1\r\n");
    QTest::newRow("leap year end") << QByteArray("\"365\",2\r\n") << QDate(2028, 12, 31)
                                   << "SA366-1" << QByteArray("\"366\",1\r\n");
    QTest::newRow("exactly a year later, same day number")
        << QByteArray("\"110\",6\r\n") << QDate(2027, 4, 20) << "SA110-6"
        << QByteArray("\"110\",6\r\n");
}

void TestNumbering::counterRollsOverOnAnyOtherDay()
{
    QFETCH(QByteArray, stored);
    QFETCH(QDate, today);
    QFETCH(QString, confirmation);
    QFETCH(QByteArray, written);
    ProgramFolder f;
    if (!stored.isEmpty()) f.put("Counter.txt", stored);
    f.clock.setDate(today);
    QVERIFY(LoadCounter(f.ctx).ok());
    QCOMPARE(f.v.gCounterExists, !stored.isEmpty());
    QCOMPARE(f.v.gConfirmation, confirmation);
    QCOMPARE(f.get("Counter.txt"), written);
}

void TestNumbering::advanceStepsTheSequenceWithoutLookingAtTheDay()
{
    ProgramFolder f;
    f.clock.setDate(QDate(2026, 4, 20));
    QVERIFY(LoadCounter(f.ctx).ok());
    f.clock.setDate(QDate(2026, 4, 21)); // past midnight, still running
    QVERIFY(AdvanceSlipNumber(f.ctx).ok());
    QVERIFY(SaveCounter(f.ctx).ok());
    QCOMPARE(f.v.gConfirmation, QStringLiteral("SA110-2"));
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"110\",2\r\n"));
    QVERIFY(AdvanceSlipNumber(f.ctx).ok());
    f.put("Backup/Counter.txt", "stale");
    QVERIFY(SaveCounter(f.ctx).ok());
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"110\",3\r\n"));
    QVERIFY(!f.has("Backup/Counter.txt"));
}

void TestNumbering::sequencePast32767IsRefused()
{
    ProgramFolder f;
    f.clock.setDate(QDate(2026, 4, 20));
    f.put("Counter.txt", "\"110\",32767\r\n");
    QVERIFY(LoadCounter(f.ctx).ok());
    const auto before = f.snapshot();
    Status s = AdvanceSlipNumber(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY(s.message().contains("32767"));
    QCOMPARE(f.v.gSequence, qint16(32767));
    QCOMPARE(f.v.gConfirmation, QStringLiteral("SA110-32767"));
    QCOMPARE(f.snapshot(), before);
}

void TestNumbering::continuousNumbers()
{
    ProgramFolder f;
    f.v.settings.ckSlipStyle = 0;
    QVERIFY(LoadSlipNo(f.ctx).ok());
    QCOMPARE(f.v.settings.txtNextSlip, QStringLiteral("1000"));
    QVERIFY(AdvanceSlipNumber(f.ctx).ok());
    QCOMPARE(f.v.gNextSlip, qint16(1001));
    QCOMPARE(f.get("SlipNo.txt"), QByteArray("1001\r\n"));
    // The confirmation is formed again only when the number is loaded.
    QCOMPARE(f.v.gConfirmation, QStringLiteral("1000"));
    QVERIFY(LoadSlipNo(f.ctx).ok());
    QCOMPARE(f.v.gConfirmation, QStringLiteral("1001"));
}

void TestNumbering::continuousPast32767IsRefused()
{
    ProgramFolder f;
    f.v.settings.ckSlipStyle = 0;
    f.put("SlipNo.txt", "32767\r\n");
    QVERIFY(LoadSlipNo(f.ctx).ok());
    QVERIFY(!AdvanceSlipNumber(f.ctx).ok());
    QCOMPARE(f.v.gNextSlip, qint16(32767));
    QCOMPARE(f.v.settings.txtNextSlip, QStringLiteral("32767"));
    QCOMPARE(f.get("SlipNo.txt"), QByteArray("32767\r\n"));
}

void TestNumbering::badSlipBoxLeavesTheNumberAlone_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("message");
    QTest::newRow("word") << "abc"
                          << "The Slip Number MUST be Numeric";
    QTest::newRow("empty") << ""
                           << "The Slip Number MUST be Numeric";
    QTest::newRow("too large") << "40000"
                               << "The Slip Number can not be larger than 32767";
}

void TestNumbering::badSlipBoxLeavesTheNumberAlone()
{
    QFETCH(QString, box);
    QFETCH(QString, message);
    ProgramFolder f;
    f.put("SlipNo.txt", "1500\r\n");
    QVERIFY(LoadSlipNo(f.ctx).ok());
    f.v.settings.txtNextSlip = box;
    f.dialogs.expect(message, "");
    QVERIFY(!SaveSlipNo(f.ctx).ok());
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(f.v.settings.SlipNumberBad);
    QCOMPARE(f.v.gNextSlip, qint16(1500));
    QCOMPARE(f.get("SlipNo.txt"), QByteArray("1500\r\n"));
}

void TestNumbering::serviceSlipButtons()
{
    ProgramFolder f;
    f.v.gNextSlip = 1234;
    f.put("SlipNo.txt", "999\r\n");
    f.v.settings.txtNextSlip = "55";
    ServiceSlipButton(f.v, 0);
    QCOMPARE(f.v.settings.txtNextSlip, QString());
    ServiceSlipButton(f.v, 1);
    QCOMPARE(f.v.settings.txtNextSlip, QStringLiteral("1000"));
    // Reload takes the number in memory, not the file.
    ServiceSlipButton(f.v, 2);
    QCOMPARE(f.v.settings.txtNextSlip, QStringLiteral("1234"));
    // Reset, then the setup exit stores 1000.
    ServiceSlipButton(f.v, 1);
    f.v.settings.ckSlipStyle = 0;
    QVERIFY(SaveSlipNo(f.ctx).ok());
    QCOMPARE(f.get("SlipNo.txt"), QByteArray("1000\r\n"));
}

void TestNumbering::keepSlipNumberSkipsOneStep()
{
    ProgramFolder f;
    f.clock.setDate(QDate(2026, 1, 5));
    QVERIFY(LoadCounter(f.ctx).ok());
    f.v.gKeepSlipNumber = true;
    QVERIFY(AdvanceSlipNumber(f.ctx).ok());
    QCOMPARE(f.v.gConfirmation, QStringLiteral("SA5-1"));
    QVERIFY(!f.v.gKeepSlipNumber);
    QVERIFY(AdvanceSlipNumber(f.ctx).ok());
    QCOMPARE(f.v.gConfirmation, QStringLiteral("SA5-2"));
}

QTEST_GUILESS_MAIN(TestNumbering)
#include "test_numbering.moc"
