#include "ado/convert.h"
#include "korvandb/schema.h"

#include <gmock/gmock.h>

#include <iterator>
#include <set>
#include <sstream>

/// Every table, column and type that a screen, a report or another module's program counts on.
namespace zel::korvandb {
namespace {

using ado::ColumnType;

struct Names {
    const char* table;
    const char* columns;
};

std::vector<std::string> words(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

constexpr Names neededColumns[] = {
    {"Incidents", "IncidentID IncidentNumber IncidentName IncidentLocation IncidentState StartDate EndDate "
                  "ParentIncident AdminName AdminAddr1 AdminAddr2 AdminCity AdminState AdminZip"},
    {"AccountingCodes", "AccountingID IncidentID AccountingCode AgencyCode IncidentDefault"},
    {"Resources", "ResourceID IncidentID Name RequestNumber AgencyCode HomeUnitCode KindCode Trainee NeededDate "
                  "NeededTime CheckinDate CheckinTime ReleaseDate ReleaseTime Status NumberPersonnel Configuration "
                  "OriginalOrderRequest DemobCity DemobState Jetport CompanyName AgreementNumber TravelMethod "
                  "VehicleID VehicleKind LastDayOff Remarks RemarksOF286 Other1 Other2 Other3 ParentID Collection "
                  "AccountingID AgreementID AssignDate ContractedResource GovtSuppliesYN Withdrawn mobDate"},
    {"Persons", "PersonID ResourceID FirstName MiddleInitial LastName SSN RequestNumber AgencyCode LeaderID "
                "OverheadID PStatus FedCode KindCode AccountingID Remarks MailAddr1 MailAddr2 City State ZipCode "
                "Phone FaxPhone Area Class Rate PaidTime InitEmployYN ReturnTravelYN PointOfHire EContactName "
                "ERelation EAddress1 EAddress2 ECity EState EZipCode EHomePhone EWorkPhone EWorkPhoneExt I9YN "
                "W4YN I9ExpDt Demob"},
    {"Equipment", "EquipmentID ResourceID AgreementID AccountingID UniqueEquipmentName Make Model GovtOperatorYN "
                  "GovtSuppliesYN Withdrawn"},
    {"UnitOfMeasure", "UnitOfMeasureID EquipmentID ResourceID Primary Rate RateType GuaranteeAmt Description"},
    {"Contractor", "ContractorID IncidentID ContractorName ContractorNum Addr City State Zip Phone"},
    {"Agreement", "AgreementID ContractorID AgreementNum BeginDt ExpDt PointOfHire AdminOfficeID"},
    {"AdminOffice", "AdminOfficeID Name Addr1 Addr2 City State Zip"},
    {"PersonsPost", "PersonsPostID CollectionPostID PersonID ActivityDT StartTime StopTime KindCode Class Rate "
                    "PremiumCode Hours Amt Remarks AccountingID InvoiceID Column288 RptOrder FinalCol"},
    {"ContractorPost", "ContractorPostID EquipmentID AgreementID ResourceID ActivityDT UOM StartNum StopNum StartTime "
                       "StopTime StartDate StopDate Units Rate Amt GuarAmt Remarks SUOM SStartNum SStopNum SStartTime "
                       "SStopTime SUnits SRate SAmt AccountingID InvoiceID EquipmentUOMID"},
    {"PersonsDebit", "PersonsDebitID PersonID ActivityDT Description AccountingID Amt"},
    {"ContractorAdjustments", "ContractorAdjustmentID ContractorID EquipmentID ResourceID ActivityDT Description Amt "
                              "AccountingID InvoiceID"},
    {"ReportRecords", "ReportRun IncidentID PersonID RequestNumber KindCode ActivityDT TotalDayHrs ExcessHrs HR20in24 "
                      "HR36in48"},
    {"PersonsInvoices", "PersonID LastDate Del"},
    {"EquipInvoices", "EquipmentID LastDate Del"},
    {"Version", "Module Version"},
    {"L_Status", "Code Description ZEL Postable"},
    {"L_Kind", "KindCode KindDesc RequestCat"},
    {"L_RequestCat", "Code"},
    {"L_State", "Code Description"},
    {"L_Premium", "PremiumCode"},
    {"L_ClassRates", "Area Class Rate ClassRatesCode"},
    {"L_RateType", "EquipDescription EquipRate"},
    {"L_Time", "Time"},
    {"ContractorDebit", "EquipmentID"},
    {"EquipmentPost", "EquipmentID"},
    {"EquipmentUOM", "EquipmentID"},
    {"quals", "ResourceID"},
    {"daily", "ResourceID"},
    {"airday", "ResourceID"},
    {"ics204_resources", "ics204_id"},
    {"ics204", "ics204_id IncidentID"},
    {"projection", "ProjectionGroupID"},
    {"projectiongroup", "ProjectionGroupID IncidentID"},
    {"acres", "IncidentID"},
    {"division", "IncidentID"},
};

TEST(SchemaColumns, Every_table_has_every_column_that_a_statement_names) {
    for (const Names& needed : neededColumns) {
        const Table* table = theSchema().table(needed.table);
        ASSERT_NE(table, nullptr) << needed.table;
        for (const std::string& column : words(needed.columns))
            EXPECT_NE(table->column(column), nullptr) << needed.table << "." << column;
    }
}

std::vector<std::string> columnOrder(const char* table) {
    std::vector<std::string> names;
    for (const Column& column : theSchema().table(table)->columns)
        names.push_back(column.name);
    return names;
}

TEST(SchemaColumns, Positional_inserts_find_their_order) {
    EXPECT_EQ(columnOrder("AccountingCodes"),
              words("AccountingID IncidentID AccountingCode AgencyCode IncidentDefault"));
    EXPECT_EQ(columnOrder("UnitOfMeasure"),
              words("UnitOfMeasureID EquipmentID Rate Primary GuaranteeAmt RateType ResourceID Description"));
}

constexpr Names keys[] = {
    {"Incidents", "IncidentID"},
    {"AccountingCodes", "AccountingID"},
    {"Resources", "ResourceID"},
    {"Persons", "PersonID"},
    {"Equipment", "EquipmentID"},
    {"UnitOfMeasure", "UnitOfMeasureID"},
    {"Contractor", "ContractorID"},
    {"Agreement", "AgreementID"},
    {"AdminOffice", "AdminOfficeID"},
    {"PersonsPost", "PersonsPostID"},
    {"ContractorPost", "ContractorPostID"},
    {"PersonsDebit", "PersonsDebitID"},
    {"ContractorAdjustments", "ContractorAdjustmentID"},
};

TEST(SchemaColumns, Every_table_that_screens_write_has_its_key) {
    for (const Names& expected : keys) {
        const Column* key = theSchema().table(expected.table)->primary();
        ASSERT_NE(key, nullptr) << expected.table;
        EXPECT_TRUE(key->isKey());
        EXPECT_EQ(key->name, expected.columns);
    }
}

/// The names of a table's columns of one type.
std::set<std::string> ofType(const Table& table, ColumnType type) {
    std::set<std::string> names;
    for (const Column& column : table.columns)
        if (column.type == type)
            names.insert(column.name);
    return names;
}

std::set<std::string> setOf(const char* text) {
    const std::vector<std::string> names = words(text);
    return {names.begin(), names.end()};
}

void expectColumns(ColumnType type, std::initializer_list<Names> expected) {
    for (const Names& names : expected)
        EXPECT_EQ(ofType(*theSchema().table(names.table), type), setOf(names.columns)) << names.table;
}

TEST(SchemaColumns, Flags_are_flags) {
    expectColumns(ColumnType::Flag, {{"AccountingCodes", "IncidentDefault"},
                                     {"Resources", "Trainee Collection ContractedResource GovtSuppliesYN Withdrawn"},
                                     {"Persons", "InitEmployYN ReturnTravelYN I9YN W4YN"},
                                     {"Equipment", "GovtOperatorYN GovtSuppliesYN Withdrawn"},
                                     {"UnitOfMeasure", "Primary"},
                                     {"PersonsInvoices", "Del"},
                                     {"EquipInvoices", "Del"},
                                     {"L_Status", "ZEL Postable"},
                                     {"L_RateType", "EquipRate"}});
}

TEST(SchemaColumns, Money_is_exact_money) {
    expectColumns(ColumnType::Currency, {{"Persons", "Rate"},
                                         {"UnitOfMeasure", "Rate GuaranteeAmt"},
                                         {"PersonsPost", "Rate Amt"},
                                         {"ContractorPost", "Rate Amt GuarAmt SRate SAmt"},
                                         {"PersonsDebit", "Amt"},
                                         {"ContractorAdjustments", "Amt"},
                                         {"L_ClassRates", "Rate"}});
}

TEST(SchemaColumns, Hours_units_and_readings_are_doubles) {
    expectColumns(ColumnType::Double, {{"PersonsPost", "Hours"},
                                       {"ContractorPost", "StartNum StopNum Units SStartNum SStopNum SUnits"},
                                       {"ReportRecords", "TotalDayHrs ExcessHrs HR20in24 HR36in48"}});
}

TEST(SchemaColumns, Days_and_times_are_datetimes) {
    expectColumns(ColumnType::DateTime,
                  {{"Incidents", "StartDate EndDate"},
                   {"Resources", "NeededDate NeededTime CheckinDate CheckinTime ReleaseDate ReleaseTime LastDayOff "
                                 "AssignDate mobDate"},
                   {"Persons", "I9ExpDt"},
                   {"Agreement", "BeginDt ExpDt"},
                   {"PersonsPost", "ActivityDT StartTime StopTime"},
                   {"ContractorPost", "ActivityDT StartTime StopTime StartDate StopDate SStartTime SStopTime"},
                   {"PersonsDebit", "ActivityDT"},
                   {"ContractorAdjustments", "ActivityDT"},
                   {"PersonsInvoices", "LastDate"},
                   {"EquipInvoices", "LastDate"},
                   {"ReportRecords", "ActivityDT"}});
}

TEST(SchemaColumns, Rows_that_lists_would_drop_on_null_have_a_zero) {
    for (const auto& [table, column] : {std::pair("Resources", "ParentID"), std::pair("PersonsPost", "FinalCol")}) {
        EXPECT_TRUE(theSchema().table(table)->column(column)->required) << column;
        EXPECT_EQ(theSchema().table(table)->column(column)->defaultValue, "0") << column;
    }
    const Column& uom = *theSchema().table("ContractorPost")->column("EquipmentUOMID");
    EXPECT_EQ(uom.type, ColumnType::Integer);
    EXPECT_FALSE(uom.required);
}

struct Width {
    const char* table;
    const char* column;
    const char* longest;
};

constexpr Width masks[] = {
    {"Incidents", "IncidentNumber", "AA-AAA-AAAAAA"},
    {"Incidents", "AdminZip", "99999-9999"},
    {"Persons", "ZipCode", "99999-9999"},
    {"Persons", "Phone", "(999) 999-9999"},
    {"Persons", "FaxPhone", "(999) 999-9999"},
    {"Persons", "SSN", "999-99-9999"},
    {"Contractor", "Zip", "99999-9999"},
    {"Contractor", "Phone", "(999) 999-9999"},
    {"AdminOffice", "Zip", "99999-9999"},
};

TEST(SchemaColumns, Texts_with_a_mask_have_room_for_its_literals) {
    for (const Width& mask : masks)
        EXPECT_GE(theSchema().table(mask.table)->column(mask.column)->width,
                  static_cast<int>(std::string_view(mask.longest).size()))
            << mask.column;
}

} // namespace
} // namespace zel::korvandb
