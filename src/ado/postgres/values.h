#pragma once

#include "ado/catalog.h"
#include "ado/value.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

struct pg_result;

namespace zel::ado {
class RowStore;
}

namespace zel::ado::postgres {

/// Values in the text form that the server reads. Texts are not copied: the values must live as long as this.
class ParameterTexts {
public:
    explicit ParameterTexts(std::span<const Value> values);
    [[nodiscard]] int count() const noexcept { return static_cast<int>(pointers_.size()); }
    [[nodiscard]] const char* const* data() const noexcept { return pointers_.data(); }

private:
    [[nodiscard]] const char* textOf(const Value& value, std::string& place);

    std::vector<std::string> made_;
    std::vector<const char*> pointers_;
};

/// The server keeps no NUL in a text, so it travels as a character that no keyboard gives, and comes back as NUL.
[[nodiscard]] std::string storedText(std::string_view text);
[[nodiscard]] std::string textFromStored(std::string_view stored);
[[nodiscard]] bool needsEncoding(std::string_view text) noexcept;

/// How the cells of one result column are read.
struct CellReader {
    ColumnType type = ColumnType::Unknown;
    /// A number without a declared scale: a sum of money, or an average.
    bool freeNumber = false;
};

/// The neutral type behind a type of the server. `computed` columns have no flags: max(Flag) is a number.
[[nodiscard]] CellReader cellReaderOf(unsigned serverType, int modifier, bool computed);

void addCell(std::string_view text, CellReader reader, RowStore& rows);

} // namespace zel::ado::postgres
