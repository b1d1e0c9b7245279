#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace zel::platform {

/// The first value of a key in a private-profile text, `fallback` when there is none. Sections and keys ignore case;
/// blanks around key and value and a pair of quotes around the value do not belong to it.
[[nodiscard]] std::string profileValue(std::string_view text, std::string_view section, std::string_view key,
                                       std::string_view fallback);

/// The text with the value set (up to a line break or NUL in it); everything else stays byte for byte. A key that is
/// new goes to the end of its section. The first of equal sections and keys is meant.
[[nodiscard]] std::string withProfileValue(std::string_view text, std::string_view section, std::string_view key,
                                           std::string_view value);

/// Reads one value of a file, cut to `buffer` - 1 characters and at the first NUL, as programs of the suite read it.
[[nodiscard]] std::string readProfile(const Files& files, const std::string& path, std::string_view section,
                                      std::string_view key, std::string_view fallback, std::size_t buffer = 255);

/// Sets one value of a file, which is made when it does not exist. A value that is only what a reading with the same
/// buffer left of a longer one is not written, as that would lose the rest. Throws FileError when the file cannot be
/// written, or when file or value are no text; the file is as it was then.
void writeProfile(Files& files, const std::string& path, std::string_view section, std::string_view key,
                  std::string_view value, std::size_t buffer = 255);

} // namespace zel::platform
