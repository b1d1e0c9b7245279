#include "ado/sql/outline.h"

#include "ado/convert.h"
#include "ado/sql/structure.h"

#include <algorithm>
#include <array>

namespace zel::ado::sql {

namespace {

bool isAggregate(std::string_view function) {
    constexpr std::array<std::string_view, 7> aggregates = {"count", "sum", "min", "max", "avg", "first", "last"};
    return std::ranges::any_of(aggregates, [&](std::string_view name) { return equalIgnoringCase(name, function); });
}

class Maker {
public:
    explicit Maker(const Tokens& tokens) : tokens_(tokens), structure_(analyse(tokens)) {}

    Outline make() {
        const Query& query = structure_.queries.front();
        out_.kind = query.kind;
        out_.closed = query.compound || query.kind != StatementKind::Select;
        std::size_t last = tokens_.size();
        while (last > 0 && tokens_[last - 1].kind == TokenKind::Semicolon)
            --last;
        out_.end = last == 0 ? 0 : tokens_[last - 1].end;
        for (at_ = 0; at_ < last; ++at_)
            token();
        endItem();
        for (const SourceTokens& source : query.sources)
            addSource(source);
        if ((hasWhere_ && out_.whereBegin == Outline::none) || hasLooseBracket())
            out_.closed = true;
        return std::move(out_);
    }

private:
    void token() {
        if (structure_.query[at_] != 0)
            return;
        const bool top = structure_.depth[at_] == 0;
        const Clause clause = structure_.clause[at_];
        if (top)
            followOrder(tokens_[at_].keyword);
        if (clause == Clause::SelectList)
            inList(top);
        else if (clause == Clause::Where)
            inWhere(top);
        else if (top)
            mark(tokens_[at_].keyword);
    }

    /// Clauses that come twice or in another order are no statement that anything could be put into.
    void followOrder(Keyword word) {
        constexpr std::array order = {Keyword::Select, Keyword::From,  Keyword::Where,
                                      Keyword::Group,  Keyword::Order, Keyword::Limit};
        const auto found = std::ranges::find(order, word);
        if (found == order.end())
            return;
        const int place = static_cast<int>(found - order.begin());
        if (place <= lastClause_)
            out_.closed = true;
        lastClause_ = place;
    }

    void inList(bool top) {
        const Keyword word = tokens_[at_].keyword;
        if (isCall(tokens_, at_) && isAggregate(tokens_.name(at_)))
            out_.aggregate = true;
        if (top && word == Keyword::Top)
            out_.closed = true;
        else if (top && (word == Keyword::Distinct || word == Keyword::Distinctrow))
            out_.distinct = true;
        else if (top && tokens_[at_].kind == TokenKind::Comma)
            endItem();
        else if (!top || word != Keyword::Select) {
            if (itemFirst_ == Outline::none)
                itemFirst_ = at_;
            itemLast_ = at_;
        }
    }

    void inWhere(bool top) {
        if (top && tokens_[at_].keyword == Keyword::Where) {
            hasWhere_ = true;
            return;
        }
        if (out_.whereBegin == Outline::none)
            out_.whereBegin = tokens_[at_].begin;
        out_.whereEnd = tokens_[at_].end;
    }

    void mark(Keyword word) {
        switch (word) {
        case Keyword::Group:
            out_.aggregate = true;
            out_.groupBegin = tokens_[at_].begin;
            break;
        case Keyword::Order:
            out_.orderBegin = tokens_[at_].begin;
            break;
        case Keyword::By:
            if (out_.orderBegin != Outline::none && at_ + 1 < tokens_.size())
                out_.orderItemsBegin = tokens_[at_ + 1].begin;
            break;
        case Keyword::Having:
        case Keyword::Limit:
        case Keyword::Offset:
        case Keyword::For:
        case Keyword::Into:
            out_.closed = true;
            break;
        default:
            break;
        }
    }

    void endItem() {
        if (itemFirst_ == Outline::none)
            return;
        SelectItem item{.begin = tokens_[itemFirst_].begin,
                        .end = tokens_[itemLast_].end,
                        .expressionEnd = tokens_[itemLast_].end,
                        .name = {},
                        .table = {},
                        .column = {}};
        nameItem(item);
        out_.listEnd = item.end;
        out_.items.push_back(std::move(item));
        itemFirst_ = Outline::none;
    }

    void nameItem(SelectItem& item) {
        std::size_t last = itemLast_;
        if (tokens_.isOperator(last, "*") && (last == itemFirst_ || tokens_[last - 1].kind == TokenKind::Dot)) {
            item.isStar = true;
            if (last >= itemFirst_ + 2)
                item.table = tokens_.name(last - 2);
            return;
        }
        if (last > itemFirst_ && tokens_[last].isName() && endsOperand(last - 1)) {
            item.name = tokens_.name(last);
            last -= tokens_[last - 1].keyword == Keyword::As ? 2 : 1;
            item.expressionEnd = tokens_[last].end;
        }
        if (!tokens_[last].isName() || structure_.operandBegin(tokens_, last) != itemFirst_)
            return;
        item.column = tokens_.name(last);
        if (last >= itemFirst_ + 2)
            item.table = tokens_.name(last - 2);
        if (item.name.empty())
            item.name = item.column;
    }

    [[nodiscard]] bool endsOperand(std::size_t index) const {
        if (tokens_[index].keyword == Keyword::As)
            return index > itemFirst_;
        return tokens_[index].isName() || tokens_[index].isLiteral() || tokens_[index].kind == TokenKind::Close;
    }

    [[nodiscard]] bool hasLooseBracket() const {
        for (std::size_t at = 0; at < tokens_.size(); ++at)
            if ((tokens_[at].kind == TokenKind::Open || tokens_[at].kind == TokenKind::Close) &&
                structure_.partner[at] == Structure::none)
                return true;
        return false;
    }

    void addSource(const SourceTokens& source) {
        Source made;
        if (source.name != Structure::none)
            made.table = tokens_.name(source.name);
        made.alias = source.alias == Structure::none ? made.table : std::string(tokens_.name(source.alias));
        out_.sources.push_back(std::move(made));
    }

    const Tokens& tokens_;
    Structure structure_;
    Outline out_;
    std::size_t at_ = 0;
    std::size_t itemFirst_ = Outline::none, itemLast_ = 0;
    bool hasWhere_ = false;
    int lastClause_ = -1;
};

/// Where a new WHERE or ORDER BY would stand.
std::size_t endOfBody(const Outline& parts) {
    return std::min({parts.groupBegin, parts.orderBegin, parts.end});
}

} // namespace

Outline outline(std::string_view statement) {
    Tokens tokens;
    if (lex(statement, tokens) != LexFault::None || tokens.size() == 0) {
        Outline nothing;
        nothing.closed = true;
        nothing.end = statement.size();
        return nothing;
    }
    return Maker(tokens).make();
}

Sql withCondition(const Sql& statement, const Outline& parts, const Sql& condition) {
    if (parts.whereBegin == Outline::none) {
        std::size_t body = endOfBody(parts);
        // Blanks in front of ORDER BY stay there, so that the text reads as if it had been worded so.
        while (body > 0 && statement.text()[body - 1] == ' ')
            --body;
        return statement.slice(0, body) + " WHERE (" + condition + ")" + statement.slice(body);
    }
    return statement.slice(0, parts.whereBegin) + "(" + statement.slice(parts.whereBegin, parts.whereEnd) + ") AND (" +
           condition + ")" + statement.slice(parts.whereEnd);
}

Sql withOrder(const Sql& statement, const Outline& parts, const Sql& items, bool keepOld) {
    if (parts.orderItemsBegin == Outline::none)
        return statement.slice(0, parts.end) + " ORDER BY " + items + statement.slice(parts.end);
    Sql ordered = statement.slice(0, parts.orderItemsBegin) + items;
    if (keepOld)
        ordered += ", " + statement.slice(parts.orderItemsBegin, parts.end);
    return ordered + statement.slice(parts.end);
}

Sql withColumns(const Sql& statement, const Outline& parts, const Sql& columns) {
    return statement.slice(0, parts.listEnd) + ", " + columns + statement.slice(parts.listEnd);
}

} // namespace zel::ado::sql
