#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"
#include "screens/shell/unsavededits.h"

#include <QWidget>

class QFrame;
class QPushButton;
class QTabWidget;
class QToolButton;

namespace tresvane
{
class PrintDialogs;
class SetupAssignmentsTab;
class SetupBusinessTab;
class SetupInvoiceItemsTab;
class SetupLogoTab;
class SetupOperationsTab;
class SetupPrintTab;
class SetupProblemsTab;
class SetupServiceOrderTab;

// The setup screen: the business data, the teams, the problem descriptions, the
// operating settings, the price lists, printing and the logo. It is created first and
// lives for the whole run; its exit button is the gate to the main menu.
class frmSetup : public QWidget, public UnsavedEdits
{
    Q_OBJECT
public:
    // The tabs of tabSetup, in order.
    enum Tab {
        TabBusiness = 0,
        TabAssignments = 1,
        TabProblems = 2,
        TabOperations = 3,
        TabPrinting = 4,
        TabInvoiceItems = 5,
        TabLogo = 6,
        TabServiceOrder = 7,
    };

    frmSetup(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent = nullptr);

    QTabWidget* tabSetup;
    SetupBusinessTab* business;
    SetupAssignmentsTab* assignments;
    SetupProblemsTab* problems;
    SetupOperationsTab* operations;
    SetupPrintTab* printing;
    SetupInvoiceItemsTab* invoiceItems;
    SetupLogoTab* logo;
    SetupServiceOrderTab* serviceOrder;
    QToolButton* Image1_0; // advances the main tab
    QPushButton* cmdQuit;  // "&Save Settings and Return to Menu"
    QPushButton* cmdHelp;  // "Toggle Help"
    QFrame* fraHelp;

    // The load sequence of the form, run once at start. detectedModemPort is the port the
    // modem answered on (0 for none). Returns the first failure; the rest still runs.
    Status Form_Load(qint16 detectedModemPort);
    // Coming to the front: tab 0, the focus in the company name, the invoice tabs.
    void Form_Activate();
    // The controls bound to the settings, from the settings in memory.
    void showSettings();
    // What the modem search found: the port shown, and the phone settings open or closed.
    // Leaves the screen's unsaved edits as they were.
    void ShowModem(qint16 port, bool found, const QString& text);
    // Tab 5 open with the Repair style, tab 7 with the Service Order style.
    void EnableInvoiceTabs();
    void Image1_Click();
    void cmdQuit_Click();
    // Everything the exit button saves, checked and written; false when a check stopped
    // it (the user has been told, and the focus is on the box to put right).
    bool SaveAll();

    // Something on the screen was changed since it came to the front.
    bool hasUnsavedEdits() const override;
    bool saveUnsavedEdits() override;

signals:
    void showMenu();
    void assignmentsChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void tabChanged(int index);
    bool fail(const Status& s);
    CoreContext& c;
    // The controls as the screen came to the front.
    QStringList m_unchanged;
};
} // namespace tresvane
