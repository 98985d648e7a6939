#include "core/customers/accountindex.h"

#include <QtTest>

using namespace tresvane;

namespace
{

AccountIndex index(const QStringList& texts)
{
    QList<AccountListEntry> entries;
    for (int i = 0; i < texts.size(); ++i)
        entries.append({texts[i], qint32(i + 1)});
    return AccountIndex(entries);
}

} // namespace

class TestAccountIndex : public QObject
{
    Q_OBJECT
private slots:
    void sortsWithoutRegardToCase();
    void completion_data();
    void completion();
    void findEqual_data();
    void findEqual();
};

void TestAccountIndex::sortsWithoutRegardToCase()
{
    const AccountIndex list =
        index({"smith, Bo", "Adams, Zed", "Smith, Al", "SMITH, BO", "baker, Ann"});
    QStringList texts;
    QList<qint32> records;
    for (qsizetype i = 0; i < list.size(); ++i) {
        texts << list.at(i).text;
        records << list.at(i).record;
    }
    QCOMPARE(texts,
             (QStringList{"Adams, Zed", "baker, Ann", "Smith, Al", "smith, Bo", "SMITH, BO"}));
    // Equal texts keep the order of their records.
    QCOMPARE(records, (QList<qint32>{2, 5, 3, 1, 4}));
}

void TestAccountIndex::completion_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("rest");
    QTest::addColumn<int>("at");
    QTest::newRow("first of several") << "smi"
                                      << "th, Al" << 2;
    QTest::newRow("case of the typed text kept") << "SMITHE"
                                                 << "rs, Al" << 4;
    QTest::newRow("whole entry typed") << "Adams, Zed"
                                       << "" << 0;
    QTest::newRow("nothing begins so") << "smz"
                                       << "" << -1;
    QTest::newRow("past the last entry") << "zz"
                                         << "" << -1;
    QTest::newRow("nothing typed") << ""
                                   << "" << -1;
    QTest::newRow("an inner text is no prefix") << "Zed"
                                                << "" << -1;
}

void TestAccountIndex::completion()
{
    QFETCH(QString, typed);
    QFETCH(QString, rest);
    QFETCH(int, at);
    const AccountIndex list =
        index({"Smithers, Al", "Adams, Zed", "Smith, Al", "Baker, Ann", "Smith, Bo"});
    QCOMPARE(list.Completion(typed), rest);
    QCOMPARE(int(list.FirstStartingWith(typed)), at);
}

void TestAccountIndex::findEqual_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("record");
    QTest::newRow("as listed") << "Baker, Ann" << 4;
    QTest::newRow("other case, blanks around") << "  baKER, ann " << 4;
    QTest::newRow("a prefix is not equal") << "Baker" << -1;
    QTest::newRow("entry with a trailing blank") << "Lone," << 6;
}

void TestAccountIndex::findEqual()
{
    QFETCH(QString, text);
    QFETCH(int, record);
    const AccountIndex list =
        index({"Smithers, Al", "Adams, Zed", "Smith, Al", "Baker, Ann", "Smith, Bo", "Lone, "});
    const qsizetype i = list.FindEqual(text);
    QCOMPARE(i < 0 ? -1 : int(list.at(i).record), record);
}

QTEST_GUILESS_MAIN(TestAccountIndex)
#include "test_accountindex.moc"
