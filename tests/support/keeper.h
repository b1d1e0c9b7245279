#pragma once

#include <sys/types.h>

#include <filesystem>

namespace zel::test {

/// Starts a process that owns a run's folder and its PostgreSQL server (see PostgresServer), and that ends both when
/// the watched process is gone or it is told to. Gives the folder, which is there at once; the server starts when a
/// test first asks for it.
[[nodiscard]] std::filesystem::path startKeeper(pid_t watched);

/// Ends the keeper of a folder and waits until the folder is gone.
void stopKeeper(const std::filesystem::path& folder);

/// Asks the keeper for the server and waits until it takes connections. Gives the folder of its socket.
[[nodiscard]] std::filesystem::path runningServer(const std::filesystem::path& folder);

} // namespace zel::test
