#pragma once

#include "core/suite.h"

namespace zel::suite {

/// Tells what hangs on a record, asks once with No as default, and deletes all of it or nothing.
class ResourceDeleter final : public core::ResourceDeleter {
public:
    [[nodiscard]] bool DeleteResources(core::Session& session, const std::string& resourceKeys,
                                       const std::string& personKeys, const std::string& separator) override;
    void DeleteIncident(core::Session& session, std::int32_t incident, bool& success) override;
};

} // namespace zel::suite
