#include "forms/form.h"

#include "ado/convert.h"
#include "forms/form_registry.h"

#include <algorithm>
#include <utility>

namespace zel::forms {

Form::Form(FormRegistry& forms, std::string name) : forms_(forms), name_(std::move(name)) {}

Form::~Form() {
    forms_.forget(*this);
}

void Form::setCaption(std::string caption) {
    caption_ = std::move(caption);
    notify(Property::Caption);
}

void Form::setEnabled(bool enabled) {
    enabled_ = enabled;
    notify(Property::Enabled);
    dropUnreachableFocus();
}

void Form::setVisible(bool visible) {
    if (visible)
        Show();
    else
        Hide();
}

void Form::Show() {
    forms_.doLoad(*this);
    if (!visible_) {
        visible_ = true;
        notify(Property::Visible);
    }
    forms_.activate(*this);
    if (active_ == nullptr) {
        if (Control* first = tabStop(nullptr))
            moveFocus(first);
    }
}

void Form::ShowModal() {
    forms_.dialogs().modal(*this);
}

void Form::Hide() {
    if (!visible_)
        return;
    visible_ = false;
    notify(Property::Visible);
    forms_.deactivate(*this);
}

void Form::Unload() {
    if (!loaded_)
        return;
    bool cancel = false;
    Control::raise(UnloadEvent, cancel);
    if (!cancel && loaded_) {
        Hide();
        forms_.doUnload(*this);
    }
}

void Form::SetFocus() {
    if (visible_)
        forms_.activate(*this);
}

Control* Form::find(std::string_view fullName) const {
    for (Control* control : controls_) {
        if (ado::equalIgnoringCase(control->fullName(), fullName))
            return control;
    }
    return nullptr;
}

Control* Form::tabStop(const Control* from, bool backwards) const {
    std::vector<Control*> stops;
    for (Control* control : controls_) {
        const bool reachable = control->canTakeFocus() && control->TabStop() && control->shown() && control->usable();
        if (reachable || control == from)
            stops.push_back(control);
    }
    std::stable_sort(stops.begin(), stops.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    if (backwards)
        std::reverse(stops.begin(), stops.end());
    auto at = std::find(stops.begin(), stops.end(), from);
    if (at == stops.end())
        return stops.empty() ? nullptr : stops.front();
    std::rotate(stops.begin(), at, stops.end());
    return stops.size() < 2 ? nullptr : stops[1];
}

bool Form::moveFocus(Control* target) {
    if (moving_) {
        next_ = target;
        hasNext_ = true;
        return true;
    }
    const bool moved = changeFocus(target);
    // A handler may ask for the focus again and again; a clerk would see two fields fighting, so it ends at some point.
    for (int follow = 0; moved && hasNext_ && follow < 8; ++follow) {
        hasNext_ = false;
        if (!changeFocus(next_))
            break;
    }
    hasNext_ = false;
    return moved;
}

bool Form::changeFocus(Control* target) {
    if (target == active_)
        return true;
    struct Moving {
        bool& flag;
        ~Moving() { flag = false; }
    } moving{moving_};
    moving_ = true;

    Control* left = active_;
    if (left != nullptr) {
        left->focusGoes();
        bool keep = false;
        if (target == nullptr || target->CausesValidation())
            Control::raise(left->Validate, keep);
        if (keep)
            return false;
    }
    active_ = target;
    if (left != nullptr) {
        left->notify(Property::Focus);
        Control::raise(left->LostFocus);
    }
    if (target != nullptr && active_ == target) {
        target->notify(Property::Focus);
        target->focusComes();
        Control::raise(target->GotFocus);
    }
    return true;
}

void Form::dropUnreachableFocus() {
    if (active_ == nullptr || (active_->shown() && active_->usable()))
        return;
    Control* left = std::exchange(active_, nullptr);
    left->notify(Property::Focus);
    Control::raise(left->LostFocus);
}

void Form::adopt(Control& control) {
    controls_.push_back(&control);
}

void Form::forget(Control& control) {
    std::erase(controls_, &control);
    if (active_ == &control)
        active_ = nullptr;
    if (next_ == &control)
        hasNext_ = false;
}

} // namespace zel::forms
