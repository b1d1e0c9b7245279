#pragma once

#include "ado/engine.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zel::korvandb {

/// A database as it is named on the command line: a file, or server/catalog.
class Target {
public:
    /// A text without "/", with an ending behind the last one, beginning with "." or naming a file that exists is a
    /// file. In any other the last "/" parts the server (a host, or a socket folder) from the catalog.
    explicit Target(std::string text);

    [[nodiscard]] bool isFile() const noexcept { return server_.empty(); }
    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    [[nodiscard]] std::filesystem::path file() const { return text_; }
    [[nodiscard]] const std::string& server() const noexcept { return server_; }
    [[nodiscard]] const std::string& catalog() const noexcept { return catalog_; }

    /// Throws Error when there is no such database or when it is none of the suite's.
    [[nodiscard]] std::unique_ptr<ado::Engine> open() const;
    /// Makes the database, or one in the place of an old one. What `fill` fails to finish never gets the name.
    void create(const std::function<void(ado::Engine&)>& fill, bool replace) const;

private:
    std::string text_;
    std::string server_;
    std::string catalog_;
};

} // namespace zel::korvandb
