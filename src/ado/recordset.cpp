#include "ado/recordset.h"

#include "ado/error.h"
#include "ado/rows/assignment.h"
#include "ado/rows/columns.h"
#include "ado/rows/cursor.h"
#include "ado/rows/row_writer.h"

#include <fmt/format.h>

namespace zel::ado {

namespace {

[[noreturn]] void refuseWithoutRow() {
    throw Error(ErrorKind::State, errors::bofOrEof,
                "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
                "current record.");
}

[[noreturn]] void refuseInEdit() {
    throw Error(ErrorKind::State, errors::notAllowed, "Operation is not allowed in this context.");
}

/// The bookmark of a row is its number, counted from 1.
Bookmark bookmarkOf(RowId row) {
    return Bookmark{row} + 1;
}

} // namespace

struct Recordset::State_ {
    /// What lies open; nothing when the record set is closed.
    struct Opened {
        std::shared_ptr<RowSet> rows;
        Cursor cursor;
    };
    std::optional<Opened> opened;
    Sql source, filter;
    std::string sort;
    bool writable = false;
    EditModeEnum mode = EditModeEnum::None;
    RowId edited = 0;
    PendingRow pending;

    Opened& open() {
        if (!opened)
            throw Error(ErrorKind::State, errors::objectClosed, "Operation is not allowed when the object is closed.");
        return *opened;
    }
    RowSet& rows() { return *open().rows; }

    /// A move writes what is pending, as leaving a row of a grid does.
    Cursor& settled() {
        open();
        update();
        return opened->cursor;
    }

    RowId current() {
        const auto row = open().cursor.current();
        if (!row)
            refuseWithoutRow();
        return *row;
    }

    void refuseReadOnly() {
        if (!writable)
            throw Error(ErrorKind::ReadOnly, errors::notProvided,
                        "Current Recordset does not support updating. This may be a limitation of the provider, or of "
                        "the selected locktype.");
    }

    void endEdit() {
        mode = EditModeEnum::None;
        pending.clear();
    }

    void update() {
        if (mode == EditModeEnum::None)
            return;
        RowWriter writer(rows());
        if (mode == EditModeEnum::Add)
            opened->cursor.standOnAdded(writer.insert(pending));
        else
            writer.update(edited, pending);
        endEdit();
    }

    [[nodiscard]] Value value(std::size_t field) {
        if (mode == EditModeEnum::None)
            return rows().store().at(current(), field);
        if (pending[field])
            return *pending[field];
        return mode == EditModeEnum::Add ? Value() : rows().store().at(edited, field);
    }

    void assign(std::size_t field, const Value& value);
};

void Recordset::State_::assign(std::size_t field, const Value& value) {
    refuseReadOnly();
    const ResultColumn& column = rows().columns()[field];
    const auto table = rows().tableOf(field);
    if (!table)
        throw Error(ErrorKind::Conversion, errors::errorsOccurred,
                    fmt::format("{} is worked out and cannot be written.", column.name));
    Value assigned = assignedValue(value, column);
    if (mode == EditModeEnum::None) {
        edited = current();
        pending.assign(rows().columns().size(), std::nullopt);
    }
    if (mode != EditModeEnum::Add && rows().isNullSide(edited, *table)) {
        if (assigned.isEmpty())
            return; // there is no such row, and nothing is put into it
        throw Error(ErrorKind::State, errors::errorsOccurred,
                    fmt::format("{} cannot be written: this row has no {}.", column.name, column.baseTable));
    }
    if (mode == EditModeEnum::None)
        mode = EditModeEnum::InProgress;
    pending[field] = std::move(assigned);
}

Recordset::Recordset() : state_(std::make_unique<State_>()) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(Sql source, Connection& connection, CursorType, LockType lock) {
    if (state_->opened)
        throw Error(ErrorKind::State, errors::objectOpen, "Operation is not allowed when the object is open.");
    if (source.text().find_first_of(" \t\r\n") == std::string::npos)
        source = "select * from " + source;
    const bool writable = lock != LockType::ReadOnly;
    auto rows = std::make_shared<RowSet>(connection, source, writable);
    Cursor cursor(rows);
    *state_ = {};
    state_->opened = State_::Opened{std::move(rows), std::move(cursor)};
    state_->source = std::move(source);
    state_->writable = writable;
}

void Recordset::Close() {
    state_->open();
    if (state_->mode != EditModeEnum::None)
        refuseInEdit();
    *state_ = {};
}

void Recordset::Requery() {
    RowSet& old = state_->rows();
    if (state_->mode != EditModeEnum::None)
        refuseInEdit();
    auto rows = std::make_shared<RowSet>(old.connection(), state_->source, state_->writable);
    Cursor cursor(rows);
    cursor.setFilter(Criteria::filter(state_->filter.text(), rows->columns()));
    cursor.setSort(parseSort(state_->sort, rows->columns()));
    state_->opened = State_::Opened{std::move(rows), std::move(cursor)};
}

int Recordset::State() const noexcept {
    return state_->opened ? stateOpen : stateClosed;
}

const Sql& Recordset::Source() const noexcept {
    return state_->source;
}

Connection* Recordset::ActiveConnection() const noexcept {
    return state_->opened ? &state_->opened->rows->connection() : nullptr;
}

bool Recordset::BOF() const {
    return state_->mode != EditModeEnum::Add && state_->open().cursor.atBegin();
}

bool Recordset::EOF_() const {
    return state_->mode != EditModeEnum::Add && state_->open().cursor.atEnd();
}

std::int64_t Recordset::RecordCount() const {
    return static_cast<std::int64_t>(state_->open().cursor.count());
}

std::int64_t Recordset::AbsolutePosition() const {
    Cursor& cursor = state_->open().cursor;
    if (cursor.count() == 0)
        return positionUnknown;
    if (const auto place = cursor.place())
        return static_cast<std::int64_t>(*place) + 1;
    return cursor.atEnd() ? positionEof : positionBof;
}

void Recordset::setAbsolutePosition(std::int64_t position) {
    Cursor& cursor = state_->settled();
    if (position < 1 || position > static_cast<std::int64_t>(cursor.count()))
        refuseWithoutRow();
    cursor.moveToPlace(static_cast<std::size_t>(position - 1));
}

void Recordset::MoveFirst() {
    state_->settled().moveToPlace(0);
}

void Recordset::MoveLast() {
    Cursor& cursor = state_->settled();
    if (cursor.count() == 0)
        refuseWithoutRow();
    cursor.moveToPlace(cursor.count() - 1);
}

void Recordset::MoveNext() {
    state_->settled().moveBy(1);
}

void Recordset::MovePrevious() {
    state_->settled().moveBy(-1);
}

void Recordset::Move(std::int64_t rows) {
    state_->settled().moveBy(rows);
}

Bookmark Recordset::bookmark() const {
    return bookmarkOf(state_->current());
}

void Recordset::setBookmark(Bookmark row) {
    Cursor& cursor = state_->settled();
    if (row < 1 || row > Bookmark{UINT32_MAX} || !cursor.moveToRow(static_cast<RowId>(row - 1)))
        throw Error(ErrorKind::State, errors::invalidArgument, "Bookmark is invalid.");
}

void Recordset::Find(std::string_view criteria, std::int64_t skipRows, SearchDirection direction, Bookmark start) {
    Cursor& cursor = state_->settled();
    const Criteria sought = Criteria::term(criteria, state_->rows().columns());
    if (start != 0)
        setBookmark(start);
    const auto place = cursor.place();
    if (!place)
        refuseWithoutRow();
    const bool backward = direction == SearchDirection::Backward;
    cursor.find(sought, static_cast<std::int64_t>(*place) + (backward ? -skipRows : skipRows), backward);
}

void Recordset::setFilter(Sql filter) {
    Cursor& cursor = state_->settled();
    if (valueBreaksOut(filter))
        throw Error(ErrorKind::Statement, errors::invalidArgument,
                    fmt::format("A value ends its own text early in the filter: {}", filter.text()));
    cursor.setFilter(Criteria::filter(filter.text(), state_->rows().columns()));
    state_->filter = std::move(filter);
}

const Sql& Recordset::Filter() const noexcept {
    return state_->filter;
}

void Recordset::setSort(std::string sort) {
    Cursor& cursor = state_->settled();
    cursor.setSort(parseSort(sort, state_->rows().columns()));
    state_->sort = std::move(sort);
}

const std::string& Recordset::Sort() const noexcept {
    return state_->sort;
}

Recordset Recordset::Clone() const {
    State_::Opened& original = state_->open();
    Recordset clone;
    clone.state_->opened = State_::Opened{original.rows, original.cursor.clone()};
    clone.state_->source = state_->source;
    clone.state_->writable = state_->writable;
    return clone;
}

std::size_t Recordset::fieldCount() const {
    return state_->rows().columns().size();
}

const ResultColumn& Recordset::fieldInfo(std::size_t index) const {
    return state_->rows().columns()[index];
}

std::size_t Recordset::fieldIndex(std::string_view name) const {
    return columnIndex(state_->rows().columns(), name);
}

bool Recordset::hasField(std::string_view name) const noexcept {
    return state_->opened && findColumn(state_->opened->rows->columns(), name).has_value();
}

Value Recordset::value(std::string_view field) const {
    return state_->value(fieldIndex(field));
}

Value Recordset::value(std::size_t field) const {
    if (field >= fieldCount())
        throw Error(ErrorKind::State, errors::itemNotFound, "Item cannot be found in the collection.");
    return state_->value(field);
}

Value Recordset::originalValue(std::string_view field) const {
    const std::size_t index = fieldIndex(field);
    switch (state_->mode) {
    case EditModeEnum::Add:
        return {};
    case EditModeEnum::InProgress:
        return state_->rows().store().at(state_->edited, index);
    case EditModeEnum::None:
    case EditModeEnum::Delete:
        break;
    }
    return state_->rows().store().at(state_->current(), index);
}

void Recordset::setValue(std::string_view field, const Value& value) {
    state_->assign(fieldIndex(field), value);
}

Value Recordset::valueAt(std::int64_t position, std::size_t field) const {
    const auto row = static_cast<RowId>(bookmarkAt(position) - 1);
    if (state_->mode == EditModeEnum::InProgress && row == state_->edited && state_->pending[field])
        return *state_->pending[field];
    return state_->rows().store().at(row, field);
}

Bookmark Recordset::bookmarkAt(std::int64_t position) const {
    if (position < 1)
        refuseWithoutRow();
    return bookmarkOf(state_->open().cursor.rowAt(static_cast<std::size_t>(position - 1)));
}

void Recordset::AddNew() {
    state_->settled();
    state_->refuseReadOnly();
    state_->pending.assign(fieldCount(), std::nullopt);
    state_->mode = EditModeEnum::Add;
}

void Recordset::Update() {
    state_->open();
    state_->update();
}

void Recordset::CancelUpdate() {
    state_->open();
    state_->endEdit();
}

void Recordset::Delete() {
    state_->refuseReadOnly();
    if (state_->mode == EditModeEnum::Add)
        return state_->endEdit();
    const RowId row = state_->current();
    state_->endEdit();
    RowWriter(state_->rows()).remove(row);
}

EditModeEnum Recordset::EditMode() const noexcept {
    return state_->mode;
}

} // namespace zel::ado
