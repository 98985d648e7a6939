#pragma once

#include "core/calendar/teamboard.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QWidget>
#include <array>

class QDateEdit;
class QLabel;
class QListWidget;
class QPushButton;

namespace tresvane
{
class FlexGrid;
class UpDown;
class frmSlip;

// "Work Schedules": the days of four teams side by side, page by page, on one date from
// today on. It only reads; a click on a slip or a meeting shows its record in the popup.
class frmDisplay : public QWidget
{
    Q_OBJECT
public:
    explicit frmDisplay(CoreContext& ctx, QWidget* parent = nullptr);
    ~frmDisplay() override;

    // Coming to the front: the pages of the teams, today, the first page. Without an
    // assignment list the program cannot go on: the user is told and it ends.
    void Form_Activate();

    // The popup the board opens, for the App to wire to the dialer.
    frmSlip* popup() const { return m_popup; }

signals:
    void showMenu();
    void exitProgram();

private:
    void buildLayout();
    void ShowPage();
    void ClearGrids();
    void DTPicker1_Change(const QDate& date);
    void fgHours_Click(int place, int row);

    CoreContext& c;
    std::array<FlexGrid*, kBoardTeams> fgHours{};
    std::array<QLabel*, kBoardTeams> lblTeam{};
    QListWidget* lstTeams;
    QDateEdit* DTPicker1;
    UpDown* UpDown1;
    QPushButton* cmdSchedule;
    frmSlip* m_popup;

    BoardPage m_page; // what the grids show
    QDate m_date;
    bool m_settingDate = false;
};
} // namespace tresvane
