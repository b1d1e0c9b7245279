#pragma once

#include "core/screen.h"
#include "reports/modRpt.h"
#include "reports/report_viewer.h"

#include <string>

namespace zel::reports {

/// The window of one report: nothing but the viewer, which has its whole client area.
class frmViewRpt : public core::DialogWindow {
public:
    explicit frmViewRpt(core::Session& state) : DialogWindow(state, "frmViewRpt") {}

    /// Makes the pages of the report that is ready and shows them. Throws printing::LayoutError and ado::Error; an
    /// earlier report stays as it is then.
    void ShowReport(modRpt& report, const std::string& title, bool flag);

    /// The display option that the caller asked for.
    [[nodiscard]] bool flag() const noexcept { return flag_; }
    /// The title of the report, without the word that the caption has behind it.
    [[nodiscard]] const std::string& title() const noexcept { return title_; }

    ReportViewer CRViewer91{*this, "CRViewer91"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    std::string title_;
    bool flag_ = false;
};

} // namespace zel::reports
