#pragma once

#include <string>

namespace zel::forms {
class Control;
class Form;
} // namespace zel::forms

namespace zel::services {

/// One line for each control of a form: name, type and the values that tell its state, parted by tabs.
[[nodiscard]] std::string LogControls(const forms::Form& form);
/// The line of one control, without its line end.
[[nodiscard]] std::string controlLine(const forms::Control& control);

} // namespace zel::services
