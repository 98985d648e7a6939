#include "core/documents/addresslines.h"
#include "core/documents/contract.h"
#include "core/io/store.h"
#include "core/setup/addressstyle.h"
#include "core/state/dispatchingvariables.h"
#include "programfolder.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

namespace
{

const QStringList kKeywords = {"CONTRACTORNAME", "UNDERSIGNEDCUSTOMER", "CREATIONDATE",   "TERMS",
                               "COMMENCING",     "TERMINATIONS",        "FREQUENCY",      "COST",
                               "RENEWS",         "CONTRACTORADDRESS",   "CUSTOMERADDRESS"};

ContractTerms sampleTerms()
{
    ContractTerms t;
    t.service = QStringLiteral("Furnace inspection and cleaning");
    t.price = QStringLiteral("$1,234.50");
    t.businessName = QStringLiteral("Hill Heating & Cooling");
    t.customerName = QStringLiteral("Jane Doe");
    t.created = QDate(2026, 4, 30);
    t.duration = QStringLiteral("1 Year");
    t.durationIndex = 3;
    t.commencing = QDate(2026, 5, 4);
    t.frequency = QStringLiteral("Quarterly");
    t.renew = true;
    t.contractorAddress =
        QStringLiteral("Hill Heating & Cooling\n12 Mill Road\nSpringfield, IL 62701");
    t.customerAddress = QStringLiteral("Jane Doe\n4 Elm Street\nApt 2\nSpringfield, IL 62704");
    return t;
}

// The contract's text as a reader written by others shows it: unrtf's plain text, which
// gives Windows-1252 characters as their single bytes.
QString readWithUnrtf(const QString& path)
{
    QProcess unrtf;
    unrtf.start(QStringLiteral("unrtf"), {QStringLiteral("--text"), path});
    if (!unrtf.waitForFinished(30000) || unrtf.exitCode() != 0) return {};
    const QString out = QString::fromLatin1(unrtf.readAllStandardOutput());
    // Its own comment lines above the text begin with "###".
    QStringList lines = out.split(u'\n');
    while (!lines.isEmpty() && !lines.first().startsWith(QStringLiteral("-----")))
        lines.removeFirst();
    return lines.join(u'\n');
}

QString readWithLibreOffice(const QString& soffice, const QString& path, const QString& scratch)
{
    QProcess lo;
    lo.start(
        soffice,
        {QStringLiteral("-env:UserInstallation=file://") + scratch + QStringLiteral("/profile"),
         QStringLiteral("--headless"), QStringLiteral("--convert-to"),
         QStringLiteral("txt:Text (encoded):UTF8"), QStringLiteral("--outdir"), scratch, path});
    if (!lo.waitForFinished(180000)) return {};
    QFile txt(scratch + u'/' + QFileInfo(path).completeBaseName() + QStringLiteral(".txt"));
    if (!txt.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(txt.readAll());
}

// What every reader must find in the filled sample.
void verifyFilledSample(const QString& text, const QString& customer)
{
    QVERIFY2(!text.isEmpty(), "the reader gave no text");
    for (const QString& expected :
         {QStringLiteral("Hill Heating & Cooling"), customer, QStringLiteral("$1,234.50"),
          QStringLiteral("05/04/2027"), QStringLiteral("05/04/2026"), QStringLiteral("04/30/2026"),
          QStringLiteral("Furnace inspection and cleaning - $1,234.50"),
          QStringLiteral("will automatically Renew"), QStringLiteral("12 Mill Road")})
        QVERIFY2(text.contains(expected), qPrintable(expected + " is missing from:\n" + text));
    for (const QString& keyword : kKeywords)
        QVERIFY2(!text.contains(keyword, Qt::CaseInsensitive), qPrintable(keyword + " is left"));
    QVERIFY(!text.contains(kServicesMarker, Qt::CaseInsensitive));
}

} // namespace

class TestContract : public QObject
{
    Q_OBJECT
private slots:
    void terminationFollowsTheDuration_data();
    void terminationFollowsTheDuration();
    void contractFileStaysInItsFolder_data();
    void contractFileStaysInItsFolder();
    void addressesAsTheContractShowsThem_data();
    void addressesAsTheContractShowsThem();
    void builtInTemplateSpellsEachKeywordOnlyAsAKeyword();
    void filledContractReadByUnrtf_data();
    void filledContractReadByUnrtf();
    void filledContractReadByLibreOffice();
    void fillingQuirksUsersMeet();
    void templateIsLaidOnlyWhereNoneIs();
};

void TestContract::terminationFollowsTheDuration_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QDate>("commencing");
    QTest::addColumn<QString>("termination");
    QTest::newRow("a month") << 0 << QDate(2026, 5, 4) << "06/04/2026";
    QTest::newRow("a month from the 31st ends with the shorter month")
        << 0 << QDate(2026, 1, 31) << "02/28/2026";
    QTest::newRow("a month into a leap February") << 0 << QDate(2028, 1, 31) << "02/29/2028";
    QTest::newRow("a quarter over the year's end") << 1 << QDate(2026, 11, 30) << "02/28/2027";
    QTest::newRow("two quarters") << 2 << QDate(2026, 8, 31) << "02/28/2027";
    QTest::newRow("a year from a leap day") << 3 << QDate(2028, 2, 29) << "02/28/2029";
    QTest::newRow("typed duration") << -1 << QDate(2026, 5, 4) << "_____________________";
    QTest::newRow("past the list") << 4 << QDate(2026, 5, 4) << "_____________________";
}

void TestContract::terminationFollowsTheDuration()
{
    QFETCH(int, index);
    QFETCH(QDate, commencing);
    QFETCH(QString, termination);
    QCOMPARE(TerminationText(index, commencing), termination);
}

void TestContract::contractFileStaysInItsFolder_data()
{
    QTest::addColumn<QString>("account");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("plain") << "A-7"
                           << "Contract - A-7.rtf";
    QTest::newRow("a step up") << "../x"
                               << "Contract - .._x.rtf";
    QTest::newRow("a folder") << "a/b"
                              << "Contract - a_b.rtf";
    QTest::newRow("the other separator") << "a\\b"
                                         << "Contract - a_b.rtf";
    QTest::newRow("a pattern") << "A*?"
                               << "Contract - A__.rtf";
}

void TestContract::contractFileStaysInItsFolder()
{
    QFETCH(QString, account);
    QFETCH(QString, fileName);
    ProgramFolder folder;
    QVERIFY(folder.store.EnsureFolder("/Templates"));
    QVERIFY(folder.store.EnsureFolder("/Templates/Contracts"));
    const auto before = folder.snapshot();
    QVERIFY(SaveContract(folder.store, account, RtfDocument(QByteArray("{\\rtf1 x}"))));
    auto after = folder.snapshot();
    QCOMPARE(after.size(), before.size() + 1);
    QCOMPARE(after.value("Templates/Contracts/" + fileName), QByteArray("{\\rtf1 x}"));
    QVERIFY(ContractCreatedMessage(account).contains("It is named " + fileName + " and"));
}

void TestContract::addressesAsTheContractShowsThem_data()
{
    QTest::addColumn<QStringList>("customer"); // name, street, apartment, city, state, zip
    QTest::addColumn<QString>("expected");
    QTest::newRow("USA with an apartment")
        << QStringList{"Jane Doe", "4 Elm Street", "Apt 2", "Springfield", "IL", "62704"}
        << "Jane Doe\n4 Elm Street\nApt 2\nSpringfield, IL 62704";
    QTest::newRow("USA without an apartment")
        << QStringList{"Jane Doe", "4 Elm Street", "", "Springfield", "IL", "62704"}
        << "Jane Doe\n4 Elm Street\nSpringfield, IL 62704";
    QTest::newRow("international: no state, lines as entered")
        << QStringList{"Jan Smit", "Kerkstraat 1", "", "1017 GC", "", "Amsterdam"}
        << "Jan Smit\nKerkstraat 1\n1017 GC\nAmsterdam";
}

void TestContract::addressesAsTheContractShowsThem()
{
    QFETCH(QStringList, customer);
    QFETCH(QString, expected);
    DispatchingVariables v;
    v.current.name = customer[0];
    v.current.address1 = customer[1];
    v.current.address2 = customer[2];
    v.current.city = customer[3];
    v.current.state = customer[4];
    v.current.zip = customer[5];
    QCOMPARE(CustomerAddressLines(v), expected);

    // The business's lines follow the style the setup names, not the presence of a state.
    v.gBusiness = {customer[0], customer[1],    customer[2], customer[3], customer[4],
                   customer[5], "555-123-4567", "",          ""};
    v.settings.cmdAddress = customer[4].isEmpty() ? kInternationalStyleAddress : kUsaStyleAddress;
    QCOMPARE(BusinessAddressLines(v), expected);
}

// The search ignores case, so a plain word of the running text that spells a keyword
// ("the cost of", "these terms") would be filled too: the template avoids them.
void TestContract::builtInTemplateSpellsEachKeywordOnlyAsAKeyword()
{
    const RtfDocument doc(BuiltInGenericContract());
    QVERIFY(doc.text().contains(kServicesMarker));
    QVERIFY(doc.text().contains("SERVICE AGREEMENT"));
    for (const QString& keyword : kKeywords) {
        const qsizetype any = doc.text().count(keyword, Qt::CaseInsensitive);
        QVERIFY2(any > 0, qPrintable(keyword + " is not in the template"));
        QCOMPARE(doc.text().count(keyword, Qt::CaseSensitive), any);
    }
}

void TestContract::filledContractReadByUnrtf_data()
{
    QTest::addColumn<QString>("customer");
    QTest::newRow("plain name") << "Jane Doe";
    QTest::newRow("name that looks like RTF") << "Smith {\\b evil} \\par x";
    QTest::newRow("Windows-1252 letters") << QString::fromUtf8("Zoë Müller");
}

void TestContract::filledContractReadByUnrtf()
{
    QFETCH(QString, customer);
    if (QStandardPaths::findExecutable("unrtf").isEmpty())
        QFAIL("unrtf is not installed; scripts/deps installs it");
    ProgramFolder folder;
    QVERIFY(folder.store.EnsureFolder("/Templates"));
    QVERIFY(folder.store.EnsureFolder("/Templates/Contracts"));
    RtfDocument body(BuiltInGenericContract());
    ContractTerms terms = sampleTerms();
    terms.customerName = customer;
    FillContract(body, terms);
    QVERIFY(SaveContract(folder.store, "A-7", body));
    verifyFilledSample(readWithUnrtf(folder.abs("Templates/Contracts/Contract - A-7.rtf")),
                       customer);
}

void TestContract::filledContractReadByLibreOffice()
{
    const QString soffice = QStandardPaths::findExecutable("soffice");
    if (soffice.isEmpty())
        QSKIP("LibreOffice is not installed here: the contract was read by unrtf only");
    ProgramFolder folder;
    QVERIFY(folder.store.EnsureFolder("/Templates"));
    QVERIFY(folder.store.EnsureFolder("/Templates/Contracts"));
    RtfDocument body(BuiltInGenericContract());
    ContractTerms terms = sampleTerms();
    terms.customerName = QStringLiteral("Smith {\\b evil} \\par x");
    FillContract(body, terms);
    QVERIFY(SaveContract(folder.store, "A-7", body));
    QTemporaryDir scratch;
    verifyFilledSample(readWithLibreOffice(soffice,
                                           folder.abs("Templates/Contracts/Contract - A-7.rtf"),
                                           scratch.path()),
                       terms.customerName);
}

// What the literal filling does with awkward values, as users of the program know it.
void TestContract::fillingQuirksUsersMeet()
{
    const QByteArray source("{\\rtf1 {\\b CONTRACTORNAME} for TERMS until TERMINATIONS at COST.}");

    // A typed duration holding its own keyword is filled once, not for ever; the end date
    // is a rule to write on.
    RtfDocument typed(source);
    ContractTerms t = sampleTerms();
    t.duration = QStringLiteral("terms of 2 years");
    t.durationIndex = -1;
    FillContract(typed, t);
    QCOMPARE(typed.text(), QStringLiteral("Hill Heating & Cooling for terms of 2 years until "
                                          "_____________________ at $1,234.50."));

    // A business name that spells a later keyword is filled by it.
    RtfDocument costa(source);
    t = sampleTerms();
    t.businessName = QStringLiteral("Costa Cleaning");
    FillContract(costa, t);
    QVERIFY(costa.text().startsWith(QStringLiteral("$1,234.50a Cleaning for 1 Year")));
    QVERIFY(costa.source().startsWith("{\\rtf1 {\\b $1,234.50a Cleaning}"));

    // A second fill finds no keywords and changes nothing.
    const QByteArray once = costa.source();
    FillContract(costa, t);
    QCOMPARE(costa.source(), once);

    // Without the marker the service line is left out.
    QVERIFY(!costa.text().contains(t.service));
}

void TestContract::templateIsLaidOnlyWhereNoneIs()
{
    ProgramFolder folder;
    QVERIFY(folder.store.EnsureFolder("/Templates"));
    QVERIFY(folder.store.EnsureFolder("/Templates/Contracts"));
    QVERIFY(InstallGenericContract(folder.store));
    QCOMPARE(folder.get("Templates/Contracts/GenericContract.rtf"), BuiltInGenericContract());

    const QByteArray own("{\\rtf1 Our own CONTRACTORNAME agreement}");
    folder.put("Templates/Contracts/GenericContract.rtf", own);
    QVERIFY(InstallGenericContract(folder.store));
    QCOMPARE(folder.get("Templates/Contracts/GenericContract.rtf"), own);
    Result<std::optional<RtfDocument>> loaded = LoadGenericContract(folder.store);
    QVERIFY(loaded && loaded->has_value());
    QCOMPARE((*loaded)->source(), own);

    QVERIFY(folder.store.KillIfPresent(GenericContractFileName()));
    loaded = LoadGenericContract(folder.store);
    QVERIFY(loaded && !loaded->has_value());
}

QTEST_GUILESS_MAIN(TestContract)
#include "test_contract.moc"
