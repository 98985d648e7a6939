#include "core/io/folderlock.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

// The lock that keeps two programs, on one computer or two, off one program folder.
class TestFolderLock : public QObject
{
    Q_OBJECT
private slots:
    void secondTakerIsToldWhoHoldsIt();
    void deadProgramOfThisComputerIsTakenOverSilently();
    void otherComputersLockWaitsForTheUser();
    void releaseLeavesALockTakenOverMeanwhile();

private:
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    static QByteArray read(const QString& path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    const QDateTime m_now{QDate(2026, 4, 30), QTime(9, 0)};
};

void TestFolderLock::secondTakerIsToldWhoHoldsIt()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("TresvaneDispatcher.lock");
    {
        FolderLock first(path, "TresvaneDispatcher");
        QCOMPARE(first.take(m_now), FolderLock::Outcome::Taken);
        const FolderLock::Holder recorded = FolderLock::parse(read(path));
        QCOMPARE(recorded.host, FolderLock::hostName());
        QCOMPARE(recorded.user, FolderLock::userName());
        QCOMPARE(recorded.pid, QCoreApplication::applicationPid());
        QCOMPARE(recorded.since, m_now);

        FolderLock second(path, "AcmeDispatch");
        QCOMPARE(second.take(m_now.addSecs(60)), FolderLock::Outcome::HeldHere);
        QCOMPARE(second.holder().user, FolderLock::userName());
        QCOMPARE(second.holder().since, m_now);
        QVERIFY(!second.held());
    }
    // The first let go as it ended.
    QVERIFY(!QFile::exists(path));
    FolderLock third(path, "TresvaneDispatcher");
    QCOMPARE(third.take(m_now), FolderLock::Outcome::Taken);
}

void TestFolderLock::deadProgramOfThisComputerIsTakenOverSilently()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("TresvaneDispatcher.lock");
    // A process that has ended: its number is free.
    QProcess gone;
    gone.start("true");
    QVERIFY(gone.waitForFinished());
    const qint64 pid = gone.processId() ? gone.processId() : 999999;
    write(path, "program: TresvaneDispatcher\nhost: " + FolderLock::hostName().toUtf8() +
                    "\nuser: anna\npid: " + QByteArray::number(pid > 0 ? pid : 999999) +
                    "\nsince: 2026-04-29T17:00:00\n");
    FolderLock lock(path, "TresvaneDispatcher");
    QCOMPARE(lock.take(m_now), FolderLock::Outcome::Taken);
    QCOMPARE(FolderLock::parse(read(path)).pid, QCoreApplication::applicationPid());
}

void TestFolderLock::otherComputersLockWaitsForTheUser()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("TresvaneDispatcher.lock");
    const QByteArray theirs = "program: TresvaneDispatcher\nhost: FRONTDESK\nuser: anna\n"
                              "pid: 1\nsince: 2026-04-30T07:58:00\n";
    write(path, theirs);
    FolderLock lock(path, "TresvaneDispatcher");
    QCOMPARE(lock.take(m_now), FolderLock::Outcome::HeldElsewhere);
    QCOMPARE(lock.holder().host, QStringLiteral("FRONTDESK"));
    QCOMPARE(lock.holder().user, QStringLiteral("anna"));
    QCOMPARE(read(path), theirs);
    QCOMPARE(lock.takeOver(m_now), FolderLock::Outcome::Taken);
    QCOMPARE(FolderLock::parse(read(path)).host, FolderLock::hostName());

    // A lock nobody can read (an empty file, a foreign format) is not ours to remove.
    lock.release();
    write(path, "");
    FolderLock unknown(path, "TresvaneDispatcher");
    QCOMPARE(unknown.take(m_now), FolderLock::Outcome::HeldElsewhere);
    QVERIFY(!unknown.holder().readable);
    QVERIFY(QFile::exists(path));
}

void TestFolderLock::releaseLeavesALockTakenOverMeanwhile()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("TresvaneDispatcher.lock");
    FolderLock ours(path, "TresvaneDispatcher");
    QCOMPARE(ours.take(m_now), FolderLock::Outcome::Taken);
    const QByteArray theirs = "program: TresvaneDispatcher\nhost: FRONTDESK\nuser: anna\n"
                              "pid: 7\nsince: 2026-04-30T10:00:00\n";
    write(path, theirs);
    ours.release();
    QCOMPARE(read(path), theirs);
}

QTEST_GUILESS_MAIN(TestFolderLock)
#include "test_folderlock.moc"
