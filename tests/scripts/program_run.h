#pragma once

#include "support/test_database.h"

#include <filesystem>
#include <string>

namespace zel::test {

/// A program folder of its own with an empty `zel.ini`, the demo database beside it, and a run of zel-run in it.
class ProgramRun {
public:
    explicit ProgramRun(ado::EngineKind kind);
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    /// Runs a script in which `start False` means the engine at hand. Gives what was written, with the folder as
    /// `{home}` and the database as `{database}`.
    std::string run(const std::string& script);
    /// Puts the reporting program and the layouts into the program folder.
    void installReports() const;
    /// Puts a shell script where the reporting program stands.
    void installReportsScript(const std::string& script) const;
    /// The reporting program may not be run any more.
    void forbidReports() const;
    /// What was printed, as text; the file's name as the runner tells it.
    [[nodiscard]] std::string printed(const std::string& name) const;
    /// The program folder.
    [[nodiscard]] std::string home() const { return (folder_ / "zel").string(); }
    /// Takes the database file away.
    void removeDatabase() const;
    [[nodiscard]] int status() const noexcept { return status_; }
    /// `zel.ini` as it is now, with the same names put in.
    [[nodiscard]] std::string settings() const;

private:
    [[nodiscard]] std::string named(std::string text) const;

    ado::EngineKind kind_;
    TestDatabase database_;
    std::filesystem::path folder_;
    int status_ = -1;
};

[[nodiscard]] std::string readFile(const std::filesystem::path& file);

} // namespace zel::test
