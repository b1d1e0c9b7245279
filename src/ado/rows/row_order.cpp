#include "ado/rows/row_order.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/rows/cells.h"
#include "ado/rows/columns.h"

#include <fmt/format.h>

#include <algorithm>

namespace zel::ado {

namespace {

bool takeSuffix(std::string_view& item, std::string_view word) {
    if (item.size() <= word.size() || !equalIgnoringCase(item.substr(item.size() - word.size()), word))
        return false;
    const char before = item[item.size() - word.size() - 1];
    if (before != ' ' && before != '\t' && before != ']')
        return false;
    item = trim(item.substr(0, item.size() - word.size()));
    return true;
}

SortKey parseItem(std::string_view item, std::string_view whole, std::span<const ResultColumn> columns) {
    SortKey key;
    key.descending = takeSuffix(item, "desc");
    if (!key.descending)
        takeSuffix(item, "asc");
    if (item.size() > 2 && item.front() == '[' && item.find(']') == item.size() - 1)
        item = item.substr(1, item.size() - 2);
    if (item.empty())
        throw Error(ErrorKind::Conversion, errors::invalidArgument, fmt::format("The sort cannot be used: {}", whole));
    key.column = columnIndex(columns, item);
    return key;
}

int rank(Value::Type type) {
    if (type == Value::Type::Null)
        return 0;
    return type == Value::Type::Text ? 2 : 1;
}

int compareCells(const RowStore& rows, RowId left, RowId right, std::size_t column) {
    const Value::Type leftType = rows.typeAt(left, column), rightType = rows.typeAt(right, column);
    if (rank(leftType) != rank(rightType))
        return rank(leftType) - rank(rightType);
    if (leftType == Value::Type::Null)
        return 0;
    if (leftType == Value::Type::Text)
        return compareIgnoringCase(rows.textAt(left, column), rows.textAt(right, column));
    const double first = cellNumber(rows, left, column), second = cellNumber(rows, right, column);
    if (first == second)
        return 0;
    return first < second ? -1 : 1;
}

} // namespace

std::vector<SortKey> parseSort(std::string_view text, std::span<const ResultColumn> columns) {
    std::vector<SortKey> keys;
    if (trim(text).empty())
        return keys;
    std::size_t begin = 0;
    while (true) {
        const std::size_t comma = text.find(',', begin);
        keys.push_back(parseItem(trim(text.substr(begin, comma - begin)), text, columns));
        if (comma == std::string_view::npos)
            return keys;
        begin = comma + 1;
    }
}

void sortRows(std::vector<RowId>& order, const RowStore& rows, std::span<const SortKey> keys) {
    if (keys.empty())
        return;
    std::ranges::stable_sort(order, [&](RowId left, RowId right) {
        for (const SortKey& key : keys) {
            const int difference = compareCells(rows, left, right, key.column);
            if (difference != 0)
                return key.descending ? difference > 0 : difference < 0;
        }
        return false;
    });
}

} // namespace zel::ado
