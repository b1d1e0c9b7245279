#include "runner/words.h"

#include "runner/command_error.h"

#include <utility>

namespace zel::runner {

namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";

bool isBlank(char c) {
    return blanks.find(c) != std::string_view::npos;
}

class Splitter {
public:
    Splitter(std::string_view text, bool semicolons) : text_(text), semicolons_(semicolons) {}

    std::vector<Words> run() {
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (isBlank(c)) {
                endWord();
            } else if (c == '#' && !inWord_) {
                break;
            } else if (c == ';' && semicolons_) {
                endWord();
                commands_.emplace_back();
            } else {
                takePiece(c);
            }
            ++at_;
        }
        endWord();
        return std::move(commands_);
    }

private:
    void takePiece(char c) {
        inWord_ = true;
        if (c == '\'') {
            takeSingleQuoted();
        } else if (c == '"') {
            takeDoubleQuoted();
        } else if (c == '\\') {
            if (++at_ == text_.size())
                throw CommandError("a backslash with nothing behind it");
            word_ += text_[at_];
        } else {
            word_ += c;
        }
    }

    void takeSingleQuoted() {
        const auto end = text_.find('\'', at_ + 1);
        if (end == std::string_view::npos)
            throw CommandError("a quote (') without its end");
        word_ += text_.substr(at_ + 1, end - at_ - 1);
        at_ = end;
    }

    void takeDoubleQuoted() {
        while (++at_ < text_.size() && text_[at_] != '"') {
            const bool escaped =
                text_[at_] == '\\' && at_ + 1 < text_.size() && (text_[at_ + 1] == '"' || text_[at_ + 1] == '\\');
            if (escaped)
                ++at_;
            word_ += text_[at_];
        }
        if (at_ == text_.size())
            throw CommandError("a quote (\") without its end");
    }

    void endWord() {
        if (inWord_)
            commands_.back().push_back(std::exchange(word_, {}));
        inWord_ = false;
    }

    std::string_view text_;
    bool semicolons_;
    std::size_t at_ = 0;
    bool inWord_ = false;
    std::string word_;
    std::vector<Words> commands_ = std::vector<Words>(1);
};

} // namespace

Words splitWords(std::string_view line) {
    return Splitter(line, false).run().front();
}

std::vector<Words> splitCommands(std::string_view line) {
    auto commands = Splitter(line, true).run();
    std::erase_if(commands, [](const Words& words) { return words.empty(); });
    return commands;
}

std::string quoteWord(std::string_view word) {
    std::string quoted = "'";
    for (const char c : word) {
        if (c == '\'')
            quoted += "'\\''";
        else
            quoted += c;
    }
    return quoted + "'";
}

} // namespace zel::runner
