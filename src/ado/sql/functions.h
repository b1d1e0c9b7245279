#pragma once

#include <string_view>

namespace zel::ado::sql {

/// Functions that the translator calls and an engine has to have. SQLite gets them registered on each connection,
/// deterministic; on PostgreSQL they are functions of the schema dbo, immutable. Null gives Null unless said otherwise.
namespace functions {

/// f_SortRequestNumber(text) -> double. The number behind the letter of a request number, so that E-7.2 < E-7.10 < E-8
/// < E-70: the first group of digits, the second as ten-thousandths, the third as ten-thousandths of those. A group
/// behind the first counts at most 9999. "" and texts without digits give 0. PostgreSQL:
/// dbo.f_SortRequestNumber(citext) returns double precision.
inline constexpr std::string_view sortRequestNumber = "f_SortRequestNumber";

/// zel_standard(number) -> text. What Format(x, 'Standard') gives: "1,234.50", halves away from zero; a text that is no
/// number comes back as it is. Null gives "". PostgreSQL: dbo.zel_standard(numeric) returns citext.
inline constexpr std::string_view standard = "zel_standard";

/// zel_money_text(money) -> text with two decimals and no commas, as the server converts money: "1234.50".
/// PostgreSQL: dbo.zel_money_text(numeric) returns citext.
inline constexpr std::string_view moneyText = "zel_money_text";

/// zel_join(a, b, ...) -> text of all arguments one behind the other, Null as nothing; any number of arguments.
/// SQLite only: PostgreSQL has concat().
inline constexpr std::string_view join = "zel_join";

} // namespace functions

/// What SQLite needs besides the functions: the collation of money columns. Texts that both are decimals compare by
/// their number, anything else as bytes behind all numbers.
inline constexpr std::string_view moneyCollation = "ZMONEY";

/// Not calls of ours, but needed on PostgreSQL so that case stays ignored in what they give: dbo.left(citext, integer)
/// and dbo.substring(citext, integer, integer), both returning citext.
} // namespace zel::ado::sql
