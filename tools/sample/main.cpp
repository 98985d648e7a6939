// dispatcher-sample FOLDER [--teams N] [--customers N] [--slips N] [--meetings N]
//                          [--stored N] [--contracts N] [--seed N] [--start yyyy-mm-dd]
// Writes a sample installation into FOLDER, the same for the same seed.
#include "sampleinstallation.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream err(stderr);
    QTextStream out(stdout);
    const QStringList args = app.arguments().mid(1);
    SampleOptions o;
    QString folder;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        auto number = [&](int& target) {
            bool ok = false;
            if (i + 1 < args.size()) target = args[++i].toInt(&ok);
            if (!ok) {
                err << "dispatcher-sample: " << a << " takes a number\n";
                std::exit(2);
            }
        };
        if (a == "--teams")
            number(o.teams);
        else if (a == "--customers")
            number(o.customers);
        else if (a == "--slips")
            number(o.slips);
        else if (a == "--meetings")
            number(o.meetings);
        else if (a == "--stored")
            number(o.storedSlips);
        else if (a == "--contracts")
            number(o.contracts);
        else if (a == "--days")
            number(o.days);
        else if (a == "--seed") {
            int seed = 1;
            number(seed);
            o.seed = quint32(seed);
        } else if (a == "--start" && i + 1 < args.size())
            o.start = QDate::fromString(args[++i], Qt::ISODate);
        else if (a.startsWith(u'-')) {
            err << "dispatcher-sample: unknown option " << a << "\n";
            return 2;
        } else
            folder = a;
    }
    if (folder.isEmpty()) {
        err << "usage: dispatcher-sample FOLDER [--teams N] [--customers N] [--slips N] "
               "[--meetings N] [--stored N] [--contracts N] [--seed N] [--start yyyy-mm-dd]\n";
        return 2;
    }
    Result<SampleSummary> r = WriteSampleInstallation(folder, o);
    if (!r) {
        err << "dispatcher-sample: " << r.message() << "\n";
        return 1;
    }
    out << "Wrote " << o.customers << " customers, " << o.slips << " slips, " << o.meetings
        << " meetings and " << r->dayFiles << " day files for " << o.teams << " teams into "
        << folder << "\n";
    return 0;
}
