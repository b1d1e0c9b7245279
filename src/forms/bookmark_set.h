#pragma once

#include "ado/recordset.h"

#include <functional>
#include <unordered_map>
#include <vector>

namespace zel::forms {

using ado::Bookmark;
class RowSource;

/// The selected rows of a list or grid, in the order they were selected.
class BookmarkSet {
public:
    explicit BookmarkSet(std::function<void()> changed) : changed_(std::move(changed)) {}

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(rows_.size()); }
    [[nodiscard]] Bookmark operator()(int index) const { return rows_.at(index); }
    [[nodiscard]] const std::vector<Bookmark>& all() const noexcept { return rows_; }
    /// A row that is selected already keeps its place.
    void Add(Bookmark row);
    /// By position.
    void Remove(int index);
    void Clear();
    void assign(const std::vector<Bookmark>& rows);
    [[nodiscard]] bool contains(Bookmark row) const { return position_.contains(row); }
    /// -1 for a row that is not selected.
    [[nodiscard]] int position(Bookmark row) const;

    /// Drops the marks whose rows are not there any more; all of them when the source is another one or opened anew.
    void follow(const RowSource* source);

private:
    const RowSource* source_ = nullptr;
    int generation_ = 0;
    std::vector<Bookmark> rows_;
    std::unordered_map<Bookmark, int> position_;
    std::function<void()> changed_;
};

} // namespace zel::forms
