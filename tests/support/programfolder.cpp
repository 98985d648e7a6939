#include "programfolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

ProgramFolder::ProgramFolder()
    : store(m_dir.path()), ctx{store, clock, dialogs, v}
{
    BuildTimeLabels(v);
}

QString ProgramFolder::abs(const QString& relative) const { return m_dir.path() + u'/' + relative; }

void ProgramFolder::put(const QString& relative, const QByteArray& bytes) const
{
    const QString path = abs(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}

QByteArray ProgramFolder::get(const QString& relative) const
{
    QFile f(abs(relative));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

bool ProgramFolder::has(const QString& relative) const { return QFileInfo(abs(relative)).isFile(); }
bool ProgramFolder::hasFolder(const QString& relative) const
{
    return QFileInfo(abs(relative)).isDir();
}

QMap<QString, QByteArray> ProgramFolder::snapshot() const
{
    QMap<QString, QByteArray> files;
    QDirIterator it(m_dir.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(QDir(m_dir.path()).relativeFilePath(path), get(QDir(m_dir.path()).relativeFilePath(path)));
    }
    return files;
}
