#pragma once

#include "ado/catalog.h"
#include "ado/sql/structure.h"

#include <cstddef>
#include <string_view>

namespace zel::ado::sql {

/// What the catalog says of the columns that a statement names. Unknown where it says nothing, or where two sources
/// have a column of that name with different types.
class ColumnTypes {
public:
    ColumnTypes(const Tokens& tokens, const Structure& structure, const Catalog& catalog)
        : tokens_(tokens), structure_(structure), catalog_(catalog) {}

    /// Of the operand that ends with the token: a literal, a column, a call, or one of them in brackets.
    [[nodiscard]] ColumnType ofOperand(std::size_t last) const;
    /// Of the value at `position` of a value list, by the columns that the INSERT names or else by the table's order.
    [[nodiscard]] ColumnType ofInserted(const Query& insert, std::size_t position) const;
    /// The table or view behind a source, null when there is none of that name.
    [[nodiscard]] const CatalogTable* table(const SourceTokens& source) const;

private:
    [[nodiscard]] ColumnType ofColumn(std::size_t last) const;
    [[nodiscard]] ColumnType inQuery(const Query& query, std::string_view qualifier, std::string_view column) const;
    [[nodiscard]] ColumnType ofBracket(std::size_t close) const;
    [[nodiscard]] ColumnType ofCall(std::size_t name, std::size_t close) const;
    [[nodiscard]] bool goesBy(const SourceTokens& source, std::string_view name) const;

    const Tokens& tokens_;
    const Structure& structure_;
    const Catalog& catalog_;
};

/// nvarchar, varchar and the like, as CAST and Convert spell a text type.
[[nodiscard]] bool isTextType(std::string_view word);

} // namespace zel::ado::sql
