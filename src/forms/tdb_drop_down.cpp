#include "forms/tdb_drop_down.h"

#include "ado/convert.h"

namespace zel::forms {

std::string TDBDropDown::Text() const {
    return listText(SelectedItem());
}

void TDBDropDown::standOn(std::string_view text) {
    if (SelectedItem() >= 0 && ado::equalIgnoringCase(Text(), text))
        return;
    const auto row = findText(text);
    setSelectedItem(row >= 0 || dataField_.empty() ? row : findText(text, dataField_));
}

std::optional<Value> TDBDropDown::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Text"))
        return Value(Text());
    if (ado::equalIgnoringCase(name, "BoundText"))
        return Value(BoundText());
    return Control::property(name);
}

} // namespace zel::forms
