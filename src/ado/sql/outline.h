#pragma once

#include "ado/sql.h"
#include "ado/sql/translator.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado::sql {

/// A table, view or subquery that a FROM names at its top level, through joins and brackets.
struct Source {
    /// Empty for a subquery.
    std::string table;
    /// What columns are qualified with: the alias, else the table as spelled.
    std::string alias;
};

/// Where the parts of a SELECT stand in its text, subqueries not counted, so that a column can be put in without
/// touching anything else. Offsets count characters of the text it was made from.
struct Outline {
    static constexpr std::size_t none = std::string::npos;

    StatementKind kind = StatementKind::Other;
    bool distinct = false;
    /// An aggregate function stands in the select list, or there is a GROUP BY: rows are not rows of a table.
    bool aggregate = false;
    /// UNION and the like, LIMIT, HAVING or INTO: nothing can be put in safely.
    bool closed = false;
    std::vector<Source> sources;
    /// Behind the last item of the select list.
    std::size_t listEnd = none;
    /// End of the statement without blanks and a closing ";".
    std::size_t end = 0;

    /// Whether rows are rows of one table or view and no more.
    [[nodiscard]] bool isSingleSource() const noexcept {
        return listEnd != none && sources.size() == 1 && !aggregate && !closed;
    }
};

/// Never throws for text that is no good SQL: what is not understood makes it `closed`.
[[nodiscard]] Outline outline(std::string_view statement);

/// The statement with `columns` ("Persons.PersonID as zel_key_0") behind its select list. Needs isSingleSource().
[[nodiscard]] Sql withColumns(const Sql& statement, const Outline& parts, const Sql& columns);

} // namespace zel::ado::sql
