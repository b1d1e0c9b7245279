#include "platform/files.h"

#include "ado/convert.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::platform {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& what, const std::string& path) {
    throw FileError(what + " " + path + ": " + std::strerror(errno));
}

/// An open file descriptor that is closed when it goes away.
class Descriptor {
public:
    Descriptor(const std::string& path, int flags, mode_t mode) : number_(::open(path.c_str(), flags, mode)) {}
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] bool isOpen() const noexcept { return number_ >= 0; }
    [[nodiscard]] bool writeAll(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(number_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    [[nodiscard]] bool flush() const { return ::fsync(number_) == 0; }

private:
    int number_;
};

// The entry of the folder whose name is `name` in other letters.
std::optional<fs::path> entryIgnoringCase(const fs::path& folder, const std::string& name) {
    std::error_code failed;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (ado::equalIgnoringCase(entry->path().filename().string(), name))
            return folder / entry->path().filename();
    }
    return std::nullopt;
}

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0666;
}

} // namespace

std::string DiskFiles::actualPath(const std::string& path) const {
    std::error_code failed;
    if (path.empty() || fs::exists(path, failed))
        return path;
    fs::path actual;
    for (const fs::path& part : fs::path(path)) {
        const fs::path straight = actual / part;
        if (fs::exists(straight, failed)) {
            actual = straight;
            continue;
        }
        const auto other = entryIgnoringCase(actual, part.string());
        if (!other)
            return path;
        actual = *other;
    }
    return actual.string();
}

bool DiskFiles::fileExists(const std::string& path) const {
    std::error_code failed;
    return fs::is_regular_file(actualPath(path), failed);
}

bool DiskFiles::folderExists(const std::string& path) const {
    std::error_code failed;
    return fs::is_directory(actualPath(path), failed);
}

std::optional<std::string> DiskFiles::read(const std::string& path) const {
    std::ifstream file(actualPath(path), std::ios::binary);
    if (!file || !fileExists(path))
        return std::nullopt;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

void DiskFiles::write(const std::string& path, std::string_view bytes) {
    const std::string target = actualPath(path);
    const std::string fresh = target + ".new." + std::to_string(::getpid());
    {
        const Descriptor file(fresh, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, modeOf(target));
        if (!file.isOpen())
            fail("Cannot write", target);
        if (!file.writeAll(bytes) || !file.flush()) {
            const int reason = errno;
            ::unlink(fresh.c_str());
            errno = reason;
            fail("Cannot write", target);
        }
    }
    if (::rename(fresh.c_str(), target.c_str()) != 0) {
        const int reason = errno;
        ::unlink(fresh.c_str());
        errno = reason;
        fail("Cannot write", target);
    }
}

void DiskFiles::append(const std::string& path, std::string_view bytes) {
    const std::string target = actualPath(path);
    const Descriptor file(target, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (!file.isOpen() || !file.writeAll(bytes))
        fail("Cannot write", target);
}

void DiskFiles::makeFolder(const std::string& path) {
    std::error_code failed;
    fs::create_directories(path, failed);
    if (failed)
        throw FileError("Cannot make the folder " + path + ": " + failed.message());
}

std::vector<std::string> DiskFiles::list(const std::string& folder, std::string_view ending) const {
    std::vector<std::string> names;
    std::error_code failed;
    for (fs::directory_iterator entry(actualPath(folder), failed), end; !failed && entry != end;
         entry.increment(failed)) {
        const std::string name = entry->path().filename().string();
        if (name.size() >= ending.size() &&
            ado::equalIgnoringCase(std::string_view(name).substr(name.size() - ending.size()), ending) &&
            entry->is_regular_file(failed))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace zel::platform
