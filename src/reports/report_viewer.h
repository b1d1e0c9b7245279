#pragma once

#include "forms/control.h"
#include "printing/find_text.h"
#include "printing/layout.h"
#include "printing/pages.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::reports {

/// The control that shows the pages of one report. It knows which page is looked at, how large, and what is searched
/// for; who draws it draws the pages that can be seen.
class ReportViewer final : public forms::Control {
public:
    static constexpr int fullZoom = 100, smallestZoom = 25, largestZoom = 400;

    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "CRViewer"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }

    /// Shows these pages, the first in front, at 100 percent.
    void ViewReport(printing::Layout layout, std::vector<printing::Page> pages);
    [[nodiscard]] const printing::Layout& layout() const noexcept { return layout_; }
    [[nodiscard]] const std::vector<printing::Page>& pages() const noexcept { return pages_; }

    /// The page in front, from 0.
    [[nodiscard]] std::size_t currentPage() const noexcept { return page_; }
    /// A page that is not there changes nothing.
    void goTo(std::size_t page);
    [[nodiscard]] int Zoom() const noexcept { return zoom_; }
    /// Percent; what is too small or too large becomes the nearest that is not.
    void setZoom(int percent);

    /// Goes to the next place of the text, or the one before; a new text is looked for from the page in front on. False
    /// when it is nowhere.
    bool Find(std::string_view text, bool backwards = false);
    /// What was searched last, and the place of it in front.
    [[nodiscard]] const std::string& searched() const noexcept { return searched_; }
    [[nodiscard]] const std::optional<printing::FoundText>& found() const noexcept { return found_; }

    [[nodiscard]] std::optional<forms::Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Page"; }

private:
    [[nodiscard]] printing::FoundText searchStart(std::string_view text) const;

    printing::Layout layout_;
    std::vector<printing::Page> pages_;
    std::size_t page_ = 0;
    int zoom_ = fullZoom;
    std::string searched_;
    std::optional<printing::FoundText> found_;
};

} // namespace zel::reports
