#pragma once

#include "core/io/result.h"
#include "core/sliprecords/recordsearch.h"
#include "core/state/corecontext.h"

#include <QMainWindow>
#include <array>
class QAction;
class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tresvane
{
class FlexGrid;

// "Service Attention Record Summary": the screen on which a dispatcher finds a booked slip
// or meeting again, by the summary grid, by account or confirmation number, or by stepping
// through a file, and then deletes it, marks it completed or hands it to the Scheduling
// Screen to be booked anew. The record on show is the shared gSlip.
class frmCallRecord : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmCallRecord(CoreContext& ctx, QWidget* parent = nullptr);

    QGroupBox* fraSummary;
    FlexGrid* fgSummary;
    QPushButton* cmdHide;
    QLabel* lblHint;

    std::array<QRadioButton*, 2> optSearchfor; // Slips.txt, Meetings.txt
    std::array<QRadioButton*, 3> optSearchby;  // all records, account, confirmation
    QGroupBox* fraSearch;
    QLabel* lblTelNo;
    QLineEdit* txtTelNo; // the account number, in spite of its name
    QLabel* lblConfNo;
    QLineEdit* txtConfNo;

    QPushButton* cmdSearch;
    QPushButton* cmdContinue;
    QPushButton* cmdCancel; // "&Delete"
    QPushButton* cmdReschedule;
    QPushButton* cmdCompleted;
    QPushButton* cmdExit;

    QLineEdit* txtAcctNo;
    QLineEdit* txtName;
    QLineEdit* txtStreet;
    QLineEdit* txtApt;
    QLineEdit* txtCity;
    QLineEdit* txtSt;
    QLineEdit* txtZip;
    QLineEdit* txtTel;
    QLineEdit* txtDuration;
    QLineEdit* txtTime;
    QLineEdit* txtDate;
    QLineEdit* txtDay;
    QLineEdit* txtStatus;
    QLineEdit* txtAmount;
    QLineEdit* txtForm;
    QLineEdit* txtReference;
    QGroupBox* fraDetail;

    QAction* mnuView; // "List View" / "Detail View"

    // The state of the screen, alive while it exists.
    qint16 Found = 0;
    qint16 SearchFile = 1; // 1 Slips.txt, 2 Meetings.txt, 3 after a grid row found nowhere
    qint16 RecPointer = 0; // the record the next step reads; 0 once the last was shown
    QString EventKind;     // trimmed RecType of the record on show
    QString TimeLabel;     // the short label of its starting slot, as its day file has it
    bool CompletionInstalled = false; // the sibling completion program stands beside us

    // Coming to the front: the summary of both files is built anew, the file options
    // follow what the files hold, and the panel is cleared.
    void Form_Activate();
    // Leaving: no search can be started from a screen that is not up.
    void Form_Deactivate();

    void fgSummary_Click(int row);
    void optSearchfor_Click(int index);
    void optSearchby_Click(int index);
    void cmdSearch_Click();
    void cmdContinue_Click();
    void cmdCancel_Click();
    void cmdCompleted_Click();
    void cmdReschedule_Click();
    void cmdExit_Click();
    void cmdHide_Click();
    void mnuView_Click();

    void ReadCallSlip();
    void ReadSequentually();
    void LoadRecData();
    void ClearForm();

signals:
    void showMenu();
    // The slip on show was taken out of its file for a new booking: the Scheduling Screen
    // takes over in Mode 10, with the customer in the shared fields and the old record in
    // gSlip.
    void rescheduleChosen();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    // What a fresh screen looks like, and the test for the sibling program.
    void Form_Load();
    void BuildSummary();
    // Selects one option of a group, or none with -1, as an assignment to its value does.
    static void select(QButtonGroup* group, int id);
    // Deletes the record on show (completed -1 keeps a copy); false when it failed and
    // the user was told.
    bool deleteShown(qint16 completed);
    bool fail(const Status& s);
    // The list view (the summary grid) or the detail view (the record on show).
    void showSummary(bool shown);

    CoreContext& c;
    QButtonGroup* m_searchFor;
    QButtonGroup* m_searchBy;
};
} // namespace tresvane
