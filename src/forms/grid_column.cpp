#include "forms/grid_column.h"

#include "forms/tdb_grid.h"

namespace zel::forms {

GridColumn::GridColumn(TDBGrid& grid, int index, std::string caption, std::string dataField)
    : grid_(grid), index_(index), caption_(std::move(caption)), dataField_(std::move(dataField)) {}

void GridColumn::setCaption(std::string caption) {
    caption_ = std::move(caption);
    grid_.columnsChanged();
}

void GridColumn::setDataField(std::string field) {
    dataField_ = std::move(field);
    grid_.columnsChanged();
}

void GridColumn::setVisible(bool visible) {
    visible_ = visible;
    grid_.columnsChanged();
}

void GridColumn::setWidth(int twips) {
    width_ = twips;
    grid_.columnsChanged();
}

void GridColumn::setLocked(bool locked) {
    locked_ = locked;
    grid_.columnsChanged();
}

void GridColumn::setNumberFormat(std::string format) {
    numberFormat_ = std::move(format);
    grid_.columnsChanged();
}

void GridColumn::setEditMask(std::string mask) {
    editMask_ = std::move(mask);
    grid_.columnsChanged();
}

void GridColumn::setFooterText(std::string text) {
    footerText_ = std::move(text);
    grid_.columnsChanged();
}

void GridColumn::setDropDown(TDBDropDown* list) {
    dropDown_ = list;
    grid_.columnsChanged();
}

Value GridColumn::value() const {
    return grid_.currentValue(index_);
}

std::string GridColumn::Text() const {
    return grid_.currentText(index_);
}

void GridColumn::setValue(const Value& value) {
    grid_.writeCell(index_, value);
}

void GridColumn::setText(const std::string& text) {
    grid_.writeCell(index_, grid_.typedValue(text, *this));
}

std::string GridColumn::cellText(std::int64_t row) const {
    return grid_.cellText(row, index_);
}

} // namespace zel::forms
