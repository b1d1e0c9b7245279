#include "platform/profile_file.h"

#include "ado/convert.h"

#include <optional>

namespace zel::platform {

namespace {

// A line of the text, its line end left out of `line` but inside [begin, end).
struct Line {
    std::size_t begin = 0, end = 0;
    std::string_view line;
};

std::optional<Line> nextLine(std::string_view text, std::size_t from) {
    if (from >= text.size())
        return std::nullopt;
    const std::size_t feed = text.find('\n', from);
    Line line{from, feed == std::string_view::npos ? text.size() : feed + 1, {}};
    line.line = text.substr(from, (feed == std::string_view::npos ? text.size() : feed) - from);
    if (line.line.ends_with('\r'))
        line.line.remove_suffix(1);
    return line;
}

std::optional<std::string_view> sectionName(std::string_view line) {
    line = ado::trim(line);
    if (!line.starts_with('['))
        return std::nullopt;
    line.remove_prefix(1);
    return ado::trim(line.substr(0, line.find(']')));
}

bool isKey(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    return equals != std::string_view::npos && ado::equalIgnoringCase(ado::trim(line.substr(0, equals)), key);
}

// Where a key stands, or where it would go.
struct Spot {
    bool inSection = false;
    std::optional<Line> key;
    std::size_t insertAt = 0; // behind the last line of the section that is not blank
};

Spot locate(std::string_view text, std::string_view section, std::string_view key) {
    Spot spot;
    std::size_t from = 0;
    while (const auto line = nextLine(text, from)) {
        from = line->end;
        if (const auto name = sectionName(line->line)) {
            if (spot.inSection)
                break; // only the first section of a name counts
            spot.inSection = ado::equalIgnoringCase(*name, section);
            spot.insertAt = line->end;
        } else if (spot.inSection) {
            if (isKey(line->line, key)) {
                spot.key = *line;
                break;
            }
            if (!ado::trim(line->line).empty())
                spot.insertAt = line->end;
        }
    }
    return spot;
}

std::string_view valueOf(std::string_view line) {
    std::string_view value = ado::trim(line.substr(line.find('=') + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    return value;
}

} // namespace

std::string profileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view fallback) {
    const Spot spot = locate(text, section, key);
    return std::string(spot.key ? valueOf(spot.key->line) : fallback);
}

std::string withProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
    value = value.substr(0, value.find_first_of(std::string_view("\r\n\0", 3)));
    const std::string lineEnd = text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    const Spot spot = locate(text, section, key);
    std::string line;
    if (spot.key) {
        const std::string_view old = spot.key->line;
        line.append(old.substr(0, old.find('='))).append("=").append(value);
        return std::string(text.substr(0, spot.key->begin)) + line +
               std::string(text.substr(spot.key->begin + old.size()));
    }
    line.append(key).append("=").append(value).append(lineEnd);
    const std::size_t at = spot.inSection ? spot.insertAt : text.size();
    std::string head(text.substr(0, at));
    if (!head.empty() && !head.ends_with('\n'))
        head += lineEnd;
    if (!spot.inSection)
        head.append("[").append(section).append("]").append(lineEnd);
    return head + line + std::string(text.substr(at));
}

std::string readProfile(const Files& files, const std::string& path, std::string_view section, std::string_view key,
                        std::string_view fallback, std::size_t buffer) {
    std::string value = profileValue(files.read(path).value_or(std::string()), section, key, fallback);
    if (value.size() >= buffer)
        value.resize(buffer - 1);
    return value.substr(0, value.find('\0'));
}

void writeProfile(Files& files, const std::string& path, std::string_view section, std::string_view key,
                  std::string_view value, std::size_t buffer) {
    const auto present = files.read(path);
    if (!present && files.fileExists(path))
        throw FileError("Cannot read " + path);
    const std::string text = present.value_or(std::string());
    if (text.find('\0') != std::string::npos || profileValue(text, section, key, "").size() >= buffer)
        return;
    std::string changed = withProfileValue(text, section, key, value);
    if (changed != text || !present)
        files.write(path, changed);
}

} // namespace zel::platform
