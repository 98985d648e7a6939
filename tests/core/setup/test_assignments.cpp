#include "core/setup/addressstyle.h"
#include "core/setup/assignments.h"
#include "core/setup/pricelists.h"
#include "programfolder.h"

#include <QtTest>

using namespace tresvane;

class TestAssignments : public QObject
{
    Q_OBJECT
private slots:
    void addWritesTheListAndTheFolder();
    void thirtyFirstIsRefusedSilently();
    void duplicateIsNotAdded();
    void emptyNameIsWarnedAndStillAdded();
    void deletingTeamTwoOfFourRenumbersTheFolders();
    void deletingTheLastTeam();
    void renamingKeepsTheFolder();
    void problems();
    void addressStyle_data();
    void addressStyle();
    void telephone_data();
    void telephone();
    void invoiceItemList();
    void logoSteps_data();
    void logoSteps();
};

static void setYear(ProgramFolder& f)
{
    f.v.gYear = "2026";
    QDir().mkpath(f.abs("2026"));
}

void TestAssignments::addWritesTheListAndTheFolder()
{
    ProgramFolder f;
    setYear(f);
    QStringList list;
    Result<AssignmentAdd> r = AddAssignment(f.ctx, list, "Truck 1");
    QVERIFY(r.ok());
    QCOMPARE(*r, AssignmentAdd::Added);
    r = AddAssignment(f.ctx, list, "Truck 2");
    QCOMPARE(*r, AssignmentAdd::Added);
    QCOMPARE(f.get("Assignto.txt"), QByteArray("\"Truck 1\"\r\n\"Truck 2\"\r\n"));
    QCOMPARE(f.v.gAssignTo, (QStringList{"populated", "Truck 1", "Truck 2"}));
    QVERIFY(f.hasFolder("2026/Team#1"));
    QVERIFY(f.hasFolder("2026/Team#2"));
    VERIFY_DIALOGS(f.dialogs);
}

void TestAssignments::thirtyFirstIsRefusedSilently()
{
    ProgramFolder f;
    setYear(f);
    QStringList list;
    for (int i = 1; i <= kMaxAssignments; ++i)
        QCOMPARE(*AddAssignment(f.ctx, list, QStringLiteral("Team %1").arg(i)),
                 AssignmentAdd::Added);
    const QByteArray before = f.get("Assignto.txt");
    QCOMPARE(*AddAssignment(f.ctx, list, "Team 31"), AssignmentAdd::ListFull);
    QCOMPARE(list.size(), 30);
    QCOMPARE(f.get("Assignto.txt"), before);
    QVERIFY(!f.hasFolder("2026/Team#31"));
    QCOMPARE(f.dialogs.beeps, 1);
    f.v.gAlarms = false;
    QCOMPARE(*AddAssignment(f.ctx, list, "Team 32"), AssignmentAdd::ListFull);
    QCOMPARE(f.dialogs.beeps, 1);
    VERIFY_DIALOGS(f.dialogs);
}

void TestAssignments::duplicateIsNotAdded()
{
    ProgramFolder f;
    setYear(f);
    QStringList list{"Alpha"};
    QCOMPARE(*AddAssignment(f.ctx, list, "Alpha"), AssignmentAdd::Duplicate);
    QCOMPARE(list, QStringList{"Alpha"});
    QVERIFY(!f.has("Assignto.txt"));
    // The comparison is exact: another case is another name.
    QCOMPARE(*AddAssignment(f.ctx, list, "alpha"), AssignmentAdd::Added);
}

void TestAssignments::emptyNameIsWarnedAndStillAdded()
{
    ProgramFolder f;
    setYear(f);
    QStringList list;
    f.dialogs.expect("Enter an Assignment Name");
    QCOMPARE(*AddAssignment(f.ctx, list, ""), AssignmentAdd::Added);
    QCOMPARE(list, QStringList{""});
    QCOMPARE(f.get("Assignto.txt"), QByteArray("\"\"\r\n"));
    QCOMPARE(f.dialogs.beeps, 1);
    VERIFY_DIALOGS(f.dialogs);
    // Prompts off: only the beep, and a second empty name is a duplicate.
    f.v.gPrompts = false;
    QCOMPARE(*AddAssignment(f.ctx, list, ""), AssignmentAdd::Duplicate);
    QCOMPARE(f.dialogs.beeps, 2);
}

void TestAssignments::deletingTeamTwoOfFourRenumbersTheFolders()
{
    ProgramFolder f;
    setYear(f);
    f.put("Assignto.txt", "\"A\"\r\n\"B\"\r\n\"C\"\r\n\"D\"\r\n");
    for (int t = 1; t <= 4; ++t)
        f.put(QStringLiteral("2026/Team#%1/150.txt").arg(t), QByteArray::number(t));
    f.put("2025/Team#3/10.txt", "last year");
    QStringList list{"A", "B", "C", "D"};
    Result<int> deleted = DeleteAssignment(f.ctx, list, "B");
    QVERIFY2(deleted.ok(), qPrintable(deleted.message()));
    QCOMPARE(*deleted, 2);
    QCOMPARE(list, (QStringList{"A", "C", "D"}));
    QCOMPARE(f.get("Assignto.txt"), QByteArray("\"A\"\r\n\"C\"\r\n\"D\"\r\n"));
    QCOMPARE(f.get("2026/Team#1/150.txt"), QByteArray("1"));
    QCOMPARE(f.get("2026/Team#2/150.txt"), QByteArray("3"));
    QCOMPARE(f.get("2026/Team#3/150.txt"), QByteArray("4"));
    QVERIFY(!f.hasFolder("2026/Team#4"));
    // Other years keep their numbers.
    QCOMPARE(f.get("2025/Team#3/10.txt"), QByteArray("last year"));
    // A name not in the list changes nothing.
    QCOMPARE(*DeleteAssignment(f.ctx, list, "Z"), 0);
    QCOMPARE(list.size(), 3);
}

void TestAssignments::deletingTheLastTeam()
{
    ProgramFolder f;
    setYear(f);
    f.put("2026/Team#1/200.txt", "x");
    QStringList list{"Only"};
    QCOMPARE(*DeleteAssignment(f.ctx, list, "Only"), 1);
    QVERIFY(list.isEmpty());
    QVERIFY(!f.hasFolder("2026/Team#1"));
    QCOMPARE(f.get("Assignto.txt"), QByteArray());
}

void TestAssignments::renamingKeepsTheFolder()
{
    ProgramFolder f;
    setYear(f);
    f.put("2026/Team#2/150.txt", "b");
    QStringList list{"A", "B"};
    QVERIFY(ChangeAssignment(f.ctx, list, 1, "Bravo").ok());
    QCOMPARE(list, (QStringList{"A", "Bravo"}));
    QCOMPARE(f.get("2026/Team#2/150.txt"), QByteArray("b"));
    QCOMPARE(f.v.gAssignTo.value(2), QString("Bravo"));
}

void TestAssignments::problems()
{
    ProgramFolder f;
    QStringList list;
    QVERIFY(*AddProblem(f.ctx, list, "No Heat"));
    QVERIFY(!*AddProblem(f.ctx, list, "No Heat"));
    QVERIFY(*AddProblem(f.ctx, list, ""));
    QCOMPARE(f.get("ProblemCode.txt"), QByteArray("\"No Heat\"\r\n\"\"\r\n"));
    QVERIFY(DeleteProblem(f.ctx, list, "No Heat").ok());
    QVERIFY(DeleteProblem(f.ctx, list, "Not there").ok());
    QCOMPARE(f.get("ProblemCode.txt"), QByteArray("\"\"\r\n"));
}

void TestAssignments::addressStyle_data()
{
    QTest::addColumn<QString>("company");
    QTest::addColumn<QString>("postal");
    QTest::addColumn<QString>("style");
    QTest::newRow("nothing entered") << ""
                                     << "" << kUsaStyleAddress;
    QTest::newRow("numeric postal code, no name") << ""
                                                  << "12345" << kUsaStyleAddress;
    QTest::newRow("name and postal code") << "Acme"
                                          << "12345" << kUsaStyleAddress;
    QTest::newRow("name and letters in the code") << "Acme"
                                                  << "SW1A 1AA" << kUsaStyleAddress;
    QTest::newRow("name alone") << "Acme"
                                << "" << kInternationalStyleAddress;
}

void TestAssignments::addressStyle()
{
    QFETCH(QString, company);
    QFETCH(QString, postal);
    QFETCH(QString, style);
    QCOMPARE(AddressStyleAtLoad(company, postal), style);
}

void TestAssignments::telephone_data()
{
    QTest::addColumn<QString>("phone");
    QTest::addColumn<bool>("valid");
    QTest::newRow("usual") << "555-123-4567" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("letters at the end") << "555-123-45x7" << false;
    QTest::newRow("extension words") << "555-1234 ext" << false;
    QTest::newRow("short number") << "12" << true;
}

void TestAssignments::telephone()
{
    QFETCH(QString, phone);
    QFETCH(bool, valid);
    QCOMPARE(TelephoneValid(phone), valid);
}

void TestAssignments::invoiceItemList()
{
    ScriptedDialogs d;
    QList<PriceEntry> list;
    d.expect("Enter an item and price");
    QVERIFY(!AddInvoiceItem(list, "", "5", d));
    for (int i = 0; i < 13; ++i)
        QVERIFY(AddInvoiceItem(list, QStringLiteral("Item %1").arg(i), "1.50", d));
    // The note says 12; the form has 13 slots, the 14th is refused.
    d.expect("You cannot add any more items\nThe Invoice Item List is full");
    QVERIFY(!AddInvoiceItem(list, "Item 14", "2", d));
    QCOMPARE(list.size(), 13);
    VERIFY_DIALOGS(d);

    QList<PriceEntry> small{{"a", "1"}, {"b", "2"}, {"c", "3"}};
    QCOMPARE(MoveInvoiceItem(small, 2, -1), 1);
    QCOMPARE(small[1].name, QString("c"));
    QCOMPARE(MoveInvoiceItem(small, 0, -1), 0);
    QCOMPARE(MoveInvoiceItem(small, 2, 1), 2);
    QCOMPARE(small, (QList<PriceEntry>{{"a", "1"}, {"c", "3"}, {"b", "2"}}));

    QList<PriceEntry> cut;
    QVERIFY(AddInvoiceItem(cut, QString(40, 'n'), QString(20, '9'), d));
    QCOMPARE(cut[0].name.size(), 30);
    QCOMPARE(cut[0].price.size(), 12);

    QVERIFY(!SelectionReachesMaximum(7));
    QVERIFY(SelectionReachesMaximum(8));
    QVERIFY(!SelectionReachesMaximum(9));
}

void TestAssignments::logoSteps_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("up");
    QTest::addColumn<int>("to");
    QTest::newRow("up") << 1440 << true << 1490;
    QTest::newRow("up to the limit") << 1750 << true << 1800;
    QTest::newRow("held at the limit") << 1800 << true << 1800;
    QTest::newRow("down") << 1440 << false << 1390;
    QTest::newRow("down to 410") << 460 << false << 410;
    QTest::newRow("reaching 360 jumps") << 410 << false << 1800;
}

void TestAssignments::logoSteps()
{
    QFETCH(int, from);
    QFETCH(bool, up);
    QFETCH(int, to);
    QCOMPARE(LogoSizeStep(from, up), to);
}

QTEST_GUILESS_MAIN(TestAssignments)
#include "test_assignments.moc"
