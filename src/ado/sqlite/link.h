#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

struct sqlite3;

namespace zel::ado::sqlite {

/// One open file, shared by an engine and its statements. Waits for other users of the file with the window alive.
class Link {
public:
    /// `access` is the engine's open flags.
    Link(const std::filesystem::path& file, int access, std::chrono::milliseconds patience);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    /// Statements that are still held fail from now on.
    void close() noexcept { closed_ = true; }
    void onWait(std::function<void()> idle) { idle_ = std::move(idle); }
    [[nodiscard]] sqlite3* database() const noexcept { return database_.get(); }
    /// Throws Error when closed, and (Busy) while a statement waits for another user: the window lives, but the
    /// database is taken.
    void requireUsable() const;

private:
    struct DatabaseCloser {
        void operator()(sqlite3* database) const noexcept;
    };
    static int whenBusy(void* link, int attempt) noexcept;
    [[nodiscard]] bool waitOnce(int attempt);

    std::unique_ptr<sqlite3, DatabaseCloser> database_;
    std::function<void()> idle_;
    std::chrono::milliseconds patience_;
    std::chrono::steady_clock::time_point waitingSince_;
    bool waiting_ = false;
    bool closed_ = false;
};

} // namespace zel::ado::sqlite
