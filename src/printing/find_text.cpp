#include "printing/find_text.h"

#include "ado/convert.h"

#include <algorithm>
#include <string>

namespace zel::printing {

namespace {

/// `lowered` is in small letters, which have as many bytes as capitals.
std::vector<FoundText> places(const std::vector<Page>& pages, std::size_t page, std::string_view lowered) {
    std::vector<FoundText> found;
    for (std::size_t mark = 0; mark < pages[page].size(); ++mark) {
        const std::string& shown = pages[page][mark].item.text;
        if (shown.size() < lowered.size())
            continue;
        const std::string text = ado::lowerCase(shown);
        for (std::size_t at = text.find(lowered); at != std::string::npos; at = text.find(lowered, at + lowered.size()))
            found.push_back({page, mark, at, lowered.size()});
    }
    return found;
}

/// The place of the page that comes next on the way.
std::optional<FoundText> nextOf(const std::vector<FoundText>& found, const FoundText& from, bool backwards) {
    if (backwards) {
        const auto behind = std::lower_bound(found.begin(), found.end(), from);
        return behind == found.begin() ? std::nullopt : std::optional(*(behind - 1));
    }
    const auto behind = std::upper_bound(found.begin(), found.end(), from);
    return behind == found.end() ? std::nullopt : std::optional(*behind);
}

} // namespace

std::vector<FoundText> textsOnPage(const std::vector<Page>& pages, std::size_t page, std::string_view text) {
    return text.empty() ? std::vector<FoundText>() : places(pages, page, ado::lowerCase(text));
}

std::optional<FoundText> findText(const std::vector<Page>& pages, std::string_view text, const FoundText& from,
                                  bool backwards) {
    if (text.empty() || from.page >= pages.size())
        return std::nullopt;
    const std::string lowered = ado::lowerCase(text);
    if (const auto near = nextOf(places(pages, from.page, lowered), from, backwards))
        return near;
    for (std::size_t step = 1; step <= pages.size(); ++step) {
        const std::size_t away = backwards ? pages.size() - step : step;
        const auto found = places(pages, (from.page + away) % pages.size(), lowered);
        if (!found.empty())
            return backwards ? found.back() : found.front();
    }
    return std::nullopt;
}

} // namespace zel::printing
