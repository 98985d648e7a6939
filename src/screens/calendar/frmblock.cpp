#include "screens/calendar/frmblock.h"

#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/datecheck.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"
#include "screens/shell/waitcursor.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
// The farthest ahead a day can be blocked.
constexpr int kDaysAhead = 700;
// The most consecutive work days one request blocks.
constexpr int kMostDays = 30;
} // namespace

frmBlock::frmBlock(CoreContext& ctx, QWidget* parent) : QMainWindow(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmBlock"));
    setWindowTitle(QStringLiteral("Holiday and Vacation Days"));
    buildLayout();
    resize(900, 680);
}

void frmBlock::buildLayout()
{
    mnuBlocked = menuBar()->addAction(QStringLiteral("&Blocked Days"));
    mnuBlocked->setObjectName(QStringLiteral("mnuBlocked"));

    auto* central = new QWidget(this);
    setCentralWidget(central);

    auto* fraDate = new QGroupBox(QStringLiteral("First Day"), central);
    Calender = named(new QCalendarWidget(fraDate), QStringLiteral("Calender"));
    Calender->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    Calender->setGridVisible(true);
    Calender->setFirstDayOfWeek(Qt::Sunday);
    (new QVBoxLayout(fraDate))->addWidget(Calender);

    auto* fraAction = new QGroupBox(QStringLiteral("Action"), central);
    optAction[0] = named(
        new QRadioButton(QStringLiteral("Reserve Days (Prevents work Scheduling)"), fraAction),
        QStringLiteral("optAction_0"));
    optAction[1] =
        named(new QRadioButton(QStringLiteral("Restore Days (Clears previous Blocks)"), fraAction),
              QStringLiteral("optAction_1"));
    auto* action = new QVBoxLayout(fraAction);
    action->addWidget(optAction[0]);
    action->addWidget(optAction[1]);

    auto* fraReason = new QGroupBox(QStringLiteral("Reason"), central);
    lstReason = named(new QComboBox(fraReason), QStringLiteral("lstReason"));
    lstReason->setEditable(true);
    lstReason->setInsertPolicy(QComboBox::NoInsert);
    lstReason->addItems(BlockReasons());
    (new QVBoxLayout(fraReason))->addWidget(lstReason);

    auto* fraDays = new QGroupBox(QStringLiteral("Consecutive Work Days"), central);
    sldTimeReq = named(new QSlider(Qt::Horizontal, fraDays), QStringLiteral("sldTimeReq"));
    sldTimeReq->setRange(1, kMostDays);
    sldTimeReq->setPageStep(5);
    txtTimeReq = named(new QLineEdit(QStringLiteral("1"), fraDays), QStringLiteral("txtTimeReq"));
    txtTimeReq->setReadOnly(true);
    txtTimeReq->setAlignment(Qt::AlignCenter);
    txtTimeReq->setMaximumWidth(txtTimeReq->fontMetrics().horizontalAdvance(u'0') * 4 + 16);
    txtTimeReq->setFocusPolicy(Qt::NoFocus);
    auto* days = new QHBoxLayout(fraDays);
    days->addWidget(sldTimeReq, 1);
    days->addWidget(txtTimeReq);

    auto* fraTeam = new QGroupBox(QStringLiteral("Assignment"), central);
    lstAssignto = named(new QListWidget(fraTeam), QStringLiteral("lstAssignto"));
    (new QVBoxLayout(fraTeam))->addWidget(lstAssignto);

    CmdAccept =
        named(new QPushButton(QStringLiteral("&Accept"), central), QStringLiteral("CmdAccept"));
    CmdAccept->setDefault(true);
    cmdCancel =
        named(new QPushButton(QStringLiteral("&Cancel"), central), QStringLiteral("cmdCancel"));
    cmdExit = named(new QPushButton(QStringLiteral("&Menu"), central), QStringLiteral("cmdExit"));

    fraBlockedDays = buildBlockedDays();

    auto* right = new QVBoxLayout;
    right->addWidget(fraAction);
    right->addWidget(fraReason);
    right->addWidget(fraDays);
    right->addWidget(fraTeam, 1);

    auto* top = new QHBoxLayout;
    top->addWidget(fraDate);
    top->addLayout(right, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(CmdAccept);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdExit);

    auto* layout = new QVBoxLayout(central);
    layout->addLayout(top);
    layout->addWidget(fraBlockedDays, 1);
    layout->addLayout(buttons);

    SetTabChain({Calender, optAction[0], optAction[1], lstReason, sldTimeReq, lstAssignto,
                 DTStartSearch, DTEndSearch, cmdSearch, cmdClearGrid, cmdHideGrid, FGBlocked,
                 CmdAccept, cmdCancel, cmdExit});

    connect(Calender, &QCalendarWidget::selectionChanged, this, [this] {
        if (!m_settingCalendar) Calender_Change(Calender->selectedDate());
    });
    connect(optAction[0], &QRadioButton::clicked, this, [this] { optAction_Click(0); });
    connect(optAction[1], &QRadioButton::clicked, this, [this] { optAction_Click(1); });
    connect(lstReason->lineEdit(), &QLineEdit::textEdited, this, &frmBlock::lstReason_Edited);
    connect(sldTimeReq, &QSlider::valueChanged, this,
            [this](int n) { txtTimeReq->setText(QString::number(n)); });
    connect(CmdAccept, &QPushButton::clicked, this, &frmBlock::CmdAccept_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmBlock::Initform);
    connect(cmdExit, &QPushButton::clicked, this, [this] {
        hide();
        emit showMenu();
    });
    connect(mnuBlocked, &QAction::triggered, this,
            [this] { fraBlockedDays->setVisible(!fraBlockedDays->isVisible()); });
}

QGroupBox* frmBlock::buildBlockedDays()
{
    auto* frame = named(new QGroupBox(QStringLiteral("Blocked Days"), centralWidget()),
                        QStringLiteral("fraBlockedDays"));
    FGBlocked = named(new FlexGrid(frame), QStringLiteral("FGBlocked"));
    FGBlocked->setHeadings(
        {QStringLiteral("Assignment"), QStringLiteral("Date"), QStringLiteral("Reason")});
    FGBlocked->horizontalHeader()->setStretchLastSection(true);
    FGBlocked->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    // Room for a week of blocked days before the grid scrolls.
    FGBlocked->setMinimumHeight(FGBlocked->verticalHeader()->defaultSectionSize() * 6 +
                                FGBlocked->horizontalHeader()->sizeHint().height() +
                                2 * FGBlocked->frameWidth());
    auto dateBox = [this, frame](const char* name) {
        auto* box = named(new QDateEdit(frame), QString::fromLatin1(name));
        box->setCalendarPopup(true);
        box->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
        WireDateCheck(box, c.dialogs);
        return box;
    };
    DTStartSearch = dateBox("DTStartSearch");
    DTEndSearch = dateBox("DTEndSearch");
    cmdSearch =
        named(new QPushButton(QStringLiteral("&Load Grid"), frame), QStringLiteral("cmdSearch"));
    cmdClearGrid = named(new QPushButton(QStringLiteral("C&lear Grid"), frame),
                         QStringLiteral("cmdClearGrid"));
    cmdHideGrid =
        named(new QPushButton(QStringLiteral("&Hide Grid"), frame), QStringLiteral("cmdHideGrid"));

    auto* search = new QHBoxLayout;
    search->addWidget(new QLabel(QStringLiteral("From"), frame));
    search->addWidget(DTStartSearch);
    search->addWidget(new QLabel(QStringLiteral("To"), frame));
    search->addWidget(DTEndSearch);
    search->addWidget(cmdSearch);
    search->addWidget(cmdClearGrid);
    search->addStretch(1);
    search->addWidget(cmdHideGrid);
    auto* layout = new QVBoxLayout(frame);
    layout->addLayout(search);
    layout->addWidget(FGBlocked, 1);

    connect(cmdSearch, &QPushButton::clicked, this, &frmBlock::cmdSearch_Click);
    connect(cmdClearGrid, &QPushButton::clicked, this, [this] { FGBlocked->setRows({}); });
    connect(cmdHideGrid, &QPushButton::clicked, frame, &QWidget::hide);
    frame->setVisible(false);
    return frame;
}

void frmBlock::Form_Activate()
{
    {
        QSignalBlocker block(lstAssignto);
        lstAssignto->clear();
        for (int n = 1; n <= c.v.TeamCount(); ++n)
            lstAssignto->addItem(c.v.gAssignTo[n]);
        // Last, after the teams: the one entry that runs the request for every team.
        lstAssignto->addItem(QStringLiteral("All Assignments"));
        lstAssignto->setCurrentRow(0);
    }
    const QDate today = c.clock.today();
    Calender->setMinimumDate(today);
    Calender->setMaximumDate(today.addDays(kDaysAhead));
    DTStartSearch->setDate(today);
    DTEndSearch->setDate(today.addMonths(1));
    Initform();
    Calender->setFocus();
}

void frmBlock::Initform()
{
    QDate first = NextBookingDate(c.clock);
    Calender_Change(NextWorkDay(c.v, first));
    optAction[0]->setChecked(true);
    optAction_Click(0);
    sldTimeReq->setValue(1);
    txtTimeReq->setText(QStringLiteral("1"));
    fraBlockedDays->setVisible(false);
}

void frmBlock::setCalendar(const QDate& date)
{
    m_settingCalendar = true;
    Calender->setSelectedDate(date);
    m_settingCalendar = false;
}

void frmBlock::Calender_Change(const QDate& picked)
{
    Result<QDate> date = BlockStartDate(c, picked);
    if (!date) {
        c.dialogs.message(date.message());
        return;
    }
    m_date = *date;
    setCalendar(m_date);
}

void frmBlock::optAction_Click(int index)
{
    if (index == 0) {
        // Reserving: a reason to write, the first one offered.
        lstReason->setEnabled(true);
        lstReason->setCurrentIndex(0);
        lstReason->setEditText(BlockReasons().value(0));
    } else {
        // Restoring is the same run with the free words as its reason.
        lstReason->setEditText(NoEventScheduled());
        lstReason->setEnabled(false);
    }
    m_lastReason = lstReason->currentText();
}

void frmBlock::lstReason_Edited(const QString& text)
{
    // A reason is written bare on each hour of the day file: a comma there would split
    // the line, so it never gets into the box.
    if (Status s = CheckBlockReason(text); !s && !text.trimmed().isEmpty()) {
        if (c.v.gAlarms) c.dialogs.beep();
        c.dialogs.message(s.message(), QStringLiteral("Invalid Key entry"));
        lstReason->setEditText(m_lastReason);
        return;
    }
    m_lastReason = text;
}

BlockRequest frmBlock::request() const
{
    BlockRequest r;
    r.start = m_date;
    r.days = sldTimeReq->value();
    r.restore = optAction[1]->isChecked();
    r.reason = lstReason->currentText().trimmed();
    return r;
}

void frmBlock::CmdAccept_Click()
{
    Calender_Change(Calender->selectedDate());
    const BlockRequest r = request();
    if (!r.restore)
        if (Status s = CheckBlockReason(r.reason); !s) {
            c.dialogs.message(s.message());
            lstReason->setFocus();
            return;
        }
    const int index = lstAssignto->currentRow();
    if (index < 0) return;
    const bool all = index == lstAssignto->count() - 1;
    if (!c.dialogs.ask(BlockQuestion(r, lstAssignto->item(index)->text()),
                       QStringLiteral("Action Selection"))) {
        Initform();
        return;
    }
    QString problem;
    QList<int> refused;
    {
        WaitCursor wait;
        if (all) {
            Result<QList<int>> teams = BlockAllTeams(c, r);
            if (teams)
                refused = *teams;
            else
                problem = teams.message();
        } else {
            Result<bool> done = BlockTeamDays(c, r, index + 1);
            if (!done) problem = done.message();
        }
    }
    if (!problem.isEmpty()) {
        c.dialogs.message(problem);
        return;
    }
    if (!refused.isEmpty()) {
        // Each refusal was told as it came; with every team at once, which ones were left
        // unchanged is said once more together.
        QStringList names;
        for (int team : refused)
            names << c.v.gAssignTo.value(team);
        c.dialogs.message(QStringLiteral("These Assignments were left unchanged:\n") +
                              names.join(u'\n'),
                          QStringLiteral("Can't Block or UnBlock This Time"));
    }
}

void frmBlock::cmdSearch_Click()
{
    Result<QList<BlockedDayRow>> found =
        FindBlockedDays(c, DTStartSearch->date(), DTEndSearch->date());
    if (!found) {
        c.dialogs.message(found.message());
        return;
    }
    QList<QStringList> rows;
    for (const BlockedDayRow& row : *found)
        rows.append({row.team, FormatShortDate(row.date), row.reason});
    FGBlocked->setRows(std::move(rows));
}
} // namespace tresvane
