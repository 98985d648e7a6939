#pragma once

#include "core/schedule/freetime.h"
#include "core/state/corecontext.h"

#include <QDate>
#include <QDialog>
#include <QList>

class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QSpinBox;
class QTreeWidget;
class QTreeWidgetItem;

namespace tresvane
{
// "Find Free Time" of the Scheduling Screen: the first openings of the hours a job needs,
// across every team or one, from a date on, listed by date. A double click (or Enter, or
// Go To) on one hands it back to the screen, which moves there with the hours placed.
class FreeTimeDialog : public QDialog
{
    Q_OBJECT
public:
    explicit FreeTimeDialog(CoreContext& ctx, QWidget* parent = nullptr);

    // What to look for; the list is filled at once. team 0 is every team.
    void search(int hours, const QDate& from, int team);
    // The openings on the list, in its order.
    const QList<FreeOpening>& openings() const { return m_openings; }
    // The hours the list was made for.
    int hours() const;

signals:
    void openingChosen(const tresvane::FreeOpening& opening, int hours);

private:
    void find();
    void choose(QTreeWidgetItem* item);

    CoreContext& c;
    QSpinBox* spnHours;
    QComboBox* cboTeam;
    QDateEdit* dtFrom;
    QPushButton* cmdFind;
    QTreeWidget* lstOpenings;
    QLabel* lblFound;
    QPushButton* cmdGoTo;
    QPushButton* cmdClose;
    QList<FreeOpening> m_openings;
};
} // namespace tresvane
