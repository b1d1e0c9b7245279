#include "ado/postgres/open.h"

#include "ado/postgres/engine.h"

namespace zel::ado {

std::unique_ptr<Engine> openPostgres(const PostgresTarget& target, const PostgresOptions& options) {
    return std::make_unique<postgres::PostgresEngine>(target, options);
}

} // namespace zel::ado
