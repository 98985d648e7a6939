#include "core/io/customerrecords.h"
#include "core/io/historyrecords.h"
#include "core/io/itemrecords.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{

// Records laid down by hand, field by field, independent of the record codec.
QByteArray text(const char* s, int width)
{
    QByteArray b(s);
    Q_ASSERT(b.size() <= width);
    return b + QByteArray(width - b.size(), ' ');
}
QByteArray hex(const char* h)
{
    return QByteArray::fromHex(h);
}

QByteArray serviceHistory(const char* name, const char* account)
{
    return text(name, 30) + text(account, 25) + text("04/30/2026", 15) +
           text("Cleaned furnace\r\nReplaced filter", 35) + text("Next visit in May", 40);
}
QByteArray ledger(const char* name, const char* amount)
{
    return text(name, 45) + text("A1", 25) + text("04/30/2026", 15) + text("Invoice SA120-3", 60) +
           text(amount, 10);
}
QByteArray invoiceItem(const char* name, const char* price)
{
    return text(name, 30) + text(price, 12);
}
QByteArray service(const char* name, const char* price)
{
    return text(name, 60) + text(price, 10) + hex("0000");
}
// Name, a sibling's text, price 1,234.50, cost 80.00, 7, 5.00, 123456, -1, 2.
QByteArray inventoried(const char* name)
{
    return text(name, 50) + text("SKU-4471", 20) + hex("a85ebc0000000000") +
           hex("00350c0000000000") + hex("0700") + hex("50c3000000000000") + hex("40e20100") +
           hex("ffff") + hex("0200");
}
// Name, price 12.34, cost 0.0099, -5.
QByteArray customItem(const char* name)
{
    return text(name, 50) + hex("08e2010000000000") + hex("6300000000000000") + hex("fbffffff");
}

const RecordLayout* layoutNamed(const QString& name)
{
    for (const RecordLayout* l : {&CustomerLayout(), &ContractLayout(), &CycleLayout(),
                                  &ServiceHistoryLayout(), &LedgerLayout(), &InvoiceItemLayout(),
                                  &ServiceLayout(), &InventoriedItemLayout(), &CustomItemLayout()})
        if (l->name() == name) return l;
    return nullptr;
}

template <typename R> Result<QList<FixedRecord>> plain(const Result<QList<R>>& typed)
{
    if (!typed) return typed.status();
    return QList<FixedRecord>(typed->begin(), typed->end());
}

// Each file through its own reader.
Result<QList<FixedRecord>> readFile(Store& s, const QString& file)
{
    if (file == u"ServiceHistory.txt") return plain(ReadServiceHistory(s));
    if (file == u"CAHistory.txt") return plain(ReadLedger(s));
    if (file == u"InvoiceItems.txt") return plain(ReadInvoiceItems(s));
    if (file == u"Services.txt") return plain(ReadServices(s, ServicesFileName()));
    if (file == u"CurrentServices.txt") return plain(ReadServices(s, CurrentServicesFileName()));
    if (file == u"TVInventoriedItems.txt")
        return plain(ReadInventoriedItems(s, InventoriedItemsFileName()));
    if (file == u"CurrentItems.txt") return plain(ReadInventoriedItems(s, CurrentItemsFileName()));
    if (file == u"CustomItems.txt") return plain(ReadCustomItems(s));
    return Status::failure(QStringLiteral("no reader for ") + file);
}

// Each file read and written back through its own reader and writer.
Status rewriteFile(Store& s, const QString& file)
{
    if (file == u"ServiceHistory.txt") return WriteServiceHistory(s, ReadServiceHistory(s).value());
    if (file == u"CAHistory.txt") return WriteLedger(s, ReadLedger(s).value());
    if (file == u"InvoiceItems.txt") return WriteInvoiceItems(s, ReadInvoiceItems(s).value());
    if (file == u"Services.txt")
        return WriteServices(s, ServicesFileName(), ReadServices(s, ServicesFileName()).value());
    if (file == u"CurrentServices.txt")
        return WriteServices(s, CurrentServicesFileName(),
                             ReadServices(s, CurrentServicesFileName()).value());
    if (file == u"CurrentItems.txt")
        return WriteCurrentItems(s, ReadInventoriedItems(s, CurrentItemsFileName()).value());
    if (file == u"CustomItems.txt") return WriteCustomItems(s, ReadCustomItems(s).value());
    return Status::failure(QStringLiteral("no writer for ") + file);
}

} // namespace

class TestRecordFormats : public QObject
{
    Q_OBJECT
private slots:
    void fieldOffsets_data();
    void fieldOffsets();
    void roundTrip_data();
    void roundTrip();
    void recordsBuiltFromFieldsMatchHandWrittenBytes();
    void partialLastRecordCountsByRounding_data();
    void partialLastRecordCountsByRounding();
    void missingFileReadsEmptyAndEmptyListWritesEmptyFile();
};

void TestRecordFormats::fieldOffsets_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("offset");
    const auto row = [](const char* layout, int length, const char* field, int offset) {
        QTest::addRow("%s.%s", layout, field)
            << QString::fromLatin1(layout) << length << QString::fromLatin1(field) << offset;
    };
    row("CustomerRecord", 328, "Phone", 207);
    row("CustomerRecord", 328, "RecordSpare", 326);
    row("ContractRecord", 386, "ContractNextDate", 107);
    row("ContractRecord", 386, "ContractNote", 336);
    row("CycleRecord", 69, "CycleFlag", 67);
    row("ServiceHistoryRecord", 145, "ServiceNote", 105);
    row("LedgerRecord", 155, "LedgerAmount", 145);
    row("InvoiceItemRecord", 42, "ItemPrice", 30);
    row("ServiceRecord", 72, "ServiceFlag", 70);
    row("InventoriedItemRecord", 104, "StockPrice", 70);
    row("InventoriedItemRecord", 104, "StockLong", 96);
    row("InventoriedItemRecord", 104, "StockNumber3", 102);
    row("CustomItemRecord", 70, "CustomPrice", 50);
    row("CustomItemRecord", 70, "CustomLong", 66);
}

void TestRecordFormats::fieldOffsets()
{
    QFETCH(QString, layout);
    QFETCH(int, length);
    QFETCH(QString, field);
    QFETCH(int, offset);
    const RecordLayout* l = layoutNamed(layout);
    QVERIFY(l);
    QCOMPARE(l->length(), length);
    const int index = l->indexOf(field);
    QVERIFY(index >= 0);
    QCOMPARE(l->field(index).offset, offset);
}

void TestRecordFormats::roundTrip_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value"); // of that field in the second record
    QTest::addColumn<QString>("field2");
    QTest::addColumn<QString>("value2");

    QTest::newRow("ServiceHistory.txt")
        << "ServiceHistory.txt" << 145
        << serviceHistory("Ann Smith", "A1") + serviceHistory("Bob Jones", "B2") << "ServiceAccount"
        << "B2"
        << "ServiceWork"
        << "Cleaned furnace\r\nReplaced filter";
    QTest::newRow("CAHistory.txt")
        << "CAHistory.txt" << 155
        << ledger("Ann Smith", "$89.00") + ledger("Bob Jones", "$1,234.50") << "LedgerName"
        << "Bob Jones"
        << "LedgerAmount"
        << "$1,234.50";
    QTest::newRow("InvoiceItems.txt")
        << "InvoiceItems.txt" << 42
        << invoiceItem("Labor per hour", "65") + invoiceItem("Filter 16x25", "12.50") << "ItemName"
        << "Filter 16x25"
        << "ItemPrice"
        << "12.50";
    QTest::newRow("Services.txt") << "Services.txt" << 72
                                  << service("Duct cleaning", "150.00") +
                                         service("Furnace tune-up", "89.00")
                                  << "ServiceName"
                                  << "Furnace tune-up"
                                  << "ServiceFlag"
                                  << "0";
    QTest::newRow("CurrentServices.txt")
        << "CurrentServices.txt" << 72
        << service("Duct cleaning", "150.00") + service("Furnace tune-up", "89.00")
        << "ServicePrice"
        << "89.00"
        << "ServiceFlag"
        << "0";
    QTest::newRow("TVInventoriedItems.txt")
        << "TVInventoriedItems.txt" << 104 << inventoried("Filter") + inventoried("Thermostat T87")
        << "StockName"
        << "Thermostat T87"
        << "StockPrice"
        << "1234.5000";
    QTest::newRow("CurrentItems.txt")
        << "CurrentItems.txt" << 104 << inventoried("Filter") + inventoried("Thermostat T87")
        << "StockLong"
        << "123456"
        << "StockNumber2"
        << "-1";
    QTest::newRow("CustomItems.txt")
        << "CustomItems.txt" << 70 << customItem("Tape") + customItem("Duct tape") << "CustomName"
        << "Duct tape"
        << "CustomPrice"
        << "12.3400";
}

void TestRecordFormats::roundTrip()
{
    QFETCH(QString, file);
    QFETCH(int, length);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QString, field2);
    QFETCH(QString, value2);
    QCOMPARE(bytes.size(), 2 * length); // the hand-written records themselves

    ProgramFolder f;
    f.put(file, bytes);
    f.put("Backup/" + file, "old copy");
    Result<QList<FixedRecord>> records = readFile(f.store, file);
    QVERIFY2(records.ok(), qPrintable(records.message()));
    QCOMPARE(records->size(), 2);
    const FixedRecord& second = records->at(1);
    QCOMPARE(second.layout().length(), length);
    QCOMPARE(second.display(second.layout().indexOf(field)), value);
    QCOMPARE(second.display(second.layout().indexOf(field2)), value2);

    if (file == u"TVInventoriedItems.txt")
        return; // a sibling program's catalogue: read here, never written
    QVERIFY(rewriteFile(f.store, file).ok());
    QCOMPARE(f.get(file), bytes);
    QVERIFY(!f.has("Backup/" + file)); // the stale copy cannot come back
}

void TestRecordFormats::recordsBuiltFromFieldsMatchHandWrittenBytes()
{
    using namespace InventoriedItemField;
    InventoriedItemRecord stock;
    stock.setText(StockName, QStringLiteral("Thermostat T87"));
    stock.setText(StockText, QStringLiteral("SKU-4471"));
    stock.setCurrency(StockPrice, 12345000);
    stock.setCurrency(StockCost, 800000);
    stock.setInt16(StockNumber1, 7);
    stock.setCurrency(StockAmount, 50000);
    stock.setInt32(StockLong, 123456);
    stock.setInt16(StockNumber2, -1);
    stock.setInt16(StockNumber3, 2);
    QCOMPARE(stock.bytes(), inventoried("Thermostat T87"));

    CustomItemRecord custom;
    custom.setText(CustomItemField::CustomName, QStringLiteral("Duct tape"));
    custom.setCurrency(CustomItemField::CustomPrice, 123400);
    custom.setCurrency(CustomItemField::CustomCost, 99);
    custom.setInt32(CustomItemField::CustomLong, -5);
    QCOMPARE(custom.bytes(), customItem("Duct tape"));

    // A new service record is blank with its flag 0; a name past 60 is cut.
    ServiceRecord s;
    s.setText(ServiceField::ServiceName, QStringLiteral("Furnace tune-up"));
    s.setText(ServiceField::ServicePrice, QStringLiteral("89.00"));
    QCOMPARE(s.bytes(), service("Furnace tune-up", "89.00"));
    s.setText(ServiceField::ServiceName, QString(70, u'a'));
    QCOMPARE(s.bytes().left(62), QByteArray(60, 'a') + "89");

    LedgerRecord l;
    l.setText(LedgerField::LedgerName, QStringLiteral("Bob Jones"));
    l.setText(LedgerField::LedgerAccount, QStringLiteral("A1"));
    l.setText(LedgerField::LedgerDate, QStringLiteral("04/30/2026"));
    l.setText(LedgerField::LedgerText, QStringLiteral("Invoice SA120-3"));
    l.setText(LedgerField::LedgerAmount, QStringLiteral("$1,234.50"));
    QCOMPARE(l.bytes(), ledger("Bob Jones", "$1,234.50"));
}

void TestRecordFormats::partialLastRecordCountsByRounding_data()
{
    QTest::addColumn<int>("extra");
    QTest::addColumn<int>("count");
    QTest::newRow("20 of 42 bytes: not a record") << 20 << 2;
    QTest::newRow("21 of 42: half, to even") << 21 << 2;
    QTest::newRow("22 of 42: a record") << 22 << 3;
}

void TestRecordFormats::partialLastRecordCountsByRounding()
{
    QFETCH(int, extra);
    QFETCH(int, count);
    ProgramFolder f;
    const QByteArray two = invoiceItem("A", "1") + invoiceItem("B", "2");
    f.put("InvoiceItems.txt", two + invoiceItem("Cut short", "3").left(extra));
    Result<QList<InvoiceItemRecord>> items = ReadInvoiceItems(f.store);
    QVERIFY(items.ok());
    QCOMPARE(items->size(), count);
    if (count == 3) {
        QCOMPARE(items->at(2).display(InvoiceItemField::ItemName), QStringLiteral("Cut short"));
        QCOMPARE(items->at(2).bytes().mid(extra), QByteArray(42 - extra, '\0'));
    }
}

void TestRecordFormats::missingFileReadsEmptyAndEmptyListWritesEmptyFile()
{
    ProgramFolder f;
    Result<QList<LedgerRecord>> none = ReadLedger(f.store);
    QVERIFY(none.ok());
    QVERIFY(none->isEmpty());
    QVERIFY(f.snapshot().isEmpty());

    // A missing file comes back from Backup before it is read.
    f.put("Backup/CustomItems.txt", customItem("Tape"));
    Result<QList<CustomItemRecord>> restored = ReadCustomItems(f.store);
    QVERIFY(restored.ok());
    QCOMPARE(restored->size(), 1);

    QVERIFY(WriteServices(f.store, CurrentServicesFileName(), {}).ok());
    QVERIFY(f.has("CurrentServices.txt"));
    QCOMPARE(f.get("CurrentServices.txt").size(), 0);
}

QTEST_GUILESS_MAIN(TestRecordFormats)
#include "test_recordformats.moc"
