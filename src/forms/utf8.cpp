#include "forms/utf8.h"

namespace zel::forms::utf8 {

namespace {

// Stray bytes are kept apart from real characters by a place above the last code point.
constexpr char32_t strayByte = 0x200000;

/// Bytes of the character at `at`: 1 to 4, and 1 for a byte that begins none.
std::size_t width(std::string_view text, std::size_t at) noexcept {
    const auto lead = static_cast<unsigned char>(text[at]);
    std::size_t bytes = 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        bytes = 2;
    else if (lead >= 0xE0 && lead <= 0xEF)
        bytes = 3;
    else if (lead >= 0xF0 && lead <= 0xF4)
        bytes = 4;
    if (at + bytes > text.size())
        return 1;
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((static_cast<unsigned char>(text[at + i]) & 0xC0) != 0x80)
            return 1;
    }
    return bytes;
}

} // namespace

int length(std::string_view text) noexcept {
    int count = 0;
    for (std::size_t at = 0; at < text.size(); at += width(text, at))
        ++count;
    return count;
}

std::size_t offset(std::string_view text, int position) noexcept {
    std::size_t at = 0;
    for (; position > 0 && at < text.size(); --position)
        at += width(text, at);
    return at;
}

std::string_view middle(std::string_view text, int position, int count) noexcept {
    text.remove_prefix(offset(text, position));
    return text.substr(0, offset(text, count));
}

std::string encode(char32_t character) {
    const auto tail = [character](int shift) { return static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character >= strayByte)
        return {static_cast<char>(character - strayByte)};
    if (character < 0x80)
        return {static_cast<char>(character)};
    if (character < 0x800)
        return {static_cast<char>(0xC0 | (character >> 6)), tail(0)};
    if (character < 0x10000)
        return {static_cast<char>(0xE0 | (character >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (character >> 18)), tail(12), tail(6), tail(0)};
}

std::string encode(std::u32string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (char32_t character : text)
        bytes += encode(character);
    return bytes;
}

std::u32string decode(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto bytes = width(text, at);
        const auto lead = static_cast<unsigned char>(text[at]);
        char32_t character = lead;
        if (bytes == 1 && lead >= 0x80)
            character = strayByte + lead;
        else if (bytes > 1)
            character = lead & (0xFF >> (bytes + 1));
        for (std::size_t i = 1; i < bytes; ++i)
            character = (character << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3F);
        characters += character;
        at += bytes;
    }
    return characters;
}

} // namespace zel::forms::utf8
