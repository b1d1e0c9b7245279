#pragma once

#include "ado/error.h"
#include "forms/bookmark_set.h"
#include "forms/control.h"
#include "forms/grid_column.h"
#include "forms/row_source.h"

#include <deque>
#include <map>
#include <memory>
#include <optional>

namespace zel::forms {

/// How a row is drawn and whether it can be edited; filled by FetchRowStyle.
struct RowStyle {
    int backColor = colors::automatic, foreColor = colors::automatic;
    bool locked = false;
};

/// A grid over the rows of a record set or a list. Rows are asked for one by one, so their number does not matter.
/// The current row is that of the record set.
///
/// A cell edit runs BeforeColEdit, (on the row for a new record BeforeInsert,) Change, BeforeColUpdate, AfterColUpdate,
/// AfterColEdit. Edits gather in the row, which is written when it is left or with Update: BeforeUpdate, (AfterInsert,)
/// AfterUpdate. A handler that sets `cancel` in BeforeColUpdate puts the old value back into the cell; in BeforeUpdate
/// it keeps the row under edit.
class TDBGrid : public Control {
public:
    /// `row()` and the row arguments of a row for a new record.
    static constexpr std::int64_t newRow = -2, noRow = -1;

    TDBGrid(Place place, std::string name, int index = noIndex);
    [[nodiscard]] std::string_view typeName() const noexcept override { return "TDBGrid"; }
    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }

    void bind(Adodc& control);
    void bind(ado::Recordset& records);
    void bind(ValueArray& array);
    void unbind();
    [[nodiscard]] RowSource* source() const noexcept { return source_.get(); }
    [[nodiscard]] std::int64_t rowCount() const;

    GridColumn& addColumn(std::string caption, std::string dataField);
    /// A column without a field, filled by UnboundColumnFetch.
    GridColumn& addUnboundColumn(std::string caption);
    void removeColumns();
    /// Without columns of its own the grid takes those of its source.
    [[nodiscard]] int columnCount();
    /// By number, or by caption or field without regard to case. Throws ado::Error 3265 for one that is none.
    [[nodiscard]] GridColumn& Columns(int index);
    [[nodiscard]] GridColumn& Columns(std::string_view captionOrField);
    /// -1 for one that is none.
    [[nodiscard]] int columnIndex(std::string_view captionOrField);

    bool AllowUpdate = true, AllowAddNew = false, AllowDelete = false;
    /// FetchRowStyle and UnboundColumnFetch are asked only for rows that are drawn.
    [[nodiscard]] RowStyle rowStyle(std::int64_t row) const;
    [[nodiscard]] std::string cellText(std::int64_t row, int column);
    [[nodiscard]] Value cellValue(std::int64_t row, int column);

    /// The current row from 0, newRow or noRow. Moving writes a changed row first; false when that was refused.
    [[nodiscard]] std::int64_t row() const;
    bool setRow(std::int64_t target);
    [[nodiscard]] Bookmark bookmark() const;
    bool setBookmark(Bookmark target);
    [[nodiscard]] int Col() const noexcept { return col_; }
    void setCol(int column);
    /// The cell of the current row and column as shown.
    [[nodiscard]] std::string Text() const;
    void setText(const std::string& text);
    bool MoveFirst();
    bool MoveLast();
    bool MoveNext();
    bool MovePrevious();
    [[nodiscard]] bool BOF() const noexcept { return bof_; }
    [[nodiscard]] bool EOF_() const noexcept { return eof_; }

    /// Whether the row has edits that are not written yet.
    [[nodiscard]] bool DataChanged() const noexcept { return !edits_.empty() || inserting_; }
    /// Writes the row. False when BeforeUpdate refused; a failure of the database goes to Error, see there.
    bool Update();
    /// Throws the edits of the row away.
    void CancelUpdate();
    /// Deletes the current row through BeforeDelete and AfterDelete and stands on the next. False: refused, or no row.
    bool Delete();
    /// Show what the source now holds; edits that are not written are lost.
    void ReBind();
    void Refresh() { ReBind(); }
    /// Runs the statement of the source anew.
    void ReOpen();
    void RefetchRow() { CancelUpdate(); }
    /// Keeps the columns through the next ReBind; grids here always do, so that this is a courtesy.
    void HoldFields() {}

    /// Why the cell cannot be edited, empty when it can: grid, column and row locks.
    [[nodiscard]] std::string whyLocked(std::int64_t row, int column) const;
    /// One cell edit by the clerk in the current row, with all its events. False: refused, the old value is back.
    bool editCell(int column, const std::string& text) { return beginEdit(column) && endEdit(text); }
    /// The two halves of it: opening the cell, and leaving it with a text.
    bool beginEdit(int column);
    bool endEdit(const std::string& entered);
    void cancelEdit();
    [[nodiscard]] bool editing() const noexcept { return editing_ >= 0; }
    bool takeKey(int key) override;
    void focusGoes() override { cancelEdit(); }
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Text"; }
    void columnsChanged() { notify(Property::Columns); }

    BookmarkSet SelBookmarks;

    std::function<void(int column, bool& cancel)> BeforeColEdit;
    std::function<void(int column, Value oldValue, bool& cancel)> BeforeColUpdate;
    std::function<void(int column)> AfterColUpdate, AfterColEdit;
    std::function<void()> Change;
    std::function<void(bool&cancel)> BeforeInsert, BeforeUpdate, BeforeDelete;
    std::function<void()> AfterInsert, AfterUpdate, AfterDelete;
    std::function<void(Bookmark row, int column, Value& value)> UnboundColumnFetch;
    std::function<void(Bookmark row, RowStyle& style)> FetchRowStyle;
    std::function<void(int column)> HeadClick;
    std::function<void(std::int64_t lastRow, int lastColumn)> RowColChange;
    std::function<void()> SelChange;
    /// A write that the database refused; without a handler the ado::Error goes on to the caller of the action.
    std::function<void(const zel::ado::Error& failure)> Error;

private:
    friend class GridColumn;
    void setSource(std::unique_ptr<RowSource> source);
    void ensureColumns();
    /// Columns made from a source that has other ones now are made anew.
    void renewColumns();
    /// What was typed, with the literals of the edit mask and cut to the width of the column.
    [[nodiscard]] static std::string fittedText(const std::string& text, const GridColumn& column);
    [[nodiscard]] int namedColumn(std::string_view captionOrField) const noexcept;
    [[nodiscard]] int sourceColumn(const GridColumn& column) const;
    /// Stored, or asked for with UnboundColumnFetch.
    [[nodiscard]] Value storedValue(std::int64_t row, int column) const;
    /// Of the current row, with its edits.
    [[nodiscard]] Value currentValue(int column) const;
    [[nodiscard]] std::string currentText(int column) const;
    [[nodiscard]] std::string shownText(const Value& value, const GridColumn& column) const;
    [[nodiscard]] Value typedValue(const std::string& text, const GridColumn& column) const;
    void writeCell(int column, const Value& value);
    bool beginInsert();
    /// Writes the edits to the source; throws what the database says.
    void storeRow();
    void storeInRecords(ado::Recordset& records);
    void storeInArray(ValueArray& array);
    bool leaveRow();
    void tellMoved(std::int64_t lastRow, int lastColumn);
    bool moveBy(std::int64_t rows);
    /// The next column to the right (1) or left (-1) that is shown; -1 for none.
    [[nodiscard]] int shownColumn(int step) const;

    std::unique_ptr<RowSource> source_;
    Subscription sourceWatch_;
    std::deque<GridColumn> columns_;
    bool ownColumns_ = false;    // made from the source, not by the screen
    std::map<int, Value> edits_; // of the current row, by column
    std::optional<Value> typed_; // the cell under edit, inside BeforeColUpdate
    int col_ = 0, editing_ = -1; // editing_: the column whose cell is open
    bool onNewRow_ = false;      // the current row is the one for a new record
    bool inserting_ = false;     // BeforeInsert was raised and the record is not written yet
    bool bof_ = false, eof_ = false;
};

} // namespace zel::forms
