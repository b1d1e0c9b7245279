#include "forms/row_source.h"

#include "forms/adodc.h"

#include <algorithm>

namespace zel::forms {

namespace {

class ArraySource final : public RowSource {
public:
    explicit ArraySource(ValueArray& array) : array_(array) {}

    [[nodiscard]] std::int64_t rowCount() const override { return array_.rows(); }
    [[nodiscard]] int columnCount() const override { return array_.columns(); }
    [[nodiscard]] std::string columnName(int column) const override {
        const auto& names = array_.columnNames();
        return column < static_cast<int>(names.size()) ? names[column] : std::string();
    }
    [[nodiscard]] int columnIndex(std::string_view name) const override { return array_.columnIndex(name); }
    [[nodiscard]] Value cell(std::int64_t row, int column) const override {
        return column < array_.columns() ? array_(static_cast<int>(row), column) : Value();
    }
    [[nodiscard]] Bookmark bookmarkAt(std::int64_t row) const override { return row + 1; }
    [[nodiscard]] std::int64_t rowOf(Bookmark bookmark) const override {
        return bookmark >= 1 && bookmark <= rowCount() ? bookmark - 1 : -1;
    }
    [[nodiscard]] std::int64_t currentRow() const override {
        return rowCount() == 0 ? -1 : std::min(current_, rowCount() - 1);
    }
    void moveTo(std::int64_t row) override { current_ = row; }
    [[nodiscard]] ValueArray* array() const override { return &array_; }

private:
    ValueArray& array_;
    std::int64_t current_ = 0;
};

/// Rows of a record set, which may be closed at times: it has no rows and columns then.
class RecordsSource : public RowSource {
public:
    [[nodiscard]] std::int64_t rowCount() const override {
        const auto* open = records();
        return open == nullptr ? 0 : open->RecordCount();
    }
    [[nodiscard]] int columnCount() const override {
        const auto* open = records();
        return open == nullptr ? 0 : static_cast<int>(open->fieldCount());
    }
    [[nodiscard]] std::string columnName(int column) const override { return records()->fieldInfo(column).name; }
    [[nodiscard]] int columnIndex(std::string_view name) const override {
        const auto* open = records();
        return open != nullptr && open->hasField(name) ? static_cast<int>(open->fieldIndex(name)) : -1;
    }
    [[nodiscard]] Value cell(std::int64_t row, int column) const override {
        return records()->valueAt(row + 1, column);
    }
    [[nodiscard]] Bookmark bookmarkAt(std::int64_t row) const override { return records()->bookmarkAt(row + 1); }
    [[nodiscard]] std::int64_t rowOf(Bookmark bookmark) const override;
    [[nodiscard]] std::int64_t currentRow() const override {
        const auto* open = records();
        const auto position = open == nullptr ? -1 : open->AbsolutePosition();
        return position >= 1 && position <= open->RecordCount() ? position - 1 : -1;
    }
    void moveTo(std::int64_t row) override {
        // Standing still must not write what a screen has pending in the row; a move would.
        if (currentRow() != row || records()->EditMode() == ado::EditModeEnum::None)
            records()->setAbsolutePosition(row + 1);
    }
};

std::int64_t RecordsSource::rowOf(Bookmark bookmark) const {
    const auto rows = rowCount();
    const auto* open = records();
    // As long as nothing was sorted, filtered or deleted the bookmark is the position, or near it.
    if (bookmark >= 1 && bookmark <= rows && open->bookmarkAt(bookmark) == bookmark)
        return bookmark - 1;
    for (std::int64_t position = 1; position <= rows && bookmark > 0; ++position) {
        if (open->bookmarkAt(position) == bookmark)
            return position - 1;
    }
    return -1;
}

class RecordsetSource final : public RecordsSource {
public:
    explicit RecordsetSource(ado::Recordset& records) : records_(records) {}
    [[nodiscard]] ado::Recordset* records() const override {
        return records_.State() == ado::stateOpen ? &records_ : nullptr;
    }

private:
    ado::Recordset& records_;
};

class AdodcSource final : public RecordsSource {
public:
    explicit AdodcSource(Adodc& control) : control_(control) {}
    [[nodiscard]] ado::Recordset* records() const override {
        return control_.isOpen() ? &control_.Recordset() : nullptr;
    }
    [[nodiscard]] int generation() const override { return control_.openings(); }

private:
    Adodc& control_;
};

} // namespace

std::unique_ptr<RowSource> arraySource(ValueArray& array) {
    return std::make_unique<ArraySource>(array);
}

std::unique_ptr<RowSource> recordsetSource(ado::Recordset& records) {
    return std::make_unique<RecordsetSource>(records);
}

std::unique_ptr<RowSource> adodcSource(Adodc& control) {
    return std::make_unique<AdodcSource>(control);
}

} // namespace zel::forms
