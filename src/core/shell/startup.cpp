#include "startup.h"

#include "customers/customerrecords.h"
#include "shell/dialogs.h"
#include "store/clock.h"
#include "store/dispatchingvariables.h"
#include "store/settingsfiles.h"
#include "store/store.h"
#include "store/textfile.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

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
    const QFileInfoList entries =
        QDir(auxRoot).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    QHash<QString, bool> isPlainFile;
    for (const QFileInfo& e : entries) {
        present.insert(e.fileName().toLower(), e.fileName());
        isPlainFile.insert(e.fileName().toLower(), e.isFile());
    }

    const RecordLayout& layout = CustomerLayout();
    const QByteArray& data = *bytes;
    for (int n = 0; n < *count; ++n) {
        const qsizetype offset = qsizetype(n) * kCustomerRecordLength;
        if (offset >= data.size())
            break;
        const FixedRecord record(layout, QByteArrayView(data).sliced(offset, std::min<qsizetype>(kCustomerRecordLength, data.size() - offset)));
        const QString account = record.text(CustomerField::AccountNo);
        // A blank account (a record blanked in place) has no folder of its own.
        if (account.isEmpty())
            continue;
        const QString component = Store::safeComponent(account);
        const QString key = component.toLower();
        QString accountFolder;
        if (auto it = present.constFind(key); it != present.constEnd()) {
            // A plain file of that name stands in the way; it is left as it is.
            if (isPlainFile.value(key))
                continue;
            accountFolder = auxRoot + u'/' + *it;
        } else {
            accountFolder = auxRoot + u'/' + component;
            if (Status s = makeFolder(store, accountFolder); !s)
                return s;
            present.insert(key, component);
            isPlainFile.insert(key, false);
        }
        // The six sub-folders are looked up relative to the open account folder: one path
        // walk for the account instead of one for each sub-folder, at every start.
        const int dirFd = ::open(QFile::encodeName(accountFolder).constData(),
                                 O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int i = 0; i < kAuxFolderCount; ++i) {
            const QString sub = QStringLiteral("AuxFile") + QString::number(i);
            if (dirFd >= 0) {
                struct stat info;
                const char name[] = {'A', 'u', 'x', 'F', 'i', 'l', 'e', char('0' + i), '\0'};
                if (::fstatat(dirFd, name, &info, 0) == 0 && S_ISDIR(info.st_mode))
                    continue;
            }
            // Not under its own spelling: the store's case-blind lookup decides.
            const QString relative = kAuxFiles + u'/' + QFileInfo(accountFolder).fileName() +
                                     u'/' + sub;
            if (Status s = store.EnsureFolder(relative); !s) {
                if (dirFd >= 0)
                    ::close(dirFd);
                return s;
            }
        }
        if (dirFd >= 0)
            ::close(dirFd);
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
