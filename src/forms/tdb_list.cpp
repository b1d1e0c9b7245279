#include "forms/tdb_list.h"

#include "ado/convert.h"
#include "forms/user.h"
#include "forms/utf8.h"

#include <algorithm>

namespace zel::forms {

std::string TDBList::Text() const {
    return listText(SelectedItem());
}

bool TDBList::takeKey(int key) {
    const auto rows = rowCount();
    if (rows == 0)
        return false;
    if (key == keys::up || key == keys::down) {
        setSelectedItem(std::clamp<std::int64_t>(SelectedItem() + (key == keys::down ? 1 : -1), 0, rows - 1));
        return true;
    }
    if (key == keys::space && multiSelect_) {
        const auto row = bookmark();
        const int marked = SelBookmarks.position(row);
        if (marked >= 0)
            SelBookmarks.Remove(marked);
        else if (row != 0)
            SelBookmarks.Add(row);
        raise(SelChange);
        return true;
    }
    if (key <= keys::space || key >= keys::first)
        return false;
    const auto hit = findPrefix(utf8::encode(static_cast<char32_t>(key)));
    if (hit >= 0)
        setSelectedItem(hit);
    return true;
}

void TDBList::sourceChanged() {
    SelBookmarks.follow(source());
}

std::optional<Value> TDBList::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("Text"))
        return Value(Text());
    if (is("BoundText"))
        return Value(BoundText());
    if (is("BoundColumn"))
        return Value(BoundColumn());
    if (is("Bookmark"))
        return Value(bookmark());
    if (is("SelectedItem"))
        return Value(SelectedItem());
    if (is("SelCount"))
        return Value(SelBookmarks.Count());
    return Control::property(name);
}

} // namespace zel::forms
