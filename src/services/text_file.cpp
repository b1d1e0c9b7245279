#include "services/text_file.h"

#include "platform/files.h"

namespace zel::services {

std::string ReadTextFile(const platform::Files& files, const std::string& path) {
    const std::string bytes = files.read(path).value_or(std::string());
    std::string text;
    for (std::size_t from = 0; from < bytes.size();) {
        const std::size_t feed = std::min(bytes.find('\n', from), bytes.size());
        std::size_t end = feed;
        if (end > from && bytes[end - 1] == '\r')
            --end;
        text.append("\r\n").append(bytes, from, end - from);
        from = feed + 1;
    }
    return text;
}

} // namespace zel::services
