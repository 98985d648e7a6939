#include "formchecks.h"
#include "recordingdesktop.h"
#include "sampleinstallation.h"
#include "testclock.h"

#include "customers/customersearchpanel.h"
#include "customers/frmcustomer.h"
#include "history/frmcallback.h"
#include "history/frmhistory.h"
#include "schedule/frmmain.h"
#include "setup/frmsetup.h"
#include "setup/setupinvoiceitemstab.h"
#include "setup/setupoperationstab.h"
#include "setup/setupproblemstab.h"
#include "shell/app.h"
#include "shell/dialogs.h"
#include "shell/frmsplash.h"
#include "shell/frmstartup.h"
#include "shell/screenframe.h"
#include "sliprecords/frmcallrecord.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QFrame>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

const QString kCalendar = QStringLiteral("Your Calendar Selection is Invalid");

// The user, answering No to every question and OK to every message, and keeping what
// was shown.
class RecordingDialogs final : public Dialogs
{
public:
    Answer message(const QString& text, const QString&, Buttons buttons, Icon) override
    {
        shown << text;
        return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::No
                                                                            : Answer::Ok;
    }
    std::optional<QString> input(const QString&, const QString&, const QString&) override
    {
        return std::nullopt;
    }
    void beep() override { ++beeps; }
    QStringList shown;
    int beeps = 0;
};

// A working office: a sample installation of a few teams and customers, and the program
// started on it, at the menu.
struct Office {
    QTemporaryDir folder;
    QTemporaryDir locks;
    TestClock clock;
    RecordingDialogs dialogs;
    RecordingDesktop desktop;
    std::unique_ptr<App> app;

    Office()
    {
        SampleOptions options;
        options.teams = 3;
        options.customers = 40;
        options.slips = 30;
        options.meetings = 4;
        options.storedSlips = 3;
        options.contracts = 4;
        options.start = clock.today();
        options.seed = 3;
        if (!WriteSampleInstallation(folder.path(), options)) return;
        app = std::make_unique<App>(folder.path(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        if (!app->Main()) app.reset();
    }

    frmCustomer* customer(bool business)
    {
        app->OpenEntry(MenuEntry::CreateServiceSlip);
        app->customer->SetAccountType(business ? QStringLiteral("Business")
                                               : QStringLiteral("Individual"));
        return app->customer;
    }
    frmMain* scheduling()
    {
        DispatchingVariables& v = app->v;
        v.gCurAccount = QStringLiteral("10422");
        v.gCurName = QStringLiteral("Margaret Ellison");
        v.gCurAddress1 = QStringLiteral("418 Walnut Avenue");
        v.gCurCity = QStringLiteral("Springfield");
        v.gCurState = QStringLiteral("IL");
        v.gCurZip = QStringLiteral("62704");
        v.gCurPhone = QStringLiteral("217-555-0187");
        v.Mode = 2;
        app->ShowMainForCustomer();
        return app->mainForm;
    }
    frmSetup* setup(int tab, int subTab = -1)
    {
        app->ShowSetup();
        app->setup->tabSetup->setTabEnabled(tab, true);
        app->setup->tabSetup->setCurrentIndex(tab);
        if (subTab >= 0) app->setup->operations->tabSub->setCurrentIndex(subTab);
        return app->setup;
    }

    // Brings up one screen in one of its states; the window it shows in.
    QWidget* bringUp(const QString& state)
    {
        if (state == "welcome") {
            app->splash->fraWelcome->setVisible(true);
            return app->splash;
        }
        if (state == "menu") {
            app->ShowMenu();
            return app->startup;
        }
        if (state.startsWith("setup ")) {
            const QStringList parts = state.split(u' ');
            return setup(parts.value(1).toInt(), parts.size() > 2 ? parts[2].toInt() : -1);
        }
        if (state == "customer individual") return customer(false);
        if (state == "customer business") return customer(true);
        if (state == "customer search") {
            frmCustomer* w = customer(false);
            w->Command1_Click(0);
            return w;
        }
        if (state == "customer list") {
            frmCustomer* w = customer(true);
            w->mnuPrint_Click();
            return w;
        }
        if (state == "customer names") {
            frmCustomer* w = customer(false);
            w->Command1_Click(1);
            return w;
        }
        if (state == "customer aux") {
            frmCustomer* w = customer(false);
            w->mnuAux_Click();
            return w;
        }
        if (state == "scheduling") return scheduling();
        if (state == "month sheet") {
            frmMain* w = scheduling();
            w->mnuTeamCal_Click();
            return w;
        }
        if (state == "day view") {
            frmMain* w = scheduling();
            w->cmdView_Click();
            return w;
        }
        if (state == "stored slips") {
            scheduling();
            app->OpenEntry(MenuEntry::StoredSlips);
            return app->mainForm;
        }
        if (state == "records list") {
            app->OpenEntry(MenuEntry::Reschedule);
            return app->callRecord;
        }
        if (state == "records detail") {
            app->OpenEntry(MenuEntry::Reschedule);
            app->callRecord->cmdHide_Click();
            return app->callRecord;
        }
        if (state == "records search") {
            app->OpenEntry(MenuEntry::Reschedule);
            app->callRecord->optSearchby[1]->click();
            return app->callRecord;
        }
        if (state == "history") {
            app->OpenEntry(MenuEntry::ServiceHistory);
            return app->history;
        }
        if (state == "courtesy calls") {
            app->OpenEntry(MenuEntry::PlaceReminderCalls);
            return app->callBack;
        }
        return nullptr;
    }
};

const QStringList& screenStates()
{
    static const QStringList states{"welcome",           "menu",
                                    "setup 0",           "setup 1",
                                    "setup 2",           "setup 3 0",
                                    "setup 3 1",         "setup 3 2",
                                    "setup 3 3",         "setup 4",
                                    "setup 5",           "setup 6",
                                    "setup 7",           "customer individual",
                                    "customer business", "customer search",
                                    "customer list",     "customer names",
                                    "customer aux",      "scheduling",
                                    "month sheet",       "day view",
                                    "stored slips",      "records list",
                                    "records detail",    "records search",
                                    "history",           "courtesy calls"};
    return states;
}

void settle(QWidget* window)
{
    window->show();
    QApplication::setActiveWindow(window);
    QCoreApplication::processEvents();
}

// The box of a screen by its name: a line edit, or the edit line of a combo box.
QLineEdit* editLine(QWidget* window, const QString& name)
{
    if (auto* combo = window->findChild<QComboBox*>(name)) return combo->lineEdit();
    return window->findChild<QLineEdit*>(name);
}

} // namespace

class TestForms : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void tabFollowsReadingOrder_data();
    void tabFollowsReadingOrder();
    void noTextWiderThanItsRoom_data();
    void noTextWiderThanItsRoom();
    void boxesTakeWhatFits_data();
    void boxesTakeWhatFits();
    void enterRunsTheBoxButton_data();
    void enterRunsTheBoxButton();
};

void TestForms::tabFollowsReadingOrder_data()
{
    QTest::addColumn<QString>("state");
    for (const QString& state : screenStates())
        QTest::newRow(qPrintable(state)) << state;
}

void TestForms::tabFollowsReadingOrder()
{
    QFETCH(QString, state);
    Office office;
    QVERIFY(office.app);
    QWidget* window = office.bringUp(state);
    QVERIFY(window);
    settle(window);
    window->resize(1280, 800);
    QCoreApplication::processEvents();
    QVERIFY2(TabChain(window).size() > 1, "the screen takes no Tab");
    const QStringList faults = TabOrderFaults(window);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

void TestForms::noTextWiderThanItsRoom_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QSize>("screen");
    for (const QString& state : screenStates())
        for (QSize screen : {QSize(1280, 800), QSize(1920, 1080)})
            QTest::addRow("%s %dx%d", qPrintable(state), screen.width(), screen.height())
                << state << screen;
}

void TestForms::noTextWiderThanItsRoom()
{
    QFETCH(QString, state);
    QFETCH(QSize, screen);
    Office office;
    QVERIFY(office.app);
    QWidget* window = office.bringUp(state);
    QVERIFY(window);
    settle(window);
    // A screen opens at its own size where the desktop has room for it, and is never larger
    // than the desktop; then it is shown filling it, as a maximised window.
    const QSize minimum = window->minimumSizeHint().expandedTo(window->minimumSize());
    QVERIFY2(minimum.width() <= screen.width() && minimum.height() <= screen.height(),
             qPrintable(QStringLiteral("needs %1x%2").arg(minimum.width()).arg(minimum.height())));
    for (QSize size : {window->size().boundedTo(screen), screen}) {
        window->resize(size);
        QCoreApplication::processEvents();
        const QStringList clipped = ClippedTexts(window);
        QVERIFY2(clipped.isEmpty(),
                 qPrintable(QStringLiteral("at %1x%2:\n").arg(size.width()).arg(size.height()) +
                            clipped.join(u'\n')));
    }
}

void TestForms::boxesTakeWhatFits_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("before"); // the box's text, all of it selected
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("message"); // empty: none

    const QString invalid = QStringLiteral("This character, (%1) is invalid for this field");
    const QString customer = QStringLiteral("customer business");

    // Pasted text meets the filters of typed text; one refused character refuses it all.
    QTest::newRow("quote pasted into a name") << customer << "txtCustomer_1"
                                              << ""
                                              << "Bob \"Fixit\""
                                              << "" << invalid.arg('"');
    QTest::newRow("tab and line break pasted into a name") << customer << "txtCustomer_1"
                                                           << ""
                                                           << "Acme\tHeating\r\n"
                                                           << "AcmeHeating"
                                                           << "";
    QTest::newRow("comma in a name is fine") << customer << "txtCustomer_1"
                                             << ""
                                             << "Smith, Jones & Co"
                                             << "Smith, Jones & Co"
                                             << "";
    QTest::newRow("paste over a selection") << customer << "txtCustomer_1"
                                            << "Acme"
                                            << "Best Heat"
                                            << "Best Heat"
                                            << "";
    QTest::newRow("star pasted into an account number") << customer << "txtCustomer_0"
                                                        << ""
                                                        << "A*B"
                                                        << "" << invalid.arg('*');
    QTest::newRow("commas pasted into a telephone") << customer << "txtCustomer_6"
                                                    << ""
                                                    << "217,555,0100"
                                                    << "" << invalid.arg(',');
    QTest::newRow("a telephone pasted whole") << customer << "txtCustomer_6"
                                              << ""
                                              << "217-555-0100"
                                              << "217-555-0100"
                                              << "";
    QTest::newRow("slash pasted into address 3") << customer << "txtAdd3"
                                                 << ""
                                                 << "Flat 2/3"
                                                 << "" << invalid.arg('/');
    QTest::newRow("quote pasted into the city") << customer << "cboCity"
                                                << ""
                                                << "\"Urbana\""
                                                << "" << invalid.arg('"');
    QTest::newRow("quote pasted into a problem") << "scheduling"
                                                 << "cboService"
                                                 << ""
                                                 << "No \"heat\""
                                                 << "" << invalid.arg('"');
    QTest::newRow("price pasted") << "setup 5"
                                  << "txtInvoicePrice"
                                  << ""
                                  << "12.50"
                                  << "12.50"
                                  << "";
    QTest::newRow("price with a leading zero, silently") << "setup 5"
                                                         << "txtInvoicePrice"
                                                         << ""
                                                         << "0.50"
                                                         << ""
                                                         << "";
    QTest::newRow("price with two points, silently") << "setup 5"
                                                     << "txtInvoicePrice"
                                                     << ""
                                                     << "1.2.3"
                                                     << ""
                                                     << "";

    // No box takes more than its field holds: the rest of a long paste never gets in, so
    // nothing is cut unseen on the save.
    const struct {
        const char* state;
        const char* box;
        int width;
    } widths[] = {
        {"customer business", "txtCustomer_0", 20},
        {"customer business", "txtCustomer_1", 45},
        {"customer business", "txtCustomer_2", 35},
        {"customer business", "txtCustomer_3", 25},
        {"customer business", "txtCustomer_5", 10},
        {"customer business", "txtCustomer_6", 13},
        {"customer business", "txtCustomer_7", 30},
        {"customer individual", "txtCustomer_8", 15},
        {"customer individual", "txtCustomer_9", 1},
        {"customer individual", "txtCustomer_10", 25},
        {"customer business", "txtCustomer_11", 13},
        {"customer business", "cboCity", 20},
        {"customer business", "cboStates", 2},
        {"customer individual", "cboTitle", 10},
        {"customer business", "txtAdd3", 25},
        {"customer business", "txtAdd4", 25},
        {"scheduling", "cboService", 30},
        {"records search", "txtTelNo", 20},
        {"records search", "txtConfNo", 10},
        {"setup 2", "cboProblems", 30},
        {"setup 5", "txtInvoiceItem", 30},
    };
    const QString longText = QString(200, u'W');
    for (const auto& w : widths)
        QTest::addRow("%s holds %d", w.box, w.width)
            << QString::fromLatin1(w.state) << QString::fromLatin1(w.box) << "" << longText
            << longText.left(w.width) << "";
    QTest::newRow("price holds 12") << "setup 5"
                                    << "txtInvoicePrice"
                                    << "" << QString(20, u'1') << QString(12, u'1') << "";

    // Dates typed whole: a day the month does not have is refused, the box keeps its date.
    // Here "pasted" is what is typed, "after" the date the box then holds (empty: unchanged).
    QTest::newRow("history from 2/30") << "history"
                                       << "DTPicker1_0"
                                       << ""
                                       << "2/30/2026"
                                       << "" << kCalendar;
    QTest::newRow("history to 4/31") << "history"
                                     << "DTPicker1_1"
                                     << ""
                                     << "04/31/2026"
                                     << "" << kCalendar;
    QTest::newRow("history from 2/28") << "history"
                                       << "DTPicker1_0"
                                       << ""
                                       << "2/28/2026"
                                       << "02/28/2026"
                                       << "";
    QTest::newRow("leap day") << "history"
                              << "DTPicker1_0"
                              << ""
                              << "2/29/2028"
                              << "02/29/2028"
                              << "";
    QTest::newRow("no leap day") << "courtesy calls"
                                 << "DTStarting"
                                 << ""
                                 << "2/29/2027"
                                 << "" << kCalendar;
    QTest::newRow("courtesy ending 13th month") << "courtesy calls"
                                                << "DTEnding"
                                                << ""
                                                << "13/01/2026"
                                                << "" << kCalendar;
}

void TestForms::boxesTakeWhatFits()
{
    QFETCH(QString, state);
    QFETCH(QString, box);
    QFETCH(QString, before);
    QFETCH(QString, pasted);
    QFETCH(QString, after);
    QFETCH(QString, message);
    Office office;
    QVERIFY(office.app);
    QWidget* window = office.bringUp(state);
    QVERIFY(window);
    settle(window);
    if (auto* date = window->findChild<QDateEdit*>(box)) {
        const QDate held = date->date();
        office.dialogs.shown.clear();
        date->setFocus();
        QTest::keyClicks(date, pasted);
        QTest::keyClick(date, Qt::Key_Return);
        QCOMPARE(date->date(), after.isEmpty() ? held : QDate::fromString(after, "MM/dd/yyyy"));
        QCOMPARE(office.dialogs.shown.count(kCalendar), message.isEmpty() ? 0 : 1);
        return;
    }
    QLineEdit* edit = editLine(window, box);
    QVERIFY2(edit, qPrintable(box));
    QVERIFY(!edit->isReadOnly());
    edit->setText(before);
    edit->selectAll();
    office.dialogs.shown.clear();
    QGuiApplication::clipboard()->setText(pasted);
    edit->paste();
    QCoreApplication::processEvents();
    QCOMPARE(edit->text(), after.isEmpty() && !message.isEmpty() ? before : after);
    QCOMPARE(office.dialogs.shown, message.isEmpty() ? QStringList() : QStringList{message});
}

void TestForms::enterRunsTheBoxButton_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("button");
    QTest::newRow("customer search") << "customer search"
                                     << "txtSearchfor"
                                     << "cmdStartSearch";
    QTest::newRow("record by account") << "records search"
                                       << "txtTelNo"
                                       << "cmdSearch";
    QTest::newRow("assignment") << "setup 1"
                                << "cboAssignments"
                                << "cmdSave";
    QTest::newRow("problem") << "setup 2"
                             << "cboProblems"
                             << "cmdSavePC";
    QTest::newRow("invoice item") << "setup 5"
                                  << "txtInvoiceItem"
                                  << "cmdRInvoice_0";
    QTest::newRow("invoice price") << "setup 5"
                                   << "txtInvoicePrice"
                                   << "cmdRInvoice_0";
}

void TestForms::enterRunsTheBoxButton()
{
    QFETCH(QString, state);
    QFETCH(QString, box);
    QFETCH(QString, button);
    Office office;
    QVERIFY(office.app);
    QWidget* window = office.bringUp(state);
    QVERIFY(window);
    settle(window);
    QLineEdit* edit = editLine(window, box);
    QVERIFY2(edit, qPrintable(box));
    auto* target = window->findChild<QAbstractButton*>(button);
    QVERIFY2(target, qPrintable(button));
    QSignalSpy clicked(target, &QAbstractButton::clicked);
    QTest::keyClicks(edit, "12");
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(clicked.size(), 1);
}

QTEST_MAIN(TestForms)
#include "test_forms.moc"
