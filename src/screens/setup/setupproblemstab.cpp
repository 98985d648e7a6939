#include "screens/setup/setupproblemstab.h"

#include "core/io/sliprecord.h"
#include "core/ports/dialogs.h"
#include "core/setup/assignments.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/keyfilterwiring.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
SetupProblemsTab::SetupProblemsTab(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabProblems"));
    auto* intro = new QLabel(QStringLiteral("A Problem Description is the reason a customer "
                                            "calls. Enter descriptions of 20 or less characters."),
                             this);
    intro->setWordWrap(true);
    cboProblems = new QComboBox(this);
    cboProblems->setObjectName(QStringLiteral("cboProblems"));
    cboProblems->setEditable(true);
    cboProblems->setInsertPolicy(QComboBox::NoInsert);
    cboProblems->setMinimumWidth(320);
    WireKeyFilter(cboProblems, KeyFilterKind::Quote, c.dialogs);
    cmdSavePC = new QPushButton(QStringLiteral("&Add"), this);
    cmdSavePC->setObjectName(QStringLiteral("cmdSavePC"));
    cmdDeletePC = new QPushButton(QStringLiteral("&Delete"), this);
    cmdDeletePC->setObjectName(QStringLiteral("cmdDeletePC"));
    auto* row = new QHBoxLayout;
    row->addWidget(cboProblems, 1);
    row->addWidget(cmdSavePC);
    row->addWidget(cmdDeletePC);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(row);
    layout->addStretch(1);
    connect(cmdSavePC, &QPushButton::clicked, this, &SetupProblemsTab::cmdSavePC_Click);
    connect(cmdDeletePC, &QPushButton::clicked, this, &SetupProblemsTab::cmdDeletePC_Click);
    // Enter in the box adds what it holds, as the Add button does.
    EnterClicks(cboProblems->lineEdit(), cmdSavePC);
    // A problem becomes the reference of the slips booked for it.
    cboProblems->lineEdit()->setMaxLength(SlipLayout().field(SlipField::Reference).width);
}

QStringList SetupProblemsTab::entries() const
{
    QStringList list;
    for (int i = 0; i < cboProblems->count(); ++i)
        list << cboProblems->itemText(i);
    return list;
}

void SetupProblemsTab::LoadProblems()
{
    cboProblems->clear();
    cboProblems->addItems(c.v.settings.cboProblems);
    cboProblems->setCurrentIndex(-1);
}

void SetupProblemsTab::cmdSavePC_Click()
{
    QStringList list = entries();
    Result<bool> added = AddProblem(c, list, cboProblems->currentText());
    if (!added) {
        c.dialogs.message(added.message());
        return;
    }
    if (!*added) {
        cboProblems->setEditText(QString());
        cmdSavePC->setFocus();
        return;
    }
    LoadProblems();
    cboProblems->setEditText(QString());
    cboProblems->setFocus();
}

void SetupProblemsTab::cmdDeletePC_Click()
{
    QStringList list = entries();
    if (Status s = DeleteProblem(c, list, cboProblems->currentText()); !s)
        c.dialogs.message(s.message());
    LoadProblems();
    cboProblems->setFocus();
}
} // namespace tresvane
