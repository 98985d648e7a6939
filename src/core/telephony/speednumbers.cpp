#include "core/telephony/speednumbers.h"

#include "core/io/store.h"
#include "core/io/textfile.h"

namespace tresvane
{
namespace
{
QString oneLine(QString text)
{
    for (QChar& c : text)
        if (c == u'\r' || c == u'\n') c = u' ';
    return text;
}
} // namespace

QString SpeedNumbersFileName()
{
    return QStringLiteral("/SpeedNumbers.txt");
}

Result<SpeedNumbers> ReadSpeedNumbers(Store& store)
{
    SpeedNumbers speed;
    const QString name = SpeedNumbersFileName();
    if (!store.FileExists(name)) return speed;
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    const QStringList lines = ReadPlainLines(*bytes);
    const auto damaged = [&](const QString& what) {
        return Status::failure(
            QStringLiteral("The file %1 is damaged: %2.").arg(store.describe(name), what));
    };
    if (lines.size() % 2 != 0)
        return damaged(QStringLiteral("it ends after a name without its number"));
    if (lines.size() / 2 > SpeedNumbers::kCount)
        return damaged(
            QStringLiteral("it holds %1 speed numbers where 10 fit").arg(lines.size() / 2));
    for (qsizetype i = 0; i < lines.size() / 2; ++i) {
        speed.names[i] = lines[2 * i];
        speed.numbers[i] = lines[2 * i + 1];
    }
    return speed;
}

Status WriteSpeedNumbers(Store& store, const SpeedNumbers& speed)
{
    QStringList lines;
    for (int i = 0; i < SpeedNumbers::kCount; ++i) {
        if (speed.names[i].isEmpty()) continue;
        lines << oneLine(speed.names[i]) << oneLine(speed.numbers[i]);
    }
    // The old copy in Backup is left standing, as this file has always been written.
    return store.WriteFile(SpeedNumbersFileName(), WritePlainLines(lines));
}
} // namespace tresvane
