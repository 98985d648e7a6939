// The checker of a data folder and the exit backup that shares its rules: whatever a file
// holds, the checker names what is wrong, and a file it calls damaged never replaces the
// copy in Backup.
#include "fuzzfolder.h"

#include "core/housekeeping/backup.h"
#include "core/housekeeping/datafilecheck.h"
#include "foldercheck.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

// The files of the inventory, which the exit backup copies, then some it leaves alone.
constexpr int kInventory = 28;

QStringList names()
{
    QStringList out;
    for (QString entry : DataFileInventory(QStringLiteral("TresvaneDispatcher")))
        out << (entry.startsWith(u'/') ? entry : u'/' + entry) + QStringLiteral(".txt");
    require(out.size() == kInventory, "the inventory changed: the seeds' choices follow it");
    out << QStringLiteral("/CycleInfo.txt") << QStringLiteral("/Phone.txt")
        << QStringLiteral("/CallID.txt") << QStringLiteral("/StatesList.txt")
        << QStringLiteral("/ProjectRecords.txt");
    return out;
}

const QByteArray kEarlierCopy = QByteArrayLiteral("the copy of an earlier exit\r\n");

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QStringList kNames = names();
    const Input in(data, size);
    Folder& f = Folder::fresh();
    Store& store = f.store();
    const int choice = in.choice(kNames.size());
    const QString name = kNames[choice];
    const QString backup = QStringLiteral("/Backup") + name;
    f.put(name, in.rest());
    f.put(backup, kEarlierCopy);

    const Status checked = CheckDataFile(store, name);
    requireNamed(checked, name);

    // The checker and the exit backup judge a file alike.
    QByteArray json;
    const FolderCheck folder = CheckFolder(f.root(), &json, f.clock().today());
    const QString base = name.mid(1);
    for (const QString& problem : folder.problems) {
        require(!problem.trimmed().isEmpty(), "a problem without a word");
        if (checked && problem.contains(base, Qt::CaseInsensitive))
            fail(QStringLiteral("the checker calls %1 damaged, the exit backup takes it: %2")
                     .arg(base, problem));
    }
    folder.summary();

    require(SetBackupPaths(f.context()).ok(), "the exit backup failed");
    const QByteArray copy = store.ReadAll(backup).valueOr({});
    if (choice >= kInventory)
        require(copy == kEarlierCopy, "a file outside the inventory replaced a copy in Backup");
    else if (checked)
        require(copy == in.rest(), "a good file was not copied to Backup");
    else
        require(copy == kEarlierCopy, "a damaged file replaced its copy in Backup");
    f.requireNothingOutside();
    return 0;
}
