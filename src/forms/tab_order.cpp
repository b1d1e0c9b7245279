#include "forms/tab_order.h"

#include "forms/form.h"
#include "forms/text_edit.h"

#include <algorithm>

namespace zel::forms {

namespace {

bool isInside(const Control& control, const Control& container) {
    const Control* around = control.container();
    return around != nullptr && (around == &container || isInside(*around, container));
}

bool isReachable(const Control& control) {
    return control.TabStop() && control.shown() && control.usable();
}

} // namespace

void setTabOrder(const std::vector<Control*>& order) {
    std::vector<int> places;
    places.reserve(order.size());
    for (const Control* control : order)
        places.push_back(control->TabIndex());
    std::sort(places.begin(), places.end());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i]->setTabIndex(places[i]);
}

void focusFirstEntry(Form& form, const Control* within) {
    const auto isEntry = [within](const Control* control) {
        const auto* box = dynamic_cast<const TextEdit*>(control);
        return box != nullptr && !box->Locked() && (within == nullptr || isInside(*box, *within));
    };
    if (isEntry(form.ActiveControl()))
        return;
    Control* first = nullptr;
    for (Control* control : form.controls()) {
        if (isEntry(control) && isReachable(*control) && (first == nullptr || control->TabIndex() < first->TabIndex()))
            first = control;
    }
    if (first != nullptr)
        form.moveFocus(first);
}

} // namespace zel::forms
