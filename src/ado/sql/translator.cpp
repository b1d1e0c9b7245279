#include "ado/sql/translator.h"

#include "ado/error.h"
#include "ado/sql/column_types.h"
#include "ado/sql/lexer.h"
#include "ado/sql/literals.h"
#include "ado/sql/rewriter.h"
#include "ado/sql/select_list.h"
#include "ado/sql/structure.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

namespace zel::ado::sql {

namespace {

/// Shapes kept in each of two generations: a screen's statements stay, a run of ever new ones pushes out only itself.
constexpr std::size_t keptShapes = 512;
/// Longer texts are translated each time; no screen repeats them.
constexpr std::size_t longestKept = 32'768;

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>{}(text); }
};

/// All statements with the same words. Those whose literals that stay are the same too share one translation.
struct Shape {
    std::vector<LiteralPlan> plans;
    bool allLifted = true;
    std::shared_ptr<const Translation> only; // when all literals are lifted
    std::unordered_map<std::string, std::shared_ptr<const Translation>, TextHash, std::equal_to<>> byFixedLiterals;
};

using Shapes = std::unordered_map<std::string, Shape, TextHash, std::equal_to<>>;

[[noreturn]] void refuse(std::string_view why, std::string_view statement) {
    throw Error(ErrorKind::Statement, errors::errorsInCommand, std::string(why), std::string(statement));
}

void checkTokens(const Tokens& tokens) {
    if (tokens.size() == 0 || tokens[0].kind == TokenKind::Semicolon)
        refuse("Command text was not set for the command object.", tokens.text);
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const Token& token = tokens[at];
        if (token.kind == TokenKind::Semicolon && at + 1 < tokens.size() && tokens[at + 1].kind != TokenKind::Semicolon)
            refuse("Characters found after end of SQL statement.", tokens.text);
        if (token.kind != TokenKind::Operator)
            continue;
        const std::string_view mark = tokens.spelled(at);
        // Our own parameters are numbered by these marks, so none may come from outside.
        if (mark == "?" || mark == "$" || mark == "@" || mark == ":")
            refuse("No value given for one or more required parameters.", tokens.text);
    }
}

/// The words of the statement with a mark in place of each literal. NUL cannot stand in a statement.
void appendKey(const Tokens& tokens, std::string& key) {
    key.clear();
    std::size_t at = 0;
    for (const Token& token : tokens.list) {
        if (!token.isLiteral())
            continue;
        key.append(tokens.text, at, token.begin - at);
        key += '\0';
        key += static_cast<char>('A' + static_cast<char>(token.kind));
        at = token.end;
    }
    key.append(tokens.text, at);
}

StatementKind kindOf(const Structure& structure) {
    return structure.queries.front().kind;
}

std::vector<std::string> sourcesOf(const Tokens& tokens, const Structure& structure) {
    std::vector<std::size_t> names;
    for (const Query& query : structure.queries)
        for (const SourceTokens& source : query.sources)
            if (source.name != Structure::none)
                names.push_back(source.name);
    std::ranges::sort(names);
    std::vector<std::string> spelled;
    spelled.reserve(names.size());
    for (const std::size_t name : names)
        spelled.emplace_back(tokens.name(name));
    return spelled;
}

} // namespace

struct Translator::State {
    State(EngineKind kind, const Catalog& tables) : engine(kind), catalog(tables) {}

    EngineKind engine;
    const Catalog& catalog;
    Shapes young, old;
    // Kept for their room.
    Tokens own;
    std::string key, fixed;

    /// Null when the shape is new.
    Shape* find() {
        if (const auto found = young.find(std::string_view(key)); found != young.end())
            return &found->second;
        const auto aged = old.find(std::string_view(key));
        if (aged == old.end())
            return nullptr;
        Shape shape = std::move(aged->second);
        old.erase(aged);
        return &keep(std::move(shape));
    }

    Shape& keep(Shape shape) {
        if (young.size() >= keptShapes) {
            old = std::move(young);
            young.clear();
        }
        return young.insert_or_assign(key, std::move(shape)).first->second;
    }

    [[nodiscard]] Shape plan(const Tokens& tokens) const {
        checkTokens(tokens);
        const Structure structure = analyse(tokens);
        Shape shape;
        shape.plans = planLiterals(tokens, structure, ColumnTypes(tokens, structure, catalog));
        for (const LiteralPlan& plan : shape.plans)
            shape.allLifted = shape.allLifted && plan.lifted;
        return shape;
    }

    [[nodiscard]] std::shared_ptr<const Translation> make(const Tokens& tokens, const Shape& shape) const {
        const Structure structure = analyse(tokens);
        const ColumnTypes types(tokens, structure, catalog);
        auto made = std::make_shared<Translation>();
        made->engineText = Rewriter(tokens, structure, types, catalog, engine).run(shape.plans);
        made->kind = kindOf(structure);
        made->sources = sourcesOf(tokens, structure);
        made->aliases = aliases(tokens, structure);
        for (const LiteralPlan& plan : shape.plans)
            if (plan.lifted)
                made->parameterTypes.push_back(plan.type);
        return made;
    }

    std::shared_ptr<const Translation> translation(const Tokens& tokens, Shape& shape) {
        if (shape.allLifted) {
            if (!shape.only)
                shape.only = make(tokens, shape);
            return shape.only;
        }
        fixed.clear();
        for (const LiteralPlan& plan : shape.plans)
            if (!plan.lifted)
                fixed.append(tokens.spelled(plan.token)) += '\0';
        if (const auto found = shape.byFixedLiterals.find(std::string_view(fixed));
            found != shape.byFixedLiterals.end())
            return found->second;
        if (fixed.size() > longestKept)
            return make(tokens, shape);
        if (shape.byFixedLiterals.size() >= keptShapes)
            shape.byFixedLiterals.clear();
        return shape.byFixedLiterals.emplace(fixed, make(tokens, shape)).first->second;
    }
};

Translator::Translator(EngineKind engine, const Catalog& catalog) : state_(std::make_unique<State>(engine, catalog)) {}

Translator::~Translator() = default;

Translated Translator::translate(std::string_view statement) {
    const LexFault fault = lex(statement, state_->own);
    return translate(state_->own, fault);
}

Translated Translator::translate(const Tokens& tokens, LexFault fault) {
    State& state = *state_;
    if (fault != LexFault::None)
        refuse(describe(fault), tokens.text);
    appendKey(tokens, state.key);
    Shape* shape = state.find();
    Shape once;
    if (shape == nullptr) {
        once = state.plan(tokens);
        shape = state.key.size() > longestKept ? &once : &state.keep(std::move(once));
    }
    Translated made;
    made.parameters.reserve(shape->plans.size());
    for (const LiteralPlan& plan : shape->plans)
        if (plan.lifted)
            made.parameters.push_back(boundValue(tokens, plan, state.engine));
    made.shape = state.translation(tokens, *shape);
    return made;
}

} // namespace zel::ado::sql
