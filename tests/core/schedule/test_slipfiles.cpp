#include "core/schedule/booking.h"
#include "core/schedule/slipfiles.h"
#include "programfolder.h"
#include "screenrequest.h"

#include <QtTest>

using namespace tresvane;

// A text blank-padded to its width, as the record holds it.
static QByteArray pad(const QByteArray& text, int width)
{
    return text.leftJustified(width, ' ', true);
}

// A slip record as an installation holds it, laid down field by field.
static QByteArray slip(const QByteArray& type, const QByteArray& confirmation,
                       const QByteArray& date, const QByteArray& reference = "Leaking tap",
                       const QByteArray& name = "Ada Byron")
{
    return pad(type, 10) + pad(confirmation, 10) + pad("3", 2) + pad("Hours", 6) + pad("2", 2) +
           pad(date, 10) + pad("4", 2) + pad(reference, 30) + pad("Scheduled", 20) + pad("", 20) +
           pad("", 20) + pad("$0.00", 10) + pad("A-100", 20) + pad(name, 30) +
           pad("12 Mill Road", 35) + pad("Flat 2", 25) + pad("Greenfield", 20) + pad("OH", 2) +
           pad("45123", 10) + pad("(555)123-4567", 13);
}

class TestSlipFiles : public QObject
{
    Q_OBJECT
private slots:
    void serviceSlipByteForByte();
    void meetingReferenceIsCut();
    void otherModesKeepTypeAndNumber();
    void fieldsOfAHandWrittenRecord_data();
    void fieldsOfAHandWrittenRecord();
    void countRoundsAPartialRecord_data();
    void countRoundsAPartialRecord();
    void appendAfterAPartialRecord_data();
    void appendAfterAPartialRecord();
    void appendBringsALostFileBackFirst();
    void deletingTheOnlySlipLeavesAnEmptyFile();
    void droppingKeepsTheOrderOfTheRest();
    void unscheduledDelete_data();
    void unscheduledDelete();
};

void TestSlipFiles::serviceSlipByteForByte()
{
    ProgramFolder f;
    f.v.Mode = Mode::ServiceSlip;
    f.v.CurrentTeam = "3";
    f.v.current.account = "A-100";
    f.v.current.name = "Bartholomew Featherstonehaugh X"; // 31 characters
    f.v.current.address1 = "12 Mill Road";
    f.v.current.address2 = "Flat 2";
    f.v.current.city = "Greenfield";
    f.v.current.state = "OH";
    f.v.current.zip = "45123";
    f.v.current.phone = "(555)123-4567";
    BookingRequest screen = ScreenRequest(f.ctx, QDate(2026, 4, 30));
    screen.unit = "Hours";
    screen.hours = "2";
    screen.firstSlot = 4;
    screen.number = "SA120-7";
    screen.problem = "Leaking tap";
    screen.eventText = "SA120-7 Bartholomew";
    FillSlipRecord(f.v.gSlip, screen);

    const QByteArray expected =
        QByteArray("Service   ") + "SA120-7   " + "3 " + "Hours " + "2 " + "04/30/2026" + "4 " +
        "Leaking tap                   " + "Scheduled           " + QByteArray(20, ' ') +
        QByteArray(20, ' ') + "$0.00     " + "A-100               " +
        "Bartholomew Featherstonehaugh " + "12 Mill Road                       " +
        "Flat 2                   " + "Greenfield          " + "OH" + "45123     " +
        "(555)123-4567";
    QCOMPARE(expected.size(), 297);
    QCOMPARE(f.v.gSlip.bytes(), expected);

    QVERIFY(!f.has("Slips.txt"));
    QCOMPARE(CountSlipRecords(f.store, SlipsFileName()).valueOr(-1), 0);
    QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength, f.v.gSlip.bytes()).ok());
    QCOMPARE(f.get("Slips.txt"), expected);
    QCOMPARE(CountSlipRecords(f.store, SlipsFileName()).valueOr(-1), 1);
    QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength, f.v.gSlip.bytes()).ok());
    QCOMPARE(f.get("Slips.txt"), expected + expected);
    QCOMPARE(CountSlipRecords(f.store, SlipsFileName()).valueOr(-1), 2);
}

void TestSlipFiles::meetingReferenceIsCut()
{
    ProgramFolder f;
    f.v.Mode = Mode::Meeting;
    f.v.gSlip.setText(SlipField::ConfirmationNo, "SA1-1"); // left by an earlier slip
    BookingRequest screen = ScreenRequest(f.ctx, QDate(2026, 1, 2));
    screen.unit = "Hours";
    screen.hours = "1";
    screen.firstSlot = 7;
    screen.problem = "not used for meetings";
    screen.eventText = "Mtg - 01:00 - Maximilian Featherstonehaugh";
    FillSlipRecord(f.v.gSlip, screen);
    const QByteArray bytes = f.v.gSlip.bytes();
    QCOMPARE(bytes.mid(0, 10), QByteArray("Meeting   "));
    QCOMPARE(bytes.mid(10, 10), QByteArray(10, ' '));
    QCOMPARE(bytes.mid(30, 10), QByteArray("01/02/2026"));
    QCOMPARE(bytes.mid(40, 2), QByteArray("7 "));
    QCOMPARE(bytes.mid(42, 30), QByteArray("Mtg - 01:00 - Maximilian Feath"));
}

void TestSlipFiles::otherModesKeepTypeAndNumber()
{
    ProgramFolder f;
    f.v.Mode = Mode::StoredSlips;
    f.v.gSlip.setText(SlipField::RecType, "Reoccuring");
    f.v.gSlip.setText(SlipField::ConfirmationNo, "SA5-2");
    f.v.gSlip.setText(SlipField::Reference, "old text");
    BookingRequest screen = ScreenRequest(f.ctx, QDate(2026, 1, 2));
    screen.problem = "Leaking tap";
    FillSlipRecord(f.v.gSlip, screen);
    QCOMPARE(f.v.gSlip.text(SlipField::RecType), QString("Reoccuring"));
    QCOMPARE(f.v.gSlip.text(SlipField::ConfirmationNo), QString("SA5-2"));
    QCOMPARE(f.v.gSlip.text(SlipField::Reference), QString());
}

void TestSlipFiles::fieldsOfAHandWrittenRecord_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("RecType") << int(SlipField::RecType) << "Service";
    QTest::newRow("ConfirmationNo") << int(SlipField::ConfirmationNo) << "SA120-7";
    QTest::newRow("TeamNo") << int(SlipField::TeamNo) << "3";
    QTest::newRow("TimeUnit") << int(SlipField::TimeUnit) << "Hours";
    QTest::newRow("Hours") << int(SlipField::Hours) << "2";
    QTest::newRow("EventDate") << int(SlipField::EventDate) << "04/30/2026";
    QTest::newRow("StartSlot") << int(SlipField::StartSlot) << "4";
    QTest::newRow("Reference") << int(SlipField::Reference) << "Leaking tap";
    QTest::newRow("Status") << int(SlipField::Status) << "Scheduled";
    QTest::newRow("Reserved20") << int(SlipField::Reserved20) << "";
    QTest::newRow("PaymentForm") << int(SlipField::PaymentForm) << "";
    QTest::newRow("Amount") << int(SlipField::Amount) << "$0.00";
    QTest::newRow("AcctNo") << int(SlipField::AcctNo) << "A-100";
    QTest::newRow("Name") << int(SlipField::Name) << "Ada Byron";
    QTest::newRow("Street") << int(SlipField::Street) << "12 Mill Road";
    QTest::newRow("Apt") << int(SlipField::Apt) << "Flat 2";
    QTest::newRow("City") << int(SlipField::City) << "Greenfield";
    QTest::newRow("St") << int(SlipField::St) << "OH";
    QTest::newRow("Zip") << int(SlipField::Zip) << "45123";
    QTest::newRow("Tel") << int(SlipField::Tel) << "(555)123-4567";
}

void TestSlipFiles::fieldsOfAHandWrittenRecord()
{
    QFETCH(int, field);
    QFETCH(QString, text);
    ProgramFolder f;
    f.put("Slips.txt",
          slip("Service", "SA1-1", "01/05/2026") + slip("Service", "SA120-7", "04/30/2026"));
    Result<QList<SlipRecord>> records = ReadSlipRecords(f.store, "/slips.TXT");
    QVERIFY(records.ok());
    QCOMPARE(records->size(), 2);
    QCOMPARE(records->at(1).text(field), text);
}

void TestSlipFiles::countRoundsAPartialRecord_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("count");
    QTest::newRow("empty") << 0 << 0;
    QTest::newRow("under half a record") << 148 << 0;
    QTest::newRow("over half a record") << 149 << 1;
    QTest::newRow("one short of a record") << 296 << 1;
    QTest::newRow("two and a bit") << 2 * 297 + 10 << 2;
    QTest::newRow("two and most of a third") << 2 * 297 + 200 << 3;
}

void TestSlipFiles::countRoundsAPartialRecord()
{
    QFETCH(int, bytes);
    QFETCH(int, count);
    ProgramFolder f;
    f.put("Meetings.txt", QByteArray(bytes, 'x'));
    QCOMPARE(CountSlipRecords(f.store, MeetingsFileName()).valueOr(-1), count);
    QCOMPARE(f.get("Meetings.txt").size(), bytes); // counting writes nothing
}

void TestSlipFiles::appendAfterAPartialRecord_data()
{
    QTest::addColumn<int>("tail");
    QTest::addColumn<QByteArray>("between"); // what lies between record 1 and the new one
    QTest::newRow("a short fragment is overwritten") << 100 << QByteArray();
    QTest::newRow("a long fragment is kept") << 200 << QByteArray(200, 'y') + QByteArray(97, '\0');
}

void TestSlipFiles::appendAfterAPartialRecord()
{
    QFETCH(int, tail);
    QFETCH(QByteArray, between);
    ProgramFolder f;
    const QByteArray first = slip("Service", "SA1-1", "01/05/2026");
    const QByteArray second = slip("Service", "SA1-2", "01/05/2026");
    f.put("Slips.txt", first + QByteArray(tail, 'y'));
    f.v.gSlip = SlipRecord(second);
    QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength, f.v.gSlip.bytes()).ok());
    QCOMPARE(f.get("Slips.txt"), first + between + second);
}

void TestSlipFiles::appendBringsALostFileBackFirst()
{
    ProgramFolder f;
    const QByteArray old = slip("Service", "SA1-1", "01/05/2026");
    f.put("Backup/Slips.txt", old);
    f.v.gSlip = SlipRecord(slip("Service", "SA1-2", "01/05/2026"));
    QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength, f.v.gSlip.bytes()).ok());
    QCOMPARE(f.get("Slips.txt"), old + f.v.gSlip.bytes());
}

void TestSlipFiles::deletingTheOnlySlipLeavesAnEmptyFile()
{
    ProgramFolder f;
    f.put("Slips.txt", slip("Service", "SA9-1", "01/05/2026"));
    f.put("Backup/Slips.txt", slip("Service", "SA9-1", "01/05/2026"));
    Result<qint32> dropped =
        DropSlipRecords(f.store, SlipsFileName(), [](const SlipRecord& r, qint32) {
            return r.text(SlipField::ConfirmationNo) == "SA9-1";
        });
    QVERIFY(dropped.ok());
    QCOMPARE(*dropped, 1);
    QVERIFY(f.has("Slips.txt"));
    QCOMPARE(f.get("Slips.txt"), QByteArray());
    QVERIFY(!f.has("TemporaryFile.txt"));
    QVERIFY(!f.has("Backup/Slips.txt")); // the dropped slip cannot come back from there
}

void TestSlipFiles::droppingKeepsTheOrderOfTheRest()
{
    ProgramFolder f;
    const QByteArray a = slip("Service", "SA9-1", "01/05/2026");
    const QByteArray b = slip("Service", "SA9-2", "01/05/2026");
    const QByteArray c = slip("Service", "SA9-3", "01/05/2026");
    f.put("Slips.txt", a + b + c);
    Result<qint32> dropped = DropSlipRecords(f.store, SlipsFileName(),
                                             [](const SlipRecord&, qint32 n) { return n == 2; });
    QVERIFY(dropped.ok());
    QCOMPARE(f.get("Slips.txt"), a + c);

    // A file that is not there stays away.
    QVERIFY(DropSlipRecords(f.store, MeetingsFileName(), [](const SlipRecord&, qint32) {
                return true;
            }).ok());
    QVERIFY(!f.has("Meetings.txt"));
}

void TestSlipFiles::unscheduledDelete_data()
{
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("row");
    QTest::addColumn<QList<int>>("kept"); // 0-based indexes of the records that stay
    QTest::newRow("the only slip: the file goes") << 1 << 1 << QList<int>{};
    QTest::newRow("first of two") << 2 << 1 << QList<int>{1};
    QTest::newRow("last of three") << 3 << 3 << QList<int>{0, 1};
    QTest::newRow("row 0 matches nothing") << 2 << 0 << QList<int>{0, 1};
}

void TestSlipFiles::unscheduledDelete()
{
    QFETCH(int, records);
    QFETCH(int, row);
    QFETCH(QList<int>, kept);
    ProgramFolder f;
    QList<QByteArray> all;
    QByteArray file;
    for (int i = 0; i < records; ++i) {
        all << slip("Service", "SA2-" + QByteArray::number(i + 1), "02/01/2026");
        file += all.back();
    }
    // Stored under the other spelling the program also uses for it.
    f.put("UnScheduledSlips.txt", file);
    f.put("Backup/UnScheduledSlips.txt", file);
    QVERIFY(DeleteUnscheduledSlip(f.store, row).ok());
    QVERIFY(!f.has("TemporaryFile.txt"));
    if (kept.isEmpty()) {
        QVERIFY(!f.has("UnScheduledSlips.txt"));
        QVERIFY(!f.store.FileExists(UnscheduledSlipsFileName()));
        return;
    }
    QByteArray expected;
    for (int i : kept)
        expected += all[i];
    QCOMPARE(f.get("UnScheduledSlips.txt"), expected);
}

QTEST_GUILESS_MAIN(TestSlipFiles)
#include "test_slipfiles.moc"
