#include "support/run_folder.h"

#include "support/keeper.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace zel::test {

namespace {

namespace fs = std::filesystem;

/// The folder of the CTest run, empty when there is none alive.
fs::path sharedFolder() {
    const char* note = std::getenv("ZEL_TEST_RUN");
    if (note == nullptr)
        return {};
    std::string folder;
    std::getline(std::ifstream(note), folder);
    return !folder.empty() && fs::exists(folder) ? fs::path(folder) : fs::path();
}

class FileLock {
public:
    explicit FileLock(const fs::path& file) : descriptor_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (descriptor_ < 0 || ::flock(descriptor_, LOCK_EX) != 0)
            throw std::runtime_error("cannot lock " + file.string());
    }
    ~FileLock() { ::close(descriptor_); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int descriptor_;
};

} // namespace

const fs::path& runFolder() {
    static const fs::path folder = [] {
        fs::path shared = sharedFolder();
        return shared.empty() ? startKeeper(::getpid()) : shared;
    }();
    return folder;
}

void onceInRun(std::string_view name, const std::function<void()>& work) {
    const fs::path done = runFolder() / (std::string(name) + ".done");
    if (fs::exists(done))
        return;
    const FileLock lock(runFolder() / (std::string(name) + ".lock"));
    if (fs::exists(done))
        return;
    work();
    std::ofstream(done).flush();
}

} // namespace zel::test
