#pragma once

#include "ado/engine.h"
#include "ado/sql/column_types.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zel::ado::sql {

/// What becomes of one literal of a statement. Depends on the words around it and on its kind alone, never on what it
/// says, so that one plan serves all statements of a shape.
struct LiteralPlan {
    std::size_t token = 0;
    /// Stands beside a column as a value of its own: it is converted to the column's type.
    bool placed = false;
    /// Taken out as a parameter; else it stays in the text.
    bool lifted = false;
    /// The type of the column that it stands beside.
    ColumnType type = ColumnType::Unknown;
    /// A pattern behind LIKE.
    bool pattern = false;
    /// The minus or plus in front that belongs to it, else none.
    std::size_t sign = Structure::none;
};

/// In the order of the tokens.
[[nodiscard]] std::vector<LiteralPlan> planLiterals(const Tokens& tokens, const Structure& structure,
                                                    const ColumnTypes& types);

/// The value to bind for a lifted literal: dates, money and flags as their columns hold them. Throws Error for a text
/// that a column of that type cannot be compared with.
[[nodiscard]] Value boundValue(const Tokens& tokens, const LiteralPlan& plan, EngineKind engine);

/// What a literal that stays reads like in the engine's words; a sign is part of it when the literal is placed. Throws
/// Error for a date that is none.
[[nodiscard]] std::string engineLiteral(const Tokens& tokens, const LiteralPlan& plan, EngineKind engine);

} // namespace zel::ado::sql
