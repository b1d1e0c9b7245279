#pragma once

#include "forms/label.h"

#include <vector>

namespace zel::forms {

/// An entry of a menu. Top entries stand on the form; the others on their parent entry, in the order they were made.
/// An entry with the caption "-" is a separator. A top entry that is not visible is a pop-up menu.
class Menu : public Captioned {
public:
    Menu(Place place, std::string name, std::string caption, int index = noIndex);
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Menu"; }

    [[nodiscard]] const std::vector<Menu*>& entries() const noexcept { return entries_; }
    [[nodiscard]] Menu* parent() const noexcept { return parent_; }
    [[nodiscard]] bool isSeparator() const noexcept { return Caption() == "-"; }
    [[nodiscard]] bool Checked() const noexcept { return checked_; }
    void setChecked(bool checked);
    /// "Ctrl+S", for display and for the front end's shortcut.
    [[nodiscard]] const std::string& Shortcut() const noexcept { return shortcut_; }
    void setShortcut(std::string keys) { shortcut_ = std::move(keys); }
    /// Whether the entry can be chosen: enabled with its parents, and visible below a pop-up or menu that may be
    /// hidden.
    [[nodiscard]] bool available() const;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;

private:
    Menu* parent_ = nullptr;
    std::vector<Menu*> entries_;
    std::string shortcut_;
    bool checked_ = false;
};

} // namespace zel::forms
