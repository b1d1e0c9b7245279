#pragma once

#include "core/screen.h"
#include "printing/pages.h"
#include "reports/modRpt.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::reports {

/// The viewer: the pages of one report. Who draws it gives the pages the whole client area of the window.
class frmViewRpt : public core::DialogWindow {
public:
    explicit frmViewRpt(core::Session& state) : DialogWindow(state, "frmViewRpt") {}

    /// Makes the pages of the report that is ready and shows them from the first on, at 100 percent.
    void ShowReport(modRpt& report, const std::string& title, bool flag);

    [[nodiscard]] const printing::Layout& layout() const noexcept { return layout_; }
    [[nodiscard]] const std::vector<printing::Page>& pages() const noexcept { return pages_; }
    [[nodiscard]] int Zoom() const noexcept { return zoom_; }
    /// The display option that the caller asked for.
    [[nodiscard]] bool flag() const noexcept { return flag_; }
    /// From 0; nothing when there are no pages yet.
    [[nodiscard]] std::size_t page() const noexcept { return page_; }
    /// A page that is not there changes nothing.
    void goTo(std::size_t page);
    /// The next page from `from` on that holds the text, letters' case aside.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view text, std::size_t from = 0) const;

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    printing::Layout layout_;
    std::vector<printing::Page> pages_;
    std::size_t page_ = 0;
    int zoom_ = 100;
    bool flag_ = false;
};

} // namespace zel::reports
