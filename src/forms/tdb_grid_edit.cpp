// How cells and rows of a grid are edited, written and deleted.
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"

#include <algorithm>
#include <utility>

namespace zel::forms {

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

} // namespace zel::forms
