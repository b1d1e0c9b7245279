#pragma once

#include "ado/error.h"

#include <string>

struct pg_conn;
struct pg_result;

namespace zel::ado::postgres {

/// What the server said of a statement, in the words and numbers the screens know.
[[nodiscard]] Error errorOf(const pg_result* result, const std::string& statement);
/// Why there is no connection.
[[nodiscard]] Error openErrorOf(const pg_conn* connection);
/// The connection went away; `writing` tells whether a change was under way that may have been made.
[[nodiscard]] Error lostError(bool writing, const std::string& detail, const std::string& statement);
/// Whether the server's answer means that the connection is gone.
[[nodiscard]] bool meansLost(const pg_result* result);
[[nodiscard]] std::string sqlState(const pg_result* result);

} // namespace zel::ado::postgres
