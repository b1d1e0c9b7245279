#pragma once

namespace zel::core {
class Session;
}

namespace zel::personnel {

/// Makes the screens of persons and crews known to the session's form registry, and fills what the shell leaves to
/// them.
void addPersonnelForms(core::Session& session);

} // namespace zel::personnel
