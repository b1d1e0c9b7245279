#include "forms/item_list.h"

#include "ado/convert.h"

namespace zel::forms {

int findItem(const std::vector<ListItem>& items, std::string_view text) noexcept {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (ado::equalIgnoringCase(items[i].text, text))
            return static_cast<int>(i);
    }
    return -1;
}

int findItemPrefix(const std::vector<ListItem>& items, std::string_view text) noexcept {
    for (std::size_t i = 0; i < items.size() && !text.empty(); ++i) {
        if (ado::equalIgnoringCase(std::string_view(items[i].text).substr(0, text.size()), text))
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace zel::forms
