#pragma once

#include "ado/sql.h"
#include "ado/sql/translator.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado::sql {

/// One item of a select list: `expression [as] name`, `Table.*` or `*`.
struct SelectItem {
    /// The characters of the whole item, blanks at its ends left out.
    std::size_t begin = 0, end = 0;
    /// End of the expression, in front of the name behind AS.
    std::size_t expressionEnd = 0;
    /// What the result column is called: the alias, else the column; empty for a star and for an unnamed expression.
    std::string name;
    /// Set when the expression is nothing but a column; `table` is its qualifier or empty.
    std::string table, column;
    /// `*` or `Table.*`.
    bool isStar = false;
};

/// A table, view or subquery that a FROM names at its top level, through joins and brackets.
struct Source {
    /// Empty for a subquery.
    std::string table;
    /// What columns are qualified with: the alias, else the table as spelled.
    std::string alias;
};

/// Where the parts of a SELECT stand in its text, subqueries not counted, so that a condition, an order or a column can
/// be put in without touching anything else. Offsets count characters of the text it was made from.
struct Outline {
    static constexpr std::size_t none = std::string::npos;

    StatementKind kind = StatementKind::Other;
    bool distinct = false;
    /// An aggregate function stands in the select list, or there is a GROUP BY: rows are not rows of a table.
    bool aggregate = false;
    /// UNION and the like, LIMIT, HAVING or INTO: nothing can be put in safely.
    bool closed = false;
    std::vector<SelectItem> items;
    std::vector<Source> sources;
    /// Behind the last item of the select list.
    std::size_t listEnd = none;
    /// The condition of WHERE without its keyword.
    std::size_t whereBegin = none, whereEnd = none;
    /// The keyword of GROUP BY.
    std::size_t groupBegin = none;
    /// The keyword of ORDER BY, and its items.
    std::size_t orderBegin = none, orderItemsBegin = none;
    /// End of the statement without blanks and a closing ";".
    std::size_t end = 0;

    /// Whether rows are rows of one table or view and no more.
    [[nodiscard]] bool isSingleSource() const noexcept { return sources.size() == 1 && !aggregate && !closed; }
    [[nodiscard]] bool takesCondition() const noexcept {
        return kind == StatementKind::Select && !aggregate && !closed && !sources.empty();
    }
};

/// Never throws for text that is no good SQL: what is not understood makes it `closed`.
[[nodiscard]] Outline outline(std::string_view statement);

/// The statement with `condition` joined to its WHERE; what stood there is bracketed. Needs takesCondition().
[[nodiscard]] Sql withCondition(const Sql& statement, const Outline& parts, const Sql& condition);
/// The statement ordered by `items` ("LastName, FirstName DESC"). With `keepOld` the old items follow behind.
[[nodiscard]] Sql withOrder(const Sql& statement, const Outline& parts, const Sql& items, bool keepOld = false);
/// The statement with `columns` ("Persons.PersonID as zel_key_0") behind its select list.
[[nodiscard]] Sql withColumns(const Sql& statement, const Outline& parts, const Sql& columns);

} // namespace zel::ado::sql
