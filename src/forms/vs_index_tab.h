#pragma once

#include "forms/control.h"

#include <vector>

namespace zel::forms {

/// A strip of pages, of which one is in front. Controls stand on a page: `MaskEdBox mskPost{tabPosting.onPage(0),
/// ...}`.
class vsIndexTab : public Control {
public:
    using Control::Control;
    vsIndexTab(Place place, std::string name, std::string_view captions) : Control(place, std::move(name)) {
        setCaption(captions);
    }
    [[nodiscard]] std::string_view typeName() const noexcept override { return "vsIndexTab"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }

    [[nodiscard]] Place onPage(int number) { return {*this, number}; }
    /// All captions joined with "|"; setting them makes that many pages.
    [[nodiscard]] std::string Caption() const;
    void setCaption(std::string_view captions);
    [[nodiscard]] int NumTabs() const noexcept { return static_cast<int>(pages_.size()); }
    [[nodiscard]] std::string TabCaption(int page) const;
    /// Pages up to `page` come into being.
    void setTabCaption(int page, std::string caption);
    [[nodiscard]] bool TabEnabled(int page) const;
    void setTabEnabled(int page, bool enabled);
    [[nodiscard]] bool TabVisible(int page) const;
    void setTabVisible(int page, bool visible);

    [[nodiscard]] int CurrTab() const noexcept { return current_; }
    /// Another page raises Switch, which may keep the old one in front, and then Click.
    void setCurrTab(int page);

    [[nodiscard]] bool pageShown(int page) const override { return page == current_; }
    [[nodiscard]] bool pageUsable(int page) const override { return TabEnabled(page); }
    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "CurrTab"; }

    std::function<void(int oldPage, int newPage, bool& cancel)> Switch;

private:
    struct Page {
        std::string caption;
        bool enabled = true, visible = true;
    };
    std::vector<Page> pages_;
    int current_ = 0;
};

} // namespace zel::forms
