#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/slipfiles.h"
#include "programfolder.h"
#include "screenrequest.h"

#include <QtTest>

using namespace tresvane;

using Answer = Dialogs::Answer;

namespace
{

// A customer in hand and a counter standing at SA120-1, as after the customer screen.
void customerInHand(ProgramFolder& f, qint16 mode)
{
    f.v.Mode = Mode(mode);
    f.v.CurrentTeam = "2";
    f.v.current.account = "A-100";
    f.v.current.name = "Ada Byron";
    f.v.current.address1 = "12 Mill Road";
    f.v.current.city = "Greenfield";
    f.v.current.state = "OH";
    f.v.current.zip = "45123";
    f.v.current.phone = "(555)123-4567";
    f.v.settings.ckSlipStyle = 1;
    f.v.gJulianDay = "120";
    f.v.gSequence = 1;
    f.v.gConfirmation = "SA120-1";
}

// The screen after a click on `row` with `hours` hours: the text on the grid, WriteSlots run.
BookingRequest clicked(ProgramFolder& f, const QString& text, int row, int hours)
{
    GridColumn grid;
    grid.fill(NoEventScheduled());
    for (int r = row; r < row + hours; ++r)
        grid[r - 1] = text;
    WriteSlots(f.v, grid);
    BookingRequest s = ScreenRequest(f.ctx, QDate(2026, 5, 5));
    s.eventText = text;
    s.hours = QString::number(hours);
    s.firstSlot = row;
    s.number = f.v.gConfirmation;
    s.problem = "Leaking tap";
    return s;
}
} // namespace

class TestBooking : public QObject
{
    Q_OBJECT
private slots:
    void nextWorkDay_data();
    void nextWorkDay();
    void openingDate_data();
    void openingDate();
    void calendarRefusesThePast();
    void calendarMakesALaterYearsFolders();
    void noTimeSelectedWritesNothing();
    void storedSlipKeepsTheNumber();
    void lastStoredSlipScheduledRemovesTheFile();
    void failedRecordWriteTakesNoNumber();
    void noDayFileWritesNothing();
    void numberAtItsLimitSavesNothing_data();
    void numberAtItsLimitSavesNothing();
};

void TestBooking::nextWorkDay_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("expected");
    const QDate fri(2026, 5, 1), sat(2026, 5, 2), sun(2026, 5, 3), mon(2026, 5, 4);
    QTest::newRow("5: Saturday to Monday") << 5 << sat << mon;
    QTest::newRow("5: Sunday to Monday") << 5 << sun << mon;
    QTest::newRow("5: Friday stays") << 5 << fri << fri;
    QTest::newRow("61: Saturday stays") << 61 << sat << sat;
    QTest::newRow("61: Sunday to Monday") << 61 << sun << mon;
    QTest::newRow("62: Saturday to Sunday") << 62 << sat << sun;
    QTest::newRow("62: Sunday stays") << 62 << sun << sun;
    QTest::newRow("7: Sunday stays") << 7 << sun << sun;
    QTest::newRow("5: year end Saturday") << 5 << QDate(2022, 12, 31) << QDate(2023, 1, 2);
}

void TestBooking::nextWorkDay()
{
    QFETCH(int, code);
    QFETCH(QDate, date);
    QFETCH(QDate, expected);
    DispatchingVariables v;
    v.gWorkDays = quint8(code);
    QDate argument = date;
    QCOMPARE(NextWorkDay(v, argument), expected);
    QCOMPARE(argument, expected); // the argument is moved too
}

void TestBooking::openingDate_data()
{
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<int>("code");
    QTest::addColumn<QDate>("expected");
    const QDate fri(2026, 5, 1);
    QTest::newRow("Friday 7:59 pm") << QDateTime(fri, QTime(19, 59)) << 5 << fri;
    QTest::newRow("Friday 8 pm, five days")
        << QDateTime(fri, QTime(20, 0)) << 5 << QDate(2026, 5, 4);
    QTest::newRow("Friday 8 pm, all week")
        << QDateTime(fri, QTime(20, 0)) << 7 << QDate(2026, 5, 2);
    QTest::newRow("Thursday 11 pm") << QDateTime(QDate(2026, 4, 30), QTime(23, 0)) << 5 << fri;
    QTest::newRow("leap year end 8 pm")
        << QDateTime(QDate(2024, 12, 31), QTime(20, 0)) << 7 << QDate(2025, 1, 1);
    QTest::newRow("Saturday morning")
        << QDateTime(QDate(2026, 5, 2), QTime(8, 0)) << 5 << QDate(2026, 5, 4);
}

void TestBooking::openingDate()
{
    QFETCH(QDateTime, now);
    QFETCH(int, code);
    QFETCH(QDate, expected);
    ProgramFolder f;
    f.clock.set(now);
    f.v.gWorkDays = quint8(code);
    QCOMPARE(OpeningBookingDate(f.ctx), expected);
}

void TestBooking::calendarRefusesThePast()
{
    ProgramFolder f;
    f.clock.set(QDateTime(QDate(2026, 4, 30), QTime(20, 30))); // Thursday evening
    f.dialogs.expect("Your Calendar Selection is Invalid");
    Result<QDate> date = CalenderChange(f.ctx, QDate(2026, 4, 2));
    QVERIFY(date.ok());
    QCOMPARE(*date, QDate(2026, 5, 1)); // today, then the next booking day
    QCOMPARE(f.v.gDayOfYear, qint16(121));
    QCOMPARE(f.dialogs.beeps, 1);
    VERIFY_DIALOGS(f.dialogs);

    // Without alarms and prompts the refusal is silent.
    ProgramFolder quiet;
    quiet.v.gAlarms = quiet.v.gPrompts = false;
    QCOMPARE(*CalenderChange(quiet.ctx, QDate(2026, 1, 1)), QDate(2026, 4, 30));
    QCOMPARE(quiet.dialogs.beeps, 0);
    VERIFY_DIALOGS(quiet.dialogs);
}

void TestBooking::calendarMakesALaterYearsFolders()
{
    ProgramFolder f;
    f.v.gAssignTo = {"populated", "North", "South"};
    f.v.gYear = "2026";
    Result<QDate> date = CalenderChange(f.ctx, QDate(2028, 1, 1)); // a Saturday
    QCOMPARE(*date, QDate(2028, 1, 3));
    QVERIFY(f.hasFolder("2028/Team#2"));
    QVERIFY(!f.hasFolder("2027"));
    QCOMPARE(f.v.gDayOfYear, qint16(3));
    VERIFY_DIALOGS(f.dialogs);
}

void TestBooking::noTimeSelectedWritesNothing()
{
    ProgramFolder f;
    customerInHand(f, 2);
    BookingRequest s = clicked(f, "SA120-1 Ada Byron", 4, 1);
    s.eventText = NoSlotSelected();
    const auto before = f.snapshot();
    f.dialogs.expect("You have not selected a Time for this Event", "Click on a Time");
    QCOMPARE(*SaveBooking(f.ctx, s), BookingSaved::NoTimeSelected);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.dialogs.beeps, 1);
    QCOMPARE(f.snapshot(), before);
    QCOMPARE(f.v.gConfirmation, QString("SA120-1"));
}

void TestBooking::storedSlipKeepsTheNumber()
{
    ProgramFolder f;
    customerInHand(f, 2);
    BookingRequest s = clicked(f, "SA120-1 Ada Byron", 4, 2);
    s.unscheduled = true;
    f.dialogs.expect("An Open Slip has been Created\n"
                     "If you clicked on an hour BEFORE selecting to create\n"
                     "an unscheduled slip, the hours will be reset (cleared)");
    QCOMPARE(*SaveBooking(f.ctx, s), BookingSaved::StoredUnscheduled);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.get("UnscheduledSlips.txt").size(), 297);
    QVERIFY(!f.has("2026/Team#2/125.txt"));
    QVERIFY(!f.has("Slips.txt"));
    QCOMPARE(f.v.gConfirmation, QString("SA120-1"));
}

void TestBooking::lastStoredSlipScheduledRemovesTheFile()
{
    ProgramFolder f;
    customerInHand(f, 2);
    f.v.gSlip.setText(SlipField::Name, "Stored one");
    f.put("UnscheduledSlips.txt", f.v.gSlip.bytes());
    f.put("Backup/UnscheduledSlips.txt", f.v.gSlip.bytes());
    BookingRequest s = clicked(f, "SA120-1 Ada Byron", 1, 1);
    s.fromStoredSlip = true;
    s.storedSlipRow = 1;
    f.dialogs.expect("Service  Attention SA120-1 has been Scheduled", "Confirmation");
    f.dialogs.expect("This will Delete the Selected Slip Record", "Record Deletion", Answer::Yes);
    QCOMPARE(*SaveBooking(f.ctx, s), BookingSaved::Scheduled);
    VERIFY_DIALOGS(f.dialogs);
    QVERIFY(!f.store.FileExists("/UnscheduledSlips.txt")); // not even from Backup
    QCOMPARE(f.get("Slips.txt").size(), 297);
}

void TestBooking::failedRecordWriteTakesNoNumber()
{
    ProgramFolder f;
    customerInHand(f, 2);
    QDir().mkpath(f.abs("Slips.txt")); // a folder where the record file should be
    BookingRequest s = clicked(f, "SA120-1 Ada Byron", 4, 1);
    Result<BookingSaved> saved = SaveBooking(f.ctx, s);
    QVERIFY(!saved.ok());
    QVERIFY(saved.message().contains("Slips.txt"));
    VERIFY_DIALOGS(f.dialogs); // no confirmation for what is not on disk
    QCOMPARE(f.v.gConfirmation, QString("SA120-1"));
    QVERIFY(!f.has("Counter.txt"));
}

// A request without its day's file (the grid showed another day than the one asked for) is
// refused, and nothing lands anywhere else.
void TestBooking::noDayFileWritesNothing()
{
    ProgramFolder f;
    customerInHand(f, 2);
    BookingRequest s = clicked(f, "SA120-1 Ada Byron", 4, 1);
    s.dayFile.clear();
    const auto before = f.snapshot();
    Result<BookingSaved> saved = SaveBooking(f.ctx, s);
    QVERIFY(!saved.ok());
    QCOMPARE(saved.message(), QString("No day is shown to book the event on."));
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.snapshot(), before);
    QCOMPARE(f.v.gConfirmation, QString("SA120-1"));
}

// A slip whose number could not be followed by another is refused whole, however often the
// dispatcher clicks Save: otherwise each click would store one more slip under that number.
void TestBooking::numberAtItsLimitSavesNothing_data()
{
    QTest::addColumn<int>("slipStyle");
    QTest::addColumn<QString>("confirmation");
    QTest::addColumn<QString>("counter");
    QTest::newRow("program numbers") << 1 << "SA120-32767"
                                     << "slip sequence of day 120";
    QTest::newRow("continuous numbers") << 0 << "32767"
                                        << "slip number";
}

void TestBooking::numberAtItsLimitSavesNothing()
{
    QFETCH(int, slipStyle);
    QFETCH(QString, confirmation);
    QFETCH(QString, counter);
    ProgramFolder f;
    customerInHand(f, 2);
    f.v.settings.ckSlipStyle = qint16(slipStyle);
    f.v.gSequence = 32767;
    f.v.gNextSlip = 32767;
    f.v.settings.txtNextSlip = "32767";
    f.v.gConfirmation = confirmation;
    f.put("Counter.txt", "\"120\",32767\r\n");
    f.put("SlipNo.txt", "32767\r\n");
    const BookingRequest s = clicked(f, confirmation + " Ada Byron", 4, 1);
    const auto before = f.snapshot();
    for (int click = 0; click < 2; ++click) {
        Result<BookingSaved> saved = SaveBooking(f.ctx, s);
        QVERIFY(!saved.ok());
        QCOMPARE(saved.message(),
                 "The " + counter + " can not go past 32767.\nThe slip was not saved.");
        QCOMPARE(f.snapshot(), before);
    }
    VERIFY_DIALOGS(f.dialogs); // nothing confirmed
    QCOMPARE(f.v.gConfirmation, confirmation);
}

QTEST_GUILESS_MAIN(TestBooking)
#include "test_booking.moc"
