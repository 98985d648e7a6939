#pragma once

#include "core/state/corecontext.h"
#include "core/telephony/calleridparser.h"
#include "core/telephony/storedcalls.h"

#include <QTimer>
#include <QWidget>
#include <array>
class QFrame;
class QLabel;
class QPushButton;
class QSpinBox;

namespace tresvane
{
class FlexGrid;
class SerialLink;

// "Unattended Call Monitoring": while the office is away the modem's caller ID reports
// are read once a second, each call is stored in TelCall.txt and counted as a customer's
// or another's. The port is held only while this screen is in front; the dialer, opened
// from here, has it in the meantime.
class frmCallID : public QWidget
{
    Q_OBJECT
public:
    frmCallID(CoreContext& ctx, SerialLink& link, QWidget* parent = nullptr);

    FlexGrid* fgCallSummary; // time, number, name; row n - 1 is stored call n
    QFrame* fraSummary;
    QLabel* lblName;
    QLabel* lblNumber;
    QLabel* lblTime;
    std::array<QLabel*, 4> lblCount{}; // 0 and 3 stored calls, 1 customers, 2 others
    QSpinBox* updnCalls;
    QLabel* Image1;          // blinks while the modem is watched; a click dials the call on show
    QPushButton* imgLogo;    // "Click on the LOGO to Reset this Form"
    QPushButton* cmdDial;    // dial the grid's current call
    QPushButton* cmdClear;   // "&Clear All Calls"
    QPushButton* mnuSummary; // "Summary" / "List"
    QPushButton* cmdExit;    // " &Main Menu"

    // The customers' numbers, read once when the screen is made.
    void Form_Load();
    // Coming to the front: the stored calls shown, the port opened and caller ID turned on.
    void Form_Activate();
    // Leaving the front: caller ID off, the port closed, the watch stopped.
    void LeaveMonitoring();
    void ResetDisplay();

    void cmdDial_Click();
    // The blinking sign: the dialer for the call on show in the labels.
    void Image1_Click();
    void cmdClear_Click();
    void mnuSummary_Click();
    void cmdExit_Click();

    qint32 TotalCalls = 0;
    qint16 CustomerCalls = 0;
    qint16 OtherCalls = 0;
    // False once the modem has refused caller ID: the watch stays off until the next
    // bring-up.
    bool callerIdOn() const { return m_callerId; }
    bool monitoring() const { return m_timer.isActive(); }
    const CallerDirectory& directory() const { return m_directory; }

    // Ticks of the watch, for tests that cannot wait a second.
    void setIntervals(int firstMs, int laterMs);

signals:
    void showMenu();
    // The dialer for this call; the port is closed first and taken back by Form_Activate.
    void dialRequested(const QString& name, const QString& number);

protected:
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Tick();
    void StoreCall(const CallerIdReport& call);
    void ShowCall(int callNo);

    CoreContext& c;
    SerialLink& m_link;
    CallerIdParser m_parser;
    CallerDirectory m_directory;
    QTimer m_timer;
    int m_firstMs = 1500;
    int m_laterMs = 1000;
    bool m_firstTick = true;
    bool m_callerId = false;
};
} // namespace tresvane
