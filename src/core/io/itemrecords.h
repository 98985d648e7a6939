#pragma once

#include "core/io/record.h"
#include "core/io/result.h"

#include <QList>

namespace tresvane
{
class Store;

// The fixed-record lists of goods and services that the invoices pre-print. Fields
// without a name of their own belong to the sibling programs that write the catalogues;
// they are carried as read and never interpreted here.

// InvoiceItems.txt, 42 bytes: the Repair invoice's list.
namespace InvoiceItemField
{
enum : int {
    ItemName,  //  0, text 30
    ItemPrice, // 30, text 12  the price as typed
};
}

// Services.txt (a sibling program's catalogue) and CurrentServices.txt (the selection),
// 72 bytes.
namespace ServiceField
{
enum : int {
    ServiceName,  //  0, text 60
    ServicePrice, // 60, text 10  read as currency
    ServiceFlag,  // 70, int16    0 when written here
};
}

// TVInventoriedItems.txt (a sibling program's stock) and CurrentItems.txt (the
// selection), 104 bytes. Only the name and the price are used here.
namespace InventoriedItemField
{
enum : int {
    StockName,    //   0, text 50
    StockText,    //  50, text 20
    StockPrice,   //  70, currency
    StockCost,    //  78, currency
    StockNumber1, //  86, int16
    StockAmount,  //  88, currency
    StockLong,    //  96, int32
    StockNumber2, // 100, int16
    StockNumber3, // 102, int16
};
}

// CustomItems.txt, 70 bytes: items of the user's own beside the stock.
namespace CustomItemField
{
enum : int {
    CustomName,  //  0, text 50
    CustomPrice, // 50, currency
    CustomCost,  // 58, currency
    CustomLong,  // 66, int32
};
}

constexpr int kInvoiceItemRecordLength = 42;
constexpr int kServiceRecordLength = 72;
constexpr int kInventoriedItemRecordLength = 104;
constexpr int kCustomItemRecordLength = 70;

const RecordLayout& InvoiceItemLayout();
const RecordLayout& ServiceLayout();
const RecordLayout& InventoriedItemLayout();
const RecordLayout& CustomItemLayout();

class InvoiceItemRecord : public FixedRecord
{
public:
    InvoiceItemRecord() : FixedRecord(InvoiceItemLayout()) {}
    explicit InvoiceItemRecord(QByteArrayView bytes) : FixedRecord(InvoiceItemLayout(), bytes) {}
};

class ServiceRecord : public FixedRecord
{
public:
    ServiceRecord() : FixedRecord(ServiceLayout()) {}
    explicit ServiceRecord(QByteArrayView bytes) : FixedRecord(ServiceLayout(), bytes) {}
};

class InventoriedItemRecord : public FixedRecord
{
public:
    InventoriedItemRecord() : FixedRecord(InventoriedItemLayout()) {}
    explicit InventoriedItemRecord(QByteArrayView bytes)
        : FixedRecord(InventoriedItemLayout(), bytes)
    {
    }
};

class CustomItemRecord : public FixedRecord
{
public:
    CustomItemRecord() : FixedRecord(CustomItemLayout()) {}
    explicit CustomItemRecord(QByteArrayView bytes) : FixedRecord(CustomItemLayout(), bytes) {}
};

QString InvoiceItemsFileName();     // "/InvoiceItems.txt"
QString ServicesFileName();         // "/Services.txt"
QString CurrentServicesFileName();  // "/CurrentServices.txt"
QString InventoriedItemsFileName(); // "/TVInventoriedItems.txt"
QString CurrentItemsFileName();     // "/CurrentItems.txt"
QString CustomItemsFileName();      // "/CustomItems.txt"

// Every record of the file; none when it is missing. The writers replace the whole file
// (its copy in Backup goes first); no records leave an empty file.
Result<QList<InvoiceItemRecord>> ReadInvoiceItems(Store& store);
Status WriteInvoiceItems(Store& store, const QList<InvoiceItemRecord>& items);

// name: ServicesFileName() or CurrentServicesFileName().
Result<QList<ServiceRecord>> ReadServices(Store& store, const QString& name);
Status WriteServices(Store& store, const QString& name, const QList<ServiceRecord>& services);

// name: InventoriedItemsFileName() (read only: a sibling program writes it) or
// CurrentItemsFileName().
Result<QList<InventoriedItemRecord>> ReadInventoriedItems(Store& store, const QString& name);
Status WriteCurrentItems(Store& store, const QList<InventoriedItemRecord>& items);

Result<QList<CustomItemRecord>> ReadCustomItems(Store& store);
Status WriteCustomItems(Store& store, const QList<CustomItemRecord>& items);
} // namespace tresvane
