#include "ado/convert.h"
#include "ado/error.h"
#include "ado/rows/cells.h"
#include "ado/rows/columns.h"
#include "ado/rows/criteria.h"

#include <fmt/format.h>

#include <cctype>

namespace zel::ado {

namespace {

enum class Lexeme { End, Word, Name, Text, Moment, Number, Symbol };

struct Token {
    Lexeme lexeme = Lexeme::End;
    /// Without quotes or brackets.
    std::string text;
};

[[noreturn]] void refuse(std::string_view criteria) {
    throw Error(ErrorKind::Conversion, errors::invalidArgument,
                fmt::format("Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
                            "another: {}",
                            criteria));
}

bool isNameLetter(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_' ||
           (static_cast<unsigned char>(letter) & 0x80) != 0;
}

class Lexer {
public:
    explicit Lexer(std::string_view text) : text_(text) {}

    Token next() {
        while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_])) != 0)
            ++at_;
        if (at_ == text_.size())
            return {};
        const char first = text_[at_];
        if (first == '\'' || first == '"')
            return {Lexeme::Text, quoted(first)};
        if (first == '#')
            return {Lexeme::Moment, quoted(first)};
        if (first == '[')
            return {Lexeme::Name, name()};
        if (startsNumber())
            return {Lexeme::Number, number()};
        if (isNameLetter(first))
            return wordOrName();
        return {Lexeme::Symbol, symbol()};
    }

private:
    /// A doubled quote stands for one.
    std::string quoted(char quote) {
        std::string content;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] != quote)
                content += text_[at_];
            else if (at_ + 1 < text_.size() && text_[at_ + 1] == quote && quote != '#')
                content += text_[at_++];
            else {
                ++at_;
                return content;
            }
        }
        refuse(text_);
    }

    /// Parts in brackets or bare, joined by dots.
    std::string name() {
        std::string content;
        while (at_ < text_.size()) {
            if (text_[at_] == '[') {
                const std::size_t close = text_.find(']', at_);
                if (close == std::string_view::npos)
                    refuse(text_);
                content += text_.substr(at_ + 1, close - at_ - 1);
                at_ = close + 1;
            } else {
                while (at_ < text_.size() && isNameLetter(text_[at_]))
                    content += text_[at_++];
            }
            if (at_ == text_.size() || text_[at_] != '.')
                break;
            content += text_[at_++];
        }
        return content;
    }

    Token wordOrName() {
        Token token{Lexeme::Word, name()};
        if (token.text.find('.') != std::string::npos)
            token.lexeme = Lexeme::Name;
        return token;
    }

    [[nodiscard]] bool startsNumber() const {
        const auto isDigit = [&](std::size_t place) {
            return place < text_.size() && std::isdigit(static_cast<unsigned char>(text_[place])) != 0;
        };
        std::size_t place = at_;
        if (text_[place] == '-' || text_[place] == '+')
            ++place;
        return isDigit(place) || (place < text_.size() && text_[place] == '.' && isDigit(place + 1));
    }

    std::string number() {
        const std::size_t begin = at_++;
        while (at_ < text_.size() && (isNameLetter(text_[at_]) || text_[at_] == '.'))
            ++at_;
        return std::string(text_.substr(begin, at_ - begin));
    }

    std::string symbol() {
        static constexpr std::string_view pairs[] = {"<=", ">=", "<>"};
        for (const std::string_view pair : pairs)
            if (text_.substr(at_, 2) == pair) {
                at_ += 2;
                return std::string(pair);
            }
        const char single = text_[at_++];
        return {single};
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

class Parser {
public:
    Parser(std::string_view text, std::span<const ResultColumn> columns)
        : text_(text), columns_(columns), lexer_(text) {
        advance();
    }

    Criterion all() {
        Criterion root = alternatives();
        expectEnd();
        return root;
    }

    Criterion one() {
        Criterion root = term();
        expectEnd();
        return root;
    }

private:
    void advance() { token_ = lexer_.next(); }

    void expectEnd() const {
        if (token_.lexeme != Lexeme::End)
            refuse(text_);
    }

    bool takeWord(std::string_view word) {
        if (token_.lexeme != Lexeme::Word || !equalIgnoringCase(token_.text, word))
            return false;
        advance();
        return true;
    }

    bool takeSymbol(std::string_view symbol) {
        if (token_.lexeme != Lexeme::Symbol || token_.text != symbol)
            return false;
        advance();
        return true;
    }

    Criterion alternatives() {
        Criterion either = conjunction();
        while (takeWord("or"))
            join(either, Criterion::Kind::Or, conjunction());
        return either;
    }

    Criterion conjunction() {
        Criterion both = factor();
        while (takeWord("and"))
            join(both, Criterion::Kind::And, factor());
        return both;
    }

    static void join(Criterion& left, Criterion::Kind kind, Criterion right) {
        if (left.kind != kind) {
            Criterion joined;
            joined.kind = kind;
            joined.parts.push_back(std::move(left));
            left = std::move(joined);
        }
        left.parts.push_back(std::move(right));
    }

    static Criterion negated(Criterion inner) {
        Criterion outer;
        outer.kind = Criterion::Kind::Not;
        outer.parts.push_back(std::move(inner));
        return outer;
    }

    Criterion factor() {
        if (takeWord("not"))
            return negated(factor());
        if (!takeSymbol("("))
            return term();
        Criterion inner = alternatives();
        if (!takeSymbol(")"))
            refuse(text_);
        return inner;
    }

    /// The name may stand in brackets of its own: `(LastName) = 'SMITH'` is not taken, `[LastName]` is.
    Criterion term() {
        if (token_.lexeme != Lexeme::Word && token_.lexeme != Lexeme::Name)
            refuse(text_);
        Criterion found;
        found.column = columnIndex(columns_, token_.text);
        advance();
        if (takeWord("is"))
            return nullTest(std::move(found));
        const bool reversed = takeWord("not");
        found.comparison = comparison();
        if (reversed && found.comparison != Comparison::Like)
            refuse(text_);
        if (takeWord("null")) {
            if (found.comparison != Comparison::Equal && found.comparison != Comparison::NotEqual)
                refuse(text_);
            const bool differs = found.comparison == Comparison::NotEqual;
            found.comparison = Comparison::IsNull;
            return differs ? negated(std::move(found)) : found;
        }
        found.operand = operand(columns_[found.column].type, found.comparison);
        advance();
        return reversed ? negated(std::move(found)) : found;
    }

    Criterion nullTest(Criterion found) {
        const bool reversed = takeWord("not");
        if (!takeWord("null"))
            refuse(text_);
        found.comparison = Comparison::IsNull;
        return reversed ? negated(std::move(found)) : found;
    }

    Comparison comparison() {
        static constexpr struct {
            std::string_view symbol;
            Comparison comparison;
        } known[] = {{"=", Comparison::Equal},        {"<>", Comparison::NotEqual}, {"<", Comparison::Less},
                     {"<=", Comparison::LessOrEqual}, {">", Comparison::Greater},   {">=", Comparison::GreaterOrEqual}};
        if (takeWord("like"))
            return Comparison::Like;
        for (const auto& candidate : known)
            if (takeSymbol(candidate.symbol))
                return candidate.comparison;
        refuse(text_);
    }

    [[nodiscard]] bool isBooleanWord() const {
        return token_.lexeme == Lexeme::Word &&
               (equalIgnoringCase(token_.text, "true") || equalIgnoringCase(token_.text, "false"));
    }

    static double numberOfWord(std::string_view word) { return equalIgnoringCase(word, "true") ? 1.0 : 0.0; }

    [[nodiscard]] Operand operand(ColumnType type, Comparison comparison) const {
        if (token_.lexeme == Lexeme::End || token_.lexeme == Lexeme::Symbol || token_.lexeme == Lexeme::Name ||
            (token_.lexeme == Lexeme::Word && !isBooleanWord()))
            refuse(text_);
        Operand made;
        made.text = token_.text;
        made.value = made.text;
        if (comparison == Comparison::Like || type == ColumnType::Text)
            return made;
        try {
            convert(made, type);
        } catch (const Error&) {
            refuse(text_);
        }
        return made;
    }

    void convert(Operand& made, ColumnType type) const {
        switch (type) {
        case ColumnType::Flag:
            made.value = isBooleanWord() ? equalIgnoringCase(made.text, "true") : toBoolean(made.value);
            made.number = made.value.as<bool>() ? 1.0 : 0.0;
            break;
        case ColumnType::Integer:
        case ColumnType::Double:
        case ColumnType::Currency:
            made.number = isBooleanWord() ? numberOfWord(made.text) : toDouble(made.value);
            made.value = *made.number;
            break;
        case ColumnType::DateTime:
            made.value = token_.lexeme == Lexeme::Number ? DateTime(toDouble(made.value)) : toDateTime(made.value);
            made.number = wholeSeconds(made.value.as<DateTime>().serial());
            break;
        case ColumnType::Text:
        case ColumnType::Unknown:
            convertByLook(made);
            break;
        }
    }

    /// Beside a worked-out column only the literal tells what is compared.
    void convertByLook(Operand& made) const {
        if (token_.lexeme == Lexeme::Moment)
            made.number = wholeSeconds(toDateTime(made.value).serial());
        else if (isBooleanWord())
            made.number = numberOfWord(made.text);
        else if (isNumeric(made.value))
            made.number = toDouble(made.value);
    }

    std::string_view text_;
    std::span<const ResultColumn> columns_;
    Lexer lexer_;
    Token token_;
};

} // namespace

Criteria Criteria::filter(std::string_view text, std::span<const ResultColumn> columns) {
    Criteria made;
    if (!trim(text).empty())
        made.root_ = Parser(text, columns).all();
    return made;
}

Criteria Criteria::term(std::string_view text, std::span<const ResultColumn> columns) {
    Criteria made;
    made.root_ = Parser(text, columns).one();
    return made;
}

} // namespace zel::ado
