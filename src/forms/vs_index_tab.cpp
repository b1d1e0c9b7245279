#include "forms/vs_index_tab.h"

#include "ado/convert.h"
#include "forms/form.h"
#include "forms/user.h"

namespace zel::forms {

std::string vsIndexTab::Caption() const {
    std::string joined;
    for (const Page& page : pages_) {
        if (&page != &pages_.front())
            joined += '|';
        joined += page.caption;
    }
    return joined;
}

void vsIndexTab::setCaption(std::string_view captions) {
    pages_.clear();
    for (std::size_t bar = 0; bar != std::string_view::npos;) {
        bar = captions.find('|');
        pages_.push_back({std::string(captions.substr(0, bar))});
        captions.remove_prefix(bar == std::string_view::npos ? captions.size() : bar + 1);
    }
    notify(Property::Items);
}

std::string vsIndexTab::TabCaption(int page) const {
    return page < 0 || page >= NumTabs() ? std::string() : pages_[page].caption;
}

void vsIndexTab::setTabCaption(int page, std::string caption) {
    if (page >= NumTabs())
        pages_.resize(page + 1);
    pages_.at(page).caption = std::move(caption);
    notify(Property::Items);
}

bool vsIndexTab::TabEnabled(int page) const {
    return page >= 0 && page < NumTabs() && pages_[page].enabled;
}

void vsIndexTab::setTabEnabled(int page, bool enabled) {
    pages_.at(page).enabled = enabled;
    notify(Property::Items);
    form().dropUnreachableFocus();
}

bool vsIndexTab::TabVisible(int page) const {
    return page >= 0 && page < NumTabs() && pages_[page].visible;
}

void vsIndexTab::setTabVisible(int page, bool visible) {
    pages_.at(page).visible = visible;
    notify(Property::Items);
}

void vsIndexTab::setCurrTab(int page) {
    if (page == current_ || page < 0 || page >= NumTabs())
        return;
    bool cancel = false;
    const int before = current_;
    // What Switch asks for and fills stands on the new page already, as a clerk would see it.
    current_ = page;
    raise(Switch, before, page, cancel);
    if (cancel) {
        current_ = before;
        return;
    }
    notify(Property::Page);
    form().dropUnreachableFocus();
    raise(Click);
}

bool vsIndexTab::takeKey(int key) {
    const int step = key == keys::right ? 1 : -1;
    if (key != keys::right && key != keys::left)
        return false;
    for (int page = current_ + step; page >= 0 && page < NumTabs(); page += step) {
        if (TabEnabled(page) && TabVisible(page)) {
            setCurrTab(page);
            break;
        }
    }
    return true;
}

std::optional<Value> vsIndexTab::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "CurrTab"))
        return Value(current_);
    if (ado::equalIgnoringCase(name, "TabCaption"))
        return Value(TabCaption(current_));
    if (ado::equalIgnoringCase(name, "Caption"))
        return Value(Caption());
    if (ado::equalIgnoringCase(name, "NumTabs"))
        return Value(NumTabs());
    return Control::property(name);
}

} // namespace zel::forms
