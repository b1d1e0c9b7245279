#include "tablon/request.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "core/suite.h"

#include <charconv>
#include <optional>
#include <vector>

namespace zel::tablon {

namespace {

/// Three values before and three behind the names of the database and its user, which may hold commas themselves.
constexpr std::size_t head = 3, middle = 3, tail = 3;

std::vector<std::string> partsOf(std::string_view text) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t comma = text.find(',');
        parts.emplace_back(text.substr(0, comma));
        if (comma == std::string_view::npos)
            return parts;
        text.remove_prefix(comma + 1);
    }
}

std::string join(const std::vector<std::string>& parts, std::size_t first, std::size_t last) {
    std::string joined;
    for (std::size_t i = first; i < last; ++i)
        joined += (i == first ? "" : ",") + parts[i];
    return joined;
}

std::optional<std::int32_t> wholeNumber(std::string_view text) {
    text = ado::trim(text);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::int32_t number(const std::string& text, const char* what) {
    if (const auto found = wholeNumber(text))
        return *found;
    throw RequestError("The " + std::string(what) + " '" + text + "' is not a number.");
}

bool flag(const std::string& text, const char* what) {
    try {
        return ado::toBoolean(std::string(ado::trim(text)));
    } catch (const ado::Error&) {
        throw RequestError("The " + std::string(what) + " '" + text + "' is neither True nor False.");
    }
}

void takeOption(Request& request, std::string_view option) {
    option = ado::trim(option);
    if (option.empty() || option == "0")
        return;
    const char letter = option.front();
    const auto key = wholeNumber(option.substr(1));
    if ((letter != 'P' && letter != 'R') || !key || *key < 1)
        throw RequestError("The option '" + std::string(option) +
                           "' names neither a person (P12) nor a resource (R12), nor all of the incident (0).");
    request.whose = letter == 'P' ? Whose::Person : Whose::Resource;
    request.key = *key;
}

/// Of a path with folders the last part is the catalog: a server may be the path of its socket's folder.
void takeDatabase(Request& request, const std::string& name) {
    const std::string file = std::string(core::DatabaseLocator::fileServer) + "/";
    const std::size_t slash = name.starts_with(file) ? file.size() - 1 : name.rfind('/');
    if (slash == std::string::npos)
        throw RequestError("'" + name + "' does not name a server and a catalog, parted by '/'.");
    request.server = name.substr(0, slash);
    request.catalog = name.substr(slash + 1);
}

} // namespace

Request parseRequest(std::string_view argument) {
    const std::vector<std::string> parts = partsOf(argument);
    if (parts.size() < head + middle + tail)
        throw RequestError("The argument has " + std::to_string(parts.size()) + " values instead of " +
                           std::to_string(head + middle + tail) + ".");
    Request request;
    request.incident = number(parts[0], "incident");
    request.report = number(parts[1], "report");
    takeOption(request, parts[2]);
    const std::size_t end = parts.size() - tail;
    // The path of a file may hold commas, and a file has no user; of a server it is the password that may.
    const bool file = parts[head].starts_with(core::DatabaseLocator::fileServer);
    const std::size_t user = file ? end - 2 : head + 1;
    takeDatabase(request, join(parts, head, user));
    request.user = parts[user];
    request.password = join(parts, user + 1, end);
    request.serverDialect = flag(parts[end], "dialect");
    request.manageAll = flag(parts[end + 1], "sign for all incidents");
    request.flag = flag(parts[end + 2], "flag");
    return request;
}

} // namespace zel::tablon
