#include "core/documents/pricecatalogue.h"
#include "core/documents/workorder.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{

// Catalogue records laid down by hand, independent of the record codec.
QByteArray text(const char* s, int width)
{
    QByteArray b(s);
    return b + QByteArray(width - b.size(), ' ');
}
QByteArray service(const char* name, const char* price)
{
    return text(name, 60) + text(price, 10) + QByteArray::fromHex("0000");
}
// A stock item of the sibling program at $1,234.50, its other fields filled.
QByteArray stockItem(const char* name)
{
    return text(name, 50) + text("SKU-4471", 20) + QByteArray::fromHex("a85ebc0000000000") +
           QByteArray::fromHex("00350c0000000000") + QByteArray::fromHex("0700") +
           QByteArray::fromHex("50c3000000000000") + QByteArray::fromHex("40e20100") +
           QByteArray::fromHex("ffff0200");
}
// An item of the user's own at $12.34.
QByteArray customItem(const char* name)
{
    return text(name, 50) + QByteArray::fromHex("08e2010000000000") +
           QByteArray::fromHex("6300000000000000") + QByteArray::fromHex("fbffffff");
}

} // namespace

class TestWorkOrder : public QObject
{
    Q_OBJECT
private slots:
    void narrativeTemplateIsPlainLines_data();
    void narrativeTemplateIsPlainLines();
    void missingTemplateLoadsNothing();
    void printNarrativeIsWrittenOrRemovedAtEveryPrint();
    void offersComeFromTheCatalogues();
    void missingCataloguesLeaveTheirPartOut();
    void chosenListHoldsANameOnce();
    void pricesAreFormattedOrRefused_data();
    void pricesAreFormattedOrRefused();
};

void TestWorkOrder::narrativeTemplateIsPlainLines_data()
{
    QTest::addColumn<QString>("narrative");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("loaded");
    QTest::newRow("lines") << "Replace filter\nCheck pump"
                           << QByteArray("Replace filter\r\nCheck pump\r\n")
                           << "Replace filter\nCheck pump";
    QTest::newRow("blank lines and quotes kept")
        << "Step 1: \"drain\"\n\n\nStep 2" << QByteArray("Step 1: \"drain\"\r\n\r\n\r\nStep 2\r\n")
        << "Step 1: \"drain\"\n\n\nStep 2";
    QTest::newRow("a last line end") << "a\n" << QByteArray("a\r\n\r\n") << "a\n";
    QTest::newRow("Windows line ends typed or pasted")
        << "a\r\nb\rc" << QByteArray("a\r\nb\r\nc\r\n") << "a\nb\nc";
    QTest::newRow("Windows-1252") << QString::fromUtf8("Café, 5 €")
                                  << QByteArray("Caf\xe9, 5 \x80\r\n")
                                  << QString::fromUtf8("Café, 5 €");
    QTest::newRow("empty") << "" << QByteArray() << "";
}

void TestWorkOrder::narrativeTemplateIsPlainLines()
{
    QFETCH(QString, narrative);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, loaded);
    ProgramFolder folder;
    QVERIFY(folder.store.EnsureFolder("/Templates"));
    folder.put("Templates/WONarrative.txt", "an older template\r\n");
    QVERIFY(SaveNarrativeTemplate(folder.store, narrative));
    QCOMPARE(folder.get("Templates/WONarrative.txt"), bytes);
    Result<std::optional<QString>> back = LoadNarrativeTemplate(folder.store);
    QVERIFY(back && back->has_value());
    QCOMPARE(**back, loaded);
}

void TestWorkOrder::missingTemplateLoadsNothing()
{
    ProgramFolder folder;
    Result<std::optional<QString>> back = LoadNarrativeTemplate(folder.store);
    QVERIFY(back && !back->has_value());
}

// A print with a narrative, then one after the narrative was cleared, must not print the
// first one's narrative again.
void TestWorkOrder::printNarrativeIsWrittenOrRemovedAtEveryPrint()
{
    ProgramFolder folder;
    QVERIFY(folder.store.EnsureFolder("/Templates"));
    QVERIFY(PrepareNarrativeForPrint(folder.store, "Line one\nLine two"));
    QCOMPARE(folder.get("Templates/WONarrativeTEMP.txt"), QByteArray("Line one\r\nLine two\r\n"));
    Result<std::optional<QStringList>> lines = ReadPrintNarrative(folder.store);
    QVERIFY(lines && lines->has_value());
    QCOMPARE(**lines, (QStringList{"Line one", "Line two"}));

    for (const QString& nothing : {QString(), QStringLiteral(" \n\t\n")}) {
        QVERIFY(PrepareNarrativeForPrint(folder.store, "Line one"));
        QVERIFY(PrepareNarrativeForPrint(folder.store, nothing));
        QVERIFY(!folder.has("Templates/WONarrativeTEMP.txt"));
        lines = ReadPrintNarrative(folder.store);
        QVERIFY(lines && !lines->has_value());
    }
}

void TestWorkOrder::offersComeFromTheCatalogues()
{
    ProgramFolder folder;
    folder.put("Services.txt", service("Furnace cleaning", "45") + service("Duct survey", "ask") +
                                   service("Boiler service", "$1,200.5"));
    folder.put("TVInventoriedItems.txt", stockItem("Filter 16x25"));
    folder.put("CustomItems.txt", customItem("Thermostat"));

    Result<QList<PriceEntry>> services = LoadOfferedServices(folder.store);
    QVERIFY(services);
    QCOMPARE(*services, (QList<PriceEntry>{{"Furnace cleaning", "$45.00"},
                                           {"Duct survey", "$0.00"},
                                           {"Boiler service", "$1,200.50"}}));
    Result<QList<PriceEntry>> items = LoadOfferedItems(folder.store);
    QVERIFY(items);
    QCOMPARE(*items, (QList<PriceEntry>{{"Filter 16x25", "$1,234.50"}, {"Thermostat", "$12.34"}}));
}

void TestWorkOrder::missingCataloguesLeaveTheirPartOut()
{
    ProgramFolder folder;
    folder.put("CustomItems.txt", customItem("Thermostat"));
    Result<QList<PriceEntry>> services = LoadOfferedServices(folder.store);
    QVERIFY(services && services->isEmpty());
    Result<QList<PriceEntry>> items = LoadOfferedItems(folder.store);
    QVERIFY(items);
    QCOMPARE(*items, (QList<PriceEntry>{{"Thermostat", "$12.34"}}));
}

void TestWorkOrder::chosenListHoldsANameOnce()
{
    ChosenList list;
    QVERIFY(list.add({"Filter", "$9.00"}));
    QVERIFY(!list.add({"Filter", "$7.00"}));
    QCOMPARE(list.entries(), (QList<PriceEntry>{{"Filter", "$9.00"}}));

    // Select All adds only what is missing; a price typed for an entry stays.
    const QList<PriceEntry> offered{{"Pump", "$80.00"}, {"Filter", "$12.00"}, {"Valve", "$5.00"}};
    QCOMPARE(list.addMissing(offered), 2);
    QCOMPARE(list.entries(),
             (QList<PriceEntry>{{"Filter", "$9.00"}, {"Pump", "$80.00"}, {"Valve", "$5.00"}}));
    QCOMPARE(list.addMissing(offered), 0);
    list.clear();
    QVERIFY(list.isEmpty());
}

void TestWorkOrder::pricesAreFormattedOrRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("digits") << "1234.5"
                            << "$1,234.50";
    QTest::newRow("preset form") << "$45.00"
                                 << "$45.00";
    QTest::newRow("half a cent rounds away from zero") << "0.125"
                                                       << "$0.13";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("a point alone") << "."
                                   << "";
    QTest::newRow("words") << "call us"
                           << "";
}

void TestWorkOrder::pricesAreFormattedOrRefused()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QCOMPARE(DocumentPrice(typed).value_or(QString()), shown);
}

QTEST_GUILESS_MAIN(TestWorkOrder)
#include "test_workorder.moc"
