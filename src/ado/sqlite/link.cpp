#include "ado/sqlite/link.h"

#include "ado/error.h"
#include "ado/sqlite/errors.h"

#include <sqlite3.h>

#include <thread>

namespace zel::ado::sqlite {

void Link::DatabaseCloser::operator()(sqlite3* database) const noexcept {
    sqlite3_close_v2(database);
}

Link::Link(const std::filesystem::path& file, int access, std::chrono::milliseconds patience) : patience_(patience) {
    sqlite3* database = nullptr;
    const int code =
        sqlite3_open_v2(file.c_str(), &database, access | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
    database_.reset(database);
    if (code != SQLITE_OK)
        throw errorOf(database, code, {});
    sqlite3_busy_handler(database, &Link::whenBusy, this);
}

Link::~Link() = default;

int Link::whenBusy(void* link, int attempt) noexcept {
    auto& self = *static_cast<Link*>(link);
    try {
        return self.waitOnce(attempt) ? 1 : 0;
    } catch (...) { // no exception may pass through the engine; the statement fails as busy instead
        self.waiting_ = false;
        return 0;
    }
}

bool Link::waitOnce(int attempt) {
    using namespace std::chrono_literals;
    const auto now = std::chrono::steady_clock::now();
    if (attempt == 0)
        waitingSince_ = now;
    if (now - waitingSince_ >= patience_)
        return false;
    // Most waits are over in a few milliseconds and do not trouble the window.
    if (attempt > 0 && attempt % 5 == 0 && idle_) {
        waiting_ = true;
        idle_();
        waiting_ = false;
    }
    // Nobody queues for the file: who looks rarely finds it free rarely, and others who write without a pause go first.
    std::this_thread::sleep_for(1ms);
    return true;
}

void Link::requireUsable() const {
    if (closed_)
        throw Error(ErrorKind::State, errors::objectClosed, "Operation is not allowed when the object is closed.");
    if (waiting_)
        throw Error(ErrorKind::Busy, errors::failed,
                    "The database is in use by another user; a statement is still waiting for it.");
}

} // namespace zel::ado::sqlite
