#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado::sql {

enum class TokenKind : std::uint8_t {
    Word,       ///< keyword, name or function, see Token::keyword
    Bracketed,  ///< [Name]
    Text,       ///< 'text', with '' for a quote
    QuotedText, ///< "text", a text literal as well, with "" for a quote
    Integer,    ///< at most nine digits, so that it fits every integer column
    Decimal,    ///< any other number
    Date,       ///< #7/4/2005#
    Operator,   ///< anything else; two characters for <> <= >= != || ::
    Open,
    Close,
    Comma,
    Dot,
    Semicolon,
};

/// Words that mean something to the translator; None for all others, functions and names among them.
enum class Keyword : std::uint8_t {
    None,
    And,
    As,
    Asc,
    Between,
    By,
    Case,
    Cast,
    Collate,
    Convert,
    Cross,
    Delete,
    Desc,
    Distinct,
    Distinctrow,
    Else,
    End,
    Escape,
    Except,
    Exists,
    False,
    For,
    From,
    Full,
    Group,
    Having,
    In,
    Inner,
    Insert,
    Intersect,
    Into,
    Is,
    Join,
    Left,
    Like,
    Limit,
    Natural,
    Not,
    Null,
    Offset,
    On,
    Or,
    Order,
    Outer,
    Right,
    Select,
    Set,
    Then,
    Top,
    True,
    Union,
    Update,
    Using,
    Values,
    When,
    Where,
    With,
};

struct Token {
    TokenKind kind = TokenKind::Operator;
    Keyword keyword = Keyword::None;
    std::uint32_t begin = 0, end = 0;

    [[nodiscard]] bool isLiteral() const noexcept { return kind >= TokenKind::Text && kind <= TokenKind::Date; }
    [[nodiscard]] bool isName() const noexcept {
        return (kind == TokenKind::Word && keyword == Keyword::None) || kind == TokenKind::Bracketed;
    }
};

/// The tokens of a statement of either dialect. White space and comments lie between the tokens.
struct Tokens {
    std::string_view text;
    std::vector<Token> list;

    [[nodiscard]] std::size_t size() const noexcept { return list.size(); }
    [[nodiscard]] const Token& operator[](std::size_t index) const noexcept { return list[index]; }
    [[nodiscard]] std::string_view spelled(std::size_t index) const noexcept {
        return text.substr(list[index].begin, list[index].end - list[index].begin);
    }
    /// A name without its brackets.
    [[nodiscard]] std::string_view name(std::size_t index) const noexcept;
    /// What a literal says: text without quotes and doubled quotes, a date without #.
    [[nodiscard]] std::string literal(std::size_t index) const;
    [[nodiscard]] bool isOperator(std::size_t index, std::string_view spelling) const noexcept;
};

/// Why a text cannot be taken apart.
enum class LexFault : std::uint8_t { None, Nul, NotUtf8, OpenText, OpenName, OpenDate, OpenComment, TooLong };

/// Fills `tokens` (its room is used again) up to the fault, if any.
[[nodiscard]] LexFault lex(std::string_view text, Tokens& tokens);

/// What the clerk is told of a fault.
[[nodiscard]] std::string_view describe(LexFault fault);

} // namespace zel::ado::sql
