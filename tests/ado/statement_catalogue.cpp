#include "statement_catalogue.h"

#include <fstream>
#include <stdexcept>

namespace zel::test {

namespace {

/// What stands behind "key: " in the line, or nothing.
std::optional<std::string> behind(const std::string& line, const std::string& key) {
    if (!line.starts_with(key + ": "))
        return std::nullopt;
    return line.substr(key.size() + 2);
}

bool readLine(const std::string& line, CatalogueEntry& entry) {
    if (const auto text = behind(line, "both"))
        entry.both = *text;
    else if (const auto desktop = behind(line, "desktop"))
        entry.desktop = *desktop;
    else if (const auto server = behind(line, "server"))
        entry.server = *server;
    else if (const auto rows = behind(line, "rows"))
        entry.rows = std::stoll(*rows);
    else if (const auto differs = behind(line, "differs"))
        entry.differs = *differs;
    else if (const auto fails = behind(line, "fails"))
        entry.fails = *fails;
    else if (line == "ties: yes")
        entry.ties = true;
    else
        return false;
    return true;
}

} // namespace

std::vector<std::string> CatalogueEntry::forms() const {
    std::vector<std::string> all;
    for (const std::string& form : {both, desktop, server})
        if (!form.empty() && (all.empty() || all.back() != form))
            all.push_back(form);
    return all;
}

Catalogue readCatalogue() {
    std::ifstream file(ZEL_STATEMENT_CATALOGUE);
    if (!file)
        throw std::runtime_error("cannot read " ZEL_STATEMENT_CATALOGUE);
    Catalogue catalogue;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with("#"))
            continue;
        if (line.starts_with("== "))
            catalogue.entries.emplace_back().name = line.substr(3);
        else if (const auto statement = behind(line, "given"))
            catalogue.given.push_back(*statement);
        else if (catalogue.entries.empty() || !readLine(line, catalogue.entries.back()))
            throw std::runtime_error("not understood: " + line);
    }
    return catalogue;
}

} // namespace zel::test
