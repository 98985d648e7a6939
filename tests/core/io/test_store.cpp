#include "programfolder.h"

#include <QDir>
#include <QtTest>

using namespace tresvane;

class TestStore : public QObject
{
    Q_OBJECT
private slots:
    void namesMatchWithoutRegardToCase();
    void namesNeverLeaveTheFolder_data();
    void namesNeverLeaveTheFolder();
    void newFileTakesTheSpellingOfItsSibling();
    void lostFileComesBackFromBackup();
    void folderIsNotAFile();
    void killWithBackupLeavesNoWayBack();
    void killIfPresentTakesPatterns();
    void recordCountRoundsHalfToEven_data();
    void recordCountRoundsHalfToEven();
    void recordCountPast32767IsAnError();
    void rewriteThroughTemporaryReplacesAndCleansUp();
    void writeRecordPastTheEndLeavesZeroBytes();
    void replaceFileOverAnExistingTarget();
    void groupHoldsItsChangeUntilCommit_data();
    void groupHoldsItsChangeUntilCommit();
    void groupFailsEarlyWhereTheDiskWould();
    void interruptedChangeAtStart_data();
    void interruptedChangeAtStart();
};

void TestStore::namesMatchWithoutRegardToCase()
{
    ProgramFolder f;
    f.put("UnscheduledSlips.txt", "x");
    f.put("AuxFiles/A1/AuxFile0/Data.txt", "y");
    QVERIFY(f.store.FileExists("/UnScheduledSlips.txt"));
    QCOMPARE(f.store.path("/UnScheduledSlips.txt"), f.abs("UnscheduledSlips.txt"));
    // Both separators, doubled separators, and case in folder names.
    QCOMPARE(f.store.path("\\Auxfiles\\a1//AUXFILE0/data.TXT"),
             f.abs("AuxFiles/A1/AuxFile0/Data.txt"));
    Result<QByteArray> bytes = f.store.ReadAll("/auxfiles/A1/auxfile0/DATA.txt");
    QVERIFY(bytes.ok());
    QCOMPARE(*bytes, QByteArray("y"));
}

void TestStore::namesNeverLeaveTheFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("slash dots") << "/../x";
    QTest::newRow("backslash dots") << "\\..\\x";
    QTest::newRow("deep") << "/a/../../../../x";
    QTest::newRow("dot") << "/./x";
}

void TestStore::namesNeverLeaveTheFolder()
{
    QFETCH(QString, name);
    ProgramFolder f;
    const QString resolved = f.store.path(name);
    QVERIFY2(resolved.startsWith(f.root() + u'/'), qPrintable(resolved));
    QVERIFY(!resolved.contains(QStringLiteral("/../")));
    QVERIFY(!resolved.contains(QStringLiteral("/./")));
    // A ".." is an ordinary folder name inside the program folder.
    QVERIFY(f.store.EnsureFolder("/..").ok());
    QVERIFY(f.hasFolder("%2E%2E"));
    QVERIFY(f.store.WriteFile("\\..\\x", "z").ok());
    QVERIFY(f.has("%2E%2E/x"));
}

void TestStore::newFileTakesTheSpellingOfItsSibling()
{
    ProgramFolder f;
    f.put("Backup/keep.txt", "");
    QVERIFY(f.store.WriteFile("/BACKUP/New.txt", "n").ok());
    QVERIFY(f.has("Backup/New.txt"));
    QVERIFY(!f.hasFolder("BACKUP"));
}

void TestStore::lostFileComesBackFromBackup()
{
    ProgramFolder f;
    f.put("Backup/Slips.txt", QByteArray(297, 'S'));
    QVERIFY(f.store.FileExists("/Slips.txt"));
    QCOMPARE(f.get("Slips.txt"), QByteArray(297, 'S'));
    // The second call finds it in place; the backup stays.
    QVERIFY(f.store.FileExists("/Slips.txt"));
    QVERIFY(f.has("Backup/Slips.txt"));
    QVERIFY(!f.store.FileExists("/Meetings.txt"));
}

void TestStore::folderIsNotAFile()
{
    ProgramFolder f;
    QVERIFY(f.store.EnsureFolder("/Backup").ok());
    QVERIFY(!f.store.FileExists("/Backup"));
    QVERIFY(f.store.EnsureFolder("/Backup").ok()); // a second time is harmless
    f.put("Plain.txt", "");
    QVERIFY(!f.store.EnsureFolder("/Plain.txt").ok());
}

void TestStore::killWithBackupLeavesNoWayBack()
{
    ProgramFolder f;
    f.put("Counter.txt", "a");
    f.put("Backup/Counter.txt", "b");
    QVERIFY(f.store.KillWithBackup("/Counter.txt").ok());
    QVERIFY(!f.has("Counter.txt"));
    QVERIFY(!f.has("Backup/Counter.txt"));
    QVERIFY(!f.store.FileExists("/Counter.txt"));
    QVERIFY(f.store.KillWithBackup("/Counter.txt").ok()); // nothing there: no error
}

void TestStore::killIfPresentTakesPatterns()
{
    ProgramFolder f;
    f.put("2016/Team#3/1.txt", "");
    f.put("2016/Team#3/200.txt", "");
    f.put("2016/Team#3/NoDot", "");
    f.put("2016/Team#4/1.txt", "");
    QVERIFY(f.store.KillIfPresent("/2016/team#3/*.*").ok());
    QVERIFY(f.store.List("/2016/Team#3").isEmpty());
    QVERIFY(f.has("2016/Team#4/1.txt"));
    QVERIFY(f.store.KillIfPresent("/2017/Team#1/*.*").ok()); // missing folder is fine
}

void TestStore::recordCountRoundsHalfToEven_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("count");
    QTest::newRow("empty") << 0 << 297 << 0;
    QTest::newRow("one short of a record") << 296 << 297 << 1;
    QTest::newRow("exact") << 594 << 297 << 2;
    QTest::newRow("under half") << 148 << 297 << 0;
    QTest::newRow("half, even stays") << 5 << 10 << 0;
    QTest::newRow("one and a half, rounds to even 2") << 15 << 10 << 2;
    QTest::newRow("two and a half, rounds to even 2") << 25 << 10 << 2;
    QTest::newRow("three customers") << 984 << 328 << 3;
}

void TestStore::recordCountRoundsHalfToEven()
{
    QFETCH(int, bytes);
    QFETCH(int, length);
    QFETCH(int, count);
    ProgramFolder f;
    f.put("R.txt", QByteArray(bytes, 'x'));
    Result<qint16> n = f.store.RecordCount("/R.txt", length);
    QVERIFY(n.ok());
    QCOMPARE(int(*n), count);
}

void TestStore::recordCountPast32767IsAnError()
{
    ProgramFolder f;
    QFile file(f.abs("CustomerData.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64(32768) * 328));
    file.close();
    Result<qint16> n = f.store.RecordCount("/CustomerData.txt", 328);
    QVERIFY(!n.ok());
    QVERIFY(n.message().contains("CustomerData.txt"));
    QVERIFY(n.message().contains("32,767"));
    QVERIFY(file.resize(qint64(32767) * 328));
    QCOMPARE(int(*f.store.RecordCount("/CustomerData.txt", 328)), 32767);
    QCOMPARE(*f.store.RecordCount32("/CustomerData.txt", 328), 32767);
    QCOMPARE(*f.store.RecordCount("/Missing.txt", 328), qint16(0));
}

void TestStore::rewriteThroughTemporaryReplacesAndCleansUp()
{
    ProgramFolder f;
    f.put("Meetings.txt", "old");
    f.put("Backup/Meetings.txt", "older");
    f.put("TemporaryFile.txt", "leftover of a crash");
    QVERIFY(f.store.RewriteThroughTemporary("/Meetings.txt", "new").ok());
    QCOMPARE(f.get("Meetings.txt"), QByteArray("new"));
    QVERIFY(!f.has("TemporaryFile.txt"));
    QVERIFY(!f.has("Backup/Meetings.txt"));
}

void TestStore::writeRecordPastTheEndLeavesZeroBytes()
{
    ProgramFolder f;
    QVERIFY(f.store.WriteRecordAt("/C.txt", 4, 3, "abcd").ok());
    QCOMPARE(f.get("C.txt"), QByteArray("\0\0\0\0\0\0\0\0abcd", 12));
    QVERIFY(f.store.WriteRecordAt("/C.txt", 4, 1, "wxyz").ok());
    QCOMPARE(f.get("C.txt"), QByteArray("wxyz\0\0\0\0abcd", 12));
    QCOMPARE(*f.store.ReadRecordAt("/C.txt", 4, 3), QByteArray("abcd"));
    QCOMPARE(*f.store.ReadRecordAt("/C.txt", 4, 9), QByteArray(4, '\0'));
    QVERIFY(!f.store.WriteRecordAt("/C.txt", 4, 0, "abcd").ok());
}

void TestStore::replaceFileOverAnExistingTarget()
{
    ProgramFolder f;
    f.put("TemporaryFile.txt", "t");
    f.put("Slips.txt", "s");
    QVERIFY(f.store.ReplaceFile("/TemporaryFile.txt", "/Slips.txt").ok());
    QCOMPARE(f.get("Slips.txt"), QByteArray("t"));
    QVERIFY(!f.has("TemporaryFile.txt"));
    QVERIFY(!f.store.ReplaceFile("/TemporaryFile.txt", "/Slips.txt").ok());
}

void TestStore::groupHoldsItsChangeUntilCommit_data()
{
    QTest::addColumn<bool>("commit");
    QTest::newRow("committed") << true;
    QTest::newRow("abandoned") << false;
}

void TestStore::groupHoldsItsChangeUntilCommit()
{
    QFETCH(bool, commit);
    ProgramFolder f;
    f.put("Slips.txt", "aaaabbbb");
    f.put("Meetings.txt", "gone soon");
    f.put("Backup/Counter.txt", "\"1\",1\r\n");
    const auto before = f.snapshot();
    {
        Store::Group change(f.store);
        QVERIFY(f.store.WriteRecordAt("/Slips.txt", 4, 2, "BBBB").ok());
        QVERIFY(f.store.WriteRecordAt("/Slips.txt", 4, 4, "DDDD").ok());
        QVERIFY(f.store.RewriteTextFile("/Counter.txt", "\"1\",2\r\n").ok());
        QVERIFY(f.store.WriteRecordAt("/Counter.txt", 2, 1, "\"2").ok());
        QVERIFY(f.store.KillWithBackup("/Meetings.txt").ok());
        {
            // An inner group joins the outer one and commits nothing of its own.
            Store::Group inner(f.store);
            QVERIFY(f.store.WriteFile("/New.txt", "n").ok());
            QVERIFY(inner.commit().ok());
        }
        // The change reads back through the store before it is on disk.
        QCOMPARE(*f.store.ReadAll("/Slips.txt"), QByteArray("aaaaBBBB\0\0\0\0DDDD", 16));
        QCOMPARE(*f.store.ReadRecordAt("/Slips.txt", 4, 4), QByteArray("DDDD"));
        QCOMPARE(f.store.FileSize("/Slips.txt"), 16);
        QCOMPARE(*f.store.ReadAll("/Counter.txt"), QByteArray("\"2\",2\r\n"));
        QVERIFY(!f.store.IsFile("/Meetings.txt") && !f.store.FileExists("/Meetings.txt"));
        QVERIFY(f.store.IsFile("/New.txt"));
        QCOMPARE(f.snapshot(), before);
        if (commit) QVERIFY(change.commit().ok());
    }
    if (!commit) {
        QCOMPARE(f.snapshot(), before);
        return;
    }
    QCOMPARE(f.get("Slips.txt"), QByteArray("aaaaBBBB\0\0\0\0DDDD", 16));
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"2\",2\r\n"));
    QVERIFY(!f.has("Meetings.txt") && !f.has("Backup/Counter.txt"));
    QCOMPARE(f.get("New.txt"), QByteArray("n"));
    QVERIFY(!f.hasFolder("ChangeInProgress"));
    QCOMPARE(f.snapshot().size(), 3);
}

void TestStore::groupFailsEarlyWhereTheDiskWould()
{
    ProgramFolder f;
    QDir().mkpath(f.abs("Slips.txt"));
    Store::Group change(f.store);
    QVERIFY(f.store.WriteFile("/Counter.txt", "1").ok());
    QVERIFY(!f.store.WriteRecordAt("/Slips.txt", 4, 1, "AAAA").ok());
    QVERIFY(!f.store.WriteFile("/Slips.txt", "x").ok());
    QVERIFY(!f.store.WriteFile("/NoSuchFolder/x.txt", "x").ok());
}

using Files = QMap<QString, QByteArray>;

void TestStore::interruptedChangeAtStart_data()
{
    QTest::addColumn<Files>("laid");
    QTest::addColumn<Files>("expected"); // the whole folder afterwards

    const Files files{{"Slips.txt", "old slips"}, {"Meetings.txt", "meet"}};
    auto with = [&](Files extra) {
        Files all = files;
        for (auto it = extra.cbegin(); it != extra.cend(); ++it)
            all[it.key()] = it.value();
        return all;
    };
    QTest::newRow("whole record is finished")
        << with({{"ChangeInProgress/1.new", "new slips"},
                 {"ChangeInProgress/Intent.txt", "W\t1.new\tSlips.txt\nD\tMeetings.txt\nEND\n"}})
        << Files{{"Slips.txt", "new slips"}};
    QTest::newRow("half-finished record is finished")
        << Files{{"Slips.txt", "new slips"},
                 {"Counter.txt", "old"},
                 {"ChangeInProgress/2.new", "new"},
                 {"ChangeInProgress/Intent.txt",
                  "W\t1.new\tSlips.txt\nW\t2.new\tCounter.txt\nEND\n"}}
        << Files{{"Slips.txt", "new slips"}, {"Counter.txt", "new"}};
    QTest::newRow("records written in place")
        << with({{"ChangeInProgress/1.new", "NEW"},
                 {"ChangeInProgress/Intent.txt", "P\t1.new\tSlips.txt\t0\nEND\n"}})
        << Files{{"Slips.txt", "NEW slips"}, {"Meetings.txt", "meet"}};
    QTest::newRow("record without its end is dropped")
        << with({{"ChangeInProgress/1.new", "new slips"},
                 {"ChangeInProgress/Intent.txt", "W\t1.new\tSlips.txt\nD\tMeetings.txt\n"}})
        << files;
    QTest::newRow("new versions without a record are dropped")
        << with({{"ChangeInProgress/1.new", "new slips"}}) << files;
    QTest::newRow("a team folder in the record")
        << Files{{"2026/Team#3/125.txt", "old"},
                 {"ChangeInProgress/1.new", "new"},
                 {"ChangeInProgress/Intent.txt", "W\t1.new\t2026/Team%233/125.txt\nEND\n"}}
        << Files{{"2026/Team#3/125.txt", "new"}};
    // A record damaged on disk is dropped whole: applied in part it would mix old and new,
    // and no line of it may reach beside the program folder.
    const Files outside{{"../neighbour.txt", "not the program's"}};
    auto damaged = [&](const char* intent) {
        Files laid = with(
            {{"ChangeInProgress/1.new", "new slips"}, {"ChangeInProgress/Intent.txt", intent}});
        laid.insert(outside);
        return laid;
    };
    Files untouched = files;
    untouched.insert(outside);
    QTest::newRow("record with a line cut short")
        << damaged("W\t1.new\tSlips.txt\nW\t2.END\n") << untouched;
    QTest::newRow("record naming a file beside the folder")
        << damaged("W\t1.new\t..%2Fneighbour.txt\nEND\n") << untouched;
    QTest::newRow("record deleting a file beside the folder")
        << damaged("D\tSlips.txt\nD\t..%2Fneighbour.txt\nEND\n") << untouched;
    QTest::newRow("record whose new version lies beside the folder")
        << damaged("W\t../../neighbour.txt\tSlips.txt\nEND\n") << untouched;
    QTest::newRow("record written in place far past any record file")
        << damaged("P\t1.new\tSlips.txt\t99999999999999\nEND\n") << untouched;
    QTest::newRow("record of an unknown step")
        << damaged("W\t1.new\tSlips.txt\nX\tMeetings.txt\nEND\n") << untouched;
    QTest::newRow("temporaries of cut-short saves")
        << with({{"Slips.txt.a1B2c3", "half"},
                 {"Backup/Counter.txt", "c"},
                 {"Backup/Counter.txt.Zz09Aa", "half"},
                 {"2026/Team#1/5.txt", "d"},
                 {"2026/Team#1/5.txt.abc123", "half"},
                 {"Notes.txt.backup", "a user's own file"}})
        << with({{"Backup/Counter.txt", "c"},
                 {"2026/Team#1/5.txt", "d"},
                 {"Notes.txt.backup", "a user's own file"}});
}

void TestStore::interruptedChangeAtStart()
{
    QFETCH(Files, laid);
    QFETCH(Files, expected);
    ProgramFolder f;
    for (auto it = laid.cbegin(); it != laid.cend(); ++it)
        f.put(it.key(), it.value());
    // What lies beside the program folder is compared on its own.
    Files inside, beside;
    for (auto it = expected.cbegin(); it != expected.cend(); ++it)
        (it.key().startsWith(u"../") ? beside : inside).insert(it.key(), it.value());
    for (int start = 1; start <= 2; ++start) {
        QVERIFY(f.store.RecoverInterruptedChange().ok());
        QCOMPARE(f.snapshot(), inside);
        QVERIFY(!f.hasFolder("ChangeInProgress"));
        for (auto it = beside.cbegin(); it != beside.cend(); ++it)
            QCOMPARE(f.get(it.key()), it.value());
    }
}

QTEST_GUILESS_MAIN(TestStore)
#include "test_store.moc"
