#include "printing/new_file.h"

#include "platform/files.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace zel::printing {

namespace {

/// Gives the file the name, if that is free. Not every file system has links; there the name is taken first.
bool moveToFreeName(const std::string& file, const std::string& name) {
    if (::link(file.c_str(), name.c_str()) == 0) {
        ::unlink(file.c_str());
        return true;
    }
    if (errno == EEXIST)
        return false;
    const int taken = ::open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    if (taken < 0 && errno == EEXIST)
        return false;
    if (taken < 0)
        throw platform::FileError::ofSystem("Cannot write", name, errno);
    ::close(taken);
    if (::rename(file.c_str(), name.c_str()) != 0)
        throw platform::FileError::ofSystem("Cannot write", name, errno);
    return true;
}

} // namespace

std::string makeNewPdf(const std::string& folder, std::string name, std::string_view bytes) {
    std::ranges::replace(name, '/', '-');
    const std::string stem = platform::FixPath(folder) + name;
    const std::string part = platform::FixPath(folder) + "." + name + "." + std::to_string(::getpid()) + ".part";
    platform::DiskFiles().write(part, bytes);
    try {
        std::string file = stem + ".pdf";
        for (int number = 2; !moveToFreeName(part, file); ++number)
            file = stem + " (" + std::to_string(number) + ").pdf";
        return file;
    } catch (const platform::FileError&) {
        ::unlink(part.c_str());
        throw;
    }
}

} // namespace zel::printing
