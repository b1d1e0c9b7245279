#pragma once

#include "ado/engine.h"

#include <string>
#include <vector>

namespace zel::korvandb {

/// Kept in the header of a database file, so that a later program can tell which tables to expect.
inline constexpr int schemaVersion = 50100;

/// Everything that makes an empty database a whole one without incidents: tables, indexes, views, lookups, version
/// rows. To be run in one transaction; createSqliteFile takes them as they are.
[[nodiscard]] std::vector<std::string> creationStatements(ado::EngineKind engine);

/// Runs the creation statements on an open, empty database: all of them or none. For a new file:
///
///     ado::createSqliteFile(file, createTables);
void createTables(ado::Engine& engine);

} // namespace zel::korvandb
