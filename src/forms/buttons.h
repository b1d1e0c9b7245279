#pragma once

#include "forms/label.h"

namespace zel::forms {

class CommandButton : public Captioned {
public:
    using Captioned::Captioned;
    CommandButton(Place place, std::string name, std::string caption) : Captioned(place, std::move(name)) {
        setCaption(std::move(caption));
    }
    [[nodiscard]] std::string_view typeName() const noexcept override { return "CommandButton"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }
    /// The button that Enter and Escape press on its form.
    [[nodiscard]] bool Default() const noexcept { return default_; }
    void setDefault(bool on) { default_ = on; }
    [[nodiscard]] bool Cancel() const noexcept { return cancel_; }
    void setCancel(bool on) { cancel_ = on; }
    /// Presses the button: raises Click when it is usable.
    void press();
    bool takeKey(int key) override;

private:
    bool default_ = false, cancel_ = false;
};

/// 0 clear, 1 checked, 2 greyed.
class CheckBox : public Captioned {
public:
    static constexpr int unchecked = 0, checked = 1, greyed = 2;

    using Captioned::Captioned;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "CheckBox"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }
    [[nodiscard]] int value() const noexcept { return value_; }
    [[nodiscard]] bool isChecked() const noexcept { return value_ == checked; }
    /// Another value raises Click, by program too.
    void setValue(int value);
    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "value"; }

private:
    int value_ = unchecked;
};

/// One of a group: those of one container (and page) exclude each other.
class OptionButton : public Captioned {
public:
    using Captioned::Captioned;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "OptionButton"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }
    [[nodiscard]] bool value() const noexcept { return value_; }
    /// Switching on raises Click and switches the others of the group off, which raises nothing.
    void setValue(bool on);
    /// Drawn as a button that stays down.
    [[nodiscard]] bool Graphical() const noexcept { return graphical_; }
    void setGraphical(bool graphical) { graphical_ = graphical; }
    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "value"; }

private:
    bool value_ = false, graphical_ = false;
};

} // namespace zel::forms
