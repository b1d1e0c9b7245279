#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace zel::korvandb {

/// Told now and then how far long work has come; a total of 0 is not known. What it throws ends the work.
using Progress = std::function<void(std::string_view work, std::int64_t done, std::int64_t total)>;

} // namespace zel::korvandb
