#pragma once

#include "forms/item_list.h"
#include "forms/text_edit.h"

namespace zel::forms {

/// A plain combo: a list of texts under a box that, unless DropDownList, can be typed into.
class ComboBox : public TextEdit {
public:
    enum class Style { DropDown, DropDownList };

    using TextEdit::TextEdit;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "ComboBox"; }
    [[nodiscard]] Style style() const noexcept { return style_; }
    void setStyle(Style style) { style_ = style; }

    void AddItem(std::string text, std::int32_t itemData = 0);
    void RemoveItem(int index);
    /// Also empties the text, without an event.
    void Clear();
    [[nodiscard]] int ListCount() const noexcept { return static_cast<int>(items_.size()); }
    /// Text of an entry; empty outside the list.
    [[nodiscard]] std::string List(int index) const;
    [[nodiscard]] std::int32_t ItemData(int index) const;
    void setItemData(int index, std::int32_t data) { items_.at(index).data = data; }
    [[nodiscard]] const std::vector<ListItem>& items() const noexcept { return items_; }

    [[nodiscard]] int ListIndex() const noexcept { return listIndex_; }
    /// Takes the text of the entry and raises Click; -1 empties the text. Out of range throws ado::Error 380.
    void setListIndex(int index);
    /// A text that is an entry selects it without Click. In a DropDownList any other text throws ado::Error 383.
    void setText(std::string text) override;

    [[nodiscard]] bool isOpen() const noexcept { return open_; }
    /// Raises DropDown as the list opens.
    void setOpen(bool open);
    bool insert(std::string_view text) override;
    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;

    std::function<void()> DropDown;

protected:
    void textChanged() override;

private:
    std::vector<ListItem> items_;
    int listIndex_ = -1;
    Style style_ = Style::DropDown;
    bool open_ = false, quiet_ = false;
};

} // namespace zel::forms
