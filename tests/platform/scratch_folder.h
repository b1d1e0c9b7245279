#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdlib.h>
#include <string>

namespace zel::platform {

/// A folder of its own for a test, gone afterwards.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "zel-platform-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~ScratchFolder() {
        std::error_code failed;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, failed);
        std::filesystem::remove_all(path_, failed);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }
    /// Writes a file past the code under test, and reads it back so.
    void put(const std::string& name, std::string_view bytes) const {
        std::ofstream(*this / name, std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string bytes(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(*this / name, std::ios::binary).rdbuf();
        return text.str();
    }
    [[nodiscard]] std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator()));
    }

private:
    std::string path_;
};

} // namespace zel::platform
