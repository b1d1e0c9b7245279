#pragma once

#include "ado/value.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {

using ado::Value;

struct ValueItem {
    std::string value;   ///< as the field holds it
    std::string display; ///< as the clerk sees it when Translate is on
};

/// The value list of a column: what a stored code reads as, and what a cell offers to choose from.
class ValueItems {
public:
    enum class Presentation { Normal = 0, RadioButton = 1, ComboBox = 2, SortedComboBox = 3, CheckBox = 4 };

    bool Translate = false;
    Presentation presentation = Presentation::Normal;
    int MaxComboItems = 5;
    bool CycleOnClick = false;

    void Add(std::string value, std::string display) { items_.push_back({std::move(value), std::move(display)}); }
    void Clear() noexcept { items_.clear(); }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(items_.size()); }
    [[nodiscard]] const std::vector<ValueItem>& items() const noexcept { return items_; }
    /// What a value is shown as; nothing without Translate or when it is not in the list.
    [[nodiscard]] std::optional<std::string> displayOf(std::string_view value) const;
    /// The value that a typed text stands for; nothing without Translate or when it is not in the list.
    [[nodiscard]] std::optional<std::string> valueOf(std::string_view display) const;

private:
    std::vector<ValueItem> items_;
};

} // namespace zel::forms
