#include "incident/frmOfficePopup.h"

#include "core/modData.h"
#include "core/session.h"

namespace zel::incident {

frmOfficePopup::frmOfficePopup(core::Session& state) : DialogWindow(state, "frmOfficePopup") {
    setCaption("Add Administrative Office For Payment");
    mskOffice.add(*this, 4);
    static constexpr const char* captions[] = {"* Office Name", "* Address 1", "Address 2", "* City", "* ST", "* Zip"};
    lblOffice.each([](forms::Label& label) { label.setCaption(captions[label.Index()]); });
    cmdSave.add(*this, 1).setCaption("&Save");
    cmdSave(1).setDefault(true);
    cmdSave.add(*this, 0).setCaption("&Cancel");
    cmdSave(0).setCancel(true);
    LoadEvent = always([this] { fields_.prepare(session); });
    cmdSave.on(&forms::CommandButton::Click, [this](int index) { handler([this, index] { close(index == 1); })(); });
}

void frmOfficePopup::close(bool save) {
    std::int32_t office = -1;
    if (save && !mskOffice(0).Text().empty())
        office = fields_.insert(session.connection());
    if (offices_ != nullptr) {
        offices_->Refresh();
        if (office > 0)
            (void)core::FindRow(offices_->Recordset(), "AdminOfficeID", office);
    }
    Unload();
}

} // namespace zel::incident
