#pragma once

#include "core/io/result.h"

#include <QGroupBox>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tresvane
{
class Dialogs;
class Store;

// The invoice memo panel: the lines of ServiceInvoiceMemo.txt in a box, and the button
// that stores the box's text as the memo.
class MemoFrame : public QGroupBox
{
    Q_OBJECT
public:
    MemoFrame(Store& store, Dialogs& dialogs, QWidget* parent = nullptr);

    // The memo on file into the box; the note that a memo is on file shows only then.
    Status LoadMemo();
    // Replaces the memo file with the box's text.
    void cmdInvoiceMemo_Click();

private:
    Store& m_store;
    Dialogs& m_dialogs;
    QPlainTextEdit* txtMemo;
    QLabel* lblMemo;
    QPushButton* cmdInvoiceMemo;
};
} // namespace tresvane
