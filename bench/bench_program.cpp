#include "bench_program.h"

#include "core/frmMain.h"
#include "core/start_up.h"
#include "core/suite.h"
#include "program/program_parts.h"

#include <fmt/format.h>

#include <stdlib.h>

#include <cstdio>
#include <fstream>

namespace zel::bench {

namespace {

namespace fs = std::filesystem;

/// A program folder whose start file names a database; what is opened is the engine given.
fs::path makeFolder() {
    std::string pattern = (fs::temp_directory_path() / "zel-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder for the program could be made");
    const fs::path folder(pattern);
    fs::create_directories(folder / "zel");
    fs::create_directories(folder / "database");
    std::ofstream(folder / "database" / "Korvan.mdb") << "stands for the database";
    return folder;
}

[[noreturn]] void stop(const std::string& why) {
    fmt::print(stderr, "{}\n", why);
    std::abort();
}

} // namespace

void require(const forms::Outcome& outcome) {
    if (!outcome)
        stop(outcome.refusal);
}

class BenchProgram::BenchSuite final : public core::Suite, core::DatabaseLocator, core::SupportService {
public:
    explicit BenchSuite(std::unique_ptr<ado::Engine> engine)
        : connection_(std::make_shared<ado::Connection>(std::move(engine))) {}

    core::DatabaseLocator& locator() override { return *this; }
    core::SupportService& support() override { return *this; }
    std::unique_ptr<core::ResourceDeleter> makeResourceDeleter() override { return nullptr; }
    void copyDatabase(const std::string&, const std::string&) override {}

    void ShowSecurity(core::Session&) override {}
    std::shared_ptr<ado::Connection> GetConnection() override { return connection_; }
    bool CloseDatabase() override { return true; }
    void OpenDesktop(core::Session&, const std::string&, const std::string&, const std::string&, const std::string&,
                     const std::string&) override {}
    std::string OpenServer(core::Session&, const std::string&, const std::string&, std::string& server,
                           std::string& catalog) override {
        server = "HOST01";
        catalog = "Korvan";
        return "connection text";
    }
    void ShowServerSecurity(core::Session&, const std::string&) override {}
    std::string Password() const override { return {}; }
    std::string UserName() const override { return {}; }

    bool CheckReleaseDate(core::Session&, std::int32_t, const std::string&) override { return true; }
    void ShowSupport(core::Session&) override {}

private:
    std::shared_ptr<ado::Connection> connection_;
};

BenchProgram::BenchProgram(std::unique_ptr<ado::Engine> engine)
    : folder_(makeFolder()), clock_(ado::DateTime::fromDate(2005, 7, 4)), timers_(clock_), forms_(dialogs_, timers_),
      user_(forms_) {
    const bool desktop = engine->kind() == ado::EngineKind::Sqlite;
    suite_ = std::make_unique<BenchSuite>(std::move(engine));
    session_ = std::make_unique<core::Session>(program::describe((folder_ / "zel").string()),
                                               core::World{forms_, dialogs_, clock_, files_, processes_, *suite_});
    program::addScreens(*session_);
    session_->app.Command = desktop ? "False" : "";
    const forms::FormRegistry::Action action(forms_);
    core::Main(*session_);
    requireNoBox();
}

BenchProgram::~BenchProgram() {
    session_.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void BenchProgram::requireNoBox() {
    for (const forms::ShownBox& box : dialogs_.take())
        stop(box.title + ": " + box.text);
}

core::frmMain& BenchProgram::shell() {
    return *forms_.get<core::frmMain>("frmMain");
}

posting::frmPost& BenchProgram::post() {
    return *forms_.get<posting::frmPost>("frmPost");
}

void BenchProgram::openPosting() {
    const forms::FormRegistry::Action action(forms_);
    shell().OpenScreen("Post Time", true, 0);
    requireNoBox();
}

void BenchProgram::choosePerson(std::int64_t row) {
    require(user_.pickRow(post().dbcPersonnel, row));
}

void BenchProgram::post(const std::string& date, const std::string& start, const std::string& stop) {
    posting::frmPost& screen = post();
    require(user_.type(screen.mskPost(0), date));
    require(user_.type(screen.cboTime(0), start));
    require(user_.type(screen.cboTime(1), stop));
    require(user_.click(screen.cmdSave(0)));
}

} // namespace zel::bench
