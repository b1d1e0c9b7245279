#pragma once

namespace zel::core {
class Session;
}

namespace zel::incident {

/// Makes the screens of the incident data known to the session's form registry.
void addIncidentForms(core::Session& session);

} // namespace zel::incident
