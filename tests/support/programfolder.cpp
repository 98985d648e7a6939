#include "programfolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace tresvane
{
static QString makeProgramFolder(const QTemporaryDir& parent)
{
    const QString root = parent.path() + QStringLiteral("/Program");
    QDir().mkpath(root);
    return root;
}

ProgramFolder::ProgramFolder()
    : m_root(makeProgramFolder(m_parent)), store(m_root), ctx{store, clock, dialogs, v}
{
    BuildTimeLabels(v);
}

QString ProgramFolder::abs(const QString& relative) const
{
    return m_root + u'/' + relative;
}

void ProgramFolder::put(const QString& relative, const QByteArray& bytes) const
{
    const QString path = abs(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(bytes);
}

QByteArray ProgramFolder::get(const QString& relative) const
{
    QFile f(abs(relative));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.readAll();
}

bool ProgramFolder::has(const QString& relative) const
{
    return QFileInfo(abs(relative)).isFile();
}
bool ProgramFolder::hasFolder(const QString& relative) const
{
    return QFileInfo(abs(relative)).isDir();
}

QMap<QString, QByteArray> ProgramFolder::snapshot() const
{
    QMap<QString, QByteArray> files;
    QDirIterator it(m_root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(QDir(m_root).relativeFilePath(path), get(QDir(m_root).relativeFilePath(path)));
    }
    return files;
}
} // namespace tresvane
