#include "screens/telephony/frmdialer.h"

#include "core/ports/dialogs.h"
#include "core/ports/seriallink.h"
#include "screens/shell/named.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
const QString kReady = QStringLiteral("Ready to Dial......");
const QString kPickup = QStringLiteral("Pickup Receiver - Then Click Hangup");
const QString kPrefix = QStringLiteral("1-");
} // namespace

frmDialer::frmDialer(CoreContext& ctx, SerialLink& link, QWidget* parent)
    : QDialog(parent), c(ctx), m_link(link)
{
    setObjectName(QStringLiteral("frmDialer"));
    setWindowTitle(QStringLiteral("Dialer"));

    Text1 = named(new QLabel(this), QStringLiteral("Text1"));
    Label2_3 = named(new QLabel(this), QStringLiteral("Label2_3"));
    lblName = named(new QLabel(QStringLiteral("Name"), this), QStringLiteral("lblName"));
    lblNumber = named(new QLabel(this), QStringLiteral("lblNumber"));
    QFont big = lblNumber->font();
    big.setPointSizeF(big.pointSizeF() * 1.5);
    big.setBold(true);
    lblName->setFont(big);
    lblNumber->setFont(big);
    ckDial1 =
        named(new QCheckBox(QStringLiteral("Dial a Prefix  1-"), this), QStringLiteral("ckDial1"));
    cmdNewDial =
        named(new QPushButton(QStringLiteral("&Dial"), this), QStringLiteral("cmdNewDial"));
    cmdCancel =
        named(new QPushButton(QStringLiteral("Pick up the receiver then &Click to Talk"), this),
              QStringLiteral("cmdCancel"));
    cmdHangup = named(new QPushButton(QStringLiteral("D&isconnect/Cancel"), this),
                      QStringLiteral("cmdHangup"));
    lblStatus = named(new QLabel(kReady, this), QStringLiteral("lblStatus"));
    lblStatus->setWordWrap(true);

    auto* speedGrid = new QGridLayout;
    for (int i = 0; i < SpeedNumbers::kCount; ++i) {
        cmdDialer[i] = named(new QPushButton(this), QStringLiteral("cmdDialer_%1").arg(i));
        cmdDialer[i]->setMinimumWidth(140);
        speedGrid->addWidget(cmdDialer[i], i / 2, i % 2);
        connect(cmdDialer[i], &QPushButton::clicked, this, [this, i] { cmdDialer_Click(i); });
    }

    static const char* const speedCaptions[5] = {
        "&Save", "Ca&ncel", "Delete Selected Speed Dial &No", "&Restore Original Call Recipient",
        "&Load Current Player"};
    for (int i = 0; i < 5; ++i) {
        cmdSpeedDialer[i] = named(new QPushButton(QString::fromLatin1(speedCaptions[i]), this),
                                  QStringLiteral("cmdSpeedDialer_%1").arg(i));
        connect(cmdSpeedDialer[i], &QPushButton::clicked, this,
                [this, i] { cmdSpeedDialer_Click(i); });
    }
    fraSpeedDial = named(new QFrame(this), QStringLiteral("fraSpeedDial"));
    fraSpeedDial->setFrameShape(QFrame::StyledPanel);
    auto* speedForm = new QGridLayout(fraSpeedDial);
    static const char* const boxCaptions[2] = {"Name", "Number"};
    for (int i = 0; i < 2; ++i) {
        txtDialer[i] = named(new QLineEdit(fraSpeedDial), QStringLiteral("txtDialer_%1").arg(i));
        speedForm->addWidget(new QLabel(QString::fromLatin1(boxCaptions[i]), fraSpeedDial), i, 0);
        speedForm->addWidget(txtDialer[i], i, 1, 1, 2);
    }
    speedForm->addWidget(cmdSpeedDialer[0], 2, 0);
    speedForm->addWidget(cmdSpeedDialer[1], 2, 1);
    speedForm->addWidget(cmdSpeedDialer[4], 2, 2);
    fraSpeedDial->setVisible(false);

    fraHelp = named(new QFrame(this), QStringLiteral("fraHelp"));
    auto* helpText = new QLabel(
        QStringLiteral("Click Dial: the modem dials the number. When the status says so, pick "
                       "up the receiver of the telephone behind the modem, then click the "
                       "button above the status: the modem lets go of the line and you talk.\n"
                       "Speed numbers: click an empty button to store a name and number in it; "
                       "click a stored one to make it the number to dial. \"Restore\" brings "
                       "back the person you came with."),
        fraHelp);
    helpText->setWordWrap(true);
    (new QVBoxLayout(fraHelp))->addWidget(helpText);
    fraHelp->setVisible(false);
    cmdHelp = named(new QPushButton(QStringLiteral("Show Help"), this), QStringLiteral("cmdHelp"));

    auto* recipient = new QVBoxLayout;
    recipient->addWidget(Text1);
    recipient->addWidget(Label2_3);
    recipient->addWidget(lblName);
    recipient->addWidget(lblNumber);
    recipient->addWidget(ckDial1);
    recipient->addWidget(cmdNewDial);
    recipient->addWidget(cmdCancel);
    recipient->addWidget(cmdHangup);
    recipient->addWidget(lblStatus);
    recipient->addStretch(1);
    auto* speed = new QVBoxLayout;
    speed->addWidget(new QLabel(QStringLiteral("Speed Dial"), this));
    speed->addLayout(speedGrid);
    speed->addWidget(cmdSpeedDialer[2]);
    speed->addWidget(cmdSpeedDialer[3]);
    speed->addWidget(fraSpeedDial);
    speed->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(recipient, 1);
    columns->addLayout(speed, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(fraHelp);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(cmdHelp);
    layout->addLayout(bottom);

    m_waitNotice.setSingleShot(true);
    m_waitNotice.setInterval(3000);
    connect(&m_waitNotice, &QTimer::timeout, this, [this] {
        if (m_dialing)
            lblStatus->setText(QStringLiteral("Waiting for the modem to answer..... %1\n"
                                              "Click Disconnect/Cancel to stop")
                                   .arg(lblNumber->text()));
    });
    connect(&m_link, &SerialLink::bytesArrived, this, &frmDialer::bytesArrived);
    connect(cmdNewDial, &QPushButton::clicked, this, &frmDialer::cmdNewDial_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmDialer::cmdCancel_Click);
    connect(cmdHangup, &QPushButton::clicked, this, &frmDialer::cmdHangup_Click);
    connect(ckDial1, &QCheckBox::clicked, this, &frmDialer::ckDial1_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmDialer::cmdHelp_Click);
}

void frmDialer::SetRecipient(const QString& name, const QString& number)
{
    lblName->setText(name);
    lblNumber->setText(number);
    ckDial1->setChecked(number.startsWith(kPrefix));
}

void frmDialer::Form_Activate()
{
    cmdSpeedDialer[2]->setVisible(false);
    cmdNewDial->setEnabled(true);
    cmdCancel->setEnabled(false);
    lblStatus->setText(kReady);
    CancelDial = false;
    m_dialing = false;
    if (!m_link.isOpen()) {
        // The port could not be had: the user is told why, and there is nothing to dial on.
        if (Status s = m_link.open(); !s) {
            lblStatus->setText(s.message());
            cmdNewDial->setEnabled(false);
        }
    }
    LoadSpeedNumbers();
}

void frmDialer::LoadSpeedNumbers()
{
    m_speed = SpeedNumbers();
    Result<SpeedNumbers> read = ReadSpeedNumbers(c.store);
    const bool usable = read.ok();
    if (usable)
        m_speed = *read;
    else
        c.dialogs.message(read.message(), {}, Dialogs::Buttons::Ok, Dialogs::Icon::Exclamation);
    // A damaged file is left as it is for the user to look at: no button may write over it.
    for (int i = 0; i < SpeedNumbers::kCount; ++i) {
        cmdDialer[i]->setText(m_speed.names[i]);
        cmdDialer[i]->setEnabled(usable);
    }
}

bool frmDialer::WriteSpeedNumbers()
{
    if (Status s = tresvane::WriteSpeedNumbers(c.store, m_speed); !s) {
        c.dialogs.message(s.message());
        return false;
    }
    return true;
}

void frmDialer::cmdNewDial_Click()
{
    cmdNewDial->setEnabled(false);
    lblStatus->setText(QStringLiteral("Dialing..... ") + lblNumber->text());
    m_link.clear();
    Reply.clear();
    CancelDial = false;
    m_dialing = true;
    // A modem that never answers keeps the dial waiting; this button stops it.
    cmdCancel->setEnabled(true);
    m_link.send("ATDT" + lblNumber->text().toLatin1() + ";\r");
    m_waitNotice.start();
}

void frmDialer::bytesArrived()
{
    if (!m_dialing) return;
    // The reply comes in pieces; an "OK" may be split between two of them.
    Reply += QString::fromLatin1(m_link.readAll());
    if (!Reply.contains(u"OK")) return;
    m_dialing = false;
    m_waitNotice.stop();
    lblStatus->setText(kPickup);
    cmdCancel->setEnabled(true);
    cmdCancel->setFocus();
}

void frmDialer::cmdCancel_Click()
{
    CancelDial = true;
    HangUp();
}

void frmDialer::cmdHangup_Click()
{
    HangUp();
}

void frmDialer::HangUp()
{
    // The modem lets go of the line; a telephone picked up behind it keeps the call. The
    // port stays open for caller ID.
    m_dialing = false;
    m_waitNotice.stop();
    m_link.send(QByteArrayLiteral("ATH\r"));
    hide();
}

void frmDialer::reject()
{
    HangUp();
    QDialog::reject();
}

void frmDialer::closeEvent(QCloseEvent* event)
{
    HangUp();
    event->accept();
}

void frmDialer::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    emit hidden();
}

void frmDialer::ckDial1_Click()
{
    const QString number = lblNumber->text();
    if (ckDial1->isChecked())
        lblNumber->setText(kPrefix + number);
    else if (number.startsWith(kPrefix))
        lblNumber->setText(number.mid(2));
}

void frmDialer::cmdDialer_Click(int index)
{
    SpeedIndex = index;
    SavedName = lblName->text();
    SavedNumber = lblNumber->text();
    cmdSpeedDialer[2]->setVisible(false);
    if (cmdDialer[index]->text().isEmpty()) {
        fraSpeedDial->setVisible(true);
        txtDialer[0]->setFocus();
        return;
    }
    lblName->setText(m_speed.names[index]);
    lblNumber->setText(m_speed.numbers[index]);
    cmdSpeedDialer[2]->setVisible(true);
}

void frmDialer::cmdSpeedDialer_Click(int index)
{
    switch (index) {
    case 4:
        txtDialer[0]->setText(lblName->text());
        txtDialer[1]->setText(lblNumber->text());
        [[fallthrough]];
    case 0:
        cmdDialer[SpeedIndex]->setText(txtDialer[0]->text());
        m_speed.names[SpeedIndex] = txtDialer[0]->text();
        m_speed.numbers[SpeedIndex] = txtDialer[1]->text();
        WriteSpeedNumbers();
        [[fallthrough]];
    case 1:
        txtDialer[0]->clear();
        txtDialer[1]->clear();
        fraSpeedDial->setVisible(false);
        break;
    case 2: {
        const bool yes =
            c.dialogs.ask(QStringLiteral("This will delete SpeedDial entry  ") +
                              cmdDialer[SpeedIndex]->text() + QStringLiteral("\nAre you Sure"),
                          QStringLiteral("Delete Speed Dial"));
        if (!yes) {
            cmdSpeedDialer[2]->setVisible(false);
            break;
        }
        m_speed.names[SpeedIndex].clear();
        m_speed.numbers[SpeedIndex].clear();
        // The file closes up the gap; the buttons are filled again from it.
        if (WriteSpeedNumbers()) LoadSpeedNumbers();
        cmdSpeedDialer[2]->setVisible(false);
        break;
    }
    case 3:
        lblName->setText(SavedName);
        lblNumber->setText(SavedNumber);
        break;
    default:
        break;
    }
}

void frmDialer::cmdHelp_Click()
{
    fraHelp->setVisible(fraHelp->isHidden());
    cmdHelp->setText(fraHelp->isHidden() ? QStringLiteral("Show Help")
                                         : QStringLiteral("Hide Help"));
}
} // namespace tresvane
