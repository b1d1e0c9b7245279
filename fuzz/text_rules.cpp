// Whatever a clerk types, no rule crashes, and what comes out has the form that the next rule counts on.
#include "services/text_rules.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "check.h"
#include "forms/text_edit.h"
#include "services/masked_value.h"
#include "services/request_number.h"
#include "services/time_rules.h"

#include <algorithm>
#include <cstdint>

using namespace zel;

namespace {

bool isClockTime(std::string_view text) {
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    return text.size() == 5 && digit(text[0]) && digit(text[1]) && text[2] == ':' && digit(text[3]) && digit(text[4]);
}

void times(std::string_view text) {
    const std::string typed = services::typedTime(text);
    ZEL_HOLDS(typed.empty() || typed.find(':') != std::string::npos);
    if (isClockTime(typed))
        ZEL_HOLDS(services::typedTime(typed) == typed);
    if (const auto rounded = services::quarterHourText(text); rounded && *rounded != "12:00:00 AM") {
        ZEL_HOLDS(isClockTime(*rounded));
        const std::string minutes = rounded->substr(3);
        ZEL_HOLDS(minutes == "00" || minutes == "15" || minutes == "30" || minutes == "45" || *rounded == "00:01");
    }
    (void)services::ConvertAmPm(text);
    (void)services::FormatMaskValue(text, true);
    (void)services::dateForMask(text);
    if (const auto date = services::FormatMaskValue(text); !date.isNull())
        ZEL_HOLDS(services::FormatMaskValue(date) == date);
}

void requestNumbers(std::string_view text) {
    const std::string trimmed = services::TrimRequestNumber(text);
    ZEL_HOLDS(services::TrimRequestNumber(trimmed) == trimmed);
    if (const auto number = services::requestNumber(text))
        ZEL_HOLDS(services::requestNumber(*number) == number);
    for (const char c : text)
        (void)services::requestNumberKey(static_cast<unsigned char>(c), true, "A,C,E,O,");
}

void letters(std::string_view text) {
    for (const int length : {0, 1, 7})
        for (const bool left : {false, true})
            ZEL_HOLDS(forms::utf8::length(services::PadText(text, left, '0', length)) == length);
    const std::string plain = ado::toText(services::StripChars(text));
    ZEL_HOLDS(std::all_of(plain.begin(), plain.end(), [](char c) { return c >= 48 && c <= 122; }));
    const std::string upper = ado::upperCase(text);
    ZEL_HOLDS(upper.size() == text.size() && ado::upperCase(upper) == upper);
    ZEL_HOLDS(ado::lowerCase(text).size() == text.size());
}

void numbers(const std::string& text) {
    if (ado::isNumeric(text))
        (void)ado::toDouble(text);
    (void)ado::numberAtHead(text);
    try {
        const ado::Currency money = ado::toCurrency(text);
        ZEL_HOLDS(ado::toCurrency(money.toText()) == money);
        ZEL_HOLDS(ado::Currency::fromDecimal(money.toFixedText()) == money);
    } catch (const ado::Error&) {
        // no amount, or too large for one
    }
}

void dates(const std::string& text) {
    if (const auto moment = ado::parseDateTime(text)) {
        ZEL_HOLDS(ado::parseIsoText(ado::toIsoText(*moment)) == moment);
        ZEL_HOLDS(ado::toText(*ado::parseDateTime(ado::toText(*moment))) == ado::toText(*moment));
    }
    (void)ado::parseIsoText(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    times(text);
    requestNumbers(text);
    letters(text);
    numbers(text);
    dates(text);
    // The first half as a format of the second, and of values of other kinds.
    const std::string pattern = text.substr(0, size / 2);
    for (const ado::Value& value :
         {ado::Value(text.substr(size / 2)), ado::Value(-1234.567), ado::Value(ado::DateTime(38'537.5625)),
          ado::Value(ado::Currency::fromTicks(-12'345)), ado::Value(true), ado::Value()})
        (void)ado::format(value, pattern);
    return 0;
}
