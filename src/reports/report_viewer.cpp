#include "reports/report_viewer.h"

#include "ado/convert.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace zel::reports {

using forms::Property;

void ReportViewer::ViewReport(printing::Layout layout, std::vector<printing::Page> pages) {
    layout_ = std::move(layout);
    pages_ = std::move(pages);
    page_ = 0;
    zoom_ = fullZoom;
    searched_.clear();
    found_.reset();
    notify(Property::Items);
}

void ReportViewer::goTo(std::size_t page) {
    if (page >= pages_.size())
        return;
    page_ = page;
    notify(Property::Page);
}

void ReportViewer::setZoom(int percent) {
    zoom_ = std::clamp(percent, smallestZoom, largestZoom);
    notify(Property::Look);
}

printing::FoundText ReportViewer::searchStart(std::string_view text) const {
    // Nothing is as long as this, so that it stands before the first letter there.
    if (!found_ || found_->page != page_)
        return {page_, 0, 0, 0};
    // A word that is still being typed stays where its beginning was found.
    return ado::equalIgnoringCase(text, searched_) ? *found_
                                                   : printing::FoundText{page_, found_->mark, found_->first, 0};
}

bool ReportViewer::Find(std::string_view text, bool backwards) {
    const printing::FoundText start = searchStart(text);
    searched_ = text;
    found_ = printing::findText(pages_, text, start, backwards);
    if (found_)
        page_ = found_->page;
    notify(Property::Selection);
    return found_.has_value();
}

std::optional<forms::Value> ReportViewer::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Page"))
        return forms::Value(static_cast<std::int32_t>(pages_.empty() ? 0 : page_ + 1));
    if (ado::equalIgnoringCase(name, "Pages"))
        return forms::Value(static_cast<std::int32_t>(pages_.size()));
    if (ado::equalIgnoringCase(name, "Zoom"))
        return forms::Value(static_cast<std::int32_t>(zoom_));
    return Control::property(name);
}

} // namespace zel::reports
