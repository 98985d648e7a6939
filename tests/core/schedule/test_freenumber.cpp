#include "core/io/sliprecord.h"
#include "core/schedule/freenumber.h"
#include "core/schedule/numbering.h"
#include "core/schedule/slipfiles.h"
#include "core/sliprecords/deletecallrec.h"
#include "programfolder.h"
#include "sampleinstallation.h"

#include <QtTest>

using namespace tresvane;

// A slip record carrying only the fields a number check and a delete look at.
static QByteArray slipWithNumber(const QByteArray& number, const QByteArray& recType = "Service")
{
    QByteArray r(297, ' ');
    r.replace(0, recType.size(), recType);
    r.replace(10, qMin<qsizetype>(number.size(), 10), number.left(10));
    return r;
}

class TestFreeNumber : public QObject
{
    Q_OBJECT
private slots:
    void numbersOnFileAreSkipped_data();
    void numbersOnFileAreSkipped();
    void userIsToldOncePerRun();
    void stepPastTheLimitChangesNothing();
    void sampleBookingThenDeleteKeepsTheSample();
};

void TestFreeNumber::numbersOnFileAreSkipped_data()
{
    QTest::addColumn<int>("style"); // 1 program numbers, 0 running numbers
    QTest::addColumn<QByteArray>("slips");
    QTest::addColumn<QByteArray>("meetings");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("told");

    const QByteArray none;
    QTest::newRow("free number stays")
        << 1 << slipWithNumber("SA120-2") << none << "SA120-3" << false;
    QTest::newRow("counter went back")
        << 1 << slipWithNumber("SA120-3") + slipWithNumber("SA120-4") + slipWithNumber("SA120-6")
        << none << "SA120-5" << true;
    QTest::newRow("number in the meetings file")
        << 1 << none << slipWithNumber("SA120-3") << "SA120-4" << true;
    QTest::newRow("another day's number is no clash")
        << 1 << slipWithNumber("SA121-3") << none << "SA120-3" << false;
    QTest::newRow("blank meeting numbers are no clash")
        << 1 << none << slipWithNumber("", "Meeting") << "SA120-3" << false;
    // The running scheme forms its number at load only: once used, the running number
    // is taken quietly.
    QTest::newRow("running number lagging")
        << 0 << slipWithNumber("1000") << none << "1001" << false;
    QTest::newRow("running number taken")
        << 0 << slipWithNumber("1000") + slipWithNumber("1001") + slipWithNumber("1002") << none
        << "1003" << true;
}

void TestFreeNumber::numbersOnFileAreSkipped()
{
    QFETCH(int, style);
    QFETCH(QByteArray, slips);
    QFETCH(QByteArray, meetings);
    QFETCH(QString, expected);
    QFETCH(bool, told);
    ProgramFolder f;
    if (!slips.isEmpty()) f.put("Slips.txt", slips);
    if (!meetings.isEmpty()) f.put("Meetings.txt", meetings);
    f.v.settings.ckSlipStyle = style;
    if (style == 1) {
        f.put("Counter.txt", "\"120\",3\r\n");
        QVERIFY(LoadCounter(f.ctx).ok());
    } else {
        f.put("SlipNo.txt", "1000\r\n");
        QVERIFY(LoadSlipNo(f.ctx).ok());
        f.v.gNextSlip = 1001; // one slip saved this run: the running number moved on
        f.v.settings.txtNextSlip = "1001";
    }
    if (told) f.dialogs.expectContaining("is already used by a slip on file");
    QVERIFY(TakeFreeConfirmation(f.ctx).ok());
    QCOMPARE(f.v.gConfirmation, expected);
    VERIFY_DIALOGS(f.dialogs);
    // The number stepped past is stored, so a restart does not go back to it.
    if (told && style == 1)
        QCOMPARE(f.get("Counter.txt"),
                 QByteArray("\"120\",") + expected.section(u'-', 1).toLatin1() + "\r\n");
    if (told && style == 0) QCOMPARE(f.get("SlipNo.txt"), expected.toLatin1() + "\r\n");
}

void TestFreeNumber::userIsToldOncePerRun()
{
    ProgramFolder f;
    f.put("Slips.txt",
          slipWithNumber("SA120-1") + slipWithNumber("SA120-2") + slipWithNumber("SA120-4"));
    f.put("Counter.txt", "\"120\",1\r\n");
    f.v.settings.ckSlipStyle = 1;
    QVERIFY(LoadCounter(f.ctx).ok());
    f.dialogs.expect("The confirmation number SA120-1 is already used by a slip on file.\n"
                     "This slip gets the next free number, SA120-3.",
                     "Confirmation Number");
    QVERIFY(TakeFreeConfirmation(f.ctx).ok());
    f.put("Slips.txt", f.get("Slips.txt") + slipWithNumber("SA120-3"));
    // The next booking of the run passes 4 without a second message.
    QVERIFY(AdvanceSlipNumber(f.ctx).ok());
    QVERIFY(TakeFreeConfirmation(f.ctx).ok());
    QCOMPARE(f.v.gConfirmation, QStringLiteral("SA120-5"));
    VERIFY_DIALOGS(f.dialogs);
}

void TestFreeNumber::stepPastTheLimitChangesNothing()
{
    ProgramFolder f;
    f.put("Slips.txt", slipWithNumber("SA120-32767"));
    f.put("Counter.txt", "\"120\",32767\r\n");
    f.v.settings.ckSlipStyle = 1;
    QVERIFY(LoadCounter(f.ctx).ok());
    const Status s = TakeFreeConfirmation(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY(s.message().contains("No number was changed"));
    QCOMPARE(f.v.gConfirmation, QStringLiteral("SA120-32767"));
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"120\",32767\r\n"));
}

void TestFreeNumber::sampleBookingThenDeleteKeepsTheSample()
{
    // A sample installation started on the day it was made: the first booking takes a
    // number of its own, so deleting that booking leaves every sample slip in place.
    ProgramFolder f;
    SampleOptions o;
    o.customers = 30;
    o.slips = 120;
    o.start = f.clock.today();
    QVERIFY(WriteSampleInstallation(f.root(), o).ok());
    const QByteArray sampleSlips = f.get("Slips.txt");
    f.v.settings.ckSlipStyle = 1;
    QVERIFY(LoadCounter(f.ctx).ok());
    QVERIFY(TakeFreeConfirmation(f.ctx).ok()); // nothing to skip: no message expected
    Result<QSet<QByteArray>> onFile = ConfirmationNumbersOnFile(f.store);
    QVERIFY(onFile.ok());
    QVERIFY(!onFile->contains(f.v.gConfirmation.toLatin1()));

    f.v.gSlip = SlipRecord(slipWithNumber(f.v.gConfirmation.toLatin1()));
    f.v.gSlip.setText(SlipField::TeamNo, QStringLiteral("1"));
    f.v.gSlip.setText(SlipField::EventDate, f.clock.today().toString("MM/dd/yyyy"));
    QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength, f.v.gSlip.bytes()).ok());
    CallRecordOnShow shown;
    shown.EventKind = QStringLiteral("Service");
    QVERIFY(DeleteCallRec(f.ctx, shown, 0).ok());
    QCOMPARE(f.get("Slips.txt"), sampleSlips);
    VERIFY_DIALOGS(f.dialogs);
}

QTEST_GUILESS_MAIN(TestFreeNumber)
#include "test_freenumber.moc"
