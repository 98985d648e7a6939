#include "historybytes.h"
#include "programfolder.h"

#include "history/historyview.h"
#include "store/usforms.h"

#include <QtTest>

namespace
{
QStringList column(const QList<HistoryRow>& rows, int col)
{
    QStringList out;
    for (const HistoryRow& r : rows)
        out << r.cells.value(col);
    return out;
}

// Three accounts over a year's turn, in both files.
void layDownHistory(ProgramFolder& f)
{
    f.put("ServiceHistory.txt", ServiceRec("Ann Smith", "A1", "12/31/2025") +
                                    ServiceRec("Bob Jones", "B2", "01/01/2026") +
                                    ServiceRec("Ann Smith", "A1", "1/15/2026", "Repair\r\nValve") +
                                    ServiceRec("Cy Ames", "a1", "02/01/2026") +
                                    ServiceRec("Ann Smith", "A1", "03/01/26"));
    f.put("CAHistory.txt",
          LedgerRec("Ann Smith", "A1", "12/31/2025", "$1,234.50") +
              LedgerRec("Bob Jones", "B2", "01/01/2026", "10") +
              LedgerRec("Ann Smith", "A1", "01/15/2026", "($4.25)", "Credit\r\nfor a\r\nvisit") +
              LedgerRec("Ann Smith", "A1", "01/16/2026", ""));
}
} // namespace

class TestHistoryView : public QObject
{
    Q_OBJECT
private slots:
    void filters_data();
    void filters();
    void rowsAreTrimmedAndCountTheirLines();
    void accountListIsEveryAccountOnce();
    void unreadableRecordsAreLeftOutAndNamed();
    void amountForms_data();
    void amountForms();
    void missingFilesShowNothingAndWriteNothing();
    void tooManyRecordsIsReported();
    void historyDates_data();
    void historyDates();
    void purgeAllRemovesBothFilesAndTheirBackups();
    void purgeAccountKeepsTheOthersInOrder();
    void purgeAccountOfAMissingFileLeavesAnEmptyOne();
};

void TestHistoryView::filters_data()
{
    QTest::addColumn<bool>("byAccount");
    QTest::addColumn<QString>("account");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QStringList>("serviceDates");
    QTest::addColumn<QStringList>("ledgerDates");
    QTest::addColumn<QString>("total");

    const QDate y0(1990, 1, 1), y1(2030, 1, 1);
    QTest::newRow("all accounts, all dates")
        << false << QString() << y0 << y1
        << QStringList{"12/31/2025", "01/01/2026", "1/15/2026", "02/01/2026", "03/01/26"}
        << QStringList{"12/31/2025", "01/01/2026", "01/15/2026", "01/16/2026"} << "$1,240.25";
    QTest::newRow("one account, typed with blanks; case counts")
        << true << QString(" A1  ") << y0 << y1
        << QStringList{"12/31/2025", "1/15/2026", "03/01/26"}
        << QStringList{"12/31/2025", "01/15/2026", "01/16/2026"} << "$1,230.25";
    QTest::newRow("an account's text without the tick filters nothing")
        << false << QString("B2") << QDate(2026, 1, 1) << QDate(2026, 1, 1)
        << QStringList{"01/01/2026"} << QStringList{"01/01/2026"} << "$10.00";
    QTest::newRow("both ends included")
        << false << QString() << QDate(2025, 12, 31) << QDate(2026, 1, 15)
        << QStringList{"12/31/2025", "01/01/2026", "1/15/2026"}
        << QStringList{"12/31/2025", "01/01/2026", "01/15/2026"} << "$1,240.25";
    QTest::newRow("a day between records")
        << false << QString() << QDate(2026, 1, 2) << QDate(2026, 1, 14) << QStringList{}
        << QStringList{} << "$0.00";
    QTest::newRow("an account of no records")
        << true << QString("Z9") << y0 << y1 << QStringList{} << QStringList{} << "$0.00";
    QTest::newRow("negative total")
        << true << QString("A1") << QDate(2026, 1, 15) << y1 << QStringList{"1/15/2026", "03/01/26"}
        << QStringList{"01/15/2026", "01/16/2026"} << "($4.25)";
}

void TestHistoryView::filters()
{
    QFETCH(bool, byAccount);
    QFETCH(QString, account);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(QStringList, serviceDates);
    QFETCH(QStringList, ledgerDates);
    QFETCH(QString, total);

    ProgramFolder f;
    layDownHistory(f);
    Result<HistoryView> view = LoadHistory(f.store, {byAccount, account, from, to});
    QVERIFY2(view.ok(), qPrintable(view.message()));
    QCOMPARE(column(view->service, 2), serviceDates);
    QCOMPARE(column(view->ledger, 2), ledgerDates);
    QCOMPARE(FormatCurrency(view->total), total);
    QVERIFY(view->damage.isEmpty());
}

void TestHistoryView::rowsAreTrimmedAndCountTheirLines()
{
    ProgramFolder f;
    layDownHistory(f);
    Result<HistoryView> view =
        LoadHistory(f.store, {true, "A1", QDate(2026, 1, 15), QDate(2026, 1, 15)});
    QVERIFY(view.ok());
    QCOMPARE(view->service.size(), 1);
    QCOMPARE(view->service[0].cells,
             (QStringList{"A1", "Ann Smith", "1/15/2026", "Repair\r\nValve", ""}));
    QCOMPARE(view->service[0].lines, 2);
    QCOMPARE(view->ledger.size(), 1);
    QCOMPARE(view->ledger[0].cells,
             (QStringList{"A1", "Ann Smith", "01/15/2026", "Credit\r\nfor a\r\nvisit", "($4.25)"}));
    QCOMPARE(view->ledger[0].lines, 3);
}

void TestHistoryView::accountListIsEveryAccountOnce()
{
    ProgramFolder f;
    layDownHistory(f);
    f.put("CAHistory.txt", f.get("CAHistory.txt") + LedgerRec("Dee", "  ", "01/01/2026", "1") +
                               LedgerRec("Eve", "C3", "01/01/2026", "1"));
    // The filter does not narrow the list.
    Result<HistoryView> view =
        LoadHistory(f.store, {true, "B2", QDate(2026, 1, 1), QDate(2026, 1, 1)});
    QVERIFY(view.ok());
    QCOMPARE(view->accounts, (QStringList{"A1", "a1", "B2", "C3"}));
}

void TestHistoryView::unreadableRecordsAreLeftOutAndNamed()
{
    ProgramFolder f;
    f.put("ServiceHistory.txt", ServiceRec("Ann", "A1", "01/01/2026") +
                                    ServiceRec("Ann", "A1", "soon") + ServiceRec("Ann", "A1", "") +
                                    ServiceRec("Ann", "A1", "02/30/2026"));
    f.put("CAHistory.txt",
          LedgerRec("Ann", "A1", "01/01/2026", "ten") + LedgerRec("Ann", "A1", "01/01/2026", "5"));
    Result<HistoryView> view =
        LoadHistory(f.store, {false, {}, QDate(1990, 1, 1), QDate(2030, 1, 1)});
    QVERIFY(view.ok());
    QCOMPARE(view->service.size(), 1);
    QCOMPARE(view->ledger.size(), 1);
    QCOMPARE(view->total, qint64(50000));
    QCOMPARE(view->damage.size(), 2);
    QCOMPARE(view->damage[0].file, QString("ServiceHistory.txt"));
    QCOMPARE(view->damage[0].records, 3);
    QCOMPARE(view->damage[0].firstRecord, 2);
    QCOMPARE(view->damage[1].file, QString("CAHistory.txt"));
    QCOMPARE(view->damage[1].firstRecord, 1);
    const QString text = DescribeDamage(view->damage);
    QVERIFY(text.contains("ServiceHistory.txt: 3 record(s)"));
    QVERIFY(text.contains("(the first is record 2)"));
    QVERIFY(text.contains("CAHistory.txt: 1 record(s)"));
    QCOMPARE(DescribeDamage({}), QString());
}

// Each amount alone in the ledger: the total it gives, or no total when it cannot be read.
void TestHistoryView::amountForms_data()
{
    QTest::addColumn<QByteArray>("amount");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<qint64>("units");
    QTest::newRow("dollars and cents") << QByteArray("$1,234.50") << true << qint64(12345000);
    QTest::newRow("plain") << QByteArray("12") << true << qint64(120000);
    QTest::newRow("four decimals") << QByteArray("0.1234") << true << qint64(1234);
    QTest::newRow("five decimals round") << QByteArray("0.12345") << true << qint64(1235);
    QTest::newRow("leading point") << QByteArray(".5") << true << qint64(5000);
    QTest::newRow("parentheses") << QByteArray("($10.00)") << true << qint64(-100000);
    QTest::newRow("minus") << QByteArray("-$3.10") << true << qint64(-31000);
    QTest::newRow("minus in parentheses") << QByteArray("(-5)") << true << qint64(50000);
    QTest::newRow("blank counts nothing") << QByteArray("") << true << qint64(0);
    QTest::newRow("point alone") << QByteArray(".") << false << qint64(0);
    QTest::newRow("minus after the sign") << QByteArray("$-5") << false << qint64(0);
    QTest::newRow("letters") << QByteArray("12a") << false << qint64(0);
    QTest::newRow("two points") << QByteArray("1.2.3") << false << qint64(0);
}

void TestHistoryView::amountForms()
{
    QFETCH(QByteArray, amount);
    QFETCH(bool, readable);
    QFETCH(qint64, units);
    ProgramFolder f;
    f.put("CAHistory.txt", LedgerRec("Ann", "A1", "01/01/2026", amount));
    Result<HistoryView> view =
        LoadHistory(f.store, {false, {}, QDate(1990, 1, 1), QDate(2030, 1, 1)});
    QVERIFY(view.ok());
    QCOMPARE(view->damage.size(), readable ? 0 : 1);
    QCOMPARE(view->ledger.size(), readable ? 1 : 0);
    QCOMPARE(view->total, units);
    // The stored text is shown as it is.
    if (readable) QCOMPARE(view->ledger[0].cells[4], QString::fromLatin1(amount));
}

void TestHistoryView::missingFilesShowNothingAndWriteNothing()
{
    ProgramFolder f;
    Result<HistoryView> view =
        LoadHistory(f.store, {false, {}, QDate(1990, 1, 1), QDate(2030, 1, 1)});
    QVERIFY(view.ok());
    QVERIFY(view->service.isEmpty() && view->ledger.isEmpty() && view->accounts.isEmpty());
    QCOMPARE(f.snapshot().size(), 0);

    // A file lost from the folder comes back from Backup before it is read.
    f.put("Backup/CAHistory.txt", LedgerRec("Ann", "A1", "01/01/2026", "5"));
    view = LoadHistory(f.store, {false, {}, QDate(1990, 1, 1), QDate(2030, 1, 1)});
    QVERIFY(view.ok());
    QCOMPARE(view->ledger.size(), 1);
    QVERIFY(f.has("CAHistory.txt"));
}

void TestHistoryView::tooManyRecordsIsReported()
{
    ProgramFolder f;
    f.put("ServiceHistory.txt", ServiceRec("Ann", "A1", "01/01/2026").repeated(32768));
    Result<HistoryView> view =
        LoadHistory(f.store, {false, {}, QDate(1990, 1, 1), QDate(2030, 1, 1)});
    QVERIFY(!view.ok());
    QVERIFY2(view.message().contains("ServiceHistory.txt"), qPrintable(view.message()));
}

void TestHistoryView::historyDates_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("mm/dd/yyyy") << QByteArray("04/30/2026") << QDate(2026, 4, 30);
    QTest::newRow("m/d/yyyy") << QByteArray("4/3/2026") << QDate(2026, 4, 3);
    QTest::newRow("29 February of a leap year") << QByteArray("02/29/2024") << QDate(2024, 2, 29);
    QTest::newRow("29 February of a common year") << QByteArray("02/29/2025") << QDate();
    QTest::newRow("two-digit year 29") << QByteArray("1/1/29") << QDate(2029, 1, 1);
    QTest::newRow("two-digit year 30") << QByteArray("1/1/30") << QDate(1930, 1, 1);
    QTest::newRow("three-digit year") << QByteArray("1/1/202") << QDate();
    QTest::newRow("month 13") << QByteArray("13/01/2026") << QDate();
    QTest::newRow("dashes") << QByteArray("04-30-2026") << QDate();
    QTest::newRow("zero bytes") << QByteArray(10, '\0') << QDate();
    QTest::newRow("empty") << QByteArray() << QDate();
}

void TestHistoryView::historyDates()
{
    QFETCH(QByteArray, text);
    QFETCH(QDate, date);
    QCOMPARE(ParseHistoryDate(text), date);
}

void TestHistoryView::purgeAllRemovesBothFilesAndTheirBackups()
{
    ProgramFolder f;
    layDownHistory(f);
    f.put("Backup/ServiceHistory.txt", "old");
    f.put("Backup/CAHistory.txt", "old");
    f.put("Slips.txt", "keep");
    QVERIFY(PurgeAllHistory(f.store).ok());
    const QMap<QString, QByteArray> left = f.snapshot();
    QCOMPARE(left.keys(), QStringList{"Slips.txt"});
    // Nothing there is nothing to do.
    QVERIFY(PurgeAllHistory(f.store).ok());
}

void TestHistoryView::purgeAccountKeepsTheOthersInOrder()
{
    ProgramFolder f;
    layDownHistory(f);
    f.put("Backup/ServiceHistory.txt", "old");
    f.put("AccountsTemp.txt", "stale");
    QVERIFY(PurgeAccountHistory(f.store, "  A1 ").ok());
    QCOMPARE(f.get("ServiceHistory.txt"), ServiceRec("Bob Jones", "B2", "01/01/2026") +
                                              ServiceRec("Cy Ames", "a1", "02/01/2026"));
    QCOMPARE(f.get("CAHistory.txt"), LedgerRec("Bob Jones", "B2", "01/01/2026", "10"));
    QVERIFY(!f.has("Backup/ServiceHistory.txt"));
    QVERIFY(!f.has("AccountsTemp.txt"));

    // The last account goes: the files stay, empty.
    QVERIFY(PurgeAccountHistory(f.store, "B2").ok());
    QVERIFY(PurgeAccountHistory(f.store, "a1").ok());
    QCOMPARE(f.get("ServiceHistory.txt"), QByteArray());
    QVERIFY(f.has("ServiceHistory.txt"));
    QCOMPARE(f.get("CAHistory.txt"), QByteArray());
}

void TestHistoryView::purgeAccountOfAMissingFileLeavesAnEmptyOne()
{
    ProgramFolder f;
    f.put("CAHistory.txt",
          LedgerRec("Ann", "A1", "01/01/2026", "5") + LedgerRec("Bob", "B2", "01/01/2026", "6"));
    QVERIFY(PurgeAccountHistory(f.store, "A1").ok());
    QVERIFY(f.has("ServiceHistory.txt"));
    QCOMPARE(f.get("ServiceHistory.txt"), QByteArray());
    QCOMPARE(f.get("CAHistory.txt"), LedgerRec("Bob", "B2", "01/01/2026", "6"));
}

QTEST_GUILESS_MAIN(TestHistoryView)
#include "test_historyview.moc"
