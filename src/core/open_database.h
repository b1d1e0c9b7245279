#pragma once

#include <cstdint>
#include <string>

namespace zel::core {

class Session;

/// Opens the database of the server names, the saved ones unless they are known already. `bAsk` lets the clerk choose.
/// False when none was opened.
bool OpenServerDB(Session& session, bool bAsk);

/// Opens a database file; one that is missing is looked for beside the program folder, and then asked for.
void OpenDesktopDB(Session& session, std::string path);

/// Lets the clerk look for the database file, and opens it. Gives its path, empty when the clerk cancelled, which also
/// sets gPickCancelled. A hint that exists is taken without a question and not opened.
std::string PickDatabase(Session& session, const std::string& hint = {});

/// The path that the setting DBSPath names, or where the database was found instead. The database is open afterwards.
std::string repairedDatabasePath(Session& session, const std::string& saved);

/// Whether the number is one of the provider's that tell of the database itself, rather than of a wrong value.
[[nodiscard]] bool IsDbError(std::int32_t number) noexcept;

} // namespace zel::core
