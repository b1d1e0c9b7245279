#pragma once

#include <string>

namespace zel::tablon {

/// A folder for files that this user alone may read, made where it is missing: forms hold names, addresses and pay.
/// What was printed on other days is taken away. Throws platform::FileError.
[[nodiscard]] std::string privateFolder();

} // namespace zel::tablon
