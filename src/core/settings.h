#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace zel::core {

class Session;

using platform::FixPath;
/// The folder that holds the folder, with a separator at its end.
[[nodiscard]] std::string folderAbove(std::string folder);
/// The folder that a file lies in, with a separator at its end.
[[nodiscard]] std::string folderOf(const std::string& file);

/// Read with a buffer of 255 characters and cut at the first NUL.
[[nodiscard]] std::string IniGet(const platform::Files& files, const std::string& file, std::string_view section,
                                 std::string_view key, std::string_view fallback);
/// Writes, then reads back and gives what stands there now. A file that cannot be written keeps its old value.
std::string IniPut(platform::Files& files, const std::string& file, std::string_view section, std::string_view key,
                   std::string_view value);

/// Section "ZEL" of `zel.ini` in the program folder.
void SaveSetting(Session& session, std::string_view key, std::string_view value);
/// The key "DBSPath" is repaired when it names no file, and its database is opened: see open_database.h.
[[nodiscard]] std::string GetSetting(Session& session, std::string_view key);

} // namespace zel::core
