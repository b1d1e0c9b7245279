#pragma once

#include "forms/control.h"
#include "forms/item_list.h"

namespace zel::forms {

/// A plain list of texts, of which one is current and, with MultiSelect, several are selected.
class ListBox : public Control {
public:
    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "ListBox"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }

    void AddItem(std::string text, std::int32_t itemData = 0);
    void RemoveItem(int index);
    void Clear();
    [[nodiscard]] int ListCount() const noexcept { return static_cast<int>(items_.size()); }
    [[nodiscard]] std::string List(int index) const;
    [[nodiscard]] std::int32_t ItemData(int index) const;
    [[nodiscard]] const std::vector<ListItem>& items() const noexcept { return items_; }

    [[nodiscard]] int ListIndex() const noexcept { return listIndex_; }
    /// Raises Click.
    void setListIndex(int index);
    [[nodiscard]] std::string Text() const { return List(listIndex_); }
    [[nodiscard]] bool MultiSelect() const noexcept { return multiSelect_; }
    void setMultiSelect(bool multiSelect) { multiSelect_ = multiSelect; }
    [[nodiscard]] bool Selected(int index) const;
    void setSelected(int index, bool selected);
    [[nodiscard]] int SelCount() const;
    /// Columns side by side; 0 for one.
    [[nodiscard]] int Columns() const noexcept { return columns_; }
    void setColumns(int columns) { columns_ = columns; }

    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Text"; }

private:
    std::vector<ListItem> items_;
    std::vector<bool> selected_;
    int listIndex_ = -1, columns_ = 0;
    bool multiSelect_ = false;
};

} // namespace zel::forms
