#pragma once

#include <QGroupBox>
#include <array>
class QPushButton;

namespace tresvane
{
class FlexGrid;
class Store;

// The stored slips, "Unscheduled Service Attentions": one row per record of
// UnscheduledSlips.txt, row r showing record r. The buttons are handled by the screen.
class StoredSlipsFrame : public QGroupBox
{
    Q_OBJECT
public:
    enum Button { CancelExit = 0, LoadSlip = 1, DeleteSelected = 2, DeleteAll = 3 };

    explicit StoredSlipsFrame(QWidget* parent = nullptr);

    FlexGrid* fgUnscheduled;
    std::array<QPushButton*, 4> cmdUnscheduled;

    // Fills the list from the file. A file that cannot be read is returned as its message.
    QString fill(Store& store);
    // The record number of the selected row; 0 when no row is selected, which matches
    // no record.
    int selectedRecord() const;

signals:
    void buttonClicked(int index);
};
} // namespace tresvane
