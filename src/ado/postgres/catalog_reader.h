#pragma once

#include "ado/catalog.h"

#include <map>
#include <string>
#include <unordered_map>

namespace zel::ado {
class Engine;
}

namespace zel::ado::postgres {

/// What the server says of its tables. Results name their columns by the numbers of table and column.
struct ServerTables {
    struct Column {
        std::string name;
        /// As the schema spells it; empty where nobody says.
        std::string spelling;
    };
    struct Numbered {
        std::string name;
        bool isView = false;
        std::map<int, Column> columns;
    };
    Catalog catalog;
    std::unordered_map<unsigned, Numbered> byNumber;
};

[[nodiscard]] ServerTables readTables(Engine& engine);

} // namespace zel::ado::postgres
