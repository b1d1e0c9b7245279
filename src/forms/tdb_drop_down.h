#pragma once

#include "forms/row_list.h"

namespace zel::forms {

/// The list that a grid column pulls down in its cells (GridColumn::setDropDown). What is chosen goes into the cell as
/// the value of the data field; the cell shows the list field where ValueTranslate is on.
class TDBDropDown : public Control, public RowList {
public:
    TDBDropDown(Place place, std::string name, int index = noIndex)
        : Control(place, std::move(name), index), RowList(static_cast<Control&>(*this)) {}
    [[nodiscard]] std::string_view typeName() const noexcept override { return "TDBDropDown"; }

    /// The field that is written into the cell; the list field when empty.
    [[nodiscard]] const std::string& DataField() const noexcept { return dataField_; }
    void setDataField(std::string field) { dataField_ = std::move(field); }
    [[nodiscard]] bool ValueTranslate() const noexcept { return valueTranslate_; }
    void setValueTranslate(bool on) { valueTranslate_ = on; }
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Text"; }

    /// Makes the row that reads so, or whose data field does, the chosen one; none when there is no such row. A row
    /// that is chosen already and reads so stays, since two rows can read the same.
    void standOn(std::string_view text);

protected:
    [[nodiscard]] bool followsSource() const noexcept override { return false; }

private:
    std::string dataField_;
    bool valueTranslate_ = false;
};

} // namespace zel::forms
