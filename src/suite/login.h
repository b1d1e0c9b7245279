#pragma once

#include <string>

namespace zel::suite {

/// Who works on the database. The password lives in memory only; what is empty is taken from the places that the
/// server's own client library knows, its password file among them.
struct Login {
    std::string user, password;
};

} // namespace zel::suite
