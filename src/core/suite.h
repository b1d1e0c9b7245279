#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace zel::ado {
class Connection;
}

namespace zel::core {

class Session;

/// Finds and opens the database; keeps user and password to itself.
class DatabaseLocator {
public:
    virtual ~DatabaseLocator() = default;
    /// The security dialog of a desktop database.
    virtual void ShowSecurity(Session& session) = 0;
    /// The connection that was opened last; null when none is.
    [[nodiscard]] virtual std::shared_ptr<ado::Connection> GetConnection() = 0;
    virtual bool CloseDatabase() = 0;
    /// `versions` is the pair of lowest and present database version as text. Throws ado::Error when it cannot be
    /// opened.
    virtual void OpenDesktop(Session& session, const std::string& path, const std::string& user,
                             const std::string& password, const std::string& versions, const std::string& module) = 0;
    /// What stands for the server name when the clerk chose a database file; the catalog is then its path.
    static constexpr const char* fileServer = "Database file";
    /// Gives the connection text, empty on failure. With empty names the clerk chooses, and the choice comes back in
    /// them.
    [[nodiscard]] virtual std::string OpenServer(Session& session, const std::string& module,
                                                 const std::string& iniPath, std::string& server,
                                                 std::string& catalog) = 0;
    /// The security dialog of a server.
    virtual void ShowServerSecurity(Session& session, const std::string& server) = 0;
    [[nodiscard]] virtual std::string Password() const = 0;
    [[nodiscard]] virtual std::string UserName() const = 0;
};

/// Deletes a resource, a person or an incident with all that hangs on it. It asks the clerk itself.
class ResourceDeleter {
public:
    virtual ~ResourceDeleter() = default;
    /// `resourceKeys` and `personKeys` are lists of keys parted by `separator`; without persons the whole resource
    /// goes. True when the rows are gone.
    [[nodiscard]] virtual bool DeleteResources(Session& session, const std::string& resourceKeys,
                                               const std::string& personKeys, const std::string& separator) = 0;
    virtual void DeleteIncident(Session& session, std::int32_t incident, bool& success) = 0;
};

class SupportService {
public:
    virtual ~SupportService() = default;
    /// Whether the release date of a resource may be saved; tells the clerk why not.
    [[nodiscard]] virtual bool CheckReleaseDate(Session& session, std::int32_t resource,
                                                const std::string& releaseDate) = 0;
    virtual void ShowSupport(Session& session) = 0;
};

/// The objects of the suite that this program uses but does not own.
class Suite {
public:
    virtual ~Suite() = default;
    [[nodiscard]] virtual DatabaseLocator& locator() = 0;
    /// Made anew for each call.
    [[nodiscard]] virtual std::unique_ptr<ResourceDeleter> makeResourceDeleter() = 0;
    [[nodiscard]] virtual SupportService& support() = 0;
    /// A copy of a database file that others may be writing to. Throws ado::Error.
    virtual void copyDatabase(const std::string& path, const std::string& copy) = 0;
};

} // namespace zel::core
