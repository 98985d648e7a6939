#include "core/housekeeping/datafilecheck.h"

#include "core/customers/auxdata.h"
#include "core/customers/customerfiles.h"
#include "core/io/callrecord.h"
#include "core/io/customerrecords.h"
#include "core/io/historyrecords.h"
#include "core/io/itemrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/schedule/numbering.h"
#include "core/setup/printsettings.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "core/telephony/speednumbers.h"

#include <QFile>
#include <functional>

namespace tresvane
{
namespace
{

struct RecordFile {
    const char* name;
    const RecordLayout& (*layout)();
};

const RecordFile kRecordFiles[] = {
    {"customerdata.txt", &CustomerLayout},
    {"contractinfo.txt", &ContractLayout},
    {"cycleinfo.txt", &CycleLayout},
    {"slips.txt", &SlipLayout},
    {"meetings.txt", &SlipLayout},
    {"unscheduledslips.txt", &SlipLayout},
    {"completedslips.txt", &SlipLayout},
    {"projectrecords.txt", &SlipLayout},
    {"telcall.txt", &CallLayout},
    {"servicehistory.txt", &ServiceHistoryLayout},
    {"cahistory.txt", &LedgerLayout},
    {"invoiceitems.txt", &InvoiceItemLayout},
    {"services.txt", &ServiceLayout},
    {"currentservices.txt", &ServiceLayout},
    {"tvinventorieditems.txt", &InventoriedItemLayout},
    {"currentitems.txt", &InventoriedItemLayout},
    {"customitems.txt", &CustomItemLayout},
};

// The last component of a program-relative name, in lower case.
QString fileKey(const QString& name)
{
    QString n = name;
    n.replace(u'\\', u'/');
    return n.mid(n.lastIndexOf(u'/') + 1).toLower();
}

Status counterFile(Store& store, const QString& name, bool day)
{
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    TextReader r(*bytes, store.describe(name));
    if (day) {
        Result<QString> date = r.readString();
        if (!date) return date.status();
        return r.readInt16().status();
    }
    return r.readInt32().status();
}

} // namespace

int DataFileRecordLength(const QString& name)
{
    const QString key = fileKey(name);
    for (const RecordFile& rf : kRecordFiles)
        if (key == QLatin1StringView(rf.name)) return rf.layout().length();
    return 0;
}

Status CheckDataFile(const Store& folder, const QString& path)
{
    // A store of its own, on the file's folder, that refuses every change: the loaders
    // read their files at the top of the folder, and none may repair or rewrite what it is
    // asked to judge.
    QString inner = path;
    inner.replace(u'\\', u'/');
    const qsizetype slash = inner.lastIndexOf(u'/');
    const QString dir = slash > 0 ? inner.left(slash) : QString();
    const QString name = u'/' + inner.mid(slash + 1);
    Store store(dir.isEmpty() ? folder.root() : folder.path(dir), Store::Access::ReadOnly);
    store.setBaseName(folder.baseName());
    const QString shown = fileKey(name);
    if (store.IsFolder(name))
        return Status::failure(
            QStringLiteral("%1: a folder stands where the file belongs").arg(store.describe(name)));
    if (!store.IsFile(name)) return {};

    if (const int length = DataFileRecordLength(name)) {
        if (QFile file(store.path(name)); !file.open(QIODevice::ReadOnly))
            return Status::failure(QStringLiteral("%1: cannot be read").arg(store.describe(name)));
        const qint64 size = store.FileSize(name);
        if (size % length != 0)
            return Status::failure(
                QStringLiteral("%1: %2 bytes is not a whole number of %3-byte records")
                    .arg(store.describe(name))
                    .arg(size)
                    .arg(length));
        return {};
    }

    SystemClock clock;
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    const std::pair<QString, std::function<Status()>> loaders[] = {
        {fileKey(SettingsFileName(store)), [&] { return LoadSettings(c); }},
        {QStringLiteral("assignto.txt"), [&] { return LoadAssignments(c); }},
        {QStringLiteral("problemcode.txt"), [&] { return LoadProblems(c); }},
        {QStringLiteral("mybusinessdata.txt"), [&] { return LoadBusiness(c); }},
        {QStringLiteral("phone.txt"), [&] { return LoadPhoneSettings(c, 0); }},
        {QStringLiteral("callid.txt"), [&] { return LoadCallID(c); }},
        {QStringLiteral("printcolors.txt"), [&] { return ReadPrintColors(store).status(); }},
        {QStringLiteral("companylogo.txt"), [&] { return ReadCompanyLogo(store).status(); }},
        {QStringLiteral("logosettings.txt"), [&] { return ReadLogoSize(store).status(); }},
        {QStringLiteral("speednumbers.txt"), [&] { return ReadSpeedNumbers(store).status(); }},
        {QStringLiteral("auxheadings.txt"), [&] { return ReadAuxHeadings(store).status(); }},
        {QStringLiteral("stateslist.txt"), [&] { return ReadStatesList(store).status(); }},
        {QStringLiteral("slipno.txt"), [&] { return LoadSlipNo(c); }},
        {QStringLiteral("counter.txt"), [&] { return counterFile(store, name, true); }},
        {QStringLiteral("purgeddate.txt"), [&] { return counterFile(store, name, false); }},
    };
    for (const auto& [key, load] : loaders)
        if (key == shown) return load();
    return store.ReadAll(name).status();
}
} // namespace tresvane
