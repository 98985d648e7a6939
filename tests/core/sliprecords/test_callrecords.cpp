#include "core/io/sliprecord.h"
#include "core/schedule/dayfiles.h"
#include "core/sliprecords/deletecallrec.h"
#include "core/sliprecords/recordsearch.h"
#include "core/sliprecords/recordsummary.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{
QByteArray pad(const QByteArray& text, int width)
{
    return text.leftJustified(width, ' ', true);
}

// A slip record as an installation holds it, laid down field by field.
QByteArray slip(const QByteArray& type, const QByteArray& confirmation, const QByteArray& date,
                const QByteArray& account = "A-100", const QByteArray& name = "Ada Byron",
                const QByteArray& reference = "Leaking tap", const QByteArray& team = "3",
                const QByteArray& start = "4", const QByteArray& status = "Scheduled")
{
    return pad(type, 10) + pad(confirmation, 10) + pad(team, 2) + pad("Hours", 6) + pad("2", 2) +
           pad(date, 10) + pad(start, 2) + pad(reference, 30) + pad(status, 20) + pad("", 20) +
           pad("", 20) + pad("0", 10) + pad(account, 20) + pad(name, 30) + pad("12 Mill Road", 35) +
           pad("Flat 2", 25) + pad("Greenfield", 20) + pad("OH", 2) + pad("45123", 10) +
           pad("(555)123-4567", 13);
}

QByteArray dayFile(const QStringList& lines)
{
    QByteArray out;
    for (const QString& s : lines)
        out += '"' + s.toLatin1() + "\"\r\n";
    return out;
}

QStringList slotsOf(const QByteArray& file)
{
    QStringList out;
    for (const QByteArray& line : file.split('\n'))
        if (!line.isEmpty()) out << QString::fromLatin1(line.trimmed().mid(1).chopped(1));
    return out;
}

const QString F = "No Event Scheduled";
} // namespace

class TestCallRecords : public QObject
{
    Q_OBJECT
private slots:
    void sortKey_data();
    void sortKey();
    void summaryMeetingsFirstAndSorted();
    void expired_data();
    void expired();
    void rowLookupTakesTheFirstInFileOrder();
    void search_data();
    void search();
    void stepThroughTheFile();
    void loadRecData_data();
    void loadRecData();
    void deleteRecords_data();
    void deleteRecords();
    void deleteFreesSlots_data();
    void deleteFreesSlots();
    void completedAfterAHalfRecord();
};

void TestCallRecords::sortKey_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<int>("key");
    QTest::newRow("this year") << "05/05/2026" << 125;
    QTest::newRow("next year's 2 January") << "01/02/2027" << 1001;
    QTest::newRow("31 December next year") << "12/31/2027" << 1364;
    QTest::newRow("31 December last year") << "12/31/2025" << 365;
    QTest::newRow("leap year end, two years on") << "12/31/2028" << 1365;
    QTest::newRow("one-digit month and day") << "1/2/2026" << 2;
    QTest::newRow("not a date") << "Tomorrow" << 0;
    QTest::newRow("blank") << "" << 0;
}

void TestCallRecords::sortKey()
{
    QFETCH(QString, date);
    QFETCH(int, key);
    QCOMPARE(SummarySortKey(date, 2026), key);
}

void TestCallRecords::summaryMeetingsFirstAndSorted()
{
    ProgramFolder f;
    f.put("Slips.txt", slip("Service", "SA1-1", "01/02/2027", "S1") +
                           slip("Service", "SA1-2", "05/05/2026", "S2") +
                           slip("Service", "SA1-3", "12/31/2025", "S3"));
    f.put("Meetings.txt",
          slip("Meeting", "", "05/05/2026", "M1") + slip("Meeting", "", "12/31/2027", "M2"));
    Result<RecordSummary> s = BuildRecordSummary(f.ctx);
    QVERIFY(s.ok());
    QCOMPARE(s->slipCount, 3);
    QCOMPARE(s->meetingCount, 2);
    QStringList order, kinds;
    for (const SummaryRow& r : s->rows) {
        order << r.AcctNo + ':' + QString::number(r.key);
        kinds << r.kind;
    }
    // Equal keys keep the meetings, read first, ahead.
    QCOMPARE(order, QStringList({"M1:125", "S2:125", "S3:365", "S1:1001", "M2:1364"}));
    QCOMPARE(kinds, QStringList({"", "Sevice Attn", "Sevice Attn", "Sevice Attn", ""}));
    QCOMPARE(s->rows[1].ConfirmationNo, QString("SA1-2"));
    QCOMPARE(s->rows[1].Name, QString("Ada Byron"));
    QCOMPARE(s->rows[1].EventDate, QString("05/05/2026"));

    ProgramFolder empty;
    Result<RecordSummary> none = BuildRecordSummary(empty.ctx);
    QCOMPARE(none->rows.size(), 0);
    QCOMPARE(none->slipCount, 0);
}

void TestCallRecords::expired_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<bool>("expired");
    QTest::newRow("yesterday") << "04/29/2026" << true;
    QTest::newRow("today") << "04/30/2026" << false;
    QTest::newRow("last year, later day") << "12/31/2025" << true;
    QTest::newRow("tomorrow") << "05/01/2026" << false;
}

void TestCallRecords::expired()
{
    QFETCH(QString, date);
    QFETCH(bool, expired);
    QCOMPARE(SlipExpired(date, QDate(2026, 4, 30)), expired);
}

void TestCallRecords::rowLookupTakesTheFirstInFileOrder()
{
    ProgramFolder f;
    f.put("Slips.txt", slip("Service", "SA1-1", "05/05/2026", "B-2") +
                           slip("Service", "SA1-2", "05/06/2026", "A-100") +
                           slip("Service", "SA1-3", "05/06/2026", "A-100"));
    f.put("Meetings.txt",
          slip("Meeting", "", "05/07/2026", "") + slip("Meeting", "", "05/06/2026", "A-100"));
    QCOMPARE(*FindSlipByAccountAndDate(f.ctx, " A-100 ", "05/06/2026"), qint16(1));
    QCOMPARE(f.v.gSlip.text(SlipField::ConfirmationNo), QString("SA1-2"));
    // A meeting without an account is found by its date among the blank accounts.
    QCOMPARE(*FindSlipByAccountAndDate(f.ctx, "", "05/07/2026"), qint16(2));
    QCOMPARE(*FindSlipByAccountAndDate(f.ctx, "A-100", "05/09/2026"), qint16(3));
}

void TestCallRecords::search_data()
{
    QTest::addColumn<int>("searchFile");
    QTest::addColumn<int>("by");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found"); // the account found, empty for none
    QTest::newRow("confirmation") << 1 << 2 << "SA1-2"
                                  << "C-3";
    QTest::newRow("confirmation, other case") << 1 << 2 << "sa1-2"
                                              << "";
    QTest::newRow("confirmation is the whole field") << 1 << 2 << "SA1-"
                                                     << "";
    QTest::newRow("account, first of two") << 1 << 1 << "A-100"
                                           << "A-100";
    QTest::newRow("account, blanks around") << 1 << 1 << "  A-100 "
                                            << "A-100";
    QTest::newRow("account in meetings") << 2 << 1 << "M-7"
                                         << "M-7";
    QTest::newRow("meetings hold no slip's account") << 2 << 1 << "C-3"
                                                     << "";
    QTest::newRow("all records finds nothing by name") << 1 << 0 << "SA1-2"
                                                       << "";
}

void TestCallRecords::search()
{
    QFETCH(int, searchFile);
    QFETCH(int, by);
    QFETCH(QString, typed);
    QFETCH(QString, found);
    ProgramFolder f;
    f.put("Slips.txt", slip("Service", "SA1-1", "05/05/2026", "A-100") +
                           slip("Service", "SA1-2", "05/06/2026", "C-3") +
                           slip("Service", "SA1-3", "05/07/2026", "A-100"));
    f.put("Meetings.txt", slip("Meeting", "", "05/05/2026", "M-7"));
    if (found.isEmpty())
        f.dialogs.expect("No Call Record with this Search Criteria Exists", "Search Not found");
    Result<bool> r = ReadCallSlip(f.ctx, qint16(searchFile), SearchBy(by),
                                  by == 2 ? typed : QString(), by == 1 ? typed : QString());
    QVERIFY(r.ok());
    QCOMPARE(*r, !found.isEmpty());
    if (*r) QCOMPARE(f.v.gSlip.text(SlipField::AcctNo), found);
    if (*r && by == 1)
        QCOMPARE(f.v.gSlip.text(SlipField::ConfirmationNo),
                 searchFile == 1 ? QString("SA1-1") : QString());
    VERIFY_DIALOGS(f.dialogs);
}

void TestCallRecords::stepThroughTheFile()
{
    ProgramFolder f;
    f.put("Slips.txt",
          slip("Service", "SA1-1", "05/05/2026") + slip("Service", "SA1-2", "05/06/2026"));
    qint16 pointer = 1;
    QCOMPARE(*ReadSequentually(f.ctx, 1, pointer), SequentialRead::Loaded);
    QCOMPARE(f.v.gSlip.text(SlipField::ConfirmationNo), QString("SA1-1"));
    ++pointer; // cmdContinue
    QCOMPARE(*ReadSequentually(f.ctx, 1, pointer), SequentialRead::LoadedLast);
    QCOMPARE(f.v.gSlip.text(SlipField::ConfirmationNo), QString("SA1-2"));
    QCOMPARE(pointer, qint16(0));
    QCOMPARE(*ReadSequentually(f.ctx, 1, pointer), SequentialRead::PastEnd);
    pointer = 3;
    QCOMPARE(*ReadSequentually(f.ctx, 1, pointer), SequentialRead::PastEnd);
    qint16 first = 1;
    QCOMPARE(*ReadSequentually(f.ctx, 2, first), SequentialRead::PastEnd); // no meetings
}

void TestCallRecords::loadRecData_data()
{
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<bool>("installed");
    QTest::addColumn<bool>("open");
    QTest::addColumn<bool>("completable");
    QTest::newRow("tomorrow") << QByteArray("05/01/2026") << QByteArray("Scheduled") << false
                              << true << true;
    QTest::newRow("tomorrow, closer installed")
        << QByteArray("05/01/2026") << QByteArray("Scheduled") << true << true << false;
    QTest::newRow("tomorrow, any status")
        << QByteArray("05/01/2026") << QByteArray("Paid") << false << true << true;
    QTest::newRow("today, scheduled")
        << QByteArray("04/30/2026") << QByteArray("Scheduled") << false << true << true;
    QTest::newRow("today, other status")
        << QByteArray("04/30/2026") << QByteArray("Paid") << false << false << false;
    QTest::newRow("yesterday") << QByteArray("04/29/2026") << QByteArray("Scheduled") << false
                               << false << false;
}

void TestCallRecords::loadRecData()
{
    QFETCH(QByteArray, date);
    QFETCH(QByteArray, status);
    QFETCH(bool, installed);
    QFETCH(bool, open);
    QFETCH(bool, completable);
    ProgramFolder f;
    f.v.gSlip = SlipRecord(
        slip("Service", "SA1-2", date, "A-100", "  Ada Byron", "Leaking tap", "3", "7", status));
    const RecordDetail d = LoadRecData(f.ctx, installed);
    QCOMPARE(d.cmdCancel, open);
    QCOMPARE(d.cmdReschedule, open);
    QCOMPARE(d.cmdCompleted, completable);
    QCOMPARE(d.EventKind, QString("Service"));
    QCOMPARE(d.txtReference, QString("SA1-2"));
    // Shown as the grid labels it; the day file's slot text uses the short label.
    QCOMPARE(d.txtTime, QString("01:00pm"));
    QCOMPARE(d.timeLabel, QString("01:00"));
    QCOMPARE(d.txtDuration, QString("2 Hours"));
    QCOMPARE(d.txtAmount, QString("$0.00"));
    // Stored back trimmed, and the amount in its currency form.
    QCOMPARE(f.v.gSlip.rawText(SlipField::Name), QString("Ada Byron").leftJustified(30));
    QCOMPARE(f.v.gSlip.rawText(SlipField::Amount), QString("$0.00     "));
    QCOMPARE(f.v.current.name, QString("Ada Byron"));
    QCOMPARE(f.v.current.address1, QString("12 Mill Road"));
    QCOMPARE(f.v.current.address2, QString("Flat 2"));
    QCOMPARE(f.v.current.account, QString("A-100"));
}

// Which records stay in the file after a delete, and which reach CompletedSlips.txt.
void TestCallRecords::deleteRecords_data()
{
    QTest::addColumn<int>("searchFile");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("shownRecord"); // from 0
    QTest::addColumn<int>("completed");
    QTest::addColumn<QStringList>("kept"); // accounts
    QTest::addColumn<int>("completedRecords");

    const QByteArray a = slip("Service", "SA12-1", "05/05/2026", "A");
    const QByteArray b = slip("Service", "SA12-1", "05/06/2026", "B");
    const QByteArray c = slip("Service", "SA12-10", "05/05/2026", "C");
    QTest::newRow("deleted, not completed") << 1 << a + c + b << 2 << 0 << QStringList{"C"} << 0;
    QTest::newRow("only record leaves an empty file") << 1 << a << 0 << 0 << QStringList() << 0;
    const QByteArray m1 = slip("Meeting", "", "05/05/2026", "M1", "Ada", "Mtg - 09:00 - Ada");
    const QByteArray m2 = slip("Meeting", "", "06/05/2026", "M2", "Ada", "Mtg - 09:00 - Ada");
    const QByteArray m3 = slip("Meeting", "", "05/05/2026", "M3", "Bob", "Mtg - 09:00 - Bob");
    QTest::newRow("meeting: every date of the reference")
        << 2 << m1 + m3 + m2 << 0 << 0 << QStringList{"M3"} << 0;
    const QByteArray r1 =
        slip("Reoccuring", "SA12-5", "05/05/2026", "R1", "Ada", "Recurring Event - Ada");
    const QByteArray r2 =
        slip("Reoccuring", "SA12-6", "05/12/2026", "R2", "Ada", "Recurring Event - Ada");
    QTest::newRow("reoccuring completed is not recorded")
        << 1 << r1 + c + r2 << 0 << -1 << QStringList{"C"} << 0;
}

void TestCallRecords::deleteRecords()
{
    QFETCH(int, searchFile);
    QFETCH(QByteArray, file);
    QFETCH(int, shownRecord);
    QFETCH(int, completed);
    QFETCH(QStringList, kept);
    QFETCH(int, completedRecords);
    ProgramFolder f;
    f.v.gDayOfYear = 120;
    const QString name = searchFile == 1 ? "Slips.txt" : "Meetings.txt";
    f.put(name, file);
    f.put("Backup/" + name, file);
    f.put("TemporaryFile.txt", "left by a crash");
    f.put("Backup/TemporaryFile.txt", "old");
    f.v.gSlip = SlipRecord(file.mid(shownRecord * 297, 297));
    const QByteArray shownBytes = f.v.gSlip.bytes();
    CallRecordOnShow shown{qint16(searchFile), f.v.gSlip.text(SlipField::RecType), "", ""};
    QVERIFY(DeleteCallRec(f.ctx, shown, qint16(completed)).ok());

    QStringList accounts;
    const QByteArray after = f.get(name);
    QCOMPARE(after.size() % 297, 0);
    for (int i = 0; i < after.size(); i += 297)
        accounts << SlipRecord(after.mid(i, 297)).text(SlipField::AcctNo);
    QCOMPARE(accounts, kept);
    QVERIFY(f.has(name));                    // emptied, never removed
    QCOMPARE(f.get("Backup/" + name), file); // the copy in Backup is not touched
    QVERIFY(!f.has("TemporaryFile.txt"));
    QVERIFY(!f.has("Backup/TemporaryFile.txt"));
    QCOMPARE(f.get("CompletedSlips.txt"), shownBytes.repeated(completedRecords));
    QCOMPARE(f.v.gSlip.bytes(), shownBytes); // the buffer keeps the deleted record
}

// Which slots of the day are freed. The calendar's last date (gDayOfYear) plays no part:
// the slip's own date against today decides whether its day still counts.
void TestCallRecords::deleteFreesSlots_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<int>("searchFile");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<qint16>("calendarDayOfYear");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");

    const QStringList day = {F,
                             "SA125-1 Ada",
                             "SA125-1 Ada",
                             "sa125-10 Bob",
                             "Recurring Event - Carl",
                             "Mtg - 09:00 - Ada",
                             "Mtg - 10:00 - Ada",
                             "Hill Farm - Contract Event",
                             "RECURRING x",
                             "SA125-2 Dan",
                             F,
                             "Holiday"};
    // A service slip frees every slot containing its number, in any case, and the
    // contract slots with it; the meeting and "Recurring" slots stay.
    QStringList serviceGone = day;
    serviceGone[1] = serviceGone[2] = serviceGone[3] = serviceGone[7] = F;
    const QByteArray service = slip("Service", "SA125-1", "05/05/2026", "A", "Ada");
    const QDate apr30(2026, 4, 30);
    QTest::newRow("service: containment, any case, contract slots go too")
        << service << 1 << apr30 << qint16(120) << day << serviceGone;
    QTest::newRow("calendar left on a later date")
        << service << 1 << apr30 << qint16(200) << day << serviceGone;
    QTest::newRow("today's slots are freed")
        << service << 1 << QDate(2026, 5, 5) << qint16(125) << day << serviceGone;
    QTest::newRow("a day gone by is left alone")
        << service << 1 << QDate(2026, 5, 6) << qint16(126) << day << day;
    const QByteArray lastYear = slip("Service", "SA125-1", "12/30/2025", "A", "Ada");
    QTest::newRow("a day of last year is left alone")
        << lastYear << 1 << apr30 << qint16(1) << day << day;
    const QByteArray nextYear = slip("Service", "SA125-1", "01/03/2027", "A", "Ada");
    QTest::newRow("a later year is freed")
        << nextYear << 1 << apr30 << qint16(300) << day << serviceGone;
}

void TestCallRecords::deleteFreesSlots()
{
    QFETCH(QByteArray, record);
    QFETCH(int, searchFile);
    QFETCH(QDate, today);
    QFETCH(qint16, calendarDayOfYear);
    QFETCH(QStringList, before);
    QFETCH(QStringList, after);
    ProgramFolder f;
    f.clock.setDate(today);
    f.v.gYear = "2026";
    f.v.gDayOfYear = calendarDayOfYear;
    const QString name = searchFile == 1 ? "Slips.txt" : "Meetings.txt";
    f.put(name, record);
    const SlipRecord r(record);
    const QDate date = ParseSlipDate(r.bytes().mid(30, 10));
    const QString dayName = QString("%1/Team#3/%2.txt").arg(date.year()).arg(date.dayOfYear());
    f.put(dayName, dayFile(before));
    f.v.gSlip = r;
    CallRecordOnShow shown{qint16(searchFile), r.text(SlipField::RecType), "Ada", "09:00"};
    QVERIFY(DeleteCallRec(f.ctx, shown, 0).ok());
    QCOMPARE(slotsOf(f.get(dayName)), after);
    QCOMPARE(f.get(name), QByteArray());
}

void TestCallRecords::completedAfterAHalfRecord()
{
    ProgramFolder f;
    f.v.gSlip = SlipRecord(slip("Service", "SA1-1", "05/05/2026"));
    // A last record of at least half its length counts: the new record goes after it.
    f.put("CompletedSlips.txt", QByteArray(297 + 149, 'x'));
    QVERIFY(WriteCompletedSlip(f.ctx).ok());
    QCOMPARE(f.get("CompletedSlips.txt").size(), 3 * 297);
    QCOMPARE(f.get("CompletedSlips.txt").mid(2 * 297), f.v.gSlip.bytes());
    // A shorter fragment does not count, and the new record is written over it.
    ProgramFolder g;
    g.v.gSlip = f.v.gSlip;
    g.put("CompletedSlips.txt", QByteArray(297 + 100, 'x'));
    QVERIFY(WriteCompletedSlip(g.ctx).ok());
    QCOMPARE(g.get("CompletedSlips.txt").size(), 2 * 297);
    QCOMPARE(g.get("CompletedSlips.txt").mid(297), g.v.gSlip.bytes());
}

QTEST_GUILESS_MAIN(TestCallRecords)
#include "test_callrecords.moc"
