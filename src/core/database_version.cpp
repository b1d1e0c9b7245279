#include "core/database_version.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/session.h"
#include "core/settings.h"
#include "services/text_file.h"

#include <fmt/format.h>

#include <array>

namespace zel::core {

namespace {

struct VersionParts {
    long major = 0, minor = 0, revision = 0;
};

constexpr VersionParts minimum{5, 0, 6};

// "5.1" has no revision, which then counts as 0.
VersionParts splitVersion(std::string_view text) {
    std::array<long, 3> numbers{};
    for (long& number : numbers) {
        number = static_cast<long>(ado::numberAtHead(text.substr(0, text.find('.'))));
        const std::size_t dot = text.find('.');
        if (dot == std::string_view::npos)
            break;
        text.remove_prefix(dot + 1);
    }
    return {numbers[0], numbers[1], numbers[2]};
}

} // namespace

void BuildAppVersion(Session& session) {
    // Two digits each: a revision of 123 shows as "23".
    session.gAppVersion =
        fmt::format("{}.{:02}.{:02}", session.app.Major, session.app.Minor % 100, session.app.Revision % 100);
}

void GetVersion(Session& session) {
    session.gDBVersion.clear();
    ado::Recordset versions;
    versions.Open(ado::Sql("select * from version"), session.connection(), ado::CursorType::Static,
                  ado::LockType::ReadOnly);
    if (versions.RecordCount() == 0)
        return;
    versions.Find("Module = 'Database'");
    if (!versions.EOF_())
        session.gDBVersion = ado::toText(versions.value("Version"));
}

bool IsOldDatabase(Session& session) {
    session.gMinDBVersion = fmt::format("{}.{:02}.{:02}", minimum.major, minimum.minor, minimum.revision);
    const VersionParts version = splitVersion(session.gDBVersion);
    // The order counts: a revision of 6 passes under any minor, and "6.00.00" is old because the last step looks at no
    // major. The suite's databases were numbered with this test in mind.
    if (version.major < minimum.major)
        return true;
    if (version.minor < minimum.minor)
        return version.major <= minimum.major;
    if (version.revision >= minimum.revision)
        return false;
    return version.minor <= minimum.minor;
}

void GetBuildVersion(Session& session) {
    session.gBuildVersion.clear();
    if (!session.gDBPath.empty()) {
        const std::string text =
            services::ReadTextFile(session.files, folderAbove(session.app.Path) + "bin/korvan_version");
        // The line end that the reader puts before each line is not part of the text.
        if (text.size() > 2)
            session.gBuildVersion = text.substr(2);
    }
    if (session.gBuildVersion.empty())
        session.gBuildVersion = "Unknown";
}

} // namespace zel::core
