#include "core/housekeeping/backup.h"

#include "core/housekeeping/datafilecheck.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QStringList DataFileInventory(const QString& baseName)
{
    return {
        QStringLiteral("Assignto"),
        QStringLiteral("AuxHeadings"),
        QStringLiteral("CAHistory"),
        u'/' + baseName + QStringLiteral("Settings"),
        QStringLiteral("TVSalesItems"),
        QStringLiteral("CompanyLogo"),
        QStringLiteral("CompletedSlips"),
        QStringLiteral("ContractInfo"),
        QStringLiteral("Counter"),
        QStringLiteral("CurrentServices"),
        QStringLiteral("CurrentItems"),
        QStringLiteral("CustomerData"),
        QStringLiteral("CustomItems"),
        QStringLiteral("InvoiceItems"),
        QStringLiteral("LogoSettings"),
        QStringLiteral("Meetings"),
        QStringLiteral("MyBusinessData"),
        QStringLiteral("PrintColors"),
        QStringLiteral("ProblemCode"),
        QStringLiteral("PurgedDate"),
        QStringLiteral("ServiceInvoiceMemo"),
        QStringLiteral("ServiceHistory"),
        QStringLiteral("Services"),
        QStringLiteral("SlipNo"),
        QStringLiteral("Slips"),
        QStringLiteral("SpeedNumbers"),
        QStringLiteral("TelCall"),
        QStringLiteral("UnscheduledSlips"),
    };
}

Status SetBackupPaths(CoreContext& c)
{
    c.v.DayFilePath = QStringLiteral("/");
    c.v.gBackupPath = QStringLiteral("/Backup/");
    return BackupDataFiles(c);
}

QString BackupGenerationFolder(const QDate& day)
{
    return QStringLiteral("/Backup/") + day.toString(QStringLiteral("yyyy-MM-dd"));
}

namespace
{

// The copies in Backup as they stand before today's first exit, so that damage copied in
// on a later exit can still be undone from them for a week. A copy already kept today is
// left as it is; one missing (an exit cut short before it landed) is kept now.
Status keepPreviousGeneration(CoreContext& c, const QStringList& names)
{
    const QString folder = BackupGenerationFolder(c.clock.today());
    for (const QString& name : names) {
        const QString copy = c.v.gBackupPath + name;
        if (!c.store.IsFile(copy) || c.store.IsFile(folder + u'/' + name)) continue;
        if (Status s = c.store.EnsureFolder(folder); !s) return s;
        if (Status s = c.store.CopyFile(copy, folder + u'/' + name); !s) return s;
    }
    return {};
}

Status removeOldGenerations(CoreContext& c)
{
    const QDate today = c.clock.today();
    for (const QString& entry : c.store.List(QStringLiteral("/Backup"))) {
        const QDate day = QDate::fromString(entry, QStringLiteral("yyyy-MM-dd"));
        if (!day.isValid() || day.daysTo(today) <= kBackupGenerationDays) continue;
        const QString old = QStringLiteral("/Backup/") + entry;
        if (Status s = c.store.KillIfPresent(old + QStringLiteral("/*.*")); !s) return s;
        if (Status s = c.store.RemoveFolder(old); !s) return s;
    }
    return {};
}

QStringList inventoryFiles(const Store& store)
{
    QStringList names;
    for (const QString& entry : DataFileInventory(store.baseName())) {
        // The settings entry carries its own separator; the copies are named without it.
        QString name = entry + QStringLiteral(".txt");
        if (name.startsWith(u'/')) name.remove(0, 1);
        names << name;
    }
    return names;
}

} // namespace

Status BackupDataFiles(CoreContext& c)
{
    if (Status s = c.store.EnsureFolder(c.v.gBackupPath); !s) return s;
    const QStringList names = inventoryFiles(c.store);
    if (Status s = removeOldGenerations(c); !s) return s;
    QStringList kept;
    // Backup holds one generation: all its copies are replaced together, with the day's
    // keeping of the generation before.
    Store::Group change(c.store);
    if (Status s = keepPreviousGeneration(c, names); !s) return s;
    for (const QString& name : names) {
        const QString source = c.v.DayFilePath + name;
        // The plain test, not FileExists: a file missing here must not be fetched back
        // from Backup only to be copied over itself.
        if (!c.store.IsFile(source) && !c.store.IsFolder(source)) continue;
        if (Status s = CheckDataFile(c.store, source); !s) {
            kept << s.message();
            continue;
        }
        // The copy replaces the old one atomically, so Backup never lacks the file even
        // for an instant.
        if (Status s = c.store.CopyFile(source, c.v.gBackupPath + name); !s) kept << s.message();
    }
    if (Status s = change.commit(); !s) return s;
    if (!kept.isEmpty())
        c.dialogs.message(QStringLiteral("These files were not copied to Backup; their "
                                         "copies from an earlier exit are kept:\n\n") +
                              kept.join(u'\n'),
                          {}, Dialogs::Buttons::Ok, Dialogs::Icon::Exclamation);
    return {};
}

Status OfferRestoreOfEmptyFiles(CoreContext& c)
{
    for (const QString& name : inventoryFiles(c.store)) {
        const QString file = u'/' + name;
        const QString copy = QStringLiteral("/Backup/") + name;
        if (!c.store.IsFile(file) || c.store.FileSize(file) != 0 || !c.store.IsFile(copy)) continue;
        const qint64 size = c.store.FileSize(copy);
        if (size <= 0 || !CheckDataFile(c.store, copy).ok()) continue;
        const int length = DataFileRecordLength(name);
        if (length > 0 && size < length) continue;
        const QString holds =
            length > 0 ? QStringLiteral("%L1 records (%L2 bytes)").arg(size / length).arg(size)
                       : QStringLiteral("%L1 bytes").arg(size);
        const QString text = QStringLiteral("%1 is empty, but its copy in Backup holds %2.\n\n"
                                            "Restore %1 from Backup?")
                                 .arg(name, holds);
        if (c.dialogs.message(text, {}, Dialogs::Buttons::YesNo, Dialogs::Icon::Exclamation) !=
            Dialogs::Answer::Yes)
            continue;
        if (Status s = c.store.CopyFile(copy, file); !s) return s;
    }
    return {};
}
} // namespace tresvane
