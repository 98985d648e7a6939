#include "screens/customers/storedcallpanel.h"

#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"
#include "screens/shell/updown.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
const QString kCallNow = QStringLiteral("Call Now");
const QString kCallLater = QStringLiteral("Call Later");
} // namespace

StoredCallPanel::StoredCallPanel(CoreContext& ctx, Screen screen, QWidget* parent)
    : QWidget(parent), c(ctx), m_screen(std::move(screen))
{
    setObjectName(QStringLiteral("StoredCallPanel"));

    cmdCallLater = named(new QPushButton(kCallNow, this), QStringLiteral("cmdCallLater"));
    cmdCallLater->setToolTip(QStringLiteral("The calls kept while the office was away"));
    // Nothing to call back until calls are found stored.
    cmdCallLater->setEnabled(false);

    fraCall = named(new QGroupBox(QStringLiteral("Stored Calls"), this), QStringLiteral("fraCall"));
    lblCall = named(new QLabel(QStringLiteral("0"), fraCall), QStringLiteral("lblCall"));
    lblTotalCalls =
        named(new QLabel(QStringLiteral("0"), fraCall), QStringLiteral("lblTotalCalls"));
    lblStoredName = named(new QLabel(fraCall), QStringLiteral("lblStoredName"));
    lblStoredTel = named(new QLabel(fraCall), QStringLiteral("lblStoredTel"));
    for (QLabel* label : {lblStoredName, lblStoredTel})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    updnCalls = new UpDown(QStringLiteral("updnCalls"), fraCall);
    updnCalls->up->setToolTip(QStringLiteral("Next stored call"));
    updnCalls->down->setToolTip(QStringLiteral("Previous stored call"));
    cmdClear[0] = named(new QPushButton(QStringLiteral("&All Stored Calls"), fraCall),
                        QStringLiteral("cmdClear_0"));
    cmdClear[1] = named(new QPushButton(QStringLiteral("&This Call Only"), fraCall),
                        QStringLiteral("cmdClear_1"));

    auto* position = new QHBoxLayout;
    position->addWidget(new QLabel(QStringLiteral("Call"), fraCall));
    position->addWidget(lblCall);
    position->addWidget(new QLabel(QStringLiteral("of"), fraCall));
    position->addWidget(lblTotalCalls);
    position->addStretch(1);
    position->addWidget(updnCalls);
    auto* caller = new QGridLayout;
    caller->addWidget(new QLabel(QStringLiteral("Name"), fraCall), 0, 0);
    caller->addWidget(lblStoredName, 0, 1);
    caller->addWidget(new QLabel(QStringLiteral("Telephone"), fraCall), 1, 0);
    caller->addWidget(lblStoredTel, 1, 1);
    caller->setColumnStretch(1, 1);
    auto* deleting = new QHBoxLayout;
    deleting->addWidget(new QLabel(QStringLiteral("Delete"), fraCall));
    deleting->addWidget(cmdClear[1]);
    deleting->addWidget(cmdClear[0]);
    deleting->addStretch(1);
    auto* callLayout = new QVBoxLayout(fraCall);
    callLayout->addLayout(position);
    callLayout->addLayout(caller);
    callLayout->addLayout(deleting);

    fraCallBack =
        named(new QGroupBox(QStringLiteral("Call Back"), this), QStringLiteral("fraCallBack"));
    optSA = named(new QRadioButton(QStringLiteral("Create a Service Attention"), fraCallBack),
                  QStringLiteral("optSA"));
    optMeeting = named(new QRadioButton(QStringLiteral("Schedule a Customer Meeting"), fraCallBack),
                       QStringLiteral("optMeeting"));
    optExitCallback = named(new QRadioButton(QStringLiteral("Cancel"), fraCallBack),
                            QStringLiteral("optExitCallback"));
    // Most calls are for service.
    optSA->setChecked(true);
    cmdContinueCallback = named(new QPushButton(QStringLiteral("Perform this Action"), fraCallBack),
                                QStringLiteral("cmdContinueCallback"));
    auto* backLayout = new QGridLayout(fraCallBack);
    backLayout->addWidget(optSA, 0, 0);
    backLayout->addWidget(optMeeting, 1, 0);
    backLayout->addWidget(optExitCallback, 2, 0);
    backLayout->addWidget(cmdContinueCallback, 2, 1, Qt::AlignRight);
    backLayout->setColumnStretch(0, 1);

    auto* top = new QHBoxLayout;
    top->addStretch(1);
    top->addWidget(cmdCallLater);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(fraCall);
    layout->addWidget(fraCallBack);
    fraCall->setVisible(false);
    fraCallBack->setVisible(false);

    SetTabChain({cmdCallLater, updnCalls->up, updnCalls->down, cmdClear[1], cmdClear[0], optSA,
                 optMeeting, optExitCallback, cmdContinueCallback});

    connect(cmdCallLater, &QPushButton::clicked, this, &StoredCallPanel::cmdCallLater_Click);
    connect(updnCalls, &UpDown::upClicked, this,
            [this] { BrowseStoredCalls(StoredCalls::Step::Up); });
    connect(updnCalls, &UpDown::downClicked, this,
            [this] { BrowseStoredCalls(StoredCalls::Step::Down); });
    for (int i = 0; i < 2; ++i)
        connect(cmdClear[i], &QPushButton::clicked, this, [this, i] { cmdClear_Click(i); });
    connect(cmdContinueCallback, &QPushButton::clicked, this,
            &StoredCallPanel::cmdContinueCallback_Click);
}

void StoredCallPanel::report(const Status& s)
{
    if (!s) c.dialogs.message(s.message());
}

void StoredCallPanel::Form_Activate()
{
    HideStoredCalls();
    cmdCallLater->setText(kCallNow);
    cmdCallLater->setEnabled(StoredCalls::Count(c.store).valueOr(0) > 0);
}

void StoredCallPanel::HideStoredCalls()
{
    fraCall->hide();
    fraCallBack->hide();
}

void StoredCallPanel::cmdCallLater_Click()
{
    if (cmdCallLater->text() == kCallLater) {
        cmdCallLater->setText(kCallNow);
        HideStoredCalls();
    } else {
        OpenStoredCalls();
    }
}

void StoredCallPanel::OpenStoredCalls()
{
    const Result<qint32> count = StoredCalls::Count(c.store);
    report(count.status());
    m_count = count.valueOr(0);
    if (m_count < 1) {
        // The calls were cleared meanwhile: nothing to open.
        HideStoredCalls();
        cmdCallLater->setText(kCallNow);
        cmdCallLater->setEnabled(false);
        return;
    }
    fraCall->show();
    fraCallBack->show();
    cmdCallLater->setEnabled(true);
    cmdCallLater->setText(kCallLater);
    lblTotalCalls->setText(QString::number(m_count));
    lblCall->setText(QStringLiteral("1"));
    BrowseStoredCalls(StoredCalls::Step::Startup);
}

void StoredCallPanel::BrowseStoredCalls(StoredCalls::Step step)
{
    // Leaving the account on show saves it; a refused save keeps it, and the call, on show.
    if (!m_screen.saveAccount()) return;
    if (m_count < 1) return;
    CallPointer = StoredCalls::StepTo(step, CallPointer, m_count);
    lblCall->setText(QString::number(CallPointer));
    const Result<CallRecord> call = StoredCalls::Read(c.store, CallPointer);
    if (!call) {
        report(call.status());
        return;
    }
    lblStoredName->setText(call->text(CallField::CallName));
    lblStoredTel->setText(call->text(CallField::CallNumber));
    m_screen.lookUpCaller(call->text(CallField::CallNumber));
}

void StoredCallPanel::cmdClear_Click(int index)
{
    if (index == 0) {
        ClearStoredCalls();
        return;
    }
    if (!c.dialogs.ask(QStringLiteral("Click YES to Delete this Call only"),
                       QStringLiteral("Delete a Single Call Record")))
        return;
    if (m_count <= 1) {
        DeleteAllStoredCalls();
        return;
    }
    report(StoredCalls::DeleteOne(c.store, CallPointer));
    // The call after the deleted one takes its place; after the last, the first.
    OpenStoredCalls();
}

void StoredCallPanel::ClearStoredCalls()
{
    if (c.dialogs.message(QStringLiteral("This will Delete All Stored Calls"),
                          QStringLiteral("Delete Stored Calls"), Dialogs::Buttons::OkCancel,
                          Dialogs::Icon::Question) == Dialogs::Answer::Ok)
        DeleteAllStoredCalls();
}

void StoredCallPanel::DeleteAllStoredCalls()
{
    HideStoredCalls();
    report(StoredCalls::DeleteAll(c.store));
    m_count = 0;
    cmdCallLater->setText(kCallNow);
    cmdCallLater->setEnabled(false);
}

void StoredCallPanel::cmdContinueCallback_Click()
{
    // The account goes on to the Scheduling Screen as it is on show: saved first.
    if (!optExitCallback->isChecked() && !m_screen.saveAccount()) return;
    ContinueCallback();
}

void StoredCallPanel::ContinueCallback()
{
    HideStoredCalls();
    // The panel is put away either way; the call itself stays stored until deleted.
    cmdCallLater->setText(kCallNow);
    if (optExitCallback->isChecked()) return;
    emit actionChosen(optMeeting->isChecked());
}
} // namespace tresvane
