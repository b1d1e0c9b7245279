#pragma once

#include "forms/row_list.h"

namespace zel::forms {

/// A list over the rows of a list or record set, always open; with MultiSelect several rows can be marked.
class TDBList : public Control, public RowList {
public:
    TDBList(Place place, std::string name, int index = noIndex)
        : Control(place, std::move(name), index), RowList(static_cast<Control&>(*this)),
          SelBookmarks([this] { selectionChanged(); }) {}
    [[nodiscard]] std::string_view typeName() const noexcept override { return "TDBList"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }

    [[nodiscard]] bool MultiSelect() const noexcept { return multiSelect_; }
    void setMultiSelect(bool multiSelect) { multiSelect_ = multiSelect; }
    /// The list text of the current row.
    [[nodiscard]] std::string Text() const;

    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Text"; }

    /// The marked rows. Marking by program raises nothing; the clerk's marking raises SelChange.
    BookmarkSet SelBookmarks;
    std::function<void()> SelChange;

protected:
    void sourceChanged() override;

private:
    void selectionChanged() { notify(Property::Selection); }
    bool multiSelect_ = false;
};

} // namespace zel::forms
