#pragma once

#include "core/io/record.h"

namespace tresvane
{
// The three parallel customer files, joined by record number alone.

// CustomerData.txt, 328 bytes.
namespace CustomerField
{
enum : int {
    AccountNo,     //   0, text 20
    Name,          //  20, text 45
    Address1,      //  65, text 35
    Address2,      // 100, text 25
    Address3,      // 125, text 25  city (USA style) or free line 3
    CityShort,     // 150, text 20  written on every save, read by nothing
    State,         // 170, text 2   blank in the international style
    Zip,           // 172, text 10
    Address4,      // 182, text 25  postal code (USA style) or free line 4
    Phone,         // 207, text 13
    Cell,          // 220, text 13
    Other,         // 233, text 30  "Fax, Email, ETC"
    Title,         // 263, text 10
    FirstName,     // 273, text 15
    MiddleInitial, // 288, text 1
    LastName,      // 289, text 25
    AccountType,   // 314, text 10  "Individual" or "Business"
    RecordMark,    // 324, int16    1 when blanked in memory
    RecordSpare,   // 326, int16    kept as read
};
}

// ContractInfo.txt, 386 bytes. Fields other than those the grid reads belong to a
// companion program and are carried byte for byte.
namespace ContractField
{
enum : int {
    ContractService,  //   0, text 35
    ContractPlan,     //  35, text 15
    ContractPrice,    //  50, currency
    ContractWeekday,  //  58, text 9
    ContractTeam,     //  67, text 40
    ContractNextDate, // 107, date
    ContractLastDate, // 115, date
    ContractNumber1,  // 123, int16
    ContractFlag,     // 125, int16
    ContractNumber2,  // 127, int16
    ContractTime,     // 129, text 20
    ContractText1,    // 149, text 20
    ContractCustomer, // 169, text 30
    ContractText2,    // 199, text 35
    ContractText3,    // 234, text 25
    ContractText4,    // 259, text 20
    ContractText5,    // 279, text 2
    ContractText6,    // 281, text 10
    ContractText7,    // 291, text 13
    ContractText8,    // 304, text 30
    ContractNumber3,  // 334, int16
    ContractNote,     // 336, text 50
};
}

// CycleInfo.txt, 69 bytes, owned by a companion billing program.
namespace CycleField
{
enum : int {
    CycleService, //  0, text 35
    CycleAmount,  // 35, currency
    CycleNumber1, // 43, int16
    CycleText,    // 45, text 20
    CycleNumber2, // 65, int16
    CycleFlag,    // 67, int16
};
}

constexpr int kCustomerRecordLength = 328;
constexpr int kContractRecordLength = 386;
constexpr int kCycleRecordLength = 69;

const RecordLayout& CustomerLayout();
const RecordLayout& ContractLayout();
const RecordLayout& CycleLayout();

class CustomerRecord : public FixedRecord
{
public:
    CustomerRecord() : FixedRecord(CustomerLayout()) {}
    explicit CustomerRecord(QByteArrayView bytes) : FixedRecord(CustomerLayout(), bytes) {}
};

class ContractRecord : public FixedRecord
{
public:
    ContractRecord() : FixedRecord(ContractLayout()) {}
    explicit ContractRecord(QByteArrayView bytes) : FixedRecord(ContractLayout(), bytes) {}
};

class CycleRecord : public FixedRecord
{
public:
    CycleRecord() : FixedRecord(CycleLayout()) {}
    explicit CycleRecord(QByteArrayView bytes) : FixedRecord(CycleLayout(), bytes) {}
};
} // namespace tresvane
