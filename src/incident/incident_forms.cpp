#include "incident/incident_forms.h"

#include "core/session.h"
#include "forms/form_registry.h"
#include "incident/frmAccounts.h"
#include "incident/frmAdminOffice.h"
#include "incident/frmIncidents.h"
#include "incident/frmOfficePopup.h"

namespace zel::incident {

void addIncidentForms(core::Session& session) {
    session.forms.add("frmIncidents", [&session] { return std::make_unique<frmIncidents>(session); });
    session.forms.add("frmAccounts", [&session] { return std::make_unique<frmAccounts>(session); });
    session.forms.add("frmAdminOffice", [&session] { return std::make_unique<frmAdminOffice>(session); });
    session.forms.add("frmOfficePopup", [&session] { return std::make_unique<frmOfficePopup>(session); });
}

} // namespace zel::incident
