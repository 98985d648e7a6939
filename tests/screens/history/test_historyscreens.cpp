#include "../../core/history/historybytes.h"
#include "programfolder.h"
#include "recordingdesktop.h"

#include "app/app.h"
#include "core/state/dispatchingvariables.h"
#include "screens/history/frmcallback.h"
#include "screens/history/frmhistory.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/screenframe.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using namespace tresvane;

namespace
{
const QString kCalendar = QStringLiteral("Your Calendar Selection is Invalid");

QStringList gridColumn(const FlexGrid* grid, int col)
{
    QStringList out;
    for (int r = 0; r < grid->rows(); ++r)
        out << grid->textMatrix(r, col);
    return out;
}

void layDownHistory(const ProgramFolder& f)
{
    f.put("ServiceHistory.txt", ServiceRec("Ann Smith", "A1", "04/01/2026") +
                                    ServiceRec("Bob Jones", "B2", "04/10/2026") +
                                    ServiceRec("Ann Smith", "A1", "04/20/2026", "Repair\r\nValve") +
                                    ServiceRec("Ann Smith", "A1", "01/05/2026"));
    f.put("CAHistory.txt", LedgerRec("Ann Smith", "A1", "04/01/2026", "$100.00") +
                               LedgerRec("Bob Jones", "B2", "04/10/2026", "$25.50") +
                               LedgerRec("Ann Smith", "A1", "04/20/2026", "($10.00)"));
}
} // namespace

class TestHistoryScreens : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void historyFilteredByAccountAndDates();
    void purgeAnswers_data();
    void purgeAnswers();
    void callBackListInDateOrder();
    void menuEntriesAndCustomerHistory();
};

void TestHistoryScreens::historyFilteredByAccountAndDates()
{
    ProgramFolder f; // today 30 April 2026: the opening span is 31 March to 30 April
    layDownHistory(f);
    frmHistory w(f.ctx);
    w.show();
    w.Form_Activate();
    QCOMPARE(w.DTPicker1[0]->date(), QDate(2026, 3, 31));
    QCOMPARE(w.DTPicker1[1]->date(), QDate(2026, 4, 30));
    // Three records in the span and the grid's spare row.
    QCOMPARE(gridColumn(w.fgSHistory, 0), (QStringList{"A1", "B2", "A1", ""}));
    QCOMPARE(w.lblTotal->text(), QString("$115.50"));
    QCOMPARE(w.cboAccounts->count(), 2);

    // One account from 5 April: the tick, the account and the first date by hand.
    w.ckAccount->setChecked(true);
    w.cboAccounts->setEditText("A1");
    w.DTPicker1[0]->setDate(QDate(2026, 4, 5));
    QCOMPARE(w.dates.ReportStartDate, QDate(2026, 4, 5));
    QTest::mouseClick(w.cmdLoad, Qt::LeftButton);
    QCOMPARE(gridColumn(w.fgSHistory, 2), (QStringList{"04/20/2026", ""}));
    QCOMPARE(w.fgSHistory->textMatrix(0, 3), QString("Repair\nValve"));
    QCOMPARE(gridColumn(w.fgHistory, 4), (QStringList{"($10.00)", ""}));
    QCOMPARE(w.lblTotal->text(), QString("($10.00)"));
    // The two-line service text gets a row twice as tall.
    const int normal = w.fgSHistory->verticalHeader()->defaultSectionSize();
    QCOMPARE(w.fgSHistory->rowHeight(0), 2 * normal);
    QCOMPARE(w.fgSHistory->rowHeight(1), normal);

    // A preset sets the dates and loads nothing. It leaves the report's start at 5 April,
    // so last month's end comes before it and the last date falls to the first.
    f.dialogs.expect(kCalendar);
    QTest::mouseClick(w.cmdIncome[0], Qt::LeftButton);
    QCOMPARE(w.DTPicker1[0]->date(), QDate(2026, 3, 1));
    QCOMPARE(w.DTPicker1[1]->date(), QDate(2026, 3, 1));
    QCOMPARE(w.lblTotal->text(), QString("($10.00)"));
    // A first date by hand past today is refused.
    f.dialogs.expect(kCalendar);
    w.DTPicker1[0]->setDate(QDate(2026, 5, 1));
    QCOMPARE(w.DTPicker1[0]->date(), QDate(2026, 4, 30));
    QCOMPARE(f.dialogs.beeps, 1);
    VERIFY_DIALOGS(f.dialogs);
}

void TestHistoryScreens::purgeAnswers_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::addColumn<bool>("purged");

    QTest::newRow("all: yes, yes") << 0 << true << true << true;
    QTest::newRow("all: yes, no") << 0 << true << false << false;
    QTest::newRow("all: no") << 0 << false << false << false;
    QTest::newRow("account: yes, yes") << 1 << true << true << true;
    QTest::newRow("account: yes, no") << 1 << true << false << false;
    QTest::newRow("account: no") << 1 << false << false << false;
}

void TestHistoryScreens::purgeAnswers()
{
    QFETCH(int, button);
    QFETCH(bool, first);
    QFETCH(bool, second);
    QFETCH(bool, purged);

    ProgramFolder f;
    layDownHistory(f);
    f.put("Backup/ServiceHistory.txt", "old");
    const QMap<QString, QByteArray> before = f.snapshot();
    frmHistory w(f.ctx);
    w.Form_Activate();
    w.cboAccounts->setEditText("A1");

    const char* texts[2][3] = {{"Click Yes to Delete All History Records", "Purge History Files",
                                "Confirm Purge History Files"},
                               {"Click Yes to Delete This Acctounts History",
                                "Purge Account History", "Confirm Purge Account History"}};
    using A = Dialogs::Answer;
    f.dialogs.expect(texts[button][0], texts[button][1], first ? A::Yes : A::No);
    if (first) f.dialogs.expect("Are you Sure?", texts[button][2], second ? A::Yes : A::No);
    QTest::mouseClick(w.cmdHistory[button], Qt::LeftButton);
    VERIFY_DIALOGS(f.dialogs);

    if (!purged) {
        QCOMPARE(f.snapshot(), before);
        return;
    }
    QVERIFY(!f.has("Backup/ServiceHistory.txt"));
    if (button == 0) {
        QVERIFY(!f.has("ServiceHistory.txt"));
        QVERIFY(!f.has("CAHistory.txt"));
        QCOMPARE(w.fgSHistory->rows(), 1);
        QCOMPARE(w.lblTotal->text(), QString("$0.00"));
    } else {
        QCOMPARE(f.get("ServiceHistory.txt"), ServiceRec("Bob Jones", "B2", "04/10/2026"));
        QCOMPARE(f.get("CAHistory.txt"), LedgerRec("Bob Jones", "B2", "04/10/2026", "$25.50"));
        QVERIFY(!f.has("AccountsTemp.txt"));
        QCOMPARE(gridColumn(w.fgSHistory, 0), (QStringList{"B2", ""}));
    }
}

void TestHistoryScreens::callBackListInDateOrder()
{
    ProgramFolder f; // 30 April 2026
    frmCallBack w(f.ctx);
    f.dialogs.expect("No Service Slips were found");
    w.Form_Activate();
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.snapshot().size(), 0);

    BuildTimeLabels(f.v);
    f.v.gAssignTo = {"populated", "Truck 1", "Truck 2"};
    f.put("Slips.txt", SlipRec("Late May", "05/29/2026", "2", "1") +
                           SlipRec("Today", "04/30/2026", "1", "3", "610-555-0101") +
                           SlipRec("Yesterday", "04/29/2026", "1", "1") +
                           SlipRec("June", "06/15/2026", "1", "1") +
                           SlipRec("May First", "05/01/2026", "2", "12"));
    w.show();
    w.Form_Activate();
    QCOMPARE(w.DTStarting->date(), QDate(2026, 4, 30));
    QCOMPARE(w.DTEnding->date(), QDate(2026, 5, 30));
    QCOMPARE(gridColumn(w.fgTomorrow, 0), (QStringList{"Today", "May First", "Late May"}));

    QTest::mouseClick(w.cmdWeekly[7], Qt::LeftButton); // next quarter: to 30 July
    QCOMPARE(w.DTEnding->date(), QDate(2026, 7, 30));
    QCOMPARE(gridColumn(w.fgTomorrow, 0), (QStringList{"Today", "May First", "Late May", "June"}));

    // Dates set by hand, then the load button.
    w.DTStarting->setDate(QDate(2026, 4, 1));
    w.DTEnding->setDate(QDate(2026, 4, 30));
    QTest::mouseClick(w.cmdWeekly[3], Qt::LeftButton);
    QCOMPARE(gridColumn(w.fgTomorrow, 0), (QStringList{"Yesterday", "Today"}));

    // A right click offers the row's customer to call (to the dialer, once there is one).
    QSignalSpy calls(&w, &frmCallBack::callCustomer);
    const QPoint row1 = w.fgTomorrow->visualRect(w.fgTomorrow->model()->index(1, 0)).center();
    QTest::mousePress(w.fgTomorrow->viewport(), Qt::RightButton, {}, row1);
    QCOMPARE(calls.count(), 1);
    QCOMPARE(calls[0], (QVariantList{"610-555-0101", "Today"}));
    VERIFY_DIALOGS(f.dialogs);
}

void TestHistoryScreens::menuEntriesAndCustomerHistory()
{
    ProgramFolder f;
    layDownHistory(f);
    RecordingDesktop desktop;
    App app(f.root(), f.clock, f.dialogs, desktop);
    app.OpenEntry(10);
    QVERIFY(app.history && app.history->isVisible());
    QCOMPARE(app.v.Mode, Mode::History);
    QVERIFY(!app.history->ckAccount->isChecked());
    QCOMPARE(app.history->fgSHistory->rows(), 4);

    app.ShowHistoryForCustomer(" B2 ");
    QVERIFY(app.history->ckAccount->isChecked());
    QCOMPARE(app.history->cboAccounts->currentText(), QString("B2"));
    QCOMPARE(gridColumn(app.history->fgSHistory, 1), (QStringList{"Bob Jones", ""}));
    // From the customer screen the return only closes the history.
    QSignalSpy menu(app.history, &frmHistory::showMenu);
    QTest::mouseClick(app.history->cmdReturn, Qt::LeftButton);
    QVERIFY(!app.history->isVisible());
    QCOMPARE(menu.count(), 0);

    f.dialogs.expect("No Service Slips were found");
    app.OpenEntry(0);
    QVERIFY(app.callBack && app.callBack->isVisible());
    QCOMPARE(app.v.Mode, Mode::ReminderCalls);
    VERIFY_DIALOGS(f.dialogs);
}

QTEST_MAIN(TestHistoryScreens)
#include "test_historyscreens.moc"
