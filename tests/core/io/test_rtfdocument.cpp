#include "core/io/rtfdocument.h"

#include <QtTest>

using namespace tresvane;

class TestRtfDocument : public QObject
{
    Q_OBJECT
private slots:
    void plainViewIsWhatAReaderShows_data();
    void plainViewIsWhatAReaderShows();
    void replacementKeepsTheFirstCharactersFormatting_data();
    void replacementKeepsTheFirstCharactersFormatting();
    void valuesReadBackAsLiteralText_data();
    void valuesReadBackAsLiteralText();
    void keywordInsideItsOwnValueEnds();
    void onlyTheFirstOccurrenceOnRequest();
    void damagedSourceDoesNotHang_data();
    void damagedSourceDoesNotHang();
};

void TestRtfDocument::plainViewIsWhatAReaderShows_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("text");

    QTest::newRow("tables, info and starred destinations")
        << QByteArray(
               "{\\rtf1\\ansi{\\fonttbl{\\f0\\froman Times;}}{\\colortbl;\\red9\\green0\\blue0;}"
               "{\\stylesheet{\\s0 Normal;}}{\\info{\\title Title}{\\author A}}"
               "{\\*\\generator Writer;}{\\*\\pgdsctbl{\\pgdsc0 Standard;}}Body}")
        << "Body";
    QTest::newRow("picture data") << QByteArray("{\\rtf1 a{\\pict\\pngblip\\picw10 89504e470d0a}b}")
                                  << "ab";
    QTest::newRow("binary data inside a picture")
        << QByteArray("{\\rtf1 a{\\pict\\bin4 {}\\x}b}") << "ab";
    QTest::newRow("field shows its result, not its instruction")
        << QByteArray("{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt shown}}}")
        << "shown";
    QTest::newRow("hex escapes are Windows-1252")
        << QByteArray("{\\rtf1 caf\\'e9 \\'80\\'96}") << QString::fromUtf8("café €–");
    QTest::newRow("raw 8-bit bytes are Windows-1252")
        << QByteArray("{\\rtf1 caf\xe9}") << QString::fromUtf8("café");
    QTest::newRow("unicode with its one-character fallback")
        << QByteArray("{\\rtf1 caf\\u233?s}") << QString::fromUtf8("cafés");
    QTest::newRow("unicode with a two-character fallback")
        << QByteArray("{\\rtf1\\uc2 \\u8364 EUx}") << QString::fromUtf8("€x");
    QTest::newRow("unicode without fallback")
        << QByteArray("{\\rtf1\\uc0 \\u8364 x}") << QString::fromUtf8("€x");
    QTest::newRow("a hex escape counts as one fallback character")
        << QByteArray("{\\rtf1 \\u233\\'e9x}") << QString::fromUtf8("éx");
    QTest::newRow("a group's end cuts the fallback short")
        << QByteArray("{\\rtf1 {\\uc3\\u233 a}bc}") << QString::fromUtf8("ébc");
    QTest::newRow("the fallback count ends with its group")
        << QByteArray("{\\rtf1 {\\uc0 a}\\u233?}") << QString::fromUtf8("aé");
    QTest::newRow("negative numbers are 16-bit")
        << QByteArray("{\\rtf1 \\u-4064?}") << QString(QChar(0xF020));
    QTest::newRow("par and line end lines; source line ends do not")
        << QByteArray("{\\rtf1 a\\par b\\line\r\nc\r\nd}") << "a\nb\ncd";
    QTest::newRow("escaped braces and backslash") << QByteArray("{\\rtf1 \\{x\\}\\\\}") << "{x}\\";
    QTest::newRow("the blank after a control word is its delimiter")
        << QByteArray("{\\rtf1 \\b bold\\b0  plain\\tab t}") << "bold plain\tt";
    QTest::newRow("a word ended by punctuation") << QByteArray("{\\rtf1 \\b0.5}") << ".5";
    QTest::newRow("typographic words") << QByteArray("{\\rtf1 \\ldblquote x\\rdblquote\\~\\emdash}")
                                       << QString::fromUtf8("“x”\u00a0—");
}

void TestRtfDocument::plainViewIsWhatAReaderShows()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, text);
    QCOMPARE(RtfDocument(source).text(), text);
}

void TestRtfDocument::replacementKeepsTheFirstCharactersFormatting_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("one run") << QByteArray("{\\rtf1 Dear {\\b NAME}, hi}") << "Ann"
                             << QByteArray("{\\rtf1 Dear {\\b Ann}, hi}");
    QTest::newRow("other case") << QByteArray("{\\rtf1 Dear Name.}") << "Ann"
                                << QByteArray("{\\rtf1 Dear Ann.}");
    QTest::newRow("split over groups") << QByteArray("{\\rtf1 {\\b NA}{\\i ME} x}") << "Ann"
                                       << QByteArray("{\\rtf1 {\\b Ann}{\\i } x}");
    QTest::newRow("split by formatting in one group")
        << QByteArray("{\\rtf1 \\b NA\\b0 ME x}") << "Ann" << QByteArray("{\\rtf1 \\b Ann\\b0  x}");
    QTest::newRow("spelt with escapes")
        << QByteArray("{\\rtf1 \\'4eA\\u77?E}") << "Ann" << QByteArray("{\\rtf1 Ann}");
    QTest::newRow("value after a word without delimiter")
        << QByteArray("{\\rtf1 \\b\\'4eAME}") << "1st" << QByteArray("{\\rtf1 \\b 1st}");
    QTest::newRow("text after a removed escape keeps clear of the word")
        << QByteArray("{\\rtf1 N\\i\\'41ME z}") << "" << QByteArray("{\\rtf1 \\i  z}");
    QTest::newRow("blank after a word without delimiter")
        << QByteArray("{\\rtf1 \\b\\'4eAME}") << " x" << QByteArray("{\\rtf1 \\b  x}");
    // A damaged file's escape cut short shows nothing and must not take in the hex digits
    // that come to stand after it.
    QTest::newRow("digits of a value after a broken escape")
        << QByteArray("{\\rtf1 \\'NAME}") << "Ab" << QByteArray("{\\rtf1 \\'{}Ab}");
    QTest::newRow("digits after a broken escape once the name goes")
        << QByteArray("{\\rtf1 \\'NAMEDear}") << "" << QByteArray("{\\rtf1 \\'{}Dear}");
    QTest::newRow("a broken escape with one digit")
        << QByteArray("{\\rtf1 \\'aNAMEb}") << "" << QByteArray("{\\rtf1 \\'a{}b}");
    QTest::newRow("no blank once the word glued to goes too")
        << QByteArray("{\\rtf1\\uc0 NA\\u77Ez}") << "" << QByteArray("{\\rtf1\\uc0 z}");
    QTest::newRow("a value after a binary word without data")
        << QByteArray("{\\rtf1 \\bin\\'4eAME}") << "Ann" << QByteArray("{\\rtf1 \\bin Ann}");
    QTest::newRow("escaped backslash and a quote are no escape")
        << QByteArray("{\\rtf1 \\\\'NAMEab}") << "" << QByteArray("{\\rtf1 \\\\'ab}");
}

void TestRtfDocument::replacementKeepsTheFirstCharactersFormatting()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, value);
    QFETCH(QByteArray, expected);
    RtfDocument doc(source);
    QCOMPARE(doc.replaceAll(QStringLiteral("NAME"), value), 1);
    QCOMPARE(doc.source(), expected);
    QCOMPARE(RtfDocument(doc.source()).text(), doc.text());
}

void TestRtfDocument::valuesReadBackAsLiteralText_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("escaped");
    QTest::addColumn<QString>("readBack");

    const QByteArray plain("{\\rtf1 <KEY>}");
    QTest::newRow("braces and backslash")
        << plain << "Smith {\\b evil} \\par x" << QByteArray("Smith \\{\\\\b evil\\} \\\\par x")
        << "Smith {\\b evil} \\par x";
    QTest::newRow("Windows-1252 letters")
        << plain << QString::fromUtf8("Müller €5") << QByteArray("M\\'fcller \\'805")
        << QString::fromUtf8("Müller €5");
    QTest::newRow("beyond Windows-1252") << plain << QString::fromUtf8("Ωmega")
                                         << QByteArray("\\u937?mega") << QString::fromUtf8("Ωmega");
    QTest::newRow("beyond Windows-1252 where two fallback characters are read")
        << QByteArray("{\\rtf1\\uc2 <KEY>}") << QString::fromUtf8("Ωx") << QByteArray("\\u937??x")
        << QString::fromUtf8("Ωx");
    QTest::newRow("beyond Windows-1252 where no fallback is read")
        << QByteArray("{\\rtf1\\uc0 <KEY>}") << QString::fromUtf8("Ωx") << QByteArray("\\u937 x")
        << QString::fromUtf8("Ωx");
    QTest::newRow("above 32767") << plain << QString(QChar(0xFB01)) << QByteArray("\\u-1279?")
                                 << QString(QChar(0xFB01));
    QTest::newRow("line breaks of any kind")
        << plain << "1 Main St\r\nApt 2\nSpringfield"
        << QByteArray("1 Main St\\par Apt 2\\par Springfield") << "1 Main St\nApt 2\nSpringfield";
    QTest::newRow("tab") << plain << "a\tb" << QByteArray("a\\tab b") << "a\tb";
}

void TestRtfDocument::valuesReadBackAsLiteralText()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, value);
    QFETCH(QByteArray, escaped);
    QFETCH(QString, readBack);
    RtfDocument doc(source);
    QVERIFY(doc.replaceFirst(QStringLiteral("<key>"), value));
    QByteArray expected = source;
    expected.replace("<KEY>", escaped);
    QCOMPARE(doc.source(), expected);
    QCOMPARE(RtfDocument(doc.source()).text(), readBack);
}

// A free-text duration of "terms of 2 years" holds its own keyword: each occurrence is
// filled once and the search goes on after the value.
void TestRtfDocument::keywordInsideItsOwnValueEnds()
{
    RtfDocument doc(QByteArray("{\\rtf1 For TERMS, and again {\\b terms}.}"));
    QCOMPARE(doc.replaceAll(QStringLiteral("TERMS"), QStringLiteral("terms of 2 years")), 2);
    QCOMPARE(doc.text(), QStringLiteral("For terms of 2 years, and again terms of 2 years."));
    QCOMPARE(doc.replaceAll(QString(), QStringLiteral("x")), 0);
}

void TestRtfDocument::onlyTheFirstOccurrenceOnRequest()
{
    RtfDocument doc(QByteArray("{\\rtf1 (Mark) and (mark)}"));
    QVERIFY(doc.replaceFirst(QStringLiteral("(MARK)"), QStringLiteral("x")));
    QCOMPARE(doc.text(), QStringLiteral("x and (mark)"));
    QVERIFY(!RtfDocument(QByteArray("{\\rtf1 none}")).replaceFirst("(MARK)", "x"));
}

void TestRtfDocument::damagedSourceDoesNotHang_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::newRow("ends in a backslash") << QByteArray("{\\rtf1 NAME\\");
    QTest::newRow("half an escape") << QByteArray("{\\rtf1 NAME\\'4");
    QTest::newRow("stray closing braces") << QByteArray("}}NAME}{");
    QTest::newRow("fallback past the end") << QByteArray("NAME\\uc9\\u65");
    QTest::newRow("binary length past the end") << QByteArray("NAME{\\bin99999 x");
    QTest::newRow("huge parameter") << QByteArray("NAME\\u99999999999999999999?");
}

void TestRtfDocument::damagedSourceDoesNotHang()
{
    QFETCH(QByteArray, source);
    RtfDocument doc(source);
    QVERIFY(doc.text().startsWith(QStringLiteral("NAME")) || doc.text().contains("NAME"));
    QCOMPARE(doc.replaceAll(QStringLiteral("name"), QStringLiteral("x")), 1);
    QVERIFY(!doc.text().contains(QStringLiteral("NAME")));
}

QTEST_GUILESS_MAIN(TestRtfDocument)
#include "test_rtfdocument.moc"
