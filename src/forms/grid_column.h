#pragma once

#include "forms/value_items.h"

#include <cstdint>
#include <string>

namespace zel::forms {

class TDBDropDown;
class TDBGrid;

/// A column of a grid: how it looks, how it is edited, and its cell in the current row.
class GridColumn {
public:
    GridColumn(TDBGrid& grid, int index, std::string caption, std::string dataField);

    [[nodiscard]] int ColIndex() const noexcept { return index_; }
    [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    /// Empty for an unbound column, see TDBGrid::UnboundColumnFetch.
    [[nodiscard]] const std::string& DataField() const noexcept { return dataField_; }
    void setDataField(std::string field);
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void setVisible(bool visible);
    /// In twips, 1440 to the inch; 0 is not shown.
    [[nodiscard]] int Width() const noexcept { return width_; }
    void setWidth(int twips);
    [[nodiscard]] bool Locked() const noexcept { return locked_; }
    void setLocked(bool locked);
    /// For display: "mm/dd/yyyy", "Currency", "$#,##0.00;($#,##0.00)".
    [[nodiscard]] const std::string& NumberFormat() const noexcept { return numberFormat_; }
    void setNumberFormat(std::string format);
    /// For typing, as in MaskEdBox.
    [[nodiscard]] const std::string& EditMask() const noexcept { return editMask_; }
    void setEditMask(std::string mask);
    [[nodiscard]] int DataWidth() const noexcept { return dataWidth_; }
    /// Characters that can be typed; 0 for any number.
    void setDataWidth(int characters) { dataWidth_ = characters; }
    [[nodiscard]] const std::string& FooterText() const noexcept { return footerText_; }
    void setFooterText(std::string text);
    [[nodiscard]] TDBDropDown* DropDown() const noexcept { return dropDown_; }
    void setDropDown(TDBDropDown* list);
    /// Call TDBGrid::columnsChanged after changing the items, or use SetColumn helpers that do.
    forms::ValueItems ValueItems;
    bool ButtonHeader = false, AllowSizing = true;

    /// The cell of the current row, with what was typed into the row so far. Null without a row.
    [[nodiscard]] Value value() const;
    /// As shown: translated and formatted; inside BeforeColUpdate the text as typed.
    [[nodiscard]] std::string Text() const;
    /// Writes into the row as typing does, but without the column events; the row is saved by Update or on leaving it.
    void setValue(const Value& value);
    void setText(const std::string& text);
    /// As shown, of any row from 0.
    [[nodiscard]] std::string cellText(std::int64_t row) const;

private:
    TDBGrid& grid_;
    int index_;
    std::string caption_, dataField_, numberFormat_, editMask_, footerText_;
    bool visible_ = true, locked_ = false;
    int width_ = 1440, dataWidth_ = 0;
    TDBDropDown* dropDown_ = nullptr;
};

} // namespace zel::forms
