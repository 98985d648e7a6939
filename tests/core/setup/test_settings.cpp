#include "core/setup/settingsfiles.h"
#include "programfolder.h"

#include <QElapsedTimer>
#include <QtTest>

using namespace tresvane;

// Nine settings as an existing installation holds them, written by hand.
static QByteArray settingsFile(const char* startHour, const char* workDays, const char* office,
                               const char* serviceOrder, const char* slipStyle = "1")
{
    return QByteArray(startHour) + "\r\n" + workDays + "\r\n#TRUE#\r\n#FALSE#\r\n0\r\n" + office +
           "\r\n" + serviceOrder + "\r\n" + slipStyle + "\r\n0\r\n";
}

class TestSettings : public QObject
{
    Q_OBJECT
private slots:
    void settingsReadAndWrittenByteForByte();
    void missingSettingsLeaveDefaults();
    void workWeekCodes_data();
    void workWeekCodes();
    void invoiceStyleFromTwoBooleans_data();
    void invoiceStyleFromTwoBooleans();
    void damagedSettingsChangeNothing();
    void continuousSchemeLoadsTheSlipNumber();
    void assignments();
    void problemsStayWhenTheFileIsMissing();
    void listsOutOfBoundsAreDamaged_data();
    void listsOutOfBoundsAreDamaged();
    void businessIsOneLineAndKeepsItsBackup();
    void phoneSettings();
    void adjustWorkDay_data();
    void adjustWorkDay();
};

void TestSettings::settingsReadAndWrittenByteForByte()
{
    ProgramFolder f;
    f.put("TresvaneDispatcherSettings.txt", settingsFile("7", "61", "#FALSE#", "#TRUE#"));
    QVERIFY(LoadSettings(f.ctx).ok());
    QCOMPARE(f.v.gStartHour, quint8(7));
    QVERIFY(f.v.settings.ck7 && !f.v.settings.ck8);
    QCOMPARE(f.v.gWorkDays, quint8(61));
    QCOMPARE(f.v.settings.workWeekOption, 61);
    QVERIFY(f.v.gAlarms);
    QVERIFY(!f.v.gPrompts);
    QCOMPARE(f.v.settings.ckPrompts, qint16(0));
    QCOMPARE(f.v.settings.ckColor, qint16(0));
    QCOMPARE(f.v.settings.ckSize, qint16(0));
    QVERIFY(!f.v.settings.fraSlipNoVisible);

    f.put("Backup/TresvaneDispatcherSettings.txt", "stale");
    f.clock.setDate(QDate(2026, 4, 20)); // day 110
    QVERIFY(SaveSettings(f.ctx).ok());
    QCOMPARE(f.get("TresvaneDispatcherSettings.txt"),
             QByteArray("7\r\n61\r\n#TRUE#\r\n#FALSE#\r\n0\r\n#FALSE#\r\n#TRUE#\r\n1\r\n0\r\n"));
    QVERIFY(!f.has("Backup/TresvaneDispatcherSettings.txt"));
    // Saved with program numbers: the counter is loaded and written.
    QCOMPARE(f.get("Counter.txt"), QByteArray("\"110\",1\r\n"));
}

void TestSettings::missingSettingsLeaveDefaults()
{
    ProgramFolder f;
    f.v.gStartHour = 7;
    f.v.settings.ck7 = true;
    f.v.settings.ck8 = false;
    QVERIFY(LoadSettings(f.ctx).ok());
    QCOMPARE(f.v.gStartHour, quint8(8));
    QVERIFY(f.v.settings.ck8 && !f.v.settings.ck7);
    QCOMPARE(f.v.gWorkDays, quint8(5));
    QCOMPARE(f.v.settings.workWeekOption, 0); // no option selected
    QVERIFY(f.v.gAlarms && f.v.gPrompts);
    QCOMPARE(f.v.settings.ckSlipStyle, qint16(1));
    QCOMPARE(f.v.settings.optServiceInvoice, (std::array<bool, 3>{false, true, false}));
    QCOMPARE(f.snapshot().size(), 0); // reading writes nothing
}

void TestSettings::workWeekCodes_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<int>("code");
    QTest::newRow("Mon-Fri") << QByteArray("5") << 5;
    QTest::newRow("Mon-Sat") << QByteArray("61") << 61;
    QTest::newRow("Sun-Fri") << QByteArray("62") << 62;
    QTest::newRow("all week") << QByteArray("7") << 7;
    QTest::newRow("old six") << QByteArray("6") << 5;
    QTest::newRow("nonsense") << QByteArray("99") << 5;
}

void TestSettings::workWeekCodes()
{
    QFETCH(QByteArray, stored);
    QFETCH(int, code);
    ProgramFolder f;
    f.put("TresvaneDispatcherSettings.txt", settingsFile("8", stored, "#FALSE#", "#FALSE#"));
    QVERIFY(LoadSettings(f.ctx).ok());
    QCOMPARE(int(f.v.gWorkDays), code);
    QCOMPARE(f.v.settings.workWeekOption, code);
    QVERIFY(SaveSettings(f.ctx).ok());
    QVERIFY(f.get("TresvaneDispatcherSettings.txt")
                .startsWith("8\r\n" + QByteArray::number(code) + "\r\n"));
}

void TestSettings::invoiceStyleFromTwoBooleans_data()
{
    QTest::addColumn<QByteArray>("office");
    QTest::addColumn<QByteArray>("serviceOrder");
    QTest::addColumn<int>("selected");
    QTest::newRow("repair") << QByteArray("#FALSE#") << QByteArray("#FALSE#") << 1;
    QTest::newRow("office") << QByteArray("#TRUE#") << QByteArray("#FALSE#") << 0;
    QTest::newRow("service order") << QByteArray("#FALSE#") << QByteArray("#TRUE#") << 2;
    QTest::newRow("both: the later one wins") << QByteArray("#TRUE#") << QByteArray("#TRUE#") << 2;
}

void TestSettings::invoiceStyleFromTwoBooleans()
{
    QFETCH(QByteArray, office);
    QFETCH(QByteArray, serviceOrder);
    QFETCH(int, selected);
    ProgramFolder f;
    f.put("TresvaneDispatcherSettings.txt", settingsFile("8", "5", office, serviceOrder));
    QVERIFY(LoadSettings(f.ctx).ok());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(f.v.settings.optServiceInvoice[i], i == selected);
}

void TestSettings::damagedSettingsChangeNothing()
{
    ProgramFolder f;
    f.put("TresvaneDispatcherSettings.txt", "8\r\nfive\r\n#TRUE#\r\n");
    const auto before = f.snapshot();
    f.v.gStartHour = 7;
    Status s = LoadSettings(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("TresvaneDispatcherSettings.txt"), qPrintable(s.message()));
    QVERIFY(s.message().contains("five"));
    QCOMPARE(f.v.gStartHour, quint8(7));
    QCOMPARE(f.snapshot(), before);

    f.put("TresvaneDispatcherSettings.txt", "8\r\n5\r\n#TRUE#\r\n");
    s = LoadSettings(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY(s.message().contains("ends before field 4"));
}

void TestSettings::continuousSchemeLoadsTheSlipNumber()
{
    ProgramFolder f;
    f.put("TresvaneDispatcherSettings.txt", settingsFile("8", "5", "#FALSE#", "#FALSE#", "0"));
    QVERIFY(LoadSettings(f.ctx).ok());
    QVERIFY(f.v.settings.fraSlipNoVisible);
    QCOMPARE(f.v.gNextSlip, qint16(1000)); // no SlipNo.txt yet
    QCOMPARE(f.v.settings.txtNextSlip, QStringLiteral("1000"));
    QCOMPARE(f.v.gConfirmation, QStringLiteral("1000"));
}

void TestSettings::assignments()
{
    ProgramFolder f;
    QVERIFY(LoadAssignments(f.ctx).ok());
    QCOMPARE(f.v.gAssignTo, QStringList{"empty"});
    QCOMPARE(f.v.TeamCount(), 0);

    f.put("Backup/Assignto.txt", "\"Old\"\r\n");
    QVERIFY(SaveAssignments(f.ctx, {"Truck 1", "Crew, North"}).ok());
    QCOMPARE(f.get("Assignto.txt"), QByteArray("\"Truck 1\"\r\n\"Crew, North\"\r\n"));
    QVERIFY(!f.has("Backup/Assignto.txt"));
    QCOMPARE(f.v.gAssignTo, (QStringList{"populated", "Truck 1", "Crew, North"}));
    QCOMPARE(f.v.TeamCount(), 2);
}

void TestSettings::problemsStayWhenTheFileIsMissing()
{
    ProgramFolder f;
    QVERIFY(LoadProblems(f.ctx).ok());
    QVERIFY(f.v.settings.cboProblems.isEmpty());
    f.put("ProblemCode.txt", "\"No heat\"\r\n\"Leak\"\r\n");
    QVERIFY(LoadProblems(f.ctx).ok());
    QCOMPARE(f.v.settings.cboProblems, (QStringList{"No heat", "Leak"}));
    QVERIFY(SaveProblems(f.ctx, {"Leak"}).ok());
    QCOMPARE(f.get("ProblemCode.txt"), QByteArray("\"Leak\"\r\n"));
}

static QByteArray listOf(int count, int length = 6)
{
    QByteArray bytes;
    for (int i = 1; i <= count; ++i)
        bytes += '"' + QByteArray::number(i).rightJustified(length, 'x') + "\"\r\n";
    return bytes;
}

void TestSettings::listsOutOfBoundsAreDamaged_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error"); // empty: the list loads

    QTest::newRow("30 teams") << "Assignto.txt" << listOf(30) << "";
    QTest::newRow("31 teams") << "Assignto.txt" << listOf(31)
                              << "Assignto.txt is damaged: it holds 31 entries, and the "
                                 "program keeps at most 30.";
    QTest::newRow("8,000 teams") << "Assignto.txt" << listOf(8000) << "8,000 entries";
    QTest::newRow("team of 255") << "Assignto.txt" << listOf(2, 255) << "";
    QTest::newRow("team of 256") << "Assignto.txt" << listOf(2, 256)
                                 << "entry 1 is 256 characters long";
    QTest::newRow("team with a NUL") << "Assignto.txt" << QByteArray("\"A\"\r\n\"B\0C\"\r\n", 11)
                                     << "entry 2 holds a control character";
    QTest::newRow("team with a tab") << "Assignto.txt" << QByteArray("\"A\tB\"\r\n") << "";
    QTest::newRow("5,000 problems") << "ProblemCode.txt" << listOf(5000) << "";
    QTest::newRow("problem file of 2 MB")
        << "ProblemCode.txt" << QByteArray(2 * 1024 * 1024, 'x') << "2,097,152 bytes long";
    QTest::newRow("settings file of 2 MB")
        << "TresvaneDispatcherSettings.txt" << QByteArray(2 * 1024 * 1024, '8')
        << "TresvaneDispatcherSettings.txt is damaged";
}

void TestSettings::listsOutOfBoundsAreDamaged()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    ProgramFolder f;
    f.put(file, bytes);
    const auto before = f.snapshot();
    QElapsedTimer timer;
    timer.start();
    const Status s = file == u"Assignto.txt"      ? LoadAssignments(f.ctx)
                     : file == u"ProblemCode.txt" ? LoadProblems(f.ctx)
                                                  : LoadSettings(f.ctx);
    QVERIFY(timer.elapsed() < 1000);
    if (error.isEmpty())
        QVERIFY2(s.ok(), qPrintable(s.message()));
    else
        QVERIFY2(!s.ok() && s.message().contains(error), qPrintable(s.message()));
    QCOMPARE(f.snapshot(), before);
}

void TestSettings::businessIsOneLineAndKeepsItsBackup()
{
    ProgramFolder f;
    f.put("Backup/MyBusinessData.txt", "old copy");
    f.v.settings.txtBusiness = {"Acme Heating", "1 Main St", "", "Springfield", "IL", "62701",
                                "217-555-0100", "",          ""};
    QVERIFY(SaveBusiness(f.ctx).ok());
    QCOMPARE(f.get("MyBusinessData.txt"),
             QByteArray("\"Acme Heating\",\"1 Main St\",\"\",\"Springfield\",\"IL\",\"62701\","
                        "\"217-555-0100\",\"\",\"\"\r\n"));
    QCOMPARE(f.get("Backup/MyBusinessData.txt"), QByteArray("old copy"));
    f.v.settings.txtBusiness = {};
    QVERIFY(LoadBusiness(f.ctx).ok());
    QCOMPARE(f.v.gBusiness[3], QStringLiteral("Springfield"));
    QCOMPARE(f.v.settings.txtBusiness[6], QStringLiteral("217-555-0100"));
}

void TestSettings::phoneSettings()
{
    ProgramFolder f;
    // Without Phone.txt the detected port stands; caller ID is ticked whatever.
    QVERIFY(LoadPhoneSettings(f.ctx, 3).ok());
    QCOMPARE(f.v.gModemPort, qint16(3));
    QVERIFY(!f.v.gPhoneChained);
    QCOMPARE(f.v.settings.ckCallerID, qint16(1));
    QVERIFY(f.v.settings.lblCallIDVisible);

    // A stored port wins over the detected one; a stored false still ticks the box.
    f.put("Phone.txt", "#TRUE#\r\n2\r\n");
    f.put("CallID.txt", "#FALSE#\r\n");
    f.v.settings.ckCallerID = 0;
    QVERIFY(LoadPhoneSettings(f.ctx, 5).ok());
    QCOMPARE(f.v.gModemPort, qint16(2));
    QVERIFY(f.v.gPhoneChained);
    QCOMPARE(f.v.settings.ckPhone, qint16(1));
    QVERIFY(!f.v.gCallerID);
    QCOMPARE(f.v.settings.ckCallerID, qint16(1));

    f.v.settings.ckPhone = 0;
    f.v.gCallerID = true;
    QVERIFY(SavePhoneSettings(f.ctx).ok());
    QCOMPARE(f.get("Phone.txt"), QByteArray("#FALSE#\r\n2\r\n"));
    QCOMPARE(f.get("CallID.txt"), QByteArray("#TRUE#\r\n"));
}

void TestSettings::adjustWorkDay_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("expected");
    const QDate sat(2026, 11, 21), sun(2026, 11, 22), mon(2026, 11, 23);
    QTest::newRow("5 Saturday") << 5 << sat << mon;
    QTest::newRow("5 Sunday") << 5 << sun << mon;
    QTest::newRow("5 Monday") << 5 << mon << mon;
    QTest::newRow("61 Saturday") << 61 << sat << sat;
    QTest::newRow("61 Sunday") << 61 << sun << mon;
    QTest::newRow("62 Saturday") << 62 << sat << sun;
    QTest::newRow("62 Sunday") << 62 << sun << sun;
    QTest::newRow("7 Saturday") << 7 << sat << sat;
    QTest::newRow("5 across the year") << 5 << QDate(2022, 12, 31) << QDate(2023, 1, 2);
}

void TestSettings::adjustWorkDay()
{
    QFETCH(int, code);
    QFETCH(QDate, date);
    QFETCH(QDate, expected);
    QCOMPARE(AdjustWorkDay(date, code), expected);
}

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
