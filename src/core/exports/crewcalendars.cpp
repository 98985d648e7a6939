#include "core/exports/crewcalendars.h"

#include "core/calendar/recurringevents.h"
#include "core/exports/icalendar.h"
#include "core/io/record.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/schedule/dayfileindex.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/slipfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QCryptographicHash>
#include <QSet>

namespace tresvane
{
namespace
{

bool isFree(const QString& text)
{
    return text.contains(NoEventScheduled(), Qt::CaseInsensitive);
}

int recordStart(const SlipRecord& r)
{
    bool ok = false;
    const int start = r.text(SlipField::StartSlot).toInt(&ok);
    return ok ? start : 0;
}

int recordHours(const SlipRecord& r)
{
    if (r.text(SlipField::TimeUnit) == u"Days") return 8;
    return std::max(r.text(SlipField::Hours).toInt(), 1);
}

bool holdsSlot(const SlipRecord& r, int slot)
{
    const int start = recordStart(r);
    return start >= 1 && slot >= start && slot < start + recordHours(r);
}

// Whether the hour's text is the record's own.
bool belongs(const DayRecord& d, const QString& text)
{
    const SlipRecord& r = d.record;
    if (!d.meeting) {
        // A slip's text is its number, a blank and the name: SA110-1 is not SA110-12.
        const QString number = r.text(SlipField::ConfirmationNo);
        return !number.isEmpty() && (text == number || text.startsWith(number + u' '));
    }
    // A meeting keeps its hour's text, cut to the field, as its reference; a recurring
    // event without an invoice stands as the prefix and the record's name.
    const QString reference = r.text(SlipField::Reference);
    const int width = SlipLayout().field(SlipField::Reference).width;
    if (!reference.isEmpty() && text.left(width).trimmed() == reference) return true;
    const QString prefix = RecurringEventPrefix();
    const QString name = r.text(SlipField::Name);
    return !name.isEmpty() && text.startsWith(prefix) &&
           text.mid(prefix.size()).left(SlipLayout().field(SlipField::Name).width).trimmed() ==
               name;
}

// A key as it may stand in a unique id: letters, digits and "-" as they are, anything else
// as "_" and its code, so two different keys never give one id.
QString idPart(const QString& key)
{
    QString out;
    for (const QChar c : key) {
        if ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
            c == u'-')
            out += c;
        else
            out += u'_' + QString::number(c.unicode(), 16).toUpper();
    }
    return out;
}

QString uidOf(const QString& kind, const QString& key, const QString& folderId)
{
    return kind + u'-' + idPart(key) + u'.' + folderId + QStringLiteral("@tresvane-dispatcher");
}

QString hashOf(const QStringList& parts)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(parts.join(QChar(0x1F)).toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(20));
}

QString joined(const QStringList& parts, const QString& separator)
{
    QStringList kept;
    for (const QString& p : parts)
        if (!p.trimmed().isEmpty()) kept << p.trimmed();
    return kept.join(separator);
}

QString locationOf(const SlipRecord& r)
{
    return joined({r.text(SlipField::Street), r.text(SlipField::Apt), r.text(SlipField::City),
                   joined({r.text(SlipField::St), r.text(SlipField::Zip)}, QStringLiteral(" "))},
                  QStringLiteral(", "));
}

QString line(const QString& label, const QString& value)
{
    return value.isEmpty() ? QString() : label + QStringLiteral(": ") + value;
}

void describe(CrewEvent& e, const DayRecord& d, const QString& text, const RescheduleLinks& links,
              const QString& folderId)
{
    const SlipRecord& r = d.record;
    const QString name = r.text(SlipField::Name);
    const QString tel = r.text(SlipField::Tel);
    const QString reference = r.text(SlipField::Reference);
    const QString account = r.text(SlipField::AcctNo);
    e.location = locationOf(r);
    const bool recurring = text.startsWith(RecurringEventPrefix());
    if (!d.meeting) {
        const QString number = r.text(SlipField::ConfirmationNo);
        e.kind = recurring || r.text(SlipField::RecType) == u"Reoccuring"
                     ? CrewEvent::Kind::RecurringEvent
                     : CrewEvent::Kind::Slip;
        e.summary = name.isEmpty() ? text : name;
        e.description = joined({line(QStringLiteral("Telephone"), tel),
                                line(QStringLiteral("Problem"), reference),
                                line(QStringLiteral("Confirmation No."), number),
                                line(QStringLiteral("Account"), account)},
                               QStringLiteral("\n"));
        e.uid = uidOf(QStringLiteral("slip"), links.eventNumber(number), folderId);
        return;
    }
    e.kind = recurring ? CrewEvent::Kind::RecurringEvent : CrewEvent::Kind::Meeting;
    e.summary = recurring ? text.mid(RecurringEventPrefix().size()).trimmed()
                          : QStringLiteral("Meeting - ") + (name.isEmpty() ? text : name);
    e.description =
        joined({line(QStringLiteral("Telephone"), tel),
                line(recurring ? QStringLiteral("Event") : QStringLiteral("Meeting"), reference),
                line(QStringLiteral("Account"), account)},
               QStringLiteral("\n"));
    // A meeting has no number: it is known by its customer, its text and its day.
    e.uid = uidOf(QStringLiteral("meeting"),
                  hashOf({account, name, reference, r.text(SlipField::EventDate),
                          r.text(SlipField::TeamNo), r.text(SlipField::StartSlot)}),
                  folderId);
}

} // namespace

quint64 TeamDayKey(int team, int dayIndex)
{
    return (quint64(quint32(team)) << 32) | quint32(dayIndex);
}

const QList<DayRecord>& CalendarSources::recordsOf(int team, const QDate& date) const
{
    static const QList<DayRecord> none;
    auto it = byTeamDay.constFind(TeamDayKey(team, int(first.daysTo(date))));
    return it == byTeamDay.constEnd() ? none : *it;
}

Result<CalendarSources> ReadCalendarSources(const Store& store, const QDate& first, int days,
                                            const QString& folderId)
{
    CalendarSources sources;
    sources.first = first;
    sources.days = days;
    sources.folderId = folderId;
    Result<RescheduleLinks> links = ReadRescheduleLinks(store);
    if (!links) return links.status();
    sources.links = std::move(*links);
    const QDate last = first.addDays(days - 1);
    for (const bool meeting : {false, true}) {
        const QString name = meeting ? MeetingsFileName() : SlipsFileName();
        if (!store.IsFile(name)) continue;
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) return bytes.status();
        ForEachRecord(SlipLayout(), *bytes, [&](qsizetype, const RecordView& r) {
            const QDate date = ParseShortDateBytes(r.trimmedBytes(SlipField::EventDate));
            if (!date.isValid() || date < first || date > last) return;
            bool ok = false;
            const int team = r.trimmedBytes(SlipField::TeamNo).toByteArray().toInt(&ok);
            if (!ok || team < 1) return;
            sources.byTeamDay[TeamDayKey(team, int(first.daysTo(date)))].append(
                DayRecord{SlipRecord(r.bytes()), meeting});
        });
    }
    return sources;
}

int SlotStartHour(int slot)
{
    return slot <= 6 ? slot + 5 : slot + 6;
}

QList<CrewEvent> DayEvents(const DayTexts& day, const QList<DayRecord>& records, const QDate& date,
                           int team, const RescheduleLinks& links, const QString& folderId)
{
    QList<CrewEvent> events;
    const QString dayKey = date.toString(QStringLiteral("yyyyMMdd"));
    const QString teamKey = QStringLiteral("t") + QString::number(team) + u'-' + dayKey;

    // A blocked day: the same text on every hour, and no record of it.
    const QString whole = day[0];
    const bool sameAllDay =
        !isFree(whole) &&
        std::all_of(day.begin(), day.end(), [&](const QString& t) { return t == whole; });
    if (sameAllDay && std::none_of(records.begin(), records.end(),
                                   [&](const DayRecord& d) { return belongs(d, whole); })) {
        CrewEvent e;
        e.kind = CrewEvent::Kind::BlockedDay;
        e.date = date;
        e.firstSlot = 1;
        e.lastSlot = 12;
        e.summary = whole.trimmed();
        e.uid = uidOf(QStringLiteral("blocked"), teamKey, folderId);
        events.append(e);
        return events;
    }

    QList<bool> used(records.size(), false);
    for (int slot = 1; slot <= 12;) {
        const QString text = day[slot - 1];
        if (isFree(text) || text.trimmed().isEmpty()) {
            ++slot;
            continue;
        }
        int last = slot;
        while (last < 12 && day[last] == text)
            ++last;
        // The record the hours belong to: first one that holds this hour, else any.
        qsizetype found = -1;
        for (qsizetype i = 0; i < records.size(); ++i) {
            if (used[i] || !belongs(records[i], text)) continue;
            if (holdsSlot(records[i].record, slot)) {
                found = i;
                break;
            }
            if (found < 0) found = i;
        }
        CrewEvent e;
        e.date = date;
        e.firstSlot = slot;
        if (found >= 0) {
            used[found] = true;
            const SlipRecord& r = records[found].record;
            // Two bookings of one text back to back part where the first one ends.
            if (holdsSlot(r, slot)) last = std::min(last, recordStart(r) + recordHours(r) - 1);
            describe(e, records[found], text, links, folderId);
        } else {
            e.kind = CrewEvent::Kind::TakenHours;
            e.summary = text.trimmed();
            e.uid = uidOf(QStringLiteral("hours"),
                          teamKey + QStringLiteral("-s") + QString::number(slot), folderId);
        }
        e.lastSlot = last;
        events.append(e);
        slot = last + 1;
    }
    return events;
}

QByteArray CrewCalendarFile(const QString& calendarName, const QList<CrewEvent>& events,
                            const QDateTime& stamp)
{
    CalendarText t;
    t.begin(QStringLiteral("VCALENDAR"));
    t.raw(QStringLiteral("VERSION"), QStringLiteral("2.0"));
    t.raw(QStringLiteral("PRODID"), QStringLiteral("-//Tresvane//Tresvane Dispatcher//EN"));
    t.raw(QStringLiteral("CALSCALE"), QStringLiteral("GREGORIAN"));
    t.raw(QStringLiteral("METHOD"), QStringLiteral("PUBLISH"));
    t.text(QStringLiteral("X-WR-CALNAME"), calendarName);
    t.text(QStringLiteral("NAME"), calendarName);
    // Subscribed calendars look again within the hour.
    t.raw(QStringLiteral("REFRESH-INTERVAL;VALUE=DURATION"), QStringLiteral("PT1H"));
    t.raw(QStringLiteral("X-PUBLISHED-TTL"), QStringLiteral("PT1H"));
    const QString dtstamp = CalendarUtcTime(stamp);
    QSet<QString> uids;
    for (const CrewEvent& e : events) {
        // One id once a file: a second event of one slip (its hours split by another
        // booking) takes a number after it.
        QString uid = e.uid;
        for (int n = 2; uids.contains(uid); ++n)
            uid = e.uid + u'-' + QString::number(n);
        uids.insert(uid);
        t.begin(QStringLiteral("VEVENT"));
        t.text(QStringLiteral("UID"), uid);
        t.raw(QStringLiteral("DTSTAMP"), dtstamp);
        if (e.kind == CrewEvent::Kind::BlockedDay) {
            t.raw(QStringLiteral("DTSTART;VALUE=DATE"), CalendarDate(e.date));
            t.raw(QStringLiteral("DTEND;VALUE=DATE"), CalendarDate(e.date.addDays(1)));
        } else {
            t.raw(QStringLiteral("DTSTART"),
                  CalendarLocalTime(QDateTime(e.date, QTime(SlotStartHour(e.firstSlot), 0))));
            t.raw(QStringLiteral("DTEND"),
                  CalendarLocalTime(QDateTime(e.date, QTime(SlotStartHour(e.lastSlot) + 1, 0))));
        }
        t.text(QStringLiteral("SUMMARY"), e.summary);
        if (!e.location.isEmpty()) t.text(QStringLiteral("LOCATION"), e.location);
        if (!e.description.isEmpty()) t.text(QStringLiteral("DESCRIPTION"), e.description);
        t.raw(QStringLiteral("TRANSP"), QStringLiteral("OPAQUE"));
        t.end(QStringLiteral("VEVENT"));
    }
    t.end(QStringLiteral("VCALENDAR"));
    return t.bytes();
}

QStringList CalendarFileNames(const QStringList& teamNames)
{
    static const QSet<QString> devices = [] {
        QSet<QString> d{QStringLiteral("CON"), QStringLiteral("PRN"), QStringLiteral("AUX"),
                        QStringLiteral("NUL")};
        for (int i = 1; i <= 9; ++i) {
            d.insert(QStringLiteral("COM") + QString::number(i));
            d.insert(QStringLiteral("LPT") + QString::number(i));
        }
        return d;
    }();
    QStringList names;
    QSet<QString> taken; // without regard to case, as most synchronised folders compare
    for (qsizetype i = 0; i < teamNames.size(); ++i) {
        QString name;
        for (const QChar c : teamNames[i])
            name += (c.unicode() < 0x20 || c.unicode() == 0x7F ||
                     QStringLiteral("<>:\"/\\|?*").contains(c))
                        ? u'_'
                        : c;
        name = name.trimmed();
        while (name.endsWith(u'.') || name.endsWith(u' '))
            name.chop(1);
        if (name.isEmpty()) name = QStringLiteral("Team ") + QString::number(i + 1);
        if (devices.contains(name.toUpper())) name += u'_';
        if (taken.contains(name.toLower()))
            name += QStringLiteral(" (team ") + QString::number(i + 1) + u')';
        taken.insert(name.toLower());
        names << name + QStringLiteral(".ics");
    }
    return names;
}

namespace
{
// The file without its DTSTAMP lines: what an export compares to see whether anything
// changed.
QByteArray withoutStamps(const QByteArray& bytes)
{
    QByteArray out;
    out.reserve(bytes.size());
    qsizetype from = 0;
    while (from < bytes.size()) {
        qsizetype end = bytes.indexOf("\r\n", from);
        end = end < 0 ? bytes.size() : end + 2;
        const QByteArrayView l(bytes.constData() + from, end - from);
        if (!l.startsWith("DTSTAMP:")) out += l;
        from = end;
    }
    return out;
}
} // namespace

Result<CalendarExportReport> ExportCrewCalendars(CoreContext& c,
                                                 const CalendarExportRequest& request)
{
    Result<CalendarExportSettings> settings = CalendarExportSettingsWithId(c.store);
    if (!settings) return settings.status();
    const int days =
        request.days > 0 ? std::min(request.days, kLongestCalendarDays) : settings->days;
    const QDate first = c.clock.today();
    Result<CalendarSources> sources = ReadCalendarSources(c.store, first, days, settings->folderId);
    if (!sources) return sources.status();

    Store& target = request.target ? *request.target : c.store;
    QString folder = request.target ? request.targetFolder : CrewCalendarsFolder();
    if (!folder.endsWith(u'/')) folder += u'/';
    if (!request.target) {
        if (Status s = c.store.EnsureFolder(ExportsFolder()); !s) return s;
        if (Status s = c.store.EnsureFolder(CrewCalendarsFolder()); !s) return s;
    }

    const QStringList teamNames = c.v.gAssignTo.mid(1);
    const QStringList fileNames = CalendarFileNames(teamNames);
    QList<int> teams = request.teams;
    if (teams.isEmpty())
        for (int t = 1; t <= teamNames.size(); ++t)
            teams << t;

    CalendarExportReport report;
    const QDateTime stamp = c.clock.now();
    DayFileIndex dayFiles(c.store);
    for (const int team : teams) {
        if (team < 1 || team > teamNames.size()) continue;
        QList<CrewEvent> events;
        for (int i = 0; i < days; ++i) {
            const QDate date = first.addDays(i);
            Result<DayTexts> day = dayFiles.read(date, team);
            if (!day) {
                report.problems << day.message();
                continue;
            }
            events += DayEvents(*day, sources->recordsOf(team, date), date, team, sources->links,
                                sources->folderId);
        }
        const QByteArray bytes = CrewCalendarFile(teamNames[team - 1], events, stamp);
        const QString file = folder + fileNames[team - 1];
        ++report.teams;
        report.events += int(events.size());
        if (target.IsFile(file)) {
            Result<QByteArray> old = target.ReadAll(file);
            if (old && withoutStamps(*old) == withoutStamps(bytes)) continue;
        }
        if (Status s = target.WriteFile(file, bytes); !s) return s;
        ++report.written;
    }

    if (request.teams.isEmpty()) {
        // A renamed or removed team leaves no calendar behind that nobody updates.
        QSet<QString> current;
        for (const QString& n : fileNames)
            current.insert(n.toLower());
        for (const QString& entry : target.List(folder)) {
            if (!entry.endsWith(QStringLiteral(".ics"), Qt::CaseInsensitive) ||
                current.contains(entry.toLower()) || !target.IsFile(folder + entry))
                continue;
            if (Status s = target.KillIfPresent(folder + entry); !s) return s;
            report.removed << entry;
        }
    }
    return report;
}

QString CalendarExportMessage(const CalendarExportReport& report, const QString& folder)
{
    QString text = QStringLiteral("The calendars of %1 team%2 are in\n%3\n(%4 changed, %5 events)")
                       .arg(report.teams)
                       .arg(report.teams == 1 ? "" : "s")
                       .arg(folder)
                       .arg(report.written)
                       .arg(report.events);
    if (!report.problems.isEmpty())
        text += QStringLiteral("\n\nThese days could not be read and are left out:\n") +
                report.problems.join(u'\n');
    return text;
}
} // namespace tresvane
