#include "core/customers/customerdelete.h"
#include "core/customers/customerediting.h"
#include "core/housekeeping/backup.h"
#include "core/housekeeping/purge.h"
#include "core/io/customerrecords.h"
#include "core/io/sliprecord.h"
#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/sliprecords/deletecallrec.h"
#include "programfolder.h"
#include "screenrequest.h"

#include <QDirIterator>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

using namespace tresvane;

// Each routine that changes several files is killed at every one of its file calls in a
// child process; the folder is then opened as the next start opens it. Every group of files
// must be wholly as before or wholly as after, and nothing of the change may be left over.

namespace
{

using Answer = Dialogs::Answer;

struct Routine {
    std::function<void(ProgramFolder&)> layDown;
    std::function<Status(ProgramFolder&)> run;
    QStringList group; // the files that change together, program-relative
};

// The group's files; a missing file reads as a marker no file holds.
QStringList groupState(const ProgramFolder& f, const QStringList& group)
{
    QStringList state;
    for (const QString& name : group)
        state << (f.has(name) ? QString::fromLatin1(f.get(name).toHex()) : QStringLiteral("-"));
    return state;
}

// What a crash may leave but the next start must not find.
QStringList leftovers(const ProgramFolder& f)
{
    static const QRegularExpression temporary(QStringLiteral("\\.txt\\.[A-Za-z0-9]{6}$"));
    QStringList found;
    if (f.hasFolder(Store::ChangeFolder().mid(1))) found << Store::ChangeFolder();
    for (const QString& name : f.snapshot().keys())
        if (temporary.match(name).hasMatch() || name.endsWith(u"TemporaryFile.txt")) found << name;
    return found;
}

QByteArray records(int count, int length, char first)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += QByteArray(length, char(first + i));
    return bytes;
}

void customerInHand(ProgramFolder& f)
{
    f.v.Mode = Mode::ServiceSlip;
    f.v.CurrentTeam = "2";
    f.v.current.account = "A-100";
    f.v.current.name = "Ada Byron";
    f.v.settings.ckSlipStyle = 1;
    f.v.gJulianDay = "120";
    f.v.gSequence = 1;
    f.v.gConfirmation = "SA120-1";
}

Routine customerDelete()
{
    return {[](ProgramFolder& f) {
                f.put("CustomerData.txt", records(4, kCustomerRecordLength, 'a'));
                f.put("ContractInfo.txt", records(4, kContractRecordLength, 'k'));
                f.put("CycleInfo.txt", records(4, kCycleRecordLength, 'p'));
                f.put("Backup/ContractInfo.txt", "old");
                f.put("Backup/CycleInfo.txt", "old");
            },
            [](ProgramFolder& f) {
                return DeleteCustomer(f.store, {2, 4}).status();
            },
            {"CustomerData.txt", "ContractInfo.txt", "CycleInfo.txt", "Backup/ContractInfo.txt",
             "Backup/CycleInfo.txt"}};
}

Routine customerSave()
{
    return {[](ProgramFolder& f) {
                f.put("CustomerData.txt", records(2, kCustomerRecordLength, 'a'));
                f.put("ContractInfo.txt", records(2, kContractRecordLength, 'k'));
                f.put("CycleInfo.txt", records(2, kCycleRecordLength, 'p'));
            },
            [](ProgramFolder& f) -> Status {
                CustomerBoxes b;
                b.lbLType = "Individual";
                b.txtCustomer[CustomerBox::FirstName] = "Ada";
                b.txtCustomer[CustomerBox::LastName] = "Byron";
                b.txtCustomer[CustomerBox::AccountNo] = "A-3";
                b.txtCustomer[CustomerBox::Phone] = "217-555-0100";
                return UpdateCustomerRecord(f.ctx, b, true, 3).status();
            },
            {"CustomerData.txt", "ContractInfo.txt", "CycleInfo.txt"}};
}

// A Service Attention of 5 May on team 3, completed: out of Slips.txt, into
// CompletedSlips.txt, its hours freed.
Routine completion()
{
    return {[](ProgramFolder& f) {
                SlipRecord r;
                r.setText(SlipField::RecType, "Service");
                r.setText(SlipField::ConfirmationNo, "SA120-1");
                r.setText(SlipField::TeamNo, "3");
                r.setText(SlipField::EventDate, "05/05/2026");
                f.put("Slips.txt", records(1, 297, 'o') + r.bytes());
                f.put("CompletedSlips.txt", records(1, 297, 'c'));
                QByteArray day;
                for (int i = 1; i <= 12; ++i)
                    day += i == 4 ? "\"SA120-1 Ada Byron\"\r\n" : "\"No Event Scheduled\"\r\n";
                f.put("2026/Team#3/125.txt", day);
                f.v.gYear = "2026";
                f.v.gSlip = r;
            },
            [](ProgramFolder& f) {
                return DeleteCallRec(f.ctx, CallRecordOnShow{1, "Service", "Ada", "09:00"}, -1);
            },
            {"Slips.txt", "CompletedSlips.txt", "2026/Team#3/125.txt"}};
}

Routine booking()
{
    return {[](ProgramFolder& f) {
                customerInHand(f);
                f.put("Counter.txt", "\"120\",1\r\n");
                f.put("UnscheduledSlips.txt", records(2, 297, 's'));
                f.put("Slips.txt", records(1, 297, 'z'));
                f.dialogs.expect("Service  Attention SA120-1 has been Scheduled", "Confirmation");
                f.dialogs.expect("This will Delete the Selected Slip Record", "Record Deletion",
                                 Answer::Yes);
            },
            [](ProgramFolder& f) -> Status {
                GridColumn grid;
                grid.fill(NoEventScheduled());
                grid[3] = grid[4] = "SA120-1 Ada Byron";
                WriteSlots(f.v, grid);
                BookingRequest s = ScreenRequest(f.ctx, QDate(2026, 5, 5));
                s.eventText = "SA120-1 Ada Byron";
                s.hours = "2";
                s.firstSlot = 4;
                s.number = f.v.gConfirmation;
                s.problem = "Leaking tap";
                s.fromStoredSlip = true;
                s.storedSlipRow = 1;
                return SaveBooking(f.ctx, s).status();
            },
            // The stored slip goes after the confirmation, on its own.
            {"2026/Team#2/125.txt", "Slips.txt", "Counter.txt"}};
}

Routine exitBackup()
{
    return {[](ProgramFolder& f) {
                f.put("Slips.txt", records(2, 297, 'n'));
                f.put("Meetings.txt", records(1, 297, 'm'));
                f.put("CustomerData.txt", records(3, kCustomerRecordLength, 'c'));
                f.put("Counter.txt", "\"120\",4\r\n");
                f.put("Backup/Slips.txt", records(1, 297, 'o'));
                f.put("Backup/CustomerData.txt", records(2, kCustomerRecordLength, 'd'));
                f.put("Backup/Counter.txt", "\"120\",2\r\n");
            },
            [](ProgramFolder& f) { return SetBackupPaths(f.ctx); },
            {"Backup/Slips.txt", "Backup/Meetings.txt", "Backup/CustomerData.txt",
             "Backup/Counter.txt", "Backup/2026-04-30/Slips.txt",
             "Backup/2026-04-30/CustomerData.txt", "Backup/2026-04-30/Counter.txt"}};
}

// The purge at start: the day files of two teams from the last purge to yesterday, the
// purge date and the meetings gone by.
Routine purge()
{
    return {[](ProgramFolder& f) {
                f.v.gYear = "2026";
                f.v.gAssignTo = {"populated", "Crew A", "Crew B"};
                for (const char* team : {"Team#1", "Team#2"})
                    for (int day = 117; day <= 120; ++day)
                        f.put(QStringLiteral("2026/%1/%2.txt").arg(team).arg(day),
                              QByteArray(12, char('a' + day - 117)));
                f.put("PurgedDate.txt", "116\r\n");
                QByteArray meetings;
                for (const char* date : {"04/28/2026", "05/02/2026", "04/29/2026"}) {
                    SlipRecord r;
                    r.setText(SlipField::RecType, "Meeting");
                    r.setText(SlipField::EventDate, date);
                    meetings += r.bytes();
                }
                f.put("Meetings.txt", meetings);
            },
            [](ProgramFolder& f) { return PurgeDayFiles(f.ctx); },
            {"2026/Team#1/117.txt", "2026/Team#1/119.txt", "2026/Team#1/120.txt",
             "2026/Team#2/118.txt", "PurgedDate.txt", "Meetings.txt"}};
}

struct Outcome {
    int calls = 0, oldState = 0, newState = 0, mixed = 0, left = 0, duplicates = 0;
};

// Whether the number the counter hands out next already stands on a slip.
bool nextNumberIsTaken(const ProgramFolder& f)
{
    static const QRegularExpression counter(QStringLiteral("^\"(\\d+)\",(\\d+)"));
    const QRegularExpressionMatch m = counter.match(QString::fromLatin1(f.get("Counter.txt")));
    if (!m.hasMatch()) return false;
    const QByteArray next =
        (QStringLiteral("SA") + m.captured(1) + u'-' + m.captured(2)).toLatin1();
    const QByteArray slips = f.get("Slips.txt");
    for (qsizetype at = 0; at + 297 <= slips.size(); at += 297)
        if (slips.mid(at, 297).contains(next + ' ')) return true;
    return false;
}

Routine routineNo(int n)
{
    switch (n) {
    case 0:
        return customerDelete();
    case 1:
        return customerSave();
    case 2:
        return booking();
    case 3:
        return completion();
    case 4:
        return exitBackup();
    default:
        return purge();
    }
}
constexpr int kRoutines = 6;

// The group before and after an undisturbed run, and how many file calls the run makes.
struct Reference {
    QStringList before, after;
    int calls = 0;
};

Reference runUndisturbed(const Routine& r)
{
    Reference ref;
    ProgramFolder f;
    r.layDown(f);
    ref.before = groupState(f, r.group);
    Store::setFaultAt(0);
    if (r.run(f).ok()) ref.calls = Store::fileCalls();
    ref.after = groupState(f, r.group);
    return ref;
}

// Kills the routine at file call n in a child, opens the folder as the next start does and
// files the outcome. False when the child was not killed.
bool killAt(const Routine& r, const Reference& ref, int n, Outcome& out)
{
    ProgramFolder f;
    r.layDown(f);
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) {
        Store::setFaultAt(n);
        (void)r.run(f);
        ::_exit(0);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFSIGNALED(status) ||
        WTERMSIG(status) != SIGKILL)
        return false;
    Store next(f.root());
    if (!next.RecoverInterruptedChange().ok()) ++out.left;
    const QStringList state = groupState(f, r.group);
    if (state == ref.before)
        ++out.oldState;
    else if (state == ref.after)
        ++out.newState;
    else
        ++out.mixed;
    if (!leftovers(f).isEmpty()) ++out.left;
    if (nextNumberIsTaken(f)) ++out.duplicates;
    return true;
}

} // namespace

class TestCrashSafety : public QObject
{
    Q_OBJECT
private slots:
    void killedAtEveryFileCall_data();
    void killedAtEveryFileCall();
    // Many kills at random calls of random routines; run by scripts/crashtest.
    void randomKills();
};

void TestCrashSafety::killedAtEveryFileCall_data()
{
    QTest::addColumn<int>("routine");
    QTest::newRow("customer delete") << 0;
    QTest::newRow("customer save") << 1;
    QTest::newRow("booking with a stored slip") << 2;
    QTest::newRow("completion") << 3;
    QTest::newRow("exit backup") << 4;
    QTest::newRow("purge at start") << 5;
}

void TestCrashSafety::killedAtEveryFileCall()
{
    QFETCH(int, routine);
    const Routine r = routineNo(routine);
    const Reference ref = runUndisturbed(r);
    QVERIFY(ref.calls > 1);
    QVERIFY(ref.after != ref.before);

    Outcome out;
    for (int n = 1; n <= ref.calls; ++n)
        QVERIFY2(killAt(r, ref, n, out),
                 qPrintable(QStringLiteral("not killed at call %1").arg(n)));
    qInfo("%s: %d file calls killed, %d left old, %d left new, %d mixed, %d duplicate numbers, "
          "%d with leftovers",
          QTest::currentDataTag(), ref.calls, out.oldState, out.newState, out.mixed, out.duplicates,
          out.left);
    QCOMPARE(out.mixed, 0);
    QCOMPARE(out.duplicates, 0);
    QCOMPARE(out.left, 0);
    QVERIFY(out.oldState > 0 && out.newState > 0);
}

void TestCrashSafety::randomKills()
{
    const int kills = qEnvironmentVariableIntValue("DISPATCH_CRASH_KILLS");
    if (kills <= 0) QSKIP("DISPATCH_CRASH_KILLS is not set (scripts/crashtest sets it)");
    QList<Reference> refs;
    for (int i = 0; i < kRoutines; ++i)
        refs << runUndisturbed(routineNo(i));
    QRandomGenerator random(quint32(qEnvironmentVariableIntValue("DISPATCH_CRASH_SEED")));
    Outcome out;
    int killed = 0;
    for (int k = 0; k < kills; ++k) {
        const int i = random.bounded(kRoutines);
        if (killAt(routineNo(i), refs[i], 1 + random.bounded(refs[i].calls), out)) ++killed;
    }
    qInfo("random kills: %d, mixed groups: %d, duplicate numbers: %d, leftovers: %d", killed,
          out.mixed, out.duplicates, out.left);
    QCOMPARE(killed, kills);
    QCOMPARE(out.mixed, 0);
    QCOMPARE(out.duplicates, 0);
    QCOMPARE(out.left, 0);
}

QTEST_GUILESS_MAIN(TestCrashSafety)
#include "test_crashsafety.moc"
