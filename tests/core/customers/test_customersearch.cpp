#include "core/customers/customerlist.h"
#include "core/customers/customersearch.h"
#include "customerbytes.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{

const QString kCustomers = QStringLiteral("CustomerData.txt");

// Five accounts: "MAIN" is in the streets of 1, 3 (Romaine) and 5; 217-555-0100 is the
// telephone of 1 and 4 and the cell of 3.
QByteArray fiveCustomers()
{
    HandCustomer acme{.account = "ACME-1",
                      .name = "Acme Heating",
                      .address1 = "123 Main St",
                      .address3 = "Springfield",
                      .state = "IL",
                      .phone = "217-555-0100",
                      .cell = "217-555-0199",
                      .type = "Business"};
    HandCustomer smith{.account = "217-555-0111",
                       .address1 = "45 Oak Ave",
                       .address3 = "Madison",
                       .state = "FL",
                       .phone = "217-555-0111",
                       .title = "Mr.",
                       .first = "John",
                       .middle = "Q",
                       .last = "Smith"};
    HandCustomer doe{.account = "312-555-0122",
                     .address1 = "9 Romaine Ave",
                     .address3 = "Springfield",
                     .state = "NY",
                     .phone = "312-555-0122",
                     .cell = "217-555-0100",
                     .first = "Jane",
                     .last = "Doe"};
    HandCustomer maine{.account = "ME-4",
                       .name = "Maine Lobster",
                       .address1 = "7 Elm St",
                       .address3 = "Portland",
                       .state = "ME",
                       .phone = "217-555-0100",
                       .last = "Lobster",
                       .type = "Business"};
    HandCustomer muller{.account = "M\xfc-5",
                        .address1 = "77 Main Street",
                        .address3 = "Dayton",
                        .state = "FL",
                        .phone = "937-555-0155",
                        .title = "Ms",
                        .first = "\xc9lise",
                        .last = "M\xfcller"};
    return customerBytes(acme) + customerBytes(smith) + customerBytes(doe) + customerBytes(maine) +
           customerBytes(muller);
}

QList<qint32> records(const CustomerHits& hits)
{
    return hits.records();
}

} // namespace

class TestCustomerSearch : public QObject
{
    Q_OBJECT
private slots:
    void searchFindsInRecordOrder_data();
    void searchFindsInRecordOrder();
    void hitsCarryTheGridColumns();
    void recordsPastTheEndReadAsZeroBytes();
    void accountNumberSearchIsRefused_data();
    void accountNumberSearchIsRefused();
    void normalizeSearchText_data();
    void normalizeSearchText();
    void accountListInRecordOrder();
    void accountListWithoutFile();
    void accountNoExists_data();
    void accountNoExists();
};

void TestCustomerSearch::searchFindsInRecordOrder_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lastRec");
    QTest::addColumn<QList<qint32>>("expected");

    const auto all = QList<qint32>{1, 2, 3, 4, 5};
    QTest::newRow("street MAIN: Main St, Romaine Ave, Main Street")
        << 1 << "MAIN" << 5 << QList<qint32>{1, 3, 5};
    QTest::newRow("text is compared as given, not folded") << 1 << "main" << 5 << QList<qint32>{};
    QTest::newRow("business name") << 0 << "MAINE" << 5 << QList<qint32>{4};
    QTest::newRow("individuals without Name are not found") << 0 << "A" << 5 << QList<qint32>{1, 4};
    QTest::newRow("empty text finds every account") << 0 << "" << 5 << all;
    QTest::newRow("last name with accents folded") << 7 << "M\u00dcLLER" << 5 << QList<qint32>{5};
    QTest::newRow("business without last name not found") << 7 << "ACME" << 5 << QList<qint32>{};
    QTest::newRow("state is a substring test") << 4 << "F" << 5 << QList<qint32>{2, 5};
    QTest::newRow("city") << 3 << "SPRING" << 5 << QList<qint32>{1, 3};
    QTest::newRow("telephone by containment") << 6 << "0111" << 5 << QList<qint32>{2};
    QTest::newRow("cell match is the last hit") << 6 << "217-555-0100" << 5 << QList<qint32>{1, 3};
    QTest::newRow("cell is compared exactly") << 6 << "555-0199" << 5 << QList<qint32>{};
    QTest::newRow("complete list") << 10 << "ignored" << 5 << all;
    QTest::newRow("any kind past 10 lists") << 11 << "" << 5 << all;
    QTest::newRow("only up to gLastrec") << 1 << "MAIN" << 3 << QList<qint32>{1, 3};
    QTest::newRow("empty count scans nothing") << 10 << "" << 0 << QList<qint32>{};
}

void TestCustomerSearch::searchFindsInRecordOrder()
{
    QFETCH(int, kind);
    QFETCH(QString, text);
    QFETCH(int, lastRec);
    QFETCH(QList<qint32>, expected);
    ProgramFolder f;
    f.put(kCustomers, fiveCustomers());
    Result<CustomerHits> hits = SearchCustomers(f.store, kind, text, lastRec);
    QVERIFY2(hits.ok(), qPrintable(hits.message()));
    QCOMPARE(records(*hits), expected);
}

void TestCustomerSearch::hitsCarryTheGridColumns()
{
    Result<CustomerHits> hits =
        SearchCustomerBytes(fiveCustomers(), CustomerSearch::CompleteList, {}, 5);
    QVERIFY(hits.ok());
    QCOMPARE(hits->size(), 5);
    QCOMPARE(hits->at(0),
             (CustomerHit{1, "Acme Heating", "217-555-0100", "123 Main St", "Springfield"}));
    QCOMPARE(hits->at(1).customer, QStringLiteral("Mr. John Smith"));
    // An empty title leaves its blank in front.
    QCOMPARE(hits->at(2).customer, QStringLiteral(" Jane Doe"));
    QCOMPARE(hits->at(4).customer, QStringLiteral("Ms \u00c9lise M\u00fcller"));
    // Each cell as the grid takes it, the last column the record number.
    QCOMPARE(hits->text(1, CustomerHits::Street), QStringLiteral("45 Oak Ave"));
    QCOMPARE(hits->text(3, CustomerHits::Rec), QStringLiteral("4"));
    QCOMPARE(hits->text(4, CustomerHits::City), QStringLiteral("Dayton"));
    QVERIFY(hits->text(5, CustomerHits::Street).isEmpty());
    QVERIFY(hits->text(0, 5).isEmpty());
}

void TestCustomerSearch::recordsPastTheEndReadAsZeroBytes()
{
    // A partial last record (its street is whole) and a count past the end: the scan
    // fills the rest with zero bytes, which match no text, and does not fail.
    const QByteArray bytes = fiveCustomers() + customerBytes({.address1 = "1 Main St"}).left(100);
    Result<CustomerHits> hits = SearchCustomerBytes(bytes, 1, "MAIN", 8);
    QVERIFY(hits.ok());
    QCOMPARE(records(*hits), (QList<qint32>{1, 3, 5, 6}));
    hits = SearchCustomerBytes(bytes, 1, "", 8);
    QCOMPARE(records(*hits), (QList<qint32>{1, 2, 3, 4, 5, 6, 7, 8}));
    QCOMPARE(hits->at(5).street, QStringLiteral("1 Main St"));
}

void TestCustomerSearch::accountNumberSearchIsRefused_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("by account number") << 8;
    QTest::newRow("no option 9") << 9;
    QTest::newRow("negative") << -1;
}

void TestCustomerSearch::accountNumberSearchIsRefused()
{
    QFETCH(int, kind);
    ProgramFolder f;
    f.put(kCustomers, fiveCustomers());
    Result<CustomerHits> hits = SearchCustomers(f.store, kind, "ACME-1", 5);
    QVERIFY(!hits.ok());
    QCOMPARE(hits.message(), NoAccountNumberSearchMessage());
    QVERIFY(hits.message().contains(QStringLiteral("Account Number")));
}

void TestCustomerSearch::normalizeSearchText_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("expected");
    QTest::newRow("trimmed and upper") << "  main st "
                                       << "MAIN ST";
    QTest::newRow("accented") << "m\u00fcller \u00e9"
                              << "M\u00dcLLER \u00c9";
    QTest::newRow("sharp s stays one letter") << "stra\u00dfe"
                                              << "STRA\u00dfE";
    QTest::newRow("high half capitals") << "\u0153\u0161\u017e\u00ff"
                                        << "\u0152\u0160\u017d\u0178";
    QTest::newRow("division sign") << "\u00f7"
                                   << "\u00f7";
}

void TestCustomerSearch::normalizeSearchText()
{
    QFETCH(QString, box);
    QFETCH(QString, expected);
    QCOMPARE(NormalizeSearchText(box), expected);
}

void TestCustomerSearch::accountListInRecordOrder()
{
    ProgramFolder f;
    f.put(kCustomers, fiveCustomers());
    Result<AccountListData> list = ReadAccountList(f.store);
    QVERIFY(list.ok());
    const QList<AccountListEntry> expected = {{"Acme Heating", 1},
                                              {"Smith, John Q", 2},
                                              {"Doe, Jane", 3},
                                              {"Maine Lobster", 4},
                                              {"M\u00fcller, \u00c9lise", 5}};
    QCOMPARE(list->accounts, expected);
    QCOMPARE(list->cities, (QStringList{"Springfield", "Madison", "Portland", "Dayton"}));
}

void TestCustomerSearch::accountListWithoutFile()
{
    ProgramFolder f;
    Result<AccountListData> list = ReadAccountList(f.store);
    QVERIFY(list.ok());
    QVERIFY(list->accounts.isEmpty());
    QVERIFY(!f.has(kCustomers));
}

void TestCustomerSearch::accountNoExists_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("lastRec");
    QTest::addColumn<bool>("exists");
    QTest::newRow("another record holds it") << "ME-4" << 1 << 5 << true;
    QTest::newRow("its own record does not count") << "ME-4" << 4 << 5 << false;
    QTest::newRow("compared exactly") << "me-4" << 1 << 5 << false;
    QTest::newRow("accented number") << "M\u00fc-5" << 1 << 5 << true;
    QTest::newRow("past gLastrec not scanned") << "ME-4" << 1 << 3 << false;
    QTest::newRow("no current record") << "ME-4" << 0 << 5 << false;
    QTest::newRow("empty box") << "" << 1 << 5 << false;
}

void TestCustomerSearch::accountNoExists()
{
    QFETCH(QString, account);
    QFETCH(int, current);
    QFETCH(int, lastRec);
    QFETCH(bool, exists);
    ProgramFolder f;
    f.put(kCustomers, fiveCustomers());
    Result<bool> r = AccountNoExists(f.store, account, current, lastRec);
    QVERIFY(r.ok());
    QCOMPARE(*r, exists);
}

QTEST_GUILESS_MAIN(TestCustomerSearch)
#include "test_customersearch.moc"
