#include "platform/single_instance.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace zel::platform {

namespace {

/// A folder that only this user can write to.
std::string userRuntimeFolder() {
    if (const char* given = std::getenv("XDG_RUNTIME_DIR"); given != nullptr && *given == '/')
        return given;
    const std::string own = "/tmp/zel-" + std::to_string(::getuid());
    ::mkdir(own.c_str(), 0700);
    struct stat status {};
    // Somebody else's folder of that name could hold anything.
    const bool ours = ::lstat(own.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::getuid();
    return ours ? own : std::string();
}

/// A short name for a folder: socket paths hold about a hundred characters.
std::string nameOf(const std::string& programFolder) {
    std::error_code failed;
    const auto real = std::filesystem::weakly_canonical(programFolder, failed);
    std::uint64_t hash = 14'695'981'039'346'656'037ULL;
    for (const char c : failed ? programFolder : real.string())
        hash = (hash ^ static_cast<unsigned char>(c)) * 1'099'511'628'211ULL;
    return "/zel-" + std::to_string(hash);
}

bool setAddress(sockaddr_un& address, const std::string& path) {
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

} // namespace

SingleInstance::SingleInstance(const std::string& programFolder) : SingleInstance(programFolder, userRuntimeFolder()) {}

SingleInstance::SingleInstance(const std::string& programFolder, const std::string& runtimeFolder)
    : stem_(runtimeFolder + nameOf(programFolder)) {
    lock_ = ::open((stem_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    // The lock goes with the process, however it ends; the file may stay.
    first_ = lock_ < 0 || ::flock(lock_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (first_ && lock_ >= 0)
        listen();
}

SingleInstance::~SingleInstance() {
    if (socket_ >= 0) {
        ::unlink((stem_ + ".socket").c_str());
        ::close(socket_);
    }
    if (lock_ >= 0)
        ::close(lock_);
}

void SingleInstance::listen() {
    sockaddr_un address{};
    const std::string path = stem_ + ".socket";
    if (!setAddress(address, path))
        return;
    socket_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket_ < 0)
        return;
    ::unlink(path.c_str()); // of a program that was killed
    if (::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        ::close(socket_);
        socket_ = -1;
    }
}

bool SingleInstance::activateFirst() const {
    sockaddr_un address{};
    if (!setAddress(address, stem_ + ".socket"))
        return false;
    const int sender = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (sender < 0)
        return false;
    const auto* to = reinterpret_cast<const sockaddr*>(&address);
    const bool sent = ::sendto(sender, "show", 4, 0, to, sizeof address) == 4;
    ::close(sender);
    return sent;
}

bool SingleInstance::activationAsked() const {
    bool asked = false;
    std::array<char, 16> message{};
    while (socket_ >= 0 && ::recv(socket_, message.data(), message.size(), 0) > 0)
        asked = true;
    return asked;
}

} // namespace zel::platform
