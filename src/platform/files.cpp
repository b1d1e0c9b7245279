#include "platform/files.h"

#include "ado/convert.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::platform {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& what, const std::string& path) {
    throw FileError::ofSystem(what, path, errno);
}

int numberOf(int systemError) {
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
        return errors::fileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return errors::accessDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return errors::diskFull;
    default:
        return errors::deviceFailure;
    }
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
    [[nodiscard]] bool takeMode(mode_t mode) const { return ::fchmod(number_, mode) == 0; }

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

// Whether somebody made it read-only, which counts for an administrator too.
bool writeProtected(const std::string& path) {
    struct stat status {};
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    return ::stat(path.c_str(), &status) == 0 && (status.st_mode & anyWrite) == 0;
}

// A link to the settings stays a link: what it points to is written.
std::string linkTarget(const std::string& path) {
    std::error_code failed;
    const fs::path real = fs::canonical(path, failed);
    return failed ? path : real.string();
}

std::string folderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// The new file beside the old one; it goes away again unless it took the name.
class FreshFile {
public:
    explicit FreshFile(const std::string& target)
        : path_(target + ".new." + std::to_string(::getpid())),
          file_(path_, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666) {
        struct stat status {};
        ready_ = file_.isOpen() && (::stat(target.c_str(), &status) != 0 || file_.takeMode(status.st_mode & 0777));
    }
    ~FreshFile() {
        if (!path_.empty() && file_.isOpen())
            ::unlink(path_.c_str());
    }
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;
    bool become(const std::string& target, std::string_view bytes) {
        if (!ready_ || !file_.writeAll(bytes) || !file_.flush() || ::rename(path_.c_str(), target.c_str()) != 0)
            return false;
        path_.clear();
        return true;
    }

private:
    std::string path_;
    Descriptor file_;
    bool ready_ = false;
};

} // namespace

FileError FileError::ofSystem(const std::string& what, const std::string& path, int systemError) {
    return {numberOf(systemError), what + " " + path + ": " + std::strerror(systemError)};
}

std::string FixPath(std::string folder) {
    constexpr char separator = '/';
    if (!folder.ends_with(separator))
        folder += separator;
    return folder;
}

std::string DiskFiles::actualPath(const std::string& path) const {
    std::error_code failed;
    if (path.empty() || fs::exists(path, failed))
        return path;
    fs::path actual;
    bool known = true;
    for (const fs::path& part : fs::path(path)) {
        const fs::path straight = actual / part;
        const auto other =
            !known || fs::exists(straight, failed) ? std::nullopt : entryIgnoringCase(actual, part.string());
        known = known && (other || fs::exists(straight, failed));
        actual = other.value_or(straight);
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
    const std::string actual = actualPath(path);
    std::error_code failed;
    if (!fs::is_regular_file(actual, failed))
        return std::nullopt;
    std::ifstream file(actual, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(fs::file_size(actual, failed)), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

void DiskFiles::write(const std::string& path, std::string_view bytes) {
    const std::string target = linkTarget(actualPath(path));
    if (writeProtected(target) || writeProtected(folderOf(target)))
        throw FileError::ofSystem("Cannot write", target, EACCES);
    FreshFile fresh(target);
    if (!fresh.become(target, bytes))
        fail("Cannot write", target);
    // The rename itself is on the disk only when the folder is.
    const Descriptor folder(folderOf(target), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (folder.isOpen() && !folder.flush() && errno != EINVAL)
        fail("Cannot write", target);
}

void DiskFiles::append(const std::string& path, std::string_view bytes) {
    const std::string target = actualPath(path);
    const Descriptor file(target, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (!file.isOpen() || !file.writeAll(bytes))
        fail("Cannot write", target);
}

void DiskFiles::makeFolder(const std::string& path) {
    const std::string actual = actualPath(path);
    std::error_code failed;
    fs::create_directories(actual, failed);
    if (failed)
        throw FileError::ofSystem("Cannot make the folder", actual, failed.value());
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
