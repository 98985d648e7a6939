#include "core/schedule/dayfiles.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString NoEventScheduled()
{
    return QStringLiteral("No Event Scheduled");
}

namespace
{
QString yearText(int year)
{
    return QStringLiteral("%1").arg(year, 4, 10, QLatin1Char('0'));
}

// The team is a number as text; whatever else a caller hands in stays one folder name.
QString teamFolder(const QString& year, const QString& team)
{
    return u'/' + year + u'/' + Store::safeComponent(QStringLiteral("Team#") + team);
}
} // namespace

Status BuildDayFilePath(CoreContext& c, const QDate& date, const QString& team)
{
    if (!date.isValid())
        return Status::failure(QStringLiteral("A day file was asked for without a valid date."));
    const QString year = yearText(date.year());
    c.v.CurrentJulian = QString::number(date.dayOfYear());
    // The year's folder is normally made ahead by PrepareYearFolders; should it be missing,
    // it is made here rather than failing the booking.
    if (Status s = c.store.EnsureFolder(u'/' + year); !s) return s;
    const QString folder = teamFolder(year, team.trimmed());
    if (Status s = c.store.EnsureFolder(folder); !s) return s;
    c.v.DayFilePath = folder + u'/' + c.v.CurrentJulian + QStringLiteral(".txt");
    return {};
}

void ClearDaySlots(DispatchingVariables& v)
{
    for (int i = 1; i <= 12; ++i)
        v.DaySlots[i] = NoEventScheduled();
}

Status LoadDay(CoreContext& c, const QDate& date, const QString& team)
{
    ClearDaySlots(c.v);
    if (Status s = BuildDayFilePath(c, date, team); !s) return s;
    if (!c.store.FileExists(c.v.DayFilePath)) return {};
    Result<int> read = ReadDayToGrid(c);
    return read ? Status() : read.status();
}

Result<int> ReadDayToGrid(CoreContext& c)
{
    Result<QByteArray> bytes = c.store.ReadAll(c.v.DayFilePath);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, c.store.describe(c.v.DayFilePath));
    int read = 0;
    for (int i = 1; i <= 12 && !reader.atEnd(); ++i) {
        Result<QString> slot = reader.readString();
        if (!slot) return slot.status();
        c.v.DaySlots[i] = *slot;
        ++read;
    }
    return read;
}

Status ReadDayToSlots(CoreContext& c)
{
    const QString name = c.v.DayFilePath;
    if (!c.store.FileExists(name))
        return Status::failure(
            QStringLiteral("The day file %1 could not be found.").arg(c.store.describe(name)));
    Result<QByteArray> bytes = c.store.ReadAll(name);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, c.store.describe(name));
    std::array<QString, 12> texts;
    for (QString& slot : texts) {
        Result<QString> text = reader.readString();
        if (!text) return text.status();
        slot = *text;
    }
    std::copy(texts.begin(), texts.end(), c.v.DaySlots.begin());
    return {};
}

Status WriteDaySlots(Store& store, const QString& dayFile, std::array<QString, 13>& texts)
{
    TextWriter out;
    for (int i = 1; i <= 12; ++i) {
        // Contract events are laid over the grid from ContractInfo.txt each time a day is
        // shown; storing them would book the hour for good.
        if (texts[i].contains(u"Contract Event", Qt::CaseInsensitive))
            texts[i] = NoEventScheduled();
        out.line(texts[i]);
    }
    return store.WriteFile(dayFile, out.bytes());
}

Status WriteDayFile(CoreContext& c, const QDate& date, const QString& team)
{
    if (Status s = BuildDayFilePath(c, date, team); !s) return s;
    return WriteDaySlots(c.store, c.v.DayFilePath, c.v.DaySlots);
}

Status WriteBareDayFile(Store& store, const QString& dayFile, const std::array<QString, 12>& lines)
{
    QByteArray bytes;
    for (const QString& line : lines) {
        if (line.contains(u',') || line.contains(u'"'))
            bytes += TextWriter().line(line).bytes();
        else
            bytes += WritePlainLines({line});
    }
    return store.WriteFile(dayFile, bytes);
}

void WriteSlots(DispatchingVariables& v, const GridColumn& grid)
{
    const QStringList& services = v.settings.lstServices;
    for (int i = 1; i <= 12; ++i) {
        const QString cell = grid[i - 1].trimmed();
        v.DaySlots[i] = cell;
        for (const QString& service : services) {
            if (cell == service.trimmed()) {
                v.DaySlots[i] = NoEventScheduled();
                break;
            }
        }
    }
}

bool CheckforSlots(const GridColumn& grid, quint8 startRow, quint8 hours, Dialogs& dialogs)
{
    for (int row = startRow; row < int(startRow) + int(hours); ++row) {
        const bool free = row >= 1 && row <= 12 && grid[row - 1].contains(u"No Event");
        if (!free) {
            dialogs.message(QStringLiteral("Event already Scheduled Here"),
                            QStringLiteral("Selection Error"));
            return false;
        }
    }
    return true;
}

Status PrepareYearFolders(CoreContext& c, const QString& year)
{
    const QString folder = u'/' + year.trimmed();
    if (c.store.IsFolder(folder)) return {};
    if (Status s = c.store.EnsureFolder(folder); !s) return s;
    for (int n = 1; n <= c.v.TeamCount(); ++n)
        if (Status s = c.store.EnsureFolder(teamFolder(year.trimmed(), QString::number(n))); !s)
            return s;
    return {};
}

Status PrepareYears(CoreContext& c)
{
    const QDate today = c.clock.today();
    c.v.gYear = yearText(today.year());
    if (Status s = PrepareYearFolders(c, c.v.gYear); !s) return s;
    c.v.gDayOfYear = qint16(today.dayOfYear());
    // Until the end of April last year's schedules can still be looked up.
    if (c.v.gDayOfYear > 120) {
        if (Status s = RemoveYearFolders(c); !s) return s;
        return PrepareYearFolders(c, yearText(today.year() + 1));
    }
    return {};
}

Status RemoveYearFolders(CoreContext& c)
{
    const QString year = QString::number(c.v.gYear.trimmed().toInt() - 1);
    const QString folder = u'/' + year;
    if (!c.store.IsFolder(folder)) return {};
    // 0 and one past the last team sweep the folder of a team deleted from either edge of
    // the list this year.
    const int last = c.v.TeamCount() + 1;
    for (int t = 0; t <= last; ++t) {
        const QString team = teamFolder(year, QString::number(t));
        if (c.store.IsFolder(team))
            if (Status s = c.store.KillIfPresent(team + QStringLiteral("/*.*")); !s) return s;
    }
    for (int t = 0; t <= last; ++t)
        if (Status s = c.store.RemoveFolder(teamFolder(year, QString::number(t))); !s) return s;
    return c.store.RemoveFolder(folder);
}
} // namespace tresvane
