#include "screens/calendar/frmreccuringevents.h"

#include "core/io/sliprecord.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/numbering.h"
#include "core/schedule/timegrid.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/datecheck.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"
#include "screens/shell/updown.h"
#include "screens/shell/waitcursor.h"

#include <QApplication>
#include <QButtonGroup>
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
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
// The start time offered when the form is reset: 08:00am.
constexpr int kResetStartIndex = 2;
} // namespace

frmReccuringEvents::frmReccuringEvents(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmReccuringEvents"));
    setWindowTitle(QStringLiteral("Schedule a Recurring Event"));
    buildLayout();
    resize(1100, 680);
}

void frmReccuringEvents::buildLayout()
{
    // What kind of event, and for whom.
    auto* fraKind = new QGroupBox(QStringLiteral("Event Type"), this);
    optInvoice =
        named(new QRadioButton(QStringLiteral("This Event requires a Customer Invoice"), fraKind),
              QStringLiteral("optInvoice"));
    optNonBillable = named(
        new QRadioButton(
            QStringLiteral("This Event is Customer related, but no Invoice is required"), fraKind),
        QStringLiteral("optNonBillable"));
    optNoCustomer =
        named(new QRadioButton(
                  QStringLiteral("This Event is not Customer Related and no invoice is Required"),
                  fraKind),
              QStringLiteral("optNoCustomer"));
    optInvoice->setChecked(true);
    cmdCustomer = named(new QPushButton(QStringLiteral("Select C&ustomer"), fraKind),
                        QStringLiteral("cmdCustomer"));
    txtCustomer = named(new QLineEdit(fraKind), QStringLiteral("txtCustomer"));
    txtCustomer->setReadOnly(true);
    txtCustomer->setFocusPolicy(Qt::NoFocus);
    cmdContinue = named(new QPushButton(QStringLiteral("&Show Calendar"), fraKind),
                        QStringLiteral("cmdContinue"));
    auto* kindLayout = new QGridLayout(fraKind);
    kindLayout->addWidget(optInvoice, 0, 0, 1, 2);
    kindLayout->addWidget(optNonBillable, 1, 0, 1, 2);
    kindLayout->addWidget(optNoCustomer, 2, 0, 1, 2);
    kindLayout->addWidget(cmdCustomer, 3, 0);
    kindLayout->addWidget(txtCustomer, 3, 1);
    kindLayout->addWidget(cmdContinue, 4, 0, 1, 2);
    kindLayout->setColumnStretch(1, 1);

    auto* fraTeam = new QGroupBox(QStringLiteral("Assignment"), this);
    lstAssignto = named(new QListWidget(fraTeam), QStringLiteral("lstAssignto"));
    (new QVBoxLayout(fraTeam))->addWidget(lstAssignto);

    auto* fraTitle = new QGroupBox(QStringLiteral("Event Title"), this);
    cboEventTitle = named(new QComboBox(fraTitle), QStringLiteral("cboEventTitle"));
    cboEventTitle->setEditable(true);
    cboEventTitle->setInsertPolicy(QComboBox::NoInsert);
    cboEventTitle->lineEdit()->setMaxLength(SlipLayout().field(SlipField::Reference).width);
    WireKeyFilter(cboEventTitle, KeyFilterKind::Quote, c.dialogs);
    (new QVBoxLayout(fraTitle))->addWidget(cboEventTitle);

    // The dates.
    fraCalendar =
        named(new QGroupBox(QStringLiteral("Event Dates"), this), QStringLiteral("fraCalendar"));
    EventCalendar = named(new QCalendarWidget(fraCalendar), QStringLiteral("EventCalendar"));
    EventCalendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    EventCalendar->setGridVisible(true);
    EventCalendar->setFirstDayOfWeek(Qt::Sunday);
    lstEventDates = named(new QListWidget(fraCalendar), QStringLiteral("lstEventDates"));
    const QStringList captions{QStringLiteral("&Clear All"),
                               QStringLiteral("&Delete Date"),
                               QStringLiteral("&Schedule (may require double click)"),
                               QStringLiteral("&Menu"),
                               QStringLiteral("Select by Date &Range"),
                               QStringLiteral("Create"),
                               QStringLiteral("Hide")};
    for (int i = 0; i < int(CmdButton.size()); ++i) {
        CmdButton[i] =
            named(new QPushButton(captions[i], this), QStringLiteral("CmdButton_%1").arg(i));
        connect(CmdButton[i], &QPushButton::clicked, this, [this, i] { CmdButton_Click(i); });
    }
    auto* calendarLayout = new QGridLayout(fraCalendar);
    calendarLayout->addWidget(EventCalendar, 0, 0, 1, 2);
    calendarLayout->addWidget(new QLabel(QStringLiteral("Dates Selected"), fraCalendar), 1, 0, 1,
                              2);
    calendarLayout->addWidget(lstEventDates, 2, 0, 1, 2);
    calendarLayout->addWidget(CmdButton[0], 3, 0);
    calendarLayout->addWidget(CmdButton[1], 3, 1);
    // A larger window gives the month's days larger boxes as well as a longer date list.
    calendarLayout->setRowStretch(0, 3);
    calendarLayout->setRowStretch(2, 2);

    // The hours.
    auto* fraTime = new QGroupBox(QStringLiteral("Start Time"), this);
    auto* timeLayout = new QGridLayout(fraTime);
    auto* times = new QButtonGroup(this);
    for (int i = 0; i < 12; ++i) {
        optTime[i] = named(new QRadioButton(GridLabel(c.v, i + 1), fraTime),
                           QStringLiteral("optTime_%1").arg(i));
        times->addButton(optTime[i], i);
        timeLayout->addWidget(optTime[i], i % 6, i / 6);
    }
    txtTime = named(new QLineEdit(QStringLiteral("1"), fraTime), QStringLiteral("txtTime"));
    txtTime->setReadOnly(true);
    txtTime->setAlignment(Qt::AlignCenter);
    txtTime->setMaximumWidth(txtTime->fontMetrics().horizontalAdvance(u'0') * 4 + 16);
    updnTime = new UpDown(QStringLiteral("updnTime"), fraTime);
    auto* hoursRow = new QHBoxLayout;
    hoursRow->addWidget(new QLabel(QStringLiteral("Hours"), fraTime));
    hoursRow->addWidget(txtTime);
    hoursRow->addWidget(updnTime);
    hoursRow->addStretch(1);
    timeLayout->addLayout(hoursRow, 6, 0, 1, 2);

    fraRange = buildRange();
    fraConflict = buildConflicts();

    auto* left = new QVBoxLayout;
    left->addWidget(fraKind);
    left->addWidget(fraTitle);
    left->addWidget(fraTeam, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(fraTime);
    right->addWidget(fraRange);
    right->addStretch(1);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 3);
    columns->addWidget(fraCalendar, 3);
    columns->addLayout(right, 2);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(CmdButton[4]);
    buttons->addStretch(1);
    buttons->addWidget(CmdButton[2]);
    buttons->addWidget(CmdButton[3]);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addWidget(fraConflict);
    layout->addLayout(buttons);

    QList<QWidget*> chain{optInvoice,    optNonBillable, optNoCustomer, cmdCustomer,
                          cmdContinue,   cboEventTitle,  lstAssignto,   EventCalendar,
                          lstEventDates, CmdButton[0],   CmdButton[1]};
    for (QRadioButton* b : optTime)
        chain << b;
    chain << txtTime << updnTime->up << updnTime->down;
    for (QRadioButton* b : optDays)
        chain << b;
    chain << lstDays << dtStart << dtEnd << CmdButton[5] << fgConflict << CmdButton[6]
          << CmdButton[4] << CmdButton[2] << CmdButton[3];
    SetTabChain(chain);

    for (QRadioButton* b : {optInvoice, optNonBillable, optNoCustomer})
        connect(b, &QRadioButton::clicked, this, &frmReccuringEvents::optKind_Click);
    connect(cmdCustomer, &QPushButton::clicked, this, &frmReccuringEvents::customerWanted);
    connect(cmdContinue, &QPushButton::clicked, this, &frmReccuringEvents::cmdContinue_Click);
    connect(EventCalendar, &QCalendarWidget::clicked, this,
            &frmReccuringEvents::EventCalendar_Click);
    connect(EventCalendar, &QCalendarWidget::activated, this,
            &frmReccuringEvents::EventCalendar_Click);
    connect(times, &QButtonGroup::idClicked, this, [this] { checkHours(); });
    connect(updnTime, &UpDown::upClicked, this, [this] { updnTime_Change(1); });
    connect(updnTime, &UpDown::downClicked, this, [this] { updnTime_Change(-1); });
    connect(lstEventDates, &QListWidget::currentRowChanged, this,
            [this](int row) { CmdButton[1]->setEnabled(row >= 0); });
}

QGroupBox* frmReccuringEvents::buildRange()
{
    auto* frame =
        named(new QGroupBox(QStringLiteral("Date Range"), this), QStringLiteral("fraRange"));
    const QStringList captions{QStringLiteral("Every (7) Days"), QStringLiteral("Every (14) Days"),
                               QStringLiteral("Every Week on a Specific Day")};
    auto* layout = new QGridLayout(frame);
    for (int i = 0; i < 3; ++i) {
        optDays[i] =
            named(new QRadioButton(captions[i], frame), QStringLiteral("optDays_%1").arg(i));
        layout->addWidget(optDays[i], i, 0, 1, 2);
        connect(optDays[i], &QRadioButton::toggled, this,
                [this] { lstDays->setEnabled(optDays[2]->isChecked()); });
    }
    lstDays = named(new QListWidget(frame), QStringLiteral("lstDays"));
    lstDays->addItems({QStringLiteral("Sunday"), QStringLiteral("Monday"),
                       QStringLiteral("Tuesday"), QStringLiteral("Wednesday"),
                       QStringLiteral("Thursday"), QStringLiteral("Friday"),
                       QStringLiteral("Saturday")});
    optDays[0]->setChecked(true);
    lstDays->setEnabled(false);
    lstDays->setMaximumHeight(lstDays->sizeHintForRow(0) * 7 + 2 * lstDays->frameWidth() + 4);
    layout->addWidget(lstDays, 3, 0, 1, 2);
    auto dateBox = [this, frame](const char* name) {
        auto* box = named(new QDateEdit(frame), QString::fromLatin1(name));
        box->setCalendarPopup(true);
        box->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
        WireDateCheck(box, c.dialogs);
        return box;
    };
    dtStart = dateBox("dtStart");
    dtEnd = dateBox("dtEnd");
    layout->addWidget(new QLabel(QStringLiteral("Start Date"), frame), 4, 0);
    layout->addWidget(dtStart, 4, 1);
    layout->addWidget(new QLabel(QStringLiteral("End Date"), frame), 5, 0);
    layout->addWidget(dtEnd, 5, 1);
    layout->addWidget(CmdButton[5], 6, 1);
    frame->setVisible(false);
    return frame;
}

QGroupBox* frmReccuringEvents::buildConflicts()
{
    auto* frame = named(
        new QGroupBox(QStringLiteral("These Events could not be Scheduled due to a Time Conflict"),
                      this),
        QStringLiteral("fraConflict"));
    fgConflict = named(new FlexGrid(frame), QStringLiteral("fgConflict"));
    fgConflict->setHeadings({QStringLiteral("Date"), QStringLiteral("Time")});
    fgConflict->horizontalHeader()->setStretchLastSection(true);
    fgConflict->setMinimumHeight(fgConflict->fontMetrics().height() * 6);
    auto* layout = new QHBoxLayout(frame);
    layout->addWidget(fgConflict, 1);
    layout->addWidget(CmdButton[6], 0, Qt::AlignBottom);
    frame->setVisible(false);
    return frame;
}

void frmReccuringEvents::Form_Activate()
{
    {
        QSignalBlocker block(lstAssignto);
        lstAssignto->clear();
        for (int n = 1; n <= c.v.TeamCount(); ++n)
            lstAssignto->addItem(c.v.gAssignTo[n]);
        if (lstAssignto->count() > 0) lstAssignto->setCurrentRow(0);
    }
    {
        // The titles offered are the services of the price list; any other may be typed.
        QSignalBlocker block(cboEventTitle);
        cboEventTitle->clear();
        cboEventTitle->addItems(c.v.settings.lstServices);
    }
    optKind_Click();
    fraCalendar->setVisible(false);
    fraRange->setVisible(false);
    fraConflict->setVisible(false);
    ResetForm();
    cmdContinue->setFocus();
}

void frmReccuringEvents::StartWithoutCustomer()
{
    c.v.current = {};
    optInvoice->setChecked(true);
}

void frmReccuringEvents::ResetForm()
{
    m_dates.clear();
    m_range = {};
    m_fromRange = false;
    showDates();
    cboEventTitle->setEditText(QString());
    optTime[kResetStartIndex]->setChecked(true);
    txtTime->setText(QStringLiteral("1"));
    const QDate today = c.clock.today();
    dtStart->setDate(today.addDays(-1));
    dtEnd->setDate(today);
    EventCalendar->setSelectedDate(today);
}

RecurringKind frmReccuringEvents::kind() const
{
    if (optNonBillable->isChecked()) return RecurringKind::NonBillable;
    if (optNoCustomer->isChecked()) return RecurringKind::NoCustomer;
    return RecurringKind::Invoice;
}

int frmReccuringEvents::startSlot() const
{
    for (int i = 0; i < 12; ++i)
        if (optTime[i]->isChecked()) return i + 1;
    return kResetStartIndex + 1;
}

int frmReccuringEvents::hours() const
{
    return std::max(1, txtTime->text().toInt());
}

RecurringEvent frmReccuringEvents::event() const
{
    RecurringEvent e;
    e.kind = kind();
    e.title = cboEventTitle->currentText().trimmed();
    e.team = lstAssignto->currentRow() + 1;
    e.startSlot = startSlot();
    e.hours = hours();
    return e;
}

void frmReccuringEvents::optKind_Click()
{
    const bool customer = kind() != RecurringKind::NoCustomer;
    if (!customer) {
        // Not for a customer: the customer in hand plays no part.
        c.v.current = {};
    }
    cmdCustomer->setEnabled(customer);
    txtCustomer->setText(c.v.current.name);
}

void frmReccuringEvents::cmdContinue_Click()
{
    if (kind() != RecurringKind::NoCustomer && c.v.current.name.trimmed().isEmpty()) {
        c.dialogs.message(QStringLiteral("You Must Select a Customer"));
        cmdCustomer->setFocus();
        return;
    }
    fraCalendar->setVisible(true);
    EventCalendar->setFocus();
}

void frmReccuringEvents::checkHours()
{
    if (CheckEventHours(c, startSlot(), hours())) return;
    txtTime->setText(QStringLiteral("1"));
    txtTime->setFocus();
}

void frmReccuringEvents::updnTime_Change(int step)
{
    const int wanted = std::clamp(hours() + step, 1, 12);
    txtTime->setText(QString::number(wanted));
    checkHours();
}

void frmReccuringEvents::EventCalendar_Click(const QDate& date)
{
    if (lstAssignto->currentRow() < 0) return;
    Result<DateCheck> check = CheckEventDate(c, date, event(), m_dates);
    if (!check) {
        c.dialogs.message(check.message());
        return;
    }
    if (*check != DateCheck::Added) return;
    m_dates.append(date);
    m_fromRange = false;
    showDates();
}

void frmReccuringEvents::showDates()
{
    lstEventDates->clear();
    for (const QDate& date : m_dates)
        lstEventDates->addItem(FormatShortDate(date));
    CmdButton[1]->setEnabled(false);
}

void frmReccuringEvents::CmdButton_Click(int index)
{
    switch (index) {
    case 0:
        m_dates.clear();
        showDates();
        break;
    case 1:
        if (const int row = lstEventDates->currentRow(); row >= 0 && row < m_dates.size()) {
            m_dates.removeAt(row);
            showDates();
        }
        break;
    case 2:
        Schedule();
        break;
    case 3:
        if (Status s = SaveCounter(c); !s) c.dialogs.message(s.message());
        hide();
        emit showMenu();
        break;
    case 4: {
        m_dates.clear();
        showDates();
        const QDate today = c.clock.today();
        dtStart->setDate(today);
        dtEnd->setDate(today);
        fraRange->setVisible(true);
        dtStart->setFocus();
        break;
    }
    case 5:
        Create();
        break;
    case 6:
        fraConflict->setVisible(false);
        break;
    default:
        break;
    }
}

void frmReccuringEvents::Create()
{
    fraRange->setVisible(false);
    RangeFrequency frequency = RangeFrequency::Every7Days;
    if (optDays[1]->isChecked()) frequency = RangeFrequency::Every14Days;
    if (optDays[2]->isChecked()) frequency = RangeFrequency::WeekdayEachWeek;
    // The list runs from Sunday; Qt counts weekdays from Monday (1) to Sunday (7).
    const int row = lstDays->currentRow();
    const int weekday = row < 0 ? 0 : (row == 0 ? Qt::Sunday : row);
    Result<RangeDates> range = DatesInRange(dtStart->date(), dtEnd->date(), frequency, weekday,
                                            c.clock.today(), c.v.gWorkDays);
    if (!range) {
        c.dialogs.message(range.message());
        fraRange->setVisible(true);
        return;
    }
    m_dates = range->dates;
    m_range = *range;
    m_fromRange = true;
    showDates();
    if (m_dates.isEmpty()) {
        c.dialogs.message(LeftOutMessage(m_range));
        return;
    }
    Schedule();
}

void frmReccuringEvents::Schedule()
{
    fgConflict->setRows({});
    if (cboEventTitle->currentText().trimmed().isEmpty()) {
        if (c.v.gAlarms) c.dialogs.beep();
        cboEventTitle->setFocus();
        return;
    }
    if (m_dates.isEmpty() || lstAssignto->currentRow() < 0) {
        if (c.v.gAlarms) c.dialogs.beep();
        return;
    }
    if (kind() != RecurringKind::NoCustomer && c.v.current.name.trimmed().isEmpty()) {
        c.dialogs.message(QStringLiteral("You Must Select a Customer"));
        cmdCustomer->setFocus();
        return;
    }
    if (!CheckEventHours(c, startSlot(), hours())) return;

    Result<ScheduledSeries> series = [&] {
        WaitCursor wait;
        return ScheduleRecurringEvents(c, event(), m_dates);
    }();
    if (!series) {
        c.dialogs.message(series.message());
        return;
    }
    c.dialogs.message(QStringLiteral("Events have been Scheduled"));
    if (m_fromRange)
        if (const QString leftOut = LeftOutMessage(m_range); !leftOut.isEmpty())
            c.dialogs.message(leftOut, QStringLiteral("Dates Left Out"));
    // The dates are booked: a second press of the button finds none to book again.
    m_dates.clear();
    showDates();
    if (series->conflicts.isEmpty()) {
        ResetForm();
        return;
    }
    QList<QStringList> rows;
    for (const EventConflict& conflict : series->conflicts)
        rows.append({FormatShortDate(conflict.date), GridLabel(c.v, conflict.slot)});
    fgConflict->setRows(std::move(rows));
    fraConflict->setVisible(true);
}
} // namespace tresvane
