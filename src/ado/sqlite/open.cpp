#include "ado/sqlite/open.h"

#include "ado/error.h"
#include "ado/sqlite/engine.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <string_view>

namespace zel::ado {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t headerSize = 100;
constexpr std::size_t applicationIdAt = 68;

[[noreturn]] void refuse(const fs::path& file, std::string_view why) {
    throw Error(ErrorKind::Open, errors::failed,
                fmt::format("The database '{}' cannot be opened: {}", file.string(), why));
}

/// The first bytes of the file, read as a plain file: the engine could already write to a file that it opens.
std::string readHeader(const fs::path& file) {
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    if (!fs::exists(status))
        refuse(file, "there is no such file.");
    if (fs::is_directory(status))
        refuse(file, "it is a folder.");
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        refuse(file, std::strerror(errno));
    std::string header(headerSize, '\0');
    stream.read(header.data(), static_cast<std::streamsize>(header.size()));
    header.resize(static_cast<std::size_t>(stream.gcount()));
    return header;
}

bool isJetFile(std::string_view header) {
    const std::string_view mark = header.substr(std::min<std::size_t>(4, header.size()));
    return mark.starts_with("Standard Jet DB") || mark.starts_with("Standard ACE DB");
}

std::uint32_t applicationIdOf(std::string_view header) {
    std::uint32_t id = 0;
    for (std::size_t i = 0; i < 4; ++i)
        id = id << 8 | static_cast<unsigned char>(header[applicationIdAt + i]);
    return id;
}

void lookAtHeader(const fs::path& file) {
    using namespace std::string_view_literals;
    const std::string header = readHeader(file);
    if (isJetFile(header))
        refuse(file, "it is a Jet database, which this program cannot read. Make a database with 'korvan-db create' "
                     "and have the module that keeps the old one bring its data over.");
    if (header.size() < headerSize || !header.starts_with("SQLite format 3\0"sv))
        refuse(file, "it is not a database.");
    if (applicationIdOf(header) != sqliteApplicationId)
        refuse(file, "it is the database of another program.");
}

} // namespace

std::unique_ptr<Engine> openSqlite(const std::filesystem::path& file, const SqliteOptions& options) {
    lookAtHeader(file);
    return std::make_unique<sqlite::SqliteEngine>(file, options);
}

} // namespace zel::ado
