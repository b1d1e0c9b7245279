#pragma once

#include <string>
#include <string_view>

namespace zel::runner {

/// A column's name as the schema spells it, else as the statement does. One of the engines forgets the letters' case,
/// and a script should not notice on which it runs.
[[nodiscard]] std::string spelledName(const std::string& name, std::string_view statement = {});

} // namespace zel::runner
