#pragma once

#include <vector>

namespace zel::forms {

class Control;
class Form;

/// Tab goes through these controls in this order; they share out among them the places in the tab order that they have.
/// The order of the state dump stays.
void setTabOrder(const std::vector<Control*>& order);
/// Puts the focus into the first box that can be typed into, of the form or of a container on it, unless it is in one
/// already.
void focusFirstEntry(Form& form, const Control* within = nullptr);

} // namespace zel::forms
