#include "scripts/program_run.h"

#include "support/run_folder.h"

#include <fmt/format.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace zel::test {

namespace {

namespace fs = std::filesystem;

std::string nextFolder() {
    static int last = 0;
    return fmt::format("program_{}_{}", ::getpid(), ++last);
}

void writeFile(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

void replaceAll(std::string& text, const std::string& what, const std::string& with) {
    for (auto at = text.find(what); !what.empty() && at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// Exit status and output of a command.
std::pair<int, std::string> outputOf(const std::string& command) {
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("cannot run " + command);
    std::string output;
    std::array<char, 4096> block{};
    for (std::size_t got = 0; (got = std::fread(block.data(), 1, block.size(), pipe)) > 0;)
        output.append(block.data(), got);
    const int ended = ::pclose(pipe);
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, output};
}

} // namespace

std::string readFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + file.string());
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

ProgramRun::ProgramRun(ado::EngineKind kind)
    : kind_(kind), database_(kind, Content::Demo), folder_(runFolder() / nextFolder()) {
    fs::create_directories(folder_ / "zel");
    fs::create_directories(folder_ / "bin");
    writeFile(folder_ / "bin" / "korvan_version", "Korvan 5.01.00\r\n");
    const std::string database =
        kind == ado::EngineKind::Sqlite
            ? fmt::format("DBSPath={}\r\n", database_.file().string())
            : fmt::format("Server={}\r\nCatalog={}\r\n", database_.server(), database_.catalog());
    writeFile(folder_ / "zel" / "zel.ini", "[ZEL]\r\n" + database);
}

ProgramRun::~ProgramRun() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string ProgramRun::run(const std::string& script) {
    std::string text = script;
    if (kind_ == ado::EngineKind::Postgres)
        replaceAll(text, "start False", "start True");
    writeFile(folder_ / "script.zel", text);
    // The words are ours: folders without quotes.
    const std::string command =
        fmt::format("PGUSER={} timeout 120 '{}' --home '{}' --now 2005-07-15T08:00:00 --out '{}' '{}' 2>&1", serverUser,
                    ZEL_RUN, (folder_ / "zel").string(), folder_.string(), (folder_ / "script.zel").string());
    std::string output;
    std::tie(status_, output) = outputOf(command);
    return named(std::move(output));
}

void ProgramRun::installReports() const {
    fs::create_directories(folder_ / "zel" / "reports");
    fs::create_symlink(ZEL_TABLON, folder_ / "zel" / "reports" / "Tablon.exe");
    fs::copy(ZEL_REPORTS, folder_ / "zel" / "Reports");
}

void ProgramRun::installReportsScript(const std::string& script) const {
    const fs::path program = folder_ / "zel" / "reports" / "Tablon.exe";
    fs::create_directories(program.parent_path());
    writeFile(program, "#!/bin/sh\n" + script + "\n");
    fs::permissions(program, fs::perms::owner_exec, fs::perm_options::add);
}

void ProgramRun::forbidReports() const {
    fs::permissions(folder_ / "zel" / "reports" / "Tablon.exe", fs::perms::owner_read);
}

std::string ProgramRun::printed(const std::string& name) const {
    return outputOf(fmt::format("pdftotext -layout '{}' -", (folder_ / name).string())).second;
}

void ProgramRun::removeDatabase() const {
    fs::remove(database_.file());
}

std::string ProgramRun::settings() const {
    return named(readFile(folder_ / "zel" / "zel.ini"));
}

std::string ProgramRun::named(std::string text) const {
    replaceAll(text, folder_.string(), "{home}");
    replaceAll(text, kind_ == ado::EngineKind::Sqlite ? database_.file().string() : database_.server(), "{database}");
    replaceAll(text, database_.catalog(), "{catalog}");
    return text;
}

} // namespace zel::test
