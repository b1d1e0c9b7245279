#pragma once

#include "forms/control.h"

namespace zel::forms {

/// How far a long work is.
class ProgressBar : public Control {
public:
    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "ProgressBar"; }
    [[nodiscard]] int Min() const noexcept { return min_; }
    [[nodiscard]] int Max() const noexcept { return max_; }
    void setMin(int min);
    void setMax(int max);
    [[nodiscard]] int value() const noexcept { return value_; }
    /// Kept between Min and Max.
    void setValue(int value);
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "value"; }

private:
    int min_ = 0, max_ = 100, value_ = 0;
};

} // namespace zel::forms
