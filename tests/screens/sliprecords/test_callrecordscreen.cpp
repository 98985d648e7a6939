#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/io/sliprecord.h"
#include "core/session/menurules.h"
#include "screens/schedule/frmmain.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/sliprecords/frmcallrecord.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

using namespace tresvane;

namespace
{
using Answer = Dialogs::Answer;

QByteArray pad(const QByteArray& text, int width)
{
    return text.leftJustified(width, ' ', true);
}

// A slip record as an installation holds it, laid down field by field. Team 3, two hours.
QByteArray slip(const QByteArray& type, const QByteArray& confirmation, const QByteArray& date,
                const QByteArray& account, const QByteArray& name = "Ada Byron",
                const QByteArray& reference = "Leaking tap", const QByteArray& start = "4",
                const QByteArray& amount = "0")
{
    return pad(type, 10) + pad(confirmation, 10) + pad("3", 2) + pad("Hours", 6) + pad("2", 2) +
           pad(date, 10) + pad(start, 2) + pad(reference, 30) + pad("Scheduled", 20) + pad("", 20) +
           pad("Check", 20) + pad(amount, 10) + pad(account, 20) + pad(name, 30) +
           pad("12 Mill Road", 35) + pad("Flat 2", 25) + pad("Greenfield", 20) + pad("OH", 2) +
           pad("45123", 10) + pad("(555)123-4567", 13);
}

// The same record as the screen leaves it in gSlip: the amount in its currency form.
QByteArray shownForm(const QByteArray& record, const QByteArray& currency)
{
    return record.left(132) + pad(currency, 10) + record.mid(142);
}

QByteArray dayFile(const QStringList& lines)
{
    QByteArray out;
    for (const QString& s : lines)
        out += '"' + s.toLatin1() + "\"\r\n";
    return out;
}

const QString F = QStringLiteral("No Event Scheduled");
const QString kExpired = QStringLiteral("This slip can not be rescheduled or deleted\n"
                                        "(Date has expired)");

// The record screen on a program folder: 30 April 2026, day 120.
struct Screen {
    ProgramFolder f;
    std::unique_ptr<frmCallRecord> s;

    Screen()
    {
        f.v.gYear = QStringLiteral("2026");
        f.v.gDayOfYear = 120;
    }
    frmCallRecord& open()
    {
        s = std::make_unique<frmCallRecord>(f.ctx);
        s->show();
        (void)QTest::qWaitForWindowExposed(s.get());
        s->Form_Activate();
        return *s;
    }
    QStringList column(int col) const
    {
        QStringList out;
        for (int r = 0; r < s->fgSummary->rows(); ++r)
            out << s->fgSummary->textMatrix(r, col);
        return out;
    }
    int rowOf(const QString& account, const QString& date) const
    {
        for (int r = 0; r < s->fgSummary->rows(); ++r)
            if (s->fgSummary->textMatrix(r, 3) == account && s->fgSummary->textMatrix(r, 0) == date)
                return r;
        return -1;
    }
    void clickRow(int row) const
    {
        FlexGrid* g = s->fgSummary;
        QTest::mouseClick(g->viewport(), Qt::LeftButton, {},
                          g->visualRect(g->model()->index(row, 3)).center());
    }
    void click(QAbstractButton* b) const { QTest::mouseClick(b, Qt::LeftButton); }
    void searchBy(int option, const QString& typed) const
    {
        click(s->optSearchby[option]);
        QTest::keyClicks(option == 1 ? s->txtTelNo : s->txtConfNo, typed);
        click(s->cmdSearch);
    }
    bool actionsOpen() const
    {
        return s->cmdCancel->isEnabled() || s->cmdReschedule->isEnabled() ||
               s->cmdCompleted->isEnabled();
    }
};
} // namespace

class TestCallRecordScreen : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void summaryInDateOrder();
    void fileOptions_data();
    void fileOptions();
    void expiredSlip_data();
    void expiredSlip();
    void search_data();
    void search();
    void completeTwoRecordsOfOneNumber();
    void deleteFromTheGrid_data();
    void deleteFromTheGrid();
    void answersNo_data();
    void answersNo();
    void viewMenuAndHide();
    void rescheduleFromTheMenu();
};

void TestCallRecordScreen::summaryInDateOrder()
{
    Screen t;
    t.f.put("Slips.txt", slip("Service", "SA1-1", "01/02/2027", "S1") +
                             slip("Service", "SA1-2", "05/05/2026", "S2"));
    t.f.put("Meetings.txt",
            slip("Meeting", "", "05/05/2026", "M1") + slip("Meeting", "", "05/30/2026", "M2"));
    t.open();
    // Numeric order of the key: 1001 after 150, which a text order would not give.
    QCOMPARE(t.column(3), QStringList({"M1", "S2", "M2", "S1"}));
    QCOMPARE(t.column(4), QStringList({"125", "125", "150", "1001"}));
    QCOMPARE(t.column(1), QStringList({"", "Sevice Attn", "", "Sevice Attn"}));
}

// What the file options offer after an activation, by what the files hold: the options
// selected / enabled, SearchFile, whether the confirmation search and completion are offered.
void TestCallRecordScreen::fileOptions_data()
{
    QTest::addColumn<bool>("slips");
    QTest::addColumn<bool>("meetings");
    QTest::addColumn<bool>("closerInstalled");
    QTest::addColumn<QString>("state");
    QTest::newRow("both files") << true << true << false << "0/01 file 1 conf done";
    QTest::newRow("both, completion elsewhere") << true << true << true << "0/01 file 1 conf";
    QTest::newRow("meetings only") << false << true << false << "1/1 file 2";
    QTest::newRow("slips only") << true << false << false << "0/0 file 1 conf done";
}

void TestCallRecordScreen::fileOptions()
{
    QFETCH(bool, slips);
    QFETCH(bool, meetings);
    QFETCH(bool, closerInstalled);
    QFETCH(QString, state);
    Screen t;
    if (slips) t.f.put("Slips.txt", slip("Service", "SA1-1", "05/05/2026", "S1"));
    if (meetings) t.f.put("Meetings.txt", slip("Meeting", "", "05/05/2026", "M1"));
    if (closerInstalled) t.f.put("TresvaneJobCloser.exe", "MZ");
    frmCallRecord& s = t.open();
    QString checked, enabled;
    for (int i = 0; i < 2; ++i) {
        if (s.optSearchfor[i]->isChecked()) checked += QString::number(i);
        if (s.optSearchfor[i]->isEnabled()) enabled += QString::number(i);
    }
    QCOMPARE(checked + '/' + enabled + " file " + QString::number(s.SearchFile) +
                 (s.optSearchby[2]->isEnabled() ? " conf" : "") +
                 (s.cmdCompleted->isVisible() ? " done" : ""),
             state);
    QVERIFY(s.optSearchby[0]->isChecked());
    QVERIFY(s.cmdSearch->isVisible());
    QVERIFY(!s.fraSearch->isVisible());
    QVERIFY(!s.cmdContinue->isVisible());
    QVERIFY(!t.actionsOpen());

    // Leaving and coming back with both files emptied: no option and no search.
    s.hide();
    t.f.put("Slips.txt", "");
    t.f.put("Meetings.txt", "");
    s.show();
    s.Form_Activate();
    QVERIFY(!s.optSearchfor[0]->isChecked() && !s.optSearchfor[1]->isChecked());
    QVERIFY(!s.optSearchfor[0]->isEnabled() && !s.optSearchfor[1]->isEnabled());
    QVERIFY(!s.cmdSearch->isVisible());
    QCOMPARE(s.fgSummary->rows(), 0);
}

// A slip of yesterday is listed and can be looked at, but nothing can be done with it.
void TestCallRecordScreen::expiredSlip_data()
{
    QTest::addColumn<bool>("alarms");
    QTest::addColumn<bool>("prompts");
    QTest::newRow("beep and message") << true << true;
    QTest::newRow("message only") << false << true;
    QTest::newRow("beep only") << true << false;
}

void TestCallRecordScreen::expiredSlip()
{
    QFETCH(bool, alarms);
    QFETCH(bool, prompts);
    Screen t;
    t.f.v.gAlarms = alarms;
    t.f.v.gPrompts = prompts;
    t.f.put("Slips.txt", slip("Service", "SA119-1", "04/29/2026", "A-1") +
                             slip("Service", "SA120-1", "05/02/2026", "A-2"));
    frmCallRecord& s = t.open();
    QCOMPARE(t.column(0), QStringList({"04/29/2026", "05/02/2026"}));

    if (prompts) t.f.dialogs.expect(kExpired, "");
    t.clickRow(0);
    VERIFY_DIALOGS(t.f.dialogs);
    QCOMPARE(t.f.dialogs.beeps, alarms ? 1 : 0);
    QVERIFY(s.fraSummary->isVisible()); // nothing loaded
    QCOMPARE(s.txtAcctNo->text(), QString());

    // Stepping through the file reaches it, with every action closed.
    t.click(s.cmdSearch);
    QCOMPARE(s.txtReference->text(), QString("SA119-1"));
    QCOMPARE(s.txtDay->text(), QString("Wednesday"));
    QVERIFY(!t.actionsOpen());
    QVERIFY(s.cmdContinue->isVisible());
    t.click(s.cmdContinue);
    QCOMPARE(s.txtReference->text(), QString("SA120-1"));
    QVERIFY(s.cmdCancel->isEnabled() && s.cmdReschedule->isEnabled() &&
            s.cmdCompleted->isEnabled());
    QVERIFY(!s.cmdContinue->isVisible()); // the last record
    QCOMPARE(s.RecPointer, qint16(0));
}

void TestCallRecordScreen::search_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found"); // the confirmation number on show, empty for none
    QTest::newRow("confirmation number") << 2 << "SA125-2"
                                         << "SA125-2";
    QTest::newRow("confirmation number, trailing blank") << 2 << "SA125-2 "
                                                         << "";
    QTest::newRow("account, trailing blank") << 1 << "B-7 "
                                             << "SA125-2";
}

void TestCallRecordScreen::search()
{
    QFETCH(int, option);
    QFETCH(QString, typed);
    QFETCH(QString, found);
    Screen t;
    t.f.put("Slips.txt", slip("Service", "SA125-1", "05/05/2026", "A-1") +
                             slip("Service", "SA125-2", "05/05/2026", "B-7", "Bob Stone"));
    frmCallRecord& s = t.open();
    t.click(s.optSearchby[option]);
    QVERIFY(s.fraSearch->isVisible());
    QCOMPARE(s.lblTelNo->isVisible(), option == 1);
    QCOMPARE(s.lblConfNo->isVisible(), option == 2);
    if (found.isEmpty())
        t.f.dialogs.expect("No Call Record with this Search Criteria Exists", "Search Not found");
    QTest::keyClicks(option == 1 ? s.txtTelNo : s.txtConfNo, typed);
    t.click(s.cmdSearch);
    VERIFY_DIALOGS(t.f.dialogs);
    QCOMPARE(s.txtReference->text(), found);
    QCOMPARE(s.cmdReschedule->isEnabled(), !found.isEmpty());
    if (found.isEmpty()) QVERIFY(!s.txtTelNo->isEnabled() && !s.txtConfNo->isEnabled());
    // A record found is on show, not behind the list, while its buttons are open.
    QCOMPARE(s.txtReference->isVisible(), !found.isEmpty());
    QCOMPARE(s.fraSummary->isVisible(), found.isEmpty());
}

// Completing a number held by two records: both leave Slips.txt, two copies of the record
// on show (amount in its currency form) reach CompletedSlips.txt, and the day is freed.
void TestCallRecordScreen::completeTwoRecordsOfOneNumber()
{
    Screen t;
    const QByteArray first =
        slip("Service", "SA125-1", "05/05/2026", "A-1", "Ada Byron", "Leaking tap", "4", "1234.5");
    const QByteArray second = slip("Service", "SA125-1", "05/06/2026", "A-1");
    const QByteArray other = slip("Service", "SA125-12", "05/05/2026", "C-3", "Carl", "Gutter");
    t.f.put("Slips.txt", first + other + second);
    t.f.put("CompletedSlips.txt", QByteArray(297, 'x'));
    t.f.put("2026/Team#3/125.txt",
            dayFile({"SA125-1 Ada", "SA125-1 Ada", "SA125-12 Carl", F, F, F, F, F, F, F, F, F}));
    frmCallRecord& s = t.open();
    t.searchBy(2, "SA125-1");
    QCOMPARE(s.txtAmount->text(), QString("$1,234.50"));
    t.f.dialogs.expect("Service Slip has been completed?", "Complete", Answer::Yes)
        .expect("Are You Sure?", "Complete", Answer::Yes);
    t.click(s.cmdCompleted);
    VERIFY_DIALOGS(t.f.dialogs);

    const QByteArray shown = shownForm(first, "$1,234.50");
    QCOMPARE(t.f.get("CompletedSlips.txt"), QByteArray(297, 'x') + shown + shown);
    QCOMPARE(t.f.get("Slips.txt"), other);
    // SA125-12 contains SA125-1, so its hour goes as well.
    QCOMPARE(t.f.get("2026/Team#3/125.txt"), dayFile(QStringList(12, F)));
    QCOMPARE(s.txtAcctNo->text(), QString());
    QVERIFY(!t.actionsOpen());
}

// Deleting from a grid row: which records stay in the file and which hours are freed.
void TestCallRecordScreen::deleteFromTheGrid_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("account"); // the row clicked, by account, on 05/05/2026
    QTest::addColumn<QByteArray>("kept");
    QTest::addColumn<QStringList>("dayBefore");
    QTest::addColumn<QStringList>("dayAfter");

    QStringList day(12, F);
    day[0] = "Recurring Event - Carl";
    day[1] = "Mtg - 09:00 - Ada Byron";
    day[2] = "Mtg - 10:00 - Ada Byron";
    day[3] = "RECURRING x";
    day[4] = "SA125-1 Dan";
    day[5] = "Hill Farm - Contract Event";
    day[11] = "Holiday";
    QStringList contractGone = day;
    contractGone[5] = F;
    QStringList meetingGone = contractGone;
    meetingGone[0] = meetingGone[1] = meetingGone[3] = F;
    const QByteArray meeting =
        slip("Meeting", "", "05/05/2026", "M-1", "Ada Byron", "Mtg - 09:00 - Ada Byron", "4");
    const QByteArray bob =
        slip("Meeting", "", "05/05/2026", "M-2", "Bob", "Mtg - 11:00 - Bob", "6");
    QTest::newRow("meeting clears every Recurring slot of the day")
        << "Meetings.txt" << meeting + bob << "M-1" << bob << day << meetingGone;

    const QByteArray reoccuring =
        slip("Reoccuring", "SA125-1", "05/05/2026", "R-1", "Dan", "Recurring Event - Dan");
    const QByteArray service = slip("Service", "SA125-2", "05/06/2026", "S-1");
    QTest::newRow("reoccuring frees no slot")
        << "Slips.txt" << reoccuring + service << "R-1" << service << day << contractGone;

    const QByteArray pool =
        slip("Pool clean", "", "05/05/2026", "", "Pool cleaning", "Pool cleaning");
    QTest::newRow("record of no customer empties the file")
        << "Slips.txt" << service + pool + service << "" << QByteArray() << day << contractGone;
}

void TestCallRecordScreen::deleteFromTheGrid()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, records);
    QFETCH(QString, account);
    QFETCH(QByteArray, kept);
    QFETCH(QStringList, dayBefore);
    QFETCH(QStringList, dayAfter);
    Screen t;
    t.f.put(file, records);
    t.f.put("2026/Team#3/125.txt", dayFile(dayBefore));
    frmCallRecord& s = t.open();
    const int row = t.rowOf(account, "05/05/2026");
    QVERIFY(row >= 0);
    t.clickRow(row);
    QVERIFY(!s.fraSummary->isVisible());
    QCOMPARE(s.txtAcctNo->text(), account);
    QCOMPARE(int(s.SearchFile), file == "Slips.txt" ? 1 : 2);
    t.f.dialogs.expect("Delete this Attention", "Delete", Answer::Yes)
        .expect("Are You Sure?", "Delete", Answer::Yes);
    t.click(s.cmdCancel);
    VERIFY_DIALOGS(t.f.dialogs);
    QCOMPARE(t.f.get(file), kept);
    QVERIFY(t.f.has(file));
    QCOMPARE(t.f.get("2026/Team#3/125.txt"), dayFile(dayAfter));
    QVERIFY(!t.f.has("CompletedSlips.txt"));
    QVERIFY(!t.actionsOpen());
}

// The "No" answers: Delete and Completed step on to the next record, Re-Schedule only
// drops the record from the panel. Nothing is written.
void TestCallRecordScreen::answersNo_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("asked"); // answered Yes but the last, answered No
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shownAfter");
    const QStringList del = {"Delete this Attention", "Are You Sure?"};
    const QStringList done = {"Service Slip has been completed?", "Are You Sure?"};
    QTest::newRow("delete, first") << "cmdCancel" << del.mid(0, 1) << "Delete"
                                   << "SA125-2";
    QTest::newRow("delete, sure") << "cmdCancel" << del << "Delete"
                                  << "SA125-2";
    QTest::newRow("completed, first") << "cmdCompleted" << done.mid(0, 1) << "Complete"
                                      << "SA125-2";
    QTest::newRow("completed, sure") << "cmdCompleted" << done << "Complete"
                                     << "SA125-2";
    QTest::newRow("reschedule") << "cmdReschedule" << QStringList{"Reschedule this Attention"}
                                << "RESCHEDULE"
                                << "";
}

void TestCallRecordScreen::answersNo()
{
    QFETCH(QString, action);
    QFETCH(QStringList, asked);
    QFETCH(QString, title);
    QFETCH(QString, shownAfter);
    Screen t;
    t.f.put("Slips.txt", slip("Service", "SA125-1", "05/05/2026", "A-1") +
                             slip("Service", "SA125-2", "05/06/2026", "A-2"));
    frmCallRecord& s = t.open();
    t.searchBy(2, "SA125-1");
    const auto before = t.f.snapshot();
    QSignalSpy handOver(&s, &frmCallRecord::rescheduleChosen);
    for (int i = 0; i < asked.size(); ++i)
        t.f.dialogs.expect(asked[i], title, i + 1 < asked.size() ? Answer::Yes : Answer::No);
    t.click(s.findChild<QPushButton*>(action));
    VERIFY_DIALOGS(t.f.dialogs);
    QCOMPARE(s.txtReference->text(), shownAfter);
    QCOMPARE(t.f.snapshot(), before);
    QCOMPARE(handOver.count(), 0);
}

void TestCallRecordScreen::viewMenuAndHide()
{
    Screen t;
    frmCallRecord& s = t.open();
    QStringList seen;
    auto look = [&] { seen << s.mnuView->text() + (s.fraSummary->isVisible() ? "+" : "-"); };
    look();
    s.mnuView->trigger();
    look();
    s.mnuView->trigger();
    look();
    t.click(s.cmdHide); // leaves the caption out of step with the grid
    look();
    s.mnuView->trigger();
    look();
    QCOMPARE(seen, QStringList(
                       {"List View+", "Detail View-", "List View+", "List View-", "Detail View+"}));
}

// From the menu entry to the hand-over: Mode 10, the old slip gone and its hours freed,
// the customer in the shared fields, the old record in gSlip, and the file option for the
// Scheduling Screen.
void TestCallRecordScreen::rescheduleFromTheMenu()
{
    ProgramFolder f;
    RecordingDesktop desktop;
    QTemporaryDir locks;
    const QByteArray old = slip("Service", "SA125-1", "05/05/2026", "A-1");
    const QByteArray meeting =
        slip("Meeting", "", "05/07/2026", "M-1", "Ada Byron", "Mtg - 09:00 - Ada Byron", "4");
    f.put("Slips.txt", slip("Service", "SA125-2", "05/06/2026", "B-2") + old);
    f.put("Meetings.txt", meeting);
    f.put("2026/Team#3/125.txt",
          dayFile({F, F, F, "SA125-1 Ada", "SA125-1 Ada", F, F, F, F, F, F, F}));
    App app(f.root(), f.clock, f.dialogs, desktop);
    app.setLockFolder(locks.path());
    BuildTimeLabels(app.v);
    app.v.gYear = "2026";
    app.v.gDayOfYear = 120;
    QVERIFY(app.EntryBuilt(MenuEntry::Reschedule));
    app.OpenEntry(MenuEntry::Reschedule);
    frmCallRecord* s = app.callRecord;
    QVERIFY(s && s->isVisible());
    QCOMPARE(app.v.Mode, Mode::Reschedule);
    QCOMPARE(s->fgSummary->rows(), 3);

    QSignalSpy handOver(s, &frmCallRecord::rescheduleChosen);
    f.dialogs.expect("Reschedule this Attention", "RESCHEDULE", Answer::Yes);
    for (int r = 0; r < s->fgSummary->rows(); ++r)
        if (s->fgSummary->textMatrix(r, 5) == "SA125-1")
            QTest::mouseClick(
                s->fgSummary->viewport(), Qt::LeftButton, {},
                s->fgSummary->visualRect(s->fgSummary->model()->index(r, 0)).center());
    QTest::mouseClick(s->cmdReschedule, Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(handOver.count(), 1);
    QCOMPARE(f.get("Slips.txt"), slip("Service", "SA125-2", "05/06/2026", "B-2"));
    QCOMPARE(f.get("2026/Team#3/125.txt"), dayFile(QStringList(12, F)));
    QCOMPARE(app.v.gSlip.bytes(), shownForm(old, "$0.00"));
    QCOMPARE(app.v.current.account, QString("A-1"));
    QCOMPARE(app.v.current.phone, QString("(555)123-4567"));
    QCOMPARE(app.v.gRescheduleSearchFor, qint16(0));
    // The Scheduling Screen has taken it over as a service slip.
    QVERIFY(app.mainForm && app.mainForm->isVisible());
    QVERIFY(!s->isVisible());
    QCOMPARE(app.v.Mode, Mode::ServiceSlip);

    // A meeting is handed over with the meetings option, for a new meeting.
    s->show();
    s->Form_Activate();
    QTest::mouseClick(s->optSearchfor[1], Qt::LeftButton);
    QTest::mouseClick(s->cmdSearch, Qt::LeftButton);
    QCOMPARE(s->txtReference->text(), QString("Mtg - 09:00 - Ada Byron"));
    QVERIFY(!s->cmdCompleted->isVisible());
    f.dialogs.expect("Reschedule this Attention", "RESCHEDULE", Answer::Yes);
    QTest::mouseClick(s->cmdReschedule, Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(handOver.count(), 2);
    QCOMPARE(f.get("Meetings.txt"), QByteArray());
    QCOMPARE(app.v.gRescheduleSearchFor, qint16(1));
    QCOMPARE(app.v.Mode, Mode::Meeting);

    // The menu button goes back to the menu.
    QTest::mouseClick(s->cmdExit, Qt::LeftButton);
    QVERIFY(app.startup && app.startup->isVisible());
    QVERIFY(!s->isVisible());
}

QTEST_MAIN(TestCallRecordScreen)
#include "test_callrecordscreen.moc"
