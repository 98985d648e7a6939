#include "core/session/startup.h"

#include "core/customers/auxdata.h"
#include "core/documents/contract.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHash>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tresvane
{
namespace
{

const QString kCustomerData = QStringLiteral("/CustomerData.txt");
const QString kAuxFiles = QStringLiteral("/AuxFiles");

bool isDirectory(const QString& path)
{
    struct stat info;
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Makes a folder below the program folder that is known not to exist yet.
Status makeFolder(Store& store, const QString& absolute)
{
    if (QDir().mkdir(absolute) || isDirectory(absolute)) return {};
    return Status::failure(QStringLiteral("Could not make the folder %1 in %2")
                               .arg(QDir(store.root()).relativeFilePath(absolute), store.root()));
}

} // namespace

Status CheckProgramFolder(const Store& store)
{
    const QString root = store.root();
    if (!isDirectory(root))
        return Status::failure(
            QStringLiteral("The program folder %1 does not exist or is not a folder.\n"
                           "Start the program with the folder of your installation.")
                .arg(QDir::toNativeSeparators(root)));
    const QString own = u'/' + store.baseName();
    if (store.IsFile(own))
        return Status::failure(
            QStringLiteral("The program folder %1 holds a file named %2 where the program "
                           "keeps a folder of that name.\n"
                           "It is a copy of the program left by an older installation. "
                           "Delete or move that file, then start the program again; "
                           "none of your data is in it.")
                .arg(QDir::toNativeSeparators(root), store.baseName()));
    return {};
}

Status BuildFolders(CoreContext& c)
{
    const QString base = c.store.baseName();
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
        if (Status s = c.store.EnsureFolder(folder); !s) return s;
    return BuildExtraFolders(c);
}

AuxFolderRepair::AuxFolderRepair(Store& store) : m_store(store) {}

AuxFolderRepair::~AuxFolderRepair()
{
    if (m_auxFd >= 0) ::close(m_auxFd);
}

Status AuxFolderRepair::prepare()
{
    Store& store = m_store;
    m_next = 0;
    m_count = 0;
    if (!store.FileExists(kCustomerData)) return {};
    Result<qint16> count = store.RecordCount(kCustomerData, kCustomerRecordLength);
    if (!count) return count.status();
    if (*count < 1) return {};
    Result<QByteArray> bytes = store.ReadAll(kCustomerData);
    if (!bytes) return bytes.status();
    if (Status s = store.EnsureFolder(kAuxFiles); !s) return s;
    m_data = *bytes;
    m_count = *count;

    // One listing of AuxFiles, by the lower-case name, stands in for a case-blind lookup
    // of each account. Unsorted: with tens of thousands of accounts a sorted listing costs
    // more than all the rest.
    m_auxRoot = store.path(kAuxFiles);
    m_present.clear();
    m_isPlainFile.clear();
    // Room for every account up front: growing a table of tens of thousands of names in
    // the middle of a slice would hold the user for that long.
    m_present.reserve(m_count + 64);
    m_isPlainFile.reserve(m_count + 64);
    QDirIterator it(m_auxRoot, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        const QString name = it.fileName();
        m_present.insert(name.toLower(), name);
        m_isPlainFile.insert(name.toLower(), it.fileInfo().isFile());
    }
    if (m_auxFd >= 0) ::close(m_auxFd);
    m_auxFd = ::open(QFile::encodeName(m_auxRoot).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return {};
}

Result<bool> AuxFolderRepair::run(qint64 budgetMs)
{
    QElapsedTimer clock;
    clock.start();
    const RecordLayout& layout = CustomerLayout();
    // Whole records only: a partial last record has no account number to trust.
    bool first = true;
    while (m_next < m_count) {
        // Every slice makes headway, however small its budget.
        if (!first && budgetMs >= 0 && clock.elapsed() >= budgetMs) return false;
        first = false;
        const qsizetype offset = qsizetype(m_next++) * kCustomerRecordLength;
        if (offset + kCustomerRecordLength > m_data.size()) {
            m_next = m_count;
            break;
        }
        const QString account =
            RecordView(layout, m_data.constData() + offset).text(CustomerField::AccountNo);
        if (Status s = repair(account); !s) return s;
    }
    m_data.clear();
    return true;
}

Status AuxFolderRepair::repair(const QString& account)
{
    // A blank account (a record blanked in place) has no folder of its own.
    if (account.isEmpty()) return {};
    const QString component = AuxAccountFolder(account);
    const QString key = component.toLower();
    QString folderName; // as spelt on disk
    if (auto it = m_present.constFind(key); it != m_present.constEnd()) {
        // A plain file of that name stands in the way; it is left as it is.
        if (m_isPlainFile.value(key)) return {};
        folderName = *it;
    } else {
        folderName = component;
        if (Status s = makeFolder(m_store, m_auxRoot + u'/' + folderName); !s) return s;
        m_present.insert(key, component);
        m_isPlainFile.insert(key, false);
    }
    // The six sub-folders are looked up relative to the open AuxFiles folder: a short
    // path walk each, for every customer.
    QByteArray rel = QFile::encodeName(folderName) + "/AuxFile0";
    for (int i = 0; i < kAuxFolderCount; ++i) {
        rel.back() = char('0' + i);
        struct stat info;
        if (m_auxFd >= 0 && ::fstatat(m_auxFd, rel.constData(), &info, 0) == 0 &&
            S_ISDIR(info.st_mode))
            continue;
        const QString relative =
            kAuxFiles + u'/' + folderName + QStringLiteral("/AuxFile") + QString::number(i);
        if (Status s = m_store.EnsureFolder(relative); !s) return s;
    }
    return {};
}

Status BuildAuxFolders(CoreContext& c)
{
    AuxFolderRepair repair(c.store);
    if (Status s = repair.prepare(); !s) return s;
    return repair.run(-1).status();
}

Status BuildExtraFolders(CoreContext& c)
{
    if (Status s = c.store.EnsureFolder(QStringLiteral("/Backup/") + c.store.baseName()); !s)
        return s;
    if (Status s = c.store.EnsureFolder(QStringLiteral("/Templates")); !s) return s;
    if (Status s = c.store.EnsureFolder(ContractsFolder()); !s) return s;
    // A folder without a contract template gets the program's own; the user's is kept.
    return InstallGenericContract(c.store);
}

Status InitStartupData(CoreContext& c)
{
    BuildTimeLabels(c.v);
    return LoadBusiness(c);
}

QStringList RequiredFiles(const Store& store)
{
    return {QStringLiteral("/Assignto.txt"), QStringLiteral("/MyBusinessData.txt"),
            QStringLiteral("/ProblemCode.txt"), SettingsFileName(store)};
}

bool AllRequiredFilesExist(CoreContext& c)
{
    for (const QString& name : RequiredFiles(c.store))
        if (!c.store.FileExists(name)) return false;
    return true;
}

Result<QString> WriteInternetShortcut(Store& store, const QString& url)
{
    const QString name = QStringLiteral("/Temp.url");
    const QByteArray bytes =
        WritePlainLines({QStringLiteral("[InternetShortcut]"), QStringLiteral("URL = ") + url});
    if (Status s = store.WriteFile(name, bytes); !s) return s;
    return store.path(name);
}
} // namespace tresvane
