#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace tresvane
{
// Tab 1 of the setup screen: the Assignments, the schedulable teams. A team's number is
// its place in the list and names its folder.
class SetupAssignmentsTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupAssignmentsTab(CoreContext& ctx, QWidget* parent = nullptr);

    QComboBox* cboAssignments;
    QPushButton* cmdSave;   // Add
    QPushButton* cmdChange; // Change (cmdChange(0) of the form's button array)
    QPushButton* cmdDelete;
    QLabel* lblNote;
    // Index of the entry picked for a change.
    qint16 EditIndex = -1;
    // Team number of the entry last deleted.
    qint16 DeletedTeam = 0;

    QStringList entries() const;
    // Puts gAssignTo into the list.
    void FillAssignmentLists();
    // Entering the tab: Add open, Change and Delete closed, focus to the list.
    void enterTab();

    void cboAssignments_Click(int index);
    void cmdSave_Click();
    void cmdChange_Click();
    void cmdDelete_Click();

signals:
    // The team list changed; other screens' lists follow.
    void assignmentsChanged();

private:
    void report(const Status& s);
    CoreContext& c;
};
} // namespace tresvane
