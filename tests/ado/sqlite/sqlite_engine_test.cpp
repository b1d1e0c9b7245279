#include "ado/row_store.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace zel::ado {
namespace {

TEST(SqliteEngine, CellsComeBackInTheTypeOfTheirColumn) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "zel_cells_test.mdb";
    createSqliteFile(
        file,
        [](Engine& e) {
            for (const char* text :
                 {"CREATE TABLE Version (Module CITEXT COLLATE NOCASE, Version CITEXT)",
                  "CREATE TABLE NextNumbers (TableName CITEXT COLLATE NOCASE PRIMARY KEY, NextNumber INTEGER)",
                  "CREATE TABLE P (PID INTEGER PRIMARY KEY, M MONEYTEXT COLLATE ZMONEY, D DATETEXT, F FLAGINT)"})
                e.prepare(text, true)->execute({});
        },
        true);
    auto e = openSqlite(file);
    auto insert = e->prepare("INSERT INTO P VALUES (?1,?2,?3,?4)", true);
    EXPECT_EQ(
        insert->execute(std::array<Value, 4>{5, Currency::fromTicks(182000), DateTime::fromDate(2005, 7, 4), true}), 1);
    EXPECT_EQ(insert->execute(std::array<Value, 4>{6, Currency::fromTicks(1), Value(), false}), 1);
    RowStore rows(6);
    auto select =
        e->prepare("SELECT PID, M, D, F, (select sum(M) from P), (select max(D) from P) FROM P x ORDER BY M", false);
    select->query({}, rows);
    EXPECT_EQ(rows.at(0, 0), Value(6));
    EXPECT_EQ(rows.at(1, 1), Value(Currency::fromTicks(182000)));
    EXPECT_EQ(rows.at(1, 2), Value(DateTime::fromDate(2005, 7, 4)));
    EXPECT_EQ(rows.at(1, 3), Value(true));
    EXPECT_EQ(rows.at(1, 4), Value(Currency::fromTicks(182001)));
    EXPECT_EQ(rows.at(1, 5), Value(DateTime::fromDate(2005, 7, 4)));
    EXPECT_EQ(select->columns()[1].baseTable, "P");
    EXPECT_EQ(e->nextNumber("p", ""), 7);
    EXPECT_EQ(e->nextNumber("P", "PID"), 8);
    EXPECT_EQ(e->catalog().table("P")->key, "PID");
}

} // namespace
} // namespace zel::ado
