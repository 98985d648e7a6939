#include "screens/calendar/frmslip.h"

#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/named.h"
#include "screens/shell/taborder.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
frmSlip::frmSlip(CoreContext& ctx, QWidget* parent) : QDialog(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmSlip"));
    setWindowTitle(QStringLiteral("Service Attention Slip"));
    setModal(true);

    auto value = [this](const char* name) {
        auto* l = named(new QLabel(this), QString::fromLatin1(name));
        // The texts can be selected and copied, a telephone number above all.
        l->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        l->setFocusPolicy(Qt::StrongFocus);
        l->setMinimumWidth(fontMetrics().horizontalAdvance(u'M') * 16);
        return l;
    };
    lblName = value("lblName");
    lblStreet = value("lblStreet");
    lblApt = value("lblApt");
    lblCity = value("lblCity");
    lblState = value("lblState");
    lblZip = value("lblZip");
    lblTel = value("lblTel");
    lblAccount = value("lblAccount");
    lblAssignTo = value("lblAssignTo");
    lblDuration = value("lblDuration");
    lblTime = value("lblTime");
    lblDate = value("lblDate");
    lblReference = value("lblReference");
    QFont bold = lblName->font();
    bold.setBold(true);
    lblName->setFont(bold);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    int row = 0;
    auto add = [&](const QString& caption, QLabel* field, int column) {
        grid->addWidget(new QLabel(caption, this), row, column * 2);
        grid->addWidget(field, row, column * 2 + 1);
    };
    add(QStringLiteral("Name:"), lblName, 0);
    add(QStringLiteral("Account:"), lblAccount, 1);
    ++row;
    add(QStringLiteral("Street:"), lblStreet, 0);
    add(QStringLiteral("Telephone:"), lblTel, 1);
    ++row;
    add(QStringLiteral("Address 2:"), lblApt, 0);
    add(QStringLiteral("Assigned To:"), lblAssignTo, 1);
    ++row;
    add(QStringLiteral("City:"), lblCity, 0);
    add(QStringLiteral("Date:"), lblDate, 1);
    ++row;
    add(QStringLiteral("State:"), lblState, 0);
    add(QStringLiteral("Time:"), lblTime, 1);
    ++row;
    add(QStringLiteral("Zip:"), lblZip, 0);
    add(QStringLiteral("Duration:"), lblDuration, 1);
    ++row;
    add(QStringLiteral("Reference:"), lblReference, 0);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);

    fraDial = named(new QFrame(this), QStringLiteral("fraDial"));
    imgDialer = named(new QToolButton(fraDial), QStringLiteral("imgDialer"));
    imgDialer->setText(QStringLiteral(" Call Customer"));
    imgDialer->setIcon(style()->standardIcon(QStyle::SP_DialogYesButton));
    imgDialer->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto* dial = new QHBoxLayout(fraDial);
    dial->setContentsMargins(0, 0, 0, 0);
    dial->addWidget(imgDialer);
    fraDial->setVisible(false);

    cmdAttn = named(new QPushButton(QStringLiteral("&Close"), this), QStringLiteral("cmdAttn"));
    cmdAttn->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(fraDial);
    buttons->addStretch(1);
    buttons->addWidget(cmdAttn);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
    SetTabChain({lblName, lblAccount, lblStreet, lblTel, lblApt, lblAssignTo, lblCity, lblDate,
                 lblState, lblTime, lblZip, lblDuration, lblReference, imgDialer, cmdAttn});

    connect(cmdAttn, &QPushButton::clicked, this, &QDialog::close);
    connect(imgDialer, &QToolButton::clicked, this,
            [this] { emit dialRequested(lblName->text(), lblTel->text()); });
}

void frmSlip::setDialAvailable(bool available)
{
    m_dialAvailable = available;
    fraDial->setVisible(available);
}

bool frmSlip::ShowSlip(const ClickedSlot& clicked, const QString& teamName)
{
    Result<std::optional<SlipRecord>> record = FindSlotRecord(c, clicked);
    if (!record) {
        c.dialogs.message(record.message());
        return false;
    }
    if (!record->has_value()) {
        c.dialogs.message(QStringLiteral("No Data Available"));
        return false;
    }
    LoadRecData(PopupText(c.v, **record, teamName));
    // Only a slip with a telephone can be called.
    fraDial->setVisible(m_dialAvailable && !lblTel->text().isEmpty());
    show();
    raise();
    activateWindow();
    cmdAttn->setFocus();
    return true;
}

void frmSlip::LoadRecData(const SlipPopupText& t)
{
    lblName->setText(t.name);
    lblStreet->setText(t.street);
    lblApt->setText(t.apt);
    lblCity->setText(t.city);
    lblState->setText(t.state);
    lblZip->setText(t.zip);
    lblTel->setText(t.tel);
    lblAccount->setText(t.account);
    lblAssignTo->setText(t.assignTo);
    lblDuration->setText(t.duration);
    lblTime->setText(t.time);
    lblDate->setText(t.date);
    lblReference->setText(t.reference);
}
} // namespace tresvane
