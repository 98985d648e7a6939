#include "core/exports/exportsettings.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"

#include <QUuid>

namespace tresvane
{
namespace
{
// How long a reschedule link is kept: numbers of the SA<day>-<n> form recur a year later.
constexpr int kLinkDays = 365;

Status ensureExportsFolder(Store& store)
{
    return store.EnsureFolder(ExportsFolder());
}
} // namespace

QString ExportsFolder()
{
    return QStringLiteral("/Exports");
}

QString CrewCalendarsFolder()
{
    return QStringLiteral("/Exports/Calendars");
}

QString CalendarExportSettingsFile()
{
    return QStringLiteral("/Exports/CalendarExport.txt");
}

QString RescheduledSlipsFile()
{
    return QStringLiteral("/Exports/RescheduledSlips.txt");
}

Result<CalendarExportSettings> ReadCalendarExportSettings(const Store& store)
{
    CalendarExportSettings settings;
    const QString name = CalendarExportSettingsFile();
    if (!store.IsFile(name)) return settings;
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, store.describe(name));
    if (reader.atEnd()) return settings;
    Result<bool> after = reader.readBool();
    if (!after) return after.status();
    settings.afterEveryChange = *after;
    if (reader.atEnd()) return settings;
    Result<qint32> days = reader.readInt32();
    if (!days) return days.status();
    if (*days >= 1 && *days <= kLongestCalendarDays) settings.days = *days;
    if (reader.atEnd()) return settings;
    Result<QString> id = reader.readString();
    if (!id) return id.status();
    settings.folderId = id->trimmed();
    return settings;
}

Status WriteCalendarExportSettings(Store& store, const CalendarExportSettings& settings)
{
    if (Status s = ensureExportsFolder(store); !s) return s;
    TextWriter w;
    w.line(settings.afterEveryChange, settings.days, settings.folderId);
    return store.WriteFile(CalendarExportSettingsFile(), w.bytes());
}

Result<CalendarExportSettings> CalendarExportSettingsWithId(Store& store)
{
    Result<CalendarExportSettings> settings = ReadCalendarExportSettings(store);
    if (!settings || !settings->folderId.isEmpty()) return settings;
    settings->folderId = QUuid::createUuid().toString(QUuid::Id128);
    if (Status s = WriteCalendarExportSettings(store, *settings); !s) return s;
    return settings;
}

QString RescheduleLinks::eventNumber(const QString& number) const
{
    const QString trimmed = number.trimmed();
    return links.value(trimmed, trimmed);
}

namespace
{
struct Link {
    QString newNumber, firstNumber;
    QDate made;
};

Result<QList<Link>> readLinks(const Store& store)
{
    QList<Link> links;
    const QString name = RescheduledSlipsFile();
    if (!store.IsFile(name)) return links;
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, store.describe(name));
    while (!reader.atEnd()) {
        Link link;
        Result<QString> newNumber = reader.readString();
        if (!newNumber) return newNumber.status();
        Result<QString> firstNumber = reader.readString();
        if (!firstNumber) return firstNumber.status();
        Result<QString> made = reader.readString();
        if (!made) return made.status();
        link.newNumber = newNumber->trimmed();
        link.firstNumber = firstNumber->trimmed();
        link.made = ParseShortDate(*made).value_or(QDate());
        links.append(link);
    }
    return links;
}
} // namespace

Result<RescheduleLinks> ReadRescheduleLinks(const Store& store)
{
    Result<QList<Link>> read = readLinks(store);
    if (!read) return read.status();
    RescheduleLinks links;
    for (const Link& link : *read)
        if (!link.newNumber.isEmpty() && !link.firstNumber.isEmpty())
            links.links.insert(link.newNumber, link.firstNumber);
    return links;
}

Status NoteRescheduledSlip(Store& store, const QString& oldNumber, const QString& newNumber,
                           const QDate& today)
{
    const QString from = oldNumber.trimmed(), to = newNumber.trimmed();
    if (from.isEmpty() || to.isEmpty() || from == to) return {};
    Result<QList<Link>> read = readLinks(store);
    if (!read) return read.status();
    QString first = from;
    TextWriter w;
    for (const Link& link : *read) {
        if (link.newNumber == from) first = link.firstNumber;
        // A link of the new number is replaced, an old one forgotten.
        if (link.newNumber == to || !link.made.isValid() || link.made.daysTo(today) > kLinkDays)
            continue;
        w.line(link.newNumber, link.firstNumber, FormatShortDate(link.made));
    }
    w.line(to, first, FormatShortDate(today));
    if (Status s = ensureExportsFolder(store); !s) return s;
    return store.WriteFile(RescheduledSlipsFile(), w.bytes());
}
} // namespace tresvane
