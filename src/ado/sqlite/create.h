#pragma once

#include "ado/engine.h"
#include "ado/fill_database.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zel::ado {

/// Makes a new database file. It gets its name only when it is whole, so a failure (a full disk, a wrong statement)
/// leaves nothing behind and an old file as it was. Throws Error when the file exists, unless `replace`.
void createSqliteFile(const std::filesystem::path& file, const FillDatabase& fill, bool replace = false);

/// Copies a live database. The copy is made by the engine, opened and checked before it gets its name: copying the file
/// while others write loses data. An existing file of that name is replaced.
void backupInto(const std::filesystem::path& source, const std::filesystem::path& copy);

/// The engine's own check: every complaint as a line, none when the database is sound.
[[nodiscard]] std::vector<std::string> checkIntegrity(Engine& engine);

} // namespace zel::ado
