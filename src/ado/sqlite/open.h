#pragma once

#include "ado/engine.h"

#include <chrono>
#include <filesystem>
#include <memory>

namespace zel::ado {

/// What the header of every database file of the suite carries as its application id ("KRVN").
inline constexpr std::uint32_t sqliteApplicationId = 0x4B52564E;

struct SqliteOptions {
    /// Nothing is written, whatever is asked.
    bool readOnly = false;
    /// A commit has reached the disk before it is reported. Only tests and the filling of a new file do without.
    bool durable = true;
    /// How long a statement waits for another user of the file.
    std::chrono::milliseconds patience{10'000};
};

/// Opens a database file that exists; it is never made or changed by opening. Throws Error (kind Open) for a file that
/// is missing, is no database, is a database of another program, or is a Jet file.
[[nodiscard]] std::unique_ptr<Engine> openSqlite(const std::filesystem::path& file, const SqliteOptions& options = {});

} // namespace zel::ado
