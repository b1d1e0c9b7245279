#pragma once

#include "ado/engine.h"

#include <chrono>
#include <memory>
#include <string>

namespace zel::ado {

struct PostgresOptions {
    /// How long a statement waits for another user's lock.
    std::chrono::milliseconds patience{10'000};
    /// How long a statement may take in all; zero is without limit.
    std::chrono::milliseconds statementLimit{120'000};
    std::chrono::seconds connectLimit{10};
};

/// Where a database is. `server` is a host with an optional ":port", or the absolute path of a socket folder
/// ("/run/postgresql:5433"). What is empty is taken from the client library's own places.
struct PostgresTarget {
    std::string server;
    std::string catalog;
    std::string user;
    std::string password;
};

/// Opens a database that exists. Throws Error (kind Open, number 0x80040E4D when the user or password is refused).
[[nodiscard]] std::unique_ptr<Engine> openPostgres(const PostgresTarget& target, const PostgresOptions& options = {});

} // namespace zel::ado
