#pragma once

struct sqlite3;

namespace zel::ado::sqlite {

/// Registers the money collation, the exact sum, and the functions that translated statements call.
void registerFunctions(sqlite3* database);

} // namespace zel::ado::sqlite
