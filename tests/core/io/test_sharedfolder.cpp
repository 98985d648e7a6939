// The program's writes on a program folder kept on a file server: a booking (day file,
// record, counter), a customer record written in place, and the exit backup, done once
// in a local folder and once on the shared one, must leave the same bytes. The shared
// folder is a mounted SMB/CIFS or NFS export named by DISPATCH_SHARED_FOLDER (scripts/
// sharetest mounts one over the loopback address where the machine allows it); without
// one the test says so and is skipped.
#include "core/customers/customerfiles.h"
#include "core/housekeeping/backup.h"
#include "core/io/store.h"
#include "core/schedule/booking.h"
#include "core/schedule/dayfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "sampleinstallation.h"
#include "screenrequest.h"
#include "scripteddialogs.h"
#include "testclock.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

using namespace tresvane;

namespace
{

QMap<QString, QByteArray> snapshot(const QString& root)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile f(path);
        if (f.open(QIODevice::ReadOnly))
            files.insert(QDir(root).relativeFilePath(path), f.readAll());
    }
    return files;
}

// A sample, one booking, one customer record rewritten in place, the exit backup.
void workADay(const QString& root)
{
    SampleOptions o;
    o.customers = 40;
    o.slips = 60;
    o.start = QDate(2026, 4, 30);
    QVERIFY(WriteSampleInstallation(root, o).ok());
    Store store(root);
    TestClock clock;
    ScriptedDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    BuildTimeLabels(v);

    v.Mode = Mode::ServiceSlip;
    v.CurrentTeam = "2";
    v.current.account = "A-100";
    v.current.name = "Ada Byron";
    v.settings.ckSlipStyle = 1;
    v.gJulianDay = "120";
    v.gSequence = 90;
    v.gConfirmation = "SA120-90";
    GridColumn grid;
    grid.fill(NoEventScheduled());
    grid[9] = "SA120-90 Ada Byron";
    WriteSlots(v, grid);
    BookingRequest s = ScreenRequest(c, QDate(2026, 5, 29));
    s.eventText = grid[9];
    s.hours = "1";
    s.firstSlot = 10;
    s.number = v.gConfirmation;
    s.problem = "No Heat";
    dialogs.expectContaining("has been Scheduled");
    Result<BookingSaved> saved = SaveBooking(c, s);
    QVERIFY2(saved.ok(), qPrintable(saved.message()));

    QVERIFY(ReadCustomer(c, 7).ok());
    v.gCustomer.setText(CustomerField::Address2, QStringLiteral("Suite 4"));
    QVERIFY(WriteCustomer(c, 7).ok());

    QVERIFY(SetBackupPaths(c).ok());
    VERIFY_DIALOGS(dialogs);
}

} // namespace

class TestSharedFolder : public QObject
{
    Q_OBJECT
private slots:
    void sameBytesOnTheShare();
};

void TestSharedFolder::sameBytesOnTheShare()
{
    const QString share = qEnvironmentVariable("DISPATCH_SHARED_FOLDER");
    if (share.isEmpty())
        QSKIP("No shared folder to test on: DISPATCH_SHARED_FOLDER names none. "
              "scripts/sharetest mounts a Samba export over the loopback address where the "
              "kernel offers CIFS.");
    QTemporaryDir local;
    QTemporaryDir remote(share + QStringLiteral("/dispatcher-test-XXXXXX"));
    QVERIFY2(remote.isValid(), qPrintable(share));
    workADay(local.path());
    workADay(remote.path());
    const auto here = snapshot(local.path());
    const auto there = snapshot(remote.path());
    QCOMPARE(there.keys(), here.keys());
    for (auto it = here.cbegin(); it != here.cend(); ++it)
        QVERIFY2(there.value(it.key()) == it.value(), qPrintable(it.key()));
}

QTEST_GUILESS_MAIN(TestSharedFolder)
#include "test_sharedfolder.moc"
