#include "fuzzfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tresvane::fuzz
{

namespace
{

// Readers warn through Qt now and then; a fuzzer's log is for the faults.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
        std::abort();
    }
}

} // namespace

Input::Input(const uint8_t* d, size_t n) : data(d), size(n) {}

int Input::choice(int count) const
{
    return size == 0 ? 0 : int(data[0]) % count;
}

QByteArray Input::rest() const
{
    return size == 0 ? QByteArray()
                     : QByteArray(reinterpret_cast<const char*>(data) + 1, qsizetype(size) - 1);
}

QByteArray Input::all() const
{
    return QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
}

Folder::Folder() : m_clock(QDateTime(QDate(2026, 4, 30), QTime(10, 0)))
{
    qInstallMessageHandler(quiet);
    static QTemporaryDir dir;
    require(dir.isValid(), "no temporary directory");
    m_parent = dir.path();
    m_root = m_parent + QStringLiteral("/program");
}

Folder& Folder::fresh()
{
    static Folder folder;
    folder.reset();
    return folder;
}

void Folder::reset()
{
    m_context.reset();
    QDir(m_root).removeRecursively();
    require(QDir().mkpath(m_root), "cannot make the program folder");
    m_store = std::make_unique<Store>(m_root);
    m_v = std::make_unique<DispatchingVariables>();
    m_v->gYear = QString::number(m_clock.today().year());
    m_v->gDayOfYear = qint16(m_clock.today().dayOfYear());
    BuildTimeLabels(*m_v);
    m_context = std::make_unique<CoreContext>(CoreContext{*m_store, m_clock, m_dialogs, *m_v});
}

void Folder::put(const QString& name, const QByteArray& bytes)
{
    const QString path = m_root + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "cannot lay down a file");
    require(file.write(bytes) == bytes.size(), "cannot lay down a file");
}

void Folder::addTeams(int count)
{
    m_v->gAssignTo = {QStringLiteral("populated")};
    for (int team = 1; team <= count; ++team) {
        m_v->gAssignTo << QStringLiteral("Team %1").arg(team);
        QDir().mkpath(m_root + u'/' + m_v->gYear + QStringLiteral("/Team#") +
                      QString::number(team));
    }
}

void Folder::requireNothingOutside() const
{
    const QStringList entries = QDir(m_parent).entryList(QDir::AllEntries | QDir::Hidden |
                                                         QDir::System | QDir::NoDotAndDotDot);
    if (entries != QStringList{QStringLiteral("program")})
        fail(QStringLiteral("something was written beside the program folder: %1")
                 .arg(entries.join(u", ")));
}

void fail(const QString& what)
{
    std::fprintf(stderr, "fuzz check failed: %s\n", qPrintable(what));
    std::abort();
}

void require(bool condition, const char* what)
{
    if (!condition) fail(QString::fromUtf8(what));
}

void requireNamed(const Status& status, const QString& fileName)
{
    if (status.ok()) return;
    const QString message = status.message();
    if (message.trimmed().isEmpty()) fail(QStringLiteral("an empty message for %1").arg(fileName));
    QString base = fileName;
    base.replace(u'\\', u'/');
    base = base.mid(base.lastIndexOf(u'/') + 1);
    if (!message.contains(base, Qt::CaseInsensitive))
        fail(QStringLiteral("the message \"%1\" does not name %2").arg(message, base));
}

} // namespace tresvane::fuzz
