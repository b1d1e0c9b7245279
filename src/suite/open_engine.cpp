#include "suite/open_engine.h"

#include "ado/postgres/open.h"
#include "ado/sqlite/open.h"
#include "core/suite.h"
#include "suite/server_catalogs.h"

namespace zel::suite {

std::unique_ptr<ado::Engine> openEngine(const std::string& server, const std::string& catalog, const Login& login) {
    if (server == core::DatabaseLocator::fileServer)
        return ado::openSqlite(catalog);
    return ado::openPostgres({hostOf(server), catalog, login.user, login.password});
}

} // namespace zel::suite
