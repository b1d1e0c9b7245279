#pragma once

#include <string>

namespace zel::platform {
class Files;
}

namespace zel::services {

/// The lines of a file, each behind a line end (CR LF): the text of a one-line file begins with a line end, and its
/// readers count on it. Empty for a file that is absent.
[[nodiscard]] std::string ReadTextFile(const platform::Files& files, const std::string& path);

} // namespace zel::services
