// The crews' daily work schedules over the recorder: the headings, the hour rows, the
// account blocks and the completion report, to the twip; and the day read from the files
// as the schedule prints it. Recorder letters are half an em wide, lines 1.2 em high.

#include "programfolder.h"
#include "recordingprintsurface.h"

#include "core/documents/workschedule.h"
#include "core/io/sliprecord.h"

#include <QtTest>

using namespace tresvane;

using Op = RecordingPrintSurface::Op;

namespace
{
const QDate kDay(2026, 5, 5); // a Tuesday, day 125
constexpr qint32 kRed = 0x0000FF;
constexpr qint32 kBlue = 0xFF0000;

double rowY(int k)
{
    return (1.35 + 0.75 * k) * 1440;
}

SlipRecord slip(const QString& number, const QString& account, const QString& name, int team = 1,
                int start = 3, int hours = 1, const QString& date = "05/05/2026",
                const QString& reason = "No Heat")
{
    SlipRecord r;
    r.setText(SlipField::RecType, QStringLiteral("Service"));
    r.setText(SlipField::ConfirmationNo, number);
    r.setText(SlipField::TeamNo, QString::number(team));
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::EventDate, date);
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Reference, reason);
    r.setText(SlipField::AcctNo, account);
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, QStringLiteral("12 Mill Road"));
    r.setText(SlipField::Apt, QStringLiteral("Unit 3"));
    r.setText(SlipField::City, QStringLiteral("Greenfield"));
    r.setText(SlipField::St, QStringLiteral("OH"));
    r.setText(SlipField::Zip, QStringLiteral("45123"));
    return r;
}

// A day with nothing booked.
ScheduleDay freeDay(const QString& team = QStringLiteral("North Truck"))
{
    ScheduleDay day;
    day.date = kDay;
    day.team = 1;
    day.teamName = team;
    day.slotTexts.fill(QStringLiteral("No Event Scheduled"));
    return day;
}

// Puts a record on the day at its start slot for its hours, its text on those slots.
void place(ScheduleDay& day, const SlipRecord& r)
{
    const int start = r.text(SlipField::StartSlot).toInt() - 1;
    const int index = int(day.records.size());
    day.records << r;
    for (int k = 0; k < r.text(SlipField::Hours).toInt(); ++k) {
        day.slotTexts[start + k] =
            r.text(SlipField::ConfirmationNo) + u' ' + r.text(SlipField::Name);
        day.recordOf[start + k] = index;
    }
}

struct Printed {
    DispatchingVariables v;
    RecordingPrintSurface r;
    PrintJob job{r, DocumentSettings{}};

    explicit Printed(int startHour = 8)
    {
        BuildTimeLabels(v);
        v.gStartHour = quint8(startHour);
        job.settings.borderColor = kRed;
        job.settings.textColor = kBlue;
    }
    void print(const ScheduleDay& day, ScheduleForm form) { PrintWorkSchedule(job, v, day, form); }
};

QList<Op> startingWith(const RecordingPrintSurface& r, const QString& prefix)
{
    QList<Op> out;
    for (const Op& op : r.texts())
        if (op.text.startsWith(prefix)) out << op;
    return out;
}

const QStringList kLabels = {"06:00am", "07:00am", "08:00am", "09:00am", "10:00am", "11:00am",
                             "01:00pm", "02:00pm", "03:00pm", "04:00pm", "05:00pm", "06:00pm"};
} // namespace

class TestWorkSchedule : public QObject
{
    Q_OBJECT
private slots:
    void headingsOfEachForm_data();
    void headingsOfEachForm();
    void hourRowsByFormAndStartHour_data();
    void hourRowsByFormAndStartHour();
    void accountBlockOfASlip_data();
    void accountBlockOfASlip();
    void slipOfSeveralHoursPrintsItsBlockOnce();
    void problemColumn_data();
    void problemColumn();
    void completionReportKeepsItsRows_data();
    void completionReportKeepsItsRows();
    void emptyDayPrintsHeadingsLabelsAndAnEmptyReport();
    void coloursByRoleAndBlackWhenOff();
    void allTeamsFromTheLastDownToTheFirst();
    void dayReadFromTheFilesWithoutWriting();
};

void TestWorkSchedule::headingsOfEachForm_data()
{
    QTest::addColumn<int>("form");
    QTest::newRow("extended") << int(ScheduleForm::Extended);
    QTest::newRow("work day") << int(ScheduleForm::WorkDay);
}

void TestWorkSchedule::headingsOfEachForm()
{
    QFETCH(int, form);
    Printed p;
    p.print(freeDay(), ScheduleForm(form));
    const bool workDay = form == int(ScheduleForm::WorkDay);
    struct Want {
        const char* text;
        double x, y, size;
        bool bold;
    };
    QList<Want> wants = {
        {"Daily Work Schedule", 1, 0.3, 15, true}, {"Assigned to : North Truck", 1, 0.55, 15, true},
        {"Date: 05/05/2026", 1, 0.8, 15, true},    {"Account Information", 0.75, 1.1, 12, true},
        {"Problem", 3.25, 1.1, 12, true},          {"Times", 4.85, 1.1, 12, true},
        {"Total Time", 6.1, 1.1, 12, true}};
    if (workDay)
        wants += QList<Want>{{"COMPLETION REPORT", 8, 0.3, 10, true},
                             {"North Truck", 8, 0.3 + 2 * 240 / 1440.0, 10, true},
                             {"Time  /  Account Info", 8, 0.3 + 3 * 240 / 1440.0, 12, false},
                             {"Project Event/Reason", 4.5, 0.3 + 3 * 240 / 1440.0, 12, false}};
    for (const Want& w : wants) {
        const Op* op = p.r.find(QString::fromLatin1(w.text));
        QVERIFY2(op, w.text);
        QCOMPARE(Inches(op->x), w.x);
        QCOMPARE(qRound(op->y), qRound(w.y * 1440));
        QCOMPARE(op->fontSize, w.size);
        QCOMPARE(op->bold, w.bold);
    }
    QCOMPARE(p.r.find("COMPLETION REPORT") != nullptr, workDay);
    // The report's date stands under its title too.
    QCOMPARE(p.r.findAll("Date: 05/05/2026").size(), workDay ? 2 : 1);
    QCOMPARE(p.r.ops.first().orientation,
             workDay ? PrintSurface::Orientation::Landscape : PrintSurface::Orientation::Portrait);
    QCOMPARE(p.r.documents(), 1);
}

void TestWorkSchedule::hourRowsByFormAndStartHour_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<int>("startHour");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("extended: all twelve") << int(ScheduleForm::Extended) << 8 << kLabels;
    QTest::newRow("extended ignores the start hour") << int(ScheduleForm::Extended) << 7 << kLabels;
    QTest::newRow("work day from 8") << int(ScheduleForm::WorkDay) << 8 << kLabels.mid(2, 8);
    QTest::newRow("work day from 7") << int(ScheduleForm::WorkDay) << 7 << kLabels.mid(1, 8);
}

void TestWorkSchedule::hourRowsByFormAndStartHour()
{
    QFETCH(int, form);
    QFETCH(int, startHour);
    QFETCH(QStringList, labels);
    Printed p(startHour);
    p.print(freeDay(), ScheduleForm(form));
    QStringList printed;
    for (const Op& op : p.r.texts())
        if (kLabels.contains(op.text)) printed << op.text;
    QCOMPARE(printed, labels);
    for (int k = 0; k < labels.size(); ++k) {
        const QList<Op> at = p.r.findAll(labels[k]);
        QCOMPARE(at.last().x, 1080.0);
        QCOMPARE(at.last().y, rowY(k));
    }
}

void TestWorkSchedule::accountBlockOfASlip_data()
{
    QTest::addColumn<bool>("usa");
    QTest::addColumn<QStringList>("block");
    QTest::newRow("USA: the unit rides on the street's line")
        << true
        << QStringList{"  A-100", "Ada Byron", "12 Mill Road, Unit 3", "Greenfield, OH 45123"};
    QTest::newRow("international: the unit on a line of its own")
        << false
        << QStringList{"  A-100", "Ada Byron", "12 Mill Road", "Unit 3", "Greenfield, OH 45123"};
}

void TestWorkSchedule::accountBlockOfASlip()
{
    QFETCH(bool, usa);
    QFETCH(QStringList, block);
    Printed p;
    p.job.settings.usaAddress = usa;
    ScheduleDay day = freeDay();
    place(day, slip("SA125-1", "A-100", "Ada Byron", 1, 4));
    p.print(day, ScheduleForm::Extended);
    // The 09:00am row is the fourth: the account follows its label on the line.
    const double y = rowY(3);
    const Op* label = nullptr;
    const QList<Op> labels = p.r.findAll("09:00am"); // kept: label points into it
    for (const Op& op : labels)
        if (op.y == y) label = &op;
    QVERIFY(label);
    QStringList printed;
    QList<Op> ops;
    for (const Op& op : p.r.texts())
        if (block.contains(op.text)) {
            printed << op.text;
            ops << op;
        }
    QCOMPARE(printed, block);
    QCOMPARE(ops[0].x, 1080.0 + 7 * 90);
    QCOMPARE(ops[0].y, y);
    for (int i = 1; i < ops.size(); ++i) {
        QCOMPARE(ops[i].x, 1080.0);
        QCOMPARE(ops[i].y, y + 216.0 * i);
        QCOMPARE(ops[i].bold, i == 1);
    }
    // The block stays inside its row.
    QVERIFY(ops.last().y + 216 <= rowY(4) + 0.5);
}

void TestWorkSchedule::slipOfSeveralHoursPrintsItsBlockOnce()
{
    Printed p;
    ScheduleDay day = freeDay();
    place(day, slip("SA125-1", "A-100", "Ada Byron", 1, 3, 3));
    place(day, slip("SA125-2", "B-7", "Hill Bakery", 1, 6, 1));
    p.print(day, ScheduleForm::WorkDay);
    QCOMPARE(p.r.findAll("Ada Byron").size(), 1);
    QCOMPARE(p.r.findAll("Ada Byron")[0].y, rowY(0) + 216);
    QCOMPARE(p.r.findAll("No Heat").size(), 2); // once for each slip
    // Start and Stop on every booked row: three of the first slip, one of the second.
    const QList<Op> starts = p.r.findAll("Start ______:______");
    QCOMPARE(starts.size(), 4);
    const double want[] = {rowY(0), rowY(1), rowY(2), rowY(3)};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(starts[i].x, 4.5 * 1440);
        QCOMPARE(starts[i].y, want[i]);
        QCOMPARE(p.r.findAll("Stop ______:______")[i].y, want[i] + 240);
    }
}

void TestWorkSchedule::problemColumn_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("reason");  // "-": no record on the row
    QTest::addColumn<QString>("printed"); // empty: nothing in the column
    QTest::newRow("the slip's reason") << "SA125-1 Ada Byron"
                                       << "Leaking tap"
                                       << "Leaking tap";
    QTest::newRow("a slip without a reason") << "SA125-1 Ada Byron"
                                             << ""
                                             << "";
    QTest::newRow("a meeting") << "Mtg - 09:00 - Ada Byron"
                               << "Mtg - 09:00 - Ada Byron"
                               << "Customer Meeting";
    QTest::newRow("a recurring event without a record") << "Recurring Event - Pool service"
                                                        << "-"
                                                        << "Recurring Event - Pool service";
    QTest::newRow("a blocked day's reason is no problem") << "Holiday"
                                                          << "-"
                                                          << "";
}

void TestWorkSchedule::problemColumn()
{
    QFETCH(QString, slot);
    QFETCH(QString, reason);
    QFETCH(QString, printed);
    Printed p;
    ScheduleDay day = freeDay();
    day.slotTexts[3] = slot;
    if (reason != u"-") {
        day.records << slip("SA125-1", "A-100", "Ada Byron", 1, 4, 1, "05/05/2026", reason);
        day.recordOf[3] = 0;
    }
    p.print(day, ScheduleForm::Extended);
    // Under the column's head: the text, wrapped to the room before the times.
    QList<Op> column;
    QStringList words;
    for (const Op& op : p.r.texts())
        if (op.x == 3.25 * 1440 && op.y >= rowY(0)) {
            column << op;
            words << op.text;
        }
    QCOMPARE(words.join(u' '), printed);
    if (printed.isEmpty()) return;
    QCOMPARE(column[0].y, rowY(3));
    for (const Op& op : column)
        QVERIFY(op.text.size() * 90 <= 1.2 * 1440 - 20);
}

void TestWorkSchedule::completionReportKeepsItsRows_data()
{
    QTest::addColumn<int>("startHour");
    QTest::newRow("start at 8") << 8;
    QTest::newRow("start at 7") << 7;
}

void TestWorkSchedule::completionReportKeepsItsRows()
{
    QFETCH(int, startHour);
    Printed p(startHour);
    ScheduleDay day = freeDay();
    // 07:00am, 08:00am for two hours, 04:00pm, 05:00pm.
    place(day, slip("SA125-1", "A-1", "Early Bird", 1, 2));
    place(day, slip("SA125-2", "A-2", "Ada Byron", 1, 3, 2));
    place(day, slip("SA125-3", "A-3", "Late Shift", 1, 10));
    place(day, slip("SA125-4", "A-4", "After Hours", 1, 11));
    p.print(day, ScheduleForm::WorkDay);

    // The schedule's rows move with the start hour...
    QCOMPARE(p.r.find("Early Bird") != nullptr, startHour == 7);
    QCOMPARE(p.r.find("Late Shift") != nullptr, startHour == 8);
    // ...while the report always takes 08:00am to 04:00pm, one entry a slip.
    QStringList report;
    for (const Op& op : p.r.texts())
        if (op.x == 8 * 1440 && (op.text.contains(u"  A-"))) report << op.text;
    QCOMPARE(report, (QStringList{"08:00am  A-2", "04:00pm  A-3"}));

    const QList<Op> first = p.r.document(0);
    auto at = [&](const QString& text) {
        for (const Op& op : first)
            if (op.text == text && op.x >= 8 * 1440) return op;
        return Op{};
    };
    const double y = rowY(0);
    const double tick = (8 + 1.6) * 1440;
    const std::tuple<const char*, double, double> wants[] = {
        {"08:00am  A-2", 8 * 1440, y},
        {"___Collected", tick, y},
        {"SA125-2", 8 * 1440, y + 192},
        {"___Invoiced", tick, y + 192},
        {"AMOUNT    _______________", 8 * 1440, y + 384},
        {"___from Office", tick, y + 384},
        {"04:00pm  A-3", 8 * 1440, rowY(1)}};
    for (const auto& [text, x, wantY] : wants) {
        const Op op = at(QString::fromLatin1(text));
        QCOMPARE(op.text, QString::fromLatin1(text));
        QCOMPARE(op.x, x);
        QCOMPARE(op.y, wantY);
        QCOMPARE(op.fontSize, 8.0);
    }
    // Every entry and every tick column ends before the printable edge.
    for (const Op& op : p.r.texts())
        if (op.x >= 8 * 1440)
            QVERIFY2(op.x + op.text.size() * op.fontSize * 10 <= 10.5 * 1440, qPrintable(op.text));
}

void TestWorkSchedule::emptyDayPrintsHeadingsLabelsAndAnEmptyReport()
{
    Printed p;
    p.print(freeDay(), ScheduleForm::WorkDay);
    QVERIFY(p.r.find("Daily Work Schedule"));
    QVERIFY(p.r.find("COMPLETION REPORT"));
    QCOMPARE(startingWith(p.r, QStringLiteral("Start")).size(), 0);
    QCOMPARE(startingWith(p.r, QStringLiteral("___")).size(), 0);
    // Eight rules across the report, one under each place an entry can take.
    const QList<Op> lines = p.r.lines();
    QCOMPARE(lines.size(), 8);
    for (int k = 0; k < 8; ++k) {
        QCOMPARE(lines[k].x, 8 * 1440.0);
        QCOMPARE(lines[k].x2, 10.45 * 1440);
        QCOMPARE(lines[k].y, lines[k].y2);
        QCOMPARE(qRound(lines[k].y), qRound((1.35 + 0.75 * (k + 1) - 0.06) * 1440));
    }
}

void TestWorkSchedule::coloursByRoleAndBlackWhenOff()
{
    ScheduleDay day = freeDay();
    place(day, slip("SA125-2", "A-2", "Ada Byron", 1, 3, 2));
    Printed colour;
    colour.print(day, ScheduleForm::WorkDay);
    QCOMPARE(colour.r.find("Daily Work Schedule")->color, kRed);
    QCOMPARE(colour.r.find("Ada Byron")->color, kBlue);
    QCOMPARE(colour.r.find("___Collected")->color, kBlue);
    for (const Op& line : colour.r.lines())
        QCOMPARE(line.color, kRed);

    Printed black;
    black.job.settings.color = false;
    black.print(day, ScheduleForm::WorkDay);
    QCOMPARE(black.r.ops.size(), colour.r.ops.size());
    for (const Op& op : black.r.ops)
        QVERIFY2(op.color == 0, qPrintable(op.text));
    QVERIFY(!black.r.ops.first().colorMode);
}

void TestWorkSchedule::allTeamsFromTheLastDownToTheFirst()
{
    ProgramFolder f;
    f.v.gAssignTo = {"populated", "North Truck", "South Truck", "Install Crew"};
    RecordingPrintSurface r;
    PrintJob job{r, DocumentSettings{}};
    Result<int> all = PrintWorkSchedules(job, f.store, f.v, {kDay, 0, ScheduleForm::WorkDay});
    QVERIFY(all.ok());
    QCOMPARE(*all, 3);
    QCOMPARE(r.documents(), 3);
    QStringList order;
    for (int d = 0; d < 3; ++d)
        for (const Op& op : r.document(d))
            if (op.text.startsWith(u"Assigned to : ")) order << op.text.mid(14);
    QCOMPARE(order, (QStringList{"Install Crew", "South Truck", "North Truck"}));
    for (const Op& op : r.ops)
        QCOMPARE(op.orientation, PrintSurface::Orientation::Landscape);

    RecordingPrintSurface one;
    PrintJob single{one, DocumentSettings{}};
    QCOMPARE(*PrintWorkSchedules(single, f.store, f.v, {kDay, 2, ScheduleForm::Extended}), 1);
    QVERIFY(one.find("Assigned to : South Truck"));
    QCOMPARE(one.documents(), 1);
}

void TestWorkSchedule::dayReadFromTheFilesWithoutWriting()
{
    ProgramFolder f;
    f.v.gAssignTo = {"populated", "North Truck", "South Truck"};
    const QByteArray free = "\"No Event Scheduled\"\r\n";
    // Team 2's day: a two-hour slip at 08:00 and a meeting at 01:00, as the screen wrote them;
    // a recurring event on a bare line at 03:00.
    f.put("2026/Team#2/125.txt", free.repeated(2) +
                                     "\"SA125-4 Ada Byron\"\r\n"
                                     "\"SA125-4 Ada Byron\"\r\n" +
                                     free.repeated(2) + "\"Mtg - 01:00 - Hill Bakery\"\r\n" + free +
                                     "Recurring Event - Pool service\r\n" + free.repeated(3));
    QByteArray slips;
    slips += slip("SA125-4", "A-100", "Ada Byron", 2, 3, 2).bytes();
    slips += slip("SA125-5", "A-200", "Other Team", 1, 3, 1).bytes();
    slips += slip("SA124-9", "A-300", "Yesterday", 2, 5, 1, "05/04/2026").bytes();
    slips += slip("SA125-7", "A-400", "Next Year", 2, 6, 1, "05/05/2027").bytes();
    slips += slip("SA125-8", "A-500", "No Slot", 2, 0, 1).bytes();
    f.put("Slips.txt", slips);
    SlipRecord meeting =
        slip("", "B-7", "Hill Bakery", 2, 7, 1, "05/05/2026", "Mtg - 01:00 - Hill Bakery");
    meeting.setText(SlipField::RecType, QStringLiteral("Meeting"));
    f.put("Meetings.txt", meeting.bytes());
    const QMap<QString, QByteArray> before = f.snapshot();

    Store readOnly(f.root(), Store::Access::ReadOnly);
    Result<QList<ScheduleDay>> days =
        ReadScheduleDays(readOnly, f.v, {kDay, 2, ScheduleForm::Extended});
    QVERIFY2(days.ok(), qPrintable(days.message()));
    QCOMPARE(days->size(), 1);
    const ScheduleDay& day = days->first();
    QCOMPARE(day.teamName, QString("South Truck"));
    QCOMPARE(day.slotTexts[2], QString("SA125-4 Ada Byron"));
    QCOMPARE(day.slotTexts[8], QString("Recurring Event - Pool service"));
    // The day holds its slip with no slot too, but it stands on no hour.
    QCOMPARE(day.records.size(), 3);
    QCOMPARE(day.record(2)->text(SlipField::AcctNo), QString("A-100"));
    QCOMPARE(day.recordOf[3], day.recordOf[2]);
    QCOMPARE(day.record(6)->text(SlipField::AcctNo), QString("B-7"));
    for (int row : {0, 1, 4, 5, 7, 8, 9, 10, 11})
        QVERIFY(!day.record(row));

    // A day of a year whose folders were never made reads as free, and makes nothing.
    Result<QList<ScheduleDay>> later =
        ReadScheduleDays(readOnly, f.v, {QDate(2031, 1, 2), 0, ScheduleForm::Extended});
    QVERIFY(later.ok());
    QCOMPARE(later->size(), 2);
    QCOMPARE(later->first().slotTexts[0], QString("No Event Scheduled"));
    QCOMPARE(f.snapshot(), before);
    QVERIFY(!f.hasFolder("2031"));
}

QTEST_GUILESS_MAIN(TestWorkSchedule)
#include "test_workschedule.moc"
