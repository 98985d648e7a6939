// dispatcher-check FOLDER [--json]
// Reads every data file of an installation and prints a summary, or with --json every
// record as JSON. Names each damaged file (exit status 1 when any is) and each booking the
// files disagree on (exit status 3 when there are only such warnings). Never writes.
#include "foldercheck.h"

#include <QCoreApplication>
#include <cstdio>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QString folder;
    bool json = false;
    for (const QString& a : app.arguments().mid(1)) {
        if (a == u"--json")
            json = true;
        else if (a.startsWith(u'-')) {
            std::fprintf(stderr, "usage: dispatcher-check FOLDER [--json]\n");
            return 2;
        } else
            folder = a;
    }
    if (folder.isEmpty()) {
        std::fprintf(stderr, "usage: dispatcher-check FOLDER [--json]\n");
        return 2;
    }
    QByteArray out;
    const FolderCheck check = CheckFolder(folder, json ? &out : nullptr);
    if (json) {
        std::fwrite(out.constData(), 1, out.size(), stdout);
        std::fputc('\n', stdout);
    } else {
        std::fputs(qPrintable(check.summary()), stdout);
    }
    for (const QString& p : check.problems)
        std::fprintf(stderr, "damaged: %s\n", qPrintable(p));
    for (const QString& w : check.warnings)
        std::fprintf(stderr, "warning: %s\n", qPrintable(w));
    if (!check.ok()) return 1;
    return check.warnings.isEmpty() ? 0 : 3;
}
