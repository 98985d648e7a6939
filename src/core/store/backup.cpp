#include "backup.h"

#include "dispatchingvariables.h"
#include "store.h"

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

Status BackupDataFiles(CoreContext& c)
{
    if (Status s = c.store.EnsureFolder(c.v.gBackupPath); !s)
        return s;
    for (const QString& entry : DataFileInventory(c.store.baseName())) {
        const QString name = entry + QStringLiteral(".txt");
        const QString source = c.v.DayFilePath + name;
        // The plain test, not FileExists: a file missing here must not be fetched back
        // from Backup only to be copied over itself.
        if (!c.store.IsFile(source))
            continue;
        // The copy replaces the old one atomically, so Backup never lacks the file even
        // for an instant.
        if (Status s = c.store.CopyFile(source, c.v.gBackupPath + name); !s)
            return s;
    }
    return {};
}
