#pragma once

#include "forms/control.h"

#include <vector>

namespace zel::forms {

/// A read-only table of texts: column headers, and for each item a text and sub-items.
class ListView : public Control {
public:
    struct Item {
        std::string text;
        std::vector<std::string> subItems;
    };

    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "ListView"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }

    /// Width in twips.
    void addColumnHeader(std::string caption, int width = 1440);
    [[nodiscard]] const std::vector<std::string>& ColumnHeaders() const noexcept { return headers_; }
    [[nodiscard]] int columnWidth(int column) const { return widths_.at(column); }
    void addItem(std::string text, std::vector<std::string> subItems = {});
    void Clear();
    [[nodiscard]] const std::vector<Item>& ListItems() const noexcept { return items_; }
    /// From 0, -1 for none.
    [[nodiscard]] int selectedItem() const noexcept { return selected_; }
    void setSelectedItem(int index);
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;

    std::function<void(int item)> ItemClick;
    std::function<void(int column)> ColumnClick;

private:
    std::vector<std::string> headers_;
    std::vector<int> widths_;
    std::vector<Item> items_;
    int selected_ = -1;
};

} // namespace zel::forms
