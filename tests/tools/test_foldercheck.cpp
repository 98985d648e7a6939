#include "foldercheck.h"
#include "programfolder.h"
#include "sampleinstallation.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class TestFolderCheck : public QObject
{
    Q_OBJECT
private slots:
    void sampleIsGoodAndCounted();
    void jsonHoldsRecordsByFieldName();
    void damagedFilesAreNamedAndNothingIsWritten();
    void sampleIsTheSameForTheSameSeed();
};

static SampleOptions small()
{
    SampleOptions o;
    o.teams = 3;
    o.customers = 40;
    o.slips = 60;
    o.meetings = 6;
    o.storedSlips = 2;
    o.contracts = 5;
    o.start = QDate(2026, 3, 2);
    o.seed = 11;
    return o;
}

void TestFolderCheck::sampleIsGoodAndCounted()
{
    ProgramFolder f;
    Result<SampleSummary> s = WriteSampleInstallation(f.root(), small());
    QVERIFY2(s.ok(), qPrintable(s.message()));
    const FolderCheck check = CheckFolder(f.root());
    QVERIFY2(check.ok(), qPrintable(check.problems.join('\n')));
    QCOMPARE(check.customers, 40);
    QCOMPARE(check.slips, 60);
    QCOMPARE(check.meetings, 6);
    QCOMPARE(check.storedSlips, 2);
    QCOMPARE(check.teams, 3);
    QCOMPARE(check.dayFiles, s->dayFiles);
    QVERIFY(check.summary().contains("customers: 40\n"));
}

void TestFolderCheck::jsonHoldsRecordsByFieldName()
{
    ProgramFolder f;
    QVERIFY(WriteSampleInstallation(f.root(), small()).ok());
    QByteArray json;
    CheckFolder(f.root(), &json);
    QJsonParseError error;
    const QJsonObject doc = QJsonDocument::fromJson(json, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    const QJsonArray slips = doc["Slips.txt"].toArray();
    QCOMPARE(slips.size(), 60);
    const QJsonObject first = slips[0].toObject();
    QCOMPARE(first["RecType"].toString(), QStringLiteral("Service"));
    QVERIFY(first["ConfirmationNo"].toString().startsWith("SA"));
    // Every slip's label stands in its day file on each of its hours.
    const QJsonObject days = doc["days"].toObject();
    for (const QJsonValue& value : slips) {
        const QJsonObject slip = value.toObject();
        const QDate date = QDate::fromString(slip["EventDate"].toString(), "MM/dd/yyyy");
        const QString path = QStringLiteral("%1/Team#%2/%3.txt")
                                 .arg(date.year())
                                 .arg(slip["TeamNo"].toString())
                                 .arg(date.dayOfYear());
        const QJsonArray hoursOfDay = days[path].toArray();
        QCOMPARE(hoursOfDay.size(), 12);
        const QString label = slip["ConfirmationNo"].toString() + ' ' + slip["Name"].toString();
        const int start = slip["StartSlot"].toString().toInt();
        for (int h = 0; h < slip["Hours"].toString().toInt(); ++h)
            QCOMPARE(hoursOfDay[start - 1 + h].toString(), label);
    }
    QCOMPARE(doc["Assignto.txt"].toArray().size(), 3);
    QCOMPARE(doc["CustomerData.txt"].toArray()[0].toObject()["RecordMark"].toInt(), 1);
}

void TestFolderCheck::damagedFilesAreNamedAndNothingIsWritten()
{
    ProgramFolder f;
    QVERIFY(WriteSampleInstallation(f.root(), small()).ok());
    f.put("Slips.txt", f.get("Slips.txt") + "partial");
    f.put("TresvaneDispatcherSettings.txt", "8\r\n");
    f.put("2026/Team#1/200.txt", "\"No Event Scheduled\"\r\n\"broken\r\n");
    f.put("CAHistory.txt", QByteArray(10, 'x'));
    f.put("PrintColors.txt", "red\r\n");
    f.put("Backup/Phone.txt", "#TRUE#\r\n3\r\n"); // only in Backup: must stay there
    const auto before = f.snapshot();
    const FolderCheck check = CheckFolder(f.root());
    QCOMPARE(check.problems.size(), 5);
    const QString all = check.problems.join('\n');
    QVERIFY2(all.contains("Slips.txt: 17827 bytes"), qPrintable(all));
    QVERIFY(all.contains("TresvaneDispatcherSettings.txt"));
    QVERIFY(all.contains("2026/Team#1/200.txt: has 2 lines, not 12"));
    QVERIFY(all.contains("CAHistory.txt: 10 bytes"));
    QVERIFY(all.contains("PrintColors.txt"));
    QCOMPARE(f.snapshot(), before);
    QVERIFY(!CheckFolder(f.abs("missing")).ok());
}

void TestFolderCheck::sampleIsTheSameForTheSameSeed()
{
    ProgramFolder a, b;
    QVERIFY(WriteSampleInstallation(a.root(), small()).ok());
    QVERIFY(WriteSampleInstallation(b.root(), small()).ok());
    QCOMPARE(a.snapshot(), b.snapshot());
}

QTEST_GUILESS_MAIN(TestFolderCheck)
#include "test_foldercheck.moc"
