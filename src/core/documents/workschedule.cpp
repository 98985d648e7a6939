#include "core/documents/workschedule.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/dayview.h"
#include "core/schedule/timegrid.h"
#include "core/state/dispatchingvariables.h"

#include <algorithm>

namespace tresvane
{
namespace
{
constexpr double kTwips = 1440;
constexpr double kFirstRowY = 1.35;
constexpr double kRowStep = 0.75;
constexpr double kLeft = 0.75;
// The problem column, under its head, and as wide as the room before the times.
constexpr double kProblemX = 3.25;
constexpr double kProblemWidth = 1.2;
constexpr double kTimesX = 4.5;
// The completion report, right of the perforation. Its entries are set small enough that
// the amount line and the office's tick column both fit before the printable edge.
constexpr double kReportX = 8;
constexpr double kReportRight = 10.45;
constexpr double kReportTickOffset = 1.6;
constexpr double kReportEntrySize = 8;
constexpr int kReportDrawWidth = 3;

QString dateText(const QDate& date)
{
    return FormatShortDate(date);
}

// The text of the problem column, or nothing when the row has none to show.
QString problemText(const QString& slot, const SlipRecord* record)
{
    const QString reason = record ? record->text(SlipField::Reference) : QString();
    if (!slot.contains(u"Recurring") && reason.isEmpty()) return {};
    const QString text = reason.isEmpty() ? slot : reason;
    if (text.contains(u"Mtg - ") || slot.contains(u"Mtg - "))
        return QStringLiteral("Customer Meeting");
    return text;
}

void printHeadings(PrintJob& job, const ScheduleDay& day, ScheduleForm form)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kBorderRole);
    SetPrintFont(p, 15, kFontOn, kFontOff);
    SetPrintPos(p, 1, 0.3);
    p.print(QStringLiteral("Daily Work Schedule"));
    SetPrintPos(p, 1, 0);
    p.print(QStringLiteral("Assigned to : ") + day.teamName);
    SetPrintPos(p, 1, 0);
    p.print(QStringLiteral("Date: ") + dateText(day.date));

    SetPrintFont(p, 12, kFontOn, kFontOff);
    static const std::pair<double, const char*> heads[] = {
        {0.75, "Account Information"}, {3.25, "Problem"}, {4.85, "Times"}, {6.1, "Total Time"}};
    for (const auto& [x, text] : heads) {
        SetPrintPos(p, x, 1.1);
        p.print(QString::fromLatin1(text));
    }

    if (form != ScheduleForm::WorkDay) return;
    SetPrintFont(p, 10, kFontOn, kFontOff);
    SetPrintPos(p, kReportX, 0.3);
    p.print(QStringLiteral("COMPLETION REPORT"));
    SetPrintPos(p, kReportX, 0);
    p.print(QStringLiteral("Date: ") + dateText(day.date));
    SetPrintPos(p, kReportX, 0);
    p.print(day.teamName);
    SetPrintFont(p, 12, kFontOff, kFontOff);
    SetPrintPos(p, kReportX, 0);
    const double y = p.currentY();
    p.print(QStringLiteral("Time  /  Account Info"));
    p.setCurrentY(y);
    SetPrintPos(p, 4.5, 0);
    p.print(QStringLiteral("Project Event/Reason"));
}

// The account block of a slip at (x, y) inches: the account number after the hour's
// label, then the name in bold, the street, the second address line and the city line.
void printAccountBlock(PrintJob& job, const SlipRecord& r)
{
    PrintSurface& p = job.printer;
    const bool usa = job.settings.usaAddress;
    SetPrintFont(p, 9, kFontOff, kFontOff);
    p.print(QStringLiteral("  ") + r.text(SlipField::AcctNo));
    SetPrintFont(p, 9, kFontOn, kFontOff);
    SetPrintPos(p, kLeft, 0);
    p.print(r.text(SlipField::Name));
    SetPrintFont(p, 9, kFontOff, kFontOff);
    QString street = r.text(SlipField::Street);
    const QString apt = r.text(SlipField::Apt);
    // Under the USA layout the second line rides on the street's line, so that a crew
    // never loses the unit number; the international layout gives it a line of its own.
    if (usa && !apt.isEmpty()) street += QStringLiteral(", ") + apt;
    QStringList lines{street};
    if (!usa && !apt.isEmpty()) lines << apt;
    lines << r.text(SlipField::City) + QStringLiteral(", ") + r.text(SlipField::St) + u' ' +
                 r.text(SlipField::Zip);
    for (const QString& line : lines) {
        SetPrintPos(p, kLeft, 0);
        p.print(line);
    }
}

void printRows(PrintJob& job, const DispatchingVariables& v, const ScheduleDay& day,
               ScheduleForm form)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kDataRole);
    int k = 0;
    QString lastPrinted;
    for (int row : ScheduleRows(form, v.gStartHour)) {
        const double y = kFirstRowY + kRowStep * k++;
        SetPrintFont(p, 9, kFontOn, kFontOff);
        SetPrintPos(p, kLeft, y);
        p.print(GridLabel(v, row + 1), false);
        const QString slot = day.slotTexts[row].trimmed();
        if (slot == NoEventScheduled()) {
            lastPrinted.clear();
            continue;
        }
        const SlipRecord* record = day.record(row);
        const QString key = record ? QStringLiteral("record %1").arg(day.recordOf[row]) : slot;
        if (key != lastPrinted) {
            lastPrinted = key;
            if (record) {
                printAccountBlock(job, *record);
            } else {
                SetPrintFont(p, 9, kFontOn, kFontOff);
                p.print(QStringLiteral("  ") + slot);
            }
            const QString problem = problemText(slot, record);
            if (!problem.isEmpty()) {
                SetPrintFont(p, 9, kFontOff, kFontOff);
                PrintWrapped(p, kProblemX * kTwips, kProblemWidth * kTwips, y * kTwips, problem);
            }
        }
        SetPrintFont(p, 10, kFontOff, kFontOff);
        SetPrintPos(p, kTimesX, y);
        p.print(QStringLiteral("Start ______:______"));
        SetPrintPos(p, kTimesX, 0);
        p.print(QStringLiteral("Stop ______:______"));
    }
}

void PrintCompletionData(PrintJob& job, const DispatchingVariables& v, const SlipRecord& r, int row,
                         double x, double y)
{
    PrintSurface& p = job.printer;
    const double tick = x + kReportTickOffset;
    const QString lines[3][2] = {
        {GridLabel(v, row + 1) + QStringLiteral("  ") + r.text(SlipField::AcctNo),
         QStringLiteral("___Collected")},
        {r.text(SlipField::ConfirmationNo), QStringLiteral("___Invoiced")},
        {QStringLiteral("AMOUNT    _______________"), QStringLiteral("___from Office")}};
    double lineY = y * kTwips;
    for (const auto& line : lines) {
        p.setCurrentY(lineY);
        p.setCurrentX(x * kTwips);
        p.print(line[0]);
        const double next = p.currentY();
        p.setCurrentY(lineY);
        p.setCurrentX(tick * kTwips);
        p.print(line[1]);
        lineY = next;
    }
}

void printCompletionReport(PrintJob& job, const DispatchingVariables& v, const ScheduleDay& day)
{
    PrintSurface& p = job.printer;
    PrintColor(job, kBorderRole);
    p.setDrawWidth(kReportDrawWidth);
    // A rule under each of the eight places an entry can take.
    for (int k = 1; k <= 8; ++k) {
        const double y = (kFirstRowY + kRowStep * k - 0.06) * kTwips;
        p.line(kReportX * kTwips, y, kReportRight * kTwips, y, job.gBorderColor);
    }
    PrintColor(job, kDataRole);
    SetPrintFont(p, kReportEntrySize, kFontOff, kFontOff);
    double y = kFirstRowY;
    int last = -1;
    for (int row : CompletionRows()) {
        const SlipRecord* record = day.record(row);
        if (!record || day.recordOf[row] == last) continue;
        last = day.recordOf[row];
        PrintCompletionData(job, v, *record, row, kReportX, y);
        y += kRowStep;
    }
}

int recordHours(const SlipRecord& r)
{
    if (r.text(SlipField::TimeUnit) == u"Days") return 8;
    return r.text(SlipField::Hours).toInt();
}

Status readSlots(Store& store, const QDate& date, int team, std::array<QString, 12>& slotTexts)
{
    slotTexts.fill(NoEventScheduled());
    const QString name = QStringLiteral("/%1/Team#%2/%3.txt")
                             .arg(date.year(), 4, 10, QLatin1Char('0'))
                             .arg(team)
                             .arg(date.dayOfYear());
    if (!store.IsFile(name)) return {};
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, store.describe(name));
    for (int i = 0; i < 12 && !reader.atEnd(); ++i) {
        Result<QString> slot = reader.readString();
        if (!slot) return slot.status();
        slotTexts[i] = *slot;
    }
    return {};
}
} // namespace

QList<int> ScheduleRows(ScheduleForm form, int startHour)
{
    QList<int> rows;
    if (form == ScheduleForm::Extended) {
        for (int r = 0; r < 12; ++r)
            rows << r;
        return rows;
    }
    for (int r = startHour - 6; r <= startHour + 1; ++r)
        if (r >= 0 && r < 12) rows << r;
    return rows;
}

QList<int> CompletionRows()
{
    return {2, 3, 4, 5, 6, 7, 8, 9};
}

void PrintWorkSchedule(PrintJob& job, const DispatchingVariables& v, const ScheduleDay& day,
                       ScheduleForm form)
{
    SetupPrinter(job,
                 form == ScheduleForm::Extended ? QStringLiteral("Portrait")
                                                : QStringLiteral("Landscape"),
                 job.settings.color, 10, kFontOff, kFontOff);
    printHeadings(job, day, form);
    printRows(job, v, day, form);
    if (form == ScheduleForm::WorkDay) printCompletionReport(job, v, day);
    job.printer.endDoc();
}

QList<int> ScheduleTeams(const DispatchingVariables& v, const ScheduleRequest& request)
{
    QList<int> teams;
    if (request.team > 0) {
        if (request.team <= v.TeamCount()) teams << request.team;
        return teams;
    }
    for (int team = v.TeamCount(); team >= 1; --team)
        teams << team;
    return teams;
}

ScheduleDay ScheduleDayOf(const TeamDay& teamDay, const QString& teamName)
{
    ScheduleDay day;
    day.date = teamDay.date;
    day.team = teamDay.team.toInt();
    day.teamName = teamName;
    day.slotTexts = teamDay.slotTexts;
    day.records = teamDay.records;
    // Each record stands on its first slot and the hours after it, as the day view has it;
    // a later record on the same hour wins there too.
    for (int index = 0; index < day.records.size(); ++index) {
        const SlipRecord& r = day.records[index];
        const int start = r.text(SlipField::StartSlot).toInt() - 1;
        if (start < 0 || start > 11) continue;
        for (int k = 0; k < std::max(1, recordHours(r)) && start + k < 12; ++k)
            day.recordOf[start + k] = index;
    }
    return day;
}

Result<QList<ScheduleDay>> ReadScheduleDays(Store& store, const DispatchingVariables& v,
                                            const ScheduleRequest& request)
{
    QList<ScheduleDay> days;
    for (int team : ScheduleTeams(v, request)) {
        // The day value as the Scheduling Screen reads it, without making the team's
        // folder for a day nobody booked: printing never writes.
        TeamDay teamDay;
        teamDay.team = QString::number(team);
        teamDay.date = request.date;
        if (Status s = readSlots(store, request.date, team, teamDay.slotTexts); !s) return s;
        Result<QList<SlipRecord>> records = ReadDayRecords(store, request.date, teamDay.team);
        if (!records) return records.status();
        teamDay.records = std::move(*records);
        days << ScheduleDayOf(teamDay, v.gAssignTo.value(team));
    }
    return days;
}

Result<int> PrintWorkSchedules(PrintJob& job, Store& store, const DispatchingVariables& v,
                               const ScheduleRequest& request)
{
    Result<QList<ScheduleDay>> days = ReadScheduleDays(store, v, request);
    if (!days) return days.status();
    for (const ScheduleDay& day : *days)
        PrintWorkSchedule(job, v, day, request.form);
    return int(days->size());
}
} // namespace tresvane
