// Whatever a settings file holds: writing one value changes that value and nothing else, or nothing at all.
#include "platform/profile_file.h"

#include "check.h"

#include <algorithm>
#include <cstdint>

using namespace zel::platform;

namespace {

/// One file, held in memory.
class OneFile final : public Files {
public:
    explicit OneFile(std::string bytes) : bytes_(std::move(bytes)) {}
    [[nodiscard]] bool fileExists(const std::string&) const override { return true; }
    [[nodiscard]] bool folderExists(const std::string&) const override { return true; }
    [[nodiscard]] std::string actualPath(const std::string& path) const override { return path; }
    [[nodiscard]] std::optional<std::string> read(const std::string&) const override { return bytes_; }
    void write(const std::string&, std::string_view bytes) override { bytes_ = bytes; }
    void append(const std::string&, std::string_view bytes) override { bytes_ += bytes; }
    void makeFolder(const std::string&) override {}
    [[nodiscard]] std::vector<std::string> list(const std::string&, std::string_view) const override { return {}; }
    [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }

private:
    std::string bytes_;
};

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines{""};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n"))
            lines.emplace_back();
        else if (text[i] != '\r')
            lines.back() += text[i];
    }
    if (lines.back().empty())
        lines.pop_back();
    return lines;
}

/// One line changed, or one key and at most its section came in.
void onlyOneLineDiffers(std::string_view before, std::string_view after) {
    const auto old = linesOf(before);
    const auto now = linesOf(after);
    const auto head = std::mismatch(old.begin(), old.end(), now.begin(), now.end());
    const auto oldRest = static_cast<std::size_t>(old.end() - head.first);
    const auto nowRest = static_cast<std::size_t>(now.end() - head.second);
    std::size_t tail = 0;
    while (tail < std::min(oldRest, nowRest) && old[old.size() - 1 - tail] == now[now.size() - 1 - tail])
        ++tail;
    ZEL_HOLDS(oldRest - tail <= 1);
    ZEL_HOLDS(nowRest - tail <= 2);
}

void writeAndReadBack(const std::string& content, const std::string& value) {
    OneFile file(content);
    const std::string other = readProfile(file, "zel.ini", "MRU", "Count", "absent");
    try {
        writeProfile(file, "zel.ini", "ZEL", "Server", value);
    } catch (const FileError&) {
        ZEL_HOLDS(file.bytes() == content);
        return;
    }
    onlyOneLineDiffers(content, file.bytes());
    ZEL_HOLDS(readProfile(file, "zel.ini", "MRU", "Count", "absent") == other);
    const std::string once = file.bytes();
    writeProfile(file, "zel.ini", "ZEL", "Server", value);
    ZEL_HOLDS(file.bytes() == once);
}

void writingBackWhatWasReadLosesNothing(const std::string& content) {
    OneFile file(content);
    const std::string whole = profileValue(content, "ZEL", "Server", "absent");
    const std::string read = readProfile(file, "zel.ini", "ZEL", "Server", "absent", 16);
    ZEL_HOLDS(read.size() <= 15 * 4);
    if (whole == "absent")
        return;
    try {
        writeProfile(file, "zel.ini", "ZEL", "Server", read, 16);
    } catch (const FileError&) {
        return;
    }
    ZEL_HOLDS(profileValue(file.bytes(), "ZEL", "Server", "absent") == whole);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = input.find('|');
    const std::string content = input.substr(0, split);
    writeAndReadBack(content, split == std::string::npos ? "HOST09" : input.substr(split + 1));
    writingBackWhatWasReadLosesNothing(content);
    return 0;
}
