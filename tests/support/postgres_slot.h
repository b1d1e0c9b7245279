#pragma once

#include "support/content.h"

#include <string>

namespace zel::test {

/// A database on the run's server that one test has for itself, in the state that a new one has. Making a database and
/// dropping it costs far more than most tests, so a slot is emptied and used again.
class PostgresSlot {
public:
    explicit PostgresSlot(Content content);
    ~PostgresSlot();
    PostgresSlot(const PostgresSlot&) = delete;
    PostgresSlot& operator=(const PostgresSlot&) = delete;

    [[nodiscard]] const std::string& catalog() const noexcept { return catalog_; }
    /// The socket folder of the run's server.
    [[nodiscard]] static const std::string& server();

private:
    std::string catalog_;
    int lock_ = -1;
};

} // namespace zel::test
