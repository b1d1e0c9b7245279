#include "forms/progress_bar.h"

#include "ado/convert.h"

#include <algorithm>

namespace zel::forms {

void ProgressBar::setMin(int min) {
    min_ = min;
    setValue(value_);
}

void ProgressBar::setMax(int max) {
    max_ = max;
    setValue(value_);
}

void ProgressBar::setValue(int value) {
    value_ = std::clamp(value, min_, std::max(min_, max_));
    notify(Property::Text);
}

std::optional<Value> ProgressBar::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "value"))
        return Value(value_);
    if (ado::equalIgnoringCase(name, "Min"))
        return Value(min_);
    if (ado::equalIgnoringCase(name, "Max"))
        return Value(max_);
    return Control::property(name);
}

} // namespace zel::forms
