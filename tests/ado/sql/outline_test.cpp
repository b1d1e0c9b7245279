#include "ado/sql/outline.h"

#include <gtest/gtest.h>

namespace zel::ado::sql {
namespace {

TEST(Outline, ColumnsGoBehindTheSelectList) {
    const Sql text = "Select FedCode from Persons where ResourceID = " + Sql::of(7);
    const Sql wide = withColumns(text, outline(text.text()), Sql("Persons.PersonID as k"));
    EXPECT_EQ(wide.text(), "Select FedCode, Persons.PersonID as k from Persons where ResourceID = 7");
    ASSERT_EQ(wide.values().size(), 1U);
    EXPECT_EQ(wide.values()[0].begin, wide.text().size() - 1);
}

TEST(Outline, AColumnIsPartedFromAFromThatFollowsANumber) {
    const Sql text = Sql::words("select 5from A");
    EXPECT_EQ(withColumns(text, outline(text.text()), Sql("k")).text(), "select 5, k from A");
}

TEST(Outline, TheSelectListEndsInFrontOfItsOwnFrom) {
    const std::string text = "select distinct Left(C, 1) Letter, (select 1 from B where C = 1) as D from A order by D";
    const Outline parts = outline(text);
    EXPECT_TRUE(parts.distinct);
    EXPECT_EQ(parts.listEnd, text.find(" from A"));
}

TEST(Outline, TheStatementEndsInFrontOfItsSemicolon) {
    const std::string text = "select * from Persons ; ";
    EXPECT_EQ(outline(text).end, text.find(" ;"));
    EXPECT_EQ(outline("select * from A -- all").end, std::string("select * from A").size());
}

TEST(Outline, KnowsASingleSourceFromAJoin) {
    EXPECT_TRUE(outline("select * from Persons").isSingleSource());
    EXPECT_TRUE(outline("select * from dbo.Persons p where a in (select b from C)").isSingleSource());
    EXPECT_FALSE(outline("select * from A, B").isSingleSource());
    EXPECT_FALSE(outline("select * from A inner join B on A.x = B.x").isSingleSource());
    EXPECT_FALSE(outline("select max(x) from A").isSingleSource());
    EXPECT_FALSE(outline("select 1").isSingleSource());
}

TEST(Outline, FindsSourcesThroughBracketsAndNestedJoins) {
    const Outline parts =
        outline("SELECT * FROM (AccountingCodes RIGHT OUTER JOIN Resources R INNER JOIN Persons AS P ON "
                "R.a = P.a ON AccountingCodes.b = P.b) LEFT JOIN (select 1 as x) S ON P.c = S.x");
    ASSERT_EQ(parts.sources.size(), 4U);
    EXPECT_EQ(parts.sources[0].alias, "AccountingCodes");
    EXPECT_EQ(parts.sources[1].table, "Resources");
    EXPECT_EQ(parts.sources[1].alias, "R");
    EXPECT_EQ(parts.sources[2].alias, "P");
    EXPECT_EQ(parts.sources[3].table, "");
    EXPECT_EQ(parts.sources[3].alias, "S");
}

TEST(Outline, WhatRowsOfATableCannotBePickedFromIsNoSingleSource) {
    EXPECT_FALSE(outline("select a, sum(b) from C group by a").isSingleSource());
    EXPECT_FALSE(outline("select a from C union select b from D").isSingleSource());
    EXPECT_FALSE(outline("select a from C limit 5").isSingleSource());
    EXPECT_FALSE(outline("select Max(LastDate) as LastDate From PersonsInvoices").isSingleSource());
    EXPECT_FALSE(outline("delete from C").isSingleSource());
    EXPECT_FALSE(outline("").isSingleSource());
    EXPECT_FALSE(outline("select 'open from C").isSingleSource());
    EXPECT_FALSE(outline("select a from C where").isSingleSource());
    EXPECT_FALSE(outline("select a from C where (b = 1").isSingleSource());
    EXPECT_FALSE(outline("select a from C where b = 1) order by a").isSingleSource());
    EXPECT_FALSE(outline("select a from C where b = 1 where d = 2").isSingleSource());
    EXPECT_FALSE(outline("select a from C order by a where d = 2").isSingleSource());
}

} // namespace
} // namespace zel::ado::sql
