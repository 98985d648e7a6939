#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QWidget>

class QComboBox;
class QPushButton;

namespace tresvane
{
// Tab 2 of the setup screen: the Problem Descriptions offered when a slip is booked.
class SetupProblemsTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupProblemsTab(CoreContext& ctx, QWidget* parent = nullptr);

    QComboBox* cboProblems;
    QPushButton* cmdSavePC;
    QPushButton* cmdDeletePC;

    QStringList entries() const;
    // The list from the problems in memory.
    void LoadProblems();
    void cmdSavePC_Click();
    void cmdDeletePC_Click();

private:
    CoreContext& c;
};
} // namespace tresvane
