// The record of a change that spans files, as a crash leaves it and the next start finishes
// it: whatever the record holds, the recovery touches nothing outside the program folder,
// and a start after it finds no change left in progress.
#include "fuzzfolder.h"

#include <QDir>

using namespace tresvane;
using namespace tresvane::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    Store& store = f.store();
    const QString folder = Store::ChangeFolder();
    f.put(QStringLiteral("/Slips.txt"), QByteArrayLiteral("the old slips"));
    f.put(QStringLiteral("/Counter.txt"), QByteArrayLiteral("\"120\",3\r\n"));
    f.put(QStringLiteral("/2026/Team#1/120.txt"), QByteArrayLiteral("\"No Event Scheduled\"\r\n"));
    f.put(QStringLiteral("/Slips.txt.Ab12Cd"), QByteArrayLiteral("a save cut short"));
    // The new versions a change had written when it stopped.
    for (int n = 1; n <= 3; ++n)
        f.put(folder + QStringLiteral("/%1.new").arg(n), QByteArray(n * 7, char('a' + n)));
    // The record itself, however much of it reached the disk.
    if (in.choice(2) == 0)
        f.put(folder + QStringLiteral("/Intent.txt"), in.rest());
    else
        f.put(folder + QStringLiteral("/Intent.txt"), in.rest() + "END\n");

    const Status recovered = store.RecoverInterruptedChange();
    require(recovered.ok() || !recovered.message().trimmed().isEmpty(),
            "a recovery failed without a word");
    f.requireNothingOutside();
    if (recovered) {
        require(!store.IsFolder(folder), "a change is left in progress after the recovery");
        // A save's temporary beside its file is the program's own; without the file it may
        // be a user's.
        if (store.IsFile(QStringLiteral("/Slips.txt")))
            require(!store.IsFile(QStringLiteral("/Slips.txt.Ab12Cd")),
                    "a save's temporary is left");
        require(store.RecoverInterruptedChange().ok(),
                "a second start fails where the first did not");
    }
    return 0;
}
