#pragma once

#include "core/state/corecontext.h"
#include "core/telephony/storedcalls.h"

#include <QWidget>
#include <array>
#include <functional>

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace tresvane
{
class UpDown;

// The stored calls on the customer screen (fraCall, with the action panel fraCallBack):
// the calls kept in TelCall.txt while the office was away, one at a time, each looked up
// among the accounts by its number, and the Service Attention or meeting started from
// there. The panel knows the accounts only through what the screen gives it: the save of
// the account on show and the search by telephone.
class StoredCallPanel : public QWidget
{
    Q_OBJECT
public:
    struct Screen {
        // The save of the account on show; false when it was refused or the user left.
        std::function<bool()> saveAccount;
        // The caller's number looked up among the accounts, as the search by telephone
        // does: one account shown, several listed, none asked about.
        std::function<void(const QString& number)> lookUpCaller;
    };
    StoredCallPanel(CoreContext& ctx, Screen screen, QWidget* parent = nullptr);

    // "Call Now" opens the calls, "Call Later" puts them away; off while none are stored.
    QPushButton* cmdCallLater;
    QGroupBox* fraCall;
    QLabel* lblCall;       // the number of the call on show
    QLabel* lblTotalCalls; // how many are stored
    QLabel* lblStoredName;
    QLabel* lblStoredTel;
    UpDown* updnCalls;
    // 0 "&All Stored Calls", 1 "&This Call Only".
    std::array<QPushButton*, 2> cmdClear{};
    QGroupBox* fraCallBack;
    QRadioButton* optSA;
    QRadioButton* optMeeting;
    QRadioButton* optExitCallback; // "Cancel"
    QPushButton* cmdContinueCallback;

    // The call on show, kept while the program runs so that coming back to the customer
    // screen goes on from the same call; 0 before any.
    qint32 CallPointer = 0;
    // The calls counted when the list was last opened: the up-down's top.
    qint32 callCount() const { return m_count; }

    // The customer screen coming up: the panel closed, "Call Now" offered when calls wait.
    void Form_Activate();
    void OpenStoredCalls();
    void HideStoredCalls();
    // The account on show saved, then the call after the step shown and its caller looked up.
    void BrowseStoredCalls(StoredCalls::Step step);
    // Asks, and on OK deletes every stored call.
    void ClearStoredCalls();
    void DeleteAllStoredCalls();
    void cmdCallLater_Click();
    void cmdClear_Click(int index);
    // "Perform this Action": the account on show saved, then the chosen action.
    void cmdContinueCallback_Click();
    // The chosen action for an account already saved (the screen's select button comes
    // here while the action panel is up): Cancel only puts the panel away.
    void ContinueCallback();

signals:
    // The account on show is to be booked: a meeting, or else a Service Attention.
    void actionChosen(bool meeting);

private:
    void report(const Status& s);

    CoreContext& c;
    Screen m_screen;
    qint32 m_count = 0;
};
} // namespace tresvane
