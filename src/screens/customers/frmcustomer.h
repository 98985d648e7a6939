#pragma once

#include "core/customers/accountindex.h"
#include "core/customers/customerediting.h"
#include "core/state/corecontext.h"
#include "screens/shell/unsavededits.h"

#include <QSet>
#include <QWidget>
#include <array>
class QAction;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QMenuBar;
class QPushButton;

namespace tresvane
{
class AccountListModel;
class CustomerAuxPanel;
class CustomerSearchPanel;
class StoredCallPanel;

// The customer screen: accounts are added, edited and chosen here, and most routines of
// the menu start here. There is no save button: the account on the screen is written
// back whenever the user leaves it, by any button.
class frmCustomer : public QWidget, public UnsavedEdits
{
    Q_OBJECT
public:
    explicit frmCustomer(CoreContext& ctx, QWidget* parent = nullptr);
    ~frmCustomer() override;

    // The boxes of the record; there is no box 4.
    std::array<QLineEdit*, 12> txtCustomer{};
    QComboBox* cboCity;
    QComboBox* cboStates;
    QLineEdit* txtAdd3;
    QLineEdit* txtAdd4;
    QComboBox* cboTitle;
    QLabel* lbLType;
    QPushButton* cmdAcctType;
    QFrame* fraUSAddress;
    QFrame* fraIntAddress;
    QPushButton* cmdSame; // "Set Acct = Tel"
    QPushButton* cmdNew;
    // 0 "Cancel Add New", shown while a new account is begun; 1 the select button.
    std::array<QPushButton*, 2> cmdCustomer{};
    QPushButton* cmdExit;
    // 0 first, 1 previous, 2 next, 3 last, 4 a quarter in, 5 three quarters, 6 half way.
    std::array<QPushButton*, 7> cmdNav{};
    // 0 search panel, 1 name list, 2 back from the name list, 3 the complete list.
    std::array<QPushButton*, 4> Command1{};
    QComboBox* cboAccounts;
    // The dial button, hidden without a modem; the service history of the account.
    QPushButton* imgDialer;
    QPushButton* cmdHistory;
    QMenuBar* menuBar;
    QAction* mnuAdd;
    QAction* mnuAux;
    QAction* mnuDelete;
    QAction* mnuPrint;
    CustomerSearchPanel* search;
    CustomerAuxPanel* aux;
    StoredCallPanel* calls;

    // Where the screen stands in the file: gCurrentRec and gLastrec.
    CustomerPosition at;
    QString CurrentCustomer;
    bool USAStyle = true;
    bool AcctOK = true;

    // Coming to the front, each time; reads Mode as it stands.
    void Form_Activate();
    void ShowCustomer();
    // The tests and the save of the account on the screen; sets and returns AcctOK.
    bool UpdateCustomerRecord();
    // The telephone test, then the save: false when the user stays (focus on the
    // telephone), leaves for the menu, or the save was refused.
    bool CheckTelephoneAndSave();
    void SaveCustomer();
    void SetAccountType(const QString& type);
    void BeginNewCustomer();
    void FillAccountList();
    void AddCity(const QString& city);
    void EnableNavigation(bool enabled);
    void EnableLocate(bool enabled);

    void cmdNav_Click(int index);
    void cmdAcctType_Click();
    void cmdSame_Click();
    void cmdCancelNew_Click();
    void cmdSelect_Click();
    void cmdExit_Click();
    // The dial button: the account saved first, then the dialer for its phone or cell.
    void imgDialer_Click();
    void Command1_Click(int index);
    void mnuAdd_Click();
    void mnuAux_Click();
    void mnuDelete_Click();
    void mnuPrint_Click();
    // The duplicate account test, when the Account No box loses the focus.
    void txtAccount_LostFocus();
    // A name chosen in cboAccounts, or typed and left.
    void cboAccounts_Click(int index);
    void cboAccounts_LostFocus();

    // The boxes differ from the account as last shown or saved.
    bool hasUnsavedEdits() const override;
    // The save every button of the screen makes when the account is left.
    bool saveUnsavedEdits() override;

    // The sorted name list behind cboAccounts.
    const AccountIndex& accountIndex() const { return m_accounts; }

signals:
    // The return button: back to the menu.
    void showMenu();
    // The select button with a good save: the routine of Mode goes on with the customer
    // published in the shared texts.
    void customerSelected();
    // The service history of the account on the screen, shown over this screen.
    void showHistory(const QString& account);
    // The dialer, for this name and number.
    void dialRequested(const QString& name, const QString& number);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildBoxes();
    void buildButtons();
    void buildLayout();
    void wireBoxes();
    CustomerBoxes boxes() const;
    void setBoxes(const CustomerBoxes& b);
    void clearBoxes();
    void leaveToMenu();
    bool report(const Status& s);
    void cboAccounts_Change(const QString& typed);
    void moveAux(int step);
    void setNameBoxesVisible(bool business);
    void lookUpCaller(const QString& number);
    void callBack(bool meeting);

    CoreContext& c;
    AccountIndex m_accounts;
    AccountListModel* m_accountModel;
    QSet<QString> m_cities;
    // One-shot: the next change of cboAccounts is not completed (an erasing key).
    bool m_noComplete = false;
    // The last save ended with the user choosing to leave for the menu.
    bool m_leftForMenu = false;
    // The number of the stored call being looked up: a new account begun from it takes it.
    QString m_caller;
    // The boxes as last shown from the file, preset for a new account, or saved.
    CustomerBoxes m_unchanged;
    void markUnchanged() { m_unchanged = boxes(); }
};
} // namespace tresvane
