// The slip record files, through the record screen's searches and steps, the summary, the
// courtesy call list, the day view, the free-number scan, the stored slips, the checker's
// cross-check, and the changes that read a file before they rewrite it: the delete of a
// slip, the purge of past meetings and a booking.
#include "fuzzfolder.h"

#include "bookingcheck.h"
#include "core/calendar/slippopup.h"
#include "core/calendar/teamboard.h"
#include "core/history/courtesycalls.h"
#include "core/housekeeping/purge.h"
#include "core/io/store.h"
#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/dayview.h"
#include "core/schedule/freenumber.h"
#include "core/schedule/numbering.h"
#include "core/schedule/slipfiles.h"
#include "core/sliprecords/deletecallrec.h"
#include "core/sliprecords/recordsearch.h"
#include "core/sliprecords/recordsummary.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

const QString kFiles[] = {SlipsFileName(), MeetingsFileName(), UnscheduledSlipsFileName(),
                          CompletedSlipsFileName(), QStringLiteral("/ProjectRecords.txt")};

// Every search and step of the record screen over one file.
void recordScreen(CoreContext& c, qint16 searchFile, const QList<SlipRecord>& records)
{
    const QString name = SearchFileName(searchFile);
    const SlipRecord first = records.isEmpty() ? SlipRecord() : records.first();
    for (SearchBy by : {SearchBy::AccountNo, SearchBy::ConfirmationNo}) {
        Result<bool> found = ReadCallSlip(c, searchFile, by, first.text(SlipField::ConfirmationNo),
                                          first.text(SlipField::AcctNo));
        requireNamed(found, name);
        if (found && *found) LoadRecData(c, false);
    }
    qint16 pointer = 1;
    for (int step = 0; step <= records.size() + 1; ++step) {
        Result<SequentialRead> read = ReadSequentually(c, searchFile, pointer);
        requireNamed(read, name);
        if (!read || *read == SequentialRead::PastEnd) break;
        LoadRecData(c, false);
        if (*read == SequentialRead::LoadedLast) break;
        ++pointer;
    }
}

void views(Folder& f, const QList<SlipRecord>& records)
{
    CoreContext& c = f.context();
    const QDate today = f.clock().today();
    requireNamed(BuildRecordSummary(c), SlipsFileName());
    requireNamed(LoadCourtesyCalls(c, today.addYears(-2), today.addYears(2)), SlipsFileName());
    requireNamed(ConfirmationNumbersOnFile(c.store), SlipsFileName());
    BookingWarnings(c.store, today);

    GridColumn grid;
    grid.fill(NoEventScheduled());
    QDate day = today;
    if (!records.isEmpty())
        if (const QDate d =
                ParseSlipDate(records.first().view().trimmedBytes(SlipField::EventDate));
            d.isValid())
            day = d;
    for (const QString& team : {QStringLiteral("1"), QStringLiteral("2")}) {
        Result<QList<SlipRecord>> dayRecords = ReadDayRecords(c.store, day, team);
        if (dayRecords)
            require(DayViewOf(*dayRecords, grid).counter >= 0,
                    "a day view counts less than nothing");
        else
            require(!dayRecords.message().isEmpty(), "a day refused without a word");
    }
    if (!records.isEmpty()) {
        const Result<qint16> found = FindSlipByAccountAndDate(
            c, records.first().text(SlipField::AcctNo), records.first().text(SlipField::EventDate));
        require(found.ok() || !found.message().isEmpty(), "a look-up failed without a word");
        SummarySortKey(records.first().text(SlipField::EventDate), today.year());
        // The board's popup finds the slip behind each hour of its day.
        const SlipRecord& first = records.first();
        for (const SlotFile file : {SlotFile::Slips, SlotFile::Meetings, SlotFile::Projects}) {
            ClickedSlot clicked{file, day, first.text(SlipField::TeamNo).toInt(),
                                first.text(SlipField::StartSlot).toInt(),
                                first.text(SlipField::ConfirmationNo) + u' ' +
                                    first.text(SlipField::Reference)};
            Result<std::optional<SlipRecord>> found = FindSlotRecord(c, clicked);
            require(found.ok() || !found.message().isEmpty(), "a popup refused without a word");
            if (found && *found) PopupText(c.v, **found, c.v.gAssignTo.value(clicked.team));
        }
        SlipExpired(records.first().text(SlipField::EventDate), today);
    }
}

void changes(Folder& f, const QString& name, const QList<SlipRecord>& records)
{
    CoreContext& c = f.context();
    if (name == UnscheduledSlipsFileName()) {
        requireNamed(LoadStoredSlip(c, 1), name);
        requireNamed(DeleteSelectedStoredSlip(c, 1), name);
        return;
    }
    if (name == MeetingsFileName()) {
        const Status s = PurgeMeetings(c);
        requireNamed(s, name);
    }
    if ((name == SlipsFileName() || name == MeetingsFileName()) && !records.isEmpty()) {
        c.v.gSlip = records.first();
        CallRecordOnShow shown;
        shown.SearchFile = name == SlipsFileName() ? 1 : 2;
        shown.EventKind = records.first().text(SlipField::RecType);
        const Status s = DeleteCallRec(c, shown, -1);
        require(s.ok() || !s.message().isEmpty(), "a delete refused without a word");
    }
    // A booking reads the day, the numbers on file and the counter before it writes.
    if (Status s = LoadCounter(c); !s) return;
    c.v.CurrentTeam = QStringLiteral("1");
    c.v.Mode = Mode::ServiceSlip; // a Service Attention
    BookingRequest screen;
    screen.kind = SlipKind::ServiceAttention;
    screen.team = c.v.CurrentTeam;
    screen.customer = c.v.current;
    screen.date = f.clock().today().addDays(1);
    screen.eventText = QStringLiteral("Fuzz");
    screen.number = c.v.gConfirmation;
    if (Status s = LoadDay(c, screen.date, c.v.CurrentTeam); !s) return;
    screen.dayFile = c.v.DayFilePath;
    const Result<BookingSaved> saved = SaveBooking(c, screen);
    require(saved.ok() || !saved.message().isEmpty(), "a booking refused without a word");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    f.addTeams(2);
    const QString name = kFiles[in.choice(std::size(kFiles))];
    f.put(name, in.rest());

    Result<QList<SlipRecord>> records = ReadSlipRecords(f.store(), name);
    requireNamed(records, name);
    if (!records) return 0;
    requireNamed(CountSlipRecords(f.store(), name).status(), name);
    if (name == SlipsFileName()) recordScreen(f.context(), 1, *records);
    if (name == MeetingsFileName()) recordScreen(f.context(), 2, *records);
    views(f, *records);
    changes(f, name, *records);
    f.requireNothingOutside();
    return 0;
}
