#include "suite/korvan_suite.h"

#include "ado/sqlite/create.h"
#include "core/session.h"
#include "forms/form_registry.h"
#include "suite/frmSecurity.h"
#include "suite/frmServerSelect.h"
#include "suite/resource_deleter.h"

namespace zel::suite {

std::unique_ptr<core::ResourceDeleter> KorvanSuite::makeResourceDeleter() {
    return std::make_unique<ResourceDeleter>();
}

void KorvanSuite::copyDatabase(const std::string& path, const std::string& copy) {
    ado::backupInto(path, copy);
}

void addSuiteForms(core::Session& session) {
    session.forms.add("frmServerSelect", [&session] { return std::make_unique<frmServerSelect>(session); });
    session.forms.add("frmSecurity", [&session] { return std::make_unique<frmSecurity>(session); });
}

} // namespace zel::suite
