#pragma once

#include <QDateTime>
#include <QString>

namespace tresvane
{
// One running program per program folder, also when the folder lies on a file server and
// is opened from two computers: the lock is a small file in the folder itself, made with
// an exclusive create (which NFS and SMB honour), naming the computer, the user, the
// process and the time. Sibling programs ignore it. Nothing is held open.
class FolderLock
{
public:
    struct Holder {
        QString host;
        QString user;
        QString program;
        qint64 pid = 0;
        QDateTime since;
        bool readable = false; // false: an empty or foreign file, holder unknown
    };
    enum class Outcome {
        Taken,         // the folder is ours until release()
        HeldHere,      // a live program of this computer holds it
        HeldElsewhere, // another computer holds it, or a lock we cannot read: maybe dead
        Failed,        // the lock could not be written (error() says why)
    };

    // path: the lock file's absolute path; program: the name the program runs under.
    FolderLock(QString path, QString program);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // Takes the lock. A lock left by a program of this computer whose process is gone is
    // taken over silently. now is what the lock records as its time.
    Outcome take(const QDateTime& now);
    // Removes another's lock (the user said its program has ended) and takes it.
    Outcome takeOver(const QDateTime& now);
    // Gives the lock up, when it is ours.
    void release();

    bool held() const { return m_held; }
    // Who holds the lock, after take() refused it.
    const Holder& holder() const { return m_holder; }
    QString error() const { return m_error; }
    QString path() const { return m_path; }

    // This computer's name and the user's, as the lock records them.
    static QString hostName();
    static QString userName();
    // Reads a lock file's contents.
    static Holder parse(const QByteArray& bytes);

private:
    bool create(const QDateTime& now);
    bool isOursAndDead(const Holder& h) const;

    QString m_path;
    QString m_program;
    Holder m_holder;
    QString m_error;
    bool m_held = false;
};
} // namespace tresvane
