#include "ado/sql/lexer.h"

#include "ado/convert.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace zel::ado::sql {

namespace {

struct KeywordEntry {
    std::string_view word;
    Keyword keyword;
};

// Sorted by word for the binary search below.
constexpr std::array keywordTable = {
    KeywordEntry{"and", Keyword::And},
    KeywordEntry{"as", Keyword::As},
    KeywordEntry{"asc", Keyword::Asc},
    KeywordEntry{"between", Keyword::Between},
    KeywordEntry{"by", Keyword::By},
    KeywordEntry{"case", Keyword::Case},
    KeywordEntry{"cast", Keyword::Cast},
    KeywordEntry{"collate", Keyword::Collate},
    KeywordEntry{"convert", Keyword::Convert},
    KeywordEntry{"cross", Keyword::Cross},
    KeywordEntry{"delete", Keyword::Delete},
    KeywordEntry{"desc", Keyword::Desc},
    KeywordEntry{"distinct", Keyword::Distinct},
    KeywordEntry{"distinctrow", Keyword::Distinctrow},
    KeywordEntry{"else", Keyword::Else},
    KeywordEntry{"end", Keyword::End},
    KeywordEntry{"escape", Keyword::Escape},
    KeywordEntry{"except", Keyword::Except},
    KeywordEntry{"exists", Keyword::Exists},
    KeywordEntry{"false", Keyword::False},
    KeywordEntry{"for", Keyword::For},
    KeywordEntry{"from", Keyword::From},
    KeywordEntry{"full", Keyword::Full},
    KeywordEntry{"group", Keyword::Group},
    KeywordEntry{"having", Keyword::Having},
    KeywordEntry{"in", Keyword::In},
    KeywordEntry{"inner", Keyword::Inner},
    KeywordEntry{"insert", Keyword::Insert},
    KeywordEntry{"intersect", Keyword::Intersect},
    KeywordEntry{"into", Keyword::Into},
    KeywordEntry{"is", Keyword::Is},
    KeywordEntry{"join", Keyword::Join},
    KeywordEntry{"left", Keyword::Left},
    KeywordEntry{"like", Keyword::Like},
    KeywordEntry{"limit", Keyword::Limit},
    KeywordEntry{"natural", Keyword::Natural},
    KeywordEntry{"not", Keyword::Not},
    KeywordEntry{"null", Keyword::Null},
    KeywordEntry{"offset", Keyword::Offset},
    KeywordEntry{"on", Keyword::On},
    KeywordEntry{"or", Keyword::Or},
    KeywordEntry{"order", Keyword::Order},
    KeywordEntry{"outer", Keyword::Outer},
    KeywordEntry{"right", Keyword::Right},
    KeywordEntry{"select", Keyword::Select},
    KeywordEntry{"set", Keyword::Set},
    KeywordEntry{"then", Keyword::Then},
    KeywordEntry{"top", Keyword::Top},
    KeywordEntry{"true", Keyword::True},
    KeywordEntry{"union", Keyword::Union},
    KeywordEntry{"update", Keyword::Update},
    KeywordEntry{"using", Keyword::Using},
    KeywordEntry{"values", Keyword::Values},
    KeywordEntry{"when", Keyword::When},
    KeywordEntry{"where", Keyword::Where},
    KeywordEntry{"with", Keyword::With},
};
static_assert(std::ranges::is_sorted(keywordTable, {}, &KeywordEntry::word));

constexpr std::size_t longestKeyword = 11;

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool isBlank(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// For each first letter the entries of the table that begin with it.
constexpr auto firstLetters = [] {
    std::array<std::uint8_t, 27> starts{};
    std::size_t entry = 0;
    for (std::size_t letter = 0; letter < 26; ++letter) {
        starts[letter] = static_cast<std::uint8_t>(entry);
        while (entry < keywordTable.size() && keywordTable[entry].word[0] == static_cast<char>('a' + letter))
            ++entry;
    }
    starts[26] = static_cast<std::uint8_t>(entry);
    return starts;
}();

Keyword keywordOf(std::string_view word) noexcept {
    if (word.size() < 2 || word.size() > longestKeyword)
        return Keyword::None;
    const auto letter = static_cast<unsigned char>((word[0] | 0x20) - 'a');
    if (letter >= 26)
        return Keyword::None;
    for (std::size_t entry = firstLetters[letter]; entry < firstLetters[letter + 1]; ++entry)
        if (equalIgnoringCase(keywordTable[entry].word, word))
            return keywordTable[entry].keyword;
    return Keyword::None;
}

/// Length of the UTF-8 sequence at `at`, 0 when it is none (overlong forms and surrogates included).
std::size_t sequenceLength(std::string_view text, std::size_t at) noexcept {
    const auto byte = [&](std::size_t offset) -> unsigned {
        return at + offset < text.size() ? static_cast<unsigned char>(text[at + offset]) : 0U;
    };
    const auto follows = [&](std::size_t offset) { return (byte(offset) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    if (first >= 0xC2 && first <= 0xDF)
        return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const bool overlong = first == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = first == 0xED && byte(1) > 0x9F;
        return follows(1) && follows(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool overlong = first == 0xF0 && byte(1) < 0x90;
        const bool tooBig = first == 0xF4 && byte(1) > 0x8F;
        return follows(1) && follows(2) && follows(3) && !overlong && !tooBig ? 4 : 0;
    }
    return 0;
}

LexFault checkCharacters(std::string_view text) noexcept {
    std::size_t at = 0;
    while (at < text.size()) {
        // Eight plain characters at once: nearly all statements are ASCII.
        std::uint64_t eight = 0;
        if (at + sizeof eight <= text.size()) {
            std::memcpy(&eight, text.data() + at, sizeof eight);
            const std::uint64_t zeros = (eight - 0x0101010101010101ULL) & ~eight;
            if (((eight | zeros) & 0x8080808080808080ULL) == 0) {
                at += sizeof eight;
                continue;
            }
        }
        const auto c = static_cast<unsigned char>(text[at]);
        if (c == 0)
            return LexFault::Nul;
        const std::size_t length = c < 0x80 ? 1 : sequenceLength(text, at);
        if (length == 0)
            return LexFault::NotUtf8;
        at += length;
    }
    return LexFault::None;
}

class Lexer {
public:
    Lexer(std::string_view text, std::vector<Token>& list) : text_(text), list_(list) {}

    LexFault run() {
        while (at_ < text_.size()) {
            const LexFault fault = step();
            if (fault != LexFault::None)
                return fault;
        }
        return LexFault::None;
    }

private:
    [[nodiscard]] char peek(std::size_t offset = 0) const noexcept {
        return at_ + offset < text_.size() ? text_[at_ + offset] : '\0';
    }

    void add(TokenKind kind, std::size_t end, Keyword keyword = Keyword::None) {
        list_.push_back({kind, keyword, static_cast<std::uint32_t>(at_), static_cast<std::uint32_t>(end)});
        at_ = end;
    }

    LexFault step() {
        const char c = peek();
        if (isBlank(c)) {
            ++at_;
            return LexFault::None;
        }
        if (isLetter(c)) {
            word();
            return LexFault::None;
        }
        if (isDigit(c) || (c == '.' && isDigit(peek(1)))) {
            number();
            return LexFault::None;
        }
        return mark(c);
    }

    LexFault mark(char c) {
        switch (c) {
        case '\'':
            return quoted('\'', TokenKind::Text);
        case '"':
            return quoted('"', TokenKind::QuotedText);
        case '[':
            return enclosed(']', TokenKind::Bracketed, LexFault::OpenName);
        case '#':
            return enclosed('#', TokenKind::Date, LexFault::OpenDate);
        case '(':
            add(TokenKind::Open, at_ + 1);
            break;
        case ')':
            add(TokenKind::Close, at_ + 1);
            break;
        case ',':
            add(TokenKind::Comma, at_ + 1);
            break;
        case '.':
            add(TokenKind::Dot, at_ + 1);
            break;
        case ';':
            add(TokenKind::Semicolon, at_ + 1);
            break;
        default:
            return commentOrOperator(c);
        }
        return LexFault::None;
    }

    LexFault commentOrOperator(char c) {
        const char next = peek(1);
        if (c == '-' && next == '-') {
            at_ = std::min(text_.find('\n', at_), text_.size());
            return LexFault::None;
        }
        if (c == '/' && next == '*') {
            const std::size_t end = text_.find("*/", at_ + 2);
            if (end == std::string_view::npos)
                return LexFault::OpenComment;
            at_ = end + 2;
            return LexFault::None;
        }
        const bool two = (c == '<' && (next == '>' || next == '=')) || (c == '>' && next == '=') ||
                         (c == '!' && next == '=') || (c == '|' && next == '|') || (c == ':' && next == ':');
        add(TokenKind::Operator, at_ + (two ? 2 : 1));
        return LexFault::None;
    }

    void word() {
        std::size_t end = at_ + 1;
        while (end < text_.size() && (isLetter(text_[end]) || isDigit(text_[end]) || text_[end] == '$'))
            ++end;
        add(TokenKind::Word, end, keywordOf(text_.substr(at_, end - at_)));
    }

    // "5AND" is the number 5 and a word; "5E3" is one number.
    void number() {
        std::size_t end = at_;
        while (end < text_.size() && isDigit(text_[end]))
            ++end;
        bool whole = end - at_ <= 9;
        if (end < text_.size() && text_[end] == '.') {
            whole = false;
            ++end;
            while (end < text_.size() && isDigit(text_[end]))
                ++end;
        }
        if (end < text_.size() && (text_[end] == 'e' || text_[end] == 'E')) {
            std::size_t exponent = end + 1;
            if (exponent < text_.size() && (text_[exponent] == '+' || text_[exponent] == '-'))
                ++exponent;
            if (exponent < text_.size() && isDigit(text_[exponent])) {
                whole = false;
                end = exponent;
                while (end < text_.size() && isDigit(text_[end]))
                    ++end;
            }
        }
        add(whole ? TokenKind::Integer : TokenKind::Decimal, end);
    }

    LexFault quoted(char quote, TokenKind kind) {
        std::size_t end = at_ + 1;
        for (;;) {
            end = text_.find(quote, end);
            if (end == std::string_view::npos)
                return LexFault::OpenText;
            ++end;
            if (end >= text_.size() || text_[end] != quote)
                break;
            ++end;
        }
        add(kind, end);
        return LexFault::None;
    }

    LexFault enclosed(char close, TokenKind kind, LexFault fault) {
        const std::size_t end = text_.find(close, at_ + 1);
        if (end == std::string_view::npos)
            return fault;
        add(kind, end + 1);
        return LexFault::None;
    }

    std::string_view text_;
    std::vector<Token>& list_;
    std::size_t at_ = 0;
};

} // namespace

std::string_view Tokens::name(std::size_t index) const noexcept {
    std::string_view word = spelled(index);
    if (list[index].kind == TokenKind::Bracketed)
        word = word.substr(1, word.size() - 2);
    return word;
}

std::string Tokens::literal(std::size_t index) const {
    const std::string_view all = spelled(index);
    const TokenKind kind = list[index].kind;
    if (kind == TokenKind::Integer || kind == TokenKind::Decimal)
        return std::string(all);
    const std::string_view inside = all.substr(1, all.size() - 2);
    const char quote = all.front();
    if (kind == TokenKind::Date || inside.find(quote) == std::string_view::npos)
        return std::string(inside);
    std::string plain;
    plain.reserve(inside.size());
    for (std::size_t at = 0; at < inside.size(); ++at) {
        plain += inside[at];
        if (inside[at] == quote)
            ++at;
    }
    return plain;
}

bool Tokens::isOperator(std::size_t index, std::string_view spelling) const noexcept {
    return index < list.size() && list[index].kind == TokenKind::Operator && spelled(index) == spelling;
}

LexFault lex(std::string_view text, Tokens& tokens) {
    tokens.text = text;
    tokens.list.clear();
    if (text.size() >= std::numeric_limits<std::uint32_t>::max())
        return LexFault::TooLong;
    const LexFault fault = checkCharacters(text);
    return fault != LexFault::None ? fault : Lexer(text, tokens.list).run();
}

std::string_view describe(LexFault fault) {
    switch (fault) {
    case LexFault::Nul:
        return "Syntax error: the statement holds a NUL character.";
    case LexFault::NotUtf8:
        return "Syntax error: the statement is not valid UTF-8 text.";
    case LexFault::OpenText:
        return "Syntax error in string: a quotation mark is not closed.";
    case LexFault::OpenName:
        return "Syntax error: a bracketed name is not closed.";
    case LexFault::OpenDate:
        return "Syntax error in date: a number sign is not closed.";
    case LexFault::OpenComment:
        return "Syntax error: a comment is not closed.";
    case LexFault::TooLong:
        return "Syntax error: the statement is too long.";
    case LexFault::None:
        break;
    }
    return "";
}

} // namespace zel::ado::sql
