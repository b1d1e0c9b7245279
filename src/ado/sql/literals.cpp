#include "ado/sql/literals.h"

#include "ado/convert.h"
#include "ado/error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace zel::ado::sql {

namespace {

/// A longer list stays in the text: engines count parameters.
constexpr std::size_t mostLifted = 500;

bool isNumber(const Token& token) {
    return token.kind == TokenKind::Integer || token.kind == TokenKind::Decimal;
}

bool isTextual(const Token& token) {
    return token.kind == TokenKind::Text || token.kind == TokenKind::QuotedText;
}

bool isComparison(const Tokens& tokens, std::size_t index) {
    if (tokens[index].kind != TokenKind::Operator)
        return false;
    const std::string_view mark = tokens.spelled(index);
    return mark == "=" || mark == "<>" || mark == "!=" || mark == "<" || mark == ">" || mark == "<=" || mark == ">=";
}

bool isArithmetic(const Tokens& tokens, std::size_t index) {
    if (tokens[index].kind != TokenKind::Operator)
        return false;
    const std::string_view mark = tokens.spelled(index);
    return mark == "+" || mark == "-" || mark == "*" || mark == "/" || mark == "&" || mark == "||";
}

bool endsExpression(Keyword word) {
    switch (word) {
    case Keyword::And:
    case Keyword::Or:
    case Keyword::Order:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Where:
    case Keyword::Union:
    case Keyword::Except:
    case Keyword::Intersect:
    case Keyword::Inner:
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::Full:
    case Keyword::Cross:
    case Keyword::Join:
    case Keyword::On:
    case Keyword::Then:
    case Keyword::Limit:
        return true;
    default:
        return false;
    }
}

class Planner {
public:
    Planner(const Tokens& tokens, const Structure& structure, const ColumnTypes& types)
        : tokens_(tokens), structure_(structure), types_(types) {}

    std::vector<LiteralPlan> run() {
        std::vector<LiteralPlan> plans;
        for (std::size_t at = 0; at < tokens_.size(); ++at) {
            const TokenKind kind = tokens_[at].kind;
            if (tokens_[at].isLiteral())
                plans.push_back(plan(at));
            else if (kind == TokenKind::Open)
                lists_.push_back({at, 0});
            else if (kind == TokenKind::Comma && !lists_.empty())
                ++lists_.back().commas;
            else if (kind == TokenKind::Close && !lists_.empty())
                lists_.pop_back();
        }
        return plans;
    }

private:
    LiteralPlan plan(std::size_t at) {
        LiteralPlan made{.token = at};
        std::size_t first = at;
        if (isNumber(tokens_[at]) && at >= 2 && (tokens_.isOperator(at - 1, "-") || tokens_.isOperator(at - 1, "+")) &&
            !endsOperand(at - 2)) {
            made.sign = at - 1;
            first = at - 1;
        }
        if (first == 0)
            return made;
        made.placed = place(made, first - 1) && stands(at + 1) && fits(made);
        made.lifted = made.placed && lifted_ < mostLifted;
        if (made.lifted)
            ++lifted_;
        return made;
    }

    /// Finds the column that the literal behind `before` is written to or compared with.
    bool place(LiteralPlan& made, std::size_t before) {
        if (before == 0)
            return false;
        const Token& token = tokens_[before];
        if (isComparison(tokens_, before)) {
            made.type = leftOf(before);
            return true;
        }
        if (token.keyword == Keyword::Like) {
            made.pattern = true;
            made.type = ColumnType::Text;
            return true;
        }
        if (token.keyword == Keyword::Between) {
            made.type = leftOf(before);
            return true;
        }
        if (token.keyword == Keyword::And)
            return secondOfBetween(made, before);
        if (token.kind == TokenKind::Open || token.kind == TokenKind::Comma)
            return inList(made, before);
        return false;
    }

    /// What stands left of an operator, through NOT; nothing for a computed operand.
    [[nodiscard]] ColumnType leftOf(std::size_t operation) const {
        std::size_t last = operation - 1;
        if (tokens_[last].keyword == Keyword::Not && last > 0)
            --last;
        const std::size_t first = structure_.operandBegin(tokens_, last);
        if (first > 0 && isArithmetic(tokens_, first - 1))
            return ColumnType::Unknown;
        return types_.ofOperand(last);
    }

    bool secondOfBetween(LiteralPlan& made, std::size_t and_) const {
        if (and_ < 3 || !tokens_[and_ - 1].isLiteral())
            return false;
        std::size_t between = and_ - 2;
        if (tokens_.isOperator(between, "-") && between > 0)
            --between;
        if (tokens_[between].keyword != Keyword::Between)
            return false;
        made.type = leftOf(between);
        return true;
    }

    /// An IN list, or the values of an INSERT.
    bool inList(LiteralPlan& made, std::size_t before) const {
        if (lists_.empty() || lists_.back().open == 0 || lists_.back().open > before)
            return false;
        const auto [open, commas] = lists_.back();
        const Query& query = structure_.queries[structure_.query[made.token]];
        if (tokens_[open - 1].keyword == Keyword::In && open >= 2)
            made.type = leftOf(open - 1);
        else if (query.kind == StatementKind::Insert && structure_.clause[made.token] == Clause::Values &&
                 (tokens_[open - 1].keyword == Keyword::Values || tokens_[open - 1].kind == TokenKind::Comma))
            made.type = types_.ofInserted(query, commas);
        else
            return false;
        return true;
    }

    [[nodiscard]] bool endsOperand(std::size_t index) const {
        const Token& token = tokens_[index];
        return token.isName() || token.isLiteral() || token.kind == TokenKind::Close;
    }

    [[nodiscard]] bool stands(std::size_t next) const {
        if (next >= tokens_.size())
            return true;
        const Token& token = tokens_[next];
        return token.kind == TokenKind::Close || token.kind == TokenKind::Comma || token.kind == TokenKind::Semicolon ||
               endsExpression(token.keyword);
    }

    /// A number beside a column that cannot hold it, or beside no column, stays: engines tell types from its spelling.
    [[nodiscard]] bool fits(const LiteralPlan& made) const {
        const TokenKind kind = tokens_[made.token].kind;
        switch (made.type) {
        case ColumnType::Text:
        case ColumnType::DateTime:
            return true;
        case ColumnType::Currency:
        case ColumnType::Double:
            return kind != TokenKind::Date;
        case ColumnType::Integer:
        case ColumnType::Flag:
            return kind != TokenKind::Date && kind != TokenKind::Decimal;
        case ColumnType::Unknown:
            break;
        }
        return isTextual(tokens_[made.token]);
    }

    const Tokens& tokens_;
    const Structure& structure_;
    const ColumnTypes& types_;
    struct List {
        std::size_t open, commas;
    };
    std::vector<List> lists_; // brackets open at the token looked at
    std::size_t lifted_ = 0;
};

[[noreturn]] void refuseMismatch(const Tokens& tokens, std::size_t token) {
    throw Error(ErrorKind::Statement, errors::errorsInCommand,
                "Data type mismatch in criteria expression: " + std::string(tokens.spelled(token).substr(0, 80)),
                std::string(tokens.text));
}

std::optional<DateTime> momentOf(std::string_view text) {
    const auto iso = parseIsoText(text);
    return iso ? iso : parseDateTime(text);
}

std::string signedNumber(const Tokens& tokens, const LiteralPlan& plan) {
    std::string number(tokens.spelled(plan.token));
    if (plan.sign != Structure::none && tokens.spelled(plan.sign) == "-")
        number.insert(0, 1, '-');
    return number;
}

Value numberFor(const std::string& number, ColumnType type) {
    switch (type) {
    case ColumnType::Integer: {
        std::int64_t whole = 0;
        std::from_chars(number.data(), number.data() + number.size(), whole);
        return whole;
    }
    case ColumnType::Flag:
        return std::int64_t{toDouble(number) != 0.0 ? 1 : 0};
    case ColumnType::Currency:
        return toCurrency(number);
    case ColumnType::DateTime:
        return DateTime(toDouble(number));
    case ColumnType::Double:
        return toDouble(number);
    default:
        return number;
    }
}

Value textFor(const Tokens& tokens, const LiteralPlan& plan, std::string text) {
    if (plan.type == ColumnType::Text || plan.type == ColumnType::Unknown)
        return text;
    if (plan.type == ColumnType::DateTime) {
        if (const auto moment = momentOf(text))
            return *moment;
        refuseMismatch(tokens, plan.token);
    }
    if (plan.type == ColumnType::Flag && (equalIgnoringCase(text, "true") || equalIgnoringCase(text, "false")))
        return std::int64_t{equalIgnoringCase(text, "true") ? 1 : 0};
    if (!isNumeric(text))
        refuseMismatch(tokens, plan.token);
    if (plan.type == ColumnType::Integer) {
        const double number = toDouble(text);
        if (number != std::floor(number) || std::fabs(number) > 2147483647.0)
            refuseMismatch(tokens, plan.token);
        return static_cast<std::int64_t>(number);
    }
    return numberFor(text, plan.type);
}

std::string quoted(std::string_view text) {
    std::string made = "'";
    for (const char c : text) {
        if (c == '\'')
            made += c;
        made += c;
    }
    return made += '\'';
}

} // namespace

std::vector<LiteralPlan> planLiterals(const Tokens& tokens, const Structure& structure, const ColumnTypes& types) {
    return Planner(tokens, structure, types).run();
}

Value boundValue(const Tokens& tokens, const LiteralPlan& plan, EngineKind engine) {
    try {
        if (isNumber(tokens[plan.token]))
            return numberFor(signedNumber(tokens, plan), plan.type);
        std::string text = tokens.literal(plan.token);
        // In the desktop's patterns "*" stands for any characters, as "%" does; to the server it is a star.
        if (plan.pattern && engine == EngineKind::Sqlite)
            std::ranges::replace(text, '*', '%');
        return textFor(tokens, plan, std::move(text));
    } catch (const Error& error) {
        if (error.kind() != ErrorKind::Conversion)
            throw;
        throw Error(ErrorKind::Statement, errors::errorsInCommand,
                    error.description() + ": " + std::string(tokens.spelled(plan.token).substr(0, 80)),
                    std::string(tokens.text));
    }
}

std::string engineLiteral(const Tokens& tokens, const LiteralPlan& plan, EngineKind engine) {
    const Token& token = tokens[plan.token];
    const auto moment = [&](DateTime when) {
        return (engine == EngineKind::Postgres ? "timestamp " : "") + quoted(toIsoText(when));
    };
    if (plan.placed) {
        const Value value = boundValue(tokens, plan, engine);
        switch (value.type()) {
        case Value::Type::Integer:
            return std::to_string(value.as<std::int64_t>());
        case Value::Type::Currency:
            return quoted(value.as<Currency>().toFixedText());
        case Value::Type::DateTime:
            return moment(value.as<DateTime>());
        case Value::Type::Text:
            return quoted(value.as<std::string>());
        default:
            return signedNumber(tokens, plan);
        }
    }
    if (isNumber(token))
        return std::string(tokens.spelled(plan.token));
    std::string text = tokens.literal(plan.token);
    if (token.kind == TokenKind::Date) {
        const auto when = momentOf(text);
        if (!when)
            throw Error(ErrorKind::Statement, errors::errorsInCommand,
                        "Syntax error in date in query expression '#" + text + "#'.", std::string(tokens.text));
        return moment(*when);
    }
    if (plan.pattern && engine == EngineKind::Sqlite)
        std::ranges::replace(text, '*', '%');
    return quoted(text);
}

} // namespace zel::ado::sql
