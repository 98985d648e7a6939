#include "core/io/customerrecords.h"

namespace tresvane
{
const RecordLayout& CustomerLayout()
{
    static const RecordLayout layout("CustomerRecord", {{"AccountNo", FieldKind::Text, 20},
                                                        {"Name", FieldKind::Text, 45},
                                                        {"Address1", FieldKind::Text, 35},
                                                        {"Address2", FieldKind::Text, 25},
                                                        {"Address3", FieldKind::Text, 25},
                                                        {"CityShort", FieldKind::Text, 20},
                                                        {"State", FieldKind::Text, 2},
                                                        {"Zip", FieldKind::Text, 10},
                                                        {"Address4", FieldKind::Text, 25},
                                                        {"Phone", FieldKind::Text, 13},
                                                        {"Cell", FieldKind::Text, 13},
                                                        {"Other", FieldKind::Text, 30},
                                                        {"Title", FieldKind::Text, 10},
                                                        {"FirstName", FieldKind::Text, 15},
                                                        {"MiddleInitial", FieldKind::Text, 1},
                                                        {"LastName", FieldKind::Text, 25},
                                                        {"AccountType", FieldKind::Text, 10},
                                                        {"RecordMark", FieldKind::Int16},
                                                        {"RecordSpare", FieldKind::Int16}});
    return layout;
}

const RecordLayout& ContractLayout()
{
    static const RecordLayout layout(
        "ContractRecord",
        {{"ContractService", FieldKind::Text, 35},  {"ContractPlan", FieldKind::Text, 15},
         {"ContractPrice", FieldKind::Currency},    {"ContractWeekday", FieldKind::Text, 9},
         {"ContractTeam", FieldKind::Text, 40},     {"ContractNextDate", FieldKind::Date},
         {"ContractLastDate", FieldKind::Date},     {"ContractNumber1", FieldKind::Int16},
         {"ContractFlag", FieldKind::Int16},        {"ContractNumber2", FieldKind::Int16},
         {"ContractTime", FieldKind::Text, 20},     {"ContractText1", FieldKind::Text, 20},
         {"ContractCustomer", FieldKind::Text, 30}, {"ContractText2", FieldKind::Text, 35},
         {"ContractText3", FieldKind::Text, 25},    {"ContractText4", FieldKind::Text, 20},
         {"ContractText5", FieldKind::Text, 2},     {"ContractText6", FieldKind::Text, 10},
         {"ContractText7", FieldKind::Text, 13},    {"ContractText8", FieldKind::Text, 30},
         {"ContractNumber3", FieldKind::Int16},     {"ContractNote", FieldKind::Text, 50}});
    return layout;
}

const RecordLayout& CycleLayout()
{
    static const RecordLayout layout("CycleRecord", {{"CycleService", FieldKind::Text, 35},
                                                     {"CycleAmount", FieldKind::Currency},
                                                     {"CycleNumber1", FieldKind::Int16},
                                                     {"CycleText", FieldKind::Text, 20},
                                                     {"CycleNumber2", FieldKind::Int16},
                                                     {"CycleFlag", FieldKind::Int16}});
    return layout;
}
} // namespace tresvane
