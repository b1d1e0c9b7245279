#include "korvandb/target.h"
#include "support/run_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace zel::korvandb {
namespace {

TEST(Target, A_name_without_slash_or_with_an_ending_is_a_file) {
    for (const char* text :
         {"Korvan.mdb", "korvan", "data/Korvan.mdb", "/srv/data/Korvan.mdb", "./korvan", "../a/korvan"})
        EXPECT_TRUE(Target(text).isFile()) << text;
    EXPECT_EQ(Target("data/Korvan.mdb").file(), "data/Korvan.mdb");
}

TEST(Target, The_last_slash_parts_server_and_catalog) {
    const Target host("db.fire.example:5433/korvan");
    EXPECT_FALSE(host.isFile());
    EXPECT_EQ(host.server(), "db.fire.example:5433");
    EXPECT_EQ(host.catalog(), "korvan");

    const Target socket("/run/postgresql:5433/korvan_2005");
    EXPECT_EQ(socket.server(), "/run/postgresql:5433");
    EXPECT_EQ(socket.catalog(), "korvan_2005");
}

TEST(Target, A_file_that_exists_is_a_file_without_an_ending_too) {
    const std::filesystem::path file = zel::test::runFolder() / "plain";
    EXPECT_FALSE(Target(file.string()).isFile());
    std::ofstream(file) << "x";
    EXPECT_TRUE(Target(file.string()).isFile());
    std::filesystem::remove(file);
}

} // namespace
} // namespace zel::korvandb
