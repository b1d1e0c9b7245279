#include "ado/postgres/create.h"

#include "ado/error.h"
#include "ado/row_store.h"

#include <fmt/format.h>

#include <unistd.h>

#include <array>
#include <string_view>

namespace zel::ado {

namespace {

using namespace std::chrono_literals;

std::string quotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char letter : name)
        quoted += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return quoted + "\"";
}

void run(Engine& engine, const std::string& text) {
    engine.prepare(text, true)->execute({});
}

bool databaseExists(Engine& engine, const std::string& name) {
    RowStore rows(1);
    engine.prepare("SELECT 1 FROM pg_catalog.pg_database WHERE datname = $1", false)
        ->query(std::array<Value, 1>{Value(name)}, rows);
    return rows.rows() != 0;
}

PostgresTarget onSameServer(const PostgresTarget& target, std::string catalog) {
    return {target.server, std::move(catalog), target.user, target.password};
}

/// A database under a name of its own; it is gone unless it was renamed.
class DatabaseInMaking {
public:
    DatabaseInMaking(Engine& server, const std::string& wanted)
        : server_(server), name_(fmt::format("{}.{}.new", wanted, ::getpid())) {
        run(server_, "DROP DATABASE IF EXISTS " + quotedName(name_));
        run(server_, fmt::format("CREATE DATABASE {} TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'",
                                 quotedName(name_)));
    }
    ~DatabaseInMaking() {
        try {
            if (!name_.empty())
                run(server_, "DROP DATABASE IF EXISTS " + quotedName(name_));
        } catch (const Error&) { // the server is gone; the failure that led here is the one to report
        }
    }
    DatabaseInMaking(const DatabaseInMaking&) = delete;
    DatabaseInMaking& operator=(const DatabaseInMaking&) = delete;

    [[nodiscard]] const std::string& name() const noexcept { return name_; }

    void rename(const std::string& wanted) {
        run(server_, "DROP DATABASE IF EXISTS " + quotedName(wanted));
        run(server_, fmt::format("ALTER DATABASE {} RENAME TO {}", quotedName(name_), quotedName(wanted)));
        name_.clear();
    }

private:
    Engine& server_;
    std::string name_;
};

} // namespace

void createPostgresDatabase(const PostgresTarget& target, const FillDatabase& fill, bool replace) {
    const PostgresOptions patient{.statementLimit = 0ms};
    const auto server = openPostgres(onSameServer(target, "postgres"), patient);
    if (!replace && databaseExists(*server, target.catalog))
        throw Error(ErrorKind::Open, errors::failed, fmt::format("The database '{}' exists already.", target.catalog));
    DatabaseInMaking making(*server, target.catalog);
    {
        const auto engine = openPostgres(onSameServer(target, making.name()), patient);
        fill(*engine);
    }
    making.rename(target.catalog);
}

} // namespace zel::ado
