#include "core/schedule/dayview.h"
#include "core/schedule/slipfiles.h"
#include "core/schedule/slipmessage.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{
const QDate kDay(2026, 5, 5);

QByteArray slip(const QString& name, const QString& date, const QString& team, int start, int hours,
                const QString& unit = "Hours")
{
    SlipRecord r;
    r.setText(SlipField::Name, name);
    r.setText(SlipField::Street, "1 Road");
    r.setText(SlipField::City, "Town");
    r.setText(SlipField::St, "IL");
    r.setText(SlipField::Tel, "555-" + name.left(4));
    r.setText(SlipField::Reference, "Job of " + name);
    r.setText(SlipField::EventDate, date);
    r.setText(SlipField::TeamNo, team);
    r.setText(SlipField::StartSlot, QString::number(start));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::TimeUnit, unit);
    return r.bytes();
}

GridColumn gridWithFree(int freeRows)
{
    GridColumn g;
    for (int i = 0; i < 12; ++i)
        g[i] = i < freeRows ? NoEventScheduled() : QString("taken");
    return g;
}

// The names shown on hours 1 to 12, "-" for a free hour.
QString names(const DayView& v)
{
    QStringList out;
    for (const DayViewSlot& s : v.hours)
        out << (s.name.isEmpty() ? QString("-") : s.name);
    return out.join(' ');
}
} // namespace

// The view as the Scheduling Screen builds it: the day's records, then the view of them.
Result<DayView> dayView(ProgramFolder& f, const QDate& date, const QString& team,
                        const GridColumn& grid)
{
    Result<QList<SlipRecord>> records = ReadDayRecords(f.store, date, team);
    if (!records) return records.status();
    return DayViewOf(*records, grid);
}

class TestDayView : public QObject
{
    Q_OBJECT
private slots:
    void recordsOfTheDay();
    void readingStopsOnceEveryHourIsAccounted();
    void textMessage();
    void teamDayHoldsSlotsAndWholeRecords_data();
    void teamDayHoldsSlotsAndWholeRecords();
    void indexKeepsUpWithEveryChange();
};

void TestDayView::recordsOfTheDay()
{
    ProgramFolder f;
    f.put("Slips.txt", slip("Anna", "05/05/2026", "2", 1, 2) +
                           slip("Year", "05/05/2027", "2", 3, 1) +  // other year, same day
                           slip("Team", "05/05/2026", "12", 3, 1) + // team 12 is not team 2
                           slip("Late", "05/05/2026", "2", 11, 4) + // runs past the day
                           slip("Zero", "05/05/2026", "2", 0, 1));  // a slot that does not exist
    f.put("Meetings.txt", slip("Days", "5/5/2026", "2", 4, 1, "Days"));
    Result<DayView> v = dayView(f, kDay, " 2 ", gridWithFree(0));
    QVERIFY2(v, qPrintable(v.message()));
    QCOMPARE(names(*v), QString("Anna Anna - Days Days Days Days Days Days Days Days Late"));
    const DayViewSlot& anna = v->hours[1];
    QCOMPARE(anna.text, QString("Anna\n1 Road\nTown, IL\n555-Anna\nJob of Anna"));
    QCOMPARE(anna.nameTip, QString("Anna"));
    QCOMPARE(anna.phoneTip, QString("555-Anna"));
    QCOMPARE(v->hours[2].text, QString("         No Event Scheduled\n\n"));
    QCOMPARE(v->hours[2].phoneTip, QString());
    // 2 + 4 hours of slips, 8 of the meeting.
    QCOMPARE(v->counter, 14);
}

void TestDayView::readingStopsOnceEveryHourIsAccounted()
{
    ProgramFolder f;
    // No file at all is an empty day.
    QCOMPARE(names(*dayView(f, kDay, "1", gridWithFree(12))), QString("- - - - - - - - - - - -"));
    f.put("Slips.txt", slip("One", "05/05/2026", "1", 1, 1) + slip("Two", "05/05/2026", "1", 2, 1));
    // Twelve free rows already count 12: the first record makes 13 and the second is not read.
    Result<DayView> v = dayView(f, kDay, "1", gridWithFree(12));
    QCOMPARE(names(*v), QString("One - - - - - - - - - - -"));
    Result<DayView> w = dayView(f, kDay, "1", gridWithFree(10));
    QCOMPARE(names(*w), QString("One Two - - - - - - - - - -"));
    QCOMPARE(w->counter, 12);
}

void TestDayView::textMessage()
{
    DispatchingVariables v;
    BuildTimeLabels(v);
    SlipRecord r(slip("Grace Hopper", "05/05/2026", "1", 12, 1));
    r.setText(SlipField::ConfirmationNo, "SA366-1000");
    r.setText(SlipField::Zip, "45123");
    QCOMPARE(SlipTextMessage(r, v), QString("Service Attention - SA366-1000\r\nGrace Hopper\r\n"
                                            "1 Road\r\nTown, IL 45123\r\n555-Grac\r\n"
                                            "Scheduled for 05/05/2026\r\nat 06:00\r\n"
                                            "Job of Grace Hopper\r\n"));
    // A start slot no grid has leaves the hour empty rather than reading past the labels.
    r.setText(SlipField::StartSlot, "13");
    QVERIFY(SlipTextMessage(r, v).contains("\r\nat \r\n"));
}

void TestDayView::teamDayHoldsSlotsAndWholeRecords_data()
{
    QTest::addColumn<bool>("indexed");
    QTest::newRow("read") << false;
    QTest::newRow("indexed") << true;
}

void TestDayView::teamDayHoldsSlotsAndWholeRecords()
{
    QFETCH(bool, indexed);
    DayRecordIndex index;
    ProgramFolder f;
    BuildTimeLabels(f.v);
    QByteArray anna = slip("Anna", "05/05/2026", "2", 1, 2);
    anna.replace(10, 10, "SA125-1   "); // the confirmation number survives whole
    // The day's last meeting is a record cut short, but past half its length: it counts,
    // and the team check on the raw bytes must not pass over it.
    const QByteArray cut = slip("Cut", "05/05/2026", "2", 6, 1).left(200);
    f.put("Slips.txt", slip("Other", "05/05/2026", "3", 1, 1) + anna);
    f.put("Meetings.txt", slip("Mtg", "05/05/2026", "2", 4, 1) + cut);
    QStringList lines(12, "No Event Scheduled");
    lines[0] = lines[1] = "SA125-1 Anna";
    lines[3] = "Mtg - 09:00 - Mtg";
    lines[5] = "Mtg - 11:00 - Cut";
    f.put("2026/Team#2/125.txt", (lines.join("\r\n") + "\r\n").toLatin1());

    Result<TeamDay> day = ReadTeamDay(f.ctx, kDay, "2", indexed ? &index : nullptr);
    QVERIFY2(day, qPrintable(day.message()));
    QCOMPARE(day->slotTexts[0], QString("SA125-1 Anna"));
    QCOMPARE(day->slotTexts[2], QString("No Event Scheduled"));
    QCOMPARE(day->records.size(), 3);
    QCOMPARE(day->records[0].bytes(), anna);
    QCOMPARE(day->records[1].text(SlipField::Name), QString("Mtg"));
    QCOMPARE(day->records[2].text(SlipField::Name), QString("Cut"));
    QCOMPARE(names(DayViewOf(day->records, day->slotTexts)),
             QString("Anna Anna - Mtg - Cut - - - - - -"));
}

// The screen's index answers as a fresh read of the files does, after every kind of change
// between two changes of day, however quickly they follow each other.
void TestDayView::indexKeepsUpWithEveryChange()
{
    ProgramFolder f;
    f.put("Slips.txt", slip("Anna", "05/05/2026", "2", 1, 1) + slip("Bo", "05/06/2026", "2", 1, 1));
    DayRecordIndex index;
    const auto agree = [&](const QDate& date, const QString& team, const QString& expected) {
        Result<QList<SlipRecord>> cached = index.records(f.store, date, team);
        Result<QList<SlipRecord>> read = ReadDayRecords(f.store, date, team);
        if (!cached || !read) return false;
        QStringList got;
        for (const SlipRecord& r : *cached)
            got << r.text(SlipField::Name);
        if (got.join(' ') != expected) qWarning() << got << "expected" << expected;
        QStringList fresh;
        for (const SlipRecord& r : *read)
            fresh << r.text(SlipField::Name);
        return got.join(' ') == expected && fresh == got;
    };
    const QDate next = kDay.addDays(1);
    QVERIFY(agree(kDay, "2", "Anna"));
    QVERIFY(agree(next, "2", "Bo"));
    QVERIFY(agree(kDay, "3", ""));

    // A new slip appended through the store.
    SlipRecord cy(slip("Cy", "05/05/2026", "2", 3, 1));
    QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength, cy.bytes()));
    QVERIFY(agree(kDay, "2", "Anna Cy"));

    // A record rewritten in place, same size, at once: a name changed, then a move to
    // another day.
    SlipRecord renamed(slip("Ann", "05/05/2026", "2", 1, 1));
    QVERIFY(f.store.WriteRecordAt(SlipsFileName(), kSlipRecordLength, 1, renamed.bytes()));
    QVERIFY(agree(kDay, "2", "Ann Cy"));
    SlipRecord moved(slip("Ann", "05/06/2026", "2", 2, 1));
    QVERIFY(f.store.WriteRecordAt(SlipsFileName(), kSlipRecordLength, 1, moved.bytes()));
    QVERIFY(agree(kDay, "2", "Cy"));
    QVERIFY(agree(next, "2", "Ann Bo"));

    // Another program replaces the file, and a meetings file appears.
    f.put("Slips.txt", slip("Di", "05/05/2026", "2", 5, 1));
    f.put("Meetings.txt", slip("Mtg", "05/05/2026", "2", 6, 1));
    QVERIFY(agree(kDay, "2", "Di Mtg"));
    QVERIFY(agree(next, "2", ""));

    // Inside an open change the reads see it; once it is dropped, they no longer do.
    {
        Store::Group change(f.store);
        QVERIFY(f.store.AppendRecord(SlipsFileName(), kSlipRecordLength,
                                     SlipRecord(slip("Ed", "05/05/2026", "2", 7, 1)).bytes()));
        QVERIFY(agree(kDay, "2", "Di Ed Mtg"));
    }
    QVERIFY(agree(kDay, "2", "Di Mtg"));

    // The files gone.
    QVERIFY(f.store.KillIfPresent(SlipsFileName()));
    QVERIFY(f.store.KillIfPresent(MeetingsFileName()));
    QVERIFY(agree(kDay, "2", ""));
}

QTEST_GUILESS_MAIN(TestDayView)
#include "test_dayview.moc"
