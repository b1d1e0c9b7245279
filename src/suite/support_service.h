#pragma once

#include "core/suite.h"

namespace zel::suite {

class SupportService final : public core::SupportService {
public:
    /// A resource cannot be released before the day of its last posting: those hours would be paid for nothing.
    [[nodiscard]] bool CheckReleaseDate(core::Session& session, std::int32_t resource,
                                        const std::string& releaseDate) override;
    void ShowSupport(core::Session& session) override;
};

} // namespace zel::suite
