#include "screens/history/frmhistory.h"

#include "core/history/historyview.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "screens/shell/datecheck.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/taborder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
QPushButton* button(const QString& caption, const QString& name, QWidget* parent)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    return b;
}

FlexGrid* historyGrid(const QString& name, const QStringList& headings, QWidget* parent)
{
    auto* grid = new FlexGrid(parent);
    grid->setObjectName(name);
    grid->setHeadings(headings);
    grid->setColumnWidth(0, 90);
    grid->setColumnWidth(1, 170);
    grid->setColumnWidth(2, 85);
    grid->setColumnWidth(3, 260);
    return grid;
}
} // namespace

frmHistory::frmHistory(CoreContext& ctx, QWidget* parent)
    : QWidget(parent), dates(ctx.clock.today()), c(ctx)
{
    setObjectName(QStringLiteral("frmHistory"));
    setWindowTitle(QStringLiteral("Account Service and Billing History"));

    cboAccounts = new QComboBox(this);
    cboAccounts->setObjectName(QStringLiteral("cboAccounts"));
    cboAccounts->setEditable(true);
    cboAccounts->setInsertPolicy(QComboBox::NoInsert);
    cboAccounts->setMinimumWidth(180);
    ckAccount = new QCheckBox(QStringLiteral("This Account Only"), this);
    ckAccount->setObjectName(QStringLiteral("ckAccount"));

    const QStringList captions{QStringLiteral("&L M"), QStringLiteral("M&TD"),
                               QStringLiteral("&YTD"), QStringLiteral("&Eternity")};
    const QStringList tips{QStringLiteral("Generates a Report for last Month"),
                           QStringLiteral("Generates a Report for this Month"),
                           QStringLiteral("Generates a Report for Current Year"),
                           QStringLiteral("Generates a Report from 1990 to present day")};
    for (int i = 0; i < 4; ++i) {
        cmdIncome[i] = button(captions[i], QStringLiteral("cmdIncome_%1").arg(i), this);
        cmdIncome[i]->setToolTip(tips[i]);
        connect(cmdIncome[i], &QPushButton::clicked, this, [this, i] { cmdIncome_Click(i); });
    }
    for (int i = 0; i < 2; ++i) {
        DTPicker1[i] = new QDateEdit(this);
        DTPicker1[i]->setObjectName(QStringLiteral("DTPicker1_%1").arg(i));
        DTPicker1[i]->setCalendarPopup(true);
        DTPicker1[i]->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
        DTPicker1[i]->setMinimumDate(QDate(1601, 1, 1));
        WireDateCheck(DTPicker1[i], c.dialogs);
        connect(DTPicker1[i], &QDateEdit::dateChanged, this, [this, i] {
            if (!m_settingDates) DTPicker1_Change(i);
        });
    }
    cmdLoad = button(QStringLiteral("&Show History"), QStringLiteral("cmdLoad"), this);
    cmdHistory[0] =
        button(QStringLiteral("&Purge All Accounts History"), QStringLiteral("cmdHistory_0"), this);
    cmdHistory[1] =
        button(QStringLiteral("Purge &Account History"), QStringLiteral("cmdHistory_1"), this);
    cmdReturn = button(QStringLiteral("&Return"), QStringLiteral("cmdReturn"), this);

    fgSHistory =
        historyGrid(QStringLiteral("fgSHistory"),
                    {QStringLiteral("Account"), QStringLiteral("Name"), QStringLiteral("Date"),
                     QStringLiteral("Service"), QStringLiteral("Note")},
                    this);
    fgHistory =
        historyGrid(QStringLiteral("fgHistory"),
                    {QStringLiteral("Account"), QStringLiteral("Name"), QStringLiteral("Date"),
                     QStringLiteral("Description"), QStringLiteral("Amount")},
                    this);
    fgHistory->grid()->setColumnAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
    lblTotal = new QLabel(FormatCurrency(0), this);
    lblTotal->setObjectName(QStringLiteral("lblTotal"));
    lblTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Account"), this));
    top->addWidget(cboAccounts, 1);
    top->addWidget(ckAccount);
    top->addSpacing(12);
    top->addWidget(new QLabel(QStringLiteral("From"), this));
    top->addWidget(DTPicker1[0]);
    top->addWidget(new QLabel(QStringLiteral("To"), this));
    top->addWidget(DTPicker1[1]);
    top->addWidget(cmdLoad);

    auto* presets = new QHBoxLayout;
    for (QPushButton* b : cmdIncome)
        presets->addWidget(b);
    presets->addStretch(1);
    presets->addWidget(cmdHistory[0]);
    presets->addWidget(cmdHistory[1]);

    auto* service = new QGroupBox(QStringLiteral("Service History"), this);
    auto* serviceLayout = new QVBoxLayout(service);
    serviceLayout->addWidget(fgSHistory);
    auto* ledger = new QGroupBox(QStringLiteral("Billing History"), this);
    auto* ledgerLayout = new QVBoxLayout(ledger);
    ledgerLayout->addWidget(fgHistory);
    auto* totalRow = new QHBoxLayout;
    totalRow->addStretch(1);
    totalRow->addWidget(new QLabel(QStringLiteral("Total"), this));
    totalRow->addWidget(lblTotal);
    ledgerLayout->addLayout(totalRow);

    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(cmdReturn);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(presets);
    layout->addWidget(service, 1);
    layout->addWidget(ledger, 1);
    layout->addLayout(bottom);

    QList<QWidget*> chain{cboAccounts, ckAccount, DTPicker1[0], DTPicker1[1], cmdLoad};
    for (QPushButton* b : cmdIncome)
        chain << b;
    chain << cmdHistory[0] << cmdHistory[1] << fgSHistory << fgHistory << cmdReturn;
    SetTabChain(chain);
    resize(900, 640);

    connect(cmdLoad, &QPushButton::clicked, this, &frmHistory::LoadGrids);
    connect(cmdHistory[0], &QPushButton::clicked, this, [this] { cmdHistory_Click(0); });
    connect(cmdHistory[1], &QPushButton::clicked, this, [this] { cmdHistory_Click(1); });
    connect(cmdReturn, &QPushButton::clicked, this, [this] {
        if (History) {
            History = false;
            emit returnToCustomer();
        } else {
            emit showMenu();
        }
    });
    showDates();
}

void frmHistory::SetAccount(const QString& account)
{
    History = true;
    m_pendingAccount = account.trimmed();
}

void frmHistory::Form_Activate()
{
    dates = IncomeReportDates(c.clock.today());
    showDates();
    // The account list and the grids come from one reading of the files.
    ckAccount->setChecked(!m_pendingAccount.isEmpty());
    cboAccounts->setEditText(m_pendingAccount);
    LoadGrids();
    m_pendingAccount.clear();
}

void frmHistory::showDates()
{
    m_settingDates = true;
    for (int i = 0; i < 2; ++i)
        DTPicker1[i]->setDate(dates.DTPicker1[i]);
    m_settingDates = false;
}

void frmHistory::fillGrid(FlexGrid* grid, QList<HistoryRow>& rows)
{
    QList<QStringList> cells;
    cells.reserve(rows.size() + 1);
    for (HistoryRow& row : rows) {
        if (row.lines > 1) row.cells[3].replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        cells.append(std::move(row.cells));
    }
    // The grid always keeps its spare row below the records.
    cells.append(QStringList(5, QString()));
    grid->setRows(std::move(cells));
    const int height = grid->verticalHeader()->defaultSectionSize();
    for (qsizetype i = 0; i < rows.size(); ++i)
        if (rows[i].lines > 1) grid->setRowHeight(int(i), height * rows[i].lines);
}

void frmHistory::LoadGrids()
{
    HistoryFilter filter{ckAccount->isChecked(), cboAccounts->currentText(), dates.DTPicker1[0],
                         dates.DTPicker1[1]};
    Result<HistoryView> view = LoadHistory(c.store, filter);
    if (!view) {
        c.dialogs.message(view.message());
        return;
    }
    const QString typed = cboAccounts->currentText();
    {
        const QSignalBlocker block(cboAccounts);
        cboAccounts->clear();
        cboAccounts->addItems(view->accounts);
        cboAccounts->setCurrentIndex(-1);
        cboAccounts->setEditText(typed);
    }
    fillGrid(fgSHistory, view->service);
    fillGrid(fgHistory, view->ledger);
    lblTotal->setText(FormatCurrency(view->total));
    if (!view->damage.isEmpty()) c.dialogs.message(DescribeDamage(view->damage));
}

void frmHistory::cmdHistory_Click(int index)
{
    if (index == 0) {
        if (!c.dialogs.ask(QStringLiteral("Click Yes to Delete All History Records"),
                           QStringLiteral("Purge History Files")))
            return;
        if (!c.dialogs.ask(QStringLiteral("Are you Sure?"),
                           QStringLiteral("Confirm Purge History Files")))
            return;
        if (Status s = PurgeAllHistory(c.store); !s) c.dialogs.message(s.message());
        LoadGrids();
    } else if (index == 1) {
        if (!c.dialogs.ask(QStringLiteral("Click Yes to Delete This Acctounts History"),
                           QStringLiteral("Purge Account History")))
            return;
        if (!c.dialogs.ask(QStringLiteral("Are you Sure?"),
                           QStringLiteral("Confirm Purge Account History")))
            return;
        if (Status s = PurgeAccountHistory(c.store, cboAccounts->currentText()); !s)
            c.dialogs.message(s.message());
        LoadGrids();
    }
}

void frmHistory::DTPicker1_Change(int index)
{
    dates.PickerChanged(index, DTPicker1[index]->date(), c.clock.today(), c.dialogs);
    showDates();
}

void frmHistory::CheckDateRange()
{
    dates.CheckDateRange(c.dialogs);
    showDates();
}

void frmHistory::cmdIncome_Click(int index)
{
    dates.cmdIncome_Click(index, c.clock.today(), c.dialogs);
    showDates();
}
} // namespace tresvane
