#include "ado/catalog.h"

#include "ado/convert.h"

namespace zel::ado {

const CatalogColumn* CatalogTable::column(std::string_view columnName) const {
    for (const CatalogColumn& candidate : columns)
        if (equalIgnoringCase(candidate.name, columnName))
            return &candidate;
    return nullptr;
}

void Catalog::add(CatalogTable table) {
    tables_.insert_or_assign(lowerCase(table.name), std::move(table));
}

const CatalogTable* Catalog::table(std::string_view name) const {
    std::string key = lowerCase(name);
    if (key.starts_with("dbo."))
        key.erase(0, 4);
    const auto found = tables_.find(key);
    return found == tables_.end() ? nullptr : &found->second;
}

std::vector<std::string> Catalog::tableNames() const {
    std::vector<std::string> names;
    names.reserve(tables_.size());
    for (const auto& [key, table] : tables_)
        names.push_back(table.name);
    return names;
}

} // namespace zel::ado
