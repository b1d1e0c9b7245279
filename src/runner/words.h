#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::runner {

using Words = std::vector<std::string>;

/// The words of one command line, as a shell parts them: blanks part words, single quotes keep everything, double
/// quotes keep everything but `\"` and `\\`, a backslash outside quotes keeps the next character, `#` at the beginning
/// of a word begins a comment. Pieces that touch are one word; '' is an empty one. Nothing is expanded.
/// Throws CommandError for an open quote and for a backslash with nothing behind it.
[[nodiscard]] Words splitWords(std::string_view line);

/// The same for several commands on one line, parted by `;` outside quotes. Empty ones are left out.
[[nodiscard]] std::vector<Words> splitCommands(std::string_view line);

/// A word put so that splitWords gives it back.
[[nodiscard]] std::string quoteWord(std::string_view word);

} // namespace zel::runner
