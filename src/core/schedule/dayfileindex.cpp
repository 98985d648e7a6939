#include "core/schedule/dayfileindex.h"

#include "core/io/store.h"
#include "core/io/textfile.h"

#include <QFile>

namespace tresvane
{
const DayFileIndex::Folder& DayFileIndex::folder(int year, int team)
{
    const quint64 key = (quint64(quint32(year)) << 32) | quint32(team);
    auto found = m_folders.constFind(key);
    if (found != m_folders.constEnd()) return *found;

    const QString yearName = QStringLiteral("/") + QString::number(year);
    auto y = m_years.find(year);
    if (y == m_years.end()) {
        QHash<QString, QString> entries;
        for (const QString& entry : m_store.List(yearName))
            entries.insert(entry.toLower(), entry);
        y = m_years.insert(year, entries);
    }
    Folder days;
    const QString teamName = y->value(QStringLiteral("team#") + QString::number(team));
    if (!teamName.isEmpty()) {
        const QString teamFolder = yearName + u'/' + teamName;
        for (const QString& entry : m_store.List(teamFolder)) {
            if (!entry.endsWith(QStringLiteral(".txt"), Qt::CaseInsensitive)) continue;
            // The name is the day of the year in decimal, no padding: "32.txt".
            bool number = false;
            const int day = entry.chopped(4).toInt(&number);
            if (!number || QString::number(day) != entry.chopped(4)) continue;
            days.insert(day, teamFolder + u'/' + entry);
        }
    }
    return *m_folders.insert(key, days);
}

Result<DayTexts> DayFileIndex::read(const QDate& date, int team)
{
    // Most days are spelt as the program writes them: opening the file settles those, one
    // call each, where the store's own reading would look the name up three times. These
    // reads run outside any change of the store, so its held-back writes are no concern.
    const QString exact = TeamDayFile(date, team);
    QFile file(m_store.root() + exact);
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.readAll();
        if (file.error() != QFileDevice::NoError) return Status::failure(m_store.describe(exact));
        DayTexts day = FreeDay();
        TextReader reader(bytes, m_store.describe(exact));
        for (QString& slot : day) {
            if (reader.atEnd()) break;
            Result<QString> text = reader.readString();
            if (!text) return text.status();
            slot = *text;
        }
        return day;
    }
    const QString name = folder(date.year(), team).value(date.dayOfYear());
    if (name.isEmpty()) return FreeDay();
    return ReadDayTexts(m_store, name);
}
} // namespace tresvane
