#pragma once

namespace zel::core {

class Session;

/// Builds gAppVersion from the numbers of the program: "5.01.00".
void BuildAppVersion(Session& session);

/// Reads the version of the open database into gDBVersion, empty when there is none.
void GetVersion(Session& session);

/// Whether the database is older than this program can work with. Also builds gMinDBVersion.
[[nodiscard]] bool IsOldDatabase(Session& session);

/// Reads the build of the suite into gBuildVersion, "Unknown" when there is none.
void GetBuildVersion(Session& session);

} // namespace zel::core
