#include "ado/sqlite/create.h"

#include "ado/error.h"
#include "ado/row_store.h"
#include "ado/sqlite/engine.h"
#include "ado/sqlite/open.h"

#include <fmt/format.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace zel::ado {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& file, std::string_view what, int systemError) {
    throw Error(ErrorKind::Open, errors::failed,
                fmt::format("The file '{}' could not be {}: {}", file.string(), what, std::strerror(systemError)));
}

void flushToDisk(const fs::path& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool flushed = descriptor >= 0 && ::fsync(descriptor) == 0;
    const int systemError = errno;
    if (descriptor >= 0)
        ::close(descriptor);
    if (!flushed)
        fail(path, "flushed to the disk", systemError);
}

/// What the engine keeps beside a file. Left over from another file of the name, it would be played into the new one.
void removeCompanions(const fs::path& file) {
    for (const char* ending : {"-journal", "-wal", "-shm"}) {
        std::error_code ignored;
        fs::remove(file.string() + ending, ignored);
    }
}

/// A file under a name of its own beside the wanted one; it is gone unless it was moved into place.
class FileInMaking {
public:
    explicit FileInMaking(const fs::path& wanted)
        : wanted_(wanted), path_(fmt::format("{}.{}.new", wanted.string(), ::getpid())) {
        remove();
    }
    ~FileInMaking() { remove(); }
    FileInMaking(const FileInMaking&) = delete;
    FileInMaking& operator=(const FileInMaking&) = delete;

    [[nodiscard]] const fs::path& path() const noexcept { return path_; }

    void moveIntoPlace() {
        flushToDisk(path_);
        removeCompanions(wanted_);
        std::error_code failure;
        fs::rename(path_, wanted_, failure);
        if (failure)
            fail(wanted_, "put in place", failure.value());
        flushToDisk(wanted_.has_parent_path() ? wanted_.parent_path() : fs::path("."));
    }

private:
    void remove() {
        std::error_code ignored;
        fs::remove(path_, ignored);
        removeCompanions(path_);
    }

    fs::path wanted_;
    fs::path path_;
};

} // namespace

void createSqliteFile(const std::filesystem::path& file, const FillDatabase& fill, bool replace) {
    if (!replace && fs::exists(fs::symlink_status(file)))
        throw Error(ErrorKind::Open, errors::failed, fmt::format("The file '{}' exists already.", file.string()));
    FileInMaking making(file);
    {
        sqlite::SqliteEngine engine(making.path(), sqlite::newFile);
        fill(engine);
    }
    making.moveIntoPlace();
}

void backupInto(const std::filesystem::path& source, const std::filesystem::path& copy) {
    FileInMaking making(copy);
    openSqlite(source)->prepare("VACUUM INTO ?1", true)->execute(std::array<Value, 1>{Value(making.path().string())});
    const std::vector<std::string> complaints = checkIntegrity(*openSqlite(making.path(), {.readOnly = true}));
    if (!complaints.empty())
        throw Error(ErrorKind::Engine, errors::failed, "The copy is not sound: " + complaints.front());
    making.moveIntoPlace();
}

std::vector<std::string> checkIntegrity(Engine& engine) {
    RowStore rows(1);
    engine.prepare("PRAGMA integrity_check", false)->query({}, rows);
    std::vector<std::string> complaints;
    for (std::size_t row = 0; row < rows.rows(); ++row)
        if (rows.textAt(row, 0) != "ok")
            complaints.emplace_back(rows.textAt(row, 0));
    return complaints;
}

} // namespace zel::ado
