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
        for (const SourceTokens& source : query.sources)
            addSource(source);
        if (hasWhere_ != hasCondition_ || hasLooseBracket())
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
        else if (!top || word != Keyword::Select)
            out_.listEnd = tokens_[at_].end;
    }

    void inWhere(bool top) {
        if (top && tokens_[at_].keyword == Keyword::Where) {
            hasWhere_ = true;
            return;
        }
        hasCondition_ = true;
    }

    void mark(Keyword word) {
        switch (word) {
        case Keyword::Group:
            out_.aggregate = true;
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
    bool hasWhere_ = false, hasCondition_ = false;
    int lastClause_ = -1;
};

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

Sql withColumns(const Sql& statement, const Outline& parts, const Sql& columns) {
    // A number may end right in front of FROM; a name may not.
    const bool parted = statement.text().compare(parts.listEnd, 1, " ") == 0;
    return statement.slice(0, parts.listEnd) + ", " + columns + (parted ? Sql() : Sql(" ")) +
           statement.slice(parts.listEnd);
}

} // namespace zel::ado::sql
