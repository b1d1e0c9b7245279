#pragma once

#include "ado/engine.h"
#include "ado/row_store.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zel::korvandb {

/// The rows of a statement in the engine's own words.
class Rows {
public:
    Rows(ado::Engine& engine, const std::string& statement);

    [[nodiscard]] std::size_t size() const noexcept { return store_.rows(); }
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }
    /// In its default text; empty for NULL.
    [[nodiscard]] std::string text(std::size_t row, std::size_t column) const;
    /// 0 for NULL.
    [[nodiscard]] std::int64_t number(std::size_t row, std::size_t column) const;

private:
    explicit Rows(ado::PreparedStatement& statement);

    ado::RowStore store_;
};

} // namespace zel::korvandb
