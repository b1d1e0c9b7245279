#include "support/test_session.h"

#include "ado/convert.h"
#include "support/rows.h"

#include <stdlib.h>

namespace zel::test {

namespace {

std::filesystem::path makeFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zel-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder for the test program could be made");
    return std::filesystem::path(pattern);
}

core::App appIn(const std::filesystem::path& folder) {
    core::App app;
    app.Path = folder.string();
    app.Major = 5;
    app.Minor = 1;
    return app;
}

} // namespace

class PlainSuite::Locator final : public core::DatabaseLocator {
public:
    explicit Locator(PlainSuite& suite) : suite_(suite) {}
    void ShowSecurity(core::Session&) override { suite_.calls.emplace_back("ShowSecurity"); }
    std::shared_ptr<ado::Connection> GetConnection() override { return nullptr; }
    bool CloseDatabase() override {
        suite_.calls.emplace_back("CloseDatabase");
        return true;
    }
    void OpenDesktop(core::Session&, const std::string& path, const std::string&, const std::string&,
                     const std::string&, const std::string&) override {
        suite_.calls.push_back("OpenDesktop " + path);
    }
    std::string OpenServer(core::Session&, const std::string&, const std::string&, std::string& server,
                           std::string& catalog) override {
        suite_.calls.push_back("OpenServer " + server + "/" + catalog);
        return {};
    }
    void ShowServerSecurity(core::Session&, const std::string& server) override {
        suite_.calls.push_back("ShowServerSecurity " + server);
    }
    std::string Password() const override { return "secret"; }
    std::string UserName() const override { return "clerk"; }

private:
    PlainSuite& suite_;
};

class PlainSuite::Deleter final : public core::ResourceDeleter {
public:
    explicit Deleter(PlainSuite& suite) : suite_(suite) {}
    bool DeleteResources(core::Session&, const std::string& resourceKeys, const std::string& personKeys,
                         const std::string& separator) override {
        suite_.calls.push_back("DeleteResources " + resourceKeys + " " + personKeys + " " + separator);
        return suite_.deleterAnswer;
    }
    void DeleteIncident(core::Session&, std::int32_t incident, bool& success) override {
        suite_.calls.push_back("DeleteIncident " + std::to_string(incident));
        success = suite_.deleterAnswer;
    }

private:
    PlainSuite& suite_;
};

class PlainSuite::Support final : public core::SupportService {
public:
    explicit Support(PlainSuite& suite) : suite_(suite) {}
    bool CheckReleaseDate(core::Session&, std::int32_t resource, const std::string& releaseDate) override {
        suite_.calls.push_back("CheckReleaseDate " + std::to_string(resource) + " " + releaseDate);
        return suite_.releaseDateAnswer;
    }
    void ShowSupport(core::Session&) override { suite_.calls.emplace_back("ShowSupport"); }

private:
    PlainSuite& suite_;
};

PlainSuite::PlainSuite() : locator_(std::make_unique<Locator>(*this)), support_(std::make_unique<Support>(*this)) {}
PlainSuite::~PlainSuite() = default;
core::DatabaseLocator& PlainSuite::locator() {
    return *locator_;
}
std::unique_ptr<core::ResourceDeleter> PlainSuite::makeResourceDeleter() {
    return std::make_unique<Deleter>(*this);
}
core::SupportService& PlainSuite::support() {
    return *support_;
}

void PlainSuite::copyDatabase(const std::string& path, const std::string& copy) {
    calls.push_back("copyDatabase " + path + " " + copy);
}

TestSession::TestSession()
    : folder(makeFolder()), clock(ado::toDateTime("7/4/2005 8:00:00 AM")), timers(clock), forms(dialogs, timers),
      session_(std::make_unique<core::Session>(appIn(folder),
                                               core::World{forms, dialogs, clock, files, processes, suite})) {}

TestSession::~TestSession() {
    session_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

SessionTest::SessionTest() {
    session().gServerDialect = !onSqlite();
    session().gConnection = std::make_shared<ado::Connection>(database().open());
}

std::vector<std::string> SessionTest::rows(std::string_view statement) {
    return rowsOf(session().connection(), statement);
}

} // namespace zel::test
