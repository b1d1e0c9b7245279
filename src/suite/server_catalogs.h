#pragma once

#include "suite/login.h"

#include <string>
#include <vector>

namespace zel::suite {

/// The host of a server name: clerks may add "\Korvan", which older databases wanted.
[[nodiscard]] std::string hostOf(const std::string& server);

/// Names of the databases on a server, sorted; none when the server does not tell.
[[nodiscard]] std::vector<std::string> catalogsOf(const std::string& server, const Login& login);

} // namespace zel::suite
