// The three parallel customer files and the state list, through everything that reads
// them: the customer screen's record reads, the searches and lists, the caller look-up,
// the contract overlay, the aux folder repair at start and the delete of an account.
#include "fuzzfolder.h"

#include "core/customers/accountindex.h"
#include "core/customers/customerdelete.h"
#include "core/customers/customerediting.h"
#include "core/customers/customerfiles.h"
#include "core/customers/customerlist.h"
#include "core/customers/customersearch.h"
#include "core/schedule/contractoverlay.h"
#include "core/schedule/dayfiles.h"
#include "core/session/startup.h"
#include "core/telephony/storedcalls.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

const QString kFiles[] = {CustomerFileName(), ContractFileName(), CycleFileName(),
                          StatesFileName()};

// A good customer file of three accounts, for the inputs that stand for another file.
QByteArray threeCustomers()
{
    QByteArray bytes;
    for (int i = 1; i <= 3; ++i) {
        CustomerRecord r;
        r.setText(CustomerField::AccountNo, QStringLiteral("%1").arg(1000 + i));
        r.setText(CustomerField::Name, QStringLiteral("Customer %1").arg(i));
        r.setText(CustomerField::Phone, QStringLiteral("555-555-000%1").arg(i));
        r.setText(CustomerField::LastName, QStringLiteral("Last%1").arg(i));
        r.setText(CustomerField::AccountType, QStringLiteral("Individual"));
        bytes += r.bytes();
    }
    return bytes;
}

// The boxes as the screen holds them: each takes as many characters as its limit.
CustomerBoxes onScreen(const CustomerRecord& record)
{
    CustomerBoxes b = BoxesFromCustomer(record);
    const CustomerBoxWidths w = CustomerBoxLimits();
    for (int i = 0; i < int(b.txtCustomer.size()); ++i)
        if (w.txtCustomer[i] > 0) b.txtCustomer[i].truncate(w.txtCustomer[i]);
    b.cboCity.truncate(w.cboCity);
    b.cboStates.truncate(w.cboStates);
    b.txtAdd3.truncate(w.txtAdd3);
    b.txtAdd4.truncate(w.txtAdd4);
    b.cboTitle.truncate(w.cboTitle);
    return b;
}

// Shown on the screen and saved unchanged, an account stays what the first save made it.
void boxesRoundTrip(const CustomerRecord& record)
{
    for (const bool usaStyle : {true, false}) {
        CustomerRecord saved = record;
        CopyBoxesToCustomer(onScreen(record), usaStyle, saved);
        CustomerRecord again = saved;
        CopyBoxesToCustomer(onScreen(saved), usaStyle, again);
        require(again == saved, "an account changes at a second save without an edit");
    }
}

void reads(Folder& f, qint32 count)
{
    CoreContext& c = f.context();
    for (const qint32 recordNo : {qint32(0), qint32(1), count, count + 1}) {
        requireNamed(ReadCustomer(c, recordNo), CustomerFileName());
        requireNamed(ReadContract(c, recordNo), ContractFileName());
        requireNamed(ReadCycle(c, recordNo), CycleFileName());
        boxesRoundTrip(c.v.gCustomer);
        CurrentCustomerName(c.v.gCustomer, c.v.gCustomer.text(CustomerField::AccountType));
    }
}

void searches(Store& store, qint32 count)
{
    const QString name = CustomerFileName();
    Result<QList<CustomerRecord>> all = ReadAllCustomers(store);
    requireNamed(all, name);
    const QString text = all && !all->isEmpty()
                             ? NormalizeSearchText(all->first().text(CustomerField::Name).left(3))
                             : QString();
    for (int kind = 0; kind <= CustomerSearch::CompleteList; ++kind) {
        Result<CustomerHits> hits = SearchCustomers(store, kind, text, count);
        if (!hits) {
            require(!hits.message().isEmpty(), "a search refused without a word");
            continue;
        }
        for (qsizetype row = 0; row < hits->size(); ++row) {
            require(hits->record(row) >= 1 && hits->record(row) <= count, "a hit outside the file");
            for (int column = 0; column <= CustomerHits::Rec; ++column)
                hits->text(row, column);
        }
    }
    Result<AccountListData> list = ReadAccountList(store);
    requireNamed(list, name);
    if (list) {
        const AccountIndex index(list->accounts);
        require(index.size() == list->accounts.size(), "an account lost from the name list");
        for (const AccountListEntry& e : list->accounts.mid(0, 4)) {
            require(index.FindEqual(e.text) >= 0, "an account not found in its own list");
            index.Completion(e.text.left(2));
        }
    }
    if (all && !all->isEmpty())
        requireNamed(AccountNoExists(store, all->first().text(CustomerField::AccountNo), 1, count),
                     name);
    Result<QByteArray> bytes = store.ReadAll(name);
    if (bytes) {
        CallerDirectory directory;
        directory.load(*bytes);
        if (all && !all->isEmpty())
            for (qint32 account : directory.accounts(all->first().text(CustomerField::Phone)))
                require(account >= 1 && account <= directory.customerCount(),
                        "a caller outside the file");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    f.addTeams(2);
    CoreContext& c = f.context();
    Store& store = f.store();
    const QString name = kFiles[in.choice(std::size(kFiles))];
    if (name != CustomerFileName()) f.put(CustomerFileName(), threeCustomers());
    f.put(name, in.rest());

    if (name == StatesFileName()) {
        requireNamed(ReadStatesList(store), name);
        return 0;
    }
    Result<qint32> count = store.RecordCount32(CustomerFileName(), kCustomerRecordLength);
    requireNamed(count, CustomerFileName());
    if (!count) return 0;

    reads(f, *count);
    searches(store, *count);

    GridColumn grid;
    grid.fill(NoEventScheduled());
    Result<ContractOverlay> overlay =
        OverlayContractEvents(c, grid, f.clock().today(), c.v.gAssignTo.value(1));
    requireNamed(overlay, ContractFileName());

    // The start's repair makes a folder for every account, whatever its number holds.
    AuxFolderRepair repair(store);
    if (Status s = repair.prepare(); s) {
        require(repair.run(-1).ok(), "the aux folders could not be made");
    } else {
        requireNamed(s, CustomerFileName());
    }
    f.requireNothingOutside();

    if (*count >= 1) {
        Result<CustomerPosition> after = DeleteCustomer(store, CustomerPosition{1, *count});
        if (after) {
            Result<qint32> left = store.RecordCount32(CustomerFileName(), kCustomerRecordLength);
            require(left.ok() && *left == *count - 1, "a delete did not take one account away");
        }
    }
    f.requireNothingOutside();
    return 0;
}
