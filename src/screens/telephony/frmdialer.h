#pragma once

#include "core/state/corecontext.h"
#include "core/telephony/speednumbers.h"

#include <QDialog>
#include <QTimer>
#include <array>

class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tresvane
{
class SerialLink;

// The dialer: dials a number through the modem so that the user can pick up the telephone
// chained behind it, and keeps ten speed numbers. Other screens hand it a name and a
// number and show it as a modal dialog; closing it hangs up and closes only the dialer.
class frmDialer : public QDialog
{
    Q_OBJECT
public:
    frmDialer(CoreContext& ctx, SerialLink& link, QWidget* parent = nullptr);

    // What the modem search found, and the modem's port.
    QLabel* Text1;
    QLabel* Label2_3;
    QLabel* lblName;
    QLabel* lblNumber;
    QCheckBox* ckDial1;
    QPushButton* cmdNewDial; // "&Dial"
    QPushButton* cmdCancel;  // pick up the receiver, then this
    QPushButton* cmdHangup;  // "D&isconnect/Cancel"
    QLabel* lblStatus;
    std::array<QPushButton*, SpeedNumbers::kCount> cmdDialer{};
    QFrame* fraSpeedDial;
    std::array<QLineEdit*, 2> txtDialer{}; // name, number
    // 0 save, 1 cancel, 2 delete the selected entry, 3 restore the recipient, 4 load the
    // recipient into the boxes and save.
    std::array<QPushButton*, 5> cmdSpeedDialer{};
    QFrame* fraHelp;
    QPushButton* cmdHelp;

    // Hands the call over: who and which number.
    void SetRecipient(const QString& name, const QString& number);
    // Coming up: the screen reset, the port opened if it is not, the speed numbers loaded.
    void Form_Activate();

    void cmdNewDial_Click();
    void cmdCancel_Click();
    void cmdHangup_Click();
    void ckDial1_Click();
    void cmdDialer_Click(int index);
    void cmdSpeedDialer_Click(int index);
    void cmdHelp_Click();

    // A dial is waiting for the modem's OK.
    bool dialing() const { return m_dialing; }
    bool CancelDial = false;
    QString Reply;
    int SpeedIndex = 0;
    QString SavedName;
    QString SavedNumber;
    const SpeedNumbers& speedNumbers() const { return m_speed; }

    // How long the modem may take before the status says the dial is waiting on it.
    void setWaitNoticeMs(int ms) { m_waitNotice.setInterval(ms); }

public slots:
    void reject() override;

signals:
    // The dialer has gone from the screen, however it was closed.
    void hidden();

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void bytesArrived();
    void LoadSpeedNumbers();
    bool WriteSpeedNumbers();
    void HangUp();

    CoreContext& c;
    SerialLink& m_link;
    SpeedNumbers m_speed;
    QTimer m_waitNotice;
    bool m_dialing = false;
};
} // namespace tresvane
