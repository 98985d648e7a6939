#include "core/customers/customerfiles.h"
#include "core/io/usforms.h"
#include "customerbytes.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

namespace
{

QByteArray text(const char* s, int width)
{
    return padded(s, width);
}
QByteArray blanks(int width)
{
    return QByteArray(width, ' ');
}
QByteArray zeros(int width)
{
    return QByteArray(width, '\0');
}
QByteArray hex(const char* h)
{
    return QByteArray::fromHex(h);
}

const QByteArray kMinusOne = hex("ffff");
const QByteArray kZero16 = hex("0000");

QByteArray handCustomer(const char* account, const char* name)
{
    return customerBytes({.account = account,
                          .name = name,
                          .address1 = "12 Elm St",
                          .address2 = "Suite 4",
                          .address3 = "Springfield",
                          .cityShort = "Springfield",
                          .state = "IL",
                          .zip = "62704",
                          .address4 = "62704",
                          .phone = "217-555-0100",
                          .cell = "217-555-0199",
                          .other = "fax 217-555-0101",
                          .title = "Mr.",
                          .first = "John",
                          .middle = "Q",
                          .last = "Public",
                          .spare = hex("3412")});
}

// gContract and gCycle as ResetContractDefaults leaves them at 9 am on Thursday 30 April
// 2026 (46142.375 days), ContractText2 being what the buffer held.
QByteArray defaultContract(const QByteArray& text2)
{
    const QByteArray now = hex("00000000cc87e640");
    return text("None Selected", 35) + text("None", 15) + zeros(8) + text("Thursday", 9) +
           text("None Selected", 40) + now + now + kZero16 + kMinusOne + kZero16 +
           text("None", 20) + blanks(20) + blanks(30) + text2 + blanks(25) + blanks(20) +
           blanks(2) + blanks(10) + blanks(13) + blanks(30) + kZero16 + blanks(50);
}
QByteArray defaultCycle()
{
    return text("None Selected", 35) + zeros(8) + kZero16 + blanks(20) + kZero16 + kMinusOne;
}

const QString kCustomers = QStringLiteral("CustomerData.txt");
const QString kContracts = QStringLiteral("ContractInfo.txt");
const QString kCycles = QStringLiteral("CycleInfo.txt");

} // namespace

class TestCustomerFiles : public QObject
{
    Q_OBJECT
private slots:
    void threeAccountsMakeFilesOfTheirLengths();
    void customerRecordMatchesHandWrittenBytes();
    void nameIsCutAtItsWidth();
    void contractPriceAndDateAreStoredAsTheyAlwaysWere();
    void carriedFieldsSurviveReadAndWrite();
    void recordPastTheEndReadsAsZeroBytes();
    void badRecordNumberIsRefused();
    void readAllCustomersInOnePass();
    void defaultsComeFromTheClock();
    void weekdayNames_data();
    void weekdayNames();
    void buildContractInfo_data();
    void buildContractInfo();
    void buildCycleInfoWritesEveryRecord();
    void rebuildWithoutCustomerFileChangesNothing_data();
    void rebuildWithoutCustomerFileChangesNothing();
    void statesList();
};

void TestCustomerFiles::threeAccountsMakeFilesOfTheirLengths()
{
    ProgramFolder f;
    ResetContractDefaults(f.ctx);
    for (qint32 n = 1; n <= 3; ++n) {
        f.v.gCustomer.setText(CustomerField::AccountNo, QString::number(n));
        QVERIFY(WriteCustomer(f.ctx, n).ok());
        QVERIFY(WriteContract(f.ctx, n).ok());
        QVERIFY(WriteCycle(f.ctx, n).ok());
    }
    QCOMPARE(f.get(kCustomers).size(), 984);
    QCOMPARE(f.get(kContracts).size(), 1158);
    QCOMPARE(f.get(kCycles).size(), 207);
    QCOMPARE(f.get(kContracts).mid(386, 386), defaultContract(blanks(35)));
}

void TestCustomerFiles::customerRecordMatchesHandWrittenBytes()
{
    ProgramFolder f;
    const QByteArray first = handCustomer("217-555-0100", "John Q Public");
    const QByteArray second = handCustomer("ACME-1", "Acme Heating & Cooling");
    f.put(kCustomers, first + second);

    QVERIFY(ReadCustomer(f.ctx, 2).ok());
    const CustomerRecord& r = f.v.gCustomer;
    QCOMPARE(r.text(CustomerField::AccountNo), QStringLiteral("ACME-1"));
    QCOMPARE(r.text(CustomerField::Name), QStringLiteral("Acme Heating & Cooling"));
    QCOMPARE(r.text(CustomerField::State), QStringLiteral("IL"));
    QCOMPARE(r.text(CustomerField::Phone), QStringLiteral("217-555-0100"));
    QCOMPARE(r.rawText(CustomerField::MiddleInitial), QStringLiteral("Q"));
    QCOMPARE(r.text(CustomerField::AccountType), QStringLiteral("Individual"));
    QCOMPARE(r.int16(CustomerField::RecordMark), qint16(1));
    QCOMPARE(r.int16(CustomerField::RecordSpare), qint16(0x1234));

    // The same record built field by field gives the same bytes.
    CustomerRecord built;
    const char* values[] = {"ACME-1",
                            "Acme Heating & Cooling",
                            "12 Elm St",
                            "Suite 4",
                            "Springfield",
                            "Springfield",
                            "IL",
                            "62704",
                            "62704",
                            "217-555-0100",
                            "217-555-0199",
                            "fax 217-555-0101",
                            "Mr.",
                            "John",
                            "Q",
                            "Public",
                            "Individual"};
    for (int i = 0; i <= CustomerField::AccountType; ++i)
        built.setText(i, QString::fromLatin1(values[i]));
    built.setInt16(CustomerField::RecordMark, 1);
    built.setInt16(CustomerField::RecordSpare, 0x1234);
    QCOMPARE(built.bytes(), second);

    // Writing record 1 from the buffer leaves record 2 alone.
    QVERIFY(WriteCustomer(f.ctx, 1).ok());
    QCOMPARE(f.get(kCustomers), second + second);
}

void TestCustomerFiles::nameIsCutAtItsWidth()
{
    ProgramFolder f;
    const QString fifty = QStringLiteral("Abcdefghij").repeated(5);
    f.v.gCustomer.setText(CustomerField::Name, fifty);
    f.v.gCustomer.setText(CustomerField::Address1, QStringLiteral("next field"));
    QVERIFY(WriteCustomer(f.ctx, 1).ok());
    f.v.gCustomer = CustomerRecord();
    QVERIFY(ReadCustomer(f.ctx, 1).ok());
    QCOMPARE(f.v.gCustomer.text(CustomerField::Name), fifty.left(45));
    QCOMPARE(f.v.gCustomer.text(CustomerField::Address1), QStringLiteral("next field"));
    QCOMPARE(f.get(kCustomers).mid(20, 45), fifty.left(45).toLatin1());
}

void TestCustomerFiles::contractPriceAndDateAreStoredAsTheyAlwaysWere()
{
    ProgramFolder f;
    ContractRecord& k = f.v.gContract;
    const std::optional<qint64> price = ParseCurrency(QStringLiteral("12.34"));
    QVERIFY(price);
    QCOMPARE(*price, qint64(123400));
    k.setCurrency(ContractField::ContractPrice, *price);
    k.setReal(ContractField::ContractNextDate, ToOleDate(QDate(2026, 1, 1)));
    QCOMPARE(k.real(ContractField::ContractNextDate), 46023.0);
    QVERIFY(WriteContract(f.ctx, 2).ok());

    const QByteArray file = f.get(kContracts);
    QCOMPARE(file.size(), 2 * 386);
    QCOMPARE(file.left(386), zeros(386)); // the hole before record 2
    const QByteArray record = file.mid(386);
    QCOMPARE(record.mid(50, 8), hex("08e2010000000000"));  // 123400
    QCOMPARE(record.mid(107, 8), hex("00000000e078e640")); // 46023.0

    k = ContractRecord();
    QVERIFY(ReadContract(f.ctx, 2).ok());
    QCOMPARE(k.currency(ContractField::ContractPrice), qint64(123400));
    QCOMPARE(FromOleDate(k.real(ContractField::ContractNextDate)).date(), QDate(2026, 1, 1));
}

void TestCustomerFiles::carriedFieldsSurviveReadAndWrite()
{
    ProgramFolder f;
    const QByteArray contracts = companionBytes(386, 1) + companionBytes(386, 2);
    const QByteArray cycles = companionBytes(69, 3) + companionBytes(69, 4);
    f.put(kContracts, contracts);
    f.put(kCycles, cycles);

    QVERIFY(ReadContract(f.ctx, 2).ok());
    QVERIFY(ReadCycle(f.ctx, 2).ok());
    QVERIFY(WriteContract(f.ctx, 2).ok());
    QVERIFY(WriteCycle(f.ctx, 2).ok());
    QCOMPARE(f.get(kContracts), contracts);
    QCOMPARE(f.get(kCycles), cycles);

    // Changing the text the grid shows touches those 30 bytes and nothing else.
    f.v.gContract.setText(ContractField::ContractCustomer, QStringLiteral("Smith"));
    QVERIFY(WriteContract(f.ctx, 2).ok());
    QByteArray expected = contracts;
    expected.replace(386 + 169, 30, text("Smith", 30));
    QCOMPARE(f.get(kContracts), expected);
}

void TestCustomerFiles::recordPastTheEndReadsAsZeroBytes()
{
    ProgramFolder f;
    f.put(kContracts, companionBytes(386, 5));
    QVERIFY(ReadContract(f.ctx, 3).ok());
    QCOMPARE(f.v.gContract.bytes(), zeros(386));
    QCOMPARE(f.v.gContract.real(ContractField::ContractNextDate), 0.0);

    // A missing file reads as zero bytes too, and is not created by the read: the check
    // that rebuilds a missing parallel file must still find it missing.
    f.v.gCycle.setText(CycleField::CycleText, QStringLiteral("was here"));
    QVERIFY(ReadCycle(f.ctx, 1).ok());
    QCOMPARE(f.v.gCycle.bytes(), zeros(69));
    QVERIFY(!f.has(kCycles));
}

void TestCustomerFiles::badRecordNumberIsRefused()
{
    ProgramFolder f;
    const Status s = WriteContract(f.ctx, 0);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains(u"ContractInfo.txt"), qPrintable(s.message()));
    QCOMPARE(f.get(kContracts).size(), 0);
}

void TestCustomerFiles::readAllCustomersInOnePass()
{
    ProgramFolder f;
    const QByteArray a = handCustomer("A1", "Ann");
    const QByteArray b = handCustomer("B2", "Bob");
    // The last record lacks its final bytes; the rounded count still takes it.
    f.put(kCustomers, a + b + a.left(300));
    f.v.gCustomer.setText(CustomerField::Name, QStringLiteral("on screen"));

    Result<QList<CustomerRecord>> all = ReadAllCustomers(f.store);
    QVERIFY(all.ok());
    QCOMPARE(all->size(), 3);
    QCOMPARE(all->at(1).text(CustomerField::Name), QStringLiteral("Bob"));
    QCOMPARE(all->at(2).text(CustomerField::AccountNo), QStringLiteral("A1"));
    QCOMPARE(all->at(2).bytes().mid(300), zeros(28));
    QCOMPARE(f.v.gCustomer.text(CustomerField::Name), QStringLiteral("on screen"));

    ProgramFolder empty;
    Result<QList<CustomerRecord>> none = ReadAllCustomers(empty.store);
    QVERIFY(none.ok());
    QVERIFY(none->isEmpty());
    QVERIFY(empty.snapshot().isEmpty());
}

void TestCustomerFiles::defaultsComeFromTheClock()
{
    ProgramFolder f;
    f.clock.set(QDateTime(QDate(2026, 4, 30), QTime(9, 0)));
    // What a companion program left in the buffers: the defaults replace all of it but
    // ContractText2.
    f.v.gContract = ContractRecord(companionBytes(386, 9));
    f.v.gCycle = CycleRecord(companionBytes(69, 9));
    const QByteArray text2 = companionBytes(386, 9).mid(199, 35);

    ResetContractDefaults(f.ctx);
    QCOMPARE(f.v.gContract.bytes(), defaultContract(text2));
    QCOMPARE(f.v.gCycle.bytes(), defaultCycle());
}

void TestCustomerFiles::weekdayNames_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("Sunday") << QDate(2026, 5, 3) << QByteArray("Sunday   ");
    QTest::newRow("Monday") << QDate(2026, 5, 4) << QByteArray("Monday   ");
    QTest::newRow("Wednesday fills the field") << QDate(2026, 5, 6) << QByteArray("Wednesday");
    QTest::newRow("Saturday") << QDate(2026, 5, 9) << QByteArray("Saturday ");
    QTest::newRow("leap day") << QDate(2028, 2, 29) << QByteArray("Tuesday  ");
}

void TestCustomerFiles::weekdayNames()
{
    QFETCH(QDate, date);
    QFETCH(QByteArray, stored);
    ProgramFolder f;
    f.clock.set(QDateTime(date, QTime(23, 59)));
    ResetContractDefaults(f.ctx);
    QCOMPARE(f.v.gContract.bytes().mid(58, 9), stored);
}

void TestCustomerFiles::buildContractInfo_data()
{
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("filled"); // records from the first filled one to 5
    QTest::addColumn<int>("length");
    QTest::newRow("the screen passes the count: one record") << 5 << 5 << 1930;
    QTest::newRow("from 1: every record") << 1 << 1 << 1930;
    QTest::newRow("from 3") << 3 << 3 << 1930;
    QTest::newRow("below 1 is taken as 1") << 0 << 1 << 1930;
    QTest::newRow("past the count: an empty file") << 6 << 6 << 0;
}

void TestCustomerFiles::buildContractInfo()
{
    QFETCH(int, last);
    QFETCH(int, filled);
    QFETCH(int, length);
    ProgramFolder f;
    f.put(kCustomers, QByteArray(5 * 328, 'x'));
    f.put(kContracts, "stale");
    f.put("Backup/ContractInfo.txt", "stale backup");
    ResetContractDefaults(f.ctx);
    f.v.gContract.setText(ContractField::ContractCustomer, QStringLiteral("Current"));

    QVERIFY(BuildContractInfo(f.ctx, last).ok());
    const QByteArray file = f.get(kContracts);
    QCOMPARE(file.size(), length);
    for (int i = 1; i <= length / 386; ++i)
        QCOMPARE(file.mid((i - 1) * 386, 386), i < filled ? zeros(386) : f.v.gContract.bytes());
    QVERIFY(!f.has("Backup/ContractInfo.txt"));
    VERIFY_DIALOGS(f.dialogs);
}

void TestCustomerFiles::buildCycleInfoWritesEveryRecord()
{
    ProgramFolder f;
    f.put(kCustomers, QByteArray(5 * 328, 'x'));
    f.put("Backup/CycleInfo.txt", "stale backup");
    f.dialogs.expect(QStringLiteral("Your Billing Information File will be Built with Default "
                                    "Values"),
                     QStringLiteral("Building Billing Info"));
    ResetContractDefaults(f.ctx);
    QVERIFY(BuildCycleInfo(f.ctx, 5).ok());
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.get(kCycles), defaultCycle().repeated(5));
    QVERIFY(!f.has("Backup/CycleInfo.txt"));

    // The count is the screen's, not the file's.
    f.dialogs.expectContaining(QStringLiteral("Built with Default Values"));
    QVERIFY(BuildCycleInfo(f.ctx, 2).ok());
    QCOMPARE(f.get(kCycles), defaultCycle().repeated(2));
    VERIFY_DIALOGS(f.dialogs);
}

void TestCustomerFiles::rebuildWithoutCustomerFileChangesNothing_data()
{
    QTest::addColumn<bool>("contract");
    QTest::addColumn<QString>("message");
    QTest::newRow("contract") << true
                              << QStringLiteral("Your Customer Information File is missing\nThe "
                                                "Contract File can not be rebuilt");
    QTest::newRow("cycle") << false
                           << QStringLiteral("Your Customer Information File is missing\nThe "
                                             "Cycle File can not be rebuilt");
}

void TestCustomerFiles::rebuildWithoutCustomerFileChangesNothing()
{
    QFETCH(bool, contract);
    QFETCH(QString, message);
    ProgramFolder f;
    f.put("Backup/ContractInfo.txt", "kept");
    f.put("Backup/CycleInfo.txt", "kept");
    const auto before = f.snapshot();
    f.dialogs.expect(message, QStringLiteral("No Customer File Found"));
    QVERIFY((contract ? BuildContractInfo(f.ctx, 1) : BuildCycleInfo(f.ctx, 1)).ok());
    VERIFY_DIALOGS(f.dialogs);
    QCOMPARE(f.snapshot(), before);
}

void TestCustomerFiles::statesList()
{
    QByteArray lines;
    for (int i = 1; i <= 51; ++i)
        lines += "S" + QByteArray::number(i) + "\r\n";
    {
        ProgramFolder f;
        f.put("StatesList.txt", lines);
        Result<QStringList> states = ReadStatesList(f.store);
        QVERIFY(states.ok());
        QCOMPARE(states->size(), 50);
        QCOMPARE(states->first(), QStringLiteral("S1"));
        QCOMPARE(states->last(), QStringLiteral("S50"));
    }
    {
        ProgramFolder f; // missing: an empty list and no message
        Result<QStringList> states = ReadStatesList(f.store);
        QVERIFY(states.ok());
        QVERIFY(states->isEmpty());
        VERIFY_DIALOGS(f.dialogs);
    }
    {
        ProgramFolder f; // 49 values: the file ends early
        f.put("StatesList.txt", lines.left(lines.indexOf("S50")));
        Result<QStringList> states = ReadStatesList(f.store);
        QVERIFY(!states.ok());
        QVERIFY2(states.message().contains(u"StatesList.txt"), qPrintable(states.message()));
    }
}

QTEST_GUILESS_MAIN(TestCustomerFiles)
#include "test_customerfiles.moc"
