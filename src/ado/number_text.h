#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zel::ado {

/// A numeric text in plain letters: "-1234.50" for " (1,234.50) ", "1e3" kept. Empty when the text is no number.
[[nodiscard]] std::optional<std::string> plainNumber(std::string_view text);

} // namespace zel::ado
