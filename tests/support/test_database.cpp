#include "support/test_database.h"

#include "ado/postgres/open.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"
#include "support/run_folder.h"

#include <fmt/format.h>

#include <unistd.h>

namespace zel::test {

namespace {

namespace fs = std::filesystem;

fs::path templateFile(Content content) {
    const std::string name = content == Content::Demo ? "demo_template.mdb" : "template.mdb";
    fs::path file = runFolder() / name;
    onceInRun(name, [&] { ado::createSqliteFile(file, filling(content)); });
    return file;
}

fs::path nextFile() {
    static int last = 0;
    return runFolder() / fmt::format("test_{}_{}.mdb", ::getpid(), ++last);
}

} // namespace

TestDatabase::TestDatabase(ado::EngineKind kind, Content content) : kind_(kind) {
    if (kind_ == ado::EngineKind::Postgres) {
        slot_ = std::make_unique<PostgresSlot>(content);
        return;
    }
    file_ = nextFile();
    fs::copy_file(templateFile(content), file_);
}

TestDatabase::~TestDatabase() {
    connection_.Close();
    if (slot_)
        return;
    std::error_code ignored;
    fs::remove(file_, ignored);
    fs::remove(file_.string() + "-journal", ignored);
}

std::unique_ptr<ado::Engine> TestDatabase::open(std::chrono::milliseconds patience) const {
    if (!slot_)
        return ado::openSqlite(file_, {.durable = false, .patience = patience});
    return ado::openPostgres({server(), catalog(), serverUser, {}}, {.patience = patience});
}

ado::Connection& TestDatabase::connection() {
    if (connection_.State() == ado::stateClosed)
        connection_.Open(open());
    return connection_;
}

std::string TestDatabase::target() const {
    return slot_ ? server() + "/" + catalog() : file_.string();
}

fs::path TestDatabase::file() const {
    return file_;
}

std::string TestDatabase::server() const {
    return slot_ ? PostgresSlot::server() : std::string();
}

std::string TestDatabase::catalog() const {
    return slot_ ? slot_->catalog() : std::string();
}

} // namespace zel::test
