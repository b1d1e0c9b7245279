#pragma once

#include "ado/engine.h"
#include "ado/sql.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

namespace sql {
class Translator;
struct Translation;
} // namespace sql

/// States as the platform numbers them.
inline constexpr int stateClosed = 0;
inline constexpr int stateOpen = 1;

/// The one place from which text reaches an engine. A text is one statement: a second one behind ";", a NUL, bytes that
/// are not UTF-8, or a value that breaks out of its literal are refused before anything is sent.
///
/// Statements of one shape (the same words, other values) are translated and prepared once and kept.
class Connection {
public:
    /// Sees each statement as composed, in the dialect it was worded in, before it is sent.
    using Observer = std::function<void(const std::string& statement)>;

    Connection();
    explicit Connection(std::unique_ptr<Engine> engine);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Open(std::unique_ptr<Engine> engine);
    void Close();
    [[nodiscard]] int State() const noexcept { return engine_ ? stateOpen : stateClosed; }
    /// Names the database, never a password. Empty when closed.
    [[nodiscard]] std::string ConnectionString() const;

    /// Runs a statement that gives no rows (rows are thrown away). Gives the number of rows written.
    std::int64_t Execute(const Sql& statement);
    /// Text that is all the program's or the user's own, as typed into the runner's `sql`.
    std::int64_t Execute(std::string_view statement) { return Execute(Sql::words(statement)); }
    template <std::size_t N>
    std::int64_t Execute(const char (&statement)[N]) {
        return Execute(Sql::words({statement, N - 1}));
    }

    /// What usp_getNextNumber gives: the next free key of a table.
    [[nodiscard]] std::int32_t nextNumber(std::string_view table, std::string_view field);

    void setObserver(Observer observer) { observer_ = std::move(observer); }
    /// See Engine::onWait.
    void onWait(std::function<void()> idle);

    /// A statement looked up or prepared, with the values that were lifted out of this text. For Recordset and Command.
    struct Prepared {
        std::shared_ptr<PreparedStatement> statement;
        std::shared_ptr<const sql::Translation> translation;
        std::vector<Value> parameters;
    };
    [[nodiscard]] Prepared prepare(const Sql& statement);
    /// Engine text of our own making (record-set updates, finds): nothing is translated or observed.
    [[nodiscard]] std::shared_ptr<PreparedStatement> prepareNative(const std::string& engineText, bool writes);
    /// Throws Error (object closed, 3704) when closed.
    [[nodiscard]] Engine& engine() const;

private:
    struct Cache;
    std::unique_ptr<Engine> engine_;
    std::unique_ptr<Cache> cache_;
    Observer observer_;
};

} // namespace zel::ado
