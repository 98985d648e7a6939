#include "screens/sliprecords/frmcallrecord.h"

#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/sliprecords/deletecallrec.h"
#include "core/sliprecords/recordsummary.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/taborder.h"

#include <QAction>
#include <QButtonGroup>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
QPushButton* button(const QString& caption, const QString& name, QWidget* parent)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    return b;
}

QLineEdit* field(const QString& name, QWidget* parent)
{
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    e->setReadOnly(true);
    return e;
}

const QString kListView = QStringLiteral("List View");
const QString kDetailView = QStringLiteral("Detail View");
} // namespace

frmCallRecord::frmCallRecord(CoreContext& ctx, QWidget* parent) : QMainWindow(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmCallRecord"));
    setWindowTitle(QStringLiteral("Service Attention Record Summary"));
    auto* central = new QWidget(this);
    setCentralWidget(central);

    mnuView = menuBar()->addAction(kListView);
    mnuView->setObjectName(QStringLiteral("mnuView"));

    // The summary of every slip and meeting.
    fraSummary = new QGroupBox(QStringLiteral("Service Attention Summary"), central);
    fraSummary->setObjectName(QStringLiteral("fraSummary"));
    fgSummary = new FlexGrid(fraSummary);
    fgSummary->setObjectName(QStringLiteral("fgSummary"));
    fgSummary->setHeadings({QStringLiteral("Date"), QStringLiteral("Type"), QStringLiteral("Name"),
                            QStringLiteral("Acct No"), QStringLiteral("Day"),
                            QStringLiteral("Confirmation")});
    // The name gives way, so that every column, the confirmation number last, stays in
    // view on the screen's own width.
    fgSummary->setColumnWidth(0, 90);
    fgSummary->setColumnWidth(1, 90);
    fgSummary->setColumnWidth(3, 120);
    fgSummary->setColumnWidth(4, 50);
    fgSummary->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    fgSummary->horizontalHeader()->setSectionResizeMode(5, QHeaderView::ResizeToContents);
    lblHint = new QLabel(QStringLiteral("Click on Acct No. to Load Call Data"), fraSummary);
    lblHint->setObjectName(QStringLiteral("lblHint"));
    cmdHide = button(QStringLiteral("Hide Grid"), QStringLiteral("cmdHide"), fraSummary);
    auto* summaryFoot = new QHBoxLayout;
    summaryFoot->addWidget(lblHint, 1);
    summaryFoot->addWidget(cmdHide);
    auto* summaryLayout = new QVBoxLayout(fraSummary);
    summaryLayout->addWidget(fgSummary, 1);
    summaryLayout->addLayout(summaryFoot);

    // Which file, and how to search it.
    auto* fraSearchFor = new QGroupBox(QStringLiteral("Search for"), central);
    m_searchFor = new QButtonGroup(this);
    const QStringList forCaptions = {QStringLiteral("Service and Reccuring (Invoiced)"),
                                     QStringLiteral("Meetings and Recurring (w/o Invoice)")};
    auto* forLayout = new QVBoxLayout(fraSearchFor);
    for (int i = 0; i < 2; ++i) {
        optSearchfor[i] = new QRadioButton(forCaptions[i], fraSearchFor);
        optSearchfor[i]->setObjectName(QStringLiteral("optSearchfor_%1").arg(i));
        m_searchFor->addButton(optSearchfor[i], i);
        forLayout->addWidget(optSearchfor[i]);
    }
    auto* fraSearchBy = new QGroupBox(QStringLiteral("Search by"), central);
    m_searchBy = new QButtonGroup(this);
    const QStringList byCaptions = {QStringLiteral("Search All Records"),
                                    QStringLiteral("Search by Account No"),
                                    QStringLiteral("Search by Confirmation No ")};
    auto* byLayout = new QVBoxLayout(fraSearchBy);
    for (int i = 0; i < 3; ++i) {
        optSearchby[i] = new QRadioButton(byCaptions[i], fraSearchBy);
        optSearchby[i]->setObjectName(QStringLiteral("optSearchby_%1").arg(i));
        m_searchBy->addButton(optSearchby[i], i);
        byLayout->addWidget(optSearchby[i]);
    }
    fraSearch = new QGroupBox(QStringLiteral("Search by Criteria"), central);
    fraSearch->setObjectName(QStringLiteral("fraSearch"));
    lblTelNo = new QLabel(QStringLiteral("Account No"), fraSearch);
    lblTelNo->setObjectName(QStringLiteral("lblTelNo"));
    txtTelNo = new QLineEdit(fraSearch);
    txtTelNo->setObjectName(QStringLiteral("txtTelNo"));
    lblConfNo = new QLabel(QStringLiteral("Confirmation No"), fraSearch);
    lblConfNo->setObjectName(QStringLiteral("lblConfNo"));
    txtConfNo = new QLineEdit(fraSearch);
    txtConfNo->setObjectName(QStringLiteral("txtConfNo"));
    auto* searchLayout = new QGridLayout(fraSearch);
    searchLayout->addWidget(lblTelNo, 0, 0);
    searchLayout->addWidget(txtTelNo, 0, 1);
    searchLayout->addWidget(lblConfNo, 1, 0);
    searchLayout->addWidget(txtConfNo, 1, 1);
    // A search box takes no more than the field it is compared with.
    txtTelNo->setMaxLength(SlipLayout().field(SlipField::AcctNo).width);
    txtConfNo->setMaxLength(SlipLayout().field(SlipField::ConfirmationNo).width);

    cmdSearch = button(QStringLiteral("&Start Search"), QStringLiteral("cmdSearch"), central);
    cmdContinue = button(QStringLiteral("&Continue"), QStringLiteral("cmdContinue"), central);
    cmdCancel = button(QStringLiteral("&Delete"), QStringLiteral("cmdCancel"), central);
    cmdReschedule =
        button(QStringLiteral("&Re-Schedule"), QStringLiteral("cmdReschedule"), central);
    cmdCompleted =
        button(QStringLiteral("Slip has been Completed"), QStringLiteral("cmdCompleted"), central);
    cmdExit = button(QStringLiteral("&Menu"), QStringLiteral("cmdExit"), central);

    auto* left = new QVBoxLayout;
    left->addWidget(fraSearchFor);
    left->addWidget(fraSearchBy);
    left->addWidget(fraSearch);
    left->addWidget(cmdSearch);
    left->addWidget(cmdContinue);
    left->addStretch(1);
    left->addWidget(cmdReschedule);
    left->addWidget(cmdCancel);
    left->addWidget(cmdCompleted);
    left->addWidget(cmdExit);

    // The record on show.
    fraDetail = new QGroupBox(QStringLiteral("Service Attention Record"), central);
    fraDetail->setObjectName(QStringLiteral("fraDetail"));
    txtAcctNo = field(QStringLiteral("txtAcctNo"), fraDetail);
    txtName = field(QStringLiteral("txtName"), fraDetail);
    txtStreet = field(QStringLiteral("txtStreet"), fraDetail);
    txtApt = field(QStringLiteral("txtApt"), fraDetail);
    txtCity = field(QStringLiteral("txtCity"), fraDetail);
    txtSt = field(QStringLiteral("txtSt"), fraDetail);
    txtZip = field(QStringLiteral("txtZip"), fraDetail);
    txtTel = field(QStringLiteral("txtTel"), fraDetail);
    txtDuration = field(QStringLiteral("txtDuration"), fraDetail);
    txtTime = field(QStringLiteral("txtTime"), fraDetail);
    txtDate = field(QStringLiteral("txtDate"), fraDetail);
    txtDay = field(QStringLiteral("txtDay"), fraDetail);
    txtStatus = field(QStringLiteral("txtStatus"), fraDetail);
    txtAmount = field(QStringLiteral("txtAmount"), fraDetail);
    txtForm = field(QStringLiteral("txtForm"), fraDetail);
    txtReference = field(QStringLiteral("txtReference"), fraDetail);
    auto* customer = new QFormLayout;
    customer->addRow(QStringLiteral("Account"), txtAcctNo);
    customer->addRow(QStringLiteral("Name"), txtName);
    customer->addRow(QStringLiteral("Street"), txtStreet);
    customer->addRow(QStringLiteral("Apt"), txtApt);
    customer->addRow(QStringLiteral("City"), txtCity);
    customer->addRow(QStringLiteral("State"), txtSt);
    customer->addRow(QStringLiteral("Zip"), txtZip);
    customer->addRow(QStringLiteral("Telephone"), txtTel);
    auto* event = new QFormLayout;
    event->addRow(QStringLiteral("Date"), txtDate);
    event->addRow(QStringLiteral("Day"), txtDay);
    event->addRow(QStringLiteral("Time"), txtTime);
    event->addRow(QStringLiteral("Duration"), txtDuration);
    event->addRow(QStringLiteral("Status"), txtStatus);
    event->addRow(QStringLiteral("Amount"), txtAmount);
    event->addRow(QStringLiteral("Payment"), txtForm);
    event->addRow(QStringLiteral("Reference"), txtReference);
    auto* detailLayout = new QHBoxLayout(fraDetail);
    detailLayout->addLayout(customer, 1);
    detailLayout->addLayout(event, 1);

    // The summary takes the record panel's place: the grid is the list view, hiding it
    // shows the detail view.
    auto* right = new QGridLayout;
    right->addWidget(fraDetail, 0, 0, Qt::AlignTop);
    right->addWidget(fraSummary, 0, 0);
    fraSummary->setAutoFillBackground(true);
    fraSummary->raise();
    fraDetail->setVisible(false);
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->addLayout(left);
    layout->addLayout(right, 1);
    resize(1000, 680);

    connect(fgSummary, &QTableView::clicked, this,
            [this](const QModelIndex& index) { fgSummary_Click(index.row()); });
    connect(m_searchFor, &QButtonGroup::idClicked, this, &frmCallRecord::optSearchfor_Click);
    connect(m_searchBy, &QButtonGroup::idClicked, this, &frmCallRecord::optSearchby_Click);
    connect(cmdSearch, &QPushButton::clicked, this, &frmCallRecord::cmdSearch_Click);
    connect(cmdContinue, &QPushButton::clicked, this, &frmCallRecord::cmdContinue_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmCallRecord::cmdCancel_Click);
    connect(cmdCompleted, &QPushButton::clicked, this, &frmCallRecord::cmdCompleted_Click);
    connect(cmdReschedule, &QPushButton::clicked, this, &frmCallRecord::cmdReschedule_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmCallRecord::cmdExit_Click);
    connect(cmdHide, &QPushButton::clicked, this, &frmCallRecord::cmdHide_Click);
    connect(mnuView, &QAction::triggered, this, &frmCallRecord::mnuView_Click);
    // Enter in a search box starts the search, as the button does.
    for (QLineEdit* box : {txtTelNo, txtConfNo})
        EnterClicks(box, cmdSearch);

    // Down the left column, then the grid or the record on the right.
    QList<QWidget*> chain;
    for (QRadioButton* b : optSearchfor)
        chain << b;
    for (QRadioButton* b : optSearchby)
        chain << b;
    chain << txtTelNo << txtConfNo << cmdSearch << cmdContinue << cmdReschedule << cmdCancel
          << cmdCompleted << cmdExit << fgSummary << cmdHide;
    for (QLineEdit* e :
         {txtAcctNo, txtName, txtStreet, txtApt, txtCity, txtSt, txtZip, txtTel, txtDate, txtDay,
          txtTime, txtDuration, txtStatus, txtAmount, txtForm, txtReference})
        chain << e;
    SetTabChain(chain);

    Form_Load();
}

void frmCallRecord::Form_Load()
{
    CompletionInstalled = c.store.FileExists(JobCloserFile());
    showSummary(true);
    mnuView->setText(kListView);
    cmdSearch->setVisible(true);
    cmdContinue->setVisible(false);
    // With the sibling program the completion is recorded there, never here.
    cmdCompleted->setVisible(!CompletionInstalled);
    fraSearch->setVisible(false);
    ClearForm();
}

bool frmCallRecord::fail(const Status& s)
{
    if (s) return false;
    c.dialogs.message(s.message());
    return true;
}

void frmCallRecord::select(QButtonGroup* group, int id)
{
    if (id >= 0) {
        group->button(id)->setChecked(true);
        return;
    }
    // An exclusive group keeps one button checked; none is a state the options can have.
    if (QAbstractButton* checked = group->checkedButton()) {
        group->setExclusive(false);
        checked->setChecked(false);
        group->setExclusive(true);
    }
}

void frmCallRecord::Form_Activate()
{
    BuildSummary();
    ClearForm();
    select(m_searchBy, 0);
    optSearchby_Click(0);
}

void frmCallRecord::Form_Deactivate()
{
    cmdSearch->setVisible(false);
}

void frmCallRecord::hideEvent(QHideEvent* event)
{
    // Minimising is not leaving the screen.
    if (!event->spontaneous()) Form_Deactivate();
    QMainWindow::hideEvent(event);
}

void frmCallRecord::BuildSummary()
{
    fgSummary->setRows({});
    Result<RecordSummary> summary = BuildRecordSummary(c);
    if (fail(summary.status())) return;

    // The rows come sorted by the key of column 4, the meetings first among equal keys.
    QList<QStringList> rows;
    rows.reserve(summary->rows.size());
    for (const SummaryRow& r : std::as_const(summary->rows))
        rows.append(
            {r.EventDate, r.kind, r.Name, r.AcctNo, QString::number(r.key), r.ConfirmationNo});
    fgSummary->setRows(std::move(rows));

    // Meetings first, then slips, so that slips win the selection when both have records.
    for (int i : {1, 0}) {
        const qint32 count = i == 1 ? summary->meetingCount : summary->slipCount;
        if (count > 0) {
            select(m_searchFor, i);
            optSearchfor[i]->setEnabled(true);
            optSearchfor_Click(i);
            cmdSearch->setVisible(true);
            cmdSearch->setFocus();
            SearchFile = qint16(i + 1);
        } else {
            if (optSearchfor[i]->isChecked()) select(m_searchFor, -1);
            optSearchfor[i]->setEnabled(false);
        }
    }
}

void frmCallRecord::fgSummary_Click(int row)
{
    if (row < 0 || row >= fgSummary->rows()) return;
    const QString date = fgSummary->textMatrix(row, 0);
    if (SlipExpired(date, c.clock.today())) {
        if (c.v.gAlarms) c.dialogs.beep();
        if (c.v.gPrompts)
            c.dialogs.message(
                QStringLiteral("This slip can not be rescheduled or deleted\n(Date has expired)"));
        return;
    }
    showSummary(false);
    Result<qint16> file = FindSlipByAccountAndDate(c, fgSummary->textMatrix(row, 3), date);
    if (fail(file.status())) return;
    // A row whose record has gone from both files loads nothing and says nothing.
    SearchFile = *file;
    if (SearchFile != 3) LoadRecData();
}

void frmCallRecord::optSearchfor_Click(int index)
{
    SearchFile = qint16(index + 1);
    if (index == 0) {
        optSearchby[2]->setEnabled(true);
        if (!CompletionInstalled) cmdCompleted->setVisible(true);
    } else {
        // A confirmation number belongs to Service Attentions only, and a meeting is not
        // completed.
        optSearchby[2]->setEnabled(false);
        cmdCompleted->setVisible(false);
    }
}

void frmCallRecord::optSearchby_Click(int index)
{
    fraSearch->setVisible(false);
    if (index == 0) return;
    const bool account = index == 1;
    fraSearch->setVisible(true);
    lblTelNo->setVisible(account);
    txtTelNo->setEnabled(account);
    lblConfNo->setVisible(!account);
    txtConfNo->setEnabled(!account);
    (account ? txtTelNo : txtConfNo)->setFocus();
}

void frmCallRecord::cmdSearch_Click()
{
    Found = 0;
    RecPointer = 1;
    if (optSearchby[0]->isChecked())
        ReadSequentually();
    else
        ReadCallSlip();
}

void frmCallRecord::ReadCallSlip()
{
    const SearchBy by = optSearchby[2]->isChecked()   ? SearchBy::ConfirmationNo
                        : optSearchby[1]->isChecked() ? SearchBy::AccountNo
                                                      : SearchBy::AllRecords;
    Result<bool> found =
        tresvane::ReadCallSlip(c, SearchFile, by, txtConfNo->text(), txtTelNo->text());
    if (fail(found.status())) return;
    if (*found) {
        Found = 1;
        LoadRecData();
    } else {
        ClearForm(); // the user has been told
    }
}

void frmCallRecord::ReadSequentually()
{
    Result<SequentialRead> step = tresvane::ReadSequentually(c, SearchFile, RecPointer);
    if (fail(step.status())) return;
    switch (*step) {
    case SequentialRead::Loaded:
        LoadRecData();
        cmdContinue->setVisible(true);
        cmdContinue->setFocus();
        break;
    case SequentialRead::LoadedLast:
        LoadRecData();
        cmdContinue->setVisible(false);
        cmdSearch->setFocus();
        break;
    case SequentialRead::PastEnd:
        ClearForm();
        cmdExit->setFocus();
        cmdContinue->setVisible(false);
        break;
    }
}

void frmCallRecord::cmdContinue_Click()
{
    ++RecPointer;
    ReadSequentually();
}

void frmCallRecord::LoadRecData()
{
    const RecordDetail d = tresvane::LoadRecData(c, CompletionInstalled);
    EventKind = d.EventKind;
    TimeLabel = d.timeLabel;
    // The record found is what the user is after: the list gives way to it.
    showSummary(false);
    txtName->setText(d.txtName);
    txtStreet->setText(d.txtStreet);
    txtCity->setText(d.txtCity);
    txtApt->setText(d.txtApt);
    txtSt->setText(d.txtSt);
    txtZip->setText(d.txtZip);
    txtTel->setText(d.txtTel);
    txtAcctNo->setText(d.txtAcctNo);
    txtDuration->setText(d.txtDuration);
    txtTime->setText(d.txtTime);
    txtDate->setText(d.txtDate);
    txtDay->setText(d.txtDay);
    txtStatus->setText(d.txtStatus);
    txtAmount->setText(d.txtAmount);
    txtForm->setText(d.txtForm);
    txtReference->setText(d.txtReference);
    cmdCancel->setEnabled(d.cmdCancel);
    cmdReschedule->setEnabled(d.cmdReschedule);
    cmdCompleted->setEnabled(d.cmdCompleted);
    if (d.cmdReschedule) cmdReschedule->setFocus();
}

void frmCallRecord::ClearForm()
{
    TimeLabel.clear();
    for (QLineEdit* e : {txtAcctNo, txtName, txtStreet, txtApt, txtCity, txtSt, txtZip, txtTel,
                         txtDuration, txtTime, txtDate, txtDay, txtStatus, txtAmount, txtForm,
                         txtReference, txtConfNo, txtTelNo})
        e->clear();
    txtConfNo->setEnabled(false);
    txtTelNo->setEnabled(false);
    lblConfNo->setVisible(false);
    lblTelNo->setVisible(false);
    cmdContinue->setVisible(false);
    cmdCancel->setEnabled(false);
    cmdReschedule->setEnabled(false);
    cmdCompleted->setEnabled(false);
}

bool frmCallRecord::deleteShown(qint16 completed)
{
    const CallRecordOnShow shown{SearchFile, EventKind, txtName->text(), TimeLabel};
    return !fail(DeleteCallRec(c, shown, completed));
}

void frmCallRecord::cmdCancel_Click()
{
    const QString title = QStringLiteral("Delete");
    if (!c.dialogs.ask(QStringLiteral("Delete this Attention"), title) ||
        !c.dialogs.ask(QStringLiteral("Are You Sure?"), title)) {
        cmdContinue_Click(); // on to the next record
        return;
    }
    deleteShown(0);
    ClearForm();
}

void frmCallRecord::cmdCompleted_Click()
{
    const QString title = QStringLiteral("Complete");
    if (!c.dialogs.ask(QStringLiteral("Service Slip has been completed?"), title) ||
        !c.dialogs.ask(QStringLiteral("Are You Sure?"), title)) {
        cmdContinue_Click();
        return;
    }
    deleteShown(-1);
    ClearForm();
}

void frmCallRecord::cmdReschedule_Click()
{
    // No drops the record from the panel; unlike the other two it does not step on.
    if (!c.dialogs.ask(QStringLiteral("Reschedule this Attention"), QStringLiteral("RESCHEDULE"))) {
        ClearForm();
        return;
    }
    if (!deleteShown(0)) {
        ClearForm();
        return;
    }
    // The customer is in the shared fields since LoadRecData and the old record stays in
    // gSlip; the Scheduling Screen learns from the file option what to book anew.
    c.v.gRescheduleSearchFor = optSearchfor[0]->isChecked()   ? 0
                               : optSearchfor[1]->isChecked() ? 1
                                                              : -1;
    emit rescheduleChosen();
}

void frmCallRecord::cmdExit_Click()
{
    // The screen closes: it comes back next time as it was first made.
    emit showMenu();
    Form_Load();
}

void frmCallRecord::showSummary(bool shown)
{
    fraSummary->setVisible(shown);
    fraDetail->setVisible(!shown);
}

void frmCallRecord::cmdHide_Click()
{
    showSummary(false);
}

void frmCallRecord::mnuView_Click()
{
    showSummary(fraSummary->isHidden());
    mnuView->setText(mnuView->text() == kListView ? kDetailView : kListView);
}
} // namespace tresvane
