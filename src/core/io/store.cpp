#include "core/io/store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>
#include <QUrl>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace tresvane
{
namespace
{

int s_faultAt = 0;
// Atomic: the crews' calendars are written by a thread of their own.
std::atomic<int> s_fileCalls = 0;
// Every write into a file in place through any store, never reset: part of a file's
// stamp, since such a write keeps the file's size and identity and may land within the
// same tick of the file system's clock as the read before it.
quint64 s_inPlaceWrites = 0;

// Every call that changes the disk passes here; the crash test stops the process at one.
void fileCall()
{
    ++s_fileCalls;
    if (s_faultAt > 0 && s_fileCalls >= s_faultAt) ::kill(::getpid(), SIGKILL);
}

bool isSeparator(QChar c)
{
    return c == u'/' || c == u'\\';
}

QStringList splitName(const QString& name)
{
    QStringList parts;
    QString current;
    for (QChar c : name) {
        if (isSeparator(c)) {
            if (!current.isEmpty()) parts << current;
            current.clear();
        } else {
            current += c;
        }
    }
    if (!current.isEmpty()) parts << current;
    return parts;
}

bool hasWildcard(const QString& component)
{
    return component.contains(u'*') || component.contains(u'?');
}

// The spelling on disk of one component within folder, or the component as given.
QString matchComponent(const QString& folder, const QString& component)
{
    const QString exact = folder + u'/' + component;
    if (QFileInfo::exists(exact)) return component;
    const QDir dir(folder);
    if (!dir.exists()) return component;
    const QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        if (entry.compare(component, Qt::CaseInsensitive) == 0) return entry;
    return component;
}

// Flushes a folder's entries, so that a file renamed into it or removed from it stays so
// after a power cut, not only the file's bytes.
void syncFolder(const QString& folder)
{
    const int fd = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

bool syncFile(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd < 0) return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}

} // namespace

// A change held back by an open group: the new file, its deletion, or the records
// written in place over what is on disk.
struct PendingEntry {
    enum class Kind { Whole, Deleted, Patched };
    Kind kind = Kind::Whole;
    QByteArray bytes;                         // Whole: the new file
    QList<QPair<qint64, QByteArray>> patches; // Patched: records written in place, in order
};

struct Store::Pending {
    QMap<QString, PendingEntry> entries; // by absolute path
};

namespace
{

QByteArray withPatches(QByteArray bytes, const QList<QPair<qint64, QByteArray>>& patches)
{
    for (const auto& [offset, record] : patches) {
        if (bytes.size() < offset + record.size())
            bytes.append(QByteArray(offset + record.size() - bytes.size(), '\0'));
        bytes.replace(offset, record.size(), record);
    }
    return bytes;
}

} // namespace

Store::Store(QString programFolder, Access access)
    : m_root(QDir::cleanPath(std::move(programFolder))), m_access(access)
{
}

Status Store::refuseWhenReadOnly(const QString& name) const
{
    if (m_access == Access::ReadOnly)
        return fail(QStringLiteral("Not allowed to change (read-only)"), name);
    return {};
}

QString Store::safeComponent(const QString& text)
{
    QString out = text;
    for (QChar& c : out)
        if (isSeparator(c) || c == QChar(0)) c = u'_';
    if (out.isEmpty()) return QStringLiteral("_");
    if (out == u"." || out == u"..") return QString(out).replace(u'.', QStringLiteral("%2E"));
    return out;
}

QString Store::resolve(const QString& name, bool* wildcard) const
{
    QString current = m_root;
    const QStringList parts = splitName(name);
    if (wildcard) *wildcard = false;
    // Most names are spelt as they stand on disk: one look settles them.
    bool plain = true;
    const QString exact = exactPath(name, &plain);
    if (plain && QFileInfo::exists(exact)) return exact;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString component = safeComponent(parts[i]);
        if (i == parts.size() - 1 && hasWildcard(component)) {
            if (wildcard) *wildcard = true;
            current += u'/' + component;
        } else {
            current += u'/' + matchComponent(current, component);
        }
    }
    return current;
}

QString Store::exactPath(const QString& name, bool* plain) const
{
    QString exact = m_root;
    bool noWildcard = true;
    for (const QString& part : splitName(name)) {
        const QString component = safeComponent(part);
        noWildcard = noWildcard && !hasWildcard(component);
        exact += u'/' + component;
    }
    if (plain) *plain = noWildcard;
    return exact;
}

QString Store::path(const QString& name) const
{
    return resolve(name);
}

QString Store::describe(const QString& name) const
{
    const QStringList parts = splitName(name);
    return parts.isEmpty() ? m_root : parts.join(u'/');
}

Status Store::fail(const QString& what, const QString& name) const
{
    return Status::failure(QStringLiteral("%1 %2 in %3").arg(what, describe(name), m_root));
}

bool Store::IsFile(const QString& name) const
{
    if (m_pending)
        if (const PendingEntry* e = pendingEntry(resolve(name)))
            return e->kind != PendingEntry::Kind::Deleted;
    // The name as spelt first: one look for the common case.
    if (QFileInfo(exactPath(name)).isFile()) return true;
    const QFileInfo info(resolve(name));
    return info.exists() && info.isFile();
}

bool Store::IsFolder(const QString& name) const
{
    return QFileInfo(resolve(name)).isDir();
}

bool Store::FileExists(const QString& name)
{
    const PendingEntry* pending = m_pending ? pendingEntry(resolve(name)) : nullptr;
    if (pending && pending->kind != PendingEntry::Kind::Deleted) return true;
    if (!pending && QFileInfo(exactPath(name)).isFile()) return true;
    const QString target = resolve(name);
    const QFileInfo info(target);
    if (!pending && info.exists()) return info.isFile();
    const QString backup = QStringLiteral("/Backup/") + name;
    if (!IsFile(backup)) return false;
    // A lost file comes back from its last backup copy.
    return CopyFile(backup, name).ok();
}

Status Store::EnsureFolder(const QString& name)
{
    if (Status s = refuseWhenReadOnly(name); !s) return s;
    if (QFileInfo(exactPath(name)).isDir()) return {};
    const QString target = resolve(name);
    const QFileInfo info(target);
    if (info.isDir()) return {};
    if (info.exists()) return fail(QStringLiteral("A file stands where a folder belongs:"), name);
    if (!QDir().mkdir(target)) return fail(QStringLiteral("Could not make the folder"), name);
    return {};
}

Status Store::KillIfPresent(const QString& name)
{
    if (Status s = refuseWhenReadOnly(name); !s) return s;
    bool wildcard = false;
    const QString target = resolve(name, &wildcard);
    if (m_pending) {
        QStringList targets;
        if (!wildcard) {
            targets << target;
        } else {
            const QFileInfo patternInfo(target);
            QString pattern = patternInfo.fileName();
            if (pattern == u"*.*") pattern = QStringLiteral("*");
            const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(pattern),
                                        QRegularExpression::CaseInsensitiveOption);
            const QDir dir(patternInfo.path());
            for (const QString& file : dir.entryList(QDir::Files | QDir::Hidden | QDir::System))
                if (re.match(file).hasMatch()) targets << dir.filePath(file);
            for (auto it = m_pending->entries.cbegin(); it != m_pending->entries.cend(); ++it)
                if (QFileInfo(it.key()).path() == patternInfo.path() &&
                    re.match(QFileInfo(it.key()).fileName()).hasMatch())
                    targets << it.key();
        }
        for (const QString& t : targets) {
            const PendingEntry* e = pendingEntry(t);
            if (e ? e->kind != PendingEntry::Kind::Deleted : QFileInfo(t).isFile())
                m_pending->entries[t] = PendingEntry{PendingEntry::Kind::Deleted, {}, {}};
        }
        return {};
    }
    if (!wildcard) {
        const QFileInfo info(target);
        if (!info.exists() || !info.isFile()) return {};
        fileCall();
        if (!QFile::remove(target)) return fail(QStringLiteral("Could not delete"), name);
        return {};
    }
    const QFileInfo patternInfo(target);
    QString pattern = patternInfo.fileName();
    // "*.*" is the old way of saying every file, dotted or not.
    if (pattern == u"*.*") pattern = QStringLiteral("*");
    QDir dir(patternInfo.path());
    if (!dir.exists()) return {};
    const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(pattern),
                                QRegularExpression::CaseInsensitiveOption);
    const QStringList files = dir.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& file : files) {
        if (!re.match(file).hasMatch()) continue;
        fileCall();
        if (!dir.remove(file))
            return fail(QStringLiteral("Could not delete"), patternInfo.path() + u'/' + file);
    }
    return {};
}

Status Store::KillWithBackup(const QString& name)
{
    if (Status s = KillIfPresent(QStringLiteral("/Backup/") + name); !s) return s;
    return KillIfPresent(name);
}

Status Store::ReplaceFile(const QString& temporary, const QString& target)
{
    if (Status s = refuseWhenReadOnly(target); !s) return s;
    if (m_pending) {
        if (!IsFile(temporary)) return fail(QStringLiteral("Could not find"), temporary);
        Result<QByteArray> bytes = ReadAll(temporary);
        if (!bytes) return bytes.status();
        if (Status s = WriteFile(target, *bytes); !s) return s;
        return KillIfPresent(temporary);
    }
    const QString from = resolve(temporary);
    const QString to = resolve(target);
    fileCall();
    if (!QFileInfo(from).isFile()) return fail(QStringLiteral("Could not find"), temporary);
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return fail(QStringLiteral("Could not replace"), target);
    syncFolder(QFileInfo(to).path());
    return KillIfPresent(temporary);
}

Status Store::RemoveFolder(const QString& name)
{
    if (Status s = refuseWhenReadOnly(name); !s) return s;
    const QString target = resolve(name);
    if (!QFileInfo(target).isDir()) return {};
    if (!QDir().rmdir(target)) return fail(QStringLiteral("Could not remove the folder"), name);
    return {};
}

Status Store::CopyFile(const QString& source, const QString& target)
{
    Result<QByteArray> bytes = ReadAll(source);
    if (!bytes) return bytes.status();
    return WriteFile(target, *bytes);
}

qint64 Store::roundedRecords(qint64 bytes, int recordLength)
{
    if (recordLength <= 0 || bytes <= 0) return 0;
    qint64 q = bytes / recordLength;
    const qint64 twice = 2 * (bytes % recordLength);
    if (twice > recordLength || (twice == recordLength && (q % 2) == 1)) ++q;
    return q;
}

Status Store::AppendRecord(const QString& name, int recordLength, const QByteArray& record)
{
    if (!FileExists(name))
        if (Status s = WriteFile(name, QByteArray()); !s) return s;
    return WriteRecordAt(name, recordLength, roundedRecords(FileSize(name), recordLength) + 1,
                         record);
}

Result<qint32> Store::RecordCount32(const QString& name, int recordLength)
{
    if (!FileExists(name)) return qint32(0);
    const qint64 n = roundedRecords(FileSize(name), recordLength);
    if (n > 0x7fffffff)
        return Status::failure(
            QStringLiteral("%1 is too large to be a record file").arg(describe(name)));
    return qint32(n);
}

Result<qint16> Store::RecordCount(const QString& name, int recordLength)
{
    Result<qint32> n = RecordCount32(name, recordLength);
    if (!n) return n.status();
    if (*n > 32767)
        return Status::failure(
            QStringLiteral("%1 holds %2 records; the most this program can use is 32,767.")
                .arg(describe(name))
                .arg(*n));
    return qint16(*n);
}

qint64 Store::FileSize(const QString& name) const
{
    if (m_pending)
        if (const PendingEntry* e = pendingEntry(resolve(name))) {
            if (e->kind == PendingEntry::Kind::Patched) return ReadAll(name).valueOr({}).size();
            return e->bytes.size();
        }
    const QFileInfo info(resolve(name));
    return info.isFile() ? info.size() : 0;
}

FileStamp Store::Stamp(const QString& name) const
{
    FileStamp stamp;
    stamp.inPlaceWrites = s_inPlaceWrites;
    struct stat info;
    const QByteArray path = QFile::encodeName(resolve(name));
    if (::stat(path.constData(), &info) != 0 || !S_ISREG(info.st_mode)) return stamp;
    stamp.exists = true;
    stamp.size = info.st_size;
    stamp.inode = qint64(info.st_ino);
    stamp.modifiedNs = qint64(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
    stamp.changedNs = qint64(info.st_ctim.tv_sec) * 1000000000 + info.st_ctim.tv_nsec;
    return stamp;
}

Result<QByteArray> Store::ReadAll(const QString& name) const
{
    if (m_pending)
        if (const PendingEntry* e = pendingEntry(resolve(name))) {
            if (e->kind != PendingEntry::Kind::Patched) return e->bytes;
            QFile file(resolve(name));
            QByteArray bytes;
            if (file.exists()) {
                if (!file.open(QIODevice::ReadOnly))
                    return fail(QStringLiteral("Could not read"), name);
                bytes = file.readAll();
            }
            return withPatches(bytes, e->patches);
        }
    // The name as spelt first; the search without regard to case only when it is not there.
    QFile exact(exactPath(name));
    if (exact.open(QIODevice::ReadOnly)) {
        QByteArray bytes = exact.readAll();
        if (exact.error() != QFileDevice::NoError)
            return fail(QStringLiteral("Could not read"), name);
        return bytes;
    }
    QFile file(resolve(name));
    if (!file.exists()) return QByteArray();
    if (!file.open(QIODevice::ReadOnly)) return fail(QStringLiteral("Could not read"), name);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return fail(QStringLiteral("Could not read"), name);
    return bytes;
}

Status Store::WriteFile(const QString& name, const QByteArray& bytes)
{
    if (Status s = refuseWhenReadOnly(name); !s) return s;
    if (m_pending) {
        // What would fail on disk fails now, before anything else of the change is done.
        const QString target = resolve(name);
        if (QFileInfo(target).isDir() || !QFileInfo(QFileInfo(target).path()).isDir())
            return fail(QStringLiteral("Could not write"), name);
        m_pending->entries[target] = PendingEntry{PendingEntry::Kind::Whole, bytes, {}};
        return {};
    }
    fileCall();
    const QString target = resolve(name);
    QSaveFile file(target);
    // Where the folder forbids a temporary beside the target, write directly rather
    // than fail: the folder's rights are the user's choice.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) return fail(QStringLiteral("Could not write"), name);
    if (file.write(bytes) != bytes.size() || !file.commit())
        return fail(QStringLiteral("Could not write"), name);
    syncFolder(QFileInfo(target).path());
    return {};
}

Status Store::RewriteTextFile(const QString& name, const QByteArray& bytes)
{
    if (Status s = KillIfPresent(QStringLiteral("/Backup/") + name); !s) return s;
    return WriteFile(name, bytes);
}

Status Store::RewriteThroughTemporary(const QString& target, const QByteArray& bytes,
                                      BackupCopy backup)
{
    if (Status s = refuseWhenReadOnly(target); !s) return s;
    const QString temporary = QStringLiteral("/TemporaryFile.txt");
    if (Status s = KillIfPresent(temporary); !s) return s;
    if (m_pending) {
        if (backup == BackupCopy::Remove)
            if (Status s = KillIfPresent(QStringLiteral("/Backup/") + target); !s) return s;
        return WriteFile(target, bytes);
    }
    fileCall();
    {
        QFile file(resolve(temporary));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            return fail(QStringLiteral("Could not write"), temporary);
    }
    if (!syncFile(resolve(temporary))) return fail(QStringLiteral("Could not write"), temporary);
    if (backup == BackupCopy::Remove)
        if (Status s = KillIfPresent(QStringLiteral("/Backup/") + target); !s) return s;
    return ReplaceFile(temporary, target);
}

Status Store::WriteRecordAt(const QString& name, int recordLength, qint64 recordNo,
                            const QByteArray& record)
{
    if (Status s = refuseWhenReadOnly(name); !s) return s;
    if (recordNo < 1 || record.size() != recordLength)
        return fail(QStringLiteral("Bad record number for"), name);
    if (m_pending) {
        const qint64 offset = (recordNo - 1) * recordLength;
        const QString target = resolve(name);
        if (QFileInfo(target).isDir() || !QFileInfo(QFileInfo(target).path()).isDir())
            return fail(QStringLiteral("Could not write"), name);
        if (!pendingEntry(target))
            m_pending->entries.insert(target, PendingEntry{PendingEntry::Kind::Patched, {}, {}});
        PendingEntry& e = m_pending->entries[target];
        if (e.kind == PendingEntry::Kind::Patched) {
            e.patches.append({offset, record});
        } else {
            // A file written whole (or deleted) in this change is patched in memory.
            e.bytes = withPatches(e.kind == PendingEntry::Kind::Whole ? e.bytes : QByteArray(),
                                  {{offset, record}});
            e.kind = PendingEntry::Kind::Whole;
        }
        return {};
    }
    fileCall();
    ++s_inPlaceWrites;
    QFile file(resolve(name));
    if (!file.open(QIODevice::ReadWrite)) return fail(QStringLiteral("Could not write"), name);
    if (!file.seek((recordNo - 1) * recordLength) || file.write(record) != recordLength ||
        !file.flush())
        return fail(QStringLiteral("Could not write"), name);
    if (::fsync(file.handle()) != 0) return fail(QStringLiteral("Could not write"), name);
    return {};
}

Result<QByteArray> Store::ReadRecordAt(const QString& name, int recordLength, qint64 recordNo) const
{
    QByteArray record(recordLength, '\0');
    if (m_pending && pendingEntry(resolve(name))) {
        const QByteArray bytes = ReadAll(name).valueOr({});
        if (recordNo >= 1) {
            const QByteArray got = bytes.mid((recordNo - 1) * recordLength, recordLength);
            record.replace(0, got.size(), got);
        }
        return record;
    }
    QFile file(resolve(name));
    if (!file.exists() || recordNo < 1) return record;
    if (!file.open(QIODevice::ReadOnly)) return fail(QStringLiteral("Could not read"), name);
    if (!file.seek((recordNo - 1) * recordLength)) return record;
    const QByteArray got = file.read(recordLength);
    record.replace(0, got.size(), got);
    return record;
}

QStringList Store::List(const QString& folder) const
{
    return QDir(resolve(folder))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
}

// ---------------------------------------------------------------------------------------
// Changes that span files.

namespace
{

const QString kIntentName = QStringLiteral("Intent.txt");

QByteArray diskBytes(const QString& absolute)
{
    QFile file(absolute);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Writes a new file and flushes it to disk before returning.
bool writeFlushed(const QString& absolute, const QByteArray& bytes)
{
    fileCall();
    QFile file(absolute);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size() || !file.flush())
        return false;
    return ::fsync(file.handle()) == 0;
}

bool patchFlushed(const QString& absolute, qint64 offset, const QByteArray& bytes)
{
    fileCall();
    ++s_inPlaceWrites;
    QFile file(absolute);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(offset) ||
        file.write(bytes) != bytes.size() || !file.flush())
        return false;
    return ::fsync(file.handle()) == 0;
}

} // namespace

void Store::setFaultAt(int n)
{
    s_faultAt = n;
    s_fileCalls = 0;
}

int Store::fileCalls()
{
    return s_fileCalls;
}

Store::Group::Group(Store& store) : m_store(store), m_outer(store.m_groupDepth == 0)
{
    if (m_outer) m_store.m_pending = std::make_shared<Pending>();
    ++m_store.m_groupDepth;
}

Store::Group::~Group()
{
    --m_store.m_groupDepth;
    if (m_outer) m_store.m_pending.reset();
}

Status Store::Group::commit()
{
    if (!m_outer) return {};
    Status s = m_store.commitPending();
    // What follows is held back again, for the next commit.
    m_store.m_pending = std::make_shared<Pending>();
    return s;
}

const PendingEntry* Store::pendingEntry(const QString& absolute) const
{
    if (!m_pending) return nullptr;
    auto it = m_pending->entries.constFind(absolute);
    return it == m_pending->entries.constEnd() ? nullptr : &*it;
}

QString Store::relative(const QString& absolute) const
{
    return QDir(m_root).relativeFilePath(absolute);
}

Status Store::commitPending()
{
    const std::shared_ptr<Pending> pending = std::move(m_pending);
    if (!pending || pending->entries.isEmpty()) return {};
    const QString folder = m_root + ChangeFolder();
    if (!QFileInfo(folder).isDir() && !QDir().mkdir(folder))
        return fail(QStringLiteral("Could not make the folder"), ChangeFolder());
    // The new versions first, each flushed, none yet in place: a crash here leaves every
    // file as it was, and the next start drops what was written.
    QByteArray intent;
    int n = 0;
    auto encode = [](const QString& path) { return QUrl::toPercentEncoding(path, "/"); };
    for (auto it = pending->entries.cbegin(); it != pending->entries.cend(); ++it) {
        const QByteArray target = encode(relative(it.key()));
        switch (it->kind) {
        case PendingEntry::Kind::Deleted:
            intent += "D\t" + target + '\n';
            break;
        case PendingEntry::Kind::Whole: {
            const QString stage = QString::number(++n) + QStringLiteral(".new");
            if (!writeFlushed(folder + u'/' + stage, it->bytes))
                return fail(QStringLiteral("Could not write"), ChangeFolder() + u'/' + stage);
            intent += "W\t" + stage.toLatin1() + '\t' + target + '\n';
            break;
        }
        case PendingEntry::Kind::Patched:
            for (const auto& [offset, bytes] : it->patches) {
                const QString stage = QString::number(++n) + QStringLiteral(".new");
                if (!writeFlushed(folder + u'/' + stage, bytes))
                    return fail(QStringLiteral("Could not write"), ChangeFolder() + u'/' + stage);
                intent += "P\t" + stage.toLatin1() + '\t' + target + '\t' +
                          QByteArray::number(offset) + '\n';
            }
            break;
        }
    }
    intent += "END\n";
    // The intent record is the instant of the change: once it is on disk, the change is
    // finished by whoever comes next, this call or the next start.
    fileCall();
    {
        QSaveFile file(folder + u'/' + kIntentName);
        if (!file.open(QIODevice::WriteOnly) || file.write(intent) != intent.size() ||
            !file.commit())
            return fail(QStringLiteral("Could not write"), ChangeFolder() + u'/' + kIntentName);
    }
    syncFolder(folder);
    return applyIntent(intent);
}

namespace
{

// One line of an intent record.
struct IntentStep {
    enum class Kind { Delete, Whole, Patch };
    Kind kind = Kind::Delete;
    QString stage;  // the new version's file in the change folder; none for a delete
    QString target; // absolute
    qint64 offset = 0;
};

// Far past the end of any record file: an offset beyond it is damage, not a record.
constexpr qint64 kLargestPatchOffset = qint64(1) << 32;

bool isStageName(const QByteArray& name)
{
    static const QRegularExpression stage(QStringLiteral("^[0-9]{1,9}\\.new$"));
    return stage.match(QString::fromLatin1(name)).hasMatch();
}

// The steps of a whole record, or none when any line is not one a commit writes: a record
// damaged on disk is never applied in part, and no step reaches outside the folder.
std::optional<QList<IntentStep>> parseIntent(const QByteArray& intent, const QString& root)
{
    if (!intent.endsWith("\nEND\n") && intent != "END\n") return std::nullopt;
    QList<IntentStep> steps;
    const QList<QByteArray> lines = intent.chopped(4).split('\n');
    for (const QByteArray& line : lines) {
        if (line.isEmpty()) continue;
        const QList<QByteArray> f = line.split('\t');
        IntentStep step;
        QByteArray target;
        if (f[0] == "D" && f.size() == 2) {
            step.kind = IntentStep::Kind::Delete;
            target = f[1];
        } else if (f[0] == "W" && f.size() == 3 && isStageName(f[1])) {
            step.kind = IntentStep::Kind::Whole;
            step.stage = QString::fromLatin1(f[1]);
            target = f[2];
        } else if (f[0] == "P" && f.size() == 4 && isStageName(f[1])) {
            step.kind = IntentStep::Kind::Patch;
            step.stage = QString::fromLatin1(f[1]);
            target = f[2];
            bool ok = false;
            step.offset = f[3].toLongLong(&ok);
            if (!ok || step.offset < 0 || step.offset > kLargestPatchOffset) return std::nullopt;
        } else {
            return std::nullopt;
        }
        const QString relative = QUrl::fromPercentEncoding(target);
        step.target = QDir::cleanPath(root + u'/' + relative);
        if (relative.isEmpty() || relative.startsWith(u'/') || !step.target.startsWith(root + u'/'))
            return std::nullopt;
        steps << step;
    }
    return steps;
}

} // namespace

Status Store::applyIntent(const QByteArray& intent)
{
    const QString folder = m_root + ChangeFolder();
    const std::optional<QList<IntentStep>> steps = parseIntent(intent, m_root);
    if (!steps)
        return fail(QStringLiteral("Could not read the damaged record"),
                    ChangeFolder() + u'/' + kIntentName);
    QSet<QString> touched;
    for (const IntentStep& step : *steps) {
        const QString& target = step.target;
        const QString stage = folder + u'/' + step.stage;
        switch (step.kind) {
        case IntentStep::Kind::Delete:
            if (QFileInfo(target).isFile()) {
                fileCall();
                if (!QFile::remove(target))
                    return fail(QStringLiteral("Could not delete"), relative(target));
            }
            break;
        case IntentStep::Kind::Whole:
            // A new version already moved in place is not there any more: done before.
            if (QFileInfo(stage).isFile()) {
                fileCall();
                if (std::rename(QFile::encodeName(stage).constData(),
                                QFile::encodeName(target).constData()) != 0)
                    return fail(QStringLiteral("Could not replace"), relative(target));
            }
            break;
        case IntentStep::Kind::Patch:
            // Writing a record again over itself is harmless: the stage goes only after.
            if (QFileInfo(stage).isFile()) {
                if (!patchFlushed(target, step.offset, diskBytes(stage)))
                    return fail(QStringLiteral("Could not write"), relative(target));
                fileCall();
                QFile::remove(stage);
            }
            break;
        }
        touched.insert(QFileInfo(target).path());
    }
    // Every step stands on disk before the record that would repeat them goes.
    for (const QString& f : touched)
        syncFolder(f);
    fileCall();
    QFile::remove(folder + u'/' + kIntentName);
    QDir(folder).removeRecursively();
    return {};
}

Status Store::RecoverInterruptedChange()
{
    if (Status s = refuseWhenReadOnly(ChangeFolder()); !s) return s;
    const QString folder = m_root + ChangeFolder();
    if (QFileInfo(folder).isDir()) {
        const QByteArray intent = diskBytes(folder + u'/' + kIntentName);
        // A record is whole when it ends with its closing line and every line is one a
        // commit writes; else the change never reached its instant and is dropped.
        if (parseIntent(intent, m_root)) {
            if (Status s = applyIntent(intent); !s) return s;
        }
        if (!QDir(folder).removeRecursively())
            return fail(QStringLiteral("Could not remove the folder"), ChangeFolder());
    }
    // The temporary of a whole-file save is its file's name with six characters added; one
    // found beside its file at start belongs to a save that never finished. Without the
    // file beside it, the name may be a user's own, and it is left alone.
    static const QRegularExpression leftover(QStringLiteral("\\.(txt|url)\\.[A-Za-z0-9]{6}$"),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression year(QStringLiteral("^\\d{4}$"));
    QStringList folders{m_root, m_root + QStringLiteral("/Backup")};
    for (const QString& y : QDir(m_root).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (year.match(y).hasMatch())
            for (const QString& team :
                 QDir(m_root + u'/' + y).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
                folders << m_root + u'/' + y + u'/' + team;
    for (const QString& f : folders) {
        QDir dir(f);
        for (const QString& file : dir.entryList(QDir::Files | QDir::Hidden))
            if (leftover.match(file).hasMatch() && dir.exists(file.chopped(7)) && !dir.remove(file))
                return fail(QStringLiteral("Could not delete"), relative(dir.filePath(file)));
    }
    return {};
}
} // namespace tresvane
