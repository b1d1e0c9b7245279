#include "posting/posting_forms.h"

#include "core/session.h"
#include "forms/form_registry.h"
#include "posting/frmPost.h"

namespace zel::posting {

void addPostingForms(core::Session& session) {
    session.forms.add("frmPost", [&session] { return std::make_unique<frmPost>(session); });
}

} // namespace zel::posting
