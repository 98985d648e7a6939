// dispatcher-export as a nightly job runs it: the crews' calendars of a hand-laid folder,
// read back by the icalendar package of Python, and the first free hours; the data files
// byte for byte as they were.

#include "core/calendar/calendarday.h"
#include "core/io/sliprecord.h"
#include "programfolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

using namespace tresvane;

namespace
{
struct Ran {
    int exitCode = -1;
    QString out, err;
};

Ran run(const QString& program, const QStringList& args)
{
    QProcess p;
    p.start(program, args);
    Ran r;
    if (!p.waitForFinished(60000)) return r;
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

Ran tool(const QStringList& args)
{
    return run(QStringLiteral(DISPATCH_EXPORT_TOOL), args);
}

QByteArray quotedDay(const QStringList& lines)
{
    QByteArray out;
    for (const QString& s : lines)
        out += '"' + s.toUtf8() + "\"\r\n";
    return out;
}

QStringList dayWith(const QMap<int, QString>& taken)
{
    QStringList lines;
    for (int s = 1; s <= 12; ++s)
        lines << taken.value(s, "No Event Scheduled");
    return lines;
}

QByteArray slip(const QString& type, const QString& number, int team, const QDate& date, int start,
                int hours, const QString& name, const QString& street, const QString& reference)
{
    SlipRecord r;
    r.setText(SlipField::RecType, type);
    r.setText(SlipField::ConfirmationNo, number);
    r.setText(SlipField::TeamNo, QString::number(team));
    r.setText(SlipField::TimeUnit, "Hours");
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::EventDate, date.toString("MM/dd/yyyy"));
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Reference, reference);
    r.setText(SlipField::Status, "Scheduled");
    r.setText(SlipField::AcctNo, "A-" + QString::number(start));
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, street);
    r.setText(SlipField::City, "Greenfield");
    r.setText(SlipField::St, "OH");
    r.setText(SlipField::Zip, "45123");
    r.setText(SlipField::Tel, "(555)123-4567");
    return r.bytes();
}

// The UIDs of a file, in order.
QStringList uids(const QByteArray& ics)
{
    QStringList out;
    for (const QByteArray& l : QByteArray(ics).replace("\r\n ", "").split('\n'))
        if (l.startsWith("UID:")) out << QString::fromUtf8(l.mid(4).trimmed());
    return out;
}

QJsonObject jsonEvent(const QString& uid, const QString& summary, const QString& start,
                      const QString& end, const QString& location = {},
                      const QString& description = {})
{
    QJsonObject e{{"summary", summary}, {"start", start}, {"end", end}};
    if (!uid.isEmpty()) e["uid"] = uid;
    if (!location.isEmpty()) e["location"] = location;
    if (!description.isEmpty()) e["description"] = description;
    return e;
}

// The first day after today the five-day week works.
QDate nextWorkDay()
{
    QDate d = QDate::currentDate().addDays(1);
    while (d.dayOfWeek() > 5)
        d = d.addDays(1);
    return d;
}
} // namespace

class TestDispatcherExport : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void calendarsReadByAnotherReader();
    void freeHours();
    void refusals_data();
    void refusals();

private:
    ProgramFolder f;
    QDate jobDay, meetingDay, holiday;
};

void TestDispatcherExport::initTestCase()
{
    jobDay = nextWorkDay();
    meetingDay = jobDay.addDays(1);
    holiday = jobDay.addDays(2);
    f.put("Assignto.txt", "\"North Crew\"\r\n\"Plumbing/Heating\"\r\n\"\xC9quipe M\xFCller\"\r\n");
    const QString jose = QString("José Müller");
    const QString pat = "O'Brien, Pat";
    f.put(TeamDayFile(jobDay, 1).mid(1), quotedDay(dayWith({{3, "SA1-1 " + jose},
                                                            {4, "SA1-1 " + jose},
                                                            {6, "SA1-2 " + pat},
                                                            {7, "SA1-2 " + pat}}))
                                             .replace("é", "\xE9")
                                             .replace("ü", "\xFC"));
    f.put("Slips.txt",
          slip("Service", "SA1-1", 1, jobDay, 3, 2, jose, "12 Mill Road, Unit 4",
               "No heat; \"urgent\", back\\door") +
              slip("Service", "SA1-2", 1, jobDay, 6, 2, pat, "3 Quay", "Dripping tap") +
              // beyond the sixty days: in no calendar
              slip("Service", "SA1-3", 1, jobDay.addDays(70), 1, 1, "Later", "", ""));
    f.put(TeamDayFile(meetingDay, 2).mid(1), quotedDay(dayWith({{4, "Mtg - 09:00 - Ann; Lee"}})));
    f.put("Meetings.txt",
          slip("Meeting", "", 2, meetingDay, 4, 1, "Ann; Lee", "1 Elm", "Mtg - 09:00 - Ann; Lee"));
    QByteArray blocked;
    for (int i = 0; i < 12; ++i)
        blocked += "Holiday\r\n";
    f.put(TeamDayFile(holiday, 3).mid(1), blocked);
}

void TestDispatcherExport::calendarsReadByAnotherReader()
{
    const auto before = f.snapshot();
    const Ran first = tool({f.root(), "--calendars"});
    QVERIFY2(first.exitCode == 0, qPrintable(first.err));
    QVERIFY2(first.out.startsWith("3 calendars in "), qPrintable(first.out));
    QVERIFY2(first.out.contains(": 3 written, 0 unchanged, 4 events"), qPrintable(first.out));
    const auto after = f.snapshot();
    for (auto it = after.cbegin(); it != after.cend(); ++it)
        if (!it.key().startsWith("Exports/")) QCOMPARE(it.value(), before.value(it.key()));

    const QRegularExpressionMatch id =
        QRegularExpression("^#FALSE#,60,\"([0-9a-f]{32})\"\r\n$")
            .match(QString::fromLatin1(f.get("Exports/CalendarExport.txt")));
    QVERIFY(id.hasMatch());
    const QString folderId = id.captured(1);
    auto uid = [&](const QString& key) { return key + '.' + folderId + "@tresvane-dispatcher"; };
    const QString day = jobDay.toString(Qt::ISODate);
    const QString mday = meetingDay.toString(Qt::ISODate);

    QJsonObject files;
    files["North Crew.ics"] =
        QJsonArray{jsonEvent(uid("slip-SA1-1"), "José Müller", day + "T08:00:00", day + "T10:00:00",
                             "12 Mill Road, Unit 4, Greenfield, OH 45123",
                             "Telephone: (555)123-4567\nProblem: No heat; \"urgent\", back\\door\n"
                             "Confirmation No.: SA1-1\nAccount: A-3"),
                   jsonEvent(uid("slip-SA1-2"), "O'Brien, Pat", day + "T11:00:00",
                             day + "T14:00:00", "3 Quay, Greenfield, OH 45123")};
    files["Plumbing_Heating.ics"] = QJsonArray{
        jsonEvent({}, "Meeting - Ann; Lee", mday + "T09:00:00", mday + "T10:00:00",
                  "1 Elm, Greenfield, OH 45123",
                  "Telephone: (555)123-4567\nMeeting: Mtg - 09:00 - Ann; Lee\nAccount: A-4")};
    files["Équipe Müller.ics"] = QJsonArray{
        jsonEvent(uid("blocked-t3-" + holiday.toString("yyyyMMdd")), "Holiday",
                  holiday.toString(Qt::ISODate), holiday.addDays(1).toString(Qt::ISODate))};
    const QString expected = f.abs("../expected.json");
    {
        QFile out(expected);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(
            QJsonDocument(QJsonObject{{"folder", f.abs("Exports/Calendars")}, {"files", files}})
                .toJson());
    }
    const Ran checked =
        run(QStringLiteral(DISPATCH_PYTHON), {QStringLiteral(DISPATCH_ICAL_CHECK), expected});
    QVERIFY2(checked.exitCode == 0, qPrintable(checked.out + checked.err));

    // Again, into a folder of the job's own: the same ids, and the program folder's
    // calendars untouched.
    const QByteArray north = f.get("Exports/Calendars/North Crew.ics");
    const Ran second = tool({f.root(), "--calendars", "--days", "5", "--out", f.abs("../out")});
    QVERIFY2(second.exitCode == 0, qPrintable(second.err));
    QFile copy(f.abs("../out/North Crew.ics"));
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(uids(copy.readAll()), uids(north));
    QCOMPARE(f.get("Exports/Calendars/North Crew.ics"), north);

    // Nothing changed: nothing written.
    const Ran third = tool({f.root(), "--calendars"});
    QVERIFY2(third.out.contains(": 0 written, 3 unchanged"), qPrintable(third.out));
}

void TestDispatcherExport::freeHours()
{
    const Ran r =
        tool({f.root(), "--free", "3", "--from", jobDay.toString("MM/dd/yyyy"), "--team", "1"});
    QVERIFY2(r.exitCode == 0, qPrintable(r.err));
    const QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 10);
    QCOMPARE(lines.first(), jobDay.toString("MM/dd/yyyy") + "\t1\t02:00pm\tNorth Crew");
    for (const QString& l : lines)
        QVERIFY2(QRegularExpression("^\\d\\d/\\d\\d/\\d{4}\t1\t\\d\\d:00[ap]m\tNorth Crew$")
                     .match(l)
                     .hasMatch(),
                 qPrintable(l));

    // The holiday of team 3 is passed over.
    const Ran blocked =
        tool({f.root(), "--free", "1", "--from", holiday.toString("MM/dd/yyyy"), "--team", "3"});
    QVERIFY(!blocked.out.startsWith(holiday.toString("MM/dd/yyyy")));
}

void TestDispatcherExport::refusals_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");
    QTest::newRow("nothing asked") << QStringList{"FOLDER"} << 2 << "either --calendars or --free";
    QTest::newRow("both asked") << QStringList{"FOLDER", "--calendars", "--free", "2"} << 2
                                << "either --calendars or --free";
    QTest::newRow("thirteen hours") << QStringList{"FOLDER", "--free", "13"} << 2 << "1 to 12";
    QTest::newRow("a day that is none")
        << QStringList{"FOLDER", "--free", "2", "--from", "13/45/2026"} << 2 << "not a date";
    QTest::newRow("no such team") << QStringList{"FOLDER", "--free", "2", "--team", "9"} << 1
                                  << "there is no team 9; the teams are 1 to 3";
    QTest::newRow("days out of range")
        << QStringList{"FOLDER", "--calendars", "--days", "0"} << 2 << "--days is a number";
    QTest::newRow("team with calendars") << QStringList{"FOLDER", "--calendars", "--team", "1"} << 2
                                         << "--from and --team go with --free";
    QTest::newRow("no folder") << QStringList{"/nonexistent/folder", "--calendars"} << 1
                               << "is not a folder";
}

void TestDispatcherExport::refusals()
{
    QFETCH(QStringList, args);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    args.replaceInStrings(QRegularExpression("^FOLDER$"), f.root());
    const auto before = f.snapshot();
    const Ran r = tool(args);
    QCOMPARE(r.exitCode, exitCode);
    QVERIFY2(r.err.contains(message), qPrintable(r.err));
    QCOMPARE(f.snapshot(), before);
}

QTEST_GUILESS_MAIN(TestDispatcherExport)
#include "test_dispatcherexport.moc"
