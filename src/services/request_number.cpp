#include "services/request_number.h"

#include <algorithm>

namespace zel::services {

namespace {

constexpr bool isDigit(int c) noexcept {
    return c >= '0' && c <= '9';
}

/// The length of the first character in bytes.
std::size_t firstCharacter(std::string_view text) noexcept {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

} // namespace

std::string TrimRequestNumber(std::string_view text) {
    const std::size_t hyphen = text.find('-');
    const std::size_t headLength = hyphen == std::string_view::npos ? 0 : hyphen + 1;
    std::string head(text.substr(0, headLength));
    std::string_view rest = text.substr(headLength);
    while (rest.find_first_not_of(' ') != std::string_view::npos) {
        rest.remove_prefix(std::min(rest.find_first_not_of(" 0"), rest.size()));
        const std::size_t point = rest.find('.');
        const std::size_t group = point == std::string_view::npos ? rest.size() : point + 1;
        head += rest.substr(0, group);
        rest.remove_prefix(group);
    }
    return head;
}

std::optional<std::string> requestNumber(std::string_view text) {
    if (text.empty())
        return std::string();
    std::string hyphened(text);
    const std::size_t letter = firstCharacter(text);
    if (hyphened.size() <= letter || hyphened[letter] != '-')
        hyphened.insert(letter, 1, '-');
    std::string trimmed = TrimRequestNumber(hyphened);
    const bool number = std::all_of(trimmed.begin() + static_cast<std::ptrdiff_t>(std::min(letter + 1, trimmed.size())),
                                    trimmed.end(), [](char c) { return isDigit(c) || c == '.' || c == ' '; });
    return number ? std::optional(std::move(trimmed)) : std::nullopt;
}

int requestNumberKey(int keyAscii, bool firstCharacter, std::string_view categories) {
    constexpr int backspace = 8;
    if (keyAscii == backspace)
        return keyAscii;
    if (isDigit(keyAscii) || keyAscii == '-' || keyAscii == '.')
        return firstCharacter ? 0 : keyAscii;
    const int letter = keyAscii >= 'a' && keyAscii <= 'z' ? keyAscii - 'a' + 'A' : keyAscii;
    if (letter < 'A' || letter > 'Z')
        return keyAscii;
    const bool refused =
        letter == 'C' || letter == 'E' || categories.find(static_cast<char>(letter)) == std::string_view::npos;
    return refused ? 0 : letter;
}

} // namespace zel::services
