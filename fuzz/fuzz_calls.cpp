// TelCall.txt, the calls kept while the office was away, as the call list reads it and as
// the monitor adds to it.
#include "fuzzfolder.h"

#include "core/telephony/calleridparser.h"
#include "core/telephony/storedcalls.h"

using namespace tresvane;
using namespace tresvane::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    const QByteArray bytes = in.all();
    f.put(StoredCalls::kFile, bytes);

    const QList<CallRecord> before = StoredCalls::ReadAll(f.store());
    require(before.size() == bytes.size() / kCallRecordLength, "a whole call passed over");
    for (const CallRecord& call : before)
        for (int field = 0; field < call.layout().fields().size(); ++field)
            call.display(field);

    // A call added after the calls on file is the last one read, and the others stay.
    const CallerIdReport report{QStringLiteral("FUZZ CALLER"), QStringLiteral("555-555-0100")};
    Result<qint32> count = StoredCalls::Append(f.store(), report, QStringLiteral("09:05 AM"));
    require(count.ok(), "a call cannot be added");
    const QList<CallRecord> after = StoredCalls::ReadAll(f.store());
    require(after.size() == before.size() + 1 && *count == after.size(),
            "a call added is not counted");
    require(after.mid(0, before.size()) == before, "a call on file changed when one was added");
    require(after.last().text(CallField::CallName) == report.name, "the added call is not last");
    require(StoredCalls::DeleteAll(f.store()).ok(), "the calls cannot be cleared");
    require(StoredCalls::ReadAll(f.store()).isEmpty(), "cleared calls are still there");
    return 0;
}
