// The print frame over the recorder: where each primitive puts the pen, the font and the
// colour, to the twip. The recorder's letters are half an em wide (100 twips at 10 point)
// and its lines 1.2 em high (240 twips at 10 point).

#include "programfolder.h"
#include "recordingprintsurface.h"

#include "core/documents/invoicememo.h"
#include "core/documents/printframe.h"
#include "core/documents/printlogo.h"

#include <QtTest>

using namespace tresvane;

using Op = RecordingPrintSurface::Op;

namespace
{
constexpr qint32 kRed = 0x0000FF; // red in the low byte, as the files keep colours
constexpr qint32 kBlue = 0xFF0000;

DocumentSettings usaBusiness()
{
    DocumentSettings s;
    s.borderColor = kRed;
    s.textColor = kBlue;
    s.business = {"Acme Heating", "12 Main Street",   "", "Springfield", "IL", "62701",
                  "217-555-0142", "Fax 217-555-0143", ""};
    return s;
}

DocumentSettings internationalBusiness()
{
    DocumentSettings s = usaBusiness();
    s.usaAddress = false;
    s.business = {"Tresvane Ltd",    "4 High St", "Unit 2",           "Bristol",
                  "BS1 4DJ England", "",          "+44 117 496 0000", "",
                  "VAT 1234567890"};
    return s;
}

} // namespace

class TestPrintFrame : public QObject
{
    Q_OBJECT
private slots:
    void zeroPositionKeepsTheCoordinate_data();
    void zeroPositionKeepsTheCoordinate();
    void fontFlagIsOnOnlyAtMinusOne_data();
    void fontFlagIsOnOnlyAtMinusOne();
    void colourByRole_data();
    void colourByRole();
    void colourOffPrintsTheHeaderInBlack();
    void wrappedLines_data();
    void wrappedLines();
    void businessBlockByAddressStyle_data();
    void businessBlockByAddressStyle();
    void titleSize();
    void headerFrameAndLogo_data();
    void headerFrameAndLogo();
    void invoiceColumnHeads();
    void memoOnTheInvoice_data();
    void memoOnTheInvoice();
    void memoFileKeepsTheBoxLines();
    void storedLogoIsFoundOnThisMachine_data();
    void storedLogoIsFoundOnThisMachine();
    void logoSampleAtItsSize();
};

void TestPrintFrame::zeroPositionKeepsTheCoordinate_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("wantX");
    QTest::addColumn<double>("wantY");
    // The pen stands at (1000, 2000) twips before each move.
    QTest::newRow("both") << 1.5 << 2.0 << 2160.0 << 2880.0;
    QTest::newRow("x only: a column on the same line") << 3.25 << 0.0 << 4680.0 << 2000.0;
    QTest::newRow("y only") << 0.0 << 0.3 << 1000.0 << 432.0;
    QTest::newRow("neither") << 0.0 << 0.0 << 1000.0 << 2000.0;
    QTest::newRow("below 0 keeps too") << -1.0 << -2.0 << 1000.0 << 2000.0;
}

void TestPrintFrame::zeroPositionKeepsTheCoordinate()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, wantX);
    QFETCH(double, wantY);
    RecordingPrintSurface r;
    r.setCurrentX(1000);
    r.setCurrentY(2000);
    SetPrintPos(r, x, y);
    QCOMPARE(r.currentX(), wantX);
    QCOMPARE(r.currentY(), wantY);
}

void TestPrintFrame::fontFlagIsOnOnlyAtMinusOne_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<int>("bold");
    QTest::addColumn<int>("underline");
    QTest::addColumn<double>("wantSize");
    QTest::addColumn<bool>("wantBold");
    QTest::addColumn<bool>("wantUnderline");
    // Before each: 12 point, bold and underlined.
    QTest::newRow("-1 is on") << 15.0 << -1 << -1 << 15.0 << true << true;
    QTest::newRow("0 is off") << 15.0 << 0 << 0 << 15.0 << false << false;
    QTest::newRow("1 is off, not on") << 15.0 << 1 << 1 << 15.0 << false << false;
    QTest::newRow("size 0 keeps the size, flags still set")
        << 0.0 << 0 << -1 << 12.0 << false << true;
}

void TestPrintFrame::fontFlagIsOnOnlyAtMinusOne()
{
    QFETCH(double, size);
    QFETCH(int, bold);
    QFETCH(int, underline);
    QFETCH(double, wantSize);
    QFETCH(bool, wantBold);
    QFETCH(bool, wantUnderline);
    RecordingPrintSurface r;
    r.setFontSize(12);
    r.setFontBold(true);
    r.setFontUnderline(true);
    SetPrintFont(r, size, qint16(bold), qint16(underline));
    QCOMPARE(r.fontSize(), wantSize);
    QCOMPARE(r.fontBold(), wantBold);
    QCOMPARE(r.fontUnderline(), wantUnderline);
}

void TestPrintFrame::colourByRole_data()
{
    QTest::addColumn<bool>("color");
    QTest::addColumn<int>("role");
    QTest::addColumn<qint32>("want");
    // Before each the pen and the border colour hold 0x123456.
    QTest::newRow("borders") << true << -1 << kRed;
    QTest::newRow("data") << true << 0 << kBlue;
    QTest::newRow("another role leaves it") << true << 1 << qint32(0x123456);
    QTest::newRow("black print: borders") << false << -1 << qint32(0);
    QTest::newRow("black print: data") << false << 0 << qint32(0);
    QTest::newRow("black print: any role") << false << 7 << qint32(0);
}

void TestPrintFrame::colourByRole()
{
    QFETCH(bool, color);
    QFETCH(int, role);
    QFETCH(qint32, want);
    RecordingPrintSurface r;
    PrintJob job{r, usaBusiness()};
    job.settings.color = color;
    r.setForeColor(0x123456);
    job.gBorderColor = 0x123456;
    PrintColor(job, qint16(role));
    QCOMPARE(r.foreColor(), want);
    QCOMPARE(job.gBorderColor, want);
}

void TestPrintFrame::colourOffPrintsTheHeaderInBlack()
{
    for (qint16 style : {kLogoInFrame, kLogoFromLine}) {
        RecordingPrintSurface r;
        PrintJob job{r, usaBusiness()};
        job.settings.color = false;
        SetupPrinter(job, QStringLiteral("Portrait"), false, 10, kFontOff, kFontOff);
        PrintDocHeader(job, style, QStringLiteral("INVOICE"), 0.4);
        PrintInvoiceHeaderLine(job);
        PrintItembox(job);
        QVERIFY(!r.texts().isEmpty());
        QVERIFY(!r.lines().isEmpty());
        for (const Op& op : r.ops)
            QVERIFY2(op.color == 0,
                     qPrintable(QStringLiteral("%1 in %2").arg(op.text).arg(op.color)));
        QVERIFY(!r.ops.first().colorMode);
    }
    // With colour on, the same header has its frame in the border colour and its text in
    // the text colour, the "from" line in green.
    RecordingPrintSurface r;
    PrintJob job{r, usaBusiness()};
    PrintDocHeader(job, kLogoFromLine, QStringLiteral("INVOICE"), 0.4);
    for (const Op& line : r.lines())
        QCOMPARE(line.color, kRed);
    QCOMPARE(r.find("INVOICE")->color, kBlue);
    QCOMPARE(r.find("Acme Heating")->color, kBlue);
    QCOMPARE(r.find("from Acme Heating")->color, qint32(65280));
}

void TestPrintFrame::wrappedLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    // 10 point and a limit of 1020 twips: ten letters fit on a line.
    QTest::newRow("fits") << "No heat" << QStringList{"No heat"};
    QTest::newRow("exactly ten") << "abcde fghi" << QStringList{"abcde fghi"};
    QTest::newRow("breaks at the last blank that fits")
        << "one two three four" << QStringList{"one two", "three four"};
    QTest::newRow("blanks that start a line go")
        << "aaaaaaaa    bbbbbbbb" << QStringList{"aaaaaaaa", "bbbbbbbb"};
    QTest::newRow("an over-wide word prints whole")
        << "abcdefghijklmnop qr" << QStringList{"abcdefghijklmnop", "qr"};
    QTest::newRow("an over-wide word in the middle")
        << "call Xyzzyplughfoo now" << QStringList{"call", "Xyzzyplughfoo", "now"};
    QTest::newRow("one over-wide word alone")
        << "Supercalifragilistic" << QStringList{"Supercalifragilistic"};
    QTest::newRow("nothing") << "" << QStringList{};
}

void TestPrintFrame::wrappedLines()
{
    QFETCH(QString, text);
    QFETCH(QStringList, lines);
    RecordingPrintSurface r;
    r.setFontSize(10);
    r.setCurrentX(5000);
    PrintWrapped(r, 2880, 1020, 3960, text);
    QCOMPARE(r.textStrings(), lines);
    const QList<Op> texts = r.texts();
    for (int i = 0; i < texts.size(); ++i) {
        QCOMPARE(texts[i].x, 2880.0);
        QCOMPARE(texts[i].y, 3960.0 + 240 * i);
    }
    // The pen waits on the line after the text.
    QCOMPARE(r.currentY(), 3960.0 + 240 * lines.size());
}

void TestPrintFrame::businessBlockByAddressStyle_data()
{
    QTest::addColumn<bool>("usa");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("USA: city, state and code on one line, an empty second line skipped")
        << true
        << QStringList{"Acme Heating", "12 Main Street", "Springfield, IL. 62701",
                       "Telephone: 217-555-0142", "Fax 217-555-0143"};
    QTest::newRow("international: the address lines on lines of their own")
        << false << QStringList{"Tresvane Ltd",  "4 High St",       "Unit 2",
                                "Bristol",       "BS1 4DJ England", "Telephone: +44 117 496 0000",
                                "VAT 1234567890"};
}

void TestPrintFrame::businessBlockByAddressStyle()
{
    QFETCH(bool, usa);
    QFETCH(QStringList, lines);
    RecordingPrintSurface r;
    PrintJob job{r, usa ? usaBusiness() : internationalBusiness()};
    r.setForeColor(kRed);
    PrintBusinessBlock(job, 0.5, 1.0, 14);
    QCOMPARE(r.textStrings(), lines);
    const QList<Op> texts = r.texts();
    // The name at the size asked, bold; the rest at 10 point, plain, a line each.
    QCOMPARE(texts[0].x, 720.0);
    QCOMPARE(texts[0].y, 1440.0);
    QCOMPARE(texts[0].fontSize, 14.0);
    QVERIFY(texts[0].bold);
    for (int i = 1; i < texts.size(); ++i) {
        QCOMPARE(texts[i].x, 720.0);
        QCOMPARE(texts[i].y, 1440.0 + 14 * 24 + 240 * (i - 1));
        QCOMPARE(texts[i].fontSize, 10.0);
        QVERIFY(!texts[i].bold);
    }
    for (const Op& op : texts)
        QCOMPARE(op.color, kBlue);
}

void TestPrintFrame::titleSize()
{
    RecordingPrintSurface r;
    PrintJob job{r, usaBusiness()};
    PrintTitle(job, QStringLiteral("INVOICE"), 0.4);
    const Op* title = r.find("INVOICE");
    QVERIFY(title);
    QCOMPARE(title->x, 7200.0);
    QCOMPARE(title->y, 576.0);
    QCOMPARE(title->fontSize, 28.0);
    QVERIFY(title->bold);
    QCOMPARE(title->color, kBlue);
    QCOMPARE(r.fontSize(), 10.0);
    QVERIFY(!r.fontBold());

    // A title too long for 28 point is made smaller until it ends within 7.9 inches.
    const QString longTitle = QStringLiteral("Completion Summary Report");
    PrintTitle(job, longTitle, 0.4);
    const Op* shrunk = r.find(longTitle);
    QVERIFY(shrunk);
    QCOMPARE(shrunk->x, 7200.0);
    QVERIFY(shrunk->fontSize < 28);
    QVERIFY(shrunk->bold);
    QVERIFY(longTitle.size() * shrunk->fontSize * 10 <= 2.9 * 1440);
    QVERIFY(longTitle.size() * (shrunk->fontSize + 1) * 10 > 2.9 * 1440);
    QCOMPARE(r.fontSize(), 10.0);
}

void TestPrintFrame::headerFrameAndLogo_data()
{
    QTest::addColumn<bool>("logoFile");
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("businessX");
    QTest::addColumn<bool>("fromLine");
    // The frame's left edge is 7.2 twips in (half its pen); the logo 216 twips inside it,
    // 1440 square; the business block a quarter inch right of the logo.
    QTest::newRow("logo in the frame") << true << -1 << (7.2 + 216 + 1440 + 360) / 1440 << false;
    QTest::newRow("logo stored but its file is gone") << false << -1 << 0.5 << false;
    QTest::newRow("the from line instead") << true << 0 << 0.5 << true;
}

void TestPrintFrame::headerFrameAndLogo()
{
    QFETCH(bool, logoFile);
    QFETCH(int, style);
    QFETCH(double, businessX);
    QFETCH(bool, fromLine);
    ProgramFolder f;
    f.put("logo.bmp", "BM");
    RecordingPrintSurface r;
    PrintJob job{r, usaBusiness()};
    job.settings.logo.file = f.abs(logoFile ? "logo.bmp" : "gone.bmp");
    PrintDocHeader(job, qint16(style), QStringLiteral("INVOICE"), 0.4);

    // The frame: four lines of pen 6 in the border colour, corner to corner.
    const QList<Op> lines = r.lines();
    QCOMPARE(lines.size(), 4);
    const double left = 7.2, right = 12240 - 360 - 360 - 7.2, top = 504, bottom = 5040;
    QCOMPARE(lines[0].x, left);
    QCOMPARE(lines[0].y, top);
    QCOMPARE(lines[0].x2, right);
    QCOMPARE(lines[1].y2, bottom);
    QCOMPARE(lines[2].x2, left);
    QCOMPARE(lines[3].y2, top);
    for (const Op& line : lines) {
        QCOMPARE(line.drawWidth, 6);
        QCOMPARE(line.color, kRed);
    }
    const QList<Op> pictures = r.pictures();
    QCOMPARE(pictures.size(), logoFile && style == -1 ? 1 : 0);
    if (!pictures.isEmpty()) {
        QCOMPARE(pictures[0].x, left + 216);
        QCOMPARE(pictures[0].y, top + 216);
        QCOMPARE(pictures[0].x2 - pictures[0].x, 1440.0);
    }
    QCOMPARE(r.find("INVOICE")->y, 576.0);
    QCOMPARE(Inches(r.find("Acme Heating")->x), businessX);
    QCOMPARE(r.find("Acme Heating")->y, 576.0);
    const Op* from = r.find("from Acme Heating");
    QCOMPARE(from != nullptr, fromLine);
    if (from) {
        QCOMPARE(from->x, 1.3 * 1440);
        QCOMPARE(from->y, 10.1 * 1440);
        QCOMPARE(from->fontSize, 14.0);
    }
}

void TestPrintFrame::invoiceColumnHeads()
{
    RecordingPrintSurface r;
    PrintJob job{r, usaBusiness()};
    PrintInvoiceHeaderLine(job);
    QCOMPARE(r.textStrings(), (QStringList{"QTY", "DATE", "DESCRIPTION", "PRICE", "TOTAL"}));
    const double xs[] = {0.6, 1.5, 3.1, 6.1, 7.5};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(r.texts()[i].x, xs[i] * 1440);
        QCOMPARE(r.texts()[i].y, 4.05 * 1440);
    }
}

void TestPrintFrame::memoOnTheInvoice_data()
{
    QTest::addColumn<QByteArray>("file"); // empty: no file
    QTest::addColumn<bool>("addMemo");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("no file: nothing at the memo's place") << QByteArray() << true << QStringList{};
    QTest::newRow("memo not ticked") << QByteArray("Thank you\r\n") << false << QStringList{};
    QTest::newRow("each file line from where the last ended")
        << QByteArray("Thank you\r\nNet 30 days\r\n") << true
        << QStringList{"Thank you", "Net 30 days"};
    // 10 point, the column from 2 to 7.75 inches: 82 letters fit.
    QTest::newRow("a long line breaks at blanks")
        << QByteArray("Payment is due within thirty days of the invoice date; a late charge "
                      "of one and a half percent is added each month.\r\n")
        << true
        << QStringList{"Payment is due within thirty days of the invoice date; a late charge "
                       "of one and a",
                       "half percent is added each month."};
}

void TestPrintFrame::memoOnTheInvoice()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, addMemo);
    QFETCH(QStringList, lines);
    ProgramFolder f;
    if (!file.isEmpty()) f.put("ServiceInvoiceMemo.txt", file);
    RecordingPrintSurface r;
    r.setFontSize(10);
    PrintJob job{r, usaBusiness()};
    r.setForeColor(kRed);
    QVERIFY(PrintInvoiceMemo(job, f.store, addMemo, 2.75).ok());
    QCOMPARE(r.textStrings(), lines);
    for (int i = 0; i < r.texts().size(); ++i) {
        QCOMPARE(r.texts()[i].x, 2880.0);
        QCOMPARE(r.texts()[i].y, 3960.0 + 240 * i);
        QCOMPARE(r.texts()[i].color, kBlue);
    }
    QCOMPARE(r.foreColor(), kRed);
}

void TestPrintFrame::memoFileKeepsTheBoxLines()
{
    ProgramFolder f;
    Result<InvoiceMemo> none = ReadInvoiceMemo(f.store);
    QVERIFY(none.ok());
    QVERIFY(!none->exists);
    f.put("Backup/ServiceInvoiceMemo.txt", "old\r\n");
    QVERIFY(WriteInvoiceMemo(f.store, QStringLiteral("Thank you\nNet 30 days \u00e9")).ok());
    QCOMPARE(f.get("ServiceInvoiceMemo.txt"), QByteArray("Thank you\r\nNet 30 days \xe9\r\n"));
    // A whole text file rewritten drops its old copy in Backup, so it cannot come back.
    QVERIFY(!f.has("Backup/ServiceInvoiceMemo.txt"));
    Result<InvoiceMemo> memo = ReadInvoiceMemo(f.store);
    QVERIFY(memo->exists);
    QCOMPARE(memo->lines, (QStringList{"Thank you", "Net 30 days \u00e9"}));
}

void TestPrintFrame::storedLogoIsFoundOnThisMachine_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("found"); // relative to the program folder; empty: none
    QTest::newRow("a relative path in the folder") << "Pictures\\Logo.bmp"
                                                   << "Pictures/Logo.bmp";
    QTest::newRow("another computer's path: the same name here")
        << "C:\\Office\\Tresvaneworks\\LOGO.BMP"
        << "Logo.bmp";
    QTest::newRow("another computer's path, no such file here") << "C:\\Office\\seal.jpg"
                                                                << "";
    QTest::newRow("nothing stored") << ""
                                    << "";
}

void TestPrintFrame::storedLogoIsFoundOnThisMachine()
{
    QFETCH(QString, stored);
    QFETCH(QString, found);
    ProgramFolder f;
    f.put("Logo.bmp", "BM");
    f.put("Pictures/Logo.bmp", "BM");
    const QString located = LocateLogoFile(f.store, stored);
    QCOMPARE(located, found.isEmpty() ? QString() : f.abs(found));

    // Read from the files: the size comes with a logo that is found, and a lost one is
    // no logo, without a word.
    f.put("CompanyLogo.txt", "\"" + stored.toLatin1() + "\"\r\n");
    f.put("LogoSettings.txt", "2160,720\r\n");
    Result<PrintLogo> logo = ReadPrintLogo(f.store);
    QVERIFY(logo.ok());
    QCOMPARE(logo->file, located);
    if (!found.isEmpty()) {
        QCOMPARE(logo->width, 2160.0);
        QCOMPARE(logo->height, 720.0);
    }
    VERIFY_DIALOGS(f.dialogs);
}

void TestPrintFrame::logoSampleAtItsSize()
{
    ProgramFolder f;
    f.put("Logo.bmp", "BM");
    RecordingPrintSurface r;
    PrintJob job{r, usaBusiness()};
    PrintLogoSample(job, PrintLogo{f.abs("Logo.bmp"), 2160, 720});
    QCOMPARE(r.textStrings(), QStringList{"Logo Test"});
    QCOMPARE(r.find("Logo Test")->y, 1440.0);
    QCOMPARE(r.pictures().size(), 1);
    const Op picture = r.pictures()[0];
    QCOMPARE(picture.x2 - picture.x, 2160.0);
    QCOMPARE(picture.y2 - picture.y, 720.0);
    QCOMPARE(picture.orientation, PrintSurface::Orientation::Portrait);
    QCOMPARE(r.documents(), 1);

    // No logo: the text alone, still one page.
    RecordingPrintSurface alone;
    PrintJob bare{alone, usaBusiness()};
    PrintLogoSample(bare, PrintLogo{});
    QCOMPARE(alone.textStrings(), QStringList{"Logo Test"});
    QVERIFY(alone.pictures().isEmpty());
    QCOMPARE(alone.documents(), 1);
}

QTEST_GUILESS_MAIN(TestPrintFrame)
#include "test_printframe.moc"
