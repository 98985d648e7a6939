#include "screens/schedule/freetimedialog.h"

#include "core/io/usforms.h"
#include "core/ports/dialogs.h"
#include "core/schedule/timegrid.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"
#include "screens/shell/waitcursor.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tresvane
{
FreeTimeDialog::FreeTimeDialog(CoreContext& ctx, QWidget* parent) : QDialog(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmFreeTime"));
    setWindowTitle(QStringLiteral("Find Free Time"));
    setSizeGripEnabled(true);

    spnHours = named(new QSpinBox(this), "spnHours");
    spnHours->setRange(1, 12);
    spnHours->setSuffix(QStringLiteral(" hours"));
    cboTeam = named(new QComboBox(this), "cboTeam");
    cboTeam->addItem(QStringLiteral("All Teams"));
    for (int n = 1; n <= c.v.TeamCount(); ++n)
        cboTeam->addItem(c.v.gAssignTo[n]);
    dtFrom = named(new QDateEdit(this), "dtFrom");
    dtFrom->setCalendarPopup(true);
    dtFrom->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    cmdFind = named(new QPushButton(QStringLiteral("&Find"), this), "cmdFind");
    cmdFind->setAutoDefault(false);

    auto* ask = new QFormLayout;
    ask->addRow(QStringLiteral("&Hours required"), spnHours);
    ask->addRow(QStringLiteral("&Team"), cboTeam);
    ask->addRow(QStringLiteral("F&rom"), dtFrom);
    auto* top = new QHBoxLayout;
    top->addLayout(ask, 1);
    top->addWidget(cmdFind, 0, Qt::AlignBottom);

    lstOpenings = named(new QTreeWidget(this), "lstOpenings");
    lstOpenings->setHeaderLabels(
        {QStringLiteral("Date"), QStringLiteral("Team"), QStringLiteral("First Hour")});
    lstOpenings->setRootIsDecorated(false);
    lstOpenings->setUniformRowHeights(true);
    lstOpenings->setAllColumnsShowFocus(true);
    lstOpenings->header()->setStretchLastSection(false);
    lstOpenings->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    lstOpenings->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    lstOpenings->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    lblFound = named(new QLabel(this), "lblFound");

    cmdGoTo = named(new QPushButton(QStringLiteral("&Go To"), this), "cmdGoTo");
    cmdGoTo->setDefault(true);
    cmdClose = named(new QPushButton(QStringLiteral("&Close"), this), "cmdClose");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblFound, 1);
    buttons->addWidget(cmdGoTo);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lstOpenings, 1);
    layout->addLayout(buttons);
    SetTabChain({spnHours, cboTeam, dtFrom, cmdFind, lstOpenings, cmdGoTo, cmdClose});
    resize(460, 380);

    connect(cmdFind, &QPushButton::clicked, this, &FreeTimeDialog::find);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdGoTo, &QPushButton::clicked, this, [this] { choose(lstOpenings->currentItem()); });
    connect(lstOpenings, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { choose(item); });
}

int FreeTimeDialog::hours() const
{
    return spnHours->value();
}

void FreeTimeDialog::search(int hours, const QDate& from, int team)
{
    spnHours->setValue(qBound(1, hours, 12));
    cboTeam->setCurrentIndex(qBound(0, team, cboTeam->count() - 1));
    dtFrom->setDate(from);
    find();
}

void FreeTimeDialog::find()
{
    FreeTimeRequest request;
    request.hours = spnHours->value();
    request.team = cboTeam->currentIndex();
    request.from = dtFrom->date();
    Result<QList<FreeOpening>> found = [&] {
        WaitCursor wait;
        return FindFreeTime(c, request);
    }();
    lstOpenings->clear();
    m_openings.clear();
    if (!found) {
        c.dialogs.message(found.message(), QStringLiteral("Find Free Time"));
        lblFound->clear();
        return;
    }
    m_openings = *found;
    for (const FreeOpening& o : m_openings)
        new QTreeWidgetItem(lstOpenings, {FormatShortDate(o.date), c.v.gAssignTo.value(o.team),
                                          GridLabel(c.v, o.firstSlot)});
    if (m_openings.isEmpty()) {
        lblFound->setText(QStringLiteral("No %1 free hours in a row in the next %2 days")
                              .arg(request.hours)
                              .arg(request.days));
        return;
    }
    lblFound->clear();
    lstOpenings->setCurrentItem(lstOpenings->topLevelItem(0));
    lstOpenings->setFocus();
}

void FreeTimeDialog::choose(QTreeWidgetItem* item)
{
    const int row = item ? lstOpenings->indexOfTopLevelItem(item) : -1;
    if (row < 0 || row >= m_openings.size()) return;
    const FreeOpening opening = m_openings[row];
    accept();
    emit openingChosen(opening, spnHours->value());
}
} // namespace tresvane
