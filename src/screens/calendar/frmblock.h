#pragma once

#include "core/calendar/blockeddays.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QMainWindow>
#include <array>

class QAction;
class QCalendarWidget;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QSlider;

namespace tresvane
{
class FlexGrid;

// "Holiday and Vacation Days": whole work days of one team or of all of them reserved
// against work, or given back; and the days a sibling program blocked, listed.
class frmBlock : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmBlock(CoreContext& ctx, QWidget* parent = nullptr);

    // Coming to the front: the teams, the reasons, the form reset.
    void Form_Activate();

signals:
    void showMenu();

private:
    void buildLayout();
    QGroupBox* buildBlockedDays();
    void Initform();
    void setCalendar(const QDate& date);
    void Calender_Change(const QDate& picked);
    void optAction_Click(int index);
    void lstReason_Edited(const QString& text);
    void CmdAccept_Click();
    void cmdSearch_Click();
    BlockRequest request() const;

    CoreContext& c;
    QCalendarWidget* Calender;
    std::array<QRadioButton*, 2> optAction{};
    QComboBox* lstReason;
    QSlider* sldTimeReq;
    QLineEdit* txtTimeReq;
    QListWidget* lstAssignto;
    QPushButton* CmdAccept;
    QPushButton* cmdCancel;
    QPushButton* cmdExit;
    QAction* mnuBlocked;
    QGroupBox* fraBlockedDays;
    FlexGrid* FGBlocked;
    QDateEdit* DTStartSearch;
    QDateEdit* DTEndSearch;
    QPushButton* cmdSearch;
    QPushButton* cmdClearGrid;
    QPushButton* cmdHideGrid;

    QDate m_date; // the calendar's date, moved past the days not worked
    bool m_settingCalendar = false;
    QString m_lastReason;
};
} // namespace tresvane
