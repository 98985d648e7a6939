#include "core/io/itemrecords.h"

#include "core/io/recordfile.h"

namespace tresvane
{
const RecordLayout& InvoiceItemLayout()
{
    static const RecordLayout layout("InvoiceItemRecord", {{"ItemName", FieldKind::Text, 30},
                                                           {"ItemPrice", FieldKind::Text, 12}});
    return layout;
}

const RecordLayout& ServiceLayout()
{
    static const RecordLayout layout("ServiceRecord", {{"ServiceName", FieldKind::Text, 60},
                                                       {"ServicePrice", FieldKind::Text, 10},
                                                       {"ServiceFlag", FieldKind::Int16}});
    return layout;
}

const RecordLayout& InventoriedItemLayout()
{
    static const RecordLayout layout("InventoriedItemRecord", {{"StockName", FieldKind::Text, 50},
                                                               {"StockText", FieldKind::Text, 20},
                                                               {"StockPrice", FieldKind::Currency},
                                                               {"StockCost", FieldKind::Currency},
                                                               {"StockNumber1", FieldKind::Int16},
                                                               {"StockAmount", FieldKind::Currency},
                                                               {"StockLong", FieldKind::Int32},
                                                               {"StockNumber2", FieldKind::Int16},
                                                               {"StockNumber3", FieldKind::Int16}});
    return layout;
}

const RecordLayout& CustomItemLayout()
{
    static const RecordLayout layout("CustomItemRecord", {{"CustomName", FieldKind::Text, 50},
                                                          {"CustomPrice", FieldKind::Currency},
                                                          {"CustomCost", FieldKind::Currency},
                                                          {"CustomLong", FieldKind::Int32}});
    return layout;
}

QString InvoiceItemsFileName()
{
    return QStringLiteral("/InvoiceItems.txt");
}
QString ServicesFileName()
{
    return QStringLiteral("/Services.txt");
}
QString CurrentServicesFileName()
{
    return QStringLiteral("/CurrentServices.txt");
}
QString InventoriedItemsFileName()
{
    return QStringLiteral("/TVInventoriedItems.txt");
}
QString CurrentItemsFileName()
{
    return QStringLiteral("/CurrentItems.txt");
}
QString CustomItemsFileName()
{
    return QStringLiteral("/CustomItems.txt");
}

Result<QList<InvoiceItemRecord>> ReadInvoiceItems(Store& store)
{
    return ReadRecordFile<InvoiceItemRecord>(store, InvoiceItemsFileName());
}

Status WriteInvoiceItems(Store& store, const QList<InvoiceItemRecord>& items)
{
    return WriteRecordFile(store, InvoiceItemsFileName(), items);
}

Result<QList<ServiceRecord>> ReadServices(Store& store, const QString& name)
{
    return ReadRecordFile<ServiceRecord>(store, name);
}

Status WriteServices(Store& store, const QString& name, const QList<ServiceRecord>& services)
{
    return WriteRecordFile(store, name, services);
}

Result<QList<InventoriedItemRecord>> ReadInventoriedItems(Store& store, const QString& name)
{
    return ReadRecordFile<InventoriedItemRecord>(store, name);
}

Status WriteCurrentItems(Store& store, const QList<InventoriedItemRecord>& items)
{
    return WriteRecordFile(store, CurrentItemsFileName(), items);
}

Result<QList<CustomItemRecord>> ReadCustomItems(Store& store)
{
    return ReadRecordFile<CustomItemRecord>(store, CustomItemsFileName());
}

Status WriteCustomItems(Store& store, const QList<CustomItemRecord>& items)
{
    return WriteRecordFile(store, CustomItemsFileName(), items);
}
} // namespace tresvane
