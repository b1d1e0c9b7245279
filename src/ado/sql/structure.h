#pragma once

#include "ado/sql/lexer.h"
#include "ado/sql/translator.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zel::ado::sql {

enum class Clause : std::uint8_t {
    Start,
    SelectList,
    From,
    On,
    Where,
    GroupBy,
    Having,
    OrderBy,
    Set,
    InsertColumns,
    Values,
    Other,
};

/// A table, view or subquery behind FROM, JOIN, INTO or UPDATE, by the positions of its tokens.
struct SourceTokens {
    /// Last part of the (dotted) name; `none` for a subquery.
    std::size_t name;
    /// First token of the name, or the opening bracket of the subquery.
    std::size_t first;
    /// `none` without an alias.
    std::size_t alias;
};

/// A SELECT, INSERT, UPDATE or DELETE with what it names. Subqueries are queries with a parent.
struct Query {
    StatementKind kind = StatementKind::Other;
    std::size_t parent;
    std::size_t firstToken = 0;
    /// Joined to another by UNION or the like.
    bool compound = false;
    std::vector<SourceTokens> sources;
    std::vector<std::size_t> insertColumns;
};

/// What each token of a statement is part of. Made for statements that this system words; anything else comes out as
/// plain tokens, never as an error.
struct Structure {
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    std::vector<Query> queries;
    /// By token: the innermost query, the clause of it, and how many brackets are open.
    std::vector<std::uint32_t> query;
    std::vector<Clause> clause;
    std::vector<std::uint32_t> depth;
    /// By token: the other bracket of a pair, else none.
    std::vector<std::size_t> partner;
    /// By token: whether the bracket encloses joins.
    std::vector<bool> joinBracket;

    /// First and behind-last token of the operand next to an operator: a literal, a column, a call, a bracket.
    [[nodiscard]] std::size_t operandBegin(const Tokens& tokens, std::size_t last) const;
    [[nodiscard]] std::size_t operandEnd(const Tokens& tokens, std::size_t first) const;
};

[[nodiscard]] Structure analyse(const Tokens& tokens);

/// Whether the token is a function's name: a bracket follows directly and it cannot be a keyword there.
[[nodiscard]] bool isCall(const Tokens& tokens, std::size_t index);

} // namespace zel::ado::sql
