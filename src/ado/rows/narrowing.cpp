#include "ado/rows/narrowing.h"

#include "ado/convert.h"
#include "ado/rows/columns.h"

#include <fmt/format.h>

#include <algorithm>

namespace zel::ado {

namespace {

std::string_view symbolOf(Comparison comparison) {
    switch (comparison) {
    case Comparison::Equal:
        return "=";
    case Comparison::NotEqual:
        return "<>";
    case Comparison::Less:
        return "<";
    case Comparison::LessOrEqual:
        return "<=";
    case Comparison::Greater:
        return ">";
    case Comparison::GreaterOrEqual:
        return ">=";
    case Comparison::Like:
        return "LIKE";
    case Comparison::IsNull:
        break;
    }
    return "IS NULL";
}

class Narrower {
public:
    Narrower(std::span<const ResultColumn> columns, EngineKind engine, std::size_t firstParameter)
        : columns_(columns), engine_(engine), nextParameter_(firstParameter) {}

    /// Of joined terms those that can be tested; the rest is left to the client.
    std::optional<EngineCondition> run(const Criterion& root) {
        if (root.kind != Criterion::Kind::And) {
            if (!isTestable(root))
                return std::nullopt;
            write(root);
            return std::move(made_);
        }
        for (const Criterion& part : root.parts) {
            if (!isTestable(part))
                continue;
            if (!made_.text.empty())
                made_.text += " AND ";
            write(part);
        }
        if (made_.text.empty())
            return std::nullopt;
        return std::move(made_);
    }

private:
    [[nodiscard]] bool isTestable(const Criterion& criterion) const {
        if (criterion.kind == Criterion::Kind::Term)
            return isTestableTerm(criterion);
        return std::ranges::all_of(criterion.parts, [&](const Criterion& part) { return isTestable(part); });
    }

    /// A name that two columns share names neither, a worked-out column may compare in other ways than its base, and
    /// the fine points of money and of binary fractions are the client's.
    [[nodiscard]] bool isTestableTerm(const Criterion& term) const {
        const ResultColumn& column = columns_[term.column];
        if (column.baseTable.empty() || std::ranges::count_if(columns_, [&](const ResultColumn& other) {
                                            return equalIgnoringCase(other.name, column.name);
                                        }) != 1)
            return false;
        if (term.comparison == Comparison::IsNull)
            return true;
        switch (column.type) {
        case ColumnType::Text:
            // A backslash would need escaping in one engine's patterns, "_" in both.
            return term.comparison != Comparison::Like || term.operand.text.find_first_of("_\\") == std::string::npos;
        case ColumnType::Flag:
        case ColumnType::Integer:
        case ColumnType::DateTime:
            return term.comparison != Comparison::Like;
        case ColumnType::Unknown:
        case ColumnType::Double:
        case ColumnType::Currency:
            break;
        }
        return false;
    }

    void write(const Criterion& criterion) {
        switch (criterion.kind) {
        case Criterion::Kind::Term:
            writeTerm(criterion);
            return;
        case Criterion::Kind::Not:
            made_.text += "NOT (";
            write(criterion.parts.front());
            made_.text += ')';
            return;
        case Criterion::Kind::And:
        case Criterion::Kind::Or:
            break;
        }
        const std::string_view joint = criterion.kind == Criterion::Kind::And ? " AND " : " OR ";
        made_.text += '(';
        for (const Criterion& part : criterion.parts) {
            if (&part != &criterion.parts.front())
                made_.text += joint;
            write(part);
        }
        made_.text += ')';
    }

    void writeTerm(const Criterion& term) {
        const ResultColumn& column = columns_[term.column];
        made_.text += fmt::format("{}.{} {}", rowsOfSource, quotedName(engineName(column)), symbolOf(term.comparison));
        if (term.comparison == Comparison::IsNull)
            return;
        Value value = operandFor(term, column.type);
        made_.text += fmt::format(" {}{}", placeholder(engine_, nextParameter_++), castOf(column.type, value.type()));
        made_.parameters.push_back(std::move(value));
    }

    /// The server has folded the name that is spelled for grids.
    [[nodiscard]] std::string engineName(const ResultColumn& column) const {
        return engine_ == EngineKind::Postgres ? lowerCase(column.name) : column.name;
    }

    static Value operandFor(const Criterion& term, ColumnType type) {
        if (term.comparison == Comparison::Like) {
            std::string pattern = term.operand.text;
            std::ranges::replace(pattern, '*', '%');
            return pattern;
        }
        if (type == ColumnType::Integer && isKey(*term.operand.number))
            return static_cast<std::int64_t>(*term.operand.number);
        return term.operand.value;
    }

    static bool isKey(double number) {
        return number >= -2'147'483'648.0 && number <= 2'147'483'647.0 &&
               static_cast<double>(static_cast<std::int32_t>(number)) == number;
    }

    /// PostgreSQL would take a parameter beside citext for the type that minds the case, and one beside an integer for
    /// an integer, which 5.5 is not. SQLite goes by the column, whose index must serve.
    [[nodiscard]] std::string_view castOf(ColumnType type, Value::Type literal) const {
        if (engine_ == EngineKind::Sqlite)
            return type == ColumnType::Text ? " COLLATE NOCASE" : "";
        if (type == ColumnType::Text)
            return "::citext";
        return literal == Value::Type::Double ? "::double precision" : "";
    }

    std::span<const ResultColumn> columns_;
    EngineKind engine_;
    std::size_t nextParameter_;
    EngineCondition made_;
};

} // namespace

std::optional<EngineCondition> narrowingCondition(const Criteria& filter, std::span<const ResultColumn> columns,
                                                  EngineKind engine, std::size_t firstParameter) {
    if (filter.empty())
        return std::nullopt;
    return Narrower(columns, engine, firstParameter).run(*filter.root());
}

} // namespace zel::ado
