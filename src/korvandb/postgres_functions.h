#pragma once

#include <string>
#include <vector>

namespace zel::korvandb {

/// The functions of the schema dbo: what translated statements call, and usp_getNextNumber.
[[nodiscard]] std::vector<std::string> postgresFunctions();

} // namespace zel::korvandb
