#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zel::test {

/// One thing that some screen asks of the database, in the dialect forms it is worded in.
struct CatalogueEntry {
    std::string name;
    /// Either the one form, or one or both of the others.
    std::string both, desktop, server;
    std::int64_t rows = 0;
    std::string differs, fails;
    /// Its order leaves some rows in any order.
    bool ties = false;

    /// The forms that are worded, each once.
    [[nodiscard]] std::vector<std::string> forms() const;
};

struct Catalogue {
    std::vector<std::string> given;
    std::vector<CatalogueEntry> entries;
};

/// Reads statement_catalogue.txt. Throws std::runtime_error for a line that it does not understand.
[[nodiscard]] Catalogue readCatalogue();

} // namespace zel::test
