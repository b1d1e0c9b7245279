#include "ado/convert.h"
#include "ado/format_kinds.h"

namespace zel::ado {

namespace {

std::string padded(int number, std::size_t width) {
    std::string text = std::to_string(number);
    if (text.size() < width)
        text.insert(0, width - text.size(), '0');
    return text;
}

constexpr char lowered(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Writes a moment along its pattern, from left to right.
class Writer {
public:
    Writer(DateTime moment, std::string_view pattern)
        : parts_(moment.parts()), rest_(pattern), twelveHours_(lowerCase(pattern).find("am/pm") != std::string::npos) {}

    std::string run() {
        while (!rest_.empty())
            step();
        return std::move(text_);
    }

private:
    void step() {
        const char mark = lowered(rest_.front());
        if (equalIgnoringCase(rest_.substr(0, 5), "am/pm")) {
            const bool small = rest_.front() == 'a';
            text_ += parts_.hour < 12 ? (small ? "am" : "AM") : (small ? "pm" : "PM");
            rest_.remove_prefix(5);
        } else if (rest_.front() == '\\' && rest_.size() > 1) {
            text_ += rest_[1];
            rest_.remove_prefix(2);
        } else if (rest_.front() == '"') {
            quoted();
        } else if (std::string_view("dmyhns").find(mark) != std::string_view::npos) {
            field(mark);
        } else {
            text_ += rest_.front();
            rest_.remove_prefix(1);
        }
    }

    void quoted() {
        const std::size_t end = rest_.find('"', 1);
        text_ += rest_.substr(1, end == std::string_view::npos ? end : end - 1);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    }

    void field(char mark) {
        std::size_t width = 0;
        while (width < rest_.size() && lowered(rest_[width]) == mark)
            ++width;
        rest_.remove_prefix(width);
        const bool minutes = mark == 'n' || (mark == 'm' && behindHour_);
        behindHour_ = mark == 'h';
        text_ += number(mark, minutes, width);
    }

    [[nodiscard]] std::string number(char mark, bool minutes, std::size_t width) const {
        if (minutes)
            return padded(parts_.minute, width);
        switch (mark) {
        case 'd':
            return padded(parts_.day, width);
        case 'm':
            return padded(parts_.month, width);
        case 'y':
            return width <= 2 ? padded(parts_.year % 100, 2) : padded(parts_.year, 4);
        case 'h':
            return padded(twelveHours_ ? (parts_.hour + 11) % 12 + 1 : parts_.hour, width);
        default:
            return padded(parts_.second, width);
        }
    }

    DateParts parts_;
    std::string_view rest_;
    bool twelveHours_;
    bool behindHour_ = false;
    std::string text_;
};

} // namespace

std::string formatMoment(DateTime moment, std::string_view pattern) {
    return Writer(moment, pattern).run();
}

} // namespace zel::ado
