#pragma once

#include "ado/engine.h"
#include "ado/error.h"
#include "ado/row_store.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

/// Statements are written with ? for each parameter and marked as the engine marks them: ?1, ?2 or $1, $2.
inline std::string marked(EngineKind kind, std::string_view text) {
    std::string result;
    int number = 0;
    for (const char letter : text)
        result += letter == '?' ? (kind == EngineKind::Sqlite ? "?" : "$") + std::to_string(++number)
                                : std::string(1, letter);
    return result;
}

inline std::int64_t run(Engine& engine, std::string_view text, std::initializer_list<Value> values = {}) {
    return engine.prepare(marked(engine.kind(), text), true)->execute(std::vector<Value>(values));
}

/// The cells of the first row, none without a row.
inline std::vector<Value> firstRow(Engine& engine, std::string_view text, std::initializer_list<Value> values = {}) {
    const auto statement = engine.prepare(marked(engine.kind(), text), false);
    RowStore rows(statement->columns().size());
    statement->query(std::vector<Value>(values), rows);
    std::vector<Value> cells;
    for (std::size_t i = 0; rows.rows() > 0 && i < rows.columns(); ++i)
        cells.push_back(rows.at(0, i));
    return cells;
}

inline Value one(Engine& engine, std::string_view text, std::initializer_list<Value> values = {}) {
    const std::vector<Value> cells = firstRow(engine, text, values);
    return cells.empty() ? Value() : cells.front();
}

/// What the action failed with; a failure of the test when it did not.
template <typename Action>
Error errorFrom(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return {ErrorKind::State, 0, "no error"};
}

/// A test of an engine alone, without connection and translator above it.
class EngineFixture : public zel::test::DatabaseTest {
protected:
    void SetUp() override { engine_ = database().open(); }
    [[nodiscard]] Engine& engine() { return *engine_; }
    /// Closes the engine, as the end of the program does.
    void closeEngine() { engine_.reset(); }

private:
    std::unique_ptr<Engine> engine_;
};

} // namespace zel::ado
