#pragma once

#include "ado/engine.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like, IsNull };

/// A literal of a criteria text, made ready for the column it stands beside.
struct Operand {
    std::string text;
    /// Set beside a column of numbers, flags (0 or 1) or moments (whole seconds).
    std::optional<double> number;
    /// The literal as a value of the column's type, for the engine.
    Value value;
};

/// One term, or terms joined.
struct Criterion {
    enum class Kind { And, Or, Not, Term };
    Kind kind = Kind::Term;
    std::vector<Criterion> parts;
    std::size_t column = 0;
    Comparison comparison = Comparison::Equal;
    Operand operand;
};

/// The condition of a Filter or a Find, bound to the columns of one result.
///
/// A comparison with Null is neither true nor false, as in the engines, so `Not PersonID = 5` leaves out rows
/// without a PersonID just as `PersonID = 5` does.
class Criteria {
public:
    /// Holds for every row.
    Criteria() = default;
    /// Terms joined by and, or, not and brackets. Throws Error 3001 for text that is none and 3265 for unknown names.
    [[nodiscard]] static Criteria filter(std::string_view text, std::span<const ResultColumn> columns);
    /// One term and no more.
    [[nodiscard]] static Criteria term(std::string_view text, std::span<const ResultColumn> columns);

    [[nodiscard]] bool empty() const noexcept { return !root_; }
    [[nodiscard]] bool matches(const RowStore& rows, std::size_t row) const;
    /// Null when empty.
    [[nodiscard]] const Criterion* root() const noexcept { return root_ ? &*root_ : nullptr; }

private:
    std::optional<Criterion> root_;
};

/// `*` and `%` stand for any characters or none; case does not matter.
[[nodiscard]] bool isLike(std::string_view text, std::string_view pattern) noexcept;

} // namespace zel::ado
