#include "ado/sql/structure.h"

namespace zel::ado::sql {

namespace {

enum class FrameKind : std::uint8_t { Statement, Subquery, Joins, Plain };

struct Frame {
    FrameKind kind;
    std::size_t open;
    std::size_t query;
    Clause clause;
    bool expectSource;
};

StatementKind kindOf(Keyword keyword) {
    switch (keyword) {
    case Keyword::Select:
        return StatementKind::Select;
    case Keyword::Insert:
        return StatementKind::Insert;
    case Keyword::Update:
        return StatementKind::Update;
    case Keyword::Delete:
        return StatementKind::Delete;
    default:
        return StatementKind::Other;
    }
}

class Analysis {
public:
    explicit Analysis(const Tokens& tokens) : tokens_(tokens) {
        const std::size_t count = tokens.size();
        out_.query.resize(count);
        out_.clause.resize(count);
        out_.depth.resize(count);
        out_.partner.assign(count, Structure::none);
        out_.joinBracket.assign(count, false);
        out_.queries.push_back({.parent = Structure::none, .sources = {}, .insertColumns = {}});
        frames_.push_back({FrameKind::Statement, Structure::none, 0, Clause::Start, false});
        if (count > 0)
            out_.queries[0].kind = kindOf(tokens[0].keyword);
    }

    Structure run() {
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            const Token& token = tokens_[at_];
            if (token.kind == TokenKind::Open) {
                note(at_, frames_.size() - 1);
                open();
                continue;
            }
            if (token.kind == TokenKind::Close)
                close();
            else
                token_(token);
            note(at_, frames_.size() - 1);
        }
        return std::move(out_);
    }

private:
    void note(std::size_t index, std::size_t depth) {
        out_.query[index] = static_cast<std::uint32_t>(query_);
        out_.clause[index] = clause_;
        out_.depth[index] = static_cast<std::uint32_t>(depth);
    }

    [[nodiscard]] bool atQueryLevel() const { return frames_.back().kind != FrameKind::Plain; }

    void open() {
        const bool select = at_ + 1 < tokens_.size() && tokens_[at_ + 1].keyword == Keyword::Select;
        const bool joins = clause_ == Clause::From && expectSource_;
        const FrameKind kind = select ? FrameKind::Subquery : joins ? FrameKind::Joins : FrameKind::Plain;
        frames_.push_back({kind, at_, query_, clause_, expectSource_});
        if (select) {
            out_.queries.push_back({.kind = StatementKind::Select,
                                    .parent = query_,
                                    .firstToken = at_ + 1,
                                    .sources = {},
                                    .insertColumns = {}});
            query_ = out_.queries.size() - 1;
            clause_ = Clause::Start;
            expectSource_ = false;
        } else if (!joins && out_.queries[query_].kind == StatementKind::Insert && clause_ == Clause::From) {
            clause_ = Clause::InsertColumns;
        }
    }

    void close() {
        if (frames_.size() == 1)
            return;
        const Frame frame = frames_.back();
        frames_.pop_back();
        out_.partner[at_] = frame.open;
        out_.partner[frame.open] = at_;
        out_.joinBracket[at_] = out_.joinBracket[frame.open] = frame.kind == FrameKind::Joins;
        query_ = frame.query;
        clause_ = frame.clause;
        expectSource_ = frame.expectSource;
        if (frame.kind == FrameKind::Subquery && expectSource_)
            addSource(Structure::none, frame.open);
        expectSource_ = false;
    }

    void token_(const Token& token) {
        if (token.keyword != Keyword::None && atQueryLevel())
            keyword(token.keyword);
        else if (token.kind == TokenKind::Comma && atQueryLevel() &&
                 (clause_ == Clause::From || clause_ == Clause::On)) {
            clause_ = Clause::From;
            expectSource_ = true;
        } else if (expectSource_ && clause_ == Clause::From && token.isName())
            nameSource();
        else if (clause_ == Clause::InsertColumns && token.isName())
            out_.queries[query_].insertColumns.push_back(at_);
    }

    void enter(Clause clause, bool expectSource = false) {
        clause_ = clause;
        expectSource_ = expectSource;
    }

    void keyword(Keyword word) {
        switch (word) {
        case Keyword::Select:
            enter(Clause::SelectList);
            break;
        case Keyword::From:
        case Keyword::Join:
        case Keyword::Into:
        case Keyword::Update:
            enter(Clause::From, true);
            break;
        case Keyword::Left:
        case Keyword::Right:
        case Keyword::Inner:
        case Keyword::Full:
        case Keyword::Cross:
        case Keyword::Natural:
            if (clause_ == Clause::On)
                enter(isCall(tokens_, at_) ? Clause::On : Clause::From);
            break;
        case Keyword::Where:
            enter(Clause::Where);
            break;
        case Keyword::Group:
            enter(Clause::GroupBy);
            break;
        case Keyword::Having:
            enter(Clause::Having);
            break;
        case Keyword::Order:
            enter(Clause::OrderBy);
            break;
        case Keyword::On:
            enter(Clause::On);
            break;
        case Keyword::Set:
            enter(Clause::Set);
            break;
        case Keyword::Values:
            enter(Clause::Values);
            break;
        case Keyword::Limit:
        case Keyword::Offset:
        case Keyword::For:
        case Keyword::Using:
            enter(Clause::Other);
            break;
        case Keyword::Union:
        case Keyword::Except:
        case Keyword::Intersect:
            nextOfCompound();
            break;
        default:
            break;
        }
    }

    void nextOfCompound() {
        out_.queries[query_].compound = true;
        const std::size_t parent = out_.queries[query_].parent;
        out_.queries.push_back({.kind = StatementKind::Select,
                                .parent = parent,
                                .firstToken = at_ + 1,
                                .compound = true,
                                .sources = {},
                                .insertColumns = {}});
        query_ = out_.queries.size() - 1;
        enter(Clause::Start);
    }

    void nameSource() {
        const std::size_t first = at_;
        while (at_ + 2 < tokens_.size() && tokens_[at_ + 1].kind == TokenKind::Dot && tokens_[at_ + 2].isName()) {
            note(at_, frames_.size() - 1);
            note(at_ + 1, frames_.size() - 1);
            at_ += 2;
        }
        expectSource_ = false;
        addSource(at_, first);
    }

    void addSource(std::size_t name, std::size_t first) {
        std::size_t alias = at_ + 1;
        if (alias < tokens_.size() && tokens_[alias].keyword == Keyword::As)
            ++alias;
        const bool given = alias < tokens_.size() && tokens_[alias].isName();
        out_.queries[query_].sources.push_back({name, first, given ? alias : Structure::none});
    }

    const Tokens& tokens_;
    Structure out_;
    std::vector<Frame> frames_;
    std::size_t at_ = 0;
    std::size_t query_ = 0;
    Clause clause_ = Clause::Start;
    bool expectSource_ = false;
};

} // namespace

Structure analyse(const Tokens& tokens) {
    return Analysis(tokens).run();
}

bool isCall(const Tokens& tokens, std::size_t index) {
    if (index + 1 >= tokens.size() || tokens[index + 1].kind != TokenKind::Open)
        return false;
    if (tokens[index].isName())
        return true;
    switch (tokens[index].keyword) {
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::Cast:
    case Keyword::Convert:
        return true;
    default:
        return false;
    }
}

std::size_t Structure::operandBegin(const Tokens& tokens, std::size_t last) const {
    std::size_t first = last;
    if (tokens[last].kind == TokenKind::Close) {
        if (partner[last] == none)
            return last;
        first = partner[last];
        if (first > 0 && isCall(tokens, first - 1))
            --first;
        else
            return first;
    }
    while (first >= 2 && tokens[first - 1].kind == TokenKind::Dot && tokens[first - 2].isName())
        first -= 2;
    return first;
}

std::size_t Structure::operandEnd(const Tokens& tokens, std::size_t first) const {
    std::size_t at = first;
    while (at + 2 < tokens.size() && tokens[at].isName() && tokens[at + 1].kind == TokenKind::Dot &&
           (tokens[at + 2].isName() || isCall(tokens, at + 2)))
        at += 2;
    if (at < tokens.size() && isCall(tokens, at))
        ++at;
    if (at < tokens.size() && tokens[at].kind == TokenKind::Open && partner[at] != none)
        at = partner[at];
    return at + 1;
}

} // namespace zel::ado::sql
