#include "core/io/historyrecords.h"

#include "core/io/recordfile.h"

namespace tresvane
{
const RecordLayout& ServiceHistoryLayout()
{
    static const RecordLayout layout("ServiceHistoryRecord",
                                     {{"ServiceName", FieldKind::Text, 30},
                                      {"ServiceAccount", FieldKind::Text, 25},
                                      {"ServiceDate", FieldKind::Text, 15},
                                      {"ServiceWork", FieldKind::Text, 35},
                                      {"ServiceNote", FieldKind::Text, 40}});
    return layout;
}

const RecordLayout& LedgerLayout()
{
    static const RecordLayout layout("LedgerRecord", {{"LedgerName", FieldKind::Text, 45},
                                                      {"LedgerAccount", FieldKind::Text, 25},
                                                      {"LedgerDate", FieldKind::Text, 15},
                                                      {"LedgerText", FieldKind::Text, 60},
                                                      {"LedgerAmount", FieldKind::Text, 10}});
    return layout;
}

QString ServiceHistoryFileName()
{
    return QStringLiteral("/ServiceHistory.txt");
}
QString LedgerFileName()
{
    return QStringLiteral("/CAHistory.txt");
}

Result<QList<ServiceHistoryRecord>> ReadServiceHistory(Store& store)
{
    return ReadRecordFile<ServiceHistoryRecord>(store, ServiceHistoryFileName());
}

Result<QList<LedgerRecord>> ReadLedger(Store& store)
{
    return ReadRecordFile<LedgerRecord>(store, LedgerFileName());
}

Status WriteServiceHistory(Store& store, const QList<ServiceHistoryRecord>& records)
{
    return WriteRecordFile(store, ServiceHistoryFileName(), records);
}

Status WriteLedger(Store& store, const QList<LedgerRecord>& records)
{
    return WriteRecordFile(store, LedgerFileName(), records);
}
} // namespace tresvane
