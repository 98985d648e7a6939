#pragma once

#include "core/io/result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace tresvane
{
// The program folder and the file routines through which every other part reaches it.
//
// Names are relative to the program folder and begin with a separator; '/' and '\' are the
// same separator, doubled separators are harmless, and each component is matched without
// regard to case against what is on disk, so "/UnScheduledSlips.txt" finds
// "UnscheduledSlips.txt". A new file takes the spelling of an existing sibling if there is
// one, else the name as given. No name ever resolves outside the folder: "." and ".."
// are taken as ordinary names, never as steps.
//
// Nothing is held open between calls: each routine opens, works and closes its files.
// Whole files are replaced atomically (written beside the target, flushed to disk, then
// renamed over it), so a crash leaves the old file or the new one, never a torn one.
// A change that spans files goes through a Group, so it lands whole or not at all.
// What a reader keeps to know that a file is as it read it: its identity, size and times on
// disk, and the count of writes in place made through any store. Equal stamps mean the
// file was not changed by this program and, as far as the file system can tell, by no
// other.
struct FileStamp {
    bool exists = false;
    qint64 size = 0;
    qint64 inode = 0;
    qint64 modifiedNs = 0;
    qint64 changedNs = 0;
    quint64 inPlaceWrites = 0;
    bool operator==(const FileStamp&) const = default;
};

class Store
{
public:
    // A change to several files that must land together: a customer over its three
    // parallel files, a booking over its day file, record, counter and stored slip.
    // While a group is open, every change made through the store is held back and every
    // read through it sees the change. commit() writes each new version beside the folder
    // in ChangeFolder(), writes and flushes the intent record listing them, puts them in
    // place and removes the record; RecoverInterruptedChange() finishes a change whose
    // record was written. The group stays open after a commit, for a change that follows;
    // what was not committed when it ends changes no file. A group opened while another is
    // open joins it, and only the outer one commits.
    class Group
    {
    public:
        explicit Group(Store& store);
        ~Group();
        Group(const Group&) = delete;
        Group& operator=(const Group&) = delete;
        [[nodiscard]] Status commit();

    private:
        Store& m_store;
        bool m_outer;
    };
    // Runs change inside a group of its own and commits it when it succeeds.
    template <typename F> Status inGroup(F&& change)
    {
        Group group(*this);
        if (Status s = change(); !s) return s;
        return group.commit();
    }

    // The folder below the program folder that holds a change while it is put in place.
    static QString ChangeFolder() { return QStringLiteral("/ChangeInProgress"); }
    // At start, before any data file is read: finishes a change whose intent record was
    // written, drops one interrupted before that, and removes the temporary files of saves
    // a crash cut short.
    [[nodiscard]] Status RecoverInterruptedChange();

    // For the crash test only: the process kills itself at the n-th file call that changes
    // the disk from now on (n from 1; 0 switches the fault off).
    static void setFaultAt(int n);
    // The file calls that changed the disk since setFaultAt.
    static int fileCalls();

    enum class Access { ReadWrite, ReadOnly };
    // A read-only store refuses every change, FileExists's repair from Backup included:
    // what a checker of a folder sent in for support uses.
    explicit Store(QString programFolder, Access access = Access::ReadWrite);
    bool readOnly() const { return m_access == Access::ReadOnly; }

    QString root() const { return m_root; }
    // The name the program was started under, without folders and extension. It names
    // the settings file, a folder of the program's own and that folder's copy in Backup,
    // so a copy of the program under another name keeps settings of its own.
    QString baseName() const { return m_baseName; }
    void setBaseName(const QString& name) { m_baseName = name; }
    // The absolute path a program-relative name stands for.
    QString path(const QString& name) const;
    // The component of a name that is a file name within a folder, made safe: a
    // separator or a "." / ".." name cannot step out of that folder.
    static QString safeComponent(const QString& text);

    // True when the plain file exists (a folder does not count). A file missing from its
    // place but present under Backup is copied back first, so the test repairs a lost file.
    bool FileExists(const QString& name);
    // Exists test without the repair from Backup.
    bool IsFile(const QString& name) const;
    bool IsFolder(const QString& name) const;
    // Makes the folder, one level, when it does not exist.
    Status EnsureFolder(const QString& name);
    // Deletes the file when it exists. The last component may be a pattern ("*.*").
    Status KillIfPresent(const QString& name);
    // Deletes the copy under Backup, then the file, so the stale copy cannot come back.
    Status KillWithBackup(const QString& name);
    // Renames temporary to target, replacing the target atomically when it still exists.
    Status ReplaceFile(const QString& temporary, const QString& target);
    // Removes an empty folder.
    Status RemoveFolder(const QString& name);
    // Copies a file over another (the target is replaced atomically).
    Status CopyFile(const QString& source, const QString& target);

    // Number of fixed records: the length over the record length, rounded half to even.
    // 0 when FileExists says false. More than 32,767 records is reported, not wrapped.
    Result<qint16> RecordCount(const QString& name, int recordLength);
    // The same count as a 32-bit value, for callers that are not bound by 16 bits.
    Result<qint32> RecordCount32(const QString& name, int recordLength);
    static qint64 roundedRecords(qint64 bytes, int recordLength);

    qint64 FileSize(const QString& name) const;
    // The file's stamp on disk. Not to be trusted while a group is open (changeOpen()),
    // since the group's reads see changes that are not on disk.
    FileStamp Stamp(const QString& name) const;
    bool changeOpen() const { return m_groupDepth > 0; }
    // The whole file in one read; an empty array for a missing file.
    Result<QByteArray> ReadAll(const QString& name) const;
    // Replaces the whole file with bytes, atomically and flushed to disk.
    Status WriteFile(const QString& name, const QByteArray& bytes);
    // A text file rewritten as the system always has: its copy in Backup goes first.
    Status RewriteTextFile(const QString& name, const QByteArray& bytes);
    // A record file rewritten with the records to keep: written to TemporaryFile.txt,
    // flushed, and renamed over the target. Most rewrites remove the target's copy in
    // Backup so it cannot come back; a few have always left it standing.
    enum class BackupCopy { Remove, Keep };
    Status RewriteThroughTemporary(const QString& target, const QByteArray& bytes,
                                   BackupCopy backup = BackupCopy::Remove);
    // Writes one record in place at record number recordNo (from 1), flushed. Writing
    // past the end leaves zero bytes in the gap, as a new file's hole reads.
    Status WriteRecordAt(const QString& name, int recordLength, qint64 recordNo,
                         const QByteArray& record);
    // Adds a record after the file's last one, making the file when it is missing (after
    // FileExists's repair from Backup: a new empty file would leave the old records only in
    // Backup, for the next exit's backup to overwrite). It goes at the rounded count + 1,
    // so that a partial last record of less than half a record is overwritten, not kept.
    Status AppendRecord(const QString& name, int recordLength, const QByteArray& record);
    // Reads record recordNo (from 1); a record past the end reads as zero bytes, a
    // partial last record is filled with zero bytes.
    Result<QByteArray> ReadRecordAt(const QString& name, int recordLength, qint64 recordNo) const;

    // Names of the entries of a folder (files and folders), as they are spelt on disk.
    QStringList List(const QString& folder) const;

    // The message a user reads when a file cannot be used.
    QString describe(const QString& name) const;

private:
    QString resolve(const QString& name, bool* wildcard = nullptr) const;
    // The name as spelt, made safe, without looking at the disk.
    QString exactPath(const QString& name, bool* plain = nullptr) const;
    Status fail(const QString& what, const QString& name) const;
    Status refuseWhenReadOnly(const QString& name) const;

    struct Pending;
    // The open group's change, by absolute path; null when no group is open.
    const struct PendingEntry* pendingEntry(const QString& absolute) const;
    Status commitPending();
    Status applyIntent(const QByteArray& intent);
    QString relative(const QString& absolute) const;

    std::shared_ptr<Pending> m_pending;
    int m_groupDepth = 0;

    QString m_root;
    Access m_access;
    QString m_baseName = QStringLiteral("TresvaneDispatcher");
};
} // namespace tresvane
