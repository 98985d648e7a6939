#pragma once

#include "core/customers/customersearch.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tresvane
{
class FlexGrid;

// The search panel of the customer screen (fraSearch) and the panel of what it found
// (fraCustomersFound). The scan is core's SearchCustomers; the panel shows its hits and
// tells the screen, by signals, which account to show or that a new one is wanted.
class CustomerSearchPanel : public QWidget
{
    Q_OBJECT
public:
    explicit CustomerSearchPanel(CoreContext& ctx, QWidget* parent = nullptr);

    QGroupBox* fraSearch;
    std::array<QRadioButton*, 9> optSearch{};
    QLineEdit* txtSearchfor;
    QPushButton* cmdStartSearch;
    QPushButton* cmdClearSearch;
    QPushButton* cmdHideSearch;
    QGroupBox* fraCustomersFound;
    FlexGrid* fgCustomersFound;
    QPushButton* cmdRetry;
    QPushButton* cmdPrintCustomers;
    // The option last clicked.
    qint16 Searchby = 0;

    // Opens the search panel over an empty search box.
    void OpenSearch();
    // The scan of records 1 to gLastrec, and what follows it: no hit asks whether to make
    // an account, one hit goes to it, more are listed. Kind 10 and above list every record.
    void SearchCustomers(int kind, const QString& text, qint32 gLastrec);
    void ShowCompleteList(qint32 gLastrec);
    void cmdStartSearch_Click(qint32 gLastrec);
    // "Close/Retry": the list closes.
    void cmdRetry_Click();

signals:
    // Show this record (gCurrentRec becomes it).
    void accountChosen(qint32 record);
    // "Customer not Found" answered Yes: begin a new account.
    void newAccountWanted();
    // The list closed: the list menu takes its first caption again.
    void listClosed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showHits(const CustomerHits& hits);
    void pickRow(int row);

    CoreContext& c;
};
} // namespace tresvane
