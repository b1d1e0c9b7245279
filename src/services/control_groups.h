#pragma once

#include "ado/value.h"
#include "forms/control_array.h"

#include <string_view>
#include <vector>

namespace zel::core {
class Session;
}

namespace zel::forms {
class MaskEdBox;
class vsIndexTab;
} // namespace zel::forms

namespace zel::services {

/// Shows or hides all controls of an array.
template <typename T>
void ShowAll(const forms::ControlArray<T>& controls) {
    controls.each([](T& control) { control.setVisible(true); });
}
template <typename T>
void HideAll(const forms::ControlArray<T>& controls) {
    controls.each([](T& control) { control.setVisible(false); });
}

/// Empties a masked box; its mask stays.
void ClearMaskedBox(forms::MaskEdBox& box);

/// Empties the boxes, then puts the values in by their masks, one for each box in order, and shows them. Without
/// `bText` they stay empty.
void ClearControls(core::Session& session, const forms::ControlArray<forms::MaskEdBox>& boxes,
                   const std::vector<ado::Value>& values, bool bText);

/// Captions of `count` pages from the page `first` on, parted by "|".
void SetTabCaptions(forms::vsIndexTab& strip, std::string_view captions, int first, int count);

} // namespace zel::services
