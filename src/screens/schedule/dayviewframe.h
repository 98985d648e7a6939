#pragma once

#include "core/schedule/dayview.h"

#include <QGroupBox>
#include <array>

class QLabel;
class QPlainTextEdit;

namespace tresvane
{
// The expanded day view: one box for each hour with the customer, address, telephone and
// problem of the job booked there. It lies over the time grid while it is open.
class DayViewFrame : public QGroupBox
{
    Q_OBJECT
public:
    explicit DayViewFrame(QWidget* parent = nullptr);

    std::array<QPlainTextEdit*, 12> txtHourSlot;
    std::array<QLabel*, 12> Label2;

    // The hour labels beside the boxes ("06:00am" ...).
    void setHourLabels(const std::array<QString, 12>& labels);
    void showView(const DayView& view);
    const DayView& view() const { return m_view; }

signals:
    // An hour's label with a telephone behind it was clicked.
    void dialRequested(int slot);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    DayView m_view;
};
} // namespace tresvane
