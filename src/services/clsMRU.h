#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::platform {
class Files;
}

namespace zel::services {

/// The files used last, the most recent first, kept in section "MRU" of a settings file.
class clsMRU {
public:
    explicit clsMRU(platform::Files& files) : files_(files) {}

    [[nodiscard]] int MaxFileCount() const noexcept { return capacity_; }
    /// Keeps the entries that still fit.
    void setMaxFileCount(int count);
    [[nodiscard]] int FileCount() const noexcept { return static_cast<int>(names_.size()); }
    /// From 1; empty outside the list.
    [[nodiscard]] std::string File(int place) const;
    [[nodiscard]] bool FileExists(int place) const { return !File(place).empty(); }
    /// To place 1, in the new spelling; a name that is there in other letters moves.
    void AddFile(std::string name);

    /// Both are false, and nothing is written, for a file that does not exist. A name that load cut is not written back
    /// over the whole one. Throws FileError when the file cannot be written.
    bool Save(const std::string& path) const;
    bool Load(const std::string& path);

private:
    platform::Files& files_;
    int capacity_ = 8;
    std::vector<std::string> names_;
};

} // namespace zel::services
