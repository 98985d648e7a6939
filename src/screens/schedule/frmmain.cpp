#include "screens/schedule/frmmain.h"

#include "core/documents/invoices.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/desktop.h"
#include "core/ports/dialogs.h"
#include "core/schedule/booking.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayview.h"
#include "core/schedule/freenumber.h"
#include "core/schedule/slipfiles.h"
#include "core/schedule/slipmessage.h"
#include "core/schedule/teammonth.h"
#include "core/schedule/timegrid.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"
#include "screens/schedule/dayviewframe.h"
#include "screens/schedule/freetimedialog.h"
#include "screens/schedule/invoicetypeframe.h"
#include "screens/schedule/memoframe.h"
#include "screens/schedule/printpanel.h"
#include "screens/schedule/storedslipsframe.h"
#include "screens/schedule/teammonthframe.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/screenframe.h"
#include "screens/shell/updown.h"
#include "screens/shell/waitcursor.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
// The light yellow of the time grid.
const QColor kGridYellow(0xFF, 0xFF, 0xC0);

void tag(QWidget* w, const char* value)
{
    w->setProperty("Tag", QString::fromLatin1(value));
}

} // namespace

frmMain::frmMain(CoreContext& ctx, Desktop& desktop, PrintDialogs& printDialogs, QWidget* parent)
    : QMainWindow(parent), c(ctx), m_desktop(desktop), m_printDialogs(printDialogs)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Scheduling Screen"));
    EventText = NoSlotSelected();
    buildLayout();
    // Hidden from the start, as each routine's activation leaves them until it needs them:
    // shown at the first showing, they would stretch the window to hold them all.
    ResetScreen(this);
    resize(1100, 720);
}

void frmMain::buildLayout()
{
    // Menus
    QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
    mnuTeamCal = view->addAction(QStringLiteral("Team &Calendar"));
    mnuTeamCal->setObjectName(QStringLiteral("mnuTeamCal"));
    mnuCustomer = view->addAction(QStringLiteral("C&ustomer"));
    mnuCustomer->setObjectName(QStringLiteral("mnuCustomer"));
    QMenu* invoices = menuBar()->addMenu(QStringLiteral("&Invoices"));
    mnuInvoiceS = invoices->menuAction();
    mnuInvoiceS->setObjectName(QStringLiteral("mnuInvoiceS"));
    mnuInvoiceStyle = invoices->addAction(QStringLiteral("Invoice &Style"));
    mnuInvoiceStyle->setObjectName(QStringLiteral("mnuInvoiceStyle"));
    mnuMemo = invoices->addAction(QStringLiteral("Toggle &Memo"));
    mnuMemo->setObjectName(QStringLiteral("mnuMemo"));
    mnuBlankinvoices = invoices->addAction(QStringLiteral("&Blank Invoices..."));
    mnuBlankinvoices->setObjectName(QStringLiteral("mnuBlankinvoices"));
    mnuFindFreeTime = view->addAction(QStringLiteral("&Find Free Time"));
    mnuFindFreeTime->setObjectName(QStringLiteral("mnuFindFreeTime"));
    mnuFindFreeTime->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));

    auto* central = new QWidget(this);
    setCentralWidget(central);

    // The left column: date, team, hours, problem.
    fraCalendar = new QGroupBox(QStringLiteral("Date"), central);
    fraCalendar->setObjectName(QStringLiteral("fraCalendar"));
    tag(fraCalendar, "Hide");
    Calender = new QCalendarWidget(fraCalendar);
    Calender->setObjectName(QStringLiteral("Calender"));
    Calender->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    Calender->setGridVisible(true);
    Calender->setFirstDayOfWeek(Qt::Sunday);
    (new QVBoxLayout(fraCalendar))->addWidget(Calender);

    fraTeam = new QGroupBox(QStringLiteral("Team"), central);
    fraTeam->setObjectName(QStringLiteral("fraTeam"));
    tag(fraTeam, "Hide");
    lstTeam = new QListWidget(fraTeam);
    lstTeam->setObjectName(QStringLiteral("lstTeam"));
    (new QVBoxLayout(fraTeam))->addWidget(lstTeam);

    fraTime = new QGroupBox(QStringLiteral("Time Required"), central);
    fraTime->setObjectName(QStringLiteral("fraTime"));
    tag(fraTime, "Hide");
    txtTime = new QLineEdit(QStringLiteral("1"), fraTime);
    txtTime->setObjectName(QStringLiteral("txtTime"));
    txtTime->setReadOnly(true);
    txtTime->setAlignment(Qt::AlignCenter);
    txtTime->setMaximumWidth(50);
    updnTime = new UpDown(QStringLiteral("updnTime"), fraTime);
    lblMode = new QLabel(QStringLiteral("Hours"), fraTime);
    lblMode->setObjectName(QStringLiteral("lblMode"));
    auto* time = new QHBoxLayout(fraTime);
    time->addWidget(txtTime);
    time->addWidget(updnTime);
    time->addWidget(lblMode);
    time->addStretch(1);

    fraService = new QGroupBox(QStringLiteral("Problem Description"), central);
    fraService->setObjectName(QStringLiteral("fraService"));
    tag(fraService, "Hide");
    cboService = new QComboBox(fraService);
    cboService->setObjectName(QStringLiteral("cboService"));
    cboService->setEditable(true);
    cboService->setInsertPolicy(QComboBox::NoInsert);
    cboService->installEventFilter(this);
    WireKeyFilter(cboService, KeyFilterKind::Quote, c.dialogs);
    cboService->lineEdit()->setMaxLength(SlipLayout().field(SlipField::Reference).width);
    (new QVBoxLayout(fraService))->addWidget(cboService);

    ckSaveUnscheduled = new QCheckBox(QStringLiteral("Store as an Unscheduled Slip"), central);
    ckSaveUnscheduled->setObjectName(QStringLiteral("ckSaveUnscheduled"));
    tag(ckSaveUnscheduled, "Hide");

    fraCopies = new QGroupBox(QStringLiteral("Copies"), central);
    fraCopies->setObjectName(QStringLiteral("fraCopies"));
    tag(fraCopies, "Hide");
    txtCopies = new QSpinBox(fraCopies);
    txtCopies->setObjectName(QStringLiteral("txtCopies"));
    txtCopies->setRange(1, 9);
    (new QHBoxLayout(fraCopies))->addWidget(txtCopies);

    fraInvoiceType = new InvoiceTypeFrame(central);
    tag(fraInvoiceType, "Hide");
    fraMemo = new MemoFrame(c.store, c.dialogs, central);
    tag(fraMemo, "Hide");

    auto* left = new QVBoxLayout;
    left->addWidget(fraCalendar);
    left->addWidget(fraTeam, 1);
    left->addWidget(fraTime);
    left->addWidget(fraService);
    left->addWidget(ckSaveUnscheduled);
    left->addWidget(fraCopies);
    left->addWidget(fraInvoiceType);
    left->addWidget(fraMemo);

    // The customer in hand.
    fraCustomer = new QGroupBox(QStringLiteral("Customer"), central);
    fraCustomer->setObjectName(QStringLiteral("fraCustomer"));
    tag(fraCustomer, "Hide");
    auto box = [this](const char* name) {
        auto* e = new QLineEdit(fraCustomer);
        e->setObjectName(QString::fromLatin1(name));
        e->setReadOnly(true);
        e->setFocusPolicy(Qt::NoFocus);
        e->installEventFilter(this);
        return e;
    };
    txtAccount = box("txtAccount");
    txtName = box("txtName");
    txtAddress1 = box("txtAddress1");
    txtAddress2 = box("txtAddress2");
    txtCityStateZip = box("txtCityStateZip");
    txtPhone = box("txtPhone");
    fraCustomer->installEventFilter(this);
    auto* customer = new QGridLayout(fraCustomer);
    customer->addWidget(new QLabel(QStringLiteral("Account"), fraCustomer), 0, 0);
    customer->addWidget(txtAccount, 0, 1);
    customer->addWidget(new QLabel(QStringLiteral("Name"), fraCustomer), 0, 2);
    customer->addWidget(txtName, 0, 3);
    customer->addWidget(new QLabel(QStringLiteral("Address"), fraCustomer), 1, 0);
    customer->addWidget(txtAddress1, 1, 1);
    customer->addWidget(new QLabel(QStringLiteral("Apt/Suite"), fraCustomer), 1, 2);
    customer->addWidget(txtAddress2, 1, 3);
    customer->addWidget(new QLabel(QStringLiteral("City"), fraCustomer), 2, 0);
    customer->addWidget(txtCityStateZip, 2, 1);
    customer->addWidget(new QLabel(QStringLiteral("Telephone"), fraCustomer), 2, 2);
    customer->addWidget(txtPhone, 2, 3);
    customer->setColumnStretch(1, 1);
    customer->setColumnStretch(3, 2);

    // The day: the grid, with the day view and the month sheet over it when open.
    fgHours = new FlexGrid(central);
    fgHours->setObjectName(QStringLiteral("fgHours"));
    fgHours->installEventFilter(this);
    tag(fgHours, "Hide");
    fgHours->setHeadings({QStringLiteral("Time"), QStringLiteral("Scheduled Event")});
    fgHours->grid()->setRowCount(12);
    fgHours->grid()->setColumnAlignment(0, Qt::AlignCenter);
    fgHours->grid()->setColumnAlignment(1, Qt::AlignLeft | Qt::AlignVCenter);
    // The grid's rows share its height; a click places an event, it selects nothing.
    fgHours->setSelectionMode(QAbstractItemView::NoSelection);
    fgHours->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Fixed);
    fgHours->horizontalHeader()->resizeSection(0, 90);
    fgHours->verticalHeader()->setMinimumSectionSize(fgHours->fontMetrics().height() + 6);
    fgHours->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    fgHours->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    {
        QPalette p = fgHours->palette();
        p.setColor(QPalette::Base, kGridYellow);
        fgHours->setPalette(p);
    }
    fraDay = new DayViewFrame(central);
    tag(fraDay, "Hide");
    fraTeamCal = new TeamMonthFrame(central);
    tag(fraTeamCal, "Hide");

    auto* day = new QGridLayout;
    day->addWidget(fgHours, 0, 0);
    day->addWidget(fraDay, 0, 0);
    day->addWidget(fraTeamCal, 0, 0);

    // Buttons
    auto button = [central](const QString& caption, const char* name, const char* tagValue) {
        auto* b = new QPushButton(caption, central);
        b->setMinimumWidth(96);
        b->setObjectName(QString::fromLatin1(name));
        if (tagValue) tag(b, tagValue);
        return b;
    };
    cmdView_0 = button(QStringLiteral("&Toggle View"), "cmdView_0", nullptr);
    cmdClear = button(QStringLiteral("&Clear Time"), "cmdClear", "Button");
    cmdSaveTextMessage = button(QStringLiteral("Text &Message"), "cmdSaveTextMessage", "Button");
    cmdSaveTextMessage->setToolTip(
        QStringLiteral("Copy the slip to the clipboard for a text message"));
    cmdPrint = button(QStringLiteral("&Print"), "cmdPrint", "Button");
    cmdSave = button(QStringLiteral("&Save"), "cmdSave", "Button");
    cmdSave->setDefault(true);
    cmdExit = button(QStringLiteral("E&xit"), "cmdExit", nullptr);
    fraButtons = new QWidget(central);
    fraButtons->setObjectName(QStringLiteral("fraButtons"));
    auto* buttons = new QHBoxLayout(fraButtons);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addWidget(cmdView_0);
    buttons->addWidget(cmdClear);
    buttons->addWidget(cmdSaveTextMessage);
    buttons->addWidget(cmdPrint);
    buttons->addStretch(1);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdExit);

    auto* right = new QVBoxLayout;
    right->addWidget(fraCustomer);
    right->addLayout(day, 1);
    fraInvoice = new PrintPanel(c, m_printDialogs, central);
    tag(fraInvoice, "Hide");
    fraInvoice->setSelection([this] {
        // The entry after the last team is "All Teams".
        const int row = lstTeam->currentRow();
        PrintPanel::Selection s{m_currentDate, row < c.v.TeamCount() ? row + 1 : 0,
                                fraCopies->isVisible() ? txtCopies->value() : c.v.gCopies};
        s.style = InvoiceStyleOf(fraInvoiceType->invoiceStyle());
        s.addMemo = fraInvoiceType->addMemo();
        s.printReason = fraInvoiceType->printReason();
        s.blankCount = BlankCount;
        return s;
    });
    // Blank invoices are asked for one job at a time, whatever style printed them.
    connect(fraInvoice, &PrintPanel::invoicesPrinted, this, [this] { BlankCount = 0; });
    right->addWidget(fraInvoice);

    fraUnscheduled = new StoredSlipsFrame(central);
    tag(fraUnscheduled, "Hide");

    auto* layout = new QGridLayout(central);
    layout->setContentsMargins(10, 8, 10, 10);
    layout->setHorizontalSpacing(12);
    layout->addLayout(left, 0, 0);
    layout->addLayout(right, 0, 1);
    layout->addWidget(fraUnscheduled, 0, 0, 1, 2);
    layout->addWidget(fraButtons, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    fraCalendar->setMaximumWidth(330);
    fraTeam->setMaximumWidth(330);
    fraTime->setMaximumWidth(330);
    fraService->setMaximumWidth(330);

    connect(Calender, &QCalendarWidget::selectionChanged, this, [this] {
        if (!m_settingCalendar) Calender_Change(Calender->selectedDate());
    });
    connect(lstTeam, &QListWidget::currentRowChanged, this, &frmMain::lstTeam_Change);
    connect(fraTeamCal->UpDnTeam, &UpDown::upClicked, this, [this] { UpDnTeam_Step(-1); });
    connect(fraTeamCal->UpDnTeam, &UpDown::downClicked, this, [this] { UpDnTeam_Step(1); });
    connect(updnTime, &UpDown::upClicked, this, [this] { updnTime_Change(1); });
    connect(updnTime, &UpDown::downClicked, this, [this] { updnTime_Change(-1); });
    connect(fgHours, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& index) { fgHours_Click(index.row() + 1); });
    connect(cmdSave, &QPushButton::clicked, this, &frmMain::cmdSave_Click);
    connect(cmdPrint, &QPushButton::clicked, fraInvoice, &PrintPanel::Open);
    connect(cmdClear, &QPushButton::clicked, this, &frmMain::cmdClear_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmMain::cmdExit_Click);
    connect(cmdView_0, &QPushButton::clicked, this, &frmMain::cmdView_Click);
    connect(cmdSaveTextMessage, &QPushButton::clicked, this, &frmMain::cmdSaveTextMessage_Click);
    connect(mnuTeamCal, &QAction::triggered, this, &frmMain::mnuTeamCal_Click);
    connect(mnuFindFreeTime, &QAction::triggered, this, &frmMain::mnuFindFreeTime_Click);
    connect(mnuInvoiceStyle, &QAction::triggered, this, &frmMain::mnuInvoiceStyle_Click);
    connect(mnuMemo, &QAction::triggered, this, &frmMain::mnuMemo_Click);
    connect(mnuBlankinvoices, &QAction::triggered, this, &frmMain::mnuBlankinvoices_Click);
    connect(mnuCustomer, &QAction::triggered, this,
            [this] { fraCustomer->setVisible(!fraCustomer->isVisible()); });
    connect(fraTeamCal, &TeamMonthFrame::boxClicked, this, &frmMain::Text1_Click);
    connect(fraUnscheduled, &StoredSlipsFrame::buttonClicked, this, &frmMain::cmdUnscheduled_Click);
    // The dialer is not part of this program yet: a click on an hour's label does nothing.
}

bool frmMain::fail(const Status& s)
{
    if (s) return false;
    c.dialogs.message(s.message());
    return true;
}

GridColumn frmMain::gridColumn() const
{
    return m_grid;
}

void frmMain::showGrid(const GridColumn& grid)
{
    // The slots are kept as a value; the grid only shows them, and no handler reads a
    // cell back to learn what a slot holds.
    m_grid = grid;
    for (int r = 1; r <= 12; ++r)
        fgHours->setTextMatrix(r - 1, 1, grid[r - 1]);
}

void frmMain::setCalendar(const QDate& date)
{
    m_settingCalendar = true;
    Calender->setSelectedDate(date);
    m_settingCalendar = false;
}

void frmMain::Form_Activate()
{
    // 1. The calendar on today, moved past the days not worked.
    QDate today = c.clock.today();
    Calender_Change(NextWorkDay(c.v, today));

    {
        WaitCursor wait;
        // 2. The labels, the tags, the controls of the mode.
        for (int r = 1; r <= 12; ++r) {
            fgHours->setTextMatrix(r - 1, 0, GridLabel(c.v, r));
            fgHours->grid()->setBackColor(r - 1, 0, QColor(0xF0, 0xF0, 0xF0));
        }
        std::array<QString, 12> labels;
        for (int r = 1; r <= 12; ++r)
            labels[r - 1] = GridLabel(c.v, r);
        fraDay->setHourLabels(labels);
        fail(fraMemo->LoadMemo());
        ResetScreen(this);
        const Mode mode = c.v.Mode;
        mnuCustomer->setVisible(mode == Mode::ServiceSlip || mode == Mode::BlockDays ||
                                mode == Mode::Meeting || mode == Mode::Reschedule);
        mnuTeamCal->setVisible(mode == Mode::ServiceSlip || mode == Mode::BlockDays ||
                               mode == Mode::Meeting || mode == Mode::Invoices);
        mnuInvoiceS->setVisible(mode == Mode::Invoices);
        mnuInvoiceStyle->setVisible(mode == Mode::Invoices);
        mnuFindFreeTime->setVisible(mode == Mode::ServiceSlip || mode == Mode::Meeting ||
                                    mode == Mode::Reschedule);
        BlankCount = 0;
        ckSaveUnscheduled->setChecked(false);
        cmdSaveTextMessage->setEnabled(false);
        cmdView_0->setEnabled(true);
        // The stored-slip list has buttons of its own.
        fraButtons->setVisible(mode != Mode::StoredSlips);
        if (mode == Mode::ServiceSlip || mode == Mode::Meeting) {
            cmdClear->setEnabled(true);
            cmdSave->setEnabled(true);
        }
        if (mode == Mode::WorkSchedules) {
            cmdView_0->setEnabled(false);
            cmdClear->setEnabled(false);
        }
        if (mode == Mode::ServiceSlip || mode == Mode::WorkSchedules || mode == Mode::Invoices ||
            mode == Mode::Meeting) {
            fraCalendar->setVisible(true);
            fraTeam->setVisible(true);
            fraTime->setVisible(true);
            fgHours->setVisible(true);
        }
        if (mode == Mode::WorkSchedules) {
            fraCopies->setVisible(true);
            txtCopies->setValue(c.v.gCopies);
        }
        cmdPrint->setEnabled(mode == Mode::WorkSchedules || mode == Mode::Invoices);
        if (mode == Mode::Invoices) {
            fraTime->setVisible(false);
            fraInvoiceType->setVisible(true);
        }

        // 3. A new event. Only the hand-over of a reschedule carries an old number on.
        if (mode != Mode::Reschedule && Rescheduling != -1) RescheduledFrom.clear();
        EventText = NoSlotSelected();
        FromStoredSlip = 0;
        m_currentDate = OpeningBookingDate(c);
        setCalendar(m_currentDate);
        txtTime->setText(QStringLiteral("1"));
        m_gridRow = 1;
        fgHours->setCurrentIndex(fgHours->model()->index(0, 1));

        // 5. The caption; 6. the number the slip will get.
        setCaption();
        if (mode == Mode::ServiceSlip) ckSaveUnscheduled->setVisible(true);
        if (mode == Mode::ServiceSlip) fail(TakeFreeConfirmation(c));
        SlipNumber = c.v.gConfirmation;

        // 7. By mode.
        switch (mode) {
        case Mode::ServiceSlip:
            fraService->setVisible(true);
            fillService(c.v.settings.cboProblems.value(0));
            break;
        case Mode::WorkSchedules:
            fraTime->setVisible(false);
            break;
        case Mode::StoredSlips:
            fraUnscheduled->setVisible(true);
            fraUnscheduled->raise();
            if (const QString problem = fraUnscheduled->fill(c.store); !problem.isEmpty())
                c.dialogs.message(problem);
            return;
        case Mode::Reschedule:
            if (rescheduleMeeting) {
                c.v.Mode = Mode::Meeting;
            } else {
                c.v.Mode = Mode::ServiceSlip;
                Rescheduling = -1;
                RescheduledFrom = c.v.gSlip.text(SlipField::ConfirmationNo);
            }
            Form_Activate();
            return;
        default:
            break;
        }

        // 8. The customer in hand.
        if (mode == Mode::ServiceSlip || mode == Mode::WorkSchedules || mode == Mode::Reschedule) {
            fraCustomer->setVisible(true);
            showCustomer();
        }
        // 9. The teams; the first is selected and its day loaded.
        fillTeams();
        if (mode == Mode::ServiceSlip && Rescheduling == -1) {
            // The old slip's team, problem and hours; the date and the hour are chosen anew.
            const int team = c.v.gSlip.text(SlipField::TeamNo).toInt() - 1;
            if (team >= 0 && team < lstTeam->count()) lstTeam->setCurrentRow(team);
            cboService->setEditText(c.v.gSlip.text(SlipField::Reference));
            txtTime->setText(c.v.gSlip.text(SlipField::Hours));
            Rescheduling = 0;
        }
    }
}

void frmMain::setCaption()
{
    switch (c.v.Mode) {
    case Mode::ServiceSlip:
    case Mode::Meeting:
    case Mode::StoredSlips:
        setWindowTitle(QStringLiteral("Scheduling Screen"));
        break;
    case Mode::WorkSchedules:
        setWindowTitle(QStringLiteral("Print Setup Screen"));
        break;
    case Mode::Invoices:
        setWindowTitle(QStringLiteral("Print Invoices Screen"));
        break;
    default:
        break;
    }
}

void frmMain::fillService(const QString& text)
{
    QSignalBlocker block(cboService);
    cboService->clear();
    cboService->addItems(c.v.settings.cboProblems);
    cboService->setEditText(text);
}

void frmMain::fillTeams()
{
    {
        QSignalBlocker block(lstTeam);
        lstTeam->clear();
        for (int n = 1; n <= c.v.TeamCount(); ++n)
            lstTeam->addItem(c.v.gAssignTo[n]);
        if (c.v.Mode == Mode::WorkSchedules) lstTeam->addItem(QStringLiteral("All Teams"));
        if (lstTeam->count() > 0) lstTeam->setCurrentRow(0);
    }
    if (lstTeam->count() > 0) lstTeam_Change(0);
}

void frmMain::showCustomer()
{
    const DispatchingVariables& v = c.v;
    txtAccount->setText(v.current.account);
    txtName->setText(v.current.name);
    txtAddress1->setText(v.current.address1);
    txtAddress2->setText(v.current.address2);
    txtCityStateZip->setText(v.current.city + QStringLiteral(", ") + v.current.state + u' ' +
                             v.current.zip);
    txtPhone->setText(v.current.phone);
}

void frmMain::Calender_Change(const QDate& picked)
{
    Result<QDate> date = CalenderChange(c, picked);
    if (fail(date.status())) return;
    setCalendar(*date);
    m_currentDate = *date;
    // The contract events come with the team's change logic, which loads the day anew.
    if (lstTeam->currentRow() >= 0) lstTeam_Change(lstTeam->currentRow());
}

void frmMain::loadDay()
{
    Result<TeamDay> day = ReadTeamDay(c, m_currentDate, c.v.CurrentTeam, &m_dayIndex);
    if (fail(day.status())) return;
    m_day = std::move(*day);
    showGrid(m_day.slotTexts);
}

void frmMain::overlayContracts()
{
    Result<ContractOverlay> overlay =
        OverlayContractEvents(c, gridColumn(), m_currentDate, lstTeam->currentItem()->text());
    if (fail(overlay.status())) return;
    showGrid(overlay->grid);
    ShowOverlayMessages(c.dialogs, overlay->messages);
}

void frmMain::lstTeam_Change(int i)
{
    if (i >= 0 && i < c.v.TeamCount()) c.v.CurrentTeam = QString::number(i + 1);
    if (fraTeamCal->isVisible()) DrawTeamMonth();
    loadDay();
    if (lstTeam->currentItem()) fraTeamCal->txtCurrentTeam->setText(lstTeam->currentItem()->text());
    const Mode mode = c.v.Mode;
    if (mode == Mode::ServiceSlip || mode == Mode::Meeting) {
        for (int r = 0; r < 12; ++r)
            fgHours->grid()->setBackColor(r, 1, kGridYellow);
        if (lstTeam->currentItem()) overlayContracts();
    }
    if (mode == Mode::WorkSchedules)
        fgHours->setVisible(!(lstTeam->currentItem() && lstTeam->currentRow() >= c.v.TeamCount()));
    if (mode == Mode::Invoices) RebuildInvoiceChoices();
}

void frmMain::RebuildInvoiceChoices()
{
    const bool offered = ServiceOrderOffered(c.store);
    fraInvoiceType->setServiceOrderOffered(offered);
    fraInvoiceType->setInvoiceStyle(qint16(SetupInvoiceStyle(c.v, offered)));
}

void frmMain::mnuInvoiceStyle_Click()
{
    fraInvoiceType->setVisible(!fraInvoiceType->isVisible());
}

void frmMain::mnuMemo_Click()
{
    fraMemo->setVisible(!fraMemo->isVisible());
}

void frmMain::mnuBlankinvoices_Click()
{
    const std::optional<QString> typed =
        c.dialogs.input(QStringLiteral("Enter the Number of Blank Service Invoices\n"
                                       "that you would like Printed"),
                        QStringLiteral("Print Blank Invoices"), QString::number(BlankCount));
    if (!typed) return;
    const std::optional<int> count = ParseBlankCount(*typed);
    if (!count) {
        c.dialogs.message(BlankCountMessage(), QStringLiteral("Print Blank Invoices"));
        return;
    }
    BlankCount = *count;
}

void frmMain::UpDnTeam_Step(int step)
{
    const int next = lstTeam->currentRow() + step;
    if (next >= 0 && next < lstTeam->count())
        lstTeam->setCurrentRow(next); // runs the team's change logic
}

void frmMain::fgHours_Click(int row)
{
    m_gridRow = row;
    GridColumn grid = gridColumn();
    const GridClick click = ClickTimeGrid(c, BookingKind(c.v.Mode), grid, row,
                                          txtTime->text().trimmed().toInt(), SlipNumber, EventText);
    if (click == GridClick::Placed) showGrid(grid);
}

void frmMain::updnTime_Change(int step)
{
    const int before = txtTime->text().trimmed().toInt();
    const int hours = qBound(1, before + step, 12);
    // A press against either end changes nothing, so the placed event stays where it is.
    if (hours == before) return;
    txtTime->setText(QString::number(hours));
    ResetTimeSelection();
}

void frmMain::ResetTimeSelection()
{
    GridColumn grid = gridColumn();
    tresvane::ResetTimeSelection(grid, EventText);
    showGrid(grid);
    for (int r = 0; r < 12; ++r)
        fgHours->grid()->setBackColor(r, 1, kGridYellow);
}

void frmMain::cmdClear_Click()
{
    if (!BookingKind(c.v.Mode)) return;
    if (!c.dialogs.ask(QStringLiteral("This will reset the time selected for this event"),
                       QStringLiteral("Clearing Time Slots")))
        return;
    ResetTimeSelection();
    WriteSlots(c.v, gridColumn());
    fail(WriteDayFile(c, m_currentDate, c.v.CurrentTeam));
}

bool frmMain::cmdSave_Click()
{
    BookingRequest r;
    r.kind = BookingKind(c.v.Mode);
    r.team = c.v.CurrentTeam;
    r.date = Calender->selectedDate();
    // The day's file as the day on the grid was loaded; should that day not be the one
    // asked for, there is none, and the save is refused rather than written elsewhere.
    if (m_day.team == r.team && m_day.date == r.date) r.dayFile = m_day.file;
    r.customer = c.v.current;
    r.firstSlot = m_gridRow;
    r.hours = txtTime->text();
    r.unit = lblMode->text();
    r.problem = cboService->currentText();
    r.number = SlipNumber;
    r.eventText = EventText;
    r.unscheduled = ckSaveUnscheduled->isChecked();
    r.fromStoredSlip = FromStoredSlip == -1;
    r.storedSlipRow = m_storedSlipRow;
    r.rescheduledFrom = RescheduledFrom;
    if (!r.unscheduled) m_currentDate = r.date;
    if (EventText != NoSlotSelected()) cmdSaveTextMessage->setEnabled(true);

    Result<BookingSaved> saved = SaveBooking(c, r);
    if (fail(saved.status()) || *saved == BookingSaved::NoTimeSelected) return false;
    if (*saved == BookingSaved::Scheduled) RescheduledFrom.clear();
    if (*saved == BookingSaved::StoredUnscheduled) fgHours->setFocus();
    emit showMenu();
    return true;
}

bool frmMain::hasUnsavedEdits() const
{
    return isVisible() && BookingKind(c.v.Mode) && EventText != NoSlotSelected();
}

bool frmMain::saveUnsavedEdits()
{
    return cmdSave_Click();
}

void frmMain::cmdExit_Click()
{
    emit showMenu();
}

void frmMain::cmdView_Click()
{
    if (fraDay->isVisible()) {
        fraDay->hide();
        return;
    }
    BuildDayView();
    const QString team = lstTeam->currentItem() ? lstTeam->currentItem()->text() : QString();
    fraDay->setTitle(QStringLiteral("Work Schedule for ") + team + u' ' +
                     m_currentDate.toString(QStringLiteral("MM/dd/yyyy")));
    fraDay->show();
    fraDay->raise();
}

void frmMain::BuildDayView()
{
    fraDay->showView(DayViewOf(m_day.records, gridColumn()));
}

void frmMain::cmdSaveTextMessage_Click()
{
    m_desktop.setClipboardText(SlipTextMessage(c.v.gSlip, c.v));
    c.dialogs.message(SlipOnClipboardMessage());
}

void frmMain::cboService_LostFocus()
{
    const QString text = cboService->currentText();
    if (text.trimmed().isEmpty() || c.v.settings.cboProblems.contains(text)) return;
    if (!c.dialogs.ask(
            QStringLiteral("Would you like to add this\nDescription to your Dropdown list?"),
            QStringLiteral("New Problem Code")))
        return;
    QStringList problems = c.v.settings.cboProblems;
    problems.append(text);
    if (fail(SaveProblems(c, problems)) || fail(LoadProblems(c))) return;
    fillService(text);
    emit problemCodesChanged();
}

void frmMain::fraCustomer_Click()
{
    c.dialogs.message(QStringLiteral("Customer Data cannot be Altered\n"
                                     "If incorrect, cancel this Routine\n"
                                     "and edit the Customer Record"),
                      QStringLiteral("Customer Info"));
}

void frmMain::mnuTeamCal_Click()
{
    if (fraTeamCal->isVisible()) {
        fraTeamCal->hide();
        return;
    }
    fraTeamCal->show();
    fraTeamCal->raise();
    DrawTeamMonth();
}

void frmMain::DrawTeamMonth()
{
    Result<TeamMonth> month = tresvane::DrawTeamMonth(c, m_currentDate, c.v.CurrentTeam);
    if (fail(month.status())) return;
    fraTeamCal->showMonth(*month);
    if (lstTeam->currentItem()) fraTeamCal->txtCurrentTeam->setText(lstTeam->currentItem()->text());
}

void frmMain::Text1_Click(int box)
{
    const QDate date = MonthBoxDate(fraTeamCal->month(), m_currentDate, box);
    if (!date.isValid()) return;
    fraTeamCal->hide();
    setCalendar(date);
    Calender_Change(date);
}

void frmMain::cmdUnscheduled_Click(int index)
{
    switch (index) {
    case StoredSlipsFrame::CancelExit:
        emit showMenu();
        return;
    case StoredSlipsFrame::LoadSlip: {
        const int row = fraUnscheduled->selectedRecord();
        if (row < 1) return;
        // The slip's own record, not the list's cells: it carries the account, both
        // address lines and the problem text that the list does not show.
        Result<QString> problem = LoadStoredSlip(c, row);
        if (fail(problem.status())) return;
        fraUnscheduled->hide();
        c.v.Mode = Mode::ServiceSlip;
        Form_Activate();
        // Set after the activation, which starts every event afresh.
        cboService->setEditText(*problem);
        FromStoredSlip = -1;
        m_storedSlipRow = row;
        return;
    }
    case StoredSlipsFrame::DeleteSelected: {
        FromStoredSlip = 0;
        Result<bool> deleted = DeleteSelectedStoredSlip(c, fraUnscheduled->selectedRecord());
        fail(deleted.status());
        fraUnscheduled->fill(c.store);
        if (deleted && *deleted) emit showMenu();
        return;
    }
    case StoredSlipsFrame::DeleteAll:
        if (!c.dialogs.ask(QStringLiteral("This will Delete All Unscheduled Slip Records"),
                           QStringLiteral("File Deletion")))
            return;
        if (c.dialogs.ask(QStringLiteral("Are you Sure?"), QStringLiteral("Confirmation")))
            fail(c.store.KillWithBackup(UnscheduledSlipsFileName()));
        emit showMenu();
        return;
    default:
        return;
    }
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress &&
        (watched == fraCustomer || watched == txtAccount || watched == txtName ||
         watched == txtAddress1 || watched == txtAddress2 || watched == txtCityStateZip ||
         watched == txtPhone)) {
        fraCustomer_Click();
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched == fgHours) {
        // The keyboard places the event too: Enter or Space on the current row.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) &&
            fgHours->currentIndex().isValid()) {
            fgHours_Click(fgHours->currentIndex().row() + 1);
            return true;
        }
    }
    if (event->type() == QEvent::FocusOut && watched == cboService) {
        // A move of the focus into the box's own list is not leaving it.
        if (!cboService->view()->isVisible()) cboService_LostFocus();
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::mnuFindFreeTime_Click()
{
    if (!m_freeTime) {
        m_freeTime = new FreeTimeDialog(c, this);
        connect(m_freeTime, &FreeTimeDialog::openingChosen, this, &frmMain::GoToOpening);
    }
    m_freeTime->search(txtTime->text().trimmed().toInt(), m_currentDate, 0);
    m_freeTime->open();
}

void frmMain::GoToOpening(const FreeOpening& opening, int hours)
{
    if (opening.team < 1 || opening.team > lstTeam->count()) return;
    ResetTimeSelection();
    txtTime->setText(QString::number(hours));
    setCalendar(opening.date);
    Calender_Change(opening.date);
    if (lstTeam->currentRow() != opening.team - 1)
        lstTeam->setCurrentRow(opening.team - 1); // runs the team's change logic
    fgHours->setCurrentIndex(fgHours->model()->index(opening.firstSlot - 1, 1));
    fgHours_Click(opening.firstSlot);
    fgHours->setFocus();
}
} // namespace tresvane
