#include "ado/sql/column_types.h"

#include "ado/convert.h"

#include <algorithm>
#include <array>

namespace zel::ado::sql {

namespace {

template <std::size_t N>
bool isOneOf(std::string_view word, const std::array<std::string_view, N>& words) {
    return std::ranges::any_of(words, [&](std::string_view candidate) { return equalIgnoringCase(candidate, word); });
}

} // namespace

bool isTextType(std::string_view word) {
    constexpr std::array<std::string_view, 5> types = {"nvarchar", "varchar", "nchar", "char", "text"};
    return isOneOf(word, types);
}

const CatalogTable* ColumnTypes::table(const SourceTokens& source) const {
    return source.name == Structure::none ? nullptr : catalog_.table(tokens_.name(source.name));
}

bool ColumnTypes::goesBy(const SourceTokens& source, std::string_view name) const {
    const std::size_t named = source.alias != Structure::none ? source.alias : source.name;
    return named != Structure::none && equalIgnoringCase(tokens_.name(named), name);
}

ColumnType ColumnTypes::ofOperand(std::size_t last) const {
    switch (tokens_[last].kind) {
    case TokenKind::Text:
    case TokenKind::QuotedText:
        return ColumnType::Text;
    case TokenKind::Integer:
        return ColumnType::Integer;
    case TokenKind::Decimal:
        return ColumnType::Double;
    case TokenKind::Date:
        return ColumnType::DateTime;
    case TokenKind::Close:
        return ofBracket(last);
    default:
        return tokens_[last].isName() ? ofColumn(last) : ColumnType::Unknown;
    }
}

ColumnType ColumnTypes::ofBracket(std::size_t close) const {
    const std::size_t open = structure_.partner[close];
    if (open == Structure::none || open + 1 == close)
        return ColumnType::Unknown;
    if (open > 0 && isCall(tokens_, open - 1))
        return ofCall(open - 1, close);
    return structure_.operandBegin(tokens_, close - 1) == open + 1 ? ofOperand(close - 1) : ColumnType::Unknown;
}

ColumnType ColumnTypes::ofCall(std::size_t name, std::size_t close) const {
    constexpr std::array<std::string_view, 8> texts = {"left",  "right", "substring", "format",
                                                       "upper", "lower", "ltrim",     "rtrim"};
    constexpr std::array<std::string_view, 2> keepers = {"max", "min"};
    const std::string_view function = tokens_.spelled(name);
    if (isOneOf(function, texts))
        return ColumnType::Text;
    if (isOneOf(function, keepers) && structure_.operandBegin(tokens_, close - 1) == name + 2)
        return ofOperand(close - 1);
    if (tokens_[name].keyword == Keyword::Convert && isTextType(tokens_.spelled(name + 2)))
        return ColumnType::Text;
    if (tokens_[name].keyword == Keyword::Cast)
        for (std::size_t at = name + 2; at + 1 < close; ++at)
            if (tokens_[at].keyword == Keyword::As && isTextType(tokens_.spelled(at + 1)))
                return ColumnType::Text;
    return ColumnType::Unknown;
}

ColumnType ColumnTypes::ofColumn(std::size_t last) const {
    const bool qualified = last >= 2 && tokens_[last - 1].kind == TokenKind::Dot && tokens_[last - 2].isName();
    const std::string_view qualifier = qualified ? tokens_.name(last - 2) : std::string_view();
    const std::string_view column = tokens_.name(last);
    for (std::size_t query = structure_.query[last]; query != Structure::none;
         query = structure_.queries[query].parent) {
        const ColumnType type = inQuery(structure_.queries[query], qualifier, column);
        if (type != ColumnType::Unknown)
            return type;
    }
    return ColumnType::Unknown;
}

ColumnType ColumnTypes::inQuery(const Query& query, std::string_view qualifier, std::string_view column) const {
    ColumnType found = ColumnType::Unknown;
    for (const SourceTokens& source : query.sources) {
        const CatalogTable* behind = table(source);
        if (behind == nullptr || (!qualifier.empty() && !goesBy(source, qualifier)))
            continue;
        const CatalogColumn* candidate = behind->column(column);
        if (candidate == nullptr)
            continue;
        if (found != ColumnType::Unknown && found != candidate->type)
            return ColumnType::Unknown;
        found = candidate->type;
    }
    return found;
}

ColumnType ColumnTypes::ofInserted(const Query& insert, std::size_t position) const {
    if (insert.sources.empty())
        return ColumnType::Unknown;
    const CatalogTable* target = table(insert.sources.front());
    if (target == nullptr)
        return ColumnType::Unknown;
    if (insert.insertColumns.empty())
        return position < target->columns.size() ? target->columns[position].type : ColumnType::Unknown;
    if (position >= insert.insertColumns.size())
        return ColumnType::Unknown;
    const CatalogColumn* column = target->column(tokens_.name(insert.insertColumns[position]));
    return column == nullptr ? ColumnType::Unknown : column->type;
}

} // namespace zel::ado::sql
