#pragma once

#include "forms/control.h"

#include <deque>

namespace zel::forms {

/// A row of buttons told apart by key.
class Toolbar : public Control {
public:
    struct Button {
        std::string key, caption, toolTip, icon;
        bool enabled = true, visible = true;
    };

    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Toolbar"; }

    void addButton(std::string key, std::string caption, std::string toolTip = {}, std::string icon = {});
    [[nodiscard]] const std::deque<Button>& Buttons() const noexcept { return buttons_; }
    [[nodiscard]] const Button* button(std::string_view key) const noexcept;
    void setButtonEnabled(std::string_view key, bool enabled);
    /// Raises ButtonClick, also for a key that has no button, as a pop-up entry may send one.
    void press(const std::string& key) { raise(ButtonClick, key); }
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Buttons"; }

    std::function<void(const std::string& key)> ButtonClick;

private:
    std::deque<Button> buttons_;
};

} // namespace zel::forms
