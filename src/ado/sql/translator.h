#pragma once

#include "ado/catalog.h"
#include "ado/engine.h"
#include "ado/sql/lexer.h"
#include "ado/value.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado::sql {

/// What a statement does, by its first word.
enum class StatementKind { Select, Insert, Update, Delete, Other };

/// A statement of one shape in the engine's own words, with parameters where its literals stood.
struct Translation {
    std::string engineText;
    StatementKind kind = StatementKind::Other;
    /// Tables and views named in the statement, as spelled, in order.
    std::vector<std::string> sources;
    /// Names that select lists give to columns, as spelled, those of the outer list first.
    std::vector<std::string> aliases;
    /// What becomes of each lifted literal before it is bound: the column type it stands beside.
    std::vector<ColumnType> parameterTypes;
};

struct Translated {
    std::shared_ptr<const Translation> shape;
    std::vector<Value> parameters;
};

/// Makes statements of either dialect run on one engine. Works on tokens: keeps white space, never touches the inside
/// of a text literal, and lets through what it does not understand, for the engine to refuse.
///
/// Literals behind a comparison, in a value list or an IN list are lifted out as parameters, so that statements of one
/// shape share one Translation.
class Translator {
public:
    Translator(EngineKind engine, const Catalog& catalog);
    ~Translator();

    /// Throws Error (0x80040E14) for text that must not be sent: NUL, no UTF-8, a second statement behind ";", a text
    /// or date that is not closed, a parameter without a value, a date that is none beside a date column.
    [[nodiscard]] Translated translate(std::string_view statement);
    /// The same for a statement that is taken apart already, as far as it could be.
    [[nodiscard]] Translated translate(const Tokens& tokens, LexFault fault);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace zel::ado::sql
