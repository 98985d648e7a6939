#include "programfolder.h"

#include <QtTest>

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

QTEST_GUILESS_MAIN(TestStore)
#include "test_store.moc"
