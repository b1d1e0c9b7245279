#include "ado/sql/outline.h"

#include <gtest/gtest.h>

namespace zel::ado::sql {
namespace {

std::string conditioned(const char* statement) {
    const Sql text = Sql::words(statement);
    const Outline parts = outline(statement);
    EXPECT_TRUE(parts.takesCondition()) << statement;
    return withCondition(text, parts, Sql("x = 1 or y = 2")).text();
}

std::string ordered(const char* statement, bool keepOld = false) {
    return withOrder(Sql::words(statement), outline(statement), Sql("Name DESC"), keepOld).text();
}

TEST(Outline, AConditionGetsAWhereOfItsOwn) {
    EXPECT_EQ(conditioned("select * from Persons"), "select * from Persons WHERE (x = 1 or y = 2)");
    EXPECT_EQ(conditioned("select * from Persons ;"), "select * from Persons WHERE (x = 1 or y = 2) ;");
    EXPECT_EQ(conditioned("select * from Persons  order by LastName"),
              "select * from Persons WHERE (x = 1 or y = 2)  order by LastName");
}

TEST(Outline, AConditionJoinsTheWhereThatIsThere) {
    EXPECT_EQ(conditioned("select * from Persons WHERE a = 1 OR b = 'order by' order by c"),
              "select * from Persons WHERE (a = 1 OR b = 'order by') AND (x = 1 or y = 2) order by c");
}

TEST(Outline, AWhereInASubqueryIsNotTheStatementsOwn) {
    EXPECT_EQ(conditioned("select * from A where B in (select B from C where D = 1 order by E)"),
              "select * from A where (B in (select B from C where D = 1 order by E)) AND (x = 1 or y = 2)");
    EXPECT_EQ(conditioned("select (select 1 from B where C = 1) as D from A"),
              "select (select 1 from B where C = 1) as D from A WHERE (x = 1 or y = 2)");
}

TEST(Outline, ACommentBehindTheStatementSwallowsNothing) {
    EXPECT_EQ(conditioned("select * from A -- all"), "select * from A WHERE (x = 1 or y = 2) -- all");
}

TEST(Outline, AnOrderReplacesTheOldOrLeadsIt) {
    EXPECT_EQ(ordered("select * from A"), "select * from A ORDER BY Name DESC");
    EXPECT_EQ(ordered("select * from A ORDER BY B, C desc;"), "select * from A ORDER BY Name DESC;");
    EXPECT_EQ(ordered("select * from A ORDER BY B, C desc", true), "select * from A ORDER BY Name DESC, B, C desc");
}

TEST(Outline, ColumnsGoBehindTheSelectList) {
    const Sql text = "Select FedCode from Persons where ResourceID = " + Sql::of(7);
    const Sql wide = withColumns(text, outline(text.text()), Sql("Persons.PersonID as k"));
    EXPECT_EQ(wide.text(), "Select FedCode, Persons.PersonID as k from Persons where ResourceID = 7");
    ASSERT_EQ(wide.values().size(), 1U);
    EXPECT_EQ(wide.values()[0].begin, wide.text().size() - 1);
}

TEST(Outline, NamesTheItemsOfTheSelectList) {
    const Outline parts =
        outline("select distinct A.*, B.Name as N, Left(C, 1) Letter, [Primary], D + 'x', * from A, B");
    ASSERT_EQ(parts.items.size(), 6U);
    EXPECT_TRUE(parts.distinct);
    EXPECT_TRUE(parts.items[0].isStar);
    EXPECT_EQ(parts.items[0].table, "A");
    EXPECT_EQ(parts.items[1].name, "N");
    EXPECT_EQ(parts.items[1].table, "B");
    EXPECT_EQ(parts.items[1].column, "Name");
    EXPECT_EQ(parts.items[2].name, "Letter");
    EXPECT_EQ(parts.items[2].column, "");
    EXPECT_EQ(parts.items[3].name, "Primary");
    EXPECT_EQ(parts.items[3].column, "Primary");
    EXPECT_EQ(parts.items[4].name, "");
    EXPECT_TRUE(parts.items[5].isStar);
}

TEST(Outline, ItemsCoverTheirCharacters) {
    const std::string text = "select Resources.Name + ' ' + B AS CrewInfo from Resources";
    const Outline parts = outline(text);
    ASSERT_EQ(parts.items.size(), 1U);
    const SelectItem& item = parts.items[0];
    EXPECT_EQ(text.substr(item.begin, item.end - item.begin), "Resources.Name + ' ' + B AS CrewInfo");
    EXPECT_EQ(text.substr(item.begin, item.expressionEnd - item.begin), "Resources.Name + ' ' + B");
    EXPECT_EQ(item.name, "CrewInfo");
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

TEST(Outline, WhatRowsCannotBePickedFromTakesNoCondition) {
    EXPECT_FALSE(outline("select a, sum(b) from C group by a").takesCondition());
    EXPECT_FALSE(outline("select a from C union select b from D").takesCondition());
    EXPECT_FALSE(outline("select a from C limit 5").takesCondition());
    EXPECT_FALSE(outline("select Max(LastDate) as LastDate From PersonsInvoices").takesCondition());
    EXPECT_FALSE(outline("delete from C").takesCondition());
    EXPECT_FALSE(outline("").takesCondition());
    EXPECT_FALSE(outline("select 'open from C").takesCondition());
    EXPECT_FALSE(outline("select a from C where").takesCondition());
    EXPECT_FALSE(outline("select a from C where (b = 1").takesCondition());
    EXPECT_FALSE(outline("select a from C where b = 1) order by a").takesCondition());
    EXPECT_FALSE(outline("select a from C where b = 1 where d = 2").takesCondition());
    EXPECT_FALSE(outline("select a from C order by a where d = 2").takesCondition());
}

TEST(Outline, AGroupByIsWhereItsKeywordStands) {
    const std::string text = "select a, count(*) from C where b = 1 group by a order by a";
    const Outline parts = outline(text);
    EXPECT_EQ(parts.groupBegin, text.find("group"));
    EXPECT_EQ(parts.orderBegin, text.find("order"));
    EXPECT_EQ(parts.orderItemsBegin, text.rfind("a"));
    EXPECT_TRUE(parts.aggregate);
}

} // namespace
} // namespace zel::ado::sql
