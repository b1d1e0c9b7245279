#include "posting/post_columns.h"

#include "forms/tdb_grid.h"
#include "services/grid_columns.h"
#include "services/text_rules.h"

namespace zel::posting {

namespace {

struct Column {
    const char* caption;
    const char* field;
    bool visible;
};

template <std::size_t count>
void addColumns(forms::TDBGrid& grid, const Column (&columns)[count]) {
    for (const Column& column : columns)
        grid.addColumn(column.caption, column.field).setVisible(column.visible);
}

} // namespace

void addPersonPostColumns(forms::TDBGrid& grid) {
    static constexpr Column columns[] = {{"PersonsPostID", "PersonsPostID", false},
                                         {"CollectionPostID", "CollectionPostID", false},
                                         {"PersonID", "PersonID", false},
                                         {"Date", "ActivityDT", true},
                                         {"Start", "StartTime", true},
                                         {"Stop", "StopTime", true},
                                         {"KindCode", "KindCode", true},
                                         {"Class", "Class", true},
                                         {"Rate", "Rate", true},
                                         {"Special", "PremiumCode", true},
                                         {"Hours", "Hours", true},
                                         {"Amt", "Amt", true},
                                         {"Remarks", "Remarks", true},
                                         {"Column288", "Column288", false},
                                         {"RptOrder", "RptOrder", false},
                                         {"AccountingID", "AccountingID", true},
                                         {"InvoiceID", "InvoiceID", false}};
    addColumns(grid, columns);
    services::SetColumnFormat(grid, post_column::Date, services::fieldType::date);
    services::SetColumnFormat(grid, post_column::Start, services::fieldType::time);
    services::SetColumnFormat(grid, post_column::Stop, services::fieldType::time);
    grid.Columns(post_column::Rate).setNumberFormat("0.00");
    grid.Columns(post_column::Hours).setNumberFormat("0.00");
    grid.Columns(post_column::Amt).setNumberFormat("0.00");
    grid.Columns(post_column::Remarks).setDataWidth(50);
}

void addEquipmentPostColumns(forms::TDBGrid& grid) {
    static constexpr Column columns[] = {{"ContractorPostID", "ContractorPostID", false},
                                         {"EquipmentID", "EquipmentID", false},
                                         {"AgreementID", "AgreementID", false},
                                         {"ResourceID", "ResourceID", false},
                                         {"Date", "ActivityDT", true},
                                         {"UOM", "UOM", true},
                                         {"StartNum", "StartNum", true},
                                         {"StopNum", "StopNum", true},
                                         {"Start", "StartTime", true},
                                         {"Stop", "StopTime", true},
                                         {"StartDate", "StartDate", false},
                                         {"StopDate", "StopDate", false},
                                         {"Units", "Units", true},
                                         {"Rate", "Rate", true},
                                         {"Amt", "Amt", true},
                                         {"Guarantee", "GuarAmt", true},
                                         {"Remarks", "Remarks", true},
                                         {"SUOM", "SUOM", true},
                                         {"SStart", "SStartTime", true},
                                         {"SStop", "SStopTime", true},
                                         {"SUnits", "SUnits", true},
                                         {"SRate", "SRate", true},
                                         {"SAmt", "SAmt", true},
                                         {"Acct", "AccountingID", true},
                                         {"InvoiceID", "InvoiceID", false}};
    addColumns(grid, columns);
    services::SetColumnFormat(grid, grid.columnIndex("Date"), services::fieldType::date);
    for (const char* time : {"Start", "Stop", "SStart", "SStop"})
        services::SetColumnFormat(grid, grid.columnIndex(time), services::fieldType::time);
    for (const char* number : {"Units", "Rate", "Amt", "Guarantee", "SUnits", "SRate", "SAmt"})
        grid.Columns(number).setNumberFormat("0.00");
    grid.Columns("Remarks").setDataWidth(50);
}

} // namespace zel::posting
