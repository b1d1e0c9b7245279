#include "forms/value_array.h"

#include "ado/error.h"

#include <gtest/gtest.h>

namespace zel::forms {

namespace {

ValueArray accounts() {
    ValueArray list(2);
    list.setColumnNames({"AcctCode", "AcctID"});
    list.addRow({"P6AB12", 7});
    list.addRow({"P6CD34", 8});
    return list;
}

} // namespace

TEST(ValueArrayTest, CellsAreFoundByNumberAndByName) {
    const ValueArray list = accounts();
    EXPECT_EQ(list.rows(), 2);
    EXPECT_EQ(list(1, 0), Value("P6CD34"));
    EXPECT_EQ(list(0, "ACCTID"), Value(7));
    EXPECT_EQ(list.columnIndex("nothing"), ValueArray::none);
}

TEST(ValueArrayTest, OutsideIsRefused) {
    const ValueArray list = accounts();
    EXPECT_THROW((void)list(2, 0), ado::Error);
    EXPECT_THROW((void)list(0, 2), ado::Error);
    EXPECT_THROW((void)list(-1, 0), ado::Error);
    EXPECT_THROW((void)list(0, "nothing"), ado::Error);
    EXPECT_THROW((void)ValueArray()(0, 0), ado::Error);
}

TEST(ValueArrayTest, RowsAreAddedInsertedAndDeleted) {
    ValueArray list = accounts();
    list.insertRow(0, {"FIRST"});
    EXPECT_EQ(list(0, 0), Value("FIRST"));
    EXPECT_TRUE(list(0, 1).isNull());
    list.deleteRow(1);
    EXPECT_EQ(list.rows(), 2);
    EXPECT_EQ(list(1, 1), Value(8));
}

TEST(ValueArrayTest, RedimKeepsWhatFits) {
    ValueArray list = accounts();
    list.redim(3, 1);
    EXPECT_EQ(list.rows(), 3);
    EXPECT_EQ(list(1, 0), Value("P6CD34"));
    EXPECT_TRUE(list(2, 0).isNull());
    list.clear();
    EXPECT_EQ(list.rows(), 0);
    EXPECT_EQ(list.columns(), 1);
}

TEST(ValueArrayTest, FirstRowGivesAnEmptyArrayItsColumns) {
    ValueArray list;
    list.addRow({1, 2, 3});
    EXPECT_EQ(list.columns(), 3);
    EXPECT_EQ(list.rows(), 1);
}

} // namespace zel::forms
