#include "forms/value_items.h"

#include "ado/convert.h"

namespace zel::forms {

std::optional<std::string> ValueItems::displayOf(std::string_view value) const {
    for (const ValueItem& item : items_) {
        if (Translate && ado::equalIgnoringCase(item.value, value))
            return item.display;
    }
    return std::nullopt;
}

std::optional<std::string> ValueItems::valueOf(std::string_view display) const {
    for (const ValueItem& item : items_) {
        if (Translate && ado::equalIgnoringCase(item.display, display))
            return item.value;
    }
    return std::nullopt;
}

} // namespace zel::forms
