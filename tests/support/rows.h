#pragma once

#include "ado/connection.h"
#include "ado/convert.h"
#include "ado/recordset.h"

#include <string>
#include <string_view>
#include <vector>

namespace zel::test {

/// Each row of a statement as its values in default text, parted by "|".
inline std::vector<std::string> rowsOf(ado::Connection& connection, std::string_view statement) {
    ado::Recordset records;
    records.Open(ado::Sql::words(statement), connection);
    std::vector<std::string> lines;
    for (; !records.EOF_(); records.MoveNext()) {
        std::string line;
        for (std::size_t field = 0; field < records.fieldCount(); ++field)
            line += (field == 0 ? "" : "|") + ado::toText(records.value(field));
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace zel::test
