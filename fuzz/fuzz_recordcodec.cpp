// The fixed-record codec over every record layout the program knows.
#include "fuzzfolder.h"

#include "core/io/callrecord.h"
#include "core/io/customerrecords.h"
#include "core/io/historyrecords.h"
#include "core/io/itemrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"

#include <cmath>

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

using LayoutFn = const RecordLayout& (*)();
const LayoutFn kLayouts[] = {
    &CustomerLayout, &ContractLayout,        &CycleLayout,      &SlipLayout,
    &CallLayout,     &ServiceHistoryLayout,  &LedgerLayout,     &InvoiceItemLayout,
    &ServiceLayout,  &InventoriedItemLayout, &CustomItemLayout,
};

void dates(const FixedRecord& record, int field)
{
    const double days = record.real(field);
    const QDateTime when = FromOleDate(days);
    if (!when.isValid()) return;
    require(std::isfinite(days), "a date from a value that is no number");
    // From the epoch on, a date and its time of day go back to the value they came from,
    // to the millisecond.
    if (days >= 0)
        require(std::fabs(ToOleDate(when) - days) < 1e-7, "a stored date moves when written");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    const RecordLayout& layout = kLayouts[in.choice(std::size(kLayouts))]();
    const QByteArray bytes = in.rest();
    const QList<FixedRecord> records = SplitRecords(layout, bytes);
    const QByteArray joined = JoinRecords(records);
    require(joined.size() == records.size() * layout.length(), "records of the wrong length");
    const qsizetype whole = bytes.size() / layout.length() * layout.length();
    require(joined.left(whole) == bytes.left(whole), "a record's bytes change through a read");

    qsizetype visited = 0;
    ForEachRecord(layout, bytes, [&](qsizetype recordNo, const RecordView& view) {
        ++visited;
        const FixedRecord& record = records[recordNo - 1];
        for (int field = 0; field < layout.fields().size(); ++field) {
            const QString shown = view.display(field);
            require(shown == record.display(field), "a view and a record disagree");
            switch (layout.field(field).kind) {
            case FieldKind::Text: {
                // A text stored again as read keeps its bytes, blanks aside.
                FixedRecord copy = record;
                copy.setText(field, record.text(field));
                require(copy.text(field) == record.text(field), "a text changes when stored");
                require(view.trimmedBytes(field).size() <= layout.field(field).width,
                        "a text longer than its field");
                break;
            }
            case FieldKind::Date:
            case FieldKind::Double:
                dates(record, field);
                break;
            default:
                break;
            }
        }
    });
    require(visited == bytes.size() / layout.length(), "a whole record was passed over");
    return 0;
}
