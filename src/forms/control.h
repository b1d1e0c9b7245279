#pragma once

#include "ado/value.h"
#include "forms/observers.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace zel::forms {

using ado::Value;
class Control;
class Form;

/// Where a control stands: on a form, in a container, or on a page of a tab strip (`tabPosting.page(1)`).
struct Place {
    Place(Form& onForm) : form(onForm) {}
    Place(Control& inContainer);
    Place(Control& tabStrip, int onPage);

    Form& form;
    Control* container = nullptr;
    int page = -1;
};

/// Colours as the screens write them: red + 256 * green + 65536 * blue, or one of these.
namespace colors {
inline constexpr int automatic = -1; ///< what the desktop's style gives
inline constexpr int red = 255;
inline constexpr int black = 0;
inline constexpr int lightGrey = 224 + 256 * 224 + 65536 * 224;
} // namespace colors

/// Base of everything that stands on a form. Controls are members of their form and live as long as it.
///
/// A property reads as its name and is set with `set` and its name. Events are slots that the screen fills; the user
/// actions (see User) raise them, and so do the changes by program that the platform tells of.
class Control {
public:
    static constexpr int noIndex = -1;

    Control(Place place, std::string name, int index = noIndex);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// As the state dump prints it: "CommandButton", "MaskEdBox".
    [[nodiscard]] virtual std::string_view typeName() const noexcept = 0;
    [[nodiscard]] const std::string& Name() const noexcept { return name_; }
    [[nodiscard]] int Index() const noexcept { return index_; }
    /// "cmdSave(0)", or the bare name outside an array.
    [[nodiscard]] std::string fullName() const;
    [[nodiscard]] Form& form() const noexcept { return form_; }
    [[nodiscard]] Control* container() const noexcept { return container_; }
    /// The page of the tab strip it stands on, -1 outside one.
    [[nodiscard]] int page() const noexcept { return page_; }

    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    virtual void setEnabled(bool enabled);
    /// With all containers and the page in front: what the clerk sees and can reach.
    [[nodiscard]] bool shown() const;
    [[nodiscard]] bool usable() const;

    [[nodiscard]] const std::string& Tag() const noexcept { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }
    [[nodiscard]] const std::string& ToolTipText() const noexcept { return toolTip_; }
    void setToolTipText(std::string text);
    [[nodiscard]] int BackColor() const noexcept { return backColor_; }
    void setBackColor(int color);
    [[nodiscard]] int ForeColor() const noexcept { return foreColor_; }
    void setForeColor(int color);
    [[nodiscard]] int TabIndex() const noexcept { return tabIndex_; }
    void setTabIndex(int index) { tabIndex_ = index; }
    [[nodiscard]] bool TabStop() const noexcept { return tabStop_; }
    void setTabStop(bool stop) { tabStop_ = stop; }
    /// A control that does not cause validation can be reached from a field that refuses to be left.
    [[nodiscard]] bool CausesValidation() const noexcept { return causesValidation_; }
    void setCausesValidation(bool causes) { causesValidation_ = causes; }

    [[nodiscard]] virtual bool canTakeFocus() const noexcept { return false; }
    [[nodiscard]] bool hasFocus() const;
    /// Moves the focus as a clerk would; does nothing when the control is hidden or disabled.
    void SetFocus();

    /// A property by name, letters ignored, for the automation runner and the state dump. Empty when there is none.
    [[nodiscard]] virtual std::optional<Value> property(std::string_view name) const;
    /// The property meant when none is named: Text, Value, Caption.
    [[nodiscard]] virtual std::string_view defaultProperty() const noexcept { return "Visible"; }

    /// Whether what stands on the page can be seen or used; containers without pages say yes.
    [[nodiscard]] virtual bool pageShown(int) const { return true; }
    [[nodiscard]] virtual bool pageUsable(int) const { return true; }

    /// Raised when the focus comes, in the order GotFocus, KeyPress for each key, Change, Validate, LostFocus.
    std::function<void()> GotFocus;
    std::function<void(int& keyAscii)> KeyPress; ///< set the key to 0 to swallow it, or to another key
    std::function<void(bool& keepFocus)> Validate;
    std::function<void()> LostFocus;
    std::function<void()> Click;
    std::function<void()> DblClick;
    std::function<void()> RightClick; ///< where the screen shows its pop-up menu

    [[nodiscard]] Subscription observe(Observers::Callback callback) { return observers_.add(std::move(callback)); }
    void notify(Property property) { observers_.notify(property); }

    /// A key that KeyPress let pass reaches the control here. False: the control has no use for it.
    virtual bool takeKey(int) { return false; }
    /// Called as the focus comes and, before Validate, as it goes; for controls that complete their entry on leaving.
    virtual void focusComes() {}
    virtual void focusGoes() {}
    /// Raise an event from outside: the user actions and the focus do.
    template <typename... Args>
    static void raise(const std::function<void(Args...)>& slot, std::type_identity_t<Args>... args) {
        if (auto handler = slot) // a copy: the handler may set the slot anew
            handler(std::forward<Args>(args)...);
    }

private:
    Form& form_;
    Control* container_;
    int page_;
    std::string name_;
    int index_;
    bool visible_ = true, enabled_ = true, tabStop_ = true, causesValidation_ = true;
    int tabIndex_;
    int backColor_ = colors::automatic, foreColor_ = colors::automatic;
    std::string tag_, toolTip_;
    Observers observers_;
};

} // namespace zel::forms
