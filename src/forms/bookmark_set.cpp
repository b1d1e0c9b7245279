#include "forms/bookmark_set.h"

#include "forms/row_source.h"

#include <utility>

namespace zel::forms {

void BookmarkSet::Add(Bookmark row) {
    if (!position_.emplace(row, Count()).second)
        return;
    rows_.push_back(row);
    changed_();
}

void BookmarkSet::Remove(int index) {
    auto rows = rows_;
    rows.erase(rows.begin() + index);
    assign(rows);
}

void BookmarkSet::Clear() {
    if (!rows_.empty())
        assign({});
}

void BookmarkSet::assign(const std::vector<Bookmark>& rows) {
    rows_.clear();
    position_.clear();
    for (Bookmark row : rows) {
        if (position_.emplace(row, Count()).second)
            rows_.push_back(row);
    }
    changed_();
}

void BookmarkSet::follow(const RowSource* source) {
    const int generation = source == nullptr ? 0 : source->generation();
    const bool same = std::exchange(source_, source) == source && std::exchange(generation_, generation) == generation;
    generation_ = generation;
    if (rows_.empty())
        return;
    std::vector<Bookmark> left;
    for (Bookmark row : rows_) {
        if (same && source != nullptr && source->rowOf(row) >= 0)
            left.push_back(row);
    }
    assign(left);
}

int BookmarkSet::position(Bookmark row) const {
    auto found = position_.find(row);
    return found == position_.end() ? -1 : found->second;
}

} // namespace zel::forms
