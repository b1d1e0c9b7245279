#include "ado/row_store.h"

#include <gtest/gtest.h>

#include <string>

namespace zel::ado {
namespace {

TEST(RowStoreTest, EveryKindOfValueComesBack) {
    const std::vector<Value> values = {Value(),
                                       true,
                                       std::int64_t{1} << 40,
                                       0.1,
                                       2.5F,
                                       Currency::fromTicks(-1),
                                       "text",
                                       DateTime::fromDate(2005, 7, 4)};
    RowStore rows(values.size());
    for (const Value& value : values)
        rows.add(value);
    ASSERT_EQ(rows.rows(), 1U);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(rows.at(0, i), values[i]) << i;
        EXPECT_EQ(rows.typeAt(0, i), values[i].type()) << i;
    }
}

TEST(RowStoreTest, TextsOfAnySizeStayWhereTheyAre) {
    RowStore rows(1);
    rows.addText("first");
    const std::string_view first = rows.textAt(0, 0);
    const std::string large(3'000'000, 'x');
    rows.addText(large);
    for (int i = 0; i < 100'000; ++i)
        rows.addText("row " + std::to_string(i));
    rows.addText("");
    EXPECT_EQ(first, "first");
    EXPECT_EQ(rows.textAt(0, 0).data(), first.data());
    EXPECT_EQ(rows.textAt(1, 0), large);
    EXPECT_EQ(rows.textAt(77'779, 0), "row 77777");
    EXPECT_EQ(rows.at(100'002, 0), Value(""));
}

TEST(RowStoreTest, ACellTakesAnotherValueOfAnyType) {
    RowStore rows(2);
    rows.addText("old");
    rows.addInteger(1);
    rows.set(0, 0, Currency::fromTicks(5));
    rows.set(0, 1, std::string("a\0b", 3));
    EXPECT_EQ(rows.at(0, 0), Value(Currency::fromTicks(5)));
    EXPECT_EQ(rows.at(0, 1), Value(std::string("a\0b", 3)));
}

TEST(RowStoreTest, AStoreWithoutColumnsHasNoRows) {
    EXPECT_EQ(RowStore(0).rows(), 0U);
}

} // namespace
} // namespace zel::ado
