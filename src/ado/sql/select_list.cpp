#include "ado/sql/select_list.h"

namespace zel::ado::sql {

namespace {

bool endsExpression(const Tokens& tokens, std::size_t index) {
    const Token& token = tokens[index];
    return token.isName() || token.isLiteral() || token.kind == TokenKind::Close || token.keyword == Keyword::End ||
           token.keyword == Keyword::Null;
}

SelectItem itemOf(const Tokens& tokens, std::size_t first, std::size_t end) {
    SelectItem item{.first = first, .end = end};
    const std::size_t last = end - 1;
    if (last == first || !tokens[last].isName())
        return item;
    if (tokens[last - 1].keyword == Keyword::As || endsExpression(tokens, last - 1))
        item.alias = last;
    return item;
}

bool isQuantifier(Keyword word) {
    return word == Keyword::Distinct || word == Keyword::Distinctrow;
}

} // namespace

std::size_t SelectItem::expressionEnd(const Tokens& tokens) const {
    if (alias == Structure::none)
        return end;
    return tokens[alias - 1].keyword == Keyword::As ? alias - 1 : alias;
}

std::vector<SelectItem> selectItems(const Tokens& tokens, const Structure& structure, std::size_t query) {
    std::vector<SelectItem> items;
    const std::size_t select = structure.queries[query].firstToken;
    if (select >= tokens.size() || tokens[select].keyword != Keyword::Select)
        return items;
    std::size_t at = select + 1;
    while (at < tokens.size() && isQuantifier(tokens[at].keyword))
        ++at;
    const auto isOfList = [&](std::size_t token) {
        return structure.query[token] == query && structure.depth[token] == structure.depth[select];
    };
    std::size_t first = at;
    const auto add = [&] {
        if (at > first)
            items.push_back(itemOf(tokens, first, at));
        first = at + 1;
    };
    for (; at < tokens.size() && tokens[at].kind != TokenKind::Semicolon; ++at) {
        const bool closed = tokens[at].kind == TokenKind::Close && structure.depth[at] < structure.depth[select];
        if (closed || (isOfList(at) && structure.clause[at] != Clause::SelectList))
            break;
        if (isOfList(at) && tokens[at].kind == TokenKind::Comma)
            add();
    }
    add();
    return items;
}

std::vector<std::string> aliases(const Tokens& tokens, const Structure& structure) {
    std::vector<std::string> names;
    for (std::size_t query = 0; query < structure.queries.size(); ++query)
        for (const SelectItem& item : selectItems(tokens, structure, query))
            if (item.alias != Structure::none)
                names.emplace_back(tokens.name(item.alias));
    return names;
}

std::vector<std::string> columnNames(std::string_view select) {
    std::vector<std::string> names;
    Tokens tokens;
    if (lex(select, tokens) != LexFault::None || tokens.size() == 0)
        return names;
    const Structure structure = analyse(tokens);
    for (const SelectItem& item : selectItems(tokens, structure, 0)) {
        const std::size_t last = item.end - 1;
        const bool isColumn = structure.operandBegin(tokens, last) == item.first && tokens[last].isName();
        if (item.alias != Structure::none || isColumn)
            names.emplace_back(tokens.name(last));
    }
    return names;
}

} // namespace zel::ado::sql
