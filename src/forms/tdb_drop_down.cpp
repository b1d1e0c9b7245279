#include "forms/tdb_drop_down.h"

#include "ado/convert.h"

namespace zel::forms {

std::string TDBDropDown::Text() const {
    return listText(SelectedItem());
}

std::optional<Value> TDBDropDown::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Text"))
        return Value(Text());
    if (ado::equalIgnoringCase(name, "BoundText"))
        return Value(BoundText());
    return Control::property(name);
}

} // namespace zel::forms
