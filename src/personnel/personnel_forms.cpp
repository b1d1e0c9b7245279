#include "personnel/personnel_forms.h"

#include "core/session.h"
#include "forms/form_registry.h"
#include "personnel/frmPersonnel.h"

namespace zel::personnel {

void addPersonnelForms(core::Session& session) {
    session.forms.add("frmPersonnel", [&session] { return std::make_unique<frmPersonnel>(session); });
    session.extensions.fClearPersonUpdate = [&session] {
        if (auto* screen = dynamic_cast<frmPersonnel*>(session.forms.loaded("frmPersonnel")))
            screen->fClearPersonUpdate();
    };
}

} // namespace zel::personnel
