#include "platform/profile_file.h"

#include "ado/convert.h"

#include <algorithm>
#include <optional>

namespace zel::platform {

namespace {

// A line of the text, its line end left out of `line` but inside [begin, end).
struct Line {
    std::size_t begin = 0, end = 0;
    std::string_view line;
};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<Line> nextLine(std::string_view text, std::size_t from) {
    if (from >= text.size())
        return std::nullopt;
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (from == 0 && text.starts_with(byteOrderMark))
        from = byteOrderMark.size();
    const std::size_t end = std::min(text.find_first_of("\r\n", from), text.size());
    const std::size_t lineEnd = text.substr(end).starts_with("\r\n") ? 2 : end < text.size() ? 1 : 0;
    return Line{from, end + lineEnd, text.substr(from, end - from)};
}

std::optional<std::string_view> sectionName(std::string_view line) {
    line = trimmed(line);
    if (!line.starts_with('['))
        return std::nullopt;
    line.remove_prefix(1);
    return trimmed(line.substr(0, line.find(']')));
}

bool isKey(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    return equals != std::string_view::npos && ado::equalIgnoringCase(trimmed(line.substr(0, equals)), key);
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
            if (!trimmed(line->line).empty())
                spot.insertAt = line->end;
        }
    }
    return spot;
}

// The characters that fit into a buffer with a NUL behind them; a character of several bytes goes whole or not at all.
std::string_view fitting(std::string_view value, std::size_t buffer) {
    value = value.substr(0, value.find('\0'));
    std::size_t characters = 0;
    int tail = 3; // bytes behind the first of a character; what is more than three, or has no first, counts one by one
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool begins = (static_cast<unsigned char>(value[i]) & 0xC0U) != 0x80U || tail == 3;
        tail = begins ? 0 : tail + 1;
        if (begins && ++characters == buffer)
            return value.substr(0, i);
    }
    return value;
}

// A file with control characters is none of ours, or was damaged: it may be read, but is not written.
bool isText(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(), [](char c) {
        constexpr unsigned char endOfText = 0x1A;
        const auto code = static_cast<unsigned char>(c);
        return code < ' ' && c != '\t' && c != '\r' && c != '\n' && c != '\f' && code != endOfText;
    });
}

std::string_view valueOf(std::string_view line) {
    std::string_view value = trimmed(line.substr(line.find('=') + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    return value;
}

// Quotes keep the blanks and quotes at the ends of a value, which reading would take off.
std::string writtenForm(std::string_view value) {
    const std::string plain(value);
    return valueOf("=" + plain) == value ? plain : '"' + plain + '"';
}

} // namespace

std::string profileValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view fallback) {
    const Spot spot = locate(text, section, key);
    return std::string(spot.key ? valueOf(spot.key->line) : fallback);
}

std::string withProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
    const std::string written = writtenForm(value.substr(0, value.find_first_of(std::string_view("\r\n\0", 3))));
    const std::string lineEnd = text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    const Spot spot = locate(text, section, key);
    std::string line;
    if (spot.key) {
        const std::string_view old = spot.key->line;
        line.append(old.substr(0, old.find('='))).append("=").append(written);
        return std::string(text.substr(0, spot.key->begin)) + line +
               std::string(text.substr(spot.key->begin + old.size()));
    }
    line.append(key).append("=").append(written).append(lineEnd);
    const std::size_t at = spot.inSection ? spot.insertAt : text.size();
    std::string head(text.substr(0, at));
    if (!head.empty() && !head.ends_with('\n') && !head.ends_with('\r'))
        head += lineEnd;
    if (!spot.inSection)
        head.append("[").append(section).append("]").append(lineEnd);
    return head + line + std::string(text.substr(at));
}

std::string readProfile(const Files& files, const std::string& path, std::string_view section, std::string_view key,
                        std::string_view fallback, std::size_t buffer) {
    const std::string value = profileValue(files.read(path).value_or(std::string()), section, key, fallback);
    return std::string(fitting(value, buffer));
}

void writeProfile(Files& files, const std::string& path, std::string_view section, std::string_view key,
                  std::string_view value, std::size_t buffer) {
    const auto present = files.read(path);
    if (!present && files.fileExists(path))
        throw FileError(errors::accessDenied, "Cannot read " + path);
    const std::string text = present.value_or(std::string());
    if (!isText(text))
        throw FileError(errors::accessDenied, "Cannot write " + path + ": it is no settings file");
    if (!isText(value.substr(0, value.find('\0'))))
        throw FileError(errors::accessDenied, "Cannot write " + path + ": the value is no text");
    const std::string old = profileValue(text, section, key, "");
    const bool cutInReading = old != value && fitting(old, buffer) == value;
    const std::string changed = cutInReading ? text : withProfileValue(text, section, key, value);
    if (changed != text || !present)
        files.write(path, changed);
}

} // namespace zel::platform
