#include "screens/calendar/frmdisplay.h"

#include "core/calendar/slippopup.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/timegrid.h"
#include "core/state/dispatchingvariables.h"
#include "screens/calendar/frmslip.h"
#include "screens/shell/datecheck.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"
#include "screens/shell/updown.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
// The light yellow of the day grids.
const QColor kGridYellow(0xFF, 0xFF, 0xC0);
} // namespace

frmDisplay::frmDisplay(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmDisplay"));
    setWindowTitle(QStringLiteral("Work Schedules"));
    buildLayout();
    // A window of its own, with a Tab order of its own; modal over the whole program.
    m_popup = new frmSlip(c);
    resize(1180, 640);
}

frmDisplay::~frmDisplay()
{
    delete m_popup;
}

void frmDisplay::buildLayout()
{
    lstTeams = named(new QListWidget(this), QStringLiteral("lstTeams"));
    lstTeams->setFlow(QListView::LeftToRight);
    lstTeams->setWrapping(true);
    lstTeams->setSpacing(2);
    lstTeams->setMaximumHeight(lstTeams->fontMetrics().height() * 2 + 16);
    DTPicker1 = named(new QDateEdit(this), QStringLiteral("DTPicker1"));
    DTPicker1->setCalendarPopup(true);
    DTPicker1->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    WireDateCheck(DTPicker1, c.dialogs);
    UpDown1 = new UpDown(QStringLiteral("UpDown1"), this);
    cmdSchedule =
        named(new QPushButton(QStringLiteral("&Menu"), this), QStringLiteral("cmdSchedule"));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Teams"), this));
    top->addWidget(lstTeams, 1);
    top->addSpacing(12);
    top->addWidget(new QLabel(QStringLiteral("Date"), this));
    top->addWidget(DTPicker1);
    top->addWidget(UpDown1);

    auto* board = new QGridLayout;
    board->setHorizontalSpacing(8);
    for (int i = 0; i < kBoardTeams; ++i) {
        lblTeam[i] = named(new QLabel(this), QStringLiteral("lblTeam_%1").arg(i + 1));
        lblTeam[i]->setAlignment(Qt::AlignCenter);
        QFont bold = lblTeam[i]->font();
        bold.setBold(true);
        lblTeam[i]->setFont(bold);
        FlexGrid* grid = named(new FlexGrid(this), QStringLiteral("fgHours_%1").arg(i + 1));
        grid->setHeadings({QStringLiteral("Time"), QStringLiteral("Scheduled Event")});
        grid->grid()->setRowCount(12);
        grid->grid()->setColumnAlignment(0, Qt::AlignCenter);
        grid->grid()->setColumnAlignment(1, Qt::AlignLeft | Qt::AlignVCenter);
        grid->setSelectionMode(QAbstractItemView::SingleSelection);
        grid->setSelectionBehavior(QAbstractItemView::SelectRows);
        grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
        grid->horizontalHeader()->setStretchLastSection(true);
        grid->verticalHeader()->setMinimumSectionSize(grid->fontMetrics().height() + 6);
        grid->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        QPalette p = grid->palette();
        p.setColor(QPalette::Base, kGridYellow);
        grid->setPalette(p);
        for (int r = 1; r <= 12; ++r)
            grid->setTextMatrix(r - 1, 0, GridLabel(c.v, r));
        fgHours[i] = grid;
        board->addWidget(lblTeam[i], 0, i);
        board->addWidget(grid, 1, i);
        board->setColumnStretch(i, 1);
        connect(grid, &QAbstractItemView::clicked, this,
                [this, i](const QModelIndex& index) { fgHours_Click(i, index.row() + 1); });
        connect(grid, &QAbstractItemView::activated, this,
                [this, i](const QModelIndex& index) { fgHours_Click(i, index.row() + 1); });
    }
    board->setRowStretch(1, 1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(new QLabel(QStringLiteral("Click on a Service Attention or a Meeting to "
                                                "see its Slip"),
                                 this));
    bottom->addStretch(1);
    bottom->addWidget(cmdSchedule);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(board, 1);
    layout->addLayout(bottom);

    QList<QWidget*> chain{lstTeams, DTPicker1, UpDown1->up, UpDown1->down};
    for (FlexGrid* grid : fgHours)
        chain << grid;
    chain << cmdSchedule;
    SetTabChain(chain);

    connect(lstTeams, &QListWidget::currentRowChanged, this, [this] { ShowPage(); });
    connect(DTPicker1, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        if (!m_settingDate) DTPicker1_Change(d);
    });
    connect(UpDown1, &UpDown::upClicked, this,
            [this] { DTPicker1->setDate(DTPicker1->date().addDays(1)); });
    connect(UpDown1, &UpDown::downClicked, this,
            [this] { DTPicker1->setDate(DTPicker1->date().addDays(-1)); });
    connect(cmdSchedule, &QPushButton::clicked, this, [this] {
        hide();
        emit showMenu();
    });
}

void frmDisplay::Form_Activate()
{
    if (!c.store.FileExists(QStringLiteral("/Assignto.txt"))) {
        c.dialogs.beep();
        c.dialogs.message(QStringLiteral("No assignments Found"));
        emit exitProgram();
        return;
    }
    for (FlexGrid* grid : fgHours)
        for (int r = 1; r <= 12; ++r)
            grid->setTextMatrix(r - 1, 0, GridLabel(c.v, r));
    m_date = c.clock.today();
    {
        QSignalBlocker block(lstTeams);
        lstTeams->clear();
        lstTeams->addItems(BoardPages(c.v.TeamCount()));
        if (lstTeams->count() > 0) lstTeams->setCurrentRow(0);
    }
    m_settingDate = true;
    DTPicker1->setDate(m_date);
    m_settingDate = false;
    ShowPage();
    lstTeams->setFocus();
}

void frmDisplay::ClearGrids()
{
    for (int i = 0; i < kBoardTeams; ++i) {
        m_page[i] = BoardColumn{};
        m_page[i].day = FreeDay();
        for (int r = 1; r <= 12; ++r)
            fgHours[i]->setTextMatrix(r - 1, 1, NoEventScheduled());
        fgHours[i]->clearSelection();
    }
}

void frmDisplay::ShowPage()
{
    ClearGrids();
    const int page = lstTeams->currentRow();
    if (page < 0) {
        for (QLabel* label : lblTeam)
            label->clear();
        return;
    }
    Result<BoardPage> read = ReadBoardPage(c, m_date, page);
    if (!read) {
        c.dialogs.message(read.message());
        return;
    }
    m_page = *read;
    for (int i = 0; i < kBoardTeams; ++i) {
        lblTeam[i]->setText(m_page[i].name);
        for (int r = 1; r <= 12; ++r)
            fgHours[i]->setTextMatrix(r - 1, 1, m_page[i].day[r - 1]);
    }
}

void frmDisplay::DTPicker1_Change(const QDate& date)
{
    const QDate today = c.clock.today();
    if (!date.isValid() || date < today) {
        c.dialogs.beep();
        ClearGrids();
        m_settingDate = true;
        DTPicker1->setDate(today);
        m_settingDate = false;
        m_date = today;
        c.dialogs.message(QStringLiteral("Date selection cannot be before today"));
        ShowPage();
        return;
    }
    m_date = date;
    ShowPage();
}

void frmDisplay::fgHours_Click(int place, int row)
{
    if (place < 0 || place >= kBoardTeams || row < 1 || row > 12) return;
    const BoardColumn& column = m_page[place];
    const QString text = column.day[row - 1];
    const SlotFile file = ClickedSlotFile(c.store, text);
    if (file == SlotFile::FreeHour) {
        c.dialogs.beep();
        return;
    }
    if (file == SlotFile::None || column.team == 0) return;
    m_popup->ShowSlip({file, m_date, column.team, row, text}, column.name);
}
} // namespace tresvane
