#include "services/list_columns.h"

#include "ado/convert.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_list.h"
#include "services/list_rows.h"

#include <string_view>
#include <vector>

namespace zel::services {

namespace {

constexpr int ordinaryWidth = 1440;
constexpr int disabledGrey = 0xC0C0C0;

struct Column {
    const char* caption;
    const char* field;
    bool visible = true;
    int width = ordinaryWidth;
};

struct Layout {
    std::vector<Column> columns;
    const char* listField = ""; // the first column when empty
    int dropDownWidth = 0;      // that of the columns when 0
};

Layout accounts(bool bForIncident) {
    Layout layout{{{"AcctCode", "AccountingCode", true, 1200},
                   {"AcctID", "AccountingID", false, 200},
                   {"IncID", "IncidentID", false, 200},
                   {"Agency", "AgencyCode", true, 800},
                   {"Default", "IncidentDefault"}},
                  "AccountingCode"};
    if (!bForIncident)
        layout.columns.insert(layout.columns.begin(), {"Incident", "IncidentName", true, 1800});
    return layout;
}

Layout layoutOf(int listNumber, bool bForIncident) {
    switch (listNumber) {
    case 1:
    case 11:
        return accounts(bForIncident);
    case 2:
        return {{{"Kind", "KindCode", true, 600},
                 {"Description", "KindDesc", true, 2700},
                 {"Req. Cat.", "RequestCat", true, 200}}};
    case 4:
        return {{{"Code", "Code", true, 520}, {"Description", "Description", true, 1349}}};
    case 5:
        return {{{"IncidentID", "IncidentID", false, 200},
                 {"IncidentNumber", "IncidentNumber", true, 1349},
                 {"IncidentName", "IncidentName", true, 2000}},
                "IncidentName",
                5200};
    case 6:
        return {{{"Description", "Description", true, 1349},
                 {"Postable", "Postable", false, 500},
                 {"Code", "Code", false, 100}}};
    case 7:
        return {{{"Agency", "AgencyCode", true, 750}, {"Agency Description", "AgencyDesc", true, 2700}}};
    case 8:
        return {{{"Area", "area", true, 520}}};
    case 9:
        return {{{"Class", "class", true, 520}}};
    case 10:
        return {{{"UnitOfMeasure", "EquipDescription", true, 900}}};
    default:
        return {};
    }
}

} // namespace

void SetListColumns(forms::RowList& control, forms::ValueArray& list, int listNumber, bool bForIncident) {
    control.unbind();
    control.removeColumns();
    const Layout layout = layoutOf(listNumber, bForIncident);
    if (layout.columns.empty())
        return; // binding would give it the columns of the list
    for (const Column& column : layout.columns) {
        forms::ListColumn& added = control.addColumn(column.caption, column.field);
        added.setVisible(column.visible);
        added.setWidth(column.width);
    }
    control.setListField(layout.listField);
    if (auto* combo = dynamic_cast<forms::TDBCombo*>(&control))
        combo->setDropDownWidth(layout.dropDownWidth);
    control.bind(list);
    control.setBookmark(0);
    control.ReBind();
}

void RebindList(forms::RowList& control) {
    control.HoldFields();
    control.ReBind();
    control.Refresh();
}

void RebindKeepSelection(forms::TDBCombo& control) {
    // The rows may be other ones already: the value counts that the chosen row had.
    const std::string kept = control.chosenBoundText();
    RebindList(control);
    control.setBoundText(kept);
    if (control.SelectedItem() < 0)
        control.setText("");
}

std::string SelectedValue(const forms::RowList& control) {
    return control.SelectedItem() < 0 ? std::string() : control.BoundText();
}

void AutoCompleteCombo(forms::TDBCombo& control, int& keyAscii, const forms::ValueArray& list, int column) {
    if (keyAscii < '0')
        return;
    const std::string before = control.Text();
    const std::string typed =
        before.substr(0, forms::utf8::offset(before, control.SelStart())) + forms::utf8::encode(keyAscii);
    keyAscii = 0; // what it does to the text is done here
    for (int row = 0; row < list.rows(); ++row) {
        const std::string text = listText(list, row, column);
        if (text.size() >= typed.size() &&
            ado::equalIgnoringCase(std::string_view(text).substr(0, typed.size()), typed)) {
            control.setText(text);
            control.OpenCombo();
            control.setSelStart(forms::utf8::length(typed));
            control.setSelLength(forms::utf8::length(text) - forms::utf8::length(typed));
            return;
        }
    }
}

void UpperKey(int& keyAscii) noexcept {
    if (keyAscii >= 'a' && keyAscii <= 'z')
        keyAscii -= 'a' - 'A';
}

void SelectAllText(forms::TextEdit& box) {
    box.setSelStart(0);
    box.setSelLength(forms::utf8::length(box.Text()));
}

void SetReadOnlyStyle(forms::TextEdit& box, bool bOn) {
    box.setLocked(bOn);
    box.setBackColor(bOn ? disabledGrey : forms::colors::automatic);
}

} // namespace zel::services
