#include "formchecks.h"
#include "programfolder.h"
#include "recordingdesktop.h"
#include "scriptedprintdialogs.h"

#include "app/calendarautoexport.h"
#include "core/calendar/calendarday.h"
#include "core/exports/exportsettings.h"
#include "core/io/sliprecord.h"
#include "screens/schedule/frmmain.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/shell/flexgrid.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QtTest>

using namespace tresvane;

namespace
{
QByteArray dayFile(const QString& pattern)
{
    QByteArray out;
    for (const QChar c : pattern)
        out += c == '.' ? "\"No Event Scheduled\"\r\n" : "\"SA100-1 Busy Customer\"\r\n";
    return out;
}

// The Scheduling Screen in Mode 2 with a customer in hand, on Thursday 30 April 2026, over
// three teams whose days are full until Tuesday 5 May, when South Truck is free from 1 pm.
struct Screen {
    ProgramFolder f;
    RecordingDesktop desktop;
    ScriptedPrintDialogs printDialogs;
    std::unique_ptr<frmMain> w;

    Screen()
    {
        DispatchingVariables& v = f.v;
        v.gAssignTo = {"populated", "North Truck", "South Truck", "Install Crew"};
        BuildTimeLabels(v);
        v.settings.cboProblems = {"Leaking tap"};
        v.settings.ckSlipStyle = 1;
        v.gJulianDay = "120";
        v.gSequence = 1;
        v.gConfirmation = "SA120-1";
        v.current.account = "A-100";
        v.current.name = "Ada Byron";
        v.current.phone = "(555)123-4567";
        v.Mode = Mode::ServiceSlip;
        for (const QDate& d : {QDate(2026, 4, 30), QDate(2026, 5, 1), QDate(2026, 5, 4)})
            for (int team = 1; team <= 3; ++team)
                f.put(TeamDayFile(d, team).mid(1), dayFile("xxxxxxxxxxxx"));
        f.put(TeamDayFile(QDate(2026, 5, 5), 1).mid(1), dayFile("xxxxxxxxxxxx"));
        f.put(TeamDayFile(QDate(2026, 5, 5), 2).mid(1), dayFile("xxxxxx......"));
        f.put(TeamDayFile(QDate(2026, 5, 5), 3).mid(1), dayFile("xxxxxxxxxxx."));
        w = std::make_unique<frmMain>(f.ctx, desktop, printDialogs);
        w->show();
        w->Form_Activate();
    }
    QString row(int r) const { return w->fgHours->textMatrix(r - 1, 1); }
};
} // namespace

class TestFreeTimeScreen : public QObject
{
    Q_OBJECT
private slots:
    void openingChosenIsPlaced_data();
    void openingChosenIsPlaced();
    void calendarOption_data();
    void calendarOption();
    void calendarsFollowChanges();
};

void TestFreeTimeScreen::openingChosenIsPlaced_data()
{
    QTest::addColumn<bool>("doubleClick"); // else Enter
    QTest::addColumn<int>("listRow");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("slot");
    QTest::newRow("double click on the first") << true << 0 << QDate(2026, 5, 5) << 2 << 7;
    QTest::newRow("Enter on the second") << false << 1 << QDate(2026, 5, 6) << 1 << 1;
}

// The list for the hours of the time box; the opening chosen moves the screen to its team
// and day with the hours placed, and Save books it there.
void TestFreeTimeScreen::openingChosenIsPlaced()
{
    QFETCH(bool, doubleClick);
    QFETCH(int, listRow);
    QFETCH(QDate, date);
    QFETCH(int, team);
    QFETCH(int, slot);
    Screen s;
    QVERIFY(s.w->mnuFindFreeTime->isVisible());
    s.w->txtTime->setText("3");
    s.w->mnuFindFreeTime->trigger();
    auto* dialog = s.w->findChild<QDialog*>("frmFreeTime");
    QVERIFY(dialog && dialog->isVisible());
    auto* list = dialog->findChild<QTreeWidget*>("lstOpenings");
    QCOMPARE(list->topLevelItemCount(), 10);
    QCOMPARE(list->topLevelItem(0)->text(0), QString("05/05/2026"));
    QCOMPARE(list->topLevelItem(0)->text(1), QString("South Truck"));
    QCOMPARE(list->topLevelItem(0)->text(2), QString("01:00pm"));
    QCOMPARE(dialog->findChild<QSpinBox*>("spnHours")->value(), 3);
    QCOMPARE(TabOrderFaults(dialog), QStringList());
    QCOMPARE(ClippedTexts(dialog), QStringList());

    QTreeWidgetItem* item = list->topLevelItem(listRow);
    if (doubleClick) {
        const QPoint at = list->visualItemRect(item).center();
        // As a real double click comes: a click, then the second press.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    } else {
        list->setCurrentItem(item);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
    }
    QVERIFY(!dialog->isVisible());
    QCOMPARE(s.w->currentDate(), date);
    QCOMPARE(s.w->lstTeam->currentRow(), team - 1);
    QCOMPARE(s.w->txtTime->text(), QString("3"));
    for (int r = 1; r <= 12; ++r) {
        const bool placed = r >= slot && r < slot + 3;
        QCOMPARE(s.row(r) == "SA120-1 Ada Byron", placed);
    }

    s.f.dialogs.expectContaining("has been Scheduled");
    QTest::mouseClick(s.w->cmdSave, Qt::LeftButton);
    const SlipRecord saved(s.f.get("Slips.txt").left(kSlipRecordLength));
    QCOMPARE(saved.text(SlipField::TeamNo), QString::number(team));
    QCOMPARE(saved.text(SlipField::EventDate), date.toString("MM/dd/yyyy"));
    QCOMPARE(saved.text(SlipField::StartSlot), QString::number(slot));
    QCOMPARE(saved.text(SlipField::Hours), QString("3"));
    VERIFY_DIALOGS(s.f.dialogs);
}

void TestFreeTimeScreen::calendarOption_data()
{
    QTest::addColumn<QByteArray>("before"); // Exports/CalendarExport.txt; empty: none
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<int>("days");
    QTest::addColumn<QByteArray>("after"); // empty: no file
    QTest::newRow("left off: no file made") << QByteArray() << false << 60 << QByteArray();
    QTest::newRow("ticked") << QByteArray() << true << 60 << QByteArray("#TRUE#,60,\"\"\r\n");
    QTest::newRow("fewer days") << QByteArray() << false << 14 << QByteArray("#FALSE#,14,\"\"\r\n");
    QTest::newRow("unticked, the id kept") << QByteArray("#TRUE#,30,\"ab12\"\r\n") << false << 30
                                           << QByteArray("#FALSE#,30,\"ab12\"\r\n");
}

// The setup's option lives in its own file, never in the settings file.
void TestFreeTimeScreen::calendarOption()
{
    QFETCH(QByteArray, before);
    QFETCH(bool, ticked);
    QFETCH(int, days);
    QFETCH(QByteArray, after);
    ProgramFolder f;
    if (!before.isEmpty()) f.put("Exports/CalendarExport.txt", before);
    SetupOperationsTab tab(f.ctx);
    tab.loadFromSettings();
    auto* box = tab.findChild<QCheckBox*>("ckExportCalendars");
    QCOMPARE(box->isChecked(), before.startsWith("#TRUE#"));
    box->setChecked(ticked);
    tab.findChild<QSpinBox*>("txtCalendarDays")->setValue(days);
    const auto others = f.snapshot();
    QVERIFY(tab.storeCalendarOptions().ok());
    QCOMPARE(f.has("Exports/CalendarExport.txt"), !after.isEmpty());
    if (!after.isEmpty()) QCOMPARE(f.get("Exports/CalendarExport.txt"), after);
    auto now = f.snapshot();
    now.remove("Exports/CalendarExport.txt");
    auto was = others;
    was.remove("Exports/CalendarExport.txt");
    QCOMPARE(now, was);
}

// With the option on, a change to the folder brings the calendars up to date behind the
// screens; with nothing changed, or the option off, nothing is written.
void TestFreeTimeScreen::calendarsFollowChanges()
{
    ProgramFolder f;
    const QStringList teams{"populated", "North Truck"};
    CalendarAutoExport autoExport(f.root(), f.clock);
    QVERIFY(!autoExport.check(teams)); // off
    QVERIFY(!f.has("Exports/Calendars"));

    CalendarExportSettings on;
    on.afterEveryChange = true;
    QVERIFY(WriteCalendarExportSettings(f.store, on).ok());
    QVERIFY(autoExport.check(teams));
    QVERIFY(!autoExport.check(teams)); // one at a time
    autoExport.waitForDone();
    QVERIFY(f.has("Exports/Calendars/North Truck.ics"));
    QVERIFY(!f.get("Exports/Calendars/North Truck.ics").contains("BEGIN:VEVENT"));
    autoExport.check(teams); // the folder id made by the first export
    autoExport.waitForDone();
    QVERIFY(!autoExport.check(teams)); // nothing changed since

    QVERIFY(f.store.EnsureFolder("/2026").ok());
    QVERIFY(f.store.EnsureFolder("/2026/Team#1").ok());
    QVERIFY(f.store.WriteFile(TeamDayFile(QDate(2026, 5, 4), 1), dayFile("xx..........")).ok());
    QVERIFY(autoExport.check(teams));
    autoExport.waitForDone();
    QCOMPARE(f.get("Exports/Calendars/North Truck.ics").count("BEGIN:VEVENT"), 1);
}

QTEST_MAIN(TestFreeTimeScreen)
#include "test_freetimescreen.moc"
