#include "screens/customers/customersearchpanel.h"

#include "core/ports/dialogs.h"
#include "screens/shell/enterkey.h"
#include "screens/shell/flexgrid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tresvane
{
CustomerSearchPanel::CustomerSearchPanel(CoreContext& ctx, QWidget* parent)
    : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("CustomerSearchPanel"));

    fraSearch = new QGroupBox(QStringLiteral("Search for Customers"), this);
    fraSearch->setObjectName(QStringLiteral("fraSearch"));
    const std::array<const char*, 9> kinds = {
        "by Business Name",    "by Address #1", "by Address #2",
        "by City or Addr #3)", "by State",      "by Zip Code (or Addr #4)",
        "by Telephone Number", "by Last Name",  "by Account Number"};
    auto* options = new QGridLayout;
    for (int i = 0; i < 9; ++i) {
        optSearch[i] = new QRadioButton(QString::fromLatin1(kinds[i]), fraSearch);
        optSearch[i]->setObjectName(QStringLiteral("optSearch_%1").arg(i));
        options->addWidget(optSearch[i], i % 5, i / 5);
        connect(optSearch[i], &QRadioButton::clicked, this, [this, i] {
            txtSearchfor->clear();
            txtSearchfor->setFocus();
            Searchby = qint16(i);
        });
    }
    txtSearchfor = new QLineEdit(fraSearch);
    txtSearchfor->setObjectName(QStringLiteral("txtSearchfor"));
    cmdStartSearch = new QPushButton(QStringLiteral("&Start Search"), fraSearch);
    cmdStartSearch->setObjectName(QStringLiteral("cmdStartSearch"));
    cmdClearSearch = new QPushButton(QStringLiteral("C&lear"), fraSearch);
    cmdClearSearch->setObjectName(QStringLiteral("cmdClearSearch"));
    cmdHideSearch = new QPushButton(QStringLiteral("&Hide"), fraSearch);
    cmdHideSearch->setObjectName(QStringLiteral("cmdHideSearch"));
    auto* searchRow = new QHBoxLayout;
    searchRow->addWidget(txtSearchfor, 1);
    searchRow->addWidget(cmdStartSearch);
    searchRow->addWidget(cmdClearSearch);
    searchRow->addWidget(cmdHideSearch);
    auto* searchLayout = new QVBoxLayout(fraSearch);
    searchLayout->addLayout(options);
    searchLayout->addLayout(searchRow);
    fraSearch->setVisible(false);

    fraCustomersFound = new QGroupBox(this);
    fraCustomersFound->setObjectName(QStringLiteral("fraCustomersFound"));
    fgCustomersFound = new FlexGrid(fraCustomersFound);
    fgCustomersFound->setObjectName(QStringLiteral("fgCustomersFound"));
    fgCustomersFound->setHeadings({QStringLiteral("Customer"), QStringLiteral("Phone"),
                                   QStringLiteral("Street"), QStringLiteral("City"),
                                   QStringLiteral("Rec")});
    fgCustomersFound->grid()->setColumnAlignment(CustomerHits::Phone, Qt::AlignCenter);
    fgCustomersFound->grid()->setColumnAlignment(CustomerHits::Rec, Qt::AlignCenter);
    // The telephone and the record number take the width of their widest value, measured
    // once rather than over every row; name, street and city share the rest.
    QHeaderView* header = fgCustomersFound->horizontalHeader();
    const QFontMetrics fm = fgCustomersFound->fontMetrics();
    for (int column : {CustomerHits::Customer, CustomerHits::Street, CustomerHits::City})
        header->setSectionResizeMode(column, QHeaderView::Stretch);
    header->setSectionResizeMode(CustomerHits::Phone, QHeaderView::Fixed);
    header->resizeSection(CustomerHits::Phone,
                          fm.horizontalAdvance(QStringLiteral("000-000-00000")));
    header->setStretchLastSection(false);
    header->setSectionResizeMode(CustomerHits::Rec, QHeaderView::Fixed);
    header->resizeSection(CustomerHits::Rec, fm.horizontalAdvance(QStringLiteral("000000")) + 12);
    fgCustomersFound->viewport()->installEventFilter(this);
    cmdRetry = new QPushButton(QStringLiteral("&Close/Retry"), fraCustomersFound);
    cmdRetry->setObjectName(QStringLiteral("cmdRetry"));
    // The printed customer list waits for the program's printing.
    cmdPrintCustomers = new QPushButton(QStringLiteral("&Print Customer List"), fraCustomersFound);
    cmdPrintCustomers->setObjectName(QStringLiteral("cmdPrintCustomers"));
    cmdPrintCustomers->setEnabled(false);
    auto* foundButtons = new QHBoxLayout;
    foundButtons->addStretch(1);
    foundButtons->addWidget(cmdPrintCustomers);
    foundButtons->addWidget(cmdRetry);
    auto* foundLayout = new QVBoxLayout(fraCustomersFound);
    foundLayout->addWidget(fgCustomersFound, 1);
    foundLayout->addLayout(foundButtons);
    fraCustomersFound->setVisible(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // The search options keep their height; the list of hits takes what is left, and
    // without it the room stays empty below the options.
    fraSearch->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    layout->addWidget(fraSearch);
    layout->addWidget(fraCustomersFound, 1);
    layout->addStretch(0);

    connect(cmdClearSearch, &QPushButton::clicked, this, [this] {
        txtSearchfor->clear();
        txtSearchfor->setFocus();
    });
    connect(cmdHideSearch, &QPushButton::clicked, fraSearch, &QWidget::hide);
    // Enter in the search box starts the search, as its button does.
    EnterClicks(txtSearchfor, cmdStartSearch);
    QWidget::setTabOrder(cmdPrintCustomers, cmdRetry);
    connect(cmdRetry, &QPushButton::clicked, this, &CustomerSearchPanel::cmdRetry_Click);
}

void CustomerSearchPanel::OpenSearch()
{
    fraCustomersFound->hide();
    fraSearch->show();
    txtSearchfor->clear();
    txtSearchfor->setFocus();
}

void CustomerSearchPanel::cmdStartSearch_Click(qint32 gLastrec)
{
    // The first option set among the eight with a field; none of them set means the
    // search by account number.
    int kind = CustomerSearch::ByAccountNumber;
    for (int i = 0; i < CustomerSearch::ByAccountNumber; ++i)
        if (optSearch[i]->isChecked()) {
            kind = i;
            break;
        }
    if (kind == CustomerSearch::ByAccountNumber) {
        // The system has no search by account number: said so, and the panel stays for
        // another kind.
        c.dialogs.message(NoAccountNumberSearchMessage());
        return;
    }
    SearchCustomers(kind, NormalizeSearchText(txtSearchfor->text()), gLastrec);
    fraSearch->hide();
}

void CustomerSearchPanel::SearchCustomers(int kind, const QString& text, qint32 gLastrec)
{
    Result<CustomerHits> hits = tresvane::SearchCustomers(c.store, kind, text, gLastrec);
    if (!hits) {
        c.dialogs.message(hits.message());
        return;
    }
    if (kind >= CustomerSearch::CompleteList) {
        showHits(*hits);
        return;
    }
    if (hits->isEmpty()) {
        txtSearchfor->clear();
        if (AskCreateAccountWhenNotFound(c.dialogs)) {
            fraSearch->hide();
            emit newAccountWanted();
        } else {
            cmdRetry_Click();
        }
        return;
    }
    if (hits->size() == 1) {
        fraSearch->hide();
        emit accountChosen(hits->record(0));
        return;
    }
    fraSearch->hide();
    showHits(*hits);
    fraCustomersFound->setTitle(QStringLiteral("Customers Search Results"));
    fraCustomersFound->show();
    cmdPrintCustomers->hide();
}

void CustomerSearchPanel::ShowCompleteList(qint32 gLastrec)
{
    fraCustomersFound->setTitle(QStringLiteral("Complete Customer List"));
    fraCustomersFound->show();
    cmdPrintCustomers->show();
    SearchCustomers(CustomerSearch::CompleteList, QString(), gLastrec);
}

void CustomerSearchPanel::showHits(const CustomerHits& hits)
{
    QList<QStringList> rows;
    rows.reserve(hits.size());
    for (qsizetype i = 0; i < hits.size(); ++i) {
        QStringList row;
        row.reserve(5);
        for (int col = CustomerHits::Customer; col <= CustomerHits::Rec; ++col)
            row << hits.text(i, col);
        rows << row;
    }
    fgCustomersFound->setRows(std::move(rows));
}

void CustomerSearchPanel::cmdRetry_Click()
{
    fraCustomersFound->hide();
    emit listClosed();
}

void CustomerSearchPanel::pickRow(int row)
{
    bool ok = false;
    const qint32 record = fgCustomersFound->textMatrix(row, CustomerHits::Rec).toInt(&ok);
    if (!ok) return;
    emit accountChosen(record);
    fraCustomersFound->hide();
    emit listClosed();
}

bool CustomerSearchPanel::eventFilter(QObject* watched, QEvent* event)
{
    // Any mouse button released on a row picks it.
    if (watched == fgCustomersFound->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const QModelIndex at =
            fgCustomersFound->indexAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        if (at.isValid()) pickRow(at.row());
    }
    return QWidget::eventFilter(watched, event);
}
} // namespace tresvane
