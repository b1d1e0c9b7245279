#pragma once

namespace zel::core {
class Session;
}

namespace zel::posting {

/// Makes the posting screen known to the session's form registry.
void addPostingForms(core::Session& session);

} // namespace zel::posting
