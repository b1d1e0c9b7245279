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

    /// Makes the pages of the report that is ready and shows them. Throws ado::Error; an earlier report stays as
    /// it is then.
    void ShowReport(modRpt& report, const std::string& title, bool flag);

    /// The display option that the caller asked for.
    [[nodiscard]] bool flag() const noexcept { return flag_; }

    ReportViewer CRViewer91{*this, "CRViewer91"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    bool flag_ = false;
};

} // namespace zel::reports
