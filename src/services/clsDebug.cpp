#include "services/clsDebug.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/profile_file.h"

#include <array>

namespace zel::services {

namespace {

constexpr std::array<std::string_view, 9> categories{
    " Info.:", " Event:", " Stat.:", " Timer:", " Error:", " Other:", "", "   Ext:", ""};
constexpr std::array<std::string_view, 9> methods{"'NoLog'", "Debug Window", "File", "", "Database", "", "",
                                                  "",        "Extended File"};
constexpr int allCategories = 8;

int highestCategory(int method) {
    switch (method) {
    case clsDebug::noLog:
        return 0;
    case clsDebug::debugWindow:
    case clsDebug::extendedFile:
        return allCategories;
    case clsDebug::database:
        return 6;
    default:
        return 5;
    }
}

std::string_view methodName(int method) {
    return method >= 0 && method < static_cast<int>(methods.size()) ? methods[static_cast<std::size_t>(method)]
                                                                    : std::string_view{};
}

std::string_view extensionOf(int method) {
    if (method == clsDebug::noLog || method == clsDebug::debugWindow)
        return "";
    return method == clsDebug::database ? ".mdb" : ".log";
}

} // namespace

int logMethodOf(std::string_view setting) {
    std::string value = ado::lowerCase(ado::trim(setting));
    if (!value.empty())
        value.pop_back();
    if (value == "all")
        return clsDebug::extendedFile;
    if (value == "debugonly")
        return clsDebug::debugWindow;
    if (value == "none")
        return clsDebug::noLog;
    return value == "db" ? clsDebug::database : clsDebug::file; // "min" and "file" among them
}

clsDebug::clsDebug(core::Session& session) : session_(session) {
    setLogMethod(logMethodOf(platform::readProfile(session.files, platform::FixPath(session.app.Path) + "zel.ini",
                                                   "ZEL", "Logging", "file")));
    setLogfile("");
}

void clsDebug::setLogMethod(int code) {
    method_ = code;
    highest_ = highestCategory(code);
    extended_ = highest_ == allCategories;
}

void clsDebug::setLogfile(std::string name) {
    constexpr std::size_t extensionLength = 4;
    if (name.empty())
        name = platform::FixPath(session_.app.Path) + session_.app.EXEName + " - " +
               ado::format(session_.clock.Now(), "yyyy-mm-dd.hh.nn");
    if (name.size() > extensionLength && name[name.size() - extensionLength] == '.')
        name.resize(name.size() - extensionLength);
    name_ = name.append(extensionOf(method_));
    open_ = false;
    if (!session_.app.Path.starts_with("\\\\"))
        open();
}

void clsDebug::open() {
    if (method_ == noLog)
        return;
    open_ = true;
    writeLine(ado::format(session_.clock.Now(), "yyyy-mm-dd-hh-nn") + " Logging enabled " +
              std::string(methodName(method_)) + ":\t");
}

void clsDebug::writeLine(const std::string& line) {
    try {
        session_.files.append(name_, line + "\r\n");
    } catch (const platform::FileError&) {
        open_ = false; // a full disk or a read-only folder: the program goes on without a log
    }
}

void clsDebug::Prn(std::string_view text, int category, bool bWrite, bool bExtended) {
    if (text.empty())
        category = none;
    if (!open_ || !bWrite || category < 0 || category > highest_)
        return;
    if (bExtended != extended_) {
        if (mixedSeen_)
            return;
        mixedSeen_ = true;
        extended_ = true;
    }
    writeLine(std::string(categories[static_cast<std::size_t>(category)]) + '\t' + std::string(text));
}

} // namespace zel::services
