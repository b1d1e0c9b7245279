#include "ado/row_store.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace zel::ado {

namespace {

constexpr std::size_t firstBlock = 16'384;
constexpr std::size_t largestBlock = 1'048'576;

} // namespace

const char* RowStore::keep(std::string_view text) {
    if (text.empty())
        return "";
    if (text.size() > blockSize_ - blockUsed_) {
        if (text.size() > largestBlock / 4) {
            // A block of its own, put in front, so that the block being filled stays the last one.
            auto own = std::make_unique_for_overwrite<char[]>(text.size());
            std::memcpy(own.get(), text.data(), text.size());
            const char* place = own.get();
            blocks_.insert(blocks_.begin(), std::move(own));
            return place;
        }
        const std::size_t grown = std::clamp(blockSize_ * 2, firstBlock, largestBlock);
        const std::size_t size = std::max(grown, text.size());
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
        blockSize_ = size;
        blockUsed_ = 0;
    }
    char* place = blocks_.back().get() + blockUsed_;
    std::memcpy(place, text.data(), text.size());
    blockUsed_ += text.size();
    return place;
}

void RowStore::addNull() {
    cells_.push_back({{.integer = 0}, 0, Value::Type::Null});
}

void RowStore::addFlag(bool flag) {
    cells_.push_back({{.integer = flag ? 1 : 0}, 0, Value::Type::Boolean});
}

void RowStore::addInteger(std::int64_t number) {
    cells_.push_back({{.integer = number}, 0, Value::Type::Integer});
}

void RowStore::addDouble(double number) {
    cells_.push_back({{.number = number}, 0, Value::Type::Double});
}

void RowStore::addCurrency(Currency money) {
    cells_.push_back({{.integer = money.ticks()}, 0, Value::Type::Currency});
}

void RowStore::addDateTime(DateTime moment) {
    cells_.push_back({{.number = moment.serial()}, 0, Value::Type::DateTime});
}

void RowStore::addText(std::string_view text) {
    cells_.push_back({{.text = keep(text)}, static_cast<std::uint32_t>(text.size()), Value::Type::Text});
}

void RowStore::add(const Value& value) {
    cells_.push_back(makeCell(value));
}

RowStore::Cell RowStore::makeCell(const Value& value) {
    const Value::Type type = value.type();
    switch (type) {
    case Value::Type::Null:
        break;
    case Value::Type::Boolean:
        return {{.integer = value.as<bool>() ? 1 : 0}, 0, type};
    case Value::Type::Integer:
        return {{.integer = value.as<std::int64_t>()}, 0, type};
    case Value::Type::Double:
        return {{.number = value.as<double>()}, 0, type};
    case Value::Type::Single:
        return {{.number = value.as<float>()}, 0, type};
    case Value::Type::Currency:
        return {{.integer = value.as<Currency>().ticks()}, 0, type};
    case Value::Type::Text: {
        const auto& text = value.as<std::string>();
        return {{.text = keep(text)}, static_cast<std::uint32_t>(text.size()), type};
    }
    case Value::Type::DateTime:
        return {{.number = value.as<DateTime>().serial()}, 0, type};
    }
    return {{.integer = 0}, 0, Value::Type::Null};
}

Value RowStore::at(std::size_t row, std::size_t column) const {
    assert(row < rows() && column < columns_);
    const Cell& held = cell(row, column);
    switch (held.type) {
    case Value::Type::Null:
        break;
    case Value::Type::Boolean:
        return held.integer != 0;
    case Value::Type::Integer:
        return held.integer;
    case Value::Type::Double:
        return held.number;
    case Value::Type::Single:
        return static_cast<float>(held.number);
    case Value::Type::Currency:
        return Currency::fromTicks(held.integer);
    case Value::Type::Text:
        return std::string_view(held.text, held.length);
    case Value::Type::DateTime:
        return DateTime(held.number);
    }
    return {};
}

Value::Type RowStore::typeAt(std::size_t row, std::size_t column) const noexcept {
    return cell(row, column).type;
}

std::string_view RowStore::textAt(std::size_t row, std::size_t column) const noexcept {
    const Cell& held = cell(row, column);
    assert(held.type == Value::Type::Text);
    return {held.text, held.length};
}

void RowStore::set(std::size_t row, std::size_t column, const Value& value) {
    assert(row < rows() && column < columns_);
    cells_[row * columns_ + column] = makeCell(value);
}

} // namespace zel::ado
