#pragma once

#include "core/schedule/teammonth.h"

#include <QGroupBox>
#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tresvane
{
class UpDown;

// The month sheet of the selected team, "Hours Availability/Usage by Team": 42 boxes
// from Sunday, day numbers in blue, booked hours in red. A click on a day goes to it.
class TeamMonthFrame : public QGroupBox
{
    Q_OBJECT
public:
    explicit TeamMonthFrame(QWidget* parent = nullptr);

    std::array<QLineEdit*, 42> Text1;
    QLineEdit* txtCurrentTeam;
    QLineEdit* txtCurrentDate;
    UpDown* UpDnTeam;
    QLabel* lblDaysSMTWTFS;
    QLabel* lblNote;
    QPushButton* cmdHide;

    // Shows a sheet drawn by DrawTeamMonth.
    void showMonth(const TeamMonth& month);
    const TeamMonth& month() const { return m_month; }

    static QColor bookedColor(); // red
    static QColor freeColor();   // blue

signals:
    // A box that holds a day was clicked; empty boxes say nothing.
    void boxClicked(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TeamMonth m_month;
};
} // namespace tresvane
