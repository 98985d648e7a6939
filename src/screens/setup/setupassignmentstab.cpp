#include "screens/setup/setupassignmentstab.h"

#include "core/ports/dialogs.h"
#include "core/setup/assignments.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/keyfilterwiring.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
SetupAssignmentsTab::SetupAssignmentsTab(CoreContext& ctx, QWidget* parent)
    : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabAssignments"));
    auto* intro = new QLabel(QStringLiteral("An Assignment can be an Individual, a Team, Truck "
                                            "Route, Territory, etc."),
                             this);
    lblNote = new QLabel(QStringLiteral("You can Create up to 30 Work Assignments"), this);
    lblNote->setObjectName(QStringLiteral("lblAssignmentNote"));
    cboAssignments = new QComboBox(this);
    cboAssignments->setObjectName(QStringLiteral("cboAssignments"));
    cboAssignments->setEditable(true);
    cboAssignments->setInsertPolicy(QComboBox::NoInsert);
    cboAssignments->setMinimumWidth(320);
    cboAssignments->setMaxVisibleItems(30);
    WireKeyFilter(cboAssignments, KeyFilterKind::Quote, c.dialogs);

    cmdSave = new QPushButton(QStringLiteral("&Add"), this);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdChange = new QPushButton(QStringLiteral("&Change"), this);
    cmdChange->setObjectName(QStringLiteral("cmdChange_0"));
    cmdDelete = new QPushButton(QStringLiteral("&Delete"), this);
    cmdDelete->setObjectName(QStringLiteral("cmdDelete"));

    auto* row = new QHBoxLayout;
    row->addWidget(cboAssignments, 1);
    row->addWidget(cmdSave);
    row->addWidget(cmdChange);
    row->addWidget(cmdDelete);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(lblNote);
    layout->addLayout(row);
    layout->addStretch(1);

    connect(cboAssignments, &QComboBox::activated, this,
            &SetupAssignmentsTab::cboAssignments_Click);
    connect(cmdSave, &QPushButton::clicked, this, &SetupAssignmentsTab::cmdSave_Click);
    connect(cmdChange, &QPushButton::clicked, this, &SetupAssignmentsTab::cmdChange_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &SetupAssignmentsTab::cmdDelete_Click);
    // Enter in the box adds what it holds, as the Add button does, while adding is open.
    EnterClicks(cboAssignments->lineEdit(), cmdSave);
    enterTab();
}

QStringList SetupAssignmentsTab::entries() const
{
    QStringList list;
    for (int i = 0; i < cboAssignments->count(); ++i)
        list << cboAssignments->itemText(i);
    return list;
}

void SetupAssignmentsTab::FillAssignmentLists()
{
    const QString text = cboAssignments->currentText();
    cboAssignments->clear();
    for (int n = 1; n < c.v.gAssignTo.size(); ++n)
        cboAssignments->addItem(c.v.gAssignTo[n]);
    cboAssignments->setCurrentIndex(-1);
    cboAssignments->setEditText(text);
    emit assignmentsChanged();
}

void SetupAssignmentsTab::enterTab()
{
    cmdSave->setEnabled(true);
    cmdChange->setEnabled(false);
    cmdDelete->setEnabled(false);
    cboAssignments->setFocus();
}

void SetupAssignmentsTab::report(const Status& s)
{
    if (!s) c.dialogs.message(s.message());
}

void SetupAssignmentsTab::cboAssignments_Click(int index)
{
    cmdSave->setEnabled(false);
    cmdChange->setEnabled(true);
    cmdDelete->setEnabled(true);
    EditIndex = qint16(index);
}

void SetupAssignmentsTab::cmdSave_Click()
{
    const QString text = cboAssignments->currentText();
    QStringList list = entries();
    Result<AssignmentAdd> added = AddAssignment(c, list, text);
    if (!added) {
        report(added.status());
        return;
    }
    switch (*added) {
    case AssignmentAdd::ListFull:
        cboAssignments->setFocus();
        return;
    case AssignmentAdd::Duplicate:
        cboAssignments->setEditText(QString());
        cmdSave->setFocus();
        return;
    case AssignmentAdd::Added:
        cboAssignments->setEditText(QString());
        FillAssignmentLists();
        cboAssignments->setEditText(QString());
        cboAssignments->setFocus();
        return;
    }
}

void SetupAssignmentsTab::cmdChange_Click()
{
    QStringList list = entries();
    report(ChangeAssignment(c, list, EditIndex, cboAssignments->currentText()));
    // Only this list shows the new name; the others follow at the exit of the form.
    if (EditIndex >= 0 && EditIndex < cboAssignments->count())
        cboAssignments->setItemText(EditIndex, list.value(EditIndex));
    cboAssignments->setEditText(QString());
    cmdSave->setEnabled(true);
    cmdChange->setEnabled(false);
    cmdDelete->setEnabled(false);
}

void SetupAssignmentsTab::cmdDelete_Click()
{
    QStringList list = entries();
    Result<int> deleted = DeleteAssignment(c, list, cboAssignments->currentText());
    if (!deleted) {
        report(deleted.status());
        return;
    }
    if (*deleted == 0) {
        cboAssignments->setFocus();
        return;
    }
    DeletedTeam = qint16(*deleted);
    cmdSave->setEnabled(true);
    cboAssignments->setEditText(QString());
    FillAssignmentLists();
    cboAssignments->setEditText(QString());
    cboAssignments->setFocus();
}
} // namespace tresvane
