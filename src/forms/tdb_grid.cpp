#include "forms/tdb_grid.h"

#include "ado/convert.h"
#include "forms/adodc.h"
#include "forms/user.h"

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

int TDBGrid::shownColumn(int step) const {
    const int count = static_cast<int>(columns_.size());
    int column = col_ + step;
    while (column >= 0 && column < count && (!columns_[column].Visible() || columns_[column].Width() <= 0))
        column += step;
    return column < count ? column : -1;
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
        setCol(shownColumn(-1));
        return true;
    case keys::right:
    case keys::enter:
        setCol(shownColumn(1));
        return true;
    case keys::tab:
        if (shownColumn(1) < 0)
            return false;
        setCol(shownColumn(1));
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
