#pragma once

#include "core/documents/workorder.h"
#include "core/setup/pricelists.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QAction;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace tresvane
{
class PrintDialogs;
class PrintSurface;

// "Create Work Order or Estimate": a document for the customer in hand under one of four
// headings, with a narrative of the job and the parts and services chosen with their
// prices, and a completion summary report if wanted. Nothing is stored in a slip or a
// customer record; only the narrative may be kept as a template.
class frmWorkOrder : public QWidget
{
    Q_OBJECT
public:
    frmWorkOrder(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent = nullptr);

    // Coming to the front for the customer now in hand: an earlier job's narrative file
    // goes, the account is shown, the first heading chosen and the lists filled anew.
    void Form_Activate();

    // The buttons of cmdWO, by index: 0 menu, 1 print, 2 hide the account, 3 clear both
    // chosen lists, 4 all items, 5 add an item, 6 save the narrative as the template,
    // 7 clear the narrative, 8 load the template, 9 all services, 10 add a service.
    void cmdWO_Click(int index);

    // The work order, and the summary when it is asked for, through the print dialog, or
    // in the preview window.
    void Print();
    void Preview();

    // What the document will list.
    const ChosenList& chosenServices() const { return m_chosenServices; }
    const ChosenList& chosenItems() const { return m_chosenItems; }

signals:
    void showMenu();

private:
    enum Kind { Services = 0, Items = 1 };
    void buildControls();
    void buildLayout();
    QGroupBox* buildListPanel(Kind kind, const QString& title);
    void fillOffers();
    void offerSelected(Kind kind, int row);
    void addChosen(Kind kind);
    void selectAll(Kind kind);
    void showChosen(Kind kind);
    void clearChosen();
    void saveTemplate();
    void loadTemplate();
    // Draws the documents of a print: the narrative handed over through its file first.
    Status drawDocuments(PrintSurface& surface);

    CoreContext& c;
    PrintDialogs& m_printDialogs;
    std::array<QList<PriceEntry>, 2> m_offers;
    ChosenList m_chosenServices;
    ChosenList m_chosenItems;
    ChosenList& chosen(Kind kind) { return kind == Services ? m_chosenServices : m_chosenItems; }

    QComboBox* cboHeading;
    QGroupBox* fraAccount;
    QLabel* lblAccount;
    QPlainTextEdit* txtWONarrative;
    QListWidget* lstServices;
    QListWidget* lstItems;
    // The price of the entry chosen in the offered list: its preset, or one typed.
    std::array<QComboBox*, 2> cboPrices{};
    QTreeWidget* lstServicesList;
    QTreeWidget* lstItemsList;
    QCheckBox* ckCompletion;
    std::array<QPushButton*, 11> cmdWO{};
    QPushButton* cmdPreview;
    QAction* mnuAccount;
};
} // namespace tresvane
