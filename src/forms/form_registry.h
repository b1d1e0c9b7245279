#pragma once

#include "forms/dialogs.h"
#include "forms/form.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zel::platform {
class TimerService;
}

namespace zel::forms {

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

    /// Raised for every form as it becomes loaded and before it is destroyed, and when the active form changes.
    std::function<void(Form&)> formLoaded, formUnloaded;
    std::function<void()> hourglassChanged, activeFormChanged;

    /// Destroys unloaded forms. Called by User when the last event under way has ended.
    void sweep();

private:
    friend class Form;
    void doLoad(Form& form);
    void doUnload(Form& form);
    void activate(Form& form);

    Dialogs& dialogs_;
    platform::TimerService& timers_;
    std::map<std::string, Factory> factories_; // by lower-case name
    std::vector<std::unique_ptr<Form>> owned_, unloaded_;
    std::vector<Form*> order_;  // as loaded
    std::vector<Form*> recent_; // the last one used is the last
    std::string shell_;
    bool hourglass_ = false;
};

} // namespace zel::forms
