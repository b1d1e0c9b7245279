#include "ado/convert.h"

#include <array>
#include <charconv>

namespace zel::ado {

namespace {

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// 1 for "July" or "Jul" in any letters, 0 for no month.
int monthNamed(std::string_view word) {
    constexpr std::array<std::string_view, 12> names{"January",   "February", "March",    "April",
                                                     "May",       "June",     "July",     "August",
                                                     "September", "October",  "November", "December"};
    for (std::size_t i = 0; i < names.size(); ++i)
        if (equalIgnoringCase(word, names[i]) || equalIgnoringCase(word, names[i].substr(0, 3)))
            return static_cast<int>(i) + 1;
    return 0;
}

/// Reads a date text from left to right. Each take... moves on only when it succeeds.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) { skipBlanks(); }

    [[nodiscard]] bool atEnd() const noexcept { return rest_.empty(); }
    [[nodiscard]] char peek() const noexcept { return rest_.empty() ? '\0' : rest_.front(); }
    bool skipBlanks() {
        const std::size_t before = rest_.size();
        while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t'))
            rest_.remove_prefix(1);
        return rest_.size() != before;
    }
    bool takeMark(char mark) {
        if (peek() != mark)
            return false;
        rest_.remove_prefix(1);
        return true;
    }
    /// One to four digits. `digits` tells how many there were.
    bool takeNumber(int& number, std::size_t& digits) {
        digits = 0;
        while (digits < rest_.size() && isDigit(rest_[digits]))
            ++digits;
        if (digits == 0 || digits > 4)
            return false;
        std::from_chars(rest_.data(), rest_.data() + digits, number);
        rest_.remove_prefix(digits);
        return true;
    }
    std::string_view takeWord() {
        std::size_t length = 0;
        while (length < rest_.size() && isLetter(rest_[length]))
            ++length;
        const std::string_view word = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return word;
    }
    [[nodiscard]] Scanner ahead() const { return *this; }

private:
    std::string_view rest_;
};

int fullYear(int year, std::size_t digits) {
    if (digits > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

bool setDate(DateParts& parts, int year, int month, int day) {
    parts.year = year;
    parts.month = month;
    parts.day = day;
    return isValidDate(year, month, day);
}

/// "7/4/2005", "7-4-05", "2005-07-04".
bool takeNumericDate(Scanner& scan, DateParts& parts) {
    std::array<int, 3> numbers{};
    std::array<std::size_t, 3> digits{};
    const auto takeField = [&](std::size_t field) { return scan.takeNumber(numbers[field], digits[field]); };
    if (!takeField(0))
        return false;
    const char mark = scan.peek();
    if ((mark != '/' && mark != '-') || !scan.takeMark(mark) || !takeField(1) || !scan.takeMark(mark) || !takeField(2))
        return false;
    if (digits[0] == 4)
        return digits[1] <= 2 && digits[2] <= 2 && setDate(parts, numbers[0], numbers[1], numbers[2]);
    return digits[0] <= 2 && digits[1] <= 2 && setDate(parts, fullYear(numbers[2], digits[2]), numbers[0], numbers[1]);
}

void skipDateMarks(Scanner& scan) {
    scan.skipBlanks();
    if (scan.takeMark(',') || scan.takeMark('-') || scan.takeMark('.'))
        scan.skipBlanks();
}

/// "July 4, 2005", "4 Jul 2005", "4-Jul-05".
bool takeNamedDate(Scanner& scan, DateParts& parts) {
    int day = 0;
    int year = 0;
    std::size_t digits = 0;
    const bool dayFirst = scan.takeNumber(day, digits);
    if (dayFirst)
        skipDateMarks(scan);
    const int month = monthNamed(scan.takeWord());
    if (month == 0)
        return false;
    skipDateMarks(scan);
    if (!dayFirst) {
        if (!scan.takeNumber(day, digits))
            return false;
        skipDateMarks(scan);
    }
    return scan.takeNumber(year, digits) && setDate(parts, fullYear(year, digits), month, day);
}

/// AM or PM behind a time. False when the hour does not go with it.
bool applyHalfOfDay(Scanner& scan, int& hour, bool& found) {
    Scanner look = scan.ahead();
    look.skipBlanks();
    const std::string_view word = look.takeWord();
    const bool afternoon = equalIgnoringCase(word, "PM");
    found = afternoon || equalIgnoringCase(word, "AM");
    if (!found)
        return true;
    scan = look;
    if (hour > 12)
        return false;
    hour = hour % 12 + (afternoon ? 12 : 0);
    return true;
}

/// "13:30", "1:30:15 PM", "1 PM".
bool takeTime(Scanner& scan, DateParts& parts) {
    std::size_t digits = 0;
    const auto takeTwo = [&](int& number) { return scan.takeNumber(number, digits) && digits <= 2; };
    if (!takeTwo(parts.hour))
        return false;
    const bool minutes = scan.takeMark(':');
    if (minutes && !takeTwo(parts.minute))
        return false;
    if (minutes && scan.takeMark(':') && !takeTwo(parts.second))
        return false;
    bool halfOfDay = false;
    return applyHalfOfDay(scan, parts.hour, halfOfDay) && (minutes || halfOfDay) && parts.hour < 24 &&
           parts.minute < 60 && parts.second < 60;
}

bool takeDate(Scanner& scan, DateParts& parts) {
    Scanner numeric = scan.ahead();
    if (takeNumericDate(numeric, parts)) {
        scan = numeric;
        return true;
    }
    return takeNamedDate(scan, parts);
}

/// The number in `count` digits at `text`, or -1.
int fixedNumber(const char* text, int count) noexcept {
    int number = 0;
    for (int i = 0; i < count; ++i) {
        if (!isDigit(text[i]))
            return -1;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

void printFixed(char* text, int number, int count) noexcept {
    for (int i = count - 1; i >= 0; --i, number /= 10)
        text[i] = static_cast<char>('0' + number % 10);
}

/// ".123456" as a part of a second; -1 for anything else.
double secondFraction(std::string_view text) noexcept {
    if (text.size() < 2 || text.front() != '.')
        return -1.0;
    double scale = 0.1;
    double fraction = 0.0;
    for (const char c : text.substr(1)) {
        if (!isDigit(c))
            return -1.0;
        fraction += (c - '0') * scale;
        scale /= 10;
    }
    return fraction;
}

} // namespace

std::optional<DateTime> parseDateTime(std::string_view text) {
    DateParts parts;
    Scanner scan(text);
    Scanner timeOnly = scan.ahead();
    if (takeTime(timeOnly, parts)) {
        timeOnly.skipBlanks();
        if (timeOnly.atEnd())
            return DateTime::fromParts(parts);
    }
    parts = DateParts{};
    if (!takeDate(scan, parts))
        return std::nullopt;
    const bool parted = scan.skipBlanks() || scan.takeMark('T');
    if (!scan.atEnd() && (!parted || !takeTime(scan, parts)))
        return std::nullopt;
    scan.skipBlanks();
    if (!scan.atEnd())
        return std::nullopt;
    return DateTime::fromParts(parts);
}

std::string toIsoText(DateTime moment) {
    const DateParts parts = moment.parts();
    std::string text = "0000-00-00 00:00:00";
    printFixed(text.data(), parts.year, 4);
    printFixed(text.data() + 5, parts.month, 2);
    printFixed(text.data() + 8, parts.day, 2);
    printFixed(text.data() + 11, parts.hour, 2);
    printFixed(text.data() + 14, parts.minute, 2);
    printFixed(text.data() + 17, parts.second, 2);
    return text;
}

std::optional<DateTime> parseIsoText(std::string_view text) {
    constexpr std::size_t dateLength = 10;
    constexpr std::size_t momentLength = 19;
    const char* at = text.data();
    if (text.size() < dateLength || at[4] != '-' || at[7] != '-')
        return std::nullopt;
    const int year = fixedNumber(at, 4);
    const int month = fixedNumber(at + 5, 2);
    const int day = fixedNumber(at + 8, 2);
    if (!isValidDate(year, month, day))
        return std::nullopt;
    const double serial = DateTime::fromDate(year, month, day).serial();
    if (text.size() == dateLength)
        return DateTime(serial);
    if (text.size() < momentLength || (at[10] != ' ' && at[10] != 'T') || at[13] != ':' || at[16] != ':')
        return std::nullopt;
    const int hour = fixedNumber(at + 11, 2);
    const int minute = fixedNumber(at + 14, 2);
    const int second = fixedNumber(at + 17, 2);
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return std::nullopt;
    double time = DateTime::fromTime(hour, minute, second).serial();
    if (text.size() > momentLength) {
        const double fraction = secondFraction(text.substr(momentLength));
        if (fraction < 0)
            return std::nullopt;
        time += fraction / 86'400.0;
    }
    return DateTime(serial < 0 ? serial - time : serial + time);
}

} // namespace zel::ado
