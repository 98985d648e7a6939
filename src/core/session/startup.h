#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QHash>
#include <QStringList>

namespace tresvane
{
// The start of the program as far as it concerns the data folder: the folder tree, the
// repair of the customers' aux folders, and the gate of the four required files.

// The program folder can be worked in: it is a folder, and no plain file stands where
// the program's own folder belongs (older installations kept the executable itself among
// the data under that name). The failure tells the user what to do.
Status CheckProgramFolder(const Store& store);

// The current year's folder, the program's own folder, TVActiveAccounts, Backup and its two
// shared folders, Templates and AuxFiles; then the extra folders. The customers' aux
// folders are not made here: a large installation would wait a minute for them before
// the first window. AuxFolderRepair makes them behind the menu.
Status BuildFolders(CoreContext& c);

// Makes good AuxFiles/<account> and its AuxFile0 to AuxFile5 for every customer of
// CustomerData.txt, in slices, so that the program stays answering meanwhile. Folders
// that stand are left alone; the listing of AuxFiles is read once.
class AuxFolderRepair
{
public:
    explicit AuxFolderRepair(Store& store);
    ~AuxFolderRepair();
    AuxFolderRepair(const AuxFolderRepair&) = delete;
    AuxFolderRepair& operator=(const AuxFolderRepair&) = delete;

    // Reads the customer file and the listing of AuxFiles; a damaged file is reported.
    Status prepare();
    // Works through the accounts for about budgetMs (all of them when negative); true
    // when every account has its folders.
    Result<bool> run(qint64 budgetMs);

private:
    Status repair(const QString& account);

    Store& m_store;
    QByteArray m_data;
    QString m_auxRoot;
    QHash<QString, QString> m_present;
    QHash<QString, bool> m_isPlainFile;
    int m_auxFd = -1;
    int m_next = 0;
    int m_count = 0;
};
// The whole repair at once.
Status BuildAuxFolders(CoreContext& c);
// Backup/<executable base name> and Templates/Contracts, with the contract template laid
// into it when none is there.
Status BuildExtraFolders(CoreContext& c);

// Today's date and the hour labels, then the business data.
Status InitStartupData(CoreContext& c);

// The files without which the main menu cannot be reached, in the order they are tested.
QStringList RequiredFiles(const Store& store);
// Each is tested with FileExists, so a file lost from the folder comes back from Backup.
bool AllRequiredFilesExist(CoreContext& c);

// Writes Temp.url, the internet shortcut a browser is started on, and returns its path.
Result<QString> WriteInternetShortcut(Store& store, const QString& url);
} // namespace tresvane
