#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace zel::test {

/// A PostgreSQL server of its own in a new folder, reached through a Unix socket there only. It ends with this object,
/// and with the process that made it.
///
/// The user "zel" may do everything without a password; the user "clerk" needs one.
class PostgresServer {
public:
    explicit PostgresServer(std::filesystem::path folder);
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    [[nodiscard]] const std::filesystem::path& socketFolder() const noexcept { return folder_; }
    void start();
    /// As if the power failed: nothing is finished, connections break.
    void kill();
    /// Suspends and resumes every process of the server, which then answers nothing.
    void suspend(bool suspended);

private:
    void initialise();
    [[nodiscard]] bool takesConnections() const;

    std::filesystem::path folder_;
    pid_t process_ = -1;
};

} // namespace zel::test
