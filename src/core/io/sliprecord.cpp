#include "core/io/sliprecord.h"

namespace tresvane
{
const RecordLayout& SlipLayout()
{
    static const RecordLayout layout(
        "SlipRecord",
        {{"RecType", FieldKind::Text, 10},     {"ConfirmationNo", FieldKind::Text, 10},
         {"TeamNo", FieldKind::Text, 2},       {"TimeUnit", FieldKind::Text, 6},
         {"Hours", FieldKind::Text, 2},        {"EventDate", FieldKind::Text, 10},
         {"StartSlot", FieldKind::Text, 2},    {"Reference", FieldKind::Text, 30},
         {"Status", FieldKind::Text, 20},      {"Reserved20", FieldKind::Text, 20},
         {"PaymentForm", FieldKind::Text, 20}, {"Amount", FieldKind::Text, 10},
         {"AcctNo", FieldKind::Text, 20},      {"Name", FieldKind::Text, 30},
         {"Street", FieldKind::Text, 35},      {"Apt", FieldKind::Text, 25},
         {"City", FieldKind::Text, 20},        {"St", FieldKind::Text, 2},
         {"Zip", FieldKind::Text, 10},         {"Tel", FieldKind::Text, 13}});
    return layout;
}
} // namespace tresvane
