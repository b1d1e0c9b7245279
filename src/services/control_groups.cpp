#include "services/control_groups.h"

#include "forms/mask_ed_box.h"
#include "forms/vs_index_tab.h"
#include "services/masked_value.h"

#include <string>

namespace zel::services {

void ClearMaskedBox(forms::MaskEdBox& box) {
    // Under its mask the box refuses the empty text.
    const std::string mask = box.Mask();
    box.setMask("");
    box.setText("");
    box.setMask(mask);
}

void ClearControls(core::Session& session, const forms::ControlArray<forms::MaskEdBox>& boxes,
                   const std::vector<ado::Value>& values, bool bText) {
    std::size_t next = 0;
    boxes.each([&](forms::MaskEdBox& box) {
        ClearMaskedBox(box);
        if (bText && next < values.size())
            SetMaskedValue(session, box, values[next]);
        ++next;
        box.setVisible(true);
    });
}

void SetTabCaptions(forms::vsIndexTab& strip, std::string_view captions, int first, int count) {
    for (int page = first; page < first + count; ++page) {
        const std::size_t bar = captions.find('|');
        strip.setTabCaption(page, std::string(captions.substr(0, bar)));
        if (bar == std::string_view::npos)
            return;
        captions.remove_prefix(bar + 1);
    }
}

} // namespace zel::services
