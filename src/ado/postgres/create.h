#pragma once

#include "ado/engine.h"
#include "ado/fill_database.h"
#include "ado/postgres/open.h"

namespace zel::ado {

/// Makes a new database, UTF-8 with the C collation. It gets its name only when it is whole, so a failure leaves
/// nothing behind and an old database as it was. Throws Error when the database exists, unless `replace`; one that
/// others have open is not replaced (kind Busy).
void createPostgresDatabase(const PostgresTarget& target, const FillDatabase& fill, bool replace = false);

} // namespace zel::ado
