#pragma once

#include "core/state/corecontext.h"

#include <QWidget>
#include <array>
class QDateEdit;
class QLabel;
class QPushButton;

namespace tresvane
{
class FlexGrid;

// "Courtesy Calling": the Service Attentions booked over a span of days, in date order, so
// the office can call the customers beforehand.
class frmCallBack : public QWidget
{
    Q_OBJECT
public:
    explicit frmCallBack(CoreContext& ctx, QWidget* parent = nullptr);

    QDateEdit* DTStarting;
    QDateEdit* DTEnding;
    // Buttons 3 "&Load Grid", 5 "Next Year", 6 "Next Month", 7 "Next Qtr"; the other
    // places are empty.
    std::array<QPushButton*, 8> cmdWeekly{};
    FlexGrid* fgTomorrow;
    QLabel* lblHint;          // "Left Click to Select, Right Click to Call"
    QPushButton* cmdTomorrow; // "&Menu"

    // Coming to the front: today to a month from today, and the grid when there are slips.
    void Form_Activate();
    void cmdWeekly_Click(int index);
    void LoadGrid();

signals:
    void showMenu();
    // A right click on a row: the customer to call (telephone, name).
    void callCustomer(const QString& tel, const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CoreContext& c;
};
} // namespace tresvane
