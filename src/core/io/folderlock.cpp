#include "core/io/folderlock.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace tresvane
{
namespace
{

// "key: value" lines, readable by a person who finds the file.
QByteArray render(const FolderLock::Holder& h)
{
    QByteArray out;
    out += "program: " + h.program.toUtf8() + '\n';
    out += "host: " + h.host.toUtf8() + '\n';
    out += "user: " + h.user.toUtf8() + '\n';
    out += "pid: " + QByteArray::number(h.pid) + '\n';
    out += "since: " + h.since.toString(Qt::ISODate).toUtf8() + '\n';
    return out;
}

} // namespace

FolderLock::FolderLock(QString path, QString program)
    : m_path(std::move(path)), m_program(std::move(program))
{
}

FolderLock::~FolderLock()
{
    release();
}

QString FolderLock::hostName()
{
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0 || !name[0])
        return QStringLiteral("this computer");
    return QString::fromLocal8Bit(name);
}

QString FolderLock::userName()
{
    if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_name)
        return QString::fromLocal8Bit(pw->pw_name);
    const QByteArray env = qgetenv("USER");
    return env.isEmpty() ? QString::number(::getuid()) : QString::fromLocal8Bit(env);
}

FolderLock::Holder FolderLock::parse(const QByteArray& bytes)
{
    Holder h;
    for (const QByteArray& line : bytes.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0) continue;
        const QByteArray key = line.left(colon).trimmed();
        const QString value = QString::fromUtf8(line.mid(colon + 1).trimmed());
        if (key == "program")
            h.program = value;
        else if (key == "host")
            h.host = value;
        else if (key == "user")
            h.user = value;
        else if (key == "pid")
            h.pid = value.toLongLong();
        else if (key == "since")
            h.since = QDateTime::fromString(value, Qt::ISODate);
    }
    h.readable = !h.host.isEmpty() && h.pid > 0;
    return h;
}

bool FolderLock::create(const QDateTime& now)
{
    const QByteArray path = QFile::encodeName(m_path);
    const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (fd < 0) {
        if (errno != EEXIST)
            m_error = QStringLiteral("The lock %1 could not be made: %2")
                          .arg(m_path, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    Holder me;
    me.program = m_program;
    me.host = hostName();
    me.user = userName();
    me.pid = ::getpid();
    me.since = now;
    const QByteArray bytes = render(me);
    const bool written =
        ::write(fd, bytes.constData(), size_t(bytes.size())) == bytes.size() && ::fsync(fd) == 0;
    ::close(fd);
    if (!written) {
        m_error = QStringLiteral("The lock %1 could not be written: %2")
                      .arg(m_path, QString::fromLocal8Bit(std::strerror(errno)));
        ::unlink(path.constData());
        return false;
    }
    m_holder = me;
    m_held = true;
    return true;
}

bool FolderLock::isOursAndDead(const Holder& h) const
{
    if (!h.readable || h.host != hostName()) return false;
    if (h.pid == ::getpid())
        return false; // this very process: a second lock in one run, never stale
    if (::kill(pid_t(h.pid), 0) != 0) return errno == ESRCH;
    // The number may have been given to another program since: then this one is gone.
    const QString exe = QFileInfo(QStringLiteral("/proc/%1/exe").arg(h.pid)).symLinkTarget();
    return !exe.isEmpty() && QFileInfo(exe).completeBaseName() != h.program;
}

FolderLock::Outcome FolderLock::take(const QDateTime& now)
{
    m_error.clear();
    if (m_held) return Outcome::Taken;
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (create(now)) return Outcome::Taken;
        if (!m_error.isEmpty()) return Outcome::Failed;
        QFile existing(m_path);
        QByteArray bytes;
        if (existing.open(QIODevice::ReadOnly)) bytes = existing.readAll();
        m_holder = parse(bytes);
        if (attempt == 0 && isOursAndDead(m_holder)) {
            ::unlink(QFile::encodeName(m_path).constData());
            continue;
        }
        break;
    }
    return m_holder.readable && m_holder.host == hostName() ? Outcome::HeldHere
                                                            : Outcome::HeldElsewhere;
}

FolderLock::Outcome FolderLock::takeOver(const QDateTime& now)
{
    if (::unlink(QFile::encodeName(m_path).constData()) != 0 && errno != ENOENT) {
        m_error = QStringLiteral("The lock %1 could not be removed: %2")
                      .arg(m_path, QString::fromLocal8Bit(std::strerror(errno)));
        return Outcome::Failed;
    }
    return take(now);
}

void FolderLock::release()
{
    if (!m_held) return;
    m_held = false;
    // Only our own lock goes: one taken over by another computer meanwhile stays.
    QFile existing(m_path);
    if (existing.open(QIODevice::ReadOnly)) {
        const Holder h = parse(existing.readAll());
        existing.close();
        if (h.host == m_holder.host && h.pid == m_holder.pid)
            ::unlink(QFile::encodeName(m_path).constData());
    }
}
} // namespace tresvane
