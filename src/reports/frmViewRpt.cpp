#include "reports/frmViewRpt.h"

#include "ado/convert.h"
#include "core/session.h"

namespace zel::reports {

void frmViewRpt::ShowReport(modRpt& report, const std::string& title, bool flag) {
    printing::ReportData data;
    data.main = printing::Rows::of(*report.rsRpt);
    if (report.rsRptSub->State() == ado::stateOpen)
        data.subreport = printing::Rows::of(*report.rsRptSub);
    data.parameters = report.crxReport->parameters;
    layout_ = printing::parseLayout(report.crxReport->text);
    pages_ = printing::makePages(layout_, data);
    page_ = 0;
    flag_ = flag;
    zoom_ = 100;
    setCaption(title + " Report");
    session.DoEvents();
    Show();
}

void frmViewRpt::goTo(std::size_t page) {
    if (page < pages_.size())
        page_ = page;
}

std::optional<std::size_t> frmViewRpt::find(std::string_view text, std::size_t from) const {
    const std::string wanted = ado::lowerCase(text);
    for (std::size_t page = from; page < pages_.size(); ++page) {
        for (const printing::Mark& mark : pages_[page]) {
            if (ado::lowerCase(mark.item.text).find(wanted) != std::string::npos)
                return page;
        }
    }
    return std::nullopt;
}

core::Screen::DumpLines frmViewRpt::dumpLines() const {
    return {{"Pages", std::to_string(pages_.size())},
            {"Page", std::to_string(pages_.empty() ? 0 : page_ + 1)},
            {"Zoom", std::to_string(zoom_)}};
}

} // namespace zel::reports
