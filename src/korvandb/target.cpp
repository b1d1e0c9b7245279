#include "korvandb/target.h"

#include "ado/error.h"
#include "ado/postgres/create.h"
#include "ado/postgres/open.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"

#include <fmt/format.h>

namespace zel::korvandb {

namespace {

bool namesFile(const std::string& text) {
    const std::size_t slash = text.rfind('/');
    if (slash == std::string::npos || text.starts_with('.'))
        return true;
    if (text.find('.', slash) != std::string::npos)
        return true;
    std::error_code ignored;
    return std::filesystem::is_regular_file(text, ignored);
}

[[noreturn]] void refuse(const std::string& text, std::string_view why) {
    throw ado::Error(ado::ErrorKind::Open, ado::errors::failed, fmt::format("'{}' {}", text, why));
}

/// Whatever else has the name stays: a letter, another program's database, a file that somebody write-protected.
void requireReplaceable(const std::filesystem::path& file) {
    constexpr auto writable = std::filesystem::perms::owner_write | std::filesystem::perms::group_write |
                              std::filesystem::perms::others_write;
    if (!std::filesystem::exists(file))
        return;
    static_cast<void>(ado::openSqlite(file, {.readOnly = true}));
    if ((std::filesystem::status(file).permissions() & writable) == std::filesystem::perms::none)
        refuse(file.string(), "is read-only and is not replaced.");
}

/// Checks and counts of a big database take longer than any clerk would wait.
constexpr ado::PostgresOptions patient{.statementLimit = std::chrono::milliseconds(0)};

} // namespace

Target::Target(std::string text) : text_(std::move(text)) {
    if (namesFile(text_))
        return;
    const std::size_t slash = text_.rfind('/');
    server_ = text_.substr(0, slash);
    catalog_ = text_.substr(slash + 1);
}

std::unique_ptr<ado::Engine> Target::open() const {
    std::unique_ptr<ado::Engine> engine =
        isFile() ? ado::openSqlite(file()) : ado::openPostgres({server_, catalog_, {}, {}}, patient);
    if (engine->catalog().table("Version") == nullptr)
        throw ado::Error(ado::ErrorKind::Open, ado::errors::failed,
                         fmt::format("The database '{}' cannot be opened: it holds no version.", text_));
    return engine;
}

void Target::create(const std::function<void(ado::Engine&)>& fill, bool replace) const {
    if (isFile()) {
        std::error_code ignored;
        if (!replace && std::filesystem::exists(std::filesystem::symlink_status(file(), ignored)))
            refuse(text_, "exists already; --force replaces it.");
        if (replace)
            requireReplaceable(file());
        // Of a link it is the file behind it that is meant.
        const std::filesystem::path behind = std::filesystem::canonical(file(), ignored);
        ado::createSqliteFile(behind.empty() ? file() : behind, fill, replace);
    } else
        ado::createPostgresDatabase({server_, catalog_, {}, {}}, fill, replace);
}

} // namespace zel::korvandb
