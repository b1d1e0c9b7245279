#include "ado/rows/cursor.h"

#include "ado/error.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zel::ado {

namespace {

[[noreturn]] void refuseWithoutRow() {
    throw Error(ErrorKind::State, errors::bofOrEof,
                "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
                "current record.");
}

} // namespace

void Cursor::setFilter(Criteria filter) {
    filter_ = std::move(filter);
    if (narrowed_) {
        base_.reset();
        narrowed_ = false;
    }
    arranged_ = false;
    loose_.reset();
    place_ = 0;
    gone_ = false;
}

void Cursor::setSort(std::vector<SortKey> keys) {
    sort_ = std::move(keys);
    if (!arranged_)
        return;
    takeInChanges();
    const std::optional<RowId> stoodOn = current();
    std::vector<bool> seen(rows_->store().rows());
    for (const RowId row : order_)
        seen[row] = true;
    order_ = allRows();
    std::erase_if(order_, [&](RowId row) { return !seen[row]; });
    sortRows(order_, rows_->store(), sort_);
    if (stoodOn)
        (void)moveToRow(*stoodOn);
}

Cursor Cursor::clone() {
    settle();
    Cursor other(rows_);
    other.base_ = base_;
    return other;
}

void Cursor::fetch() {
    RowSet::Fetched fetched = rows_->fetch(filter_);
    base_ = std::make_shared<const std::vector<RowId>>(std::move(fetched.order));
    narrowed_ = fetched.narrowed;
}

std::vector<RowId> Cursor::allRows() const {
    std::vector<RowId> all = *base_;
    if (!rows_->added().empty()) {
        std::vector<bool> known(rows_->store().rows());
        for (const RowId row : all)
            known[row] = true;
        std::ranges::copy_if(rows_->added(), std::back_inserter(all), [&](RowId row) { return !known[row]; });
    }
    if (rows_->removals() != 0)
        std::erase_if(all, [&](RowId row) { return rows_->isRemoved(row); });
    return all;
}

void Cursor::arrange() {
    order_ = allRows();
    if (!filter_.empty())
        std::erase_if(order_, [&](RowId row) { return !filter_.matches(rows_->store(), row) && row != loose_; });
    sortRows(order_, rows_->store(), sort_);
    arranged_ = true;
    addedSeen_ = rows_->added().size();
    removalsSeen_ = rows_->removals();
}

void Cursor::takeInChanges() {
    if (removalsSeen_ != rows_->removals()) {
        removalsSeen_ = rows_->removals();
        const auto isRemoved = [&](RowId row) { return rows_->isRemoved(row); };
        const auto here = order_.begin() + std::clamp<std::int64_t>(place_, 0, std::ssize(order_));
        gone_ = gone_ || (place_ >= 0 && here != order_.end() && isRemoved(*here));
        place_ -= std::count_if(order_.begin(), here, isRemoved);
        std::erase_if(order_, isRemoved);
    }
    for (; addedSeen_ < rows_->added().size(); ++addedSeen_) {
        const bool atEnd = !gone_ && place_ == std::ssize(order_) && !order_.empty();
        order_.push_back(rows_->added()[addedSeen_]);
        place_ += atEnd ? 1 : 0;
    }
}

void Cursor::settle() {
    if (arranged_) {
        takeInChanges();
        return;
    }
    if (!base_)
        fetch();
    arrange();
    place_ = 0;
    if (const auto stoodOn = std::exchange(loose_, std::nullopt))
        (void)moveToRow(*stoodOn);
}

std::size_t Cursor::count() {
    settle();
    return order_.size();
}

bool Cursor::atBegin() {
    settle();
    return order_.empty() || (!gone_ && place_ < 0);
}

bool Cursor::atEnd() {
    settle();
    return order_.empty() || (!gone_ && place_ >= std::ssize(order_));
}

std::optional<std::size_t> Cursor::place() {
    settle();
    if (order_.empty() || place_ < 0 || (!gone_ && place_ >= std::ssize(order_)))
        return std::nullopt;
    return static_cast<std::size_t>(place_);
}

std::optional<RowId> Cursor::current() {
    if (!arranged_ && loose_)
        return loose_;
    const auto here = place();
    if (!here || gone_)
        return std::nullopt;
    return order_[*here];
}

RowId Cursor::rowAt(std::size_t place) {
    settle();
    if (place >= order_.size())
        refuseWithoutRow();
    return order_[place];
}

void Cursor::moveToPlace(std::size_t place) {
    settle();
    if (place >= order_.size())
        refuseWithoutRow();
    place_ = static_cast<std::int64_t>(place);
    gone_ = false;
}

void Cursor::moveToBegin() {
    settle();
    place_ = -1;
    gone_ = false;
}

void Cursor::moveToEnd() {
    settle();
    place_ = std::ssize(order_);
    gone_ = false;
}

void Cursor::moveBy(std::int64_t rows) {
    if (rows == 0)
        return;
    if ((rows > 0 && atEnd()) || (rows < 0 && atBegin()))
        refuseWithoutRow();
    if (std::exchange(gone_, false) && rows > 0)
        --rows;
    place_ = std::clamp<std::int64_t>(place_ + rows, -1, std::ssize(order_));
}

bool Cursor::moveToRow(RowId row) {
    settle();
    const auto found = std::ranges::find(order_, row);
    if (found == order_.end())
        return false;
    place_ = found - order_.begin();
    gone_ = false;
    return true;
}

void Cursor::find(const Criteria& criteria, std::int64_t from, bool backward) {
    settle();
    const std::int64_t end = std::ssize(order_), step = backward ? -1 : 1;
    std::int64_t at = std::clamp<std::int64_t>(from, -1, end);
    while (at >= 0 && at < end && !criteria.matches(rows_->store(), order_[static_cast<std::size_t>(at)]))
        at += step;
    place_ = at;
    gone_ = false;
}

void Cursor::standOnAdded(RowId row) {
    if (arranged_)
        (void)moveToRow(row);
    else
        loose_ = row;
}

} // namespace zel::ado
