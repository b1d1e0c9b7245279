#include "ado/convert.h"
#include "ado/format_kinds.h"

namespace zel::ado {

namespace {

struct Placeholders {
    std::size_t count = 0;
    bool leftToRight = false, upper = false, lower = false;
};

Placeholders scan(std::string_view pattern) {
    Placeholders found;
    forEachMark(pattern, [&](char mark, bool literal) {
        if (!literal) {
            found.count += mark == '@' || mark == '&' ? 1 : 0;
            found.leftToRight = found.leftToRight || mark == '!';
            found.upper = found.upper || mark == '>';
            found.lower = found.lower || mark == '<';
        }
        return true;
    });
    return found;
}

} // namespace

std::string formatLetters(std::string_view text, std::string_view pattern) {
    const Placeholders placeholders = scan(pattern);
    // A short text fills the placeholders on the right; a long one runs on behind the last.
    std::size_t missing = placeholders.count > text.size() ? placeholders.count - text.size() : 0;
    const std::size_t available = placeholders.count - missing;
    std::size_t used = 0;
    std::string result;
    forEachMark(pattern, [&](char mark, bool literal) {
        const bool place = !literal && (mark == '@' || mark == '&');
        if (literal || (!place && mark != '<' && mark != '>' && mark != '!')) {
            result += mark;
        } else if (place) {
            const bool empty = placeholders.leftToRight ? used == available : missing > 0;
            if (!empty)
                result += text[used++];
            else if (mark == '@')
                result += ' ';
            if (empty && missing > 0)
                --missing;
        }
        return true;
    });
    result += text.substr(used);
    if (placeholders.upper)
        return upperCase(result);
    return placeholders.lower ? lowerCase(result) : result;
}

} // namespace zel::ado
