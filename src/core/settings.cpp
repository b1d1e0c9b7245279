#include "core/settings.h"

#include "ado/convert.h"
#include "core/open_database.h"
#include "core/session.h"
#include "platform/profile_file.h"

namespace zel::core {

namespace {

constexpr char separator = '/';
constexpr std::string_view section = "ZEL";

std::string iniFile(const Session& session) {
    return FixPath(session.app.Path) + "zel.ini";
}

} // namespace

std::string folderAbove(std::string folder) {
    while (folder.size() > 1 && folder.ends_with(separator))
        folder.pop_back();
    const std::size_t last = folder.rfind(separator);
    return last == std::string::npos ? std::string("../") : folder.substr(0, last + 1);
}

std::string folderOf(const std::string& file) {
    const std::size_t last = file.rfind(separator);
    return last == std::string::npos ? std::string() : file.substr(0, last + 1);
}

std::string IniGet(const platform::Files& files, const std::string& file, std::string_view section_,
                   std::string_view key, std::string_view fallback) {
    return platform::readProfile(files, file, section_, key, fallback);
}

std::string IniPut(platform::Files& files, const std::string& file, std::string_view section_, std::string_view key,
                   std::string_view value) {
    try {
        platform::writeProfile(files, file, section_, key, value);
    } catch (const platform::FileError&) {
        // A program folder that is read-only must not keep anybody from working: the setting stays as it was.
    }
    return IniGet(files, file, section_, key, "");
}

void SaveSetting(Session& session, std::string_view key, std::string_view value) {
    IniPut(session.files, iniFile(session), section, key, value);
}

std::string GetSetting(Session& session, std::string_view key) {
    const std::string value = IniGet(session.files, iniFile(session), section, key, "");
    return ado::equalIgnoringCase(key, "DBSPath") ? repairedDatabasePath(session, value) : value;
}

} // namespace zel::core
