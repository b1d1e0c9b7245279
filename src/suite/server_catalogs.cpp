#include "suite/server_catalogs.h"

#include "ado/error.h"
#include "ado/postgres/open.h"
#include "ado/row_store.h"

namespace zel::suite {

namespace {

// Every server has this one.
constexpr const char* maintenanceCatalog = "postgres";

} // namespace

std::string hostOf(const std::string& server) {
    return server.substr(0, server.find('\\'));
}

std::vector<std::string> catalogsOf(const std::string& server, const Login& login) {
    std::vector<std::string> names;
    try {
        const auto engine = ado::openPostgres({hostOf(server), maintenanceCatalog, login.user, login.password});
        const auto statement =
            engine->prepare("SELECT datname::text AS name FROM pg_database WHERE NOT datistemplate AND datallowconn "
                            "AND datname <> 'postgres' ORDER BY datname",
                            false);
        ado::RowStore rows(statement->columns().size());
        statement->query({}, rows);
        for (std::size_t row = 0; row < rows.rows(); ++row)
            names.emplace_back(rows.textAt(row, 0));
    } catch (const ado::Error&) {
        // The clerk can still type the name; what is wrong with the server is told when it is opened.
    }
    return names;
}

} // namespace zel::suite
