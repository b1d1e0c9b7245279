#include "support/postgres_server.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace zel::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Debian keeps the server's programs away from the search path; the newest version counts.
fs::path serverProgram(const std::string& name) {
    std::vector<fs::path> found;
    std::error_code none;
    for (const auto& version : fs::directory_iterator("/usr/lib/postgresql", none))
        if (fs::exists(version.path() / "bin" / name))
            found.push_back(version.path() / "bin" / name);
    if (!found.empty())
        return *std::ranges::max_element(found, {}, [](const fs::path& program) {
            return std::atoi(program.parent_path().parent_path().filename().c_str());
        });
    return name;
}

/// The server refuses to run as root.
const passwd* userForServer() {
    if (::geteuid() != 0)
        return nullptr;
    for (const char* name : {"postgres", "nobody"})
        if (const passwd* user = ::getpwnam(name))
            return user;
    throw std::runtime_error("there is no user to run the server");
}

void becomeUser(const passwd* user) {
    if (user == nullptr)
        return;
    if (::setgroups(0, nullptr) != 0 || ::setgid(user->pw_gid) != 0 || ::setuid(user->pw_uid) != 0)
        ::_exit(126);
}

pid_t launch(const std::vector<std::string>& words, const fs::path& log) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const passwd* user = userForServer();
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    const int output = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    ::setpgid(0, 0);
    becomeUser(user);
    ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
    if (::getppid() != parent)
        ::_exit(125);
    ::execvp(arguments.front(), arguments.data());
    ::_exit(127);
}

void runToEnd(const std::vector<std::string>& words, const fs::path& log) {
    int status = 0;
    ::waitpid(launch(words, log), &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(words.front() + " failed, see " + log.string());
}

} // namespace

PostgresServer::PostgresServer(fs::path folder) : folder_(std::move(folder)) {
    initialise();
    start();
}

PostgresServer::~PostgresServer() {
    if (process_ > 0) {
        ::kill(-process_, SIGCONT);
        ::kill(process_, SIGQUIT);
        ::waitpid(process_, nullptr, 0);
    }
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void PostgresServer::initialise() {
    fs::create_directory(folder_);
    if (const passwd* user = userForServer();
        user != nullptr && ::chown(folder_.c_str(), user->pw_uid, user->pw_gid) != 0)
        throw std::runtime_error("cannot hand " + folder_.string() + " to the server's user");
    const fs::path data = folder_ / "data";
    runToEnd({serverProgram("initdb").string(), "-D", data.string(), "-A", "trust", "-U", "zel", "-E", "UTF8",
              "--locale=C", "--no-sync", "--no-instructions"},
             folder_.string() + ".log");
    std::ofstream(data / "postgresql.auto.conf", std::ios::app)
        << "listen_addresses = ''\nunix_socket_directories = '" << folder_.string()
        << "'\nfsync = off\nsynchronous_commit = off\nfull_page_writes = off\nshared_buffers = 32MB\n"
           "max_connections = 100\nautovacuum = off\nwal_level = minimal\nmax_wal_senders = 0\nmax_wal_size = "
           "1GB\ncheckpoint_timeout = 1h\n";
    std::ofstream(data / "pg_hba.conf") << "local all clerk scram-sha-256\nlocal all all trust\n";
}

bool PostgresServer::takesConnections() const {
    std::ifstream note(folder_ / "data" / "postmaster.pid");
    std::string line;
    for (int i = 0; i < 8; ++i)
        if (!std::getline(note, line))
            return false;
    return line.starts_with("ready");
}

void PostgresServer::start() {
    process_ =
        launch({serverProgram("postgres").string(), "-D", (folder_ / "data").string()}, folder_.string() + ".log");
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (!takesConnections()) {
        const bool ended = ::waitpid(process_, nullptr, WNOHANG) != 0;
        if (ended)
            process_ = -1;
        if (ended || std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the server does not start, see " + folder_.string() + ".log");
        std::this_thread::sleep_for(5ms);
    }
}

void PostgresServer::kill() {
    ::kill(-process_, SIGCONT);
    ::kill(process_, SIGQUIT);
    ::waitpid(process_, nullptr, 0);
    process_ = -1;
    fs::remove(folder_ / "data" / "postmaster.pid");
}

void PostgresServer::suspend(bool suspended) {
    // Backends leave the postmaster's process group, so they are found as its children.
    std::ifstream children("/proc/" + std::to_string(process_) + "/task/" + std::to_string(process_) + "/children");
    for (pid_t child = 0; children >> child;)
        ::kill(child, suspended ? SIGSTOP : SIGCONT);
    ::kill(process_, suspended ? SIGSTOP : SIGCONT);
}

} // namespace zel::test
