#include "core/io/customerrecords.h"
#include "core/session/menurules.h"
#include "core/session/startup.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

// A CustomerData.txt record laid down by hand: the account number in the first 20 bytes,
// the rest blank but for the two 16-bit numbers at the end.
static QByteArray customerRecord(const QByteArray& account)
{
    QByteArray r = account.leftJustified(20, ' ', true);
    r += QByteArray(326 - 20, ' ');
    r += QByteArray(2, '\0');
    Q_ASSERT(r.size() == 328);
    return r;
}

class TestStartup : public QObject
{
    Q_OBJECT
private slots:
    void firstStartMakesTheFolderTree();
    void auxFoldersComeBack();
    void auxFoldersOfOddAccounts();
    void auxRepairInSlicesMakesEachFolderOnce();
    void damagedCustomerFileIsReported();
    void programFolderThatCannotBeWorkedIn();
    void renamedProgramKeepsItsOwnSettings();
    void requiredFiles_data();
    void requiredFiles();
    void requiredFileComesBackFromBackup();
    void internetShortcut();
    void menuRules_data();
    void menuRules();
};

void TestStartup::firstStartMakesTheFolderTree()
{
    ProgramFolder f;
    f.clock.setDate(QDate(2027, 1, 5));
    QVERIFY(BuildFolders(f.ctx).ok());
    for (const char* folder :
         {"2027", "TresvaneDispatcher", "TVActiveAccounts", "Backup", "Backup/TVActiveAccounts",
          "Backup/TVActiveAccountsBACK", "Backup/TresvaneDispatcher", "Templates",
          "Templates/Contracts", "AuxFiles"})
        QVERIFY2(f.hasFolder(folder), folder);
    // Folders only, and the contract template the program brings.
    QCOMPARE(f.snapshot().keys(), QStringList{"Templates/Contracts/GenericContract.rtf"});
    // A second start changes nothing, and a template of the user's own stays.
    f.put("Templates/Contracts/GenericContract.rtf", "{\\rtf1 ours}");
    QVERIFY(BuildFolders(f.ctx).ok());
    QCOMPARE(f.snapshot().keys(), QStringList{"Templates/Contracts/GenericContract.rtf"});
    QCOMPARE(f.get("Templates/Contracts/GenericContract.rtf"), QByteArray("{\\rtf1 ours}"));
}

void TestStartup::auxFoldersComeBack()
{
    ProgramFolder f;
    f.put("CustomerData.txt", customerRecord("ACC1") + customerRecord("B-200"));
    f.put("AuxFiles/ACC1/AuxFile3/Data.txt", "kept");
    // The folder tree leaves them to the repair, which the program runs behind the forms.
    QVERIFY(BuildFolders(f.ctx).ok());
    QVERIFY(!f.hasFolder("AuxFiles/B-200"));
    QVERIFY(BuildAuxFolders(f.ctx).ok());
    for (const char* account : {"ACC1", "B-200"})
        for (int i = 0; i < 6; ++i)
            QVERIFY(f.hasFolder(QStringLiteral("AuxFiles/%1/AuxFile%2").arg(account).arg(i)));
    QCOMPARE(f.get("AuxFiles/ACC1/AuxFile3/Data.txt"), QByteArray("kept"));

    // Lost folders come back, empty, at the next start.
    QVERIFY(QDir(f.abs("AuxFiles/B-200/AuxFile4")).removeRecursively());
    QVERIFY(QDir(f.abs("AuxFiles/ACC1")).removeRecursively());
    QVERIFY(BuildAuxFolders(f.ctx).ok());
    QVERIFY(f.hasFolder("AuxFiles/B-200/AuxFile4"));
    QVERIFY(f.hasFolder("AuxFiles/ACC1/AuxFile5"));
}

void TestStartup::auxFoldersOfOddAccounts()
{
    ProgramFolder f;
    // A folder spelt otherwise on disk is the account's own; a hostile account stays a
    // name inside AuxFiles; a blank record makes nothing.
    f.put("AuxFiles/acc7/AuxFile0/Data.txt", "x");
    f.put("CustomerData.txt",
          customerRecord("ACC7") + customerRecord("../escape") + customerRecord(""));
    QVERIFY(BuildAuxFolders(f.ctx).ok());
    QVERIFY(f.hasFolder("AuxFiles/acc7/AuxFile5"));
    QVERIFY(!f.hasFolder("AuxFiles/ACC7"));
    QVERIFY(!QFileInfo::exists(f.abs("escape")));
    QVERIFY(!f.hasFolder("AuxFiles/AuxFile0"));
    const QStringList entries =
        QDir(f.abs("AuxFiles")).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    QCOMPARE(entries.size(), 2);
    QVERIFY(f.hasFolder("AuxFiles/..%2Fescape/AuxFile0"));
}

void TestStartup::auxRepairInSlicesMakesEachFolderOnce()
{
    ProgramFolder f;
    QByteArray data;
    for (int i = 0; i < 300; ++i)
        data += customerRecord("C" + QByteArray::number(i));
    f.put("CustomerData.txt", data);
    AuxFolderRepair repair(f.store);
    QVERIFY(repair.prepare().ok());
    // A budget of nothing still makes headway: every slice handles at least one account.
    int slices = 0;
    for (;;) {
        Result<bool> done = repair.run(0);
        QVERIFY(done.ok());
        ++slices;
        if (*done) break;
        QVERIFY(slices <= 301);
    }
    QVERIFY(slices > 1);
    QCOMPARE(QDir(f.abs("AuxFiles")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 300);
    QVERIFY(f.hasFolder("AuxFiles/C299/AuxFile5"));
}

void TestStartup::programFolderThatCannotBeWorkedIn()
{
    ProgramFolder f;
    QVERIFY(CheckProgramFolder(f.store).ok());
    // Older installations kept the executable among the data, under the name of the
    // program's own folder.
    f.put("TresvaneDispatcher", "\x7f"
                                "ELF");
    const Status s = CheckProgramFolder(f.store);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("holds a file named TresvaneDispatcher"),
             qPrintable(s.message()));
    QVERIFY2(s.message().contains("Delete or move that file"), qPrintable(s.message()));
    // Under another name the same folder is fine, and a folder that is not there is told.
    f.store.setBaseName("AcmeDispatch");
    QVERIFY(CheckProgramFolder(f.store).ok());
    Store missing(f.abs("nowhere"));
    QVERIFY2(CheckProgramFolder(missing).message().contains("does not exist"),
             qPrintable(CheckProgramFolder(missing).message()));
}

void TestStartup::renamedProgramKeepsItsOwnSettings()
{
    ProgramFolder f;
    f.store.setBaseName("AcmeDispatch");
    f.put("Assignto.txt", "\"North\"\r\n");
    f.put("MyBusinessData.txt", "x");
    f.put("ProblemCode.txt", "\"No Heat\"\r\n");
    f.put("TresvaneDispatcherSettings.txt", "8\r\n");
    // The settings of the usual name are not this copy's.
    QVERIFY(!AllRequiredFilesExist(f.ctx));
    f.put("AcmeDispatchSettings.txt", "8\r\n");
    QVERIFY(AllRequiredFilesExist(f.ctx));
    QVERIFY(BuildFolders(f.ctx).ok());
    QVERIFY(f.hasFolder("AcmeDispatch"));
    QVERIFY(f.hasFolder("Backup/AcmeDispatch"));
    QVERIFY(!f.hasFolder("TresvaneDispatcher"));
}

void TestStartup::damagedCustomerFileIsReported()
{
    ProgramFolder f;
    // More records than a 16-bit count holds.
    f.put("CustomerData.txt", QByteArray(328 * 32768, ' '));
    const Status s = BuildAuxFolders(f.ctx);
    QVERIFY(!s.ok());
    QVERIFY2(s.message().contains("CustomerData.txt"), qPrintable(s.message()));
}

void TestStartup::requiredFiles_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<bool>("passes");
    const QStringList all = {"Assignto.txt", "MyBusinessData.txt", "ProblemCode.txt",
                             "TresvaneDispatcherSettings.txt"};
    QTest::newRow("all four") << all << true;
    for (const QString& missing : all) {
        QStringList present = all;
        present.removeOne(missing);
        QTest::addRow("without %s", qPrintable(missing)) << present << false;
    }
    QTest::newRow("other spelling")
        << QStringList{"ASSIGNTO.TXT", "mybusinessdata.txt", "ProblemCode.txt",
                       "TresvaneDispatcherSettings.txt"}
        << true;
    QTest::newRow("settings of a copy under another name")
        << QStringList{"Assignto.txt", "MyBusinessData.txt", "ProblemCode.txt",
                       "OtherNameSettings.txt"}
        << false;
}

void TestStartup::requiredFiles()
{
    QFETCH(QStringList, present);
    QFETCH(bool, passes);
    ProgramFolder f;
    for (const QString& name : present)
        f.put(name, "x\r\n");
    QCOMPARE(AllRequiredFilesExist(f.ctx), passes);
}

void TestStartup::requiredFileComesBackFromBackup()
{
    ProgramFolder f;
    for (const char* name : {"Assignto.txt", "ProblemCode.txt", "TresvaneDispatcherSettings.txt"})
        f.put(name, "x\r\n");
    f.put("Backup/MyBusinessData.txt", "\"Acme\"\r\n");
    QVERIFY(AllRequiredFilesExist(f.ctx));
    QCOMPARE(f.get("MyBusinessData.txt"), QByteArray("\"Acme\"\r\n"));
}

void TestStartup::internetShortcut()
{
    ProgramFolder f;
    Result<QString> path = WriteInternetShortcut(f.store, "https://example.org/a");
    QVERIFY(path.ok());
    QCOMPARE(*path, f.abs("Temp.url"));
    QCOMPARE(f.get("Temp.url"),
             QByteArray("[InternetShortcut]\r\nURL = https://example.org/a\r\n"));
}

void TestStartup::menuRules_data()
{
    QTest::addColumn<QByteArray>("unscheduled");
    QTest::addColumn<QByteArray>("slips");
    QTest::addColumn<QByteArray>("meetings");
    QTest::addColumn<int>("modemPort");
    QTest::addColumn<int>("ckPhone");
    QTest::addColumn<bool>("printAllowed");
    QTest::addColumn<QList<int>>("closed");
    const QByteArray record(297, ' ');
    const QList<int> always = {MenuEntry::StoredSlips, MenuEntry::Reschedule,
                               MenuEntry::HiddenWorkOrder};
    QTest::newRow("new installation")
        << QByteArray() << QByteArray() << QByteArray() << 0 << 0 << true
        << QList<int>{MenuEntry::PlaceReminderCalls, MenuEntry::UnattendedMonitoring,
                      MenuEntry::StoredSlips, MenuEntry::Reschedule, MenuEntry::HiddenWorkOrder};
    QTest::newRow("empty stored slips file keeps entry 8 closed")
        << QByteArray("") << QByteArray() << QByteArray() << 2 << 1 << true << always;
    QTest::newRow("one stored slip")
        << record << QByteArray() << QByteArray() << 2 << 1 << true
        << QList<int>{MenuEntry::Reschedule, MenuEntry::HiddenWorkOrder};
    QTest::newRow("a meeting alone opens reschedule")
        << QByteArray() << QByteArray("") << record << 2 << 1 << true
        << QList<int>{MenuEntry::StoredSlips, MenuEntry::HiddenWorkOrder};
    QTest::newRow("printing left to the planner")
        << QByteArray() << QByteArray() << QByteArray() << 2 << 1 << false
        << QList<int>{MenuEntry::DailyWorkSchedules, MenuEntry::ServiceInvoices,
                      MenuEntry::StoredSlips, MenuEntry::Reschedule, MenuEntry::HiddenWorkOrder};
}

void TestStartup::menuRules()
{
    QFETCH(QByteArray, unscheduled);
    QFETCH(QByteArray, slips);
    QFETCH(QByteArray, meetings);
    QFETCH(int, modemPort);
    QFETCH(int, ckPhone);
    QFETCH(bool, printAllowed);
    QFETCH(QList<int>, closed);
    ProgramFolder f;
    if (!unscheduled.isNull()) f.put("UnscheduledSlips.txt", unscheduled);
    if (!slips.isNull()) f.put("Slips.txt", slips);
    if (!meetings.isNull()) f.put("Meetings.txt", meetings);
    f.v.gModemPort = qint16(modemPort);
    f.v.settings.ckPhone = qint16(ckPhone);
    const MenuState m = MenuActivation(f.ctx, printAllowed);
    for (int i = 0; i < kMenuEntries; ++i)
        QVERIFY2(m.enabled[i] == !closed.contains(i), qPrintable(MenuCaption(i)));
    QCOMPARE(m.plannerNotesVisible, !printAllowed);
}

QTEST_GUILESS_MAIN(TestStartup)
#include "test_startup.moc"
