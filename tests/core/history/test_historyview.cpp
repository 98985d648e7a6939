#include "historybytes.h"
#include "programfolder.h"

#include "core/history/historyview.h"
#include "core/io/usforms.h"

#include <QtTest>

using namespace tresvane;

namespace
{
const QDate kEver(1990, 1, 1), kNever(2030, 1, 1);

QStringList column(const QList<HistoryRow>& rows, int col)
{
    QStringList out;
    for (const HistoryRow& r : rows)
        out << r.cells.value(col);
    return out;
}

// Three accounts ("A1" and "a1" differ) over a year's turn, in both files.
void layDownHistory(const ProgramFolder& f)
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
    void rowsAccountsAndDamage();
    void amountForms_data();
    void amountForms();
    void missingAndOversizedFiles();
    void purges();
    void accountsBeyondBlanks_data();
    void accountsBeyondBlanks();
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

    QTest::newRow("all accounts, all dates; two-digit year")
        << false << QString() << kEver << kNever
        << QStringList{"12/31/2025", "01/01/2026", "1/15/2026", "02/01/2026", "03/01/26"}
        << QStringList{"12/31/2025", "01/01/2026", "01/15/2026", "01/16/2026"} << "$1,240.25";
    QTest::newRow("one account typed with blanks; case counts")
        << true << QString(" A1  ") << kEver << kNever
        << QStringList{"12/31/2025", "1/15/2026", "03/01/26"}
        << QStringList{"12/31/2025", "01/15/2026", "01/16/2026"} << "$1,230.25";
    QTest::newRow("both ends included")
        << false << QString() << QDate(2025, 12, 31) << QDate(2026, 1, 15)
        << QStringList{"12/31/2025", "01/01/2026", "1/15/2026"}
        << QStringList{"12/31/2025", "01/01/2026", "01/15/2026"} << "$1,240.25";
    QTest::newRow("negative total") << true << QString("A1") << QDate(2026, 1, 15) << kNever
                                    << QStringList{"1/15/2026", "03/01/26"}
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
    // The account list is every account of both files, whatever the filter.
    QCOMPARE(view->accounts, (QStringList{"A1", "a1", "B2"}));
}

void TestHistoryView::rowsAccountsAndDamage()
{
    ProgramFolder f;
    layDownHistory(f);
    Result<HistoryView> view =
        LoadHistory(f.store, {true, "A1", QDate(2026, 1, 15), QDate(2026, 1, 15)});
    QCOMPARE(view->service.value(0).cells,
             (QStringList{"A1", "Ann Smith", "1/15/2026", "Repair\r\nValve", ""}));
    QCOMPARE(view->service.value(0).lines, 2);
    QCOMPARE(view->ledger.value(0).cells[4], QString("($4.25)"));
    QCOMPARE(view->ledger.value(0).lines, 3);

    // Unreadable dates (and a blank or impossible one) are left out and named once a file.
    f.put("ServiceHistory.txt", ServiceRec("Ann", "A1", "01/01/2026") +
                                    ServiceRec("Ann", "A1", "soon") + ServiceRec("Ann", "A1", "") +
                                    ServiceRec("Ann", "A1", "02/29/2025"));
    f.put("CAHistory.txt", LedgerRec("Ann", "  ", "01/01/2026", "5"));
    view = LoadHistory(f.store, {false, {}, kEver, kNever});
    QCOMPARE(view->service.size(), 1);
    QCOMPARE(view->accounts, QStringList{"A1"}); // a blank account is not listed
    QCOMPARE(DescribeDamage(view->damage),
             QString("ServiceHistory.txt: 3 record(s) with a date or amount that cannot be read "
                     "are not shown (the first is record 2)."));
}

void TestHistoryView::amountForms_data()
{
    QTest::addColumn<QByteArray>("amount");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<qint64>("units");
    QTest::newRow("dollars and cents") << QByteArray("$1,234.50") << true << qint64(12345000);
    QTest::newRow("five decimals round") << QByteArray("0.12345") << true << qint64(1235);
    QTest::newRow("parentheses") << QByteArray("($10.00)") << true << qint64(-100000);
    QTest::newRow("minus") << QByteArray("-$3.10") << true << qint64(-31000);
    QTest::newRow("blank counts nothing") << QByteArray("") << true << qint64(0);
    QTest::newRow("point alone") << QByteArray(".") << false << qint64(0);
    QTest::newRow("minus after the sign") << QByteArray("$-5") << false << qint64(0);
}

void TestHistoryView::amountForms()
{
    QFETCH(QByteArray, amount);
    QFETCH(bool, readable);
    QFETCH(qint64, units);
    ProgramFolder f;
    f.put("CAHistory.txt", LedgerRec("Ann", "A1", "01/01/2026", amount));
    Result<HistoryView> view = LoadHistory(f.store, {false, {}, kEver, kNever});
    QCOMPARE(view->damage.size(), readable ? 0 : 1);
    QCOMPARE(view->ledger.size(), readable ? 1 : 0);
    QCOMPARE(view->total, units);
}

void TestHistoryView::missingAndOversizedFiles()
{
    ProgramFolder f;
    QVERIFY(LoadHistory(f.store, {false, {}, kEver, kNever})->ledger.isEmpty());
    QCOMPARE(f.snapshot().size(), 0);
    // A file lost from the folder comes back from Backup before it is read.
    f.put("Backup/CAHistory.txt", LedgerRec("Ann", "A1", "01/01/2026", "5"));
    QCOMPARE(LoadHistory(f.store, {false, {}, kEver, kNever})->ledger.size(), 1);
    // Past 32,767 records the count cannot hold them: told, naming the file.
    f.put("ServiceHistory.txt", ServiceRec("Ann", "A1", "01/01/2026").repeated(32768));
    Result<HistoryView> view = LoadHistory(f.store, {false, {}, kEver, kNever});
    QVERIFY(!view.ok());
    QVERIFY2(view.message().contains("ServiceHistory.txt"), qPrintable(view.message()));
}

void TestHistoryView::purges()
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
    // The last account goes: the file stays, empty; a missing file comes out empty too.
    QVERIFY(PurgeAccountHistory(f.store, "B2").ok());
    QCOMPARE(f.get("CAHistory.txt"), QByteArray());
    f.put("Backup/CAHistory.txt", "old");
    QVERIFY(PurgeAllHistory(f.store).ok());
    f.put("Slips.txt", "keep");
    QCOMPARE(f.snapshot().keys(), QStringList{"Slips.txt"});
    QVERIFY(PurgeAccountHistory(f.store, "A1").ok());
    QVERIFY(f.has("ServiceHistory.txt") && f.get("ServiceHistory.txt").isEmpty());
}

// An account the list shows, whatever characters besides blanks it holds, is the account a
// filter shows and a purge removes.
void TestHistoryView::accountsBeyondBlanks_data()
{
    QTest::addColumn<QByteArray>("account");
    QTest::newRow("a tab at the end") << QByteArray("A1\t");
    QTest::newRow("a line end at the end") << QByteArray("A1\r\n");
    QTest::newRow("a non-breaking space") << QByteArray("A1\xa0");
    QTest::newRow("a control character first") << QByteArray("\x16"
                                                             "A1");
}

void TestHistoryView::accountsBeyondBlanks()
{
    QFETCH(QByteArray, account);
    ProgramFolder f;
    f.put("ServiceHistory.txt",
          ServiceRec("Ann", account, "01/01/2026") + ServiceRec("Bob", "A1", "01/02/2026"));
    f.put("CAHistory.txt", LedgerRec("Ann", account, "01/01/2026", "$5.00"));
    Result<HistoryView> all = LoadHistory(f.store, {false, {}, kEver, kNever});
    QVERIFY(all.ok());
    QCOMPARE(all->accounts.size(), 2);
    const QString shown = all->accounts.first() == QStringLiteral("A1") ? all->accounts.last()
                                                                        : all->accounts.first();
    Result<HistoryView> mine = LoadHistory(f.store, {true, shown, kEver, kNever});
    QVERIFY(mine.ok());
    QCOMPARE(column(mine->service, 1), QStringList{"Ann"});
    QCOMPARE(mine->ledger.size(), 1);

    QVERIFY(PurgeAccountHistory(f.store, shown).ok());
    QCOMPARE(f.get("ServiceHistory.txt"), ServiceRec("Bob", "A1", "01/02/2026"));
    QCOMPARE(f.get("CAHistory.txt"), QByteArray());
}

QTEST_GUILESS_MAIN(TestHistoryView)
#include "test_historyview.moc"
