#include "services/list_rows.h"

#include "ado/convert.h"

namespace zel::services {

namespace {

bool shows(const forms::ValueArray& list, int row, int column, std::string_view value) {
    return ado::equalIgnoringCase(ado::toText(list(row, column)), value);
}

bool hasColumn(const forms::ValueArray& list, int column) {
    return column >= 0 && column < list.columns();
}

} // namespace

int FindListRow(const forms::ValueArray& list, int column, std::string_view value) {
    for (int row = 0; hasColumn(list, column) && row < list.rows(); ++row) {
        if (shows(list, row, column, value))
            return row;
    }
    return forms::ValueArray::none;
}

int FindListRow(const forms::ValueArray& list, int column, std::string_view value, int secondColumn,
                std::string_view secondValue) {
    for (int row = 0; hasColumn(list, column) && hasColumn(list, secondColumn) && row < list.rows(); ++row) {
        if (shows(list, row, column, value) && shows(list, row, secondColumn, secondValue))
            return row;
    }
    return forms::ValueArray::none;
}

std::string listText(const forms::ValueArray& list, int row, int column) {
    if (row < 0 || row >= list.rows() || !hasColumn(list, column))
        return {};
    return ado::toText(list(row, column));
}

} // namespace zel::services
