#pragma once

#include "core/history/historyview.h"
#include "core/history/reportdates.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

namespace tresvane
{
class FlexGrid;

// "Account Service and Billing History": the service history and the ledger of one account
// or of all between two dates, the running total of the amounts shown, the date presets
// of the income report, and the two purges.
class frmHistory : public QWidget
{
    Q_OBJECT
public:
    explicit frmHistory(CoreContext& ctx, QWidget* parent = nullptr);

    FlexGrid* fgSHistory; // ServiceHistory.txt
    FlexGrid* fgHistory;  // CAHistory.txt
    QComboBox* cboAccounts;
    QCheckBox* ckAccount; // show and purge the account in cboAccounts only
    std::array<QDateEdit*, 2> DTPicker1;
    std::array<QPushButton*, 4> cmdIncome;  // "&L M", "M&TD", "&YTD", "&Eternity"
    std::array<QPushButton*, 2> cmdHistory; // purge all accounts, purge the account
    QPushButton* cmdLoad;                   // loads the grids for the account and dates
    QLabel* lblTotal;                       // the running total of the ledger amounts shown
    QPushButton* cmdReturn;

    // Coming to the front: the opening dates, the account list, the grids.
    void Form_Activate();
    // Comes up on one account: the account chosen and ticked (the customer screen's way in).
    void SetAccount(const QString& account);
    // Whether the screen was asked for by the customer screen; its return then goes back
    // there rather than to the menu.
    bool History = false;

    // The grid load of both files for the account and dates on the screen.
    void LoadGrids();
    void cmdIncome_Click(int index);
    void cmdHistory_Click(int index);
    void DTPicker1_Change(int index);
    void CheckDateRange();

    IncomeReportDates dates;

signals:
    void showMenu();
    // The return when the screen was asked for by the customer screen.
    void returnToCustomer();

private:
    void showDates();
    void fillGrid(FlexGrid* grid, QList<HistoryRow>& rows);

    CoreContext& c;
    bool m_settingDates = false;
    QString m_pendingAccount;
};
} // namespace tresvane
