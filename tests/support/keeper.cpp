#include "support/keeper.h"

#include "support/postgres_server.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace zel::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

volatile sig_atomic_t told = 0;

/// In memory when there is room: databases of tests need not outlive anything.
fs::path placeForFolder() {
    const fs::path memory = "/dev/shm";
    std::error_code failure;
    const fs::space_info room = fs::space(memory, failure);
    constexpr std::uintmax_t enough = 2ULL << 30;
    return !failure && room.available >= enough && ::access(memory.c_str(), W_OK) == 0 ? memory
                                                                                       : fs::temp_directory_path();
}

fs::path makeFolder() {
    std::string pattern = (placeForFolder() / "zel-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("cannot make a folder for the test run");
    // The server runs as a user of its own when the tests run as root, and has to pass through.
    ::chmod(pattern.c_str(), 0755);
    return pattern;
}

/// The test's terminal and pipes stay its own: CTest waits for their end.
void detach(const fs::path& folder) {
    ::setsid();
    const int nothing = ::open("/dev/null", O_RDONLY);
    const int log = ::open((folder / "keeper.log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(log, STDOUT_FILENO);
    ::dup2(log, STDERR_FILENO);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
}

void serveRequests(const fs::path& folder, std::unique_ptr<PostgresServer>& server) {
    if (server != nullptr || !fs::exists(folder / "server.wanted"))
        return;
    try {
        server = std::make_unique<PostgresServer>(folder / "server");
        std::ofstream(folder / "server.ready") << server->socketFolder().string() << std::endl;
    } catch (const std::exception& failure) {
        std::ofstream(folder / "server.failed") << failure.what() << std::endl;
        fs::remove(folder / "server.wanted");
    }
}

void keep(const fs::path& folder, int watched) {
    std::unique_ptr<PostgresServer> server;
    pollfd ended{watched, POLLIN, 0};
    while (watched >= 0 && told == 0 && ::poll(&ended, 1, server ? 500 : 10) <= 0)
        serveRequests(folder, server);
    server.reset();
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void obeySignals() {
    struct sigaction stop {};
    stop.sa_handler = [](int) { told = 1; };
    ::sigaction(SIGTERM, &stop, nullptr);
    ::signal(SIGINT, SIG_IGN);
    ::signal(SIGHUP, SIG_IGN);
}

template <typename Condition>
bool waitFor(Condition condition, std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

std::string firstLine(const fs::path& file) {
    std::string line;
    std::ifstream stream(file);
    std::getline(stream, line);
    return line;
}

} // namespace

fs::path startKeeper(pid_t watched) {
    fs::path folder = makeFolder();
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot start the keeper of the test run");
    if (child == 0) {
        // Forked twice, so that nobody has to collect it.
        if (::fork() != 0)
            ::_exit(0);
        detach(folder);
        obeySignals();
        std::ofstream(folder / "keeper.pid") << ::getpid() << std::endl;
        keep(folder, static_cast<int>(::syscall(SYS_pidfd_open, watched, 0)));
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    if (!waitFor([&] { return !firstLine(folder / "keeper.pid").empty(); }, 10s))
        throw std::runtime_error("the keeper of the test run does not start");
    return folder;
}

void stopKeeper(const fs::path& folder) {
    const std::string id = firstLine(folder / "keeper.pid");
    if (id.empty())
        return;
    ::kill(std::stoi(id), SIGTERM);
    if (!waitFor([&] { return !fs::exists(folder); }, 30s))
        throw std::runtime_error("the keeper of the test run does not end");
}

fs::path runningServer(const fs::path& folder) {
    const fs::path ready = folder / "server.ready", failed = folder / "server.failed";
    if (!fs::exists(ready)) {
        std::ofstream(folder / "server.wanted") << '\n';
        waitFor([&] { return !firstLine(ready).empty() || fs::exists(failed); }, 60s);
    }
    if (firstLine(ready).empty())
        throw std::runtime_error("the PostgreSQL server of the test run does not start: " + firstLine(failed));
    return firstLine(ready);
}

} // namespace zel::test
