#include "ado/rows/criteria.h"

#include "ado/convert.h"
#include "ado/rows/cells.h"

#include <algorithm>

namespace zel::ado {

namespace {

enum class Truth { False, Unknown, True };

Truth truth(bool holds) {
    return holds ? Truth::True : Truth::False;
}

bool holds(Comparison comparison, int order) {
    switch (comparison) {
    case Comparison::Equal:
        return order == 0;
    case Comparison::NotEqual:
        return order != 0;
    case Comparison::Less:
        return order < 0;
    case Comparison::LessOrEqual:
        return order <= 0;
    case Comparison::Greater:
        return order > 0;
    case Comparison::GreaterOrEqual:
        return order >= 0;
    case Comparison::Like:
    case Comparison::IsNull:
        break;
    }
    return false;
}

int orderOf(double left, double right) {
    if (left == right)
        return 0;
    return left < right ? -1 : 1;
}

Truth termHolds(const Criterion& term, const RowStore& rows, std::size_t row) {
    const Value::Type type = rows.typeAt(row, term.column);
    if (term.comparison == Comparison::IsNull)
        return truth(type == Value::Type::Null);
    if (type == Value::Type::Null)
        return Truth::Unknown;
    if (type != Value::Type::Text && term.operand.number && term.comparison != Comparison::Like)
        return truth(holds(term.comparison, orderOf(cellNumber(rows, row, term.column), *term.operand.number)));
    const std::string converted = type == Value::Type::Text ? std::string() : toText(rows.at(row, term.column));
    const std::string_view text = type == Value::Type::Text ? rows.textAt(row, term.column) : converted;
    if (term.comparison == Comparison::Like)
        return truth(isLike(text, term.operand.text));
    return truth(holds(term.comparison, compareIgnoringCase(text, term.operand.text)));
}

Truth evaluate(const Criterion& criterion, const RowStore& rows, std::size_t row) {
    switch (criterion.kind) {
    case Criterion::Kind::Term:
        return termHolds(criterion, rows, row);
    case Criterion::Kind::Not: {
        const Truth inner = evaluate(criterion.parts.front(), rows, row);
        return inner == Truth::Unknown ? inner : truth(inner == Truth::False);
    }
    case Criterion::Kind::And: {
        Truth all = Truth::True;
        for (const Criterion& part : criterion.parts)
            all = std::min(all, evaluate(part, rows, row));
        return all;
    }
    case Criterion::Kind::Or:
        break;
    }
    Truth any = Truth::False;
    for (const Criterion& part : criterion.parts)
        any = std::max(any, evaluate(part, rows, row));
    return any;
}

} // namespace

bool Criteria::matches(const RowStore& rows, std::size_t row) const {
    return !root_ || evaluate(*root_, rows, row) == Truth::True;
}

bool isLike(std::string_view text, std::string_view pattern) noexcept {
    const auto isWildcard = [&](std::size_t place) { return pattern[place] == '*' || pattern[place] == '%'; };
    std::size_t at = 0, in = 0, retryAt = 0, retryIn = std::string_view::npos;
    while (at < text.size()) {
        if (in < pattern.size() && isWildcard(in)) {
            retryIn = ++in;
            retryAt = at;
        } else if (in < pattern.size() && foldCase(pattern[in]) == foldCase(text[at])) {
            ++in;
            ++at;
        } else if (retryIn != std::string_view::npos) {
            in = retryIn;
            at = ++retryAt;
        } else {
            return false;
        }
    }
    while (in < pattern.size() && isWildcard(in))
        ++in;
    return in == pattern.size();
}

} // namespace zel::ado
