#include "services/grid_columns.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/session.h"
#include "forms/combo_box.h"
#include "forms/form.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"
#include "services/text_rules.h"

#include <algorithm>
#include <functional>

namespace zel::services {

namespace {

constexpr int twipsPerCharacter = 120;

struct FieldFormat {
    std::string mask, format;
};

FieldFormat formatOf(int type, const std::string& mask, const std::string& format) {
    switch (type) {
    case fieldType::ssn:
        return {"###-##-####", "###-##-####"};
    case fieldType::time:
        return {"##:##", "HH:mm"};
    case fieldType::phone:
        return {"(###) ###-####", "(###) ###-####"};
    case fieldType::requestNumber:
        return {">@-####", ">@-####"};
    case fieldType::accountingCode:
        return {">@@-@@@-@@@@@@", ">@@-@@@-@@@@@@"};
    case fieldType::zip:
        return {"#####", "99999"};
    case fieldType::zipPlusFour:
        return {"#####-####", "99999-9999"};
    case fieldType::date:
        return {"##/##/####", "MM/DD/YYYY"};
    case fieldType::dateYearFirst:
        return {"####/##/##", "YYYY/MM/DD"};
    default:
        return {mask, format};
    }
}

using Row = std::function<void(const std::string& first, const std::string& second)>;

void eachRow(core::Session& session, const ado::Sql& statement, const Row& row) {
    ado::Recordset rows;
    rows.Open(statement, session.connection(), ado::CursorType::Static, ado::LockType::ReadOnly);
    const std::size_t second = rows.fieldCount() > 1 ? 1 : 0;
    for (std::int64_t position = 1; position <= rows.RecordCount(); ++position)
        row(ado::toText(rows.valueAt(position, 0)), ado::toText(rows.valueAt(position, second)));
}

void fill(core::Session& session, const ado::Sql& statement, forms::GridColumn& column) {
    column.ValueItems.Clear();
    eachRow(session, statement,
            [&column](const std::string& value, const std::string& display) { column.ValueItems.Add(value, display); });
}

void styleColumns(int count, const std::function<void(int)>& style) {
    for (int column = 0; column < count; ++column)
        style(column);
}

} // namespace

void SetColumnFormat(forms::TDBGrid& grid, int column, int type, const std::string& mask, const std::string& format) {
    forms::GridColumn& target = grid.Columns(column);
    const FieldFormat chosen = formatOf(type, mask, format);
    target.setEditMask(chosen.mask);
    target.setNumberFormat(chosen.format);
    if (type == fieldType::time) {
        target.ValueItems.Clear();
        target.ValueItems.Add("00:00", "24:00");
        target.ValueItems.Add("12:00:00 AM", "24:00"); // as the table keeps it
        target.ValueItems.Translate = true;
    }
    grid.columnsChanged();
}

void FillStatusCombo(core::Session& session, forms::TDBGrid& grid, int column, bool bPostable) {
    ado::Sql statement("SELECT Code,Description FROM L_Status WHERE ");
    statement += session.gServerDialect ? ado::Sql("ZEL=1") : ado::Sql("[ZEL]=True");
    if (bPostable)
        statement += session.gServerDialect ? ado::Sql(" AND Postable=1") : ado::Sql(" AND [Postable]=True");
    forms::GridColumn& target = grid.Columns(column);
    fill(session, statement + ado::Sql(" ORDER BY Code"), target);
    target.ValueItems.Translate = true;
    target.ValueItems.presentation = forms::ValueItems::Presentation::ComboBox;
    grid.columnsChanged();
}

void FillValueColumn(core::Session& session, const ado::Sql& statement, forms::TDBGrid& grid, int column, bool bBlank) {
    forms::GridColumn& target = grid.Columns(column);
    target.ValueItems.Clear();
    std::size_t widest = 0;
    eachRow(session, statement, [&](const std::string& value, const std::string& display) {
        if (bBlank && target.ValueItems.Count() == 0)
            target.ValueItems.Add("", "");
        target.ValueItems.Add(value, display);
        widest = std::max(widest, display.size());
    });
    target.ValueItems.presentation = forms::ValueItems::Presentation::ComboBox;
    target.setWidth(std::max(target.Width(), static_cast<int>(widest) * twipsPerCharacter));
    grid.columnsChanged();
}

void FillTranslateColumn(core::Session& session, const ado::Sql& statement, forms::TDBGrid& grid, int column) {
    forms::GridColumn& target = grid.Columns(column);
    fill(session, statement, target);
    target.ValueItems.Translate = true;
    target.ValueItems.presentation = forms::ValueItems::Presentation::Normal;
    grid.columnsChanged();
}

void FillPremiumList(core::Session& session, forms::ComboBox& list, PremiumKind kind, const std::string& FedCode) {
    const bool hazardPay = kind == PremiumKind::Crews || !FedCode.starts_with("AD");
    list.Clear();
    eachRow(session, ado::Sql("SELECT PremiumCode FROM L_Premium ORDER BY PremiumCode"),
            [&](const std::string& code, const std::string&) {
                if (code != "HP" || hazardPay)
                    list.AddItem(code);
            });
    list.AddItem("");
}

void SetGridStyle(forms::Form& form) {
    for (forms::Control* control : form.controls()) {
        if (auto* grid = dynamic_cast<forms::TDBGrid*>(control)) {
            styleColumns(grid->columnCount(), [grid](int column) {
                grid->Columns(column).ButtonHeader = true;
                grid->Columns(column).AllowSizing = true;
            });
        } else if (auto* list = dynamic_cast<forms::RowList*>(control)) {
            styleColumns(list->columnCount(), [list](int column) {
                list->Columns(column).ButtonHeader = true;
                list->Columns(column).AllowSizing = true;
            });
        }
    }
}

int SelectedRow(const forms::TDBGrid& grid, forms::Bookmark row) {
    return grid.SelBookmarks.position(row);
}

} // namespace zel::services
