#include "forms/tdb_grid.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "forms/adodc.h"
#include "forms/mask.h"
#include "forms/tdb_drop_down.h"
#include "forms/user.h"
#include "forms/utf8.h"

#include <algorithm>
#include <utility>

namespace zel::forms {

TDBGrid::TDBGrid(Place place, std::string name, int index)
    : Control(place, std::move(name), index), SelBookmarks([this] { notify(Property::Selection); }) {}

void TDBGrid::bind(Adodc& control) {
    setSource(adodcSource(control));
    sourceWatch_ = control.observe([this](Property) { ReBind(); });
}

void TDBGrid::bind(ado::Recordset& records) {
    setSource(recordsetSource(records));
}

void TDBGrid::bind(ValueArray& array) {
    setSource(arraySource(array));
}

void TDBGrid::unbind() {
    setSource(nullptr);
}

void TDBGrid::setSource(std::unique_ptr<RowSource> source) {
    sourceWatch_.end();
    source_ = std::move(source);
    if (ownColumns_)
        removeColumns();
    ReBind();
}

void TDBGrid::ReBind() {
    edits_.clear();
    editing_ = -1;
    typed_.reset();
    onNewRow_ = inserting_ = bof_ = eof_ = false;
    renewColumns();
    SelBookmarks.follow(source_.get());
    notify(Property::Items);
}

void TDBGrid::ReOpen() {
    if (source_ && source_->records() != nullptr)
        source_->records()->Requery();
    ReBind();
}

// Columns

GridColumn& TDBGrid::addColumn(std::string caption, std::string dataField) {
    if (ownColumns_)
        removeColumns();
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

// Cells

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

// Editing

bool TDBGrid::beginEdit(int column) {
    if (!whyLocked(row(), column).empty())
        return false;
    setCol(column);
    bool cancel = false;
    raise(BeforeColEdit, column, cancel);
    if (cancel)
        return false;
    editing_ = column;
    return true;
}

void TDBGrid::cancelEdit() {
    if (std::exchange(editing_, -1) < 0)
        return;
    typed_.reset();
    notify(Property::Items);
}

bool TDBGrid::beginInsert() {
    if (!onNewRow_ || inserting_)
        return true;
    bool cancel = false;
    raise(BeforeInsert, cancel);
    inserting_ = !cancel;
    if (cancel)
        edits_.clear();
    return !cancel;
}

bool TDBGrid::endEdit(const std::string& entered) {
    if (editing_ < 0)
        return false;
    const int column = editing_;
    const std::string text = fittedText(entered, columns_.at(column));
    if (TDBDropDown* list = columns_.at(column).DropDown())
        list->standOn(text);
    if (text == currentText(column)) {
        editing_ = -1;
        raise(AfterColEdit, column);
        return true;
    }
    if (!beginInsert()) {
        cancelEdit();
        return false;
    }
    raise(Change);
    const Value before = currentValue(column);
    typed_ = typedValue(text, columns_.at(column));
    bool cancel = false;
    raise(BeforeColUpdate, column, before, cancel);
    // A handler may have moved to another row, deleted this one, or rebound the grid: then the cell is gone.
    const bool open = editing_ == column && typed_.has_value();
    const Value after = open ? *typed_ : Value();
    editing_ = -1;
    typed_.reset();
    if (open && !cancel) {
        edits_[column] = after;
        notify(Property::Items);
        raise(AfterColUpdate, column);
    }
    notify(Property::Items);
    raise(AfterColEdit, column);
    return open && !cancel;
}

bool TDBGrid::Update() {
    cancelEdit();
    if (!DataChanged())
        return true;
    bool cancel = false;
    raise(BeforeUpdate, cancel);
    if (cancel || !DataChanged())
        return !cancel;
    const bool inserted = inserting_ || onNewRow_;
    try {
        storeRow();
    } catch (const ado::Error& failure) {
        if (!Error)
            throw;
        raise(Error, failure);
        return false;
    }
    edits_.clear();
    inserting_ = onNewRow_ = false;
    notify(Property::Items);
    if (inserted)
        raise(AfterInsert);
    raise(AfterUpdate);
    return true;
}

void TDBGrid::storeRow() {
    if (!source_)
        return;
    if (ado::Recordset* records = source_->records())
        storeInRecords(*records);
    else if (ValueArray* array = source_->array())
        storeInArray(*array);
}

void TDBGrid::storeInRecords(ado::Recordset& records) {
    try {
        if (onNewRow_)
            records.AddNew();
        for (const auto& [column, value] : edits_) {
            if (sourceColumn(columns_[column]) >= 0)
                records.setValue(columns_[column].DataField(), value.isEmpty() ? Value() : value);
        }
        records.Update();
    } catch (const ado::Error&) {
        // The grid keeps what was typed; the record set must not keep half of it.
        records.CancelUpdate();
        throw;
    }
}

void TDBGrid::storeInArray(ValueArray& array) {
    if (onNewRow_) {
        array.addRow({});
        source_->moveTo(array.rows() - 1);
    }
    for (const auto& [column, value] : edits_) {
        if (const int field = sourceColumn(columns_[column]); field >= 0)
            array.set(static_cast<int>(source_->currentRow()), field, value);
    }
}

void TDBGrid::CancelUpdate() {
    cancelEdit();
    edits_.clear();
    inserting_ = onNewRow_ = false;
    notify(Property::Items);
}

bool TDBGrid::Delete() {
    if (onNewRow_) {
        CancelUpdate();
        return true;
    }
    const auto at = row();
    if (at == noRow)
        return false;
    bool cancel = false;
    raise(BeforeDelete, cancel);
    if (cancel)
        return false;
    edits_.clear();
    cancelEdit();
    if (ado::Recordset* records = source_->records()) {
        try {
            records->Delete();
        } catch (const ado::Error& failure) {
            if (!Error)
                throw;
            raise(Error, failure);
            return false;
        }
    } else if (ValueArray* array = source_->array()) {
        array->deleteRow(static_cast<int>(at));
    }
    if (const auto rows = rowCount(); rows > 0)
        source_->moveTo(std::min(at, rows - 1));
    SelBookmarks.follow(source_.get());
    notify(Property::Items);
    raise(AfterDelete);
    return true;
}

// Moving

std::int64_t TDBGrid::row() const {
    if (onNewRow_)
        return newRow;
    return source_ ? source_->currentRow() : noRow;
}

bool TDBGrid::leaveRow() {
    cancelEdit();
    return Update();
}

bool TDBGrid::setRow(std::int64_t target) {
    const auto before = row();
    if (target == before)
        return true;
    if (!source_ || target >= rowCount() || (target == newRow && !AllowAddNew) || target == noRow)
        return false;
    if (!leaveRow())
        return false;
    onNewRow_ = target == newRow;
    if (!onNewRow_ && target < rowCount())
        source_->moveTo(target);
    bof_ = eof_ = false;
    tellMoved(before, col_);
    return true;
}

Bookmark TDBGrid::bookmark() const {
    const auto at = row();
    return at < 0 ? 0 : source_->bookmarkAt(at);
}

bool TDBGrid::setBookmark(Bookmark target) {
    return source_ && setRow(source_->rowOf(target));
}

void TDBGrid::setCol(int column) {
    ensureColumns();
    if (column == col_ || column < 0 || column >= static_cast<int>(columns_.size()))
        return;
    const int before = std::exchange(col_, column);
    tellMoved(row(), before);
}

void TDBGrid::tellMoved(std::int64_t lastRow, int lastColumn) {
    notify(Property::Selection);
    raise(RowColChange, lastRow, lastColumn);
}

std::string TDBGrid::Text() const {
    return col_ < static_cast<int>(columns_.size()) ? currentText(col_) : std::string();
}

void TDBGrid::setText(const std::string& text) {
    Columns(col_).setText(text);
}

bool TDBGrid::MoveFirst() {
    return rowCount() > 0 && setRow(0);
}

bool TDBGrid::MoveLast() {
    return rowCount() > 0 && setRow(rowCount() - 1);
}

bool TDBGrid::MoveNext() {
    return moveBy(1);
}

bool TDBGrid::MovePrevious() {
    return moveBy(-1);
}

bool TDBGrid::moveBy(std::int64_t rows) {
    const auto at = onNewRow_ ? rowCount() : row();
    if (at < 0)
        return false;
    bof_ = at + rows < 0;
    eof_ = at + rows >= rowCount();
    return !bof_ && !eof_ && setRow(at + rows);
}

bool TDBGrid::takeKey(int key) {
    switch (key) {
    case keys::up:
        moveBy(-1);
        return true;
    case keys::down:
        if (!moveBy(1) && eof_)
            setRow(newRow);
        return true;
    case keys::escape:
        if (!DataChanged() && !editing())
            return false;
        CancelUpdate();
        return true;
    case keys::left:
        setCol(col_ - 1);
        return true;
    case keys::right:
    case keys::enter:
        setCol(col_ + 1);
        return true;
    case keys::tab:
        if (col_ + 1 >= static_cast<int>(columns_.size()))
            return false;
        setCol(col_ + 1);
        return true;
    case keys::del:
        if (AllowDelete && SelBookmarks.Count() > 0)
            Delete();
        return true;
    default:
        return false;
    }
}

std::optional<Value> TDBGrid::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("Text"))
        return Value(Text());
    if (is("Row"))
        return Value(row());
    if (is("Col"))
        return Value(col_);
    if (is("Bookmark"))
        return Value(bookmark());
    if (is("RowCount"))
        return Value(rowCount());
    if (is("SelCount"))
        return Value(SelBookmarks.Count());
    if (is("DataChanged"))
        return Value(DataChanged());
    if (is("AllowUpdate"))
        return Value(AllowUpdate);
    return Control::property(name);
}

} // namespace zel::forms
