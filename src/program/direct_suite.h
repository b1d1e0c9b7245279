#pragma once

#include "core/suite.h"

#include <memory>
#include <string>

namespace zel::program {

/// The suite's objects without windows of their own: databases are opened by the names that the settings have.
class DirectSuite final : public core::Suite, public core::DatabaseLocator, public core::SupportService {
public:
    [[nodiscard]] core::DatabaseLocator& locator() override { return *this; }
    [[nodiscard]] std::unique_ptr<core::ResourceDeleter> makeResourceDeleter() override;
    [[nodiscard]] core::SupportService& support() override { return *this; }
    void copyDatabase(const std::string& path, const std::string& copy) override;

    void ShowSecurity(core::Session&) override {}
    [[nodiscard]] std::shared_ptr<ado::Connection> GetConnection() override { return connection_; }
    bool CloseDatabase() override;
    void OpenDesktop(core::Session& session, const std::string& path, const std::string& user,
                     const std::string& password, const std::string& versions, const std::string& module) override;
    [[nodiscard]] std::string OpenServer(core::Session& session, const std::string& module, const std::string& iniPath,
                                         std::string& server, std::string& catalog) override;
    void ShowServerSecurity(core::Session&, const std::string&) override {}
    [[nodiscard]] std::string Password() const override { return {}; }
    [[nodiscard]] std::string UserName() const override { return {}; }

    [[nodiscard]] bool CheckReleaseDate(core::Session&, std::int32_t, const std::string&) override { return true; }
    void ShowSupport(core::Session&) override {}

private:
    std::shared_ptr<ado::Connection> connection_;
};

} // namespace zel::program
