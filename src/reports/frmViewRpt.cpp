#include "reports/frmViewRpt.h"

#include "core/session.h"

#include <utility>

namespace zel::reports {

void frmViewRpt::ShowReport(modRpt& report, const std::string& title, bool flag) {
    printing::Layout layout = report.crxReport->parsed();
    std::vector<printing::Page> pages = printing::makePages(layout, report.data(layout));
    CRViewer91.ViewReport(std::move(layout), std::move(pages));
    flag_ = flag;
    setCaption(title + " Report");
    session.DoEvents();
    Show();
}

core::Screen::DumpLines frmViewRpt::dumpLines() const {
    return {{"Pages", std::to_string(CRViewer91.pages().size())},
            {"Page", std::to_string(CRViewer91.pages().empty() ? 0 : CRViewer91.currentPage() + 1)},
            {"Zoom", std::to_string(CRViewer91.Zoom())}};
}

} // namespace zel::reports
