#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zel::tablon {

/// An argument that cannot be understood, in words for the clerk.
class RequestError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Whose rows a report shows.
enum class Whose { All, Person, Resource };

/// What the program asks for in its one argument.
struct Request {
    std::int32_t incident = -1;
    int report = 0;
    Whose whose = Whose::All;
    std::int32_t key = 0;
    std::string server, catalog, user, password;
    bool serverDialect = false;
    bool manageAll = false;
    bool flag = false;
};

/// Incident, report, option, server/catalog, user, password, dialect, "all incidents as one" and flag, parted by
/// commas. Throws RequestError.
[[nodiscard]] Request parseRequest(std::string_view argument);

} // namespace zel::tablon
