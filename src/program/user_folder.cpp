#include "program/user_folder.h"

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

#include <unistd.h>

namespace zel::program {

namespace fs = std::filesystem;

namespace {

fs::path templateFolder(const fs::path& programFolder) {
    return programFolder.parent_path() / "template";
}

/// What is the installed program's stays there: a new version brings its own.
void leadTo(const fs::path& installed, const fs::path& link) {
    if (fs::is_symlink(link) && fs::read_symlink(link) == installed)
        return;
    if (fs::exists(fs::symlink_status(link)) && !fs::is_symlink(link))
        return; // the clerk's own folder
    const fs::path fresh = link.string() + "." + std::to_string(::getpid());
    fs::create_directory_symlink(installed, fresh);
    fs::rename(fresh, link);
}

void leadToProgram(const fs::path& programFolder, const fs::path& own) {
    for (const char* folder : {"reports", "Reports"})
        leadTo(programFolder / folder, own / "zel" / folder);
    leadTo(programFolder.parent_path() / "bin", own / "bin");
}

/// The clerk may write to all of it, however it lies in the installed program.
void copyTemplate(const fs::path& from, const fs::path& to) {
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const fs::path copy = to / entry.path().lexically_relative(from);
        if (entry.is_directory()) {
            fs::create_directory(copy);
        } else {
            fs::copy_file(entry.path(), copy);
            fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write);
        }
    }
}

/// Made beside and renamed when whole, so that a start that is cut short leaves no half of it, and of two starts at
/// once one makes it. Only the clerk may look into it: it will hold people's pay.
void make(const fs::path& programFolder, const fs::path& own) {
    fs::create_directories(own.parent_path());
    std::string fresh = own.string() + ".XXXXXX";
    if (::mkdtemp(fresh.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), own.string());
    try {
        fs::create_directory(fs::path(fresh) / "zel");
        copyTemplate(templateFolder(programFolder), fresh);
        leadToProgram(programFolder, fresh);
        fs::rename(fresh, own);
    } catch (const std::exception&) {
        std::error_code ignored;
        fs::remove_all(fresh, ignored);
        if (!fs::is_directory(own))
            throw;
    }
}

} // namespace

bool isInstalledForAll(const fs::path& programFolder) {
    return fs::is_directory(templateFolder(programFolder));
}

fs::path userProgramFolder(const fs::path& programFolder, const fs::path& own) {
    try {
        if (!fs::is_directory(own))
            make(programFolder, own);
        leadToProgram(programFolder, own);
    } catch (const std::exception& failure) {
        throw std::runtime_error("your own program folder cannot be made: " + std::string(failure.what()));
    }
    return own / "zel";
}

fs::path userFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/')
        return fs::path(data) / "zel";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home != '/')
        throw std::runtime_error("there is no home folder to keep settings and database in; ZEL_HOME can name one");
    return fs::path(home) / ".local/share/zel";
}

} // namespace zel::program
