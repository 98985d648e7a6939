#pragma once

#include "core/io/record.h"

namespace tresvane
{
// TelCall.txt, 35 bytes a call, in order of arrival.
namespace CallField
{
enum : int {
    CallName,   //  0, text 15  name from the telephone company
    CallNumber, // 15, text 12  nnn-nnn-nnnn
    CallTime,   // 27, text 8   "hh:mm am/pm"
};
}

constexpr int kCallRecordLength = 35;
const RecordLayout& CallLayout();

class CallRecord : public FixedRecord
{
public:
    CallRecord() : FixedRecord(CallLayout()) {}
    explicit CallRecord(QByteArrayView bytes) : FixedRecord(CallLayout(), bytes) {}
};
} // namespace tresvane
