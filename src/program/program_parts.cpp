#include "program/program_parts.h"

#include "core/frmMain.h"
#include "incident/incident_forms.h"
#include "personnel/personnel_forms.h"
#include "posting/posting_forms.h"
#include "program/user_folder.h"
#include "reports/report_forms.h"
#include "suite/korvan_suite.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace zel::program {

namespace fs = std::filesystem;

std::string programFolder(const std::string& given) {
    fs::path folder = given;
    if (folder.empty()) {
        const char* home = std::getenv("ZEL_HOME");
        folder = home != nullptr && *home != '\0' ? fs::path(home) : fs::path();
    }
    if (folder.empty()) {
        folder = fs::read_symlink("/proc/self/exe").parent_path();
        if (isInstalledForAll(folder))
            folder = userProgramFolder(folder, userFolder());
    }
    if (!fs::is_directory(folder))
        throw std::runtime_error("there is no program folder " + folder.string());
    return fs::canonical(folder).string();
}

core::App describe(const std::string& folder) {
    core::App app;
    app.Path = folder;
    app.Major = ZEL_VERSION_MAJOR;
    app.Minor = ZEL_VERSION_MINOR;
    app.Revision = ZEL_VERSION_PATCH;
    return app;
}

std::unique_ptr<core::Suite> makeSuite() {
    return std::make_unique<suite::KorvanSuite>();
}

void addScreens(core::Session& session) {
    core::addCoreForms(session);
    suite::addSuiteForms(session);
    incident::addIncidentForms(session);
    personnel::addPersonnelForms(session);
    posting::addPostingForms(session);
    reports::addReportForms(session);
}

} // namespace zel::program
