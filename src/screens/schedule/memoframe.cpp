#include "screens/schedule/memoframe.h"

#include "core/documents/invoicememo.h"
#include "core/ports/dialogs.h"
#include "screens/shell/named.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
MemoFrame::MemoFrame(Store& store, Dialogs& dialogs, QWidget* parent)
    : QGroupBox(QStringLiteral("Invoice Memo"), parent), m_store(store), m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("fraMemo"));
    lblMemo = named(new QLabel(QStringLiteral("This memo is printed on invoices when "
                                              "\"Add Memo to Current Invoice\" is ticked."),
                               this),
                    QStringLiteral("lblMemo"));
    lblMemo->setWordWrap(true);
    txtMemo = named(new QPlainTextEdit(this), QStringLiteral("txtMemo"));
    txtMemo->setTabChangesFocus(true);
    cmdInvoiceMemo = named(new QPushButton(QStringLiteral("Save &Memo"), this),
                           QStringLiteral("cmdInvoiceMemo"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblMemo);
    layout->addWidget(txtMemo, 1);
    layout->addWidget(cmdInvoiceMemo, 0, Qt::AlignRight);
    connect(cmdInvoiceMemo, &QPushButton::clicked, this, &MemoFrame::cmdInvoiceMemo_Click);
}

Status MemoFrame::LoadMemo()
{
    Result<InvoiceMemo> memo = ReadInvoiceMemo(m_store);
    if (!memo) return memo.status();
    txtMemo->setPlainText(memo->exists ? memo->lines.join(u'\n') : QString());
    lblMemo->setVisible(memo->exists);
    return {};
}

void MemoFrame::cmdInvoiceMemo_Click()
{
    if (Status s = WriteInvoiceMemo(m_store, txtMemo->toPlainText()); !s) {
        m_dialogs.message(s.message());
        return;
    }
    lblMemo->setVisible(true);
}
} // namespace tresvane
