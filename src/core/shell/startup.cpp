#include "startup.h"

#include "customers/customerrecords.h"
#include "shell/dialogs.h"
#include "store/clock.h"
#include "store/dispatchingvariables.h"
#include "store/settingsfiles.h"
#include "store/store.h"
#include "store/textfile.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <QScopeGuard>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kCustomerData = QStringLiteral("/CustomerData.txt");
const QString kAuxFiles = QStringLiteral("/AuxFiles");
constexpr int kAuxFolderCount = 6;

bool isDirectory(const QString& path)
{
    struct stat info;
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Makes a folder below the program folder that is known not to exist yet.
Status makeFolder(Store& store, const QString& absolute)
{
    if (QDir().mkdir(absolute) || isDirectory(absolute))
        return {};
    return Status::failure(QStringLiteral("Could not make the folder %1 in %2")
                               .arg(QDir(store.root()).relativeFilePath(absolute), store.root()));
}

} // namespace

Status BuildFolders(CoreContext& c)
{
    const QString base = ExecutableBaseName();
    const QStringList folders = {
        u'/' + QString::number(c.clock.today().year()),
        u'/' + base,
        QStringLiteral("/TVActiveAccounts"),
        QStringLiteral("/Backup"),
        QStringLiteral("/Backup/TVActiveAccounts"),
        QStringLiteral("/Backup/TVActiveAccountsBACK"),
        QStringLiteral("/Templates"),
        kAuxFiles,
    };
    for (const QString& folder : folders)
        if (Status s = c.store.EnsureFolder(folder); !s)
            return s;
    if (Status s = BuildAuxFolders(c); !s)
        return s;
    return BuildExtraFolders(c);
}

Status BuildAuxFolders(CoreContext& c)
{
    Store& store = c.store;
    if (!store.FileExists(kCustomerData))
        return {};
    Result<qint16> count = store.RecordCount(kCustomerData, kCustomerRecordLength);
    if (!count)
        return count.status();
    if (*count < 1)
        return {};
    Result<QByteArray> bytes = store.ReadAll(kCustomerData);
    if (!bytes)
        return bytes.status();
    if (Status s = store.EnsureFolder(kAuxFiles); !s)
        return s;

    // One listing of AuxFiles, by the lower-case name, stands in for a case-blind lookup
    // of each account.
    const QString auxRoot = store.path(kAuxFiles);
    QHash<QString, QString> present;
    // Unsorted: with tens of thousands of accounts a sorted listing costs more than all
    // the rest of the start.
    QHash<QString, bool> isPlainFile;
    QDirIterator it(auxRoot, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        const QString name = it.fileName();
        present.insert(name.toLower(), name);
        isPlainFile.insert(name.toLower(), it.fileInfo().isFile());
    }

    const int auxFd =
        ::open(QFile::encodeName(auxRoot).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const auto closeAux = qScopeGuard([auxFd] {
        if (auxFd >= 0)
            ::close(auxFd);
    });
    const RecordLayout& layout = CustomerLayout();
    const QByteArray& data = *bytes;
    // Whole records only: a partial last record has no account number to trust.
    for (int n = 0; n < *count; ++n) {
        const qsizetype offset = qsizetype(n) * kCustomerRecordLength;
        if (offset + kCustomerRecordLength > data.size())
            break;
        const QString account =
            RecordView(layout, data.constData() + offset).text(CustomerField::AccountNo);
        // A blank account (a record blanked in place) has no folder of its own.
        if (account.isEmpty())
            continue;
        const QString component = Store::safeComponent(account);
        const QString key = component.toLower();
        QString folderName; // as spelt on disk
        if (auto it = present.constFind(key); it != present.constEnd()) {
            // A plain file of that name stands in the way; it is left as it is.
            if (isPlainFile.value(key))
                continue;
            folderName = *it;
        } else {
            folderName = component;
            if (Status s = makeFolder(store, auxRoot + u'/' + folderName); !s)
                return s;
            present.insert(key, component);
            isPlainFile.insert(key, false);
        }
        // The six sub-folders are looked up relative to the open AuxFiles folder: a short
        // path walk each, at every start, for every customer.
        QByteArray rel = QFile::encodeName(folderName) + "/AuxFile0";
        for (int i = 0; i < kAuxFolderCount; ++i) {
            rel.back() = char('0' + i);
            struct stat info;
            if (auxFd >= 0 && ::fstatat(auxFd, rel.constData(), &info, 0) == 0 &&
                S_ISDIR(info.st_mode))
                continue;
            const QString relative = kAuxFiles + u'/' + folderName + QStringLiteral("/AuxFile") +
                                     QString::number(i);
            if (Status s = store.EnsureFolder(relative); !s)
                return s;
        }
    }
    return {};
}

Status BuildExtraFolders(CoreContext& c)
{
    if (Status s = c.store.EnsureFolder(QStringLiteral("/Backup/") + ExecutableBaseName()); !s)
        return s;
    if (Status s = c.store.EnsureFolder(QStringLiteral("/Templates")); !s)
        return s;
    return c.store.EnsureFolder(QStringLiteral("/Templates/Contracts"));
}

Status InitStartupData(CoreContext& c)
{
    c.v.gToday = c.clock.today();
    BuildTimeLabels(c.v);
    return LoadBusiness(c);
}

QStringList RequiredFiles()
{
    return {QStringLiteral("/Assignto.txt"), QStringLiteral("/MyBusinessData.txt"),
            QStringLiteral("/ProblemCode.txt"), SettingsFileName()};
}

bool AllRequiredFilesExist(CoreContext& c)
{
    for (const QString& name : RequiredFiles())
        if (!c.store.FileExists(name))
            return false;
    return true;
}

Result<QString> WriteInternetShortcut(Store& store, const QString& url)
{
    const QString name = QStringLiteral("/Temp.url");
    const QByteArray bytes =
        WritePlainLines({QStringLiteral("[InternetShortcut]"), QStringLiteral("URL = ") + url});
    if (Status s = store.WriteFile(name, bytes); !s)
        return s;
    return store.path(name);
}
