#include "ado/sql/rewriter.h"

#include "ado/convert.h"
#include "ado/sql/functions.h"

#include <algorithm>

namespace zel::ado::sql {

namespace {

constexpr std::string_view ignoringCase = " COLLATE NOCASE";

bool isBlankText(std::string_view text) {
    return text.find_first_not_of(" \t\r\n\f\v") == std::string_view::npos;
}

std::string quotedName(std::string_view name) {
    std::string made = "\"";
    for (const char c : lowerCase(name)) {
        if (c == '"')
            made += c;
        made += c;
    }
    return made += '"';
}

std::string onPostgres(std::string_view function) {
    return "dbo." + std::string(function);
}

} // namespace

Rewriter::Rewriter(const Tokens& tokens, const Structure& structure, const ColumnTypes& types, const Catalog& catalog,
                   EngineKind engine)
    : tokens_(tokens), structure_(structure), types_(types), catalog_(catalog), engine_(engine), edits_(tokens.size()),
      chained_(tokens.size(), false) {}

std::string Rewriter::run(const std::vector<LiteralPlan>& plans) {
    literals(plans);
    words();
    functions();
    concatenations();
    patterns();
    orders();
    if (onSqlite()) {
        joins();
    } else {
        views();
    }
    return emit();
}

void Rewriter::wrap(std::size_t first, std::size_t last, std::string_view before, std::string_view behind) {
    edits_[first].before.insert(0, before);
    edits_[last].behind += behind;
}

void Rewriter::literals(const std::vector<LiteralPlan>& plans) {
    std::size_t parameter = 0;
    for (const LiteralPlan& plan : plans) {
        if (plan.lifted)
            replace(plan.token, (onSqlite() ? "?" : "$") + std::to_string(++parameter));
        else
            replace(plan.token, engineLiteral(tokens_, plan, engine_));
        if (plan.placed && plan.sign != Structure::none)
            drop(plan.sign);
    }
}

void Rewriter::words() {
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
        const Token& token = tokens_[at];
        const bool afterIs =
            at > 0 && (tokens_[at - 1].keyword == Keyword::Is || tokens_[at - 1].keyword == Keyword::Not);
        if ((token.keyword == Keyword::True || token.keyword == Keyword::False) && !afterIs)
            replace(at, token.keyword == Keyword::True ? "1" : "0");
        else if (token.kind == TokenKind::Bracketed && !onSqlite())
            replace(at, quotedName(tokens_.name(at)));
        else if (token.kind == TokenKind::Semicolon)
            drop(at);
        else if (onSqlite() && token.kind == TokenKind::Dot && at > 0 &&
                 equalIgnoringCase(tokens_.name(at - 1), "dbo")) {
            drop(at - 1);
            drop(at);
        }
    }
    if (tokens_.size() > 2 && tokens_[0].keyword == Keyword::Delete && tokens_.isOperator(1, "*") &&
        tokens_[2].keyword == Keyword::From)
        drop(1);
}

std::size_t Rewriter::onlyComma(std::size_t open) const {
    std::size_t found = Structure::none;
    const std::size_t close = structure_.partner[open];
    for (std::size_t at = open + 1; close != Structure::none && at < close; ++at) {
        if (tokens_[at].kind != TokenKind::Comma || structure_.depth[at] != structure_.depth[open] + 1)
            continue;
        if (found != Structure::none)
            return Structure::none;
        found = at;
    }
    return found;
}

void Rewriter::functions() {
    for (std::size_t at = 0; at < tokens_.size(); ++at) {
        if (!isCall(tokens_, at) || structure_.partner[at + 1] == Structure::none)
            continue;
        const std::string_view name = tokens_.spelled(at);
        if (tokens_[at].keyword == Keyword::Left)
            left(at);
        else if (tokens_[at].keyword == Keyword::Convert)
            convert(at);
        else if (tokens_[at].keyword == Keyword::Cast)
            cast(at);
        else if (equalIgnoringCase(name, "format"))
            standardFormat(at);
        else if (equalIgnoringCase(name, "substring") && onSqlite())
            edits_[structure_.partner[at + 1]].behind += ignoringCase;
    }
}

void Rewriter::left(std::size_t name) {
    const std::size_t comma = onlyComma(name + 1);
    if (!onSqlite() || comma == Structure::none)
        return;
    replace(name, "substr");
    replace(comma, ", 1,");
    edits_[structure_.partner[name + 1]].behind += ignoringCase;
}

void Rewriter::standardFormat(std::size_t name) {
    const std::size_t comma = onlyComma(name + 1);
    const std::size_t close = structure_.partner[name + 1];
    if (comma == Structure::none || comma + 2 != close || !tokens_[comma + 1].isLiteral() ||
        !equalIgnoringCase(tokens_.literal(comma + 1), "standard"))
        return;
    replace(name, onSqlite() ? std::string(functions::standard) : onPostgres(functions::standard));
    drop(comma);
    drop(comma + 1);
    if (onSqlite())
        edits_[close].behind += ignoringCase;
}

// Convert(nvarchar, x) and Convert(nvarchar(20), x).
void Rewriter::convert(std::size_t name) {
    const std::size_t close = structure_.partner[name + 1];
    std::size_t at = name + 2;
    if (!isTextType(tokens_.spelled(at)))
        return;
    at = tokens_[at + 1].kind == TokenKind::Open ? structure_.partner[at + 1] : at;
    if (at == Structure::none || at + 2 >= close || tokens_[at + 1].kind != TokenKind::Comma)
        return;
    for (std::size_t dropped = name + 2; dropped <= at + 1; ++dropped)
        drop(dropped);
    const bool money =
        types_.ofOperand(close - 1) == ColumnType::Currency && structure_.operandBegin(tokens_, close - 1) == at + 2;
    toText(name, close, money);
    if (!money)
        edits_[close].before += onSqlite() ? " AS TEXT" : " AS citext";
}

// cast(x as nvarchar) and cast(x as nvarchar(20)).
void Rewriter::cast(std::size_t name) {
    const std::size_t close = structure_.partner[name + 1];
    std::size_t as = close - 1;
    while (as > name + 2 && tokens_[as].keyword != Keyword::As)
        --as;
    if (as <= name + 2 || as + 1 >= close || !isTextType(tokens_.spelled(as + 1)))
        return;
    const bool money =
        types_.ofOperand(as - 1) == ColumnType::Currency && structure_.operandBegin(tokens_, as - 1) == name + 2;
    for (std::size_t dropped = money ? as : as + 2; dropped < close; ++dropped)
        drop(dropped);
    if (!money)
        replace(as + 1, onSqlite() ? "TEXT" : "citext");
    toText(name, close, money);
}

void Rewriter::toText(std::size_t name, std::size_t close, bool money) {
    if (money)
        replace(name, onSqlite() ? std::string(functions::moneyText) : onPostgres(functions::moneyText));
    else
        replace(name, "CAST");
    if (onSqlite())
        edits_[close].behind += ignoringCase;
}

bool Rewriter::isChainOperator(std::size_t index) const {
    if (index >= tokens_.size() || tokens_[index].kind != TokenKind::Operator)
        return false;
    const std::string_view mark = tokens_.spelled(index);
    return mark == "+" || mark == "&" || mark == "-" || mark == "*" || mark == "/" || mark == "||";
}

bool Rewriter::endsOperand(std::size_t index) const {
    const Token& token = tokens_[index];
    return token.isName() || token.isLiteral() || token.kind == TokenKind::Close || token.keyword == Keyword::True ||
           token.keyword == Keyword::False || token.keyword == Keyword::Null;
}

void Rewriter::concatenations() {
    for (std::size_t at = 1; at + 1 < tokens_.size(); ++at) {
        const bool joins = tokens_.isOperator(at, "+") || tokens_.isOperator(at, "&");
        if (joins && !chained_[at] && endsOperand(at - 1))
            concatenation(at);
    }
}

void Rewriter::concatenation(std::size_t operation) {
    std::size_t first = structure_.operandBegin(tokens_, operation - 1);
    while (first >= 2 && isChainOperator(first - 1) && endsOperand(first - 2))
        first = structure_.operandBegin(tokens_, first - 2);
    bool text = false;
    bool nullIsEmpty = false;
    std::vector<std::size_t> operators;
    std::size_t end = first;
    for (;;) {
        while (end < tokens_.size() && (tokens_.isOperator(end, "-") || tokens_.isOperator(end, "+")))
            ++end; // a sign
        if (end >= tokens_.size())
            return;
        end = structure_.operandEnd(tokens_, end);
        text = text || types_.ofOperand(end - 1) == ColumnType::Text;
        if (end + 1 >= tokens_.size() || !isChainOperator(end))
            break;
        nullIsEmpty = nullIsEmpty || tokens_.isOperator(end, "&");
        chained_[end] = true;
        operators.push_back(end++);
    }
    if (!text && !nullIsEmpty)
        return;
    for (const std::size_t at : operators) {
        if (tokens_.isOperator(at, "&"))
            replace(at, ",");
        else if (tokens_.isOperator(at, "+"))
            replace(at, "||");
    }
    std::string open = "(";
    if (nullIsEmpty)
        open = onSqlite() ? std::string(functions::join) + "(" : "concat(";
    wrap(first, end - 1, open, onSqlite() ? ") COLLATE NOCASE" : ")::citext");
}

void Rewriter::patterns() {
    if (onSqlite())
        return;
    for (std::size_t at = 1; at + 1 < tokens_.size(); ++at) {
        if (tokens_[at].keyword != Keyword::Like)
            continue;
        std::size_t end = structure_.operandEnd(tokens_, at + 1);
        while (end + 1 < tokens_.size() && isChainOperator(end))
            end = structure_.operandEnd(tokens_, end + 1);
        // Without it a backslash in what a clerk looks for would mean something.
        if (end >= tokens_.size() || tokens_[end].keyword != Keyword::Escape)
            edits_[std::min(end, tokens_.size()) - 1].behind += " ESCAPE ''";
        const std::size_t column = tokens_[at - 1].keyword == Keyword::Not ? at - 2 : at - 1;
        const ColumnType type = column < at ? types_.ofOperand(column) : ColumnType::Unknown;
        if (type != ColumnType::Text && type != ColumnType::Unknown)
            edits_[column].behind += "::citext";
    }
}

// A RIGHT JOIN B INNER JOIN C ON bc ON ac: the second ON belongs to the first JOIN, whose right side ends there.
void Rewriter::joins() {
    struct Open {
        std::size_t join;
        std::size_t depth;
        bool holdsJoin;
    };
    std::vector<Open> open;
    for (std::size_t at = 0; at + 1 < tokens_.size(); ++at) {
        const std::size_t depth = structure_.depth[at];
        while (!open.empty() && open.back().depth > depth)
            open.pop_back();
        const bool here = !open.empty() && open.back().depth == depth;
        if (tokens_[at].keyword == Keyword::Join) {
            const Keyword kind = at > 0 ? tokens_[at - 1].keyword : Keyword::None;
            if (kind != Keyword::Cross && kind != Keyword::Natural)
                open.push_back({at, depth, false});
        } else if (tokens_[at].keyword == Keyword::On && structure_.clause[at] == Clause::On && here) {
            const Open closed = open.back();
            open.pop_back();
            if (!turnAround(closed.join, at) && closed.holdsJoin)
                wrap(closed.join + 1, at - 1, "(", ")");
            if (!open.empty() && open.back().depth == depth)
                open.back().holdsJoin = true;
        } else if (here && (tokens_[at].kind == TokenKind::Comma || tokens_[at].keyword == Keyword::Where)) {
            while (!open.empty() && open.back().depth == depth)
                open.pop_back();
        }
    }
}

// FROM A RIGHT JOIN B ... ON ac is B ... LEFT JOIN A ON ac. SQLite would put all of B aside and look through it for
// each row of A; turned around it finds A's row by its key. Not under a "*", which would show the columns in another
// order.
bool Rewriter::turnAround(std::size_t join, std::size_t on) {
    std::size_t kind = join == 0 ? 0 : join - 1;
    if (kind > 0 && tokens_[kind].keyword == Keyword::Outer)
        --kind;
    const std::size_t query = structure_.query[join];
    if (tokens_[kind].keyword != Keyword::Right || hasStar(query))
        return false;
    for (const SourceTokens& source : structure_.queries[query].sources) {
        const std::size_t last = source.alias == Structure::none ? source.name : source.alias;
        if (source.name == Structure::none || last + 1 != kind || source.first == 0)
            continue;
        const std::size_t before = source.first - 1;
        if (tokens_[before].keyword != Keyword::From && !structure_.joinBracket[before])
            return false;
        const std::uint32_t begin = tokens_[source.name].begin;
        edits_[on].before.insert(0, "LEFT OUTER JOIN " +
                                        std::string(tokens_.text.substr(begin, tokens_[last].end - begin)) + " ");
        for (std::size_t at = source.first; at <= join; ++at)
            drop(at);
        return true;
    }
    return false;
}

bool Rewriter::hasStar(std::size_t query) const {
    for (std::size_t at = 1; at < tokens_.size(); ++at)
        if (structure_.query[at] == query && structure_.clause[at] == Clause::SelectList &&
            tokens_.isOperator(at, "*") &&
            (tokens_[at - 1].kind == TokenKind::Comma || tokens_[at - 1].keyword != Keyword::None))
            return true;
    return false;
}

void Rewriter::orders() {
    for (std::size_t at = 0; at + 1 < tokens_.size(); ++at) {
        if (tokens_[at].keyword != Keyword::By || structure_.clause[at] != Clause::OrderBy)
            continue;
        const std::size_t depth = structure_.depth[at];
        std::size_t first = at + 1;
        std::size_t end = first;
        for (; end < tokens_.size() && structure_.clause[end] == Clause::OrderBy &&
               structure_.query[end] == structure_.query[at] && structure_.depth[end] >= depth &&
               tokens_[end].kind != TokenKind::Semicolon;
             ++end) {
            if (tokens_[end].kind == TokenKind::Close && structure_.depth[end] == depth &&
                structure_.partner[end] < first)
                break;
            if (tokens_[end].kind == TokenKind::Comma && structure_.depth[end] == depth) {
                orderItem(first, end);
                first = end + 1;
            }
        }
        orderItem(first, end);
    }
}

// Null comes first in ascending order, as in both dialects; PostgreSQL has to be told. SQLite forgets that a computed
// text compares without regard to case.
void Rewriter::orderItem(std::size_t first, std::size_t end) {
    if (first >= end)
        return;
    std::size_t last = end - 1;
    const Keyword direction = tokens_[last].keyword;
    if (direction == Keyword::Asc || direction == Keyword::Desc)
        --last;
    if (last < first || last >= tokens_.size())
        return;
    if (!onSqlite()) {
        edits_[end - 1].behind += direction == Keyword::Desc ? " NULLS LAST" : " NULLS FIRST";
        return;
    }
    const bool column = tokens_[last].isName() && structure_.operandBegin(tokens_, last) == first;
    const bool literal = first == last && tokens_[last].isLiteral();
    if (column || literal || edits_[last].behind.ends_with(ignoringCase) || isMoney(first, last))
        return;
    edits_[last].behind += ignoringCase;
}

bool Rewriter::isMoney(std::size_t first, std::size_t last) const {
    for (std::size_t at = first; at <= last; ++at)
        if (tokens_[at].isName() && types_.ofOperand(at) == ColumnType::Currency)
            return true;
    return false;
}

// PostgreSQL names the view as the origin of its columns; with the definition in place of the name it names the tables.
void Rewriter::views() {
    for (const Query& query : structure_.queries) {
        if (query.kind != StatementKind::Select)
            continue;
        for (const SourceTokens& source : query.sources) {
            const CatalogTable* table = types_.table(source);
            if (table == nullptr || !table->isView())
                continue;
            std::string text = "(" + expandedDefinition(*table, catalog_) + ")";
            if (source.alias == Structure::none)
                text += " " + edits_[source.name].replacement.value_or(std::string(tokens_.spelled(source.name)));
            for (std::size_t at = source.first; at < source.name; ++at)
                drop(at);
            replace(source.name, std::move(text));
        }
    }
}

std::string Rewriter::emit() const {
    std::string out;
    out.reserve(tokens_.text.size() + 64);
    std::size_t at = 0;
    for (std::size_t index = 0; index < tokens_.size(); ++index) {
        const Token& token = tokens_[index];
        const std::string_view gap = tokens_.text.substr(at, token.begin - at);
        // A comment is a blank to the engine too; left in, its words could be read differently there.
        out += isBlankText(gap) ? gap : std::string_view(" ");
        const Edit& edit = edits_[index];
        // "5AND", "LIKE'x'": what comes in a literal's place needs a blank there.
        const bool grown = gap.empty() && index > 0 &&
                           ((token.kind == TokenKind::Word && tokens_[index - 1].isLiteral()) ||
                            (token.isLiteral() && tokens_[index - 1].kind == TokenKind::Word));
        if (grown)
            out += ' ';
        out += edit.before;
        out += edit.replacement ? std::string_view(*edit.replacement) : tokens_.spelled(index);
        out += edit.behind;
        at = token.end;
    }
    return out;
}

namespace {

std::string expanded(std::string_view definition, const Catalog& catalog, int depth) {
    Tokens tokens;
    if (lex(definition, tokens) != LexFault::None || depth > 8)
        return std::string(definition);
    const Structure structure = analyse(tokens);
    std::string out;
    std::size_t at = tokens.size() == 0 ? 0 : tokens[0].begin;
    std::vector<SourceTokens> sources;
    for (const Query& query : structure.queries)
        sources.insert(sources.end(), query.sources.begin(), query.sources.end());
    std::erase_if(sources, [](const SourceTokens& source) { return source.name == Structure::none; });
    std::ranges::sort(sources, {}, &SourceTokens::first);
    for (const SourceTokens& source : sources) {
        const CatalogTable* view = catalog.table(tokens.name(source.name));
        if (view == nullptr || !view->isView())
            continue;
        out += definition.substr(at, tokens[source.first].begin - at);
        out += "(" + expanded(view->definition, catalog, depth + 1) + ")";
        if (source.alias == Structure::none)
            out += " " + std::string(tokens.spelled(source.name));
        at = tokens[source.name].end;
    }
    std::size_t end = tokens.size();
    while (end > 0 && tokens[end - 1].kind == TokenKind::Semicolon)
        --end;
    const std::size_t stop = end == 0 ? at : std::max<std::size_t>(at, tokens[end - 1].end);
    return out += definition.substr(at, stop - at);
}

} // namespace

std::string expandedDefinition(const CatalogTable& view, const Catalog& catalog) {
    return expanded(view.definition, catalog, 0);
}

} // namespace zel::ado::sql
