#include "core/io/callrecord.h"

namespace tresvane
{
const RecordLayout& CallLayout()
{
    static const RecordLayout layout("CallRecord", {{"CallName", FieldKind::Text, 15},
                                                    {"CallNumber", FieldKind::Text, 12},
                                                    {"CallTime", FieldKind::Text, 8}});
    return layout;
}
} // namespace tresvane
