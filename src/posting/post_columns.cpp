#include "posting/post_columns.h"

#include "forms/tdb_grid.h"
#include "services/grid_columns.h"
#include "services/text_rules.h"

namespace zel::posting {

void addPersonPostColumns(forms::TDBGrid& grid) {
    struct Column {
        const char* caption;
        const char* field;
        bool visible;
    };
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
    for (const Column& column : columns)
        grid.addColumn(column.caption, column.field).setVisible(column.visible);
    services::SetColumnFormat(grid, post_column::Date, services::fieldType::date);
    services::SetColumnFormat(grid, post_column::Start, services::fieldType::time);
    services::SetColumnFormat(grid, post_column::Stop, services::fieldType::time);
    grid.Columns(post_column::Rate).setNumberFormat("0.00");
    grid.Columns(post_column::Hours).setNumberFormat("0.00");
    grid.Columns(post_column::Amt).setNumberFormat("0.00");
    grid.Columns(post_column::Remarks).setDataWidth(50);
}

} // namespace zel::posting
