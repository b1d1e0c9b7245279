#include "ado/format_kinds.h"

#include <array>

namespace zel::ado {

namespace {

/// One section of a number format, looked through before it is written.
struct Section {
    std::string_view pattern;
    int integerPlaces = 0; ///< 0 and # before the point
    int leastDigits = 0;   ///< from the first 0 to the point
    int places = 0;        ///< 0 and # behind the point
    int leastPlaces = 0;   ///< up to the last 0 behind the point
    bool thousands = false;
    bool percent = false;
};

Section scan(std::string_view pattern) {
    Section section{.pattern = pattern};
    bool behindPoint = false;
    forEachMark(pattern, [&](char mark, bool literal) {
        if (literal)
            return true;
        if (mark == '.') {
            behindPoint = true;
        } else if (mark == ',') {
            section.thousands = true;
        } else if (mark == '%') {
            section.percent = true;
        } else if ((mark == '0' || mark == '#') && behindPoint) {
            ++section.places;
            if (mark == '0')
                section.leastPlaces = section.places;
        } else if (mark == '0' || mark == '#') {
            ++section.integerPlaces;
            if (mark == '0' || section.leastDigits > 0)
                ++section.leastDigits;
        }
        return true;
    });
    return section;
}

std::array<std::string_view, 3> sectionsOf(std::string_view pattern) {
    std::array<std::string_view, 3> sections{};
    std::size_t index = 0, begin = 0, at = 0;
    bool quoted = false;
    for (; at < pattern.size(); ++at) {
        if (pattern[at] == '"')
            quoted = !quoted;
        else if (pattern[at] == '\\' && !quoted)
            ++at;
        else if (pattern[at] == ';' && !quoted && index < 2) {
            sections[index++] = pattern.substr(begin, at - begin);
            begin = at + 1;
        }
    }
    sections[index] = pattern.substr(begin);
    return sections;
}

std::string writeSection(Decimal number, const Section& section) {
    number = number.rounded(section.places);
    std::string digits = number.integerDigits();
    if (const auto least = static_cast<std::size_t>(section.leastDigits); digits.size() < least)
        digits.insert(0, least - digits.size(), '0');
    std::string fraction = number.fractionDigits(section.places);
    while (fraction.size() > static_cast<std::size_t>(section.leastPlaces) && fraction.back() == '0')
        fraction.pop_back();

    std::string text;
    auto placesLeft = static_cast<std::size_t>(section.integerPlaces);
    std::size_t written = 0, fractionWritten = 0;
    bool behindPoint = false;
    // Digits go to the places from the right; those beyond the first place are written with it.
    const auto writeInteger = [&] {
        --placesLeft;
        while (digits.size() - written > placesLeft) {
            text += digits[written++];
            const std::size_t left = digits.size() - written;
            if (section.thousands && left > 0 && left % 3 == 0)
                text += ',';
        }
    };
    forEachMark(section.pattern, [&](char mark, bool literal) {
        if (!literal && mark == '.') {
            behindPoint = true;
            if (section.integerPlaces == 0)
                text += digits;
            text += '.';
        } else if (!literal && (mark == '0' || mark == '#')) {
            if (!behindPoint)
                writeInteger();
            else if (fractionWritten < fraction.size())
                text += fraction[fractionWritten++];
        } else if (literal || mark != ',') {
            text += mark;
        }
        return true;
    });
    return text;
}

} // namespace

std::string formatNumber(const Decimal& number, std::string_view pattern) {
    const auto sections = sectionsOf(pattern);
    const auto prepared = [&](const Section& section) {
        Decimal amount = number;
        amount.negative = false;
        if (section.percent && !amount.isZero())
            amount.point += 2;
        return amount;
    };
    const Section positive = scan(sections[0]);
    // What rounds to nothing is nothing: no "-0.00" and no "($0.00)".
    const bool zero = prepared(positive).rounded(positive.places).isZero();
    if (zero && !sections[2].empty())
        return writeSection(Decimal{}, scan(sections[2]));
    if (number.negative && !zero && !sections[1].empty()) {
        const Section negative = scan(sections[1]);
        return writeSection(prepared(negative), negative);
    }
    return (number.negative && !zero ? "-" : "") + writeSection(prepared(positive), positive);
}

} // namespace zel::ado
