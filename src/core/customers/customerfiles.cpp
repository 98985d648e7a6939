#include "core/customers/customerfiles.h"

#include "core/io/recordfile.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"

#include <array>

namespace tresvane
{
namespace
{

// Reads record recordNo of a file into a buffer of its type. A missing file reads as a
// record of zero bytes and is not created.
template <typename R> Status readInto(Store& store, const QString& name, qint32 recordNo, R& buffer)
{
    Result<QByteArray> bytes = store.ReadRecordAt(name, buffer.layout().length(), recordNo);
    if (!bytes) return bytes.status();
    buffer = R(*bytes);
    return {};
}

Status writeFrom(Store& store, const QString& name, qint32 recordNo, const FixedRecord& buffer)
{
    return store.WriteRecordAt(name, buffer.layout().length(), recordNo, buffer.bytes());
}

QString missingCustomerFile(const char* which)
{
    return QStringLiteral("Your Customer Information File is missing\nThe %1 File can not be "
                          "rebuilt")
        .arg(QString::fromLatin1(which));
}

const QString kNoCustomerFile = QStringLiteral("No Customer File Found");

} // namespace

QString CustomerFileName()
{
    return QStringLiteral("/CustomerData.txt");
}
QString ContractFileName()
{
    return QStringLiteral("/ContractInfo.txt");
}
QString CycleFileName()
{
    return QStringLiteral("/CycleInfo.txt");
}
QString StatesFileName()
{
    return QStringLiteral("/StatesList.txt");
}

Status ReadCustomer(CoreContext& c, qint32 recordNo)
{
    return readInto(c.store, CustomerFileName(), recordNo, c.v.gCustomer);
}

Status WriteCustomer(CoreContext& c, qint32 recordNo)
{
    return writeFrom(c.store, CustomerFileName(), recordNo, c.v.gCustomer);
}

Status ReadContract(CoreContext& c, qint32 recordNo)
{
    return readInto(c.store, ContractFileName(), recordNo, c.v.gContract);
}

Status WriteContract(CoreContext& c, qint32 recordNo)
{
    return writeFrom(c.store, ContractFileName(), recordNo, c.v.gContract);
}

Status ReadCycle(CoreContext& c, qint32 recordNo)
{
    return readInto(c.store, CycleFileName(), recordNo, c.v.gCycle);
}

Status WriteCycle(CoreContext& c, qint32 recordNo)
{
    return writeFrom(c.store, CycleFileName(), recordNo, c.v.gCycle);
}

Result<QList<CustomerRecord>> ReadAllCustomers(Store& store)
{
    return ReadRecordFile<CustomerRecord>(store, CustomerFileName());
}

QString WeekdayName(const QDate& date)
{
    // The names are the system's own words, whatever the desktop's language.
    static const std::array<const char*, 7> names = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                     "Friday", "Saturday", "Sunday"};
    const int day = date.dayOfWeek(); // 1 Monday .. 7 Sunday
    if (day < 1 || day > 7) return {};
    return QString::fromLatin1(names[day - 1]);
}

void ResetContractDefaults(CoreContext& c)
{
    using namespace ContractField;
    const QDateTime now = c.clock.now();
    const double stamp = ToOleDate(now);
    const QString none = QStringLiteral("None");
    const QString noneSelected = QStringLiteral("None Selected");

    ContractRecord& k = c.v.gContract;
    k.setText(ContractService, noneSelected);
    k.setText(ContractPlan, none);
    k.setCurrency(ContractPrice, 0);
    k.setText(ContractWeekday, WeekdayName(now.date()));
    k.setText(ContractTeam, noneSelected);
    k.setReal(ContractNextDate, stamp);
    k.setReal(ContractLastDate, stamp);
    k.setInt16(ContractNumber1, 0);
    k.setInt16(ContractFlag, -1);
    k.setInt16(ContractNumber2, 0);
    k.setText(ContractTime, none);
    for (int field : {ContractText1, ContractCustomer, ContractText3, ContractText4, ContractText5,
                      ContractText6, ContractText7, ContractText8, ContractNote})
        k.setText(field, QString());
    k.setInt16(ContractNumber3, 0);

    using namespace CycleField;
    CycleRecord& y = c.v.gCycle;
    y.setText(CycleService, noneSelected);
    y.setCurrency(CycleAmount, 0);
    y.setInt16(CycleNumber1, 0);
    y.setText(CycleText, QString());
    y.setInt16(CycleNumber2, 0);
    y.setInt16(CycleFlag, -1);
}

Status BuildContractInfo(CoreContext& c, qint32 last)
{
    if (!c.store.FileExists(CustomerFileName())) {
        c.dialogs.message(missingCustomerFile("Contract"), kNoCustomerFile);
        return {};
    }
    if (Status s = c.store.KillWithBackup(ContractFileName()); !s) return s;
    Result<qint16> count = c.store.RecordCount(CustomerFileName(), kCustomerRecordLength);
    if (!count) return count.status();
    const qint64 n = *count;
    const qint64 first = std::max<qint64>(last, 1);

    // The file as the single writes leave it: a hole of zero bytes below `first`, the
    // buffer from `first` to n. No record is written when `first` is past n, and the
    // file is then empty.
    QByteArray bytes;
    if (first <= n) {
        bytes = QByteArray((first - 1) * kContractRecordLength, '\0');
        bytes.reserve(n * kContractRecordLength);
        for (qint64 i = first; i <= n; ++i)
            bytes += c.v.gContract.bytes();
    }
    return c.store.WriteFile(ContractFileName(), bytes);
}

Status BuildCycleInfo(CoreContext& c, qint32 lastRec)
{
    if (!c.store.FileExists(CustomerFileName())) {
        c.dialogs.message(missingCustomerFile("Cycle"), kNoCustomerFile);
        return {};
    }
    if (lastRec > 32767)
        return Status::failure(
            QStringLiteral("%1 can not be built for %2 accounts; the most this program can use "
                           "is 32,767.")
                .arg(c.store.describe(CycleFileName()))
                .arg(lastRec));
    if (Status s = c.store.KillWithBackup(CycleFileName()); !s) return s;
    c.dialogs.message(QStringLiteral("Your Billing Information File will be Built with Default "
                                     "Values"),
                      QStringLiteral("Building Billing Info"));
    QByteArray bytes;
    bytes.reserve(std::max<qint64>(lastRec, 0) * kCycleRecordLength);
    for (qint32 i = 1; i <= lastRec; ++i)
        bytes += c.v.gCycle.bytes();
    return c.store.WriteFile(CycleFileName(), bytes);
}

Result<QStringList> ReadStatesList(Store& store)
{
    constexpr int kStates = 50;
    const QString name = StatesFileName();
    if (!store.FileExists(name)) return QStringList();
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    TextReader reader(*bytes, store.describe(name));
    QStringList states;
    states.reserve(kStates);
    // Exactly fifty: whatever follows the fiftieth is not read.
    for (int i = 0; i < kStates; ++i) {
        Result<QString> state = reader.readString();
        if (!state) return state.status();
        states << *state;
    }
    return states;
}

Status CheckParallelFiles(CoreContext& c, qint32 gLastrec)
{
    if (!c.store.FileExists(ContractFileName())) {
        const CycleRecord cycle = c.v.gCycle;
        ResetContractDefaults(c);
        c.v.gCycle = cycle;
        if (Status s = BuildContractInfo(c, gLastrec); !s) return s;
    }
    if (!c.store.FileExists(CycleFileName())) {
        const ContractRecord contract = c.v.gContract;
        ResetContractDefaults(c);
        c.v.gContract = contract;
        if (Status s = BuildCycleInfo(c, gLastrec); !s) return s;
    }
    return {};
}
} // namespace tresvane
