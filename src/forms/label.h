#pragma once

#include "forms/control.h"

namespace zel::forms {

/// A control whose face is a caption; "&" marks the access key, "&&" stands for the sign.
class Captioned : public Control {
public:
    using Control::Control;
    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] bool FontBold() const noexcept { return bold_; }
    void setFontBold(bool bold);
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Caption"; }

private:
    std::string caption_;
    bool bold_ = false;
};

/// Text beside a field; some labels are clicked.
class Label : public Captioned {
public:
    using Captioned::Captioned;
    Label(Place place, std::string name, std::string caption) : Captioned(place, std::move(name)) {
        setCaption(std::move(caption));
    }
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Label"; }
};

/// A group of controls that is shown, hidden and disabled as one.
class Frame : public Captioned {
public:
    using Captioned::Captioned;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Frame"; }
};

/// A group without a border, as on the pages of a tab strip.
class vsElastic : public Captioned {
public:
    using Captioned::Captioned;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "vsElastic"; }
};

} // namespace zel::forms
