#include "store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

bool isSeparator(QChar c) { return c == u'/' || c == u'\\'; }

QStringList splitName(const QString& name)
{
    QStringList parts;
    QString current;
    for (QChar c : name) {
        if (isSeparator(c)) {
            if (!current.isEmpty())
                parts << current;
            current.clear();
        } else {
            current += c;
        }
    }
    if (!current.isEmpty())
        parts << current;
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
    if (QFileInfo::exists(exact))
        return component;
    const QDir dir(folder);
    if (!dir.exists())
        return component;
    const QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        if (entry.compare(component, Qt::CaseInsensitive) == 0)
            return entry;
    return component;
}

bool syncFile(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
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
        if (isSeparator(c) || c == QChar(0))
            c = u'_';
    if (out.isEmpty())
        return QStringLiteral("_");
    if (out == u"." || out == u"..")
        return QString(out).replace(u'.', QStringLiteral("%2E"));
    return out;
}

QString Store::resolve(const QString& name, bool* wildcard) const
{
    QString current = m_root;
    const QStringList parts = splitName(name);
    if (wildcard)
        *wildcard = false;
    // Most names are spelt as they stand on disk: one look settles them.
    bool plain = true;
    const QString exact = exactPath(name, &plain);
    if (plain && QFileInfo::exists(exact))
        return exact;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString component = safeComponent(parts[i]);
        if (i == parts.size() - 1 && hasWildcard(component)) {
            if (wildcard)
                *wildcard = true;
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
    if (plain)
        *plain = noWildcard;
    return exact;
}

QString Store::path(const QString& name) const { return resolve(name); }

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
    // The name as spelt first: one look for the common case.
    if (QFileInfo(exactPath(name)).isFile())
        return true;
    const QFileInfo info(resolve(name));
    return info.exists() && info.isFile();
}

bool Store::IsFolder(const QString& name) const { return QFileInfo(resolve(name)).isDir(); }

bool Store::FileExists(const QString& name)
{
    if (QFileInfo(exactPath(name)).isFile())
        return true;
    const QString target = resolve(name);
    const QFileInfo info(target);
    if (info.exists())
        return info.isFile();
    const QString backup = QStringLiteral("/Backup/") + name;
    if (!IsFile(backup))
        return false;
    // A lost file comes back from its last backup copy.
    return CopyFile(backup, name).ok();
}

Status Store::EnsureFolder(const QString& name)
{
    if (Status s = refuseWhenReadOnly(name); !s)
        return s;
    if (QFileInfo(exactPath(name)).isDir())
        return {};
    const QString target = resolve(name);
    const QFileInfo info(target);
    if (info.isDir())
        return {};
    if (info.exists())
        return fail(QStringLiteral("A file stands where a folder belongs:"), name);
    if (!QDir().mkdir(target))
        return fail(QStringLiteral("Could not make the folder"), name);
    return {};
}

Status Store::KillIfPresent(const QString& name)
{
    if (Status s = refuseWhenReadOnly(name); !s)
        return s;
    bool wildcard = false;
    const QString target = resolve(name, &wildcard);
    if (!wildcard) {
        const QFileInfo info(target);
        if (!info.exists() || !info.isFile())
            return {};
        if (!QFile::remove(target))
            return fail(QStringLiteral("Could not delete"), name);
        return {};
    }
    const QFileInfo patternInfo(target);
    QString pattern = patternInfo.fileName();
    // "*.*" is the old way of saying every file, dotted or not.
    if (pattern == u"*.*")
        pattern = QStringLiteral("*");
    QDir dir(patternInfo.path());
    if (!dir.exists())
        return {};
    const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(pattern),
                                QRegularExpression::CaseInsensitiveOption);
    const QStringList files = dir.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& file : files) {
        if (!re.match(file).hasMatch())
            continue;
        if (!dir.remove(file))
            return fail(QStringLiteral("Could not delete"), patternInfo.path() + u'/' + file);
    }
    return {};
}

Status Store::KillWithBackup(const QString& name)
{
    if (Status s = KillIfPresent(QStringLiteral("/Backup/") + name); !s)
        return s;
    return KillIfPresent(name);
}

Status Store::ReplaceFile(const QString& temporary, const QString& target)
{
    if (Status s = refuseWhenReadOnly(target); !s)
        return s;
    const QString from = resolve(temporary);
    const QString to = resolve(target);
    if (!QFileInfo(from).isFile())
        return fail(QStringLiteral("Could not find"), temporary);
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return fail(QStringLiteral("Could not replace"), target);
    return KillIfPresent(temporary);
}

Status Store::RemoveFolder(const QString& name)
{
    if (Status s = refuseWhenReadOnly(name); !s)
        return s;
    const QString target = resolve(name);
    if (!QFileInfo(target).isDir())
        return {};
    if (!QDir().rmdir(target))
        return fail(QStringLiteral("Could not remove the folder"), name);
    return {};
}

Status Store::CopyFile(const QString& source, const QString& target)
{
    Result<QByteArray> bytes = ReadAll(source);
    if (!bytes)
        return bytes.status();
    return WriteFile(target, *bytes);
}

qint64 Store::roundedRecords(qint64 bytes, int recordLength)
{
    if (recordLength <= 0 || bytes <= 0)
        return 0;
    qint64 q = bytes / recordLength;
    const qint64 twice = 2 * (bytes % recordLength);
    if (twice > recordLength || (twice == recordLength && (q % 2) == 1))
        ++q;
    return q;
}

Result<qint32> Store::RecordCount32(const QString& name, int recordLength)
{
    if (!FileExists(name))
        return qint32(0);
    const qint64 n = roundedRecords(FileSize(name), recordLength);
    if (n > 0x7fffffff)
        return Status::failure(QStringLiteral("%1 is too large to be a record file")
                                   .arg(describe(name)));
    return qint32(n);
}

Result<qint16> Store::RecordCount(const QString& name, int recordLength)
{
    Result<qint32> n = RecordCount32(name, recordLength);
    if (!n)
        return n.status();
    if (*n > 32767)
        return Status::failure(
            QStringLiteral("%1 holds %2 records; the most this program can use is 32,767.")
                .arg(describe(name))
                .arg(*n));
    return qint16(*n);
}

qint64 Store::FileSize(const QString& name) const
{
    const QFileInfo info(resolve(name));
    return info.isFile() ? info.size() : 0;
}

Result<QByteArray> Store::ReadAll(const QString& name) const
{
    // The name as spelt first; the search without regard to case only when it is not there.
    QFile exact(exactPath(name));
    if (exact.open(QIODevice::ReadOnly)) {
        QByteArray bytes = exact.readAll();
        if (exact.error() != QFileDevice::NoError)
            return fail(QStringLiteral("Could not read"), name);
        return bytes;
    }
    QFile file(resolve(name));
    if (!file.exists())
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("Could not read"), name);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fail(QStringLiteral("Could not read"), name);
    return bytes;
}

Status Store::WriteFile(const QString& name, const QByteArray& bytes)
{
    if (Status s = refuseWhenReadOnly(name); !s)
        return s;
    QSaveFile file(resolve(name));
    // Where the folder forbids a temporary beside the target, write directly rather
    // than fail: the folder's rights are the user's choice.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return fail(QStringLiteral("Could not write"), name);
    if (file.write(bytes) != bytes.size() || !file.commit())
        return fail(QStringLiteral("Could not write"), name);
    return {};
}

Status Store::RewriteTextFile(const QString& name, const QByteArray& bytes)
{
    if (Status s = KillIfPresent(QStringLiteral("/Backup/") + name); !s)
        return s;
    return WriteFile(name, bytes);
}

Status Store::RewriteThroughTemporary(const QString& target, const QByteArray& bytes,
                                      BackupCopy backup)
{
    if (Status s = refuseWhenReadOnly(target); !s)
        return s;
    const QString temporary = QStringLiteral("/TemporaryFile.txt");
    if (Status s = KillIfPresent(temporary); !s)
        return s;
    {
        QFile file(resolve(temporary));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() ||
            !file.flush())
            return fail(QStringLiteral("Could not write"), temporary);
    }
    if (!syncFile(resolve(temporary)))
        return fail(QStringLiteral("Could not write"), temporary);
    if (backup == BackupCopy::Remove)
        if (Status s = KillIfPresent(QStringLiteral("/Backup/") + target); !s)
            return s;
    return ReplaceFile(temporary, target);
}

Status Store::WriteRecordAt(const QString& name, int recordLength, qint64 recordNo,
                            const QByteArray& record)
{
    if (Status s = refuseWhenReadOnly(name); !s)
        return s;
    if (recordNo < 1 || record.size() != recordLength)
        return fail(QStringLiteral("Bad record number for"), name);
    QFile file(resolve(name));
    if (!file.open(QIODevice::ReadWrite))
        return fail(QStringLiteral("Could not write"), name);
    if (!file.seek((recordNo - 1) * recordLength) || file.write(record) != recordLength ||
        !file.flush())
        return fail(QStringLiteral("Could not write"), name);
    if (::fsync(file.handle()) != 0)
        return fail(QStringLiteral("Could not write"), name);
    return {};
}

Result<QByteArray> Store::ReadRecordAt(const QString& name, int recordLength,
                                       qint64 recordNo) const
{
    QByteArray record(recordLength, '\0');
    QFile file(resolve(name));
    if (!file.exists() || recordNo < 1)
        return record;
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("Could not read"), name);
    if (!file.seek((recordNo - 1) * recordLength))
        return record;
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
