#include "korvandb/info.h"

#include "korvandb/ddl.h"
#include "korvandb/rows.h"

#include <fmt/format.h>

#include <iterator>

namespace zel::korvandb {

namespace {

std::string versions(ado::Engine& engine) {
    const Rows rows(engine, "SELECT Module, Version FROM Version ORDER BY Module");
    std::string line = "Version    ";
    for (std::size_t row = 0; row < rows.size(); ++row)
        line += fmt::format("{}{} {}", row == 0 ? "" : ", ", rows.text(row, 0), rows.text(row, 1));
    return line + "\n";
}

std::string incidents(ado::Engine& engine) {
    const Rows rows(engine,
                    "SELECT IncidentID, IncidentNumber, IncidentName, "
                    "(SELECT count(*) FROM Resources WHERE Resources.IncidentID = Incidents.IncidentID), "
                    "(SELECT count(*) FROM Persons INNER JOIN Resources ON Persons.ResourceID = Resources.ResourceID "
                    "WHERE Resources.IncidentID = Incidents.IncidentID) FROM Incidents ORDER BY IncidentID");
    std::string lines = fmt::format("Incidents  {}\n", rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        lines += fmt::format("    {:>4}  {:<13}  {}: {} resources, {} persons\n", rows.text(row, 0), rows.text(row, 1),
                             rows.text(row, 2), rows.text(row, 3), rows.text(row, 4));
    return lines;
}

std::string tables(ado::Engine& engine) {
    const auto words = ddlWords(engine.kind());
    std::string lines = "Table                       Rows   Next key\n";
    for (const Table& table : theSchema().tables) {
        if (engine.catalog().table(table.name) == nullptr)
            continue;
        const std::int64_t count = Rows(engine, "SELECT count(*) FROM " + words->object(table.name)).number(0, 0);
        if (count == 0 || table.name == "NextNumbers")
            continue;
        const Rows next(engine, fmt::format("SELECT NextNumber FROM NextNumbers WHERE TableName = '{}'", table.name));
        const std::string line =
            fmt::format("{:<22} {:>9}  {:>9}", table.name, count, next.empty() ? "" : next.text(0, 0));
        lines += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return lines;
}

} // namespace

std::string describe(ado::Engine& engine) {
    return fmt::format("Database   {}\n", engine.connectionText()) + versions(engine) + incidents(engine) +
           tables(engine);
}

} // namespace zel::korvandb
