#pragma once

#include "ado/error.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::platform {

/// Failures of files and devices, as the platform numbers them.
namespace errors {
inline constexpr int fileNotFound = 53;
inline constexpr int deviceFailure = 57;
inline constexpr int diskFull = 61;
inline constexpr int accessDenied = 75;
inline constexpr int invalidFormat = 321;
} // namespace errors

/// A file that could not be read or written, in words for the clerk.
class FileError : public ado::Error {
public:
    FileError(int number, const std::string& description) : ado::Error(ado::ErrorKind::File, number, description) {}
    /// The number and the reason that belong to an errno.
    [[nodiscard]] static FileError ofSystem(const std::string& what, const std::string& path, int systemError);
};

/// The folder with the platform's separator at its end.
[[nodiscard]] std::string FixPath(std::string folder);

/// The file system as the program uses it. Names are found without regard to case, in every part of a path; the parts
/// that do not exist yet are taken as they stand.
class Files {
public:
    virtual ~Files() = default;
    [[nodiscard]] virtual bool fileExists(const std::string& path) const = 0;
    [[nodiscard]] virtual bool folderExists(const std::string& path) const = 0;
    /// The path with the letters that the names on the disk have.
    [[nodiscard]] virtual std::string actualPath(const std::string& path) const = 0;
    /// The bytes of a file; nothing when there is none or it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string& path) const = 0;
    /// The whole file anew: a file beside it is written, flushed and renamed, so that no failure leaves half a file. A
    /// file that may not be written is not replaced either. Throws FileError, and the old file stays as it was.
    virtual void write(const std::string& path, std::string_view bytes) = 0;
    /// Adds to the end of a file, which is made when it does not exist. Throws FileError.
    virtual void append(const std::string& path, std::string_view bytes) = 0;
    /// With the folders above it. Throws FileError.
    virtual void makeFolder(const std::string& path) = 0;
    /// Names of the files in a folder that end so, sorted; none for a folder that cannot be read.
    [[nodiscard]] virtual std::vector<std::string> list(const std::string& folder, std::string_view ending) const = 0;
};

/// The machine's file system.
class DiskFiles final : public Files {
public:
    [[nodiscard]] bool fileExists(const std::string& path) const override;
    [[nodiscard]] bool folderExists(const std::string& path) const override;
    [[nodiscard]] std::string actualPath(const std::string& path) const override;
    [[nodiscard]] std::optional<std::string> read(const std::string& path) const override;
    void write(const std::string& path, std::string_view bytes) override;
    void append(const std::string& path, std::string_view bytes) override;
    void makeFolder(const std::string& path) override;
    [[nodiscard]] std::vector<std::string> list(const std::string& folder, std::string_view ending) const override;
};

} // namespace zel::platform
