#pragma once

#include "core/suite.h"
#include "suite/database_locator.h"
#include "suite/support_service.h"

namespace zel::suite {

/// The objects of the suite as this build has them.
class KorvanSuite final : public core::Suite {
public:
    [[nodiscard]] core::DatabaseLocator& locator() override { return locator_; }
    [[nodiscard]] std::unique_ptr<core::ResourceDeleter> makeResourceDeleter() override;
    [[nodiscard]] core::SupportService& support() override { return support_; }
    void copyDatabase(const std::string& path, const std::string& copy) override;

private:
    DatabaseLocator locator_;
    SupportService support_;
};

/// Makes the windows of the suite known to the session's form registry.
void addSuiteForms(core::Session& session);

} // namespace zel::suite
