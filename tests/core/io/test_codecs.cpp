#include "core/io/callrecord.h"
#include "core/io/cp1252.h"
#include "core/io/customerrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"

#include <QtTest>

using namespace tresvane;

class TestCodecs : public QObject
{
    Q_OBJECT
private slots:
    void writerProducesTheOldForm();
    void readerTakesFieldsAcrossLineEnds();
    void readerReportsDamage_data();
    void readerReportsDamage();
    void integersRoundHalfToEvenAndKeepTheirLimits();
    void windows1252RoundTripsEveryByte();
    void unencodableCharactersBecomeQuestionMarks();
    void layoutsHaveTheirLengths_data();
    void layoutsHaveTheirLengths();
    void textFieldIsCutAndPadded();
    void numbersAreLittleEndian();
    void bytesNotTouchedSurviveARoundTrip();
    void partialLastRecordIsCountedAndZeroFilled();
    void currencyAndDateForms_data();
    void currencyAndDateForms();
    void shortDateBytes_data();
    void shortDateBytes();
    void isNumericAcceptsWhatABoxMayHold_data();
    void isNumericAcceptsWhatABoxMayHold();
};

void TestCodecs::writerProducesTheOldForm()
{
    TextWriter w;
    w.line(QStringLiteral("110"), qint16(3));
    w.line(true).line(false).line(qint16(-5));
    w.line(QStringLiteral("Café \"Q\""), QStringLiteral(""));
    QCOMPARE(w.bytes(), QByteArray("\"110\",3\r\n#TRUE#\r\n#FALSE#\r\n-5\r\n"
                                   "\"Caf\xe9 'Q'\",\"\"\r\n"));
}

void TestCodecs::readerTakesFieldsAcrossLineEnds()
{
    TextReader r("  \"a, b\" , plain text  ,#TRUE#\r\n7\n\"last\"\r\n\r\n", "X.txt");
    QCOMPARE(*r.readString(), QStringLiteral("a, b"));
    QCOMPARE(*r.readString(), QStringLiteral("plain text"));
    QCOMPARE(*r.readBool(), true);
    QCOMPARE(*r.readInt16(), qint16(7));
    QVERIFY(!r.atEnd());
    QCOMPARE(*r.readString(), QStringLiteral("last"));
    QVERIFY(r.atEnd()); // trailing blank lines are not another field

    // A bare line with a comma is two fields: the later ones shift.
    TextReader day("Smith, John\r\nNo Event Scheduled\r\n", "1.txt");
    QCOMPARE(*day.readString(), QStringLiteral("Smith"));
    QCOMPARE(*day.readString(), QStringLiteral("John"));
    QCOMPARE(*day.readString(), QStringLiteral("No Event Scheduled"));

    // An empty line in the middle is an empty field.
    TextReader gaps("\"a\"\r\n\r\n\"b\"\r\n", "G.txt");
    QCOMPARE(*gaps.readAllStrings(), (QStringList{"a", "", "b"}));
}

void TestCodecs::readerReportsDamage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("word for a number") << QByteArray("\"x\",seven\r\n") << "seven";
    QTest::newRow("ends early") << QByteArray("\"x\"\r\n") << "ends before field 2";
    QTest::newRow("past 32767") << QByteArray("\"x\",40000\r\n") << "40000";
}

void TestCodecs::readerReportsDamage()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    TextReader r(bytes, "Counter.txt");
    QVERIFY(r.readString().ok());
    Result<qint16> n = r.readInt16();
    QVERIFY(!n.ok());
    QVERIFY2(n.message().contains("Counter.txt"), qPrintable(n.message()));
    QVERIFY2(n.message().contains(expected), qPrintable(n.message()));
}

void TestCodecs::integersRoundHalfToEvenAndKeepTheirLimits()
{
    TextReader r("2.5,3.5,-32768,255,256", "N.txt");
    QCOMPARE(*r.readInt16(), qint16(2));
    QCOMPARE(*r.readInt16(), qint16(4));
    QCOMPARE(*r.readInt16(), qint16(-32768));
    QCOMPARE(*r.readByte(), quint8(255));
    QVERIFY(!r.readByte().ok());
}

void TestCodecs::windows1252RoundTripsEveryByte()
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all += char(b);
    QCOMPARE(cp1252::encode(cp1252::decode(all)), all);
    QCOMPARE(cp1252::decode("\x80\x93\xe9"), QStringLiteral("€“é"));
}

void TestCodecs::unencodableCharactersBecomeQuestionMarks()
{
    QCOMPARE(cp1252::encode(u"Łódź €"), QByteArray("?\xf3"
                                                   "d? \x80"));
}

void TestCodecs::layoutsHaveTheirLengths_data()
{
    QTest::addColumn<int>("actual");
    QTest::addColumn<int>("expected");
    QTest::newRow("slip") << SlipLayout().length() << 297;
    QTest::newRow("customer") << CustomerLayout().length() << 328;
    QTest::newRow("contract") << ContractLayout().length() << 386;
    QTest::newRow("cycle") << CycleLayout().length() << 69;
    QTest::newRow("call") << CallLayout().length() << 35;
    // Spot checks of offsets against the layouts as the files have them.
    QTest::newRow("slip Tel") << SlipLayout().field(SlipField::Tel).offset << 284;
    QTest::newRow("customer AccountType")
        << CustomerLayout().field(CustomerField::AccountType).offset << 314;
    QTest::newRow("contract NextDate")
        << ContractLayout().field(ContractField::ContractNextDate).offset << 107;
    QTest::newRow("contract Note")
        << ContractLayout().field(ContractField::ContractNote).offset << 336;
    QTest::newRow("cycle Flag") << CycleLayout().field(CycleField::CycleFlag).offset << 67;
}

void TestCodecs::layoutsHaveTheirLengths()
{
    QFETCH(int, actual);
    QFETCH(int, expected);
    QCOMPARE(actual, expected);
}

void TestCodecs::textFieldIsCutAndPadded()
{
    CallRecord call;
    call.setText(CallField::CallName, QStringLiteral("Renée Longname-Smith"));
    call.setText(CallField::CallNumber, QStringLiteral("555-123-4567"));
    call.setText(CallField::CallTime, QStringLiteral("9:05 am"));
    const QByteArray expected = QByteArray("Ren\xe9"
                                           "e Longname-") +
                                "555-123-4567" + "9:05 am ";
    QCOMPARE(call.bytes(), expected);
    QCOMPARE(call.text(CallField::CallName), QStringLiteral("Renée Longname-"));
    QCOMPARE(call.text(CallField::CallTime), QStringLiteral("9:05 am"));
    QCOMPARE(call.rawText(CallField::CallTime), QStringLiteral("9:05 am "));
}

void TestCodecs::numbersAreLittleEndian()
{
    CycleRecord cycle;
    cycle.setCurrency(CycleField::CycleAmount, 123400); // 12.34
    cycle.setInt16(CycleField::CycleFlag, -1);
    cycle.setInt16(CycleField::CycleNumber1, 0x0102);
    const QByteArray b = cycle.bytes();
    QCOMPARE(b.mid(35, 8), QByteArray("\x08\xe2\x01\x00\x00\x00\x00\x00", 8));
    QCOMPARE(b.mid(43, 2), QByteArray("\x02\x01", 2));
    QCOMPARE(b.mid(67, 2), QByteArray("\xff\xff", 2));

    ContractRecord contract;
    contract.setReal(ContractField::ContractNextDate, ToOleDate(QDate(2026, 1, 1)));
    QCOMPARE(contract.real(ContractField::ContractNextDate), 46023.0);
    // 46023.0 as an IEEE double, little-endian.
    QCOMPARE(contract.bytes().mid(107, 8), QByteArray("\x00\x00\x00\x00\xe0\x78\xe6\x40", 8));
    QCOMPARE(FromOleDate(46023.5), QDateTime(QDate(2026, 1, 1), QTime(12, 0)));
}

void TestCodecs::bytesNotTouchedSurviveARoundTrip()
{
    QByteArray raw(386, '\0');
    for (int i = 0; i < raw.size(); ++i)
        raw[i] = char(i * 7 + 3);
    ContractRecord c(raw);
    c.setText(ContractField::ContractCustomer, QStringLiteral("Acme"));
    QByteArray expected = raw;
    expected.replace(169, 30, QByteArray("Acme").leftJustified(30, ' '));
    QCOMPARE(c.bytes(), expected);
}

void TestCodecs::partialLastRecordIsCountedAndZeroFilled()
{
    const QByteArray bytes = QByteArray(35, 'a') + QByteArray(20, 'b');
    const QList<FixedRecord> records = SplitRecords(CallLayout(), bytes);
    QCOMPARE(records.size(), 2);
    QCOMPARE(records[1].bytes(), QByteArray(20, 'b') + QByteArray(15, '\0'));
    QCOMPARE(SplitRecords(CallLayout(), QByteArray(17, 'a')).size(), 0);
    QCOMPARE(JoinRecords(records).size(), 70);
}

void TestCodecs::currencyAndDateForms_data()
{
    QTest::addColumn<qint64>("units");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << qint64(0) << "$0.00";
    QTest::newRow("thousands") << qint64(12345000) << "$1,234.50";
    QTest::newRow("negative") << qint64(-12345000) << "($1,234.50)";
    QTest::newRow("million") << qint64(12345678900) << "$1,234,567.89";
    QTest::newRow("half cent rounds up") << qint64(50) << "$0.01";
}

void TestCodecs::currencyAndDateForms()
{
    QFETCH(qint64, units);
    QFETCH(QString, text);
    QCOMPARE(FormatCurrency(units), text);
    if (units % 100 == 0) QCOMPARE(ParseCurrency(text), std::optional<qint64>(units));
    QCOMPARE(FormatShortDate(QDate(2026, 2, 3)), QStringLiteral("02/03/2026"));
    QCOMPARE(ParseShortDate("2/3/2026"), std::optional<QDate>(QDate(2026, 2, 3)));
    QVERIFY(!ParseShortDate("02/30/2026"));
    QVERIFY(!ParseShortDate("Meeting"));
}

void TestCodecs::shortDateBytes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QDate>("date"); // invalid: refused
    QTest::newRow("plain") << QByteArray("05/05/2026") << QDate(2026, 5, 5);
    QTest::newRow("short parts") << QByteArray("5/5/2026") << QDate(2026, 5, 5);
    QTest::newRow("three-digit month") << QByteArray("005/05/2026") << QDate();
    QTest::newRow("five-digit year") << QByteArray("05/05/20260") << QDate();
    // Digits enough to overflow a 32-bit part are refused, not wrapped.
    QTest::newRow("ten-digit year") << QByteArray("05/05/4294967296") << QDate();
    QTest::newRow("ten-digit day") << QByteArray("05/2147483648/2026") << QDate();
    QTest::newRow("no year") << QByteArray("05/05/") << QDate();
}

void TestCodecs::shortDateBytes()
{
    QFETCH(QByteArray, text);
    QFETCH(QDate, date);
    QCOMPARE(ParseShortDateBytes(text), date);
}

void TestCodecs::isNumericAcceptsWhatABoxMayHold_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("numeric");
    QTest::newRow("digits") << "123" << true;
    QTest::newRow("blanks") << " 42 " << true;
    QTest::newRow("decimal") << "12.50" << true;
    QTest::newRow("thousands") << "1,000" << true;
    QTest::newRow("money") << "$5" << true;
    QTest::newRow("sign") << "-7" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("point alone") << "." << false;
    QTest::newRow("word") << "Main St" << false;
    QTest::newRow("phone") << "555-1234" << false;
}

void TestCodecs::isNumericAcceptsWhatABoxMayHold()
{
    QFETCH(QString, text);
    QFETCH(bool, numeric);
    QCOMPARE(IsNumeric(text), numeric);
}

QTEST_GUILESS_MAIN(TestCodecs)
#include "test_codecs.moc"
