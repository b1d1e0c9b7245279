#include "forms/mask.h"

#include "forms/utf8.h"

namespace zel::forms {

namespace {

bool isDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}
/// Letters beyond ASCII count as letters; their case is left alone, as the databases do.
bool isLetter(char32_t c) {
    return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') || (c >= 0xC0 && c < 0x110000);
}

char32_t inCase(char32_t c, Mask::Case letters) {
    if (letters == Mask::Case::Upper && c >= U'a' && c <= U'z')
        return c - 0x20;
    if (letters == Mask::Case::Lower && c >= U'A' && c <= U'Z')
        return c + 0x20;
    return c;
}

} // namespace

Mask::Mask(std::string_view pattern) {
    Case letters = Case::AsTyped;
    bool escaped = false;
    for (char32_t c : utf8::decode(pattern)) {
        Cell cell{.kind = Kind::Literal, .letters = letters, .literal = c};
        if (!escaped && (c == U'\\' || c == U'>' || c == U'<')) {
            escaped = c == U'\\';
            if (!escaped)
                letters = c == U'>' ? Case::Upper : Case::Lower;
            continue;
        }
        if (!escaped) {
            if (c == U'#' || c == U'9')
                cell.kind = Kind::Digit;
            else if (c == U'?')
                cell.kind = Kind::Letter;
            else if (c == U'a' || c == U'A')
                cell.kind = Kind::Alphanumeric;
            else if (c == U'&' || c == U'C' || c == U'@')
                cell.kind = Kind::Any;
        }
        escaped = false;
        cells_.push_back(cell);
    }
}

std::u32string Mask::blank(char32_t prompt) const {
    std::u32string text;
    for (const Cell& cell : cells_)
        text += cell.kind == Kind::Literal ? cell.literal : prompt;
    return text;
}

std::optional<char32_t> Mask::fit(int position, char32_t character) const {
    const Cell& cell = cells_.at(position);
    bool fits = false;
    switch (cell.kind) {
    case Kind::Literal:
        fits = character == cell.literal;
        break;
    case Kind::Digit:
        fits = isDigit(character);
        break;
    case Kind::Letter:
        fits = isLetter(character);
        break;
    case Kind::Alphanumeric:
        fits = isLetter(character) || isDigit(character);
        break;
    case Kind::Any:
        fits = character >= U' ' && character != 0x7F;
        break;
    }
    if (!fits)
        return std::nullopt;
    return inCase(character, cell.letters);
}

int Mask::nextFree(int position) const {
    while (position < size() && isLiteral(position))
        ++position;
    return position;
}

int Mask::previousFree(int position) const {
    --position;
    while (position >= 0 && isLiteral(position))
        --position;
    return position;
}

std::optional<std::u32string> Mask::lay(std::u32string_view text, char32_t prompt) const {
    auto whole = layOver(text, prompt, true);
    return whole ? whole : layOver(text, prompt, false);
}

std::optional<std::u32string> Mask::layOver(std::u32string_view text, char32_t prompt, bool withLiterals) const {
    std::u32string laid = blank(prompt);
    int position = 0;
    for (char32_t c : text) {
        if (!withLiterals)
            position = nextFree(position);
        if (position >= size())
            return std::nullopt;
        if (c != prompt || isLiteral(position)) {
            const auto fitting = fit(position, c);
            if (!fitting)
                return std::nullopt;
            laid[position] = *fitting;
        }
        ++position;
    }
    return laid;
}

} // namespace zel::forms
