#include "tablon/private_folder.h"

#include "platform/files.h"

#include <cerrno>
#include <chrono>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace zel::tablon {

namespace fs = std::filesystem;

namespace {

/// Nobody else may have put it there: anyone can make folders in the temporary one.
bool isOurs(const std::string& folder) {
    struct stat status {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::getuid() &&
           (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

void removeOldForms(const std::string& folder) {
    constexpr std::chrono::hours kept(24);
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.last_write_time(ignored) < fs::file_time_type::clock::now() - kept)
            fs::remove(entry.path(), ignored);
    }
}

} // namespace

std::string privateFolder() {
    std::string folder = (fs::temp_directory_path() / ("zel-forms-" + std::to_string(::getuid()))).string();
    if (::mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        throw platform::FileError::ofSystem("Cannot make", folder, errno);
    if (isOurs(folder)) {
        removeOldForms(folder);
        return folder;
    }
    folder += "-XXXXXX";
    if (::mkdtemp(folder.data()) == nullptr)
        throw platform::FileError::ofSystem("Cannot make", folder, errno);
    return folder;
}

} // namespace zel::tablon
