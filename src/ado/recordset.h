#pragma once

#include "ado/connection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

enum class EditModeEnum { None = 0, InProgress = 1, Add = 2, Delete = 4 };
enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
enum class SearchDirection { Forward = 1, Backward = -1 };

/// Names a row for as long as its record set (or a clone of it) is open, whatever is sorted or filtered meanwhile.
/// 0 is no row.
using Bookmark = std::int64_t;

/// Rows of a statement, held on the client in the order the statement gave them, written back row by row.
///
/// Rows are fetched when the first is needed. A Filter that is set before goes into the statement, so that the postings
/// of one person can be taken from a source that names them all; another filter then reads its own rows. Set later, it
/// works on the rows held. Rows are always sorted here: the engine would do the same work, and an empty Sort brings
/// back the statement's order without asking it again.
///
/// Update writes to the base tables that the changed columns come from, through joins and views alike. It is
/// optimistic: the row is named by its key and the old values, and a row that is not found any more is Error 0x80040E38
/// with nothing written. A new row is one row in every base table that got a value. Several tables are written all or
/// none.
///
/// Column names ignore case; of two columns with one name the first is meant.
class Recordset {
public:
    static constexpr int positionUnknown = -1, positionBof = -2, positionEof = -3;

    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// A text without a blank is a table's name. Throws Error 3705 when already open. Fails here for a statement that
    /// cannot run, even though the rows come later.
    void Open(Sql source, Connection& connection, CursorType cursor = CursorType::Static,
              LockType lock = LockType::Optimistic);
    /// Gives up rows and statement. Throws Error 3704 when closed, and State error when an edit is pending.
    void Close();
    /// Runs the statement again, Filter and Sort kept, and stands on the first row.
    void Requery();
    [[nodiscard]] int State() const noexcept;
    [[nodiscard]] const Sql& Source() const noexcept;
    [[nodiscard]] Connection* ActiveConnection() const noexcept;

    [[nodiscard]] bool BOF() const;
    [[nodiscard]] bool EOF_() const;
    [[nodiscard]] std::int64_t RecordCount() const;
    /// From 1; positionBof, positionEof or, without rows, positionUnknown.
    [[nodiscard]] std::int64_t AbsolutePosition() const;
    void setAbsolutePosition(std::int64_t position);
    void MoveFirst();
    void MoveLast();
    /// Past the last row is EOF; from EOF it is Error 3021. MovePrevious likewise at the other end.
    void MoveNext();
    void MovePrevious();
    void Move(std::int64_t rows);
    [[nodiscard]] Bookmark bookmark() const;
    /// Throws Error 3001 for a row that is not there (deleted or filtered out rows included).
    void setBookmark(Bookmark row);

    /// `field = value` with = <> < > <= >= like; text in quotes of either kind or #, `*` and `%` as wildcards. Begins
    /// with the current row, or with the row at `start`; no hit stands at EOF (BOF backwards).
    void Find(std::string_view criteria, std::int64_t skipRows = 0,
              SearchDirection direction = SearchDirection::Forward, Bookmark start = 0);
    /// Terms as in Find joined by and, or, brackets, and `is null`. Empty shows all rows. Stands on the first row left.
    void setFilter(Sql filter);
    [[nodiscard]] const Sql& Filter() const noexcept;
    /// "LastName, FirstName DESC"; empty is the statement's order. Keeps the current row.
    void setSort(std::string sort);
    [[nodiscard]] const std::string& Sort() const noexcept;
    /// Shares the rows, with a position, filter and sort of its own.
    [[nodiscard]] Recordset Clone() const;

    [[nodiscard]] std::size_t fieldCount() const;
    [[nodiscard]] const ResultColumn& fieldInfo(std::size_t index) const;
    /// Throws Error 3265 for an unknown name.
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const;
    [[nodiscard]] bool hasField(std::string_view name) const noexcept;
    /// Of the current row, with what was assigned so far. Error 3021 without a current row.
    [[nodiscard]] Value value(std::string_view field) const;
    [[nodiscard]] Value value(std::size_t field) const;
    /// The value as it was read, without what is pending.
    [[nodiscard]] Value originalValue(std::string_view field) const;
    /// Begins an edit where none is under way. Converts to the column's type: text to a date, a number, a flag (any
    /// number but 0 is 1). Impossible text is Error 0x80040E21 and the field keeps its value.
    void setValue(std::string_view field, const Value& value);
    /// For a front end that shows many rows: any row by its position from 1, without moving.
    [[nodiscard]] Value valueAt(std::int64_t position, std::size_t field) const;
    [[nodiscard]] Bookmark bookmarkAt(std::int64_t position) const;

    void AddNew();
    void Update();
    void CancelUpdate();
    /// Deletes the row from the first base table with a key in the statement; the position stays, at EOF or the next
    /// row only after a move.
    void Delete();
    [[nodiscard]] EditModeEnum EditMode() const noexcept;

private:
    struct State_;
    std::unique_ptr<State_> state_;
};

} // namespace zel::ado
