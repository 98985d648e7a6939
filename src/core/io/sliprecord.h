#pragma once

#include "core/io/record.h"

namespace tresvane
{
// The slip record, 297 bytes of text, shared by Slips.txt, Meetings.txt,
// UnscheduledSlips.txt, CompletedSlips.txt and ProjectRecords.txt. Numbers and dates are
// text too (EventDate is mm/dd/yyyy); readers trim every field.
// What the Scheduling Screen books: a Service Attention into Slips.txt or a meeting into
// Meetings.txt.
enum class SlipKind { ServiceAttention, Meeting };

namespace SlipField
{
enum : int {
    RecType,        //   0, 10  "Service", "Meeting", "Reoccuring", or a title's first ten
    ConfirmationNo, //  10, 10  blank for meetings
    TeamNo,         //  20,  2  left-aligned team number
    TimeUnit,       //  22,  6  always "Hours"; "Days" counts as 8 hours in a day view
    Hours,          //  28,  2
    EventDate,      //  30, 10  mm/dd/yyyy
    StartSlot,      //  40,  2  1 to 12
    Reference,      //  42, 30  problem text, meeting slot text, or recurring title
    Status,         //  72, 20  "Scheduled" at creation
    Reserved20,     //  92, 20  written blank, read by nothing
    PaymentForm,    // 112, 20
    Amount,         // 132, 10  currency text
    AcctNo,         // 142, 20
    Name,           // 162, 30
    Street,         // 192, 35
    Apt,            // 227, 25
    City,           // 252, 20
    St,             // 272,  2
    Zip,            // 274, 10
    Tel,            // 284, 13
};
}

constexpr int kSlipRecordLength = 297;
const RecordLayout& SlipLayout();

class SlipRecord : public FixedRecord
{
public:
    SlipRecord() : FixedRecord(SlipLayout()) {}
    explicit SlipRecord(QByteArrayView bytes) : FixedRecord(SlipLayout(), bytes) {}
};
} // namespace tresvane
