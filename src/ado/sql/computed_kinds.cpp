#include "ado/sql/computed_kinds.h"

#include "ado/convert.h"
#include "ado/sql/select_list.h"

#include <algorithm>
#include <optional>

namespace zel::ado::sql {

namespace {

/// Views name no views in this schema; a circle of them must end all the same.
constexpr int deepestView = 8;

struct Output {
    std::string name;
    ComputedKind kind;
};

ComputedKind kindOf(ColumnType type) {
    if (type == ColumnType::Unknown)
        return anyKind;
    return {type == ColumnType::Currency, type == ColumnType::DateTime};
}

/// What a SELECT gives, column by column. Nothing where a source is not known.
class Tracer {
public:
    Tracer(std::string_view select, const Catalog& catalog, int depth) : catalog_(catalog), depth_(depth) {
        if (lex(select, tokens_) == LexFault::None && tokens_.size() != 0)
            structure_ = analyse(tokens_);
    }

    std::optional<std::vector<Output>> run() { return structure_.queries.empty() ? std::nullopt : outputs(0); }

private:
    std::optional<std::vector<Output>> outputs(std::size_t query) {
        std::vector<Output> made;
        for (const SelectItem& item : selectItems(tokens_, structure_, query)) {
            if (!item.isStar(tokens_)) {
                made.push_back(outputOf(item, query));
                continue;
            }
            const std::string qualifier = item.end - item.first > 2 ? nameAt(item.end - 3) : std::string();
            for (const SourceTokens& source : structure_.queries[query].sources) {
                if (!qualifier.empty() && !goesBy(source, qualifier))
                    continue;
                auto given = outputs(source);
                if (!given)
                    return std::nullopt;
                std::ranges::move(*given, std::back_inserter(made));
            }
        }
        // The other queries of a UNION give rows to the same columns.
        if (structure_.queries[query].compound)
            for (Output& output : made)
                output.kind = anyKind;
        return made;
    }

    Output outputOf(const SelectItem& item, std::size_t query) {
        Output output{nameAt(item.end - 1), {}};
        for (std::size_t at = item.first; at < item.expressionEnd(tokens_); ++at)
            if (isColumn(at, query))
                output.kind |= kindOfColumn(at);
        return output;
    }

    std::optional<std::vector<Output>> outputs(const SourceTokens& source) {
        if (source.name == Structure::none) {
            const auto inner = std::ranges::find(structure_.queries, source.first + 1, &Query::firstToken);
            if (inner == structure_.queries.end())
                return std::nullopt;
            return outputs(static_cast<std::size_t>(inner - structure_.queries.begin()));
        }
        const CatalogTable* table = catalog_.table(nameAt(source.name));
        if (table == nullptr)
            return std::nullopt;
        if (table->isView() && depth_ < deepestView)
            return Tracer(table->definition, catalog_, depth_ + 1).run();
        std::vector<Output> made;
        for (const CatalogColumn& column : table->columns)
            made.push_back({column.name, kindOf(column.type)});
        return made;
    }

    [[nodiscard]] bool isIdentifier(std::size_t at) const {
        return tokens_[at].isName() || tokens_[at].kind == TokenKind::QuotedText;
    }

    [[nodiscard]] std::string nameAt(std::size_t at) const {
        return tokens_[at].kind == TokenKind::QuotedText ? tokens_.literal(at) : std::string(tokens_.name(at));
    }

    /// Not a function, a qualifier, a type behind AS, a collation or a source.
    [[nodiscard]] bool isColumn(std::size_t at, std::size_t query) const {
        if (!isIdentifier(at) || isCall(tokens_, at) || (structure_.query[at] != query && isSource(at)))
            return false;
        const Keyword before = at == 0 ? Keyword::None : tokens_[at - 1].keyword;
        const bool qualifies = at + 1 < tokens_.size() && tokens_[at + 1].kind == TokenKind::Dot;
        return !qualifies && before != Keyword::As && before != Keyword::Collate;
    }

    [[nodiscard]] bool isSource(std::size_t at) const { return structure_.clause[at] == Clause::From; }

    [[nodiscard]] bool goesBy(const SourceTokens& source, std::string_view name) const {
        const std::size_t named = source.alias != Structure::none ? source.alias : source.name;
        return named != Structure::none && equalIgnoringCase(nameAt(named), name);
    }

    ComputedKind kindOfColumn(std::size_t at) {
        const bool qualified = at >= 2 && tokens_[at - 1].kind == TokenKind::Dot && isIdentifier(at - 2);
        const std::string qualifier = qualified ? nameAt(at - 2) : std::string();
        const std::string column = nameAt(at);
        for (std::size_t query = structure_.query[at]; query != Structure::none;
             query = structure_.queries[query].parent)
            for (const SourceTokens& source : structure_.queries[query].sources) {
                if (!qualifier.empty() && !goesBy(source, qualifier))
                    continue;
                const auto given = outputs(source);
                if (!given)
                    return anyKind;
                const auto found = std::ranges::find_if(
                    *given, [&](const Output& output) { return equalIgnoringCase(output.name, column); });
                if (found != given->end())
                    return found->kind;
            }
        return anyKind;
    }

    const Catalog& catalog_;
    int depth_;
    Tokens tokens_;
    Structure structure_;
};

} // namespace

std::vector<ComputedKind> computedKinds(std::string_view select, const Catalog& catalog) {
    std::vector<ComputedKind> kinds;
    if (const auto outputs = Tracer(select, catalog, 0).run())
        for (const Output& output : *outputs)
            kinds.push_back(output.kind);
    return kinds;
}

} // namespace zel::ado::sql
