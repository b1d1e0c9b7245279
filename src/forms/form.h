#pragma once

#include "forms/control.h"

#include <cstdint>
#include <vector>

namespace zel::forms {

class FormRegistry;

/// A screen without a window: its controls, its state, and the operations that the shell and other screens call by
/// name.
class Form {
public:
    Form(FormRegistry& forms, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    [[nodiscard]] const std::string& Name() const noexcept { return name_; }
    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] const std::string& Tag() const noexcept { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }
    [[nodiscard]] FormRegistry& forms() const noexcept { return forms_; }

    /// Shown and hidden forms stay loaded; Show loads first. An unloaded form is destroyed when its events have ended.
    void Show();
    /// Show, and return when the form is hidden or unloaded.
    void ShowModal();
    void Hide();
    void Unload();
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool loaded() const noexcept { return loaded_; }
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);
    /// Gives the form the focus.
    void SetFocus();
    /// Stays in front of all other windows.
    [[nodiscard]] bool TopMost() const noexcept { return topMost_; }
    void setTopMost(bool topMost) { topMost_ = topMost; }

    /// In the order they were made. Arrays are not grouped.
    [[nodiscard]] const std::vector<Control*>& controls() const noexcept { return controls_; }
    /// By name without regard to case: "cmdSave(0)", "txtUser".
    [[nodiscard]] Control* find(std::string_view fullName) const;
    [[nodiscard]] Control* ActiveControl() const noexcept { return active_; }
    /// The next stop in tab order that can take the focus, around the end.
    [[nodiscard]] Control* tabStop(const Control* from, bool backwards = false) const;

    /// Operations of the screen protocol; a screen that lacks one lets it do nothing.
    virtual void tbFormOpen() {}
    virtual void tbFormClose() {}
    virtual void tbSave() {}
    virtual void tbDelete() {}
    virtual void tbNew() {}
    virtual void tbRefresh() {}
    virtual void tbFilter() {}
    virtual void tbLogDump() {}
    virtual void fRebindIncident() {}

    std::function<void()> LoadEvent;
    std::function<void(bool& cancel)> UnloadEvent;
    std::function<void()> Activate;
    std::function<void(int& keyAscii)> KeyPress; ///< sees the keys before the control does

    /// Moves the focus, or takes it from the form with nullptr: Validate and LostFocus of the control left, GotFocus of
    /// the new one. False when the control left keeps it. A move asked for while one is under way follows it.
    bool moveFocus(Control* target);
    /// Takes the focus, without Validate, from a control that was hidden or disabled.
    void dropUnreachableFocus();

    [[nodiscard]] Subscription observe(Observers::Callback callback) { return observers_.add(std::move(callback)); }
    void notify(Property property) { observers_.notify(property); }

private:
    friend class Control;
    friend class FormRegistry;
    void adopt(Control& control);
    void forget(Control& control);
    bool changeFocus(Control* target);

    FormRegistry& forms_;
    std::string name_, caption_, tag_;
    std::vector<Control*> controls_;
    Control* active_ = nullptr;
    Control* next_ = nullptr;
    bool moving_ = false, hasNext_ = false;
    bool loaded_ = false, visible_ = false, enabled_ = true, topMost_ = false;
    Observers observers_;
};

} // namespace zel::forms
