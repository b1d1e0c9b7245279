#pragma once

#include "ado/sql/structure.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado::sql {

/// One item of a select list: its tokens from `first` up to but not including `end`, alias and all.
struct SelectItem {
    std::size_t first = 0, end = 0;
    /// The token of the name given to the column, with or without AS; Structure::none without one.
    std::size_t alias = Structure::none;

    /// Behind the last token of what is selected.
    [[nodiscard]] std::size_t expressionEnd(const Tokens& tokens) const;
    /// "*" or "Table.*".
    [[nodiscard]] bool isStar(const Tokens& tokens) const { return tokens.isOperator(end - 1, "*"); }
};

/// The items of a query, without DISTINCT. Empty for anything but a SELECT.
[[nodiscard]] std::vector<SelectItem> selectItems(const Tokens& tokens, const Structure& structure, std::size_t query);

/// The names that the select lists of a statement give to columns, as spelled: those of the outer list first.
[[nodiscard]] std::vector<std::string> aliases(const Tokens& tokens, const Structure& structure);

/// What the columns of a SELECT are called, as spelled: by their alias or by the column itself. Stars and expressions
/// without an alias are left out.
[[nodiscard]] std::vector<std::string> columnNames(std::string_view select);

} // namespace zel::ado::sql
