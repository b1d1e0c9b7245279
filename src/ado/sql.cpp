#include "ado/sql.h"

#include "ado/convert.h"
#include "ado/sql/value_break_out.h"

#include <algorithm>
#include <fmt/format.h>

namespace zel::ado {

namespace {

using sql::Token;
using sql::TokenKind;
using sql::Tokens;

/// Inside a literal: quotes have to be doubled within the value itself, since half of a pair would close the literal
/// or join with the program's own quote.
bool staysInside(std::string_view value, char quote, TokenKind kind) {
    if (kind == TokenKind::Date)
        return value.find('#') == std::string_view::npos;
    for (std::size_t at = value.find(quote); at != std::string_view::npos; at = value.find(quote, at + 2))
        if (at + 1 >= value.size() || value[at + 1] != quote)
            return false;
    return true;
}

bool isNumber(const Token& token) {
    return token.kind == TokenKind::Integer || token.kind == TokenKind::Decimal;
}

Sql::Span withoutBlanks(std::string_view text, Sql::Span span) {
    constexpr std::string_view blanks = " \t\r\n";
    while (span.begin < span.end && blanks.find(text[span.begin]) != std::string_view::npos)
        ++span.begin;
    while (span.begin < span.end && blanks.find(text[span.end - 1]) != std::string_view::npos)
        --span.end;
    return span;
}

bool isLiteralWord(const Token& token) {
    return token.kind == TokenKind::Word &&
           (token.keyword == sql::Keyword::True || token.keyword == sql::Keyword::False ||
            token.keyword == sql::Keyword::Null);
}

/// The first token that ends behind `offset`.
std::size_t tokenAt(const Tokens& tokens, std::size_t offset) {
    const auto found = std::ranges::upper_bound(tokens.list, offset, {}, &Token::end);
    return static_cast<std::size_t>(found - tokens.list.begin());
}

/// Outside any literal the value has to be one literal, with nothing of the program's words grown onto it.
bool isOneLiteral(const Tokens& tokens, std::size_t first, Sql::Span span) {
    if (first >= tokens.size() || tokens[first].begin != span.begin)
        return false;
    std::size_t at = first;
    if (tokens.isOperator(at, "-") || tokens.isOperator(at, "+")) {
        ++at;
        if (at >= tokens.size() || tokens[at].begin != tokens[first].end || !isNumber(tokens[at]))
            return false;
    }
    return tokens[at].end == span.end && (tokens[at].isLiteral() || isLiteralWord(tokens[at]));
}

bool breaksOut(const Tokens& tokens, Sql::Span span) {
    const std::string_view value = tokens.text.substr(span.begin, span.end - span.begin);
    const std::size_t first = tokenAt(tokens, span.begin);
    if (first < tokens.size() && tokens[first].isLiteral() && tokens[first].begin < span.begin &&
        span.end < tokens[first].end) {
        return !isNumber(tokens[first]) && !staysInside(value, tokens.text[tokens[first].begin], tokens[first].kind);
    }
    // A piece at the head or the tail of a number: "0" with the value behind it is usual.
    if (first < tokens.size() && tokens[first].begin <= span.begin && span.end <= tokens[first].end &&
        isNumber(tokens[first]))
        return false;
    return !isOneLiteral(tokens, first, withoutBlanks(tokens.text, span));
}

} // namespace

Sql Sql::words(std::string_view programText) {
    Sql made;
    made.text_ = programText;
    return made;
}

Sql Sql::of(std::string_view text) {
    Sql made;
    made.text_ = text;
    made.values_.push_back({0, text.size()});
    return made;
}

Sql Sql::of(int number) {
    return of(std::int64_t{number});
}

Sql Sql::of(std::int64_t number) {
    return of(std::string_view(fmt::format_int(number).c_str()));
}

Sql Sql::of(const Value& value) {
    return of(std::string_view(toText(value)));
}

Sql& Sql::operator+=(const Sql& tail) {
    const std::size_t shift = text_.size();
    // By count, since a piece may be joined to itself.
    const std::size_t count = tail.values_.size();
    values_.reserve(values_.size() + count);
    for (std::size_t index = 0; index < count; ++index)
        values_.push_back({tail.values_[index].begin + shift, tail.values_[index].end + shift});
    text_ += tail.text_;
    return *this;
}

std::size_t Sql::find(std::string_view lowerCaseWords) const {
    if (lowerCaseWords.empty())
        return 0;
    const auto same = [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? static_cast<char>(left | 0x20) : left) == right;
    };
    const auto found = std::search(text_.begin(), text_.end(), lowerCaseWords.begin(), lowerCaseWords.end(), same);
    return found == text_.end() ? std::string::npos : static_cast<std::size_t>(found - text_.begin());
}

Sql Sql::slice(std::size_t begin, std::size_t end) const {
    begin = std::min(begin, text_.size());
    end = std::clamp(end, begin, text_.size());
    Sql piece = words(std::string_view(text_).substr(begin, end - begin));
    for (const Span& span : values_) {
        if (span.begin == span.end ? (span.begin >= begin && span.end <= end) : (span.begin < end && span.end > begin))
            piece.values_.push_back({std::max(span.begin, begin) - begin, std::min(span.end, end) - begin});
    }
    return piece;
}

bool valueBreaksOut(const Sql& statement) {
    thread_local Tokens tokens;
    const sql::LexFault fault = lex(statement.text(), tokens);
    return valueBreaksOut(statement, tokens, fault);
}

bool valueBreaksOut(const Sql& statement, const Tokens& tokens, sql::LexFault fault) {
    const std::vector<Sql::Span>& values = statement.values();
    if (std::ranges::all_of(values, [](const Sql::Span& span) { return span.begin == span.end; }))
        return false;
    if (fault != sql::LexFault::None)
        return true;
    return std::ranges::any_of(values, [&](const Sql::Span& span) {
        const Sql::Span value = withoutBlanks(tokens.text, span);
        return value.begin != value.end && breaksOut(tokens, span);
    });
}

} // namespace zel::ado
