#pragma once

#include <string_view>

/// The texts of the folder database/, as they were when the program was built.
namespace zel::korvandb::texts {

extern const std::string_view schema;
extern const std::string_view lookups;
extern const std::string_view demo;

} // namespace zel::korvandb::texts
