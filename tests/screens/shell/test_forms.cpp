#include "formchecks.h"
#include "recordingdesktop.h"
#include "sampleinstallation.h"
#include "testclock.h"

#include "app/app.h"
#include "core/calendar/slippopup.h"
#include "core/customers/customerediting.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/dialogs.h"
#include "screens/calendar/frmblock.h"
#include "screens/calendar/frmdisplay.h"
#include "screens/calendar/frmreccuringevents.h"
#include "screens/calendar/frmslip.h"
#include "screens/customers/customerauxpanel.h"
#include "screens/customers/customersearchpanel.h"
#include "screens/customers/frmcustomer.h"
#include "screens/customers/storedcallpanel.h"
#include "screens/documents/frmcontract.h"
#include "screens/documents/frmworkorder.h"
#include "screens/history/frmcallback.h"
#include "screens/history/frmhistory.h"
#include "screens/schedule/dayviewframe.h"
#include "screens/schedule/frmmain.h"
#include "screens/schedule/teammonthframe.h"
#include "screens/setup/frmsetup.h"
#include "screens/setup/setupinvoiceitemstab.h"
#include "screens/setup/setupoperationstab.h"
#include "screens/setup/setupproblemstab.h"
#include "screens/shell/frmsplash.h"
#include "screens/shell/frmstartup.h"
#include "screens/shell/screenframe.h"
#include "screens/sliprecords/frmcallrecord.h"
#include "screens/telephony/frmcallid.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QDirIterator>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

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
        copyTree(sampleFolder().path(), folder.path());
        app = std::make_unique<App>(folder.path(), clock, dialogs, desktop);
        app->setLockFolder(locks.path());
        if (!app->Main()) app.reset();
    }

    // One sample installation, written once and copied for each office.
    static const QTemporaryDir& sampleFolder()
    {
        static QTemporaryDir sample;
        static const bool written = [] {
            SampleOptions options;
            options.teams = 3;
            options.customers = 40;
            options.slips = 30;
            options.meetings = 4;
            options.storedSlips = 3;
            options.contracts = 4;
            options.start = TestClock().today();
            options.seed = 3;
            return bool(WriteSampleInstallation(sample.path(), options));
        }();
        Q_UNUSED(written);
        return sample;
    }
    static void copyTree(const QString& from, const QString& to)
    {
        QDirIterator it(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString source = it.next();
            const QString target = to + u'/' + QDir(from).relativeFilePath(source);
            QDir().mkpath(QFileInfo(target).path());
            QFile::copy(source, target);
        }
    }

    // The customer screen on its first account, panels closed.
    frmCustomer* customer()
    {
        app->OpenEntry(MenuEntry::CreateServiceSlip);
        frmCustomer* w = app->customer;
        w->aux->setVisible(false);
        w->search->fraSearch->setVisible(false);
        w->search->fraCustomersFound->setVisible(false);
        w->cboAccounts->setVisible(false);
        return w;
    }
    // The same with the boxes of one account type.
    frmCustomer* customer(bool business)
    {
        frmCustomer* w = customer();
        w->SetAccountType(business ? QStringLiteral("Business") : QStringLiteral("Individual"));
        return w;
    }
    void customerInHand()
    {
        DispatchingVariables& v = app->v;
        v.current.account = QStringLiteral("10422");
        v.current.name = QStringLiteral("Margaret Ellison");
        v.current.address1 = QStringLiteral("418 Walnut Avenue");
        v.current.city = QStringLiteral("Springfield");
        v.current.state = QStringLiteral("IL");
        v.current.zip = QStringLiteral("62704");
        v.current.phone = QStringLiteral("217-555-0187");
    }
    frmMain* scheduling()
    {
        customerInHand();
        app->v.Mode = Mode::ServiceSlip;
        app->ShowMainForCustomer();
        frmMain* w = app->mainForm;
        if (w->fraTeamCal->isVisible()) w->mnuTeamCal_Click();
        if (w->fraDay->isVisible()) w->cmdView_Click();
        return w;
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
            frmCustomer* w = customer();
            w->Command1_Click(0);
            return w;
        }
        if (state == "customer list") {
            frmCustomer* w = customer();
            w->mnuPrint_Click();
            return w;
        }
        if (state == "customer names") {
            frmCustomer* w = customer();
            w->Command1_Click(1);
            return w;
        }
        if (state == "customer aux") {
            frmCustomer* w = customer();
            w->mnuAux_Click();
            return w;
        }
        if (state == "customer stored calls") {
            frmCustomer* w = customer();
            // Two calls of the widest name, number and time a call record holds.
            const QByteArray call = "WWWWWWWWWWWWWWW217-555-010008:00 pm";
            if (!app->store.WriteFile(QStringLiteral("/TelCall.txt"), call.repeated(2)))
                return nullptr;
            w->calls->Form_Activate();
            w->calls->cmdCallLater_Click();
            return w;
        }
        if (state == "call monitor") {
            app->OpenEntry(MenuEntry::UnattendedMonitoring);
            return app->callId;
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
            if (!app->callRecord->fraSummary->isVisible()) app->callRecord->mnuView_Click();
            return app->callRecord;
        }
        if (state == "records detail") {
            app->OpenEntry(MenuEntry::Reschedule);
            app->callRecord->cmdHide_Click();
            return app->callRecord;
        }
        if (state == "records search") {
            app->OpenEntry(MenuEntry::Reschedule);
            if (!app->callRecord->fraSummary->isVisible()) app->callRecord->mnuView_Click();
            app->callRecord->optSearchby[1]->click();
            return app->callRecord;
        }
        if (state == "history") {
            app->OpenEntry(MenuEntry::ServiceHistory);
            return app->history;
        }
        if (state == "recurring events") {
            app->OpenEntry(MenuEntry::RecurringEvents);
            QWidget* w = app->recurring;
            w->findChild<QAbstractButton*>("optNoCustomer")->click();
            w->findChild<QAbstractButton*>("cmdContinue")->click();
            w->findChild<QAbstractButton*>("CmdButton_4")->click();
            w->findChild<QWidget*>("fraConflict")->setVisible(true);
            return w;
        }
        if (state == "blocked days") {
            app->OpenEntry(MenuEntry::VacationAndHoliday);
            app->block->findChild<QWidget*>("fraBlockedDays")->setVisible(true);
            return app->block;
        }
        if (state == "work schedules") {
            app->OpenEntry(MenuEntry::DisplaySchedules);
            return app->display;
        }
        if (state == "slip popup") {
            app->OpenEntry(MenuEntry::DisplaySchedules);
            // The first slip of the file, as a click on its first hour finds it.
            const SlipRecord slip(app->store.ReadAll("/Slips.txt")->left(kSlipRecordLength));
            const ClickedSlot clicked{
                SlotFile::Slips, *ParseShortDate(slip.text(SlipField::EventDate)),
                slip.text(SlipField::TeamNo).toInt(), slip.text(SlipField::StartSlot).toInt(),
                slip.text(SlipField::ConfirmationNo) + u' ' + slip.text(SlipField::Name)};
            frmSlip* popup = app->display->popup();
            return popup->ShowSlip(clicked, QStringLiteral("North Truck")) ? popup : nullptr;
        }
        if (state.startsWith("contract")) {
            customerInHand();
            app->v.Mode = Mode::Contract;
            app->ShowContractForCustomer();
            if (state == "contract manual")
                app->contract->findChild<QAction*>(QStringLiteral("mnuManual"))->trigger();
            return app->contract;
        }
        if (state == "work order") {
            customerInHand();
            app->v.Mode = Mode::WorkOrder;
            app->ShowWorkOrderForCustomer();
            return app->workOrder;
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
                                    "customer aux",      "customer stored calls",
                                    "call monitor",      "scheduling",
                                    "month sheet",       "day view",
                                    "stored slips",      "records list",
                                    "records detail",    "records search",
                                    "history",           "courtesy calls",
                                    "recurring events",  "blocked days",
                                    "work schedules",    "slip popup",
                                    "contract",          "contract manual",
                                    "work order"};
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
private:
    // One office for all rows of a test function: starting the program is what takes the
    // time, and each row brings its screen up in a known state.
    Office& office()
    {
        const QString function = QString::fromLatin1(QTest::currentTestFunction());
        if (!m_office || m_function != function) {
            m_office.reset();
            m_office = std::make_unique<Office>();
            m_function = function;
            m_opened.clear();
        }
        return *m_office;
    }
    std::unique_ptr<Office> m_office;
    QString m_function;
    // The size each window opened at, before a row resized it.
    QHash<QWidget*, QSize> m_opened;

private slots:
    void initTestCase() { ScreenFrame::setGeometryKept(false); }
    void cleanupTestCase() { m_office.reset(); }
    void checksSeeWhatAPersonSees();
    void tabFollowsReadingOrder_data();
    void tabFollowsReadingOrder();
    void noTextWiderThanItsRoom_data();
    void noTextWiderThanItsRoom();
    void boxesTakeWhatFits_data();
    void boxesTakeWhatFits();
    void customerFormStaysInLine();
    void enterRunsTheBoxButton_data();
    void enterRunsTheBoxButton();
};

// The checks themselves: a form laid out wrongly on purpose is found out, and the same form
// put right passes.
void TestForms::checksSeeWhatAPersonSees()
{
    QWidget form;
    auto* grid = new QGridLayout(&form);
    auto* first = new QLineEdit(&form);
    auto* second = new QLineEdit(&form);
    auto* below = new QLineEdit(&form);
    auto* label = new QLabel(QStringLiteral("Postal Code"), &form);
    auto* button = new QPushButton(QStringLiteral("Set Acct = Tel"), &form);
    grid->addWidget(label, 0, 0);
    grid->addWidget(first, 0, 1);
    grid->addWidget(second, 0, 2);
    grid->addWidget(below, 1, 1);
    grid->addWidget(button, 1, 2);
    form.resize(600, 120);
    settle(&form);

    // Made in reading order, the chain is right.
    QCOMPARE(TabChain(&form), (QList<QWidget*>{first, second, below, button}));
    QVERIFY(TabOrderFaults(&form).isEmpty());
    QVERIFY(ClippedTexts(&form).isEmpty());

    // Right to left on both lines.
    QWidget::setTabOrder(second, first);
    QWidget::setTabOrder(button, below);
    QCOMPARE(TabOrderFaults(&form).size(), 2);

    // A caption and a button squeezed below their text.
    label->setFixedWidth(30);
    button->setFixedWidth(40);
    QCoreApplication::processEvents();
    QCOMPARE(ClippedTexts(&form).size(), 2);
}

void TestForms::tabFollowsReadingOrder_data()
{
    QTest::addColumn<QString>("state");
    for (const QString& state : screenStates())
        QTest::newRow(qPrintable(state)) << state;
}

void TestForms::tabFollowsReadingOrder()
{
    QFETCH(QString, state);
    Office& office = this->office();
    QVERIFY(office.app);
    office.dialogs.shown.clear();
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
    Office& office = this->office();
    QVERIFY(office.app);
    office.dialogs.shown.clear();
    QWidget* window = office.bringUp(state);
    QVERIFY(window);
    settle(window);
    // A screen opens at its own size where the desktop has room for it, and is never larger
    // than the desktop; then it is shown filling it, as a maximised window.
    const QSize minimum = window->minimumSizeHint().expandedTo(window->minimumSize());
    QVERIFY2(minimum.width() <= screen.width() && minimum.height() <= screen.height(),
             qPrintable(QStringLiteral("needs %1x%2").arg(minimum.width()).arg(minimum.height())));
    if (!m_opened.contains(window)) m_opened.insert(window, window->size());
    for (QSize size : {m_opened.value(window).boundedTo(screen), screen}) {
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
    QTest::addColumn<QString>("before");  // the box's text, all of it selected
    QTest::addColumn<QString>("pasted");  // for a date box: typed, then Enter
    QTest::addColumn<QString>("after");   // for a date box: the date it holds, empty: unchanged
    QTest::addColumn<QString>("message"); // empty: none

    const QString invalid = QStringLiteral("This character, (%1) is invalid for this field");
    auto refused = [&](char c) { return invalid.arg(QLatin1Char(c)); };
    struct Row {
        const char* name;
        const char* state;
        const char* box;
        const char* before;
        const char* pasted;
        const char* after;
        QString message;
    };
    const Row rows[] = {
        // Pasted text meets the filters of typed text; one refused character refuses it all.
        {"quote into a name", "customer business", "txtCustomer_1", "", "Bob \"Fixit\"", "",
         refused('"')},
        {"tab and line break into a name",
         "customer business",
         "txtCustomer_1",
         "",
         "Acme\tHeating\r\n",
         "AcmeHeating",
         {}},
        {"comma and ampersand in a name",
         "customer business",
         "txtCustomer_1",
         "",
         "Smith, Jones & Co",
         "Smith, Jones & Co",
         {}},
        {"over a selection",
         "customer business",
         "txtCustomer_1",
         "Acme",
         "Best Heat",
         "Best Heat",
         {}},
        {"star into an account number", "customer business", "txtCustomer_0", "", "A*B", "",
         refused('*')},
        {"slashes into a telephone", "customer business", "txtCustomer_6", "", "217/555/0100", "",
         refused('/')},
        {"a telephone whole",
         "customer business",
         "txtCustomer_6",
         "",
         "217-555-0100",
         "217-555-0100",
         {}},
        {"slash into address 3", "customer business", "txtAdd3", "", "Flat 2/3", "", refused('/')},
        {"quote into a last name", "customer individual", "txtCustomer_10", "", "O\"Brien", "",
         refused('"')},
        {"quote into a problem", "scheduling", "cboService", "", "No \"heat\"", "", refused('"')},
        {"price", "setup 5", "txtInvoicePrice", "", "12.50", "12.50", {}},
        {"price with a leading zero, silently", "setup 5", "txtInvoicePrice", "", "0.50", "", {}},
        {"price with two points, silently", "setup 5", "txtInvoicePrice", "", "1.2.3", "", {}},

        // Dates typed whole: a day the month does not have is refused, and the box keeps
        // its date.
        {"history from 2/30", "history", "DTPicker1_0", "", "2/30/2026", "", kCalendar},
        {"history to 4/31", "history", "DTPicker1_1", "", "04/31/2026", "", kCalendar},
        {"history from 2/28", "history", "DTPicker1_0", "", "2/28/2026", "02/28/2026", {}},
        {"leap day", "courtesy calls", "DTEnding", "", "2/29/2028", "02/29/2028", {}},
        {"no leap day", "courtesy calls", "DTStarting", "", "2/29/2027", "", kCalendar},
        {"thirteenth month", "courtesy calls", "DTEnding", "", "13/01/2026", "", kCalendar},
    };
    for (const Row& r : rows)
        QTest::newRow(r.name) << r.state << r.box << r.before << r.pasted << r.after << r.message;

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
        {"setup 5", "txtInvoicePrice", 12},
    };
    for (const auto& w : widths) {
        // Digits pass every filter; the price box takes nothing else.
        const QString longText(200, u'1');
        QTest::addRow("%s holds %d", w.box, w.width)
            << QString::fromLatin1(w.state) << QString::fromLatin1(w.box) << QString() << longText
            << longText.left(w.width) << QString();
    }
}

void TestForms::boxesTakeWhatFits()
{
    QFETCH(QString, state);
    QFETCH(QString, box);
    QFETCH(QString, before);
    QFETCH(QString, pasted);
    QFETCH(QString, after);
    QFETCH(QString, message);
    Office& office = this->office();
    QVERIFY(office.app);
    office.dialogs.shown.clear();
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

// The boxes of the address frames start at the edge of the others, and beginning a new
// account, which shows its cancel button, does not widen the form.
void TestForms::customerFormStaysInLine()
{
    Office& office = this->office();
    QVERIFY(office.app);
    frmCustomer* w = office.customer(true);
    settle(w);
    auto left = [w](QWidget* box) { return box->mapTo(w, QPoint(0, 0)).x(); };
    const int edge = left(w->txtCustomer[CustomerBox::Address1]);
    for (QWidget* box : {static_cast<QWidget*>(w->cboCity), static_cast<QWidget*>(w->cboStates),
                         static_cast<QWidget*>(w->txtCustomer[CustomerBox::PostalCode]),
                         static_cast<QWidget*>(w->txtCustomer[CustomerBox::Phone])})
        QCOMPARE(left(box), edge);

    const QSize before = w->minimumSizeHint();
    w->mnuAdd_Click();
    QCoreApplication::processEvents();
    QVERIFY(w->cmdCustomer[0]->isVisible());
    QCOMPARE(w->minimumSizeHint(), before);
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
    Office& office = this->office();
    QVERIFY(office.app);
    office.dialogs.shown.clear();
    QWidget* window = office.bringUp(state);
    QVERIFY(window);
    settle(window);
    QLineEdit* edit = editLine(window, box);
    QVERIFY2(edit, qPrintable(box));
    auto* target = window->findChild<QAbstractButton*>(button);
    QVERIFY2(target, qPrintable(button));
    QSignalSpy clicked(target, &QAbstractButton::clicked);
    // The keys go where the focus is: to a combo box, not the line inside it.
    QWidget* focus = edit;
    if (auto* combo = qobject_cast<QComboBox*>(edit->parentWidget())) focus = combo;
    QTest::keyClicks(focus, "12");
    QTest::keyClick(focus, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(clicked.size(), 1);
}

QTEST_MAIN(TestForms)
#include "test_forms.moc"
