#include "ado/convert.h"

#include <algorithm>

namespace zel::ado {

namespace {

constexpr char upperAscii(char letter) noexcept {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

constexpr char lowerAscii(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Western and central European letters (U+00C0 to U+017E), all two bytes in UTF-8 in either case. The rest stays.
constexpr unsigned upperLetter(unsigned letter) noexcept {
    if (letter >= 0xE0 && letter <= 0xFE && letter != 0xF7)
        return letter - 0x20;
    if (letter == 0xFF)
        return 0x178;
    const bool evenIsUpper =
        (letter >= 0x100 && letter <= 0x137 && letter != 0x131) || (letter >= 0x14A && letter <= 0x177);
    const bool oddIsUpper = (letter >= 0x139 && letter <= 0x148) || (letter >= 0x179 && letter <= 0x17E);
    if ((evenIsUpper && letter % 2 == 1) || (oddIsUpper && letter % 2 == 0))
        return letter - 1;
    return letter;
}

constexpr unsigned lowerLetter(unsigned letter) noexcept {
    if (letter >= 0xC0 && letter <= 0xDE && letter != 0xD7)
        return letter + 0x20;
    if (letter == 0x178)
        return 0xFF;
    const unsigned next = letter + 1;
    return letter >= 0x100 && letter != 0x130 && upperLetter(next) == letter ? next : letter;
}

template <typename AsciiMap, typename LetterMap>
std::string mapped(std::string_view text, AsciiMap ascii, LetterMap letter) {
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto lead = static_cast<unsigned char>(result[i]);
        if (lead < 0x80) {
            result[i] = ascii(result[i]);
        } else if (lead >= 0xC3 && lead <= 0xC5 && i + 1 < result.size()) {
            const auto tail = static_cast<unsigned char>(result[i + 1]);
            const unsigned other = letter((lead & 0x1FU) << 6U | (tail & 0x3FU));
            result[i] = static_cast<char>(0xC0U | other >> 6U);
            result[++i] = static_cast<char>(0x80U | (other & 0x3FU));
        }
    }
    return result;
}

} // namespace

std::string upperCase(std::string_view text) {
    return mapped(text, upperAscii, upperLetter);
}

std::string lowerCase(std::string_view text) {
    return mapped(text, lowerAscii, lowerLetter);
}

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
}

} // namespace zel::ado
