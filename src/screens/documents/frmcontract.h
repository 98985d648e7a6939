#pragma once

#include "core/io/rtfdocument.h"
#include "core/setup/pricelists.h"
#include "core/state/corecontext.h"

#include <QWidget>

class QAction;
class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace tresvane
{
class Desktop;
struct ContractTerms;

// "Contract Creation Form": a service contract for the customer in hand, made by filling
// the generic template and saved beside it as "Contract - <account>.rtf". The contract is
// a document for the word processor; no data file of the program changes.
class frmContract : public QWidget
{
    Q_OBJECT
public:
    frmContract(CoreContext& ctx, Desktop& desktop, QWidget* parent = nullptr);

    // Coming to the front for the customer now in hand: the customer's and the business's
    // lines, the services, the commencement today, and no contract begun.
    void Form_Activate();

    // "Build a New Contract": the replace question for an existing contract, then the
    // template, or its missing message and the way back to the menu.
    void cmdGeneric_Click();
    // "Create Contract": fills the template from the form and saves the contract.
    void cmdAddServicetoBody_Click();
    // Switches between a service of the catalogue and one typed by hand.
    void ShowServices(bool fromCatalogue);

signals:
    void showMenu();

private:
    void buildControls();
    void buildLayout();
    bool collectTerms(ContractTerms& terms);
    void offerToOpen(const QString& account);

    CoreContext& c;
    Desktop& m_desktop;
    QList<PriceEntry> m_services;
    // The service comes from the catalogue (fraServices), not from the boxes of fraManual.
    bool m_fromCatalogue = true;
    // The template being filled: txtBody of the form, never shown for editing.
    RtfDocument m_body;

    QGroupBox* fraStart;
    QPlainTextEdit* txtCustomerInfo;
    QLabel* lblCustomerName;
    QLabel* lblCustomerTel;
    QGroupBox* fraCreate;
    QGroupBox* fraServices;
    QComboBox* cboServices;
    QComboBox* cboPrices;
    QGroupBox* fraManual;
    QLineEdit* txtService;
    QLineEdit* txtPrice;
    QListWidget* lstFrequency;
    QCalendarWidget* Calendar1;
    QComboBox* cboDuration;
    QCheckBox* ckRenew;
    QPlainTextEdit* txtContractor;
    QPushButton* cmdGeneric;
    QPushButton* cmdAddServicetoBody;
    QPushButton* Command2;
    QPushButton* cmdMenu;
    QAction* mnuServices;
    QAction* mnuManual;
};
} // namespace tresvane
