#include "incident/incident_forms.h"

#include "core/session.h"
#include "forms/form_registry.h"
#include "incident/frmIncidents.h"

namespace zel::incident {

void addIncidentForms(core::Session& session) {
    session.forms.add("frmIncidents", [&session] { return std::make_unique<frmIncidents>(session); });
}

} // namespace zel::incident
