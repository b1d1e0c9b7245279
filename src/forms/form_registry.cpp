#include "forms/form_registry.h"

#include "ado/convert.h"

#include <algorithm>

namespace zel::forms {

FormRegistry::~FormRegistry() {
    unloaded_.clear();
    // Later screens may look at earlier ones as they end.
    while (!owned_.empty())
        owned_.pop_back();
}

void FormRegistry::add(const std::string& name, Factory factory) {
    factories_[ado::lowerCase(name)] = std::move(factory);
}

bool FormRegistry::has(std::string_view name) const {
    return factories_.contains(ado::lowerCase(name));
}

Form* FormRegistry::load(std::string_view name) {
    if (Form* form = loaded(name))
        return form;
    auto factory = factories_.find(ado::lowerCase(name));
    if (factory == factories_.end())
        return nullptr;
    owned_.push_back(factory->second());
    Form& form = *owned_.back();
    doLoad(form);
    return &form;
}

Form* FormRegistry::loaded(std::string_view name) const {
    for (Form* form : order_) {
        if (ado::equalIgnoringCase(form->Name(), name))
            return form;
    }
    return nullptr;
}

std::vector<Form*> FormRegistry::forms() const {
    return order_;
}

Form* FormRegistry::ActiveForm() const {
    const auto isScreen = [this](const Form* form) { return !ado::equalIgnoringCase(form->Name(), shell_); };
    const auto last = std::find_if(recent_.rbegin(), recent_.rend(), isScreen);
    return last == recent_.rend() ? nullptr : *last;
}

void FormRegistry::setHourglass(bool on) {
    if (on == hourglass_)
        return;
    hourglass_ = on;
    Control::raise(hourglassChanged);
}

void FormRegistry::actionEnded() {
    Control::raise(settled);
    if (--actions_ > 0)
        return;
    auto gone = std::move(unloaded_);
    unloaded_.clear();
    while (!gone.empty())
        gone.pop_back();
}

void FormRegistry::doLoad(Form& form) {
    if (form.loaded_)
        return;
    auto unloaded =
        std::find_if(unloaded_.begin(), unloaded_.end(), [&](const auto& held) { return held.get() == &form; });
    if (unloaded != unloaded_.end()) {
        owned_.push_back(std::move(*unloaded));
        unloaded_.erase(unloaded);
    }
    form.loaded_ = true;
    order_.push_back(&form);
    Control::raise(formLoaded, form);
    Control::raise(form.LoadEvent);
}

void FormRegistry::doUnload(Form& form) {
    form.loaded_ = false;
    std::erase(order_, &form);
    Control::raise(formUnloaded, form);
    auto owned = std::find_if(owned_.begin(), owned_.end(), [&](const auto& held) { return held.get() == &form; });
    if (owned != owned_.end()) {
        unloaded_.push_back(std::move(*owned));
        owned_.erase(owned);
    }
}

void FormRegistry::activate(Form& form) {
    const Form* before = ActiveForm();
    std::erase(recent_, &form);
    recent_.push_back(&form);
    if (before != ActiveForm())
        Control::raise(form.Activate);
    tellActive(before);
}

void FormRegistry::deactivate(Form& form) {
    const Form* before = ActiveForm();
    std::erase(recent_, &form);
    tellActive(before);
}

void FormRegistry::tellActive(const Form* before) {
    if (before != ActiveForm())
        Control::raise(activeFormChanged);
}

void FormRegistry::forget(Form& form) {
    std::erase(order_, &form);
    std::erase(recent_, &form);
    std::erase(modal_, &form);
}

} // namespace zel::forms
