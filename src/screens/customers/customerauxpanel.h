#pragma once

#include "core/customers/auxdata.h"
#include "core/state/corecontext.h"

#include <QFrame>
#include <array>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tresvane
{
// The aux data panel of the customer screen (fraAux): six free texts per account under
// six headings shared by all accounts, and a larger editor for one box (fraBig). The
// panel knows the account only by the number the screen gives it; moving to the next or
// previous account is the screen's, asked for by a signal.
class CustomerAuxPanel : public QFrame
{
    Q_OBJECT
public:
    // accountNo gives the account the texts belong to: the Account No box as it stands.
    CustomerAuxPanel(CoreContext& ctx, std::function<QString()> accountNo,
                     QWidget* parent = nullptr);

    std::array<QLineEdit*, 6> txtHeading{};
    std::array<QPlainTextEdit*, 6> txtAux{};
    std::array<QPushButton*, 6> lblClear{};
    QCheckBox* ckSaveAux;
    QLabel* lblAccount;
    // 0 "Save Headings", 2 "Close Window", 3 "Reload This Acct", 4 "Hide", 5 "Clear",
    // 6 "Oops, Reload", 7 "Show Next Account", 8 "Show Previous Account"; there is no 1.
    std::array<QPushButton*, 9> cmdSaveAux{};
    QFrame* fraBig;
    QPlainTextEdit* txtBig;
    QLabel* lblEditing;
    // The box open in the big editor.
    qint16 AuxBox = 0;

    // The account whose texts the boxes hold: the trimmed Account No box.
    QString account() const { return m_accountNo().trimmed(); }

    void LoadAuxHeadings();
    // The boxes from the account's files, unless ckSaveAux keeps them for this account.
    void LoadAuxData();
    // Every box into its file, an empty one too.
    void SaveAuxData();
    void cmdSaveAux_Click(int index);
    void txtAux_DblClick(int n);

signals:
    // Show the next (+1) or previous (-1) account; the screen then calls LoadAuxData.
    void moveAccount(int step);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void report(const Status& s);

    CoreContext& c;
    std::function<QString()> m_accountNo;
};
} // namespace tresvane
