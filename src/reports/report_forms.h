#pragma once

namespace zel::core {
class Session;
}

namespace zel::reports {

/// Makes the viewer known, and connects the shell's reports with it.
void addReportForms(core::Session& session);

} // namespace zel::reports
