#pragma once

#include "ado/catalog.h"
#include "ado/value.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

class RowStore;

enum class EngineKind { Sqlite, Postgres };

/// One column of a result. The base names are empty for anything computed.
struct ResultColumn {
    std::string name;
    ColumnType type = ColumnType::Unknown;
    std::string baseTable;
    std::string baseColumn;
};

/// A statement that an engine has prepared and may run many times. Not re-entrant: one run at a time.
class PreparedStatement {
public:
    virtual ~PreparedStatement() = default;
    /// Columns of the result; empty for a statement that gives none.
    [[nodiscard]] virtual const std::vector<ResultColumn>& columns() = 0;
    /// Runs it and throws the rows away. Gives the number of rows written.
    virtual std::int64_t execute(std::span<const Value> parameters) = 0;
    /// Runs it and appends every row to the store, cells typed by columns().
    virtual void query(std::span<const Value> parameters, RowStore& rows) = 0;
};

/// A database of one kind, open. Twin folders: sqlite/ and postgres/ hold the same files.
class Engine {
public:
    virtual ~Engine() = default;
    [[nodiscard]] virtual EngineKind kind() const noexcept = 0;
    /// What the connection was opened with, without any password.
    [[nodiscard]] virtual std::string connectionText() const = 0;
    [[nodiscard]] virtual const Catalog& catalog() = 0;
    /// Forgets what was read of the tables; the next catalog() reads again.
    virtual void refreshCatalog() = 0;
    /// Takes engine text with parameters (?1 on SQLite, $1 on PostgreSQL). `writes` tells whether the outcome of a
    /// run is unknown when the connection is lost meanwhile.
    [[nodiscard]] virtual std::shared_ptr<PreparedStatement> prepare(const std::string& engineText, bool writes) = 0;
    /// For a record set's write to several base tables, and for tools. Screens' statements stand alone.
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
    /// The next free key of a table, moved in one atomic step.
    [[nodiscard]] virtual std::int32_t nextNumber(std::string_view table, std::string_view field) = 0;
    /// Called again and again while the database waits for another user, so that the window stays alive.
    virtual void onWait(std::function<void()> idle) = 0;
};

} // namespace zel::ado
