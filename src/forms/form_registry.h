#pragma once

#include "forms/dialogs.h"
#include "forms/form.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zel::platform {
class TimerService;
}

namespace zel::forms {

class Menu;

/// Makes screens by name and knows those that are loaded; one per running program.
class FormRegistry {
public:
    using Factory = std::function<std::unique_ptr<Form>()>;

    FormRegistry(Dialogs& dialogs, platform::TimerService& timers) : dialogs_(dialogs), timers_(timers) {}
    ~FormRegistry();
    FormRegistry(const FormRegistry&) = delete;
    FormRegistry& operator=(const FormRegistry&) = delete;

    /// Names ignore case. A screen that was never added does not exist: load gives nullptr.
    void add(const std::string& name, Factory factory);
    [[nodiscard]] bool has(std::string_view name) const;
    /// The loaded screen, made and loaded first where it is not.
    Form* load(std::string_view name);
    /// The loaded screen or nullptr.
    [[nodiscard]] Form* loaded(std::string_view name) const;
    /// A screen by its class, for callers that know it: `forms.get<frmPost>("frmPost")`.
    template <typename T>
    T* get(std::string_view name) {
        return dynamic_cast<T*>(load(name));
    }

    /// Loaded forms in the order they were loaded.
    [[nodiscard]] std::vector<Form*> forms() const;
    /// The visible form that was shown or used last, the shell's own window left out.
    [[nodiscard]] Form* ActiveForm() const;
    /// The shell's window: it is a form, but never the active one.
    void setShell(std::string name) { shell_ = std::move(name); }
    [[nodiscard]] Form* shell() const { return loaded(shell_); }

    [[nodiscard]] Dialogs& dialogs() const noexcept { return dialogs_; }
    [[nodiscard]] platform::TimerService& timers() const noexcept { return timers_; }

    /// The mouse pointer of the whole program.
    [[nodiscard]] bool Hourglass() const noexcept { return hourglass_; }
    void setHourglass(bool on);

    /// Shows a pop-up menu where the mouse is; a screen calls it from RightClick. The front end takes it from here.
    void PopupMenu(Menu& menu) { popup_ = &menu; }
    [[nodiscard]] Menu* takePopup() noexcept { return std::exchange(popup_, nullptr); }
    /// What a grid shows that has no pop-up menu of its own; nullptr for nothing.
    void setGridPopup(Menu* menu) noexcept { gridPopup_ = menu; }
    [[nodiscard]] Menu* gridPopup() const noexcept { return gridPopup_; }

    /// Raised for every form as it becomes loaded and before it is destroyed, and when the active form changes.
    std::function<void(Form&)> formLoaded, formUnloaded;
    std::function<void()> hourglassChanged, activeFormChanged;

    /// The length of one action from outside: a clerk's or a timer's. Unloaded forms live until the outermost one ends.
    class Action {
    public:
        explicit Action(FormRegistry& forms) : forms_(forms) { ++forms_.actions_; }
        ~Action() { forms_.actionEnded(); }
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

    private:
        FormRegistry& forms_;
    };
    /// Raised as each action ends, also one inside a modal form: the moment to draw anew what shows record sets, which
    /// do not tell of each change themselves.
    std::function<void()> settled;

    /// The form that has to be closed before any other can be used, or nullptr.
    [[nodiscard]] Form* modalForm() const { return modal_.empty() ? nullptr : modal_.back(); }

private:
    friend class Dialogs;
    friend class Form;
    void doLoad(Form& form);
    void doUnload(Form& form);
    void activate(Form& form);
    void deactivate(Form& form);
    void forget(Form& form);
    void tellActive(const Form* before);
    void actionEnded();

    Dialogs& dialogs_;
    platform::TimerService& timers_;
    std::map<std::string, Factory> factories_; // by lower-case name
    std::vector<std::unique_ptr<Form>> owned_, unloaded_;
    std::vector<Form*> order_;  // as loaded
    std::vector<Form*> recent_; // the last one used is the last
    std::vector<Form*> modal_;
    std::string shell_;
    int actions_ = 0;
    Menu *popup_ = nullptr, *gridPopup_ = nullptr;
    bool hourglass_ = false;
};

} // namespace zel::forms
