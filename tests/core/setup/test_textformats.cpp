#include "core/customers/auxdata.h"
#include "core/setup/printsettings.h"
#include "core/setup/setupdata.h"
#include "core/telephony/speednumbers.h"
#include "programfolder.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

class TestTextFormats : public QObject
{
    Q_OBJECT
private slots:
    void speedNumbersReadAndWritten();
    void savingSpeedNumbersClosesUpGaps();
    void damagedSpeedNumbers_data();
    void damagedSpeedNumbers();
    void printColorsReadAndWrittenByteForByte();
    void missingPrintSettingsGiveDefaults();
    void damagedPrintSettings_data();
    void damagedPrintSettings();
    void companyLogo();
    void relativeLogoPathIsInTheProgramFolder_data();
    void relativeLogoPathIsInTheProgramFolder();
    void auxHeadings();
    void auxDataWrittenAsItStandsAndReadByValues();
    void auxDataOfAnExistingInstallation();
    void accountNumberNeverLeavesItsFolder_data();
    void accountNumberNeverLeavesItsFolder();
    void accountsNeverShareAFolder();
};

void TestTextFormats::speedNumbersReadAndWritten()
{
    ProgramFolder f;
    const QByteArray file = "Office\r\n217-555-0100\r\nMike, cell\r\n1-217-555-0199\r\n";
    f.put("SpeedNumbers.txt", file);
    f.put("Backup/SpeedNumbers.txt", "older");
    Result<SpeedNumbers> speed = ReadSpeedNumbers(f.store);
    QVERIFY(speed.ok());
    QCOMPARE(speed->names[0], QStringLiteral("Office"));
    QCOMPARE(speed->numbers[1], QStringLiteral("1-217-555-0199"));
    QCOMPARE(speed->names[1], QStringLiteral("Mike, cell")); // whole lines, commas and all
    QVERIFY(speed->names[2].isEmpty());

    QVERIFY(WriteSpeedNumbers(f.store, *speed).ok());
    QCOMPARE(f.get("SpeedNumbers.txt"), file);
    QCOMPARE(f.get("Backup/SpeedNumbers.txt"), QByteArray("older"));
}

void TestTextFormats::savingSpeedNumbersClosesUpGaps()
{
    ProgramFolder f;
    SpeedNumbers speed;
    speed.names = {"A", "B", "C", "D"};
    speed.numbers = {"1", "2", "3", "4"};
    speed.names[1].clear(); // entry 2 of 4 deleted
    speed.numbers[1].clear();
    speed.names[9] = QStringLiteral("Line\nbreak");
    speed.numbers[9] = QStringLiteral("10");
    QVERIFY(WriteSpeedNumbers(f.store, speed).ok());
    QCOMPARE(f.get("SpeedNumbers.txt"),
             QByteArray("A\r\n1\r\nC\r\n3\r\nD\r\n4\r\nLine break\r\n10\r\n"));

    Result<SpeedNumbers> reloaded = ReadSpeedNumbers(f.store);
    QVERIFY(reloaded.ok());
    QCOMPARE(reloaded->names[1], QStringLiteral("C"));
    QCOMPARE(reloaded->numbers[2], QStringLiteral("4"));
    QCOMPARE(reloaded->names[3], QStringLiteral("Line break"));

    QVERIFY(WriteSpeedNumbers(f.store, SpeedNumbers()).ok());
    QVERIFY(f.has("SpeedNumbers.txt"));
    QCOMPARE(f.get("SpeedNumbers.txt").size(), 0);
}

void TestTextFormats::damagedSpeedNumbers_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("name without its number") << QByteArray("Office\r\n217-555-0100\r\nHome\r\n");
    QByteArray eleven;
    for (int i = 0; i < 11; ++i)
        eleven += "Name\r\n555-0100\r\n";
    QTest::newRow("an eleventh pair") << eleven;
}

void TestTextFormats::damagedSpeedNumbers()
{
    QFETCH(QByteArray, file);
    ProgramFolder f;
    f.put("SpeedNumbers.txt", file);
    Result<SpeedNumbers> speed = ReadSpeedNumbers(f.store);
    QVERIFY(!speed.ok());
    QVERIFY2(speed.message().contains(u"SpeedNumbers.txt"), qPrintable(speed.message()));
}

void TestTextFormats::printColorsReadAndWrittenByteForByte()
{
    ProgramFolder f;
    const QByteArray file = "255\r\n16711680\r\n\"Times New Roman\"\r\n#FALSE#\r\n2\r\n";
    f.put("PrintColors.txt", file);
    f.put("Backup/PrintColors.txt", file);
    Result<PrintColors> colors = ReadPrintColors(f.store);
    QVERIFY(colors.ok());
    QCOMPARE(colors->borderColor, 255);
    QCOMPARE(colors->textColor, 16711680);
    QCOMPARE(colors->fontName, QStringLiteral("Times New Roman"));
    QVERIFY(!colors->printColor);
    QCOMPARE(colors->copies, quint8(2));

    QVERIFY(WritePrintColors(f.store, *colors).ok());
    QCOMPARE(f.get("PrintColors.txt"), file);
    QVERIFY(!f.has("Backup/PrintColors.txt"));

    // The logo's size: one line of two numbers.
    f.put("LogoSettings.txt", "1790,1340\r\n");
    Result<LogoSize> size = ReadLogoSize(f.store);
    QVERIFY(size.ok());
    QCOMPARE(size->width, 1790);
    QCOMPARE(size->height, 1340);
    QVERIFY(WriteLogoSize(f.store, LogoSize{360, 1800}).ok());
    QCOMPARE(f.get("LogoSettings.txt"), QByteArray("360,1800\r\n"));
}

void TestTextFormats::missingPrintSettingsGiveDefaults()
{
    ProgramFolder f;
    Result<PrintColors> colors = ReadPrintColors(f.store);
    QVERIFY(colors.ok());
    QCOMPARE(*colors, PrintColors());
    QCOMPARE(colors->copies, quint8(3));
    QCOMPARE(colors->fontName, QStringLiteral("Arial"));
    QVERIFY(colors->printColor && colors->borderColor == 0 && colors->textColor == 0);

    Result<LogoSize> size = ReadLogoSize(f.store);
    QVERIFY(size.ok());
    QCOMPARE(*size, (LogoSize{1440, 1440}));
    Result<QString> logo = ReadCompanyLogo(f.store);
    QVERIFY(logo.ok());
    QVERIFY(logo->isEmpty());
    QVERIFY(f.snapshot().isEmpty());

    QVERIFY(WritePrintColors(f.store, PrintColors()).ok());
    QCOMPARE(f.get("PrintColors.txt"), QByteArray("0\r\n0\r\n\"Arial\"\r\n#TRUE#\r\n3\r\n"));
    QVERIFY(WriteLogoSize(f.store, LogoSize()).ok());
    QCOMPARE(f.get("LogoSettings.txt"), QByteArray("1440,1440\r\n"));
}

void TestTextFormats::damagedPrintSettings_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("colours end early")
        << "PrintColors.txt" << QByteArray("0\r\n0\r\n\"Arial\"\r\n");
    QTest::newRow("a word for a colour")
        << "PrintColors.txt" << QByteArray("red\r\n0\r\n\"Arial\"\r\n#TRUE#\r\n3\r\n");
    QTest::newRow("copies past a byte")
        << "PrintColors.txt" << QByteArray("0\r\n0\r\n\"Arial\"\r\n#TRUE#\r\n300\r\n");
    QTest::newRow("a word for a size") << "LogoSettings.txt" << QByteArray("big,1440\r\n");
    QTest::newRow("one size only") << "LogoSettings.txt" << QByteArray("1440\r\n");
}

void TestTextFormats::damagedPrintSettings()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    ProgramFolder f;
    f.put(file, bytes);
    const Status s = file == u"PrintColors.txt" ? ReadPrintColors(f.store).status()
                                                : ReadLogoSize(f.store).status();
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains(file), qPrintable(s.message()));
}

void TestTextFormats::companyLogo()
{
    ProgramFolder f;
    f.put("Backup/CompanyLogo.txt", "\"old.bmp\"\r\n");
    QVERIFY(WriteCompanyLogo(f.store, QStringLiteral("C:\\Tresvane\\Logo é.bmp")).ok());
    QCOMPARE(f.get("CompanyLogo.txt"), QByteArray("\"C:\\Tresvane\\Logo \xe9.bmp\"\r\n"));
    QVERIFY(!f.has("Backup/CompanyLogo.txt"));
    Result<QString> logo = ReadCompanyLogo(f.store);
    QVERIFY(logo.ok());
    QCOMPARE(*logo, QStringLiteral("C:\\Tresvane\\Logo é.bmp"));

    f.put("Backup/CompanyLogo.txt", "\"old.bmp\"\r\n");
    QVERIFY(ClearCompanyLogo(f.store).ok());
    QVERIFY(!f.has("CompanyLogo.txt") && !f.has("Backup/CompanyLogo.txt"));
}

void TestTextFormats::auxHeadings()
{
    ProgramFolder f;
    const QByteArray file = "Gate code\r\nDog, name\r\nKey\r\n\r\nAlarm\r\nNotes\r\n";
    f.put("AuxHeadings.txt", file);
    f.put("Backup/AuxHeadings.txt", file);
    Result<std::optional<AuxTexts>> headings = ReadAuxHeadings(f.store);
    QVERIFY(headings.ok() && headings->has_value());
    const AuxTexts& h = **headings;
    QCOMPARE(h[1], QStringLiteral("Dog, name"));
    QVERIFY(h[3].isEmpty());
    QCOMPARE(h[5], QStringLiteral("Notes"));

    QVERIFY(WriteAuxHeadings(f.store, h).ok());
    QCOMPARE(f.get("AuxHeadings.txt"), file);
    QVERIFY(!f.has("Backup/AuxHeadings.txt"));

    f.put("AuxHeadings.txt", "One\r\nTwo\r\n");
    Result<std::optional<AuxTexts>> short_ = ReadAuxHeadings(f.store);
    QVERIFY(!short_.ok());
    QVERIFY2(short_.message().contains(u"AuxHeadings.txt"), qPrintable(short_.message()));

    ProgramFolder none;
    Result<std::optional<AuxTexts>> missing = ReadAuxHeadings(none.store);
    QVERIFY(missing.ok() && !missing->has_value());
}

void TestTextFormats::auxDataWrittenAsItStandsAndReadByValues()
{
    ProgramFolder f;
    const AuxTexts texts = {QStringLiteral("Gate code 1234"),
                            QStringLiteral("Dog: Rex\r\nBites"),
                            QString(),
                            QStringLiteral("Red, blue"),
                            QStringLiteral("typed\nin an editor"),
                            QStringLiteral("Café")};
    QVERIFY(WriteAuxData(f.store, QStringLiteral(" 217-555-0100 "), texts).ok());
    const QString folder = QStringLiteral("AuxFiles/217-555-0100/AuxFile%1/Data.txt");
    const QByteArray expected[] = {
        "Gate code 1234\r\n", "Dog: Rex\r\nBites\r\n",     "\r\n",
        "Red, blue\r\n",      "typed\r\nin an editor\r\n", "Caf\xe9\r\n"};
    for (int n = 0; n < 6; ++n)
        QCOMPARE(f.get(folder.arg(n)), expected[n]);

    Result<AuxTexts> back = ReadAuxData(f.store, QStringLiteral("217-555-0100"));
    QVERIFY(back.ok());
    QCOMPARE((*back)[0], QStringLiteral("Gate code 1234\r\n"));
    QCOMPARE((*back)[1], QStringLiteral("Dog: Rex\r\nBites\r\n"));
    QCOMPARE((*back)[2], QString());
    QCOMPARE((*back)[3], QStringLiteral("Red\r\nblue\r\n")); // the comma splits the text
    QCOMPARE((*back)[5], QStringLiteral("Café\r\n"));

    // Saving what was read adds the print's line end to the one the read appended; the
    // empty last line reads as nothing, so the text stays the same from then on.
    QVERIFY(WriteAuxData(f.store, QStringLiteral("217-555-0100"), *back).ok());
    QCOMPARE(f.get(folder.arg(1)), QByteArray("Dog: Rex\r\nBites\r\n\r\n"));
    Result<AuxTexts> again = ReadAuxData(f.store, QStringLiteral("217-555-0100"));
    QVERIFY(again.ok());
    QCOMPARE(*again, *back);
}

void TestTextFormats::auxDataOfAnExistingInstallation()
{
    ProgramFolder f;
    // Another spelling of the folders, a quoted value, and a box without a file.
    f.put("Auxfiles/A1/auxfile0/data.txt", "\"Quoted, kept whole\"\r\nSecond line\r\n");
    f.put("Auxfiles/A1/auxfile2/data.txt", "");
    Result<AuxTexts> texts = ReadAuxData(f.store, QStringLiteral("A1"));
    QVERIFY(texts.ok());
    QCOMPARE((*texts)[0], QStringLiteral("Quoted, kept whole\r\nSecond line\r\n"));
    QVERIFY((*texts)[1].isEmpty() && (*texts)[2].isEmpty());

    Result<AuxTexts> none = ReadAuxData(f.store, QStringLiteral("B2"));
    QVERIFY(none.ok());
    QCOMPARE(*none, AuxTexts());
}

void TestTextFormats::relativeLogoPathIsInTheProgramFolder_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("inFolder"); // the file it names below the folder; empty: as stored

    QTest::newRow("plain name") << QByteArray("\"Logo.bmp\"\r\n") << "Logo.bmp";
    QTest::newRow("sub-folder, backslash")
        << QByteArray("\"Pictures\\Logo.bmp\"\r\n") << "Pictures/Logo.bmp";
    QTest::newRow("dot first") << QByteArray("\".\\Logo.bmp\"\r\n") << "Logo.bmp";
    QTest::newRow("other case") << QByteArray("\"LOGO.BMP\"\r\n") << "Logo.bmp";
    QTest::newRow("drive") << QByteArray("\"C:\\Tresvane\\Logo.bmp\"\r\n") << "";
    QTest::newRow("share") << QByteArray("\"\\\\office\\Logo.bmp\"\r\n") << "";
}

void TestTextFormats::relativeLogoPathIsInTheProgramFolder()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, inFolder);
    ProgramFolder f;
    f.put("CompanyLogo.txt", stored);
    f.put("Logo.bmp", "BM");
    f.put("Pictures/Logo.bmp", "BM");
    // The working directory is elsewhere, with a picture of the same name.
    QTemporaryDir elsewhere;
    QFile(elsewhere.filePath("Logo.bmp")).open(QIODevice::WriteOnly);
    const QString before = QDir::currentPath();
    QDir::setCurrent(elsewhere.path());

    QString path;
    const Status s = SetupData::LoadCompanyLogo(f.ctx, path);
    QDir::setCurrent(before);
    QVERIFY(s.ok());
    Result<QString> raw = ReadCompanyLogo(f.store);
    if (inFolder.isEmpty()) {
        QCOMPARE(path, *raw);
    } else {
        QCOMPARE(path, f.abs(inFolder));
        QVERIFY(QFileInfo(path).isFile());
    }
}

void TestTextFormats::accountNumberNeverLeavesItsFolder_data()
{
    QTest::addColumn<QString>("account");
    QTest::newRow("dot dot") << "..";
    QTest::newRow("dot") << " . ";
    QTest::newRow("up and over") << "../../x";
    QTest::newRow("backslashes") << "..\\..\\x";
    QTest::newRow("absolute") << "/etc";
    QTest::newRow("drive") << "C:\\x";
    QTest::newRow("wildcards and quotes") << "a*b?\"c|<d>";
    QTest::newRow("control characters") << QString::fromLatin1("a\x01\tb");
    QTest::newRow("empty") << "";
}

void TestTextFormats::accountNumberNeverLeavesItsFolder()
{
    QFETCH(QString, account);
    ProgramFolder f;
    const QString component = AuxAccountFolder(account);
    QVERIFY(!component.isEmpty());
    QVERIFY(component != u"." && component != u"..");
    QVERIFY(!component.contains(u'/') && !component.contains(u'\\'));

    QVERIFY(WriteAuxData(f.store, account, AuxTexts{QStringLiteral("x")}).ok());
    const QStringList files = f.snapshot().keys();
    QCOMPARE(files.size(), 6);
    for (const QString& file : files) {
        const QStringList parts = file.split(u'/');
        QCOMPARE(parts.size(), 4);
        QCOMPARE(parts[0], QStringLiteral("AuxFiles"));
        QCOMPARE(parts[1], component);
    }
    Result<AuxTexts> back = ReadAuxData(f.store, account);
    QVERIFY(back.ok());
    QCOMPARE((*back)[0], QStringLiteral("x\r\n"));
}

void TestTextFormats::accountsNeverShareAFolder()
{
    // Accounts that differ only in characters a folder name cannot hold, or in a code
    // that stands for one of them, each keep notes of their own.
    const QStringList accounts = {"A*B",  "A?B",      "A_B",      "A%2AB", "A%B",    "a/b",
                                  "a\\b", "555:0100", "555_0100", "..",    "%2E%2E", "50%"};
    ProgramFolder f;
    QSet<QString> folders;
    for (const QString& account : accounts) {
        folders.insert(AuxAccountFolder(account));
        QVERIFY(WriteAuxData(f.store, account, AuxTexts{account}).ok());
    }
    QCOMPARE(folders.size(), accounts.size());
    for (const QString& account : accounts) {
        Result<AuxTexts> back = ReadAuxData(f.store, account);
        QVERIFY(back.ok());
        QCOMPARE((*back)[0], account + QStringLiteral("\r\n"));
    }
    // Ordinary accounts keep the folder of their own name, as older installations have it.
    for (const char* plain : {"217-555-0100", "SMITH01", "50%"})
        QCOMPARE(AuxAccountFolder(plain), QString::fromLatin1(plain));
}

QTEST_GUILESS_MAIN(TestTextFormats)
#include "test_textformats.moc"
