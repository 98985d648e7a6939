#include "core/exports/crewcalendars.h"
#include "core/exports/exportsettings.h"
#include "core/exports/icalendar.h"
#include "core/schedule/booking.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/slipfiles.h"
#include "core/setup/settingsfiles.h"
#include "core/sliprecords/deletecallrec.h"
#include "programfolder.h"
#include "screenrequest.h"

#include <QtTest>

using namespace tresvane;

namespace
{
const QString kFree = "No Event Scheduled";

// A record as a row of the table below writes it: "S|number|name|start|hours" for a slip,
// "M|reference|name|start|hours" for a meeting.
DayRecord record(const QString& fields, const QDate& date, int team)
{
    const QStringList p = fields.split('|');
    DayRecord d;
    d.meeting = p[0] == "M";
    SlipRecord& r = d.record;
    r.setText(SlipField::RecType, d.meeting ? "Meeting" : "Service");
    r.setText(d.meeting ? SlipField::Reference : SlipField::ConfirmationNo, p[1]);
    if (!d.meeting) r.setText(SlipField::Reference, "Leaking tap");
    r.setText(SlipField::Name, p[2]);
    r.setText(SlipField::StartSlot, p[3]);
    r.setText(SlipField::Hours, p[4]);
    r.setText(SlipField::TimeUnit, "Hours");
    r.setText(SlipField::EventDate, date.toString("MM/dd/yyyy"));
    r.setText(SlipField::TeamNo, QString::number(team));
    r.setText(SlipField::Street, "12 Mill Road");
    r.setText(SlipField::City, "Greenfield");
    r.setText(SlipField::St, "OH");
    r.setText(SlipField::Zip, "45123");
    r.setText(SlipField::Tel, "(555)123-4567");
    return d;
}

// Twelve hours from "slot=text" entries; the rest free.
DayTexts dayOf(const QStringList& taken)
{
    DayTexts day = FreeDay();
    for (const QString& t : taken) {
        const qsizetype eq = t.indexOf('=');
        day[t.left(eq).toInt() - 1] = t.mid(eq + 1);
    }
    return day;
}

QString kindName(CrewEvent::Kind k)
{
    switch (k) {
    case CrewEvent::Kind::Slip:
        return "slip";
    case CrewEvent::Kind::Meeting:
        return "meeting";
    case CrewEvent::Kind::RecurringEvent:
        return "recurring";
    case CrewEvent::Kind::BlockedDay:
        return "blocked";
    case CrewEvent::Kind::TakenHours:
        return "hours";
    }
    return {};
}

// The value of each property `name` of a file, unfolded, in order.
QStringList values(const QByteArray& ics, const QByteArray& name)
{
    QStringList out;
    const QByteArray unfolded = QByteArray(ics).replace("\r\n ", "");
    for (const QByteArray& l : unfolded.split('\n'))
        if (l.startsWith(name + ':') || l.startsWith(name + ';'))
            out << QString::fromUtf8(l.mid(l.indexOf(':') + 1)).chopped(l.endsWith('\r') ? 1 : 0);
    return out;
}

// The event of a uid in a file: its DTSTART, or empty when the file has no such event.
QString startOf(const QByteArray& ics, const QString& uid)
{
    const QStringList uids = values(ics, "UID"), starts = values(ics, "DTSTART");
    const qsizetype i = uids.indexOf(uid);
    return i < 0 ? QString() : starts.value(i);
}

// Two teams, the second with a name no file can hold as it stands.
void twoTeams(ProgramFolder& f)
{
    f.put("Assignto.txt", "\"North Crew\"\r\n\"Plumbing/Heating: East\"\r\n");
    QVERIFY(LoadAssignments(f.ctx).ok());
}

void customerInHand(ProgramFolder& f)
{
    f.v.Mode = Mode::ServiceSlip;
    f.v.current.account = "A-100";
    f.v.current.name = "José Müller, Jr.";
    f.v.current.address1 = "12 Mill Road; Unit 4";
    f.v.current.city = "Greenfield";
    f.v.current.state = "OH";
    f.v.current.zip = "45123";
    f.v.current.phone = "(555)123-4567";
    f.v.settings.ckSlipStyle = 1;
    f.v.gJulianDay = "120";
    f.v.gSequence = 1;
    f.v.gConfirmation = "SA120-1";
}

// A Service Attention booked as the Scheduling Screen books it.
void book(ProgramFolder& f, int team, const QDate& date, int slot, int hours,
          const QString& rescheduledFrom = {})
{
    f.v.CurrentTeam = QString::number(team);
    const QString text = f.v.gConfirmation + ' ' + f.v.current.name;
    QVERIFY(LoadDay(f.ctx, date, f.v.CurrentTeam).ok());
    GridColumn grid = GridFromDaySlots(f.v);
    for (int r = slot; r < slot + hours; ++r)
        grid[r - 1] = text;
    WriteSlots(f.v, grid);
    BookingRequest r = ScreenRequest(f.ctx, date);
    r.eventText = text;
    r.hours = QString::number(hours);
    r.firstSlot = slot;
    r.number = f.v.gConfirmation;
    r.problem = "Leaking tap";
    r.rescheduledFrom = rescheduledFrom;
    f.dialogs.expectContaining("has been Scheduled");
    Result<BookingSaved> saved = SaveBooking(f.ctx, r);
    QVERIFY2(saved.ok(), qPrintable(saved.message()));
    QCOMPARE(*saved, BookingSaved::Scheduled);
}

CalendarExportReport exportAll(ProgramFolder& f)
{
    Result<CalendarExportReport> report = ExportCrewCalendars(f.ctx, {});
    if (!report) qWarning("%s", qPrintable(report.message()));
    return report.valueOr({});
}
} // namespace

class TestCrewCalendars : public QObject
{
    Q_OBJECT
private slots:
    void escapeText_data();
    void escapeText();
    void foldLines_data();
    void foldLines();
    void fileNames_data();
    void fileNames();
    void dayEvents_data();
    void dayEvents();
    void eventHoursAndTexts();
    void exportKeepsIdsAndTouchesNoDataFile();
    void rescheduledSlipMovesItsEvent();
    void settingsRoundTrip();
};

void TestCrewCalendars::escapeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");
    QTest::newRow("plain") << "Ada Byron"
                           << "Ada Byron";
    QTest::newRow("separators") << "a,b;c\\d"
                                << "a\\,b\\;c\\\\d";
    QTest::newRow("quotes stay") << "O'Neil \"Jr\""
                                 << "O'Neil \"Jr\"";
    QTest::newRow("line breaks") << "one\r\ntwo\nthree\rfour"
                                 << "one\\ntwo\\nthree\\nfour";
    QTest::newRow("controls dropped, tab kept") << QString("a\x01\tb\x7f") << "a\tb";
    QTest::newRow("non-latin") << "José Müller 東京"
                               << "José Müller 東京";
}

void TestCrewCalendars::escapeText()
{
    QFETCH(QString, text);
    QFETCH(QString, escaped);
    QCOMPARE(EscapeCalendarText(text), escaped);
}

void TestCrewCalendars::foldLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("short") << "SUMMARY:Ada";
    QTest::newRow("exactly 75") << "X:" + QString(73, 'a');
    QTest::newRow("76") << "X:" + QString(74, 'a');
    QTest::newRow("long ascii") << "DESCRIPTION:" + QString(400, 'x');
    QTest::newRow("two-byte letters") << "LOCATION:" + QString("José Müller ").repeated(30);
    QTest::newRow("three-byte at the edge")
        << "X:" + QString(72, 'a') + QString("東京都").repeated(9);
    QTest::newRow("four-byte at the edge")
        << "X:" + QString(71, 'a') + QString::fromUtf8("\xF0\x9F\x94\xA7").repeated(20);
}

// Every physical line holds at most 75 octets of whole characters, continuation lines
// open with a blank, and unfolding gives the line back.
void TestCrewCalendars::foldLines()
{
    QFETCH(QString, line);
    const QByteArray folded = FoldCalendarLine(line.toUtf8());
    QVERIFY(folded.endsWith("\r\n"));
    const QList<QByteArray> lines = folded.chopped(2).split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QByteArray l = lines[i];
        if (i + 1 < lines.size()) {
            QVERIFY(l.endsWith('\r'));
            l.chop(1);
        }
        QVERIFY2(l.size() <= 75, l.constData());
        if (i > 0) QVERIFY(l.startsWith(' '));
        QVERIFY2(!QString::fromUtf8(l).contains(QChar::ReplacementCharacter), "a character cut");
    }
    QCOMPARE(QString::fromUtf8(folded.chopped(2).replace("\r\n ", "")), line);
    if (line.toUtf8().size() <= 75) QCOMPARE(lines.size(), 1);
}

void TestCrewCalendars::fileNames_data()
{
    QTest::addColumn<QStringList>("teams");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("plain") << QStringList{"North", "South"}
                           << QStringList{"North.ics", "South.ics"};
    QTest::newRow("separators and marks")
        << QStringList{"A/B\\C", "Why?*", "<HVAC>: \"East\"|"}
        << QStringList{"A_B_C.ics", "Why__.ics", "_HVAC__ _East__.ics"};
    QTest::newRow("trailing dots and blanks, empty")
        << QStringList{"Night crew. ", "  ", "..."}
        << QStringList{"Night crew.ics", "Team 2.ics", "Team 3.ics"};
    QTest::newRow("device names") << QStringList{"con", "LPT1", "Console"}
                                  << QStringList{"con_.ics", "LPT1_.ics", "Console.ics"};
    QTest::newRow("same name twice, any case")
        << QStringList{"Plumbers", "plumbers", "A/B", "A_B"}
        << QStringList{"Plumbers.ics", "plumbers (team 2).ics", "A_B.ics", "A_B (team 4).ics"};
    QTest::newRow("letters kept") << QStringList{"Équipe Müller"}
                                  << QStringList{"Équipe Müller.ics"};
}

void TestCrewCalendars::fileNames()
{
    QFETCH(QStringList, teams);
    QFETCH(QStringList, files);
    QCOMPARE(CalendarFileNames(teams), files);
}

void TestCrewCalendars::dayEvents_data()
{
    QTest::addColumn<QStringList>("day");     // "slot=text"
    QTest::addColumn<QStringList>("records"); // see record()
    QTest::addColumn<QString>("events");      // "kind first-last summary", "; " between
    QTest::newRow("a slip over the lunch gap")
        << QStringList{"6=SA120-1 Ada", "7=SA120-1 Ada"} << QStringList{"S|SA120-1|Ada|6|2"}
        << "slip 6-7 Ada";
    QTest::newRow("SA120-1 is not SA120-12")
        << QStringList{"3=SA120-12 Bob"} << QStringList{"S|SA120-1|Ada|3|1", "S|SA120-12|Bob|3|1"}
        << "slip 3-3 Bob";
    QTest::newRow("blocked day") << QStringList{"1=Vacation",  "2=Vacation",  "3=Vacation",
                                                "4=Vacation",  "5=Vacation",  "6=Vacation",
                                                "7=Vacation",  "8=Vacation",  "9=Vacation",
                                                "10=Vacation", "11=Vacation", "12=Vacation"}
                                 << QStringList{} << "blocked 1-12 Vacation";
    QTest::newRow("meeting, recurring event and hours of no record")
        << QStringList{"1=Mtg - 06:00 - Cy", "4=Recurring Event - Staff meeting",
                       "5=Recurring Event - Staff meeting", "9=Truck to the garage"}
        << QStringList{"M|Mtg - 06:00 - Cy|Cy|1|1", "M|Staff meeting|Staff meeting|4|2"}
        << "meeting 1-1 Meeting - Cy; recurring 4-5 Staff meeting; hours 9-9 Truck to the garage";
    QTest::newRow("one text twice in a row parts where the first ends")
        << QStringList{"2=Recurring Event - Rounds", "3=Recurring Event - Rounds",
                       "4=Recurring Event - Rounds"}
        << QStringList{"M|Rounds|Rounds|2|1", "M|Rounds|Rounds|3|2"}
        << "recurring 2-2 Rounds; recurring 3-4 Rounds";
    QTest::newRow("a record whose hours the day no longer shows is left out")
        << QStringList{} << QStringList{"S|SA120-1|Ada|3|2"} << "";
    QTest::newRow("a twelve-hour job is no blocked day")
        << QStringList{"1=SA1 Ada", "2=SA1 Ada",  "3=SA1 Ada",  "4=SA1 Ada",
                       "5=SA1 Ada", "6=SA1 Ada",  "7=SA1 Ada",  "8=SA1 Ada",
                       "9=SA1 Ada", "10=SA1 Ada", "11=SA1 Ada", "12=SA1 Ada"}
        << QStringList{"S|SA1|Ada|1|12"} << "slip 1-12 Ada";
}

void TestCrewCalendars::dayEvents()
{
    QFETCH(QStringList, day);
    QFETCH(QStringList, records);
    QFETCH(QString, events);
    const QDate date(2026, 5, 5);
    QList<DayRecord> recs;
    for (const QString& r : records)
        recs << record(r, date, 1);
    QStringList got;
    for (const CrewEvent& e : DayEvents(dayOf(day), recs, date, 1, {}, "F"))
        got << QString("%1 %2-%3 %4")
                   .arg(kindName(e.kind))
                   .arg(e.firstSlot)
                   .arg(e.lastSlot)
                   .arg(e.summary);
    QCOMPARE(got.join("; "), events);
}

// The times, the texts and their escaping as they land in the file.
void TestCrewCalendars::eventHoursAndTexts()
{
    const QDate date(2026, 5, 5);
    DayRecord r = record("S|SA120-1|José Müller, Jr.|6|2", date, 1);
    r.record.setText(SlipField::Street, "12 Mill Road; Unit 4");
    r.record.setText(SlipField::Reference, "No heat, \"urgent\"");
    const QList<CrewEvent> events =
        DayEvents(dayOf({"6=SA120-1 José Müller, Jr.", "7=SA120-1 José Müller, Jr."}), {r}, date, 1,
                  {}, "F00D");
    const QByteArray ics =
        CrewCalendarFile("North; Crew", events, QDateTime(date, QTime(8, 0), Qt::UTC));
    QCOMPARE(values(ics, "DTSTART"), QStringList{"20260505T110000"});
    QCOMPARE(values(ics, "DTEND"), QStringList{"20260505T140000"});
    QCOMPARE(values(ics, "DTSTAMP"), QStringList{"20260505T080000Z"});
    QCOMPARE(values(ics, "SUMMARY"), QStringList{"José Müller\\, Jr."});
    QCOMPARE(values(ics, "LOCATION"),
             QStringList{"12 Mill Road\\; Unit 4\\, Greenfield\\, OH 45123"});
    QCOMPARE(values(ics, "DESCRIPTION"),
             QStringList{"Telephone: (555)123-4567\\nProblem: No heat\\, \"urgent\"\\n"
                         "Confirmation No.: SA120-1"});
    QCOMPARE(values(ics, "X-WR-CALNAME"), QStringList{"North\\; Crew"});
    QCOMPARE(values(ics, "UID"), QStringList{"slip-SA120-1.F00D@tresvane-dispatcher"});
    // CR LF after every line and nowhere else.
    QCOMPARE(ics.count("\r\n"), ics.count('\n'));
    QVERIFY(ics.startsWith("BEGIN:VCALENDAR\r\nVERSION:2.0\r\n"));
    QVERIFY(ics.endsWith("END:VCALENDAR\r\n"));
}

// Ids stay as they were across exports and when another slip comes; an export that finds
// nothing changed writes nothing; nothing outside Exports is written.
void TestCrewCalendars::exportKeepsIdsAndTouchesNoDataFile()
{
    ProgramFolder f;
    twoTeams(f);
    customerInHand(f);
    book(f, 1, QDate(2026, 5, 5), 3, 2);
    const auto before = f.snapshot();

    const CalendarExportReport first = exportAll(f);
    QCOMPARE(first.teams, 2);
    QCOMPARE(first.written, 2);
    QCOMPARE(first.events, 1);
    const QByteArray north = f.get("Exports/Calendars/North Crew.ics");
    QVERIFY(f.has("Exports/Calendars/Plumbing_Heating_ East.ics"));
    const QStringList uids = values(north, "UID");
    QCOMPARE(uids.size(), 1);

    QStringList outside;
    const auto after = f.snapshot();
    for (auto it = after.cbegin(); it != after.cend(); ++it)
        if (!it.key().startsWith("Exports/")) outside << it.key();
    QCOMPARE(outside, before.keys());
    for (const QString& name : outside)
        QVERIFY2(f.get(name) == before.value(name), qPrintable(name));

    f.clock.set(f.clock.now().addSecs(60));
    const CalendarExportReport again = exportAll(f);
    QCOMPARE(again.written, 0);
    QCOMPARE(f.get("Exports/Calendars/North Crew.ics"), north);

    book(f, 1, QDate(2026, 5, 5), 7, 1);
    book(f, 2, QDate(2026, 5, 6), 1, 1);
    const CalendarExportReport third = exportAll(f);
    QCOMPARE(third.written, 2);
    const QByteArray added = f.get("Exports/Calendars/North Crew.ics");
    QCOMPARE(values(added, "UID").size(), 2);
    QCOMPARE(values(added, "UID").first(), uids.first());
    QCOMPARE(startOf(added, uids.first()), QString("20260505T080000"));

    // A team renamed: its old file goes with the next export of every team.
    f.put("Assignto.txt", "\"North Crew\"\r\n\"East\"\r\n");
    QVERIFY(LoadAssignments(f.ctx).ok());
    const CalendarExportReport renamed = exportAll(f);
    QCOMPARE(renamed.removed, QStringList{"Plumbing_Heating_ East.ics"});
    QVERIFY(f.has("Exports/Calendars/East.ics"));
    VERIFY_DIALOGS(f.dialogs);
}

// The slip taken out by the record screen and booked again on another day and team: the
// next export shows the event, under the same id, on the new day of the new team.
void TestCrewCalendars::rescheduledSlipMovesItsEvent()
{
    ProgramFolder f;
    twoTeams(f);
    customerInHand(f);
    f.v.gDayOfYear = 120;
    book(f, 1, QDate(2026, 5, 5), 3, 2);
    book(f, 1, QDate(2026, 5, 5), 7, 1); // SA120-2 stays where it is
    exportAll(f);
    const QByteArray north = f.get("Exports/Calendars/North Crew.ics");
    const QStringList uids = values(north, "UID");
    QCOMPARE(uids.size(), 2);
    const QString moved = uids.first();
    QCOMPARE(startOf(north, moved), QString("20260505T080000"));

    for (const auto& [number, team, date, slot] :
         {std::tuple{QString("SA120-1"), 2, QDate(2026, 5, 7), 8},
          std::tuple{QString("SA120-3"), 1, QDate(2026, 5, 8), 1}}) {
        Result<QList<SlipRecord>> slips = ReadSlipRecords(f.store, SlipsFileName());
        QVERIFY(slips.ok());
        for (const SlipRecord& s : *slips)
            if (s.text(SlipField::ConfirmationNo) == number) f.v.gSlip = s;
        QCOMPARE(f.v.gSlip.text(SlipField::ConfirmationNo), number);
        CallRecordOnShow shown{1, "Service", "", ""};
        QVERIFY(DeleteCallRec(f.ctx, shown, 0).ok());
        book(f, team, date, slot, 2, number);
        exportAll(f);
        const QByteArray northNow = f.get("Exports/Calendars/North Crew.ics");
        const QByteArray eastNow = f.get("Exports/Calendars/Plumbing_Heating_ East.ics");
        const QString start = date.toString("yyyyMMdd") + (slot == 8 ? "T140000" : "T060000");
        QCOMPARE(startOf(team == 2 ? eastNow : northNow, moved), start);
        QCOMPARE(startOf(team == 2 ? northNow : eastNow, moved), QString());
        QCOMPARE(values(northNow, "UID").count(moved) + values(eastNow, "UID").count(moved), 1);
        QCOMPARE(startOf(northNow, uids.last()), QString("20260505T130000"));
    }
    VERIFY_DIALOGS(f.dialogs);
}

void TestCrewCalendars::settingsRoundTrip()
{
    ProgramFolder f;
    Result<CalendarExportSettings> none = ReadCalendarExportSettings(f.store);
    QVERIFY(none.ok());
    QCOMPARE(none->afterEveryChange, false);
    QCOMPARE(none->days, 60);
    QVERIFY(!f.has("Exports"));

    Result<CalendarExportSettings> made = CalendarExportSettingsWithId(f.store);
    QVERIFY(made.ok());
    QCOMPARE(made->folderId.size(), 32);
    CalendarExportSettings s = *made;
    s.afterEveryChange = true;
    s.days = 14;
    QVERIFY(WriteCalendarExportSettings(f.store, s).ok());
    QCOMPARE(f.get("Exports/CalendarExport.txt"),
             "#TRUE#,14,\"" + made->folderId.toLatin1() + "\"\r\n");
    Result<CalendarExportSettings> back = CalendarExportSettingsWithId(f.store);
    QCOMPARE(back->folderId, made->folderId);
    QCOMPARE(back->days, 14);
    QVERIFY(back->afterEveryChange);

    f.put("Exports/CalendarExport.txt", "#TRUE#,9999,\"x\"\r\n");
    QCOMPARE(ReadCalendarExportSettings(f.store)->days, 60);
    f.put("Exports/CalendarExport.txt", "\"unclosed\r\n");
    QVERIFY(!ReadCalendarExportSettings(f.store).ok());
}

QTEST_GUILESS_MAIN(TestCrewCalendars)
#include "test_crewcalendars.moc"
