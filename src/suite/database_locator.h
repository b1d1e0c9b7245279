#pragma once

#include "ado/connection.h"
#include "core/suite.h"
#include "suite/login.h"

#include <memory>
#include <string>

namespace zel::suite {

/// Opens database files and databases of a server. What cannot be opened is told to the clerk, who may choose another.
class DatabaseLocator final : public core::DatabaseLocator {
public:
    void ShowSecurity(core::Session& session) override;
    [[nodiscard]] std::shared_ptr<ado::Connection> GetConnection() override { return connection_; }
    bool CloseDatabase() override;
    void OpenDesktop(core::Session& session, const std::string& path, const std::string& user,
                     const std::string& password, const std::string& versions, const std::string& module) override;
    [[nodiscard]] std::string OpenServer(core::Session& session, const std::string& module, const std::string& iniPath,
                                         std::string& server, std::string& catalog) override;
    void ShowServerSecurity(core::Session& session, const std::string& server) override;
    [[nodiscard]] std::string Password() const override { return login_.password; }
    [[nodiscard]] std::string UserName() const override { return login_.user; }

private:
    /// Why it cannot be opened; empty when it is open.
    [[nodiscard]] std::string open(const std::string& server, const std::string& catalog, const Login& login);
    void showSecurity(core::Session& session, const std::string& server);
    [[nodiscard]] bool choose(core::Session& session, std::string& server, std::string& catalog);

    std::shared_ptr<ado::Connection> connection_;
    Login login_;
};

} // namespace zel::suite
