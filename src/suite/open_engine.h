#pragma once

#include "suite/login.h"

#include <memory>
#include <string>

namespace zel::ado {
class Engine;
}

namespace zel::suite {

/// Opens a server's catalog, or the file that the catalog names when the server is core::DatabaseLocator::fileServer.
/// Throws ado::Error.
[[nodiscard]] std::unique_ptr<ado::Engine> openEngine(const std::string& server, const std::string& catalog,
                                                      const Login& login);

} // namespace zel::suite
