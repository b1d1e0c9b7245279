#pragma once

#include "ado/engine.h"
#include "ado/sql/column_types.h"
#include "ado/sql/literals.h"

#include <optional>
#include <string>
#include <vector>

namespace zel::ado::sql {

/// Turns the tokens of a statement into the engine's words: each token may be replaced and may get text in front of and
/// behind it; what lies between tokens stays.
class Rewriter {
public:
    Rewriter(const Tokens& tokens, const Structure& structure, const ColumnTypes& types, const Catalog& catalog,
             EngineKind engine);

    [[nodiscard]] std::string run(const std::vector<LiteralPlan>& plans);

private:
    struct Edit {
        std::optional<std::string> replacement;
        std::string before, behind;
    };

    void replace(std::size_t token, std::string text) { edits_[token].replacement = std::move(text); }
    void drop(std::size_t token) { replace(token, {}); }
    /// An outer pair of brackets is put in behind the inner ones of the same token.
    void wrap(std::size_t first, std::size_t last, std::string_view before, std::string_view behind);

    void literals(const std::vector<LiteralPlan>& plans);
    void words();
    void functions();
    void left(std::size_t name);
    void standardFormat(std::size_t name);
    void convert(std::size_t name);
    void cast(std::size_t name);
    void toText(std::size_t name, std::size_t close, bool money);
    void concatenations();
    void concatenation(std::size_t operation);
    void patterns();
    void joins();
    [[nodiscard]] bool turnAround(std::size_t join, std::size_t on);
    [[nodiscard]] bool hasStar(std::size_t query) const;
    void orders();
    void orderItem(std::size_t first, std::size_t end);
    void views();
    [[nodiscard]] std::string emit() const;

    [[nodiscard]] bool onSqlite() const noexcept { return engine_ == EngineKind::Sqlite; }
    [[nodiscard]] bool isChainOperator(std::size_t index) const;
    [[nodiscard]] bool endsOperand(std::size_t index) const;
    /// The comma at the top level of the bracket that opens at `open`, none when it holds no or several.
    [[nodiscard]] std::size_t onlyComma(std::size_t open) const;
    /// Whether a money column stands between the tokens: its own collation must not be replaced.
    [[nodiscard]] bool isMoney(std::size_t first, std::size_t last) const;

    const Tokens& tokens_;
    const Structure& structure_;
    const ColumnTypes& types_;
    const Catalog& catalog_;
    EngineKind engine_;
    std::vector<Edit> edits_;
    std::vector<bool> chained_; // operators that a concatenation has taken
};

/// The definition of a view with the views that it names put in place, without a closing ";".
[[nodiscard]] std::string expandedDefinition(const CatalogTable& view, const Catalog& catalog);

} // namespace zel::ado::sql
