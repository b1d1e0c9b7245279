// Columns of a grid, and what its cells hold and show.
#include "ado/convert.h"
#include "ado/format.h"
#include "forms/mask.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"
#include "forms/utf8.h"

#include <utility>

namespace zel::forms {

GridColumn& TDBGrid::addColumn(std::string caption, std::string dataField) {
    if (std::exchange(ownColumns_, false))
        columns_.clear(); // in silence: who is told looks at the columns, and would have them made anew
    columns_.emplace_back(*this, static_cast<int>(columns_.size()), std::move(caption), std::move(dataField));
    columnsChanged();
    return columns_.back();
}

GridColumn& TDBGrid::addUnboundColumn(std::string caption) {
    return addColumn(std::move(caption), {});
}

void TDBGrid::removeColumns() {
    columns_.clear();
    ownColumns_ = false;
    columnsChanged();
}

void TDBGrid::ensureColumns() {
    if (!columns_.empty() || !source_)
        return;
    ownColumns_ = true;
    for (int column = 0; column < source_->columnCount(); ++column)
        columns_.emplace_back(*this, column, source_->columnName(column), source_->columnName(column));
}

void TDBGrid::renewColumns() {
    if (!ownColumns_ || !source_ || source_->columnCount() == 0)
        return;
    bool same = source_->columnCount() == static_cast<int>(columns_.size());
    for (const GridColumn& column : columns_)
        same = same && source_->columnName(column.ColIndex()) == column.DataField();
    if (!same)
        removeColumns();
}

int TDBGrid::columnCount() {
    ensureColumns();
    return static_cast<int>(columns_.size());
}

GridColumn& TDBGrid::Columns(int index) {
    ensureColumns();
    if (index < 0 || index >= static_cast<int>(columns_.size()))
        throw ado::Error(ado::ErrorKind::State, ado::errors::itemNotFound, "Invalid column index");
    return columns_[index];
}

GridColumn& TDBGrid::Columns(std::string_view captionOrField) {
    ensureColumns();
    const int index = namedColumn(captionOrField);
    if (index < 0) {
        throw ado::Error(ado::ErrorKind::State, ado::errors::itemNotFound,
                         "Invalid column: " + std::string(captionOrField));
    }
    return columns_[index];
}

int TDBGrid::columnIndex(std::string_view captionOrField) {
    ensureColumns();
    return namedColumn(captionOrField);
}

int TDBGrid::namedColumn(std::string_view captionOrField) const noexcept {
    for (const GridColumn& column : columns_) {
        if (ado::equalIgnoringCase(column.Caption(), captionOrField))
            return column.ColIndex();
    }
    for (const GridColumn& column : columns_) {
        if (!column.DataField().empty() && ado::equalIgnoringCase(column.DataField(), captionOrField))
            return column.ColIndex();
    }
    return -1;
}

int TDBGrid::sourceColumn(const GridColumn& column) const {
    if (!source_)
        return -1;
    if (ownColumns_)
        return column.ColIndex();
    if (column.DataField().empty())
        return -1;
    const int named = source_->columnIndex(column.DataField());
    if (named >= 0 || source_->array() == nullptr)
        return named;
    // A list in memory without names is taken column by column.
    return source_->array()->columnNames().empty() && column.ColIndex() < source_->columnCount() ? column.ColIndex()
                                                                                                 : -1;
}

std::int64_t TDBGrid::rowCount() const {
    return source_ ? source_->rowCount() : 0;
}

Value TDBGrid::storedValue(std::int64_t row, int column) const {
    if (row < 0 || row >= rowCount())
        return {};
    const GridColumn& shown = columns_.at(column);
    if (shown.DataField().empty() && !ownColumns_) {
        Value value;
        raise(UnboundColumnFetch, source_->bookmarkAt(row), column, value);
        return value;
    }
    const int field = sourceColumn(shown);
    return field < 0 ? Value() : source_->cell(row, field);
}

Value TDBGrid::cellValue(std::int64_t row, int column) {
    ensureColumns();
    if (row == this->row())
        return currentValue(column);
    return storedValue(row, column);
}

std::string TDBGrid::cellText(std::int64_t row, int column) {
    const Value value = cellValue(row, column);
    return shownText(value, columns_.at(column));
}

Value TDBGrid::currentValue(int column) const {
    if (typed_ && column == editing_)
        return *typed_;
    if (auto edit = edits_.find(column); edit != edits_.end())
        return edit->second;
    return storedValue(row(), column);
}

std::string TDBGrid::currentText(int column) const {
    return shownText(currentValue(column), columns_.at(column));
}

std::string TDBGrid::shownText(const Value& value, const GridColumn& column) const {
    const std::string plain = ado::toText(value);
    if (auto display = column.ValueItems.displayOf(plain))
        return *display;
    if (const TDBDropDown* list = column.DropDown(); list != nullptr && list->ValueTranslate() && !plain.empty()) {
        const auto row = list->findText(plain, list->DataField());
        if (row >= 0)
            return list->listText(row);
    }
    return column.NumberFormat().empty() ? plain : ado::format(value, column.NumberFormat());
}

Value TDBGrid::typedValue(const std::string& text, const GridColumn& column) const {
    if (auto value = column.ValueItems.valueOf(text))
        return {*value};
    if (const TDBDropDown* list = column.DropDown(); list != nullptr && list->ValueTranslate()) {
        const auto row = list->findText(text);
        if (row >= 0)
            return list->fieldValue(row, list->DataField());
    }
    return {text};
}

std::string TDBGrid::fittedText(const std::string& text, const GridColumn& column) {
    constexpr char32_t prompt = U'_';
    std::string fitted = text;
    if (!column.EditMask().empty()) {
        // A text that does not fill the mask stands as typed; the screen's own check says what is wrong with it.
        const auto laid = Mask(column.EditMask()).lay(utf8::decode(text), prompt);
        if (laid && laid->find(prompt) == std::u32string::npos)
            fitted = utf8::encode(*laid);
    }
    if (column.DataWidth() > 0)
        fitted.resize(utf8::offset(fitted, column.DataWidth()));
    return fitted;
}

RowStyle TDBGrid::rowStyle(std::int64_t row) const {
    RowStyle style;
    if (row >= 0 && row < rowCount())
        raise(FetchRowStyle, source_->bookmarkAt(row), style);
    return style;
}

std::string TDBGrid::whyLocked(std::int64_t row, int column) const {
    const GridColumn& cell = columns_.at(column);
    if (row == noRow)
        return Name() + " has no current row";
    if (row == newRow ? !AllowAddNew : !AllowUpdate)
        return fullName() + (row == newRow ? " takes no new rows" : " is locked");
    if (cell.Locked())
        return "column " + cell.Caption() + " of " + fullName() + " is locked";
    if (rowStyle(row).locked)
        return "row " + std::to_string(row + 1) + " of " + fullName() + " is locked";
    return {};
}

void TDBGrid::writeCell(int column, const Value& value) {
    if (typed_ && column == editing_)
        typed_ = value;
    else if (row() != noRow)
        edits_[column] = value;
    notify(Property::Items);
}

} // namespace zel::forms
